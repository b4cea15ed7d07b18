// Threaded symmetric rank-1 and rank-2 updates: who takes which columns.

#include "level2/syr_driver.h"

#include "level1/frame/frame.h"
#include "level2/dispatch.h"
#include "level2/teams.h"
#include "service/thread_policy.h"

namespace orv::l2 {
namespace {

// Smaller matrices stay on the calling thread.
constexpr i64 kMinOrder = 1500;

// The threads to request, 1 for one whole-matrix call here.
i64 team_for(i64 n)
{
    if (n < kMinOrder || !team_gate_open()) return 1;
    const i64 threads = get_max_threads_for_domain(kDomainBlas);
    return threads > 1 ? threads : 1;
}

// Runs whole() on the calling thread or strip(order, first, count, offset of
// the triangle in A, the vectors' part) on each thread of a team. A strip of
// an upper triangle lies in the leading triangle of order first + count and
// touches the vectors' first elements; a strip of a lower one lies in the
// trailing triangle from its first column and touches the vectors' last
// elements.
template <typename Whole, typename Strip>
void share_columns(const char* uplo, i64 n, i64 lda, const Whole& whole, const Strip& strip)
{
    if (n < 1) return;
    const i64 threads = team_for(n);
    if (threads == 1) {
        whole();
        return;
    }
    const bool upper = *uplo == 'U' || *uplo == 'u';
    frame::run_region(threads, [&](int t, int team) {
        if (team == 1) {
            whole();
            return;
        }
        // Past 1024 columns the first group takes two thirds of an upper
        // triangle, whose left columns are short, one third of a lower one.
        const i64 first = n < kUnequalGroupsFrom ? n / 2 : (upper ? 2 * n / 3 : n / 3);
        const frame::Chunk mine = two_group_share(n, first, team, t);
        if (mine.length < 1) return;
        if (upper) {
            const frame::Chunk part{0, mine.start + mine.length, n};
            strip(part.length, mine.start, mine.length, i64{0}, part);
        } else {
            const frame::Chunk part{mine.start, n - mine.start, n};
            strip(part.length, i64{0}, mine.length, mine.start * (lda + 1), part);
        }
    });
}

}  // namespace
}  // namespace orv::l2

void orv_blas_dsyr(const char* uplo, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                   double* a, const orv::i64* lda)
{
    using orv::i64;
    const i64 one = 1;
    orv::l2::share_columns(
        uplo, *n, *lda, [&] { orv::dispatch<&orv::Level2Kernels::dsyr>(uplo, n, alpha, x, incx, a, lda, &one); },
        [&](i64 order, i64 first, i64 count, i64 offset, const orv::frame::Chunk& part) {
            orv::dispatch<&orv::Level2Kernels::dsyr_strip>(uplo, &order, &first, &count, alpha,
                                                           part.base(x, *incx), incx, a + offset, lda);
        });
}

void orv_blas_dsyr2(const char* uplo, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                    const double* y, const orv::i64* incy, double* a, const orv::i64* lda)
{
    using orv::i64;
    const i64 one = 1;
    orv::l2::share_columns(
        uplo, *n, *lda,
        [&] { orv::dispatch<&orv::Level2Kernels::dsyr2>(uplo, n, alpha, x, incx, y, incy, a, lda, &one); },
        [&](i64 order, i64 first, i64 count, i64 offset, const orv::frame::Chunk& part) {
            orv::dispatch<&orv::Level2Kernels::dsyr2_strip>(uplo, &order, &first, &count, alpha,
                                                            part.base(x, *incx), incx, part.base(y, *incy), incy,
                                                            a + offset, lda);
        });
}
