// Products that read A and B where they lie, without packing: the roads for
// small and thin shapes, and the fall-back of the blocked driver when no work
// buffer can be had. Each computes C := alpha * op(A) * op(B) + beta * C in
// full (beta 0 stores without reading C; alpha 0 or k 0 only scales C) and
// takes the thirteen arguments of the product by address.
#pragma once

#include "service/types.h"

namespace orv {

// Shapes with few elements of C per element of A and B (q = mn/(m+n) small),
// and the squares 9 and 12 with beta 0.
void direct_small_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                        const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                        const double* beta, double* c, const i64* ldc);

// m, n and k all at most 10, beta 1.
void tiny_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                const double* beta, double* c, const i64* ldc);

// Any shape; blocked for the caches but never copying: thin shapes, small
// products of the baseline routine and the driver's fall-back.
void unpacked_dgemm(const char* transa, const char* transb, const i64* m, const i64* n, const i64* k,
                    const double* alpha, const double* a, const i64* lda, const double* b, const i64* ldb,
                    const double* beta, double* c, const i64* ldc);

}  // namespace orv
