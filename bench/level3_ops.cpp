// Level-3 routines of the benchmark: option letters, operands, flop counts and
// calls. Compiled for the x86-64 baseline.

#include "bench/level3_ops.h"

#include "orv.h"

#include <algorithm>
#include <complex>

namespace l3 {

const std::vector<Routine>& routines()
{
    static const std::vector<Routine> list = {
        {"dgemm", Kind::gemm, false, "", "", "NTC", ""},
        {"zgemm", Kind::gemm, true, "", "", "NTC", ""},
        {"dtrsm", Kind::trsm, false, "LR", "LU", "NTC", "NU"},
        {"ztrsm", Kind::trsm, true, "LR", "LU", "NTC", "NU"},
        {"dtrmm", Kind::trmm, false, "LR", "LU", "NTC", "NU"},
        {"ztrmm", Kind::trmm, true, "LR", "LU", "NTC", "NU"},
        {"dsyrk", Kind::syrk, false, "", "LU", "NTC", ""},
        {"zsyrk", Kind::syrk, true, "", "LU", "NT", ""},
        {"zherk", Kind::herk, true, "", "LU", "NC", ""},
        {"dsyr2k", Kind::syr2k, false, "", "LU", "NTC", ""},
        {"zsyr2k", Kind::syr2k, true, "", "LU", "NT", ""},
        {"zher2k", Kind::her2k, true, "", "LU", "NC", ""},
        {"dsymm", Kind::symm, false, "LR", "LU", "", ""},
        {"zsymm", Kind::symm, true, "LR", "LU", "", ""},
        {"zhemm", Kind::hemm, true, "LR", "LU", "", ""},
    };
    return list;
}

const Routine* find_routine(const std::string& name)
{
    for (const Routine& r : routines()) {
        if (name == r.name) return &r;
    }
    return nullptr;
}

std::string distinct_trans(const Routine& r)
{
    std::string letters = r.trans;
    if (!r.complex) letters.erase(std::remove(letters.begin(), letters.end(), 'C'), letters.end());
    return letters;
}

// Real flops of one call, two per multiply-add:
//   gemm          2 m n k
//   trsm, trmm    side L: m^2 n, side R: n^2 m (per column, or row, of B a
//                 triangle of about m^2 / 2 multiply-adds)
//   syrk, herk    n (n + 1) k (one triangle of C, k multiply-adds per entry)
//   syr2k, her2k  2 n (n + 1) k
//   symm, hemm    side L: 2 m^2 n, side R: 2 m n^2
// A complex multiply-add is four real ones, so complex routines count 4 times
// these and their rates compare with the same peak loop.
double Case::flops() const
{
    const double dm = static_cast<double>(m), dn = static_cast<double>(n), dk = static_cast<double>(k);
    double real = 0;
    switch (routine->kind) {
    case Kind::gemm: real = 2 * dm * dn * dk; break;
    case Kind::trsm:
    case Kind::trmm: real = side == 'L' ? dm * dm * dn : dn * dn * dm; break;
    case Kind::syrk:
    case Kind::herk: real = dn * (dn + 1) * dk; break;
    case Kind::syr2k:
    case Kind::her2k: real = 2 * dn * (dn + 1) * dk; break;
    case Kind::symm:
    case Kind::hemm: real = side == 'L' ? 2 * dm * dm * dn : 2 * dm * dn * dn; break;
    }
    return routine->complex ? 4 * real : real;
}

std::string Case::options() const
{
    std::string text;
    for (char letter : {side, uplo, trans, transb, diag}) {
        if (letter == '-') continue;
        if (!text.empty()) text += ',';
        text += letter;
    }
    return text;
}

namespace {

using Complex = std::complex<double>;

double away_from_zero(double v)
{
    return v < 0 ? v - 1 : v + 1;
}
Complex away_from_zero(Complex v)
{
    return {away_from_zero(v.real()), v.imag()};
}

// acc -= a * b; for complex values written out, because the library call
// that guards std::complex products against infinities makes the inverse
// of an order-1000 matrix take seconds.
void subtract_product(double& acc, double a, double b)
{
    acc -= a * b;
}
void subtract_product(Complex& acc, Complex a, Complex b)
{
    acc = {acc.real() - (a.real() * b.real() - a.imag() * b.imag()),
           acc.imag() - (a.real() * b.imag() + a.imag() * b.real())};
}

// Triangle `uplo` of the random n x n matrix t made well conditioned: diagonal
// entries of modulus at least 1, off-diagonal ones of order 1/n. The other
// triangle keeps its random values, which both libraries must ignore.
template <typename T>
void make_triangular(T* t, int n, char uplo)
{
    for (int j = 0; j < n; ++j) {
        const int lo = uplo == 'L' ? j + 1 : 0, hi = uplo == 'L' ? n : j;
        for (int i = lo; i < hi; ++i) t[i + static_cast<long>(j) * n] *= 1.0 / n;
        t[j + static_cast<long>(j) * n] = away_from_zero(t[j + static_cast<long>(j) * n]);
    }
}

// inv := t with triangle `uplo` replaced by the inverse of that triangle (of
// unit diagonal when diag is 'U'), column by column by substitution.
template <typename T>
void invert_triangular(const T* t, T* inv, int n, char uplo, char diag)
{
    const long ld = n;
    std::copy(t, t + ld * n, inv);
    std::vector<T> x(static_cast<std::size_t>(n));
    for (int j = 0; j < n; ++j) {
        std::fill(x.begin(), x.end(), T(0));
        x[j] = T(1);
        if (uplo == 'L') {
            for (int l = j; l < n; ++l) {
                if (diag == 'N') x[l] /= t[l + l * ld];
                for (int i = l + 1; i < n; ++i) subtract_product(x[i], t[i + l * ld], x[l]);
            }
            for (int i = j; i < n; ++i) inv[i + j * ld] = x[i];
        } else {
            for (int l = j; l >= 0; --l) {
                if (diag == 'N') x[l] /= t[l + l * ld];
                for (int i = 0; i < l; ++i) subtract_product(x[i], t[i + l * ld], x[l]);
            }
            for (int i = 0; i <= j; ++i) inv[i + j * ld] = x[i];
        }
    }
}

template <typename T>
void prepare_triangular(Operands& op, int n, char uplo, char diag)
{
    T* a = reinterpret_cast<T*>(op.a.get());
    make_triangular(a, n, uplo);
    invert_triangular(a, reinterpret_cast<T*>(op.a_inv.get()), n, uplo, diag);
}

}  // namespace

Operands make_operands(const Case& c)
{
    const Routine& r = *c.routine;
    const long e = r.complex ? 2 : 1;
    long arows = 0, acols = 0, brows = 0, bcols = 0, crows = 0, ccols = 0;
    switch (r.kind) {
    case Kind::gemm:
        arows = c.trans == 'N' ? c.m : c.k;
        acols = c.trans == 'N' ? c.k : c.m;
        brows = c.transb == 'N' ? c.k : c.n;
        bcols = c.transb == 'N' ? c.n : c.k;
        crows = c.m;
        ccols = c.n;
        break;
    case Kind::trsm:
    case Kind::trmm:
        arows = acols = c.side == 'L' ? c.m : c.n;
        brows = c.m;
        bcols = c.n;
        break;
    case Kind::syrk:
    case Kind::herk:
    case Kind::syr2k:
    case Kind::her2k:
        arows = c.trans == 'N' ? c.n : c.k;
        acols = c.trans == 'N' ? c.k : c.n;
        if (r.kind == Kind::syr2k || r.kind == Kind::her2k) {
            brows = arows;
            bcols = acols;
        }
        crows = ccols = c.n;
        break;
    case Kind::symm:
    case Kind::hemm:
        arows = acols = c.side == 'L' ? c.m : c.n;
        brows = c.m;
        bcols = c.n;
        crows = c.m;
        ccols = c.n;
        break;
    }
    Operands op;
    op.m = static_cast<int>(c.m);
    op.n = static_cast<int>(c.n);
    op.k = static_cast<int>(c.k);
    op.lda = static_cast<int>(std::max(1L, arows));
    op.ldb = static_cast<int>(std::max(1L, brows));
    op.ldc = static_cast<int>(std::max(1L, crows));
    auto buffer = [e](long rows, long cols, unsigned seed) {
        return bench::make_buffer(static_cast<std::size_t>(rows * cols * e), seed);
    };
    op.a = buffer(arows, acols, 21);
    if (brows > 0) op.b = buffer(brows, bcols, 22);
    if (crows > 0) op.c = buffer(crows, ccols, 23);
    const bool triangular = r.kind == Kind::trsm || r.kind == Kind::trmm;
    if (triangular) {
        op.a_inv = buffer(arows, acols, 24);
        if (r.complex) {
            prepare_triangular<Complex>(op, static_cast<int>(arows), c.uplo, c.diag);
        } else {
            prepare_triangular<double>(op, static_cast<int>(arows), c.uplo, c.diag);
        }
    }
    op.out = triangular ? op.b.get() : op.c.get();
    op.out_doubles = triangular ? brows * bcols * e : crows * ccols * e;
    return op;
}

void call(const Case& c, bool orv, const bench::RefBlas& ref, Operands& op)
{
    const char side[2] = {c.side, 0}, uplo[2] = {c.uplo, 0}, ta[2] = {c.trans, 0}, tb[2] = {c.transb, 0},
               diag[2] = {c.diag, 0};
    // Beta 1 and alpha +1, -1, +1, ...: each call takes back what the one
    // before added, so C stays near its start.
    static const double real_alpha[2] = {1.0, -1.0};
    static const double complex_alpha[2][2] = {{1.0, 0.0}, {-1.0, 0.0}};
    static const double real_one = 1.0, complex_one[2] = {1.0, 0.0};
    const int odd = static_cast<int>(op.calls++ & 1);
    const double* ra = &real_alpha[odd];
    const double* za = complex_alpha[odd];
    // trsm and trmm: A, then its inverse.
    const double* a = odd != 0 && op.a_inv ? op.a_inv.get() : op.a.get();
    const double* b = op.b.get();
    double* cm = op.c.get();
    const bool z = c.routine->complex;
    switch (c.routine->kind) {
    case Kind::gemm:
        if (z) {
            (orv ? &zgemm_ : ref.zgemm)(ta, tb, &op.m, &op.n, &op.k, za, a, &op.lda, b, &op.ldb, complex_one, cm,
                                        &op.ldc);
        } else {
            (orv ? &dgemm_ : ref.dgemm)(ta, tb, &op.m, &op.n, &op.k, ra, a, &op.lda, b, &op.ldb, &real_one, cm, &op.ldc);
        }
        break;
    case Kind::trsm:
        if (z) {
            (orv ? &ztrsm_ : ref.ztrsm)(side, uplo, ta, diag, &op.m, &op.n, complex_one, a, &op.lda, op.b.get(),
                                        &op.ldb);
        } else {
            (orv ? &dtrsm_ : ref.dtrsm)(side, uplo, ta, diag, &op.m, &op.n, &real_one, a, &op.lda, op.b.get(), &op.ldb);
        }
        break;
    case Kind::trmm:
        if (z) {
            (orv ? &ztrmm_ : ref.ztrmm)(side, uplo, ta, diag, &op.m, &op.n, complex_one, a, &op.lda, op.b.get(),
                                        &op.ldb);
        } else {
            (orv ? &dtrmm_ : ref.dtrmm)(side, uplo, ta, diag, &op.m, &op.n, &real_one, a, &op.lda, op.b.get(), &op.ldb);
        }
        break;
    case Kind::syrk:
        if (z) {
            (orv ? &zsyrk_ : ref.zsyrk)(uplo, ta, &op.n, &op.k, za, a, &op.lda, complex_one, cm, &op.ldc);
        } else {
            (orv ? &dsyrk_ : ref.dsyrk)(uplo, ta, &op.n, &op.k, ra, a, &op.lda, &real_one, cm, &op.ldc);
        }
        break;
    case Kind::herk: (orv ? &zherk_ : ref.zherk)(uplo, ta, &op.n, &op.k, ra, a, &op.lda, &real_one, cm, &op.ldc); break;
    case Kind::syr2k:
        if (z) {
            (orv ? &zsyr2k_ : ref.zsyr2k)(uplo, ta, &op.n, &op.k, za, a, &op.lda, b, &op.ldb, complex_one, cm,
                                          &op.ldc);
        } else {
            (orv ? &dsyr2k_ : ref.dsyr2k)(uplo, ta, &op.n, &op.k, ra, a, &op.lda, b, &op.ldb, &real_one, cm, &op.ldc);
        }
        break;
    case Kind::her2k:
        (orv ? &zher2k_ : ref.zher2k)(uplo, ta, &op.n, &op.k, za, a, &op.lda, b, &op.ldb, &real_one, cm, &op.ldc);
        break;
    case Kind::symm:
        if (z) {
            (orv ? &zsymm_ : ref.zsymm)(side, uplo, &op.m, &op.n, za, a, &op.lda, b, &op.ldb, complex_one, cm,
                                        &op.ldc);
        } else {
            (orv ? &dsymm_ : ref.dsymm)(side, uplo, &op.m, &op.n, ra, a, &op.lda, b, &op.ldb, &real_one, cm, &op.ldc);
        }
        break;
    case Kind::hemm:
        (orv ? &zhemm_ : ref.zhemm)(side, uplo, &op.m, &op.n, za, a, &op.lda, b, &op.ldb, complex_one, cm, &op.ldc);
        break;
    }
}

}  // namespace l3
