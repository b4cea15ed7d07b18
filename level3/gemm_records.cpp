// Building the operand and operation records of a real matrix product.
#include "level3/gemm_records.h"

#include "level3/gemm_observer.h"
#include "service/elements.h"

namespace orv {

GemmObserver gemm_observer = nullptr;

GemmObserver set_gemm_observer(GemmObserver observer)
{
    const GemmObserver previous = gemm_observer;
    gemm_observer = observer;
    return previous;
}

double* column_major_addr(i64 i, i64 j, const MatrixDesc* d)
{
    return d->base + (i + d->row_offset) + (j + d->col_offset) * d->ld;
}

double* transposed_addr(i64 i, i64 j, const MatrixDesc* d)
{
    return d->base + (j + d->col_offset) + (i + d->row_offset) * d->ld;
}

static int storage_kind(char letter)
{
    switch (letter) {
    case 'N': return kStoredAsIs;
    case 'T': return kStoredTransposed;
    case 'C': return kStoredConjugated;
    default: return 0;
    }
}

MatrixDesc describe_operand(const char* trans, const double* x, i64 rows, i64 cols, i64 ld)
{
    const char letter = option_letter(trans);
    MatrixDesc d{};
    d.base = const_cast<double*>(x);  // read only: the driver writes through C's view alone
    d.rows = rows;
    d.cols = cols;
    d.ld = ld;
    d.full_rows = rows;
    d.kind = storage_kind(letter);
    d.elem_addr = letter == 'N' ? column_major_addr : transposed_addr;
    return d;
}

MatrixDesc describe_result(double* c, i64 rows, i64 cols, i64 ld)
{
    MatrixDesc d{};
    d.base = c;
    d.rows = rows;
    d.cols = cols;
    d.ld = ld;
    d.full_rows = rows;
    d.kind = kStoredAsIs;
    d.elem_addr = column_major_addr;
    return d;
}

int transposition_code(const char* trans)
{
    switch (option_letter(trans)) {
    case 'N': return 0;
    case 'T': return 1;
    case 'C': return 2;
    default: return -1;
    }
}

GemmOp describe_gemm(const char* transa, const char* transb, double alpha, double beta)
{
    GemmOp op{};
    op.transa = transa;
    op.transb = transb;
    op.alpha = alpha;
    op.beta = beta;
    op.roles[0] = op.roles[1] = op.roles[2] = 2;
    op.trans_a = transposition_code(transa);
    op.trans_b = transposition_code(transb);
    op.mode = kModePlainGemm;
    return op;
}

}  // namespace orv
