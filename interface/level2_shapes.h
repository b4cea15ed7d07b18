// The entry sequence of the level-2 exports, once per argument-list shape.
//
// Each shape takes the routine's 6-character report name and the caller's
// arguments; its template argument is the inner layer (a dispatched family
// member or a plain function), which receives the widened integers and the
// caller's addresses typed as it declares them. Scalars and arrays arrive as
// the export declares them: typed for real data, untyped for complex data.
#pragma once

#include "interface/checkers.h"
#include "interface/entry.h"

namespace orv {

// y := alpha * op(A) * x + beta * y
template <auto Inner>
[[gnu::always_inline]] inline void gemv_shape(const char* name, const char* trans, const int* m, const int* n,
                                              const auto* alpha, const auto* a, const int* lda, const auto* x,
                                              const int* incx, const auto* beta, auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_gemv(name, trans, m, n, lda, incx, incy)) return;
    const i64 m64 = *m, n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(trans, &m64, &n64, typed(alpha), typed(a), &lda64, typed(x), &incx64, typed(beta),
                              typed(y), &incy64);
        },
        name, "(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

// y := alpha * op(A) * x + beta * y, A a band matrix
template <auto Inner>
[[gnu::always_inline]] inline void gbmv_shape(const char* name, const char* trans, const int* m, const int* n,
                                              const int* kl, const int* ku, const auto* alpha, const auto* a,
                                              const int* lda, const auto* x, const int* incx, const auto* beta,
                                              auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_gbmv(name, trans, m, n, kl, ku, lda, incx, incy)) return;
    const i64 m64 = *m, n64 = *n, kl64 = *kl, ku64 = *ku, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(trans, &m64, &n64, &kl64, &ku64, typed(alpha), typed(a), &lda64, typed(x), &incx64,
                              typed(beta), typed(y), &incy64);
        },
        name, "(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y,
        incy);
}

// A := alpha * x * y^T + A (y^H for the conjugated update)
template <auto Inner>
[[gnu::always_inline]] inline void ger_shape(const char* name, const int* m, const int* n, const auto* alpha,
                                             const auto* x, const int* incx, const auto* y, const int* incy, auto* a,
                                             const int* lda)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_ger(name, m, n, incx, incy, lda)) return;
    const i64 m64 = *m, n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(&m64, &n64, typed(alpha), typed(x), &incx64, typed(y), &incy64, typed(a), &lda64);
        },
        name, "(%d,%d,%p,%p,%d,%p,%d,%p,%d)", m, n, alpha, x, incx, y, incy, a, lda);
}

// y := alpha * A * x + beta * y, A symmetric or Hermitian, full storage
template <auto Inner>
[[gnu::always_inline]] inline void symv_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                              const auto* a, const int* lda, const auto* x, const int* incx,
                                              const auto* beta, auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_symv(name, uplo, n, lda, incx, incy)) return;
    const i64 n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, &n64, typed(alpha), typed(a), &lda64, typed(x), &incx64, typed(beta), typed(y),
                              &incy64);
        },
        name, "(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)", uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

// The same, band storage with k off-diagonals
template <auto Inner>
[[gnu::always_inline]] inline void sbmv_shape(const char* name, const char* uplo, const int* n, const int* k,
                                              const auto* alpha, const auto* a, const int* lda, const auto* x,
                                              const int* incx, const auto* beta, auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_sbmv(name, uplo, n, k, lda, incx, incy)) return;
    const i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, &n64, &k64, typed(alpha), typed(a), &lda64, typed(x), &incx64, typed(beta),
                              typed(y), &incy64);
        },
        name, "(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

// The same, packed storage
template <auto Inner>
[[gnu::always_inline]] inline void spmv_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                              const auto* ap, const auto* x, const int* incx, const auto* beta,
                                              auto* y, const int* incy)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_spmv(name, uplo, n, incx, incy)) return;
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, &n64, typed(alpha), typed(ap), typed(x), &incx64, typed(beta), typed(y),
                              &incy64);
        },
        name, "(%c,%d,%p,%p,%p,%d,%p,%p,%d)", uplo, n, alpha, ap, x, incx, beta, y, incy);
}

