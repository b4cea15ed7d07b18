// Shared pieces of the benchmark programs. Compiled for the x86-64 baseline.

#include "bench/compare.h"

#include <dlfcn.h>
#include <emmintrin.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <thread>

namespace bench {

// ---------------------------------------------------------------------------
// Comparison library.

namespace {

template <typename F>
bool resolve(void* handle, const char* name, F* target, bool required)
{
    *target = reinterpret_cast<F>(dlsym(handle, name));
    if (*target == nullptr && required) {
        std::printf("%s: symbol %s not found in %s; its rows are skipped\n", ref_name(), name, ref_library().path);
        return false;
    }
    return true;
}

}  // namespace

const RefLibrary& ref_library()
{
    const char* key = std::getenv("BENCH_COMPARE");
    for (const RefLibrary& lib : kRefLibraries)
        if (key != nullptr && std::strcmp(key, lib.key) == 0) return lib;
    return kRefLibraries[0];
}

const char* ref_name() { return ref_library().name; }

void RefBlas::set_threads(int n) const
{
    if (set_num_threads != nullptr) set_num_threads(n);
    if (set_num_threads_dim != nullptr) set_num_threads_dim(n);
}

std::string RefBlas::describe() const
{
    if (!loaded()) return std::string(ref_name()) + ": not loaded";
    std::string text = std::string(ref_name()) + " from " + ref_library().path;
    if (get_corename != nullptr) text += ", core " + std::string(get_corename());
    if (get_config != nullptr) text += ", config \"" + std::string(get_config()) + "\"";
    return text;
}

const RefBlas& load_ref(int max_threads)
{
    static RefBlas ref;
    static bool tried = false;
    if (tried) return ref;
    tried = true;

    const RefLibrary& lib = ref_library();
    if (std::getenv(lib.threads_variable) == nullptr) {
        setenv(lib.threads_variable, std::to_string(max_threads).c_str(), 1);
    }
    void* handle = dlopen(lib.path, RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        std::printf("%s not available (%s): its rows are skipped\n", lib.path, dlerror());
        return ref;
    }
    RefBlas r;
    bool ok = true;
    ok &= resolve(handle, "ddot_", &r.ddot, true);
    ok &= resolve(handle, "daxpy_", &r.daxpy, true);
    ok &= resolve(handle, "dscal_", &r.dscal, true);
    ok &= resolve(handle, "dcopy_", &r.dcopy, true);
    ok &= resolve(handle, "dasum_", &r.dasum, true);
    ok &= resolve(handle, "dnrm2_", &r.dnrm2, true);
    ok &= resolve(handle, "idamax_", &r.idamax, true);
    ok &= resolve(handle, "zdotc_", &r.zdotc, true);
    ok &= resolve(handle, "zaxpy_", &r.zaxpy, true);
    ok &= resolve(handle, "dgemv_", &r.dgemv, true);
    ok &= resolve(handle, "zgemv_", &r.zgemv, true);
    ok &= resolve(handle, "dger_", &r.dger, true);
    ok &= resolve(handle, "zgerc_", &r.zgerc, true);
    ok &= resolve(handle, "dsymv_", &r.dsymv, true);
    ok &= resolve(handle, "zhemv_", &r.zhemv, true);
    ok &= resolve(handle, "dtrmv_", &r.dtrmv, true);
    ok &= resolve(handle, "ztrmv_", &r.ztrmv, true);
    ok &= resolve(handle, "dtrsv_", &r.dtrsv, true);
    ok &= resolve(handle, "ztrsv_", &r.ztrsv, true);
    ok &= resolve(handle, "dgbmv_", &r.dgbmv, true);
    ok &= resolve(handle, "dsbmv_", &r.dsbmv, true);
    ok &= resolve(handle, "dspmv_", &r.dspmv, true);
    ok &= resolve(handle, "dtpmv_", &r.dtpmv, true);
    ok &= resolve(handle, "dtbsv_", &r.dtbsv, true);
    ok &= resolve(handle, "dsyr_", &r.dsyr, true);
    ok &= resolve(handle, "dsyr2_", &r.dsyr2, true);
    ok &= resolve(handle, "zher_", &r.zher, true);
    ok &= resolve(handle, "zher2_", &r.zher2, true);
    ok &= resolve(handle, "dgemm_", &r.dgemm, true);
    ok &= resolve(handle, "zgemm_", &r.zgemm, true);
    ok &= resolve(handle, "dtrsm_", &r.dtrsm, true);
    ok &= resolve(handle, "ztrsm_", &r.ztrsm, true);
    ok &= resolve(handle, "dtrmm_", &r.dtrmm, true);
    ok &= resolve(handle, "ztrmm_", &r.ztrmm, true);
    ok &= resolve(handle, "dsyrk_", &r.dsyrk, true);
    ok &= resolve(handle, "zsyrk_", &r.zsyrk, true);
    ok &= resolve(handle, "zherk_", &r.zherk, true);
    ok &= resolve(handle, "dsyr2k_", &r.dsyr2k, true);
    ok &= resolve(handle, "zsyr2k_", &r.zsyr2k, true);
    ok &= resolve(handle, "zher2k_", &r.zher2k, true);
    ok &= resolve(handle, "dsymm_", &r.dsymm, true);
    ok &= resolve(handle, "zsymm_", &r.zsymm, true);
    ok &= resolve(handle, "zhemm_", &r.zhemm, true);
    resolve(handle, "openblas_set_num_threads", &r.set_num_threads, false);
    resolve(handle, "bli_thread_set_num_threads", &r.set_num_threads_dim, false);
    if (r.set_num_threads == nullptr && r.set_num_threads_dim == nullptr) {
        std::printf("%s: no thread-count setter; its rows are skipped\n", lib.name);
        ok = false;
    }
    resolve(handle, "openblas_get_corename", &r.get_corename, false);
    resolve(handle, "openblas_get_config", &r.get_config, false);
    if (!ok) {
        dlclose(handle);
        return ref;
    }
    r.handle = handle;
    ref = r;
    return ref;
}

const RefBlas& load_ref(const std::vector<int>& threads)
{
    int most = 1;
    for (int t : threads) most = t > most ? t : most;
    return load_ref(most);
}

// ---------------------------------------------------------------------------
// ORV settings.

void prepare_orv_environment()
{
    if (std::getenv("ORV_DYNAMIC") == nullptr) setenv("ORV_DYNAMIC", "false", 1);
}

int expected_orv_path()
{
    if (const char* forced = std::getenv("ORV_DEBUG_CPU_TYPE"); forced != nullptr && *forced != '\0') {
        return std::atoi(forced);
    }
    const char* cap = std::getenv("ORV_ENABLE_INSTRUCTIONS");
    const bool allow512 = cap != nullptr && std::strcmp(cap, "AVX512") == 0;
    if (allow512 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl")) {
        return 7;
    }
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) return 5;
    if (__builtin_cpu_supports("avx")) return 4;
    if (__builtin_cpu_supports("sse4.2")) return 3;
    if (__builtin_cpu_supports("ssse3")) return 2;
    return 0;
}

