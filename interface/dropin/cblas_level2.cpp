// Level-2 C interface: each function is one use of its shape's template.

#include "interface/dropin/blas.h"
#include "interface/dropin/cblas_shapes.h"

using namespace orv::cblas;
using orv::dcomplex;
using orv::fcomplex;

extern "C" {

// General products.

ORV_API void cblas_sgemv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, float alpha, const float* a,
                         int lda, const float* x, int incx, float beta, float* y, int incy)
{
    gemv<float>(sgemv_, "cblas_sgemv", layout, trans, m, n, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_dgemv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, double alpha, const double* a,
                         int lda, const double* x, int incx, double beta, double* y, int incy)
{
    gemv<double>(dgemv_, "cblas_dgemv", layout, trans, m, n, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_cgemv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, const void* alpha, const void* a,
                         int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    gemv<fcomplex>(cgemv_, "cblas_cgemv", layout, trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}
ORV_API void cblas_zgemv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, const void* alpha, const void* a,
                         int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    gemv<dcomplex>(zgemv_, "cblas_zgemv", layout, trans, m, n, alpha, a, lda, x, incx, beta, y, incy);
}

ORV_API void cblas_sgbmv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku, float alpha,
                         const float* a, int lda, const float* x, int incx, float beta, float* y, int incy)
{
    gbmv<float>(sgbmv_, "cblas_sgbmv", layout, trans, m, n, kl, ku, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_dgbmv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku, double alpha,
                         const double* a, int lda, const double* x, int incx, double beta, double* y, int incy)
{
    gbmv<double>(dgbmv_, "cblas_dgbmv", layout, trans, m, n, kl, ku, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_cgbmv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku, const void* alpha,
                         const void* a, int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    gbmv<fcomplex>(cgbmv_, "cblas_cgbmv", layout, trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}
ORV_API void cblas_zgbmv(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku, const void* alpha,
                         const void* a, int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    gbmv<dcomplex>(zgbmv_, "cblas_zgbmv", layout, trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);
}

// Symmetric and Hermitian products.

ORV_API void cblas_ssymv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* a, int lda,
                         const float* x, int incx, float beta, float* y, int incy)
{
    symv<float>(ssymv_, "cblas_ssymv", layout, uplo, n, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_dsymv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* a, int lda,
                         const double* x, int incx, double beta, double* y, int incy)
{
    symv<double>(dsymv_, "cblas_dsymv", layout, uplo, n, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_chemv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* a, int lda,
                         const void* x, int incx, const void* beta, void* y, int incy)
{
    symv<fcomplex>(chemv_, "cblas_chemv", layout, uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}
ORV_API void cblas_zhemv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* a, int lda,
                         const void* x, int incx, const void* beta, void* y, int incy)
{
    symv<dcomplex>(zhemv_, "cblas_zhemv", layout, uplo, n, alpha, a, lda, x, incx, beta, y, incy);
}

ORV_API void cblas_ssbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, int k, float alpha, const float* a, int lda,
                         const float* x, int incx, float beta, float* y, int incy)
{
    sbmv<float>(ssbmv_, "cblas_ssbmv", layout, uplo, n, k, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_dsbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, int k, double alpha, const double* a, int lda,
                         const double* x, int incx, double beta, double* y, int incy)
{
    sbmv<double>(dsbmv_, "cblas_dsbmv", layout, uplo, n, k, &alpha, a, lda, x, incx, &beta, y, incy);
}
ORV_API void cblas_chbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, int k, const void* alpha, const void* a,
                         int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    sbmv<fcomplex>(chbmv_, "cblas_chbmv", layout, uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}
ORV_API void cblas_zhbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, int k, const void* alpha, const void* a,
                         int lda, const void* x, int incx, const void* beta, void* y, int incy)
{
    sbmv<dcomplex>(zhbmv_, "cblas_zhbmv", layout, uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);
}

ORV_API void cblas_sspmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* ap, const float* x,
                         int incx, float beta, float* y, int incy)
{
    spmv<float>(sspmv_, "cblas_sspmv", layout, uplo, n, &alpha, ap, x, incx, &beta, y, incy);
}
ORV_API void cblas_dspmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* ap,
                         const double* x, int incx, double beta, double* y, int incy)
{
    spmv<double>(dspmv_, "cblas_dspmv", layout, uplo, n, &alpha, ap, x, incx, &beta, y, incy);
}
ORV_API void cblas_chpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* ap,
                         const void* x, int incx, const void* beta, void* y, int incy)
{
    spmv<fcomplex>(chpmv_, "cblas_chpmv", layout, uplo, n, alpha, ap, x, incx, beta, y, incy);
}
ORV_API void cblas_zhpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* ap,
                         const void* x, int incx, const void* beta, void* y, int incy)
{
    spmv<dcomplex>(zhpmv_, "cblas_zhpmv", layout, uplo, n, alpha, ap, x, incx, beta, y, incy);
}

