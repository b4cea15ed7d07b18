// Rank-k update of one triangle of C: C := alpha * op(A) * op(A)^T + beta * C,
// with ^H and real alpha and beta for the Hermitian update. The other
// triangle of C is neither read nor written.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

// S is the type of alpha and beta: the element type, or its real type for
// the Hermitian update.
template <typename T, bool Herm, typename S>
void syrk(bool upper, bool trans, i64 n, i64 k, S alpha, const T* a, i64 lda, S beta, T* c, i64 ldc)
{
    if (n == 0) return;
    if ((is_zero(alpha) || k == 0) && is_one(beta)) return;
    const bool product = !is_zero(alpha) && k > 0;
    for (i64 j = 0; j < n; ++j) {
        T* cj = c + j * ldc;
        const RowRange rows = triangle_rows(upper, j, n);
        scale_by(rows.first, rows.last, beta, cj);
        if (product) {
            if (!trans) {
                // op(A) = A: column l of A, weighted by A(j, l), down column j of C.
                for (i64 l = 0; l < k; ++l) {
                    const T* al = a + l * lda;
                    const T ajl = conj_if<Herm>(al[j]);
                    for (i64 i = rows.first; i < rows.last; ++i) cj[i] = cj[i] + (alpha * al[i]) * ajl;
                }
            } else {
                // op(A) = A^T: C(i, j) gains the dot product of stored columns i and j.
                const T* aj = a + j * lda;
                for (i64 i = rows.first; i < rows.last; ++i) {
                    const T* ai = a + i * lda;
                    T sum{};
                    for (i64 l = 0; l < k; ++l) sum = sum + (alpha * conj_if<Herm>(ai[l])) * aj[l];
                    cj[i] = cj[i] + sum;
                }
            }
        }
        // The Hermitian result has a real diagonal; rounding must not leave
        // an imaginary residue there, nor may an old imaginary part survive.
        if constexpr (Herm) cj[j].im = 0.0;
    }
}

template <bool Herm, typename T, typename S>
void syrk_options(const char* uplo, const char* trans, const i64* n, const i64* k, const S* alpha, const T* a,
                  const i64* lda, const S* beta, T* c, const i64* ldc)
{
    syrk<T, Herm>(option_letter(uplo) == 'U', option_letter(trans) != 'N', *n, *k, *alpha, a, *lda, *beta, c, *ldc);
}

}  // namespace

void ssyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const float* a,
           const i64* lda, const float* beta, float* c, const i64* ldc)
{
    syrk_options<false>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

void dsyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const double* a,
           const i64* lda, const double* beta, double* c, const i64* ldc)
{
    syrk_options<false>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

void csyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha, const fcomplex* a,
           const i64* lda, const fcomplex* beta, fcomplex* c, const i64* ldc)
{
    syrk_options<false>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

void zsyrk(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha, const dcomplex* a,
           const i64* lda, const dcomplex* beta, dcomplex* c, const i64* ldc)
{
    syrk_options<false>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

void cherk(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const fcomplex* a,
           const i64* lda, const float* beta, fcomplex* c, const i64* ldc)
{
    syrk_options<true>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

void zherk(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const dcomplex* a,
           const i64* lda, const double* beta, dcomplex* c, const i64* ldc)
{
    syrk_options<true>(uplo, trans, n, k, alpha, a, lda, beta, c, ldc);
}

}  // namespace orv::plain