const char* path_name(int path)
{
    static const char* const names[] = {"def", "def", "mc", "mc3", "avx", "avx2", "avx512_qix", "avx512"};
    return path >= 0 && path <= 7 ? names[path] : "?";
}

void settle_if_switching(const std::string& library, int threads)
{
    static std::string last;
    if (threads > 1 && !last.empty() && last != library) {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    last = library;
}

// ---------------------------------------------------------------------------
// Buffers.

void FreeDeleter::operator()(double* p) const
{
    std::free(p);
}

Buffer make_buffer(std::size_t count, unsigned seed)
{
    const std::size_t bytes = ((std::max<std::size_t>(count, 1) * sizeof(double) + 63) / 64) * 64;
    auto* p = static_cast<double*>(std::aligned_alloc(64, bytes));
    if (p == nullptr) {
        std::fprintf(stderr, "out of memory (%zu bytes)\n", bytes);
        std::exit(1);
    }
    // A 64-bit linear congruential generator: fast enough for 10^8 values.
    std::uint64_t state = 0x9E3779B97F4A7C15ull * (seed + 1);
    for (std::size_t i = 0; i < count; ++i) {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        p[i] = static_cast<double>(state >> 11) * 0x1.0p-52 - 1.0;
    }
    return Buffer(p);
}

// ---------------------------------------------------------------------------
// Streaming loops: SSE2, four independent partial sums so that the read loops
// are limited by memory and not by the latency of one chain of additions.

double stream_read1(const double* x, std::size_t n)
{
    __m128d s0 = _mm_setzero_pd(), s1 = s0, s2 = s0, s3 = s0;
    std::size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        s0 = _mm_add_pd(s0, _mm_loadu_pd(x + i));
        s1 = _mm_add_pd(s1, _mm_loadu_pd(x + i + 2));
        s2 = _mm_add_pd(s2, _mm_loadu_pd(x + i + 4));
        s3 = _mm_add_pd(s3, _mm_loadu_pd(x + i + 6));
    }
    __m128d s = _mm_add_pd(_mm_add_pd(s0, s1), _mm_add_pd(s2, s3));
    double t[2];
    _mm_storeu_pd(t, s);
    double sum = t[0] + t[1];
    for (; i < n; ++i) sum += x[i];
    return sum;
}

