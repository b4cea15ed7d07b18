// Packing op(A) and op(B) into the panel layouts of the inner kernels.
//
// A block of op(A) becomes row panels: full panels of mr rows, then one panel
// for each binary digit of the row remainder, widest first. A panel of h rows
// holds, column after column, the h values of each column, times alpha. A
// block of op(B) becomes column panels the same way: full panels of nr
// columns, then the remainder's digits; a panel of w columns holds, row after
// row, the w values of each row. Panels follow each other without gaps or
// padding, so the panel that starts at row (column) r of the block starts at
// element r * depth of the packed block.
//
// A complex element is packed as its two parts, real first. The real
// packers read two steps of depth of a panel at a time and finish an odd last
// one alone: for sources that hold a panel's lines along the depth, the two
// values of a line are adjacent in memory.
#pragma once

#include "level3/gemm_records.h"

namespace orv {

// Width of the next panel when `remaining` rows (columns) are left and full
// panels have `full`: the full width, else the highest binary digit of the
// remainder.
i64 next_panel_width(i64 remaining, i64 full);

// Any operand, general or shaped (symmetric, Hermitian, triangular): see
// PackA and PackB. On the squares of a shaped operand that the diagonal of
// op(X) crosses, each step is two runs of lines, one either side of the
// diagonal, and the diagonal value; elsewhere the panels read the stored
// triangle or its mirror with the general gathers, or are zero.
template <class T>
void pack_a(const MatrixDesc<T>* a, i64 i0, i64 rows, i64 l0, i64 depth, T alpha, i64 mr, T* dst);
template <class T>
void pack_b(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst);
// The same B panels with every value written twice in a row, for tiles that
// want a broadcast pair from one load (GemmTile::b_copies = 2).
template <class T>
void pack_b_doubled(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst);

}  // namespace orv
