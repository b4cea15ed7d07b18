// Shared pieces of the benchmark programs: the comparison library loaded at
// run time, aligned buffers, the plain streaming loops (bandwidth reference),
// the register-only peak loops, and the reporter that pairs ORV's rows with the
// comparison library's rows into a summary table.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace bench {

// ---------------------------------------------------------------------------
// Comparison library, loaded with dlopen, never linked.

// The libraries a run can be compared with; BENCH_COMPARE names one by its
// key (default: the first).
struct RefLibrary {
    const char* key;
    const char* name;
    const char* path;
    const char* threads_variable;  // read when the library is loaded
};
inline constexpr RefLibrary kRefLibraries[] = {
    {"openblas", "OpenBLAS", "/usr/lib/x86_64-linux-gnu/openblas-pthread/libopenblas.so.0", "OPENBLAS_NUM_THREADS"},
    {"blis", "BLIS", "/usr/lib/x86_64-linux-gnu/blis-openmp/libblis.so.4", "BLIS_NUM_THREADS"},
};
// The library of this run, and its name for the tables.
const RefLibrary& ref_library();
const char* ref_name();

// Two doubles returned in registers: the gfortran convention of the complex
// dot functions in the comparison library.
struct ComplexValue {
    double re, im;
};

struct RefBlas {
    void* handle = nullptr;
    double (*ddot)(const int*, const double*, const int*, const double*, const int*) = nullptr;
    void (*daxpy)(const int*, const double*, const double*, const int*, double*, const int*) = nullptr;
    void (*dscal)(const int*, const double*, double*, const int*) = nullptr;
    void (*dcopy)(const int*, const double*, const int*, double*, const int*) = nullptr;
    double (*dasum)(const int*, const double*, const int*) = nullptr;
    double (*dnrm2)(const int*, const double*, const int*) = nullptr;
    int (*idamax)(const int*, const double*, const int*) = nullptr;
    ComplexValue (*zdotc)(const int*, const void*, const int*, const void*, const int*) = nullptr;
    void (*zaxpy)(const int*, const void*, const void*, const int*, void*, const int*) = nullptr;
    void (*dgemv)(const char*, const int*, const int*, const double*, const double*, const int*, const double*,
                  const int*, const double*, double*, const int*) = nullptr;
    void (*zgemv)(const char*, const int*, const int*, const void*, const void*, const int*, const void*, const int*,
                  const void*, void*, const int*) = nullptr;
    void (*dger)(const int*, const int*, const double*, const double*, const int*, const double*, const int*,
                 double*, const int*) = nullptr;
    void (*zgerc)(const int*, const int*, const void*, const void*, const int*, const void*, const int*, void*,
                  const int*) = nullptr;
    void (*dsymv)(const char*, const int*, const double*, const double*, const int*, const double*, const int*,
                  const double*, double*, const int*) = nullptr;
    void (*zhemv)(const char*, const int*, const void*, const void*, const int*, const void*, const int*,
                  const void*, void*, const int*) = nullptr;
    void (*dtrmv)(const char*, const char*, const char*, const int*, const double*, const int*, double*,
                  const int*) = nullptr;
    void (*ztrmv)(const char*, const char*, const char*, const int*, const void*, const int*, void*,
                  const int*) = nullptr;
    void (*dtrsv)(const char*, const char*, const char*, const int*, const double*, const int*, double*,
                  const int*) = nullptr;
    void (*ztrsv)(const char*, const char*, const char*, const int*, const void*, const int*, void*,
                  const int*) = nullptr;
    // Band and packed products and solves.
    void (*dgbmv)(const char*, const int*, const int*, const int*, const int*, const double*, const double*,
                  const int*, const double*, const int*, const double*, double*, const int*) = nullptr;
    void (*dsbmv)(const char*, const int*, const int*, const double*, const double*, const int*, const double*,
                  const int*, const double*, double*, const int*) = nullptr;
    void (*dspmv)(const char*, const int*, const double*, const double*, const double*, const int*, const double*,
                  double*, const int*) = nullptr;
    void (*dtpmv)(const char*, const char*, const char*, const int*, const double*, double*, const int*) = nullptr;
    void (*dtbsv)(const char*, const char*, const char*, const int*, const int*, const double*, const int*, double*,
                  const int*) = nullptr;
    // Symmetric and Hermitian rank-1 and rank-2 updates.
    void (*dsyr)(const char*, const int*, const double*, const double*, const int*, double*, const int*) = nullptr;
    void (*dsyr2)(const char*, const int*, const double*, const double*, const int*, const double*, const int*,
                  double*, const int*) = nullptr;
    void (*zher)(const char*, const int*, const double*, const void*, const int*, void*, const int*) = nullptr;
    void (*zher2)(const char*, const int*, const void*, const void*, const int*, const void*, const int*, void*,
                  const int*) = nullptr;
    void (*dgemm)(const char*, const char*, const int*, const int*, const int*, const double*, const double*,
                  const int*, const double*, const int*, const double*, double*, const int*) = nullptr;
    // Level 3 beyond dgemm; complex scalars and matrices as interleaved
    // (real, imaginary) doubles behind void pointers.
    void (*zgemm)(const char*, const char*, const int*, const int*, const int*, const void*, const void*, const int*,
                  const void*, const int*, const void*, void*, const int*) = nullptr;
    void (*dtrsm)(const char*, const char*, const char*, const char*, const int*, const int*, const double*,
                  const double*, const int*, double*, const int*) = nullptr;
    void (*ztrsm)(const char*, const char*, const char*, const char*, const int*, const int*, const void*,
                  const void*, const int*, void*, const int*) = nullptr;
    void (*dtrmm)(const char*, const char*, const char*, const char*, const int*, const int*, const double*,
                  const double*, const int*, double*, const int*) = nullptr;
    void (*ztrmm)(const char*, const char*, const char*, const char*, const int*, const int*, const void*,
                  const void*, const int*, void*, const int*) = nullptr;
    void (*dsyrk)(const char*, const char*, const int*, const int*, const double*, const double*, const int*,
                  const double*, double*, const int*) = nullptr;
    void (*zsyrk)(const char*, const char*, const int*, const int*, const void*, const void*, const int*,
                  const void*, void*, const int*) = nullptr;
    void (*zherk)(const char*, const char*, const int*, const int*, const double*, const void*, const int*,
                  const double*, void*, const int*) = nullptr;
    void (*dsyr2k)(const char*, const char*, const int*, const int*, const double*, const double*, const int*,
                   const double*, const int*, const double*, double*, const int*) = nullptr;
    void (*zsyr2k)(const char*, const char*, const int*, const int*, const void*, const void*, const int*,
                   const void*, const int*, const void*, void*, const int*) = nullptr;
    void (*zher2k)(const char*, const char*, const int*, const int*, const void*, const void*, const int*,
                   const void*, const int*, const double*, void*, const int*) = nullptr;
    void (*dsymm)(const char*, const char*, const int*, const int*, const double*, const double*, const int*,
                  const double*, const int*, const double*, double*, const int*) = nullptr;
    void (*zsymm)(const char*, const char*, const int*, const int*, const void*, const void*, const int*,
                  const void*, const int*, const void*, void*, const int*) = nullptr;
    void (*zhemm)(const char*, const char*, const int*, const int*, const void*, const void*, const int*,
                  const void*, const int*, const void*, void*, const int*) = nullptr;
    void (*set_num_threads)(int) = nullptr;     // one library's setter takes an int,
    void (*set_num_threads_dim)(long) = nullptr;  // the other's a 64-bit count
    char* (*get_corename)() = nullptr;
    char* (*get_config)() = nullptr;