double stream_read2(const double* x, const double* y, std::size_t n)
{
    __m128d s0 = _mm_setzero_pd(), s1 = s0, s2 = s0, s3 = s0;
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        s0 = _mm_add_pd(s0, _mm_loadu_pd(x + i));
        s1 = _mm_add_pd(s1, _mm_loadu_pd(y + i));
        s2 = _mm_add_pd(s2, _mm_loadu_pd(x + i + 2));
        s3 = _mm_add_pd(s3, _mm_loadu_pd(y + i + 2));
    }
    __m128d s = _mm_add_pd(_mm_add_pd(s0, s1), _mm_add_pd(s2, s3));
    double t[2];
    _mm_storeu_pd(t, s);
    double sum = t[0] + t[1];
    for (; i < n; ++i) sum += x[i] + y[i];
    return sum;
}

void stream_update(const double* x, double* y, std::size_t n)
{
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        _mm_storeu_pd(y + i, _mm_add_pd(_mm_loadu_pd(x + i), _mm_loadu_pd(y + i)));
        _mm_storeu_pd(y + i + 2, _mm_add_pd(_mm_loadu_pd(x + i + 2), _mm_loadu_pd(y + i + 2)));
    }
    for (; i < n; ++i) y[i] = x[i] + y[i];
}

void stream_scale(double c, double* x, std::size_t n)
{
    const __m128d vc = _mm_set1_pd(c);
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        _mm_storeu_pd(x + i, _mm_mul_pd(vc, _mm_loadu_pd(x + i)));
        _mm_storeu_pd(x + i + 2, _mm_mul_pd(vc, _mm_loadu_pd(x + i + 2)));
    }
    for (; i < n; ++i) x[i] = c * x[i];
}

void stream_copy(const double* x, double* y, std::size_t n)
{
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        _mm_storeu_pd(y + i, _mm_loadu_pd(x + i));
        _mm_storeu_pd(y + i + 2, _mm_loadu_pd(x + i + 2));
    }
    for (; i < n; ++i) y[i] = x[i];
}

// ---------------------------------------------------------------------------
// Peak loops (one source file per instruction set).

double peak_sse_muladd(long rounds, double a, double b);
double peak_avx_muladd(long rounds, double a, double b);
double peak_avx2_fma(long rounds, double a, double b);
double peak_avx512_fma(long rounds, double a, double b);
extern const double kPeakSseFlops, kPeakAvxFlops, kPeakAvx2Flops, kPeakAvx512Flops;

const std::vector<PeakLoop>& peak_loops()
{
    static const std::vector<PeakLoop> loops = {
        {"sse_muladd", "sse2", true, kPeakSseFlops, peak_sse_muladd},
        {"avx_muladd", "avx", __builtin_cpu_supports("avx") != 0, kPeakAvxFlops, peak_avx_muladd},
        {"avx2_fma", "avx2 and fma", __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"), kPeakAvx2Flops,
         peak_avx2_fma},
        {"avx512_fma", "avx512f", __builtin_cpu_supports("avx512f") != 0, kPeakAvx512Flops, peak_avx512_fma},
    };
    return loops;
}

const char* peak_for_path(int path)
{
    if (path <= 3) return "sse_muladd";
    if (path == 4) return "avx_muladd";
    if (path == 5) return "avx2_fma";
    return "avx512_fma";
}

// ---------------------------------------------------------------------------
// Reporter.

void CollectingReporter::ReportRuns(const std::vector<Run>& reports)
{
    for (const Run& run : reports) {
        if (run.run_type == Run::RT_Iteration) runs_[run.run_name.function_name].push_back(run);
    }
    ConsoleReporter::ReportRuns(reports);
}

const Result* CollectingReporter::find(const std::string& name) const
{
    if (auto it = cache_.find(name); it != cache_.end()) return &it->second;
    auto it = runs_.find(name);
    if (it == runs_.end()) return nullptr;
    Result result;
    std::map<std::string, std::vector<double>> values;
    for (const Run& run : it->second) {
        if (run.error_occurred) {
            result.error = run.error_message;
            continue;
        }
        for (const auto& [key, counter] : run.counters) values[key].push_back(counter.value);
    }
    if (!values.empty()) {
        result.ok = true;
        for (auto& [key, list] : values) {
            std::sort(list.begin(), list.end());
            const std::size_t m = list.size();
            result.counters[key] = m % 2 == 1 ? list[m / 2] : 0.5 * (list[m / 2 - 1] + list[m / 2]);
            result.best[key] = list.back();
        }
    }
    return &cache_.emplace(name, std::move(result)).first->second;
}

// ---------------------------------------------------------------------------
// Peak rows.

