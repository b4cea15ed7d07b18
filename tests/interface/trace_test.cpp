// Call tracing through the real exports: every routine's call text, the
// elapsed time and configuration fields of its line, the one-time banner
// (also when many threads make their first calls at once), and how the
// configuration fields follow the environment.
//
// Each routine makes a small valid call; the arguments it passes are recorded
// on the way, and the expected text is formed from its row's format with
// those very values and addresses.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <regex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "child_process.h"
#include "orv.h"
#include "orv_test.h"
#if defined(ORV_TEST_DROPIN)
#include "blas.h"
#endif

namespace {

using orvtest::EnvChange;
using orvtest::zcomplex;
using ccomplex = std::complex<float>;

// One argument as the call text shows it: option letters by character,
// integers by value, everything else by address.
struct Arg {
    char kind;  // 'c', 'd' or 'p'
    int value;
    const void* address;
};

Arg describe(const char* p) { return {'c', *p, p}; }
Arg describe(const int* p) { return {'d', *p, p}; }
Arg describe(const void* p) { return {'p', 0, p}; }

// Calls `fn` and returns its arguments in order, as the trace must show them.
template <typename Fn, typename... A>
std::vector<Arg> call(Fn fn, A... args)
{
    fn(args...);
    return {describe(args)...};
}

// Valid for every routine, with distinct values so that a swapped argument
// shows: m, n, k and the leading dimensions differ, one increment is
// negative, and the option letters differ from each other.
struct Work {
    char side = 'R', uplo = 'L', trans = 'T', transb = 'N', ctrans = 'C', diag = 'U';
    int m = 3, n = 2, k = 4, kl = 1, ku = 2, lda = 5, ldb = 6, ldc = 7, incx = 1, incy = -2;
    double a[64], b[64], c[64], x[16], y[16];
    zcomplex za[64], zb[64], zc[64], zx[16], zy[16];
    double alpha = 0.5, beta = 0.25, cs = 0.6, sn = 0.8;
    zcomplex zalpha{0.5, -0.25}, zbeta{0.25, 0.125}, zs;
#if defined(_WIN32)
    zcomplex zresult;  // the complex dot products' hidden result argument
#endif
    double ra = 3.0, rb = 4.0, d1 = 1.0, d2 = 2.0, x1 = 1.0, y1 = 0.5;
    double param[5] = {-1.0, 1.0, 0.5, -0.5, 1.0};
#if defined(ORV_TEST_DROPIN)
    float sa[64], sb[64], sc[64], sx[16], sy[16];
    ccomplex ca[64], cb[64], cc[64], cx[16], cy[16];
    float salpha = 0.5f, sbeta = 0.25f, scs = 0.6f, ssn = 0.8f;
    ccomplex calpha{0.5f, -0.25f}, cbeta{0.25f, 0.125f}, csn;
    float sra = 3.0f, srb = 4.0f, sd1 = 1.0f, sd2 = 2.0f, sx1 = 1.0f, sy1 = 0.5f;
    float sparam[5] = {-1.0f, 1.0f, 0.5f, -0.5f, 1.0f};
#endif

