// Level-2 exports: each is its shape's entry sequence (level2_shapes.h)
// around its threaded driver or, where the routine has none, its dispatched
// family member.

#include "interface/level2_shapes.h"
#include "level2/dispatch.h"
#include "level2/gemv_driver.h"
#include "level2/ger_driver.h"
#include "level2/symv_driver.h"
#include "level2/trmv_driver.h"
#include "level2/syr_driver.h"
#include "orv.h"

using orv::Level2Kernels;

// General matrix-vector products.

extern "C" void dgemv_(const char* trans, const int* m, const int* n, const double* alpha, const double* a,
                       const int* lda, const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    orv::gemv_shape<orv_blas_dgemv>("DGEMV ", trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void zgemv_(const char* trans, const int* m, const int* n, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    orv::gemv_shape<orv_blas_zgemv>("ZGEMV ", trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void dgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const double* alpha,
                       const double* a, const int* lda, const double* x, const int* incx, const double* beta, double* y,
                       const int* incy)
{
    orv::gbmv_shape<&Level2Kernels::dgbmv>("DGBMV ", trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void zgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const void* alpha,
                       const void* a, const int* lda, const void* x, const int* incx, const void* beta, void* y,
                       const int* incy)
{
    orv::gbmv_shape<&Level2Kernels::zgbmv>("ZGBMV ", trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

// General rank-1 updates.

extern "C" void dger_(const int* m, const int* n, const double* alpha, const double* x, const int* incx,
                      const double* y, const int* incy, double* a, const int* lda)
{
    orv::ger_shape<orv_blas_dger>("DGER  ", m, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void zgeru_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::ger_shape<orv_blas_zgeru>("ZGERU ", m, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void zgerc_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::ger_shape<orv_blas_zgerc>("ZGERC ", m, n, alpha, x, incx, y, incy, a, lda);
}

// Symmetric and Hermitian matrix-vector products.

extern "C" void dsymv_(const char* uplo, const int* n, const double* alpha, const double* a, const int* lda,
                       const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    orv::symv_shape<orv_blas_dsymv>("DSYMV ", uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void zhemv_(const char* uplo, const int* n, const void* alpha, const void* a, const int* lda, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    orv::symv_shape<&Level2Kernels::zhemv>("ZHEMV ", uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void dsbmv_(const char* uplo, const int* n, const int* k, const double* alpha, const double* a,
                       const int* lda, const double* x, const int* incx, const double* beta, double* y, const int* incy)
{
    orv::sbmv_shape<&Level2Kernels::dsbmv>("DSBMV ", uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void zhbmv_(const char* uplo, const int* n, const int* k, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    orv::sbmv_shape<&Level2Kernels::zhbmv>("ZHBMV ", uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void dspmv_(const char* uplo, const int* n, const double* alpha, const double* ap, const double* x,
                       const int* incx, const double* beta, double* y, const int* incy)
{
    orv::spmv_shape<&Level2Kernels::dspmv>("DSPMV ", uplo, n, alpha, ap, x, incx, beta, y, incy);
}

extern "C" void zhpmv_(const char* uplo, const int* n, const void* alpha, const void* ap, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    orv::spmv_shape<&Level2Kernels::zhpmv>("ZHPMV ", uplo, n, alpha, ap, x, incx, beta, y, incy);
}

// Symmetric and Hermitian rank-1 and rank-2 updates.

extern "C" void dsyr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* a,
                      const int* lda)
{
    orv::syr_shape<orv_blas_dsyr>("DSYR  ", uplo, n, alpha, x, incx, a, lda);
}

extern "C" void zher_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* a,
                      const int* lda)
{
    orv::syr_shape<&Level2Kernels::zher>("ZHER  ", uplo, n, alpha, x, incx, a, lda);
}

extern "C" void dsyr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                       const double* y, const int* incy, double* a, const int* lda)
{
    orv::syr2_shape<orv_blas_dsyr2>("DSYR2 ", uplo, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void zher2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::syr2_shape<&Level2Kernels::zher2>("ZHER2 ", uplo, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void dspr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* ap)
{
    orv::spr_shape<&Level2Kernels::dspr>("DSPR  ", uplo, n, alpha, x, incx, ap);
}

extern "C" void zhpr_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* ap)
{
    orv::spr_shape<&Level2Kernels::zhpr>("ZHPR  ", uplo, n, alpha, x, incx, ap);
}

extern "C" void dspr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                       const double* y, const int* incy, double* ap)
{
    orv::spr2_shape<&Level2Kernels::dspr2>("DSPR2 ", uplo, n, alpha, x, incx, y, incy, ap);
}

extern "C" void zhpr2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* ap)
{
    orv::spr2_shape<&Level2Kernels::zhpr2>("ZHPR2 ", uplo, n, alpha, x, incx, y, incy, ap);
}

// Triangular products and solves.

extern "C" void dtrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                       const int* lda, double* x, const int* incx)
{
    orv::trmv_shape<orv_blas_dtrmv>("DTRMV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void ztrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::trmv_shape<orv_blas_ztrmv>("ZTRMV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void dtrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                       const int* lda, double* x, const int* incx)
{
    orv::trmv_shape<orv_blas_dtrsv>("DTRSV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void ztrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::trmv_shape<orv_blas_ztrsv>("ZTRSV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void dtbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const double* a, const int* lda, double* x, const int* incx)
{
    orv::tbmv_shape<&Level2Kernels::dtbmv>("DTBMV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void ztbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::tbmv_shape<&Level2Kernels::ztbmv>("ZTBMV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void dtbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const double* a, const int* lda, double* x, const int* incx)
{
    orv::tbmv_shape<&Level2Kernels::dtbsv>("DTBSV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void ztbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::tbmv_shape<&Level2Kernels::ztbsv>("ZTBSV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void dtpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                       const int* incx)
{
    orv::tpmv_shape<&Level2Kernels::dtpmv>("DTPMV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void ztpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    orv::tpmv_shape<&Level2Kernels::ztpmv>("ZTPMV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void dtpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                       const int* incx)
{
    orv::tpmv_shape<&Level2Kernels::dtpsv>("DTPSV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void ztpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    orv::tpmv_shape<&Level2Kernels::ztpsv>("ZTPSV ", uplo, trans, diag, n, ap, x, incx);
}
