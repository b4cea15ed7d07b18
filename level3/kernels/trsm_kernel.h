// Kernels of the real triangular solve, one set per code path: the solve of
// the diagonal blocks of the blocked road, and the direct kernel that reads A
// and B where they lie.
//
// The blocked road hands a diagonal-block kernel a packed block of right-hand
// sides and the packed triangle. Each right-hand side is a row x of the block
// (the block's columns are the unknowns), solved as x * M = p with M upper
// (forward: unknowns in ascending order) or lower (backward). Packed block:
// panels of the GEMM tile's layout, a panel of h rows holding, unknown after
// unknown, its h values. Side R packs B with the GEMM packer of A (rows of B
// are the right-hand sides, h = mr); side L packs B with the GEMM packer of B
// (columns of B are the right-hand sides of M = op(A)^T, h = nr, each value
// kBCopies times). Packed triangle: chunks of the unknowns, `chunk` wide and
// then the binary digits of the remainder, widest first; the chunk that
// starts at unknown c0, w wide, lies at tri + c0 * kb * copies and holds for
// each row l of M its w values (times copies): -M(l, j) off the diagonal,
// 1 / M(j, j) on it (1 for a unit diagonal). A kernel writes each solved
// value back into the packed block, where the GEMM updates that follow read
// it, and into B.
//
// The complex kernels take the panels as the complex GEMM tile packs them
// (each element as its two parts, real first, each part kBCopies times in
// packed B) and a packed triangle of complex values held once; b points to
// B's element and ldb counts elements.
#pragma once

#include "service/types.h"

namespace orv {

// Solves the `extent` right-hand sides (rows of B on side R, columns on side
// L) of a packed block kb unknowns deep; b is B's element of the block's
// first unknown and first right-hand side.
using TrsmBlockSolve = void (*)(i64 extent, i64 kb, double* packed, const double* tri, double* b, i64 ldb);

// The whole solve on B in place, alpha already applied: op(A) * X = B (left)
// or X * op(A) = B; A is read in place, its diagonal divides.
using TrsmDirect = void (*)(bool left, bool upper, bool trans, bool unit, i64 m, i64 n, const double* a, i64 lda,
                            double* b, i64 ldb);

// The diagonal-block kernels of one element type.
struct TrsmSolves {
    i64 left_chunk;   // chunk width of the packed triangle on side L
    i64 right_chunk;  // and on side R
    TrsmBlockSolve left_forward;   // side L, op(A) lower
    TrsmBlockSolve left_backward;  // side L, op(A) upper
    TrsmBlockSolve right_forward;  // side R, op(A) upper
    TrsmBlockSolve right_backward; // side R, op(A) lower
};

struct TrsmKernels {
    TrsmSolves real;
    TrsmSolves complex;
    TrsmDirect direct;  // real only
};

namespace avx512 {
extern const TrsmKernels kTrsmKernels;
}  // namespace avx512
namespace avx512_qix {
extern const TrsmKernels kTrsmKernels;
}  // namespace avx512_qix
namespace avx2 {
extern const TrsmKernels kTrsmKernels;
}  // namespace avx2
namespace avx {
extern const TrsmKernels kTrsmKernels;
}  // namespace avx
namespace mc3 {
extern const TrsmKernels kTrsmKernels;
}  // namespace mc3
namespace mc {
extern const TrsmKernels kTrsmKernels;
}  // namespace mc
namespace def {
extern const TrsmKernels kTrsmKernels;
}  // namespace def

}  // namespace orv
