// Shared model of the level-2 tests: where a matrix operand's elements live
// (full, band or packed storage), what matrix they stand for, guarded
// vectors, and the check of an output buffer against expected values.
//
// Every array starts filled with guard NaNs; only the elements an operand
// holds get values. So a routine that reads outside its triangle, band or
// leading rows, or over a unit diagonal, turns its result into NaN, and a
// routine that writes there breaks a guard.
#pragma once

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "orv_test.h"

namespace l2test {

using orvtest::Guarded;
using orvtest::Rng;
using orvtest::zcomplex;

template <typename T>
inline constexpr bool kComplex = std::is_same_v<T, zcomplex>;

inline double nan() { return std::numeric_limits<double>::quiet_NaN(); }

template <typename T>
T coarse(Rng& rng)
{
    if constexpr (kComplex<T>) return rng.zcoarse();
    else return rng.coarse();
}
template <typename T>
T nan_value()
{
    if constexpr (kComplex<T>) return {nan(), nan()};
    else return nan();
}

inline char letter(char upper, bool lower) { return lower ? static_cast<char>(std::tolower(upper)) : upper; }

// Which elements (i, j) of an m x n operand are stored, and where: those with
// -kl <= j - i <= ku, in full storage (i + j*ld), band storage
// (ku + i - j + j*ld) or packed storage (a triangle column by column).
struct Storage {
    enum Kind { kFull, kBand, kPacked } kind;
    long m, n, kl, ku, ld;

    static Storage full(long m, long n, long ld) { return {kFull, m, n, m - 1, n - 1, ld}; }
    static Storage triangle(long n, bool upper, long ld)
    {
        return {kFull, n, n, upper ? 0 : n - 1, upper ? n - 1 : 0, ld};
    }
    static Storage band(long m, long n, long kl, long ku, long ld) { return {kBand, m, n, kl, ku, ld}; }
    static Storage packed(long n, bool upper) { return {kPacked, n, n, upper ? 0 : n - 1, upper ? n - 1 : 0, 0}; }

    // The uplo triangle of an n x n matrix: packed (k = -2), full with ld
    // (k = -1) or a band of k off-diagonals with ld = k + 1 + extra.
    static Storage stored_triangle(long n, long k, bool upper, long extra)
    {
        if (k == -2) return packed(n, upper);
        if (k == -1) return triangle(n, upper, std::max(n, 1L) + extra);
        return band(n, n, upper ? 0 : k, upper ? k : 0, k + 1 + extra);
    }

    bool holds(long i, long j) const { return 0 <= i && i < m && 0 <= j && j < n && i - j <= kl && j - i <= ku; }
    std::size_t index(long i, long j) const
    {
        if (kind == kFull) return static_cast<std::size_t>(i + j * ld);
        if (kind == kBand) return static_cast<std::size_t>(ku + i - j + j * ld);
        if (kl == 0) return static_cast<std::size_t>(i + j * (j + 1) / 2);
        return static_cast<std::size_t>(i + j * (2 * n - j - 1) / 2);
    }
    std::size_t size() const
    {
        if (kind == kPacked) return static_cast<std::size_t>(n * (n + 1) / 2);
        return static_cast<std::size_t>(std::max(ld * n, 0L));
    }
    std::string describe() const
    {
        const char* names[] = {"full", "band", "packed"};
        return std::string(names[kind]) + " m=" + std::to_string(m) + " n=" + std::to_string(n) +
               " kl=" + std::to_string(kl) + " ku=" + std::to_string(ku) + " ld=" + std::to_string(ld);
    }
};

// What the stored elements stand for. A Hermitian diagonal is stored with a
// NaN imaginary part and a unit diagonal is not stored at all: neither may be
// read. Triangular diagonals are kept away from zero so that solves stay tame.
enum class Meaning { kGeneral, kSymmetric, kHermitian, kTriangular, kUnitTriangular };

template <typename T>
struct Matrix {
    Storage s;
    Guarded<T> buf;
    explicit Matrix(const Storage& st) : s(st), buf(st.size()) {}
    T& at(long i, long j) { return buf[s.index(i, j)]; }
    zcomplex get(long i, long j) const { return zcomplex(buf[s.index(i, j)]); }

    // Values for every held element; NaN for all of them when `poison` (the
    // call must not read A at all).
    void fill(Rng& rng, Meaning meaning, bool poison = false)
    {
        for (long j = 0; j < s.n; ++j)
            for (long i = 0; i < s.m; ++i) {
                if (!s.holds(i, j)) continue;
                T v = poison ? nan_value<T>() : coarse<T>(rng);
                if (i == j && !poison) {
                    if (meaning == Meaning::kUnitTriangular) v = nan_value<T>();
                    if (meaning == Meaning::kTriangular) v = v + T(4.0);
                    if constexpr (kComplex<T>)
                        if (meaning == Meaning::kHermitian) v = {v.real(), nan()};
                }
                at(i, j) = v;
            }
    }

