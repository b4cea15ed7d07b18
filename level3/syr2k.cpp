// Rank-2k update of one triangle of C:
//   C := alpha * op(A) * op(B)^T + alpha * op(B) * op(A)^T + beta * C,
// and for the Hermitian update, with real beta,
//   C := alpha * op(A) * op(B)^H + conj(alpha) * op(B) * op(A)^H + beta * C.
// The other triangle of C is neither read nor written.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

// Beta is the type of beta: the element type, or its real type for the Hermitian update.
template <typename T, bool Herm, typename Beta>
void syr2k(bool upper, bool trans, i64 n, i64 k, T alpha, const T* a, i64 lda, const T* b, i64 ldb, Beta beta, T* c,
           i64 ldc)
{
    if (n == 0) return;
    if ((is_zero(alpha) || k == 0) && is_one(beta)) return;
    const bool product = !is_zero(alpha) && k > 0;
    // Each product carries its own factor into its left operand.
    const T alpha_ab = alpha;
    const T alpha_ba = conj_if<Herm>(alpha);
    for (i64 j = 0; j < n; ++j) {
        T* cj = c + j * ldc;
        const RowRange rows = triangle_rows(upper, j, n);
        scale_by(rows.first, rows.last, beta, cj);
        if (product) {
            if (!trans) {
                // Columns l of A and B, weighted by B(j, l) and A(j, l), down column j of C.
                for (i64 l = 0; l < k; ++l) {
                    const T* al = a + l * lda;
                    const T* bl = b + l * ldb;
                    const T bjl = conj_if<Herm>(bl[j]);
                    const T ajl = conj_if<Herm>(al[j]);
                    for (i64 i = rows.first; i < rows.last; ++i)
                        cj[i] = cj[i] + (alpha_ab * al[i]) * bjl + (alpha_ba * bl[i]) * ajl;
                }
            } else {
                // op(X) = X^T: C(i, j) gains a dot product of stored columns for each product.
                const T* aj = a + j * lda;
                const T* bj = b + j * ldb;
                for (i64 i = rows.first; i < rows.last; ++i) {
                    const T* ai = a + i * lda;
                    const T* bi = b + i * ldb;
                    T sum_ab{};
                    T sum_ba{};
                    for (i64 l = 0; l < k; ++l) {
                        sum_ab = sum_ab + (alpha_ab * conj_if<Herm>(ai[l])) * bj[l];
                        sum_ba = sum_ba + (alpha_ba * conj_if<Herm>(bi[l])) * aj[l];
                    }
                    cj[i] = cj[i] + sum_ab + sum_ba;
                }
            }
        }
        // The Hermitian result has a real diagonal; rounding must not leave
        // an imaginary residue there, nor may an old imaginary part survive.
        if constexpr (Herm) cj[j].im = 0.0;
    }
}

template <bool Herm, typename T, typename Beta>
void syr2k_options(const char* uplo, const char* trans, const i64* n, const i64* k, const T* alpha, const T* a,
                   const i64* lda, const T* b, const i64* ldb, const Beta* beta, T* c, const i64* ldc)
{
    syr2k<T, Herm>(option_letter(uplo) == 'U', option_letter(trans) != 'N', *n, *k, *alpha, a, *lda, b, *ldb, *beta,
                   c, *ldc);
}

}  // namespace

void ssyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const float* alpha, const float* a,
            const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc)
{
    syr2k_options<false>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

void dsyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const double* alpha, const double* a,
            const i64* lda, const double* b, const i64* ldb, const double* beta, double* c, const i64* ldc)
{
    syr2k_options<false>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

void csyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha,
            const fcomplex* a, const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c,
            const i64* ldc)
{
    syr2k_options<false>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

void zsyr2k(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha,
            const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c,
            const i64* ldc)
{
    syr2k_options<false>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

void cher2k(const char* uplo, const char* trans, const i64* n, const i64* k, const fcomplex* alpha,
            const fcomplex* a, const i64* lda, const fcomplex* b, const i64* ldb, const float* beta, fcomplex* c,
            const i64* ldc)
{
    syr2k_options<true>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

void zher2k(const char* uplo, const char* trans, const i64* n, const i64* k, const dcomplex* alpha,
            const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const double* beta, dcomplex* c,
            const i64* ldc)
{
    syr2k_options<true>(uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace orv::plain
