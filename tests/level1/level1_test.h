// Vectors for the level-1 tests: strided, placed at a chosen byte offset from
// a 64-byte boundary, with guard values around and between the elements.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orv_test.h"

namespace orvtest {

// Sizes around every unroll boundary of the kernels, and a few long ones.
inline std::vector<int> level1_sizes()
{
    std::vector<int> sizes;
    for (int n = 0; n <= 80; ++n) sizes.push_back(n);
    for (int n : {100, 127, 128, 129, 1000, 4097}) sizes.push_back(n);
    return sizes;
}

// Byte offsets from a 64-byte boundary: every 8-byte step of a cache line.
inline std::vector<int> offsets() { return {0, 8, 16, 24, 32, 40, 48, 56}; }

struct IncPair {
    int x, y;
};
// Equal units (the contiguous paths), strides, mixed signs and a zero x step.
inline std::vector<IncPair> inc_pairs()
{
    return {{1, 1}, {-1, -1}, {2, 2}, {-3, -3}, {1, -1}, {-1, 1}, {2, -3}, {-3, 2}, {1, 2}, {0, 1}};
}
inline bool unit_pair(IncPair p) { return p.x == p.y && (p.x == 1 || p.x == -1); }
// Test-name suffix such as "incx_m3_incy_2".
inline std::string inc_name(int v)
{
    std::string name;
    if (v < 0) name.push_back('m');
    name.append(std::to_string(v < 0 ? -v : v));
    return name;
}
inline std::string inc_pair_name(const ::testing::TestParamInfo<IncPair>& info)
{
    std::string name("incx_");
    name.append(inc_name(info.param.x)).append("_incy_").append(inc_name(info.param.y));
    return name;
}

template <typename T>
T random_value(Rng& rng);
template <>
inline double random_value<double>(Rng& rng) { return rng.full(); }
template <>
inline zcomplex random_value<zcomplex>(Rng& rng) { return rng.zfull(); }

template <typename T>
std::vector<T> random_values(Rng& rng, long n)
{
    std::vector<T> v(n > 0 ? n : 0);
    for (auto& e : v) e = random_value<T>(rng);
    return v;
}
inline std::vector<double> coarse_values(Rng& rng, long n)
{
    std::vector<double> v(n > 0 ? n : 0);
    for (auto& e : v) e = rng.coarse();
    return v;
}
// With a zero increment every logical element is the same stored element,
// so its logical values must all be equal.
template <typename T>
std::vector<T> stored_as(std::vector<T> v, long inc)
{
    if (inc == 0)
        for (auto& e : v) e = v[0];
    return v;
}

template <typename T>
class Vec {
public:
    static constexpr long kPad = 16;

    Vec(long n, long inc, std::size_t offset_bytes = 0)
        : n_(n), inc_(inc), span_(static_cast<long>(vec_span(n, inc))),
          raw_((span_ + 2 * kPad) * kDoubles + 16, guard_value())
    {
        const auto base = (reinterpret_cast<std::uintptr_t>(raw_.data()) + 63) & ~std::uintptr_t{63};
        data_ = reinterpret_cast<T*>(base + offset_bytes) + kPad;
    }
    Vec(long n, long inc, const std::vector<T>& values, std::size_t offset_bytes = 0) : Vec(n, inc, offset_bytes)
    {
        set(values);
    }
    Vec(const Vec&) = delete;
    Vec& operator=(const Vec&) = delete;

    T* data() { return data_; }
    T& operator()(long i) { return data_[vec_index(n_, inc_, i)]; }
    void set(const std::vector<T>& v)
    {
        for (long i = 0; i < n_; ++i) (*this)(i) = v[i];
    }
    std::vector<T> values() const
    {
        std::vector<T> v(n_ > 0 ? n_ : 0);
        for (long i = 0; i < n_; ++i) v[i] = data_[vec_index(n_, inc_, i)];
        return v;
    }

    // Every logical element has the bits of `want` (with a zero increment
    // the one element holds want[0]); everything else still holds guards.
    ::testing::AssertionResult holds(const std::vector<T>& want) const
    {
        const long step = inc_ < 0 ? -inc_ : inc_;
        for (long pos = -kPad; pos < span_ + kPad; ++pos) {
            const bool logical = pos >= 0 && pos < span_ && (step == 0 || pos % step == 0);
            long i = 0;
            if (logical && step != 0) i = inc_ > 0 ? pos / step : n_ - 1 - pos / step;
            const T expected = logical ? want[i] : guard();
            if (!same_bits(data_[pos], expected))
                return ::testing::AssertionFailure()
                       << (logical ? "element " : "guard at storage index ") << (logical ? i : pos) << " is "
                       << data_[pos] << ", expected " << expected;
        }
        return ::testing::AssertionSuccess();
    }

private:
    static constexpr long kDoubles = sizeof(T) / sizeof(double);
    static T guard()
    {
        if constexpr (kDoubles == 1) return guard_value();
        else return {guard_value(), guard_value()};
    }
    long n_, inc_, span_;
    std::vector<double> raw_;
    T* data_;
};

}  // namespace orvtest
