// The entry sequence of the level-3 exports, once per argument-list shape.
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

// C := alpha * op(A) * op(B) + beta * C
template <auto Inner>
[[gnu::always_inline]] inline void gemm_shape(const char* name, const char* transa, const char* transb, const int* m,
                                              const int* n, const int* k, const auto* alpha, const auto* a,
                                              const int* lda, const auto* b, const int* ldb, const auto* beta,
                                              auto* c, const int* ldc)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_gemm(name, transa, transb, m, n, k, lda, ldb, ldc)) return;
    const i64 m64 = *m, n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(transa, transb, &m64, &n64, &k64, typed(alpha), typed(a), &lda64, typed(b), &ldb64,
                              typed(beta), typed(c), &ldc64);
        },
        name, "(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

// C := alpha * A * B + beta * C or alpha * B * A + beta * C, A symmetric or Hermitian
template <auto Inner>
[[gnu::always_inline]] inline void symm_shape(const char* name, const char* side, const char* uplo, const int* m,
                                              const int* n, const auto* alpha, const auto* a, const int* lda,
                                              const auto* b, const int* ldb, const auto* beta, auto* c,
                                              const int* ldc)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_symm(name, side, uplo, m, n, lda, ldb, ldc)) return;
    const i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(side, uplo, &m64, &n64, typed(alpha), typed(a), &lda64, typed(b), &ldb64, typed(beta),
                              typed(c), &ldc64);
        },
        name, "(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

// C := alpha * op(A) * op(A)^T + beta * C (^H for the Hermitian update);
// `trans_set` holds the trans letters the routine accepts.
template <auto Inner>
[[gnu::always_inline]] inline void syrk_shape(const char* name, const char* trans_set, const char* uplo,
                                              const char* trans, const int* n, const int* k, const auto* alpha,
                                              const auto* a, const int* lda, const auto* beta, auto* c,
                                              const int* ldc)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_syrk(name, trans_set, uplo, trans, n, k, lda, ldc)) return;
    const i64 n64 = *n, k64 = *k, lda64 = *lda, ldc64 = *ldc;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, trans, &n64, &k64, typed(alpha), typed(a), &lda64, typed(beta), typed(c),
                              &ldc64);
        },
        name, "(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)", uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

// C := alpha * op(A) * op(B)^T + alpha * op(B) * op(A)^T + beta * C (and the
// Hermitian form); `trans_set` as for syrk_shape.
template <auto Inner>
[[gnu::always_inline]] inline void syr2k_shape(const char* name, const char* trans_set, const char* uplo,
                                               const char* trans, const int* n, const int* k, const auto* alpha,
                                               const auto* a, const int* lda, const auto* b, const int* ldb,
                                               const auto* beta, auto* c, const int* ldc)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_syr2k(name, trans_set, uplo, trans, n, k, lda, ldb, ldc)) return;
    const i64 n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(uplo, trans, &n64, &k64, typed(alpha), typed(a), &lda64, typed(b), &ldb64,
                              typed(beta), typed(c), &ldc64);
        },
        name, "(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

// B := alpha * op(A) * B or alpha * B * op(A), and the solves, A triangular
template <auto Inner>
[[gnu::always_inline]] inline void trmm_shape(const char* name, const char* side, const char* uplo,
                                              const char* transa, const char* diag, const int* m, const int* n,
                                              const auto* alpha, const auto* a, const int* lda, auto* b,
                                              const int* ldb)
{
    static const int* verbose = &kVerboseUnknown;
    register_default_error_handler();
    const int mode = entry_mode(verbose);
    if (check_trmm(name, side, uplo, transa, diag, m, n, lda, ldb)) return;
    const i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb;
    run_traced(verbose, mode,
        [&] {
            call_inner<Inner>(side, uplo, transa, diag, &m64, &n64, typed(alpha), typed(a), &lda64, typed(b),
                              &ldb64);
        },
        name, "(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

}  // namespace orv
