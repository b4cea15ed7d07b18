// Shared helpers of the test programs: deterministic data, strided vector
// addressing and guard bands around every output.
#pragma once

#include <gtest/gtest.h>

#include <complex>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "orv.h"

namespace orvtest {

using zcomplex = std::complex<double>;

// Deterministic values in [-1, 1). full() uses all 53 bits, so that sums in
// another order give other bits; coarse() keeps 12 significant bits, so that
// short sums of products are exact and a reference needs no tolerance.
class Rng {
public:
    explicit Rng(std::uint64_t seed = 1) : state_(seed * 0x9E3779B97F4A7C15ull + 1) {}
    std::uint64_t bits()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return state_;
    }
    double full() { return static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0; }
    double coarse() { return static_cast<double>(static_cast<std::int64_t>(bits() >> 52) - 2048) * 0x1p-11; }
    zcomplex zfull() { const double re = full(); return {re, full()}; }
    zcomplex zcoarse() { const double re = coarse(); return {re, coarse()}; }

private:
    std::uint64_t state_;
};

// Storage index of logical element i of a vector of n elements with
// increment inc; a negative increment walks from the far end.
inline std::size_t vec_index(long n, long inc, long i)
{
    return static_cast<std::size_t>(inc >= 0 ? i * inc : (n - 1 - i) * -inc);
}
// Elements a strided vector spans.
inline std::size_t vec_span(long n, long inc)
{
    return n <= 0 ? 0 : static_cast<std::size_t>(1 + (n - 1) * (inc < 0 ? -inc : inc));
}

// A quiet NaN with a payload no computation produces: a guard value.
inline double guard_value()
{
    const std::uint64_t bits = 0x7ff8dead0badf00dull;
    double d;
    std::memcpy(&d, &bits, sizeof d);
    return d;
}
inline bool same_bits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }
inline bool same_bits(zcomplex a, zcomplex b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// An array with guard elements before and after its n elements. Elements
// between strided entries (or below a leading dimension) are filled with the
// guard value too by fill_guard(), so untouched() also proves that a routine
// wrote nothing between the elements it owns.
template <typename T>
class Guarded {
public:
    static constexpr std::size_t kPad = 16;

    explicit Guarded(std::size_t n) : buf_(n + 2 * kPad), n_(n) { fill_guard(); }

    T* data() { return buf_.data() + kPad; }
    const T* data() const { return buf_.data() + kPad; }
    std::size_t size() const { return n_; }
    T& operator[](std::size_t i) { return data()[i]; }
    const T& operator[](std::size_t i) const { return data()[i]; }

    void fill_guard()
    {
        for (auto& v : buf_) v = guard();
    }
    // A snapshot to compare against after a call that must not write.
    std::vector<T> snapshot() const { return buf_; }
    bool equals(const std::vector<T>& snap) const
    {
        return std::memcmp(snap.data(), buf_.data(), buf_.size() * sizeof(T)) == 0;
    }
    // True when both guard bands are intact.
    ::testing::AssertionResult guards_intact() const
    {
        for (std::size_t i = 0; i < kPad; ++i) {
            if (!same_bits(buf_[i], guard()))
                return ::testing::AssertionFailure() << "guard written at element " << static_cast<long>(i - kPad);
            if (!same_bits(buf_[kPad + n_ + i], guard()))
                return ::testing::AssertionFailure() << "guard written at element " << n_ + i;
        }
        return ::testing::AssertionSuccess();
    }

private:
    static T guard();
    std::vector<T> buf_;
    std::size_t n_;
};

template <>
inline double Guarded<double>::guard() { return guard_value(); }
template <>
inline zcomplex Guarded<zcomplex>::guard() { return {guard_value(), guard_value()}; }

// A complex dot product (zdotc_ or zdotu_) called the way this platform has
// it return its value: in registers on Linux, through a hidden first
// argument on Windows.
template <typename Dot>
zcomplex complex_dot(Dot dot, const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
#if defined(_WIN32)
    zcomplex result;
    dot(&result, n, x, incx, y, incy);
    return result;
#else
    const orv_complex_double result = dot(n, x, incx, y, incy);
    return {__real__ result, __imag__ result};
#endif
}

// True when the library runs its reproducible builds in this process: the two
// oldest code paths do under any reproducibility mode. The test runs force the
// path with ORV_DEBUG_CPU_TYPE and the mode with ORV_CBWR; a mode that names
// one of those branches selects such a path by itself.
inline bool expects_reproducible_build()
{
    const char* mode = std::getenv("ORV_CBWR");
    if (mode == nullptr || *mode == '\0') return false;
    const char* forced = std::getenv("ORV_DEBUG_CPU_TYPE");
    if (forced != nullptr && *forced != '\0') {
        const long path = std::strtol(forced, nullptr, 0);
        return path == 0 || path == 2;
    }
    if (std::strncmp(mode, "BRANCH=", 7) == 0) mode += 7;
    for (const char* branch : {"COMPATIBLE", "SSE2", "SSE3", "SSSE3", "SSE4_1"})
        if (std::strcmp(mode, branch) == 0) return true;
    return false;
}

}  // namespace orvtest
