// Reductions in single precision and single complex: Euclidean norms, sums
// of magnitudes and the index of the largest magnitude.
#include <cmath>

#include "level1/single.h"
#include "service/elements.h"

namespace orv::cnr {
namespace {

// |x| of a real element, |re| + |im| of a complex one.
template <typename T>
real_of<T> magnitude(T v)
{
    if constexpr (is_complex<T>) return std::fabs(v.re) + std::fabs(v.im);
    else return std::fabs(v);
}

// The squares of the parts are summed in double, where the square of any
// float is exact and no sum of them overflows or underflows; the root is
// rounded to float once at the end.
template <typename T>
float nrm2(const i64* n_, const T* x, const i64* incx)
{
    const i64 n = *n_;
    if (n < 1) return 0.0f;
    const Strided<const T> xv = strided(x, n, *incx);
    double ssq = 0.0;
    auto add = [&ssq](float part) { ssq += static_cast<double>(part) * static_cast<double>(part); };
    for (i64 i = 0; i < n; ++i) {
        if constexpr (is_complex<T>) {
            add(xv[i].re);
            add(xv[i].im);
        } else {
            add(xv[i]);
        }
    }
    return static_cast<float>(std::sqrt(ssq));
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

}  // namespace orv::cnr
