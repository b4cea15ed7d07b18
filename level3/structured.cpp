// The shaped level-3 routines on the blocked frame.
#include "level3/structured.h"

#include <cstdint>

#include "level3/gemm_driver.h"
#include "level3/gemm_pack.h"
#include "level3/gemm_route.h"
#include "level3/level3.h"
#include "service/elements.h"
#include "service/memory.h"

namespace orv {
namespace {

// A scalar as an element: a real scalar of a complex routine gets a zero
// imaginary part.
template <class T, class S>
T element_of(S x)
{
    if constexpr (std::is_same_v<S, T>) return x;
    else return T{x, 0.0};
}

// ---- Blocks on the diagonal of C ------------------------------------------

// The largest register tile of any path, in doubles: the scratch tile of a
// block on the diagonal.
constexpr i64 kScratchDoubles = 24 * 28;

// Columns [q, q + width) of the task's slice over the steps [first, last) of
// its k-block, as a task of its own. With the steps trimmed, the rows must be
// a single packed panel: the task enters it part way along.
template <class T>
BlockTask<T> columns_of(const BlockTask<T>& t, i64 q, i64 width, i64 first, i64 last)
{
    BlockTask<T> part = t;
    part.j = t.j + q;
    part.w = width;
    part.k = last - first;
    part.a = t.a + (first - t.l) * t.h;
    part.b = t.b + (q * t.k + (first - t.l) * width) * t.tile->b_copies;
    part.c = t.c + q * t.ldc;
    return part;
}

// The kernel on columns [q, q + width) of the task's slice, into C or, with
// `scratch`, into a scratch tile of ld h (stored, not added).
template <class T>
void run_columns(const BlockTask<T>& t, i64 q, i64 width, T* scratch)
{
    BlockTask<T> part = columns_of(t, q, width, t.l, t.l + t.k);
    if (scratch != nullptr) {
        part.c = scratch;
        part.ldc = t.h;
        part.store = true;
    }
    run_block(part);
}

// The uplo triangle of C only (Lower: row >= column). Column panels of the
// slice wholly inside the triangle run into C; those the diagonal crosses
// run into a scratch tile whose triangle is then added; those outside are
// skipped. Herm: a diagonal element takes the real part of its sum and keeps
// a zero imaginary part.
template <class T, bool Lower, bool Herm>
void triangle_block(const BlockTask<T>& t)
{
    const i64 nr = t.tile->nr, first_row = t.i, last_row = t.i + t.h - 1;
    i64 run_start = 0, run_width = 0;  // panels wholly inside, run together
    const auto flush = [&] {
        if (run_width > 0) run_columns(t, run_start, run_width, static_cast<T*>(nullptr));
        run_width = 0;
    };
    for (i64 q = 0; q < t.w;) {
        const i64 width = next_panel_width(t.w - q, nr);
        const i64 first_col = t.j + q, last_col = first_col + width - 1;
        // A Hermitian diagonal element needs the scratch tile to drop its imaginary part.
        const bool inside = Herm ? (Lower ? last_col < first_row : last_row < first_col)
                                 : (Lower ? last_col <= first_row : last_row <= first_col);
        const bool outside = Lower ? first_col > last_row : last_col < first_row;
        if (inside) {
            if (run_width == 0) run_start = q;
            run_width += width;
        } else {
            flush();
            if (!outside) {
                alignas(64) double scratch[kScratchDoubles];
                T* sums = reinterpret_cast<T*>(scratch);
                run_columns(t, q, width, sums);
                for (i64 jj = 0; jj < width; ++jj) {
                    // The rows of this column inside the triangle, and where the diagonal falls.
                    const i64 diagonal = first_col + jj - first_row;
                    i64 from = Lower ? (diagonal > 0 ? diagonal : 0) : 0;
                    i64 to = Lower ? t.h : (diagonal + 1 < t.h ? diagonal + 1 : t.h);
                    T* c = t.c + (q + jj) * t.ldc;
                    const T* sum = sums + jj * t.h;
                    if constexpr (Herm) {
                        // A diagonal element takes the real part of its sum and stays real.
                        if (diagonal >= 0 && diagonal < t.h) {
                            c[diagonal] = T{(t.store ? 0.0 : c[diagonal].re) + sum[diagonal].re, 0.0};
                            if (Lower) from = diagonal + 1;
                            else to = diagonal;
                        }
                    }
                    for (i64 ii = from; ii < to; ++ii) c[ii] = t.store ? sum[ii] : c[ii] + sum[ii];
                }
            }
        }
        q += width;
    }
    flush();
}

template <class T, bool Herm>
BlockRoutine<T> triangle_routine(bool lower)
{
    return lower ? triangle_block<T, true, Herm> : triangle_block<T, false, Herm>;
}

// c := beta c over the uplo triangle of the n x n C. Herm: beta is real and
// the diagonal keeps only its real part. Beta 0 stores zeros without reading C.
template <class T, bool Herm, class S>
void scale_triangle(bool upper, i64 n, S beta, T* c, i64 ldc)
{
    for (i64 j = 0; j < n; ++j) {
        const i64 first = upper ? 0 : j, last = upper ? j + 1 : n;
        T* cj = c + j * ldc;
        if constexpr (Herm) {
            scale_by(first, j, beta, cj);
            scale_by(j + 1, last, beta, cj);
            cj[j] = T{is_zero(beta) ? 0.0 : beta * cj[j].re, 0.0};
        } else {
            scale_by(first, last, beta, cj);
        }
    }
}

// ---- Triangular operands ---------------------------------------------------

// op(A) triangular as the A operand (OnLeft) or as the B operand, Upper when
// op(A) is upper triangular. Where op(A) is zero no step of depth adds
// anything, so each column panel of the slice runs only over the steps of
// the k-block at which its part of op(A) can be nonzero: away from the
// diagonal the whole block or nothing, on it the panel's own triangle.
template <class T, bool OnLeft, bool Upper>
void triangular_panel(const BlockTask<T>& t)
{
    const i64 end = t.l + t.k;
    i64 first = t.l, last = end;
    if constexpr (OnLeft) {
        // Rows [i, i + h) of an upper op(A) are zero before step i, of a lower one from step i + h on.
        if (Upper && t.i > t.l) first = t.i;
        if (!Upper && t.i + t.h < end) last = t.i + t.h;
        if (first >= last) return;
        if (first == t.l && last == end) return run_block(t);
    }
    for (i64 q = 0, width; q < t.w; q += width) {
        width = next_panel_width(t.w - q, t.tile->nr);
        if constexpr (!OnLeft) {
            // Columns [c, c + width) of an upper op(A) are zero from step c + width on, of a lower one before step c.
            const i64 c = t.j + q;
            if (Upper) last = c + width < end ? c + width : end;
            else first = c > t.l ? c : t.l;
        }
        if (first < last) run_block(columns_of(t, q, width, first, last));
    }
}

// A task's rows may span a full panel's remainder, packed as several
// narrower panels one after the other: each is trimmed on its own.
template <class T, bool OnLeft, bool Upper>
void triangular_block(const BlockTask<T>& t)
{
    for (i64 r = 0, height; r < t.h; r += height) {
        height = next_panel_width(t.h - r, t.tile->mr);
        BlockTask<T> rows = t;
        rows.i = t.i + r;
        rows.h = height;
        rows.a = t.a + r * t.k;
        rows.c = t.c + r;
        triangular_panel<T, OnLeft, Upper>(rows);
    }
}

int triangle_bits(bool upper) { return upper ? kUpperStored : kLowerStored; }

// The shape bits of a symmetric (Herm: Hermitian) operand stored in its uplo triangle.
int symmetric_kind(const char* uplo, bool herm)
{
    return kStoredAsIs | (herm ? kHermitian : kSymmetric) | triangle_bits(option_letter(uplo) == 'U');
}

}  // namespace

template <class T, bool Herm>
void structured_symm(const GemmPath& path, const char* side, const char* uplo, const i64* m, const i64* n,
                     const T* alpha, const T* a, const i64* lda, const T* b, const i64* ldb, const T* beta, T* c,
                     const i64* ldc)
{
    if (*m == 0 || *n == 0) return;
    const MatrixDesc<T> dc = describe_result(c, *m, *n, *ldc);
    if (is_zero(*alpha)) {
        scale_c(*m, *n, *beta, c, *ldc);
        return;
    }
    const MatrixDesc<T> general = describe_operand(kStoredAsIs, b, *m, *n, *ldb);
    if (option_letter(side) == 'L') {
        const MatrixDesc<T> shaped = describe_operand(symmetric_kind(uplo, Herm), a, *m, *m, *lda);
        blocked_product<T>(path, *alpha, *beta, shaped, general, dc, run_block<T>);
    } else {
        const MatrixDesc<T> shaped = describe_operand(symmetric_kind(uplo, Herm), a, *n, *n, *lda);
        blocked_product<T>(path, *alpha, *beta, general, shaped, dc, run_block<T>);
    }
}

namespace {

// The uplo triangle of C := beta C + the products that `terms` asks for:
// terms(product) calls product(scalar, x, ldx, y, ldy) once for each term
// scalar op(X) op(Y)^T (Herm: ^H) of the update.
template <class T, bool Herm, class S, class Terms>
void update_triangle(const GemmPath& path, const char* uplo, const char* trans, i64 n, i64 k, bool alpha_zero,
                     S beta, T* c, i64 ldc, const Terms& terms)
{
    if (n == 0) return;
    if ((alpha_zero || k == 0) && is_one(beta)) return;
    const bool upper = option_letter(uplo) == 'U';
    scale_triangle<T, Herm>(upper, n, beta, c, ldc);
    if (alpha_zero || k == 0) return;
    // One view reads X as op(X), the other reads Y transposed (conjugated).
    const bool as_is = option_letter(trans) == 'N';
    const int mirror = Herm ? kStoredConjugated : kStoredTransposed;
    const MatrixDesc<T> dc = describe_result(c, n, n, ldc);
    const BlockRoutine<T> block = triangle_routine<T, Herm>(!upper);
    terms([&](T scalar, const T* x, i64 ldx, const T* y, i64 ldy) {
        const MatrixDesc<T> left = describe_operand(as_is ? kStoredAsIs : mirror, x, n, k, ldx);
        const MatrixDesc<T> right = describe_operand(as_is ? mirror : kStoredAsIs, y, k, n, ldy);
        blocked_product<T>(path, scalar, one_of<T>(), left, right, dc, block);
    });
}

}  // namespace

template <class T, bool Herm, class S>
void structured_syrk(const GemmPath& path, const char* uplo, const char* trans, const i64* n, const i64* k,
                     const S* alpha, const T* a, const i64* lda, const S* beta, T* c, const i64* ldc)
{
    update_triangle<T, Herm>(path, uplo, trans, *n, *k, is_zero(*alpha), *beta, c, *ldc, [&](const auto& product) {
        product(element_of<T>(*alpha), a, *lda, a, *lda);
    });
}

template <class T, bool Herm, class S>
void structured_syr2k(const GemmPath& path, const char* uplo, const char* trans, const i64* n, const i64* k,
                      const T* alpha, const T* a, const i64* lda, const T* b, const i64* ldb, const S* beta, T* c,
                      const i64* ldc)
{
    update_triangle<T, Herm>(path, uplo, trans, *n, *k, is_zero(*alpha), *beta, c, *ldc, [&](const auto& product) {
        product(*alpha, a, *lda, b, *ldb);
        product(Herm ? conj(*alpha) : *alpha, b, *ldb, a, *lda);
    });
}

template <class T>
void structured_trmm(const GemmPath& path, const char* side, const char* uplo, const char* transa,
                     const char* diag, const i64* m, const i64* n, const T* alpha, const T* a, const i64* lda, T* b,
                     const i64* ldb)
{
    if (*m == 0 || *n == 0) return;
    const MatrixDesc<T> db = describe_result(b, *m, *n, *ldb);
    if (is_zero(*alpha)) {
        scale_c(*m, *n, T{}, b, *ldb);
        return;
    }
    // B is read whole before it is overwritten: the product reads a copy of
    // alpha B (alpha applied to B first, as the element-wise loops do). The
    // packed triangle holds zeros where op(A) has none, and zero times an
    // infinity or a NaN of alpha B is a NaN the product must not have: such a
    // B takes the element-wise loops, which never touch the zero triangle.
    const i64 m_ = *m, n_ = *n;
    T* copy = static_cast<T*>(orv_malloc(static_cast<std::size_t>(m_ * n_) * sizeof(T), 64));
    const bool refused = alloc_failed(copy, is_complex<T> ? "ZTRMM" : "DTRMM");
    const bool scale = !is_one(*alpha);
    for (i64 j = 0; j < n_ && !refused; ++j) {
        const T* from = b + j * *ldb;
        T* to = copy + j * m_;
        for (i64 i = 0; i < m_; ++i) to[i] = scale ? *alpha * from[i] : from[i];
    }
    // A value is infinite or a NaN when all its exponent bits are set.
    constexpr std::uint64_t kExponent = 0x7ff0000000000000;
    std::uint64_t non_finite = 0;
    const std::uint64_t* bits = reinterpret_cast<const std::uint64_t*>(copy);
    for (i64 v = 0; v < (refused ? 0 : m_ * n_ * (is_complex<T> ? 2 : 1)); ++v)
        non_finite |= (bits[v] & kExponent) == kExponent;
    if (refused || non_finite != 0) {
        orv_free(copy);
        if constexpr (is_complex<T>) plain::ztrmm(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
        else plain::dtrmm(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
        return;
    }
    const MatrixDesc<T> general = describe_operand(kStoredAsIs, copy, m_, n_, m_);
    const bool upper = option_letter(uplo) == 'U', left = option_letter(side) == 'L';
    const int kind = storage_kind(transa) | triangle_bits(upper) |
                     (option_letter(diag) == 'U' ? kUnitDiagonal : kNonUnitDiagonal);
    // op(A) is upper triangular when A is upper and not transposed, or lower and transposed.
    const bool op_upper = upper == (option_letter(transa) == 'N');
    const i64 order = left ? m_ : n_;
    const MatrixDesc<T> shaped = describe_operand(kind, a, order, order, *lda);
    if (left) {
        blocked_product<T>(path, one_of<T>(), T{}, shaped, general, db,
                           op_upper ? triangular_block<T, true, true> : triangular_block<T, true, false>);
    } else {
        blocked_product<T>(path, one_of<T>(), T{}, general, shaped, db,
                           op_upper ? triangular_block<T, false, true> : triangular_block<T, false, false>);
    }
    orv_free(copy);
}

template void structured_symm<double, false>(const GemmPath&, const char*, const char*, const i64*, const i64*,
                                             const double*, const double*, const i64*, const double*, const i64*,
                                             const double*, double*, const i64*);
template void structured_symm<dcomplex, false>(const GemmPath&, const char*, const char*, const i64*, const i64*,
                                               const dcomplex*, const dcomplex*, const i64*, const dcomplex*,
                                               const i64*, const dcomplex*, dcomplex*, const i64*);
template void structured_symm<dcomplex, true>(const GemmPath&, const char*, const char*, const i64*, const i64*,
                                              const dcomplex*, const dcomplex*, const i64*, const dcomplex*,
                                              const i64*, const dcomplex*, dcomplex*, const i64*);
template void structured_syrk<double, false, double>(const GemmPath&, const char*, const char*, const i64*,
                                                     const i64*, const double*, const double*, const i64*,
                                                     const double*, double*, const i64*);
template void structured_syrk<dcomplex, false, dcomplex>(const GemmPath&, const char*, const char*, const i64*,
                                                         const i64*, const dcomplex*, const dcomplex*, const i64*,
                                                         const dcomplex*, dcomplex*, const i64*);
template void structured_syrk<dcomplex, true, double>(const GemmPath&, const char*, const char*, const i64*,
                                                      const i64*, const double*, const dcomplex*, const i64*,
                                                      const double*, dcomplex*, const i64*);
template void structured_syr2k<double, false, double>(const GemmPath&, const char*, const char*, const i64*,
                                                      const i64*, const double*, const double*, const i64*,
                                                      const double*, const i64*, const double*, double*,
                                                      const i64*);
template void structured_syr2k<dcomplex, false, dcomplex>(const GemmPath&, const char*, const char*, const i64*,
                                                          const i64*, const dcomplex*, const dcomplex*, const i64*,
                                                          const dcomplex*, const i64*, const dcomplex*, dcomplex*,
                                                          const i64*);
template void structured_syr2k<dcomplex, true, double>(const GemmPath&, const char*, const char*, const i64*,
                                                       const i64*, const dcomplex*, const dcomplex*, const i64*,
                                                       const dcomplex*, const i64*, const double*, dcomplex*,
                                                       const i64*);
template void structured_trmm<double>(const GemmPath&, const char*, const char*, const char*, const char*,
                                      const i64*, const i64*, const double*, const double*, const i64*, double*,
                                      const i64*);
template void structured_trmm<dcomplex>(const GemmPath&, const char*, const char*, const char*, const char*,
                                        const i64*, const i64*, const dcomplex*, const dcomplex*, const i64*,
                                        dcomplex*, const i64*);

}  // namespace orv
