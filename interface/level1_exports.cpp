// Level-1 exports: widen the integers, run the threaded driver (or, for the
// rotation constructors and dcabs1, the kernel through its slot), trace.
// Level-1 routines have no argument checker and register no error handler.

#include "interface/entry.h"
#include "level1/dispatch.h"
#include "level1/frame/drivers.h"
#include "orv.h"

namespace {

// Complex arguments arrive as untyped addresses of (re, im) pairs.
const orv::dcomplex* cz(const void* p) { return static_cast<const orv::dcomplex*>(p); }
orv::dcomplex* wz(void* p) { return static_cast<orv::dcomplex*>(p); }

}  // namespace

// Reductions over one vector.

extern "C" double dasum_(const int* n, const double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return orv::run_traced(verbose, mode,
        [&] { return orv_blas_dasum(&n64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DASUM(%d,%p,%d)", *n, (const void*)x, *incx); });
}

extern "C" double dzasum_(const int* n, const void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return orv::run_traced(verbose, mode,
        [&] { return orv_blas_dzasum(&n64, cz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "DZASUM(%d,%p,%d)", *n, x, *incx); });
}

extern "C" double dnrm2_(const int* n, const double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return orv::run_traced(verbose, mode,
        [&] { return orv_blas_dnrm2(&n64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DNRM2(%d,%p,%d)", *n, (const void*)x, *incx); });
}

extern "C" double dznrm2_(const int* n, const void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return orv::run_traced(verbose, mode,
        [&] { return orv_blas_dznrm2(&n64, cz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "DZNRM2(%d,%p,%d)", *n, x, *incx); });
}

// The index is computed in 64 bits; the caller gets its low 32 bits.
extern "C" int idamax_(const int* n, const double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return static_cast<int>(orv::run_traced(verbose, mode,
        [&] { return orv_blas_idamax(&n64, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "IDAMAX(%d,%p,%d)", *n, (const void*)x, *incx); }));
}

extern "C" int izamax_(const int* n, const void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    return static_cast<int>(orv::run_traced(verbose, mode,
        [&] { return orv_blas_izamax(&n64, cz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "IZAMAX(%d,%p,%d)", *n, x, *incx); }));
}

extern "C" double dcabs1_(const void* z)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    return orv::run_traced(verbose, mode,
        [&] { return orv::dispatch<&orv::Level1Kernels::dcabs1>(cz(z)); },
        [&](char* text) { orv::format_call_text(text, "DCABS1(%p)", z); });
}

// Dot products.

extern "C" double ddot_(const int* n, const double* x, const int* incx, const double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    return orv::run_traced(verbose, mode,
        [&] { return orv_blas_ddot(&n64, x, &incx64, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DDOT(%d,%p,%d,%p,%d)", *n, (const void*)x, *incx,
                                                (const void*)y, *incy); });
}

// The complex dot products return their value through the hidden first
// argument.
extern "C" void zdotc_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zdotc(wz(result), &n64, cz(x), &incx64, cz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZDOTC(%p,%d,%p,%d,%p,%d)", result, *n, x, *incx, y, *incy); });
}

extern "C" void zdotu_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zdotu(wz(result), &n64, cz(x), &incx64, cz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZDOTU(%p,%d,%p,%d,%p,%d)", result, *n, x, *incx, y, *incy); });
}

// Updates of one vector from another.

extern "C" void daxpy_(const int* n, const double* alpha, const double* x, const int* incx, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_daxpy(&n64, alpha, x, &incx64, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DAXPY(%d,%p,%p,%d,%p,%d)", *n, (const void*)alpha,
                                                (const void*)x, *incx, (const void*)y, *incy); });
}

extern "C" void zaxpy_(const int* n, const void* alpha, const void* x, const int* incx, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zaxpy(&n64, cz(alpha), cz(x), &incx64, wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZAXPY(%d,%p,%p,%d,%p,%d)", *n, alpha, x, *incx, y, *incy); });
}

extern "C" void dcopy_(const int* n, const double* x, const int* incx, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_dcopy(&n64, x, &incx64, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DCOPY(%d,%p,%d,%p,%d)", *n, (const void*)x, *incx,
                                                (const void*)y, *incy); });
}

extern "C" void zcopy_(const int* n, const void* x, const int* incx, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zcopy(&n64, cz(x), &incx64, wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZCOPY(%d,%p,%d,%p,%d)", *n, x, *incx, y, *incy); });
}

extern "C" void dswap_(const int* n, double* x, const int* incx, double* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_dswap(&n64, x, &incx64, y, &incy64); },
        [&](char* text) { orv::format_call_text(text, "DSWAP(%d,%p,%d,%p,%d)", *n, (const void*)x, *incx,
                                                (const void*)y, *incy); });
}

extern "C" void zswap_(const int* n, void* x, const int* incx, void* y, const int* incy)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zswap(&n64, wz(x), &incx64, wz(y), &incy64); },
        [&](char* text) { orv::format_call_text(text, "ZSWAP(%d,%p,%d,%p,%d)", *n, x, *incx, y, *incy); });
}

