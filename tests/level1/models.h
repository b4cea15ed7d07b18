// Scalar emulations of the baseline kernels' accumulation orders. Lanes of a
// two-lane register are modelled as a[k][0] and a[k][1]; every addition the
// kernel performs is written here in the same order, so results must match
// bit for bit.
#pragma once

#include <cmath>
#include <cstdint>

#include "orv_test.h"

namespace orvtest::model {

inline bool aligned(const void* p, unsigned bytes) { return reinterpret_cast<std::uintptr_t>(p) % bytes == 0; }
inline bool unit_pair(long incx, long incy) { return incx == incy && (incx == 1 || incx == -1); }

// Four two-lane accumulators: ((A0 + A1) + A2) + A3 per lane, then lane 0 + lane 1.
struct Acc4 {
    double a[4][2] = {};
    double total() const
    {
        double lane[2];
        for (int l = 0; l < 2; ++l) lane[l] = ((a[0][l] + a[1][l]) + a[2][l]) + a[3][l];
        return lane[0] + lane[1];
    }
};

enum class Peel { kByAlignment, kNever };

inline double ddot(long n, const double* x, long incx, const double* y, long incy, Peel peel)
{
    if (n < 1) return 0.0;
    Acc4 acc;
    auto& a = acc.a;
    const bool contiguous = unit_pair(incx, incy) && (peel == Peel::kNever || (aligned(x, 8) && aligned(y, 8)));
    if (!contiguous) {
        for (long i = 0; i < n; ++i) a[0][i % 2] += x[vec_index(n, incx, i)] * y[vec_index(n, incy, i)];
        return acc.total();
    }
    auto p = [&](long j) { return x[j] * y[j]; };
    const bool same = peel == Peel::kNever || (reinterpret_cast<std::uintptr_t>(x) ^ reinterpret_cast<std::uintptr_t>(y)) % 16 == 0;
    long i = 0;
    if (peel == Peel::kByAlignment && !aligned(same ? x : y, 16)) a[0][0] += p(i++);
    if (same) {
        for (; n - i >= 16; i += 16)
            for (int k = 0; k < 4; ++k)
                for (int l = 0; l < 2; ++l) a[k][l] = (a[k][l] + p(i + 2 * k + l)) + p(i + 8 + 2 * k + l);
        if (n - i >= 8) {
            for (int k = 0; k < 4; ++k)
                for (int l = 0; l < 2; ++l) a[k][l] += p(i + 2 * k + l);
            i += 8;
        }
    } else {
        for (; n - i >= 8; i += 8)
            for (int k = 0; k < 4; ++k)
                for (int l = 0; l < 2; ++l) a[k][l] += p(i + 2 * k + l);
    }
    for (; n - i >= 2; i += 2)
        for (int l = 0; l < 2; ++l) a[0][l] += p(i + l);
    if (i < n) a[0][0] += p(i);
    return acc.total();
}

// P = (xr*yr, xi*yi) and Q = (xr*yi, xi*yr) per element; on the aligned
// contiguous path even elements go to accumulator 0 and odd ones to 1.
inline zcomplex zdot(long n, const zcomplex* x, long incx, const zcomplex* y, long incy, bool conjugate)
{
    if (n < 1) return {0.0, 0.0};
    double P[2][2] = {}, Q[2][2] = {};
    const bool contiguous = unit_pair(incx, incy) && aligned(x, 16) && aligned(y, 16);
    for (long i = 0; i < n; ++i) {
        const zcomplex xe = contiguous ? x[i] : x[vec_index(n, incx, i)];
        const zcomplex ye = contiguous ? y[i] : y[vec_index(n, incy, i)];
        const int k = contiguous ? static_cast<int>(i % 2) : 0;
        P[k][0] += xe.real() * ye.real();
        P[k][1] += xe.imag() * ye.imag();
        Q[k][0] += xe.real() * ye.imag();
        Q[k][1] += xe.imag() * ye.real();
    }
    const double p0 = P[0][0] + P[1][0], p1 = P[0][1] + P[1][1];
    const double q0 = Q[0][0] + Q[1][0], q1 = Q[0][1] + Q[1][1];
    // The kernel flips a sign bit and adds, so the model adds the negation.
    return conjugate ? zcomplex(p0 + p1, q0 + -q1) : zcomplex(p0 + -p1, q0 + q1);
}

inline double dasum(long n, const double* x, long incx)
{
    if (n < 1) return 0.0;
    Acc4 acc;
    auto& a = acc.a;
    if ((incx != 1 && incx != -1) || !aligned(x, 8)) {
        for (long i = 0; i < n; ++i) a[0][0] += std::fabs(x[vec_index(n, incx, i)]);
        return acc.total();
    }
    auto m = [&](long j) { return std::fabs(x[j]); };
    long i = 0;
    if (!aligned(x, 16)) a[0][0] += m(i++);
    for (; n - i >= 16; i += 16)
        for (int l = 0; l < 2; ++l) {
            a[0][l] = (((a[0][l] + m(i + l)) + m(i + 4 + l)) + m(i + 8 + l)) + m(i + 12 + l);
            a[1][l] = (((a[1][l] + m(i + 2 + l)) + m(i + 6 + l)) + m(i + 10 + l)) + m(i + 14 + l);
        }
    if (n - i >= 8) {
        for (int l = 0; l < 2; ++l) {
            a[0][l] += m(i + l);
            a[1][l] += m(i + 2 + l);
            a[2][l] = m(i + 6 + l);
            a[3][l] = m(i + 4 + l);
        }
        i += 8;
    }
    if (n - i >= 4) {
        for (int l = 0; l < 2; ++l) {
            a[0][l] += m(i + l);
            a[1][l] += m(i + 2 + l);
        }
        i += 4;
    }
    if (n - i >= 2) {
        for (int l = 0; l < 2; ++l) a[0][l] += m(i + l);
        i += 2;
    }
    if (i < n) a[0][0] += m(i);
    return acc.total();
}

inline double magnitude(zcomplex z) { return std::fabs(z.real()) + std::fabs(z.imag()); }

inline double dzasum(long n, const zcomplex* x, long incx)
{
    if (n < 1) return 0.0;
    double sum = 0.0;
    if (incx != 1) {
        for (long i = 0; i < n; ++i) sum += magnitude(x[vec_index(n, incx, i)]);
        return sum;
    }
    auto lane_mag = [&](long j) { return std::fabs(x[j].real()) + std::fabs(x[j].imag()); };
    double a[4][2] = {};
    long i = 0;
    for (; n - i >= 8; i += 8)
        for (int k = 0; k < 4; ++k)
            for (int l = 0; l < 2; ++l) a[k][l] += lane_mag(i + 2 * k + l);
    double lane[2];
    for (int l = 0; l < 2; ++l) lane[l] = (a[0][l] + a[1][l]) + (a[2][l] + a[3][l]);
    sum = lane[0] + lane[1];
    double rest[2] = {};
    for (; n - i >= 2; i += 2)
        for (int l = 0; l < 2; ++l) rest[l] += lane_mag(i + l);
    sum = sum + (rest[0] + rest[1]);
    if (i < n) sum = sum + magnitude(x[i]);
    return sum;
}

// Scaled sum of squares over `count` values taken by get(i), in that order.
template <typename Get>
double scaled_norm(long count, Get get)
{
    double scale = 0.0, ssq = 1.0;
    for (long i = 0; i < count; ++i) {
        const double v = get(i);
        if (v == 0.0) continue;
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
    return scale * std::sqrt(ssq);
}

// Both norms walk forwards from the base with step |inc|.
inline double dnrm2(long n, const double* x, long incx)
{
    if (n < 1) return 0.0;
    if (n == 1) return std::fabs(x[0]);
    const long step = incx < 0 ? -incx : incx;
    return scaled_norm(n, [&](long i) { return x[i * step]; });
}

inline double dznrm2(long n, const zcomplex* x, long incx)
{
    if (n < 1) return 0.0;
    const long step = incx < 0 ? -incx : incx;
    return scaled_norm(2 * n, [&](long i) { return i % 2 ? x[i / 2 * step].imag() : x[i / 2 * step].real(); });
}

// The scalar rule: replace unless the running maximum is >= the new
// magnitude (a NaN replaces and is replaced by the next element).
template <typename T, typename Mag>
int iamax(long n, const T* x, long incx, Mag mag)
{
    if (n < 1 || incx < 1) return 0;
    if (n == 1) return 1;
    double best = mag(x[0]);
    long index = 0;
    for (long i = 1; i < n; ++i) {
        const double a = mag(x[i * incx]);
        if (!(best >= a)) {
            best = a;
            index = i;
        }
    }
    return static_cast<int>(index + 1);
}

}  // namespace orvtest::model
