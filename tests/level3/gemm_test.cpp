// dgemm_ and zgemm_ against a plain reference, over every pair of transpose
// letters, small and larger shapes, padded leading dimensions and the scalar set.
#include "gemm_reference.h"

namespace l3test {
namespace {

template <typename T>
std::vector<GemmCase<T>> cases()
{
    const auto s = scalars<T>();
    std::vector<GemmCase<T>> out;
    int index = 0;
    for (char ta : {'N', 'T', 'C'})
        for (char tb : {'N', 'T', 'C'}) {
            auto add = [&](int m, int n, int k, T alpha, T beta, Poison p) {
                const bool lower = (index / 16) % 2 == 1;
                out.push_back({letter(ta, lower), letter(tb, lower), m, n, k, alpha, beta, index % 3, p});
                ++index;
            };
            for (int m : small_sizes())
                for (int n : small_sizes())
                    for (int k : small_sizes()) add(m, n, k, s[index % 4], s[(index / 4) % 4], Poison::none);
            for (const Shape3& sh : large_shapes())
                add(sh.m, sh.n, sh.k, s[index % 4], s[(index / 4) % 4], Poison::none);
            add(block_shape().m, block_shape().n, block_shape().k, s[3], s[2], Poison::none);
            for (Poison p : {Poison::a, Poison::b}) {
                add(5, 4, 3, s[3], s[index % 4], p);
                add(17, 9, 33, s[3], s[index % 4], p);
            }
        }
    return out;
}

TEST(Gemm, RealMatchesReference) { run_table(cases<double>(), run_case<double>); }
TEST(Gemm, ComplexMatchesReference) { run_table(cases<zcomplex>(), run_case<zcomplex>); }

}  // namespace
}  // namespace l3test
