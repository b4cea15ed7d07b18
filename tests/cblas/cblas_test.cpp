// The C interface of the drop-in library where the reference test programs
// look least: row-major complex operations that need conjugates the
// column-major routines have no letter for, the reports of invalid
// enumerations, the call state a host's handlers read, the 0-based index.
//
// This program defines its own cblas_xerbla and xerbla_, as the reference
// test programs do, and so receives every report the library makes.

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <functional>
#include <string>

#include "orv_test.h"

extern "C" {
extern int CBLAS_CallFromC;
extern int RowMajorStrg;
std::size_t cblas_izamax(int n, const void* x, int incx);
void cblas_zdotc_sub(int n, const void* x, int incx, const void* y, int incy, void* dotc);
void cblas_dgemm(int layout, int ta, int tb, int m, int n, int k, double alpha, const double* a, int lda,
                 const double* b, int ldb, double beta, double* c, int ldc);
void cblas_zgemv(int layout, int trans, int m, int n, const void* alpha, const void* a, int lda, const void* x,
                 int incx, const void* beta, void* y, int incy);
void cblas_zgbmv(int layout, int trans, int m, int n, int kl, int ku, const void* alpha, const void* a, int lda,
                 const void* x, int incx, const void* beta, void* y, int incy);
void cblas_zhemv(int layout, int uplo, int n, const void* alpha, const void* a, int lda, const void* x, int incx,
                 const void* beta, void* y, int incy);
void cblas_zhpmv(int layout, int uplo, int n, const void* alpha, const void* ap, const void* x, int incx,
                 const void* beta, void* y, int incy);
void cblas_zgerc(int layout, int m, int n, const void* alpha, const void* x, int incx, const void* y, int incy,
                 void* a, int lda);
void cblas_zher(int layout, int uplo, int n, double alpha, const void* x, int incx, void* a, int lda);
void cblas_zher2(int layout, int uplo, int n, const void* alpha, const void* x, int incx, const void* y, int incy,
                 void* a, int lda);
void cblas_zhpr2(int layout, int uplo, int n, const void* alpha, const void* x, int incx, const void* y, int incy,
                 void* ap);
void cblas_ztrmv(int layout, int uplo, int trans, int diag, int n, const void* a, int lda, void* x, int incx);
void cblas_ztbsv(int layout, int uplo, int trans, int diag, int n, int k, const void* a, int lda, void* x,
                 int incx);
void cblas_ztpsv(int layout, int uplo, int trans, int diag, int n, const void* ap, void* x, int incx);
void cblas_zherk(int layout, int uplo, int trans, int n, int k, double alpha, const void* a, int lda, double beta,
                 void* c, int ldc);
void cblas_zher2k(int layout, int uplo, int trans, int n, int k, const void* alpha, const void* a, int lda,
                  const void* b, int ldb, double beta, void* c, int ldc);
}

namespace {

using orvtest::zcomplex;
using std::conj;

constexpr int kRow = 101, kCol = 102, kNoTrans = 111, kTrans = 112, kConjTrans = 113;
constexpr int kUpper = 121, kLower = 122, kNonUnit = 131;

// What the handlers of this program last received.
struct Report {
    int calls = 0;
    int position = 0;
    std::string routine;
    int call_from_c = -1;
    int row_major = -1;
};
Report g_cblas_report, g_fortran_report;

void reset_reports() { g_cblas_report = g_fortran_report = Report{}; }

}  // namespace

extern "C" void cblas_xerbla(int position, const char* routine, const char*, ...)
{
    g_cblas_report = {g_cblas_report.calls + 1, position, routine, CBLAS_CallFromC, RowMajorStrg};
}

extern "C" void xerbla_(const char* name, const int* info, std::size_t len)
{
    g_fortran_report = {g_fortran_report.calls + 1, *info, std::string(name, len), CBLAS_CallFromC, RowMajorStrg};
}

