// Scalar emulations of the kernels' accumulation orders: the baseline's, the
// reproducible build's (the baseline without alignment peeling) and the
// shared vector kernels' of the other code paths (W lanes, multiply-adds
// fused or not). Lanes of a register are modelled as a[k][l]; every addition
// a kernel performs is written here in the same order, so results must match
// bit for bit. The unqualified models follow the order of the code path this
// process runs on (run_order()).
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "orv_test.h"

namespace orvtest::model {

inline bool aligned(const void* p, unsigned bytes) { return reinterpret_cast<std::uintptr_t>(p) % bytes == 0; }
inline bool unit_pair(long incx, long incy) { return incx == incy && (incx == 1 || incx == -1); }

// Where a code path's orders come from.
struct Order {
    enum Kind { kBaseline, kCompatible, kWide } kind = kBaseline;
    int lanes = 2;       // kWide: register width in doubles
    bool fused = false;  // kWide: multiply-adds rounded once
};

// Paths 0 and 2 run the reproducible build under a reproducibility mode;
// SSSE3 and SSE4.2 have two lanes, AVX four, AVX2 four and FMA, both
// AVX-512 paths eight and FMA.
inline Order order_of_path(int path, bool reproducible)
{
    if (reproducible && (path == 0 || path == 2)) return {Order::kCompatible};
    switch (path) {
    case 2:
    case 3: return {Order::kWide, 2, false};
    case 4: return {Order::kWide, 4, false};
    // The AVX-512 paths sum as the AVX2 path does.
    case 5:
    case 6:
    case 7: return {Order::kWide, 4, true};
    default: return {Order::kBaseline};
    }
}

// The code path of this process as the library decides it for the test
// runs: forced by ORV_DEBUG_CPU_TYPE, pinned by an ORV_CBWR branch, or
// detected (processors of another vendor than the reference get the
// baseline; server AVX-512 only under ORV_ENABLE_INSTRUCTIONS=AVX512).
inline int running_code_path()
{
    const char* forced = std::getenv("ORV_DEBUG_CPU_TYPE");
    if (forced != nullptr && *forced != '\0') {
        char* end = nullptr;
        const long path = std::strtol(forced, &end, 0);
        if (end != forced) return static_cast<int>(path);
    }
    const bool server512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                           __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
    const bool qix512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512cd") &&
                        __builtin_cpu_supports("avx512er") && __builtin_cpu_supports("avx512pf");
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
                      __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
    if (const char* mode = std::getenv("ORV_CBWR"); mode != nullptr && *mode != '\0') {
        if (std::strncmp(mode, "BRANCH=", 7) == 0) mode += 7;
        const struct {
            const char* name;
            int path;
            bool usable;
        } branches[] = {{"COMPATIBLE", 0, true},        {"SSE2", 0, true},
                        {"SSE3", 0, true},              {"SSSE3", 2, true},
                        {"SSE4_1", 2, true},            {"SSE4_2", 3, true},
                        {"AVX", 4, true},               {"AVX2", 5, avx2},
                        {"AVX512_QIX", 6, qix512},      {"AVX512", 7, server512}};
        for (const auto& b : branches)
            if (std::strcmp(mode, b.name) == 0 && b.usable) return b.path;
    }
    if (!__builtin_cpu_is("amd")) return 0;
    int cap = -1;
    if (const char* value = std::getenv("ORV_ENABLE_INSTRUCTIONS"); value != nullptr) {
        const struct {
            const char* name;
            int cap;
        } caps[] = {{"AVX512_QIX", 6}, {"AVX512", 7}, {"AVX2", 5}, {"AVX", 4}, {"SSE4_2", 3}};
        for (const auto& c : caps)
            if (std::strcmp(value, c.name) == 0) cap = c.cap;
    }
    auto enabled = [cap](int path) { return cap < 0 ? path != 7 : path <= cap; };
    if (__builtin_cpu_supports("avx")) {
        if (avx2 && server512 && enabled(7)) return 7;
        if (avx2 && qix512 && enabled(6)) return 6;
        if (avx2 && enabled(5)) return 5;
        if (enabled(4)) return 4;
    }
    if (__builtin_cpu_supports("sse4.2") && enabled(3)) return 3;
    if (__builtin_cpu_supports("ssse3")) return 2;
    return 0;
}

inline Order run_order() { return order_of_path(running_code_path(), expects_reproducible_build()); }

// ---- The baseline and the reproducible build ------------------------------

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

// kNever is the reproducible build: the contiguous order from the first
// element whatever the placement.
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

// P = (xr*yr, xi*yi) and Q = (xr*yi, xi*yr) per element; on the contiguous
// path even elements go to accumulator 0 and odd ones to 1. The baseline
// takes it only for 16-byte aligned arrays, the reproducible build always.
inline zcomplex baseline_zdot(long n, const zcomplex* x, long incx, const zcomplex* y, long incy, bool conjugate,
                              Peel peel = Peel::kByAlignment)
{
    if (n < 1) return {0.0, 0.0};
    double P[2][2] = {}, Q[2][2] = {};
    const bool contiguous = unit_pair(incx, incy) && (peel == Peel::kNever || (aligned(x, 16) && aligned(y, 16)));
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

inline double baseline_dasum(long n, const double* x, long incx, Peel peel = Peel::kByAlignment)
{
    if (n < 1) return 0.0;
    Acc4 acc;
    auto& a = acc.a;
    if ((incx != 1 && incx != -1) || (peel == Peel::kByAlignment && !aligned(x, 8))) {
        for (long i = 0; i < n; ++i) a[0][0] += std::fabs(x[vec_index(n, incx, i)]);
        return acc.total();
    }
    auto m = [&](long j) { return std::fabs(x[j]); };
    long i = 0;
    if (peel == Peel::kByAlignment && !aligned(x, 16)) a[0][0] += m(i++);
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

inline double baseline_dzasum(long n, const zcomplex* x, long incx)
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

// ---- The shared vector kernels of the other code paths ----------------------

// a*b + c rounded once, by the instruction itself: some C runtimes' fma()
// (mingw-w64's) is not correctly rounded. Only fused code paths call it, and
// they run only where the processor has FMA.
[[gnu::target("fma")]] inline double fused_madd(double a, double b, double c) { return __builtin_fma(a, b, c); }
inline double madd(double a, double b, double c, bool fused) { return fused ? fused_madd(a, b, c) : a * b + c; }

// Lanes summed pairwise: (l0 + l1) + (l2 + l3) ...
inline double lanes_hsum(std::vector<double> v)
{
    for (std::size_t width = v.size(); width > 1; width /= 2)
        for (std::size_t l = 0; l < width / 2; ++l) v[l] = v[2 * l] + v[2 * l + 1];
    return v[0];
}
// Lanes folded in halves down to two: (l0 + l2, l1 + l3), ...
inline std::vector<double> lanes_fold2(std::vector<double> v)
{
    for (std::size_t width = v.size(); width > 2; width /= 2)
        for (std::size_t l = 0; l < width / 2; ++l) v[l] = v[l] + v[l + width / 2];
    v.resize(2);
    return v;
}

// The contiguous order over m terms with W lanes and four accumulators;
// pair(i, j) is the combined term of values i and j (paired orders: steps
// of 8W), into(a, i) adds value i to a. Returns (A1 + A3) + (A2 + A0) lane
// by lane.
template <typename Pair, typename Into>
std::vector<double> wide_lanes(long m, int W, bool paired, Pair pair, Into into)
{
    std::vector<std::vector<double>> A(4, std::vector<double>(W, 0.0));
    long i = 0;
    for (; paired && m - i >= 8 * W; i += 8 * W)
        for (int k = 0; k < 4; ++k)
            for (int l = 0; l < W; ++l) A[k][l] = A[k][l] + pair(i + k * W + l, i + (k + 4) * W + l);
    auto step = [&](int k, long base) {
        for (int l = 0; l < W && base + l < m; ++l) A[k][l] = into(A[k][l], base + l);
    };
    for (; m - i >= 4 * W; i += 4 * W)  // paired: at most once
        for (int k = 0; k < 4; ++k) step(k, i + k * W);
    if (m - i >= 2 * W) {
        step(0, i);
        step(1, i + W);
        i += 2 * W;
    }
    if (m - i >= W) {
        step(0, i);
        i += W;
    }
    if (i < m) step(0, i);
    std::vector<double> S(W);
    for (int l = 0; l < W; ++l) S[l] = (A[1][l] + A[3][l]) + (A[2][l] + A[0][l]);
    return S;
}

// Strided: term i into chain i mod 8.
template <typename Into>
double wide_chains(long n, Into into)
{
    double c[8] = {};
    for (long i = 0; i < n; ++i) c[i % 8] = into(c[i % 8], i);
    return ((c[0] + c[1]) + (c[2] + c[3])) + ((c[4] + c[5]) + (c[6] + c[7]));
}

inline double wide_ddot(long n, const double* x, long incx, const double* y, long incy, const Order& o)
{
    if (n < 1) return 0.0;
    if (!unit_pair(incx, incy))
        return wide_chains(n, [&](double c, long i) {
            return madd(x[vec_index(n, incx, i)], y[vec_index(n, incy, i)], c, o.fused);
        });
    return lanes_hsum(wide_lanes(
        n, o.lanes, true, [&](long i, long j) { return madd(x[i], y[i], x[j] * y[j], o.fused); },
        [&](double a, long i) { return madd(x[i], y[i], a, o.fused); }));
}

inline zcomplex wide_zdot(long n, const zcomplex* x, long incx, const zcomplex* y, long incy, bool conjugate,
                          const Order& o)
{
    if (n < 1) return {0.0, 0.0};
    double p[2], q[2];
    if (unit_pair(incx, incy) && aligned(x, 16) && aligned(y, 16)) {
        const double* xd = reinterpret_cast<const double*>(x);
        const double* yd = reinterpret_cast<const double*>(y);
        // Q pairs each part of x with the other part of y.
        for (int swap = 0; swap < 2; ++swap) {
            auto yv = [&](long i) { return yd[swap ? i ^ 1 : i]; };
            const auto two = lanes_fold2(wide_lanes(
                2 * n, o.lanes, false, [](long, long) { return 0.0; },
                [&](double a, long i) { return madd(xd[i], yv(i), a, o.fused); }));
            (swap ? q : p)[0] = two[0];
            (swap ? q : p)[1] = two[1];
        }
    } else {
        double P[4][2] = {}, Q[4][2] = {};
        for (long i = 0; i < n; ++i) {
            const zcomplex xe = x[vec_index(n, incx, i)], ye = y[vec_index(n, incy, i)];
            const int k = static_cast<int>(i % 4);
            P[k][0] = madd(xe.real(), ye.real(), P[k][0], o.fused);
            P[k][1] = madd(xe.imag(), ye.imag(), P[k][1], o.fused);
            Q[k][0] = madd(xe.real(), ye.imag(), Q[k][0], o.fused);
            Q[k][1] = madd(xe.imag(), ye.real(), Q[k][1], o.fused);
        }
        for (int l = 0; l < 2; ++l) {
            p[l] = (P[1][l] + P[3][l]) + (P[2][l] + P[0][l]);
            q[l] = (Q[1][l] + Q[3][l]) + (Q[2][l] + Q[0][l]);
        }
    }
    return conjugate ? zcomplex(p[0] + p[1], q[0] + -q[1]) : zcomplex(p[0] + -p[1], q[0] + q[1]);
}

// Magnitudes of m contiguous doubles.
inline double wide_magnitudes(long m, const double* d, const Order& o)
{
    return lanes_hsum(wide_lanes(
        m, o.lanes, true, [&](long i, long j) { return std::fabs(d[i]) + std::fabs(d[j]); },
        [&](double a, long i) { return a + std::fabs(d[i]); }));
}

inline double wide_dasum(long n, const double* x, long incx, const Order& o)
{
    if (n < 1) return 0.0;
    if (incx == 1 || incx == -1) return wide_magnitudes(n, x, o);
    return wide_chains(n, [&](double c, long i) { return c + std::fabs(x[vec_index(n, incx, i)]); });
}

inline double wide_dzasum(long n, const zcomplex* x, long incx, const Order& o)
{
    if (n < 1) return 0.0;
    if (incx == 1 || incx == -1) return wide_magnitudes(2 * n, reinterpret_cast<const double*>(x), o);
    return wide_chains(n, [&](double c, long i) { return c + magnitude(x[vec_index(n, incx, i)]); });
}

// The per-lane scaled sum of squares of the vector kernels over m values
// get(i): blocks of 4W values pass the gate (a multiplication by 1/scale and
// a multiply-add per value) or are taken exactly; see level1/kernels/wide/nrm2.inc.
template <typename Get>
double wide_norm(long m, Get get, const Order& o)
{
    const int W = o.lanes;
    std::vector<double> s(W, 0.0), r(W, 0.0), g(W, -1.0);
    std::vector<std::vector<double>> q(4, std::vector<double>(W, 0.0));
    auto value = [&](long i) { return i < m ? std::fabs(get(i)) : 0.0; };
    auto exactly = [&](long base) {
        for (int l = 0; l < W; ++l) {
            q[0][l] = (q[0][l] + q[1][l]) + (q[2][l] + q[3][l]);
            q[1][l] = q[2][l] = q[3][l] = 0.0;
        }
        for (int k = 0; k < 4; ++k)
            for (int l = 0; l < W; ++l) {
                const double a = value(base + k * W + l);
                if (a == 0.0) continue;  // a NaN is not skipped
                if (a > s[l]) {
                    const double t = s[l] / a;
                    q[0][l] = madd(q[0][l] * t, t, 1.0, o.fused);
                    s[l] = a;
                } else {
                    const double t = a / s[l];
                    q[0][l] = madd(t, t, q[0][l], o.fused);
                }
            }
        for (int l = 0; l < W; ++l) {
            r[l] = 1.0 / s[l];
            g[l] = s[l] >= 0x1p-1022 ? s[l] : -1.0;
        }
    };
    long i = 0;
    for (; m - i >= 4 * W; i += 4 * W) {
        bool gated = false;
        for (int k = 0; k < 4; ++k)
            for (int l = 0; l < W; ++l) gated = gated || value(i + k * W + l) > g[l];
        if (gated) {
            exactly(i);
            continue;
        }
        for (int k = 0; k < 4; ++k)
            for (int l = 0; l < W; ++l) {
                const double t = value(i + k * W + l) * r[l];
                q[k][l] = madd(t, t, q[k][l], o.fused);
            }
    }
    if (i < m) exactly(i);
    double S = s[0], Q = (q[0][0] + q[1][0]) + (q[2][0] + q[3][0]);
    for (int l = 1; l < W; ++l) {
        const double ql = (q[0][l] + q[1][l]) + (q[2][l] + q[3][l]);
        if (s[l] > S) {
            const double t = S / s[l];
            Q = madd(Q * t, t, ql, o.fused);
            S = s[l];
        } else if (s[l] == 0.0) {
            Q = Q + ql;
        } else {
            const double t = s[l] / S;
            Q = madd(ql * t, t, Q, o.fused);
        }
    }
    return S * std::sqrt(Q);
}

// ---- The order of a given path, by default this process's --------------------

inline double ddot(long n, const double* x, long incx, const double* y, long incy, const Order& o = run_order())
{
    if (o.kind == Order::kWide) return wide_ddot(n, x, incx, y, incy, o);
    return ddot(n, x, incx, y, incy, o.kind == Order::kCompatible ? Peel::kNever : Peel::kByAlignment);
}

inline zcomplex zdot(long n, const zcomplex* x, long incx, const zcomplex* y, long incy, bool conjugate,
                     const Order& o = run_order())
{
    if (o.kind == Order::kWide) return wide_zdot(n, x, incx, y, incy, conjugate, o);
    return baseline_zdot(n, x, incx, y, incy, conjugate,
                         o.kind == Order::kCompatible ? Peel::kNever : Peel::kByAlignment);
}

inline double dasum(long n, const double* x, long incx, const Order& o = run_order())
{
    if (o.kind == Order::kWide) return wide_dasum(n, x, incx, o);
    return baseline_dasum(n, x, incx, o.kind == Order::kCompatible ? Peel::kNever : Peel::kByAlignment);
}

inline double dzasum(long n, const zcomplex* x, long incx, const Order& o = run_order())
{
    return o.kind == Order::kWide ? wide_dzasum(n, x, incx, o) : baseline_dzasum(n, x, incx);
}

// Both norms walk forwards from the base with step |inc|; dnrm2 of one
// element is its magnitude on every path.
inline double dnrm2(long n, const double* x, long incx, const Order& o = run_order())
{
    if (n < 1) return 0.0;
    if (n == 1) return std::fabs(x[0]);
    const long step = incx < 0 ? -incx : incx;
    auto get = [&](long i) { return x[i * step]; };
    return o.kind == Order::kWide ? wide_norm(n, get, o) : scaled_norm(n, get);
}

inline double dznrm2(long n, const zcomplex* x, long incx, const Order& o = run_order())
{
    if (n < 1) return 0.0;
    const long step = incx < 0 ? -incx : incx;
    auto get = [&](long i) { return i % 2 ? x[i / 2 * step].imag() : x[i / 2 * step].real(); };
    return o.kind == Order::kWide ? wide_norm(2 * n, get, o) : scaled_norm(2 * n, get);
}

// ---- Element-wise roundings ---------------------------------------------------

// Multiply-adds of the element-wise kernels round once on the fused paths
// (daxpy, the rotations and drotmg's u) and round the product first
// elsewhere; zaxpy and the scalings keep the baseline's roundings everywhere.
inline bool fused(const Order& o = run_order()) { return o.kind == Order::kWide && o.fused; }

// daxpy: y + alpha*x.
inline double axpy(double alpha, double x, double y, const Order& o = run_order())
{
    return madd(alpha, x, y, fused(o));
}

// drotm with an explicit H (flag -1): x' = h11*x + h12*y, y' = h21*x + h22*y,
// each as one product and one multiply-add; drot is H = (c, -s, s, c).
struct Rotated {
    double x, y;
};
inline Rotated rotm_full(double h11, double h21, double h12, double h22, double x, double y,
                         const Order& o = run_order())
{
    return {madd(h12, y, h11 * x, fused(o)), madd(h22, y, h21 * x, fused(o))};
}
inline Rotated rot(double c, double s, double x, double y, const Order& o = run_order())
{
    return rotm_full(c, -s, s, c, x, y, o);
}
// flag 0: x' = x + h12*y, y' = h21*x + y; flag 1: x' = h11*x + y, y' = -x + h22*y.
inline Rotated rotm_off_diagonal(double h21, double h12, double x, double y, const Order& o = run_order())
{
    return {madd(h12, y, x, fused(o)), madd(h21, x, y, fused(o))};
}
inline Rotated rotm_diagonal(double h11, double h22, double x, double y, const Order& o = run_order())
{
    return {madd(h11, x, y, fused(o)), madd(h22, y, -x, fused(o))};
}

// drotmg's u: 1 - h12*h21 (flag 0) or 1 + h11*h22 (flag 1).
inline double drotmg_u(double a, double b, const Order& o = run_order()) { return madd(a, b, 1.0, fused(o)); }

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
