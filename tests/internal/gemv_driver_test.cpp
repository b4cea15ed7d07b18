// The threaded general matrix-vector product: how the work is shared out and
// how the partial products of a long, thin matrix are summed. Results are
// compared bit for bit with an emulation that cuts the parts itself, runs
// the same dispatch slot on each and adds the partials in thread order; the
// calls each thread makes are recorded by a slot that computes nothing.
//
// Inputs use all 53 bits, so that a wrong order of additions shows.
#include <omp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <type_traits>
#include <mutex>
#include <string>
#include <vector>

#include "child_process.h"
#include "level2/dispatch.h"
#include "level2/gemv_driver.h"
#include "orv_test.h"
#include "service/memory.h"
#include "teams.h"

namespace orvtest {
namespace {

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using K = orv::Level2Kernels;



// One product: y := alpha op(A) x + beta y on m x n with lda = m + 3.
template <typename T>
struct Product {
    char trans;
    i64 m, n, lda, incx, incy;
    T alpha, beta;
    std::vector<T> a, x, y;

    Product(char op, i64 rows, i64 cols, i64 ix, i64 iy, Rng& rng)
        : trans(op), m(rows), n(cols), lda(rows + 3), incx(ix), incy(iy), alpha(value<T>(rng)), beta(value<T>(rng))
    {
        const bool t = op != 'N';
        a.resize(static_cast<std::size_t>(lda * n));
        x.resize(vec_span(t ? m : n, ix));
        y.resize(vec_span(t ? n : m, iy));
        for (T& v : a) v = value<T>(rng);
        for (T& v : x) v = value<T>(rng);
        for (T& v : y) v = value<T>(rng);
    }
    bool transposed() const { return trans != 'N'; }
    i64 len_y() const { return transposed() ? n : m; }
    i64 len_long() const { return transposed() ? m : n; }

