// Construction of plane rotations, as scalar templates over the real type R
// (float or double): the baseline code path's constructors and the single
// precision ones are instances of these. The order of operations is fixed
// and every product is rounded before it is added.
//
// Baseline code only (see service/types.h).
#pragma once

#include <cmath>

#include "service/types.h"

namespace orv::scalar {

// a, b := r, z with a rotation (c, s) that takes (a, b) to (r, 0). The sums
// of squares are formed after scaling by |a| + |b|, so that they neither
// overflow nor underflow.
template <typename R>
void rotg(R* a_, R* b_, R* c, R* s)
{
    const R a = *a_, b = *b_;
    const R abs_a = std::fabs(a), abs_b = std::fabs(b);
    const R roe = abs_a > abs_b ? a : b;
    const R scale = abs_a + abs_b;
    if (scale == R(0)) {
        *c = 1;
        *s = 0;
        *a_ = 0;
        *b_ = 0;
        return;
    }
    const R ta = a / scale, tb = b / scale;
    R r = scale * std::sqrt(ta * ta + tb * tb);
    if (roe < R(0)) r = -r;  // -0 counts as positive
    *c = a / r;
    *s = b / r;
    R z = abs_a > abs_b ? *s : R(1);
    if (abs_b >= abs_a && *c != R(0)) z = R(1) / *c;
    *a_ = r;
    *b_ = z;
}

// The complex rotation: ca := r with a real c and a complex s.
template <typename R>
void complex_rotg(Complex<R>* ca, const Complex<R>* cb, R* c, Complex<R>* s)
{
    const Complex<R> a = *ca, b = *cb;
    const R m = std::sqrt(a.re * a.re + a.im * a.im);
    if (m == R(0)) {
        *c = 0;
        *s = {1, 0};
        *ca = b;
        return;
    }
    const R scale = std::sqrt(b.re * b.re + b.im * b.im) + m;
    const R t0 = a.re / scale, t1 = a.im / scale, t2 = b.re / scale, t3 = b.im / scale;
    const R norm = scale * std::sqrt(((t0 * t0 + t1 * t1) + t2 * t2) + t3 * t3);
    const Complex<R> alpha{a.re / m, a.im / m};
    const Complex<R> as = alpha * conj(b);
    *c = m / norm;
    *s = {as.re / norm, as.im / norm};
    *ca = norm * alpha;
}

// H of a modified rotation and its flag: -1 full, 0 unit diagonal, 1 unit
// off-diagonal (h21 = -1, h12 = 1), -2 identity.
template <typename R>
struct ModifiedRotation {
    R flag = 0;
    R h11 = 0, h21 = 0, h12 = 0, h22 = 0;

    void make_explicit()
    {
        if (flag == R(0)) {
            h11 = 1;
            h22 = 1;
        } else if (flag > R(0)) {
            h21 = -1;
            h12 = 1;
        }
        flag = -1;
    }
};

// The modified rotation of (sqrt(d1) * x1, sqrt(d2) * y1), with d1, d2, x1
// updated and the flag and H stored in param.
template <typename R>
void rotmg(R* d1_, R* d2_, R* x1_, const R* y1_, R* param)
{
    const R gam = 4096, gam_sq = 16777216, rgam_sq = static_cast<R>(5.960464477539e-8), rgam = R(1) / R(4096);
    R d1 = *d1_, d2 = *d2_, x1 = *x1_;
    const R y1 = *y1_;
    ModifiedRotation<R> h;
    auto zero_all = [&] {
        param[1] = param[2] = param[3] = param[4] = 0;
        *d1_ = *d2_ = *x1_ = 0;
        param[0] = -1;
    };
    if (d1 < R(0)) return zero_all();
    const R p2 = d2 * y1;
    if (p2 == R(0)) {
        param[0] = -2;
        return;
    }
    const R p1 = d1 * x1;
    const R q2 = p2 * y1;
    const R q1 = p1 * x1;
    if (std::fabs(q1) > std::fabs(q2)) {
        // u > 0 always holds here because d1 >= 0; it is not tested.
        const R t = y1 / p1;
        h.h12 = d2 * t;
        h.h21 = -d1 * t;
        const R u = R(1) - h.h12 * h.h21;
        const R ru = R(1) / u;
        h.flag = 0;
        x1 = x1 * u;
        d1 = d1 * ru;
        d2 = d2 * ru;
    } else if (q2 < R(0)) {
        return zero_all();
    } else {
        const R t = x1 / p2;
        h.h11 = d1 * t;
        h.h22 = d2 * t;
        const R u = R(1) + h.h11 * h.h22;
        const R ru = R(1) / u;
        h.flag = 1;
        const R new_d1 = d2 * ru;
        d2 = d1 * ru;
        d1 = new_d1;
        x1 = y1 * u;
    }

    // Keep d1 and |d2| inside [rgam_sq, gam_sq], moving the factors into H.
    // The loops also stop at an infinite value, which no factor can bring
    // back into range (degenerate input would otherwise never finish).
    if (d1 != R(0) && (d1 <= rgam_sq || d1 >= gam_sq)) {
        h.make_explicit();
        while (d1 <= rgam_sq && std::isfinite(d1)) {
            d1 *= gam_sq;
            x1 *= rgam;
            h.h11 *= rgam;
            h.h12 *= rgam;
        }
        while (d1 >= gam_sq && std::isfinite(d1)) {
            d1 *= rgam_sq;
            x1 *= gam;
            h.h11 *= gam;
            h.h12 *= gam;
        }
    }
    if (d2 != R(0) && (std::fabs(d2) <= rgam_sq || std::fabs(d2) >= gam_sq)) {
        h.make_explicit();
        while (std::fabs(d2) <= rgam_sq && std::isfinite(d2)) {
            d2 *= gam_sq;
            h.h21 *= rgam;
            h.h22 *= rgam;
        }
        while (std::fabs(d2) >= gam_sq && std::isfinite(d2)) {
            d2 *= rgam_sq;
            h.h21 *= gam;
            h.h22 *= gam;
        }
    }

    *d1_ = d1;
    *d2_ = d2;
    *x1_ = x1;
    if (h.flag < R(0)) {
        param[1] = h.h11;
        param[2] = h.h21;
        param[3] = h.h12;
        param[4] = h.h22;
    } else if (h.flag == R(0)) {
        param[2] = h.h21;
        param[3] = h.h12;
    } else {
        param[1] = h.h11;
        param[4] = h.h22;
    }
    param[0] = h.flag;
}

}  // namespace orv::scalar