    Work()
    {
        for (double* v : {a, b, c}) std::fill(v, v + 64, 0.5);
        for (double* v : {x, y}) std::fill(v, v + 16, 0.25);
        for (zcomplex* v : {za, zb, zc}) std::fill(v, v + 64, zcomplex(0.5, 0.25));
        for (zcomplex* v : {zx, zy}) std::fill(v, v + 16, zcomplex(0.25, -0.5));
#if defined(ORV_TEST_DROPIN)
        for (float* v : {sa, sb, sc}) std::fill(v, v + 64, 0.5f);
        for (float* v : {sx, sy}) std::fill(v, v + 16, 0.25f);
        for (ccomplex* v : {ca, cb, cc}) std::fill(v, v + 64, ccomplex(0.5f, 0.25f));
        for (ccomplex* v : {cx, cy}) std::fill(v, v + 16, ccomplex(0.25f, -0.5f));
#endif
    }
};

struct Routine {
    const char* name;
    std::vector<Arg> (*run)(Work&);
};

// The call-text formats: each row's routines share its argument list and
// print under their own names.
struct FormatRow {
    const char* format;
    std::vector<Routine> routines;
};

#define ROUTINE(name, ...) Routine{name, [](Work& w) { return call(__VA_ARGS__); }}

#if defined(ORV_TEST_DROPIN)
// The drop-in's single-precision and single-complex routines and the dot
// products accumulated in double: each prints in the format of the row it
// joins, under its own name.
struct ExtraRoutine {
    const char* format;
    Routine routine;
};

const std::vector<ExtraRoutine>& extra_routines()
{
    static const std::vector<ExtraRoutine> extras = {
        {"DASUM(%d,%p,%d)", ROUTINE("SASUM", sasum_, &w.n, w.sx, &w.incx)},
        {"DASUM(%d,%p,%d)", ROUTINE("SNRM2", snrm2_, &w.n, w.sx, &w.incx)},
        {"DASUM(%d,%p,%d)", ROUTINE("SCASUM", scasum_, &w.n, w.cx, &w.incx)},
        {"DASUM(%d,%p,%d)", ROUTINE("SCNRM2", scnrm2_, &w.n, w.cx, &w.incx)},
        {"DASUM(%d,%p,%d)", ROUTINE("ISAMAX", isamax_, &w.n, w.sx, &w.incx)},
        {"DASUM(%d,%p,%d)", ROUTINE("ICAMAX", icamax_, &w.n, w.cx, &w.incx)},
        {"DAXPY(%d,%p,%p,%d,%p,%d)", ROUTINE("SAXPY", saxpy_, &w.n, &w.salpha, w.sx, &w.incx, w.sy, &w.incy)},
        {"DAXPY(%d,%p,%p,%d,%p,%d)", ROUTINE("CAXPY", caxpy_, &w.n, &w.calpha, w.cx, &w.incx, w.cy, &w.incy)},
        {"DAXPY(%d,%p,%p,%d,%p,%d)", ROUTINE("SDSDOT", sdsdot_, &w.n, &w.salpha, w.sx, &w.incx, w.sy, &w.incy)},
        {"DCABS1(%p)", ROUTINE("SCABS1", scabs1_, &w.calpha)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("SCOPY", scopy_, &w.n, w.sx, &w.incx, w.sy, &w.incy)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("SDOT", sdot_, &w.n, w.sx, &w.incx, w.sy, &w.incy)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("DSDOT", dsdot_, &w.n, w.sx, &w.incx, w.sy, &w.incy)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("SSWAP", sswap_, &w.n, w.sx, &w.incx, w.sy, &w.incy)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("CCOPY", ccopy_, &w.n, w.cx, &w.incx, w.cy, &w.incy)},
        {"DCOPY(%d,%p,%d,%p,%d)", ROUTINE("CSWAP", cswap_, &w.n, w.cx, &w.incx, w.cy, &w.incy)},
        {"ZDOTC(%d,%p,%d,%p,%d)", ROUTINE("CDOTC", cdotc_, &w.n, w.cx, &w.incx, w.cy, &w.incy)},
        {"ZDOTC(%d,%p,%d,%p,%d)", ROUTINE("CDOTU", cdotu_, &w.n, w.cx, &w.incx, w.cy, &w.incy)},
        {"DSCAL(%d,%p,%p,%d)", ROUTINE("SSCAL", sscal_, &w.n, &w.salpha, w.sx, &w.incx)},
        {"DSCAL(%d,%p,%p,%d)", ROUTINE("CSCAL", cscal_, &w.n, &w.calpha, w.cx, &w.incx)},
        {"DSCAL(%d,%p,%p,%d)", ROUTINE("CSSCAL", csscal_, &w.n, &w.salpha, w.cx, &w.incx)},
        {"DROT(%d,%p,%d,%p,%d,%p,%p)", ROUTINE("SROT", srot_, &w.n, w.sx, &w.incx, w.sy, &w.incy, &w.scs, &w.ssn)},
        {"DROT(%d,%p,%d,%p,%d,%p,%p)", ROUTINE("CSROT", csrot_, &w.n, w.cx, &w.incx, w.cy, &w.incy, &w.scs, &w.ssn)},
        {"DROTG(%p,%p,%p,%p)", ROUTINE("SROTG", srotg_, &w.sra, &w.srb, &w.scs, &w.ssn)},
        {"DROTG(%p,%p,%p,%p)", ROUTINE("CROTG", crotg_, &w.calpha, &w.cbeta, &w.scs, &w.csn)},
        {"DROTM(%d,%p,%d,%p,%d,%p)", ROUTINE("SROTM", srotm_, &w.n, w.sx, &w.incx, w.sy, &w.incy, w.sparam)},
        {"DROTMG(%p,%p,%p,%p,%p)", ROUTINE("SROTMG", srotmg_, &w.sd1, &w.sd2, &w.sx1, &w.sy1, w.sparam)},
        {"DGEMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SGEMV", sgemv_, &w.trans, &w.m, &w.n, &w.salpha, w.sa, &w.lda, w.sx, &w.incx, &w.sbeta, w.sy,
                 &w.incy)},
        {"DGEMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CGEMV", cgemv_, &w.trans, &w.m, &w.n, &w.calpha, w.ca, &w.lda, w.cx, &w.incx, &w.cbeta, w.cy,
                 &w.incy)},
        {"DGBMV(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SGBMV", sgbmv_, &w.trans, &w.m, &w.n, &w.kl, &w.ku, &w.salpha, w.sa, &w.lda, w.sx, &w.incx,
                 &w.sbeta, w.sy, &w.incy)},
        {"DGBMV(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CGBMV", cgbmv_, &w.trans, &w.m, &w.n, &w.kl, &w.ku, &w.calpha, w.ca, &w.lda, w.cx, &w.incx,
                 &w.cbeta, w.cy, &w.incy)},
        {"DGER(%d,%d,%p,%p,%d,%p,%d,%p,%d)",
         ROUTINE("SGER", sger_, &w.m, &w.n, &w.salpha, w.sx, &w.incx, w.sy, &w.incy, w.sa, &w.lda)},
        {"DGER(%d,%d,%p,%p,%d,%p,%d,%p,%d)",
         ROUTINE("CGERC", cgerc_, &w.m, &w.n, &w.calpha, w.cx, &w.incx, w.cy, &w.incy, w.ca, &w.lda)},
        {"DGER(%d,%d,%p,%p,%d,%p,%d,%p,%d)",
         ROUTINE("CGERU", cgeru_, &w.m, &w.n, &w.calpha, w.cx, &w.incx, w.cy, &w.incy, w.ca, &w.lda)},
        {"DSYMV(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SSYMV", ssymv_, &w.uplo, &w.n, &w.salpha, w.sa, &w.lda, w.sx, &w.incx, &w.sbeta, w.sy, &w.incy)},
        {"DSYMV(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CHEMV", chemv_, &w.uplo, &w.n, &w.calpha, w.ca, &w.lda, w.cx, &w.incx, &w.cbeta, w.cy, &w.incy)},
        {"DSBMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SSBMV", ssbmv_, &w.uplo, &w.n, &w.k, &w.salpha, w.sa, &w.lda, w.sx, &w.incx, &w.sbeta, w.sy,
                 &w.incy)},
        {"DSBMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CHBMV", chbmv_, &w.uplo, &w.n, &w.k, &w.calpha, w.ca, &w.lda, w.cx, &w.incx, &w.cbeta, w.cy,
                 &w.incy)},
        {"DSPMV(%c,%d,%p,%p,%p,%d,%p,%p,%d)",
         ROUTINE("SSPMV", sspmv_, &w.uplo, &w.n, &w.salpha, w.sa, w.sx, &w.incx, &w.sbeta, w.sy, &w.incy)},
        {"DSPMV(%c,%d,%p,%p,%p,%d,%p,%p,%d)",
         ROUTINE("CHPMV", chpmv_, &w.uplo, &w.n, &w.calpha, w.ca, w.cx, &w.incx, &w.cbeta, w.cy, &w.incy)},
        {"DSYR(%c,%d,%p,%p,%d,%p,%d)", ROUTINE("SSYR", ssyr_, &w.uplo, &w.n, &w.salpha, w.sx, &w.incx, w.sa, &w.lda)},
        {"DSYR(%c,%d,%p,%p,%d,%p,%d)", ROUTINE("CHER", cher_, &w.uplo, &w.n, &w.salpha, w.cx, &w.incx, w.ca, &w.lda)},
        {"DSYR2(%c,%d,%p,%p,%d,%p,%d,%p,%d)",
         ROUTINE("SSYR2", ssyr2_, &w.uplo, &w.n, &w.salpha, w.sx, &w.incx, w.sy, &w.incy, w.sa, &w.lda)},
        {"DSYR2(%c,%d,%p,%p,%d,%p,%d,%p,%d)",
         ROUTINE("CHER2", cher2_, &w.uplo, &w.n, &w.calpha, w.cx, &w.incx, w.cy, &w.incy, w.ca, &w.lda)},
        {"DSPR(%c,%d,%p,%p,%d,%p)", ROUTINE("SSPR", sspr_, &w.uplo, &w.n, &w.salpha, w.sx, &w.incx, w.sa)},
        {"DSPR(%c,%d,%p,%p,%d,%p)", ROUTINE("CHPR", chpr_, &w.uplo, &w.n, &w.salpha, w.cx, &w.incx, w.ca)},
        {"DSPR2(%c,%d,%p,%p,%d,%p,%d,%p)",
         ROUTINE("SSPR2", sspr2_, &w.uplo, &w.n, &w.salpha, w.sx, &w.incx, w.sy, &w.incy, w.sa)},
        {"DSPR2(%c,%d,%p,%p,%d,%p,%d,%p)",
         ROUTINE("CHPR2", chpr2_, &w.uplo, &w.n, &w.calpha, w.cx, &w.incx, w.cy, &w.incy, w.ca)},
        {"DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)",
         ROUTINE("STRMV", strmv_, &w.uplo, &w.trans, &w.diag, &w.n, w.sa, &w.lda, w.sx, &w.incx)},
        {"DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)",
         ROUTINE("STRSV", strsv_, &w.uplo, &w.trans, &w.diag, &w.n, w.sa, &w.lda, w.sx, &w.incx)},
        {"DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)",
         ROUTINE("CTRMV", ctrmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.ca, &w.lda, w.cx, &w.incx)},
        {"DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)",
         ROUTINE("CTRSV", ctrsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.ca, &w.lda, w.cx, &w.incx)},
        {"DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)",
         ROUTINE("STBMV", stbmv_, &w.uplo, &w.trans, &w.diag, &w.n, &w.k, w.sa, &w.lda, w.sx, &w.incx)},
        {"DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)",
         ROUTINE("STBSV", stbsv_, &w.uplo, &w.trans, &w.diag, &w.n, &w.k, w.sa, &w.lda, w.sx, &w.incx)},
        {"DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)",
         ROUTINE("CTBMV", ctbmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, &w.k, w.ca, &w.lda, w.cx, &w.incx)},
        {"DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)",
         ROUTINE("CTBSV", ctbsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, &w.k, w.ca, &w.lda, w.cx, &w.incx)},
        {"DTPMV(%c,%c,%c,%d,%p,%p,%d)",
         ROUTINE("STPMV", stpmv_, &w.uplo, &w.trans, &w.diag, &w.n, w.sa, w.sx, &w.incx)},
        {"DTPMV(%c,%c,%c,%d,%p,%p,%d)",
         ROUTINE("STPSV", stpsv_, &w.uplo, &w.trans, &w.diag, &w.n, w.sa, w.sx, &w.incx)},
        {"DTPMV(%c,%c,%c,%d,%p,%p,%d)",
         ROUTINE("CTPMV", ctpmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.ca, w.cx, &w.incx)},
        {"DTPMV(%c,%c,%c,%d,%p,%p,%d)",
         ROUTINE("CTPSV", ctpsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.ca, w.cx, &w.incx)},
        {"DGEMM(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SGEMM", sgemm_, &w.trans, &w.transb, &w.m, &w.n, &w.k, &w.salpha, w.sa, &w.lda, w.sb, &w.ldb,
                 &w.sbeta, w.sc, &w.ldc)},
        {"DGEMM(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CGEMM", cgemm_, &w.ctrans, &w.transb, &w.m, &w.n, &w.k, &w.calpha, w.ca, &w.lda, w.cb, &w.ldb,
                 &w.cbeta, w.cc, &w.ldc)},
        {"DSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SSYMM", ssymm_, &w.side, &w.uplo, &w.m, &w.n, &w.salpha, w.sa, &w.lda, w.sb, &w.ldb, &w.sbeta,
                 w.sc, &w.ldc)},
        {"DSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CSYMM", csymm_, &w.side, &w.uplo, &w.m, &w.n, &w.calpha, w.ca, &w.lda, w.cb, &w.ldb, &w.cbeta,
                 w.cc, &w.ldc)},
        {"DSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CHEMM", chemm_, &w.side, &w.uplo, &w.m, &w.n, &w.calpha, w.ca, &w.lda, w.cb, &w.ldb, &w.cbeta,
                 w.cc, &w.ldc)},
        {"DSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)",
         ROUTINE("SSYRK", ssyrk_, &w.uplo, &w.trans, &w.n, &w.k, &w.salpha, w.sa, &w.lda, &w.sbeta, w.sc, &w.ldc)},
        {"DSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)",
         ROUTINE("CSYRK", csyrk_, &w.uplo, &w.trans, &w.n, &w.k, &w.calpha, w.ca, &w.lda, &w.cbeta, w.cc, &w.ldc)},
        {"DSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)",
         ROUTINE("CHERK", cherk_, &w.uplo, &w.ctrans, &w.n, &w.k, &w.salpha, w.ca, &w.lda, &w.sbeta, w.cc, &w.ldc)},
        {"DSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("SSYR2K", ssyr2k_, &w.uplo, &w.trans, &w.n, &w.k, &w.salpha, w.sa, &w.lda, w.sb, &w.ldb, &w.sbeta,
                 w.sc, &w.ldc)},
        {"DSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CSYR2K", csyr2k_, &w.uplo, &w.trans, &w.n, &w.k, &w.calpha, w.ca, &w.lda, w.cb, &w.ldb, &w.cbeta,
                 w.cc, &w.ldc)},
        {"DSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         ROUTINE("CHER2K", cher2k_, &w.uplo, &w.ctrans, &w.n, &w.k, &w.calpha, w.ca, &w.lda, w.cb, &w.ldb, &w.sbeta,
                 w.cc, &w.ldc)},
        {"DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)",
         ROUTINE("STRMM", strmm_, &w.side, &w.uplo, &w.trans, &w.diag, &w.m, &w.n, &w.salpha, w.sa, &w.lda, w.sb,
                 &w.ldb)},
        {"DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)",
         ROUTINE("STRSM", strsm_, &w.side, &w.uplo, &w.trans, &w.diag, &w.m, &w.n, &w.salpha, w.sa, &w.lda, w.sb,
                 &w.ldb)},
        {"DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)",
         ROUTINE("CTRMM", ctrmm_, &w.side, &w.uplo, &w.ctrans, &w.diag, &w.m, &w.n, &w.calpha, w.ca, &w.lda, w.cb,
                 &w.ldb)},
        {"DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)",
         ROUTINE("CTRSM", ctrsm_, &w.side, &w.uplo, &w.ctrans, &w.diag, &w.m, &w.n, &w.calpha, w.ca, &w.lda, w.cb,
                 &w.ldb)},
    };
    return extras;
}
constexpr std::size_t kRoutineCount = 73 + 75;
#else
constexpr std::size_t kRoutineCount = 73;
#endif

