// General matrix product, C := alpha * op(A) * op(B) + beta * C.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

// Each column of C is scaled by beta before anything is added to it, and
// alpha multiplies the elements of A, so the product terms are plain adds.
template <typename T, bool ConjA, bool ConjB>
void gemm(bool trans_a, bool trans_b, i64 m, i64 n, i64 k, T alpha, const T* a, i64 lda, const T* b, i64 ldb,
          T beta, T* c, i64 ldc)
{
    const bool product = !is_zero(alpha) && k > 0;
    for (i64 j = 0; j < n; ++j) {
        T* cj = c + j * ldc;
        scale_by(0, m, beta, cj);
        if (!product) continue;
        if (!trans_a) {
            // Column l of A, weighted by op(B)(l, j), added down column j of C.
            for (i64 l = 0; l < k; ++l) {
                const T* al = a + l * lda;
                const T blj = op_element<ConjB>(b, ldb, trans_b, l, j);
                for (i64 i = 0; i < m; ++i) cj[i] = cj[i] + (alpha * al[i]) * blj;
            }
        } else {
            // Row i of op(A) is column i of the stored A: one dot product each.
            for (i64 i = 0; i < m; ++i) {
                const T* ai = a + i * lda;
                T sum{};
                for (i64 l = 0; l < k; ++l)
                    sum = sum + (alpha * conj_if<ConjA>(ai[l])) * op_element<ConjB>(b, ldb, trans_b, l, j);
                cj[i] = cj[i] + sum;
            }
        }
    }
}

template <typename T>
void gemm_options(const char* transa, const char* transb, i64 m, i64 n, i64 k, T alpha, const T* a, i64 lda,
                  const T* b, i64 ldb, T beta, T* c, i64 ldc)
{
    if (m == 0 || n == 0) return;
    if ((is_zero(alpha) || k == 0) && is_one(beta)) return;
    const char ta = option_letter(transa);
    const char tb = option_letter(transb);
    const bool trans_a = ta != 'N';
    const bool trans_b = tb != 'N';
    // For real data 'C' is a plain transpose.
    const bool conj_a = is_complex<T> && ta == 'C';
    const bool conj_b = is_complex<T> && tb == 'C';
    if (conj_a && conj_b)
        gemm<T, true, true>(trans_a, trans_b, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else if (conj_a)
        gemm<T, true, false>(trans_a, trans_b, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else if (conj_b)
        gemm<T, false, true>(trans_a, trans_b, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else
        gemm<T, false, false>(trans_a, trans_b, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace

void sgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const float* alpha,
           const float* a, const i64* lda, const float* b, const i64* ldb, const float* beta, float* c, const i64* ldc)
{
    gemm_options(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

void dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const double* alpha,
           const double* a, const i64* lda, const double* b, const i64* ldb, const double* beta, double* c,
           const i64* ldc)
{
    gemm_options(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

void cgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const fcomplex* alpha,
           const fcomplex* a, const i64* lda, const fcomplex* b, const i64* ldb, const fcomplex* beta, fcomplex* c,
           const i64* ldc)
{
    gemm_options(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

void zgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k, const dcomplex* alpha,
           const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb, const dcomplex* beta, dcomplex* c,
           const i64* ldc)
{
    gemm_options(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

}  // namespace orv::plain
