// Packing op(A) and op(B) into the panel layouts of the inner kernels.
//
// Every panel, of either operand, is one of two gathers: the source holds a
// panel's values of one step of depth side by side (op(A) as is, op(B)
// transposed), or it holds each of the panel's lines side by side along the
// depth (op(A) transposed, op(B) as is). The common panel widths get code of
// their own with the width fixed, so that the copies are whole vectors.
#include "level3/gemm_pack.h"

#include <emmintrin.h>

namespace orv {

i64 next_panel_width(i64 remaining, i64 full)
{
    if (remaining >= full) return full;
    i64 width = 1;
    while (2 * width <= remaining) width *= 2;
    return width;
}

namespace {

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

}  // namespace

void pack_a_plain(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr, double* dst)
{
    pack_panels<Adjacent<1>>(rows, mr, a->ld, depth, alpha, 1, dst,
                             [&](i64 r) { return a->elem_addr(i0 + r, l0, a); });
}

void pack_a_transposed(const MatrixDesc* a, i64 i0, i64 rows, i64 l0, i64 depth, double alpha, i64 mr,
                       double* dst)
{
    pack_panels<Lines<1>>(rows, mr, a->ld, depth, alpha, 1, dst, [&](i64 r) { return a->elem_addr(i0 + r, l0, a); });
}

void pack_b_plain(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst)
{
    pack_panels<Lines<1>>(cols, nr, b->ld, depth, factor, 1, dst, [&](i64 c) { return b->elem_addr(l0, j0 + c, b); });
}

void pack_b_transposed(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst)
{
    pack_panels<Adjacent<1>>(cols, nr, b->ld, depth, factor, 1, dst,
                             [&](i64 c) { return b->elem_addr(l0, j0 + c, b); });
}

void pack_b_plain_doubled(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst)
{
    pack_panels<Lines<2>>(cols, nr, b->ld, depth, factor, 2, dst, [&](i64 c) { return b->elem_addr(l0, j0 + c, b); });
}

void pack_b_transposed_doubled(const MatrixDesc* b, i64 l0, i64 depth, i64 j0, i64 cols, double factor, i64 nr,
                  double* dst)
{
    pack_panels<Adjacent<2>>(cols, nr, b->ld, depth, factor, 2, dst,
                             [&](i64 c) { return b->elem_addr(l0, j0 + c, b); });
}

}  // namespace orv