// The d/z rows, joined in the drop-in by its own routines.
std::vector<FormatRow> with_extra_routines(std::vector<FormatRow> rows)
{
#if defined(ORV_TEST_DROPIN)
    for (const ExtraRoutine& extra : extra_routines()) {
        auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const FormatRow& r) { return std::strcmp(r.format, extra.format) == 0; });
        if (row == rows.end()) ADD_FAILURE() << extra.routine.name << ": no row with format " << extra.format;
        else row->routines.push_back(extra.routine);
    }
#endif
    return rows;
}

const std::vector<FormatRow>& format_rows()
{
    static const std::vector<FormatRow> rows = with_extra_routines({
        {"DASUM(%d,%p,%d)",
         {ROUTINE("DASUM", dasum_, &w.n, w.x, &w.incx), ROUTINE("DNRM2", dnrm2_, &w.n, w.x, &w.incx),
          ROUTINE("DZASUM", dzasum_, &w.n, w.zx, &w.incx), ROUTINE("DZNRM2", dznrm2_, &w.n, w.zx, &w.incx),
          ROUTINE("IDAMAX", idamax_, &w.n, w.x, &w.incx), ROUTINE("IZAMAX", izamax_, &w.n, w.zx, &w.incx)}},
        {"DAXPY(%d,%p,%p,%d,%p,%d)",
         {ROUTINE("DAXPY", daxpy_, &w.n, &w.alpha, w.x, &w.incx, w.y, &w.incy),
          ROUTINE("ZAXPY", zaxpy_, &w.n, &w.zalpha, w.zx, &w.incx, w.zy, &w.incy)}},
        {"DCABS1(%p)", {ROUTINE("DCABS1", dcabs1_, &w.zalpha)}},
        {"DCOPY(%d,%p,%d,%p,%d)",
         {ROUTINE("DCOPY", dcopy_, &w.n, w.x, &w.incx, w.y, &w.incy),
          ROUTINE("DDOT", ddot_, &w.n, w.x, &w.incx, w.y, &w.incy),
          ROUTINE("DSWAP", dswap_, &w.n, w.x, &w.incx, w.y, &w.incy),
          ROUTINE("ZCOPY", zcopy_, &w.n, w.zx, &w.incx, w.zy, &w.incy),
          ROUTINE("ZSWAP", zswap_, &w.n, w.zx, &w.incx, w.zy, &w.incy)}},
#if defined(_WIN32)
        {"ZDOTC(%p,%d,%p,%d,%p,%d)",
         {ROUTINE("ZDOTC", zdotc_, &w.zresult, &w.n, w.zx, &w.incx, w.zy, &w.incy),
          ROUTINE("ZDOTU", zdotu_, &w.zresult, &w.n, w.zx, &w.incx, w.zy, &w.incy)}},
#else
        // The result comes back in registers: there is no result address.
        {"ZDOTC(%d,%p,%d,%p,%d)",
         {ROUTINE("ZDOTC", zdotc_, &w.n, w.zx, &w.incx, w.zy, &w.incy),
          ROUTINE("ZDOTU", zdotu_, &w.n, w.zx, &w.incx, w.zy, &w.incy)}},
#endif
        {"DSCAL(%d,%p,%p,%d)",
         {ROUTINE("DSCAL", dscal_, &w.n, &w.alpha, w.x, &w.incx),
          ROUTINE("ZSCAL", zscal_, &w.n, &w.zalpha, w.zx, &w.incx),
          ROUTINE("ZDSCAL", zdscal_, &w.n, &w.alpha, w.zx, &w.incx)}},
        {"DROT(%d,%p,%d,%p,%d,%p,%p)",
         {ROUTINE("DROT", drot_, &w.n, w.x, &w.incx, w.y, &w.incy, &w.cs, &w.sn),
          ROUTINE("ZDROT", zdrot_, &w.n, w.zx, &w.incx, w.zy, &w.incy, &w.cs, &w.sn)}},
        {"DROTG(%p,%p,%p,%p)",
         {ROUTINE("DROTG", drotg_, &w.ra, &w.rb, &w.cs, &w.sn),
          ROUTINE("ZROTG", zrotg_, &w.zalpha, &w.zbeta, &w.cs, &w.zs)}},
        {"DROTM(%d,%p,%d,%p,%d,%p)", {ROUTINE("DROTM", drotm_, &w.n, w.x, &w.incx, w.y, &w.incy, w.param)}},
        {"DROTMG(%p,%p,%p,%p,%p)", {ROUTINE("DROTMG", drotmg_, &w.d1, &w.d2, &w.x1, &w.y1, w.param)}},
        {"DGEMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DGEMV", dgemv_, &w.trans, &w.m, &w.n, &w.alpha, w.a, &w.lda, w.x, &w.incx, &w.beta, w.y, &w.incy),
          ROUTINE("ZGEMV", zgemv_, &w.trans, &w.m, &w.n, &w.zalpha, w.za, &w.lda, w.zx, &w.incx, &w.zbeta, w.zy,
                  &w.incy)}},
        {"DGBMV(%c,%d,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DGBMV", dgbmv_, &w.trans, &w.m, &w.n, &w.kl, &w.ku, &w.alpha, w.a, &w.lda, w.x, &w.incx, &w.beta,
                  w.y, &w.incy),
          ROUTINE("ZGBMV", zgbmv_, &w.trans, &w.m, &w.n, &w.kl, &w.ku, &w.zalpha, w.za, &w.lda, w.zx, &w.incx,
                  &w.zbeta, w.zy, &w.incy)}},
        {"DGER(%d,%d,%p,%p,%d,%p,%d,%p,%d)",
         {ROUTINE("DGER", dger_, &w.m, &w.n, &w.alpha, w.x, &w.incx, w.y, &w.incy, w.a, &w.lda),
          ROUTINE("ZGERC", zgerc_, &w.m, &w.n, &w.zalpha, w.zx, &w.incx, w.zy, &w.incy, w.za, &w.lda),
          ROUTINE("ZGERU", zgeru_, &w.m, &w.n, &w.zalpha, w.zx, &w.incx, w.zy, &w.incy, w.za, &w.lda)}},
        {"DSYMV(%c,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DSYMV", dsymv_, &w.uplo, &w.n, &w.alpha, w.a, &w.lda, w.x, &w.incx, &w.beta, w.y, &w.incy),
          ROUTINE("ZHEMV", zhemv_, &w.uplo, &w.n, &w.zalpha, w.za, &w.lda, w.zx, &w.incx, &w.zbeta, w.zy, &w.incy)}},
        {"DSBMV(%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DSBMV", dsbmv_, &w.uplo, &w.n, &w.k, &w.alpha, w.a, &w.lda, w.x, &w.incx, &w.beta, w.y, &w.incy),
          ROUTINE("ZHBMV", zhbmv_, &w.uplo, &w.n, &w.k, &w.zalpha, w.za, &w.lda, w.zx, &w.incx, &w.zbeta, w.zy,
                  &w.incy)}},
        {"DSPMV(%c,%d,%p,%p,%p,%d,%p,%p,%d)",
         {ROUTINE("DSPMV", dspmv_, &w.uplo, &w.n, &w.alpha, w.a, w.x, &w.incx, &w.beta, w.y, &w.incy),
          ROUTINE("ZHPMV", zhpmv_, &w.uplo, &w.n, &w.zalpha, w.za, w.zx, &w.incx, &w.zbeta, w.zy, &w.incy)}},
        {"DSYR(%c,%d,%p,%p,%d,%p,%d)",
         {ROUTINE("DSYR", dsyr_, &w.uplo, &w.n, &w.alpha, w.x, &w.incx, w.a, &w.lda),
          ROUTINE("ZHER", zher_, &w.uplo, &w.n, &w.alpha, w.zx, &w.incx, w.za, &w.lda)}},
        {"DSYR2(%c,%d,%p,%p,%d,%p,%d,%p,%d)",
         {ROUTINE("DSYR2", dsyr2_, &w.uplo, &w.n, &w.alpha, w.x, &w.incx, w.y, &w.incy, w.a, &w.lda),
          ROUTINE("ZHER2", zher2_, &w.uplo, &w.n, &w.zalpha, w.zx, &w.incx, w.zy, &w.incy, w.za, &w.lda)}},
        {"DSPR(%c,%d,%p,%p,%d,%p)",
         {ROUTINE("DSPR", dspr_, &w.uplo, &w.n, &w.alpha, w.x, &w.incx, w.a),
          ROUTINE("ZHPR", zhpr_, &w.uplo, &w.n, &w.alpha, w.zx, &w.incx, w.za)}},
        {"DSPR2(%c,%d,%p,%p,%d,%p,%d,%p)",
         {ROUTINE("DSPR2", dspr2_, &w.uplo, &w.n, &w.alpha, w.x, &w.incx, w.y, &w.incy, w.a),
          ROUTINE("ZHPR2", zhpr2_, &w.uplo, &w.n, &w.zalpha, w.zx, &w.incx, w.zy, &w.incy, w.za)}},
        {"DTRMV(%c,%c,%c,%d,%p,%d,%p,%d)",
         {ROUTINE("DTRMV", dtrmv_, &w.uplo, &w.trans, &w.diag, &w.n, w.a, &w.lda, w.x, &w.incx),
          ROUTINE("DTRSV", dtrsv_, &w.uplo, &w.trans, &w.diag, &w.n, w.a, &w.lda, w.x, &w.incx),
          ROUTINE("ZTRMV", ztrmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.za, &w.lda, w.zx, &w.incx),
          ROUTINE("ZTRSV", ztrsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.za, &w.lda, w.zx, &w.incx)}},
        {"DTBMV(%c,%c,%c,%d,%d,%p,%d,%p,%d)",
         {ROUTINE("DTBMV", dtbmv_, &w.uplo, &w.trans, &w.diag, &w.n, &w.k, w.a, &w.lda, w.x, &w.incx),
          ROUTINE("DTBSV", dtbsv_, &w.uplo, &w.trans, &w.diag, &w.n, &w.k, w.a, &w.lda, w.x, &w.incx),
          ROUTINE("ZTBMV", ztbmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, &w.k, w.za, &w.lda, w.zx, &w.incx),
          ROUTINE("ZTBSV", ztbsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, &w.k, w.za, &w.lda, w.zx, &w.incx)}},
        {"DTPMV(%c,%c,%c,%d,%p,%p,%d)",
         {ROUTINE("DTPMV", dtpmv_, &w.uplo, &w.trans, &w.diag, &w.n, w.a, w.x, &w.incx),
          ROUTINE("DTPSV", dtpsv_, &w.uplo, &w.trans, &w.diag, &w.n, w.a, w.x, &w.incx),
          ROUTINE("ZTPMV", ztpmv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.za, w.zx, &w.incx),
          ROUTINE("ZTPSV", ztpsv_, &w.uplo, &w.ctrans, &w.diag, &w.n, w.za, w.zx, &w.incx)}},
        {"DGEMM(%c,%c,%d,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DGEMM", dgemm_, &w.trans, &w.transb, &w.m, &w.n, &w.k, &w.alpha, w.a, &w.lda, w.b, &w.ldb,
                  &w.beta, w.c, &w.ldc),
          ROUTINE("ZGEMM", zgemm_, &w.ctrans, &w.transb, &w.m, &w.n, &w.k, &w.zalpha, w.za, &w.lda, w.zb, &w.ldb,
                  &w.zbeta, w.zc, &w.ldc)}},
        {"DSYMM(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DSYMM", dsymm_, &w.side, &w.uplo, &w.m, &w.n, &w.alpha, w.a, &w.lda, w.b, &w.ldb, &w.beta, w.c,
                  &w.ldc),
          ROUTINE("ZSYMM", zsymm_, &w.side, &w.uplo, &w.m, &w.n, &w.zalpha, w.za, &w.lda, w.zb, &w.ldb, &w.zbeta,
                  w.zc, &w.ldc),
          ROUTINE("ZHEMM", zhemm_, &w.side, &w.uplo, &w.m, &w.n, &w.zalpha, w.za, &w.lda, w.zb, &w.ldb, &w.zbeta,
                  w.zc, &w.ldc)}},
        {"DSYRK(%c,%c,%d,%d,%p,%p,%d,%p,%p,%d)",
         {ROUTINE("DSYRK", dsyrk_, &w.uplo, &w.trans, &w.n, &w.k, &w.alpha, w.a, &w.lda, &w.beta, w.c, &w.ldc),
          ROUTINE("ZSYRK", zsyrk_, &w.uplo, &w.trans, &w.n, &w.k, &w.zalpha, w.za, &w.lda, &w.zbeta, w.zc, &w.ldc),
          ROUTINE("ZHERK", zherk_, &w.uplo, &w.ctrans, &w.n, &w.k, &w.alpha, w.za, &w.lda, &w.beta, w.zc, &w.ldc)}},
        {"DSYR2K(%c,%c,%d,%d,%p,%p,%d,%p,%d,%p,%p,%d)",
         {ROUTINE("DSYR2K", dsyr2k_, &w.uplo, &w.trans, &w.n, &w.k, &w.alpha, w.a, &w.lda, w.b, &w.ldb, &w.beta, w.c,
                  &w.ldc),
          ROUTINE("ZSYR2K", zsyr2k_, &w.uplo, &w.trans, &w.n, &w.k, &w.zalpha, w.za, &w.lda, w.zb, &w.ldb, &w.zbeta,
                  w.zc, &w.ldc),
          ROUTINE("ZHER2K", zher2k_, &w.uplo, &w.ctrans, &w.n, &w.k, &w.zalpha, w.za, &w.lda, w.zb, &w.ldb, &w.beta,
                  w.zc, &w.ldc)}},
        {"DTRMM(%c,%c,%c,%c,%d,%d,%p,%p,%d,%p,%d)",
         {ROUTINE("DTRMM", dtrmm_, &w.side, &w.uplo, &w.trans, &w.diag, &w.m, &w.n, &w.alpha, w.a, &w.lda, w.b,
                  &w.ldb),
          ROUTINE("DTRSM", dtrsm_, &w.side, &w.uplo, &w.trans, &w.diag, &w.m, &w.n, &w.alpha, w.a, &w.lda, w.b,
                  &w.ldb),
          ROUTINE("ZTRMM", ztrmm_, &w.side, &w.uplo, &w.ctrans, &w.diag, &w.m, &w.n, &w.zalpha, w.za, &w.lda, w.zb,
                  &w.ldb),
          ROUTINE("ZTRSM", ztrsm_, &w.side, &w.uplo, &w.ctrans, &w.diag, &w.m, &w.n, &w.zalpha, w.za, &w.lda, w.zb,
                  &w.ldb)}},
    });
    return rows;
}

