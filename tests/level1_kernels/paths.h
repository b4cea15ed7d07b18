// The builds of the vector kernels as the kernel tests see them: each
// build's table of kernels, the orders its reductions follow, and whether
// this processor can run it (tests of a build it lacks are skipped).
#pragma once

#include <string>
#include <vector>

#include "level1/dispatch.h"
#include "level1/kernels.h"
#include "../level1/level1_test.h"
#include "../level1/models.h"
#include "code_paths.h"

namespace orvtest {

using orv::dcomplex;
using orv::i64;

struct PathCase {
    const char* name;
    orv::Build build;
    model::Order order;
    bool (*supported)();
};

inline bool always() { return true; }

inline std::vector<PathCase> all_paths()
{
    using orv::Build;
    using O = model::Order;
    return {
        {"def", Build::def, {O::kBaseline}, always},
        {"cnr", Build::cnr, {O::kCompatible}, always},
        {"mc", Build::mc, model::order_of_path(2, false), has_ssse3},
        {"mc3", Build::mc3, model::order_of_path(3, false), has_sse42},
        {"avx", Build::avx, model::order_of_path(4, false), has_avx},
        {"avx2", Build::avx2, model::order_of_path(5, false), has_avx2},
        {"avx512_qix", Build::avx512_qix, model::order_of_path(6, false), has_avx512_qix},
        {"avx512", Build::avx512, model::order_of_path(7, false), has_avx512},
    };
}
inline std::string path_name(const ::testing::TestParamInfo<PathCase>& info) { return info.param.name; }

// A build's kernels, called with plain integers and std::complex data.
class Kernels {
public:
    explicit Kernels(const PathCase& p) : t_(*orv::Family<orv::Level1Kernels>::builds[static_cast<int>(p.build)]) {}
    const orv::Level1Kernels& table() const { return t_; }

    static const dcomplex* z(const zcomplex* p) { return reinterpret_cast<const dcomplex*>(p); }
    static dcomplex* z(zcomplex* p) { return reinterpret_cast<dcomplex*>(p); }

    double ddot(i64 n, const double* x, i64 incx, const double* y, i64 incy) const
    {
        return t_.ddot(&n, x, &incx, y, &incy);
    }
    zcomplex zdot(bool conjugate, i64 n, const zcomplex* x, i64 incx, const zcomplex* y, i64 incy) const
    {
        dcomplex r{guard_value(), guard_value()};
        (conjugate ? t_.zdotc : t_.zdotu)(&r, &n, z(x), &incx, z(y), &incy);
        return {r.re, r.im};
    }
    double dasum(i64 n, const double* x, i64 inc) const { return t_.dasum(&n, x, &inc); }
    double dzasum(i64 n, const zcomplex* x, i64 inc) const { return t_.dzasum(&n, z(x), &inc); }
    double dnrm2(i64 n, const double* x, i64 inc) const { return t_.dnrm2(&n, x, &inc); }
    double dznrm2(i64 n, const zcomplex* x, i64 inc) const { return t_.dznrm2(&n, z(x), &inc); }
    i64 idamax(i64 n, const double* x, i64 inc) const { return t_.idamax(&n, x, &inc); }
    i64 izamax(i64 n, const zcomplex* x, i64 inc) const { return t_.izamax(&n, z(x), &inc); }

private:
    const orv::Level1Kernels& t_;
};

// Sizes around every unroll boundary of the kernels (steps of up to 64
// elements, blocks of up to 512), and one long vector.
inline std::vector<int> kernel_sizes()
{
    std::vector<int> sizes;
    for (int n = 0; n <= 80; ++n) sizes.push_back(n);
    for (int n : {127, 128, 129, 1000}) sizes.push_back(n);
    return sizes;
}

// Equal units, strides, mixed signs, and a zero step for x.
inline std::vector<IncPair> kernel_inc_pairs() { return {{1, 1}, {-1, -1}, {2, 2}, {-3, -3}, {1, -1}, {2, -3}, {-1, 2}, {0, 1}}; }

// Both NaN, or the same bits.
inline bool same_or_both_nan(double a, double b) { return (a != a && b != b) || same_bits(a, b); }

}  // namespace orvtest

#define ORV_SKIP_UNLESS_SUPPORTED(path)                                                  \
    do {                                                                                 \
        if (!(path).supported()) {                                                       \
            GTEST_SKIP() << "this processor cannot run the " << (path).name << " build"; \
        }                                                                                \
    } while (0)
