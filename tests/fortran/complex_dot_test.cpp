// The complex dot products called from Fortran code compiled by gfortran.
// The caller takes the function value where the compiler puts it (in
// registers on Linux, at an address passed first on Windows), so a value that
// arrives intact shows that the exports follow the compiler's convention.
// The values are small integers: every sum is exact in either precision.

#include <gtest/gtest.h>

#include <complex>
#include <vector>

#include "orv_test.h"

extern "C" {
void call_zdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
void call_zdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
#if defined(ORV_TEST_SINGLE_COMPLEX)
void call_cdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
void call_cdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy, void* result);
#endif
}

namespace {

using Caller = void (*)(const int*, const void*, const int*, const void*, const int*, void*);

struct Case {
    int n, incx, incy;
};
constexpr Case kCases[] = {{0, 1, 1}, {1, 1, 1}, {5, 1, 1}, {6, 2, -1}, {4, -3, 2}};

// Runs every case through `caller` for elements of type std::complex<R> and
// compares with the sum formed here.
template <typename R>
void expect_dots(Caller caller, bool conjugated)
{
    using C = std::complex<R>;
    for (const Case& c : kCases) {
        const std::size_t span_x = orvtest::vec_span(c.n, c.incx), span_y = orvtest::vec_span(c.n, c.incy);
        std::vector<C> x(span_x + 1), y(span_y + 1);
        C want = 0;
        for (int i = 0; i < c.n; ++i) {
            const C xi(R(i + 1), R(2 - i)), yi(R(3 - 2 * i), R(i % 3));
            x[orvtest::vec_index(c.n, c.incx, i)] = xi;
            y[orvtest::vec_index(c.n, c.incy, i)] = yi;
            want += (conjugated ? std::conj(xi) : xi) * yi;
        }
        C got(R(-99), R(-99));
        caller(&c.n, x.data(), &c.incx, y.data(), &c.incy, &got);
        EXPECT_EQ(got, want) << "n=" << c.n << " incx=" << c.incx << " incy=" << c.incy;
    }
}

TEST(FortranCaller, Zdotc) { expect_dots<double>(call_zdotc_, true); }
TEST(FortranCaller, Zdotu) { expect_dots<double>(call_zdotu_, false); }
#if defined(ORV_TEST_SINGLE_COMPLEX)
TEST(FortranCaller, Cdotc) { expect_dots<float>(call_cdotc_, true); }
TEST(FortranCaller, Cdotu) { expect_dots<float>(call_cdotu_, false); }
#endif

}  // namespace