namespace {

// A dense n x m complex matrix, the logical operand of a row-major call.
struct Dense {
    int rows, cols;
    std::vector<zcomplex> v;
    Dense(int r, int c) : rows(r), cols(c), v(static_cast<std::size_t>(r) * c) {}
    zcomplex& operator()(int i, int j) { return v[static_cast<std::size_t>(i) * cols + j]; }
    zcomplex operator()(int i, int j) const { return v[static_cast<std::size_t>(i) * cols + j]; }
};

Dense random_matrix(orvtest::Rng& rng, int rows, int cols)
{
    Dense a(rows, cols);
    for (auto& e : a.v) e = rng.zcoarse();
    return a;
}

// Hermitian with a real diagonal; a band of width k when k >= 0.
Dense hermitian(orvtest::Rng& rng, int n, int k = -1)
{
    Dense a(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = i; j < n; ++j) {
            if (k >= 0 && j - i > k) continue;
            a(i, j) = i == j ? zcomplex(rng.coarse(), 0.0) : rng.zcoarse();
            a(j, i) = conj(a(i, j));
        }
    return a;
}

// Row-major storage of the triangle `uplo` of a square matrix: full with
// leading dimension ld, band with ld >= k + 1, or packed (ld == 0). Entries
// outside the stored triangle hold the guard value and must stay so.
struct Storage {
    enum Kind { kFull, kBand, kPacked } kind;
    int n, k, ld;
    std::size_t index(int uplo, int i, int j) const
    {
        switch (kind) {
        case kFull: return static_cast<std::size_t>(i) * ld + j;
        case kBand: return static_cast<std::size_t>(i) * ld + (uplo == kUpper ? j - i : k + j - i);
        default:
            return uplo == kUpper ? static_cast<std::size_t>(i) * n - static_cast<std::size_t>(i) * (i - 1) / 2 + (j - i)
                                  : static_cast<std::size_t>(i) * (i + 1) / 2 + j;
        }
    }
    std::size_t size() const { return kind == kPacked ? static_cast<std::size_t>(n) * (n + 1) / 2 : std::size_t(n) * ld; }
    bool stored(int uplo, int i, int j) const
    {
        if (uplo == kUpper ? j < i : j > i) return false;
        return kind != kBand || (j > i ? j - i : i - j) <= k;
    }
    orvtest::Guarded<zcomplex> store(int uplo, const Dense& a) const
    {
        orvtest::Guarded<zcomplex> s(size());
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                if (stored(uplo, i, j)) s[index(uplo, i, j)] = a(i, j);
        return s;
    }
};

// A strided vector of n values with guards between its elements.
orvtest::Guarded<zcomplex> strided(const std::vector<zcomplex>& values, int inc)
{
    const long n = static_cast<long>(values.size());
    orvtest::Guarded<zcomplex> g(orvtest::vec_span(n, inc));
    for (long i = 0; i < n; ++i) g[orvtest::vec_index(n, inc, i)] = values[static_cast<std::size_t>(i)];
    return g;
}
std::vector<zcomplex> random_vector(orvtest::Rng& rng, int n)
{
    std::vector<zcomplex> v(static_cast<std::size_t>(n));
    for (auto& e : v) e = rng.zcoarse();
    return v;
}

::testing::AssertionResult near(zcomplex got, zcomplex want)
{
    if (std::abs(got - want) <= 1e-12 * (1.0 + std::abs(want))) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got " << got << ", want " << want;
}

// Every stored element of `got` next to `want`; every other element, inside
// the guards too, still the guard value.
void expect_elements(const orvtest::Guarded<zcomplex>& got, const std::vector<long>& index,
                     const std::vector<zcomplex>& want)
{
    const orvtest::Guarded<zcomplex> untouched(got.size());
    std::vector<bool> owned(got.size());
    for (std::size_t e = 0; e < want.size(); ++e) {
        owned[static_cast<std::size_t>(index[e])] = true;
        EXPECT_TRUE(near(got[static_cast<std::size_t>(index[e])], want[e])) << "element " << e;
    }
    for (std::size_t s = 0; s < got.size(); ++s) {
        if (owned[s]) continue;
        EXPECT_TRUE(orvtest::same_bits(got[s], untouched[s])) << "entry " << s << " written";
    }
    EXPECT_TRUE(got.guards_intact());
}

void expect_vector(const orvtest::Guarded<zcomplex>& got, const std::vector<zcomplex>& want, int inc)
{
    const long n = static_cast<long>(want.size());
    std::vector<long> index;
    for (long i = 0; i < n; ++i) index.push_back(static_cast<long>(orvtest::vec_index(n, inc, i)));
    expect_elements(got, index, want);
}

void expect_stored(const Storage& st, int uplo, const orvtest::Guarded<zcomplex>& got, const Dense& want)
{
    std::vector<long> index;
    std::vector<zcomplex> values;
    for (int i = 0; i < st.n; ++i)
        for (int j = 0; j < st.n; ++j)
            if (st.stored(uplo, i, j)) {
                index.push_back(static_cast<long>(st.index(uplo, i, j)));
                values.push_back(want(i, j));
            }
    expect_elements(got, index, values);
}

// y := alpha op(A) x + beta y from the definition.
std::vector<zcomplex> reference_mv(int trans, const Dense& a, zcomplex alpha, const std::vector<zcomplex>& x,
                                   zcomplex beta, std::vector<zcomplex> y)
{
    for (std::size_t i = 0; i < y.size(); ++i) {
        zcomplex sum = 0.0;
        for (std::size_t j = 0; j < x.size(); ++j) {
            const int r = static_cast<int>(trans == kNoTrans ? i : j), c = static_cast<int>(trans == kNoTrans ? j : i);
            sum += (trans == kConjTrans ? conj(a(r, c)) : a(r, c)) * x[j];
        }
        y[i] = alpha * sum + beta * y[i];
    }
    return y;
}

const zcomplex kAlpha(0.5, -0.75), kBeta(-0.25, 0.5);

TEST(CblasRowMajor, GeneralProductsWithConjugateTranspose)
{
    orvtest::Rng rng(3);
    for (int inc : {1, -2}) {
        const int m = 7, n = 5, lda = n + 2, kl = 2, ku = 1;
        const Dense a = random_matrix(rng, m, n);
        Dense band(m, n);
        for (int i = 0; i < m; ++i)
            for (int j = 0; j < n; ++j)
                if (j - i <= ku && i - j <= kl) band(i, j) = a(i, j);
        const auto x = random_vector(rng, m), y0 = random_vector(rng, n);
        const auto want_full = reference_mv(kConjTrans, a, kAlpha, x, kBeta, y0);
        const auto want_band = reference_mv(kConjTrans, band, kAlpha, x, kBeta, y0);

        std::vector<zcomplex> full(static_cast<std::size_t>(m) * lda, orvtest::zcomplex(9.0, 9.0));
        for (int i = 0; i < m; ++i)
            for (int j = 0; j < n; ++j) full[static_cast<std::size_t>(i) * lda + j] = a(i, j);
        const int ldb = kl + ku + 1;
        std::vector<zcomplex> packed_band(static_cast<std::size_t>(m) * ldb);
        for (int i = 0; i < m; ++i)
            for (int j = 0; j < n; ++j)
                if (j - i <= ku && i - j <= kl) packed_band[static_cast<std::size_t>(i) * ldb + kl + j - i] = a(i, j);

        const auto xs = strided(x, inc);
        auto y = strided(y0, inc);
        cblas_zgemv(kRow, kConjTrans, m, n, &kAlpha, full.data(), lda, xs.data(), inc, &kBeta, y.data(), inc);
        expect_vector(y, want_full, inc);
        y = strided(y0, inc);
        cblas_zgbmv(kRow, kConjTrans, m, n, kl, ku, &kAlpha, packed_band.data(), ldb, xs.data(), inc, &kBeta,
                    y.data(), inc);
        expect_vector(y, want_band, inc);
    }
}

// Long enough that the conjugated copy of x is taken from the heap.
TEST(CblasRowMajor, HermitianProducts)
{
    orvtest::Rng rng(5);
    for (int n : {6, 300})
        for (int uplo : {kUpper, kLower}) {
            const Dense a = hermitian(rng, n);
            const auto x = random_vector(rng, n), y0 = random_vector(rng, n);
            const auto want = reference_mv(kNoTrans, a, kAlpha, x, kBeta, y0);
            const auto xs = strided(x, -1);
            for (Storage st : {Storage{Storage::kFull, n, 0, n + 1}, Storage{Storage::kPacked, n, 0, 0}}) {
                const auto stored = st.store(uplo, a);
                auto y = strided(y0, 2);
                if (st.kind == Storage::kFull)
                    cblas_zhemv(kRow, uplo, n, &kAlpha, stored.data(), st.ld, xs.data(), -1, &kBeta, y.data(), 2);
                else
                    cblas_zhpmv(kRow, uplo, n, &kAlpha, stored.data(), xs.data(), -1, &kBeta, y.data(), 2);
                expect_vector(y, want, 2);
            }
        }
}

TEST(CblasRowMajor, RankUpdatesOfHermitianMatrices)
{
    orvtest::Rng rng(7);
    const int n = 6;
    for (int uplo : {kUpper, kLower}) {
        const Dense a = hermitian(rng, n);
        const auto x = random_vector(rng, n), y = random_vector(rng, n);
        const auto xs = strided(x, 2), ys = strided(y, -3);
        const double real_alpha = 0.75;
        Dense want1 = a, want2 = a;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                want1(i, j) += real_alpha * x[i] * conj(x[j]);
                want2(i, j) += kAlpha * x[i] * conj(y[j]) + conj(kAlpha) * y[i] * conj(x[j]);
            }
        const Storage full{Storage::kFull, n, 0, n + 2}, packed{Storage::kPacked, n, 0, 0};
        auto s = full.store(uplo, a);
        cblas_zher(kRow, uplo, n, real_alpha, xs.data(), 2, s.data(), full.ld);
        expect_stored(full, uplo, s, want1);
        s = full.store(uplo, a);
        cblas_zher2(kRow, uplo, n, &kAlpha, xs.data(), 2, ys.data(), -3, s.data(), full.ld);
        expect_stored(full, uplo, s, want2);
        s = packed.store(uplo, a);
        cblas_zhpr2(kRow, uplo, n, &kAlpha, xs.data(), 2, ys.data(), -3, s.data());
        expect_stored(packed, uplo, s, want2);
    }
}

