// Exports of the level-3 routines: check the arguments, widen the integers,
// run the routine and trace the call.

#include "interface/checkers.h"
#include "interface/entry.h"
#include "level3/dispatch.h"
#include "orv.h"

namespace {

// Complex arrays and scalars cross the interface as void pointers.
const orv::dcomplex* as_z(const void* p) { return static_cast<const orv::dcomplex*>(p); }
orv::dcomplex* as_z(void* p) { return static_cast<orv::dcomplex*>(p); }

}  // namespace

extern "C" void dgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const double* alpha, const double* a, const int* lda, const double* b, const int* ldb,
                       const double* beta, double* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gemm("DGEMM ", transa, transb, m, n, k, lda, ldb, ldc)) return;
    const orv::i64 m64 = *m, n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dgemm>(transa, transb, &m64, &n64, &k64, alpha, a, &lda64, b, &ldb64, beta, c, &ldc64); },
        [&](char* text) { orv::format_call_text(text, "DGEMM(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *transa, *transb,
                                                *m, *n, *k, (const void*)alpha, (const void*)a, *lda, (const void*)b,
                                                *ldb, (const void*)beta, (const void*)c, *ldc); });
}

extern "C" void zgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const void* alpha, const void* a, const int* lda, const void* b, const int* ldb,
                       const void* beta, void* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gemm("ZGEMM ", transa, transb, m, n, k, lda, ldb, ldc)) return;
    const orv::i64 m64 = *m, n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zgemm>(transa, transb, &m64, &n64, &k64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64,
                              as_z(beta), as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZGEMM(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *transa, *transb,
                                                *m, *n, *k, alpha, a, *lda, b, *ldb, beta, c, *ldc); });
}

extern "C" void dsymm_(const char* side, const char* uplo, const int* m, const int* n, const double* alpha,
                       const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
                       const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_symm("DSYMM ", side, uplo, m, n, lda, ldb, ldc)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dsymm>(side, uplo, &m64, &n64, alpha, a, &lda64, b, &ldb64, beta, c, &ldc64); },
        [&](char* text) { orv::format_call_text(text, "DSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *side, *uplo, *m,
                                                *n, (const void*)alpha, (const void*)a, *lda, (const void*)b, *ldb,
                                                (const void*)beta, (const void*)c, *ldc); });
}

extern "C" void zsymm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_symm("ZSYMM ", side, uplo, m, n, lda, ldb, ldc)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zsymm>(side, uplo, &m64, &n64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64, as_z(beta),
                              as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *side, *uplo, *m,
                                                *n, alpha, a, *lda, b, *ldb, beta, c, *ldc); });
}

extern "C" void zhemm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_symm("ZHEMM ", side, uplo, m, n, lda, ldb, ldc)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zhemm>(side, uplo, &m64, &n64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64, as_z(beta),
                              as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZHEMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *side, *uplo, *m,
                                                *n, alpha, a, *lda, b, *ldb, beta, c, *ldc); });
}

extern "C" void dsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                       const double* a, const int* lda, const double* beta, double* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syrk("DSYRK ", orv::kTransNTC, uplo, trans, n, k, lda, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dsyrk>(uplo, trans, &n64, &k64, alpha, a, &lda64, beta, c, &ldc64); },
        [&](char* text) { orv::format_call_text(text, "DSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)", *uplo, *trans, *n, *k,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)beta,
                                                (const void*)c, *ldc); });
}

extern "C" void zsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                       const void* a, const int* lda, const void* beta, void* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syrk("ZSYRK ", orv::kTransNT, uplo, trans, n, k, lda, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zsyrk>(uplo, trans, &n64, &k64, as_z(alpha), as_z(a), &lda64, as_z(beta), as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)", *uplo, *trans, *n, *k,
                                                alpha, a, *lda, beta, c, *ldc); });
}

extern "C" void zherk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                       const void* a, const int* lda, const double* beta, void* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syrk("ZHERK ", orv::kTransNC, uplo, trans, n, k, lda, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zherk>(uplo, trans, &n64, &k64, alpha, as_z(a), &lda64, beta, as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZHERK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)", *uplo, *trans, *n, *k,
                                                (const void*)alpha, a, *lda, (const void*)beta, c, *ldc); });
}

extern "C" void dsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                        const double* a, const int* lda, const double* b, const int* ldb, const double* beta,
                        double* c, const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr2k("DSYR2K", orv::kTransNTC, uplo, trans, n, k, lda, ldb, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dsyr2k>(uplo, trans, &n64, &k64, alpha, a, &lda64, b, &ldb64, beta, c, &ldc64); },
        [&](char* text) { orv::format_call_text(text, "DSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *trans,
                                                *n, *k, (const void*)alpha, (const void*)a, *lda, (const void*)b,
                                                *ldb, (const void*)beta, (const void*)c, *ldc); });
}

extern "C" void zsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const void* beta, void* c,
                        const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr2k("ZSYR2K", orv::kTransNT, uplo, trans, n, k, lda, ldb, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zsyr2k>(uplo, trans, &n64, &k64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64, as_z(beta),
                               as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *trans,
                                                *n, *k, alpha, a, *lda, b, *ldb, beta, c, *ldc); });
}

extern "C" void zher2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const double* beta, void* c,
                        const int* ldc)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr2k("ZHER2K", orv::kTransNC, uplo, trans, n, k, lda, ldb, ldc)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, ldb64 = *ldb, ldc64 = *ldc;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::zher2k>(uplo, trans, &n64, &k64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64, beta,
                               as_z(c), &ldc64); },
        [&](char* text) { orv::format_call_text(text, "ZHER2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *trans,
                                                *n, *k, alpha, a, *lda, b, *ldb, (const void*)beta, c, *ldc); });
}

extern "C" void dtrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmm("DTRMM ", side, uplo, transa, diag, m, n, lda, ldb)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dtrmm>(side, uplo, transa, diag, &m64, &n64, alpha, a, &lda64, b, &ldb64); },
        [&](char* text) { orv::format_call_text(text, "DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)", *side, *uplo,
                                                *transa, *diag, *m, *n, (const void*)alpha, (const void*)a, *lda,
                                                (const void*)b, *ldb); });
}

extern "C" void ztrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmm("ZTRMM ", side, uplo, transa, diag, m, n, lda, ldb)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::ztrmm>(side, uplo, transa, diag, &m64, &n64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64); },
        [&](char* text) { orv::format_call_text(text, "ZTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)", *side, *uplo,
                                                *transa, *diag, *m, *n, alpha, a, *lda, b, *ldb); });
}

extern "C" void dtrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmm("DTRSM ", side, uplo, transa, diag, m, n, lda, ldb)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::dtrsm>(side, uplo, transa, diag, &m64, &n64, alpha, a, &lda64, b, &ldb64); },
        [&](char* text) { orv::format_call_text(text, "DTRSM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)", *side, *uplo,
                                                *transa, *diag, *m, *n, (const void*)alpha, (const void*)a, *lda,
                                                (const void*)b, *ldb); });
}

extern "C" void ztrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmm("ZTRSM ", side, uplo, transa, diag, m, n, lda, ldb)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, ldb64 = *ldb;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level3Kernels::ztrsm>(side, uplo, transa, diag, &m64, &n64, as_z(alpha), as_z(a), &lda64, as_z(b), &ldb64); },
        [&](char* text) { orv::format_call_text(text, "ZTRSM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)", *side, *uplo,
                                                *transa, *diag, *m, *n, alpha, a, *lda, b, *ldb); });
}
