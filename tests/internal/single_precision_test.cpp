// The single-precision and single-complex members where the reference test
// programs do not look: outputs scaled by a zero beta over NaN, NaN in the
// triangle a routine must not read and on a unit diagonal, empty and
// backward vectors, norms at the ends of the float range, and the dot
// products accumulated in double. Results are compared with a plain
// reference in double precision within a float tolerance; every slot that is
// not an output must keep its bits.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include "level1/single.h"
#include "level2/level2.h"
#include "level3/level3.h"

namespace {

using namespace orv::plain;
using orv::fcomplex;
using orv::i64;
using cd = std::complex<double>;
using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

template <typename T>
constexpr bool kComplex = std::is_same_v<T, fcomplex>;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

template <typename T>
T nan_value()
{
    if constexpr (kComplex<T>) return {kNaN, kNaN};
    else return kNaN;
}
template <typename T>
T from_real(float v)
{
    if constexpr (kComplex<T>) return {v, 0.0f};
    else return v;
}
cd widen(float v) { return v; }
cd widen(fcomplex v) { return {v.re, v.im}; }
template <typename T>
bool same_bits(const T& a, const T& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}
bool close(cd got, cd want, double tol = 1e-5) { return std::abs(got - want) <= tol * (1.0 + std::abs(want)); }

// The member of the element type's precision: s for float, c for fcomplex.
template <typename T, typename S, typename C>
auto pick(S real, C complex)
{
    if constexpr (kComplex<T>) return complex;
    else return real;
}

// Values k/16 with |k| <= 16: the products and short sums of the tests are
// exact in float, so only solves and rotations round.
class Values {
public:
    explicit Values(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15ull + 1) {}
    float real()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<float>(static_cast<int>(state_ % 33) - 16) / 16.0f;
    }
    template <typename T>
    T next()
    {
        if constexpr (kComplex<T>) {
            const float re = real();
            return {re, real()};
        } else {
            return real();
        }
    }

private:
    std::uint64_t state_;
};

// A dense column-major matrix in double precision, the reference's operand.
struct Dense {
    i64 m, n;
    std::vector<cd> v;
    Dense(i64 rows, i64 cols) : m(rows), n(cols), v(static_cast<std::size_t>(rows * cols)) {}
    cd& operator()(i64 i, i64 j) { return v[static_cast<std::size_t>(i + j * m)]; }
    cd operator()(i64 i, i64 j) const { return v[static_cast<std::size_t>(i + j * m)]; }
};

// op(a) for the option letters N, T and C.
Dense op(const Dense& a, char t)
{
    if (t == 'N') return a;
    Dense r(a.n, a.m);
    for (i64 j = 0; j < a.m; ++j)
        for (i64 i = 0; i < a.n; ++i) r(i, j) = t == 'C' ? std::conj(a(j, i)) : a(j, i);
    return r;
}
Dense operator*(const Dense& a, const Dense& b)
{
    Dense r(a.m, b.n);
    for (i64 j = 0; j < b.n; ++j)
        for (i64 l = 0; l < a.n; ++l)
            for (i64 i = 0; i < a.m; ++i) r(i, j) += a(i, l) * b(l, j);
    return r;
}
Dense operator*(cd s, Dense a)
{
    for (cd& e : a.v) e *= s;
    return a;
}
Dense operator+(Dense a, const Dense& b)
{
    for (std::size_t p = 0; p < a.v.size(); ++p) a.v[p] += b.v[p];
    return a;
}
// Solves a x = b by elimination without pivoting (a triangular, its diagonal
// away from zero).
Dense solve(Dense a, Dense b)
{
    for (i64 k = 0; k < a.m; ++k)
        for (i64 i = 0; i < a.m; ++i) {
            if (i == k) continue;
            const cd f = a(i, k) / a(k, k);
            for (i64 j = 0; j < a.n; ++j) a(i, j) -= f * a(k, j);
            for (i64 j = 0; j < b.n; ++j) b(i, j) -= f * b(k, j);
        }
    for (i64 i = 0; i < a.m; ++i)
        for (i64 j = 0; j < b.n; ++j) b(i, j) /= a(i, i);
    return b;
}

// Where the stored elements (i, j) of an m x n operand lie: those with
// -kl <= j - i <= ku, in full storage with leading dimension ld (one spare
// row), band storage, a packed triangle, or a vector of m elements with
// increment ld.
struct Layout {
    enum Kind { kFull, kBand, kPacked, kVector } kind;
    i64 m, n, kl, ku, ld;

