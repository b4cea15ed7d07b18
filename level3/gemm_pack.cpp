// Packing op(A) and op(B) into the panel layouts of the inner kernels.
//
// Every panel, of either operand, is one of two gathers: the source holds a
// panel's values of one step of depth side by side (op(A) as is, op(B)
// transposed), or it holds each of the panel's lines side by side along the
// depth (op(A) transposed, op(B) as is). The common panel widths get code of
// their own with the width fixed, so that the copies are whole vectors.
#include "level3/gemm_pack.h"

#include <emmintrin.h>

#include "service/elements.h"

namespace orv {

i64 next_panel_width(i64 remaining, i64 full)
{
    if (remaining >= full) return full;
    i64 width = 1;
    while (2 * width <= remaining) width *= 2;
    return width;
}

namespace {

// One packed value: a real value, or a complex value's two parts, each
// written Copies times in a row.
template <int Copies>
inline void put_value(double* d, double x)
{
    d[0] = x;
    if constexpr (Copies == 2) d[1] = x;
}
template <int Copies>
inline void put_value(double* d, dcomplex x)
{
    put_value<Copies>(d, x.re);
    put_value<Copies>(d + Copies, x.im);
}

// How far ahead the source is asked for: its lines are a leading dimension
// apart, too far for the hardware to guess, and each is a fresh miss, so the
// distance has to cover the latency of memory.
constexpr i64 kAheadSteps = 32;
constexpr i64 kLineValues = 8;

// The panel's w values at one step of depth, wherever the step is: past the
// panel's depth the steps continue with the next panel's (assumed as wide).
inline void prefetch_step(const double* src, i64 ld, i64 w, i64 depth, i64 l)
{
    const double* step = l < depth ? src + l * ld : src + w + (l - depth) * ld;
    for (i64 r = 0; r < w; r += kLineValues) __builtin_prefetch(step + r);
    __builtin_prefetch(step + w - 1);
}

// Panels of W values per step whose values of a step are adjacent in the
// source: for p < panels, dst[p * W * depth + l * W + r] = factor *
// src[p * W + r + l * ld]. All the panels are walked together, step after
// step, so that the source is read along its contiguous runs. W = 0 stands
// for the run-time width w. With Copies = 2 every value is written twice in
// a row.
template <int W, int Copies>
void gather_adjacent(const double* src, i64 ld, i64 w, i64 panels, i64 depth, double factor, double* dst)
{
    if constexpr (W > 0) w = W;
    const i64 span = w * panels, stride = w * depth * Copies;
    const __m128d f = _mm_set1_pd(factor);
    const auto one_step = [&](i64 l) {
        for (i64 p = 0; p < panels; ++p) {
            const double* s = src + l * ld + p * w;
            double* d = dst + p * stride + l * w * Copies;
            i64 r = 0;
            for (; r + 2 <= w; r += 2) {
                const __m128d x = _mm_mul_pd(f, _mm_loadu_pd(s + r));
                if constexpr (Copies == 1) {
                    _mm_storeu_pd(d + r, x);
                } else {
                    _mm_storeu_pd(d + 2 * r, _mm_unpacklo_pd(x, x));
                    _mm_storeu_pd(d + 2 * r + 2, _mm_unpackhi_pd(x, x));
                }
            }
            if (r < w) {
                for (int q = 0; q < Copies; ++q) d[r * Copies + q] = factor * s[r];
            }
        }
    };
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        prefetch_step(src, ld, span, depth, l + kAheadSteps);
        prefetch_step(src, ld, span, depth, l + kAheadSteps + 1);
        one_step(l);
        one_step(l + 1);
    }
    if (l < depth) one_step(l);
}

// dst[l * W + c] = factor * src[l + c * ld]: each of the W lines of the panel
// runs along the depth in the source. Two steps at a time, the pairs of two
// neighbouring lines are transposed in registers. With Copies = 2 every value
// is written twice in a row.
template <int W, int Copies>
void gather_line_panel(const double* src, i64 ld, i64 w, i64 depth, double factor, double* dst)
{
    if constexpr (W > 0) w = W;
    const i64 row = w * Copies;
    const __m128d f = _mm_set1_pd(factor);
    i64 l = 0;
    for (; l + 2 <= depth; l += 2) {
        // Every line is a short stream of its own: a line ahead in each, and
        // near the end the start of the next panel's lines.
        if (l % kLineValues == 0) {
            const i64 ahead = l + kAheadSteps;
            const double* next = ahead < depth ? src + ahead : src + w * ld + (ahead - depth);
            for (i64 c = 0; c < w; ++c) __builtin_prefetch(next + c * ld);
        }
        double* d = dst + l * row;
        if constexpr (Copies == 1) {
            i64 c = 0;
            for (; c + 2 <= w; c += 2) {
                const __m128d x0 = _mm_mul_pd(f, _mm_loadu_pd(src + l + c * ld));
                const __m128d x1 = _mm_mul_pd(f, _mm_loadu_pd(src + l + (c + 1) * ld));
                _mm_storeu_pd(d + c, _mm_unpacklo_pd(x0, x1));
                _mm_storeu_pd(d + w + c, _mm_unpackhi_pd(x0, x1));
            }
            if (c < w) {
                d[c] = factor * src[l + c * ld];
                d[w + c] = factor * src[l + 1 + c * ld];
            }
        } else {
            for (i64 c = 0; c < w; ++c) {
                const __m128d x = _mm_mul_pd(f, _mm_loadu_pd(src + l + c * ld));
                _mm_storeu_pd(d + 2 * c, _mm_unpacklo_pd(x, x));
                _mm_storeu_pd(d + row + 2 * c, _mm_unpackhi_pd(x, x));
            }
        }
    }
    if (l < depth) {
        for (i64 c = 0; c < w; ++c)
            for (int q = 0; q < Copies; ++q) dst[l * row + c * Copies + q] = factor * src[l + c * ld];
    }
}

// Panels whose lines run along the depth: panel p's lines start at
// src + p * W * ld.
template <int W, int Copies>
void gather_lines(const double* src, i64 ld, i64 w, i64 panels, i64 depth, double factor, double* dst)
{
    if constexpr (W > 0) w = W;
    for (i64 p = 0; p < panels; ++p)
        gather_line_panel<W, Copies>(src + p * w * ld, ld, w, depth, factor, dst + p * w * depth * Copies);
}

using Gather = void (*)(const double*, i64, i64, i64, i64, double, double*);

template <int Copies>
struct Adjacent {
    template <int W>
    static void run(const double* s, i64 ld, i64 w, i64 panels, i64 depth, double f, double* d)
    {
        gather_adjacent<W, Copies>(s, ld, w, panels, depth, f, d);
    }
};
template <int Copies>
struct Lines {
    template <int W>
    static void run(const double* s, i64 ld, i64 w, i64 panels, i64 depth, double f, double* d)
    {
        gather_lines<W, Copies>(s, ld, w, panels, depth, f, d);
    }
};

// The gather for a panel of width w: fixed-width code for the register tiles'
// heights and widths and for the remainder digits, run-time width otherwise.
template <class G>
Gather gather_for(i64 w)
{
    switch (w) {
    case 1: return G::template run<1>;
    case 2: return G::template run<2>;
    case 4: return G::template run<4>;
    case 6: return G::template run<6>;
    case 8: return G::template run<8>;
    case 12: return G::template run<12>;
    case 16: return G::template run<16>;
    case 24: return G::template run<24>;
    case 28: return G::template run<28>;
    default: return G::template run<0>;
    }
}

// The panels of a block of `count` lines; `source(line)` is the address of the
// line's first value in the block, `copies` how often each value is written.
// The full panels go in gathers of up to kPanelsTogether, the remainder's
// panels one by one. Panels of one block lie a whole panel apart, often a
// multiple of the page size: more of them written side by side than the
// first-level cache has ways would evict each other's lines.
constexpr i64 kPanelsTogether = 8;

template <class G, class Source>
void pack_panels(i64 count, i64 full, i64 ld, i64 depth, double factor, int copies, double* dst, Source source)
{
    const i64 whole = count / full;
    const Gather gather = gather_for<G>(full);
    for (i64 p = 0; p < whole; p += kPanelsTogether) {
        const i64 panels = whole - p < kPanelsTogether ? whole - p : kPanelsTogether;
        gather(source(p * full), ld, full, panels, depth, factor, dst + p * full * depth * copies);
    }
    for (i64 r = whole * full; r < count;) {
        const i64 w = next_panel_width(count - r, full);
        gather_for<G>(w)(source(r), ld, w, 1, depth, factor, dst + r * depth * copies);
        r += w;
    }
}

// ---- Complex gathers -------------------------------------------------------
//
// Every element goes in as factor * x, with x conjugated when Conj is set,
// its two parts each written Copies times. A factor of exactly one is not
// multiplied in: (1, 0) times an infinite part would make a NaN of the other.
template <bool Conj, int Copies>
struct ComplexPut {
    bool scale;
    // factor * x as (fr xr + (-fi) xi, fr xi + fi xr): the parts of the
    // textbook product, with the same roundings.
    __m128d fr, fi;
    explicit ComplexPut(dcomplex factor)
        : scale(!is_one(factor)), fr(_mm_set1_pd(factor.re)), fi(_mm_set_pd(factor.im, -factor.im))
    {
    }
    void operator()(const dcomplex* s, double* d) const
    {
        __m128d x = _mm_loadu_pd(&s->re);
        if constexpr (Conj) x = _mm_xor_pd(x, _mm_set_pd(-0.0, 0.0));
        if (scale) x = _mm_add_pd(_mm_mul_pd(fr, x), _mm_mul_pd(fi, _mm_shuffle_pd(x, x, 1)));
        if constexpr (Copies == 1) {
            _mm_storeu_pd(d, x);
        } else {
            _mm_storeu_pd(d, _mm_unpacklo_pd(x, x));
            _mm_storeu_pd(d + 2, _mm_unpackhi_pd(x, x));
        }
    }
};

// A panel of w elements per step whose lines run along the depth: dst holds,
// step after step, the w elements; the element of step l, line r lies at
// src[l + r * line].
template <bool Conj, int Copies>
void gather_complex_lines(const dcomplex* src, i64 line, i64 w, i64 depth, dcomplex factor, double* dst)
{
    const ComplexPut<Conj, Copies> put(factor);
    for (i64 l = 0; l < depth; ++l)
        for (i64 r = 0; r < w; ++r) put(src + l + r * line, dst + (l * w + r) * 2 * Copies);
}

// Panels of w elements per step whose elements of a step are adjacent in the
// source (element of step l, line r at src[l * step + r]), `panels` of them
// walked together, step after step, so that the source is read along its
// contiguous runs (as gather_adjacent does).
template <bool Conj, int Copies>
void gather_complex_adjacent(const dcomplex* src, i64 step, i64 w, i64 panels, i64 depth, dcomplex factor,
                             double* dst)
{
    const ComplexPut<Conj, Copies> put(factor);
    const i64 stride = w * depth * 2 * Copies;
    for (i64 l = 0; l < depth; ++l) {
        prefetch_step(&src->re, 2 * step, 2 * w * panels, depth, l + kAheadSteps);
        const dcomplex* s = src + l * step;
        double* d = dst + l * w * 2 * Copies;
        for (i64 p = 0; p < panels; ++p)
            for (i64 r = 0; r < w; ++r) put(s + p * w + r, d + p * stride + r * 2 * Copies);
    }
}

template <bool Conj, int Copies>
void pack_complex_panels(bool step_adjacent, i64 count, i64 full, i64 ld, i64 depth, dcomplex factor, double* dst,
                         const dcomplex* first)
{
    const i64 whole = step_adjacent ? count / full : 0;
    for (i64 p = 0; p < whole; p += kPanelsTogether) {
        const i64 panels = whole - p < kPanelsTogether ? whole - p : kPanelsTogether;
        gather_complex_adjacent<Conj, Copies>(first + p * full, ld, full, panels, depth, factor,
                                              dst + p * full * depth * 2 * Copies);
    }
    for (i64 r = whole * full; r < count;) {
        const i64 w = next_panel_width(count - r, full);
        double* d = dst + r * depth * 2 * Copies;
        if (step_adjacent) gather_complex_adjacent<Conj, Copies>(first + r, ld, w, 1, depth, factor, d);
        else gather_complex_lines<Conj, Copies>(first + r * ld, ld, w, depth, factor, d);
        r += w;
    }
}

// The panels of a block of `count` lines of x from `first` on: its elements
// of a step side by side (step_adjacent) or each line along the depth.
template <int Copies>
void pack_complex_panels(const MatrixDesc<dcomplex>& x, bool step_adjacent, i64 count, i64 full, i64 depth,
                         dcomplex factor, double* dst, const dcomplex* first)
{
    if ((x.kind & kStoredConjugated) != 0)
        pack_complex_panels<true, Copies>(step_adjacent, count, full, x.ld, depth, factor, dst, first);
    else
        pack_complex_panels<false, Copies>(step_adjacent, count, full, x.ld, depth, factor, dst, first);
}

// ---- General operands ------------------------------------------------------

template <int Copies>
void pack_general_a(const MatrixDesc<double>& a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr,
                    double* dst)
{
    const auto source = [&](i64 r) { return a.elem_addr(i0 + r, l0, &a); };
    if (reads_transposed(a)) pack_panels<Lines<Copies>>(rows, mr, a.ld, depth, alpha, Copies, dst, source);
    else pack_panels<Adjacent<Copies>>(rows, mr, a.ld, depth, alpha, Copies, dst, source);
}

template <int Copies>
void pack_general_a(const MatrixDesc<dcomplex>& a, i64 i0, i64 rows, i64 l0, i64 depth, dcomplex alpha, i64 mr,
                    dcomplex* dst)
{
    // op(A) as is holds a step's rows side by side; transposed, each row runs along the depth.
    const bool as_is = !reads_transposed(a);
    pack_complex_panels<Copies>(a, as_is, rows, mr, depth, alpha, reinterpret_cast<double*>(dst),
                                a.elem_addr(i0, l0, &a));
}

template <int Copies>
void pack_general_b(const MatrixDesc<double>& b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                    double* dst)
{
    const auto source = [&](i64 c) { return b.elem_addr(l0, j0 + c, &b); };
    if (reads_transposed(b)) pack_panels<Adjacent<Copies>>(cols, nr, b.ld, depth, factor, Copies, dst, source);
    else pack_panels<Lines<Copies>>(cols, nr, b.ld, depth, factor, Copies, dst, source);
}

template <int Copies>
void pack_general_b(const MatrixDesc<dcomplex>& b, i64 l0, i64 depth, i64 j0, i64 cols, dcomplex factor, i64 nr,
                    dcomplex* dst)
{
    // op(B) transposed holds a step's columns side by side; as is, each column runs along the depth.
    const bool transposed = reads_transposed(b);
    pack_complex_panels<Copies>(b, transposed, cols, nr, depth, factor, reinterpret_cast<double*>(dst),
                                b.elem_addr(l0, j0, &b));
}

// ---- Shaped operands -------------------------------------------------------
//
// A panel that lies wholly on one side of the diagonal of op(X) reads a
// general view of X (the stored triangle, or its mirror) or is zero; on the
// squares that the diagonal crosses, runs of lines read one side each.

// Diagonal element (i, i) of op(X) for a shaped X.
template <class T>
T diagonal_of(const MatrixDesc<T>& x, i64 i)
{
    const T stored = x.base[i + i * x.ld];
    if (x.kind & (kSymmetric | kHermitian)) {
        if constexpr (is_complex<T>) {
            if (x.kind & kHermitian) return T{stored.re, 0.0};
        }
        return stored;
    }
    if (x.kind & kUnitDiagonal) return one_of<T>();
    return (x.kind & kStoredConjugated) ? conj(stored) : stored;
}

enum class Side { strictly_lower, strictly_upper };

// The general view of X that the part of op(X) strictly below (above) the
// diagonal reads; false when that part is zero.
template <class T>
bool general_part(const MatrixDesc<T>& x, Side side, MatrixDesc<T>* view)
{
    const bool upper = (x.kind & kUpperStored) != 0;
    const bool lower_part = side == Side::strictly_lower;
    int kind;
    if (x.kind & (kSymmetric | kHermitian)) {
        // The stored triangle as is, the other one mirrored.
        if (lower_part != upper) kind = kStoredAsIs;
        else kind = (x.kind & kHermitian) ? kStoredConjugated : kStoredTransposed;
    } else {
        // op(X) below its diagonal reads X below its own unless op transposes.
        const bool reads_lower = lower_part != reads_transposed(x);
        if (reads_lower == upper) return false;
        kind = x.kind & (kStoredAsIs | kStoredTransposed | kStoredConjugated);
    }
    *view = describe_operand(kind, x.base, x.rows, x.cols, x.ld);
    return true;
}

// Where one side of op(X)'s diagonal comes from: X read at (i, j) for
// op(X)(i, j), or at (j, i) when `swapped`, conjugated or not; or zeros.
struct PartSource {
    bool present;
    bool swapped;
    bool conjugate;
};

template <class T>
PartSource part_source(const MatrixDesc<T>& x, Side side)
{
    MatrixDesc<T> view;
    if (!general_part(x, side, &view)) return {false, false, false};
    return {true, reads_transposed(view), (view.kind & kStoredConjugated) != 0};
}

// `count` values of op(X) along a line of the panel, from position (i, j) on,
// the line moving down the rows (along_rows) or across the columns, into d.
template <class T, int Copies>
void put_run(const MatrixDesc<T>& x, const PartSource& source, i64 i, i64 j, bool along_rows, i64 count,
             T factor, double* d)
{
    constexpr i64 kParts = is_complex<T> ? 2 : 1;
    if (!source.present) {
        for (i64 v = 0; v < count * Copies * kParts; ++v) d[v] = 0.0;
        return;
    }
    const T* src = source.swapped ? x.base + j + i * x.ld : x.base + i + j * x.ld;
    const i64 stride = along_rows != source.swapped ? 1 : x.ld;
    const auto run = [&](auto value) {
        // A run along the stored columns is contiguous: a loop of its own, which the compiler widens.
        if (stride == 1) {
            for (i64 r = 0; r < count; ++r) put_value<Copies>(d + r * Copies * kParts, value(src[r]));
        } else {
            for (i64 r = 0; r < count; ++r) put_value<Copies>(d + r * Copies * kParts, value(src[r * stride]));
        }
    };
    const bool scale = !is_one(factor), conjugate = is_complex<T> && source.conjugate;
    if (!scale && !conjugate) run([](T v) { return v; });
    else if (!conjugate) run([&](T v) { return factor * v; });
    else if (!scale) run([](T v) { return conj(v); });
    else run([&](T v) { return factor * conj(v); });
}

// One panel of `width` lines (rows of op(A) or columns of op(B)) starting at
// line p, depth [l0, l0 + depth). The steps before the panel's first line,
// those past its last line and those beside the diagonal are packed apart:
// the first two each read one general view of X, or are zero, through
// general(view, first step, steps, destination). On the square that the
// diagonal crosses each step is a run of lines on one side of the diagonal,
// the diagonal value and a run on the other side.
template <class T, int Copies, class General>
void pack_shaped_panel(const MatrixDesc<T>& x, i64 p, i64 width, i64 l0, i64 depth, T factor, bool lines_are_rows,
                       T* dst, General general)
{
    constexpr i64 kParts = is_complex<T> ? 2 : 1;
    const i64 end = l0 + depth;
    // A step's values, as doubles, in the packed panel.
    const i64 step_doubles = width * Copies * kParts;
    double* const d = reinterpret_cast<double*>(dst);
    const auto side_part = [&](i64 first, i64 last, bool before) {
        if (first >= last) return;
        // Rows of op(A) lie below the diagonal at the steps before them;
        // columns of op(B) at the steps past them.
        const Side side = before == lines_are_rows ? Side::strictly_lower : Side::strictly_upper;
        double* part = d + (first - l0) * step_doubles;
        MatrixDesc<T> view;
        if (general_part(x, side, &view)) {
            general(view, first, last - first, reinterpret_cast<T*>(part));
        } else {
            for (i64 v = 0; v < (last - first) * step_doubles; ++v) part[v] = 0.0;
        }
    };
    const i64 diagonal_first = p > l0 ? p : l0;
    const i64 diagonal_last = p + width < end ? p + width : end;
    side_part(l0, p < end ? p : end, true);
    if (diagonal_first < diagonal_last) {
        // At step l the diagonal holds line l - p; the lines before it lie
        // above the diagonal of op(A), below that of op(B).
        const PartSource before = part_source(x, lines_are_rows ? Side::strictly_upper : Side::strictly_lower);
        const PartSource after = part_source(x, lines_are_rows ? Side::strictly_lower : Side::strictly_upper);
        const bool scale = !is_one(factor);
        for (i64 l = diagonal_first; l < diagonal_last; ++l) {
            const i64 on = l - p;
            double* step = d + (l - l0) * step_doubles;
            const i64 i = lines_are_rows ? p : l, j = lines_are_rows ? l : p;
            put_run<T, Copies>(x, before, i, j, lines_are_rows, on, factor, step);
            const T v = diagonal_of(x, l);
            put_value<Copies>(step + on * Copies * kParts, scale ? factor * v : v);
            put_run<T, Copies>(x, after, lines_are_rows ? l + 1 : l, lines_are_rows ? l : l + 1, lines_are_rows,
                               width - on - 1, factor, step + (on + 1) * Copies * kParts);
        }
    }
    side_part(p + width > l0 ? p + width : l0, end, false);
}

// Packed A holds each value once.
template <class T>
void pack_a_any(const MatrixDesc<T>* a, i64 i0, i64 rows, i64 l0, i64 depth, T alpha, i64 mr, T* dst)
{
    constexpr int Copies = 1;
    if (is_general(*a)) return pack_general_a<Copies>(*a, i0, rows, l0, depth, alpha, mr, dst);
    for (i64 r = 0; r < rows;) {
        const i64 h = next_panel_width(rows - r, mr);
        pack_shaped_panel<T, Copies>(
            *a, i0 + r, h, l0, depth, alpha, true, dst + r * depth * Copies,
            [&](const MatrixDesc<T>& view, i64 first, i64 steps, T* d) {
                pack_general_a<Copies>(view, i0 + r, h, first, steps, alpha, h, d);
            });
        r += h;
    }
}

template <class T, int Copies>
void pack_b_any(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst)
{
    if (is_general(*b)) return pack_general_b<Copies>(*b, l0, depth, j0, cols, factor, nr, dst);
    for (i64 c = 0; c < cols;) {
        const i64 w = next_panel_width(cols - c, nr);
        pack_shaped_panel<T, Copies>(
            *b, j0 + c, w, l0, depth, factor, false, dst + c * depth * Copies,
            [&](const MatrixDesc<T>& view, i64 first, i64 steps, T* d) {
                pack_general_b<Copies>(view, first, steps, j0 + c, w, factor, w, d);
            });
        c += w;
    }
}

}  // namespace