TEST(CblasRowMajor, ConjugatedRankOneUpdate)
{
    orvtest::Rng rng(11);
    const int m = 4, n = 6, lda = n + 1;
    const Dense a = random_matrix(rng, m, n);
    const auto x = random_vector(rng, m), y = random_vector(rng, n);
    orvtest::Guarded<zcomplex> s(static_cast<std::size_t>(m) * lda);
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j) s[static_cast<std::size_t>(i) * lda + j] = a(i, j);
    const auto xs = strided(x, -1), ys = strided(y, 3);
    cblas_zgerc(kRow, m, n, &kAlpha, xs.data(), -1, ys.data(), 3, s.data(), lda);
    std::vector<long> index;
    std::vector<zcomplex> want;
    for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j) {
            index.push_back(static_cast<long>(i) * lda + j);
            want.push_back(a(i, j) + kAlpha * x[i] * conj(y[j]));
        }
    expect_elements(s, index, want);
}

// x := A^H x for a full triangle, and the solves with a band and a packed
// triangle, which must give back the vector the product was made from.
TEST(CblasRowMajor, TriangularConjugateTranspose)
{
    orvtest::Rng rng(13);
    const int n = 7, k = 2;
    for (int uplo : {kUpper, kLower}) {
        Dense t(n, n);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                const bool in = uplo == kUpper ? j >= i : j <= i;
                if (in && (j > i ? j - i : i - j) <= k) t(i, j) = i == j ? zcomplex(4.0, 1.0) : rng.zcoarse();
            }
        const auto x = random_vector(rng, n);
        const auto b = reference_mv(kConjTrans, t, 1.0, x, 0.0, std::vector<zcomplex>(n));

        const Storage full{Storage::kFull, n, k, n}, band{Storage::kBand, n, k, k + 1}, packed{Storage::kPacked, n, k, 0};
        const auto sf = full.store(uplo, t), sb = band.store(uplo, t), sp = packed.store(uplo, t);
        auto v = strided(x, -2);
        cblas_ztrmv(kRow, uplo, kConjTrans, kNonUnit, n, sf.data(), n, v.data(), -2);
        expect_vector(v, b, -2);
        v = strided(b, 3);
        cblas_ztbsv(kRow, uplo, kConjTrans, kNonUnit, n, k, sb.data(), band.ld, v.data(), 3);
        expect_vector(v, x, 3);
        v = strided(b, 1);
        cblas_ztpsv(kRow, uplo, kConjTrans, kNonUnit, n, sp.data(), v.data(), 1);
        expect_vector(v, x, 1);
    }
}

