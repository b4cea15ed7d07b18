// Level-1 exports: each is its shape's entry sequence (level1_shapes.h)
// around its threaded driver or, for the rotation constructors and dcabs1,
// its dispatched family member. Level-1 routines have no argument checker and
// register no error handler.

#include "interface/level1_shapes.h"
#include "level1/dispatch.h"
#include "level1/frame/drivers.h"
#include "orv.h"

using orv::Level1Kernels;

// Reductions over one vector.

extern "C" double dasum_(const int* n, const double* x, const int* incx)
{
    return orv::reduction_shape<orv_blas_dasum>("DASUM", n, x, incx);
}

extern "C" double dzasum_(const int* n, const void* x, const int* incx)
{
    return orv::reduction_shape<orv_blas_dzasum>("DZASUM", n, x, incx);
}

extern "C" double dnrm2_(const int* n, const double* x, const int* incx)
{
    return orv::reduction_shape<orv_blas_dnrm2>("DNRM2", n, x, incx);
}

extern "C" double dznrm2_(const int* n, const void* x, const int* incx)
{
    return orv::reduction_shape<orv_blas_dznrm2>("DZNRM2", n, x, incx);
}

// The index is computed in 64 bits; the caller gets its low 32 bits.
extern "C" int idamax_(const int* n, const double* x, const int* incx)
{
    return static_cast<int>(orv::reduction_shape<orv_blas_idamax>("IDAMAX", n, x, incx));
}

extern "C" int izamax_(const int* n, const void* x, const int* incx)
{
    return static_cast<int>(orv::reduction_shape<orv_blas_izamax>("IZAMAX", n, x, incx));
}

extern "C" double dcabs1_(const void* z)
{
    return orv::scalars_shape<&Level1Kernels::dcabs1>("DCABS1", "(%p)", z);
}

// Dot products.

extern "C" double ddot_(const int* n, const double* x, const int* incx, const double* y, const int* incy)
{
    return orv::pair_shape<orv_blas_ddot>("DDOT", n, x, incx, y, incy);
}

#if defined(_WIN32)
extern "C" void zdotc_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    orv::complex_dot_shape<orv_blas_zdotc>("ZDOTC", result, n, x, incx, y, incy);
}

extern "C" void zdotu_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    orv::complex_dot_shape<orv_blas_zdotu>("ZDOTU", result, n, x, incx, y, incy);
}
#else
extern "C" orv_complex_double zdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return orv::complex_dot_shape<orv_blas_zdotc>("ZDOTC", n, x, incx, y, incy);
}

extern "C" orv_complex_double zdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return orv::complex_dot_shape<orv_blas_zdotu>("ZDOTU", n, x, incx, y, incy);
}
#endif

// Updates of one vector from another.

extern "C" void daxpy_(const int* n, const double* alpha, const double* x, const int* incx, double* y, const int* incy)
{
    orv::axpy_shape<orv_blas_daxpy>("DAXPY", n, alpha, x, incx, y, incy);
}

extern "C" void zaxpy_(const int* n, const void* alpha, const void* x, const int* incx, void* y, const int* incy)
{
    orv::axpy_shape<orv_blas_zaxpy>("ZAXPY", n, alpha, x, incx, y, incy);
}

extern "C" void dcopy_(const int* n, const double* x, const int* incx, double* y, const int* incy)
{
    orv::pair_shape<orv_blas_dcopy>("DCOPY", n, x, incx, y, incy);
}

extern "C" void zcopy_(const int* n, const void* x, const int* incx, void* y, const int* incy)
{
    orv::pair_shape<orv_blas_zcopy>("ZCOPY", n, x, incx, y, incy);
}

extern "C" void dswap_(const int* n, double* x, const int* incx, double* y, const int* incy)
{
    orv::pair_shape<orv_blas_dswap>("DSWAP", n, x, incx, y, incy);
}

extern "C" void zswap_(const int* n, void* x, const int* incx, void* y, const int* incy)
{
    orv::pair_shape<orv_blas_zswap>("ZSWAP", n, x, incx, y, incy);
}

// Scaling.

extern "C" void dscal_(const int* n, const double* alpha, double* x, const int* incx)
{
    orv::scal_shape<orv_blas_dscal>("DSCAL", n, alpha, x, incx);
}

extern "C" void zscal_(const int* n, const void* alpha, void* x, const int* incx)
{
    orv::scal_shape<orv_blas_zscal>("ZSCAL", n, alpha, x, incx);
}

extern "C" void zdscal_(const int* n, const double* alpha, void* x, const int* incx)
{
    orv::scal_shape<orv_blas_zdscal>("ZDSCAL", n, alpha, x, incx);
}

// Plane rotations.

extern "C" void drot_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* c,
                      const double* s)
{
    orv::rot_shape<orv_blas_drot>("DROT", n, x, incx, y, incy, c, s);
}

extern "C" void zdrot_(const int* n, void* x, const int* incx, void* y, const int* incy, const double* c,
                       const double* s)
{
    orv::rot_shape<orv_blas_zdrot>("ZDROT", n, x, incx, y, incy, c, s);
}

extern "C" void drotm_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* param)
{
    orv::rotm_shape<orv_blas_drotm>("DROTM", n, x, incx, y, incy, param);
}

extern "C" void drotg_(double* a, double* b, double* c, double* s)
{
    orv::scalars_shape<&Level1Kernels::drotg>("DROTG", "(%p,%p,%p,%p)", a, b, c, s);
}

extern "C" void zrotg_(void* ca, const void* cb, double* c, void* s)
{
    orv::scalars_shape<&Level1Kernels::zrotg>("ZROTG", "(%p,%p,%p,%p)", ca, cb, c, s);
}

extern "C" void drotmg_(double* d1, double* d2, double* x1, const double* y1, double* param)
{
    orv::scalars_shape<&Level1Kernels::drotmg>("DROTMG", "(%p,%p,%p,%p,%p)", d1, d2, x1, y1, param);
}