template <class T>
void pack_a(const MatrixDesc<T>* a, i64 i0, i64 rows, i64 l0, i64 depth, T alpha, i64 mr, T* dst)
{
    pack_a_any<T>(a, i0, rows, l0, depth, alpha, mr, dst);
}

template <class T>
void pack_b(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst)
{
    pack_b_any<T, 1>(b, l0, depth, j0, cols, factor, nr, dst);
}

template <class T>
void pack_b_doubled(const MatrixDesc<T>* b, i64 l0, i64 depth, i64 j0, i64 cols, T factor, i64 nr, T* dst)
{
    pack_b_any<T, 2>(b, l0, depth, j0, cols, factor, nr, dst);
}

template void pack_a<double>(const MatrixDesc<double>*, i64, i64, i64, i64, double, i64, double*);
template void pack_a<dcomplex>(const MatrixDesc<dcomplex>*, i64, i64, i64, i64, dcomplex, i64, dcomplex*);
template void pack_b<double>(const MatrixDesc<double>*, i64, i64, i64, i64, double, i64, double*);
template void pack_b<dcomplex>(const MatrixDesc<dcomplex>*, i64, i64, i64, i64, dcomplex, i64, dcomplex*);
template void pack_b_doubled<double>(const MatrixDesc<double>*, i64, i64, i64, i64, double, i64, double*);
template void pack_b_doubled<dcomplex>(const MatrixDesc<dcomplex>*, i64, i64, i64, i64, dcomplex, i64,
                                       dcomplex*);

}  // namespace orv
