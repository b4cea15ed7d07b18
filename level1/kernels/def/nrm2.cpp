// Baseline Euclidean norms by a scaled sum of squares: the running scale is
// the largest magnitude seen so far, so no intermediate square overflows or
// underflows. The update order is fixed: the vector is always walked
// forwards from its base address with step |incx| (for a negative increment
// that visits the same elements as the backward walk, in reverse).
#include <cmath>

#include "level1/kernels.h"

namespace orv::def {

namespace {

struct ScaledSsq {
    double scale = 0.0;
    double ssq = 1.0;

    // Zeros are skipped; a NaN is not (it compares unequal to zero) and
    // falls to the second branch, where it turns ssq into a NaN.
    void add(double v)
    {
        if (v == 0.0) return;
        const double a = std::fabs(v);
        if (a > scale) {
            const double r = scale / a;
            ssq = (ssq * r) * r + 1.0;
            scale = a;
        } else {
            const double t = a / scale;
            ssq = ssq + t * t;
        }
    }
    double norm() const { return scale * std::sqrt(ssq); }
};

i64 abs_inc(i64 inc) { return inc < 0 ? -inc : inc; }

}  // namespace

double dnrm2(const i64* n_, const double* x, const i64* incx)
{
    const i64 n = *n_;
    if (n < 1) return 0.0;
    if (n == 1) return std::fabs(x[0]);
    const i64 step = abs_inc(*incx);
    ScaledSsq s;
    for (i64 i = 0; i < n; ++i) s.add(x[i * step]);
    return s.norm();
}

// The real and then the imaginary part of each element; no single-element
// shortcut.
double dznrm2(const i64* n_, const dcomplex* x, const i64* incx)
{
    const i64 n = *n_;
    if (n < 1) return 0.0;
    const i64 step = abs_inc(*incx);
    ScaledSsq s;
    for (i64 i = 0; i < n; ++i) {
        s.add(x[i * step].re);
        s.add(x[i * step].im);
    }
    return s.norm();
}

}  // namespace orv::def
