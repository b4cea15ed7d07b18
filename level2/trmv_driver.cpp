// Threaded triangular product: whether to share it, and which rows each
// thread of the team computes.

#include "level2/trmv_driver.h"

#include <cstring>

#include "level1/frame/frame.h"
#include "level2/dispatch.h"
#include "level2/teams.h"
#include "service/memory.h"
#include "service/thread_policy.h"

namespace orv::l2 {
namespace {

// The limits of one routine (the complex one does four times the work per
// element).
struct TrmvLimits {
    i64 min_n;        // smaller matrices stay on the calling thread
    i64 few_threads;  // up to this many threads, any n from min_n is shared
    i64 per_thread;   // more threads: only when n exceeds this many rows per thread
    const char* name;
};
constexpr TrmvLimits kDtrmv{128, 8, 9, "DTRMV"};
constexpr TrmvLimits kZtrmv{96, 8, 6, "ZTRMV"};

i64 team_for(i64 n, const TrmvLimits& k)
{
    if (n < k.min_n || !team_gate_open()) return 1;
    const i64 threads = get_max_threads_for_domain(kDomainBlas);
    if (threads <= 1) return 1;
    return threads <= k.few_threads || n > k.per_thread * threads ? threads : 1;
}

template <typename T>
void gather(i64 n, const T* x, i64 incx, T* copy)
{
    if (incx == 1) {
        std::memcpy(copy, x, static_cast<std::size_t>(n) * sizeof(T));
        return;
    }
    const T* x0 = first_element(x, n, incx);
    for (i64 i = 0; i < n; ++i) copy[i] = x0[i * incx];
}

template <auto Kernel, auto Strip, typename T>
void trmv(const char* uplo, const char* trans, const char* diag, i64 n, const T* a, i64 lda, T* x, i64 incx,
          const TrmvLimits& k)
{
    if (n < 1) return;
    const i64 one = 1;
    auto whole = [&] { dispatch<Kernel>(uplo, trans, diag, &n, a, &lda, x, &incx, &one, &one, &one); };
    const i64 threads = team_for(n, k);
    if (threads == 1) {
        whole();
        return;
    }
    T* copy = static_cast<T*>(orv_malloc(static_cast<std::size_t>(n) * sizeof(T), 128));
    if (alloc_failed(copy, k.name)) {
        whole();
        return;
    }
    gather(n, x, incx, copy);
    const bool upper = *uplo == 'U' || *uplo == 'u';
    const bool transposed = *trans != 'N' && *trans != 'n';
    frame::run_region(threads, [&](int t, int team) {
        if (team == 1) {
            whole();
            return;
        }
        // Rows at the top hold the longer dot products for U*x and L'*x, at
        // the bottom for L*x and U'*x: the group with the longer rows gets
        // fewer of them.
        const i64 first = n < kUnequalGroupsFrom ? n / 2 : (upper != !transposed ? 2 * n / 3 : n / 3);
        const frame::Chunk r = two_group_share(n, first, team, t);
        if (r.length > 0) dispatch<Strip>(uplo, trans, diag, &n, a, &lda, copy, &r.start, &r.length, x, &incx);
    });
    orv_free(copy);
}

template <auto Kernel, typename T>
void trsv(const char* uplo, const char* trans, const char* diag, i64 n, const T* a, i64 lda, T* x, i64 incx)
{
    if (n < 1) return;
    const i64 one = 1;
    dispatch<Kernel>(uplo, trans, diag, &n, a, &lda, x, &incx, &one, &one, &one);
}

}  // namespace
}  // namespace orv::l2

void orv_blas_dtrmv(const char* uplo, const char* trans, const char* diag, const orv::i64* n, const double* a,
                    const orv::i64* lda, double* x, const orv::i64* incx)
{
    orv::l2::trmv<&orv::Level2Kernels::dtrmv, &orv::Level2Kernels::dtrmv_strip>(uplo, trans, diag, *n, a, *lda, x,
                                                                                *incx, orv::l2::kDtrmv);
}

void orv_blas_ztrmv(const char* uplo, const char* trans, const char* diag, const orv::i64* n,
                    const orv::dcomplex* a, const orv::i64* lda, orv::dcomplex* x, const orv::i64* incx)
{
    orv::l2::trmv<&orv::Level2Kernels::ztrmv, &orv::Level2Kernels::ztrmv_strip>(uplo, trans, diag, *n, a, *lda, x,
                                                                                *incx, orv::l2::kZtrmv);
}

void orv_blas_dtrsv(const char* uplo, const char* trans, const char* diag, const orv::i64* n, const double* a,
                    const orv::i64* lda, double* x, const orv::i64* incx)
{
    orv::l2::trsv<&orv::Level2Kernels::dtrsv>(uplo, trans, diag, *n, a, *lda, x, *incx);
}

void orv_blas_ztrsv(const char* uplo, const char* trans, const char* diag, const orv::i64* n,
                    const orv::dcomplex* a, const orv::i64* lda, orv::dcomplex* x, const orv::i64* incx)
{
    orv::l2::trsv<&orv::Level2Kernels::ztrsv>(uplo, trans, diag, *n, a, *lda, x, *incx);
}
