// Helpers of the level-3 tests: guarded column-major matrices, the scalar
// sets, per-element expectations and the check that compares a routine's
// output with them.
//
// Every element a test does not fill holds the guard NaN. A routine that
// reads an element it should not (the other triangle, a unit diagonal, A or B
// when alpha is 0, C when beta is 0) therefore produces a NaN the reference
// does not have, and one that writes such an element changes a guard.
#pragma once

#include <algorithm>
#include <cctype>
#include <cfloat>
#include <cmath>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "orv_test.h"

namespace l3test {

using orvtest::Guarded;
using orvtest::Rng;
using orvtest::zcomplex;

template <typename T>
inline constexpr bool kComplex = std::is_same_v<T, zcomplex>;

inline double abs1(double x) { return std::fabs(x); }
inline double abs1(zcomplex z) { return std::fabs(z.real()) + std::fabs(z.imag()); }
inline bool finite(double x) { return std::isfinite(x); }
inline bool finite(zcomplex z) { return std::isfinite(z.real()) && std::isfinite(z.imag()); }
inline double conj_if(bool, double x) { return x; }
inline zcomplex conj_if(bool c, zcomplex z) { return c ? std::conj(z) : z; }
inline double real_part(double x) { return x; }
inline zcomplex real_part(zcomplex z) { return {z.real(), 0.0}; }
inline double nan_value() { return orvtest::guard_value(); }

template <typename T>
T random_value(Rng& rng)
{
    if constexpr (kComplex<T>) return rng.zfull();
    else return rng.full();
}
// A diagonal value at least 1 in size, so that solves stay well scaled.
template <typename T>
T pivot_value(Rng& rng)
{
    const double r = rng.full();
    const double size = (1.0 + std::fabs(r)) * (r < 0 ? -1.0 : 1.0);
    if constexpr (kComplex<T>) return {size, rng.full()};
    else return size;
}

// The alpha and beta values every table cycles through.
template <typename T>
std::vector<T> scalars()
{
    if constexpr (kComplex<T>) return {zcomplex(0.0), zcomplex(1.0), zcomplex(-1.0), zcomplex(0.3, -0.7)};
    else return {0.0, 1.0, -1.0, 0.3};
}

// Option letters are passed in upper case or lower case by turns.
inline char letter(char c, bool lower) { return lower ? static_cast<char>(c - 'A' + 'a') : c; }

// A column-major rows x cols matrix with leading dimension ld in a guarded buffer.
template <typename T>
struct Mat {
    int rows;
    int cols;
    int ld;
    Guarded<T> buf;

    Mat(int r, int c, int extra_ld) : rows(r), cols(c), ld(std::max(1, r) + extra_ld), buf(std::size_t(ld) * c) {}
    T* data() { return buf.data(); }
    T& at(int i, int j) { return buf[std::size_t(i) + std::size_t(j) * ld]; }
    const T& at(int i, int j) const { return buf[std::size_t(i) + std::size_t(j) * ld]; }

    void fill(Rng& rng)
    {
        for (int j = 0; j < cols; ++j)
            for (int i = 0; i < rows; ++i) at(i, j) = random_value<T>(rng);
    }
    // Fills the upper or lower triangle of a square matrix. The diagonal gets
    // a random value, a pivot value, its real part only (Hermitian: the
    // imaginary part stays NaN) or nothing at all (unit diagonal).
    enum class Diagonal { random, pivot, real_only, none };
    void fill_triangle(Rng& rng, bool upper, Diagonal diag)
    {
        for (int j = 0; j < cols; ++j)
            for (int i = 0; i < rows; ++i) {
                if (i == j) {
                    if (diag == Diagonal::random) at(i, j) = random_value<T>(rng);
                    if (diag == Diagonal::pivot) at(i, j) = pivot_value<T>(rng);
                    if constexpr (kComplex<T>)
                        if (diag == Diagonal::real_only) at(i, j) = {rng.full(), nan_value()};
                } else if (upper ? i < j : i > j) {
                    at(i, j) = random_value<T>(rng);
                }
            }
    }
    // One NaN at a random element accepted by `in`, the region a routine reads.
    template <typename Pred>
    void poison(Rng& rng, Pred in)
    {
        std::vector<std::pair<int, int>> cells;
        for (int j = 0; j < cols; ++j)
            for (int i = 0; i < rows; ++i)
                if (in(i, j)) cells.emplace_back(i, j);
        if (cells.empty()) return;
        const auto [i, j] = cells[rng.bits() % cells.size()];
        if constexpr (kComplex<T>) at(i, j) = {nan_value(), at(i, j).imag()};
        else at(i, j) = nan_value();
    }
};

// What a routine must leave in its output matrix.
template <typename T>
struct Expectation {
    enum class Kind {
        untouched,  // a quick return: the whole buffer keeps its bits
        close,      // finite elements within tol * mag; non-finite where the reference is
        pattern,    // only finiteness must agree, element by element
    };
    Kind kind = Kind::close;
    int rows = 0;
    int cols = 0;
    double tol = 0.0;
    std::vector<T> value;
    std::vector<double> mag;  // sum of |terms|, the scale of the rounding error
    std::vector<char> written;
    bool real_diagonal = false;  // Hermitian result: the diagonal's imaginary part is exactly 0

