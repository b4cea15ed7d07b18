// Construction of plane rotations. Scalar code in a fixed order of
// operations; on this path every product is rounded before it is added.
#include <cmath>

#include "level1/kernels.h"

namespace orv::def {

void drotg(double* a_, double* b_, double* c, double* s)
{
    const double a = *a_, b = *b_;
    const double abs_a = std::fabs(a), abs_b = std::fabs(b);
    const double roe = abs_a > abs_b ? a : b;
    const double scale = abs_a + abs_b;
    if (scale == 0.0) {
        *c = 1.0;
        *s = 0.0;
        *a_ = 0.0;
        *b_ = 0.0;
        return;
    }
    const double ta = a / scale, tb = b / scale;
    double r = scale * std::sqrt(ta * ta + tb * tb);
    if (roe < 0.0) r = -r;  // -0 counts as positive
    *c = a / r;
    *s = b / r;
    double z = abs_a > abs_b ? *s : 1.0;
    if (abs_b >= abs_a && *c != 0.0) z = 1.0 / *c;
    *a_ = r;
    *b_ = z;
}

void zrotg(dcomplex* ca, const dcomplex* cb, double* c, dcomplex* s)
{
    const dcomplex a = *ca, b = *cb;
    const double m = std::sqrt(a.re * a.re + a.im * a.im);
    if (m == 0.0) {
        *c = 0.0;
        *s = {1.0, 0.0};
        *ca = b;
        return;
    }
    const double scale = std::sqrt(b.re * b.re + b.im * b.im) + m;
    const double t0 = a.re / scale, t1 = a.im / scale, t2 = b.re / scale, t3 = b.im / scale;
    const double norm = scale * std::sqrt(((t0 * t0 + t1 * t1) + t2 * t2) + t3 * t3);
    const dcomplex alpha{a.re / m, a.im / m};
    const dcomplex as = alpha * conj(b);
    *c = m / norm;
    *s = {as.re / norm, as.im / norm};
    *ca = norm * alpha;
}

namespace {

constexpr double kGam = 4096.0;
constexpr double kGamSq = 16777216.0;
constexpr double kRGamSq = 5.960464477539e-8;
constexpr double kRGam = 1.0 / 4096.0;

// H of a modified rotation and its flag: -1 full, 0 unit diagonal, 1 unit
// off-diagonal (h21 = -1, h12 = 1), -2 identity.
struct ModifiedRotation {
    double flag = 0.0;
    double h11 = 0.0, h21 = 0.0, h12 = 0.0, h22 = 0.0;

    void make_explicit()
    {
        if (flag == 0.0) {
            h11 = 1.0;
            h22 = 1.0;
        } else if (flag > 0.0) {
            h21 = -1.0;
            h12 = 1.0;
        }
        flag = -1.0;
    }
};

}  // namespace

void drotmg(double* d1_, double* d2_, double* x1_, const double* y1_, double* param)
{
    double d1 = *d1_, d2 = *d2_, x1 = *x1_;
    const double y1 = *y1_;
    ModifiedRotation h;
    auto zero_all = [&] {
        param[1] = param[2] = param[3] = param[4] = 0.0;
        *d1_ = *d2_ = *x1_ = 0.0;
        param[0] = -1.0;
    };
    if (d1 < 0.0) return zero_all();
    const double p2 = d2 * y1;
    if (p2 == 0.0) {
        param[0] = -2.0;
        return;
    }
    const double p1 = d1 * x1;
    const double q2 = p2 * y1;
    const double q1 = p1 * x1;
    if (std::fabs(q1) > std::fabs(q2)) {
        // u > 0 always holds here because d1 >= 0; it is not tested.
        const double t = y1 / p1;
        h.h12 = d2 * t;
        h.h21 = -d1 * t;
        const double u = 1.0 - h.h12 * h.h21;
        const double ru = 1.0 / u;
        h.flag = 0.0;
        x1 = x1 * u;
        d1 = d1 * ru;
        d2 = d2 * ru;
    } else if (q2 < 0.0) {
        return zero_all();
    } else {
        const double t = x1 / p2;
        h.h11 = d1 * t;
        h.h22 = d2 * t;
        const double u = 1.0 + h.h11 * h.h22;
        const double ru = 1.0 / u;
        h.flag = 1.0;
        const double new_d1 = d2 * ru;
        d2 = d1 * ru;
        d1 = new_d1;
        x1 = y1 * u;
    }

    // Keep d1 and |d2| inside [rgamsq, gamsq], moving the factors into H.
    // The loops also stop at an infinite value, which no factor can bring
    // back into range (degenerate input would otherwise never finish).
    if (d1 != 0.0 && (d1 <= kRGamSq || d1 >= kGamSq)) {
        h.make_explicit();
        while (d1 <= kRGamSq && std::isfinite(d1)) {
            d1 *= kGamSq;
            x1 *= kRGam;
            h.h11 *= kRGam;
            h.h12 *= kRGam;
        }
        while (d1 >= kGamSq && std::isfinite(d1)) {
            d1 *= kRGamSq;
            x1 *= kGam;
            h.h11 *= kGam;
            h.h12 *= kGam;
        }
    }
    if (d2 != 0.0 && (std::fabs(d2) <= kRGamSq || std::fabs(d2) >= kGamSq)) {
        h.make_explicit();
        while (std::fabs(d2) <= kRGamSq && std::isfinite(d2)) {
            d2 *= kGamSq;
            h.h21 *= kRGam;
            h.h22 *= kRGam;
        }
        while (std::fabs(d2) >= kGamSq && std::isfinite(d2)) {
            d2 *= kRGamSq;
            h.h21 *= kGam;
            h.h22 *= kGam;
        }
    }

    *d1_ = d1;
    *d2_ = d2;
    *x1_ = x1;
    if (h.flag < 0.0) {
        param[1] = h.h11;
        param[2] = h.h21;
        param[3] = h.h12;
        param[4] = h.h22;
    } else if (h.flag == 0.0) {
        param[2] = h.h21;
        param[3] = h.h12;
    } else {
        param[1] = h.h11;
        param[4] = h.h22;
    }
    param[0] = h.flag;
}

}  // namespace orv::def
