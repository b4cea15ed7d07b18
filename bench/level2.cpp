// The level-2 routines of ORV and of the comparison library, timed in the
// same run, with a plain streaming read of the matrix as the bandwidth
// reference.
//
//   orv_bench_level2 [--sizes=500,2000,4000,8000] [--threads=1,2] [--incs=1,2]
//                    [--routines=dgemv_n,dgemv_t,zgemv_n,zgemv_c,dger,zgerc,dsymv,zhemv,
//                                dtrmv,dtrsv,ztrmv,ztrsv,dgbmv,dsbmv,dspmv,dtpmv,dtbsv,
//                                dsyr2,dsyr,zher,zher2]
//                    [--summary_out=FILE]
//                    [Google Benchmark options]
//
// Square n x n matrices, lda = n; x and y with the same increment. Each
// routine counts the elements of A it reads (all n^2, a triangle, a band of
// 32 diagonals a side) and the operations it does per element read: 2 (real)
// or 8 (complex) for a product or a rank-1 update, twice that for a
// symmetric product, which uses each off-diagonal element twice, and for a
// rank-2 update. GB/s count the matrix alone, read once per call by a
// product and read and written by an update, which is what bounds either for
// large n; only the routines that read all of A are held against the
// streaming read.

#include "bench/compare.h"
#include "orv.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <sstream>

