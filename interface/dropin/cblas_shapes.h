// One template per argument shape of the level-2 and level-3 C interface,
// written once over the element type E. Each checks the enumerations, maps a
// row-major call onto the column-major routine `f` and calls it; `f` then
// checks the dimensions and reports them itself.
//
// A row-major matrix is the column-major storage of its transpose, so a
// row-major call becomes the column-major call on the transposed problem.
// Where that needs a conjugate the routines have no letter for (a complex
// conjugate transpose, the stored transpose of a Hermitian matrix), it
// conjugates vectors instead: the caller's in/out vectors in place before and
// after the call, its input vectors into a copy.
//
// Real arrays and scalars arrive as typed addresses, complex ones as untyped
// addresses of (re, im) pairs; `as<E>` gives both their element type.
#pragma once

#include <utility>

#include "interface/checkers.h"
#include "interface/dropin/cblas_call.h"
#include "interface/xerbla.h"

namespace orv::cblas {

template <typename E>
const E* as(const void* p)
{
    return static_cast<const E*>(p);
}
template <typename E>
E* as(void* p)
{
    return static_cast<E*>(p);
}

// Trailing matrix arguments passed on to a routine: integers by address.
inline const int* by_address(const int& value) { return &value; }
template <typename T>
T* by_address(T* p)
{
    return p;
}

// ---- Level 3 ----

// C := alpha op(A) op(B) + beta C. Row-major: C' = op(B)' op(A)', which is
// the same letters applied to the stored transposes in the other order.
template <typename F, typename S, typename P>
void gemm(F f, const char* name, int layout, int transa, int transb, int m, int n, int k, S alpha, const P* a,
          int lda, const P* b, int ldb, S beta, P* c, int ldc)
{
    Call call(name, layout);
    const char ta = call.trans(2, transa);
    const char tb = call.trans(3, transb);
    if (call.failed()) return;
    if (call.row())
        f(&tb, &ta, &n, &m, &k, alpha, b, &ldb, a, &lda, beta, c, &ldc);
    else
        f(&ta, &tb, &m, &n, &k, alpha, a, &lda, b, &ldb, beta, c, &ldc);
}

// C := alpha A B + beta C or alpha B A + beta C, A symmetric or Hermitian.
// Row-major: the transposed product, A on the other side; the stored
// transpose of A is symmetric or Hermitian again, with the other triangle.
template <typename F, typename S, typename P>
void symm(F f, const char* name, int layout, int side, int uplo, int m, int n, S alpha, const P* a, int lda,
          const P* b, int ldb, S beta, P* c, int ldc)
{
    Call call(name, layout);
    char sd = call.side(2, side);
    char ul = call.uplo(3, uplo);
    if (call.failed()) return;
    if (call.row()) {
        sd = flip_side(sd);
        ul = flip_uplo(ul);
        std::swap(m, n);
    }
    f(&sd, &ul, &m, &n, alpha, a, &lda, b, &ldb, beta, c, &ldc);
}

// C := alpha op(A) op(A)' + beta C, C symmetric or Hermitian. `allowed` is
// the routine's set of trans letters, whose second transposes (kTransNTC,
// kTransNT, kTransNC). Row-major: the other letter on the stored transpose
// and the other triangle; alpha and beta of a Hermitian update are real, so
// the conjugated problem is the same problem.
template <typename F, typename S, typename P>
void rank_k(F f, const char* allowed, const char* name, int layout, int uplo, int trans, int n, int k, S alpha,
            const P* a, int lda, S beta, P* c, int ldc)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    char t = call.trans(3, trans, allowed);
    if (call.failed()) return;
    if (call.row()) {
        ul = flip_uplo(ul);
        t = t == 'N' ? allowed[1] : 'N';
    }
    f(&ul, &t, &n, &k, alpha, a, &lda, beta, c, &ldc);
}

