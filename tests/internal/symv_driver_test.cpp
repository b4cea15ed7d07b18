// The threaded symmetric matrix-vector product: where the parts are cut and
// how their work vectors reach y. Results are compared bit for bit with an
// emulation that runs the same strip slot on each part and adds the work
// vectors in the driver's order; inputs use all 53 bits, so that a wrong
// order of additions shows.
#include <cstring>
#include <vector>

#include "level2/dispatch.h"
#include "level2/symv_driver.h"
#include "level2/teams.h"
#include "orv_test.h"
#include "service/memory.h"
#include "teams.h"

namespace orvtest {
namespace {

using orv::dcomplex;
using orv::dispatch;
using orv::i64;
using K = orv::Level2Kernels;


// One product y := alpha A x + beta y, A n x n with lda = n + 2.
struct Product {
    char uplo;
    i64 n, lda, incx, incy;
    double alpha, beta;
    std::vector<double> a, x, y;

    Product(char ul, i64 order, i64 ix, i64 iy, double b, Rng& rng, bool coarse = false)
        : uplo(ul), n(order), lda(order + 2), incx(ix), incy(iy), beta(b)
    {
        alpha = coarse ? rng.coarse() : rng.full();
        a.resize(static_cast<std::size_t>(lda * n));
        x.resize(vec_span(n, ix));
        y.resize(vec_span(n, iy));
        for (auto* v : {&a, &x, &y})
            for (double& e : *v) e = coarse ? rng.coarse() : rng.full();
    }

