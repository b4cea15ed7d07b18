// Threaded general matrix-vector product: how many threads, how the work is
// cut, and the ordered sum of the partial products.

#include "level2/gemv_driver.h"

#include "level1/frame/frame.h"
#include "level2/dispatch.h"
#include "service/cpu_detect.h"
#include "service/elements.h"
#include "service/memory.h"
#include "service/thread_policy.h"

namespace orv::l2 {
namespace {

// The thresholds of one routine (the complex one does four times the work
// per element).
struct GemvLimits {
    i64 long_side;     // a long side at least this ...
    i64 short_side;    // ... and a short side below this: partial products
    i64 share;         // a thread's share of y's rows (N) or columns (T) counted as large from here
    i64 lower_n;       // small share: a team once the work reaches this
    i64 lower_t;
    i64 upper_n;       // large share: one call while the work stays below this
    i64 upper_t;
    i64 many_bound;    // many threads: fewer threads below this work
    i64 many_divisor;  // ... one per this many elements of A
};
constexpr GemvLimits kDgemv{10000, 101, 64, 1536, 2048, 3072, 4096, 4096, 3072};
constexpr GemvLimits kZgemv{5000, 51, 32, 512, 512, 1024, 1024, 1024, 1024};

// From this many threads the work per thread decides alone.
constexpr i64 kManyThreads = 13;

// A wide y := A*x or a tall transposed product: each thread sums its part of
// the long side into a partial vector of its own.
bool long_and_thin(bool transposed, i64 m, i64 n, const GemvLimits& k)
{
    return transposed ? m >= k.long_side && n < k.short_side : n >= k.long_side && m < k.short_side;
}

// The team to ask for; 1 runs the kernel once on this thread.
i64 team_for(bool transposed, i64 m, i64 n, const GemvLimits& k)
{
    if (m < 64 && n < 64) return 1;
    if (cpu_detect() < kPathMc || !cpu_tuned_paths_allowed()) return 1;
    const i64 threads = get_max_threads_for_domain(kDomainBlas);
    if (threads <= 1) return 1;
    if (long_and_thin(transposed, m, n, k)) return threads;
    // A thread's share of y: whole multiples of 8 rows, or plain columns.
    const i64 q = transposed ? n / threads : m / threads;
    if (threads >= kManyThreads) {
        const i64 other = transposed ? m : n;
        if (other * q >= k.many_bound) return threads;
        if (q == 0 || get_dynamic() == 0) return 1;
        const i64 worth = m * n / k.many_divisor;
        return worth < 1 ? 1 : (worth < threads ? worth : threads);
    }
    const i64 share = transposed ? q : q / 8 * 8;
    const i64 work = transposed ? m * share : share * n;
    if (share < k.share) return work >= (transposed ? k.lower_t : k.lower_n) ? threads : 1;
    return work < (transposed ? k.upper_t : k.upper_n) ? 1 : threads;
}

template <typename T>
struct GemvCall {
    const char* trans;
    bool transposed;
    i64 m, n;
    const T* alpha;
    const T* a;
    i64 lda;
    const T* x;
    i64 incx;
    const T* beta;
    T* y;
    i64 incy;
};

// One kernel call through the slot; every caller passes the flag 1.
template <auto Slot, typename T>
void kernel(const char* trans, i64 m, i64 n, const T* alpha, const T* a, i64 lda, const T* x, i64 incx,
            const T* beta, T* y, i64 incy)
{
    const i64 flag = 1;
    dispatch<Slot>(trans, &m, &n, alpha, a, &lda, x, &incx, beta, y, &incy, &flag);
}

template <auto Slot, typename T>
void whole(const GemvCall<T>& g)
{
    kernel<Slot>(g.trans, g.m, g.n, g.alpha, g.a, g.lda, g.x, g.incx, g.beta, g.y, g.incy);
}

// Thread t's run of `len` rows or columns cut in shares of `share`: the last
// thread takes the rest.
frame::Chunk share_of(i64 len, i64 share, int t, int team)
{
    const i64 start = t * share < len - 1 ? t * share : len - 1;
    const i64 rest = len - (team - 1) * share;
    return {start, t == team - 1 ? (rest > 0 ? rest : 0) : share, len};
}

// y's rows in shares of whole multiples of 8.
template <auto Slot, typename T>
void row_split(const GemvCall<T>& g, int t, int team)
{
    const frame::Chunk rows = share_of(g.m, g.m / team / 8 * 8, t, team);
    if (rows.length == 0) return;
    kernel<Slot>(g.trans, rows.length, g.n, g.alpha, g.a + rows.start, g.lda, g.x, g.incx, g.beta,
                 rows.base(g.y, g.incy), g.incy);
}

// A's columns (y's elements of a transposed product) in equal shares.
template <auto Slot, typename T>
void column_split(const GemvCall<T>& g, int t, int team)
{
    const frame::Chunk cols = share_of(g.n, g.n / team, t, team);
    if (cols.length == 0) return;
    kernel<Slot>(g.trans, g.m, cols.length, g.alpha, g.a + cols.start * g.lda, g.lda, g.x, g.incx, g.beta,
                 cols.base(g.y, g.incy), g.incy);
}

// y(i) := beta * y(i) plus the team's partial values p(0, i) .. p(S-1, i):
// in steps of 8 accumulators of two lanes (real data; one complex value for
// complex data), the rest in pairs into the first accumulator, an odd last
// partial straight into y(i), then y(i) plus the accumulators summed
// pairwise and their lanes added.
template <typename T>
T add_partials(T yi, T beta, const T* p, i64 ld, int team)
{
    constexpr int Lanes = is_complex<T> ? 1 : 2;
    if (is_zero(beta)) yi = T{};
    else if (!is_one(beta)) yi = beta * yi;
    T acc[8][Lanes];
    for (auto& a : acc)
        for (T& lane : a) lane = T{};
    int k = 0;
    for (; k + 8 * Lanes <= team; k += 8 * Lanes)
        for (int q = 0; q < 8; ++q)
            for (int l = 0; l < Lanes; ++l) acc[q][l] = acc[q][l] + p[(k + q * Lanes + l) * ld];
    for (; k + 2 <= team; k += 2) {
        acc[0][0] = acc[0][0] + p[k * ld];
        acc[0][Lanes - 1] = acc[0][Lanes - 1] + p[(k + 1) * ld];
    }
    if (k < team) yi = yi + p[k * ld];
    T lane[Lanes];
    for (int l = 0; l < Lanes; ++l)
        lane[l] = ((acc[0][l] + acc[1][l]) + (acc[2][l] + acc[3][l])) +
                  ((acc[4][l] + acc[5][l]) + (acc[6][l] + acc[7][l]));
    if constexpr (Lanes == 2) return yi + (lane[0] + lane[1]);
    else return yi + lane[0];
}

// Partial vectors of y's length, padded to whole cache lines.
template <typename T>
i64 partial_stride(i64 len)
{
    constexpr i64 per_line = 64 / sizeof(T);
    return (len + per_line - 1) / per_line * per_line;
}

// Each thread's part of the long side into its own partial vector (beta 0,
// increment 1); the master then adds them into y in thread order. Every
// thread passes both barriers, also when the buffer could not be had.
template <auto Slot, typename T>
void split_sum(const GemvCall<T>& g, T*& partials, int t, int team)
{
    const i64 len_y = g.transposed ? g.n : g.m, ld = partial_stride<T>(len_y);
    if (t == 0) {
        const std::size_t count = static_cast<std::size_t>(team) * static_cast<std::size_t>(ld);
        partials = static_cast<T*>(orv_malloc(count * sizeof(T), 64));
        if (alloc_failed(partials, is_complex<T> ? "ZGEMV" : "DGEMV")) partials = nullptr;
        else
            for (std::size_t i = 0; i < count; ++i) partials[i] = T{};
    }
#pragma omp barrier
    if (partials == nullptr) {
        if (t == 0) whole<Slot>(g);
        return;
    }
    const T zero{};
    const i64 len = g.transposed ? g.m : g.n;
    const frame::Chunk part{t * (len / team), t == team - 1 ? len - (team - 1) * (len / team) : len / team, len};
    const T* x = part.base(g.x, g.incx);
    if (g.transposed)
        kernel<Slot>(g.trans, part.length, g.n, g.alpha, g.a + part.start, g.lda, x, g.incx, &zero,
                     partials + t * ld, i64{1});
    else
        kernel<Slot>(g.trans, g.m, part.length, g.alpha, g.a + part.start * g.lda, g.lda, x, g.incx, &zero,
                     partials + t * ld, i64{1});
#pragma omp barrier
    if (t != 0) return;
    const Strided<T> y = strided(g.y, len_y, g.incy);
    for (i64 i = 0; i < len_y; ++i) y[i] = add_partials(y[i], *g.beta, partials + i, ld, team);
    orv_free(partials);
}

template <auto Slot, typename T>
void gemv(const GemvLimits& k, const char* trans, i64 m, i64 n, const T* alpha, const T* a, i64 lda, const T* x,
          i64 incx, const T* beta, T* y, i64 incy)
{
    if (m < 1 || n < 1) return;
    const char op = option_letter(trans);
    const GemvCall<T> g{trans, op != 'N', m, n, alpha, a, lda, x, incx, beta, y, incy};
    // Without alpha only y is scaled, and one element collecting every
    // product cannot be shared out.
    const i64 threads = is_zero(*alpha) || incy == 0 ? 1 : team_for(g.transposed, m, n, k);
    if (threads == 1) {
        whole<Slot>(g);
        return;
    }
    T* partials = nullptr;
    frame::run_region(threads, [&](int t, int team) {
        if (team == 1) whole<Slot>(g);
        else if (long_and_thin(g.transposed, m, n, k)) split_sum<Slot>(g, partials, t, team);
        else if (g.transposed) column_split<Slot>(g, t, team);
        else row_split<Slot>(g, t, team);
    });
}

}  // namespace
}  // namespace orv::l2

void orv_blas_dgemv(const char* trans, const orv::i64* m, const orv::i64* n, const double* alpha, const double* a,
                    const orv::i64* lda, const double* x, const orv::i64* incx, const double* beta, double* y,
                    const orv::i64* incy)
{
    orv::l2::gemv<&orv::Level2Kernels::dgemv>(orv::l2::kDgemv, trans, *m, *n, alpha, a, *lda, x, *incx, beta, y,
                                              *incy);
}

void orv_blas_zgemv(const char* trans, const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha,
                    const orv::dcomplex* a, const orv::i64* lda, const orv::dcomplex* x, const orv::i64* incx,
                    const orv::dcomplex* beta, orv::dcomplex* y, const orv::i64* incy)
{
    orv::l2::gemv<&orv::Level2Kernels::zgemv>(orv::l2::kZgemv, trans, *m, *n, alpha, a, *lda, x, *incx, beta, y,
                                              *incy);
}