// C := alpha op(A) op(B)' + alpha' op(B) op(A)' + beta C, with alpha' =
// alpha (symmetric) or conj(alpha) (Hermitian, kTransNC). Row-major as
// rank_k; the stored transpose of a Hermitian C is conj(C), whose update
// has the two terms' scalars exchanged, so alpha is conjugated.
template <typename E, typename F, typename SA, typename SB, typename P>
void rank_2k(F f, const char* allowed, const char* name, int layout, int uplo, int trans, int n, int k, SA alpha,
             const P* a, int lda, const P* b, int ldb, SB beta, P* c, int ldc)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    char t = call.trans(3, trans, allowed);
    if (call.failed()) return;
    if (!call.row()) return f(&ul, &t, &n, &k, alpha, a, &lda, b, &ldb, beta, c, &ldc);
    ul = flip_uplo(ul);
    t = t == 'N' ? allowed[1] : 'N';
    if constexpr (is_complex<E>) {
        if (allowed[1] == 'C') {
            const E conj_alpha = conjugated(as<E>(alpha));
            return f(&ul, &t, &n, &k, &conj_alpha, a, &lda, b, &ldb, beta, c, &ldc);
        }
    }
    f(&ul, &t, &n, &k, alpha, a, &lda, b, &ldb, beta, c, &ldc);
}

// B := alpha op(A) B, alpha B op(A) and the solves, A triangular. Row-major:
// the transposed problem, A on the other side with the other triangle; the
// letter stays, because op(A)' is op applied to the stored transpose.
template <typename F, typename S, typename P>
void trmm(F f, const char* name, int layout, int side, int uplo, int transa, int diag, int m, int n, S alpha,
          const P* a, int lda, P* b, int ldb)
{
    Call call(name, layout);
    char sd = call.side(2, side);
    char ul = call.uplo(3, uplo);
    const char t = call.trans(4, transa);
    const char dg = call.diag(5, diag);
    if (call.failed()) return;
    if (call.row()) {
        sd = flip_side(sd);
        ul = flip_uplo(ul);
        std::swap(m, n);
    }
    f(&sd, &ul, &t, &dg, &m, &n, alpha, a, &lda, b, &ldb);
}

// ---- Level 2 ----

// y := alpha conj(M) x + beta y with run(alpha, x, incx, beta) computing
// y := alpha M x + beta y, as conj(y) := conj(alpha) M conj(x) + conj(beta)
// conj(y). `nx` and `ny` are the lengths of x and y.
template <typename E, typename Run>
void conjugated_mv(const char* name, int nx, const void* alpha, const void* x, int incx, const void* beta, void* y,
                   int ny, int incy, Run run)
{
    ConjugatedCopy<E> xc(nx, x, incx);
    if (!xc.ok()) return (void)report_workspace_failure(0, name);
    const E conj_alpha = conjugated(as<E>(alpha));
    const E conj_beta = conjugated(as<E>(beta));
    conjugate<E>(ny, y, incy);
    run(&conj_alpha, xc.data(), xc.inc(), &conj_beta);
    conjugate<E>(ny, y, incy);
}

// y := alpha op(A) x + beta y, A m x n, full or band, through
// run(trans, rows, cols, alpha, x, incx, beta), which passes the matrix
// arguments. Row-major: the other letter on the stored transpose; for the
// conjugate transpose, the stored transpose conjugated.
template <typename E, typename Run>
void general_mv(const char* name, int layout, int trans, int m, int n, const void* alpha, const void* x, int incx,
                const void* beta, void* y, int incy, Run run)
{
    Call call(name, layout);
    char t = call.trans(2, trans);
    if (call.failed()) return;
    if (!call.row()) return run(&t, &m, &n, as<E>(alpha), as<E>(x), &incx, as<E>(beta));
    if constexpr (is_complex<E>) {
        if (t == 'C') {
            t = 'N';
            return conjugated_mv<E>(name, m, alpha, x, incx, beta, y, n, incy,
                                    [&](const E* al, const E* xv, const int* ix, const E* be) {
                                        run(&t, &n, &m, al, xv, ix, be);
                                    });
        }
    }
    t = t == 'N' ? 'T' : 'N';
    run(&t, &n, &m, as<E>(alpha), as<E>(x), &incx, as<E>(beta));
}

template <typename E, typename F>
void gemv(F f, const char* name, int layout, int trans, int m, int n, const void* alpha, const void* a, int lda,
          const void* x, int incx, const void* beta, void* y, int incy)
{
    general_mv<E>(name, layout, trans, m, n, alpha, x, incx, beta, y, incy,
                  [&](const char* t, const int* rows, const int* cols, const E* al, const E* xv, const int* ix,
                      const E* be) { f(t, rows, cols, al, as<E>(a), &lda, xv, ix, be, as<E>(y), &incy); });
}