#undef ROUTINE

struct TracedCall {
    const FormatRow* row;
    const Routine* routine;
};

std::vector<TracedCall> all_calls()
{
    std::vector<TracedCall> calls;
    for (const FormatRow& row : format_rows())
        for (const Routine& routine : row.routines) calls.push_back({&row, &routine});
    return calls;
}

// The call text `format` yields for `args` under `name`, formed with this
// program's own printf; a conversion whose kind does not match the argument
// recorded at its place fails the test, so the table can only pass with the
// format's exact argument list.
std::string expected_call_text(const std::string& name, const char* format, const std::vector<Arg>& args)
{
    std::string text = name;
    std::size_t next = 0;
    for (const char* f = std::strchr(format, '('); *f != '\0'; ++f) {
        if (*f != '%') {
            text += *f;
            continue;
        }
        const char kind = *++f;
        if (next >= args.size() || args[next].kind != kind) {
            ADD_FAILURE() << name << ": argument " << next + 1 << " is not a %" << kind;
            return text;
        }
        const Arg& arg = args[next++];
        char field[64];
        if (kind == 'c')
            std::snprintf(field, sizeof field, "%c", static_cast<char>(arg.value));
        else if (kind == 'd')
            std::snprintf(field, sizeof field, "%d", arg.value);
        else
            std::snprintf(field, sizeof field, "%p", arg.address);
        text += field;
    }
    if (next != args.size()) ADD_FAILURE() << name << ": " << args.size() - next << " arguments left over";
    return text;
}

