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
// Each packer reads two steps of depth of its panel at a time and finishes an
// odd last one alone: for sources that hold a panel's lines along the depth,
// the two values of a line are adjacent in memory.
#pragma once

#include "level3/gemm_records.h"

namespace orv {

// Width of the next panel when `remaining` rows (columns) are left and full
// panels have `full`: the full width, else the highest binary digit of the
// remainder.
i64 next_panel_width(i64 remaining, i64 full);

// op(A) stored as is, or transposed: see PackA.
void pack_a_plain(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr, double* dst);
void pack_a_transposed(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr,
                       double* dst);

// op(B) stored as is, or transposed: see PackB.
void pack_b_plain(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst);
void pack_b_transposed(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst);
// The same panels with every value written twice in a row, for tiles that
// want a broadcast pair from one load (GemmTile::b_copies = 2).
void pack_b_plain_doubled(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst);
void pack_b_transposed_doubled(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst);

}  // namespace orv
