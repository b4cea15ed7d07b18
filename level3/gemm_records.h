// The records that organise one real matrix product on one thread: how each
// operand is addressed, what the operation is, which register tile the inner
// kernels use, which routines run it, and how it is cut into cache blocks.
//
// The threaded layer and the other level-3 routines that reuse the blocked
// driver build the same records, so they are plain structs of fixed layout.
#pragma once

#include "level3/kernels/gemm_kernel.h"
#include "service/types.h"

namespace orv {

// ---- Operands -------------------------------------------------------------

// Storage codes of an operand: how op(X) relates to the stored X.
inline constexpr int kStoredAsIs = 1;        // 'N'
inline constexpr int kStoredTransposed = 2;  // 'T'
inline constexpr int kStoredConjugated = 4;  // 'C': for real data a plain transpose

struct MatrixDesc;
// Address of element (i, j) of the view `d`, offsets included.
using ElemAddr = double* (*)(i64 i, i64 j, const MatrixDesc* d);

// One operand as the driver sees it: op(X) with rows x cols elements. A and B
// are only ever read through it; the pointer is not const because C is
// described the same way.
struct MatrixDesc {
    double* base;
    i64 rows;
    i64 cols;
    i64 ld;
    i64 row_offset;  // a sub-block view starts at (row_offset, col_offset)
    i64 col_offset;
    i64 full_rows;   // rows before any clipping
    int kind;        // kStoredAsIs, kStoredTransposed, kStoredConjugated, 0 otherwise
    ElemAddr elem_addr;
};

double* column_major_addr(i64 i, i64 j, const MatrixDesc* d);
double* transposed_addr(i64 i, i64 j, const MatrixDesc* d);

// op(X) as rows x cols for transposition letter `trans` (read at its first
// character, either case). Any letter but 'N' reads X transposed.
MatrixDesc describe_operand(const char* trans, const double* x, i64 rows, i64 cols, i64 ld);
// C, always stored as is.
MatrixDesc describe_result(double* c, i64 rows, i64 cols, i64 ld);

// True when the view reads its matrix transposed.
inline bool reads_transposed(const MatrixDesc& d) { return (d.kind & (kStoredTransposed | kStoredConjugated)) != 0; }

// ---- The operation --------------------------------------------------------

inline constexpr int kModePlainGemm = 0;

struct GemmOp {
    i64 counters[3];     // cleared; bookkeeping of the routines that reuse the driver
    const char* transa;
    const char* transb;
    double alpha;
    double beta;
    int roles[3];        // 2 each for a plain product; other routines may set the first to 0 to swap A and B
    int trans_a;         // 'N' 0, 'T' 1, 'C' 2, anything else -1
    int trans_b;
    int mode;            // kModePlainGemm, or the reusing routine's mode
};

GemmOp describe_gemm(const char* transa, const char* transb, double alpha, double beta);
// The transposition code of a letter: 'N' 0, 'T' 1, 'C' 2, anything else -1.
int transposition_code(const char* trans);

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
    i64 reserved[2];
    i64 mr;          // rows of the register tile
    i64 nr;          // columns of the register tile
    i64 ku;          // packed panels are cut to depths that are a multiple of this
    i64 chosen_mr;   // the tile as the chooser confirmed it
    i64 chosen_nr;
    i64 chosen_ku;
    int loop_order;  // kLoopOrderDefault, kLoopOrderAlternative (0 until chosen)
    int tile_mode;   // kTileModeDefault, kTileModeAlternative (0 until chosen)
    i64 alignment;   // 4 unless set
    TileChooser choose_tile;
    i64 b_copies;    // the chosen tile's GemmTile::b_copies: how often packed B holds each value
};

// ---- Cache blocks and the work buffer -------------------------------------

// One packed operand inside the work buffer.
struct PackedView {
    i64 rows;          // capacity: rows x cols of op(X)
    i64 cols;
    i64 panel;         // rows of an A panel, columns of a B panel
    i64 panel_stride;  // elements of one full panel at the block's depth
    i64 reserved;      // 128
    double* data;
};

struct BlockPlan;
using BufferAcquire = void (*)(BlockPlan* plan);
using BufferRelease = void (*)(BlockPlan* plan);

struct BlockPlan {
    i64 mc;               // rows of A and C per block
    i64 nc;               // columns of B and C per slice
    i64 kc;               // depth of a block of the inner dimension
    i64 depth_capacity;   // the deepest block the buffer holds (kc plus a short tail merged into the last)
    // Layout of the work buffer: slack past the end, the size above which the
    // buffer is rounded to whole huge pages, the offset of B past a page
    // boundary, the page size; and whether the per-thread cache may serve it.
    i64 slack_bytes;      // 1664
    i64 huge_page;        // 2097152
    i64 b_offset;         // 768
    i64 page;             // 4096
    int cached;           // 1
    int loop_variant;     // 2 with tile mode 4, else 3
    BufferAcquire acquire;
    BufferAcquire acquire_second;  // unused by the plain product
    BufferRelease release;
    PackedView a;
    PackedView b;
    void* buffer;         // null when the memory manager could not supply it
};
static_assert(sizeof(BlockPlan) <= 256, "a caller's plan is copied as 256 bytes at most");

// ---- The routines of one call ---------------------------------------------

// Rows [i0, i0 + rows) x columns [l0, l0 + depth) of op(A), times alpha, into
// row panels of mr rows and then the narrower panels of the remainder.
using PackA = void (*)(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr,
                       double* dst);
// Rows [l0, l0 + depth) x columns [j0, j0 + cols) of op(B), times factor, into
// column panels of nr columns and then the narrower panels of the remainder.
using PackB = void (*)(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                       double* dst);
// C[0..m-1, 0..n-1] (beta 0: =, else +=) packed A times packed B.
using BlockRoutine = void (*)(const GemmTile* tile, i64 m, i64 n, i64 k, const double* a, const double* b, double* c,
                              i64 ldc, double beta);
using ScaleRoutine = void (*)(i64 m, i64 n, double beta, double* c, i64 ldc);
// The thirteen arguments of the product, by address.
using GemmRoutine = void (*)(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                             const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                             const double* beta, double* c, const i64* ldc);
struct GemmPlan;
using DriverRoutine = void (*)(const GemmOp* op, const MatrixDesc* a, const MatrixDesc* b, const MatrixDesc* c,
                               const BlockPlan* caller_plan, const GemmPlan* plan);
using BlockSizes = void (*)(i64 m, i64 n, i64 k, const KernelParams* params, BlockPlan* plan);

struct GemmPlan {
    i64 thin_rows;         // 8: op(A) transposed times B as is goes unpacked below this many rows
    i64 thin_cols;         // 4: the other forms go unpacked below this many columns
    i64 reserved_word;     // 4
    PackA pack_a;
    PackB pack_b;
    void* reserved_pack[2];
    BlockRoutine block;
    void* reserved_block;
    ScaleRoutine scale;
    DriverRoutine driver;
    GemmRoutine fallback;  // the whole product without a buffer
    void* mode_slots[2];
    KernelParams params;
    const GemmTile* tile;  // the kernels of the chosen tile
    BlockSizes block_sizes;
};

}  // namespace orv
