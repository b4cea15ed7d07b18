// Level-2 exports: validate, widen the integers, run the routine, trace.

#include "interface/checkers.h"
#include "interface/entry.h"
#include "level2/dispatch.h"
#include "orv.h"

namespace {

// Complex arguments arrive as untyped addresses of (re, im) pairs.
const orv::dcomplex* cz(const void* p) { return static_cast<const orv::dcomplex*>(p); }
orv::dcomplex* wz(void* p) { return static_cast<orv::dcomplex*>(p); }

}  // namespace

// General matrix-vector products.

extern "C" void dgemv_(const char* trans, const int* m, const int* n, const double* alpha, const double* a,
                       const int* lda, const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gemv("DGEMV ", trans, m, n, lda, incx, incy)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dgemv>(trans, &m64, &n64, alpha, a, &lda64, x, &incx64, beta, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DGEMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *trans, *m, *n,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void zgemv_(const char* trans, const int* m, const int* n, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gemv("ZGEMV ", trans, m, n, lda, incx, incy)) return;
    const orv::i64 m64 = *m, n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zgemv>(trans, &m64, &n64, cz(alpha), cz(a), &lda64, cz(x), &incx64, cz(beta), wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZGEMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *trans, *m, *n,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void dgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const double* alpha,
                       const double* a, const int* lda, const double* x, const int* incx, const double* beta, double* y,
                       const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gbmv("DGBMV ", trans, m, n, kl, ku, lda, incx, incy)) return;
    const orv::i64 m64 = *m, n64 = *n, kl64 = *kl, ku64 = *ku, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dgbmv>(trans, &m64, &n64, &kl64, &ku64, alpha, a, &lda64, x, &incx64, beta, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DGBMV(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *trans, *m, *n,
                                                *kl, *ku, (const void*)alpha, (const void*)a, *lda, (const void*)x,
                                                *incx, (const void*)beta, (const void*)y, *incy); });
}

extern "C" void zgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const void* alpha,
                       const void* a, const int* lda, const void* x, const int* incx, const void* beta, void* y,
                       const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_gbmv("ZGBMV ", trans, m, n, kl, ku, lda, incx, incy)) return;
    const orv::i64 m64 = *m, n64 = *n, kl64 = *kl, ku64 = *ku, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zgbmv>(trans, &m64, &n64, &kl64, &ku64, cz(alpha), cz(a), &lda64, cz(x), &incx64, cz(beta),
                              wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZGBMV(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *trans, *m, *n,
                                                *kl, *ku, (const void*)alpha, (const void*)a, *lda, (const void*)x,
                                                *incx, (const void*)beta, (const void*)y, *incy); });
}

// General rank-1 updates.

extern "C" void dger_(const int* m, const int* n, const double* alpha, const double* x, const int* incx,
                      const double* y, const int* incy, double* a, const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_ger("DGER  ", m, n, incx, incy, lda)) return;
    const orv::i64 m64 = *m, n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dger>(&m64, &n64, alpha, x, &incx64, y, &incy64, a, &lda64); },
        [&](char* text) { orv::format_call_text(text, "DGER(%d,%d,%p,%p,%d,%p,%d,%p,%d)", *m, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy, (const void*)a, *lda); });
}

extern "C" void zgeru_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_ger("ZGERU ", m, n, incx, incy, lda)) return;
    const orv::i64 m64 = *m, n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zgeru>(&m64, &n64, cz(alpha), cz(x), &incx64, cz(y), &incy64, wz(a), &lda64); },
        [&](char* text) { orv::format_call_text(text, "ZGERU(%d,%d,%p,%p,%d,%p,%d,%p,%d)", *m, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy, (const void*)a, *lda); });
}

extern "C" void zgerc_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_ger("ZGERC ", m, n, incx, incy, lda)) return;
    const orv::i64 m64 = *m, n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zgerc>(&m64, &n64, cz(alpha), cz(x), &incx64, cz(y), &incy64, wz(a), &lda64); },
        [&](char* text) { orv::format_call_text(text, "ZGERC(%d,%d,%p,%p,%d,%p,%d,%p,%d)", *m, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy, (const void*)a, *lda); });
}

// Symmetric and Hermitian matrix-vector products.

