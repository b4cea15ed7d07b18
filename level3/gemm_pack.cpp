// Packing op(A) and op(B) into the panel layouts of the inner kernels.
#include "level3/gemm_pack.h"

namespace orv {

i64 next_panel_width(i64 remaining, i64 full)
{
    if (remaining >= full) return full;
    i64 width = 1;
    while (2 * width <= remaining) width *= 2;
    return width;
}

namespace {

constexpr i64 kPrefetchColumns = 8;

// One A panel of h rows from a source where row r of column l lies at
// src[r + l * ld]: each column's h values are contiguous.
void a_panel_from_columns(const double* src, i64 ld, i64 h, i64 depth, double alpha, double* dst)
{
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        const double* s0 = src + l * ld;
        const double* s1 = s0 + ld;
        // The columns lie a leading dimension apart, too far for the
        // hardware to guess: ask for the ones eight steps ahead.
        if (l + kPrefetchColumns + 2 <= depth) {
            const double* ahead = s0 + kPrefetchColumns * ld;
            __builtin_prefetch(ahead);
            __builtin_prefetch(ahead + h - 1);
            __builtin_prefetch(ahead + ld);
            __builtin_prefetch(ahead + ld + h - 1);
        }
        double* d = dst + l * h;
        for (i64 r = 0; r < h; ++r) d[r] = alpha * s0[r];
        for (i64 r = 0; r < h; ++r) d[h + r] = alpha * s1[r];
    }
    if (l < depth) {
        const double* s0 = src + l * ld;
        double* d = dst + l * h;
        for (i64 r = 0; r < h; ++r) d[r] = alpha * s0[r];
    }
}

// One A panel of h rows from a source where row r of column l lies at
// src[l + r * ld]: the values of two neighbouring columns are adjacent.
void a_panel_from_rows(const double* src, i64 ld, i64 h, i64 depth, double alpha, double* dst)
{
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        double* d = dst + l * h;
        for (i64 r = 0; r < h; ++r) {
            const double* s = src + l + r * ld;
            d[r] = alpha * s[0];
            d[h + r] = alpha * s[1];
        }
    }
    if (l < depth) {
        double* d = dst + l * h;
        for (i64 r = 0; r < h; ++r) d[r] = alpha * src[l + r * ld];
    }
}

// One B panel of w columns from a source where row l of column c lies at
// src[l + c * ld]: the values of two neighbouring rows are adjacent.
void b_panel_from_columns(const double* src, i64 ld, i64 w, i64 depth, double* dst)
{
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        double* d = dst + l * w;
        for (i64 c = 0; c < w; ++c) {
            const double* s = src + l + c * ld;
            d[c] = s[0];
            d[w + c] = s[1];
        }
    }
    if (l < depth) {
        double* d = dst + l * w;
        for (i64 c = 0; c < w; ++c) d[c] = src[l + c * ld];
    }
}

// One B panel of w columns from a source where row l of column c lies at
// src[c + l * ld]: each row's w values are contiguous.
void b_panel_from_rows(const double* src, i64 ld, i64 w, i64 depth, double* dst)
{
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        const double* s0 = src + l * ld;
        const double* s1 = s0 + ld;
        double* d = dst + l * w;
        for (i64 c = 0; c < w; ++c) d[c] = s0[c];
        for (i64 c = 0; c < w; ++c) d[w + c] = s1[c];
    }
    if (l < depth) {
        const double* s0 = src + l * ld;
        double* d = dst + l * w;
        for (i64 c = 0; c < w; ++c) d[c] = s0[c];
    }
}

}  // namespace

// The source pointer of each panel is taken through the view's element
// address once; inside a panel the walk uses the leading dimension directly.

void pack_a_plain(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr, double* dst)
{
    for (i64 r = 0; r < rows;) {
        const i64 h = next_panel_width(rows - r, mr);
        a_panel_from_columns(a->elem_addr(i0 + r, l0, a), a->ld, h, depth, alpha, dst + r * depth);
        r += h;
    }
}

void pack_a_transposed(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr,
                       double* dst)
{
    for (i64 r = 0; r < rows;) {
        const i64 h = next_panel_width(rows - r, mr);
        a_panel_from_rows(a->elem_addr(i0 + r, l0, a), a->ld, h, depth, alpha, dst + r * depth);
        r += h;
    }
}

void pack_b_plain(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, i64 nr, double* dst)
{
    for (i64 c = 0; c < cols;) {
        const i64 w = next_panel_width(cols - c, nr);
        b_panel_from_columns(b->elem_addr(l0, j0 + c, b), b->ld, w, depth, dst + c * depth);
        c += w;
    }
}

void pack_b_transposed(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, i64 nr, double* dst)
{
    for (i64 c = 0; c < cols;) {
        const i64 w = next_panel_width(cols - c, nr);
        b_panel_from_rows(b->elem_addr(l0, j0 + c, b), b->ld, w, depth, dst + c * depth);
        c += w;
    }
}

}  // namespace orv