#if defined(_WIN32)
// The comma-separated fields between the parentheses of a call text.
std::vector<std::string> call_fields(const std::string& text)
{
    std::vector<std::string> fields;
    const std::size_t open = text.find('(');
    if (open == std::string::npos || text.back() != ')') return fields;
    for (std::size_t at = open + 1;;) {
        const std::size_t comma = text.find(',', at);
        fields.push_back(text.substr(at, (comma == std::string::npos ? text.size() - 1 : comma) - at));
        if (comma == std::string::npos) break;
        at = comma + 1;
    }
    return fields;
}

bool hex_value(const std::string& text, unsigned long long& value)
{
    char* end = nullptr;
    value = std::strtoull(text.c_str(), &end, 16);
    return !text.empty() && *end == '\0';
}
#endif

// On Windows the library prints through the C runtime it finds at run time,
// which need not be this program's: there an address may be printed in
// another form, but it must still be the same address. Everything else, and
// everything on other systems, must match exactly.
::testing::AssertionResult call_text_matches(const std::string& actual, const std::string& expected,
                                             [[maybe_unused]] const char* format)
{
    if (actual == expected) return ::testing::AssertionSuccess();
    const auto failure = ::testing::AssertionFailure()
                         << "call text \"" << actual << "\", expected \"" << expected << '"';
#if defined(_WIN32)
    const std::string name = expected.substr(0, expected.find('('));
    const auto got = call_fields(actual), want = call_fields(expected);
    if (actual.compare(0, name.size() + 1, name + "(") != 0 || got.size() != want.size()) return failure;
    std::size_t i = 0;
    for (const char* f = std::strchr(format, '%'); f != nullptr && i < got.size(); f = std::strchr(f + 1, '%'), ++i) {
        unsigned long long a = 0, b = 0;
        const bool same = got[i] == want[i] ||
                          (f[1] == 'p' && hex_value(got[i], a) && hex_value(want[i], b) && a == b);
        if (!same) return failure;
    }
    return ::testing::AssertionSuccess();
#else
    return failure;
#endif
}

