// Level-3 C interface: each function is one use of its shape's template.

#include "interface/dropin/blas.h"
#include "interface/dropin/cblas_shapes.h"

using namespace orv::cblas;
using orv::dcomplex;
using orv::fcomplex;
using orv::kTransNC;
using orv::kTransNT;
using orv::kTransNTC;

extern "C" {

ORV_API void cblas_sgemm(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n, int k,
                         float alpha, const float* a, int lda, const float* b, int ldb, float beta, float* c, int ldc)
{
    gemm(sgemm_, "cblas_sgemm", layout, transa, transb, m, n, k, &alpha, a, lda, b, ldb, &beta, c, ldc);
}
ORV_API void cblas_dgemm(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n, int k,
                         double alpha, const double* a, int lda, const double* b, int ldb, double beta, double* c,
                         int ldc)
{
    gemm(dgemm_, "cblas_dgemm", layout, transa, transb, m, n, k, &alpha, a, lda, b, ldb, &beta, c, ldc);
}
ORV_API void cblas_cgemm(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n, int k,
                         const void* alpha, const void* a, int lda, const void* b, int ldb, const void* beta, void* c,
                         int ldc)
{
    gemm(cgemm_, "cblas_cgemm", layout, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}
ORV_API void cblas_zgemm(CBLAS_LAYOUT layout, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n, int k,
                         const void* alpha, const void* a, int lda, const void* b, int ldb, const void* beta, void* c,
                         int ldc)
{
    gemm(zgemm_, "cblas_zgemm", layout, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

ORV_API void cblas_ssymm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, float alpha,
                         const float* a, int lda, const float* b, int ldb, float beta, float* c, int ldc)
{
    symm(ssymm_, "cblas_ssymm", layout, side, uplo, m, n, &alpha, a, lda, b, ldb, &beta, c, ldc);
}
ORV_API void cblas_dsymm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, double alpha,
                         const double* a, int lda, const double* b, int ldb, double beta, double* c, int ldc)
{
    symm(dsymm_, "cblas_dsymm", layout, side, uplo, m, n, &alpha, a, lda, b, ldb, &beta, c, ldc);
}
ORV_API void cblas_csymm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, const void* alpha,
                         const void* a, int lda, const void* b, int ldb, const void* beta, void* c, int ldc)
{
    symm(csymm_, "cblas_csymm", layout, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}
ORV_API void cblas_zsymm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, const void* alpha,
                         const void* a, int lda, const void* b, int ldb, const void* beta, void* c, int ldc)
{
    symm(zsymm_, "cblas_zsymm", layout, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}
ORV_API void cblas_chemm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, const void* alpha,
                         const void* a, int lda, const void* b, int ldb, const void* beta, void* c, int ldc)
{
    symm(chemm_, "cblas_chemm", layout, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}
ORV_API void cblas_zhemm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, const void* alpha,
                         const void* a, int lda, const void* b, int ldb, const void* beta, void* c, int ldc)
{
    symm(zhemm_, "cblas_zhemm", layout, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

ORV_API void cblas_ssyrk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, float alpha,
                         const float* a, int lda, float beta, float* c, int ldc)
{
    rank_k(ssyrk_, kTransNTC, "cblas_ssyrk", layout, uplo, trans, n, k, &alpha, a, lda, &beta, c, ldc);
}
ORV_API void cblas_dsyrk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, double alpha,
                         const double* a, int lda, double beta, double* c, int ldc)
{
    rank_k(dsyrk_, kTransNTC, "cblas_dsyrk", layout, uplo, trans, n, k, &alpha, a, lda, &beta, c, ldc);
}
ORV_API void cblas_csyrk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                         const void* alpha, const void* a, int lda, const void* beta, void* c, int ldc)
{
    rank_k(csyrk_, kTransNT, "cblas_csyrk", layout, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}
ORV_API void cblas_zsyrk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                         const void* alpha, const void* a, int lda, const void* beta, void* c, int ldc)
{
    rank_k(zsyrk_, kTransNT, "cblas_zsyrk", layout, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}
ORV_API void cblas_cherk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, float alpha,
                         const void* a, int lda, float beta, void* c, int ldc)
{
    rank_k(cherk_, kTransNC, "cblas_cherk", layout, uplo, trans, n, k, &alpha, a, lda, &beta, c, ldc);
}
ORV_API void cblas_zherk(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, double alpha,
                         const void* a, int lda, double beta, void* c, int ldc)
{
    rank_k(zherk_, kTransNC, "cblas_zherk", layout, uplo, trans, n, k, &alpha, a, lda, &beta, c, ldc);
}