    bool holds(i64 i, i64 j) const { return 0 <= i && i < m && 0 <= j && j < n && i - j <= kl && j - i <= ku; }
    i64 index(i64 i, i64 j) const
    {
        switch (kind) {
        case kFull: return i + j * ld;
        case kBand: return ku + i - j + j * ld;
        case kPacked: return kl == 0 ? i + j * (j + 1) / 2 : i + j * (2 * n - j - 1) / 2;
        case kVector: break;
        }
        return ld >= 0 ? i * ld : (m - 1 - i) * -ld;
    }
    i64 size() const
    {
        if (kind == kPacked) return n * (n + 1) / 2;
        if (kind == kVector) return m < 1 ? 0 : 1 + (m - 1) * std::abs(ld);
        return ld * n;
    }
};
Layout full(i64 m, i64 n) { return {Layout::kFull, m, n, m - 1, n - 1, m + 1}; }
Layout triangle(i64 n, bool upper) { return {Layout::kFull, n, n, upper ? 0 : n - 1, upper ? n - 1 : 0, n + 1}; }
Layout band(i64 n, i64 kl, i64 ku) { return {Layout::kBand, n, n, kl, ku, kl + ku + 2}; }
Layout packed(i64 n, bool upper) { return {Layout::kPacked, n, n, upper ? 0 : n - 1, upper ? n - 1 : 0, 0}; }
// A count below 1 gives an empty vector.
Layout vector(i64 n, i64 inc) { return {Layout::kVector, std::max<i64>(n, 0), 1, n, 0, inc}; }

// What the stored elements stand for. A unit diagonal and the imaginary part
// of a Hermitian diagonal are stored as NaN: neither may be read.
enum class Meaning { kGeneral, kSymmetric, kHermitian, kTriangular, kUnit };

// An operand in single precision: its buffer, NaN in every slot that is not
// stored and guard slots at both ends, and the matrix it stands for.
template <typename T>
struct Operand {
    static constexpr i64 kPad = 2;
    Layout at;
    std::vector<T> buf, before;
    Dense dense;
    T* data() { return buf.data() + kPad; }
    const i64* ld() const { return &at.ld; }
};

// `poison` stores NaN in every element too (an operand that must not be
// read); the reference still sees values, which a zero alpha cancels.
template <typename T>
Operand<T> make(const Layout& at, Values& r, Meaning meaning = Meaning::kGeneral, bool poison = false)
{
    Operand<T> o{at, std::vector<T>(static_cast<std::size_t>(at.size() + 2 * Operand<T>::kPad), nan_value<T>()), {},
                 Dense(at.m, at.n)};
    Dense stored(at.m, at.n);
    for (i64 j = 0; j < at.n; ++j)
        for (i64 i = 0; i < at.m; ++i) {
            if (!at.holds(i, j)) continue;
            T v = r.next<T>();
            if (i == j && meaning == Meaning::kTriangular) v = v + from_real<T>(4.0f);
            stored(i, j) = widen(v);
            if (poison || (i == j && meaning == Meaning::kUnit)) v = nan_value<T>();
            if constexpr (kComplex<T>)
                if (i == j && meaning == Meaning::kHermitian) v.im = kNaN;
            o.buf[static_cast<std::size_t>(Operand<T>::kPad + at.index(i, j))] = v;
        }
    for (i64 j = 0; j < at.n; ++j)
        for (i64 i = 0; i < at.m; ++i) {
            cd& d = o.dense(i, j);
            if (i == j && meaning == Meaning::kUnit) d = 1.0;
            else if (i == j && meaning == Meaning::kHermitian) d = stored(i, i).real();
            else if (at.holds(i, j)) d = stored(i, j);
            else if (at.holds(j, i) && meaning == Meaning::kSymmetric) d = stored(j, i);
            else if (at.holds(j, i) && meaning == Meaning::kHermitian) d = std::conj(stored(j, i));
        }
    o.before = o.buf;
    return o;
}

// Operands that must come back bit for bit.
template <typename... T>
AssertionResult unchanged(const Operand<T>&... ops)
{
    for (bool same : {(ops.buf.size() == ops.before.size() &&
                       std::memcmp(ops.buf.data(), ops.before.data(), ops.buf.size() * sizeof(T)) == 0)...})
        if (!same) return AssertionFailure() << "an input operand was written";
    return AssertionSuccess();
}

// The output operand: every element it stores close to `want`, every other
// slot (gaps, spare rows, the other triangle, guards) unchanged.
template <typename T>
AssertionResult matches(const Operand<T>& out, const Dense& want, double tol = 1e-5)
{
    std::vector<bool> stored(out.buf.size(), false);
    for (i64 j = 0; j < out.at.n; ++j)
        for (i64 i = 0; i < out.at.m; ++i) {
            if (!out.at.holds(i, j)) continue;
            const auto p = static_cast<std::size_t>(Operand<T>::kPad + out.at.index(i, j));
            stored[p] = true;
            if (!close(widen(out.buf[p]), want(i, j), tol))
                return AssertionFailure() << "element (" << i << ", " << j << ") is " << widen(out.buf[p])
                                          << ", expected " << want(i, j);
        }
    for (std::size_t p = 0; p < out.buf.size(); ++p)
        if (!stored[p] && !same_bits(out.buf[p], out.before[p]))
            return AssertionFailure() << "slot " << p << " outside the output was written";
    return AssertionSuccess();
}

AssertionResult all(std::initializer_list<AssertionResult> results)
{
    for (const AssertionResult& r : results)
        if (!r) return r;
    return AssertionSuccess();
}