// The elapsed-time field: seconds above 1 s, milliseconds and microseconds
// with two decimals in (1, 1000], whole nanoseconds up to 1000.
::testing::AssertionResult elapsed_matches(const std::string& text)
{
    static const std::regex form("([0-9]+\\.[0-9]{2})(s|ms|us)|([0-9]+)ns");
    std::smatch m;
    if (!std::regex_match(text, m, form)) return ::testing::AssertionFailure() << "elapsed \"" << text << '"';
    const bool fits = m[3].matched ? std::stod(m[3]) <= 1000.0
                      : m[2] == "s" ? std::stod(m[1]) >= 1.0
                                    : std::stod(m[1]) >= 1.0 && std::stod(m[1]) <= 1000.0;
    if (!fits) return ::testing::AssertionFailure() << "elapsed \"" << text << "\" outside its unit's range";
    return ::testing::AssertionSuccess();
}

struct TraceLine {
    std::string call_text, elapsed, configuration;
};

// Splits "ORV_VERBOSE <call text> <elapsed><configuration>"; the call text
// and the elapsed time hold no blanks, the configuration starts with one.
bool split_trace_line(const std::string& line, TraceLine& out)
{
    const std::string head = "ORV_VERBOSE ";
    if (line.compare(0, head.size(), head) != 0) return false;
    const std::size_t call_end = line.find(' ', head.size());
    if (call_end == std::string::npos) return false;
    const std::size_t elapsed_end = line.find(' ', call_end + 1);
    if (elapsed_end == std::string::npos) return false;
    out.call_text = line.substr(head.size(), call_end - head.size());
    out.elapsed = line.substr(call_end + 1, elapsed_end - call_end - 1);
    out.configuration = line.substr(elapsed_end);
    return true;
}

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

