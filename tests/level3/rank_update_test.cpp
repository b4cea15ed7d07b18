// The rank-k and rank-2k updates (dsyrk_, zsyrk_, zherk_, dsyr2k_, zsyr2k_,
// zher2k_) against a plain reference. Only the named triangle of C holds
// numbers; the other one must be neither read nor written. The Hermitian
// updates start from a diagonal with NaN imaginary parts and must leave it real.
#include "level3_test.h"

namespace l3test {
namespace {

enum class Update { dsyrk, zsyrk, zherk, dsyr2k, zsyr2k, zher2k };

bool is_hermitian(Update u) { return u == Update::zherk || u == Update::zher2k; }
bool is_rank2k(Update u) { return u == Update::dsyr2k || u == Update::zsyr2k || u == Update::zher2k; }

// The transpose letters each routine accepts.
const char* trans_letters(Update u)
{
    switch (u) {
    case Update::dsyrk:
    case Update::dsyr2k: return "NTC";
    case Update::zsyrk:
    case Update::zsyr2k: return "NT";
    default: return "NC";
    }
}

template <typename T>
struct UpdateCase {
    Update routine;
    char uplo, trans;
    int n, k;
    T alpha, beta;  // real for the scalars the Hermitian updates take as double
    int pad;
    Poison poison;
    std::string describe() const
    {
        static const char* names[] = {"dsyrk", "zsyrk", "zherk", "dsyr2k", "zsyr2k", "zher2k"};
        return std::string(names[int(routine)]) + " " + uplo + trans + " n=" + std::to_string(n) +
               " k=" + std::to_string(k) + " alpha=" + show(alpha) + " beta=" + show(beta) +
               " pad=" + std::to_string(pad) + poison_name(poison);
    }
};

void call(const UpdateCase<double>& t, const double* a, int lda, const double* b, int ldb, double* c, int ldc)
{
    if (t.routine == Update::dsyrk) dsyrk_(&t.uplo, &t.trans, &t.n, &t.k, &t.alpha, a, &lda, &t.beta, c, &ldc);
    else dsyr2k_(&t.uplo, &t.trans, &t.n, &t.k, &t.alpha, a, &lda, b, &ldb, &t.beta, c, &ldc);
}
void call(const UpdateCase<zcomplex>& t, const zcomplex* a, int lda, const zcomplex* b, int ldb, zcomplex* c, int ldc)
{
    const double alpha_re = t.alpha.real(), beta_re = t.beta.real();
    switch (t.routine) {
    case Update::zsyrk: zsyrk_(&t.uplo, &t.trans, &t.n, &t.k, &t.alpha, a, &lda, &t.beta, c, &ldc); break;
    case Update::zherk: zherk_(&t.uplo, &t.trans, &t.n, &t.k, &alpha_re, a, &lda, &beta_re, c, &ldc); break;
    case Update::zsyr2k:
        zsyr2k_(&t.uplo, &t.trans, &t.n, &t.k, &t.alpha, a, &lda, b, &ldb, &t.beta, c, &ldc);
        break;
    default: zher2k_(&t.uplo, &t.trans, &t.n, &t.k, &t.alpha, a, &lda, b, &ldb, &beta_re, c, &ldc); break;
    }
}

template <typename T>
::testing::AssertionResult run_case(const UpdateCase<T>& t)
{
    Rng rng(t.n * 7001 + t.k * 13 + t.pad + int(t.routine));
    const bool upper = std::toupper(t.uplo) == 'U', trans = std::toupper(t.trans) != 'N';
    const bool herm = is_hermitian(t.routine), two = is_rank2k(t.routine);
    Mat<T> a(trans ? t.k : t.n, trans ? t.n : t.k, t.pad);
    Mat<T> b(trans ? t.k : t.n, trans ? t.n : t.k, t.pad + 1);
    Mat<T> c(t.n, t.n, t.pad + 2);
    if (t.alpha != T(0)) {
        a.fill(rng);
        if (two) b.fill(rng);
    }
    using D = typename Mat<T>::Diagonal;
    if (t.beta != T(0)) c.fill_triangle(rng, upper, herm ? D::real_only : D::random);
    if (t.poison == Poison::a) a.poison(rng, [](int, int) { return true; });
    if (t.poison == Poison::b) b.poison(rng, [](int, int) { return true; });

    // op(A) and op(B), n x k.
    auto x = [&](int i, int l) { return trans ? conj_if(herm, a.at(l, i)) : a.at(i, l); };
    auto y = [&](int i, int l) { return trans ? conj_if(herm, b.at(l, i)) : b.at(i, l); };
    const T alpha2 = conj_if(herm, t.alpha);
    Expectation<T> e(t.n, t.n, 2 * t.k);
    e.real_diagonal = herm;
    if (t.n == 0 || ((t.alpha == T(0) || t.k == 0) && t.beta == T(1))) e.kind = Expectation<T>::Kind::untouched;
    for (int j = 0; j < t.n; ++j)
        for (int i = 0; i < t.n; ++i) {
            e.written[e.index(i, j)] = upper ? i <= j : i >= j;
            if (!e.written[e.index(i, j)]) continue;
            T v = 0;
            double mag = 0;
            if (t.beta != T(0)) {
                const T old = herm && i == j ? real_part(c.at(i, j)) : c.at(i, j);
                v = t.beta * old;
                mag = abs1(t.beta) * abs1(old);
            }
            if (t.alpha != T(0)) {
                T sum = 0, sum2 = 0;
                double sum_mag = 0;
                for (int l = 0; l < t.k; ++l) {
                    if (two) {
                        sum += x(i, l) * conj_if(herm, y(j, l));
                        sum2 += y(i, l) * conj_if(herm, x(j, l));
                        sum_mag += abs1(x(i, l)) * abs1(y(j, l)) + abs1(y(i, l)) * abs1(x(j, l));
                    } else {
                        sum += x(i, l) * conj_if(herm, x(j, l));
                        sum_mag += abs1(x(i, l)) * abs1(x(j, l));
                    }
                }
                v += t.alpha * sum + alpha2 * sum2;
                mag += abs1(t.alpha) * sum_mag;
            }
            if (herm && i == j) v = real_part(v);
            e.value[e.index(i, j)] = v;
            e.mag[e.index(i, j)] = mag;
        }

    return call_and_match(a, b, c, e, [&] { call(t, a.data(), a.ld, b.data(), b.ld, c.data(), c.ld); });
}

template <typename T>
std::vector<UpdateCase<T>> cases(Update routine)
{
    std::vector<T> s = scalars<T>();
    std::vector<T> real_s = s;
    for (T& v : real_s) v = real_part(v);
    const bool herm = is_hermitian(routine);
    // zherk_ takes both scalars as real, zher2k_ only beta.
    const std::vector<T>& alphas = herm && !is_rank2k(routine) ? real_s : s;
    const std::vector<T>& betas = herm ? real_s : s;
    std::vector<UpdateCase<T>> out;
    int index = 0;
    for (char uplo : {'U', 'L'})
        for (const char* trans = trans_letters(routine); *trans != '\0'; ++trans) {
            auto add = [&](int n, int k, T alpha, T beta, Poison p) {
                const bool lower = (index / 16) % 2 == 1;
                out.push_back({routine, letter(uplo, lower), letter(*trans, lower), n, k, alpha, beta, index % 3, p});
                ++index;
            };
            for (int n : small_sizes())
                for (int k : small_sizes())
                    for (int repeat = 0; repeat < 2; ++repeat)
                        add(n, k, alphas[index % 4], betas[(index / 4) % 4], Poison::none);
            for (const Shape3& sh : large_shapes())
                add(sh.m, sh.k, alphas[index % 4], betas[(index / 4) % 4], Poison::none);
            add(block_shape().m, block_shape().k, alphas[3], betas[2], Poison::none);
            for (Poison p : {Poison::a, Poison::b}) {
                if (p == Poison::b && !is_rank2k(routine)) continue;
                add(6, 5, alphas[3], betas[index % 4], p);
                add(17, 33, alphas[3], betas[index % 4], p);
            }
        }
    return out;
}

TEST(RankUpdate, RealSymmetricRankK) { run_table(cases<double>(Update::dsyrk), run_case<double>); }
TEST(RankUpdate, ComplexSymmetricRankK) { run_table(cases<zcomplex>(Update::zsyrk), run_case<zcomplex>); }
TEST(RankUpdate, HermitianRankK) { run_table(cases<zcomplex>(Update::zherk), run_case<zcomplex>); }
TEST(RankUpdate, RealSymmetricRank2K) { run_table(cases<double>(Update::dsyr2k), run_case<double>); }
TEST(RankUpdate, ComplexSymmetricRank2K) { run_table(cases<zcomplex>(Update::zsyr2k), run_case<zcomplex>); }
TEST(RankUpdate, HermitianRank2K) { run_table(cases<zcomplex>(Update::zher2k), run_case<zcomplex>); }

}  // namespace
}  // namespace l3test