    std::vector<double> driver() const
    {
        std::vector<double> out = y;
        orv_blas_dsymv(&uplo, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, out.data(), &incy);
        return out;
    }
    // One call of the whole-matrix slot.
    std::vector<double> single() const
    {
        std::vector<double> out = y;
        const i64 flag = 1;
        dispatch<&K::dsymv>(&uplo, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, out.data(), &incy, &flag);
        return out;
    }
};

// The driver's result for `parts` parts: beta*y by the whole-matrix slot;
// each part's strip into a zeroed vector, or straight into a contiguous y
// for the part reaching every row (the last for 'U', the first for 'L');
// then the vectors added over the rows they touched, 'U' from the last part
// down to part 0, 'L' from part 1 up and part 0 last.
std::vector<double> emulate(const Product& p, i64 parts)
{
    const bool upper = p.uplo == 'U';
    const i64 n = p.n;
    std::vector<double> out = p.y;
    const double zero = 0.0;
    const i64 flag = 1;
    dispatch<&K::dsymv>(&p.uplo, &n, &zero, p.a.data(), &p.lda, p.x.data(), &p.incx, &p.beta, out.data(), &p.incy,
                        &flag);
    std::vector<double> x(static_cast<std::size_t>(n)), y(static_cast<std::size_t>(n));
    for (i64 i = 0; i < n; ++i) x[i] = p.x[vec_index(n, p.incx, i)];
    for (i64 i = 0; i < n; ++i) y[i] = out[vec_index(n, p.incy, i)];
    const i64 direct = p.incy != 1 ? -1 : upper ? parts - 1 : 0;
    std::vector<std::vector<double>> sums(static_cast<std::size_t>(parts), std::vector<double>(n, 0.0));
    for (i64 k = 0; k < parts; ++k) {
        const orv::l2::SymvPart r = orv::l2::symv_part(upper, n, parts, k);
        double* target = k == direct ? y.data() : sums[k].data();
        dispatch<&K::dsymv_strip>(&p.uplo, &n, &r.lo, &r.hi, &p.alpha, p.a.data(), &p.lda, x.data(), target);
    }
    std::vector<i64> order;
    for (i64 k = 1; k < parts; ++k) order.push_back(upper ? parts - k : k);
    order.push_back(0);
    for (const i64 k : order)
        if (k != direct)
            for (i64 i = 0; i < n; ++i) y[i] += sums[k][i];
    for (i64 i = 0; i < n; ++i) out[vec_index(n, p.incy, i)] = y[i];
    return out;
}

TEST(SymvParts, EqualAreas)
{
    const struct {
        bool upper;
        i64 n, parts;
        std::vector<i64> starts;  // the parts' first columns; the last ends at n
    } cases[] = {
        {true, 1000, 4, {0, 499, 706, 865}},
        {false, 1000, 4, {0, 135, 294, 501}},
        {true, 144, 2, {0, 101}},
        {false, 300, 3, {0, 56, 128}},
    };
    for (const auto& c : cases)
        for (i64 k = 0; k < c.parts; ++k) {
            const orv::l2::SymvPart p = orv::l2::symv_part(c.upper, c.n, c.parts, k);
            EXPECT_EQ(p.lo, c.starts[k]) << c.upper << " n " << c.n << " part " << k;
            EXPECT_EQ(p.hi, k + 1 < c.parts ? c.starts[k + 1] : c.n) << c.upper << " n " << c.n << " part " << k;
        }
}

// The parts the driver should use with `threads` threads, when it may use
// any: every thread from 144 on, one per 32 rows up to 32 rows a thread.
TEST(SymvTeams, OrderedSumOfTheParts)
{
    const struct {
        i64 n;
        int threads;
        i64 parts;
    } cases[] = {{143, 8, 1}, {144, 2, 2}, {300, 3, 3}, {300, 8, 8}, {200, 8, 6}, {256, 8, 8}, {257, 8, 8}};
    Rng rng(41);
    const bool gate = orv::l2::team_gate_open();
    for (const auto& c : cases)
        for (const char uplo : {'U', 'L'})
            for (const auto& [incx, incy] : std::vector<std::pair<i64, i64>>{{1, 1}, {-2, 3}, {1, -1}})
                for (const double beta : {0.5, 0.0, 1.0}) {
                    const Threads permit(c.threads);
                    const Product p(uplo, c.n, incx, incy, beta, rng);
                    const std::vector<double> got = p.driver();
                    const std::vector<double> want = gate && c.parts > 1 ? emulate(p, c.parts) : p.single();
                    EXPECT_TRUE(same(got, want)) << uplo << " n " << c.n << " threads " << c.threads << " incx "
                                                 << incx << " incy " << incy << " beta " << beta;
                    EXPECT_TRUE(same(p.driver(), got)) << "repeated, n " << c.n;
                }
}

// The work area refused: y scaled by beta, then one whole-matrix call with
// beta = 1, which gives the bits of one call with both. The kernel's own
// copies of strided vectors refused (dsymv and zhemv): the product in place,
// the same values (coarse data keep every sum exact).
TEST(SymvTeams, RefusedBuffersFallBack)
{
    static int refusals;
    static int refused_alignment;
    orv::allocation_refusal = [](std::size_t, int alignment) {
        if (alignment != refused_alignment) return false;
        ++refusals;
        return true;
    };
    Rng rng(42);
    {
        const Threads permit(3);
        refused_alignment = 128;
        for (const char uplo : {'U', 'L'}) {
            refusals = 0;
            const Product p(uplo, 400, -2, 1, 0.5, rng);
            EXPECT_TRUE(same(p.driver(), p.single())) << uplo;
            EXPECT_EQ(refusals, orv::l2::team_gate_open() ? 1 : 0);
        }
    }
    const Threads permit(1);
    for (const char uplo : {'U', 'L'}) {
        const Product p(uplo, 37, -2, 3, 0.5, rng, true);
        refused_alignment = 0;
        const std::vector<double> copied = p.driver();
        refused_alignment = 64;
        refusals = 0;
        EXPECT_TRUE(same(p.driver(), copied)) << uplo;
        EXPECT_EQ(refusals, 1);

        const i64 n = 37, lda = 37, incx = 2, incy = -3;
        std::vector<dcomplex> a(static_cast<std::size_t>(lda * n)), x(vec_span(n, incx)), y(vec_span(n, incy));
        for (auto* v : {&a, &x, &y})
            for (dcomplex& e : *v) e = {rng.coarse(), rng.coarse()};
        const dcomplex alpha{rng.coarse(), rng.coarse()}, beta{0.5, -0.25};
        std::vector<dcomplex> z_copied = y, z_in_place = y;
        refused_alignment = 0;
        dispatch<&K::zhemv>(&uplo, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, z_copied.data(), &incy);
        refused_alignment = 64;
        dispatch<&K::zhemv>(&uplo, &n, &alpha, a.data(), &lda, x.data(), &incx, &beta, z_in_place.data(), &incy);
        EXPECT_TRUE(same(z_in_place, z_copied)) << "zhemv " << uplo;
        EXPECT_EQ(refusals, 2);
    }
    orv::allocation_refusal = nullptr;
}

// The reproducible build and the build in use give the same bits whatever
// the alignment of A, x and y.
TEST(SymvKernels, ResultsDoNotDependOnPlacement)
{
    using Family = orv::Family<K>;
    Rng rng(43);
    // The same values one double further on.
    auto shifted = [](const auto& v) {
        std::vector<double> s(v.size() * sizeof(v[0]) / sizeof(double) + 1);
        std::memcpy(s.data() + 1, v.data(), v.size() * sizeof(v[0]));
        return s;
    };
    for (const orv::Build b : {orv::Build::cnr, orv::dispatch_build()})
        for (const char uplo : {'U', 'L'}) {
            const K* table = Family::builds[static_cast<int>(b)];
            const i64 n = 23, lda = 25, inc = 1, flag = 1;
            const Product p(uplo, n, 1, 1, 0.5, rng);
            std::vector<double> a = shifted(p.a), x = shifted(p.x), y = shifted(p.y), y0 = p.y;
            table->dsymv(&uplo, &n, &p.alpha, p.a.data(), &lda, p.x.data(), &inc, &p.beta, y0.data(), &inc, &flag);
            table->dsymv(&uplo, &n, &p.alpha, a.data() + 1, &lda, x.data() + 1, &inc, &p.beta, y.data() + 1, &inc,
                         &flag);
            EXPECT_EQ(std::memcmp(y0.data(), y.data() + 1, y0.size() * sizeof(double)), 0) << uplo;

            std::vector<dcomplex> za(static_cast<std::size_t>(lda * n)), zx(n), zy(n);
            for (auto* v : {&za, &zx, &zy})
                for (dcomplex& e : *v) e = {rng.full(), rng.full()};
            const dcomplex alpha{rng.full(), rng.full()}, beta{rng.full(), rng.full()};
            std::vector<double> sa = shifted(za), sx = shifted(zx), sy = shifted(zy);
            table->zhemv(&uplo, &n, &alpha, za.data(), &lda, zx.data(), &inc, &beta, zy.data(), &inc);
            table->zhemv(&uplo, &n, &alpha, reinterpret_cast<const dcomplex*>(sa.data() + 1), &lda,
                         reinterpret_cast<const dcomplex*>(sx.data() + 1), &inc, &beta,
                         reinterpret_cast<dcomplex*>(sy.data() + 1), &inc);
            EXPECT_EQ(std::memcmp(zy.data(), sy.data() + 1, zy.size() * sizeof(dcomplex)), 0) << uplo;
        }
}

}  // namespace
}  // namespace orvtest
