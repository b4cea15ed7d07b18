// Register-blocked inner kernels of the real matrix product, one pair per code
// path. The blocked driver packs A and B into the panel layouts below and hands
// every pair of packed blocks to the kernel of its tile; all floating-point
// work of a blocked product happens in these kernels.
#pragma once

#include "service/types.h"

namespace orv {

// C[0..m-1, 0..n-1] += (accumulate) or = (store) packed A times packed B.
// Packed A: row panels of mr rows, then the narrower panels given by the binary digits of the row remainder
// (descending powers of two below mr, each present only when its bit is set); each panel holds k columns,
// its h values of a column consecutive, column after column; panels follow each other with no gap or padding.
// Packed B: column panels of nr columns, then the narrower panels by the binary digits of the column remainder;
// each panel holds k rows, its w values of a row consecutive, row after row; a tile with b_copies = 2 wants every
// value of packed B written twice in a row (so that one plain load gives a broadcast pair). Alpha is already
// inside packed A.
// The store variant never reads C. m, n, k >= 0 by reference; ldc in elements.
using GemmMicroKernel = void (*)(const i64* m, const i64* n, const i64* k, const double* a, const double* b,
                                 double* c, const i64* ldc);

struct GemmTile {
    int mr;                     // rows of the register tile
    int nr;                     // columns of the register tile
    int b_copies;               // times each value of packed B is stored in a row (1 or 2)
    GemmMicroKernel accumulate;
    GemmMicroKernel store;
};

// Each path offers its default tile and an alternative one (paths with a
// single tile give the same tile twice), and a complex tile on the registers
// of the default one: m, n and k then count complex elements, and packed A
// and B hold each element as its two parts (see gemm_tile.inc).
namespace avx512 {
extern const GemmTile kGemmTile;     // 24 x 8
extern const GemmTile kGemmTileAlt;  // 8 x 6
extern const GemmTile kZgemmTile;   // 12 x 4 complex
}  // namespace avx512
namespace avx512_qix {
extern const GemmTile kGemmTile;     // 8 x 28
extern const GemmTile kGemmTileAlt;  // 24 x 8
extern const GemmTile kZgemmTile;   // 4 x 14 complex
}  // namespace avx512_qix
namespace avx2 {
extern const GemmTile kGemmTile;     // 12 x 4
extern const GemmTile kGemmTileAlt;  // 8 x 6
extern const GemmTile kZgemmTile;   // 4 x 3 complex
}  // namespace avx2
namespace avx {
extern const GemmTile kGemmTile;     // 8 x 4
extern const GemmTile kGemmTileAlt;  // the same
extern const GemmTile kZgemmTile;   // 4 x 2 complex
}  // namespace avx
namespace mc3 {
extern const GemmTile kGemmTile;     // 4 x 4
extern const GemmTile kGemmTileAlt;  // the same
extern const GemmTile kZgemmTile;   // 2 x 2 complex
}  // namespace mc3
namespace mc {
extern const GemmTile kGemmTile;     // 4 x 4
extern const GemmTile kGemmTileAlt;  // the same
extern const GemmTile kZgemmTile;   // 2 x 2 complex
}  // namespace mc
namespace def {
extern const GemmTile kGemmTile;     // 4 x 4
extern const GemmTile kGemmTileAlt;  // the same
extern const GemmTile kZgemmTile;   // 2 x 2 complex
}  // namespace def

}  // namespace orv
