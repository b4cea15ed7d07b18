// The shaped level-3 routines on the blocked frame.
#include "level3/structured.h"

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

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

// ---- Small real products read in place ------------------------------------
//
// A small real product with a shaped operand writes that operand out whole
// as a general op(X) on the stack and runs the path's kernel that reads its
// operands in place. The values written are those the packer gives, that
// kernel gives an element the bits of the blocked road, and a structural
// zero adds nothing to a sum that starts from +0: the result does not
// depend on the road.

// The largest order written out, and the most values of a copy of B.
constexpr i64 kDenseOrder = 32;
constexpr i64 kDenseValues = kDenseOrder * kDenseOrder;

// Whether the real product op(A) op(B) (letters ta, tb) of m x n over k
// reads its operands in place on `path` (its unpacked kernel, which takes
// one k-block): every size up to kDenseOrder on the paths that send thin
// shapes to that kernel, else where the path's routing of the general
// product sends it.
bool reads_in_place(const GemmPath& path, char ta, char tb, i64 m, i64 n, i64 k, double alpha, double beta)
{
    if (k > path.blocks->whole_depth) return false;
    if (path.thin_road && m <= kDenseOrder && n <= kDenseOrder && k <= kDenseOrder) return true;
    const GemmEvent road = choose_gemm_road(path, GemmShape{ta, tb, m, n, k, alpha, beta});
    return road == GemmEvent::direct || road == GemmEvent::tiny || road == GemmEvent::thin;
}

// op(X) of the symmetric or triangular view x as a general column-major
// matrix with leading dimension its order: each stored column is copied
// along a column of op(X), along a row, or both (symmetric); a triangular
// op(X) has zeros elsewhere.
void write_out(const MatrixDesc<double>& x, double* dense)
{
    const i64 n = x.rows;
    const bool symmetric = (x.kind & kSymmetric) != 0, upper = (x.kind & kUpperStored) != 0;
    const bool as_column = symmetric || !reads_transposed(x), as_row = symmetric || reads_transposed(x);
    if (!symmetric) {
        for (i64 v = 0; v < n * n; ++v) dense[v] = 0.0;
    }
    for (i64 j = 0; j < n; ++j) {
        const double* column = x.base + j * x.ld;
        const i64 first = upper ? 0 : j + 1, last = upper ? j : n;
        if (as_column) {
            for (i64 i = first; i < last; ++i) dense[i + j * n] = column[i];
        }
        if (as_row) {
            for (i64 i = first; i < last; ++i) dense[j + i * n] = column[i];
        }
        dense[j + j * n] = (x.kind & kUnitDiagonal) ? 1.0 : column[j];
    }
}