    bool loaded() const { return handle != nullptr; }
    void set_threads(int n) const;
    std::string describe() const;
};

// Loads the comparison library once. Before loading, its thread-count
// variable is set to max_threads unless the caller's environment already sets
// it (the library sizes its thread pool when it is loaded). When the file is absent
// or a symbol is missing, prints why and returns an unloaded record: the
// programs then skip the comparison rows.
const RefBlas& load_ref(int max_threads);
// The same for the largest of `threads`.
const RefBlas& load_ref(const std::vector<int>& threads);

// ---------------------------------------------------------------------------
// ORV settings made before its first call.

// ORV reads its environment once; a benchmark that asks for a thread count
// wants exactly that many, so the dynamic flag is turned off unless the
// caller's environment says otherwise.
void prepare_orv_environment();

// The code path the environment asks ORV for: ORV_DEBUG_CPU_TYPE when set,
// otherwise what the processor offers (7 only with ORV_ENABLE_INSTRUCTIONS=AVX512).
int expected_orv_path();
const char* path_name(int path);

// Waits a little when the library that runs next differs from the one that ran
// last and several threads are involved: both libraries keep their idle worker
// threads spinning for a while after a parallel call.
void settle_if_switching(const std::string& library, int threads);

// ---------------------------------------------------------------------------
// Buffers.

