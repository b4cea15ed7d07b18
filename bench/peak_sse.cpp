// Multiply-plus-add peak of 128-bit registers (SSE2, no FMA): seven chains of
// multiplies and seven chains of additions, independent of each other, so
// that both the multiply and the add pipes stay busy.
#include <emmintrin.h>

namespace bench {

extern const double kPeakSseFlops = 7 * 2 * 2;

double peak_sse_muladd(long rounds, double a, double b)
{
    const __m128d va = _mm_set1_pd(a), vb = _mm_set1_pd(b);
    __m128d m0 = _mm_set1_pd(1.0), m1 = _mm_set1_pd(2.0), m2 = _mm_set1_pd(3.0), m3 = _mm_set1_pd(4.0);
    __m128d m4 = _mm_set1_pd(5.0), m5 = _mm_set1_pd(6.0), m6 = _mm_set1_pd(7.0);
    __m128d s0 = _mm_set1_pd(1.0), s1 = _mm_set1_pd(2.0), s2 = _mm_set1_pd(3.0), s3 = _mm_set1_pd(4.0);
    __m128d s4 = _mm_set1_pd(5.0), s5 = _mm_set1_pd(6.0), s6 = _mm_set1_pd(7.0);
    for (long r = 0; r < rounds; ++r) {
        m0 = _mm_mul_pd(m0, va); s0 = _mm_add_pd(s0, vb);
        m1 = _mm_mul_pd(m1, va); s1 = _mm_add_pd(s1, vb);
        m2 = _mm_mul_pd(m2, va); s2 = _mm_add_pd(s2, vb);
        m3 = _mm_mul_pd(m3, va); s3 = _mm_add_pd(s3, vb);
        m4 = _mm_mul_pd(m4, va); s4 = _mm_add_pd(s4, vb);
        m5 = _mm_mul_pd(m5, va); s5 = _mm_add_pd(s5, vb);
        m6 = _mm_mul_pd(m6, va); s6 = _mm_add_pd(s6, vb);
    }
    __m128d t = _mm_add_pd(_mm_add_pd(_mm_add_pd(m0, m1), _mm_add_pd(m2, m3)), _mm_add_pd(_mm_add_pd(m4, m5), m6));
    t = _mm_add_pd(t, _mm_add_pd(_mm_add_pd(_mm_add_pd(s0, s1), _mm_add_pd(s2, s3)), _mm_add_pd(_mm_add_pd(s4, s5), s6)));
    double out[2];
    _mm_storeu_pd(out, t);
    return out[0] + out[1];
}

}  // namespace bench