// ---------------------------------------------------------------------------
// Levels 2 and 3: every member once per combination of options. Outputs
// with a beta start as NaN and beta is 0; with a zero alpha the other
// operands hold NaN as well, which must not be read.

// `variant` picks a row's other member or form: the solve rather than the
// product, packed rather than full storage, A on the right rather than on
// the left.
struct Options {
    bool upper, unit, variant, zero_alpha;
    char trans, trans_b;
};

template <typename T>
T alpha_of(const Options& o)
{
    if (o.zero_alpha) return T{};
    if constexpr (kComplex<T>) return {0.5f, -0.75f};
    else return 0.75f;
}

template <typename T>
struct Row {
    const char* name;
    AssertionResult (*run)(Values& r, const Options& o);
};

constexpr i64 kM = 5, kN = 4, kK = 3, kBand = 2;
constexpr i64 kIncX = -2, kIncY = 3;
Layout band_triangle(bool upper) { return band(kN, upper ? 0 : kBand, upper ? kBand : 0); }

// y := alpha * op(A) * x over a y of NaN (beta = 0); call(alpha, x, beta, y)
// runs the member on the operand a.
template <typename T, typename Call>
AssertionResult mv_case(Values& r, const Options& o, const Operand<T>& a, char trans, Call call)
{
    const T alpha = alpha_of<T>(o), beta{};
    const i64 lx = trans == 'N' ? a.at.n : a.at.m, ly = trans == 'N' ? a.at.m : a.at.n;
    Operand<T> x = make<T>(vector(lx, kIncX), r, Meaning::kGeneral, o.zero_alpha);
    Operand<T> y = make<T>(vector(ly, kIncY), r, Meaning::kGeneral, true);
    call(&alpha, x.data(), &beta, y.data());
    return all({unchanged(a, x), matches(y, widen(alpha) * (op(a.dense, trans) * x.dense))});
}

// x := op(A) * x, or the solution of op(A) * x = b.
template <typename T, typename Call>
AssertionResult triangular_case(Values& r, const Options& o, const Operand<T>& a, bool solves, Call call)
{
    Operand<T> x = make<T>(vector(a.at.n, kIncX), r);
    call(x.data());
    const Dense t = op(a.dense, o.trans);
    return all({unchanged(a), matches(x, solves ? solve(t, x.dense) : t * x.dense, 1e-4)});
}

// A := A + update(alpha, x, y) on the stored part; a zero alpha leaves A as it is.
template <typename T, typename Call, typename Update>
AssertionResult rank_case(Values& r, const Options& o, Operand<T>& a, Call call, Update update)
{
    const T alpha = alpha_of<T>(o);
    Operand<T> x = make<T>(vector(a.at.m, kIncX), r, Meaning::kGeneral, o.zero_alpha);
    Operand<T> y = make<T>(vector(a.at.n, kIncY), r, Meaning::kGeneral, o.zero_alpha);
    call(alpha, x.data(), y.data());
    const AssertionResult result = o.zero_alpha ? unchanged(a) : matches(a, a.dense + update(widen(alpha), x, y));
    return all({unchanged(x, y), result});
}

template <typename T>
Meaning self_adjoint() { return kComplex<T> ? Meaning::kHermitian : Meaning::kSymmetric; }
Meaning diagonal(const Options& o) { return o.unit ? Meaning::kUnit : Meaning::kTriangular; }

