// FMA peak of 256-bit registers (compiled with -mavx2 -mfma): twelve
// independent chains of fused multiply-adds, enough to cover the latency of
// both FMA pipes.
#include <immintrin.h>

namespace bench {

extern const double kPeakAvx2Flops = 12 * 4 * 2;

double peak_avx2_fma(long rounds, double a, double b)
{
    const __m256d va = _mm256_set1_pd(a), vb = _mm256_set1_pd(b);
    __m256d c0 = _mm256_set1_pd(1.0), c1 = _mm256_set1_pd(2.0), c2 = _mm256_set1_pd(3.0);
    __m256d c3 = _mm256_set1_pd(4.0), c4 = _mm256_set1_pd(5.0), c5 = _mm256_set1_pd(6.0);
    __m256d c6 = _mm256_set1_pd(7.0), c7 = _mm256_set1_pd(8.0), c8 = _mm256_set1_pd(9.0);
    __m256d c9 = _mm256_set1_pd(10.0), c10 = _mm256_set1_pd(11.0), c11 = _mm256_set1_pd(12.0);
    for (long r = 0; r < rounds; ++r) {
        c0 = _mm256_fmadd_pd(c0, va, vb);
        c1 = _mm256_fmadd_pd(c1, va, vb);
        c2 = _mm256_fmadd_pd(c2, va, vb);
        c3 = _mm256_fmadd_pd(c3, va, vb);
        c4 = _mm256_fmadd_pd(c4, va, vb);
        c5 = _mm256_fmadd_pd(c5, va, vb);
        c6 = _mm256_fmadd_pd(c6, va, vb);
        c7 = _mm256_fmadd_pd(c7, va, vb);
        c8 = _mm256_fmadd_pd(c8, va, vb);
        c9 = _mm256_fmadd_pd(c9, va, vb);
        c10 = _mm256_fmadd_pd(c10, va, vb);
        c11 = _mm256_fmadd_pd(c11, va, vb);
    }
    __m256d t = _mm256_add_pd(_mm256_add_pd(_mm256_add_pd(c0, c1), _mm256_add_pd(c2, c3)),
                              _mm256_add_pd(_mm256_add_pd(c4, c5), _mm256_add_pd(c6, c7)));
    t = _mm256_add_pd(t, _mm256_add_pd(_mm256_add_pd(c8, c9), _mm256_add_pd(c10, c11)));
    double out[4];
    _mm256_storeu_pd(out, t);
    return out[0] + out[1] + out[2] + out[3];
}

}  // namespace bench
