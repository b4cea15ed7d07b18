// Level-1 C interface: integers and real scalars by value, passed on by
// address to the column-major routines; no layout, nothing to check.

#include <cstddef>
#include <cstring>

#include "interface/dropin/blas.h"
#include "interface/dropin/cblas_call.h"

namespace {

// The routines count from 1 and answer 0 for an empty vector; the C
// interface counts from 0.
template <typename F, typename P>
std::size_t index_of_max(F f, int n, const P* x, int incx)
{
    const int i = f(&n, x, &incx);
    return i > 0 ? static_cast<std::size_t>(i - 1) : 0;
}

// A complex dot product, which the routine returns as a value, stored at `result`.
template <typename F>
void dot_into(F dot, int n, const void* x, int incx, const void* y, int incy, void* result)
{
    const auto value = dot(&n, x, &incx, y, &incy);
    std::memcpy(result, &value, sizeof value);
}

}  // namespace

extern "C" {

ORV_API float cblas_sasum(int n, const float* x, int incx) { return sasum_(&n, x, &incx); }
ORV_API double cblas_dasum(int n, const double* x, int incx) { return dasum_(&n, x, &incx); }
ORV_API float cblas_scasum(int n, const void* x, int incx) { return scasum_(&n, x, &incx); }
ORV_API double cblas_dzasum(int n, const void* x, int incx) { return dzasum_(&n, x, &incx); }

ORV_API float cblas_snrm2(int n, const float* x, int incx) { return snrm2_(&n, x, &incx); }
ORV_API double cblas_dnrm2(int n, const double* x, int incx) { return dnrm2_(&n, x, &incx); }
ORV_API float cblas_scnrm2(int n, const void* x, int incx) { return scnrm2_(&n, x, &incx); }
ORV_API double cblas_dznrm2(int n, const void* x, int incx) { return dznrm2_(&n, x, &incx); }

ORV_API float cblas_scabs1(const void* z) { return scabs1_(z); }
ORV_API double cblas_dcabs1(const void* z) { return dcabs1_(z); }

ORV_API std::size_t cblas_isamax(int n, const float* x, int incx) { return index_of_max(isamax_, n, x, incx); }
ORV_API std::size_t cblas_idamax(int n, const double* x, int incx) { return index_of_max(idamax_, n, x, incx); }
ORV_API std::size_t cblas_icamax(int n, const void* x, int incx) { return index_of_max(icamax_, n, x, incx); }
ORV_API std::size_t cblas_izamax(int n, const void* x, int incx) { return index_of_max(izamax_, n, x, incx); }

ORV_API float cblas_sdot(int n, const float* x, int incx, const float* y, int incy)
{
    return sdot_(&n, x, &incx, y, &incy);
}
ORV_API double cblas_ddot(int n, const double* x, int incx, const double* y, int incy)
{
    return ddot_(&n, x, &incx, y, &incy);
}
ORV_API float cblas_sdsdot(int n, float alpha, const float* x, int incx, const float* y, int incy)
{
    return sdsdot_(&n, &alpha, x, &incx, y, &incy);
}
ORV_API double cblas_dsdot(int n, const float* x, int incx, const float* y, int incy)
{
    return dsdot_(&n, x, &incx, y, &incy);
}
ORV_API void cblas_cdotu_sub(int n, const void* x, int incx, const void* y, int incy, void* dotu)
{
    dot_into(cdotu_, n, x, incx, y, incy, dotu);
}
ORV_API void cblas_cdotc_sub(int n, const void* x, int incx, const void* y, int incy, void* dotc)
{
    dot_into(cdotc_, n, x, incx, y, incy, dotc);
}
ORV_API void cblas_zdotu_sub(int n, const void* x, int incx, const void* y, int incy, void* dotu)
{
    dot_into(zdotu_, n, x, incx, y, incy, dotu);
}
ORV_API void cblas_zdotc_sub(int n, const void* x, int incx, const void* y, int incy, void* dotc)
{
    dot_into(zdotc_, n, x, incx, y, incy, dotc);
}

ORV_API void cblas_saxpy(int n, float alpha, const float* x, int incx, float* y, int incy)
{
    saxpy_(&n, &alpha, x, &incx, y, &incy);
}
ORV_API void cblas_daxpy(int n, double alpha, const double* x, int incx, double* y, int incy)
{
    daxpy_(&n, &alpha, x, &incx, y, &incy);
}
ORV_API void cblas_caxpy(int n, const void* alpha, const void* x, int incx, void* y, int incy)
{
    caxpy_(&n, alpha, x, &incx, y, &incy);
}
ORV_API void cblas_zaxpy(int n, const void* alpha, const void* x, int incx, void* y, int incy)
{
    zaxpy_(&n, alpha, x, &incx, y, &incy);
}

ORV_API void cblas_scopy(int n, const float* x, int incx, float* y, int incy) { scopy_(&n, x, &incx, y, &incy); }
ORV_API void cblas_dcopy(int n, const double* x, int incx, double* y, int incy) { dcopy_(&n, x, &incx, y, &incy); }
ORV_API void cblas_ccopy(int n, const void* x, int incx, void* y, int incy) { ccopy_(&n, x, &incx, y, &incy); }
ORV_API void cblas_zcopy(int n, const void* x, int incx, void* y, int incy) { zcopy_(&n, x, &incx, y, &incy); }

ORV_API void cblas_sswap(int n, float* x, int incx, float* y, int incy) { sswap_(&n, x, &incx, y, &incy); }
ORV_API void cblas_dswap(int n, double* x, int incx, double* y, int incy) { dswap_(&n, x, &incx, y, &incy); }
ORV_API void cblas_cswap(int n, void* x, int incx, void* y, int incy) { cswap_(&n, x, &incx, y, &incy); }
ORV_API void cblas_zswap(int n, void* x, int incx, void* y, int incy) { zswap_(&n, x, &incx, y, &incy); }

ORV_API void cblas_sscal(int n, float alpha, float* x, int incx) { sscal_(&n, &alpha, x, &incx); }
ORV_API void cblas_dscal(int n, double alpha, double* x, int incx) { dscal_(&n, &alpha, x, &incx); }
ORV_API void cblas_cscal(int n, const void* alpha, void* x, int incx) { cscal_(&n, alpha, x, &incx); }
ORV_API void cblas_zscal(int n, const void* alpha, void* x, int incx) { zscal_(&n, alpha, x, &incx); }
ORV_API void cblas_csscal(int n, float alpha, void* x, int incx) { csscal_(&n, &alpha, x, &incx); }
ORV_API void cblas_zdscal(int n, double alpha, void* x, int incx) { zdscal_(&n, &alpha, x, &incx); }

ORV_API void cblas_srot(int n, float* x, int incx, float* y, int incy, float c, float s)
{
    srot_(&n, x, &incx, y, &incy, &c, &s);
}
ORV_API void cblas_drot(int n, double* x, int incx, double* y, int incy, double c, double s)
{
    drot_(&n, x, &incx, y, &incy, &c, &s);
}
ORV_API void cblas_csrot(int n, void* x, int incx, void* y, int incy, float c, float s)
{
    csrot_(&n, x, &incx, y, &incy, &c, &s);
}
ORV_API void cblas_zdrot(int n, void* x, int incx, void* y, int incy, double c, double s)
{
    zdrot_(&n, x, &incx, y, &incy, &c, &s);
}
ORV_API void cblas_srotm(int n, float* x, int incx, float* y, int incy, const float* p)
{
    srotm_(&n, x, &incx, y, &incy, p);
}
ORV_API void cblas_drotm(int n, double* x, int incx, double* y, int incy, const double* p)
{
    drotm_(&n, x, &incx, y, &incy, p);
}

ORV_API void cblas_srotg(float* a, float* b, float* c, float* s) { srotg_(a, b, c, s); }
ORV_API void cblas_drotg(double* a, double* b, double* c, double* s) { drotg_(a, b, c, s); }
ORV_API void cblas_crotg(void* a, void* b, float* c, void* s) { crotg_(a, b, c, s); }
ORV_API void cblas_zrotg(void* a, void* b, double* c, void* s) { zrotg_(a, b, c, s); }
ORV_API void cblas_srotmg(float* d1, float* d2, float* b1, float b2, float* p) { srotmg_(d1, d2, b1, &b2, p); }
ORV_API void cblas_drotmg(double* d1, double* d2, double* b1, double b2, double* p) { drotmg_(d1, d2, b1, &b2, p); }

}  // extern "C"