template <typename T>
std::vector<Row<T>> level2_rows()
{
    return {
        {"gemv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(full(kM, kN), r, Meaning::kGeneral, o.zero_alpha);
             return mv_case(r, o, a, o.trans, [&](const T* al, const T* x, const T* be, T* y) {
                 pick<T>(sgemv, cgemv)(&o.trans, &kM, &kN, al, a.data(), a.ld(), x, &kIncX, be, y, &kIncY);
             });
         }},
        {"gbmv", [](Values& r, const Options& o) {
             const i64 kl = 1, ku = 2;
             Operand<T> a = make<T>(band(kN, kl, ku), r, Meaning::kGeneral, o.zero_alpha);
             return mv_case(r, o, a, o.trans, [&](const T* al, const T* x, const T* be, T* y) {
                 pick<T>(sgbmv, cgbmv)(&o.trans, &kN, &kN, &kl, &ku, al, a.data(), a.ld(), x, &kIncX, be, y, &kIncY);
             });
         }},
        {"symv/hemv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(triangle(kN, o.upper), r, self_adjoint<T>(), o.zero_alpha);
             const char uplo = o.upper ? 'U' : 'L';
             return mv_case(r, o, a, 'N', [&](const T* al, const T* x, const T* be, T* y) {
                 pick<T>(ssymv, chemv)(&uplo, &kN, al, a.data(), a.ld(), x, &kIncX, be, y, &kIncY);
             });
         }},
        {"sbmv/hbmv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(band_triangle(o.upper), r, self_adjoint<T>(), o.zero_alpha);
             const char uplo = o.upper ? 'U' : 'L';
             return mv_case(r, o, a, 'N', [&](const T* al, const T* x, const T* be, T* y) {
                 pick<T>(ssbmv, chbmv)(&uplo, &kN, &kBand, al, a.data(), a.ld(), x, &kIncX, be, y, &kIncY);
             });
         }},
        {"spmv/hpmv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(packed(kN, o.upper), r, self_adjoint<T>(), o.zero_alpha);
             const char uplo = o.upper ? 'U' : 'L';
             return mv_case(r, o, a, 'N', [&](const T* al, const T* x, const T* be, T* y) {
                 pick<T>(sspmv, chpmv)(&uplo, &kN, al, a.data(), x, &kIncX, be, y, &kIncY);
             });
         }},
        {"trmv/trsv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(triangle(kN, o.upper), r, diagonal(o));
             const char uplo = o.upper ? 'U' : 'L', diag = o.unit ? 'U' : 'N';
             const auto member = o.variant ? pick<T>(strsv, ctrsv) : pick<T>(strmv, ctrmv);
             return triangular_case(r, o, a, o.variant,
                                    [&](T* x) { member(&uplo, &o.trans, &diag, &kN, a.data(), a.ld(), x, &kIncX); });
         }},
        {"tbmv/tbsv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(band_triangle(o.upper), r, diagonal(o));
             const char uplo = o.upper ? 'U' : 'L', diag = o.unit ? 'U' : 'N';
             const auto member = o.variant ? pick<T>(stbsv, ctbsv) : pick<T>(stbmv, ctbmv);
             return triangular_case(r, o, a, o.variant, [&](T* x) {
                 member(&uplo, &o.trans, &diag, &kN, &kBand, a.data(), a.ld(), x, &kIncX);
             });
         }},
        {"tpmv/tpsv", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(packed(kN, o.upper), r, diagonal(o));
             const char uplo = o.upper ? 'U' : 'L', diag = o.unit ? 'U' : 'N';
             const auto member = o.variant ? pick<T>(stpsv, ctpsv) : pick<T>(stpmv, ctpmv);
             return triangular_case(r, o, a, o.variant,
                                    [&](T* x) { member(&uplo, &o.trans, &diag, &kN, a.data(), x, &kIncX); });
         }},
        {"ger/geru/gerc", [](Values& r, const Options& o) {
             Operand<T> a = make<T>(full(kM, kN), r);
             const bool conj = kComplex<T> && o.trans == 'C';
             auto member = pick<T>(sger, cgeru);
             if constexpr (kComplex<T>)
                 if (conj) member = cgerc;
             return rank_case(
                 r, o, a,
                 [&](T al, const T* x, const T* y) {
                     member(&kM, &kN, &al, x, &kIncX, y, &kIncY, a.data(), a.ld());
                 },
                 [&](cd al, const Operand<T>& x, const Operand<T>& y) {
                     return al * (x.dense * op(y.dense, conj ? 'C' : 'T'));
                 });
         }},
        {"syr/her and spr/hpr", [](Values& r, const Options& o) {
             // The update's alpha is real.
             const bool packs = o.variant;
             Operand<T> a = make<T>(packs ? packed(kN, o.upper) : triangle(kN, o.upper), r, self_adjoint<T>());
             const char uplo = o.upper ? 'U' : 'L';
             const char t = kComplex<T> ? 'C' : 'T';
             return rank_case(r, o, a, [&](T al, const T* x, const T*) {
                 const float re = widen(al).real();
                 if (packs) pick<T>(sspr, chpr)(&uplo, &kN, &re, x, &kIncX, a.data());
                 else pick<T>(ssyr, cher)(&uplo, &kN, &re, x, &kIncX, a.data(), a.ld());
             }, [&](cd al, const Operand<T>& x, const Operand<T>&) { return al.real() * (x.dense * op(x.dense, t)); });
         }},
        {"syr2/her2 and spr2/hpr2", [](Values& r, const Options& o) {
             const bool packs = o.variant;
             Operand<T> a = make<T>(packs ? packed(kN, o.upper) : triangle(kN, o.upper), r, self_adjoint<T>());
             const char uplo = o.upper ? 'U' : 'L';
             const char t = kComplex<T> ? 'C' : 'T';
             return rank_case(r, o, a, [&](T al, const T* x, const T* y) {
                 if (packs) pick<T>(sspr2, chpr2)(&uplo, &kN, &al, x, &kIncX, y, &kIncY, a.data());
                 else pick<T>(ssyr2, cher2)(&uplo, &kN, &al, x, &kIncX, y, &kIncY, a.data(), a.ld());
             }, [&](cd al, const Operand<T>& x, const Operand<T>& y) {
                 return al * (x.dense * op(y.dense, t)) + std::conj(al) * (y.dense * op(x.dense, t));
             });
         }},
    };
}