ORV_API void cblas_ssyr2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, float alpha,
                          const float* a, int lda, const float* b, int ldb, float beta, float* c, int ldc)
{
    rank_2k<float>(ssyr2k_, kTransNTC, "cblas_ssyr2k", layout, uplo, trans, n, k, &alpha, a, lda, b, ldb, &beta, c,
                   ldc);
}
ORV_API void cblas_dsyr2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, double alpha,
                          const double* a, int lda, const double* b, int ldb, double beta, double* c, int ldc)
{
    rank_2k<double>(dsyr2k_, kTransNTC, "cblas_dsyr2k", layout, uplo, trans, n, k, &alpha, a, lda, b, ldb, &beta, c,
                    ldc);
}
ORV_API void cblas_csyr2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                          const void* alpha, const void* a, int lda, const void* b, int ldb, const void* beta, void* c,
                          int ldc)
{
    rank_2k<fcomplex>(csyr2k_, kTransNT, "cblas_csyr2k", layout, uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c,
                      ldc);
}
ORV_API void cblas_zsyr2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                          const void* alpha, const void* a, int lda, const void* b, int ldb, const void* beta, void* c,
                          int ldc)
{
    rank_2k<dcomplex>(zsyr2k_, kTransNT, "cblas_zsyr2k", layout, uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c,
                      ldc);
}
ORV_API void cblas_cher2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                          const void* alpha, const void* a, int lda, const void* b, int ldb, float beta, void* c,
                          int ldc)
{
    rank_2k<fcomplex>(cher2k_, kTransNC, "cblas_cher2k", layout, uplo, trans, n, k, alpha, a, lda, b, ldb, &beta, c,
                      ldc);
}
ORV_API void cblas_zher2k(CBLAS_LAYOUT layout, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,
                          const void* alpha, const void* a, int lda, const void* b, int ldb, double beta, void* c,
                          int ldc)
{
    rank_2k<dcomplex>(zher2k_, kTransNC, "cblas_zher2k", layout, uplo, trans, n, k, alpha, a, lda, b, ldb, &beta, c,
                      ldc);
}

ORV_API void cblas_strmm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, float alpha, const float* a, int lda, float* b, int ldb)
{
    trmm(strmm_, "cblas_strmm", layout, side, uplo, transa, diag, m, n, &alpha, a, lda, b, ldb);
}
ORV_API void cblas_dtrmm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, double alpha, const double* a, int lda, double* b, int ldb)
{
    trmm(dtrmm_, "cblas_dtrmm", layout, side, uplo, transa, diag, m, n, &alpha, a, lda, b, ldb);
}
ORV_API void cblas_ctrmm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, const void* alpha, const void* a, int lda, void* b, int ldb)
{
    trmm(ctrmm_, "cblas_ctrmm", layout, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}
ORV_API void cblas_ztrmm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, const void* alpha, const void* a, int lda, void* b, int ldb)
{
    trmm(ztrmm_, "cblas_ztrmm", layout, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}
ORV_API void cblas_strsm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, float alpha, const float* a, int lda, float* b, int ldb)
{
    trmm(strsm_, "cblas_strsm", layout, side, uplo, transa, diag, m, n, &alpha, a, lda, b, ldb);
}
ORV_API void cblas_dtrsm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, double alpha, const double* a, int lda, double* b, int ldb)
{
    trmm(dtrsm_, "cblas_dtrsm", layout, side, uplo, transa, diag, m, n, &alpha, a, lda, b, ldb);
}
ORV_API void cblas_ctrsm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, const void* alpha, const void* a, int lda, void* b, int ldb)
{
    trmm(ctrsm_, "cblas_ctrsm", layout, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}
ORV_API void cblas_ztrsm(CBLAS_LAYOUT layout, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag,
                         int m, int n, const void* alpha, const void* a, int lda, void* b, int ldb)
{
    trmm(ztrsm_, "cblas_ztrsm", layout, side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

}  // extern "C"
