// Argument checkers of the level-2 and level-3 exports.

#include "interface/checkers.h"

#include "interface/lsame.h"
#include "interface/xerbla.h"

namespace orv {
namespace {

// Collects the first failing position; later checks are skipped once one
// has failed, so the reported position is the first in argument order.
class FirstFailure {
public:
    // `letter` must match one of the characters of `allowed`.
    void option(int position, const char* letter, const char* allowed)
    {
        if (info_ != 0) return;
        for (const char* c = allowed; *c != '\0'; ++c)
            if (lsame(letter, c)) return;
        info_ = position;
    }
    void require(int position, bool valid)
    {
        if (info_ == 0 && !valid) info_ = position;
    }
    // Reports the failure, if any, under the 6-character routine name.
    int finish(const char* name)
    {
        if (info_ == 0) return 0;
        report_error(name, &info_, 6);
        return 1;
    }

private:
    int info_ = 0;
};

constexpr int max1(int rows) { return rows > 1 ? rows : 1; }
bool is_n(const char* letter) { return lsame(letter, "N") != 0; }
bool is_left(const char* letter) { return lsame(letter, "L") != 0; }

}  // namespace

int check_gemm(const char* name, const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const int* lda, const int* ldb, const int* ldc)
{
    FirstFailure f;
    f.option(1, transa, "NCT");
    f.option(2, transb, "NCT");
    f.require(3, *m >= 0);
    f.require(4, *n >= 0);
    f.require(5, *k >= 0);
    f.require(8, *lda >= max1(is_n(transa) ? *m : *k));
    f.require(10, *ldb >= max1(is_n(transb) ? *k : *n));
    f.require(13, *ldc >= max1(*m));
    return f.finish(name);
}

int check_gemv(const char* name, const char* trans, const int* m, const int* n, const int* lda, const int* incx,
               const int* incy)
{
    FirstFailure f;
    f.option(1, trans, "NTC");
    f.require(2, *m >= 0);
    f.require(3, *n >= 0);
    f.require(6, *lda >= max1(*m));
    f.require(8, *incx != 0);
    f.require(11, *incy != 0);
    return f.finish(name);
}

int check_gbmv(const char* name, const char* trans, const int* m, const int* n, const int* kl, const int* ku,
               const int* lda, const int* incx, const int* incy)
{
    FirstFailure f;
    f.option(1, trans, "NTC");
    f.require(2, *m >= 0);
    f.require(3, *n >= 0);
    f.require(4, *kl >= 0);
    f.require(5, *ku >= 0);
    // The band height is kl + ku + 1 rows; the sum is formed in 32 bits.
    const int bands = static_cast<int>(static_cast<unsigned>(*kl) + static_cast<unsigned>(*ku));
    f.require(8, *lda > bands);
    f.require(10, *incx != 0);
    f.require(13, *incy != 0);
    return f.finish(name);
}

int check_ger(const char* name, const int* m, const int* n, const int* incx, const int* incy, const int* lda)
{
    FirstFailure f;
    f.require(1, *m >= 0);
    f.require(2, *n >= 0);
    f.require(5, *incx != 0);
    f.require(7, *incy != 0);
    f.require(9, *lda >= max1(*m));
    return f.finish(name);
}

int check_symv(const char* name, const char* uplo, const int* n, const int* lda, const int* incx, const int* incy)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(5, *lda >= max1(*n));
    f.require(7, *incx != 0);
    f.require(10, *incy != 0);
    return f.finish(name);
}

int check_sbmv(const char* name, const char* uplo, const int* n, const int* k, const int* lda, const int* incx,
               const int* incy)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(3, *k >= 0);
    f.require(6, *lda > *k);
    f.require(8, *incx != 0);
    f.require(11, *incy != 0);
    return f.finish(name);
}

int check_spmv(const char* name, const char* uplo, const int* n, const int* incx, const int* incy)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(6, *incx != 0);
    f.require(9, *incy != 0);
    return f.finish(name);
}