    Expectation(int r, int c, int depth) : rows(r), cols(c), value(std::size_t(r) * c), mag(std::size_t(r) * c),
                                           written(std::size_t(r) * c, 1)
    {
        tol = 8.0 * (depth + 4) * DBL_EPSILON;
    }
    std::size_t index(int i, int j) const { return std::size_t(i) + std::size_t(j) * rows; }
};

// Compares `out` after a call with the expectation; `before` is its snapshot
// from before the call. Elements the routine does not own must keep their bits.
template <typename T>
::testing::AssertionResult matches(const Mat<T>& out, const std::vector<T>& before, const Expectation<T>& e)
{
    if (auto guards = out.buf.guards_intact(); !guards) return guards;
    if (e.kind == Expectation<T>::Kind::untouched) {
        if (out.buf.equals(before)) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "output changed on a quick return";
    }
    const std::size_t pad = Guarded<T>::kPad;
    for (int j = 0; j < out.cols; ++j)
        for (int i = 0; i < out.ld; ++i) {
            const T got = out.at(i, j);
            const std::size_t at = std::size_t(i) + std::size_t(j) * out.ld;
            if (i >= e.rows || !e.written[e.index(i, j)]) {
                if (!orvtest::same_bits(got, before[pad + at]))
                    return ::testing::AssertionFailure()
                           << "element (" << i << "," << j << ") outside the result changed";
                continue;
            }
            const T want = e.value[e.index(i, j)];
            if constexpr (kComplex<T>)
                if (e.real_diagonal && i == j && got.imag() != 0.0)
                    return ::testing::AssertionFailure()
                           << "diagonal (" << i << "," << i << ") has imaginary part " << got.imag();
            if (finite(want) != finite(got))
                return ::testing::AssertionFailure() << "(" << i << "," << j << ") is " << got << ", want " << want;
            if (e.kind == Expectation<T>::Kind::pattern || !finite(want)) continue;
            const double err = abs1(got - want);
            if (!(err <= e.tol * e.mag[e.index(i, j)]))
                return ::testing::AssertionFailure() << "(" << i << "," << j << ") is " << got << ", want " << want
                                                     << " (error " << err << ", bound "
                                                     << e.tol * e.mag[e.index(i, j)] << ")";
        }
    return ::testing::AssertionSuccess();
}

// Every element of the expectation as beta * C(i, j) + alpha * sum over l <
// depth of x(i, l) y(l, j), with the sum of the terms' magnitudes beside it.
// A zero beta does not read C, a zero alpha neither x nor y.
template <typename T, typename X, typename Y>
void expect_product(Expectation<T>& e, const Mat<T>& c, T alpha, T beta, int depth, X x, Y y)
{
    for (int j = 0; j < e.cols; ++j)
        for (int i = 0; i < e.rows; ++i) {
            T v = 0;
            double mag = 0;
            if (beta != T(0)) {
                v = beta * c.at(i, j);
                mag = abs1(beta) * abs1(c.at(i, j));
            }
            if (alpha != T(0)) {
                T sum = 0;
                double sum_mag = 0;
                for (int l = 0; l < depth; ++l) {
                    const T xv = x(i, l), yv = y(l, j);
                    sum += xv * yv;
                    sum_mag += abs1(xv) * abs1(yv);
                }
                v += alpha * sum;
                mag += abs1(alpha) * sum_mag;
            }
            e.value[e.index(i, j)] = v;
            e.mag[e.index(i, j)] = mag;
        }
}

// Runs `call`, which reads A and B and updates C, and checks that it wrote
// neither input and left C as expected.
template <typename T, typename Call>
::testing::AssertionResult call_and_match(const Mat<T>& a, const Mat<T>& b, Mat<T>& c, const Expectation<T>& e,
                                          Call call)
{
    const auto a0 = a.buf.snapshot(), b0 = b.buf.snapshot(), c0 = c.buf.snapshot();
    call();
    if (!a.buf.equals(a0) || !b.buf.equals(b0)) return ::testing::AssertionFailure() << "an input was written";
    return matches(c, c0, e);
}

// Which input gets one NaN in the elements the routine reads.
enum class Poison { none, a, b };

inline const char* poison_name(Poison p) { return p == Poison::a ? " NaN in A" : p == Poison::b ? " NaN in B" : ""; }

// Runs every case of a table, reporting at most a few failures so that one
// broken path does not bury the output.
template <typename Case, typename Run>
void run_table(const std::vector<Case>& cases, Run run)
{
    int failures = 0;
    for (const Case& c : cases) {
        const ::testing::AssertionResult r = run(c);
        if (r) continue;
        ADD_FAILURE() << c.describe() << ": " << r.message();
        if (++failures == 5) {
            ADD_FAILURE() << "further cases skipped";
            return;
        }
    }
}

template <typename T>
std::string show(T x)
{
    std::ostringstream s;
    s << x;
    return s.str();
}

// The small sizes every table crosses, and the larger shapes added to them.
inline const std::vector<int>& small_sizes()
{
    static const std::vector<int> sizes{0, 1, 2, 3, 4, 5, 7, 9};
    return sizes;
}
struct Shape3 {
    int m, n, k;
};
// At the largest sizes that real shaped products write out whole and read in
// place (32), then past them.
inline const std::vector<Shape3>& large_shapes()
{
    static const std::vector<Shape3> shapes{{32, 31, 32}, {33, 9, 33}, {17, 33, 64},
                                            {64, 17, 33}, {33, 64, 17}, {64, 64, 64}};
    return shapes;
}
// A shape past the cache blocks of the blocked products: two k-blocks (or
// two diagonal blocks of a triangle), two column slices of up to 192.
inline Shape3 block_shape() { return {270, 200, 270}; }

}  // namespace l3test