// C := alpha A B^H + conj(alpha) B A^H + beta C and C := alpha A^H A + beta C.
TEST(CblasRowMajor, HermitianRankKUpdates)
{
    orvtest::Rng rng(17);
    const int n = 5, k = 3;
    const double beta = 0.5, real_alpha = -1.5;
    for (int uplo : {kUpper, kLower})
        for (int trans : {kNoTrans, kConjTrans}) {
            const bool nt = trans == kNoTrans;
            const Dense a = random_matrix(rng, nt ? n : k, nt ? k : n), b = random_matrix(rng, nt ? n : k, nt ? k : n);
            const Dense c = hermitian(rng, n);
            auto op = [&](const Dense& m, int i, int l) { return nt ? m(i, l) : conj(m(l, i)); };
            Dense want2 = c, want1 = c;
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < n; ++j) {
                    zcomplex s2 = 0.0, s1 = 0.0;
                    for (int l = 0; l < k; ++l) {
                        s2 += kAlpha * op(a, i, l) * conj(op(b, j, l)) + conj(kAlpha) * op(b, i, l) * conj(op(a, j, l));
                        s1 += real_alpha * op(a, i, l) * conj(op(a, j, l));
                    }
                    want2(i, j) = s2 + beta * c(i, j);
                    want1(i, j) = s1 + beta * c(i, j);
                }
            const Storage st{Storage::kFull, n, 0, n + 1};
            auto s = st.store(uplo, c);
            cblas_zher2k(kRow, uplo, trans, n, k, &kAlpha, a.v.data(), a.cols, b.v.data(), b.cols, beta, s.data(),
                         st.ld);
            expect_stored(st, uplo, s, want2);
            s = st.store(uplo, c);
            cblas_zherk(kRow, uplo, trans, n, k, real_alpha, a.v.data(), a.cols, beta, s.data(), st.ld);
            expect_stored(st, uplo, s, want1);
        }
}

