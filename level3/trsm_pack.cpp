// Packing a diagonal block of the triangle for the diagonal-block kernels.
#include "level3/trsm_pack.h"

#include "level3/gemm_pack.h"
#include "service/elements.h"

namespace orv {

template <typename T, bool Unit, bool Conj>
void pack_triangle(const T* a, i64 lda, bool swap, bool upper, i64 kb, i64 chunk, i64 copies, T* dst)
{
    const i64 step = swap ? lda : 1, stride = swap ? 1 : lda;  // M(l', l) at a[l' * step + l * stride]
    for (i64 c0 = 0, w; c0 < kb; c0 += w) {
        w = next_panel_width(kb - c0, chunk);
        T* block = dst + c0 * kb * copies;
        for (i64 jj = 0; jj < w; ++jj) {
            const i64 l = c0 + jj;
            const T* column = a + l * stride;
            const i64 first = upper ? 0 : l + 1, last = upper ? l : kb;  // off the diagonal
            for (i64 r = first; r < last; ++r) {
                const T v = -conj_if<Conj>(column[r * step]);
                for (i64 q = 0; q < copies; ++q) block[(r * w + jj) * copies + q] = v;
            }
            const T d = Unit ? one_of<T>() : one_of<T>() / conj_if<Conj>(column[l * step]);
            for (i64 q = 0; q < copies; ++q) block[(l * w + jj) * copies + q] = d;
        }
    }
}

template void pack_triangle<double, true, false>(const double*, i64, bool, bool, i64, i64, i64, double*);
template void pack_triangle<double, false, false>(const double*, i64, bool, bool, i64, i64, i64, double*);
template void pack_triangle<dcomplex, true, false>(const dcomplex*, i64, bool, bool, i64, i64, i64, dcomplex*);
template void pack_triangle<dcomplex, false, false>(const dcomplex*, i64, bool, bool, i64, i64, i64, dcomplex*);
template void pack_triangle<dcomplex, true, true>(const dcomplex*, i64, bool, bool, i64, i64, i64, dcomplex*);
template void pack_triangle<dcomplex, false, true>(const dcomplex*, i64, bool, bool, i64, i64, i64, dcomplex*);

}  // namespace orv