// C := C + scratch over the uplo triangle of the n x n C (scratch ld n).
void add_triangle(bool upper, i64 n, const double* scratch, double* c, i64 ldc)
{
    for (i64 j = 0; j < n; ++j)
        for (i64 i = upper ? 0 : j; i < (upper ? j + 1 : n); ++i)
            c[i + j * ldc] = c[i + j * ldc] + scratch[i + j * n];
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
    const bool left = option_letter(side) == 'L';
    const i64 order = left ? *m : *n;
    if constexpr (!is_complex<T>) {
        if (order <= kDenseOrder && reads_in_place(path, 'N', 'N', *m, *n, order, *alpha, *beta)) {
            double dense[kDenseValues];
            write_out(describe_operand(symmetric_kind(uplo, false), a, order, order, *lda), dense);
            path.unpacked(false, false, *m, *n, order, *alpha, left ? dense : b, left ? order : *ldb,
                          left ? b : dense, left ? *ldb : order, *beta, c, *ldc);
            return;
        }
    }
    if (left) {
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
    bool dense = false;
    if constexpr (!is_complex<T>)
        dense = n <= kDenseOrder && reads_in_place(path, as_is ? 'N' : 'T', as_is ? 'T' : 'N', n, n, k, 1.0, 0.0);
    terms([&](T scalar, const T* x, i64 ldx, const T* y, i64 ldy) {
        if constexpr (!is_complex<T>) {
            if (dense) {
                // The term into a scratch C, then its triangle added.
                double scratch[kDenseValues];
                path.unpacked(!as_is, as_is, n, n, k, scalar, x, ldx, y, ldy, 0.0, scratch, n);
                add_triangle(upper, n, scratch, c, ldc);
                return;
            }
        }
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

namespace {

// to := alpha from over m x n (alpha 1: a plain copy; `to` may be `from`);
// true when a value of the result is infinite or a NaN, all of its exponent
// bits set: adding one to the lowest exponent bit then carries into the
// sign bit. The bits are summed as integers, which no subnormal value slows.
template <class T>
bool scale_and_check(i64 m, i64 n, T alpha, const T* from, i64 ldf, T* to, i64 ldt)
{
    constexpr i64 kParts = is_complex<T> ? 2 : 1;
    constexpr std::uint64_t kExponent = 0x7ff0000000000000, kLowestBit = 0x0010000000000000;
    const bool scale = !is_one(alpha);
    const i64 count = m * kParts;
    const __m128i exponent = _mm_set1_epi64x(static_cast<long long>(kExponent));
    const __m128i lowest = _mm_set1_epi64x(static_cast<long long>(kLowestBit));
    __m128i carries = _mm_setzero_si128();
    std::uint64_t odd_carries = 0;
    for (i64 j = 0; j < n; ++j) {
        const T* f = from + j * ldf;
        T* t = to + j * ldt;
        if (scale) {
            for (i64 i = 0; i < m; ++i) t[i] = alpha * f[i];
        }
        // Unscaled values are copied in the same pass that checks them.
        const bool copy = !scale && t != f;
        const double* v = reinterpret_cast<const double*>(scale ? t : f);
        double* w = reinterpret_cast<double*>(t);
        const auto check = [&](__m128d x) {
            carries = _mm_or_si128(carries, _mm_add_epi64(_mm_and_si128(_mm_castpd_si128(x), exponent), lowest));
        };
        i64 q = 0;
        if (copy) {
            for (; q + 2 <= count; q += 2) {
                const __m128d x = _mm_loadu_pd(v + q);
                _mm_storeu_pd(w + q, x);
                check(x);
            }
        } else {
            for (; q + 2 <= count; q += 2) check(_mm_loadu_pd(v + q));
        }
        if (q < count) {
            if (copy) w[q] = v[q];
            std::uint64_t bits;
            std::memcpy(&bits, v + q, sizeof bits);
            odd_carries |= (bits & kExponent) + kLowestBit;
        }
    }
    return (odd_carries >> 63) != 0 || _mm_movemask_pd(_mm_castsi128_pd(carries)) != 0;
}

// The triangular product over B without a work buffer: the element-wise
// loops (alpha already multiplied into B).
template <class T>
void trmm_in_place_fallback(const GemmOp<T>& op, const MatrixDesc<T>& a, const MatrixDesc<T>& b,
                            const MatrixDesc<T>& c, const GemmPlan<T>&)
{
    const bool left = !is_general(a);
    const MatrixDesc<T>& t = left ? a : b;
    const char side = left ? 'L' : 'R', uplo = (t.kind & kUpperStored) ? 'U' : 'L';
    const char transa = view_letter(t.kind), diag = (t.kind & kUnitDiagonal) ? 'U' : 'N';
    if constexpr (is_complex<T>)
        plain::ztrmm(&side, &uplo, &transa, &diag, &c.rows, &c.cols, &op.alpha, t.base, &t.ld, c.base, &c.ld);
    else plain::dtrmm(&side, &uplo, &transa, &diag, &c.rows, &c.cols, &op.alpha, t.base, &t.ld, c.base, &c.ld);
}

}  // namespace

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
    const bool upper = option_letter(uplo) == 'U', left = option_letter(side) == 'L';
    const i64 m_ = *m, n_ = *n, order = left ? m_ : n_;
    const int kind = storage_kind(transa) | triangle_bits(upper) |
                     (option_letter(diag) == 'U' ? kUnitDiagonal : kNonUnitDiagonal);
    const MatrixDesc<T> shaped = describe_operand(kind, a, order, order, *lda);
    // Alpha multiplies B first, as in the element-wise loops. The packed
    // triangle holds zeros where op(A) has none, and zero times an infinity
    // or a NaN of alpha B is a NaN the product must not have: such a B takes
    // the element-wise loops, which never touch the zero triangle.
    if constexpr (!is_complex<T>) {
        if (order <= kDenseOrder && m_ * n_ <= kDenseValues &&
            reads_in_place(path, 'N', 'N', m_, n_, order, 1.0, 0.0)) {
            double copy_b[kDenseValues];
            if (scale_and_check(m_, n_, *alpha, b, *ldb, copy_b, m_))
                return plain::dtrmm(side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb);
            double dense[kDenseValues];
            write_out(shaped, dense);
            path.unpacked(false, false, m_, n_, order, 1.0, left ? dense : copy_b, left ? order : m_,
                          left ? copy_b : dense, left ? m_ : order, 0.0, b, *ldb);
            return;
        }
    }
    // One k-block deep, the product packs every value of B before it writes
    // its place, and runs over B itself; deeper, it reads a copy.
    const bool in_place = order <= path.blocks->whole_depth;
    T* copy = nullptr;
    if (!in_place) copy = static_cast<T*>(orv_malloc(static_cast<std::size_t>(m_ * n_) * sizeof(T), 64));
    const bool refused = !in_place && alloc_failed(copy, is_complex<T> ? "ZTRMM" : "DTRMM");
    if (refused || scale_and_check(m_, n_, *alpha, b, *ldb, in_place ? b : copy, in_place ? *ldb : m_)) {
        orv_free(copy);
        const T factor = in_place ? one_of<T>() : *alpha;
        if constexpr (is_complex<T>) plain::ztrmm(side, uplo, transa, diag, m, n, &factor, a, lda, b, ldb);
        else plain::dtrmm(side, uplo, transa, diag, m, n, &factor, a, lda, b, ldb);
        return;
    }
    const MatrixDesc<T> general = in_place ? db : describe_operand(kStoredAsIs, copy, m_, n_, m_);
    // op(A) is upper triangular when A is upper and not transposed, or lower and transposed.
    const bool op_upper = upper == (option_letter(transa) == 'N');
    const MatrixDesc<T>& left_operand = left ? shaped : general;
    const MatrixDesc<T>& right_operand = left ? general : shaped;
    const BlockRoutine<T> block =
        left ? (op_upper ? triangular_block<T, true, true> : triangular_block<T, true, false>)
             : (op_upper ? triangular_block<T, false, true> : triangular_block<T, false, false>);
    if (in_place) {
        product_over_operand<T>(path, left_operand, right_operand, db, block, trmm_in_place_fallback<T>);
    } else {
        blocked_product<T>(path, one_of<T>(), T{}, left_operand, right_operand, db, block);
        orv_free(copy);
    }
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
