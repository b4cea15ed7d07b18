// The complex products that read A and B where they lie: the small products
// and the blocked driver's fall-back. One call is one k-block: C := C +
// (alpha op(A)) op(B) (C written without being read when `store`), each
// element computed as the complex tiles of every path compute it: alpha times
// the element of op(A) as the packer rounds it (not multiplied when alpha is
// exactly one), then the four sums re*re, im*re, re*im and im*im over the
// k-block in order from +0, each product rounded before it is added, and last
// (rr - ii, ir + ri) added to C. Baseline code: the same bits on every
// processor.
#include "level3/gemm_unpacked.h"

namespace orv {
namespace {

struct ZOperand {
    const double* base;
    i64 ld;
    bool trans;
    bool conj;
    // Element (r, c) of op(X): its two parts.
    [[gnu::always_inline]] inline void at(i64 r, i64 c, double& re, double& im) const
    {
        const double* p = trans ? base + 2 * (c + r * ld) : base + 2 * (r + c * ld);
        re = p[0];
        im = conj ? -p[1] : p[1];
    }
};

// Rows per pass: each row's four sums are independent chains, so two rows
// keep eight multiply-adds in flight.
constexpr i64 kZRows = 2;

template <bool Store>
void zgemm_unpacked_block(const ZOperand& a, const ZOperand& b, i64 m, i64 n, i64 k, const double* alpha,
                          double* c, i64 ldc)
{
    const double alpha_re = alpha[0], alpha_im = alpha[1];
    const bool scale = !(alpha_re == 1.0 && alpha_im == 0.0);
    for (i64 j = 0; j < n; ++j) {
        double* cj = c + 2 * j * ldc;
        for (i64 i = 0; i < m; i += kZRows) {
            const i64 rows = m - i < kZRows ? m - i : kZRows;
            double rr[kZRows] = {}, ir[kZRows] = {}, ri[kZRows] = {}, ii[kZRows] = {};
            for (i64 l = 0; l < k; ++l) {
                double yr, yi;
                b.at(l, j, yr, yi);
                for (i64 q = 0; q < rows; ++q) {
                    double xr, xi;
                    a.at(i + q, l, xr, xi);
                    if (scale) {
                        const double pr = alpha_re * xr - alpha_im * xi;
                        const double pi = alpha_re * xi + alpha_im * xr;
                        xr = pr;
                        xi = pi;
                    }
                    rr[q] = rr[q] + xr * yr;
                    ir[q] = ir[q] + xi * yr;
                    ri[q] = ri[q] + xr * yi;
                    ii[q] = ii[q] + xi * yi;
                }
            }
            for (i64 q = 0; q < rows; ++q) {
                double* p = cj + 2 * (i + q);
                const double re = rr[q] - ii[q], im = ir[q] + ri[q];
                if constexpr (Store) {
                    p[0] = re;
                    p[1] = im;
                } else {
                    p[0] = p[0] + re;
                    p[1] = p[1] + im;
                }
            }
        }
    }
}

}  // namespace

void zgemm_unpacked(char ta, char tb, i64 m, i64 n, i64 k, const double* alpha, const double* a, i64 lda,
                    const double* b, i64 ldb, bool store, double* c, i64 ldc)
{
    const ZOperand za{a, lda, ta != 'N', ta == 'C'};
    const ZOperand zb{b, ldb, tb != 'N', tb == 'C'};
    if (store) zgemm_unpacked_block<true>(za, zb, m, n, k, alpha, c, ldc);
    else zgemm_unpacked_block<false>(za, zb, m, n, k, alpha, c, ldc);
}

}  // namespace orv