// An invalid enumeration is reported with its position in the C call (the
// layout is 1) while the call state is set; nothing is written, and the
// state is clear again after the call.
TEST(CblasErrors, InvalidEnumerationsAreReportedAndComputeNothing)
{
    orvtest::Guarded<double> c(16);
    orvtest::Guarded<zcomplex> y(8), a(16);
    const double d[16] = {};
    const zcomplex z[16] = {};
    const auto c0 = c.snapshot();
    const auto y0 = y.snapshot();
    const auto a0 = a.snapshot();
    const zcomplex one = 1.0;
    struct Case {
        const char* routine;
        int position;
        int row_major;
        std::function<void()> call;
    };
    const Case cases[] = {
        {"cblas_dgemm", 1, 0, [&] { cblas_dgemm(0, kNoTrans, kNoTrans, 2, 2, 2, 1.0, d, 2, d, 2, 0.0, c.data(), 2); }},
        {"cblas_dgemm", 3, 1, [&] { cblas_dgemm(kRow, kTrans, 114, 2, 2, 2, 1.0, d, 2, d, 2, 0.0, c.data(), 2); }},
        {"cblas_zgemv", 1, 0, [&] { cblas_zgemv(kRow + 2, kConjTrans, 2, 2, &one, z, 2, z, 1, &one, y.data(), 1); }},
        {"cblas_zhemv", 2, 0, [&] { cblas_zhemv(kCol, kNoTrans, 2, &one, z, 2, z, 1, &one, y.data(), 1); }},
        {"cblas_zher", 1, 0, [&] { cblas_zher(-1, kUpper, 2, 1.0, z, 1, a.data(), 2); }},
        {"cblas_ztrmv", 4, 1, [&] { cblas_ztrmv(kRow, kLower, kNoTrans, 0, 2, z, 2, y.data(), 1); }},
        {"cblas_zherk", 3, 1, [&] { cblas_zherk(kRow, kUpper, kTrans, 2, 2, 1.0, z, 2, 0.0, a.data(), 2); }},
        {"cblas_zgerc", 1, 0, [&] { cblas_zgerc(0, 2, 2, &one, z, 1, z, 1, a.data(), 2); }},
    };
    for (const Case& k : cases) {
        reset_reports();
        k.call();
        EXPECT_EQ(g_cblas_report.calls, 1) << k.routine;
        EXPECT_EQ(g_cblas_report.position, k.position) << k.routine;
        EXPECT_EQ(g_cblas_report.routine, k.routine);
        EXPECT_EQ(g_cblas_report.call_from_c, 1) << k.routine;
        EXPECT_EQ(g_cblas_report.row_major, k.row_major) << k.routine;
        EXPECT_EQ(g_fortran_report.calls, 0) << k.routine;
        EXPECT_EQ(CBLAS_CallFromC, 0);
        EXPECT_EQ(RowMajorStrg, 0);
    }
    EXPECT_TRUE(c.equals(c0));
    EXPECT_TRUE(y.equals(y0));
    EXPECT_TRUE(a.equals(a0));
}