void register_peak_loops()
{
    for (const PeakLoop& p : peak_loops()) {
        if (!p.supported) {
            std::printf("peak loop %s needs %s, which this processor lacks: not run\n", p.name, p.isa);
            continue;
        }
        benchmark::RegisterBenchmark((std::string("peak/") + p.name).c_str(), [p](benchmark::State& state) {
            const long rounds = 1000000;
            double sink = 0;
            for (auto _ : state) sink += p.run(rounds, 1.0, 0.0);
            benchmark::DoNotOptimize(sink);
            state.counters["GFLOP/s"] = benchmark::Counter(
                p.flops_per_round * rounds * 1e-9 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
        })
            // Short repetitions, of which the summary takes the fastest: the
            // peak is what the registers can do when nothing else gets in
            // the way.
            ->MinTime(0.05)
            ->Repetitions(5);
    }
}

std::string peak_header(const CollectingReporter& rep, const std::string& peak, int path, int threads,
                        double* peak_rate)
{
    const Result* pk = rep.find("peak/" + peak);
    *peak_rate = pk != nullptr && pk->ok ? pk->best.at("GFLOP/s") : 0.0;
    std::string out = "ORV code path " + std::to_string(path) + " (" + path_name(path) + "), " +
                      std::to_string(threads) + " thread(s); peak loop " + peak + ": " +
                      (*peak_rate > 0 ? format_fixed(*peak_rate, 1) + " GFLOP/s" : std::string("not measured")) +
                      "\n\n";
    for (const PeakLoop& p : peak_loops()) {
        const Result* r = rep.find(std::string("peak/") + p.name);
        if (r != nullptr && r->ok) {
            out += std::string("- peak loop ") + p.name + ": " + format_fixed(r->best.at("GFLOP/s"), 1) +
                   " GFLOP/s (fastest of 5 runs)\n";
        }
    }
    return out;
}

// ---------------------------------------------------------------------------
// Options and text.

std::string take_option(int* argc, char** argv, const std::string& name, const std::string& fallback)
{
    const std::string prefix = "--" + name + "=";
    std::string value = fallback;
    int out = 1;
    for (int i = 1; i < *argc; ++i) {
        if (std::strncmp(argv[i], prefix.c_str(), prefix.size()) == 0) {
            value = argv[i] + prefix.size();
        } else {
            argv[out++] = argv[i];
        }
    }
    *argc = out;
    argv[out] = nullptr;
    return value;
}

bool take_flag(int* argc, char** argv, const std::string& name)
{
    const std::string flag = "--" + name;
    bool found = false;
    int out = 1;
    for (int i = 1; i < *argc; ++i) {
        if (flag == argv[i]) {
            found = true;
        } else {
            argv[out++] = argv[i];
        }
    }
    *argc = out;
    argv[out] = nullptr;
    return found;
}

std::vector<std::string> split(const std::string& text, char sep)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = text.find(sep, start);
        const std::string part = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!part.empty()) parts.push_back(part);
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return parts;
}

// "8,16,1000" or ranges "4-32".
std::vector<int> parse_threads(const std::string& text)
{
    std::vector<int> threads;
    for (long t : parse_list(text)) threads.push_back(static_cast<int>(t));
    return threads;
}

int print_run_header(const RefBlas& ref, std::string* peak)
{
    const int path = expected_orv_path();
    std::printf("machine: %s\n", machine_description().c_str());
    std::printf("ORV code path asked for by the environment: %d (%s)", path, path_name(path));
    if (peak != nullptr) {
        if (peak->empty()) *peak = peak_for_path(path);
        std::printf("; fraction of peak against %s", peak->c_str());
    }
    std::printf("\n%s\n", ref.describe().c_str());
    return path;
}

std::vector<long> parse_list(const std::string& text)
{
    std::vector<long> values;
    for (const std::string& part : split(text, ',')) {
        const std::size_t dash = part.find('-', 1);
        if (dash != std::string::npos) {
            const long lo = std::atol(part.substr(0, dash).c_str());
            const long hi = std::atol(part.substr(dash + 1).c_str());
            for (long v = lo; v <= hi; ++v) values.push_back(v);
        } else {
            values.push_back(std::atol(part.c_str()));
        }
    }
    return values;
}

std::string format_fixed(double value, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

std::string machine_description()
{
    std::ifstream cpuinfo("/proc/cpuinfo");
    std::string line, model = "unknown processor";
    while (std::getline(cpuinfo, line)) {
        if (line.rfind("model name", 0) == 0) {
            const std::size_t colon = line.find(':');
            if (colon != std::string::npos) model = line.substr(colon + 2);
            break;
        }
    }
    return model + ", " + std::to_string(std::thread::hardware_concurrency()) + " logical processors";
}

}  // namespace bench