extern "C" void dsymv_(const char* uplo, const int* n, const double* alpha, const double* a, const int* lda,
                       const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_symv("DSYMV ", uplo, n, lda, incx, incy)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dsymv>(uplo, &n64, alpha, a, &lda64, x, &incx64, beta, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DSYMV(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void zhemv_(const char* uplo, const int* n, const void* alpha, const void* a, const int* lda, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_symv("ZHEMV ", uplo, n, lda, incx, incy)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zhemv>(uplo, &n64, cz(alpha), cz(a), &lda64, cz(x), &incx64, cz(beta), wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZHEMV(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void dsbmv_(const char* uplo, const int* n, const int* k, const double* alpha, const double* a,
                       const int* lda, const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_sbmv("DSBMV ", uplo, n, k, lda, incx, incy)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dsbmv>(uplo, &n64, &k64, alpha, a, &lda64, x, &incx64, beta, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DSBMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *n, *k,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void zhbmv_(const char* uplo, const int* n, const int* k, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_sbmv("ZHBMV ", uplo, n, k, lda, incx, incy)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zhbmv>(uplo, &n64, &k64, cz(alpha), cz(a), &lda64, cz(x), &incx64, cz(beta), wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZHBMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)", *uplo, *n, *k,
                                                (const void*)alpha, (const void*)a, *lda, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void dspmv_(const char* uplo, const int* n, const double* alpha, const double* ap, const double* x,
                       const int* incx, const double* beta, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spmv("DSPMV ", uplo, n, incx, incy)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dspmv>(uplo, &n64, alpha, ap, x, &incx64, beta, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DSPMV(%c,%d,%p,%p,%p,%d,%p,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)ap, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

extern "C" void zhpmv_(const char* uplo, const int* n, const void* alpha, const void* ap, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spmv("ZHPMV ", uplo, n, incx, incy)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zhpmv>(uplo, &n64, cz(alpha), cz(ap), cz(x), &incx64, cz(beta), wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZHPMV(%c,%d,%p,%p,%p,%d,%p,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)ap, (const void*)x, *incx,
                                                (const void*)beta, (const void*)y, *incy); });
}

// Symmetric and Hermitian rank-1 and rank-2 updates.

extern "C" void dsyr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* a,
                      const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr("DSYR  ", uplo, n, incx, lda)) return;
    const orv::i64 n64 = *n, incx64 = *incx, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dsyr>(uplo, &n64, alpha, x, &incx64, a, &lda64); },
        [&](char* text) { orv::format_call_text(text, "DSYR(%c,%d,%p,%p,%d,%p,%d)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)a, *lda); });
}

extern "C" void zher_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* a,
                      const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr("ZHER  ", uplo, n, incx, lda)) return;
    const orv::i64 n64 = *n, incx64 = *incx, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zher>(uplo, &n64, alpha, cz(x), &incx64, wz(a), &lda64); },
        [&](char* text) { orv::format_call_text(text, "ZHER(%c,%d,%p,%p,%d,%p,%d)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)a, *lda); });
}

extern "C" void dsyr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                       const double* y, const int* incy, double* a, const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr2("DSYR2 ", uplo, n, incx, incy, lda)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dsyr2>(uplo, &n64, alpha, x, &incx64, y, &incy64, a, &lda64); },
        [&](char* text) { orv::format_call_text(text, "DSYR2(%c,%d,%p,%p,%d,%p,%d,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)x, *incx, (const void*)y, *incy,
                                                (const void*)a, *lda); });
}

extern "C" void zher2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_syr2("ZHER2 ", uplo, n, incx, incy, lda)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy, lda64 = *lda;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zher2>(uplo, &n64, cz(alpha), cz(x), &incx64, cz(y), &incy64, wz(a), &lda64); },
        [&](char* text) { orv::format_call_text(text, "ZHER2(%c,%d,%p,%p,%d,%p,%d,%p,%d)", *uplo, *n,
                                                (const void*)alpha, (const void*)x, *incx, (const void*)y, *incy,
                                                (const void*)a, *lda); });
}

extern "C" void dspr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* ap)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spr("DSPR  ", uplo, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dspr>(uplo, &n64, alpha, x, &incx64, ap); },
        [&](char* text) { orv::format_call_text(text, "DSPR(%c,%d,%p,%p,%d,%p)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)ap); });
}

extern "C" void zhpr_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* ap)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spr("ZHPR  ", uplo, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zhpr>(uplo, &n64, alpha, cz(x), &incx64, wz(ap)); },
        [&](char* text) { orv::format_call_text(text, "ZHPR(%c,%d,%p,%p,%d,%p)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)ap); });
}

extern "C" void dspr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                       const double* y, const int* incy, double* ap)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spr2("DSPR2 ", uplo, n, incx, incy)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dspr2>(uplo, &n64, alpha, x, &incx64, y, &incy64, ap); },
        [&](char* text) { orv::format_call_text(text, "DSPR2(%c,%d,%p,%p,%d,%p,%d,%p)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy, (const void*)ap); });
}

extern "C" void zhpr2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* ap)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_spr2("ZHPR2 ", uplo, n, incx, incy)) return;
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::zhpr2>(uplo, &n64, cz(alpha), cz(x), &incx64, cz(y), &incy64, wz(ap)); },
        [&](char* text) { orv::format_call_text(text, "ZHPR2(%c,%d,%p,%p,%d,%p,%d,%p)", *uplo, *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy, (const void*)ap); });
}