// C := alpha * A * B (A on the left) or alpha * B * A over a C of NaN,
// A symmetric or Hermitian.
template <typename T>
AssertionResult symm_case(Values& r, const Options& o, Meaning meaning)
{
    const bool left = !o.variant;
    const T alpha = alpha_of<T>(o), beta{};
    Operand<T> a = make<T>(triangle(left ? kM : kN, o.upper), r, meaning, o.zero_alpha);
    Operand<T> b = make<T>(full(kM, kN), r, Meaning::kGeneral, o.zero_alpha);
    Operand<T> c = make<T>(full(kM, kN), r, Meaning::kGeneral, true);
    const char side = left ? 'L' : 'R', uplo = o.upper ? 'U' : 'L';
    auto member = pick<T>(ssymm, csymm);
    if constexpr (kComplex<T>)
        if (meaning == Meaning::kHermitian) member = chemm;
    member(&side, &uplo, &kM, &kN, &alpha, a.data(), a.ld(), b.data(), b.ld(), &beta, c.data(), c.ld());
    return all({unchanged(a, b), matches(c, widen(alpha) * (left ? a.dense * b.dense : b.dense * a.dense))});
}

// B := alpha * op(A) * B or alpha * B * op(A) (A on the right), or the
// solution X of op(A) * X = alpha * B or X * op(A) = alpha * B.
template <typename T>
AssertionResult trmm_case(Values& r, const Options& o, bool solves)
{
    const bool left = !o.variant;
    const T alpha = alpha_of<T>(o);
    Operand<T> a = make<T>(triangle(left ? kM : kN, o.upper), r, diagonal(o), o.zero_alpha);
    Operand<T> b = make<T>(full(kM, kN), r, Meaning::kGeneral, o.zero_alpha);
    const char side = left ? 'L' : 'R', uplo = o.upper ? 'U' : 'L', diag = o.unit ? 'U' : 'N';
    const auto member = solves ? pick<T>(strsm, ctrsm) : pick<T>(strmm, ctrmm);
    member(&side, &uplo, &o.trans, &diag, &kM, &kN, &alpha, a.data(), a.ld(), b.data(), b.ld());
    const Dense t = op(a.dense, o.trans), rhs = widen(alpha) * b.dense;
    Dense want = left ? t * rhs : rhs * t;
    if (solves) want = left ? solve(t, rhs) : op(solve(op(t, 'T'), op(rhs, 'T')), 'T');
    return all({unchanged(a), matches(b, want, 1e-4)});
}

