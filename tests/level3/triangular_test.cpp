// dtrmm_, ztrmm_, dtrsm_ and ztrsm_ over all 24 option combinations. Only
// the named triangle of A holds numbers, and a unit diagonal holds NaN.
// The real solve is also taken across the orders where it changes road
// (direct kernel up to 12 and at multiples of 4 up to 88, blocked otherwise)
// and across its tiles, column slices and diagonal blocks.
// Products are compared with a plain reference; solves are judged by their
// residual, which rounding bounds whatever the conditioning of A, and their
// NaN pattern by a plain substitution.
#include "level3_test.h"

namespace l3test {
namespace {

enum class Tri { trmm, trsm };

template <typename T>
struct TriCase {
    Tri routine;
    char side, uplo, transa, diag;
    int m, n;
    T alpha;
    int pad;
    Poison poison;
    bool subnormal = false;  // one diagonal value of A below the normal range
    std::string describe() const
    {
        return std::string(routine == Tri::trmm ? "trmm " : "trsm ") + side + uplo + transa + diag +
               " m=" + std::to_string(m) + " n=" + std::to_string(n) + " alpha=" + show(alpha) +
               " pad=" + std::to_string(pad) + poison_name(poison) + (subnormal ? " subnormal pivot" : "");
    }
};

void call(const TriCase<double>& t, const double* a, int lda, double* b, int ldb)
{
    auto routine = t.routine == Tri::trmm ? dtrmm_ : dtrsm_;
    routine(&t.side, &t.uplo, &t.transa, &t.diag, &t.m, &t.n, &t.alpha, a, &lda, b, &ldb);
}
void call(const TriCase<zcomplex>& t, const zcomplex* a, int lda, zcomplex* b, int ldb)
{
    auto routine = t.routine == Tri::trmm ? ztrmm_ : ztrsm_;
    routine(&t.side, &t.uplo, &t.transa, &t.diag, &t.m, &t.n, &t.alpha, a, &lda, b, &ldb);
}

// op(A) as a dense matrix, from the stored triangle only.
template <typename T>
struct OpA {
    int order;
    bool lower;  // op(A) is lower triangular
    std::vector<T> v;
    T operator()(int r, int c) const { return v[std::size_t(r) + std::size_t(c) * order]; }
    // Inside the triangle: elsewhere op(A) is a structural zero, which does
    // not turn a NaN in B into a NaN in the result.
    bool in(int r, int c) const { return lower ? c <= r : c >= r; }
};

template <typename T>
OpA<T> op_a(const Mat<T>& a, bool upper, bool trans, bool conj, bool unit)
{
    OpA<T> op{a.rows, upper == trans, std::vector<T>(std::size_t(a.rows) * a.rows)};
    for (int c = 0; c < a.rows; ++c)
        for (int r = 0; r < a.rows; ++r) {
            const int i = trans ? c : r, j = trans ? r : c;  // stored element
            T x = 0;
            if (i == j) x = unit ? T(1) : a.at(i, i);
            else if (upper ? i < j : i > j) x = a.at(i, j);
            op.v[std::size_t(r) + std::size_t(c) * a.rows] = trans ? conj_if(conj, x) : x;
        }
    return op;
}

// Solves M x = rhs by substitution, M lower or upper triangular with element (r, c) = m(r, c).
template <typename T, typename M>
void substitute(int order, bool lower, M m, std::vector<T>& x)
{
    for (int s = 0; s < order; ++s) {
        const int i = lower ? s : order - 1 - s;
        T sum = x[i];
        for (int l = 0; l < order; ++l)
            if (lower ? l < i : l > i) sum -= m(i, l) * x[l];
        x[i] = sum / m(i, i);
    }
}

template <typename T>
::testing::AssertionResult run_case(const TriCase<T>& t)
{
    Rng rng(t.m * 4099 + t.n * 7 + t.pad + int(t.routine));
    const bool left = std::toupper(t.side) == 'L', upper = std::toupper(t.uplo) == 'U';
    const bool trans = std::toupper(t.transa) != 'N', conj = std::toupper(t.transa) == 'C';
    const bool unit = std::toupper(t.diag) == 'U';
    const int order = left ? t.m : t.n;
    Mat<T> a(order, order, t.pad);
    Mat<T> b(t.m, t.n, t.pad + 1);
    // A zero alpha reads neither A nor B: both stay NaN.
    if (t.alpha != T(0)) {
        using D = typename Mat<T>::Diagonal;
        a.fill_triangle(rng, upper, unit ? D::none : t.routine == Tri::trsm ? D::pivot : D::random);
        b.fill(rng);
    }
    if constexpr (!kComplex<T>)
        if (t.subnormal && t.alpha != T(0)) {
            // The subnormal pivot gets an equation of its own: its row of
            // op(A) (its column, on side R) is zero off the diagonal and its
            // right-hand sides are multiples of it, so the solution stays
            // finite when the pivot divides and not when its reciprocal,
            // which overflows, multiplies.
            const int k = order / 2;
            const double d = 0x1p-1030;
            a.at(k, k) = d;
            for (int l = 0; l < order; ++l) {
                const int r = left ? k : l, c = left ? l : k;
                const int i = trans ? c : r, j = trans ? r : c;
                if (l != k && (upper ? i < j : i > j)) a.at(i, j) = 0;
            }
            for (int x = 0; x < (left ? t.n : t.m); ++x) (left ? b.at(k, x) : b.at(x, k)) = d * rng.coarse();
        }
    if (t.poison == Poison::a)
        a.poison(rng, [&](int i, int j) { return (i == j && !unit) || (upper ? i < j : i > j); });
    if (t.poison == Poison::b) b.poison(rng, [](int, int) { return true; });

    const OpA<T> op = op_a(a, upper, trans, conj, unit);
    Expectation<T> e(t.m, t.n, order);
    if (t.m == 0 || t.n == 0) {
        e.kind = Expectation<T>::Kind::untouched;
    } else if (t.alpha == T(0)) {
        // e.value is already all zeros, with no tolerance
    } else if (t.routine == Tri::trmm) {
        for (int j = 0; j < t.n; ++j)
            for (int i = 0; i < t.m; ++i) {
                T sum = 0;
                double mag = 0;
                for (int l = 0; l < order; ++l) {
                    if (left ? !op.in(i, l) : !op.in(l, j)) continue;
                    const T x = left ? op(i, l) : b.at(i, l), y = left ? b.at(l, j) : op(l, j);
                    sum += x * y;
                    mag += abs1(x) * abs1(y);
                }
                e.value[e.index(i, j)] = t.alpha * sum;
                e.mag[e.index(i, j)] = abs1(t.alpha) * mag;
            }
    } else {
        // The substitution fixes where NaN must appear; the residual below
        // judges the values.
        e.kind = Expectation<T>::Kind::pattern;
        if (left) {
            for (int j = 0; j < t.n; ++j) {
                std::vector<T> x(t.m);
                for (int i = 0; i < t.m; ++i) x[i] = t.alpha * b.at(i, j);
                substitute(order, op.lower, op, x);
                for (int i = 0; i < t.m; ++i) e.value[e.index(i, j)] = x[i];
            }
        } else {
            // Row i of X solves op(A)^T x = alpha * (row i of B).
            auto op_t = [&](int r, int c) { return op(c, r); };
            for (int i = 0; i < t.m; ++i) {
                std::vector<T> x(t.n);
                for (int j = 0; j < t.n; ++j) x[j] = t.alpha * b.at(i, j);
                substitute(order, !op.lower, op_t, x);
                for (int j = 0; j < t.n; ++j) e.value[e.index(i, j)] = x[j];
            }
        }
    }

    std::vector<T> b_orig(std::size_t(t.m) * t.n);
    for (int j = 0; j < t.n; ++j)
        for (int i = 0; i < t.m; ++i) b_orig[std::size_t(i) + std::size_t(j) * t.m] = b.at(i, j);
    const auto a0 = a.buf.snapshot(), b0 = b.buf.snapshot();
    call(t, a.data(), a.ld, b.data(), b.ld);
    if (!a.buf.equals(a0)) return ::testing::AssertionFailure() << "A was written";
    if (auto r = matches(b, b0, e); !r) return r;
    if (e.kind != Expectation<T>::Kind::pattern || t.poison != Poison::none) return ::testing::AssertionSuccess();

    // Residual of the solve: op(A) * X - alpha * B (or X * op(A) - alpha * B).
    for (int j = 0; j < t.n; ++j)
        for (int i = 0; i < t.m; ++i) {
            const T rhs = t.alpha * b_orig[std::size_t(i) + std::size_t(j) * t.m];
            T sum = -rhs;
            double mag = abs1(rhs);
            for (int l = 0; l < order; ++l) {
                if (left ? !op.in(i, l) : !op.in(l, j)) continue;
                const T x = left ? op(i, l) : b.at(i, l), y = left ? b.at(l, j) : op(l, j);
                sum += x * y;
                mag += abs1(x) * abs1(y);
            }
            if (!(abs1(sum) <= e.tol * mag))
                return ::testing::AssertionFailure()
                       << "residual at (" << i << "," << j << ") is " << abs1(sum) << ", bound " << e.tol * mag;
        }
    return ::testing::AssertionSuccess();
}

template <typename T>
std::vector<TriCase<T>> cases(Tri routine)
{
    const auto s = scalars<T>();
    std::vector<TriCase<T>> out;
    int index = 0;
    for (char side : {'L', 'R'})
        for (char uplo : {'U', 'L'})
            for (char transa : {'N', 'T', 'C'})
                for (char diag : {'N', 'U'}) {
                    auto add = [&](int m, int n, T alpha, Poison p) {
                        const bool lower = (index / 4) % 2 == 1;
                        out.push_back({routine, letter(side, lower), letter(uplo, lower), letter(transa, lower),
                                       letter(diag, lower), m, n, alpha, index % 3, p});
                        ++index;
                    };
                    for (int m : small_sizes())
                        for (int n : small_sizes()) add(m, n, s[index % 4], Poison::none);
                    for (const Shape3& sh : large_shapes()) add(sh.m, sh.n, s[index % 4], Poison::none);
                    add(block_shape().m, block_shape().n, s[3], Poison::none);
                    for (Poison p : {Poison::a, Poison::b}) {
                        add(6, 5, s[3], p);
                        add(17, 9, s[1], p);
                    }
                }
    return out;
}

// The real solve at the orders around its thresholds and edges, with the
// other dimension crossing tile edges and, once, a column slice.
std::vector<TriCase<double>> solve_edge_cases()
{
    struct Size {
        int order, other;
    };
    static const Size sizes[] = {{12, 5},  {13, 13}, {88, 37},  {89, 1},   {90, 5},   {92, 13},
                                 {101, 37}, {97, 200}, {300, 3}, {401, 5}, {600, 2}};
    const auto s = scalars<double>();
    std::vector<TriCase<double>> out;
    int index = 0;
    for (char side : {'L', 'R'})
        for (char uplo : {'U', 'L'})
            for (char transa : {'N', 'T', 'C'})
                for (char diag : {'N', 'U'}) {
                    const bool left = side == 'L';
                    auto add = [&](Size sz, double alpha, bool subnormal) {
                        const int m = left ? sz.order : sz.other, n = left ? sz.other : sz.order;
                        out.push_back({Tri::trsm, side, uplo, transa, diag, m, n, alpha, 1 + index % 3, Poison::none,
                                       subnormal});
                        ++index;
                    };
                    for (const Size& sz : sizes) add(sz, s[index % 4], false);
                    if (diag == 'N') add({90, 6}, -1.0, true);
                }
    return out;
}

TEST(Triangular, RealProductMatchesReference) { run_table(cases<double>(Tri::trmm), run_case<double>); }
TEST(Triangular, ComplexProductMatchesReference) { run_table(cases<zcomplex>(Tri::trmm), run_case<zcomplex>); }
// alpha B overflows in one element of B: the product holds infinities where
// that element meets op(A)'s triangle and nowhere else; a zero of the other
// triangle that met it would make a NaN.
TEST(Triangular, ProductOfAnOverflowingAlphaB)
{
    const int order = 40, other = 29, k = 21, x = 7;
    const double alpha = 1e10;
    for (const char side : {'L', 'R'})
        for (const char uplo : {'U', 'L'})
            for (const char transa : {'N', 'T'}) {
                const bool left = side == 'L';
                const int m = left ? order : other, n = left ? other : order;
                Mat<double> a(order, order, 1);
                for (int j = 0; j < order; ++j)
                    for (int i = 0; i < order; ++i)
                        if (i == j || (uplo == 'U' ? i < j : i > j)) a.at(i, j) = i == j ? 1.0 : 0.5;
                Mat<double> b(m, n, 2);
                Rng rng(3);
                b.fill(rng);
                (left ? b.at(k, x) : b.at(x, k)) = 1e300;
                dtrmm_(&side, &uplo, &transa, "N", &m, &n, &alpha, a.data(), &a.ld, b.data(), &b.ld);
                // op(A) is upper when A is upper and not transposed, or lower and transposed.
                const bool op_upper = (uplo == 'U') == (transa == 'N');
                for (int j = 0; j < n; ++j)
                    for (int i = 0; i < m; ++i) {
                        // Side L: row i meets row k of B when op(A)(i, k) is in the triangle;
                        // side R: column j meets column k when op(A)(k, j) is.
                        const bool hit = left ? j == x && (op_upper ? i <= k : i >= k)
                                              : i == x && (op_upper ? k <= j : k >= j);
                        const double v = b.at(i, j);
                        ASSERT_TRUE(hit ? std::isinf(v) : std::isfinite(v))
                            << side << uplo << transa << " (" << i << "," << j << ") = " << v;
                    }
                ASSERT_TRUE(b.buf.guards_intact()) << side << uplo << transa;
            }
}

// A complex pivot whose reciprocal overflows: its equation is solved by
// division, exactly, wherever the solve's cuts put it.
TEST(Triangular, ComplexSolveWithASubnormalPivot)
{
    const int order = 40, other = 9, k = 13;
    const zcomplex pivot(0x1p-1030, 0.0), alpha(1.0, 0.0);
    for (const char side : {'L', 'R'})
        for (const char uplo : {'U', 'L'}) {
            const bool left = side == 'L';
            const int m = left ? order : other, n = left ? other : order;
            Mat<zcomplex> a(order, order, 1);
            for (int i = 0; i < order; ++i) a.at(i, i) = i == k ? pivot : zcomplex(1.0, 0.0);
            for (int j = 0; j < order; ++j)
                for (int i = 0; i < order; ++i)
                    if (uplo == 'U' ? i < j : i > j) a.at(i, j) = 0.0;
            Mat<zcomplex> b(m, n, 2);
            Rng rng(9);
            std::vector<zcomplex> want(std::size_t(m) * n);
            for (int j = 0; j < n; ++j)
                for (int i = 0; i < m; ++i) {
                    const zcomplex x(rng.coarse(), rng.coarse());
                    const bool on_pivot = (left ? i : j) == k;
                    want[std::size_t(i + j * m)] = x;
                    b.at(i, j) = on_pivot ? x * pivot : x;
                }
            ztrsm_(&side, &uplo, "N", "N", &m, &n, &alpha, a.data(), &a.ld, b.data(), &b.ld);
            for (int j = 0; j < n; ++j)
                for (int i = 0; i < m; ++i)
                    ASSERT_TRUE(orvtest::same_bits(b.at(i, j), want[std::size_t(i + j * m)]))
                        << side << uplo << " (" << i << "," << j << ") = " << show(b.at(i, j));
            ASSERT_TRUE(b.buf.guards_intact()) << side << uplo;
        }
}

TEST(Triangular, RealSolveHasSmallResidual) { run_table(cases<double>(Tri::trsm), run_case<double>); }
TEST(Triangular, RealSolveAcrossRoadsAndBlocks) { run_table(solve_edge_cases(), run_case<double>); }
TEST(Triangular, ComplexSolveHasSmallResidual) { run_table(cases<zcomplex>(Tri::trsm), run_case<zcomplex>); }

}  // namespace
}  // namespace l3test