namespace {

using bench::RefBlas;

// Matrix and vectors shared by every benchmark: allocated once for the
// largest case, so that both libraries run on the same memory.
struct Operands {
    bench::Buffer a, x, y;
    std::size_t a_count = 0, v_count = 0;
    void ensure(std::size_t a_doubles, std::size_t v_doubles)
    {
        if (a_doubles > a_count) {
            a.reset();
            a = bench::make_buffer(a_doubles, 1);
            a_count = a_doubles;
        }
        if (v_doubles > v_count) {
            x.reset();
            y.reset();
            x = bench::make_buffer(v_doubles, 2);
            y = bench::make_buffer(v_doubles, 3);
            v_count = v_doubles;
        }
    }
};
Operands g_ops;

// y := alpha op(A) x + beta y on n x n, increments inc; alpha and beta keep
// y bounded over many calls and are neither 0 nor 1. The updates
// A := alpha x y^T + A (y^H for zgerc) write A instead.
using Call = std::function<void(int n, int inc, double* a, const double* x, double* y)>;

struct Routine {
    const char* name;
    int doubles_per_element;  // 2 for the complex routines
    Call orv;
    Call ref;
    bool updates_a = false;  // the output is A, read and written
    // The elements of A a call reads (null: all n^2), and the operations per
    // element as a multiple of a general product's (2 real, 8 complex).
    double (*elements)(double n) = nullptr;
    double work = 1.0;
};

double triangle(double n) { return n * (n + 1) / 2; }

const double kAlpha[2] = {1e-3, 2e-4};  // also a complex (real, imaginary)
const double kBeta[2] = {0.5, 0.0};

std::vector<Routine> make_routines(const RefBlas& ref)
{
    std::vector<Routine> r;
    for (const char* op : {"N", "T"}) {
        r.push_back({op[0] == 'N' ? "dgemv_n" : "dgemv_t", 1,
                     [op](int n, int inc, const double* a, const double* x, double* y) {
                         dgemv_(op, &n, &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                     },
                     [op, &ref](int n, int inc, const double* a, const double* x, double* y) {
                         ref.dgemv(op, &n, &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                     }});
    }
    for (const char* op : {"N", "C"}) {
        r.push_back({op[0] == 'N' ? "zgemv_n" : "zgemv_c", 2,
                     [op](int n, int inc, const double* a, const double* x, double* y) {
                         zgemv_(op, &n, &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                     },
                     [op, &ref](int n, int inc, const double* a, const double* x, double* y) {
                         ref.zgemv(op, &n, &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                     }});
    }
    r.push_back({"dger", 1, [](int n, int inc, double* a, const double* x, double* y) {
                     dger_(&n, &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double* y) {
                     ref.dger(&n, &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 true});
    r.push_back({"zgerc", 2, [](int n, int inc, double* a, const double* x, double* y) {
                     zgerc_(&n, &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double* y) {
                     ref.zgerc(&n, &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 true});
    // Symmetric and Hermitian products: the lower triangle, read once.
    r.push_back({"dsymv", 1, [](int n, int inc, const double* a, const double* x, double* y) {
                     dsymv_("L", &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                 },
                 [&ref](int n, int inc, const double* a, const double* x, double* y) {
                     ref.dsymv("L", &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                 },
                 false, triangle, 2.0});
    r.push_back({"zhemv", 2, [](int n, int inc, const double* a, const double* x, double* y) {
                     zhemv_("L", &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                 },
                 [&ref](int n, int inc, const double* a, const double* x, double* y) {
                     ref.zhemv("L", &n, kAlpha, a, &n, x, &inc, kBeta, y, &inc);
                 },
                 false, triangle, 2.0});
    // Triangular products and solves, lower, no transpose, non-unit: y is
    // set from x before every call, so that repeated calls see the same
    // values. (The copy is n elements against n^2 / 2 of A.)
    const auto triangular = [&r](const char* name, int dpe, auto orv_call, auto ref_call) {
        const auto run = [dpe](auto call, int n, int inc, const double* a, const double* x, double* y) {
            std::memcpy(y, x, sizeof(double) * dpe * static_cast<std::size_t>(1 + (n - 1) * inc));
            call("L", "N", "N", &n, a, &n, y, &inc);
        };
        r.push_back({name, dpe, [run, orv_call](int n, int inc, const double* a, const double* x, double* y) {
                         run(orv_call, n, inc, a, x, y);
                     },
                     [run, ref_call](int n, int inc, const double* a, const double* x, double* y) {
                         run(ref_call, n, inc, a, x, y);
                     },
                     false, triangle});
    };
    triangular("dtrmv", 1, dtrmv_, ref.dtrmv);
    triangular("dtrsv", 1, dtrsv_, ref.dtrsv);
    triangular("ztrmv", 2, ztrmv_, ref.ztrmv);
    triangular("ztrsv", 2, ztrsv_, ref.ztrsv);

    // Band and packed products and solves.
    static constexpr int kBand = 32;
    auto band = [](double n) { return (2 * kBand + 1) * n; };
    auto half_band = [](double n) { return (kBand + 1) * n; };
    r.push_back({"dgbmv", 1,
                 [](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = 2 * kBand + 1;
                     dgbmv_("N", &n, &n, &k, &k, kAlpha, a, &lda, x, &inc, kBeta, y, &inc);
                 },
                 [&ref](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = 2 * kBand + 1;
                     ref.dgbmv("N", &n, &n, &k, &k, kAlpha, a, &lda, x, &inc, kBeta, y, &inc);
                 },
                 false, band});
    r.push_back({"dsbmv", 1,
                 [](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = kBand + 1;
                     dsbmv_("U", &n, &k, kAlpha, a, &lda, x, &inc, kBeta, y, &inc);
                 },
                 [&ref](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = kBand + 1;
                     ref.dsbmv("U", &n, &k, kAlpha, a, &lda, x, &inc, kBeta, y, &inc);
                 },
                 false, half_band, 2.0});
    r.push_back({"dspmv", 1,
                 [](int n, int inc, const double* a, const double* x, double* y) {
                     dspmv_("U", &n, kAlpha, a, x, &inc, kBeta, y, &inc);
                 },
                 [&ref](int n, int inc, const double* a, const double* x, double* y) {
                     ref.dspmv("U", &n, kAlpha, a, x, &inc, kBeta, y, &inc);
                 },
                 false, triangle, 2.0});
    // In place on y, set from x before every call as for the full triangles.
    auto reset = [](int n, int inc, const double* x, double* y) {
        std::memcpy(y, x, sizeof(double) * static_cast<std::size_t>(1 + (n - 1) * inc));
    };
    r.push_back({"dtpmv", 1,
                 [reset](int n, int inc, const double* a, const double* x, double* y) {
                     reset(n, inc, x, y);
                     dtpmv_("U", "N", "N", &n, a, y, &inc);
                 },
                 [reset, &ref](int n, int inc, const double* a, const double* x, double* y) {
                     reset(n, inc, x, y);
                     ref.dtpmv("U", "N", "N", &n, a, y, &inc);
                 },
                 false, triangle});
    // A unit diagonal: the buffer's random diagonal would make the solve blow up.
    r.push_back({"dtbsv", 1,
                 [reset](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = kBand + 1;
                     reset(n, inc, x, y);
                     dtbsv_("L", "N", "U", &n, &k, a, &lda, y, &inc);
                 },
                 [reset, &ref](int n, int inc, const double* a, const double* x, double* y) {
                     const int k = kBand, lda = kBand + 1;
                     reset(n, inc, x, y);
                     ref.dtbsv("L", "N", "U", &n, &k, a, &lda, y, &inc);
                 },
                 false, half_band});
    // Symmetric and Hermitian rank-1 and rank-2 updates of one triangle: half
    // of A read and written, twice the operations per element for rank 2.
    r.push_back({"dsyr2", 1, [](int n, int inc, double* a, const double* x, double* y) {
                     dsyr2_("L", &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double* y) {
                     ref.dsyr2("L", &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 true, triangle, 2.0});
    r.push_back({"dsyr", 1, [](int n, int inc, double* a, const double* x, double*) {
                     dsyr_("U", &n, kAlpha, x, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double*) {
                     ref.dsyr("U", &n, kAlpha, x, &inc, a, &n);
                 },
                 true, triangle});
    r.push_back({"zher", 2, [](int n, int inc, double* a, const double* x, double*) {
                     zher_("U", &n, kAlpha, x, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double*) {
                     ref.zher("U", &n, kAlpha, x, &inc, a, &n);
                 },
                 true, triangle});
    r.push_back({"zher2", 2, [](int n, int inc, double* a, const double* x, double* y) {
                     zher2_("L", &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 [&ref](int n, int inc, double* a, const double* x, double* y) {
                     ref.zher2("L", &n, kAlpha, x, &inc, y, &inc, a, &n);
                 },
                 true, triangle, 2.0});
    return r;
}

std::string row_name(const char* routine, long n, long inc, int threads, const char* lib)
{
    return std::string(routine) + "/n:" + std::to_string(n) + "/inc:" + std::to_string(inc) +
           "/threads:" + std::to_string(threads) + "/" + lib;
}

std::string stream_row_name(long doubles) { return "stream_read/doubles:" + std::to_string(doubles); }

// The plain streaming read of `doubles` elements of the matrix buffer.
void register_stream(long doubles)
{
    benchmark::RegisterBenchmark(stream_row_name(doubles).c_str(), [doubles](benchmark::State& state) {
        g_ops.ensure(static_cast<std::size_t>(doubles), 0);
        for (auto _ : state)
            benchmark::DoNotOptimize(bench::stream_read1(g_ops.a.get(), static_cast<std::size_t>(doubles)));
        state.counters["GB/s"] = benchmark::Counter(8.0 * static_cast<double>(doubles) * 1e-9 *
                                                        static_cast<double>(state.iterations()),
                                                    benchmark::Counter::kIsRate);
    });
}

void set_threads(const std::string& lib, int threads, const RefBlas& ref)
{
    if (lib == "orv") orv_set_num_threads(&threads);
    else ref.set_threads(threads);
    bench::settle_if_switching(lib, threads);
}

void register_routine(const Routine& r, long n, long inc, int threads, const char* lib, const RefBlas& ref)
{
    const Call call = std::string(lib) == "orv" ? r.orv : r.ref;
    const int dpe = r.doubles_per_element;
    const double nd = static_cast<double>(n);
    const double elements = r.elements ? r.elements(nd) : nd * nd;
    const double ops = (dpe == 2 ? 8.0 : 2.0) * r.work;
    const double passes = r.updates_a ? 2.0 : 1.0;
    benchmark::internal::Benchmark* b = benchmark::RegisterBenchmark(
        row_name(r.name, n, inc, threads, lib).c_str(),
        [call, n, inc, dpe, elements, ops, passes, threads, lib = std::string(lib), &ref](benchmark::State& state) {
            g_ops.ensure(static_cast<std::size_t>(n * n * dpe), static_cast<std::size_t>(n * inc * dpe));
            set_threads(lib, threads, ref);
            const int ni = static_cast<int>(n), ii = static_cast<int>(inc);
            for (auto _ : state) {
                call(ni, ii, g_ops.a.get(), g_ops.x.get(), g_ops.y.get());
                benchmark::ClobberMemory();
            }
            const double calls = static_cast<double>(state.iterations());
            state.counters["GFLOP/s"] =
                benchmark::Counter(ops * elements * 1e-9 * calls, benchmark::Counter::kIsRate);
            state.counters["GB/s"] =
                benchmark::Counter(8.0 * dpe * passes * elements * 1e-9 * calls, benchmark::Counter::kIsRate);
        });
    // One thread: the calling thread's CPU time, which other processes on the
    // machine do not inflate. Several threads: wall time.
    if (threads > 1) b->UseRealTime();
}

// Both libraries on the same inputs, once, before timing: a wrong binding
// shows here rather than as a fast row.
void check_agreement(const std::vector<Routine>& routines, const std::vector<long>& incs)
{
    const int n = 301;
    int bad = 0;
    for (const Routine& r : routines)
        for (long inc : incs) {
            const std::size_t ac = static_cast<std::size_t>(n) * n * r.doubles_per_element;
            const std::size_t vc = static_cast<std::size_t>(n) * inc * r.doubles_per_element;
            bench::Buffer a1 = bench::make_buffer(ac, 4), a2 = bench::make_buffer(ac, 4);
            bench::Buffer x = bench::make_buffer(vc, 5);
            bench::Buffer y1 = bench::make_buffer(vc, 6), y2 = bench::make_buffer(vc, 6);
            r.orv(n, static_cast<int>(inc), a1.get(), x.get(), y1.get());
            r.ref(n, static_cast<int>(inc), a2.get(), x.get(), y2.get());
            const bench::Buffer& out1 = r.updates_a ? a1 : y1;
            const bench::Buffer& out2 = r.updates_a ? a2 : y2;
            double diff = 0, size = 0;
            for (std::size_t i = 0; i < (r.updates_a ? ac : vc); ++i) {
                diff = std::max(diff, std::fabs(out1[i] - out2[i]));
                size = std::max(size, std::fabs(out2[i]));
            }
            if (!(diff <= 1e-13 * (size + 1.0))) {
                std::printf("check: %s inc %ld differs from %s by %.3g\n", r.name, inc, bench::ref_name(), diff);
                ++bad;
            }
        }
    if (bad == 0) std::printf("check: every routine agrees with %s on n = %d\n", bench::ref_name(), n);
}

std::string summary(const bench::CollectingReporter& rep, const std::vector<Routine>& routines,
                    const std::vector<long>& sizes, const std::vector<long>& incs, const std::vector<int>& threads,
                    bool have_ref)
{
    std::ostringstream out;
    out << "| routine | n | inc | threads | ORV GFLOP/s | " << bench::ref_name() << " GFLOP/s | ORV/" << bench::ref_name()
        << " | ORV GB/s of A | stream read GB/s | ORV/stream | target |\n";
    out << "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---|\n";
    auto best = [&rep](const std::string& name, const char* counter) -> double {
        const bench::Result* r = rep.find(name);
        return r != nullptr && r->ok ? r->best.at(counter) : -1.0;
    };
    for (const Routine& r : routines)
        for (int t : threads)
            for (long inc : incs)
                for (long n : sizes) {
                    const double o = best(row_name(r.name, n, inc, t, "orv"), "GFLOP/s");
                    if (o < 0) continue;
                    const double c = have_ref ? best(row_name(r.name, n, inc, t, "ref"), "GFLOP/s") : -1.0;
                    const double ob = best(row_name(r.name, n, inc, t, "orv"), "GB/s");
                    const double s = t == 1 && r.elements == nullptr
                                         ? best(stream_row_name(n * n * r.doubles_per_element), "GB/s")
                                         : -1.0;
                    out << "| " << r.name << " | " << n << " | " << inc << " | " << t << " | "
                        << bench::format_fixed(o, 2) << " | ";
                    const double ratio = c > 0 ? o / c : -1.0;
                    out << (c > 0 ? bench::format_fixed(c, 2) : "-") << " | "
                        << (c > 0 ? bench::format_fixed(ratio, 2) : "-") << " | " << bench::format_fixed(ob, 2)
                        << " | ";
                    const double sratio = s > 0 ? ob / s : -1.0;
                    out << (s > 0 ? bench::format_fixed(s, 2) : "-") << " | "
                        << (s > 0 ? bench::format_fixed(sratio, 2) : "-") << " | ";
                    // Targets: one thread at least the comparison library; the
                    // real product at n = 8000 on one thread within 10 % of the
                    // streaming read; two threads from n = 4000 at least the
                    // comparison library on two threads. (An update also writes
                    // A back: the read alone does not bound it.)
                    std::string target = "-";
                    if (ratio >= 0 && (t == 1 || n >= 4000)) {
                        bool met = ratio >= 1.0;
                        const bool stream_bound = t == 1 && n >= 8000 && r.doubles_per_element == 1 &&
                                                  !r.updates_a && r.elements == nullptr;
                        if (stream_bound) met = met && sratio >= 0.9;
                        target = met ? "met" : "not met";
                    }
                    out << target << " |\n";
                }
    return out.str();
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<long> sizes = bench::parse_list(bench::take_option(&argc, argv, "sizes", "500,2000,4000,8000"));
    const std::vector<long> incs = bench::parse_list(bench::take_option(&argc, argv, "incs", "1,2"));
    const std::vector<int> threads = bench::parse_threads(bench::take_option(&argc, argv, "threads", "1,2"));
    const std::vector<std::string> wanted =
        bench::split(bench::take_option(&argc, argv, "routines", "dgemv_n,dgemv_t,zgemv_n,zgemv_c"), ',');
    const std::string summary_out = bench::take_option(&argc, argv, "summary_out", "");

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    bench::prepare_orv_environment();
    const RefBlas& ref = bench::load_ref(threads);

    const std::vector<Routine> routines = bench::named(make_routines(ref), wanted);

    bench::print_run_header(ref);
    if (ref.loaded()) check_agreement(routines, incs);

    // Registration order is run order: per size the streaming reads of the
    // real and complex matrices, then per routine, increment and thread count
    // ORV and the comparison library back to back.
    bool one_thread = false;
    for (int t : threads) one_thread = one_thread || t == 1;
    for (long n : sizes) {
        if (one_thread) {
            bool real = false, complex = false;
            for (const Routine& r : routines) (r.doubles_per_element == 1 ? real : complex) = true;
            if (real) register_stream(n * n);
            if (complex) register_stream(2 * n * n);
        }
        for (const Routine& r : routines)
            for (long inc : incs)
                for (int t : threads) {
                    register_routine(r, n, inc, t, "orv", ref);
                    if (ref.loaded()) register_routine(r, n, inc, t, "ref", ref);
                }
    }

    bench::CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    const std::string table = summary(reporter, routines, sizes, incs, threads, ref.loaded());
    std::printf("\n%s", table.c_str());
    if (!summary_out.empty()) std::ofstream(summary_out) << table;
    return 0;
}