// Triangular products and solves.

extern "C" void dtrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                       const int* lda, double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmv("DTRMV ", uplo, trans, diag, n, lda, incx)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtrmv>(uplo, trans, diag, &n64, a, &lda64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void ztrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmv("ZTRMV ", uplo, trans, diag, n, lda, incx)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztrmv>(uplo, trans, diag, &n64, cz(a), &lda64, wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTRMV(%c,%c,%c,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void dtrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                       const int* lda, double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmv("DTRSV ", uplo, trans, diag, n, lda, incx)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtrsv>(uplo, trans, diag, &n64, a, &lda64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTRSV(%c,%c,%c,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void ztrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_trmv("ZTRSV ", uplo, trans, diag, n, lda, incx)) return;
    const orv::i64 n64 = *n, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztrsv>(uplo, trans, diag, &n64, cz(a), &lda64, wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTRSV(%c,%c,%c,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void dtbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const double* a, const int* lda, double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tbmv("DTBMV ", uplo, trans, diag, n, k, lda, incx)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtbmv>(uplo, trans, diag, &n64, &k64, a, &lda64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n, *k,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void ztbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tbmv("ZTBMV ", uplo, trans, diag, n, k, lda, incx)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztbmv>(uplo, trans, diag, &n64, &k64, cz(a), &lda64, wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n, *k,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void dtbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const double* a, const int* lda, double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tbmv("DTBSV ", uplo, trans, diag, n, k, lda, incx)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtbsv>(uplo, trans, diag, &n64, &k64, a, &lda64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTBSV(%c,%c,%c,%d,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n, *k,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void ztbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tbmv("ZTBSV ", uplo, trans, diag, n, k, lda, incx)) return;
    const orv::i64 n64 = *n, k64 = *k, lda64 = *lda, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztbsv>(uplo, trans, diag, &n64, &k64, cz(a), &lda64, wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTBSV(%c,%c,%c,%d,%d,%p,%d,%p,%d)", *uplo, *trans, *diag, *n, *k,
                                                (const void*)a, *lda, (const void*)x, *incx); });
}

extern "C" void dtpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                       const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tpmv("DTPMV ", uplo, trans, diag, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtpmv>(uplo, trans, diag, &n64, ap, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTPMV(%c,%c,%c,%d,%p,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)ap, (const void*)x, *incx); });
}

extern "C" void ztpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tpmv("ZTPMV ", uplo, trans, diag, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztpmv>(uplo, trans, diag, &n64, cz(ap), wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTPMV(%c,%c,%c,%d,%p,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)ap, (const void*)x, *incx); });
}

extern "C" void dtpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                       const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tpmv("DTPSV ", uplo, trans, diag, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::dtpsv>(uplo, trans, diag, &n64, ap, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DTPSV(%c,%c,%c,%d,%p,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)ap, (const void*)x, *incx); });
}

extern "C" void ztpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    orv::register_default_error_handler();
    const int mode = orv::entry_mode(verbose);
    if (orv::check_tpmv("ZTPSV ", uplo, trans, diag, n, incx)) return;
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level2Kernels::ztpsv>(uplo, trans, diag, &n64, cz(ap), wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZTPSV(%c,%c,%c,%d,%p,%p,%d)", *uplo, *trans, *diag, *n,
                                                (const void*)ap, (const void*)x, *incx); });
}