// A bad dimension is found by the column-major routine and reaches the
// host's Fortran handler with the routine's own position, while the call
// state tells the handler how to map it back: the host adds 1 for the
// layout and, in a row-major call, exchanges the swapped arguments.
TEST(CblasErrors, DimensionErrorsReachTheHostHandlerWithTheCallState)
{
    orvtest::Guarded<zcomplex> y(8);
    const auto y0 = y.snapshot();
    const zcomplex z[8] = {}, one = 1.0;
    reset_reports();
    // Row-major 3 x 2 with lda 1: the transposed call sees lda < its m = 2.
    cblas_zgemv(kRow, kConjTrans, 3, 2, &one, z, 1, z, 1, &one, y.data(), 1);
    EXPECT_EQ(g_fortran_report.calls, 1);
    EXPECT_EQ(g_fortran_report.position, 6);
    EXPECT_EQ(g_fortran_report.routine.substr(0, 5), "ZGEMV");
    EXPECT_EQ(g_fortran_report.call_from_c, 1);
    EXPECT_EQ(g_fortran_report.row_major, 1);
    EXPECT_EQ(g_cblas_report.calls, 0);
    EXPECT_TRUE(y.equals(y0));  // conjugated and restored bit for bit
    EXPECT_EQ(RowMajorStrg, 0);
}

TEST(CblasLevel1, IndexFromZeroAndDotThroughPointer)
{
    const zcomplex x[4] = {{1, 0}, {0, -3}, {2, 2}, {-3, 0.5}};
    EXPECT_EQ(cblas_izamax(4, x, 1), 2u);
    EXPECT_EQ(cblas_izamax(2, x, 2), 1u);
    EXPECT_EQ(cblas_izamax(0, x, 1), 0u);
    zcomplex dot(7, 7);
    cblas_zdotc_sub(2, x, 1, x + 2, 1, &dot);
    EXPECT_EQ(dot, conj(x[0]) * x[2] + conj(x[1]) * x[3]);
}

// The library's own handler, reached past this program's: one line with
// the routine, the position and the caller's text.
TEST(CblasErrors, DefaultHandlerPrintsOneLine)
{
    using Handler = void (*)(int, const char*, const char*, ...);
    const auto library_handler = reinterpret_cast<Handler>(dlsym(RTLD_NEXT, "cblas_xerbla"));
    ASSERT_NE(library_handler, nullptr);
    std::fflush(stdout);
    std::FILE* capture = std::tmpfile();
    ASSERT_NE(capture, nullptr);
    const int saved = dup(fileno(stdout));
    dup2(fileno(capture), fileno(stdout));
    library_handler(3, "cblas_dgemm", "Illegal value %d\n", 114);
    std::fflush(stdout);
    dup2(saved, fileno(stdout));
    close(saved);
    char text[512] = {};
    std::rewind(capture);
    const std::size_t got = std::fread(text, 1, sizeof text - 1, capture);
    std::fclose(capture);
    EXPECT_EQ(std::string(text, got),
              "Calix ORV ERROR: Parameter 3 was incorrect on entry to cblas_dgemm. Illegal value 114\n");
}

}  // namespace
