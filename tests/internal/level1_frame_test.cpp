// The threading frame of the vector operations: which chunk of the vector
// each thread's kernel call gets, and in which order the chunks' results
// are combined. Results are compared bit for bit with an emulation that
// counts out the chunks itself, calls the same dispatch slots on them and
// folds their results in thread order.
//
// The thread count a driver may use is set per test through the calling
// thread's own count of the thread policy; the team the runtime grants is
// probed with a region of the same size.
#include <omp.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <string>
#include <type_traits>
#include <vector>

#include "child_process.h"
#include "level1/dispatch.h"
#include "level1/frame/drivers.h"
#include "level1/frame/frame.h"
#include "service/memory.h"
#include "teams.h"
#include "service/thread_policy.h"
#include "../level1/level1_test.h"

namespace orvtest {
namespace {

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using K = orv::Level1Kernels;

dcomplex* dz(zcomplex* p) { return reinterpret_cast<dcomplex*>(p); }
zcomplex zc(dcomplex v) { return {v.re, v.im}; }

// ---- The emulation ---------------------------------------------------------

struct Range {
    i64 start;
    i64 length;
};

// n elements dealt to `team` threads in thread order, the first n mod team
// threads taking one more.
std::vector<Range> chunks(i64 n, int team)
{
    std::vector<Range> out;
    i64 start = 0;
    for (int t = 0; t < team; ++t) {
        const i64 length = n / team + (t < n % team ? 1 : 0);
        out.push_back({start, length});
        start += length;
    }
    return out;
}

// Vectors of one case. A chunk is handed to a kernel as the lowest address
// its elements occupy, so that the kernel's own walk (from the far end for
// a negative increment) covers exactly the chunk.
struct Vectors {
    i64 n, ix, iy;
    Vec<double> x, y;
    Vec<zcomplex> zx, zy;

