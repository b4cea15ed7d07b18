// FMA peak of 512-bit registers (compiled with -mavx512f): sixteen
// independent chains of fused multiply-adds, enough to cover the latency of
// both FMA pipes.
#include <immintrin.h>

namespace bench {

extern const double kPeakAvx512Flops = 16 * 8 * 2;

double peak_avx512_fma(long rounds, double a, double b)
{
    const __m512d va = _mm512_set1_pd(a), vb = _mm512_set1_pd(b);
    __m512d c[16];
    for (int i = 0; i < 16; ++i) c[i] = _mm512_set1_pd(1.0 + i);
    for (long r = 0; r < rounds; ++r) {
#pragma GCC unroll 16
        for (int i = 0; i < 16; ++i) c[i] = _mm512_fmadd_pd(c[i], va, vb);
    }
    __m512d t = c[0];
    for (int i = 1; i < 16; ++i) t = _mm512_add_pd(t, c[i]);
    double out[8];
    _mm512_storeu_pd(out, t);
    return out[0] + out[1] + out[2] + out[3] + out[4] + out[5] + out[6] + out[7];
}

}  // namespace bench
