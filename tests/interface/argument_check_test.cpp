// Argument checking through the real exports: one table row per checker,
// each case one bad (or one deliberately valid) argument. A failing call
// must print exactly the position report and leave every array untouched;
// a valid one must print nothing but trace lines.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "child_process.h"
#include "orv.h"
#include "orv_test.h"

namespace {

using orvtest::Guarded;
using orvtest::zcomplex;

// Defaults are valid for every routine and keep m, n and k distinct, so a
// minimum leading dimension taken from the wrong dimension shows.
struct Args {
    char side = 'L', uplo = 'U', trans = 'N', transb = 'N', diag = 'N';
    int m = 3, n = 5, k = 2, kl = 1, ku = 1, lda = 6, ldb = 6, ldc = 6, incx = 1, incy = 1;
};

// Large enough for every valid case; the guard values double as data.
struct Buffers {
    static constexpr std::size_t kSize = 64;
    Guarded<double> a{kSize}, b{kSize}, c{kSize}, x{kSize}, y{kSize};
    Guarded<zcomplex> za{kSize}, zb{kSize}, zc{kSize}, zx{kSize}, zy{kSize};
    double alpha = 0.5, beta = 0.25;
    zcomplex zalpha{0.5, -0.25}, zbeta{0.25, 0.125};

