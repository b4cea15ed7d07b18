// An invalid argument reaches the report under the routine's own padded name
// and position, and the call then writes nothing. Each row breaks a different
// argument that the routine's arithmetic alone would not refuse.

#include "level2_test.h"

namespace l2test {
namespace {

// The real routines see the same buffers as arrays of doubles.
struct Op {
    Guarded<zcomplex> a{16}, x{8}, y{8};
    zcomplex az{1.5, 0.5}, bz{0.5, 0.0};
    double ad = 1.5, bd = 0.5;
    zcomplex* za() { return a.data(); }
    zcomplex* zx() { return x.data(); }
    zcomplex* zy() { return y.data(); }
    double* da() { return reinterpret_cast<double*>(a.data()); }
    double* dx() { return reinterpret_cast<double*>(x.data()); }
    double* dy() { return reinterpret_cast<double*>(y.data()); }
};

const int zero = 0, one = 1, two = 2;

struct Rejected {
    const char* name;
    int position;
    void (*call)(Op&);
};

const Rejected kRejected[] = {
    {"DGEMV ", 6, [](Op& o) { dgemv_("N", &two, &two, &o.ad, o.da(), &one, o.dx(), &one, &o.bd, o.dy(), &one); }},
    {"ZGEMV ", 11, [](Op& o) { zgemv_("C", &two, &two, &o.az, o.za(), &two, o.zx(), &one, &o.bz, o.zy(), &zero); }},
    {"DGBMV ", 8, [](Op& o) {
         dgbmv_("T", &two, &two, &one, &one, &o.ad, o.da(), &two, o.dx(), &one, &o.bd, o.dy(), &one);
     }},
    {"ZGBMV ", 1, [](Op& o) {
         zgbmv_("x", &two, &two, &one, &one, &o.az, o.za(), &two, o.zx(), &one, &o.bz, o.zy(), &one);
     }},
    {"DGER  ", 7, [](Op& o) { dger_(&two, &two, &o.ad, o.dx(), &one, o.dy(), &zero, o.da(), &two); }},
    {"ZGERU ", 9, [](Op& o) { zgeru_(&two, &two, &o.az, o.zx(), &one, o.zy(), &one, o.za(), &one); }},
    {"ZGERC ", 5, [](Op& o) { zgerc_(&two, &two, &o.az, o.zx(), &zero, o.zy(), &one, o.za(), &two); }},
    {"DSYMV ", 1, [](Op& o) { dsymv_("X", &two, &o.ad, o.da(), &two, o.dx(), &one, &o.bd, o.dy(), &one); }},
    {"ZHEMV ", 5, [](Op& o) { zhemv_("U", &two, &o.az, o.za(), &one, o.zx(), &one, &o.bz, o.zy(), &one); }},
    {"DSBMV ", 6, [](Op& o) { dsbmv_("L", &two, &one, &o.ad, o.da(), &one, o.dx(), &one, &o.bd, o.dy(), &one); }},
    {"ZHBMV ", 11, [](Op& o) { zhbmv_("U", &two, &one, &o.az, o.za(), &two, o.zx(), &one, &o.bz, o.zy(), &zero); }},
    {"DSPMV ", 6, [](Op& o) { dspmv_("U", &two, &o.ad, o.da(), o.dx(), &zero, &o.bd, o.dy(), &one); }},
    {"ZHPMV ", 9, [](Op& o) { zhpmv_("l", &two, &o.az, o.za(), o.zx(), &one, &o.bz, o.zy(), &zero); }},
    {"DSYR  ", 7, [](Op& o) { dsyr_("U", &two, &o.ad, o.dx(), &one, o.da(), &one); }},
    {"ZHER  ", 5, [](Op& o) { zher_("L", &two, &o.ad, o.zx(), &zero, o.za(), &two); }},
    {"DSYR2 ", 7, [](Op& o) { dsyr2_("U", &two, &o.ad, o.dx(), &one, o.dy(), &zero, o.da(), &two); }},
    {"ZHER2 ", 9, [](Op& o) { zher2_("U", &two, &o.az, o.zx(), &one, o.zy(), &one, o.za(), &one); }},
    {"DSPR  ", 1, [](Op& o) { dspr_("x", &two, &o.ad, o.dx(), &one, o.da()); }},
    {"ZHPR  ", 5, [](Op& o) { zhpr_("U", &two, &o.ad, o.zx(), &zero, o.za()); }},
    {"DSPR2 ", 7, [](Op& o) { dspr2_("L", &two, &o.ad, o.dx(), &one, o.dy(), &zero, o.da()); }},
    {"ZHPR2 ", 5, [](Op& o) { zhpr2_("U", &two, &o.az, o.zx(), &zero, o.zy(), &one, o.za()); }},
    {"DTRMV ", 3, [](Op& o) { dtrmv_("U", "N", "X", &two, o.da(), &two, o.dx(), &one); }},
    {"ZTRMV ", 6, [](Op& o) { ztrmv_("L", "C", "N", &two, o.za(), &one, o.zx(), &one); }},
    {"DTRSV ", 2, [](Op& o) { dtrsv_("U", "X", "N", &two, o.da(), &two, o.dx(), &one); }},
    {"ZTRSV ", 8, [](Op& o) { ztrsv_("U", "T", "U", &two, o.za(), &two, o.zx(), &zero); }},
    {"DTBMV ", 7, [](Op& o) { dtbmv_("L", "T", "N", &two, &one, o.da(), &one, o.dx(), &one); }},
    {"ZTBMV ", 9, [](Op& o) { ztbmv_("U", "N", "N", &two, &one, o.za(), &two, o.zx(), &zero); }},
    {"DTBSV ", 3, [](Op& o) { dtbsv_("U", "N", "x", &two, &one, o.da(), &two, o.dx(), &one); }},
    {"ZTBSV ", 7, [](Op& o) { ztbsv_("L", "C", "N", &two, &one, o.za(), &one, o.zx(), &one); }},
    {"DTPMV ", 7, [](Op& o) { dtpmv_("U", "N", "N", &two, o.da(), o.dx(), &zero); }},
    {"ZTPMV ", 1, [](Op& o) { ztpmv_("X", "N", "N", &two, o.za(), o.zx(), &one); }},
    {"DTPSV ", 2, [](Op& o) { dtpsv_("L", "x", "U", &two, o.da(), o.dx(), &one); }},
    {"ZTPSV ", 7, [](Op& o) { ztpsv_("U", "N", "N", &two, o.za(), o.zx(), &zero); }},
};

TEST(Level2Rejected, ReportsPositionAndWritesNothing)
{
    Rng rng(41);
    for (const Rejected& row : kRejected) {
        Op o;
        for (std::size_t i = 0; i < o.a.size(); ++i) o.a[i] = rng.zcoarse() + 3.0;
        for (std::size_t i = 0; i < o.x.size(); ++i) o.x[i] = rng.zcoarse();
        for (std::size_t i = 0; i < o.y.size(); ++i) o.y[i] = rng.zcoarse();
        const auto a0 = o.a.snapshot(), x0 = o.x.snapshot(), y0 = o.y.snapshot();

        ::testing::internal::CaptureStdout();
        row.call(o);
        const std::string out = ::testing::internal::GetCapturedStdout();

        const std::string expected =
            "Parameter " + std::to_string(row.position) + " was incorrect on entry to " + row.name + ".";
        EXPECT_NE(out.find(expected), std::string::npos) << row.name << " printed: " << out;
        EXPECT_TRUE(o.a.equals(a0) && o.x.equals(x0) && o.y.equals(y0)) << row.name << " wrote an operand";
    }
}

}  // namespace
}  // namespace l2test
