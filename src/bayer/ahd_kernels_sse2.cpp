// SSE2 forms of the demosaicing stages: the values of the scalar forms.
// The green and colour stages run on 16-bit lanes for 8-bit mosaics and on
// 32-bit lanes for 16-bit ones through one template over the lane type; every
// lane computes both the green-site and the other-site formula and keeps the
// one its site needs. The Lab stage stays scalar (it is three table lookups
// per pixel). Loops stop at the last full vector; the rest of a run goes
// through the scalar form.
#include <emmintrin.h>

#include "bayer/ahd_kernels.h"

namespace nmq::ahd {
namespace {

inline __m128i sel(__m128i m, __m128i a, __m128i b) { return _mm_or_si128(_mm_and_si128(m, a), _mm_andnot_si128(m, b)); }

struct Lane16 {
    using W = int16_t;
    static constexpr int N = 8;
    static __m128i ld(const W* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static void st(W* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
    static __m128i set(int v) { return _mm_set1_epi16(short(v)); }
    static __m128i add(__m128i a, __m128i b) { return _mm_add_epi16(a, b); }
    static __m128i sub(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
    template <int S> static __m128i sra(__m128i a) { return _mm_srai_epi16(a, S); }
    static __m128i min(__m128i a, __m128i b) { return _mm_min_epi16(a, b); }
    static __m128i max(__m128i a, __m128i b) { return _mm_max_epi16(a, b); }
    static __m128i lanes(int a, int b) { return _mm_setr_epi16(short(a), short(b), short(a), short(b), short(a), short(b), short(a), short(b)); }
};

struct Lane32 {
    using W = int32_t;
    static constexpr int N = 4;
    static __m128i ld(const W* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static void st(W* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
    static __m128i set(int v) { return _mm_set1_epi32(v); }
    static __m128i add(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
    static __m128i sub(__m128i a, __m128i b) { return _mm_sub_epi32(a, b); }
    template <int S> static __m128i sra(__m128i a) { return _mm_srai_epi32(a, S); }
    static __m128i min(__m128i a, __m128i b) { return sel(_mm_cmpgt_epi32(a, b), b, a); }
    static __m128i max(__m128i a, __m128i b) { return sel(_mm_cmpgt_epi32(a, b), a, b); }
    static __m128i lanes(int a, int b) { return _mm_setr_epi32(a, b, a, b); }
};

// Mask of the lanes that are green sites for a run starting at an index of
// parity i0 (runs advance by whole vectors, an even count).
template <class L>
__m128i green_mask(int i0, RowSites s) {
    const int g0 = s.green(i0) ? -1 : 0, g1 = s.green(i0 + 1) ? -1 : 0;
    return L::lanes(g0, g1);
}

template <class L>
inline __m128i candidate(__m128i n1, __m128i c, __m128i n2, __m128i f1, __m128i f2) {
    const __m128i s = L::add(n1, L::add(c, n2));
    const __m128i v = L::template sra<2>(L::add(L::sub(L::sub(L::add(s, s), f1), f2), L::set(2)));
    return L::min(L::max(v, L::min(n1, n2)), L::max(n1, n2));
}

template <class L, class W = typename L::W>
void green_row(const W* m2, const W* m1, const W* c, const W* p1, const W* p2, W* gh, W* gv, int i0, int i1,
               RowSites s) {
    const __m128i g = green_mask<L>(i0, s);
    int i = i0;
    for (; i + L::N <= i1; i += L::N) {
        const __m128i cc = L::ld(c + i);
        const __m128i h = candidate<L>(L::ld(c + i - 1), cc, L::ld(c + i + 1), L::ld(c + i - 2), L::ld(c + i + 2));
        const __m128i v = candidate<L>(L::ld(m1 + i), cc, L::ld(p1 + i), L::ld(m2 + i), L::ld(p2 + i));
        L::st(gh + i, sel(g, cc, h));
        L::st(gv + i, sel(g, cc, v));
    }
    green_row_scalar<W>(m2, m1, c, p1, p2, gh, gv, i, i1, s);
}

template <class L, class W = typename L::W>
void colour_row(const W* a, const W* c, const W* b, const W* ga, const W* gc, const W* gb, W* r, W* g, W* bl,
                int i0, int i1, RowSites s, int maxv) {
    const __m128i gm = green_mask<L>(i0, s);
    const __m128i zero = _mm_setzero_si128(), top = L::set(maxv), one = L::set(1), two = L::set(2);
    auto clamp = [&](__m128i v) { return L::min(L::max(v, zero), top); };
    auto diff = [&](const W* x, const W* gx, int k) { return L::sub(L::ld(x + k), L::ld(gx + k)); };
    int i = i0;
    for (; i + L::N <= i1; i += L::N) {
        const __m128i G = L::ld(gc + i);
        const __m128i xg = clamp(L::add(G, L::template sra<1>(L::add(L::add(diff(c, gc, i - 1), diff(c, gc, i + 1)), one))));
        const __m128i yg = clamp(L::add(G, L::template sra<1>(L::add(L::add(diff(a, ga, i), diff(b, gb, i)), one))));
        const __m128i d4 = L::add(L::add(diff(a, ga, i - 1), diff(a, ga, i + 1)), L::add(diff(b, gb, i - 1), diff(b, gb, i + 1)));
        const __m128i yo = clamp(L::add(G, L::template sra<2>(L::add(d4, two))));
        const __m128i x = sel(gm, xg, L::ld(c + i));
        const __m128i y = sel(gm, yg, yo);
        L::st(r + i, s.red_row ? x : y);
        L::st(g + i, G);
        L::st(bl + i, s.red_row ? y : x);
    }
    colour_row_scalar<W>(a, c, b, ga, gc, gb, r, g, bl, i, i1, s, maxv);
}

inline __m128i ld16(const int16_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

// |dL| (16-bit lanes) and da^2 + db^2 (two vectors of 32-bit lanes) of 8 pixels
// to one neighbour.
struct Dist8 {
    __m128i l, ab_lo, ab_hi;
};
inline Dist8 dist8(const LabRows& p, int i, int row, int j) {
    const __m128i dl = _mm_sub_epi16(ld16(p.L[1] + i), ld16(p.L[row] + j));
    const __m128i da = _mm_sub_epi16(ld16(p.a[1] + i), ld16(p.a[row] + j));
    const __m128i db = _mm_sub_epi16(ld16(p.b[1] + i), ld16(p.b[row] + j));
    const __m128i lo = _mm_unpacklo_epi16(da, db), hi = _mm_unpackhi_epi16(da, db);
    return {_mm_max_epi16(dl, _mm_sub_epi16(_mm_setzero_si128(), dl)), _mm_madd_epi16(lo, lo), _mm_madd_epi16(hi, hi)};
}
inline __m128i max32(__m128i a, __m128i b) { return sel(_mm_cmpgt_epi32(a, b), a, b); }
inline __m128i min32(__m128i a, __m128i b) { return sel(_mm_cmpgt_epi32(a, b), b, a); }

// -1 in the lanes of the neighbours within both tolerances.
inline __m128i within(const Dist8& d, __m128i leps, __m128i ab_lo, __m128i ab_hi) {
    const __m128i over_ab = _mm_packs_epi32(_mm_cmpgt_epi32(d.ab_lo, ab_lo), _mm_cmpgt_epi32(d.ab_hi, ab_hi));
    return _mm_andnot_si128(_mm_or_si128(_mm_cmpgt_epi16(d.l, leps), over_ab), _mm_set1_epi16(-1));
}

template <class T, class W, class L>
void choose_row(const int16_t* const hh[3], const int16_t* const hv[3], const W* const rgbh[3],
                const W* const rgbv[3], T* d, int i0, int n) {
    int k = 0;
    for (; k + 8 <= n; k += 8, d += 24) {
        const int i = i0 + k;
        __m128i sh = _mm_setzero_si128(), sv = _mm_setzero_si128();
        for (int r = 0; r < 3; ++r) {
            sh = _mm_add_epi16(sh, _mm_add_epi16(_mm_add_epi16(ld16(hh[r] + i - 1), ld16(hh[r] + i)), ld16(hh[r] + i + 1)));
            sv = _mm_add_epi16(sv, _mm_add_epi16(_mm_add_epi16(ld16(hv[r] + i - 1), ld16(hv[r] + i)), ld16(hv[r] + i + 1)));
        }
        const __m128i gt = _mm_cmpgt_epi16(sh, sv), lt = _mm_cmpgt_epi16(sv, sh);
        // Masks per lane of W: 8 lanes of 16 bits, or two halves of 4 lanes of 32 bits.
        __m128i mg[2], ml[2];
        if (L::N == 8) {
            mg[0] = gt, ml[0] = lt;
        } else {
            mg[0] = _mm_unpacklo_epi16(gt, gt), mg[1] = _mm_unpackhi_epi16(gt, gt);
            ml[0] = _mm_unpacklo_epi16(lt, lt), ml[1] = _mm_unpackhi_epi16(lt, lt);
        }
        alignas(16) W out[3][8];
        for (int c = 0; c < 3; ++c)
            for (int part = 0; part < 8 / L::N; ++part) {
                const int o = i + part * L::N;
                const __m128i x = L::ld(rgbh[c] + o), y = L::ld(rgbv[c] + o);
                const __m128i mean = L::template sra<1>(L::add(L::add(x, y), L::set(1)));
                L::st(out[c] + part * L::N, sel(mg[part], x, sel(ml[part], y, mean)));
            }
        for (int j = 0; j < 8; ++j) {
            d[3 * j] = T(out[0][j]);
            d[3 * j + 1] = T(out[1][j]);
            d[3 * j + 2] = T(out[2][j]);
        }
    }
    choose_row_scalar<T, W>(hh, hv, rgbh, rgbv, d, i0 + k, n - k);
}

}  // namespace

void green_row_sse2(const int16_t* m2, const int16_t* m1, const int16_t* c, const int16_t* p1, const int16_t* p2,
                    int16_t* gh, int16_t* gv, int i0, int i1, RowSites s) {
    green_row<Lane16>(m2, m1, c, p1, p2, gh, gv, i0, i1, s);
}
void green_row_sse2(const int32_t* m2, const int32_t* m1, const int32_t* c, const int32_t* p1, const int32_t* p2,
                    int32_t* gh, int32_t* gv, int i0, int i1, RowSites s) {
    green_row<Lane32>(m2, m1, c, p1, p2, gh, gv, i0, i1, s);
}
void colour_row_sse2(const int16_t* a, const int16_t* c, const int16_t* b, const int16_t* ga, const int16_t* gc,
                     const int16_t* gb, int16_t* r, int16_t* g, int16_t* bl, int i0, int i1, RowSites s, int maxv) {
    colour_row<Lane16>(a, c, b, ga, gc, gb, r, g, bl, i0, i1, s, maxv);
}
void colour_row_sse2(const int32_t* a, const int32_t* c, const int32_t* b, const int32_t* ga, const int32_t* gc,
                     const int32_t* gb, int32_t* r, int32_t* g, int32_t* bl, int i0, int i1, RowSites s, int maxv) {
    colour_row<Lane32>(a, c, b, ga, gc, gb, r, g, bl, i0, i1, s, maxv);
}

void homo_row_sse2(const LabRows& h, const LabRows& v, int16_t* hh, int16_t* hv, int i0, int i1) {
    int i = i0;
    for (; i + 8 <= i1; i += 8) {
        const Dist8 dh[4] = {dist8(h, i, 1, i - 1), dist8(h, i, 1, i + 1), dist8(h, i, 0, i), dist8(h, i, 2, i)};
        const Dist8 dv[4] = {dist8(v, i, 1, i - 1), dist8(v, i, 1, i + 1), dist8(v, i, 0, i), dist8(v, i, 2, i)};
        const __m128i leps = _mm_min_epi16(_mm_max_epi16(dh[0].l, dh[1].l), _mm_max_epi16(dv[2].l, dv[3].l));
        const __m128i ab_lo = min32(max32(dh[0].ab_lo, dh[1].ab_lo), max32(dv[2].ab_lo, dv[3].ab_lo));
        const __m128i ab_hi = min32(max32(dh[0].ab_hi, dh[1].ab_hi), max32(dv[2].ab_hi, dv[3].ab_hi));
        __m128i ch = _mm_setzero_si128(), cv = _mm_setzero_si128();
        for (int k = 0; k < 4; ++k) {
            ch = _mm_sub_epi16(ch, within(dh[k], leps, ab_lo, ab_hi));
            cv = _mm_sub_epi16(cv, within(dv[k], leps, ab_lo, ab_hi));
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(hh + i), ch);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(hv + i), cv);
    }
    homo_row_scalar(h, v, hh, hv, i, i1);
}

void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int16_t* const rgbh[3],
                     const int16_t* const rgbv[3], uint8_t* d, int i0, int n) {
    choose_row<uint8_t, int16_t, Lane16>(hh, hv, rgbh, rgbv, d, i0, n);
}
void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int32_t* const rgbh[3],
                     const int32_t* const rgbv[3], uint16_t* d, int i0, int n) {
    choose_row<uint16_t, int32_t, Lane32>(hh, hv, rgbh, rgbv, d, i0, n);
}

}  // namespace nmq::ahd