template <typename T>
std::vector<Row<T>> level3_rows()
{
    std::vector<Row<T>> rows = {
        {"gemm", [](Values& r, const Options& o) {
             const T alpha = alpha_of<T>(o), beta{};
             Operand<T> a = make<T>(o.trans == 'N' ? full(kM, kK) : full(kK, kM), r, Meaning::kGeneral, o.zero_alpha);
             Operand<T> b = make<T>(o.trans_b == 'N' ? full(kK, kN) : full(kN, kK), r, Meaning::kGeneral, o.zero_alpha);
             Operand<T> c = make<T>(full(kM, kN), r, Meaning::kGeneral, true);
             pick<T>(sgemm, cgemm)(&o.trans, &o.trans_b, &kM, &kN, &kK, &alpha, a.data(), a.ld(), b.data(), b.ld(),
                                   &beta, c.data(), c.ld());
             return all({unchanged(a, b), matches(c, widen(alpha) * (op(a.dense, o.trans) * op(b.dense, o.trans_b)))});
         }},
        {"symm", [](Values& r, const Options& o) { return symm_case<T>(r, o, Meaning::kSymmetric); }},
        {"syrk", [](Values& r, const Options& o) {
             if (kComplex<T> && o.trans == 'C') return AssertionSuccess();
             const T alpha = alpha_of<T>(o), beta{};
             Operand<T> a = make<T>(o.trans == 'N' ? full(kN, kK) : full(kK, kN), r, Meaning::kGeneral, o.zero_alpha);
             Operand<T> c = make<T>(triangle(kN, o.upper), r, Meaning::kGeneral, true);
             const char uplo = o.upper ? 'U' : 'L';
             pick<T>(ssyrk, csyrk)(&uplo, &o.trans, &kN, &kK, &alpha, a.data(), a.ld(), &beta, c.data(), c.ld());
             const Dense p = op(a.dense, o.trans);
             return all({unchanged(a), matches(c, widen(alpha) * (p * op(p, 'T')))});
         }},
        {"syr2k", [](Values& r, const Options& o) {
             if (kComplex<T> && o.trans == 'C') return AssertionSuccess();
             const T alpha = alpha_of<T>(o), beta{};
             const Layout ab = o.trans == 'N' ? full(kN, kK) : full(kK, kN);
             Operand<T> a = make<T>(ab, r, Meaning::kGeneral, o.zero_alpha);
             Operand<T> b = make<T>(ab, r, Meaning::kGeneral, o.zero_alpha);
             Operand<T> c = make<T>(triangle(kN, o.upper), r, Meaning::kGeneral, true);
             const char uplo = o.upper ? 'U' : 'L';
             pick<T>(ssyr2k, csyr2k)(&uplo, &o.trans, &kN, &kK, &alpha, a.data(), a.ld(), b.data(), b.ld(), &beta,
                                     c.data(), c.ld());
             const Dense pa = op(a.dense, o.trans), pb = op(b.dense, o.trans);
             return all({unchanged(a, b), matches(c, widen(alpha) * (pa * op(pb, 'T') + pb * op(pa, 'T')))});
         }},
        {"trmm", [](Values& r, const Options& o) { return trmm_case<T>(r, o, false); }},
        {"trsm", [](Values& r, const Options& o) { return trmm_case<T>(r, o, true); }},
    };
    if constexpr (kComplex<T>) {
        rows.push_back({"hemm", [](Values& r, const Options& o) { return symm_case<T>(r, o, Meaning::kHermitian); }});
        rows.push_back({"herk", [](Values& r, const Options& o) {
                            if (o.trans == 'T') return AssertionSuccess();
                            const float alpha = o.zero_alpha ? 0.0f : 0.75f, beta = 0.0f;
                            Operand<T> a = make<T>(o.trans == 'N' ? full(kN, kK) : full(kK, kN), r,
                                                   Meaning::kGeneral, o.zero_alpha);
                            Operand<T> c = make<T>(triangle(kN, o.upper), r, Meaning::kGeneral, true);
                            const char uplo = o.upper ? 'U' : 'L';
                            cherk(&uplo, &o.trans, &kN, &kK, &alpha, a.data(), a.ld(), &beta, c.data(), c.ld());
                            const Dense p = op(a.dense, o.trans);
                            return all({unchanged(a), matches(c, cd(alpha) * (p * op(p, 'C')))});
                        }});
        rows.push_back({"her2k", [](Values& r, const Options& o) {
                            if (o.trans == 'T') return AssertionSuccess();
                            const T alpha = alpha_of<T>(o);
                            const float beta = 0.0f;
                            const Layout ab = o.trans == 'N' ? full(kN, kK) : full(kK, kN);
                            Operand<T> a = make<T>(ab, r, Meaning::kGeneral, o.zero_alpha);
                            Operand<T> b = make<T>(ab, r, Meaning::kGeneral, o.zero_alpha);
                            Operand<T> c = make<T>(triangle(kN, o.upper), r, Meaning::kGeneral, true);
                            const char uplo = o.upper ? 'U' : 'L';
                            cher2k(&uplo, &o.trans, &kN, &kK, &alpha, a.data(), a.ld(), b.data(), b.ld(), &beta,
                                   c.data(), c.ld());
                            const Dense pa = op(a.dense, o.trans), pb = op(b.dense, o.trans);
                            const cd al = widen(alpha);
                            return all({unchanged(a, b),
                                        matches(c, al * (pa * op(pb, 'C')) + std::conj(al) * (pb * op(pa, 'C')))});
                        }});
    }
    return rows;
}

template <typename T>
class SingleMembers : public testing::Test {};
using ElementTypes = testing::Types<float, fcomplex>;
TYPED_TEST_SUITE(SingleMembers, ElementTypes);

TYPED_TEST(SingleMembers, NaNNeverReachesAResult)
{
    using T = TypeParam;
    std::vector<Row<T>> rows = level2_rows<T>();
    for (const Row<T>& row : level3_rows<T>()) rows.push_back(row);
    Values r(5);
    for (const Row<T>& row : rows)
        for (int combo = 0; combo < 144; ++combo) {
            const Options o{(combo & 1) != 0, (combo & 2) != 0, (combo & 4) != 0, (combo & 8) != 0,
                            "NTC"[combo / 16 % 3], "NTC"[combo / 48]};
            const AssertionResult result = row.run(r, o);
            if (!result) {
                ADD_FAILURE() << row.name << (o.upper ? " upper" : " lower") << (o.unit ? " unit" : "")
                              << (o.variant ? " variant" : "") << (o.zero_alpha ? " alpha=0" : "") << " trans "
                              << o.trans << o.trans_b << ": " << result.message();
                return;
            }
        }
}

// ---------------------------------------------------------------------------
// Level 1: every member on negative, empty and short counts, with forward,
// backward and mixed increments, against the reference on the logical
// elements.

using V = std::vector<cd>;

template <typename T>
struct Level1Row {
    const char* name;
    // The member; returns its function value (0 for a subroutine).
    cd (*call)(const i64* n, T* x, const i64* incx, T* y, const i64* incy);
    // The reference on the logical elements, updated in place.
    cd (*ref)(V& x, V& y, i64 incx);
};

constexpr float kCos = 0.6f, kSin = 0.8f, kSb = 0.25f;

