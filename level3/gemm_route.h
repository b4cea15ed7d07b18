// Which road a real matrix product takes on a code path, and the product
// routed accordingly.
#pragma once

#include "level3/gemm_observer.h"
#include "level3/gemm_path.h"

namespace orv {

// The values the decision is made on: the option letters (folded to upper
// case), the sizes and the two scalars.
struct GemmShape {
    char ta;
    char tb;
    i64 m;
    i64 n;
    i64 k;
    double alpha;
    double beta;
};

// The shape of a call, from the arguments as the dispatched member receives them.
GemmShape gemm_shape(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                     const double* alpha, const double* beta);

// The road `path` takes for `shape`: none, direct, tiny, scaled (C scaled by
// beta and nothing more), thin (the unpacked kernel) or blocked. Whether the
// blocked driver then finds its buffer is decided only when it runs.
GemmEvent choose_gemm_road(const GemmPath& path, const GemmShape& shape);

// C := alpha * op(A) * op(B) + beta * C on `path`, all arguments as the
// dispatched member receives them.
void routed_dgemm(const GemmPath& path, const char* transa, const char* transb, const i64* m, const i64* n,
                  const i64* k, const double* alpha, const double* a, const i64* lda, const double* b,
                  const i64* ldb, const double* beta, double* c, const i64* ldc);

// The dgemm member of the build that `Path` describes. The compatible build
// runs the baseline's member, whose results depend neither on the processor
// nor on the placement of the arrays.
template <const GemmPath& Path>
void dgemm_member(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                  const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                  const double* beta, double* c, const i64* ldc)
{
    routed_dgemm(Path, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

// C := alpha * op(A) * op(B) + beta * C for complex elements on `path`: the
// blocked driver with the path's complex tile; without a work buffer, the
// product read in place, which gives an element the same bits.
void routed_zgemm(const GemmPath& path, const char* transa, const char* transb, const i64* m, const i64* n,
                  const i64* k, const dcomplex* alpha, const dcomplex* a, const i64* lda, const dcomplex* b,
                  const i64* ldb, const dcomplex* beta, dcomplex* c, const i64* ldc);

template <const GemmPath& Path>
void zgemm_member(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                  const dcomplex* alpha, const dcomplex* a, const i64* lda, const dcomplex* b, const i64* ldb,
                  const dcomplex* beta, dcomplex* c, const i64* ldc)
{
    routed_zgemm(Path, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

// The product of general or shaped operands on `path`, with the path's
// tile for T and `block` as the block routine: C := alpha op(A) op(B) +
// beta C over the views' sizes. C is scaled by beta first (0 clears it) and
// the blocks add to it; a routine whose block routine touches only part of C
// scales that part itself and passes beta 1. Without a work buffer the
// same packers and block routine run on one tile at a time from the stack.
template <class T>
void blocked_product(const GemmPath& path, T alpha, T beta, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                     const MatrixDesc<T>& c, BlockRoutine<T> block);

// C := op(A) op(B) where C is also one of the operands (a triangular product
// in place): C is not cleared first, the first k-block stores. Safe when the
// product is one k-block deep, every block stores and the other operand is
// unshaped: each value of C's operand is then packed before its place in C
// is written. Without a work buffer `fallback` computes it.
template <class T>
void product_over_operand(const GemmPath& path, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                          const MatrixDesc<T>& c, BlockRoutine<T> block, FallbackRoutine<T> fallback);

}  // namespace orv
