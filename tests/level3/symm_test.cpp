// dsymm_, zsymm_ and zhemm_ against a plain reference. Only the named triangle
// of A holds numbers (the other one is NaN), and zhemm_'s diagonal has NaN
// imaginary parts, which the routine must ignore.
#include "level3_test.h"

namespace l3test {
namespace {

enum class Sym { dsymm, zsymm, zhemm };

template <typename T>
struct SymmCase {
    Sym routine;
    char side, uplo;
    int m, n;
    T alpha, beta;
    int pad;
    Poison poison;
    bool hermitian() const { return routine == Sym::zhemm; }
    std::string describe() const
    {
        static const char* names[] = {"dsymm", "zsymm", "zhemm"};
        return std::string(names[int(routine)]) + " " + side + uplo + " m=" + std::to_string(m) +
               " n=" + std::to_string(n) + " alpha=" + show(alpha) + " beta=" + show(beta) +
               " pad=" + std::to_string(pad) + poison_name(poison);
    }
};

void call(const SymmCase<double>& t, const double* a, int lda, const double* b, int ldb, double* c, int ldc)
{
    dsymm_(&t.side, &t.uplo, &t.m, &t.n, &t.alpha, a, &lda, b, &ldb, &t.beta, c, &ldc);
}
void call(const SymmCase<zcomplex>& t, const zcomplex* a, int lda, const zcomplex* b, int ldb, zcomplex* c, int ldc)
{
    auto routine = t.hermitian() ? zhemm_ : zsymm_;
    routine(&t.side, &t.uplo, &t.m, &t.n, &t.alpha, a, &lda, b, &ldb, &t.beta, c, &ldc);
}

// Element (r, c) of the whole matrix, built from the stored triangle only.
template <typename T>
T full_at(const Mat<T>& a, bool upper, bool herm, int r, int c)
{
    if (r == c) return herm ? real_part(a.at(r, r)) : a.at(r, r);
    if (upper ? r < c : r > c) return a.at(r, c);
    return conj_if(herm, a.at(c, r));
}

template <typename T>
::testing::AssertionResult run_case(const SymmCase<T>& t)
{
    Rng rng(t.m * 7919 + t.n * 31 + t.pad + int(t.routine));
    const bool left = std::toupper(t.side) == 'L', upper = std::toupper(t.uplo) == 'U';
    const int order = left ? t.m : t.n;
    Mat<T> a(order, order, t.pad);
    Mat<T> b(t.m, t.n, t.pad + 1);
    Mat<T> c(t.m, t.n, t.pad + 2);
    if (t.alpha != T(0)) {
        using D = typename Mat<T>::Diagonal;
        a.fill_triangle(rng, upper, t.hermitian() ? D::real_only : D::random);
        b.fill(rng);
    }
    if (t.beta != T(0)) c.fill(rng);
    if (t.poison == Poison::a) a.poison(rng, [&](int i, int j) { return upper ? i <= j : i >= j; });
    if (t.poison == Poison::b) b.poison(rng, [](int, int) { return true; });

    Expectation<T> e(t.m, t.n, order);
    if (t.m == 0 || t.n == 0 || (t.alpha == T(0) && t.beta == T(1))) e.kind = Expectation<T>::Kind::untouched;
    else
        expect_product(
            e, c, t.alpha, t.beta, order,
            [&](int i, int l) { return left ? full_at(a, upper, t.hermitian(), i, l) : b.at(i, l); },
            [&](int l, int j) { return left ? b.at(l, j) : full_at(a, upper, t.hermitian(), l, j); });

    return call_and_match(a, b, c, e, [&] { call(t, a.data(), a.ld, b.data(), b.ld, c.data(), c.ld); });
}

template <typename T>
std::vector<SymmCase<T>> cases(Sym routine)
{
    const auto s = scalars<T>();
    std::vector<SymmCase<T>> out;
    int index = 0;
    for (char side : {'L', 'R'})
        for (char uplo : {'U', 'L'}) {
            auto add = [&](int m, int n, T alpha, T beta, Poison p) {
                const bool lower = (index / 16) % 2 == 1;
                out.push_back({routine, letter(side, lower), letter(uplo, lower), m, n, alpha, beta, index % 3, p});
                ++index;
            };
            for (int m : small_sizes())
                for (int n : small_sizes())
                    for (int repeat = 0; repeat < 2; ++repeat)
                        add(m, n, s[index % 4], s[(index / 4) % 4], Poison::none);
            for (const Shape3& sh : large_shapes()) add(sh.m, sh.n, s[index % 4], s[(index / 4) % 4], Poison::none);
            add(block_shape().m, block_shape().n, s[3], s[2], Poison::none);
            for (Poison p : {Poison::a, Poison::b}) {
                add(6, 5, s[3], s[index % 4], p);
                add(17, 9, s[3], s[index % 4], p);
            }
        }
    return out;
}

TEST(Symm, RealMatchesReference) { run_table(cases<double>(Sym::dsymm), run_case<double>); }
TEST(Symm, ComplexSymmetricMatchesReference) { run_table(cases<zcomplex>(Sym::zsymm), run_case<zcomplex>); }
TEST(Symm, HermitianMatchesReference) { run_table(cases<zcomplex>(Sym::zhemm), run_case<zcomplex>); }

}  // namespace
}  // namespace l3test
