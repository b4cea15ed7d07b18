// The band and packed matrix-vector kernels of every build this processor
// runs: the same bits wherever the arrays lie, and for strided vectors the
// same bits without scratch (read and written in place) as with their
// contiguous copies. The numerical results themselves are checked by the
// level-2 suite on every code path.
//
// Inputs use all 53 bits, so that another order of additions shows. The
// triangles have a unit diagonal and off-diagonal columns summing to less
// than one, so that the solves stay bounded.
#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "level2/dispatch.h"
#include "orv_test.h"
#include "service/memory.h"
#include "teams.h"

namespace orvtest {
namespace {

using orv::dcomplex;
using orv::i64;
using K = orv::Level2Kernels;

constexpr i64 kN = 1100;  // strided vectors of this length need allocated scratch
constexpr i64 kBand = 9;
constexpr i64 kIncX = -2, kIncY = 3;

// A call of one slot on (a, x, y) as arrays of doubles; the in-place forms work on y.
using Call = std::function<void(const K&, const double* a, const double* x, double* y)>;

struct Case {
    std::string name;
    i64 a_doubles;
    double scale;  // of A's values
    Call call;
};

template <typename T>
const T* as(const double* p)
{
    return reinterpret_cast<const T*>(p);
}
template <typename T>
T* as(double* p)
{
    return reinterpret_cast<T*>(p);
}

std::vector<Case> cases()
{
    const i64 n = kN, k = kBand, kl = 3, ku = kBand, lda = kBand + 2, glda = kl + ku + 2;
    const i64 ix = kIncX, iy = kIncY, packed = kN * (kN + 1) / 2;
    const double da = 0.75, db = -0.5;
    const dcomplex za{0.75, -0.25}, zb{-0.5, 0.125};
    const double band_scale = 0.9 / kBand, packed_scale = 0.9 / kN;
    std::vector<Case> c;
    for (const char* t : {"N", "T", "C"}) {
        c.push_back({std::string("dgbmv ") + t, glda * n, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.dgbmv(t, &n, &n, &kl, &ku, &da, a, &glda, x, &ix, &db, y, &iy);
                     }});
        c.push_back({std::string("zgbmv ") + t, 2 * glda * n, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.zgbmv(t, &n, &n, &kl, &ku, &za, as<dcomplex>(a), &glda, as<dcomplex>(x), &ix, &zb,
                                 as<dcomplex>(y), &iy);
                     }});
    }
    for (const char* u : {"U", "L"}) {
        c.push_back({std::string("dsbmv ") + u, lda * n, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.dsbmv(u, &n, &k, &da, a, &lda, x, &ix, &db, y, &iy);
                     }});
        c.push_back({std::string("zhbmv ") + u, 2 * lda * n, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.zhbmv(u, &n, &k, &za, as<dcomplex>(a), &lda, as<dcomplex>(x), &ix, &zb, as<dcomplex>(y),
                                 &iy);
                     }});
        c.push_back({std::string("dspmv ") + u, packed, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.dspmv(u, &n, &da, a, x, &ix, &db, y, &iy);
                     }});
        c.push_back({std::string("zhpmv ") + u, 2 * packed, 1.0,
                     [=](const K& s, const double* a, const double* x, double* y) {
                         s.zhpmv(u, &n, &za, as<dcomplex>(a), as<dcomplex>(x), &ix, &zb, as<dcomplex>(y), &iy);
                     }});
        for (const char* t : {"N", "T", "C"}) {
            const std::string form = std::string(" ") + u + t;
            c.push_back({"dtbmv" + form, lda * n, band_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.dtbmv(u, t, "U", &n, &k, a, &lda, y, &iy);
                         }});
            c.push_back({"ztbmv" + form, 2 * lda * n, band_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.ztbmv(u, t, "N", &n, &k, as<dcomplex>(a), &lda, as<dcomplex>(y), &iy);
                         }});
            c.push_back({"dtbsv" + form, lda * n, band_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.dtbsv(u, t, "U", &n, &k, a, &lda, y, &iy);
                         }});
            c.push_back({"ztbsv" + form, 2 * lda * n, band_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.ztbsv(u, t, "U", &n, &k, as<dcomplex>(a), &lda, as<dcomplex>(y), &iy);
                         }});
            c.push_back({"dtpmv" + form, packed, packed_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.dtpmv(u, t, "N", &n, a, y, &iy);
                         }});
            c.push_back({"ztpmv" + form, 2 * packed, packed_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.ztpmv(u, t, "U", &n, as<dcomplex>(a), as<dcomplex>(y), &iy);
                         }});
            c.push_back({"dtpsv" + form, packed, packed_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.dtpsv(u, t, "U", &n, a, y, &iy);
                         }});
            c.push_back({"ztpsv" + form, 2 * packed, packed_scale,
                         [=](const K& s, const double* a, const double*, double* y) {
                             s.ztpsv(u, t, "U", &n, as<dcomplex>(a), as<dcomplex>(y), &iy);
                         }});
        }
    }
    return c;
}

// The vector operands hold complex elements at the largest increment.
constexpr std::size_t kVectorDoubles = 2 * kN * 3;

// y's buffer after the call on copies of the operands placed `shift` doubles
// into their arrays.
std::vector<double> run(const K& slots, const Case& c, const std::vector<double>& a, const std::vector<double>& x,
                        const std::vector<double>& y, int shift)
{
    auto place = [shift](const std::vector<double>& v) {
        std::vector<double> s(v.size() + static_cast<std::size_t>(shift));
        std::copy(v.begin(), v.end(), s.begin() + shift);
        return s;
    };
    std::vector<double> pa = place(a), px = place(x), py = place(y);
    c.call(slots, pa.data() + shift, px.data() + shift, py.data() + shift);
    return std::vector<double>(py.begin() + shift, py.end());
}

TEST(BandKernels, SameBitsWhereverTheArraysLieAndWithoutScratch)
{
    // The builds from the one this processor selects down to the baseline
    // (the table lists them from the widest).
    const int chosen = static_cast<int>(orv::dispatch_build());
    Rng rng(91);
    for (const Case& c : cases()) {
        std::vector<double> a(static_cast<std::size_t>(c.a_doubles)), x(kVectorDoubles), y(kVectorDoubles);
        for (double& v : a) v = rng.full() * c.scale;
        for (double& v : x) v = rng.full();
        for (double& v : y) v = rng.full();
        for (int b = chosen; b < orv::kBuildCount; ++b) {
            const K& slots = *orv::Family<K>::builds[b];
            const std::vector<double> want = run(slots, c, a, x, y, 0);
            EXPECT_TRUE(same(run(slots, c, a, x, y, 1), want)) << c.name << " build " << b << " shifted";
            orv::allocation_refusal = [](std::size_t, int) { return true; };
            const std::vector<double> in_place = run(slots, c, a, x, y, 0);
            orv::allocation_refusal = nullptr;
            EXPECT_TRUE(same(in_place, want)) << c.name << " build " << b << " without scratch";
        }
    }
}

}  // namespace
}  // namespace orvtest
