// The threaded triangular product: which rows each thread computes, bits
// that do not depend on thread timing, and the fallback when the copy of x
// cannot be had. The rows are recorded by strip and whole-product slots that
// compute nothing.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>
#include <string>
#include <type_traits>
#include <vector>

#include "level2/dispatch.h"
#include "level2/teams.h"
#include "level2/trmv_driver.h"
#include "orv_test.h"
#include "service/memory.h"
#include "teams.h"

namespace orvtest {
namespace {

using orv::dcomplex;
using orv::i64;
using K = orv::Level2Kernels;

// ---- Which rows each thread computes ---------------------------------------------

struct Strip {
    i64 first, rows;
    bool operator==(const Strip&) const = default;
};

std::mutex g_mutex;
std::vector<Strip> g_strips;
int g_whole_calls = 0;

void recording_strip(const char*, const char*, const char*, const i64*, const double*, const i64*, const double*,
                     const i64* first, const i64* rows, double*, const i64*)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_strips.push_back({*first, *rows});
}

void recording_whole(const char*, const char*, const char*, const i64*, const double*, const i64*, double*,
                     const i64*, const i64* f1, const i64* f2, const i64* f3)
{
    EXPECT_TRUE(*f1 == 1 && *f2 == 1 && *f3 == 1);
    const std::lock_guard<std::mutex> lock(g_mutex);
    ++g_whole_calls;
}

TEST(TrmvTeams, EachThreadGetsItsRows)
{
    if (!orv::l2::team_gate_open()) GTEST_SKIP() << "no level-2 teams on this path";
    const struct {
        i64 n;
        int threads;
        char uplo, trans;
        std::vector<Strip> strips;  // empty: one call on the whole product
    } cases[] = {
        {127, 16, 'U', 'N', {}},  // too small
        {140, 16, 'U', 'N', {}},  // not above 9 rows per thread
        // 200 > 9 * 16: shares of 8 rows for the first half, 16 for the other
        // half, the last thread 24.
        {200, 16, 'L', 'T',
         {{0, 8},    {8, 8},    {16, 8},   {24, 8},   {32, 8},   {40, 8},   {48, 8},   {56, 8},
          {64, 16},  {80, 16},  {96, 16},  {112, 16}, {128, 16}, {144, 16}, {160, 16}, {176, 24}}},
        // U*x: the first rows hold the longest dot products, a third of them
        // goes to the first half of the team.
        {2000, 4, 'U', 'N', {{0, 328}, {328, 328}, {656, 672}, {1328, 672}}},
        {2000, 4, 'U', 'T', {{0, 664}, {664, 664}, {1328, 336}, {1664, 336}}},
        {2000, 4, 'L', 'N', {{0, 664}, {664, 664}, {1328, 336}, {1664, 336}}},
        {2000, 4, 'L', 'T', {{0, 328}, {328, 328}, {656, 672}, {1328, 672}}},
        // Below 1025 rows the halves split n evenly; 3 threads: 1 + 2.
        {1000, 3, 'U', 'N', {{0, 496}, {496, 248}, {744, 256}}},
    };
    const SlotSwap<&K::dtrmv_strip> strip(&recording_strip);
    const SlotSwap<&K::dtrmv> whole(&recording_whole);
    for (const auto& c : cases) {
        ASSERT_EQ(granted(c.threads), c.threads);
        const Threads permit(c.threads);
        const i64 one = 1;
        std::vector<double> a(1), x(static_cast<std::size_t>(c.n));
        g_strips.clear();
        g_whole_calls = 0;
        orv_blas_dtrmv(&c.uplo, &c.trans, "N", &c.n, a.data(), &c.n, x.data(), &one);
        std::sort(g_strips.begin(), g_strips.end(), [](const Strip& l, const Strip& r) { return l.first < r.first; });
        const std::string where = std::string{c.uplo, c.trans} + " n=" + std::to_string(c.n);
        EXPECT_EQ(g_strips, c.strips) << where;
        EXPECT_EQ(g_whole_calls, c.strips.empty() ? 1 : 0) << where;
    }
}

// ---- Results ---------------------------------------------------------------------



// x := op(A) x through the driver on a copy of x; A n x n with lda n + 1,
// the diagonal kept away from zero.
template <typename T>
struct Product {
    char uplo, trans, diag;
    i64 n, lda, incx;
    std::vector<T> a, x;

