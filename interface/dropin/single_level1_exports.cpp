// Level-1 exports of the single-precision and single-complex routines and of
// the dot products accumulated in double: each is its shape's entry sequence
// (level1_shapes.h) around its single-thread member.

#include "blas.h"
#include "interface/level1_shapes.h"
#include "level1/single.h"

namespace plain = orv::plain;

// Reductions over one vector.

extern "C" float sasum_(const int* n, const float* x, const int* incx)
{
    return orv::reduction_shape<plain::sasum>("SASUM", n, x, incx);
}

extern "C" float scasum_(const int* n, const void* x, const int* incx)
{
    return orv::reduction_shape<plain::scasum>("SCASUM", n, x, incx);
}

extern "C" float snrm2_(const int* n, const float* x, const int* incx)
{
    return orv::reduction_shape<plain::snrm2>("SNRM2", n, x, incx);
}

extern "C" float scnrm2_(const int* n, const void* x, const int* incx)
{
    return orv::reduction_shape<plain::scnrm2>("SCNRM2", n, x, incx);
}

// The index is computed in 64 bits; the caller gets its low 32 bits.
extern "C" int isamax_(const int* n, const float* x, const int* incx)
{
    return static_cast<int>(orv::reduction_shape<plain::isamax>("ISAMAX", n, x, incx));
}

extern "C" int icamax_(const int* n, const void* x, const int* incx)
{
    return static_cast<int>(orv::reduction_shape<plain::icamax>("ICAMAX", n, x, incx));
}

extern "C" float scabs1_(const void* z)
{
    return orv::scalars_shape<plain::scabs1>("SCABS1", "(%p)", z);
}

// Dot products.

extern "C" float sdot_(const int* n, const float* x, const int* incx, const float* y, const int* incy)
{
    return orv::pair_shape<plain::sdot>("SDOT", n, x, incx, y, incy);
}

extern "C" double dsdot_(const int* n, const float* x, const int* incx, const float* y, const int* incy)
{
    return orv::pair_shape<plain::dsdot>("DSDOT", n, x, incx, y, incy);
}

extern "C" float sdsdot_(const int* n, const float* sb, const float* x, const int* incx, const float* y,
                         const int* incy)
{
    return orv::axpy_shape<plain::sdsdot>("SDSDOT", n, sb, x, incx, y, incy);
}

extern "C" orv_complex_float cdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return orv::complex_dot_shape<plain::cdotc>("CDOTC", n, x, incx, y, incy);
}

extern "C" orv_complex_float cdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    return orv::complex_dot_shape<plain::cdotu>("CDOTU", n, x, incx, y, incy);
}

// Updates of one vector from another.

extern "C" void saxpy_(const int* n, const float* alpha, const float* x, const int* incx, float* y, const int* incy)
{
    orv::axpy_shape<plain::saxpy>("SAXPY", n, alpha, x, incx, y, incy);
}

extern "C" void caxpy_(const int* n, const void* alpha, const void* x, const int* incx, void* y, const int* incy)
{
    orv::axpy_shape<plain::caxpy>("CAXPY", n, alpha, x, incx, y, incy);
}

extern "C" void scopy_(const int* n, const float* x, const int* incx, float* y, const int* incy)
{
    orv::pair_shape<plain::scopy>("SCOPY", n, x, incx, y, incy);
}

extern "C" void ccopy_(const int* n, const void* x, const int* incx, void* y, const int* incy)
{
    orv::pair_shape<plain::ccopy>("CCOPY", n, x, incx, y, incy);
}

extern "C" void sswap_(const int* n, float* x, const int* incx, float* y, const int* incy)
{
    orv::pair_shape<plain::sswap>("SSWAP", n, x, incx, y, incy);
}

extern "C" void cswap_(const int* n, void* x, const int* incx, void* y, const int* incy)
{
    orv::pair_shape<plain::cswap>("CSWAP", n, x, incx, y, incy);
}

// Scaling.

extern "C" void sscal_(const int* n, const float* alpha, float* x, const int* incx)
{
    orv::scal_shape<plain::sscal>("SSCAL", n, alpha, x, incx);
}

extern "C" void cscal_(const int* n, const void* alpha, void* x, const int* incx)
{
    orv::scal_shape<plain::cscal>("CSCAL", n, alpha, x, incx);
}

extern "C" void csscal_(const int* n, const float* alpha, void* x, const int* incx)
{
    orv::scal_shape<plain::csscal>("CSSCAL", n, alpha, x, incx);
}

// Plane rotations.

extern "C" void srot_(const int* n, float* x, const int* incx, float* y, const int* incy, const float* c,
                      const float* s)
{
    orv::rot_shape<plain::srot>("SROT", n, x, incx, y, incy, c, s);
}

extern "C" void csrot_(const int* n, void* x, const int* incx, void* y, const int* incy, const float* c, const float* s)
{
    orv::rot_shape<plain::csrot>("CSROT", n, x, incx, y, incy, c, s);
}

extern "C" void srotm_(const int* n, float* x, const int* incx, float* y, const int* incy, const float* param)
{
    orv::rotm_shape<plain::srotm>("SROTM", n, x, incx, y, incy, param);
}

extern "C" void srotg_(float* a, float* b, float* c, float* s)
{
    orv::scalars_shape<plain::srotg>("SROTG", "(%p,%p,%p,%p)", a, b, c, s);
}

extern "C" void crotg_(void* ca, const void* cb, float* c, void* s)
{
    orv::scalars_shape<plain::crotg>("CROTG", "(%p,%p,%p,%p)", ca, cb, c, s);
}

extern "C" void srotmg_(float* d1, float* d2, float* x1, const float* y1, float* param)
{
    orv::scalars_shape<plain::srotmg>("SROTMG", "(%p,%p,%p,%p,%p)", d1, d2, x1, y1, param);
}