template <typename E, typename F>
void gbmv(F f, const char* name, int layout, int trans, int m, int n, int kl, int ku, const void* alpha,
          const void* a, int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    // The stored transpose of a band matrix has sub- and superdiagonals exchanged.
    if (layout == CblasRowMajor) std::swap(kl, ku);
    general_mv<E>(name, layout, trans, m, n, alpha, x, incx, beta, y, incy,
                  [&](const char* t, const int* rows, const int* cols, const E* al, const E* xv, const int* ix,
                      const E* be) { f(t, rows, cols, &kl, &ku, al, as<E>(a), &lda, xv, ix, be, as<E>(y), &incy); });
}

// y := alpha A x + beta y, A symmetric (real) or Hermitian, full, band or
// packed, through run(uplo, alpha, x, incx, beta). Row-major: the stored
// transpose with the other triangle, which is A itself (real) or conj(A).
template <typename E, typename Run>
void hermitian_mv(const char* name, int layout, int uplo, int n, const void* alpha, const void* x, int incx,
                  const void* beta, void* y, int incy, Run run)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    if (call.failed()) return;
    if (call.row()) {
        ul = flip_uplo(ul);
        if constexpr (is_complex<E>) {
            return conjugated_mv<E>(name, n, alpha, x, incx, beta, y, n, incy,
                                    [&](const E* al, const E* xv, const int* ix, const E* be) {
                                        run(&ul, al, xv, ix, be);
                                    });
        }
    }
    run(&ul, as<E>(alpha), as<E>(x), &incx, as<E>(beta));
}

template <typename E, typename F>
void symv(F f, const char* name, int layout, int uplo, int n, const void* alpha, const void* a, int lda,
          const void* x, int incx, const void* beta, void* y, int incy)
{
    hermitian_mv<E>(name, layout, uplo, n, alpha, x, incx, beta, y, incy,
                    [&](const char* ul, const E* al, const E* xv, const int* ix, const E* be) {
                        f(ul, &n, al, as<E>(a), &lda, xv, ix, be, as<E>(y), &incy);
                    });
}

template <typename E, typename F>
void sbmv(F f, const char* name, int layout, int uplo, int n, int k, const void* alpha, const void* a, int lda,
          const void* x, int incx, const void* beta, void* y, int incy)
{
    hermitian_mv<E>(name, layout, uplo, n, alpha, x, incx, beta, y, incy,
                    [&](const char* ul, const E* al, const E* xv, const int* ix, const E* be) {
                        f(ul, &n, &k, al, as<E>(a), &lda, xv, ix, be, as<E>(y), &incy);
                    });
}

template <typename E, typename F>
void spmv(F f, const char* name, int layout, int uplo, int n, const void* alpha, const void* ap, const void* x,
          int incx, const void* beta, void* y, int incy)
{
    hermitian_mv<E>(name, layout, uplo, n, alpha, x, incx, beta, y, incy,
                    [&](const char* ul, const E* al, const E* xv, const int* ix, const E* be) {
                        f(ul, &n, al, as<E>(ap), xv, ix, be, as<E>(y), &incy);
                    });
}

// x := op(A) x or op(A)^-1 x, A triangular, full, band or packed, through
// run(uplo, trans, diag). Row-major: the other triangle and the other
// letter; the conjugate transpose becomes conj(x) := A' conj(x) on the
// stored transpose A', x conjugated in place before and after.
template <typename E, typename Run>
void triangular_mv(const char* name, int layout, int uplo, int trans, int diag, int n, void* x, int incx, Run run)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    char t = call.trans(3, trans);
    const char dg = call.diag(4, diag);
    if (call.failed()) return;
    if (!call.row()) return run(&ul, &t, &dg);
    ul = flip_uplo(ul);
    if constexpr (is_complex<E>) {
        if (t == 'C') {
            t = 'N';
            conjugate<E>(n, x, incx);
            run(&ul, &t, &dg);
            return conjugate<E>(n, x, incx);
        }
    }
    t = t == 'N' ? 'T' : 'N';
    run(&ul, &t, &dg);
}

template <typename E, typename F>
void trmv(F f, const char* name, int layout, int uplo, int trans, int diag, int n, const void* a, int lda, void* x,
          int incx)
{
    triangular_mv<E>(name, layout, uplo, trans, diag, n, x, incx, [&](const char* ul, const char* t, const char* dg) {
        f(ul, t, dg, &n, as<E>(a), &lda, as<E>(x), &incx);
    });
}