struct FreeDeleter {
    void operator()(double* p) const;
};
using Buffer = std::unique_ptr<double[], FreeDeleter>;

// 64-byte aligned, filled with values in [-1, 1) from a fixed seed.
Buffer make_buffer(std::size_t count, unsigned seed);

// ---------------------------------------------------------------------------
// Plain streaming loops, compiled for the x86-64 baseline (SSE2). They are
// the bandwidth reference of the vector routines.

double stream_read1(const double* x, std::size_t n);                    // sum x
double stream_read2(const double* x, const double* y, std::size_t n);   // sum x + y
void stream_update(const double* x, double* y, std::size_t n);          // y = x + y
void stream_scale(double c, double* x, std::size_t n);                  // x = c * x
void stream_copy(const double* x, double* y, std::size_t n);            // y = x

// ---------------------------------------------------------------------------
// Register-only peak loops. Each runs `rounds` rounds of independent chains
// and returns a value that depends on every chain; flops_per_round tells how
// many floating-point operations one round performs.

struct PeakLoop {
    const char* name;        // "sse_muladd", "avx_muladd", "avx2_fma", "avx512_fma"
    const char* isa;         // instruction set the loop needs
    bool supported;          // whether this processor has it
    double flops_per_round;
    double (*run)(long rounds, double a, double b);
};
const std::vector<PeakLoop>& peak_loops();
// The loop whose peak bounds a code path's GEMM kernels.
const char* peak_for_path(int path);

// ---------------------------------------------------------------------------
// Results, pairing and summary.

struct Result {
    bool ok = false;
    std::string error;
    std::map<std::string, double> counters;  // median over repetitions
    std::map<std::string, double> best;      // largest over repetitions
};

// Console output as usual, and every iteration run remembered by name
// (the registered name, without Google Benchmark's suffixes).
class CollectingReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& reports) override;
    const Result* find(const std::string& name) const;

private:
    std::map<std::string, std::vector<Run>> runs_;
    mutable std::map<std::string, Result> cache_;
};

// Registers "peak/<loop>" for every peak loop the processor can run, in short
// repetitions of which the summaries take the fastest; names those it cannot.
void register_peak_loops();

// Opening lines of a summary: the code path, the thread count, the rate of
// the path's peak loop (also stored in *peak_rate, 0 when not measured) and
// every peak loop measured.
std::string peak_header(const CollectingReporter& rep, const std::string& peak, int path, int threads,
                        double* peak_rate);

// Splits "--name=value" options of the program off argv (before Google
// Benchmark parses the rest).
std::string take_option(int* argc, char** argv, const std::string& name, const std::string& fallback);
// Removes a bare "--name" from argv; true when it was there.
bool take_flag(int* argc, char** argv, const std::string& name);
std::vector<long> parse_list(const std::string& text);
std::vector<std::string> split(const std::string& text, char sep);
// The thread counts of a list option ("1,2").
std::vector<int> parse_threads(const std::string& text);

// The routines of `all` that `wanted` names, in the order of `all`.
template <class Routine>
std::vector<Routine> named(const std::vector<Routine>& all, const std::vector<std::string>& wanted)
{
    std::vector<Routine> picked;
    for (const Routine& r : all)
        for (const std::string& w : wanted)
            if (w == r.name) picked.push_back(r);
    return picked;
}

// Prints the machine, the code path the environment asks ORV for and the
// comparison library, and returns the path. With `peak`, an empty one
// becomes the path's peak loop, named as what fractions of peak are of.
int print_run_header(const RefBlas& ref, std::string* peak = nullptr);

std::string format_fixed(double value, int digits);

// Machine line for the summary: model name and logical processors.
std::string machine_description();

}  // namespace bench