// Scaling.

extern "C" void dscal_(const int* n, const double* alpha, double* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_dscal(&n64, alpha, x, &incx64); },
        [&](char* text) { orv::format_call_text(text, "DSCAL(%d,%p,%p,%d)", *n, (const void*)alpha, (const void*)x,
                                                *incx); });
}

extern "C" void zscal_(const int* n, const void* alpha, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zscal(&n64, cz(alpha), wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZSCAL(%d,%p,%p,%d)", *n, alpha, x, *incx); });
}

extern "C" void zdscal_(const int* n, const double* alpha, void* x, const int* incx)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zdscal(&n64, alpha, wz(x), &incx64); },
        [&](char* text) { orv::format_call_text(text, "ZDSCAL(%d,%p,%p,%d)", *n, (const void*)alpha, x, *incx); });
}

// Plane rotations.

extern "C" void drot_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* c,
                      const double* s)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_drot(&n64, x, &incx64, y, &incy64, c, s); },
        [&](char* text) { orv::format_call_text(text, "DROT(%d,%p,%d,%p,%d,%p,%p)", *n, (const void*)x, *incx,
                                                (const void*)y, *incy, (const void*)c, (const void*)s); });
}

extern "C" void zdrot_(const int* n, void* x, const int* incx, void* y, const int* incy, const double* c,
                       const double* s)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_zdrot(&n64, wz(x), &incx64, wz(y), &incy64, c, s); },
        [&](char* text) { orv::format_call_text(text, "ZDROT(%d,%p,%d,%p,%d,%p,%p)", *n, x, *incx, y, *incy,
                                                (const void*)c, (const void*)s); });
}

extern "C" void drotm_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* param)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    const orv::i64 n64 = *n, incx64 = *incx, incy64 = *incy;
    orv::run_traced(verbose, mode,
        [&] { orv_blas_drotm(&n64, x, &incx64, y, &incy64, param); },
        [&](char* text) { orv::format_call_text(text, "DROTM(%d,%p,%d,%p,%d,%p)", *n, (const void*)x, *incx,
                                                (const void*)y, *incy, (const void*)param); });
}

extern "C" void drotg_(double* a, double* b, double* c, double* s)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level1Kernels::drotg>(a, b, c, s); },
        [&](char* text) { orv::format_call_text(text, "DROTG(%p,%p,%p,%p)", (void*)a, (void*)b, (void*)c,
                                                (void*)s); });
}

extern "C" void zrotg_(void* ca, const void* cb, double* c, void* s)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level1Kernels::zrotg>(wz(ca), cz(cb), c, wz(s)); },
        [&](char* text) { orv::format_call_text(text, "ZROTG(%p,%p,%p,%p)", ca, cb, (void*)c, s); });
}

extern "C" void drotmg_(double* d1, double* d2, double* x1, const double* y1, double* param)
{
    static const int* verbose = &orv::kVerboseUnknown;
    const int mode = orv::entry_mode(verbose);
    orv::run_traced(verbose, mode,
        [&] { orv::dispatch<&orv::Level1Kernels::drotmg>(d1, d2, x1, y1, param); },
        [&](char* text) { orv::format_call_text(text, "DROTMG(%p,%p,%p,%p,%p)", (void*)d1, (void*)d2, (void*)x1,
                                                (const void*)y1, (void*)param); });
}
