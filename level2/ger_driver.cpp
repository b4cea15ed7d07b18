// Threaded general rank-1 update: how many blocks of columns, and the team
// that shares them.

#include "level2/ger_driver.h"

#include "level1/frame/frame.h"
#include "level2/dispatch.h"
#include "level2/teams.h"

namespace orv::l2 {
namespace {

// Narrower matrices stay on the calling thread.
constexpr i64 kMinColumns = 128;
// Up to this many columns a thread, fewer blocks than threads.
constexpr i64 kColumnsPerBlock = 32;

template <auto Slot, typename T>
void ger(i64 m, i64 n, const T* alpha, const T* x, i64 incx, const T* y, i64 incy, T* a, i64 lda)
{
    if (n < 1) return;
    const i64 flag = 0;
    const i64 blocks = team_parts(n, kMinColumns, kColumnsPerBlock);
    if (blocks == 1) {
        dispatch<Slot>(&m, &n, alpha, x, &incx, y, &incy, a, &lda, &flag);
        return;
    }
    // Block k: columns k*c .. min(n, (k+1)*c) - 1; the team shares the blocks
    // in contiguous runs.
    const i64 c = (n + blocks - 1) / blocks;
    frame::run_region(blocks, [&](int t, int team) {
        const frame::Chunk mine = frame::chunk_of(blocks, team, t);
        for (i64 k = mine.start; k < mine.start + mine.length; ++k) {
            const i64 first = k * c;
            if (first >= n) break;
            const frame::Chunk cols{first, n - first < c ? n - first : c, n};
            dispatch<Slot>(&m, &cols.length, alpha, x, &incx, cols.base(y, incy), &incy, a + first * lda, &lda,
                           &flag);
        }
    });
}

}  // namespace
}  // namespace orv::l2

void orv_blas_dger(const orv::i64* m, const orv::i64* n, const double* alpha, const double* x, const orv::i64* incx,
                   const double* y, const orv::i64* incy, double* a, const orv::i64* lda)
{
    orv::l2::ger<&orv::Level2Kernels::dger>(*m, *n, alpha, x, *incx, y, *incy, a, *lda);
}

void orv_blas_zgeru(const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha, const orv::dcomplex* x,
                    const orv::i64* incx, const orv::dcomplex* y, const orv::i64* incy, orv::dcomplex* a,
                    const orv::i64* lda)
{
    orv::l2::ger<&orv::Level2Kernels::zgeru>(*m, *n, alpha, x, *incx, y, *incy, a, *lda);
}

void orv_blas_zgerc(const orv::i64* m, const orv::i64* n, const orv::dcomplex* alpha, const orv::dcomplex* x,
                    const orv::i64* incx, const orv::dcomplex* y, const orv::i64* incy, orv::dcomplex* a,
                    const orv::i64* lda)
{
    orv::l2::ger<&orv::Level2Kernels::zgerc>(*m, *n, alpha, x, *incx, y, *incy, a, *lda);
}
