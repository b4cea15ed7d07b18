// The threaded symmetric rank-1 and rank-2 updates: which columns each
// thread's strip call gets, and that the team's result is the bits of one
// whole-matrix call.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "level2/dispatch.h"
#include "level2/syr_driver.h"
#include "orv_test.h"
#include "service/memory.h"
#include "teams.h"

namespace orvtest {
namespace {

using orv::dispatch;
using orv::i64;
using K = orv::Level2Kernels;

// ---- Which columns each thread takes ------------------------------------------

// One strip call, in the whole matrix's terms: its columns, the order of the
// triangle it was handed, and where its A and x start.
struct Strip {
    i64 first, count, order, a_offset, x_offset;
    bool operator==(const Strip&) const = default;
};

std::mutex g_mutex;
std::vector<Strip> g_strips;
int g_wholes = 0;
const double* g_a = nullptr;
const double* g_x = nullptr;
i64 g_lda = 0;

void record(const i64* n, const i64* first, const i64* count, const double* x, const double* a)
{
    const i64 offset = a - g_a;
    const std::lock_guard<std::mutex> lock(g_mutex);
    // A lower strip's triangle starts on the diagonal at its first column.
    const i64 shift = offset / (g_lda + 1);
    g_strips.push_back({*first + shift, *count, *n, offset, x - g_x});
}

void recording_strip(const char*, const i64* n, const i64* first, const i64* count, const double*, const double* x,
                     const i64*, double* a, const i64*)
{
    record(n, first, count, x, a);
}

void recording_strip2(const char*, const i64* n, const i64* first, const i64* count, const double*, const double* x,
                      const i64*, const double* y, const i64*, double* a, const i64*)
{
    EXPECT_EQ(y - x, 0) << "x and y share one buffer here";
    record(n, first, count, x, a);
}

void recording_whole(const char*, const i64*, const double*, const double*, const i64*, double*, const i64*,
                     const i64* flag)
{
    EXPECT_EQ(*flag, 1);
    const std::lock_guard<std::mutex> lock(g_mutex);
    ++g_wholes;
}

void recording_whole2(const char*, const i64*, const double*, const double*, const i64*, const double*, const i64*,
                      double*, const i64*, const i64* flag)
{
    EXPECT_EQ(*flag, 1);
    const std::lock_guard<std::mutex> lock(g_mutex);
    ++g_wholes;
}

// The strips of one dsyr (or dsyr2, x passed for y too) call, by column.
std::vector<Strip> strips_for(bool rank2, char uplo, i64 n, i64 inc, int threads)
{
    const SlotSwap<&K::dsyr_strip> s1(&recording_strip);
    const SlotSwap<&K::dsyr2_strip> s2(&recording_strip2);
    const SlotSwap<&K::dsyr> w1(&recording_whole);
    const SlotSwap<&K::dsyr2> w2(&recording_whole2);
    const Threads permit(threads);
    const i64 lda = n + 5;
    const double alpha = 2.0;
    std::vector<double> a(static_cast<std::size_t>(lda * n)), x(vec_span(n, inc));
    g_a = a.data();
    g_x = x.data();
    g_lda = lda;
    g_strips.clear();
    g_wholes = 0;
    if (rank2)
        orv_blas_dsyr2(&uplo, &n, &alpha, x.data(), &inc, x.data(), &inc, a.data(), &lda);
    else
        orv_blas_dsyr(&uplo, &n, &alpha, x.data(), &inc, a.data(), &lda);
    std::vector<Strip> strips = g_strips;
    std::sort(strips.begin(), strips.end(), [](const Strip& l, const Strip& r) { return l.first < r.first; });
    return strips;
}

TEST(SyrTeams, TwoGroupsShareTheColumns)
{
    const struct {
        char uplo;
        i64 n;
        int threads;
        std::vector<std::pair<i64, i64>> columns;  // (first, count) per thread
    } cases[] = {
        // The first group takes two thirds of an upper triangle's columns.
        {'U', 3000, 4, {{0, 1000}, {1000, 1000}, {2000, 496}, {2496, 504}}},
        // A third of a lower one's.
        {'L', 3000, 4, {{0, 496}, {496, 496}, {992, 1000}, {1992, 1008}}},
        // One thread in the first group; shares rounded down to 8 columns.
        {'U', 1500, 3, {{0, 1000}, {1000, 248}, {1248, 252}}},
        {'L', 1500, 2, {{0, 496}, {496, 1004}}},
        {'u', 1501, 8, {{0, 248}, {248, 248}, {496, 248}, {744, 248}, {992, 120}, {1112, 120}, {1232, 120},
                        {1352, 149}}},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(granted(c.threads), c.threads);
        for (const bool rank2 : {false, true}) {
            const std::string where = std::string(rank2 ? "dsyr2 " : "dsyr ") + c.uplo + " n=" + std::to_string(c.n);
            const std::vector<Strip> got = strips_for(rank2, c.uplo, c.n, 1, c.threads);
            EXPECT_EQ(g_wholes, 0) << where;
            ASSERT_EQ(got.size(), c.columns.size()) << where;
            const bool upper = c.uplo == 'U' || c.uplo == 'u';
            for (std::size_t k = 0; k < got.size(); ++k) {
                const auto [first, count] = c.columns[k];
                // Upper: the leading triangle up to the strip's last column
                // and x from its start. Lower: the trailing triangle from the
                // strip's first column, x from that element.
                const Strip want = upper ? Strip{first, count, first + count, 0, 0}
                                         : Strip{first, count, c.n - first, first * (c.n + 6), first};
                EXPECT_EQ(got[k], want) << where << " thread " << k << ": columns " << got[k].first << " + "
                                        << got[k].count;
            }
        }
    }
}

// A negative increment hands each strip the base from which its own walk
// visits the elements its columns touch.
TEST(SyrTeams, NegativeIncrementBases)
{
    ASSERT_EQ(granted(4), 4);
    const i64 n = 3000, inc = -3;
    for (const char uplo : {'U', 'L'}) {
        const std::vector<Strip> got = strips_for(true, uplo, n, inc, 4);
        ASSERT_EQ(got.size(), 4u);
        for (const Strip& s : got) {
            // Logical element e lies at (n - 1 - e) * 3 from the buffer's start.
            const i64 last = uplo == 'U' ? s.first + s.count - 1 : n - 1;
            EXPECT_EQ(s.x_offset, (n - 1 - last) * 3) << uplo << " strip from " << s.first;
        }
    }
}

TEST(SyrTeams, SmallOrdersAndSingleThreadsMakeOneCall)
{
    for (const bool rank2 : {false, true}) {
        EXPECT_TRUE(strips_for(rank2, 'U', 1499, 1, 4).empty());
        EXPECT_EQ(g_wholes, 1);
        EXPECT_TRUE(strips_for(rank2, 'L', 5000, 1, 1).empty());
        EXPECT_EQ(g_wholes, 1);
        EXPECT_TRUE(strips_for(rank2, 'L', 0, 1, 4).empty());
        EXPECT_EQ(g_wholes, 0);
    }
}

// ---- The team's bits ----------------------------------------------------------------

// Full-precision data, a NaN in x beside a zero multiplier, and the caller's
// increments: the threaded update equals one whole-matrix kernel call bit for
// bit.
TEST(SyrTeams, TeamResultEqualsOneKernelCall)
{
    Rng rng(81);
    const i64 n = 1700, lda = n + 3, one = 1;
    for (const int threads : {3, 8})
        for (const char uplo : {'U', 'L'})
            for (const auto& [incx, incy] : std::vector<std::pair<i64, i64>>{{1, 1}, {-1, 2}, {-3, -1}})
                for (const bool rank2 : {false, true}) {
                    std::vector<double> a(static_cast<std::size_t>(lda * n)), x(vec_span(n, incx)),
                        y(vec_span(n, incy));
                    for (double& v : a) v = rng.full();
                    for (double& v : x) v = rng.full();
                    for (double& v : y) v = rng.full();
                    x[vec_index(n, incx, 700)] = 0.0;
                    y[vec_index(n, incy, 700)] = 0.0;
                    x[vec_index(n, incx, 1200)] = std::nan("");
                    const double alpha = rng.full();
                    std::vector<double> want = a;
                    if (rank2) {
                        dispatch<&K::dsyr2>(&uplo, &n, &alpha, x.data(), &incx, y.data(), &incy, want.data(), &lda,
                                            &one);
                        const Threads permit(threads);
                        orv_blas_dsyr2(&uplo, &n, &alpha, x.data(), &incx, y.data(), &incy, a.data(), &lda);
                    } else {
                        dispatch<&K::dsyr>(&uplo, &n, &alpha, x.data(), &incx, want.data(), &lda, &one);
                        const Threads permit(threads);
                        orv_blas_dsyr(&uplo, &n, &alpha, x.data(), &incx, a.data(), &lda);
                    }
                    ASSERT_EQ(std::memcmp(a.data(), want.data(), a.size() * sizeof(double)), 0)
                        << (rank2 ? "dsyr2 " : "dsyr ") << uplo << " threads " << threads << " incx " << incx
                        << " incy " << incy;
                }
}

// Strips cut anywhere, not only where the driver cuts, on the baseline, the
// reproducible and this processor's build: the bits of the whole-matrix
// kernel, whichever columns share a pass over the vectors.
TEST(SyrTeams, StripsCutAnywhereMatchTheWholeKernel)
{
    Rng rng(82);
    const i64 n = 203, lda = n + 1, one = 1;
    const std::vector<i64> cuts = {0, 5, 6, 77, 130, 201, n};
    for (const orv::Build b : {orv::Build::def, orv::Build::cnr, orv::dispatch_build()}) {
        const K& table = *orv::Family<K>::builds[static_cast<int>(b)];
        for (const char uplo : {'U', 'L'})
            for (const bool rank2 : {false, true}) {
                std::vector<double> a(static_cast<std::size_t>(lda * n)), x(n), y(n);
                for (double& v : a) v = rng.full();
                for (double& v : x) v = rng.full();
                for (double& v : y) v = rng.full();
                x[100] = y[100] = 0.0;
                const double alpha = rng.full();
                std::vector<double> want = a;
                if (rank2) table.dsyr2(&uplo, &n, &alpha, x.data(), &one, y.data(), &one, want.data(), &lda, &one);
                else table.dsyr(&uplo, &n, &alpha, x.data(), &one, want.data(), &lda, &one);
                for (std::size_t k = 0; k + 1 < cuts.size(); ++k) {
                    const i64 first = cuts[k], count = cuts[k + 1] - first;
                    // The triangle the strip lies in, as the driver hands it.
                    const i64 order = uplo == 'U' ? first + count : n - first;
                    const i64 from = uplo == 'U' ? first : 0, shift = uplo == 'U' ? 0 : first;
                    double* base = a.data() + shift * (lda + 1);
                    if (rank2)
                        table.dsyr2_strip(&uplo, &order, &from, &count, &alpha, x.data() + shift, &one,
                                          y.data() + shift, &one, base, &lda);
                    else
                        table.dsyr_strip(&uplo, &order, &from, &count, &alpha, x.data() + shift, &one, base, &lda);
                }
                EXPECT_EQ(std::memcmp(a.data(), want.data(), a.size() * sizeof(double)), 0)
                    << "build " << static_cast<int>(b) << ' ' << uplo << (rank2 ? " rank 2" : " rank 1");
            }
    }
}

// Strided vectors are copied to contiguous scratch; refused the scratch, the
// kernels read them in place with the same bits.
TEST(SyrTeams, RefusedCopyReadsTheVectorsInPlace)
{
    static int refusals;
    static bool refuse;
    orv::allocation_refusal = [](std::size_t, int) {
        refusals += refuse;
        return refuse;
    };
    Rng rng(83);
    const i64 n = 301, lda = n, incx = -2, incy = 3, one = 1;
    for (const char uplo : {'U', 'L'}) {
        std::vector<double> a(static_cast<std::size_t>(lda * n)), x(vec_span(n, incx)), y(vec_span(n, incy));
        std::vector<orv::dcomplex> za(a.size());
        for (double& v : a) v = rng.full();
        for (double& v : x) v = rng.full();
        for (double& v : y) v = rng.full();
        for (orv::dcomplex& v : za) v = {rng.full(), rng.full()};
        // The complex vectors reuse the real ones' doubles.
        const auto* zx = reinterpret_cast<const orv::dcomplex*>(x.data());
        const auto* zy = reinterpret_cast<const orv::dcomplex*>(y.data());
        const i64 zn = n / 2;
        const double alpha = rng.full();
        const orv::dcomplex zalpha{rng.full(), rng.full()};
        std::vector<double> got = a, want = a;
        std::vector<orv::dcomplex> zgot = za, zwant = za;
        for (const bool refused : {false, true}) {
            refuse = refused;
            refusals = 0;
            double* out = refused ? got.data() : want.data();
            orv::dcomplex* zout = refused ? zgot.data() : zwant.data();
            dispatch<&K::dsyr2>(&uplo, &n, &alpha, x.data(), &incx, y.data(), &incy, out, &lda, &one);
            dispatch<&K::zher2>(&uplo, &zn, &zalpha, zx, &incx, zy, &incy, zout, &lda);
            EXPECT_EQ(refusals, refused ? 2 : 0) << uplo;
        }
        refuse = false;
        EXPECT_EQ(std::memcmp(got.data(), want.data(), got.size() * sizeof(double)), 0) << uplo;
        EXPECT_EQ(std::memcmp(zgot.data(), zwant.data(), zgot.size() * sizeof(orv::dcomplex)), 0) << uplo;
    }
    orv::allocation_refusal = nullptr;
}

}  // namespace
}  // namespace orvtest