    // The m x n matrix the storage stands for, column-major.
    std::vector<zcomplex> dense(Meaning meaning) const
    {
        std::vector<zcomplex> d(static_cast<std::size_t>(s.m * s.n));
        for (long j = 0; j < s.n; ++j)
            for (long i = 0; i < s.m; ++i) {
                zcomplex v = 0.0;
                if (i == j && meaning == Meaning::kUnitTriangular) v = 1.0;
                else if (i == j && meaning == Meaning::kHermitian) v = get(i, i).real();
                else if (s.holds(i, j)) v = get(i, j);
                else if (s.holds(j, i) && meaning == Meaning::kSymmetric) v = get(j, i);
                else if (s.holds(j, i) && meaning == Meaning::kHermitian) v = std::conj(get(j, i));
                d[static_cast<std::size_t>(i + j * s.m)] = v;
            }
        return d;
    }
};

// A strided vector of n logical elements inside a guarded buffer.
template <typename T>
struct Vector {
    long n, inc;
    Guarded<T> buf;
    Vector(long len, long step) : n(len), inc(step), buf(orvtest::vec_span(len, step)) {}
    std::size_t index(long i) const { return orvtest::vec_index(n, inc, i); }
    T& operator[](long i) { return buf[index(i)]; }
    zcomplex get(long i) const { return zcomplex(buf[index(i)]); }
    void fill(Rng& rng, bool poison = false)
    {
        for (long i = 0; i < n; ++i) (*this)[i] = poison ? nan_value<T>() : coarse<T>(rng);
    }
    std::vector<zcomplex> values() const
    {
        std::vector<zcomplex> v(static_cast<std::size_t>(n));
        for (long i = 0; i < n; ++i) v[static_cast<std::size_t>(i)] = get(i);
        return v;
    }
};

// Expected contents of an output buffer: a value for each element the call
// must compute, nothing for the elements it must leave bit for bit.
using Expect = std::vector<std::optional<zcomplex>>;

inline bool close(zcomplex got, zcomplex want, double tol)
{
    if (tol == 0.0) return got == want;
    return std::abs(got - want) <= tol * (1.0 + std::abs(want));
}

// Compares a whole buffer, guard bands included, with `want` (tol 0: exactly).
template <typename T>
::testing::AssertionResult matches(const Guarded<T>& after, const std::vector<T>& before, const Expect& want,
                                   double tol = 0.0)
{
    const std::vector<T> now = after.snapshot();
    const long pad = static_cast<long>(Guarded<T>::kPad);
    for (std::size_t p = 0; p < now.size(); ++p) {
        const long idx = static_cast<long>(p) - pad;
        const bool computed = idx >= 0 && idx < static_cast<long>(want.size()) && want[idx].has_value();
        if (computed && !close(zcomplex(now[p]), *want[idx], tol))
            return ::testing::AssertionFailure() << "element " << idx << " is " << zcomplex(now[p]) << ", expected "
                                                 << *want[idx];
        if (!computed && !orvtest::same_bits(now[p], before[p]))
            return ::testing::AssertionFailure() << "element " << idx << " changed to " << zcomplex(now[p]);
    }
    return ::testing::AssertionSuccess();
}

template <typename T>
::testing::AssertionResult unchanged(const Guarded<T>& after, const std::vector<T>& before, const char* what)
{
    if (after.equals(before)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << what << " was written";
}

// Strides for x and y: unit, wide, backwards and mixed.
inline const std::vector<std::pair<long, long>> kIncrements = {{1, 1}, {2, -1}, {-3, 2}, {-1, -3}};

// (alpha, beta) pairs: the quick return, exact-zero scaling, pure scaling
// with A and x unread, plain and general values.
template <typename T>
std::vector<std::pair<T, T>> scalar_pairs()
{
    if constexpr (kComplex<T>)
        return {{1.0, 1.0}, {{0.5, -0.25}, 0.0}, {0.0, 1.0}, {0.0, {0.0, 1.0}}, {{-1.0, 2.0}, {0.5, 0.25}},
                {1.0, 0.0}};
    else
        return {{1.0, 1.0}, {0.75, 0.0}, {0.0, 1.0}, {0.0, -1.5}, {-2.0, 0.5}, {1.0, 0.0}};
}

}  // namespace l2test