bool is_banner(const std::string& line) { return line.rfind("ORV_VERBOSE Calix(R) ORV ", 0) == 0; }

std::string configuration(const char* branch, int dynamic, int fast_mm, const std::string& threads)
{
    return std::string(" CNR:") + branch + " Dyn:" + std::to_string(dynamic) + " FastMM:" +
           std::to_string(fast_mm) + " TID:0  NThr:" + threads + " WDiv:HOST:+1.000";
}

// Every child starts from the library's defaults for the fields of the
// line, whatever the environment of the test run; `overrides` then apply.
std::vector<EnvChange> child_env(const std::vector<EnvChange>& overrides)
{
    std::vector<EnvChange> env = {{"ORV_VERBOSE", "1"},         {"ORV_CBWR", nullptr},
                                  {"ORV_DYNAMIC", nullptr},     {"ORV_DISABLE_FAST_MM", nullptr},
                                  {"ORV_NUM_THREADS", nullptr}, {"ORV_DOMAIN_NUM_THREADS", nullptr}};
    for (const EnvChange& change : overrides) {
        bool replaced = false;
        for (EnvChange& e : env)
            if (e.first == change.first) e.second = change.second, replaced = true;
        if (!replaced) env.push_back(change);
    }
    return env;
}

TEST(TraceTable, CoversEveryBlasRoutineOnce)
{
    EXPECT_EQ(format_rows().size(), 28u);
    std::set<std::string> names;
    for (const TracedCall& c : all_calls()) EXPECT_TRUE(names.insert(c.routine->name).second) << c.routine->name;
    EXPECT_EQ(names.size(), kRoutineCount);
}

constexpr const char* kExpectPrefix = "@@expect@@ ";

