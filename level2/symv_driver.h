// The threaded symmetric matrix-vector product: the inner layer of dsymv_.
// Arguments as the standard routine's, all by address with 64-bit integers
// (see level2/symv_kernel.h for the kernels' contract).
//
// A large matrix is cut into parts of equal stored area, runs of whole
// columns; each part adds its contribution into a work vector of its own
// (one part may add straight into y), and the work vectors are then added
// into y in a fixed order. Results depend on the number of parts, never on
// thread timing or on the team the runtime grants.
#pragma once

#include "service/types.h"

void orv_blas_dsymv(const char* uplo, const orv::i64* n, const double* alpha, const double* a, const orv::i64* lda,
                    const double* x, const orv::i64* incx, const double* beta, double* y, const orv::i64* incy);

namespace orv::l2 {

// The columns lo..hi-1 of part k of `parts` of an n x n triangle.
struct SymvPart {
    i64 lo, hi;
};
SymvPart symv_part(bool upper, i64 n, i64 parts, i64 k);

}  // namespace orv::l2