// Triangular products and solves.

ORV_API void cblas_strmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const float* a, int lda, float* x, int incx)
{
    trmv<float>(strmv_, "cblas_strmv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_dtrmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const double* a, int lda, double* x, int incx)
{
    trmv<double>(dtrmv_, "cblas_dtrmv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_ctrmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* a, int lda, void* x, int incx)
{
    trmv<fcomplex>(ctrmv_, "cblas_ctrmv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_ztrmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* a, int lda, void* x, int incx)
{
    trmv<dcomplex>(ztrmv_, "cblas_ztrmv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_strsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const float* a, int lda, float* x, int incx)
{
    trmv<float>(strsv_, "cblas_strsv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_dtrsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const double* a, int lda, double* x, int incx)
{
    trmv<double>(dtrsv_, "cblas_dtrsv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_ctrsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* a, int lda, void* x, int incx)
{
    trmv<fcomplex>(ctrsv_, "cblas_ctrsv", layout, uplo, trans, diag, n, a, lda, x, incx);
}
ORV_API void cblas_ztrsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* a, int lda, void* x, int incx)
{
    trmv<dcomplex>(ztrsv_, "cblas_ztrsv", layout, uplo, trans, diag, n, a, lda, x, incx);
}

ORV_API void cblas_stbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const float* a, int lda, float* x, int incx)
{
    tbmv<float>(stbmv_, "cblas_stbmv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_dtbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const double* a, int lda, double* x, int incx)
{
    tbmv<double>(dtbmv_, "cblas_dtbmv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_ctbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const void* a, int lda, void* x, int incx)
{
    tbmv<fcomplex>(ctbmv_, "cblas_ctbmv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_ztbmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const void* a, int lda, void* x, int incx)
{
    tbmv<dcomplex>(ztbmv_, "cblas_ztbmv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_stbsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const float* a, int lda, float* x, int incx)
{
    tbmv<float>(stbsv_, "cblas_stbsv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_dtbsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const double* a, int lda, double* x, int incx)
{
    tbmv<double>(dtbsv_, "cblas_dtbsv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_ctbsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const void* a, int lda, void* x, int incx)
{
    tbmv<fcomplex>(ctbsv_, "cblas_ctbsv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}
ORV_API void cblas_ztbsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,
                         const void* a, int lda, void* x, int incx)
{
    tbmv<dcomplex>(ztbsv_, "cblas_ztbsv", layout, uplo, trans, diag, n, k, a, lda, x, incx);
}

ORV_API void cblas_stpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const float* ap, float* x, int incx)
{
    tpmv<float>(stpmv_, "cblas_stpmv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_dtpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const double* ap, double* x, int incx)
{
    tpmv<double>(dtpmv_, "cblas_dtpmv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_ctpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* ap, void* x, int incx)
{
    tpmv<fcomplex>(ctpmv_, "cblas_ctpmv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_ztpmv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* ap, void* x, int incx)
{
    tpmv<dcomplex>(ztpmv_, "cblas_ztpmv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_stpsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const float* ap, float* x, int incx)
{
    tpmv<float>(stpsv_, "cblas_stpsv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_dtpsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const double* ap, double* x, int incx)
{
    tpmv<double>(dtpsv_, "cblas_dtpsv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_ctpsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* ap, void* x, int incx)
{
    tpmv<fcomplex>(ctpsv_, "cblas_ctpsv", layout, uplo, trans, diag, n, ap, x, incx);
}
ORV_API void cblas_ztpsv(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
                         const void* ap, void* x, int incx)
{
    tpmv<dcomplex>(ztpsv_, "cblas_ztpsv", layout, uplo, trans, diag, n, ap, x, incx);
}

// Rank-1 and rank-2 updates.

ORV_API void cblas_sger(CBLAS_LAYOUT layout, int m, int n, float alpha, const float* x, int incx, const float* y,
                        int incy, float* a, int lda)
{
    ger<float>(sger_, "cblas_sger", layout, m, n, &alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_dger(CBLAS_LAYOUT layout, int m, int n, double alpha, const double* x, int incx, const double* y,
                        int incy, double* a, int lda)
{
    ger<double>(dger_, "cblas_dger", layout, m, n, &alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_cgeru(CBLAS_LAYOUT layout, int m, int n, const void* alpha, const void* x, int incx, const void* y,
                         int incy, void* a, int lda)
{
    ger<fcomplex>(cgeru_, "cblas_cgeru", layout, m, n, alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_zgeru(CBLAS_LAYOUT layout, int m, int n, const void* alpha, const void* x, int incx, const void* y,
                         int incy, void* a, int lda)
{
    ger<dcomplex>(zgeru_, "cblas_zgeru", layout, m, n, alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_cgerc(CBLAS_LAYOUT layout, int m, int n, const void* alpha, const void* x, int incx, const void* y,
                         int incy, void* a, int lda)
{
    gerc<fcomplex>(cgerc_, cgeru_, "cblas_cgerc", layout, m, n, alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_zgerc(CBLAS_LAYOUT layout, int m, int n, const void* alpha, const void* x, int incx, const void* y,
                         int incy, void* a, int lda)
{
    gerc<dcomplex>(zgerc_, zgeru_, "cblas_zgerc", layout, m, n, alpha, x, incx, y, incy, a, lda);
}

ORV_API void cblas_ssyr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* x, int incx, float* a,
                        int lda)
{
    her<float>(ssyr_, "cblas_ssyr", layout, uplo, n, &alpha, x, incx, a, lda);
}
ORV_API void cblas_dsyr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* x, int incx,
                        double* a, int lda)
{
    her<double>(dsyr_, "cblas_dsyr", layout, uplo, n, &alpha, x, incx, a, lda);
}
ORV_API void cblas_cher(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const void* x, int incx, void* a,
                        int lda)
{
    her<fcomplex>(cher_, "cblas_cher", layout, uplo, n, &alpha, x, incx, a, lda);
}
ORV_API void cblas_zher(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const void* x, int incx, void* a,
                        int lda)
{
    her<dcomplex>(zher_, "cblas_zher", layout, uplo, n, &alpha, x, incx, a, lda);
}
ORV_API void cblas_sspr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* x, int incx, float* ap)
{
    her<float>(sspr_, "cblas_sspr", layout, uplo, n, &alpha, x, incx, ap);
}
ORV_API void cblas_dspr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* x, int incx,
                        double* ap)
{
    her<double>(dspr_, "cblas_dspr", layout, uplo, n, &alpha, x, incx, ap);
}
ORV_API void cblas_chpr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const void* x, int incx, void* ap)
{
    her<fcomplex>(chpr_, "cblas_chpr", layout, uplo, n, &alpha, x, incx, ap);
}
ORV_API void cblas_zhpr(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const void* x, int incx, void* ap)
{
    her<dcomplex>(zhpr_, "cblas_zhpr", layout, uplo, n, &alpha, x, incx, ap);
}

ORV_API void cblas_ssyr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* x, int incx,
                         const float* y, int incy, float* a, int lda)
{
    her2<float>(ssyr2_, "cblas_ssyr2", layout, uplo, n, &alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_dsyr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* x, int incx,
                         const double* y, int incy, double* a, int lda)
{
    her2<double>(dsyr2_, "cblas_dsyr2", layout, uplo, n, &alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_cher2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* x, int incx,
                         const void* y, int incy, void* a, int lda)
{
    her2<fcomplex>(cher2_, "cblas_cher2", layout, uplo, n, alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_zher2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* x, int incx,
                         const void* y, int incy, void* a, int lda)
{
    her2<dcomplex>(zher2_, "cblas_zher2", layout, uplo, n, alpha, x, incx, y, incy, a, lda);
}
ORV_API void cblas_sspr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, float alpha, const float* x, int incx,
                         const float* y, int incy, float* ap)
{
    her2<float>(sspr2_, "cblas_sspr2", layout, uplo, n, &alpha, x, incx, y, incy, ap);
}
ORV_API void cblas_dspr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, double alpha, const double* x, int incx,
                         const double* y, int incy, double* ap)
{
    her2<double>(dspr2_, "cblas_dspr2", layout, uplo, n, &alpha, x, incx, y, incy, ap);
}
ORV_API void cblas_chpr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* x, int incx,
                         const void* y, int incy, void* ap)
{
    her2<fcomplex>(chpr2_, "cblas_chpr2", layout, uplo, n, alpha, x, incx, y, incy, ap);
}
ORV_API void cblas_zhpr2(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, int n, const void* alpha, const void* x, int incx,
                         const void* y, int incy, void* ap)
{
    her2<dcomplex>(zhpr2_, "cblas_zhpr2", layout, uplo, n, alpha, x, incx, y, incy, ap);
}

}  // extern "C"
