// Triangular solve with many right-hand sides: op(A) * X = alpha * B (A on
// the left) or X * op(A) = alpha * B (A on the right); X overwrites B. Only
// the named triangle of A is read, and a unit diagonal is not read at all.
#include "level3/common.h"
#include "level3/level3.h"

namespace orv::plain {
namespace {

using namespace l3;

// B is scaled by alpha first, then solved in place by substitution. Every
// loop walks a column of the stored A; a non-unit diagonal divides (a
// reciprocal would add a rounding).
template <typename T, bool Conj>
void trsm(bool left, Triangle s, i64 m, i64 n, T alpha, const T* a, i64 lda, T* b, i64 ldb)
{
    if (m == 0 || n == 0) return;
    // A zero alpha makes X zero whatever A holds, so A is not read.
    for (i64 j = 0; j < n; ++j) scale_by(0, m, alpha, b + j * ldb);
    if (is_zero(alpha)) return;

    auto divide_by_diagonal = [&](T x, i64 l) -> T { return s.unit ? x : x / conj_if<Conj>(a[l + l * lda]); };

    if (left) {
        for (i64 j = 0; j < n; ++j) {
            T* bj = b + j * ldb;
            if (!s.trans && s.upper) {
                // Back substitution: each solved x(l) is removed from the rows above.
                for (i64 l = m - 1; l >= 0; --l) {
                    const T* al = a + l * lda;
                    const T x = divide_by_diagonal(bj[l], l);
                    bj[l] = x;
                    for (i64 i = 0; i < l; ++i) bj[i] = bj[i] - al[i] * x;
                }
            } else if (!s.trans) {
                // Forward substitution, removing x(l) from the rows below.
                for (i64 l = 0; l < m; ++l) {
                    const T* al = a + l * lda;
                    const T x = divide_by_diagonal(bj[l], l);
                    bj[l] = x;
                    for (i64 i = l + 1; i < m; ++i) bj[i] = bj[i] - al[i] * x;
                }
            } else if (s.upper) {
                // op(A) is lower: row i of it is column i of A above the
                // diagonal, a dot product with the x already solved.
                for (i64 i = 0; i < m; ++i) {
                    const T* ai = a + i * lda;
                    T rhs = bj[i];
                    for (i64 l = 0; l < i; ++l) rhs = rhs - conj_if<Conj>(ai[l]) * bj[l];
                    bj[i] = divide_by_diagonal(rhs, i);
                }
            } else {
                for (i64 i = m - 1; i >= 0; --i) {
                    const T* ai = a + i * lda;
                    T rhs = bj[i];
                    for (i64 l = i + 1; l < m; ++l) rhs = rhs - conj_if<Conj>(ai[l]) * bj[l];
                    bj[i] = divide_by_diagonal(rhs, i);
                }
            }
        }
        return;
    }

    // A on the right: the unknowns are whole columns of X.
    auto subtract_column = [&](T* target, T factor, const T* source) {
        for (i64 i = 0; i < m; ++i) target[i] = target[i] - factor * source[i];
    };
    auto divide_column = [&](T* target, i64 l) {
        if (s.unit) return;
        const T d = conj_if<Conj>(a[l + l * lda]);
        for (i64 i = 0; i < m; ++i) target[i] = target[i] / d;
    };
    if (!s.trans && s.upper) {
        // Column j of X needs the columns left of it, which column j of A weights.
        for (i64 j = 0; j < n; ++j) {
            const T* aj = a + j * lda;
            T* bj = b + j * ldb;
            for (i64 l = 0; l < j; ++l) subtract_column(bj, aj[l], b + l * ldb);
            divide_column(bj, j);
        }
    } else if (!s.trans) {
        for (i64 j = n - 1; j >= 0; --j) {
            const T* aj = a + j * lda;
            T* bj = b + j * ldb;
            for (i64 l = j + 1; l < n; ++l) subtract_column(bj, aj[l], b + l * ldb);
            divide_column(bj, j);
        }
    } else if (s.upper) {
        // op(A) is lower: once column l of X is solved, column l of A above
        // the diagonal removes it from the columns to its left.
        for (i64 l = n - 1; l >= 0; --l) {
            const T* al = a + l * lda;
            T* bl = b + l * ldb;
            divide_column(bl, l);
            for (i64 j = 0; j < l; ++j) subtract_column(b + j * ldb, conj_if<Conj>(al[j]), bl);
        }
    } else {
        for (i64 l = 0; l < n; ++l) {
            const T* al = a + l * lda;
            T* bl = b + l * ldb;
            divide_column(bl, l);
            for (i64 j = l + 1; j < n; ++j) subtract_column(b + j * ldb, conj_if<Conj>(al[j]), bl);
        }
    }
}

template <typename T>
void trsm_options(const char* side, const char* uplo, const char* transa, const char* diag, i64 m, i64 n, T alpha,
                  const T* a, i64 lda, T* b, i64 ldb)
{
    const Triangle s = triangle(uplo, transa, diag);
    const bool left = option_letter(side) == 'L';
    with_conjugation<T>(s.conj,
                        [&]<bool Conj>() { trsm<T, Conj>(left, s, m, n, alpha, a, lda, b, ldb); });
}

}  // namespace

void strsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const float* alpha, const float* a, const i64* lda, float* b, const i64* ldb)
{
    trsm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void dtrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const double* alpha, const double* a, const i64* lda, double* b, const i64* ldb)
{
    trsm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void ctrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const fcomplex* alpha, const fcomplex* a, const i64* lda, fcomplex* b, const i64* ldb)
{
    trsm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

void ztrsm(const char* side, const char* uplo, const char* transa, const char* diag, const i64* m, const i64* n,
           const dcomplex* alpha, const dcomplex* a, const i64* lda, dcomplex* b, const i64* ldb)
{
    trsm_options(side, uplo, transa, diag, *m, *n, *alpha, a, *lda, b, *ldb);
}

}  // namespace orv::plain
