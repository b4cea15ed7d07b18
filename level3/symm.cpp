// Symmetric (Hermitian) times general: C := alpha * A * B + beta * C when A is
// on the left, C := alpha * B * A + beta * C when it is on the right. Only the
// stored triangle of A is read, and of a Hermitian diagonal only the real part.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

template <typename T, bool Herm>
void symm(bool left, bool upper, i64 m, i64 n, T alpha, const T* a, i64 lda, const T* b, i64 ldb, T beta, T* c,
          i64 ldc)
{
    if (m == 0 || n == 0) return;
    if (is_zero(alpha) && is_one(beta)) return;
    for (i64 j = 0; j < n; ++j) {
        T* cj = c + j * ldc;
        scale_by(0, m, beta, cj);
        if (is_zero(alpha)) continue;
        const T* bj = b + j * ldb;
        if (left) {
            // Stored column l of A is used twice: as column l of A, weighted by
            // B(l, j), down column j of C; and mirrored as row l of A, a dot
            // product with column j of B that lands in C(l, j). So A is only
            // ever read down its stored columns.
            for (i64 l = 0; l < m; ++l) {
                const T* al = a + l * lda;
                const i64 first = upper ? 0 : l + 1;
                const i64 last = upper ? l : m;
                const T blj = bj[l];
                T mirrored{};
                for (i64 i = first; i < last; ++i) {
                    cj[i] = cj[i] + (alpha * al[i]) * blj;
                    mirrored = mirrored + (alpha * conj_if<Herm>(al[i])) * bj[i];
                }
                cj[l] = cj[l] + (alpha * real_diagonal<Herm>(al[l])) * blj + mirrored;
            }
        } else {
            // Column j of C gathers the columns of B weighted by column j of A.
            for (i64 l = 0; l < n; ++l) {
                const T alj = alpha * symmetric_element<Herm>(a, lda, upper, l, j);
                const T* bl = b + l * ldb;
                for (i64 i = 0; i < m; ++i) cj[i] = cj[i] + alj * bl[i];
            }
        }
    }
}

template <bool Herm, typename T>
void symm_options(const char* side, const char* uplo, const i64* m, const i64* n, const T* alpha, const T* a,
                  const i64* lda, const T* b, const i64* ldb, const T* beta, T* c, const i64* ldc)
{
    symm<T, Herm>(option_letter(side) == 'L', option_letter(uplo) == 'U', *m, *n, *alpha, a, *lda, b, *ldb, *beta, c,
                  *ldc);
}

}  // namespace

void ssymm(const char* side, const char* uplo, const i64* m, const i64* n, const float* alpha, const float* a,
           const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc)
{
    symm_options<false>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

void dsymm(const char* side, const char* uplo, const i64* m, const i64* n, const double* alpha, const double* a,
           const i64* lda, const double* b, const i64* ldb, const double* beta, double* c, const i64* ldc)
{
    symm_options<false>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

void csymm(const char* side, const char* uplo, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c, const i64* ldc)
{
    symm_options<false>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

void zsymm(const char* side, const char* uplo, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc)
{
    symm_options<false>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

void chemm(const char* side, const char* uplo, const i64* m, const i64* n, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c, const i64* ldc)
{
    symm_options<true>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

void zhemm(const char* side, const char* uplo, const i64* m, const i64* n, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc)
{
    symm_options<true>(side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace orv::plain
