// Level-3 exports of the single-precision and single-complex routines: each
// is its shape's entry sequence (level3_shapes.h) around its single-thread
// member.

#include "blas.h"
#include "interface/level3_shapes.h"
#include "level3/level3.h"

namespace plain = orv::plain;

extern "C" void sgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const float* alpha, const float* a, const int* lda, const float* b, const int* ldb,
                       const float* beta, float* c, const int* ldc)
{
    orv::gemm_shape<&plain::sgemm>("SGEMM ", transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void cgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const void* alpha, const void* a, const int* lda, const void* b, const int* ldb,
                       const void* beta, void* c, const int* ldc)
{
    orv::gemm_shape<&plain::cgemm>("CGEMM ", transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void ssymm_(const char* side, const char* uplo, const int* m, const int* n, const float* alpha,
                       const float* a, const int* lda, const float* b, const int* ldb, const float* beta, float* c,
                       const int* ldc)
{
    orv::symm_shape<&plain::ssymm>("SSYMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void csymm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    orv::symm_shape<&plain::csymm>("CSYMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void chemm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    orv::symm_shape<&plain::chemm>("CHEMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void ssyrk_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                       const float* a, const int* lda, const float* beta, float* c, const int* ldc)
{
    orv::syrk_shape<&plain::ssyrk>("SSYRK ", orv::kTransNTC, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void csyrk_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                       const void* a, const int* lda, const void* beta, void* c, const int* ldc)
{
    orv::syrk_shape<&plain::csyrk>("CSYRK ", orv::kTransNT, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void cherk_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                       const void* a, const int* lda, const float* beta, void* c, const int* ldc)
{
    orv::syrk_shape<&plain::cherk>("CHERK ", orv::kTransNC, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void ssyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const float* alpha,
                        const float* a, const int* lda, const float* b, const int* ldb, const float* beta,
                        float* c, const int* ldc)
{
    orv::syr2k_shape<&plain::ssyr2k>("SSYR2K", orv::kTransNTC, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void csyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const void* beta, void* c,
                        const int* ldc)
{
    orv::syr2k_shape<&plain::csyr2k>("CSYR2K", orv::kTransNT, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void cher2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const float* beta, void* c,
                        const int* ldc)
{
    orv::syr2k_shape<&plain::cher2k>("CHER2K", orv::kTransNC, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void strmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const float* alpha, const float* a, const int* lda, float* b, const int* ldb)
{
    orv::trmm_shape<&plain::strmm>("STRMM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void ctrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    orv::trmm_shape<&plain::ctrmm>("CTRMM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void strsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const float* alpha, const float* a, const int* lda, float* b, const int* ldb)
{
    orv::trmm_shape<&plain::strsm>("STRSM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void ctrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    orv::trmm_shape<&plain::ctrsm>("CTRSM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}