int check_syr(const char* name, const char* uplo, const int* n, const int* incx, const int* lda)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(5, *incx != 0);
    f.require(7, *lda >= max1(*n));
    return f.finish(name);
}

int check_syr2(const char* name, const char* uplo, const int* n, const int* incx, const int* incy, const int* lda)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(5, *incx != 0);
    f.require(7, *incy != 0);
    f.require(9, *lda >= max1(*n));
    return f.finish(name);
}

int check_spr(const char* name, const char* uplo, const int* n, const int* incx)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(5, *incx != 0);
    return f.finish(name);
}

int check_spr2(const char* name, const char* uplo, const int* n, const int* incx, const int* incy)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.require(2, *n >= 0);
    f.require(5, *incx != 0);
    f.require(7, *incy != 0);
    return f.finish(name);
}

int check_trmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n, const int* lda,
               const int* incx)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.option(2, trans, "NTC");
    f.option(3, diag, "UN");
    f.require(4, *n >= 0);
    f.require(6, *lda >= max1(*n));
    f.require(8, *incx != 0);
    return f.finish(name);
}

int check_tbmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n, const int* k,
               const int* lda, const int* incx)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.option(2, trans, "NTC");
    f.option(3, diag, "UN");
    f.require(4, *n >= 0);
    f.require(5, *k >= 0);
    f.require(7, *lda > *k);
    f.require(9, *incx != 0);
    return f.finish(name);
}

int check_tpmv(const char* name, const char* uplo, const char* trans, const char* diag, const int* n,
               const int* incx)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.option(2, trans, "NTC");
    f.option(3, diag, "UN");
    f.require(4, *n >= 0);
    f.require(7, *incx != 0);
    return f.finish(name);
}

int check_symm(const char* name, const char* side, const char* uplo, const int* m, const int* n, const int* lda,
               const int* ldb, const int* ldc)
{
    FirstFailure f;
    f.option(1, side, "LR");
    f.option(2, uplo, "UL");
    f.require(3, *m >= 0);
    f.require(4, *n >= 0);
    f.require(7, *lda >= max1(is_left(side) ? *m : *n));
    f.require(9, *ldb >= max1(*m));
    f.require(12, *ldc >= max1(*m));
    return f.finish(name);
}

int check_syrk(const char* name, const char* trans_set, const char* uplo, const char* trans, const int* n,
               const int* k, const int* lda, const int* ldc)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.option(2, trans, trans_set);
    f.require(3, *n >= 0);
    f.require(4, *k >= 0);
    f.require(7, *lda >= max1(is_n(trans) ? *n : *k));
    f.require(10, *ldc >= max1(*n));
    return f.finish(name);
}

int check_syr2k(const char* name, const char* trans_set, const char* uplo, const char* trans, const int* n,
                const int* k, const int* lda, const int* ldb, const int* ldc)
{
    FirstFailure f;
    f.option(1, uplo, "UL");
    f.option(2, trans, trans_set);
    f.require(3, *n >= 0);
    f.require(4, *k >= 0);
    const int rows = max1(is_n(trans) ? *n : *k);
    f.require(7, *lda >= rows);
    f.require(9, *ldb >= rows);
    f.require(12, *ldc >= max1(*n));
    return f.finish(name);
}

int check_trmm(const char* name, const char* side, const char* uplo, const char* transa, const char* diag,
               const int* m, const int* n, const int* lda, const int* ldb)
{
    FirstFailure f;
    f.option(1, side, "LR");
    f.option(2, uplo, "UL");
    f.option(3, transa, "NTC");
    f.option(4, diag, "UN");
    f.require(5, *m >= 0);
    f.require(6, *n >= 0);
    f.require(9, *lda >= max1(is_left(side) ? *m : *n));
    f.require(11, *ldb >= max1(*m));
    return f.finish(name);
}

}  // namespace orv
