// Packing a diagonal block of the triangle for the diagonal-block kernels of
// the triangular solve (level3/kernels/trsm_kernel.h gives the layout).
#pragma once

#include "service/types.h"

namespace orv {

// The kb x kb block M of the solve x * M = p, with M(l', l) at a[l' + l * lda]
// or, when `swap` is set, at a[l + l' * lda]; M is upper (or lower)
// triangular and only that triangle is read. Chunks of `chunk` unknowns and
// then the binary digits of the remainder; each value written `copies` times
// in a row. Off the diagonal -M goes in, on it 1 / M(l, l), or 1 for a unit
// diagonal, which is not read; Conj takes the conjugate of every value of M.
template <typename T, bool Unit, bool Conj>
void pack_triangle(const T* a, i64 lda, bool swap, bool upper, i64 kb, i64 chunk, i64 copies, T* dst);

template <typename T>
using PackTriangle = void (*)(const T* a, i64 lda, bool swap, bool upper, i64 kb, i64 chunk, i64 copies, T* dst);

}  // namespace orv
