// The level-3 routines of ORV and of the comparison library, timed in the
// same run, with the register-only peak loop of ORV's code path and ORV's own
// dgemm at the same size as yardsticks (bench/gemm.cpp times dgemm in detail).
//
//   orv_bench_level3 [--routines=zgemm,dtrsm,...] [--sizes=100,500,1000]
//                    [--sides=L,R] [--uplos=L,U] [--trans=N,T,C] [--diags=N,U]
//                    [--all_options] [--threads=1] [--peak=avx2_fma]
//                    [--summary_out=FILE] [Google Benchmark options]
//
// Sizes are square: m = n = k. Each routine runs the first letter it accepts
// of every option it takes (dtrsm L,L,N,N; zherk L,N; zgemm N,N), or with
// --all_options every combination that names a different operation; an
// option list given replaces either for that option. dgemm and zgemm take
// --trans for both transposes; dgemm N,N runs at every size whatever the
// list. Flop counts: level3_ops.cpp. With --benchmark_repetitions the summary
// shows each library's fastest repetition: on a shared host the slow ones
// measure the neighbours.

#include "bench/compare.h"
#include "bench/level3_ops.h"
#include "orv.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

namespace {

using bench::RefBlas;
using l3::Case;

std::string row_name(const Case& c, const std::string& lib)
{
    std::string letters = c.options();
    letters.erase(std::remove(letters.begin(), letters.end(), ','), letters.end());
    return std::string(c.routine->name) + "/" + letters + "/" + std::to_string(c.m) + "/" + lib;
}

// The operands of the case that ran last: both libraries' rows of a case use
// the same matrices, built once (the inverse of a triangular matrix of order
// 1000 takes a noticeable fraction of a second).
struct Current {
    std::string key;
    l3::Operands op;
};
Current g_current;

l3::Operands& operands_for(const Case& c)
{
    const std::string key = row_name(c, "");
    if (g_current.key != key) {
        g_current.op = l3::Operands{};  // the previous case's memory first
        g_current.op = l3::make_operands(c);
        g_current.key = key;
    }
    return g_current.op;
}

void register_case(const Case& c, const char* lib_name, int threads, const RefBlas& ref)
{
    benchmark::internal::Benchmark* b = benchmark::RegisterBenchmark(
        row_name(c, lib_name).c_str(), [c, threads, lib = std::string(lib_name), &ref](benchmark::State& state) {
            const bool orv = lib == "orv";
            if (orv) {
                orv_set_num_threads(&threads);
            } else {
                ref.set_threads(threads);
            }
            bench::settle_if_switching(lib, threads);
            l3::Operands& op = operands_for(c);
            for (auto _ : state) {
                l3::call(c, orv, ref, op);
                benchmark::ClobberMemory();
            }
            state.counters["GFLOP/s"] = benchmark::Counter(c.flops() * 1e-9 * static_cast<double>(state.iterations()),
                                                           benchmark::Counter::kIsRate);
        });
    // One thread: the calling thread's CPU time, which other processes on the
    // machine do not inflate. Several threads: wall time.
    if (threads > 1) b->UseRealTime();
}

struct GivenLetters {
    std::string sides, uplos, trans, diags;
};

// One option's letters for a routine: those given that it accepts, else the
// sweep with --all_options, else the first it accepts; "-" when it takes no
// such option.
std::string letters(const char* accepted, const std::string& sweep, const std::string& given, bool all)
{
    if (*accepted == '\0') return "-";
    if (given.empty()) return all ? sweep : std::string(1, accepted[0]);
    std::string out;
    for (const std::string& l : bench::split(given, ',')) {
        if (l.size() == 1 && std::strchr(accepted, l[0]) != nullptr) out += l;
    }
    return out;
}

std::vector<Case> option_sets(const l3::Routine& r, const GivenLetters& given, bool all)
{
    const std::string sides = letters(r.sides, r.sides, given.sides, all);
    const std::string uplos = letters(r.uplos, r.uplos, given.uplos, all);
    const std::string trans = letters(r.trans, l3::distinct_trans(r), given.trans, all);
    const std::string diags = letters(r.diags, r.diags, given.diags, all);
    const std::string transb = r.kind == l3::Kind::gemm ? trans : "-";
    std::vector<Case> sets;
    for (char s : sides)
        for (char u : uplos)
            for (char t : trans)
                for (char tb : transb)
                    for (char d : diags) sets.push_back({&r, s, u, t, tb, d, 0, 0, 0});
    return sets;
}

// Largest difference relative to the largest entry of want (plus 1).
double relative_difference(const double* got, const double* want, long count)
{
    double diff = 0, scale = 0;
    for (long i = 0; i < count; ++i) {
        diff = std::max(diff, std::fabs(got[i] - want[i]));
        scale = std::max(scale, std::fabs(want[i]));
    }
    return diff / (scale + 1.0);
}

// Before timing: both libraries on the same inputs, and, for trsm and trmm,
// that a call with A and one with its inverse give B back, which keeps the
// timing loops' values from drifting.
void check(const std::vector<Case>& sets, const RefBlas& ref)
{
    int bad = 0;
    for (const Case& set : sets) {
        for (long s : {5L, 67L}) {
            Case c = set;
            c.m = s;
            c.n = s + 3;
            c.k = s + 1;
            const double tolerance = 1e-12 * static_cast<double>(s + 3);
            l3::Operands x = l3::make_operands(c), y = l3::make_operands(c);
            l3::call(c, true, ref, x);
            l3::call(c, false, ref, y);
            const double d = relative_difference(x.out, y.out, x.out_doubles);
            if (!(d <= tolerance)) {
                std::printf("check: %s %s %ldx%ldx%ld differs from %s by %.3g (relative)\n", c.routine->name,
                            c.options().c_str(), c.m, c.n, c.k, bench::ref_name(), d);
                ++bad;
            }
            if (c.routine->kind == l3::Kind::trsm || c.routine->kind == l3::Kind::trmm) {
                l3::call(c, false, ref, y);
                const l3::Operands start = l3::make_operands(c);
                const double r = relative_difference(y.out, start.out, y.out_doubles);
                if (!(r <= tolerance)) {
                    std::printf("check: %s %s %ldx%ld: A then its inverse changes B by %.3g (relative)\n",
                                c.routine->name, c.options().c_str(), c.m, c.n, r);
                    ++bad;
                }
            }
        }
    }
    if (bad == 0) std::printf("check: every routine agrees with %s for every option set\n", bench::ref_name());
}

// The targets of one thread: from n = 500 every routine at least 0.90 of ORV's
// dgemm (zgemm 0.95) and as fast as the comparison; up to n = 64 as fast as
// the comparison. "-" where none applies.
std::string target(const Case& c, int threads, double of_dgemm, double of_ref)
{
    if (threads != 1 || (c.m > 64 && c.m < 500) || of_ref < 0) return "-";
    const bool fast_enough = of_ref >= 1.0;
    if (c.m <= 64) return fast_enough ? "met" : "missed";
    const double floor = std::strcmp(c.routine->name, "zgemm") == 0 ? 0.95 : 0.90;
    return fast_enough && of_dgemm >= floor ? "met" : "missed";
}

std::string summary(const bench::CollectingReporter& rep, const std::vector<Case>& cases, const std::string& peak,
                    int path, bool have_ref, int threads)
{
    std::ostringstream out;
    double peak_rate = 0;
    out << bench::peak_header(rep, peak, path, threads, &peak_rate);
    out << "\nOptions: dgemm, zgemm transa,transb; trsm, trmm side,uplo,transa,diag; syrk, herk, syr2k, her2k "
           "uplo,trans; symm, hemm side,uplo. Complex routines count 8 flops per multiply-add. Target (one thread): "
           "n >= 500 at least 0.90 of ORV's dgemm (zgemm 0.95) and 1.0x " << bench::ref_name()
        << "; n <= 64 1.0x " << bench::ref_name() << ".\n";
    out << "\n| routine | options | m = n = k | ORV GFLOP/s | % of peak | of ORV dgemm | " << bench::ref_name()
        << " GFLOP/s | ORV/" << bench::ref_name() << " | target |\n";
    out << "|---|---|---:|---:|---:|---:|---:|---:|---|\n";
    auto rate = [&](const std::string& name) {
        const bench::Result* r = rep.find(name);
        return r != nullptr && r->ok ? r->best.at("GFLOP/s") : -1.0;
    };
    auto fixed = [](double v, int digits) { return v > 0 ? bench::format_fixed(v, digits) : std::string("-"); };
    for (const Case& c : cases) {
        const bench::Result* o = rep.find(row_name(c, "orv"));
        if (o == nullptr) continue;
        const Case yardstick{l3::find_routine("dgemm"), '-', '-', 'N', 'N', '-', c.m, c.n, c.k};
        const double ov = rate(row_name(c, "orv")), rv = have_ref ? rate(row_name(c, "ref")) : -1.0;
        const double dv = rate(row_name(yardstick, "orv"));
        const double of_dgemm = ov > 0 && dv > 0 ? ov / dv : -1.0, of_ref = ov > 0 && rv > 0 ? ov / rv : -1.0;
        out << "| " << c.routine->name << " | " << c.options() << " | " << c.m << " | "
            << (o->ok ? fixed(ov, 2) : o->error) << " | " << (peak_rate > 0 ? fixed(100.0 * ov / peak_rate, 1) : "-")
            << " | " << fixed(of_dgemm, 2) << " | " << fixed(rv, 2) << " | " << fixed(of_ref, 2) << " | "
            << target(c, threads, of_dgemm, of_ref) << " |\n";
    }
    return out.str();
}

std::string all_routine_names()
{
    std::string names;
    for (const l3::Routine& r : l3::routines()) names += std::string(names.empty() ? "" : ",") + r.name;
    return names;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> names =
        bench::split(bench::take_option(&argc, argv, "routines", all_routine_names()), ',');
    const std::vector<long> sizes = bench::parse_list(bench::take_option(&argc, argv, "sizes", "100,500,1000"));
    GivenLetters given;
    given.sides = bench::take_option(&argc, argv, "sides", "");
    given.uplos = bench::take_option(&argc, argv, "uplos", "");
    given.trans = bench::take_option(&argc, argv, "trans", "");
    given.diags = bench::take_option(&argc, argv, "diags", "");
    const bool all = bench::take_flag(&argc, argv, "all_options");
    const int threads = std::atoi(bench::take_option(&argc, argv, "threads", "1").c_str());
    std::string peak = bench::take_option(&argc, argv, "peak", "");
    const std::string summary_out = bench::take_option(&argc, argv, "summary_out", "");

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    // ORV's dgemm N,N is the yardstick of every row.
    std::vector<Case> sets;
    if (std::find(names.begin(), names.end(), "dgemm") == names.end())
        sets.push_back({l3::find_routine("dgemm"), '-', '-', 'N', 'N', '-', 0, 0, 0});
    for (const std::string& name : names) {
        const l3::Routine* r = l3::find_routine(name);
        if (r == nullptr) {
            std::fprintf(stderr, "unknown routine %s (known: %s)\n", name.c_str(), all_routine_names().c_str());
            return 1;
        }
        const std::vector<Case> s = option_sets(*r, given, all);
        if (s.empty()) std::printf("%s: it accepts none of the option letters given: not run\n", r->name);
        sets.insert(sets.end(), s.begin(), s.end());
    }
    std::vector<Case> cases;
    for (const Case& set : sets) {
        for (long n : sizes) {
            Case c = set;
            c.m = c.n = c.k = n;
            cases.push_back(c);
        }
    }

    bench::prepare_orv_environment();
    const RefBlas& ref = bench::load_ref(threads);
    const int path = bench::print_run_header(ref, &peak);
    if (ref.loaded()) check(sets, ref);

    bench::register_peak_loops();
    for (const Case& c : cases) {
        register_case(c, "orv", threads, ref);
        if (ref.loaded()) register_case(c, "ref", threads, ref);
    }

    bench::CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    const std::string table = summary(reporter, cases, peak, path, ref.loaded(), threads);
    std::printf("\n%s", table.c_str());
    if (!summary_out.empty()) std::ofstream(summary_out) << table;
    return 0;
}