    Vectors(long n_, IncPair inc, Rng& rng)
        : n(n_), ix(inc.x), iy(inc.y), x(n_, inc.x, random_values<double>(rng, n_)),
          y(n_, inc.y, random_values<double>(rng, n_)), zx(n_, inc.x, random_values<zcomplex>(rng, n_)),
          zy(n_, inc.y, random_values<zcomplex>(rng, n_))
    {
    }
    template <typename T>
    T* at(Vec<T>& v, i64 inc, Range r) const
    {
        return v.data() + vec_index(n, inc, inc < 0 ? r.start + r.length - 1 : r.start);
    }
    double* xa(Range r) { return at(x, ix, r); }
    double* ya(Range r) { return at(y, iy, r); }
    dcomplex* zxa(Range r) { return dz(at(zx, ix, r)); }
    dcomplex* zya(Range r) { return dz(at(zy, iy, r)); }
};

enum class Fold { kSum, kNorm, kComplexNorm, kFirstLargest };

// A reducing routine: its driver on the whole vectors and its kernel slot
// on one chunk, each result as a complex value (an index in the real part;
// a chunk of the index search also gives the magnitude it found, in the
// imaginary part).
struct Reduction {
    const char* name;
    i64 grain;  // the threshold is twice the grain
    Fold fold;
    zcomplex (*driver)(Vectors&);
    zcomplex (*chunk)(Vectors&, Range);
};

std::vector<Reduction> reductions()
{
    return {
        {"ddot", 2048, Fold::kSum,
         [](Vectors& s) { return zcomplex(orv_blas_ddot(&s.n, s.x.data(), &s.ix, s.y.data(), &s.iy)); },
         [](Vectors& s, Range r) {
             return zcomplex(dispatch<&K::ddot>(&r.length, s.xa(r), &s.ix, s.ya(r), &s.iy));
         }},
        {"zdotc", 1024, Fold::kSum,
         [](Vectors& s) {
             dcomplex v{};
             orv_blas_zdotc(&v, &s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy);
             return zc(v);
         },
         [](Vectors& s, Range r) {
             dcomplex v{};
             dispatch<&K::zdotc>(&v, &r.length, s.zxa(r), &s.ix, s.zya(r), &s.iy);
             return zc(v);
         }},
        {"zdotu", 1024, Fold::kSum,
         [](Vectors& s) {
             dcomplex v{};
             orv_blas_zdotu(&v, &s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy);
             return zc(v);
         },
         [](Vectors& s, Range r) {
             dcomplex v{};
             dispatch<&K::zdotu>(&v, &r.length, s.zxa(r), &s.ix, s.zya(r), &s.iy);
             return zc(v);
         }},
        {"dasum", 4096, Fold::kSum, [](Vectors& s) { return zcomplex(orv_blas_dasum(&s.n, s.x.data(), &s.ix)); },
         [](Vectors& s, Range r) { return zcomplex(dispatch<&K::dasum>(&r.length, s.xa(r), &s.ix)); }},
        {"dzasum", 2048, Fold::kSum,
         [](Vectors& s) { return zcomplex(orv_blas_dzasum(&s.n, dz(s.zx.data()), &s.ix)); },
         [](Vectors& s, Range r) { return zcomplex(dispatch<&K::dzasum>(&r.length, s.zxa(r), &s.ix)); }},
        {"dnrm2", 4096, Fold::kNorm, [](Vectors& s) { return zcomplex(orv_blas_dnrm2(&s.n, s.x.data(), &s.ix)); },
         [](Vectors& s, Range r) { return zcomplex(dispatch<&K::dnrm2>(&r.length, s.xa(r), &s.ix)); }},
        {"dznrm2", 2048, Fold::kComplexNorm,
         [](Vectors& s) { return zcomplex(orv_blas_dznrm2(&s.n, dz(s.zx.data()), &s.ix)); },
         [](Vectors& s, Range r) { return zcomplex(dispatch<&K::dznrm2>(&r.length, s.zxa(r), &s.ix)); }},
        {"idamax", 4096, Fold::kFirstLargest,
         [](Vectors& s) { return zcomplex(static_cast<double>(orv_blas_idamax(&s.n, s.x.data(), &s.ix))); },
         [](Vectors& s, Range r) {
             const i64 at = r.start + dispatch<&K::idamax>(&r.length, s.xa(r), &s.ix);
             return zcomplex(static_cast<double>(at), std::fabs(s.x(at - 1)));
         }},
        {"izamax", 2048, Fold::kFirstLargest,
         [](Vectors& s) { return zcomplex(static_cast<double>(orv_blas_izamax(&s.n, dz(s.zx.data()), &s.ix))); },
         [](Vectors& s, Range r) {
             const i64 at = r.start + dispatch<&K::izamax>(&r.length, s.zxa(r), &s.ix);
             const zcomplex v = s.zx(at - 1);
             return zcomplex(static_cast<double>(at), std::fabs(v.real()) + std::fabs(v.imag()));
         }},
    };
}

// What the driver must return when the runtime grants `team` threads.
zcomplex emulate(const Reduction& red, Vectors& s, int team)
{
    std::vector<zcomplex> part;
    for (Range r : chunks(s.n, team)) part.push_back(red.chunk(s, r));
    const i64 count = team, one = 1;
    switch (red.fold) {
    case Fold::kSum: {
        zcomplex sum = part[0];
        for (int k = 1; k < team; ++k) sum = {sum.real() + part[k].real(), sum.imag() + part[k].imag()};
        return sum;
    }
    case Fold::kNorm: {
        if (team == 1) return part[0];
        std::vector<double> norms;
        for (zcomplex p : part) norms.push_back(p.real());
        return dispatch<&K::dnrm2>(&count, norms.data(), &one);
    }
    case Fold::kComplexNorm: {
        if (team == 1) return part[0];
        std::vector<dcomplex> norms;
        for (zcomplex p : part) norms.push_back({p.real(), 0.0});
        return dispatch<&K::dznrm2>(&count, norms.data(), &one);
    }
    case Fold::kFirstLargest: {
        zcomplex best = part[0];
        for (int k = 1; k < team; ++k)
            if (part[k].imag() > best.imag()) best = part[k];
        return best.real();
    }
    }
    return {};
}

// The team a driver of `red` gets for n elements with `threads` permitted.
int expected_team(const Reduction& red, i64 n, int threads)
{
    if (n < 2 * red.grain || threads <= 1) return 1;
    return granted(std::min<i64>((n + red.grain - 1) / red.grain, threads));
}

::testing::AssertionResult matches_emulation(const Reduction& red, Vectors& s, int team)
{
    const zcomplex got = red.driver(s), want = emulate(red, s, team);
    if (same_bits(got, want)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << red.name << " n=" << s.n << " incx=" << s.ix << " incy=" << s.iy
                                         << " team " << team << ": " << got << " != " << want;
}

// ---- Reductions: team sizes, sizes around the thresholds, increments ----------

class FrameReduction : public ::testing::TestWithParam<Reduction> {};

TEST_P(FrameReduction, CombinesTheGrantedTeamsChunksInThreadOrder)
{
    const Reduction& red = GetParam();
    const i64 g = red.grain;
    Rng rng(61);
    for (int threads : {1, 2, 3, 8}) {
        const Threads permit(threads);
        for (i64 n : {2 * g - 1, 2 * g, 2 * g + 1, 3 * g + 1, 8 * g + 5, i64{10000}})
            for (IncPair inc : std::vector<IncPair>{{1, 1}, {2, -3}, {-1, -1}, {-3, 2}}) {
                if (red.fold == Fold::kFirstLargest && inc.x < 1) continue;  // no answer for those
                Vectors s(n, inc, rng);
                const int team = expected_team(red, n, threads);
                if (threads > 1 && n >= 2 * g) {
                    ASSERT_GT(team, 1) << "the runtime forks no team here";
                }
                ASSERT_TRUE(matches_emulation(red, s, team)) << threads << " threads permitted";
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Frame, FrameReduction, ::testing::ValuesIn(reductions()),
                         [](const auto& info) { return std::string(info.param.name); });

// Inside an active region with nesting off the inner team is the calling
// thread alone, whatever was asked: one partial, the whole vector.
TEST(Frame, NestedRegionCombinesTheOneGrantedPartial)
{
    const int saved_levels = omp_get_max_active_levels();
    omp_set_max_active_levels(1);
    int outer = 0;
    std::vector<std::string> failures;
#pragma omp parallel num_threads(2)
    {
#pragma omp master
        {
            outer = omp_get_num_threads();
            const Threads permit(3);
            Rng rng(62);
            for (const Reduction& red : reductions()) {
                Vectors s(10000, {1, 1}, rng);
                const auto result = matches_emulation(red, s, 1);
                if (!result) failures.push_back(result.message());
            }
        }
    }
    omp_set_max_active_levels(saved_levels);
    if (outer < 2) GTEST_SKIP() << "no active outer region";
    for (const auto& f : failures) ADD_FAILURE() << f;
}

// Equal largest magnitudes in two chunks: the earlier chunk's index wins,
// also when a later one is larger by another measure (the modulus).
TEST(Frame, IndexSearchKeepsTiesWithTheEarlierChunk)
{
    const struct {
        std::vector<std::pair<long, double>> real;      // planted (0-based index, value)
        std::vector<std::pair<long, zcomplex>> complex;
        int want;
    } cases[] = {
        // Chunks of 10000 over three threads start at 0, 3334 and 6667.
        {{{3333, 9.0}, {3334, -9.0}}, {{3333, {-3.5, 3.5}}, {3334, {6.0, 1.0}}}, 3334},
        {{{6000, -9.0}, {7000, 9.0}}, {{6000, {0.0, -7.0}}, {7000, {7.0, 0.0}}}, 6001},
        {{{9000, 9.0}, {5000, 9.0}, {100, -9.0}}, {{9000, {7.0, 0.0}}, {5000, {-5.0, 2.0}}, {100, {1.0, 6.0}}}, 101},
        {{{9999, 9.0}}, {{9999, {1.0, -6.0}}}, 10000},
    };
    const Threads permit(3);
    ASSERT_EQ(granted(3), 3);
    const i64 n = 10000, one = 1;
    Rng rng(63);
    for (const auto& c : cases) {
        std::vector<double> x(n);
        std::vector<zcomplex> z(n);
        for (i64 i = 0; i < n; ++i) {
            x[i] = rng.full();
            z[i] = {rng.full(), rng.full()};
        }
        for (auto [at, v] : c.real) x[at] = v;
        for (auto [at, v] : c.complex) z[at] = v;
        EXPECT_EQ(orv_blas_idamax(&n, x.data(), &one), c.want);
        EXPECT_EQ(orv_blas_izamax(&n, dz(z.data()), &one), c.want);
    }
}

// ---- Which chunk each thread's kernel call gets ------------------------------

struct DotCall {
    i64 n;
    const double* x;
    const double* y;
    int level;  // nesting level of the calling thread; 0 outside any region
};
constexpr int kMaxRecorded = 64;
DotCall g_dot_calls[kMaxRecorded];
std::atomic<int> g_dot_count{0};

double recording_ddot(const i64* n, const double* x, const i64*, const double* y, const i64*)
{
    const int t = omp_get_thread_num();
    if (t < kMaxRecorded) g_dot_calls[t] = {*n, x, y, omp_get_level()};
    ++g_dot_count;
    return 0.0;
}

TEST(Frame, EachThreadGetsItsChunk)
{
    struct Call {
        i64 length, x_offset, y_offset;  // in elements from the arrays' bases
    };
    const struct {
        long n;
        int threads;
        IncPair inc;
        bool forks;
        std::vector<Call> calls;  // by thread
    } cases[] = {
        {4095, 8, {1, 1}, false, {{4095, 0, 0}}},
        {4096, 8, {1, 1}, true, {{2048, 0, 0}, {2048, 2048, 2048}}},
        {10000, 3, {1, 1}, true, {{3334, 0, 0}, {3333, 3334, 3334}, {3333, 6667, 6667}}},
        // Backwards the first chunk lies at the top of the arrays.
        {10000, 3, {-1, -1}, true, {{3334, 6666, 6666}, {3333, 3333, 3333}, {3333, 0, 0}}},
        {10000, 3, {2, -3}, true, {{3334, 0, 19998}, {3333, 6668, 9999}, {3333, 13334, 0}}},
        // Five parts of at least 2048 elements, however many threads are permitted.
        {10000, 8, {1, 1}, true, {{2000, 0, 0}, {2000, 2000, 2000}, {2000, 4000, 4000}, {2000, 6000, 6000},
                                  {2000, 8000, 8000}}},
        {10000, 1, {1, 1}, false, {{10000, 0, 0}}},
        {10000, 3, {0, 1}, false, {{10000, 0, 0}}},  // a zero step is never split
    };
    const SlotSwap<&K::ddot> swap(&recording_ddot);
    for (const auto& c : cases) {
        const Threads permit(c.threads);
        if (c.forks) {
            ASSERT_EQ(granted(static_cast<long>(c.calls.size())), static_cast<int>(c.calls.size()));
        }
        std::vector<double> x(vec_span(c.n, c.inc.x)), y(vec_span(c.n, c.inc.y));
        const i64 n = c.n, incx = c.inc.x, incy = c.inc.y;
        g_dot_count = 0;
        orv_blas_ddot(&n, x.data(), &incx, y.data(), &incy);
        ASSERT_EQ(g_dot_count.load(), static_cast<int>(c.calls.size())) << "n=" << c.n << " threads " << c.threads;
        for (std::size_t t = 0; t < c.calls.size(); ++t) {
            const DotCall& got = g_dot_calls[t];
            EXPECT_EQ(got.n, c.calls[t].length) << "thread " << t << " n=" << c.n;
            EXPECT_EQ(got.x - x.data(), c.calls[t].x_offset) << "thread " << t << " n=" << c.n;
            EXPECT_EQ(got.y - y.data(), c.calls[t].y_offset) << "thread " << t << " n=" << c.n;
            EXPECT_EQ(got.level, c.forks ? 1 : 0) << "thread " << t << " n=" << c.n;
        }
    }
}

// ---- Element-wise operations ------------------------------------------------------

// Splitting an element-wise operation must not change a single bit: the
// threaded driver against one kernel call on the whole vectors, for one
// routine of each shape (the level-1 suite's threaded runs split the rest).
struct Update {
    const char* name;
    i64 grain;
    void (*apply)(Vectors&, bool threaded);
};

struct Scalars {
    double alpha = 0.75, c = 0.6, s = -0.8;
};
const Scalars kScalars;

std::vector<Update> updates()
{
    return {
        {"daxpy", 2048,
         [](Vectors& s, bool threaded) {
             if (threaded) orv_blas_daxpy(&s.n, &kScalars.alpha, s.x.data(), &s.ix, s.y.data(), &s.iy);
             else dispatch<&K::daxpy>(&s.n, &kScalars.alpha, s.x.data(), &s.ix, s.y.data(), &s.iy);
         }},
        {"zswap", 1024,
         [](Vectors& s, bool threaded) {
             if (threaded) orv_blas_zswap(&s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy);
             else dispatch<&K::zswap>(&s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy);
         }},
        {"dscal", 4096,
         [](Vectors& s, bool threaded) {
             if (threaded) orv_blas_dscal(&s.n, &kScalars.alpha, s.x.data(), &s.ix);
             else dispatch<&K::dscal>(&s.n, &kScalars.alpha, s.x.data(), &s.ix);
         }},
        {"zdrot", 1024,
         [](Vectors& s, bool threaded) {
             if (threaded) orv_blas_zdrot(&s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy, &kScalars.c, &kScalars.s);
             else dispatch<&K::zdrot>(&s.n, dz(s.zx.data()), &s.ix, dz(s.zy.data()), &s.iy, &kScalars.c, &kScalars.s);
         }},
    };
}

class FrameUpdate : public ::testing::TestWithParam<Update> {};

TEST_P(FrameUpdate, SplitChangesNoBit)
{
    const Update& op = GetParam();
    const i64 g = op.grain;
    for (int threads : {3, 8}) {
        const Threads permit(threads);
        for (i64 n : {2 * g, 3 * g + 1, 8 * g + 5})
            for (IncPair inc : std::vector<IncPair>{{1, 1}, {2, -3}, {-1, -1}, {-3, 2}}) {
                Rng a(64), b(64);
                Vectors threaded(n, inc, a), single(n, inc, b);
                op.apply(threaded, true);
                op.apply(single, false);
                const auto where = [&] { return std::string(op.name) + " n=" + std::to_string(n); };
                ASSERT_TRUE(threaded.x.holds(single.x.values())) << where();
                ASSERT_TRUE(threaded.y.holds(single.y.values())) << where();
                ASSERT_TRUE(threaded.zx.holds(single.zx.values())) << where();
                ASSERT_TRUE(threaded.zy.holds(single.zy.values())) << where();
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Frame, FrameUpdate, ::testing::ValuesIn(updates()),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- Quick returns before any thread starts ------------------------------------

// Counts the calls through slot M while installed; computes nothing.
template <auto M, typename Fn = typename SlotSwap<M>::Fn>
struct CountingSlot;
template <auto M, typename R, typename... A>
struct CountingSlot<M, R (*)(A...)> {
    static inline std::atomic<int> calls{0};
    static R hook(A...)
    {
        ++calls;
        return R();
    }
};

template <auto M, typename Call>
int kernel_calls(const Call& call)
{
    const SlotSwap<M> swap(&CountingSlot<M>::hook);
    CountingSlot<M>::calls = 0;
    call();
    return CountingSlot<M>::calls.load();
}

// A zero alpha leaves y alone (even its NaNs) without starting a thread or
// calling a kernel; any other alpha, NaN included, reaches the kernels.
TEST(Frame, ZeroAlphaReturnsBeforeAnyKernelCall)
{
    const Threads permit(8);
    const i64 n = 1000000, one = 1;
    const double nan = std::nan("");
    std::vector<double> x(n, nan), y(n, 1.0);
    std::vector<zcomplex> zx(n, {nan, nan}), zy(n, {1.0, 1.0});
    const struct {
        double re, im;
        bool runs;
    } cases[] = {{0.0, 0.0, false}, {-0.0, 0.0, false}, {0.0, -0.0, false}, {1.0, 0.0, true},
                 {nan, 0.0, true},  {0.0, 1.0, true}};
    for (const auto& c : cases) {
        const dcomplex zalpha{c.re, c.im};
        const int zcalls = kernel_calls<&K::zaxpy>([&] { orv_blas_zaxpy(&n, &zalpha, dz(zx.data()), &one, dz(zy.data()), &one); });
        EXPECT_EQ(zcalls > 0, c.runs) << "zaxpy alpha (" << c.re << ", " << c.im << ")";
        if (c.im != 0.0 || std::signbit(c.im)) continue;
        const int calls = kernel_calls<&K::daxpy>([&] { orv_blas_daxpy(&n, &c.re, x.data(), &one, y.data(), &one); });
        EXPECT_EQ(calls > 0, c.runs) << "daxpy alpha " << c.re;
    }
}

// The index search answers 0 for a non-positive step and 1 for one element
// without looking at x (null here) or calling a kernel.
TEST(Frame, IndexSearchQuickReturns)
{
    const Threads permit(8);
    const struct {
        i64 n, inc, want;
    } cases[] = {{1000000, 0, 0}, {1000000, -1, 0}, {1, 1, 1}, {1, 5, 1}, {0, 1, 0}};
    for (const auto& c : cases) {
        i64 got = -1;
        EXPECT_EQ(kernel_calls<&K::idamax>([&] { got = orv_blas_idamax(&c.n, nullptr, &c.inc); }), 0);
        EXPECT_EQ(got, c.want) << "idamax n=" << c.n << " inc=" << c.inc;
        EXPECT_EQ(kernel_calls<&K::izamax>([&] { got = orv_blas_izamax(&c.n, nullptr, &c.inc); }), 0);
        EXPECT_EQ(got, c.want) << "izamax n=" << c.n << " inc=" << c.inc;
    }
}

// ---- Teams in other processes -------------------------------------------------------

// Child: a thread limit below the request. The chunks are cut for the team
// granted and exactly that many partials are combined.
TEST(FrameChild, DISABLED_FewerThreadsThanAsked)
{
    const Threads permit(3);
    ASSERT_EQ(granted(3), 2) << "OMP_THREAD_LIMIT=2 expected";
    Rng rng(65);
    for (const Reduction& red : reductions()) {
        Vectors s(10000, {1, 1}, rng);
        EXPECT_TRUE(matches_emulation(red, s, 2));
    }
}

TEST(Frame, FewerThreadsThanAskedCombineTheGrantedPartials)
{
    const ChildResult child = run_child("FrameChild.DISABLED_FewerThreadsThanAsked", {{"OMP_THREAD_LIMIT", "2"}});
    EXPECT_EQ(child.status, 0) << child.out;
}

// Child: more parts than the frame keeps on its stack; the partials come
// from the memory manager. The count comes from the environment, as a user
// would give it.
TEST(FrameChild, DISABLED_ManyParts)
{
    const Reduction ddot = reductions()[0];
    Rng rng(66);
    for (i64 parts : {512, 513}) {
        ASSERT_EQ(granted(parts), parts);
        Vectors s(parts * ddot.grain, {1, 1}, rng);
        EXPECT_TRUE(matches_emulation(ddot, s, static_cast<int>(parts)));
    }
}

TEST(Frame, MorePartsThanTheStackArrayHolds)
{
    const ChildResult child =
        run_child("FrameChild.DISABLED_ManyParts", {{"ORV_NUM_THREADS", "513"}, {"ORV_DYNAMIC", "false"},
                                                     {"ORV_DOMAIN_NUM_THREADS", nullptr}});
    EXPECT_EQ(child.status, 0) << child.out;
}

// Child: the heap array of 513 partials is refused. Every reduction still
// gives its result, computed by one kernel call on the whole vector.
std::atomic<int> g_refusals{0};
std::atomic<std::size_t> g_refused_bytes{0};

TEST(FrameChild, DISABLED_RefusedPartials)
{
    orv::allocation_refusal = [](std::size_t size, int) {
        ++g_refusals;
        g_refused_bytes = size;
        return true;
    };
    Rng rng(67);
    ASSERT_EQ(granted(513), 513);
    for (const Reduction& red : reductions()) {
        const int before = g_refusals;
        Vectors s(513 * red.grain, {1, -1}, rng);
        EXPECT_TRUE(matches_emulation(red, s, 1)) << red.name;
        EXPECT_EQ(g_refusals - before, 1) << red.name << ": the heap array was not asked for exactly once";
        EXPECT_TRUE(g_refused_bytes == 513 * sizeof(double) || g_refused_bytes == 513 * sizeof(dcomplex))
            << red.name << ": " << g_refused_bytes;
    }
    orv::allocation_refusal = nullptr;
}

TEST(Frame, RefusedPartialsLeaveOneCallOnTheWholeVector)
{
    const ChildResult child =
        run_child("FrameChild.DISABLED_RefusedPartials", {{"ORV_NUM_THREADS", "513"}, {"ORV_DYNAMIC", "false"},
                                                          {"ORV_DOMAIN_NUM_THREADS", nullptr}});
    EXPECT_EQ(child.status, 0) << child.out;
}

}  // namespace
}  // namespace orvtest