    // The threaded driver, on a copy of y.
    std::vector<T> driver() const
    {
        std::vector<T> out = y;
        if constexpr (std::is_same_v<T, dcomplex>)
            orv_blas_zgemv(&trans, &m, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, out.data(), &incy);
        else
            orv_blas_dgemv(&trans, &m, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, out.data(), &incy);
        return out;
    }
};

template <typename T>
void kernel(const char* trans, i64 m, i64 n, const T* alpha, const T* a, i64 lda, const T* x, i64 incx, const T* beta,
            T* y, i64 incy)
{
    const i64 flag = 1;
    if constexpr (std::is_same_v<T, dcomplex>)
        dispatch<&K::zgemv>(trans, &m, &n, alpha, a, &lda, x, &incx, beta, y, &incy, &flag);
    else
        dispatch<&K::dgemv>(trans, &m, &n, alpha, a, &lda, x, &incx, beta, y, &incy, &flag);
}

// One kernel call on the whole product, on a copy of y.
template <typename T>
std::vector<T> single_call(const Product<T>& p)
{
    std::vector<T> out = p.y;
    kernel(&p.trans, p.m, p.n, &p.alpha, p.a.data(), p.lda, p.x.data(), p.incx, &p.beta, out.data(), p.incy);
    return out;
}

// The partial products of `team` threads over the long side, summed into
// beta * y: p(0, i) .. p(S-1, i) go in steps of eight accumulators of two
// lanes for real data (16 partials a step) and of one complex value for
// complex data (8 a step), the rest in pairs into the first accumulator, an
// odd last one straight into y(i); then y(i) plus the accumulators summed
// pairwise, ((a0 + a1) + (a2 + a3)) + ((a4 + a5) + (a6 + a7)), lane 0 + lane 1.
template <typename T>
std::vector<T> split_sum(const Product<T>& p, int team)
{
    constexpr int lanes = std::is_same_v<T, dcomplex> ? 1 : 2;
    const i64 len = p.len_long(), share = len / team, ly = p.len_y();
    std::vector<std::vector<T>> part(team, std::vector<T>(static_cast<std::size_t>(ly)));
    const T zero{};
    for (int t = 0; t < team; ++t) {
        const i64 start = t * share, count = t == team - 1 ? len - start : share;
        const T* x = p.x.data() + (p.incx < 0 ? (start + count - len) * p.incx : start * p.incx);
        if (p.transposed())
            kernel(&p.trans, count, p.n, &p.alpha, p.a.data() + start, p.lda, x, p.incx, &zero, part[t].data(), i64{1});
        else
            kernel(&p.trans, p.m, count, &p.alpha, p.a.data() + start * p.lda, p.lda, x, p.incx, &zero,
                   part[t].data(), i64{1});
    }
    std::vector<T> out = p.y;
    const bool beta_zero = std::memcmp(&p.beta, &zero, sizeof(T)) == 0;
    for (i64 i = 0; i < ly; ++i) {
        T& yi = out[vec_index(ly, p.incy, i)];
        yi = beta_zero ? zero : p.beta * yi;
        T acc[8][lanes] = {};
        int k = 0;
        for (; k + 8 * lanes <= team; k += 8 * lanes)
            for (int q = 0; q < 8; ++q)
                for (int l = 0; l < lanes; ++l) acc[q][l] = acc[q][l] + part[k + q * lanes + l][i];
        for (; k + 2 <= team; k += 2) {
            acc[0][0] = acc[0][0] + part[k][i];
            acc[0][lanes - 1] = acc[0][lanes - 1] + part[k + 1][i];
        }
        if (k < team) yi = yi + part[k][i];
        T sum[lanes];
        for (int l = 0; l < lanes; ++l)
            sum[l] = ((acc[0][l] + acc[1][l]) + (acc[2][l] + acc[3][l])) +
                     ((acc[4][l] + acc[5][l]) + (acc[6][l] + acc[7][l]));
        if constexpr (lanes == 2) yi = yi + (sum[0] + sum[1]);
        else yi = yi + sum[0];
    }
    return out;
}

// ---- Partial products of long, thin matrices ----------------------------------

template <typename T>
class GemvSplitSum : public ::testing::Test {};
using Elements = ::testing::Types<double, dcomplex>;
TYPED_TEST_SUITE(GemvSplitSum, Elements);

// Teams of 2, 3 and 8, and one that fills a whole step of accumulators
// (17 real, 9 complex); wide 'N' and tall transposed products, all
// increments; the same bits on every repetition.
TYPED_TEST(GemvSplitSum, SumsThePartialsInThreadOrder)
{
    using T = TypeParam;
    constexpr bool complex = std::is_same_v<T, dcomplex>;
    const i64 long_side = complex ? 5003 : 10007, short_side = complex ? 50 : 100;
    Rng rng(71);
    for (int team : {2, 3, 8, complex ? 9 : 17}) {
        const Threads permit(team);
        ASSERT_EQ(granted(team), team);
        for (const char op : {'N', 'T', 'C'})
            for (const auto& [ix, iy] : std::vector<std::pair<i64, i64>>{{1, 1}, {2, -1}, {-3, 2}}) {
                const bool wide = op == 'N';
                const Product<T> p(op, wide ? short_side : long_side, wide ? long_side : short_side, ix, iy, rng);
                const std::vector<T> got = p.driver();
                ASSERT_TRUE(same(got, split_sum(p, team)))
                    << op << " team " << team << " incx " << ix << " incy " << iy;
                for (int again = 0; again < 3; ++again) ASSERT_TRUE(same(p.driver(), got)) << "repetition " << again;
            }
    }
}

// Row and column shares write disjoint parts of y with the kernel's own
// arithmetic: the same bits as one call on the whole product, every time.
TYPED_TEST(GemvSplitSum, SharesOfRowsAndColumnsChangeNoBit)
{
    using T = TypeParam;
    Rng rng(72);
    for (int team : {2, 3, 8}) {
        const Threads permit(team);
        for (const char op : {'N', 'T', 'C'})
            for (const auto& [ix, iy] : std::vector<std::pair<i64, i64>>{{1, 1}, {-2, -3}}) {
                const Product<T> p(op, 700, 333, ix, iy, rng);
                const std::vector<T> want = single_call(p);
                for (int again = 0; again < 3; ++again) ASSERT_TRUE(same(p.driver(), want)) << op << " team " << team;
            }
    }
}

// ---- Which calls each thread makes --------------------------------------------

struct Call {
    i64 m, n;
    i64 a_offset;  // elements from A's base
    i64 y_offset;  // elements from y's base, -1 for a buffer of the driver's
    double beta;
    i64 incy;
    int level;  // nesting level of the calling thread; 0 outside any region
};

std::mutex g_mutex;
std::vector<Call> g_calls;
const double* g_a = nullptr;
const double* g_y = nullptr;
i64 g_y_len = 0;

void recording_dgemv(const char*, const i64* m, const i64* n, const double*, const double* a, const i64*,
                     const double*, const i64*, const double* beta, double* y, const i64* incy, const i64* flag)
{
    EXPECT_EQ(*flag, 1);
    const bool in_y = y >= g_y && y < g_y + g_y_len;
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_calls.push_back({*m, *n, a - g_a, in_y ? y - g_y : -1, *beta, *incy, omp_get_level()});
}

// The driver's calls for one case, sorted by the part of A they cover.
std::vector<Call> calls_for(char trans, i64 m, i64 n, int threads)
{
    const SlotSwap<&K::dgemv> swap(&recording_dgemv);
    const Threads permit(threads);
    const i64 lda = m, one = 1;
    const double alpha = 2.0, beta = 0.5;
    std::vector<double> a(static_cast<std::size_t>(lda * n)), x(static_cast<std::size_t>(trans == 'N' ? n : m)),
        y(static_cast<std::size_t>(trans == 'N' ? m : n));
    g_a = a.data();
    g_y = y.data();
    g_y_len = static_cast<i64>(y.size());
    g_calls.clear();
    orv_blas_dgemv(&trans, &m, &n, &alpha, a.data(), &lda, x.data(), &one, &beta, y.data(), &one);
    std::vector<Call> calls = g_calls;
    std::sort(calls.begin(), calls.end(), [](const Call& l, const Call& r) { return l.a_offset < r.a_offset; });
    return calls;
}

TEST(GemvTeams, EachThreadGetsItsShare)
{
    const i64 all = -2;  // stands for "the caller's y, from its base"
    const struct {
        char trans;
        i64 m, n;
        int threads;
        std::vector<Call> calls;  // y_offset -1: a partial vector; beta -1: 0 for partials
    } cases[] = {
        // Wide: four partial products of 5000 columns each.
        {'N', 50, 20000, 4,
         {{50, 5000, 0, -1, 0.0, 1, 1}, {50, 5000, 250000, -1, 0.0, 1, 1}, {50, 5000, 500000, -1, 0.0, 1, 1},
          {50, 5000, 750000, -1, 0.0, 1, 1}}},
        // A share of 248 rows times 2 columns is too little work: one call.
        {'N', 1000, 2, 4, {{1000, 2, 0, all, 0.5, 1, 0}}},
        // 75 columns per thread, 100 * 75 >= 4096.
        {'T', 100, 300, 4,
         {{100, 75, 0, 0, 0.5, 1, 1}, {100, 75, 7500, 75, 0.5, 1, 1}, {100, 75, 15000, 150, 0.5, 1, 1},
          {100, 75, 22500, 225, 0.5, 1, 1}}},
        // Shares of whole multiples of 8 rows; the last thread takes the rest.
        {'N', 130, 50, 2, {{64, 50, 0, 0, 0.5, 1, 1}, {66, 50, 64, 64, 0.5, 1, 1}}},
        {'N', 130, 47, 2, {{130, 47, 0, all, 0.5, 1, 0}}},
        // Small shares of columns: a team from 2048 elements of work per thread.
        {'T', 40, 100, 2, {{40, 100, 0, all, 0.5, 1, 0}}},
        {'T', 41, 100, 2, {{41, 50, 0, 0, 0.5, 1, 1}, {41, 50, 2050, 50, 0.5, 1, 1}}},
        // Tall: partial products of the rows.
        {'T', 10000, 100, 2, {{5000, 100, 0, -1, 0.0, 1, 1}, {5000, 100, 5000, -1, 0.0, 1, 1}}},
        {'T', 9999, 100, 2, {{9999, 50, 0, 0, 0.5, 1, 1}, {9999, 50, 499950, 50, 0.5, 1, 1}}},
        // Under 64 rows and columns nothing is shared out.
        {'N', 63, 63, 4, {{63, 63, 0, all, 0.5, 1, 0}}},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(granted(c.threads), c.threads);
        const std::vector<Call> got = calls_for(c.trans, c.m, c.n, c.threads);
        const std::string where = std::string(1, c.trans) + " m=" + std::to_string(c.m) + " n=" + std::to_string(c.n);
        ASSERT_EQ(got.size(), c.calls.size()) << where;
        for (std::size_t k = 0; k < got.size(); ++k) {
            const Call& w = c.calls[k];
            EXPECT_EQ(got[k].m, w.m) << where << " call " << k;
            EXPECT_EQ(got[k].n, w.n) << where << " call " << k;
            EXPECT_EQ(got[k].a_offset, w.a_offset) << where << " call " << k;
            EXPECT_EQ(got[k].y_offset, w.y_offset == all ? 0 : w.y_offset) << where << " call " << k;
            EXPECT_EQ(got[k].beta, w.beta) << where << " call " << k;
            EXPECT_EQ(got[k].level, w.level) << where << " call " << k;
        }
    }
}

// Sixteen threads: shares of 16 rows, the last thread 60; with too little
// work per thread and dynamic adjustment on, fewer threads (here one).
TEST(GemvTeams, ManyThreads)
{
    ASSERT_EQ(granted(16), 16);
    const std::vector<Call> rows = calls_for('N', 300, 300, 16);
    ASSERT_EQ(rows.size(), 16u);
    for (std::size_t k = 0; k < 15; ++k) EXPECT_EQ(rows[k].m, 16) << k;
    EXPECT_EQ(rows[15].m, 60);
    EXPECT_EQ(calls_for('N', 64, 64, 16).size(), 1u);
}

// ---- Without a buffer --------------------------------------------------------------

// The partial vectors refused: one kernel call on the whole product. A
// strided vector that cannot be copied: the same bits without the copy.
TYPED_TEST(GemvSplitSum, RefusedBuffersFallBack)
{
    using T = TypeParam;
    constexpr bool complex = std::is_same_v<T, dcomplex>;
    static int refusals;
    static std::size_t refuse_size;
    orv::allocation_refusal = [](std::size_t size, int) {
        if (size != refuse_size) return false;
        ++refusals;
        return true;
    };
    Rng rng(73);
    {
        const Threads permit(3);
        const Product<T> p('N', 40, complex ? 5000 : 10000, 1, 1, rng);
        refuse_size = 3 * 40 * sizeof(T);
        refusals = 0;
        const std::vector<T> got = p.driver();
        EXPECT_EQ(refusals, 1);
        EXPECT_TRUE(same(got, single_call(p)));
    }
    // The vector builds copy a strided x (transposed) or y ('N'); without
    // the copy they read x in place and take y through the stack.
    const orv::Build build = orv::dispatch_build();
    const bool copies = build != orv::Build::def && build != orv::Build::cnr;
    const Threads permit(1);
    for (const char op : {'T', 'N'}) {
        const Product<T> p(op, 1500, 7, op == 'T' ? -2 : 1, op == 'T' ? 1 : -2, rng);
        refuse_size = 0;
        const std::vector<T> copied = p.driver();
        refuse_size = (op == 'T' ? orv::kGemvPackedX : 1500) * sizeof(T);
        refusals = 0;
        EXPECT_TRUE(same(p.driver(), copied)) << op;
        EXPECT_EQ(refusals, copies ? 1 : 0) << op;
    }
    orv::allocation_refusal = nullptr;
}

// ---- Where the arrays lie --------------------------------------------------------

// The reproducible build, and the vector builds, give the same bits whatever
// the alignment of A, x and y.
TYPED_TEST(GemvSplitSum, ResultsDoNotDependOnPlacement)
{
    using T = TypeParam;
    using Family = orv::Family<K>;
    Rng rng(74);
    std::vector<orv::Build> builds = {orv::Build::cnr};
    if (orv::dispatch_build() != orv::Build::def) builds.push_back(orv::dispatch_build());
    for (orv::Build b : builds)
        for (const char op : {'N', 'T', 'C'}) {
            const Product<T> p(op, 37, 23, 1, 1, rng);
            // The same values one double further on.
            auto shifted = [](const std::vector<T>& v) {
                std::vector<double> s(v.size() * sizeof(T) / sizeof(double) + 1);
                std::memcpy(s.data() + 1, v.data(), v.size() * sizeof(T));
                return s;
            };
            std::vector<double> a = shifted(p.a), x = shifted(p.x), y = shifted(p.y);
            std::vector<T> y0 = p.y;
            const i64 flag = 1;
            const auto* table = Family::builds[static_cast<int>(b)];
            if constexpr (std::is_same_v<T, dcomplex>) {
                table->zgemv(&p.trans, &p.m, &p.n, &p.alpha, p.a.data(), &p.lda, p.x.data(), &p.incx, &p.beta,
                             y0.data(), &p.incy, &flag);
                table->zgemv(&p.trans, &p.m, &p.n, &p.alpha, reinterpret_cast<const T*>(a.data() + 1), &p.lda,
                             reinterpret_cast<const T*>(x.data() + 1), &p.incx, &p.beta,
                             reinterpret_cast<T*>(y.data() + 1), &p.incy, &flag);
            } else {
                table->dgemv(&p.trans, &p.m, &p.n, &p.alpha, p.a.data(), &p.lda, p.x.data(), &p.incx, &p.beta,
                             y0.data(), &p.incy, &flag);
                table->dgemv(&p.trans, &p.m, &p.n, &p.alpha, a.data() + 1, &p.lda, x.data() + 1, &p.incx, &p.beta,
                             y.data() + 1, &p.incy, &flag);
            }
            EXPECT_EQ(std::memcmp(y0.data(), y.data() + 1, y0.size() * sizeof(T)), 0)
                << "build " << static_cast<int>(b) << " trans " << op;
        }
}

// ---- One element of y for the whole product ----------------------------------------

// An increment of y of 0 (only from the library's own callers): beta applies
// once per logical element, then every product adds into the one element.
// Small integers keep every sum exact, so any order gives the same bits; the
// driver keeps such a call on one thread.
TEST(GemvTeams, ZeroIncrementOfYCollectsTheWholeProduct)
{
    using Family = orv::Family<K>;
    const Threads permit(4);
    for (const char op : {'N', 'T'})
        for (const double beta : {0.5, 0.0}) {
            const i64 m = 200, n = 150, lda = m, incx = 1, incy = 0, flag = 1;
            std::vector<double> a(static_cast<std::size_t>(lda * n)), x(static_cast<std::size_t>(op == 'N' ? n : m));
            for (std::size_t k = 0; k < a.size(); ++k) a[k] = static_cast<double>(static_cast<int>(k % 7) - 3);
            for (std::size_t k = 0; k < x.size(); ++k) x[k] = static_cast<double>(static_cast<int>(k % 5) - 2);
            double want = beta == 0.0 ? 0.0 : 3.0 * std::pow(beta, static_cast<double>(op == 'N' ? m : n));
            const double alpha = 2.0;
            for (i64 j = 0; j < n; ++j)
                for (i64 i = 0; i < m; ++i) want += alpha * a[i + j * lda] * x[op == 'N' ? j : i];
            const double y0 = beta == 0.0 ? std::nan("") : 3.0;
            for (orv::Build b : {orv::Build::def, orv::Build::cnr, orv::dispatch_build()}) {
                double y = y0;
                Family::builds[static_cast<int>(b)]->dgemv(&op, &m, &n, &alpha, a.data(), &lda, x.data(), &incx,
                                                          &beta, &y, &incy, &flag);
                EXPECT_EQ(y, want) << op << " beta " << beta << " build " << static_cast<int>(b);
            }
            double y = y0;
            orv_blas_dgemv(&op, &m, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, &y, &incy);
            EXPECT_EQ(y, want) << op << " beta " << beta << " threaded";
        }
}

// ---- Where no team is formed ------------------------------------------------------

// Child: the compatible mode and the baseline path keep every product on the
// calling thread, however large.
TEST(GemvChild, DISABLED_NoTeam)
{
    const std::vector<Call> calls = calls_for('N', 1000, 1000, 4);
    std::printf("calls=%zu level=%d\n", calls.size(), calls.empty() ? -1 : calls[0].level);
    std::fflush(stdout);
}

TEST(GemvTeams, CompatibleModeAndBaselinePathStayOnOneThread)
{
    for (const auto& env : std::vector<std::vector<EnvChange>>{{{"ORV_CBWR", "COMPATIBLE"}},
                                                                {{"ORV_DEBUG_CPU_TYPE", "0"}}}) {
        const ChildResult child = run_child("GemvChild.DISABLED_NoTeam", env);
        EXPECT_EQ(child.status, 0) << child.out;
        EXPECT_NE(child.out.find("calls=1 level=0\n"), std::string::npos) << env[0].first << "\n" << child.out;
    }
}

}  // namespace
}  // namespace orvtest
