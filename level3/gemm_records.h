// The records that organise one blocked level-3 product on one thread: how
// each operand is addressed and shaped, what the operation is, which register
// tile the inner kernels use, which routines run it, and how it is cut into
// cache blocks. They are generic over the element type (double or dcomplex):
// every level-3 routine fills the same records with its own operand shapes
// and, where it needs one, its own block routine.
#pragma once

#include "level3/kernels/gemm_kernel.h"
#include "service/types.h"

namespace orv {

// ---- Operands -------------------------------------------------------------

// Kind bits of an operand: how op(X) relates to the stored X, and the shape
// of X. Without a shape bit X is general.
inline constexpr int kStoredAsIs = 1;         // 'N'
inline constexpr int kStoredTransposed = 2;   // 'T'
inline constexpr int kStoredConjugated = 4;   // 'C': for real data a plain transpose
inline constexpr int kLowerStored = 8;        // only the lower triangle of X is stored
inline constexpr int kUpperStored = 16;       // only the upper triangle
inline constexpr int kNonUnitDiagonal = 32;   // triangular with the stored diagonal
inline constexpr int kUnitDiagonal = 64;      // triangular, diagonal taken as ones and never read
inline constexpr int kSymmetric = 128;        // the other triangle mirrors the stored one
inline constexpr int kHermitian = 256;        // mirrored and conjugated; the diagonal's imaginary parts are zeros

template <class T>
struct MatrixDesc;
// Address of stored element (i, j) of the view `d` as op(X) sees it.
template <class T>
using ElemAddr = T* (*)(i64 i, i64 j, const MatrixDesc<T>* d);

// One operand as the driver sees it: op(X) with rows x cols elements. A and B
// are only ever read through it; the pointer is not const because C is
// described the same way.
template <class T>
struct MatrixDesc {
    T* base;
    i64 rows;
    i64 cols;
    i64 ld;
    int kind;  // kind bits above
    ElemAddr<T> elem_addr;
};

template <class T>
T* column_major_addr(i64 i, i64 j, const MatrixDesc<T>* d)
{
    return d->base + i + j * d->ld;
}
template <class T>
T* transposed_addr(i64 i, i64 j, const MatrixDesc<T>* d)
{
    return d->base + j + i * d->ld;
}

inline constexpr int kShapeBits = kSymmetric | kHermitian | kNonUnitDiagonal | kUnitDiagonal;

// True when the view reads its matrix transposed.
template <class T>
bool reads_transposed(const MatrixDesc<T>& d)
{
    return (d.kind & (kStoredTransposed | kStoredConjugated)) != 0;
}
template <class T>
bool is_general(const MatrixDesc<T>& d)
{
    return (d.kind & kShapeBits) == 0;
}

// The transposition letter of a view's storage bits.
inline char view_letter(int kind)
{
    if (kind & kStoredAsIs) return 'N';
    return (kind & kStoredConjugated) ? 'C' : 'T';
}

// The storage bit of a transposition letter (read at its first character,
// either case): 'N' as is, 'T' transposed, 'C' conjugate-transposed; any
// other letter reads transposed.
int storage_kind(const char* trans);

// op(X) as rows x cols, with the kind bits `kind`: X is read transposed
// unless kind has kStoredAsIs.
template <class T>
MatrixDesc<T> describe_operand(int kind, const T* x, i64 rows, i64 cols, i64 ld)
{
    const bool as_is = (kind & kStoredAsIs) != 0;
    return {const_cast<T*>(x), rows, cols, ld, kind, as_is ? column_major_addr<T> : transposed_addr<T>};
}
// C, always stored as is.
template <class T>
MatrixDesc<T> describe_result(T* c, i64 rows, i64 cols, i64 ld)
{
    return {c, rows, cols, ld, kStoredAsIs, column_major_addr<T>};
}

// ---- The operation --------------------------------------------------------

template <class T>
struct GemmOp {
    T alpha;
    T beta;
};

// ---- Kernel parameters ----------------------------------------------------

inline constexpr int kTileModeDefault = 2;
inline constexpr int kTileModeAlternative = 16;
inline constexpr int kLoopOrderDefault = 2;
inline constexpr int kLoopOrderAlternative = 4;

struct KernelParams;
// Settles the tile of the record for its tile mode; 1 when the record already
// held that tile, 0 when it had to be corrected.
using TileChooser = int (*)(KernelParams* p);

struct KernelParams {
    i64 mr;          // rows of the register tile, in elements
    i64 nr;          // columns of the register tile
    i64 ku;          // packed panels are cut to depths that are a multiple of this
    int loop_order;  // kLoopOrderDefault, kLoopOrderAlternative (0 until chosen)
    int tile_mode;   // kTileModeDefault, kTileModeAlternative (0 until chosen)
    TileChooser choose_tile;
    i64 b_copies;    // the chosen tile's GemmTile::b_copies: how often packed B holds each value
    i64 elem_bytes;  // bytes of one element: 8 real, 16 complex
};

// ---- Cache blocks and the work buffer -------------------------------------

// One packed operand inside the work buffer.
struct PackedView {
    i64 rows;          // capacity: rows x cols of op(X)
    i64 cols;
    i64 panel;         // rows of an A panel, columns of a B panel
    i64 panel_stride;  // elements of one full panel at the block's depth
    void* data;
};

struct BlockPlan;
using BufferAcquire = void (*)(BlockPlan* plan);
using BufferRelease = void (*)(BlockPlan* plan);

struct BlockPlan {
    i64 mc;               // rows of A and C per block
    i64 nc;               // columns of B and C per slice
    i64 kc;               // depth of a block of the inner dimension
    i64 depth_capacity;   // the deepest block the buffer holds (kc plus a short tail merged into the last)
    i64 elem_bytes;       // bytes of one packed element
    BufferAcquire acquire;
    BufferRelease release;
    PackedView a;
    PackedView b;
    void* buffer;         // null when the memory manager could not supply it
};

// ---- The routines of one call ---------------------------------------------

// Rows [i0, i0 + rows) x columns [l0, l0 + depth) of op(A), times alpha, into
// row panels of mr rows and then the narrower panels of the remainder.
template <class T>
using PackA = void (*)(const MatrixDesc<T>* a, i64 i0, i64 rows, i64 l0, i64 depth, T alpha, i64 mr, T* dst);
// Rows [l0, l0 + depth) x columns [j0, j0 + cols) of op(B), times factor, into
// column panels of nr columns and then the narrower panels of the remainder.
template <class T>
using PackB = void (*)(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst);

// One row panel of packed A times one packed slice of B, for the block of C
// whose first element is (i, j) of the whole C; the k-block starts at depth l.
template <class T>
struct BlockTask {
    const GemmTile* tile;
    i64 i, j, l;
    i64 h, w, k;  // rows, columns, depth
    const T* a;
    const T* b;
    T* c;         // element (i, j)
    i64 ldc;
    bool store;   // the first k-block with beta 0: C is written, not read
};
// The block routine: the standard one runs the tile's kernel; a routine may
// put its own, which treats blocks on the diagonal of C or of an operand
// differently or skips blocks that are zero.
template <class T>
using BlockRoutine = void (*)(const BlockTask<T>& task);

template <class T>
using ScaleRoutine = void (*)(i64 m, i64 n, T beta, T* c, i64 ldc);
template <class T>
struct GemmPlan;
// The whole product without a work buffer; beta is 0 or 1 by then.
template <class T>
using FallbackRoutine = void (*)(const GemmOp<T>& op, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                                 const MatrixDesc<T>& c, const GemmPlan<T>& plan);
using BlockSizes = void (*)(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan);

struct GemmPath;

template <class T>
struct GemmPlan {
    const GemmPath* path;     // the code path whose kernels run it
    PackA<T> pack_a;
    PackB<T> pack_b;
    BlockRoutine<T> block;
    ScaleRoutine<T> scale;
    FallbackRoutine<T> fallback;
    KernelParams params;
    const GemmTile* tile;     // the kernels of the chosen tile
    BlockSizes block_sizes;
};

}  // namespace orv