cd dot(const V& x, const V& y, bool conj)
{
    cd s = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) s += (conj ? std::conj(x[i]) : x[i]) * y[i];
    return s;
}
double magnitude(cd v) { return std::abs(v.real()) + std::abs(v.imag()); }
cd asum(const V& x)
{
    double s = 0.0;
    for (const cd& v : x) s += magnitude(v);
    return s;
}
cd nrm2(const V& x)
{
    double s = 0.0;
    for (const cd& v : x) s += std::norm(v);
    return std::sqrt(s);
}
// The first index of the largest magnitude; 0 for a non-positive increment.
cd iamax(const V& x, i64 incx)
{
    if (x.empty() || incx < 1) return 0.0;
    std::size_t best = 0;
    for (std::size_t i = 1; i < x.size(); ++i)
        if (magnitude(x[i]) > magnitude(x[best])) best = i;
    return static_cast<double>(best + 1);
}
// (x, y) := (h11 x + h12 y, h21 x + h22 y)
cd rotate(V& x, V& y, double h11, double h12, double h21, double h22)
{
    for (std::size_t i = 0; i < x.size(); ++i) {
        const cd t = h11 * x[i] + h12 * y[i];
        y[i] = h21 * x[i] + h22 * y[i];
        x[i] = t;
    }
    return 0.0;
}
cd scale(V& x, cd alpha)
{
    for (cd& v : x) v *= alpha;
    return 0.0;
}

// The entries of param that its flag does not use hold NaN: they must not be read.
constexpr float kParamFull[5] = {-1.0f, 0.5f, -0.25f, 0.75f, 1.5f};
constexpr float kParamOffDiagonal[5] = {0.0f, kNaN, -0.25f, 0.75f, kNaN};
constexpr float kParamDiagonal[5] = {1.0f, 0.5f, kNaN, kNaN, 1.5f};
constexpr float kParamIdentity[5] = {-2.0f, kNaN, kNaN, kNaN, kNaN};
template <const float* Param>
cd rotm(const i64* n, float* x, const i64* incx, float* y, const i64* incy)
{
    srotm(n, x, incx, y, incy, Param);
    return 0.0;
}

template <typename T>
std::vector<Level1Row<T>> level1_rows()
{
    static const T alpha = alpha_of<T>(Options{});
    std::vector<Level1Row<T>> rows = {
        {"dot",
         [](auto n, auto x, auto ix, auto y, auto iy) {
             if constexpr (kComplex<T>) {
                 fcomplex d{kNaN, kNaN};
                 cdotu(&d, n, x, ix, y, iy);
                 return widen(d);
             } else {
                 return cd(sdot(n, x, ix, y, iy));
             }
         },
         [](V& x, V& y, i64) { return dot(x, y, false); }},
        {"axpy",
         [](auto n, auto x, auto ix, auto y, auto iy) {
             pick<T>(saxpy, caxpy)(n, &alpha, x, ix, y, iy);
             return cd();
         },
         [](V& x, V& y, i64) {
             for (std::size_t i = 0; i < x.size(); ++i) y[i] += widen(alpha) * x[i];
             return cd();
         }},
        {"scal",
         [](auto n, auto x, auto ix, auto, auto) {
             pick<T>(sscal, cscal)(n, &alpha, x, ix);
             return cd();
         },
         [](V& x, V&, i64) { return scale(x, widen(alpha)); }},
        {"copy",
         [](auto n, auto x, auto ix, auto y, auto iy) {
             pick<T>(scopy, ccopy)(n, x, ix, y, iy);
             return cd();
         },
         [](V& x, V& y, i64) {
             y = x;
             return cd();
         }},
        {"swap",
         [](auto n, auto x, auto ix, auto y, auto iy) {
             pick<T>(sswap, cswap)(n, x, ix, y, iy);
             return cd();
         },
         [](V& x, V& y, i64) {
             x.swap(y);
             return cd();
         }},
        {"nrm2", [](auto n, auto x, auto ix, auto, auto) { return cd(pick<T>(snrm2, scnrm2)(n, x, ix)); },
         [](V& x, V&, i64) { return nrm2(x); }},
        {"asum", [](auto n, auto x, auto ix, auto, auto) { return cd(pick<T>(sasum, scasum)(n, x, ix)); },
         [](V& x, V&, i64) { return asum(x); }},
        {"iamax", [](auto n, auto x, auto ix, auto, auto) { return cd(double(pick<T>(isamax, icamax)(n, x, ix))); },
         [](V& x, V&, i64 incx) { return iamax(x, incx); }},
        {"rot",
         [](auto n, auto x, auto ix, auto y, auto iy) {
             pick<T>(srot, csrot)(n, x, ix, y, iy, &kCos, &kSin);
             return cd();
         },
         [](V& x, V& y, i64) { return rotate(x, y, kCos, kSin, -kSin, kCos); }},
    };
    if constexpr (kComplex<T>) {
        rows.push_back({"cdotc",
                        [](auto n, auto x, auto ix, auto y, auto iy) {
                            fcomplex d{kNaN, kNaN};
                            cdotc(&d, n, x, ix, y, iy);
                            return widen(d);
                        },
                        [](V& x, V& y, i64) { return dot(x, y, true); }});
        rows.push_back({"csscal",
                        [](auto n, auto x, auto ix, auto, auto) {
                            const float a = 0.75f;
                            csscal(n, &a, x, ix);
                            return cd();
                        },
                        [](V& x, V&, i64) { return scale(x, 0.75); }});
    } else {
        rows.push_back({"sdsdot",
                        [](auto n, auto x, auto ix, auto y, auto iy) { return cd(sdsdot(n, &kSb, x, ix, y, iy)); },
                        [](V& x, V& y, i64) { return cd(kSb) + dot(x, y, false); }});
        rows.push_back({"dsdot", [](auto n, auto x, auto ix, auto y, auto iy) { return cd(dsdot(n, x, ix, y, iy)); },
                        [](V& x, V& y, i64) { return dot(x, y, false); }});
        rows.push_back({"srotm full", rotm<kParamFull>,
                        [](V& x, V& y, i64) { return rotate(x, y, 0.5, 0.75, -0.25, 1.5); }});
        rows.push_back({"srotm off-diagonal", rotm<kParamOffDiagonal>,
                        [](V& x, V& y, i64) { return rotate(x, y, 1.0, 0.75, -0.25, 1.0); }});
        rows.push_back({"srotm diagonal", rotm<kParamDiagonal>,
                        [](V& x, V& y, i64) { return rotate(x, y, 0.5, 1.0, -1.0, 1.5); }});
        rows.push_back({"srotm identity", rotm<kParamIdentity>, [](V&, V&, i64) { return cd(); }});
    }
    return rows;
}