    Product(char u, char t, i64 size, i64 inc, Rng& rng)
        : uplo(u), trans(t), diag('N'), n(size), lda(size + 1), incx(inc)
    {
        a.resize(static_cast<std::size_t>(lda * n));
        x.resize(vec_span(n, inc));
        for (T& v : a) v = value<T>(rng);
        for (T& v : x) v = value<T>(rng);
        for (i64 j = 0; j < n; ++j) {
            T& d = a[static_cast<std::size_t>(j + j * lda)];
            if constexpr (std::is_same_v<T, dcomplex>) d.re += 4.0;
            else d += 4.0;
        }
    }
    std::vector<T> driver(bool solve = false) const
    {
        std::vector<T> out = x;
        if constexpr (std::is_same_v<T, dcomplex>)
            (solve ? orv_blas_ztrsv : orv_blas_ztrmv)(&uplo, &trans, &diag, &n, a.data(), &lda, out.data(), &incx);
        else
            (solve ? orv_blas_dtrsv : orv_blas_dtrmv)(&uplo, &trans, &diag, &n, a.data(), &lda, out.data(), &incx);
        return out;
    }
};

// The largest difference of a part of a and b, relative to b's largest part.
template <typename T>
double distance(const std::vector<T>& a, const std::vector<T>& b)
{
    const double* pa = reinterpret_cast<const double*>(a.data());
    const double* pb = reinterpret_cast<const double*>(b.data());
    double d = 0.0, size = 0.0;
    for (std::size_t i = 0; i < a.size() * sizeof(T) / sizeof(double); ++i) {
        d = std::max(d, std::abs(pa[i] - pb[i]));
        size = std::max(size, std::abs(pb[i]));
    }
    return d / size;
}

template <typename T>
class TrmvDriver : public ::testing::Test {};
using Elements = ::testing::Types<double, dcomplex>;
TYPED_TEST_SUITE(TrmvDriver, Elements);

// Teams of 2, 3 and 8 on every form and on strided vectors: the same bits on
// every repetition, and the result of one thread up to rounding. (The solve
// shares its long updates through the threaded general product.) A vector
// this long is strided in place, not copied: it must give the contiguous
// vector's result up to rounding.
TYPED_TEST(TrmvDriver, BitsDoNotDependOnTiming)
{
    using T = TypeParam;
    const i64 n = std::is_same_v<T, dcomplex> ? 1100 : 2100;
    Rng rng(81);
    for (const bool solve : {false, true})
        for (const char uplo : {'U', 'L'})
            for (const char trans : {'N', 'T', 'C'})
                for (const i64 incx : {1, -2}) {
                    const Product<T> p(uplo, trans, n, incx, rng);
                    const std::string where = std::string(solve ? "solve " : "product ") + uplo + trans +
                                              " incx " + std::to_string(incx);
                    std::vector<T> alone;
                    {
                        const Threads permit(1);
                        alone = p.driver(solve);
                        if (incx != 1) {
                            Product<T> unit = p;
                            unit.incx = 1;
                            unit.x.clear();
                            std::vector<T> got;
                            for (i64 i = 0; i < n; ++i) {
                                unit.x.push_back(p.x[vec_index(n, incx, i)]);
                                got.push_back(alone[vec_index(n, incx, i)]);
                            }
                            const std::vector<T> want = unit.driver(solve);
                            EXPECT_LT(distance(got, want), 1e-12) << where;
                        }
                    }
                    for (int team : {2, 3, 8}) {
                        const Threads permit(team);
                        const std::vector<T> got = p.driver(solve);
                        EXPECT_LT(distance(got, alone), 1e-12) << where << " team " << team;
                        for (int again = 0; again < 3; ++again)
                            ASSERT_TRUE(same(p.driver(solve), got)) << where << " team " << team;
                    }
                }
}

// Without the copy of x the product runs as one kernel call: the bits of a
// single thread.
TYPED_TEST(TrmvDriver, RefusedCopyFallsBackToOneCall)
{
    using T = TypeParam;
    static int refusals;
    static std::size_t refuse_size;
    orv::allocation_refusal = [](std::size_t size, int) {
        if (size != refuse_size) return false;
        ++refusals;
        return true;
    };
    Rng rng(82);
    for (const i64 incx : {1, 3}) {
        const Product<T> p('L', 'N', 600, incx, rng);
        std::vector<T> alone;
        {
            const Threads permit(1);
            alone = p.driver();
        }
        const Threads permit(4);
        refuse_size = 600 * sizeof(T);
        refusals = 0;
        EXPECT_TRUE(same(p.driver(), alone)) << "incx " << incx;
        EXPECT_EQ(refusals, orv::l2::team_gate_open() ? 1 : 0);
    }
    orv::allocation_refusal = nullptr;
}

// The reproducible build, and the vector builds, give the same bits whatever
// the alignment of A and x, for products and solves alike.
TYPED_TEST(TrmvDriver, ResultsDoNotDependOnPlacement)
{
    using T = TypeParam;
    constexpr bool complex = std::is_same_v<T, dcomplex>;
    Rng rng(83);
    std::vector<orv::Build> builds = {orv::Build::cnr};
    if (orv::dispatch_build() != orv::Build::def) builds.push_back(orv::dispatch_build());
    // The same values one double further on.
    auto shifted = [](const std::vector<T>& v) {
        std::vector<double> s(v.size() * sizeof(T) / sizeof(double) + 1);
        std::memcpy(s.data() + 1, v.data(), v.size() * sizeof(T));
        return s;
    };
    const Threads permit(1);
    for (orv::Build b : builds)
        for (const char uplo : {'U', 'L'})
            for (const char trans : {'N', 'C'})
                for (const bool solve : {false, true}) {
                    const Product<T> p(uplo, trans, 77, 1, rng);
                    std::vector<double> a = shifted(p.a), x = shifted(p.x);
                    std::vector<T> x0 = p.x;
                    const auto* table = orv::Family<K>::builds[static_cast<int>(b)];
                    const i64 one = 1;
                    auto run = [&](const T* pa, T* px) {
                        if constexpr (complex)
                            (solve ? table->ztrsv : table->ztrmv)(&p.uplo, &p.trans, &p.diag, &p.n, pa, &p.lda, px,
                                                                  &p.incx, &one, &one, &one);
                        else
                            (solve ? table->dtrsv : table->dtrmv)(&p.uplo, &p.trans, &p.diag, &p.n, pa, &p.lda, px,
                                                                  &p.incx, &one, &one, &one);
                    };
                    run(p.a.data(), x0.data());
                    run(reinterpret_cast<const T*>(a.data() + 1), reinterpret_cast<T*>(x.data() + 1));
                    EXPECT_EQ(std::memcmp(x0.data(), x.data() + 1, x0.size() * sizeof(T)), 0)
                        << "build " << static_cast<int>(b) << ' ' << uplo << trans << (solve ? " solve" : " product");
                }
}

}  // namespace
}  // namespace orvtest
