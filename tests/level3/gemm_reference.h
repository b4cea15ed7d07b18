// dgemm_ and zgemm_ through the exports, the case record of the product
// tables and the check of one case against a plain reference.
#pragma once

#include "level3_test.h"

namespace l3test {

inline void gemm(char ta, char tb, int m, int n, int k, double alpha, const double* a, int lda, const double* b,
                 int ldb, double beta, double* c, int ldc)
{
    dgemm_(&ta, &tb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc);
}
inline void gemm(char ta, char tb, int m, int n, int k, zcomplex alpha, const zcomplex* a, int lda,
                 const zcomplex* b, int ldb, zcomplex beta, zcomplex* c, int ldc)
{
    zgemm_(&ta, &tb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc);
}

// Element (r, c) of op(X).
template <typename T>
T op_at(const Mat<T>& x, char trans, int r, int c)
{
    const char t = static_cast<char>(std::toupper(trans));
    return t == 'N' ? x.at(r, c) : conj_if(t == 'C', x.at(c, r));
}

template <typename T>
struct GemmCase {
    char ta, tb;
    int m, n, k;
    T alpha, beta;
    int pad;
    Poison poison;
    std::string describe() const
    {
        return std::string("gemm ") + ta + tb + " m=" + std::to_string(m) + " n=" + std::to_string(n) +
               " k=" + std::to_string(k) + " alpha=" + show(alpha) + " beta=" + show(beta) +
               " pad=" + std::to_string(pad) + poison_name(poison);
    }
};

template <typename T>
Expectation<T> reference(const GemmCase<T>& t, const Mat<T>& a, const Mat<T>& b, const Mat<T>& c)
{
    Expectation<T> e(t.m, t.n, t.k);
    if (t.m == 0 || t.n == 0 || ((t.alpha == T(0) || t.k == 0) && t.beta == T(1))) {
        e.kind = Expectation<T>::Kind::untouched;
        return e;
    }
    expect_product(e, c, t.alpha, t.beta, t.k, [&](int i, int l) { return op_at(a, t.ta, i, l); },
                   [&](int l, int j) { return op_at(b, t.tb, l, j); });
    return e;
}

// Changes the inputs of a case after they are filled (special values), before
// the reference is computed.
template <typename T>
using Prepare = void (*)(Mat<T>& a, Mat<T>& b, Mat<T>& c, Rng& rng);

template <typename T>
::testing::AssertionResult run_prepared_case(const GemmCase<T>& t, Prepare<T> prepare)
{
    Rng rng(std::uint64_t(t.m) * 1000003 + std::uint64_t(t.n) * 1009 + std::uint64_t(t.k) * 17 + std::uint64_t(t.pad));
    const bool a_plain = std::toupper(t.ta) == 'N', b_plain = std::toupper(t.tb) == 'N';
    Mat<T> a(a_plain ? t.m : t.k, a_plain ? t.k : t.m, t.pad);
    Mat<T> b(b_plain ? t.k : t.n, b_plain ? t.n : t.k, t.pad + 1);
    Mat<T> c(t.m, t.n, t.pad + 2);
    // A zero alpha must not read A or B, a zero beta must not read C: those
    // stay NaN.
    if (t.alpha != T(0)) {
        a.fill(rng);
        b.fill(rng);
    }
    if (t.beta != T(0)) c.fill(rng);
    auto everywhere = [](int, int) { return true; };
    if (t.poison == Poison::a) a.poison(rng, everywhere);
    if (t.poison == Poison::b) b.poison(rng, everywhere);
    if (prepare != nullptr) prepare(a, b, c, rng);

    const Expectation<T> want = reference(t, a, b, c);
    return call_and_match(a, b, c, want, [&] {
        gemm(t.ta, t.tb, t.m, t.n, t.k, t.alpha, a.data(), a.ld, b.data(), b.ld, t.beta, c.data(), c.ld);
    });
}

template <typename T>
::testing::AssertionResult run_case(const GemmCase<T>& t)
{
    return run_prepared_case<T>(t, nullptr);
}

}  // namespace l3test
