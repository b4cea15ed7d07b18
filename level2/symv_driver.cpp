// Threaded symmetric matrix-vector product: how many parts, where they are
// cut, and the order in which their work vectors reach y.

#include "level2/symv_driver.h"

#include <cmath>
#include <cstring>

#include "level1/dispatch.h"
#include "level1/frame/frame.h"
#include "level2/dispatch.h"
#include "level2/teams.h"
#include "service/elements.h"
#include "service/memory.h"

namespace orv::l2 {

namespace {

// Smaller matrices stay on the calling thread.
constexpr i64 kMinOrder = 144;
// Up to this many rows a thread, fewer parts than threads.
constexpr i64 kRowsPerPart = 32;
// A work vector holds its part's [lo, hi) in its first two elements and the
// sums from this element on (a whole cache line further).
constexpr i64 kHead = 8;

// The leading columns whose triangle holds c shares. The rounding of the
// square root decides where the parts meet, and so the partial sums: it is
// kept exactly as written.
i64 tri(i64 c, double share)
{
    return static_cast<i64>(std::floor((std::sqrt(8.0 * static_cast<double>(c) * share + 1.0) - 1.0) / 2.0));
}

void kernel(const char* uplo, i64 n, const double* alpha, const double* a, i64 lda, const double* x, i64 incx,
            const double* beta, double* y, i64 incy)
{
    const i64 flag = 1;
    dispatch<&Level2Kernels::dsymv>(uplo, &n, alpha, a, &lda, x, &incx, beta, y, &incy, &flag);
}

struct Call {
    const char* uplo;
    bool upper;
    i64 n;
    const double* alpha;
    const double* a;
    i64 lda;
    double* y;
    i64 incy;
};

// Part k's contribution: into y for the one part that may write there,
// else into its zeroed work vector, whose head records the part's range.
void run_part(const Call& c, i64 parts, i64 k, bool direct, const double* x, double* vector)
{
    const SymvPart p = symv_part(c.upper, c.n, parts, k);
    const i64 head[2] = {p.lo, p.hi};
    std::memcpy(vector, head, sizeof head);
    if (p.lo >= p.hi) return;
    if (direct) {
        dispatch<&Level2Kernels::dsymv_strip>(c.uplo, &c.n, &p.lo, &p.hi, c.alpha, c.a, &c.lda, x, c.y);
        return;
    }
    double* sums = vector + kHead;
    const i64 first = c.upper ? 0 : p.lo, last = c.upper ? p.hi : c.n;
    for (i64 i = first; i < last; ++i) sums[i] = 0.0;
    dispatch<&Level2Kernels::dsymv_strip>(c.uplo, &c.n, &p.lo, &p.hi, c.alpha, c.a, &c.lda, x, sums);
}

// y(rows the part touched) += its work vector.
void add_part(const Call& c, const double* vector)
{
    i64 head[2];
    std::memcpy(head, vector, sizeof head);
    if (head[0] >= head[1]) return;
    const i64 first = c.upper ? 0 : head[0], last = c.upper ? head[1] : c.n;
    const frame::Chunk rows{first, last - first, c.n};
    const double one = 1.0;
    const i64 unit = 1;
    dispatch<&Level1Kernels::daxpy>(&rows.length, &one, vector + kHead + first, &unit, rows.base(c.y, c.incy),
                                    &c.incy);
}

// y := beta*y first; then every part's alpha*A*x, added in a fixed order.
void threaded(const Call& c, i64 parts, const double* x, i64 incx, const double* beta)
{
    if (!(*beta == 1.0)) {
        const double zero = 0.0;
        kernel(c.uplo, c.n, &zero, c.a, c.lda, x, incx, beta, c.y, c.incy);
    }
    if (*c.alpha == 0.0) return;
    const i64 len = (c.n + 16) / 8 * 8;
    const i64 vectors = parts + (incx != 1 ? 1 : 0);
    double* work = static_cast<double*>(orv_malloc(static_cast<std::size_t>(vectors * len) * sizeof(double), 128));
    if (alloc_failed(work, "DSYMV")) {
        const double one = 1.0;
        kernel(c.uplo, c.n, c.alpha, c.a, c.lda, x, incx, &one, c.y, c.incy);
        return;
    }
    double* vec = work;
    if (incx != 1) {
        const i64 unit = 1;
        dispatch<&Level1Kernels::dcopy>(&c.n, x, &incx, work + kHead, &unit);
        x = work + kHead;
        vec += len;
    }
    // The part whose columns reach every row of y may add straight into a
    // contiguous y: the last for 'U', the first for 'L'.
    const i64 direct = c.incy != 1 ? -1 : c.upper ? parts - 1 : 0;
    frame::run_region(parts, [&](int t, int team) {
        for (i64 k = t; k < parts; k += team) run_part(c, parts, k, k == direct, x, vec + k * len);
    });
    if (c.upper)
        for (i64 k = parts - 1; k >= 1; --k) {
            if (k != direct) add_part(c, vec + k * len);
        }
    else
        for (i64 k = 1; k < parts; ++k) add_part(c, vec + k * len);
    if (direct != 0) add_part(c, vec);
    orv_free(work);
}

void symv(const char* uplo, i64 n, const double* alpha, const double* a, i64 lda, const double* x, i64 incx,
          const double* beta, double* y, i64 incy)
{
    if (n < 1) return;
    const i64 parts = team_parts(n, kMinOrder, kRowsPerPart);
    if (parts == 1) {
        kernel(uplo, n, alpha, a, lda, x, incx, beta, y, incy);
        return;
    }
    threaded({uplo, option_letter(uplo) == 'U', n, alpha, a, lda, y, incy}, parts, x, incx, beta);
}

}  // namespace

SymvPart symv_part(bool upper, i64 n, i64 parts, i64 k)
{
    const double share = static_cast<double>((n + 1) * n / 2 / parts);
    if (upper) return {k == 0 ? 0 : tri(k, share), k == parts - 1 ? n : tri(k + 1, share)};
    return {k == 0 ? 0 : n - tri(parts - k, share), k == parts - 1 ? n : n - tri(parts - k - 1, share)};
}

}  // namespace orv::l2

void orv_blas_dsymv(const char* uplo, const orv::i64* n, const double* alpha, const double* a, const orv::i64* lda,
                    const double* x, const orv::i64* incx, const double* beta, double* y, const orv::i64* incy)
{
    orv::l2::symv(uplo, *n, alpha, a, *lda, x, *incx, beta, y, *incy);
}
