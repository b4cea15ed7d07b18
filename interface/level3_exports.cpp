// Exports of the level-3 routines: each is its shape's entry sequence
// (level3_shapes.h) around its dispatched family member.

#include "interface/level3_shapes.h"
#include "level3/dispatch.h"
#include "orv.h"

using orv::Level3Kernels;

extern "C" void dgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const double* alpha, const double* a, const int* lda, const double* b, const int* ldb,
                       const double* beta, double* c, const int* ldc)
{
    orv::gemm_shape<&Level3Kernels::dgemm>("DGEMM ", transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void zgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                       const void* alpha, const void* a, const int* lda, const void* b, const int* ldb,
                       const void* beta, void* c, const int* ldc)
{
    orv::gemm_shape<&Level3Kernels::zgemm>("ZGEMM ", transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void dsymm_(const char* side, const char* uplo, const int* m, const int* n, const double* alpha,
                       const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
                       const int* ldc)
{
    orv::symm_shape<&Level3Kernels::dsymm>("DSYMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void zsymm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    orv::symm_shape<&Level3Kernels::zsymm>("ZSYMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void zhemm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                       const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc)
{
    orv::symm_shape<&Level3Kernels::zhemm>("ZHEMM ", side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

extern "C" void dsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                       const double* a, const int* lda, const double* beta, double* c, const int* ldc)
{
    orv::syrk_shape<&Level3Kernels::dsyrk>("DSYRK ", orv::kTransNTC, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void zsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                       const void* a, const int* lda, const void* beta, void* c, const int* ldc)
{
    orv::syrk_shape<&Level3Kernels::zsyrk>("ZSYRK ", orv::kTransNT, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void zherk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                       const void* a, const int* lda, const double* beta, void* c, const int* ldc)
{
    orv::syrk_shape<&Level3Kernels::zherk>("ZHERK ", orv::kTransNC, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

extern "C" void dsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                        const double* a, const int* lda, const double* b, const int* ldb, const double* beta,
                        double* c, const int* ldc)
{
    orv::syr2k_shape<&Level3Kernels::dsyr2k>("DSYR2K", orv::kTransNTC, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void zsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const void* beta, void* c,
                        const int* ldc)
{
    orv::syr2k_shape<&Level3Kernels::zsyr2k>("ZSYR2K", orv::kTransNT, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void zher2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                        const void* a, const int* lda, const void* b, const int* ldb, const double* beta, void* c,
                        const int* ldc)
{
    orv::syr2k_shape<&Level3Kernels::zher2k>("ZHER2K", orv::kTransNC, uplo, trans, n, k, alpha, a, lda, b, ldb,
                                             beta, c, ldc);
}

extern "C" void dtrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb)
{
    orv::trmm_shape<&Level3Kernels::dtrmm>("DTRMM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void ztrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    orv::trmm_shape<&Level3Kernels::ztrmm>("ZTRMM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void dtrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb)
{
    orv::trmm_shape<&Level3Kernels::dtrsm>("DTRSM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}

extern "C" void ztrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                       const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb)
{
    orv::trmm_shape<&Level3Kernels::ztrsm>("ZTRSM ", side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
}