template <typename E, typename F>
void tbmv(F f, const char* name, int layout, int uplo, int trans, int diag, int n, int k, const void* a, int lda,
          void* x, int incx)
{
    triangular_mv<E>(name, layout, uplo, trans, diag, n, x, incx, [&](const char* ul, const char* t, const char* dg) {
        f(ul, t, dg, &n, &k, as<E>(a), &lda, as<E>(x), &incx);
    });
}

template <typename E, typename F>
void tpmv(F f, const char* name, int layout, int uplo, int trans, int diag, int n, const void* ap, void* x, int incx)
{
    triangular_mv<E>(name, layout, uplo, trans, diag, n, x, incx, [&](const char* ul, const char* t, const char* dg) {
        f(ul, t, dg, &n, as<E>(ap), as<E>(x), &incx);
    });
}

// A := alpha x y' + A (ger, geru). Row-major: the stored transpose gets
// alpha y x'.
template <typename E, typename F>
void ger(F f, const char* name, int layout, int m, int n, const void* alpha, const void* x, int incx, const void* y,
         int incy, void* a, int lda)
{
    Call call(name, layout);
    if (call.failed()) return;
    if (call.row())
        f(&n, &m, as<E>(alpha), as<E>(y), &incy, as<E>(x), &incx, as<E>(a), &lda);
    else
        f(&m, &n, as<E>(alpha), as<E>(x), &incx, as<E>(y), &incy, as<E>(a), &lda);
}

// A := alpha x y^H + A. Row-major: the stored transpose gets
// alpha conj(y) x', the unconjugated update `geru` with y's conjugate.
template <typename E, typename F>
void gerc(F gerc_f, F geru_f, const char* name, int layout, int m, int n, const void* alpha, const void* x, int incx,
          const void* y, int incy, void* a, int lda)
{
    if (layout != CblasRowMajor) return ger<E>(gerc_f, name, layout, m, n, alpha, x, incx, y, incy, a, lda);
    Call call(name, layout);
    ConjugatedCopy<E> yc(n, y, incy);
    if (!yc.ok()) return (void)report_workspace_failure(0, name);
    geru_f(&n, &m, as<E>(alpha), yc.data(), yc.inc(), as<E>(x), &incx, as<E>(a), &lda);
}

// A := alpha x x^H + A, A symmetric (real) or Hermitian with real alpha,
// full or packed (`matrix` the trailing arguments). Row-major: the other
// triangle; the stored transpose of a Hermitian A is conj(A), which gets
// alpha conj(x) conj(x)^H.
template <typename E, typename F, typename S, typename... Matrix>
void her(F f, const char* name, int layout, int uplo, int n, S alpha, const void* x, int incx, Matrix... matrix)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    if (call.failed()) return;
    if (call.row()) {
        ul = flip_uplo(ul);
        if constexpr (is_complex<E>) {
            ConjugatedCopy<E> xc(n, x, incx);
            if (!xc.ok()) return (void)report_workspace_failure(0, name);
            return f(&ul, &n, alpha, xc.data(), xc.inc(), by_address(matrix)...);
        }
    }
    f(&ul, &n, alpha, as<E>(x), &incx, by_address(matrix)...);
}

// A := alpha x y^H + conj(alpha) y x^H + A, A symmetric (real) or Hermitian,
// full or packed. Row-major: the other triangle; conj(A) gets
// alpha conj(y) conj(x)^H + conj(alpha) conj(x) conj(y)^H, the update with
// the conjugates of x and y in each other's place.
template <typename E, typename F, typename... Matrix>
void her2(F f, const char* name, int layout, int uplo, int n, const void* alpha, const void* x, int incx,
          const void* y, int incy, Matrix... matrix)
{
    Call call(name, layout);
    char ul = call.uplo(2, uplo);
    if (call.failed()) return;
    if (call.row()) {
        ul = flip_uplo(ul);
        if constexpr (is_complex<E>) {
            ConjugatedCopy<E> xc(n, x, incx);
            ConjugatedCopy<E> yc(n, y, incy);
            if (!xc.ok() || !yc.ok()) return (void)report_workspace_failure(0, name);
            return f(&ul, &n, as<E>(alpha), yc.data(), yc.inc(), xc.data(), xc.inc(), by_address(matrix)...);
        }
    }
    f(&ul, &n, as<E>(alpha), as<E>(x), &incx, as<E>(y), &incy, by_address(matrix)...);
}

}  // namespace orv::cblas