    struct Snapshot {
        std::vector<std::vector<double>> d;
        std::vector<std::vector<zcomplex>> z;
    };
    Snapshot snapshot() const
    {
        return {{a.snapshot(), b.snapshot(), c.snapshot(), x.snapshot(), y.snapshot()},
                {za.snapshot(), zb.snapshot(), zc.snapshot(), zx.snapshot(), zy.snapshot()}};
    }
    bool unchanged(const Snapshot& s) const
    {
        return a.equals(s.d[0]) && b.equals(s.d[1]) && c.equals(s.d[2]) && x.equals(s.d[3]) && y.equals(s.d[4]) &&
               za.equals(s.z[0]) && zb.equals(s.z[1]) && zc.equals(s.z[2]) && zx.equals(s.z[3]) &&
               zy.equals(s.z[4]);
    }
};

using Call = void (*)(Args&, Buffers&);
using Mutate = void (*)(Args&);

struct Routine {
    const char* name;  // as reported: 6 characters, blank-padded
    Call call;
};

struct Case {
    int position;  // 0: the call is valid
    Mutate mutate;
};

struct CheckerRow {
    std::vector<Routine> routines;
    std::vector<Case> cases;
};

#define ROUTINE(name6, body) Routine{name6, [](Args& g, Buffers& b) { body; }}

const Routine kGemm[] = {
    ROUTINE("DGEMM ", dgemm_(&g.trans, &g.transb, &g.m, &g.n, &g.k, &b.alpha, b.a.data(), &g.lda, b.b.data(), &g.ldb,
                             &b.beta, b.c.data(), &g.ldc)),
    ROUTINE("ZGEMM ", zgemm_(&g.trans, &g.transb, &g.m, &g.n, &g.k, &b.zalpha, b.za.data(), &g.lda, b.zb.data(),
                             &g.ldb, &b.zbeta, b.zc.data(), &g.ldc)),
};

const std::vector<CheckerRow>& checker_rows()
{
    static const std::vector<CheckerRow> rows = {
        {{kGemm[0], kGemm[1]},
         {{1, [](Args& g) { g.trans = 'x'; }},
          {2, [](Args& g) { g.transb = 'x'; }},
          {3, [](Args& g) { g.m = -1; }},
          {4, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.k = -1; }},
          {8, [](Args& g) { g.lda = 2; }},
          {10, [](Args& g) { g.ldb = 1; }},
          {13, [](Args& g) { g.ldc = 2; }},
          {1, [](Args& g) { g.trans = 'x'; g.m = -1; }},
          {8, [](Args& g) { g.trans = 'T'; g.lda = 1; }},
          {0, [](Args& g) { g.trans = 't'; g.lda = 2; }},
          {10, [](Args& g) { g.transb = 'C'; g.ldb = 4; }},
          {0, [](Args& g) { g.transb = 'c'; g.ldb = 5; }},
          {8, [](Args& g) { g.m = 0; g.lda = 0; }},
          {0, [](Args& g) { g.m = 0; g.lda = 1; }}}},
        {{ROUTINE("DGEMV ", dgemv_(&g.trans, &g.m, &g.n, &b.alpha, b.a.data(), &g.lda, b.x.data(), &g.incx, &b.beta,
                                   b.y.data(), &g.incy)),
          ROUTINE("ZGEMV ", zgemv_(&g.trans, &g.m, &g.n, &b.zalpha, b.za.data(), &g.lda, b.zx.data(), &g.incx,
                                   &b.zbeta, b.zy.data(), &g.incy))},
         {{1, [](Args& g) { g.trans = 'x'; }},
          {2, [](Args& g) { g.m = -1; }},
          {3, [](Args& g) { g.n = -1; }},
          {6, [](Args& g) { g.lda = 2; }},
          {8, [](Args& g) { g.incx = 0; }},
          {11, [](Args& g) { g.incy = 0; }},
          {6, [](Args& g) { g.m = 0; g.lda = 0; }},
          {0, [](Args& g) { g.m = 0; g.lda = 1; }},
          {0, [](Args& g) { g.trans = 'c'; g.incx = -2; g.incy = -1; }}}},
        {{ROUTINE("DGBMV ", dgbmv_(&g.trans, &g.m, &g.n, &g.kl, &g.ku, &b.alpha, b.a.data(), &g.lda, b.x.data(),
                                   &g.incx, &b.beta, b.y.data(), &g.incy)),
          ROUTINE("ZGBMV ", zgbmv_(&g.trans, &g.m, &g.n, &g.kl, &g.ku, &b.zalpha, b.za.data(), &g.lda, b.zx.data(),
                                   &g.incx, &b.zbeta, b.zy.data(), &g.incy))},
         {{1, [](Args& g) { g.trans = 'x'; }},
          {2, [](Args& g) { g.m = -1; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.kl = -1; }},
          {5, [](Args& g) { g.ku = -1; }},
          {8, [](Args& g) { g.lda = 2; }},
          {10, [](Args& g) { g.incx = 0; }},
          {13, [](Args& g) { g.incy = 0; }},
          {0, [](Args& g) { g.lda = 3; }},
          {8, [](Args& g) { g.kl = 0; g.ku = 0; g.lda = 0; }},
          {0, [](Args& g) { g.kl = 0; g.ku = 0; g.lda = 1; }}}},
        {{ROUTINE("DGER  ", dger_(&g.m, &g.n, &b.alpha, b.x.data(), &g.incx, b.y.data(), &g.incy, b.a.data(), &g.lda)),
          ROUTINE("ZGERU ", zgeru_(&g.m, &g.n, &b.zalpha, b.zx.data(), &g.incx, b.zy.data(), &g.incy, b.za.data(),
                                   &g.lda)),
          ROUTINE("ZGERC ", zgerc_(&g.m, &g.n, &b.zalpha, b.zx.data(), &g.incx, b.zy.data(), &g.incy, b.za.data(),
                                   &g.lda))},
         {{1, [](Args& g) { g.m = -1; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.incx = 0; }},
          {7, [](Args& g) { g.incy = 0; }},
          {9, [](Args& g) { g.lda = 2; }},
          {1, [](Args& g) { g.m = -1; g.lda = 0; }},
          {9, [](Args& g) { g.m = 0; g.lda = 0; }}}},
        {{ROUTINE("DSYMV ", dsymv_(&g.uplo, &g.n, &b.alpha, b.a.data(), &g.lda, b.x.data(), &g.incx, &b.beta,
                                   b.y.data(), &g.incy)),
          ROUTINE("ZHEMV ", zhemv_(&g.uplo, &g.n, &b.zalpha, b.za.data(), &g.lda, b.zx.data(), &g.incx, &b.zbeta,
                                   b.zy.data(), &g.incy))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.lda = 4; }},
          {7, [](Args& g) { g.incx = 0; }},
          {10, [](Args& g) { g.incy = 0; }}}},
        {{ROUTINE("DSBMV ", dsbmv_(&g.uplo, &g.n, &g.k, &b.alpha, b.a.data(), &g.lda, b.x.data(), &g.incx, &b.beta,
                                   b.y.data(), &g.incy)),
          ROUTINE("ZHBMV ", zhbmv_(&g.uplo, &g.n, &g.k, &b.zalpha, b.za.data(), &g.lda, b.zx.data(), &g.incx,
                                   &b.zbeta, b.zy.data(), &g.incy))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {3, [](Args& g) { g.k = -1; }},
          {6, [](Args& g) { g.lda = 2; }},
          {8, [](Args& g) { g.incx = 0; }},
          {11, [](Args& g) { g.incy = 0; }},
          {0, [](Args& g) { g.lda = 3; }}}},
        {{ROUTINE("DSPMV ", dspmv_(&g.uplo, &g.n, &b.alpha, b.a.data(), b.x.data(), &g.incx, &b.beta, b.y.data(),
                                   &g.incy)),
          ROUTINE("ZHPMV ", zhpmv_(&g.uplo, &g.n, &b.zalpha, b.za.data(), b.zx.data(), &g.incx, &b.zbeta, b.zy.data(),
                                   &g.incy))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {6, [](Args& g) { g.incx = 0; }},
          {9, [](Args& g) { g.incy = 0; }}}},
        {{ROUTINE("DSYR  ", dsyr_(&g.uplo, &g.n, &b.alpha, b.x.data(), &g.incx, b.a.data(), &g.lda)),
          ROUTINE("ZHER  ", zher_(&g.uplo, &g.n, &b.alpha, b.zx.data(), &g.incx, b.za.data(), &g.lda))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.incx = 0; }},
          {7, [](Args& g) { g.lda = 4; }}}},
        {{ROUTINE("DSYR2 ", dsyr2_(&g.uplo, &g.n, &b.alpha, b.x.data(), &g.incx, b.y.data(), &g.incy, b.a.data(),
                                   &g.lda)),
          ROUTINE("ZHER2 ", zher2_(&g.uplo, &g.n, &b.zalpha, b.zx.data(), &g.incx, b.zy.data(), &g.incy, b.za.data(),
                                   &g.lda))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.incx = 0; }},
          {7, [](Args& g) { g.incy = 0; }},
          {9, [](Args& g) { g.lda = 4; }}}},
        {{ROUTINE("DSPR  ", dspr_(&g.uplo, &g.n, &b.alpha, b.x.data(), &g.incx, b.a.data())),
          ROUTINE("ZHPR  ", zhpr_(&g.uplo, &g.n, &b.alpha, b.zx.data(), &g.incx, b.za.data()))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.incx = 0; }}}},
        {{ROUTINE("DSPR2 ", dspr2_(&g.uplo, &g.n, &b.alpha, b.x.data(), &g.incx, b.y.data(), &g.incy, b.a.data())),
          ROUTINE("ZHPR2 ", zhpr2_(&g.uplo, &g.n, &b.zalpha, b.zx.data(), &g.incx, b.zy.data(), &g.incy, b.za.data()))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.incx = 0; }},
          {7, [](Args& g) { g.incy = 0; }}}},
        {{ROUTINE("DTRMV ", dtrmv_(&g.uplo, &g.trans, &g.diag, &g.n, b.a.data(), &g.lda, b.x.data(), &g.incx)),
          ROUTINE("DTRSV ", dtrsv_(&g.uplo, &g.trans, &g.diag, &g.n, b.a.data(), &g.lda, b.x.data(), &g.incx)),
          ROUTINE("ZTRMV ", ztrmv_(&g.uplo, &g.trans, &g.diag, &g.n, b.za.data(), &g.lda, b.zx.data(), &g.incx)),
          ROUTINE("ZTRSV ", ztrsv_(&g.uplo, &g.trans, &g.diag, &g.n, b.za.data(), &g.lda, b.zx.data(), &g.incx))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'x'; }},
          {3, [](Args& g) { g.diag = 'x'; }},
          {4, [](Args& g) { g.n = -1; }},
          {6, [](Args& g) { g.lda = 4; }},
          {8, [](Args& g) { g.incx = 0; }},
          {2, [](Args& g) { g.trans = 'x'; g.diag = 'x'; g.n = -1; }}}},
        {{ROUTINE("DTBMV ", dtbmv_(&g.uplo, &g.trans, &g.diag, &g.n, &g.k, b.a.data(), &g.lda, b.x.data(), &g.incx)),
          ROUTINE("DTBSV ", dtbsv_(&g.uplo, &g.trans, &g.diag, &g.n, &g.k, b.a.data(), &g.lda, b.x.data(), &g.incx)),
          ROUTINE("ZTBMV ", ztbmv_(&g.uplo, &g.trans, &g.diag, &g.n, &g.k, b.za.data(), &g.lda, b.zx.data(), &g.incx)),
          ROUTINE("ZTBSV ", ztbsv_(&g.uplo, &g.trans, &g.diag, &g.n, &g.k, b.za.data(), &g.lda, b.zx.data(), &g.incx))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'x'; }},
          {3, [](Args& g) { g.diag = 'x'; }},
          {4, [](Args& g) { g.n = -1; }},
          {5, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 2; }},
          {9, [](Args& g) { g.incx = 0; }},
          {7, [](Args& g) { g.k = 0; g.lda = 0; }},
          {0, [](Args& g) { g.k = 0; g.lda = 1; }}}},
        {{ROUTINE("DTPMV ", dtpmv_(&g.uplo, &g.trans, &g.diag, &g.n, b.a.data(), b.x.data(), &g.incx)),
          ROUTINE("DTPSV ", dtpsv_(&g.uplo, &g.trans, &g.diag, &g.n, b.a.data(), b.x.data(), &g.incx)),
          ROUTINE("ZTPMV ", ztpmv_(&g.uplo, &g.trans, &g.diag, &g.n, b.za.data(), b.zx.data(), &g.incx)),
          ROUTINE("ZTPSV ", ztpsv_(&g.uplo, &g.trans, &g.diag, &g.n, b.za.data(), b.zx.data(), &g.incx))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'x'; }},
          {3, [](Args& g) { g.diag = 'x'; }},
          {4, [](Args& g) { g.n = -1; }},
          {7, [](Args& g) { g.incx = 0; }}}},
        {{ROUTINE("DSYMM ", dsymm_(&g.side, &g.uplo, &g.m, &g.n, &b.alpha, b.a.data(), &g.lda, b.b.data(), &g.ldb,
                                   &b.beta, b.c.data(), &g.ldc)),
          ROUTINE("ZSYMM ", zsymm_(&g.side, &g.uplo, &g.m, &g.n, &b.zalpha, b.za.data(), &g.lda, b.zb.data(), &g.ldb,
                                   &b.zbeta, b.zc.data(), &g.ldc)),
          ROUTINE("ZHEMM ", zhemm_(&g.side, &g.uplo, &g.m, &g.n, &b.zalpha, b.za.data(), &g.lda, b.zb.data(), &g.ldb,
                                   &b.zbeta, b.zc.data(), &g.ldc))},
         {{1, [](Args& g) { g.side = 'x'; }},
          {2, [](Args& g) { g.uplo = 'x'; }},
          {3, [](Args& g) { g.m = -1; }},
          {4, [](Args& g) { g.n = -1; }},
          {7, [](Args& g) { g.lda = 2; }},
          {9, [](Args& g) { g.ldb = 2; }},
          {12, [](Args& g) { g.ldc = 2; }},
          {7, [](Args& g) { g.side = 'R'; g.lda = 4; }},
          {0, [](Args& g) { g.side = 'r'; g.lda = 5; }},
          {0, [](Args& g) { g.lda = 3; g.ldb = 3; g.ldc = 3; }}}},
        {{ROUTINE("DSYRK ", dsyrk_(&g.uplo, &g.trans, &g.n, &g.k, &b.alpha, b.a.data(), &g.lda, &b.beta, b.c.data(),
                                   &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'x'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {10, [](Args& g) { g.ldc = 4; }},
          {7, [](Args& g) { g.trans = 'T'; g.lda = 1; }},
          {0, [](Args& g) { g.trans = 't'; g.lda = 2; }},
          {0, [](Args& g) { g.trans = 'c'; g.lda = 2; }}}},
        {{ROUTINE("ZSYRK ", zsyrk_(&g.uplo, &g.trans, &g.n, &g.k, &b.zalpha, b.za.data(), &g.lda, &b.zbeta,
                                   b.zc.data(), &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'C'; }},
          {2, [](Args& g) { g.trans = 'c'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {10, [](Args& g) { g.ldc = 4; }},
          {7, [](Args& g) { g.trans = 'T'; g.lda = 1; }},
          {0, [](Args& g) { g.trans = 't'; g.lda = 2; }}}},
        {{ROUTINE("ZHERK ", zherk_(&g.uplo, &g.trans, &g.n, &g.k, &b.alpha, b.za.data(), &g.lda, &b.beta, b.zc.data(),
                                   &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'T'; }},
          {2, [](Args& g) { g.trans = 't'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {10, [](Args& g) { g.ldc = 4; }},
          {7, [](Args& g) { g.trans = 'C'; g.lda = 1; }},
          {0, [](Args& g) { g.trans = 'c'; g.lda = 2; }}}},
        {{ROUTINE("DSYR2K", dsyr2k_(&g.uplo, &g.trans, &g.n, &g.k, &b.alpha, b.a.data(), &g.lda, b.b.data(), &g.ldb,
                                    &b.beta, b.c.data(), &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'x'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {9, [](Args& g) { g.ldb = 4; }},
          {12, [](Args& g) { g.ldc = 4; }},
          {9, [](Args& g) { g.trans = 'T'; g.lda = 2; g.ldb = 1; }},
          {0, [](Args& g) { g.trans = 'c'; g.lda = 2; g.ldb = 2; }}}},
        {{ROUTINE("ZSYR2K", zsyr2k_(&g.uplo, &g.trans, &g.n, &g.k, &b.zalpha, b.za.data(), &g.lda, b.zb.data(), &g.ldb,
                                    &b.zbeta, b.zc.data(), &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'C'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {9, [](Args& g) { g.ldb = 4; }},
          {12, [](Args& g) { g.ldc = 4; }},
          {9, [](Args& g) { g.trans = 'T'; g.lda = 2; g.ldb = 1; }},
          {0, [](Args& g) { g.trans = 't'; g.lda = 2; g.ldb = 2; }}}},
        {{ROUTINE("ZHER2K", zher2k_(&g.uplo, &g.trans, &g.n, &g.k, &b.zalpha, b.za.data(), &g.lda, b.zb.data(), &g.ldb,
                                    &b.beta, b.zc.data(), &g.ldc))},
         {{1, [](Args& g) { g.uplo = 'x'; }},
          {2, [](Args& g) { g.trans = 'T'; }},
          {3, [](Args& g) { g.n = -1; }},
          {4, [](Args& g) { g.k = -1; }},
          {7, [](Args& g) { g.lda = 4; }},
          {9, [](Args& g) { g.ldb = 4; }},
          {12, [](Args& g) { g.ldc = 4; }},
          {9, [](Args& g) { g.trans = 'C'; g.lda = 2; g.ldb = 1; }},
          {0, [](Args& g) { g.trans = 'c'; g.lda = 2; g.ldb = 2; }}}},
        {{ROUTINE("DTRMM ", dtrmm_(&g.side, &g.uplo, &g.trans, &g.diag, &g.m, &g.n, &b.alpha, b.a.data(), &g.lda,
                                   b.b.data(), &g.ldb)),
          ROUTINE("DTRSM ", dtrsm_(&g.side, &g.uplo, &g.trans, &g.diag, &g.m, &g.n, &b.alpha, b.a.data(), &g.lda,
                                   b.b.data(), &g.ldb)),
          ROUTINE("ZTRMM ", ztrmm_(&g.side, &g.uplo, &g.trans, &g.diag, &g.m, &g.n, &b.zalpha, b.za.data(), &g.lda,
                                   b.zb.data(), &g.ldb)),
          ROUTINE("ZTRSM ", ztrsm_(&g.side, &g.uplo, &g.trans, &g.diag, &g.m, &g.n, &b.zalpha, b.za.data(), &g.lda,
                                   b.zb.data(), &g.ldb))},
         {{1, [](Args& g) { g.side = 'x'; }},
          {2, [](Args& g) { g.uplo = 'x'; }},
          {3, [](Args& g) { g.trans = 'x'; }},
          {4, [](Args& g) { g.diag = 'x'; }},
          {5, [](Args& g) { g.m = -1; }},
          {6, [](Args& g) { g.n = -1; }},
          {9, [](Args& g) { g.lda = 2; }},
          {11, [](Args& g) { g.ldb = 2; }},
          {9, [](Args& g) { g.side = 'R'; g.lda = 4; }},
          {0, [](Args& g) { g.side = 'r'; g.lda = 5; }},
          {1, [](Args& g) { g.side = '['; g.uplo = '{'; }}}},
    };
    return rows;
}

#undef ROUTINE

// Valid for every routine: every letter in lower case, and n = 0.
const Case kCommonValid[] = {
    {0, [](Args& g) { g.side = 'l'; g.uplo = 'l'; g.trans = 'n'; g.transb = 'n'; g.diag = 'u'; }},
    {0, [](Args& g) { g.n = 0; }},
};

struct Expanded {
    const Routine* routine;
    int position;
    Mutate mutate;
};

std::vector<Expanded> all_cases()
{
    std::vector<Expanded> cases;
    for (const CheckerRow& row : checker_rows())
        for (const Routine& routine : row.routines) {
            for (const Case& c : row.cases) cases.push_back({&routine, c.position, c.mutate});
            for (const Case& c : kCommonValid) cases.push_back({&routine, c.position, c.mutate});
        }
    return cases;
}

std::string label(const Expanded& c, std::size_t index)
{
    return std::string(c.routine->name) + " case " + std::to_string(index) + " expecting position " +
           std::to_string(c.position);
}

TEST(ArgumentCheck, DISABLED_ChildRunsEveryCase)
{
    const auto cases = all_cases();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Expanded& c = cases[i];
        Args args;
        c.mutate(args);
        Buffers buffers;
        const auto before = buffers.snapshot();
        orvtest::child_marker(orvtest::kCaseMarker);
        c.routine->call(args, buffers);
        if (c.position != 0) {
            EXPECT_TRUE(buffers.unchanged(before)) << label(c, i);
        }
    }
    orvtest::child_marker(orvtest::kEndMarker);
}

// A rejected call prints exactly its report and never a trace line; a valid
// call prints nothing but trace lines, the last one naming the routine.
void check_child_output(const char* verbose)
{
    const auto child = orvtest::run_child("ArgumentCheck.DISABLED_ChildRunsEveryCase", {{"ORV_VERBOSE", verbose}});
    ASSERT_EQ(child.status, 0) << child.out;
    const auto cases = all_cases();
    const auto printed = orvtest::split_cases(child.out);
    ASSERT_EQ(printed.size(), cases.size()) << child.out;
    const bool tracing = verbose != nullptr;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Expanded& c = cases[i];
        if (c.position != 0) {
            char expected[128];
            std::snprintf(expected, sizeof expected, "\nCalix ORV ERROR: Parameter %d was incorrect on entry to %s.\n",
                          c.position, c.routine->name);
            EXPECT_EQ(printed[i], expected) << label(c, i);
        } else if (!tracing) {
            EXPECT_EQ(printed[i], "") << label(c, i);
        } else {
            std::string name = c.routine->name;
            name.erase(name.find_last_not_of(' ') + 1);
            const std::string& out = printed[i];
            ASSERT_FALSE(out.empty()) << label(c, i);
            EXPECT_EQ(out.back(), '\n') << label(c, i);
            const std::size_t last = out.rfind('\n', out.size() - 2);
            const std::string last_line = out.substr(last == std::string::npos ? 0 : last + 1);
            EXPECT_EQ(last_line.rfind("ORV_VERBOSE " + name + "(", 0), 0u) << label(c, i) << ": " << out;
            for (std::size_t at = 0; at < out.size(); at = out.find('\n', at) + 1)
                EXPECT_EQ(out.compare(at, 12, "ORV_VERBOSE "), 0) << label(c, i) << ": " << out;
        }
    }
}

TEST(ArgumentCheck, ReportsFirstBadPositionAndTouchesNothing) { check_child_output(nullptr); }

TEST(ArgumentCheck, RejectedCallsAreNotTraced) { check_child_output("1"); }

}  // namespace