// A := alpha * x * x^T + A (x^H for the Hermitian update), full storage
template <auto Inner>
[[gnu::always_inline]] inline void syr_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                             const auto* x, const int* incx, auto* a, const int* lda)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_syr(name, uplo, n, incx, lda)) return;
    const i64 n64 = *n, incx64 = *incx, lda64 = *lda;
    run_traced(verbose, mode, [&] { call_inner<Inner>(uplo, &n64, typed(alpha), typed(x), &incx64, typed(a), &lda64); },
        name, "(%c,%d,%p,%p,%d,%p,%d)", uplo, n, alpha, x, incx, a, lda);
}

// The same, packed storage
template <auto Inner>
[[gnu::always_inline]] inline void spr_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                             const auto* x, const int* incx, auto* ap)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_spr(name, uplo, n, incx)) return;
    const i64 n64 = *n, incx64 = *incx;
    run_traced(verbose, mode, [&] { call_inner<Inner>(uplo, &n64, typed(alpha), typed(x), &incx64, typed(ap)); },
        name, "(%c,%d,%p,%p,%d,%p)", uplo, n, alpha, x, incx, ap);
}

// A := alpha * x * y^T + alpha * y * x^T + A (and the Hermitian form), full storage
template <auto Inner>
[[gnu::always_inline]] inline void syr2_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                              const auto* x, const int* incx, const auto* y, const int* incy, auto* a,
                                              const int* lda)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_syr2(name, uplo, n, incx, incy, lda)) return;
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, &n64, typed(alpha), typed(x), &incx64, typed(y), &incy64, typed(a), &lda64);
        },
        name, "(%c,%d,%p,%p,%d,%p,%d,%p,%d)", uplo, n, alpha, x, incx, y, incy, a, lda);
}

// The same, packed storage
template <auto Inner>
[[gnu::always_inline]] inline void spr2_shape(const char* name, const char* uplo, const int* n, const auto* alpha,
                                              const auto* x, const int* incx, const auto* y, const int* incy,
                                              auto* ap)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_spr2(name, uplo, n, incx, incy)) return;
    const i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    run_traced(verbose, mode,
        [&] { call_inner<Inner>(uplo, &n64, typed(alpha), typed(x), &incx64, typed(y), &incy64, typed(ap)); },
        name, "(%c,%d,%p,%p,%d,%p,%d,%p)", uplo, n, alpha, x, incx, y, incy, ap);
}

// x := op(A) * x and the solve, A triangular, full storage
template <auto Inner>
[[gnu::always_inline]] inline void trmv_shape(const char* name, const char* uplo, const char* trans, const char* diag,
                                              const int* n, const auto* a, const int* lda, auto* x, const int* incx)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_trmv(name, uplo, trans, diag, n, lda, incx)) return;
    const i64 n64 = *n, lda64 = *lda, incx64 = *incx;
    run_traced(verbose, mode,
        [&] { call_inner<Inner>(uplo, trans, diag, &n64, typed(a), &lda64, typed(x), &incx64); },
        name, "(%c,%c,%c,%d,%p,%d,%p,%d)", uplo, trans, diag, n, a, lda, x, incx);
}

// The same, band storage with k off-diagonals
template <auto Inner>
[[gnu::always_inline]] inline void tbmv_shape(const char* name, const char* uplo, const char* trans, const char* diag,
                                              const int* n, const int* k, const auto* a, const int* lda, auto* x,
                                              const int* incx)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_tbmv(name, uplo, trans, diag, n, k, lda, incx)) return;
    const i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx;
    run_traced(verbose, mode,
        [&] { call_inner<Inner>(uplo, trans, diag, &n64, &k64, typed(a), &lda64, typed(x), &incx64); },
        name, "(%c,%c,%c,%d,%d,%p,%d,%p,%d)", uplo, trans, diag, n, k, a, lda, x, incx);
}

// The same, packed storage
template <auto Inner>
[[gnu::always_inline]] inline void tpmv_shape(const char* name, const char* uplo, const char* trans, const char* diag,
                                              const int* n, const auto* ap, auto* x, const int* incx)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_tpmv(name, uplo, trans, diag, n, incx)) return;
    const i64 n64 = *n, incx64 = *incx;
    run_traced(verbose, mode, [&] { call_inner<Inner>(uplo, trans, diag, &n64, typed(ap), typed(x), &incx64); },
        name, "(%c,%c,%c,%d,%p,%p,%d)", uplo, trans, diag, n, ap, x, incx);
}

}  // namespace orv
