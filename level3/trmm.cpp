// Triangular product in place: B := alpha * op(A) * B (A on the left) or
// B := alpha * B * op(A) (A on the right). Only the named triangle of A is
// read, and a unit diagonal is not read at all.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

// Every loop below walks a column of the stored A, and visits the parts of B
// in the order that leaves each input element unchanged until its last use,
// so no workspace is needed. Alpha multiplies the elements of A.
template <typename T, bool Conj>
void trmm(bool left, Triangle s, i64 m, i64 n, T alpha, const T* a, i64 lda, T* b, i64 ldb)
{
    if (m == 0 || n == 0) return;
    if (is_zero(alpha)) {
        // Zeros are stored without reading A or B.
        for (i64 j = 0; j < n; ++j) scale_by(0, m, alpha, b + j * ldb);
        return;
    }
    // alpha * op(A)(l, l)
    auto scaled_diagonal = [&](i64 l) -> T { return s.unit ? alpha : alpha * conj_if<Conj>(a[l + l * lda]); };

    if (left) {
        for (i64 j = 0; j < n; ++j) {
            T* bj = b + j * ldb;
            if (!s.trans && s.upper) {
                // Row l of the result depends on rows l.. of B: spread B(l, j)
                // upwards before row l itself is overwritten.
                for (i64 l = 0; l < m; ++l) {
                    const T* al = a + l * lda;
                    const T blj = bj[l];
                    for (i64 i = 0; i < l; ++i) bj[i] = bj[i] + (alpha * al[i]) * blj;
                    bj[l] = scaled_diagonal(l) * blj;
                }
            } else if (!s.trans) {
                for (i64 l = m - 1; l >= 0; --l) {
                    const T* al = a + l * lda;
                    const T blj = bj[l];
                    bj[l] = scaled_diagonal(l) * blj;
                    for (i64 i = l + 1; i < m; ++i) bj[i] = bj[i] + (alpha * al[i]) * blj;
                }
            } else if (s.upper) {
                // Row i of op(A) is column i of A above the diagonal: a dot
                // product with rows ..i of B, taken from the bottom up.
                for (i64 i = m - 1; i >= 0; --i) {
                    const T* ai = a + i * lda;
                    T sum = scaled_diagonal(i) * bj[i];
                    for (i64 l = 0; l < i; ++l) sum = sum + (alpha * conj_if<Conj>(ai[l])) * bj[l];
                    bj[i] = sum;
                }
            } else {
                for (i64 i = 0; i < m; ++i) {
                    const T* ai = a + i * lda;
                    T sum = scaled_diagonal(i) * bj[i];
                    for (i64 l = i + 1; l < m; ++l) sum = sum + (alpha * conj_if<Conj>(ai[l])) * bj[l];
                    bj[i] = sum;
                }
            }
        }
        return;
    }

    // A on the right: column j of the result combines whole columns of B.
    auto add_column = [&](T* target, T factor, const T* source) {
        for (i64 i = 0; i < m; ++i) target[i] = target[i] + factor * source[i];
    };
    auto scale_in_place = [&](T* target, T factor) {
        for (i64 i = 0; i < m; ++i) target[i] = factor * target[i];
    };
    if (!s.trans && s.upper) {
        // Column j needs columns ..j of B: finish from the right.
        for (i64 j = n - 1; j >= 0; --j) {
            const T* aj = a + j * lda;
            T* bj = b + j * ldb;
            scale_in_place(bj, scaled_diagonal(j));
            for (i64 l = 0; l < j; ++l) add_column(bj, alpha * aj[l], b + l * ldb);
        }
    } else if (!s.trans) {
        for (i64 j = 0; j < n; ++j) {
            const T* aj = a + j * lda;
            T* bj = b + j * ldb;
            scale_in_place(bj, scaled_diagonal(j));
            for (i64 l = j + 1; l < n; ++l) add_column(bj, alpha * aj[l], b + l * ldb);
        }
    } else if (s.upper) {
        // Column l of A above the diagonal holds op(A)(l, j) for j < l: spread
        // the still untouched column l of B leftwards, then scale it.
        for (i64 l = 0; l < n; ++l) {
            const T* al = a + l * lda;
            T* bl = b + l * ldb;
            for (i64 j = 0; j < l; ++j) add_column(b + j * ldb, alpha * conj_if<Conj>(al[j]), bl);
            scale_in_place(bl, scaled_diagonal(l));
        }
    } else {
        for (i64 l = n - 1; l >= 0; --l) {
            const T* al = a + l * lda;
            T* bl = b + l * ldb;
            for (i64 j = l + 1; j < n; ++j) add_column(b + j * ldb, alpha * conj_if<Conj>(al[j]), bl);
            scale_in_place(bl, scaled_diagonal(l));
        }
    }
}

template <typename T>
void trmm_options(const char* side, const char* uplo, const char* transa, const char* diag, i64 m, i64 n, T alpha,
                  const T* a, i64 lda, T* b, i64 ldb)
{
    const Triangle s = triangle(uplo, transa, diag);
    const bool left = option_letter(side) == 'L';
    with_conjugation<T>(s.conj,
                        [&]<bool Conj>() { trmm<T, Conj>(left, s, m, n, alpha, a, lda, b, ldb); });
}

}  // namespace

void strmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const float* alpha, const float* a, const i64* lda, float* b, const i64* ldb)
{
    trmm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void dtrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb)
{
    trmm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void ctrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const fcomplex* alpha, const fcomplex* a, const i64* lda, fcomplex* b, const i64* ldb)
{
    trmm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void ztrmm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const dcomplex* alpha, const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb)
{
    trmm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

}  // namespace orv::plain