// Case 0 reports the thread count the lines must show; then one case per
// routine, in table order. Addresses mean something only in this process, so
// each case ends with the expected call text formed here.
TEST(Trace, DISABLED_ChildCallsEveryRoutine)
{
    orvtest::child_marker(orvtest::kCaseMarker);
    std::printf("%d\n", orv_get_max_threads());
    for (const TracedCall& c : all_calls()) {
        Work work;
        orvtest::child_marker(orvtest::kCaseMarker);
        const std::vector<Arg> args = c.routine->run(work);
        const std::string expected = expected_call_text(c.routine->name, c.row->format, args);
        std::printf("%s%s\n", kExpectPrefix, expected.c_str());
        std::fflush(stdout);
    }
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Trace, EveryRoutinePrintsOneLineWithItsCallText)
{
    const auto child = orvtest::run_child("Trace.DISABLED_ChildCallsEveryRoutine", child_env({}));
    ASSERT_EQ(child.status, 0) << child.out;
    const auto calls = all_calls();
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), calls.size() + 1) << child.out;
    const std::string threads = printed[0].substr(0, printed[0].find('\n'));
    const std::string expected_configuration = configuration("OFF", 1, 1, threads);

    for (std::size_t i = 0; i < calls.size(); ++i) {
        const std::string name = calls[i].routine->name;
        std::vector<std::string> lines = lines_of(printed[i + 1]);
        // The banner comes once, right before the first trace line.
        if (i == 0) {
            ASSERT_FALSE(lines.empty());
            EXPECT_TRUE(is_banner(lines.front())) << lines.front();
            lines.erase(lines.begin());
        }
        ASSERT_EQ(lines.size(), 2u) << name << ":\n" << printed[i + 1];
        ASSERT_EQ(lines[1].rfind(kExpectPrefix, 0), 0u) << lines[1];
        const std::string expected = lines[1].substr(std::strlen(kExpectPrefix));

        TraceLine line;
        ASSERT_TRUE(split_trace_line(lines[0], line)) << lines[0];
        EXPECT_TRUE(call_text_matches(line.call_text, expected, calls[i].row->format)) << name;
        EXPECT_TRUE(elapsed_matches(line.elapsed)) << name;
        EXPECT_EQ(line.configuration, expected_configuration) << name;
    }
}

// Many threads make their first traced calls at the same moment: the banner
// still comes exactly once, before every trace line, and every line is whole.
constexpr int kRacingThreads = 8;
constexpr int kRacingCalls = 16;

TEST(Trace, DISABLED_ChildRacesFirstCalls)
{
    std::atomic<int> ready{0};
    std::atomic<bool> go{false};
    orvtest::child_marker(orvtest::kCaseMarker);
    std::vector<std::thread> threads;
    for (int t = 0; t < kRacingThreads; ++t)
        threads.emplace_back([&] {
            Work work;
            ready.fetch_add(1);
            while (!go.load(std::memory_order_acquire)) {
            }
            for (int call = 0; call < kRacingCalls; ++call) ddot_(&work.n, work.x, &work.incx, work.y, &work.incy);
        });
    while (ready.load() < kRacingThreads) std::this_thread::yield();
    go.store(true, std::memory_order_release);
    for (std::thread& t : threads) t.join();
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Trace, BannerOnceWhenThreadsRaceToTheFirstCall)
{
    const auto child = orvtest::run_child("Trace.DISABLED_ChildRacesFirstCalls", child_env({}));
    ASSERT_EQ(child.status, 0) << child.out;
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), 1u) << child.out;
    const auto lines = lines_of(printed[0]);
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(is_banner(lines.front())) << printed[0];
    int banners = 0, traced = 0;
    for (const std::string& line : lines) {
        if (is_banner(line)) {
            ++banners;
            continue;
        }
        TraceLine parsed;
        EXPECT_TRUE(split_trace_line(line, parsed) && parsed.call_text.rfind("DDOT(", 0) == 0) << line;
        ++traced;
    }
    EXPECT_EQ(banners, 1) << printed[0];
    EXPECT_EQ(traced, kRacingThreads * kRacingCalls) << printed[0];
}

TEST(Trace, DISABLED_ChildCallsOnce)
{
    Work work;
    orvtest::child_marker(orvtest::kCaseMarker);
    ddot_(&work.n, work.x, &work.incx, work.y, &work.incy);
    orvtest::child_marker(orvtest::kEndMarker);
}

TEST(Trace, ConfigurationFieldsFollowTheEnvironment)
{
    const struct {
        std::vector<EnvChange> env;
        std::string configuration;
    } cases[] = {
        // A domain count that differs from the general one is listed after it.
        {{{"ORV_DOMAIN_NUM_THREADS", "ORV_DOMAIN_BLAS=1"},
          {"ORV_CBWR", "COMPATIBLE"},
          {"ORV_NUM_THREADS", "3"},
          {"ORV_DYNAMIC", "false"}},
         configuration("COMPATIBLE", 0, 1, "3,BLAS:1")},
        {{{"ORV_DISABLE_FAST_MM", "1"}, {"ORV_CBWR", "AUTO"}, {"ORV_NUM_THREADS", "1"}},
         configuration("AUTO", 1, 0, "1")},
    };
    for (const auto& c : cases) {
        const auto child = orvtest::run_child("Trace.DISABLED_ChildCallsOnce", child_env(c.env));
        ASSERT_EQ(child.status, 0) << child.out;
        const auto printed = orvtest::split_cases(child.out);
        ASSERT_EQ(printed.size(), 1u) << child.out;
        const auto lines = lines_of(printed[0]);
        ASSERT_EQ(lines.size(), 2u) << printed[0];
        EXPECT_TRUE(is_banner(lines[0])) << lines[0];
        TraceLine line;
        ASSERT_TRUE(split_trace_line(lines[1], line)) << lines[1];
        EXPECT_EQ(line.call_text.rfind("DDOT(", 0), 0u) << lines[1];
        EXPECT_EQ(line.configuration, c.configuration) << lines[1];
    }
}

}  // namespace
