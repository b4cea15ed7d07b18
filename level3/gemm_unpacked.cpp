// The products that read A and B where they lie, without fused multiply-add.
//
// C is computed in register tiles of up to 4 x 4: eight two-lane
// accumulators, two A vectors and a broadcast of B fit the sixteen 128-bit
// registers of the baseline. Each element's sum runs over the k-block in
// order, each term alpha * a (rounded) times b, rounded before it is added, as
// the inner kernels of these paths compute it; so the result depends neither
// on where the arrays lie nor on the road. The tile then writes its C
// elements once.
//
// A row block of 64 keeps the part of A the column tiles share (at most
// 160 KiB, at the deepest k-block of 320) in the second-level cache while the
// columns of C pass over it.
#include "level3/gemm_unpacked.h"

#include <emmintrin.h>

#include "level3/kernels/gemm_small.h"

namespace orv {
namespace {

constexpr i64 kRowBlock = 64;

i64 min_of(i64 x, i64 y) { return x < y ? x : y; }

// Strides of the operands: where the next k lies, and the next row of op(A)
// or column of op(B).
struct Walk {
    const double* a;  // op(A)(tile's first row, 0)
    const double* b;  // op(B)(0, tile's first column)
    double* c;
    i64 a_next_k, a_next_row;
    i64 b_next_k, b_next_col;
    i64 ldc;
    double alpha, beta;
};

// C := beta * C + sum, the product beta * C rounded on its own (beta 1 gives
// C exactly); beta 0 adds the sum to +0 without reading C, as the blocked
// road adds it to a cleared C.
inline __m128d finish(const Walk& w, const double* p, __m128d sum)
{
    __m128d start = _mm_setzero_pd();
    if (w.beta != 0.0) start = _mm_mul_pd(_mm_set1_pd(w.beta), _mm_loadu_pd(p));
    return _mm_add_pd(start, sum);
}
inline double finish(const Walk& w, const double* p, double sum)
{
    const double start = w.beta != 0.0 ? w.beta * *p : 0.0;
    return start + sum;
}

// sum + x * y, the product rounded on its own; for alpha -1, sum - x * y,
// which gives the same bits as adding the product with a negated x.
template <AlphaFold Fold>
inline __m128d add_product(__m128d sum, __m128d x, __m128d y)
{
    if constexpr (Fold == AlphaFold::minus_one) return _mm_sub_pd(sum, _mm_mul_pd(x, y));
    else return _mm_add_pd(sum, _mm_mul_pd(x, y));
}
template <AlphaFold Fold>
inline double add_product(double sum, double x, double y)
{
    if constexpr (Fold == AlphaFold::minus_one) return sum - x * y;
    else return sum + x * y;
}

// A tile of 2 * V rows and NR columns.
template <bool TA, AlphaFold Fold, int V, int NR>
void tile_pairs(const Walk& w, i64 k)
{
    __m128d acc[V][NR];
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j)
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) acc[v][j] = _mm_setzero_pd();
    const __m128d alpha = _mm_set1_pd(w.alpha);
    const double* a = w.a;
    const double* b = w.b;
    for (i64 l = 0; l < k; ++l) {
        __m128d av[V];
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) {
            if constexpr (TA) av[v] = _mm_loadh_pd(_mm_load_sd(a + 2 * v * w.a_next_row), a + (2 * v + 1) * w.a_next_row);
            else av[v] = _mm_loadu_pd(a + 2 * v);
            if constexpr (Fold == AlphaFold::any) av[v] = _mm_mul_pd(alpha, av[v]);
        }
#pragma GCC unroll 4
        for (int j = 0; j < NR; ++j) {
            const __m128d bj = _mm_set1_pd(b[j * w.b_next_col]);
#pragma GCC unroll 2
            for (int v = 0; v < V; ++v) acc[v][j] = add_product<Fold>(acc[v][j], av[v], bj);
        }
        a += w.a_next_k;
        b += w.b_next_k;
    }
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j)
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) {
            double* p = w.c + 2 * v + j * w.ldc;
            _mm_storeu_pd(p, finish(w, p, acc[v][j]));
        }
}

// A tile of one row and NR columns.
template <AlphaFold Fold, int NR>
void tile_row(const Walk& w, i64 k)
{
    double acc[NR];
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j) acc[j] = 0.0;
    const double* a = w.a;
    const double* b = w.b;
    for (i64 l = 0; l < k; ++l) {
        const double al = Fold == AlphaFold::any ? w.alpha * *a : *a;
#pragma GCC unroll 4
        for (int j = 0; j < NR; ++j) acc[j] = add_product<Fold>(acc[j], al, b[j * w.b_next_col]);
        a += w.a_next_k;
        b += w.b_next_k;
    }
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j) {
        double* p = w.c + j * w.ldc;
        *p = finish(w, p, acc[j]);
    }
}

// Rows [0, mb) of a column tile of width NR.
template <bool TA, AlphaFold Fold, int NR>
void column_tile(Walk w, i64 mb, i64 k)
{
    i64 i = 0;
    for (; i + 4 <= mb; i += 4) {
        tile_pairs<TA, Fold, 2, NR>(w, k);
        w.a += 4 * w.a_next_row;
        w.c += 4;
    }
    if (mb - i >= 2) {
        tile_pairs<TA, Fold, 1, NR>(w, k);
        w.a += 2 * w.a_next_row;
        w.c += 2;
        i += 2;
    }
    if (i < mb) tile_row<Fold, NR>(w, k);
}

template <bool TA, AlphaFold Fold>
void product(bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b, i64 ldb,
             double beta, double* c, i64 ldc)
{
    const i64 a_next_k = TA ? 1 : lda, a_next_row = TA ? lda : 1;
    const i64 b_next_k = tb ? ldb : 1, b_next_col = tb ? 1 : ldb;
    for (i64 i0 = 0; i0 < m; i0 += kRowBlock) {
        const i64 mb = min_of(kRowBlock, m - i0);
        for (i64 j = 0; j < n;) {
            const i64 width = n - j >= 4 ? 4 : n - j >= 2 ? 2 : 1;
            const Walk w{a + i0 * a_next_row, b + j * b_next_col, c + i0 + j * ldc, a_next_k, a_next_row,
                         b_next_k, b_next_col, ldc, alpha, beta};
            if (width == 4) column_tile<TA, Fold, 4>(w, mb, k);
            else if (width == 2) column_tile<TA, Fold, 2>(w, mb, k);
            else column_tile<TA, Fold, 1>(w, mb, k);
            j += width;
        }
    }
}

template <AlphaFold Fold>
void product_folded(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                    const double* b, i64 ldb, double beta, double* c, i64 ldc)
{
    if (ta) product<true, Fold>(tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else product<false, Fold>(tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace

void gemm_small_unfused(bool ta, bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda,
                        const double* b, i64 ldb, double beta, double* c, i64 ldc)
{
    if (alpha == 1.0) product_folded<AlphaFold::one>(ta, tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else if (alpha == -1.0) product_folded<AlphaFold::minus_one>(ta, tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else product_folded<AlphaFold::any>(ta, tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace orv
