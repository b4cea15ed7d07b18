// Vector routines of ORV and of the comparison library, timed in the same run,
// with plain streaming loops as the bandwidth reference.
//
//   orv_bench_level1 [--sizes=1000,100000,10000000] [--threads=1,2]
//                    [--routines=ddot,daxpy,...] [--summary_out=FILE]
//                    [Google Benchmark options]
//
// Rates are logical traffic: every element the routine must read or write
// counted once (ddot 16 bytes per element, daxpy 24, zaxpy 48, ...).

#include "bench/compare.h"
#include "orv.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>

namespace {

using bench::RefBlas;

enum class Stream { read1, read2, update, scale, copy };

const char* stream_name(Stream s)
{
    switch (s) {
    case Stream::read1: return "read x";
    case Stream::read2: return "read x, y";
    case Stream::update: return "y = x + y";
    case Stream::scale: return "x = c * x";
    case Stream::copy: return "y = x";
    }
    return "?";
}

// Working vectors shared by every benchmark: allocated once for the largest
// size, so that both libraries run on the same memory.
struct Vectors {
    bench::Buffer x, y;
    std::size_t capacity = 0;
    void ensure(std::size_t count)
    {
        if (count <= capacity) return;
        x.reset();
        y.reset();
        x = bench::make_buffer(count, 1);
        y = bench::make_buffer(count, 2);
        capacity = count;
    }
};
Vectors g_vec;

// One call of a routine on n elements of x and y; `step` alternates the
// scalars so that repeated calls neither grow nor shrink the data, and no
// scalar is 0 or 1 (a library may return early for those).
using Call = std::function<void(int n, double* x, double* y, long step)>;

struct Routine {
    const char* name;
    int doubles_per_element;  // 2 for the complex routines
    int streams;              // vectors read plus vectors written
    Stream stream;
    bool has_target;          // dnrm2 only reports its rate
    Call orv;
    Call ref;
};

const int kOne = 1;

std::vector<Routine> make_routines(const RefBlas& ref)
{
    static const double scal[2] = {1.0000001, 1.0 / 1.0000001};
    static const double axpy[2] = {1e-3, -1e-3};
    static const double zaxpy[2][2] = {{1e-3, 2e-3}, {-1e-3, -2e-3}};
    std::vector<Routine> r;
    r.push_back({"ddot", 1, 2, Stream::read2, true,
                 [](int n, double* x, double* y, long) { benchmark::DoNotOptimize(ddot_(&n, x, &kOne, y, &kOne)); },
                 [&ref](int n, double* x, double* y, long) {
                     benchmark::DoNotOptimize(ref.ddot(&n, x, &kOne, y, &kOne));
                 }});
    r.push_back({"daxpy", 1, 3, Stream::update, true,
                 [](int n, double* x, double* y, long s) { daxpy_(&n, &axpy[s & 1], x, &kOne, y, &kOne); },
                 [&ref](int n, double* x, double* y, long s) { ref.daxpy(&n, &axpy[s & 1], x, &kOne, y, &kOne); }});
    r.push_back({"dscal", 1, 2, Stream::scale, true,
                 [](int n, double* x, double*, long s) { dscal_(&n, &scal[s & 1], x, &kOne); },
                 [&ref](int n, double* x, double*, long s) { ref.dscal(&n, &scal[s & 1], x, &kOne); }});
    r.push_back({"dcopy", 1, 2, Stream::copy, true,
                 [](int n, double* x, double* y, long) { dcopy_(&n, x, &kOne, y, &kOne); },
                 [&ref](int n, double* x, double* y, long) { ref.dcopy(&n, x, &kOne, y, &kOne); }});
    r.push_back({"dasum", 1, 1, Stream::read1, true,
                 [](int n, double* x, double*, long) { benchmark::DoNotOptimize(dasum_(&n, x, &kOne)); },
                 [&ref](int n, double* x, double*, long) { benchmark::DoNotOptimize(ref.dasum(&n, x, &kOne)); }});
    r.push_back({"idamax", 1, 1, Stream::read1, true,
                 [](int n, double* x, double*, long) { benchmark::DoNotOptimize(idamax_(&n, x, &kOne)); },
                 [&ref](int n, double* x, double*, long) { benchmark::DoNotOptimize(ref.idamax(&n, x, &kOne)); }});
    r.push_back({"dnrm2", 1, 1, Stream::read1, false,
                 [](int n, double* x, double*, long) { benchmark::DoNotOptimize(dnrm2_(&n, x, &kOne)); },
                 [&ref](int n, double* x, double*, long) { benchmark::DoNotOptimize(ref.dnrm2(&n, x, &kOne)); }});
    r.push_back({"zdotc", 2, 2, Stream::read2, true,
                 [](int n, double* x, double* y, long) {
                     orv_complex_double result = zdotc_(&n, x, &kOne, y, &kOne);
                     benchmark::DoNotOptimize(result);
                 },
                 [&ref](int n, double* x, double* y, long) {
                     bench::ComplexValue v = ref.zdotc(&n, x, &kOne, y, &kOne);
                     benchmark::DoNotOptimize(v);
                 }});
    r.push_back({"zaxpy", 2, 3, Stream::update, true,
                 [](int n, double* x, double* y, long s) { zaxpy_(&n, zaxpy[s & 1], x, &kOne, y, &kOne); },
                 [&ref](int n, double* x, double* y, long s) { ref.zaxpy(&n, zaxpy[s & 1], x, &kOne, y, &kOne); }});
    return r;
}

void set_threads(const std::string& lib, int threads, const RefBlas& ref)
{
    if (lib == "orv") {
        orv_set_num_threads(&threads);
    } else {
        ref.set_threads(threads);
    }
    bench::settle_if_switching(lib, threads);
}

std::string row_name(const char* routine, long n, int threads, const char* lib)
{
    return std::string(routine) + "/n:" + std::to_string(n) + "/threads:" + std::to_string(threads) + "/" + lib;
}

std::string stream_row_name(Stream s, long n)
{
    static const char* const keys[] = {"read1", "read2", "update", "scale", "copy"};
    return std::string("stream_") + keys[static_cast<int>(s)] + "/n:" + std::to_string(n);
}

void register_stream(Stream s, long n)
{
    const int streams = s == Stream::read1 ? 1 : s == Stream::update ? 3 : 2;
    benchmark::RegisterBenchmark(stream_row_name(s, n).c_str(), [s, n, streams](benchmark::State& state) {
        g_vec.ensure(static_cast<std::size_t>(n));
        double* x = g_vec.x.get();
        double* y = g_vec.y.get();
        const std::size_t count = static_cast<std::size_t>(n);
        long step = 0;
        for (auto _ : state) {
            switch (s) {
            case Stream::read1: benchmark::DoNotOptimize(bench::stream_read1(x, count)); break;
            case Stream::read2: benchmark::DoNotOptimize(bench::stream_read2(x, y, count)); break;
            case Stream::update: bench::stream_update(x, y, count); break;
            case Stream::scale: bench::stream_scale((step & 1) ? 1.0 / 1.0000001 : 1.0000001, x, count); break;
            case Stream::copy: bench::stream_copy(x, y, count); break;
            }
            benchmark::ClobberMemory();
            ++step;
        }
        const double bytes = 8.0 * streams * static_cast<double>(n);
        state.counters["GB/s"] = benchmark::Counter(bytes * 1e-9 * static_cast<double>(state.iterations()),
                                                    benchmark::Counter::kIsRate);
    });
}

void register_routine(const Routine& r, long n, int threads, const char* lib, const RefBlas& ref)
{
    const Call call = std::string(lib) == "orv" ? r.orv : r.ref;
    const int dpe = r.doubles_per_element;
    const double bytes = 8.0 * dpe * r.streams * static_cast<double>(n);
    benchmark::internal::Benchmark* b = benchmark::RegisterBenchmark(row_name(r.name, n, threads, lib).c_str(),
                                 [call, n, dpe, bytes, threads, lib = std::string(lib), &ref](benchmark::State& state) {
                                     g_vec.ensure(static_cast<std::size_t>(n) * dpe);
                                     set_threads(lib, threads, ref);
                                     double* x = g_vec.x.get();
                                     double* y = g_vec.y.get();
                                     const int ni = static_cast<int>(n);
                                     long step = 0;
                                     for (auto _ : state) {
                                         call(ni, x, y, step++);
                                         benchmark::ClobberMemory();
                                     }
                                     state.counters["GB/s"] =
                                         benchmark::Counter(bytes * 1e-9 * static_cast<double>(state.iterations()),
                                                            benchmark::Counter::kIsRate);
                                 });
    // One thread: the calling thread's CPU time, which other processes on the
    // machine do not inflate. Several threads: wall time.
    if (threads > 1) b->UseRealTime();
}

// Both libraries on the same inputs, once, before timing: a wrong binding
// (argument order, return convention) shows here rather than as a fast row.
void check_agreement(const std::vector<Routine>& routines, const RefBlas& ref)
{
    const int n = 1001;
    int bad = 0;
    for (const Routine& r : routines) {
        const std::size_t count = static_cast<std::size_t>(n) * r.doubles_per_element;
        bench::Buffer x1 = bench::make_buffer(count, 7), y1 = bench::make_buffer(count, 8);
        bench::Buffer x2 = bench::make_buffer(count, 7), y2 = bench::make_buffer(count, 8);
        double a = 0, b = 0;
        const std::string name = r.name;
        if (name == "ddot") {
            a = ddot_(&n, x1.get(), &kOne, y1.get(), &kOne);
            b = ref.ddot(&n, x2.get(), &kOne, y2.get(), &kOne);
        } else if (name == "dasum") {
            a = dasum_(&n, x1.get(), &kOne);
            b = ref.dasum(&n, x2.get(), &kOne);
        } else if (name == "dnrm2") {
            a = dnrm2_(&n, x1.get(), &kOne);
            b = ref.dnrm2(&n, x2.get(), &kOne);
        } else if (name == "idamax") {
            a = idamax_(&n, x1.get(), &kOne);
            b = ref.idamax(&n, x2.get(), &kOne);
        } else if (name == "zdotc") {
            const orv_complex_double v = zdotc_(&n, x1.get(), &kOne, y1.get(), &kOne);
            const bench::ComplexValue w = ref.zdotc(&n, x2.get(), &kOne, y2.get(), &kOne);
            a = __real__ v + 3.0 * __imag__ v;
            b = w.re + 3.0 * w.im;
        } else {
            r.orv(n, x1.get(), y1.get(), 0);
            r.ref(n, x2.get(), y2.get(), 0);
            for (std::size_t i = 0; i < count; ++i) {
                a += std::fabs(x1[i]) + 2.0 * std::fabs(y1[i]);
                b += std::fabs(x2[i]) + 2.0 * std::fabs(y2[i]);
            }
        }
        if (!(std::fabs(a - b) <= 1e-12 * (std::fabs(a) + std::fabs(b)) + 1e-12)) {
            std::printf("check: %s differs between ORV (%.17g) and %s (%.17g)\n", r.name, a, bench::ref_name(), b);
            ++bad;
        }
    }
    if (bad == 0) std::printf("check: every routine agrees with %s on n = %d\n", bench::ref_name(), n);
}

std::string summary(const bench::CollectingReporter& rep, const std::vector<Routine>& routines,
                    const std::vector<long>& sizes, const std::vector<int>& threads, bool have_ref)
{
    std::ostringstream out;
    out << "| routine | n | threads | ORV GB/s | " << bench::ref_name() << " GB/s | ORV/" << bench::ref_name()
        << " | stream loop | stream GB/s | ORV/stream | target |\n";
    out << "|---|---:|---:|---:|---:|---:|---|---:|---:|---|\n";
    auto rate = [&rep](const std::string& name) -> const bench::Result* {
        const bench::Result* r = rep.find(name);
        return r != nullptr && r->ok ? r : nullptr;
    };
    for (const Routine& r : routines) {
        for (int t : threads) {
            for (long n : sizes) {
                const bench::Result* o = rate(row_name(r.name, n, t, "orv"));
                const bench::Result* c = have_ref ? rate(row_name(r.name, n, t, "ref")) : nullptr;
                const bench::Result* s = t == 1 ? rate(stream_row_name(r.stream, n)) : nullptr;
                if (o == nullptr) continue;
                const double ov = o->counters.at("GB/s");
                out << "| " << r.name << " | " << n << " | " << t << " | " << bench::format_fixed(ov, 2) << " | ";
                double ratio = -1, sratio = -1;
                if (c != nullptr) {
                    ratio = ov / c->counters.at("GB/s");
                    out << bench::format_fixed(c->counters.at("GB/s"), 2) << " | " << bench::format_fixed(ratio, 2)
                        << " | ";
                } else {
                    out << "- | - | ";
                }
                if (s != nullptr) {
                    sratio = ov / s->counters.at("GB/s");
                    out << stream_name(r.stream) << " | " << bench::format_fixed(s->counters.at("GB/s"), 2) << " | "
                        << bench::format_fixed(sratio, 2) << " | ";
                } else {
                    out << "- | - | - | ";
                }
                // Targets: at least 1.0x the comparison library; at the
                // largest size on one thread also within 10 % of the stream.
                std::string target = "-";
                if (r.has_target && ratio >= 0) {
                    bool met = ratio >= 1.0;
                    if (t == 1 && n >= 10000000) met = met && sratio >= 0.9;
                    target = met ? "met" : "not met";
                }
                out << target << " |\n";
            }
        }
    }
    return out.str();
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<long> sizes = bench::parse_list(bench::take_option(&argc, argv, "sizes", "1000,100000,10000000"));
    const std::vector<int> threads = bench::parse_threads(bench::take_option(&argc, argv, "threads", "1"));
    const std::vector<std::string> wanted =
        bench::split(bench::take_option(&argc, argv, "routines", "ddot,daxpy,dscal,dcopy,dasum,idamax,dnrm2,zdotc,zaxpy"), ',');
    const std::string summary_out = bench::take_option(&argc, argv, "summary_out", "");

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    bench::prepare_orv_environment();
    const RefBlas& ref = bench::load_ref(threads);

    const std::vector<Routine> routines = bench::named(make_routines(ref), wanted);

    bench::print_run_header(ref);
    if (ref.loaded()) check_agreement(routines, ref);

    // Registration order is run order: per size, the reference loops, then
    // per routine and thread count ORV and the comparison library back to back.
    for (long n : sizes) {
        bool is_one_thread = false;
        for (int t : threads) is_one_thread = is_one_thread || t == 1;
        if (is_one_thread) {
            for (Stream s : {Stream::read1, Stream::read2, Stream::update, Stream::scale, Stream::copy}) {
                bool used = false;
                for (const Routine& r : routines) used = used || r.stream == s;
                if (used) register_stream(s, n);
            }
        }
        for (const Routine& r : routines) {
            for (int t : threads) {
                register_routine(r, n, t, "orv", ref);
                if (ref.loaded()) register_routine(r, n, t, "ref", ref);
            }
        }
    }

    bench::CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    const std::string table = summary(reporter, routines, sizes, threads, ref.loaded());
    std::printf("\n%s", table.c_str());
    if (!summary_out.empty()) std::ofstream(summary_out) << table;
    return 0;
}
