// Baseline application of plane rotations. Every new value is formed from
// rounded products and then added (no fused multiply-add on this path).
#include "level1/kernels.h"
#include "level1/kernels/sse2.h"

namespace orv::def {

using namespace orv::sse2;

namespace {

// Each rotation is an operation on a pair (x, y) of two-lane values; single
// elements use lane 0 only.
struct RotOp {  // x' = c*x + s*y, y' = c*y - s*x
    __m128d c, s;
    void operator()(__m128d& x, __m128d& y) const
    {
        const __m128d nx = _mm_add_pd(_mm_mul_pd(c, x), _mm_mul_pd(s, y));
        y = _mm_sub_pd(_mm_mul_pd(c, y), _mm_mul_pd(s, x));
        x = nx;
    }
};

struct RotmFull {  // flag < 0: x' = h11*x + h12*y, y' = h21*x + h22*y
    __m128d h11, h21, h12, h22;
    void operator()(__m128d& x, __m128d& y) const
    {
        const __m128d nx = _mm_add_pd(_mm_mul_pd(h11, x), _mm_mul_pd(h12, y));
        y = _mm_add_pd(_mm_mul_pd(h21, x), _mm_mul_pd(h22, y));
        x = nx;
    }
};

struct RotmOffDiagonal {  // flag 0: x' = x + h12*y, y' = h21*x + y
    __m128d h21, h12;
    void operator()(__m128d& x, __m128d& y) const
    {
        const __m128d nx = _mm_add_pd(x, _mm_mul_pd(h12, y));
        y = _mm_add_pd(_mm_mul_pd(h21, x), y);
        x = nx;
    }
};

struct RotmDiagonal {  // flag 1: x' = h11*x + y, y' = -x + h22*y
    __m128d h11, h22;
    void operator()(__m128d& x, __m128d& y) const
    {
        const __m128d nx = _mm_add_pd(_mm_mul_pd(h11, x), y);
        y = _mm_add_pd(_mm_xor_pd(x, _mm_set1_pd(-0.0)), _mm_mul_pd(h22, y));
        x = nx;
    }
};

template <class Op>
inline void apply_one(double* x, double* y, const Op& op)
{
    __m128d xv = _mm_load_sd(x), yv = _mm_load_sd(y);
    op(xv, yv);
    _mm_store_sd(x, xv);
    _mm_store_sd(y, yv);
}

// Element by element from the first logical elements.
template <class Op>
void apply_strided(i64 n, double* x, i64 incx, double* y, i64 incy, const Op& op)
{
    double* px = first_element(x, n, incx);
    double* py = first_element(y, n, incy);
    for (i64 i = 0; i < n; ++i, px += incx, py += incy) apply_one(px, py, op);
}

// Contiguous elements i..n-1: pairs, then a last single element.
template <bool AX, class Op>
void apply_pairs(i64 n, double* x, double* y, i64 i, const Op& op)
{
    for (; n - i >= 2; i += 2) {
        __m128d xv = load<AX>(x + i), yv = _mm_loadu_pd(y + i);
        op(xv, yv);
        store<AX>(x + i, xv);
        _mm_storeu_pd(y + i, yv);
    }
    if (i < n) apply_one(x + i, y + i, op);
}

template <class Op>
void apply(i64 n, double* x, i64 incx, double* y, i64 incy, const Op& op)
{
    if (incx == 1 && incy == 1)
        apply_pairs<false>(n, x, y, 0, op);
    else
        apply_strided(n, x, incx, y, incy, op);
}

}  // namespace

void drot(const i64* n_, double* x, const i64* incx_, double* y, const i64* incy_, const double* c, const double* s)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    const RotOp op{_mm_set1_pd(*c), _mm_set1_pd(*s)};
    if (incx != 1 || incy != 1 || !aligned8(x)) {
        apply_strided(n, x, incx, y, incy, op);
        return;
    }
    // One element to bring x to 16-byte alignment, then aligned pairs of x.
    i64 i = 0;
    if (!aligned16(x)) {
        apply_one(x, y, op);
        i = 1;
    }
    apply_pairs<true>(n, x, y, i, op);
}

void drotm(const i64* n_, double* x, const i64* incx_, double* y, const i64* incy_, const double* param)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    const double flag = param[0];
    if (n < 1 || flag + 2.0 == 0.0) return;
    if (flag < 0.0)
        apply(n, x, incx, y, incy,
              RotmFull{_mm_set1_pd(param[1]), _mm_set1_pd(param[2]), _mm_set1_pd(param[3]), _mm_set1_pd(param[4])});
    else if (flag == 0.0)
        apply(n, x, incx, y, incy, RotmOffDiagonal{_mm_set1_pd(param[2]), _mm_set1_pd(param[3])});
    else
        apply(n, x, incx, y, incy, RotmDiagonal{_mm_set1_pd(param[1]), _mm_set1_pd(param[4])});
}

void zdrot(const i64* n_, dcomplex* x, const i64* incx_, dcomplex* y, const i64* incy_, const double* c,
           const double* s)
{
    const i64 n = *n_, incx = *incx_, incy = *incy_;
    if (n < 1) return;
    // With unit increments the complex vectors are real vectors of 2n doubles.
    if (incx == 1 && incy == 1) {
        const i64 n2 = 2 * n, one = 1;
        drot(&n2, parts(x), &one, parts(y), &one, c, s);
        return;
    }
    // Otherwise both parts of an element at once.
    const RotOp op{_mm_set1_pd(*c), _mm_set1_pd(*s)};
    dcomplex* px = first_element(x, n, incx);
    dcomplex* py = first_element(y, n, incy);
    for (i64 i = 0; i < n; ++i, px += incx, py += incy) {
        __m128d xv = _mm_loadu_pd(parts(px)), yv = _mm_loadu_pd(parts(py));
        op(xv, yv);
        _mm_storeu_pd(parts(px), xv);
        _mm_storeu_pd(parts(py), yv);
    }
}

}  // namespace orv::def
