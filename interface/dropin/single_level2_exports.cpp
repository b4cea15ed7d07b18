// Level-2 exports of the single-precision and single-complex routines: each
// is its shape's entry sequence (level2_shapes.h) around its single-thread
// member.

#include "blas.h"
#include "interface/level2_shapes.h"
#include "level2/level2.h"

namespace plain = orv::plain;

// General matrix-vector products.

extern "C" void sgemv_(const char* trans, const int* m, const int* n, const float* alpha, const float* a,
                       const int* lda, const float* x, const int* incx, const float* beta, float* y, const int* incy)
{
    orv::gemv_shape<&plain::sgemv>("SGEMV ", trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void cgemv_(const char* trans, const int* m, const int* n, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    orv::gemv_shape<&plain::cgemv>("CGEMV ", trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void sgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const float* alpha,
                       const float* a, const int* lda, const float* x, const int* incx, const float* beta, float* y,
                       const int* incy)
{
    orv::gbmv_shape<&plain::sgbmv>("SGBMV ", trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void cgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const void* alpha,
                       const void* a, const int* lda, const void* x, const int* incx, const void* beta, void* y,
                       const int* incy)
{
    orv::gbmv_shape<&plain::cgbmv>("CGBMV ", trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

// General rank-1 updates.

extern "C" void sger_(const int* m, const int* n, const float* alpha, const float* x, const int* incx,
                      const float* y, const int* incy, float* a, const int* lda)
{
    orv::ger_shape<&plain::sger>("SGER  ", m, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void cgeru_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::ger_shape<&plain::cgeru>("CGERU ", m, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void cgerc_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::ger_shape<&plain::cgerc>("CGERC ", m, n, alpha, x, incx, y, incy, a, lda);
}

// Symmetric and Hermitian matrix-vector products.

extern "C" void ssymv_(const char* uplo, const int* n, const float* alpha, const float* a, const int* lda,
                       const float* x, const int* incx, const float* beta, float* y, const int* incy)
{
    orv::symv_shape<&plain::ssymv>("SSYMV ", uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void chemv_(const char* uplo, const int* n, const void* alpha, const void* a, const int* lda, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    orv::symv_shape<&plain::chemv>("CHEMV ", uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void ssbmv_(const char* uplo, const int* n, const int* k, const float* alpha, const float* a,
                       const int* lda, const float* x, const int* incx, const float* beta, float* y, const int* incy)
{
    orv::sbmv_shape<&plain::ssbmv>("SSBMV ", uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void chbmv_(const char* uplo, const int* n, const int* k, const void* alpha, const void* a, const int* lda,
                       const void* x, const int* incx, const void* beta, void* y, const int* incy)
{
    orv::sbmv_shape<&plain::chbmv>("CHBMV ", uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

extern "C" void sspmv_(const char* uplo, const int* n, const float* alpha, const float* ap, const float* x,
                       const int* incx, const float* beta, float* y, const int* incy)
{
    orv::spmv_shape<&plain::sspmv>("SSPMV ", uplo, n, alpha, ap, x, incx, beta, y, incy);
}

extern "C" void chpmv_(const char* uplo, const int* n, const void* alpha, const void* ap, const void* x,
                       const int* incx, const void* beta, void* y, const int* incy)
{
    orv::spmv_shape<&plain::chpmv>("CHPMV ", uplo, n, alpha, ap, x, incx, beta, y, incy);
}

// Symmetric and Hermitian rank-1 and rank-2 updates.

extern "C" void ssyr_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx, float* a,
                      const int* lda)
{
    orv::syr_shape<&plain::ssyr>("SSYR  ", uplo, n, alpha, x, incx, a, lda);
}

extern "C" void cher_(const char* uplo, const int* n, const float* alpha, const void* x, const int* incx, void* a,
                      const int* lda)
{
    orv::syr_shape<&plain::cher>("CHER  ", uplo, n, alpha, x, incx, a, lda);
}

extern "C" void ssyr2_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx,
                       const float* y, const int* incy, float* a, const int* lda)
{
    orv::syr2_shape<&plain::ssyr2>("SSYR2 ", uplo, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void cher2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* a, const int* lda)
{
    orv::syr2_shape<&plain::cher2>("CHER2 ", uplo, n, alpha, x, incx, y, incy, a, lda);
}

extern "C" void sspr_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx, float* ap)
{
    orv::spr_shape<&plain::sspr>("SSPR  ", uplo, n, alpha, x, incx, ap);
}

extern "C" void chpr_(const char* uplo, const int* n, const float* alpha, const void* x, const int* incx, void* ap)
{
    orv::spr_shape<&plain::chpr>("CHPR  ", uplo, n, alpha, x, incx, ap);
}

extern "C" void sspr2_(const char* uplo, const int* n, const float* alpha, const float* x, const int* incx,
                       const float* y, const int* incy, float* ap)
{
    orv::spr2_shape<&plain::sspr2>("SSPR2 ", uplo, n, alpha, x, incx, y, incy, ap);
}

extern "C" void chpr2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                       const int* incy, void* ap)
{
    orv::spr2_shape<&plain::chpr2>("CHPR2 ", uplo, n, alpha, x, incx, y, incy, ap);
}

// Triangular products and solves.

extern "C" void strmv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* a,
                       const int* lda, float* x, const int* incx)
{
    orv::trmv_shape<&plain::strmv>("STRMV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void ctrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::trmv_shape<&plain::ctrmv>("CTRMV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void strsv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* a,
                       const int* lda, float* x, const int* incx)
{
    orv::trmv_shape<&plain::strsv>("STRSV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void ctrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::trmv_shape<&plain::ctrsv>("CTRSV ", uplo, trans, diag, n, a, lda, x, incx);
}

extern "C" void stbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const float* a, const int* lda, float* x, const int* incx)
{
    orv::tbmv_shape<&plain::stbmv>("STBMV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void ctbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::tbmv_shape<&plain::ctbmv>("CTBMV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void stbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
                       const float* a, const int* lda, float* x, const int* incx)
{
    orv::tbmv_shape<&plain::stbsv>("STBSV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void ctbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                       const int* lda, void* x, const int* incx)
{
    orv::tbmv_shape<&plain::ctbsv>("CTBSV ", uplo, trans, diag, n, k, a, lda, x, incx);
}

extern "C" void stpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* ap, float* x,
                       const int* incx)
{
    orv::tpmv_shape<&plain::stpmv>("STPMV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void ctpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    orv::tpmv_shape<&plain::ctpmv>("CTPMV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void stpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const float* ap, float* x,
                       const int* incx)
{
    orv::tpmv_shape<&plain::stpsv>("STPSV ", uplo, trans, diag, n, ap, x, incx);
}

extern "C" void ctpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                       const int* incx)
{
    orv::tpmv_shape<&plain::ctpsv>("CTPSV ", uplo, trans, diag, n, ap, x, incx);
}