TYPED_TEST(SingleMembers, Level1IncrementsAndEmptyVectors)
{
    using T = TypeParam;
    Values r(9);
    for (const Level1Row<T>& row : level1_rows<T>())
        for (const i64 n : {-1, 0, 1, 6})
            for (const auto& [incx, incy] : {std::pair<i64, i64>{1, 1}, {-1, 2}, {2, -3}, {-2, -1}}) {
                Operand<T> x = make<T>(vector(n, incx), r), y = make<T>(vector(n, incy), r);
                const cd got = row.call(&n, x.data(), &incx, y.data(), &incy);
                V xs = x.dense.v, ys = y.dense.v;
                const cd want = row.ref(xs, ys, incx);
                SCOPED_TRACE(testing::Message() << row.name << " n " << n << " incx " << incx << " incy " << incy);
                EXPECT_TRUE(close(got, want)) << got << ", expected " << want;
                x.dense.v = xs;
                y.dense.v = ys;
                EXPECT_TRUE(matches(x, x.dense));
                EXPECT_TRUE(matches(y, y.dense));
            }
}

// Squares that leave the float range, values at its ends, infinity and NaN:
// the real norm of (a, b) and the complex norm of a + bi.
TEST(SingleLevel1, NormsAcrossTheFloatRange)
{
    const float inf = std::numeric_limits<float>::infinity();
    const struct {
        float a, b;
        double want;
    } cases[] = {
        {3e30f, 4e30f, 5e30},        {-3e-30f, 4e-30f, 5e-30},           {FLT_MAX, 1.0f, FLT_MAX},
        {FLT_TRUE_MIN, 0.0f, FLT_TRUE_MIN}, {1e-40f, -1e-40f, std::sqrt(2.0) * double(1e-40f)},
        {inf, 1.0f, inf},            {1.0f, kNaN, std::numeric_limits<double>::quiet_NaN()},
    };
    const i64 two = 2, one = 1;
    for (const auto& c : cases) {
        const float v[2] = {c.a, c.b};
        const fcomplex z{c.a, c.b};
        for (const float got : {snrm2(&two, v, &one), scnrm2(&one, &z, &one)}) {
            // Within a rounding of the float result, subnormal ones included.
            if (std::isnan(c.want)) EXPECT_TRUE(std::isnan(got)) << c.a << ", " << c.b;
            else if (std::isinf(c.want)) EXPECT_EQ(got, c.want) << c.a << ", " << c.b;
            else EXPECT_NEAR(got, c.want, std::max(1e-7 * c.want, double(FLT_TRUE_MIN))) << c.a << ", " << c.b;
        }
    }
}

// The extended dot products: products of floats and their sums are exact in
// double, where a float accumulator would lose them; sdsdot rounds once.
TEST(SingleLevel1, ExtendedDotProductsAccumulateInDouble)
{
    const struct {
        std::vector<float> x, y;
        float sb;
        double dsdot;
        float sdsdot;
    } cases[] = {
        {{1e8f, 1.0f, -1e8f}, {1.0f, 1.0f, 1.0f}, 0.25f, 1.0, 1.25f},
        {{4097.0f}, {4097.0f}, -16785408.0f, 16785409.0, 1.0f},
        {{}, {}, 3.5f, 0.0, 3.5f},
    };
    const i64 one = 1;
    for (const auto& c : cases) {
        const i64 n = static_cast<i64>(c.x.size());
        EXPECT_EQ(dsdot(&n, c.x.data(), &one, c.y.data(), &one), c.dsdot);
        EXPECT_EQ(sdsdot(&n, &c.sb, c.x.data(), &one, c.y.data(), &one), c.sdsdot);
    }
}

}  // namespace
