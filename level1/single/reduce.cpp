// Reductions in single precision and single complex: Euclidean norms, sums
// of magnitudes and the index of the largest magnitude.
#include <cmath>

#include "level1/single.h"
#include "service/elements.h"

namespace orv::plain {
namespace {

// |x| of a real element, |re| + |im| of a complex one.
template <typename T>
real_of<T> magnitude(T v)
{
    if constexpr (is_complex<T>) return std::fabs(v.re) + std::fabs(v.im);
    else return std::fabs(v);
}

// Three sums of squares in single precision, by the size of the values:
// those above a big threshold scaled down, those below a small one scaled up,
// the rest as they are; then the sums are merged with the scalings undone.
// No square overflows or underflows, and values in the middle range are
// summed plainly, in order, as the reference implementation sums them: the
// test programs of LAPACK turn on the last bit of such norms.
struct ScaledSums {
    // Powers of two that keep every square of a float in range.
    static constexpr float kSmall = 0x1p-63f, kBig = 0x1p52f, kUpSmall = 0x1p75f, kDownBig = 0x1p-76f;
    float small = 0.0f, medium = 0.0f, big = 0.0f;
    bool seen_big = false;

    void add(float v)
    {
        const float a = std::fabs(v);
        if (a > kBig) {
            big += (a * kDownBig) * (a * kDownBig);
            seen_big = true;
        } else if (a < kSmall) {
            if (!seen_big) small += (a * kUpSmall) * (a * kUpSmall);
        } else {
            medium += a * a;
        }
    }

    float norm() const
    {
        const bool has_medium = medium > 0.0f || medium != medium;
        if (big > 0.0f) {
            const float sum = has_medium ? big + (medium * kDownBig) * kDownBig : big;
            return std::sqrt(sum) / kDownBig;
        }
        if (small > 0.0f) {
            if (!has_medium) return std::sqrt(small) / kUpSmall;
            const float m = std::sqrt(medium), s = std::sqrt(small) / kUpSmall;
            const float lo = s > m ? m : s, hi = s > m ? s : m;
            return std::sqrt(hi * hi * (1.0f + (lo / hi) * (lo / hi)));
        }
        return std::sqrt(medium);
    }
};

template <typename T>
float nrm2(const i64* n_, const T* x, const i64* incx)
{
    const i64 n = *n_;
    if (n < 1) return 0.0f;
    const Strided<const T> xv = strided(x, n, *incx);
    ScaledSums sums;
    for (i64 i = 0; i < n; ++i) {
        if constexpr (is_complex<T>) {
            sums.add(xv[i].re);
            sums.add(xv[i].im);
        } else {
            sums.add(xv[i]);
        }
    }
    return sums.norm();
}

template <typename T>
float asum(const i64* n_, const T* x, const i64* incx)
{
    const i64 n = *n_;
    float sum = 0.0f;
    if (n < 1) return sum;
    const Strided<const T> xv = strided(x, n, *incx);
    for (i64 i = 0; i < n; ++i) sum = sum + magnitude(xv[i]);
    return sum;
}

// An element replaces the running maximum unless the running maximum
// compares greater than or equal to it: ties keep the earlier index, and a
// NaN, which compares with nothing, is replaced by the very next element.
template <typename T>
i64 iamax(const i64* n_, const T* x, const i64* incx_)
{
    const i64 n = *n_, incx = *incx_;
    if (n < 1 || incx < 1) return 0;
    i64 best = 0;
    float best_value = magnitude(x[0]);
    for (i64 i = 1; i < n; ++i) {
        const float v = magnitude(x[i * incx]);
        if (!(best_value >= v)) {
            best_value = v;
            best = i;
        }
    }
    return best + 1;
}

}  // namespace

float snrm2(const i64* n, const float* x, const i64* incx) { return nrm2(n, x, incx); }

float scnrm2(const i64* n, const fcomplex* x, const i64* incx) { return nrm2(n, x, incx); }

float sasum(const i64* n, const float* x, const i64* incx) { return asum(n, x, incx); }

float scasum(const i64* n, const fcomplex* x, const i64* incx) { return asum(n, x, incx); }

i64 isamax(const i64* n, const float* x, const i64* incx) { return iamax(n, x, incx); }

i64 icamax(const i64* n, const fcomplex* x, const i64* incx) { return iamax(n, x, incx); }

float scabs1(const fcomplex* z) { return magnitude(*z); }

}  // namespace orv::plain
