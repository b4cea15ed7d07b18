// Products that read A and B where they lie, without packing.
//
// C is computed in register tiles of up to 4 x 4: eight two-lane
// accumulators, two A vectors and a broadcast of B fit the sixteen 128-bit
// registers of the baseline. Each tile runs over a block of the inner
// dimension and then writes its C elements once, scaled by alpha and added to
// beta * C. Every element's sum runs over k in order, so the result does not
// depend on where the arrays lie.
//
// The walk is blocked for the caches: a k-block of 256 and a row block of 64
// keep the part of A the column tiles share (at most 128 KiB) in the
// second-level cache while the columns of C pass over it.
#include "level3/gemm_unpacked.h"

#include <emmintrin.h>

#include "level3/gemm_driver.h"
#include "service/elements.h"

namespace orv {
namespace {

constexpr i64 kDepthBlock = 256;
constexpr i64 kRowBlock = 64;

i64 min_of(i64 x, i64 y) { return x < y ? x : y; }

// Strides of the operands: where the next k lies, and the next row of op(A)
// or column of op(B).
struct Walk {
    const double* a;  // op(A)(tile's first row, block's first k)
    const double* b;  // op(B)(block's first k, tile's first column)
    double* c;
    i64 a_next_k, a_next_row;
    i64 b_next_k, b_next_col;
    i64 ldc;
    double alpha, beta;
};

// A tile of 2 * V rows and NR columns over kb values of k.
template <bool TA, int V, int NR>
void tile_pairs(const Walk& w, i64 kb)
{
    __m128d acc[V][NR];
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j)
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) acc[v][j] = _mm_setzero_pd();
    const double* a = w.a;
    const double* b = w.b;
    for (i64 l = 0; l < kb; ++l) {
        __m128d av[V];
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) {
            if constexpr (TA) av[v] = _mm_loadh_pd(_mm_load_sd(a + 2 * v * w.a_next_row), a + (2 * v + 1) * w.a_next_row);
            else av[v] = _mm_loadu_pd(a + 2 * v);
        }
#pragma GCC unroll 4
        for (int j = 0; j < NR; ++j) {
            const __m128d bj = _mm_set1_pd(b[j * w.b_next_col]);
#pragma GCC unroll 2
            for (int v = 0; v < V; ++v) acc[v][j] = _mm_add_pd(acc[v][j], _mm_mul_pd(av[v], bj));
        }
        a += w.a_next_k;
        b += w.b_next_k;
    }
    const __m128d alpha = _mm_set1_pd(w.alpha), beta = _mm_set1_pd(w.beta);
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j)
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v) {
            double* p = w.c + 2 * v + j * w.ldc;
            const __m128d product = _mm_mul_pd(alpha, acc[v][j]);
            if (w.beta == 0.0) _mm_storeu_pd(p, product);
            else if (w.beta == 1.0) _mm_storeu_pd(p, _mm_add_pd(_mm_loadu_pd(p), product));
            else _mm_storeu_pd(p, _mm_add_pd(_mm_mul_pd(beta, _mm_loadu_pd(p)), product));
        }
}

// A tile of one row and NR columns.
template <int NR>
void tile_row(const Walk& w, i64 kb)
{
    double acc[NR];
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j) acc[j] = 0.0;
    const double* a = w.a;
    const double* b = w.b;
    for (i64 l = 0; l < kb; ++l) {
        const double al = *a;
#pragma GCC unroll 4
        for (int j = 0; j < NR; ++j) acc[j] += al * b[j * w.b_next_col];
        a += w.a_next_k;
        b += w.b_next_k;
    }
#pragma GCC unroll 4
    for (int j = 0; j < NR; ++j) {
        double* p = w.c + j * w.ldc;
        const double product = w.alpha * acc[j];
        if (w.beta == 0.0) *p = product;
        else if (w.beta == 1.0) *p = *p + product;
        else *p = w.beta * *p + product;
    }
}

// Rows [0, mb) of a column tile of width NR.
template <bool TA, int NR>
void column_tile(Walk w, i64 mb, i64 kb)
{
    i64 i = 0;
    for (; i + 4 <= mb; i += 4) {
        tile_pairs<TA, 2, NR>(w, kb);
        w.a += 4 * w.a_next_row;
        w.c += 4;
    }
    if (mb - i >= 2) {
        tile_pairs<TA, 1, NR>(w, kb);
        w.a += 2 * w.a_next_row;
        w.c += 2;
        i += 2;
    }
    if (i < mb) tile_row<NR>(w, kb);
}

template <bool TA>
void product(bool tb, i64 m, i64 n, i64 k, double alpha, const double* a, i64 lda, const double* b, i64 ldb,
             double beta, double* c, i64 ldc)
{
    const i64 a_next_k = TA ? 1 : lda, a_next_row = TA ? lda : 1;
    const i64 b_next_k = tb ? ldb : 1, b_next_col = tb ? 1 : ldb;
    for (i64 l0 = 0; l0 < k; l0 += kDepthBlock) {
        const i64 kb = min_of(kDepthBlock, k - l0);
        for (i64 i0 = 0; i0 < m; i0 += kRowBlock) {
            const i64 mb = min_of(kRowBlock, m - i0);
            for (i64 j = 0; j < n;) {
                const i64 width = n - j >= 4 ? 4 : n - j >= 2 ? 2 : 1;
                const Walk w{a + i0 * a_next_row + l0 * a_next_k,
                             b + l0 * b_next_k + j * b_next_col,
                             c + i0 + j * ldc,
                             a_next_k, a_next_row, b_next_k, b_next_col, ldc, alpha,
                             l0 == 0 ? beta : 1.0};  // later k-blocks add to the first
                if (width == 4) column_tile<TA, 4>(w, mb, kb);
                else if (width == 2) column_tile<TA, 2>(w, mb, kb);
                else column_tile<TA, 1>(w, mb, kb);
                j += width;
            }
        }
    }
}

void unpacked_product(const char* transa, const char* transb, i64 m, i64 n, i64 k, double alpha, const double* a,
                      i64 lda, const double* b, i64 ldb, double beta, double* c, i64 ldc)
{
    if (m < 1 || n < 1) return;
    if (alpha == 0.0 || k < 1) {
        scale_c(m, n, beta, c, ldc);
        return;
    }
    const bool tb = option_letter(transb) != 'N';
    if (option_letter(transa) != 'N')
        product<true>(tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
    else
        product<false>(tb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

}  // namespace

void direct_small_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                        const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                        const double* beta, double* c, const i64* ldc)
{
    unpacked_product(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

void tiny_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                const double* beta, double* c, const i64* ldc)
{
    unpacked_product(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

void unpacked_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                    const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                    const double* beta, double* c, const i64* ldc)
{
    unpacked_product(transa, transb, *m, *n, *k, *alpha, a, *lda, b, *ldb, *beta, c, *ldc);
}

}  // namespace orv
