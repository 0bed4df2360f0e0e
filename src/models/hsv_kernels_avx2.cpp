// AVX2 row kernels of the 8u HSV and HLS conversions between three-byte
// pixels: 32 pixels per step, eight per group of 32-bit float lanes (a byte
// shuffle puts each sample straight into its lane), the operations of the
// SSE2 kernels (hsv_kernels_sse2.h) lane by lane, so the bytes are the scalar
// ones. The packed reciprocal estimate is the same instruction at both
// widths. The rest of a row goes to the SSE2 kernel, whose vector part (and
// therefore the tie rule of 8u HSV) ends at the same column.
#include <immintrin.h>

#include "models/gray_pixels_avx2.h"
#include "models/hsv_kernels_avx2.h"
#include "models/hsv_kernels.h"

namespace nmq::hsv {
namespace {

using F8 = __m256;
using I8 = __m256i;

inline F8 ps(float v) { return _mm256_set1_ps(v); }
inline F8 cvt(I8 v) { return _mm256_cvtepi32_ps(v); }
inline I8 sel(I8 m, I8 a, I8 b) { return _mm256_blendv_epi8(b, a, m); }
inline F8 sel(F8 m, F8 a, F8 b) { return _mm256_blendv_ps(b, a, m); }
inline F8 sel(I8 m, F8 a, F8 b) { return sel(_mm256_castsi256_ps(m), a, b); }
inline I8 max3(I8 a, I8 b, I8 c) { return _mm256_max_epi32(a, _mm256_max_epi32(b, c)); }
inline I8 min3(I8 a, I8 b, I8 c) { return _mm256_min_epi32(a, _mm256_min_epi32(b, c)); }
inline I8 eq(I8 a, I8 b) { return _mm256_cmpeq_epi32(a, b); }
inline I8 zero() { return _mm256_setzero_si256(); }
inline F8 lt(F8 a, F8 b) { return _mm256_cmp_ps(a, b, _CMP_LT_OQ); }
inline F8 le(F8 a, F8 b) { return _mm256_cmp_ps(a, b, _CMP_LE_OQ); }
inline F8 gt(F8 a, F8 b) { return _mm256_cmp_ps(a, b, _CMP_GT_OQ); }

inline F8 rcp_nr(F8 x) {
    const F8 r = _mm256_rcp_ps(x);
    return _mm256_sub_ps(_mm256_mul_ps(ps(2.0f), r), _mm256_mul_ps(_mm256_mul_ps(x, r), r));
}

// Four groups of eight 32-bit lanes (group k: pixels 4k..4k+3 and 16+4k..
// 16+4k+3) to 32 bytes in pixel order, saturated to 0..255 as the SSE2 store
// does (signed 16-bit, then unsigned 8-bit).
inline I8 narrow(const I8 g[4]) {
    return _mm256_packus_epi16(_mm256_packs_epi32(g[0], g[1]), _mm256_packs_epi32(g[2], g[3]));
}

// ---- 8u HSV: 32 pixels as bytes ----------------------------------------------
//
// The integer part of HSV works on 32 pixels at a time as bytes (one sample
// of a pixel per byte), and only what the float arithmetic needs is widened
// to 32-bit lanes: four groups of eight pixels per byte vector. The float
// operations per pixel are those of the scalar kernel in its order.

// Bytes 4k..4k+3 of each 128-bit lane (pixels 4k..4k+3 and 16+4k..16+4k+3)
// to the eight 32-bit lanes of group k, zero-extended; kDup puts the same
// byte into the two upper bytes of its lane instead.
struct Widen {
    int8_t m[4][16], dup[4][16];
    constexpr Widen() : m(), dup() {
        for (int k = 0; k < 4; ++k)
            for (int j = 0; j < 16; ++j) {
                m[k][j] = int8_t(j % 4 ? 0x80 : 4 * k + j / 4);
                dup[k][j] = int8_t(j % 4 >= 2 ? 4 * k + j / 4 : 0x80);
            }
    }
};
inline constexpr Widen kWiden{};

inline I8 widen(I8 v, int k) { return _mm256_shuffle_epi8(v, px256::mask(kWiden.m[k])); }
inline F8 widen_f(I8 v, int k) { return cvt(widen(v, k)); }

inline I8 b8(int v) { return _mm256_set1_epi8(char(v)); }
inline I8 sel8(I8 m, I8 a, I8 b) { return _mm256_blendv_epi8(b, a, m); }  // by the top bit of each byte of m

// Gray pixels (d = 0) compute NaNs for H and S (and for S of black), which
// convert to the integer indefinite value; narrow() saturates that to 0, the
// value the scalar kernel gives, so no mask is needed.
//
// The three hue formulas are one: h6 = K + (V - a) / d - (V - b) / d, where a
// and b are the samples before and after the winning one in the order R, G, B
// and K is 0, 2 or 4 (0 + x is x exactly, so red needs no formula of its
// own). Choosing a, b and K as bytes leaves two conversions, two products and
// two sums per pixel.
inline void rgb_to_hsv32(I8 r, I8 g, I8 b, I8& h, I8& s, I8& v) {
    const I8 V = _mm256_max_epu8(r, _mm256_max_epu8(g, b));
    const I8 d = _mm256_sub_epi8(V, _mm256_min_epu8(r, _mm256_min_epu8(g, b)));
    const I8 g_wins = _mm256_andnot_si256(_mm256_cmpeq_epi8(r, V), _mm256_cmpeq_epi8(g, V));
    const I8 b_wins = _mm256_andnot_si256(g_wins, _mm256_cmpeq_epi8(b, V));
    const I8 before = _mm256_sub_epi8(V, sel8(b_wins, g, sel8(g_wins, r, b)));
    const I8 after = _mm256_sub_epi8(V, sel8(b_wins, r, sel8(g_wins, b, g)));
    // K's float bits are 0x40800000 (4) or 0x40000000 (2): a code byte with
    // bits 6 and 7 for blue, bit 6 alone for green, copied to the two upper
    // bytes of the lane and masked.
    const I8 kcode = _mm256_or_si256(b_wins, _mm256_and_si256(g_wins, b8(0x40)));
    const F8 kbits = _mm256_castsi256_ps(_mm256_set1_epi32(0x40800000));
    I8 hq[4], sq[4];
    for (int k = 0; k < 4; ++k) {
        const F8 fd = widen_f(d, k);
        const F8 sf = _mm256_mul_ps(_mm256_mul_ps(_mm256_rcp_ps(widen_f(V, k)), fd), ps(255.0f));
        const F8 inv = _mm256_rcp_ps(fd);
        const F8 xa = _mm256_mul_ps(widen_f(before, k), inv), xb = _mm256_mul_ps(widen_f(after, k), inv);
        const F8 K = _mm256_and_ps(_mm256_castsi256_ps(_mm256_shuffle_epi8(kcode, px256::mask(kWiden.dup[k]))), kbits);
        const F8 h6 = _mm256_sub_ps(_mm256_add_ps(K, xa), xb);
        F8 hf = _mm256_mul_ps(h6, ps(42.5f));
        hf = _mm256_add_ps(hf, _mm256_and_ps(lt(hf, _mm256_setzero_ps()), ps(255.0f)));
        hq[k] = _mm256_cvtps_epi32(hf);
        sq[k] = _mm256_cvtps_epi32(sf);
    }
    h = narrow(hq);
    s = narrow(sq);
    v = V;
}

// The hue's sextant i = int(H / 60 * 360 / 255) as the float arithmetic
// gives it grows with H, so it is known from H alone: i >= k exactly when
// H >= kSextant[k] (the least such H, found with the same float products).
constexpr float hue6(int H) { return float(H) * 0.016666668f * 1.4117647f; }
constexpr int first_of_sextant(int k) {
    int H = 0;
    while (H < 255 && int(hue6(H)) < k) ++H;
    return H;
}

// A byte whose top bit says H >= T (H <= 254): H + 128 - T without wrapping.
template <int T>
inline I8 at_least(I8 H) {
    static_assert(T > 0 && T < 255, "threshold inside the byte range");
    return T < 128 ? _mm256_adds_epu8(H, b8(128 - T)) : _mm256_subs_epu8(H, b8(T - 128));
}

// p, q and t are rounded and saturated as the scalar kernel rounds the
// chosen one, and then chosen per byte. Zero saturation needs no case of its
// own: c is 0, so p, q and t are all V.
inline void hsv32_to_rgb(I8 H, I8 S, I8 V, I8& r, I8& g, I8& b) {
    H = _mm256_andnot_si256(_mm256_cmpeq_epi8(H, b8(255)), H);
    I8 pq[4], qq[4], tq[4];
    for (int k = 0; k < 4; ++k) {
        const F8 h = _mm256_mul_ps(_mm256_mul_ps(widen_f(H, k), ps(0.016666668f)), ps(1.4117647f));
        const F8 f = _mm256_sub_ps(h, cvt(_mm256_cvttps_epi32(h)));
        const F8 fv = widen_f(V, k);
        const F8 c = _mm256_mul_ps(fv, _mm256_mul_ps(widen_f(S, k), ps(0.003921569f)));
        const F8 fc = _mm256_mul_ps(f, c);
        const F8 p = _mm256_sub_ps(fv, c);
        pq[k] = _mm256_cvtps_epi32(p);
        qq[k] = _mm256_cvtps_epi32(_mm256_sub_ps(fv, fc));
        tq[k] = _mm256_cvtps_epi32(_mm256_add_ps(p, fc));
    }
    const I8 p = narrow(pq), q = narrow(qq), t = narrow(tq);
    constexpr int T1 = first_of_sextant(1), T2 = first_of_sextant(2), T3 = first_of_sextant(3);
    constexpr int T4 = first_of_sextant(4), T5 = first_of_sextant(5);
    static_assert(0 < T1 && T1 < T2 && T2 < T3 && T3 < T4 && T4 < T5 && T5 < 255, "six sextants");
    const I8 c1 = at_least<T1>(H), c2 = at_least<T2>(H), c3 = at_least<T3>(H);
    const I8 c4 = at_least<T4>(H), c5 = at_least<T5>(H);
    // Sextants 0..5 give (R, G, B) = (V,t,p) (q,V,p) (p,V,t) (p,q,V) (t,p,V) (V,p,q).
    r = sel8(_mm256_andnot_si256(c5, c1), sel8(c4, t, sel8(c2, p, q)), V);
    g = sel8(c3, sel8(c4, p, q), sel8(c1, V, t));
    b = sel8(c3, sel8(c5, q, V), sel8(c2, t, p));
}

inline void rgb_to_hls8(I8 r, I8 g, I8 b, I8& h, I8& l, I8& s) {
    const I8 V = max3(r, g, b), m = min3(r, g, b);
    const I8 d = _mm256_sub_epi32(V, m);
    const F8 sum = cvt(_mm256_add_epi32(V, m));
    const F8 half = _mm256_mul_ps(sum, ps(0.5f));
    l = _mm256_cvttps_epi32(half);
    const F8 den = sel(gt(half, ps(Hls8u::kHalf)), _mm256_sub_ps(ps(Hls8u::kTwice), sum), sum);
    const F8 fd = cvt(d);
    const F8 sf = _mm256_mul_ps(_mm256_mul_ps(fd, rcp_nr(den)), ps(Hls8u::kMax));
    const F8 rd = rcp_nr(fd);
    const F8 sixty = ps(60.0f);
    const F8 hr = _mm256_mul_ps(_mm256_mul_ps(cvt(_mm256_sub_epi32(g, b)), sixty), rd);
    const F8 hg = _mm256_add_ps(_mm256_mul_ps(_mm256_mul_ps(cvt(_mm256_sub_epi32(b, r)), sixty), rd), ps(120.0f));
    const F8 hb = _mm256_add_ps(_mm256_mul_ps(_mm256_mul_ps(cvt(_mm256_sub_epi32(r, g)), sixty), rd), ps(240.0f));
    const I8 is_r = eq(r, V);
    const I8 is_g = _mm256_andnot_si256(is_r, eq(g, V));
    F8 hue = sel(is_r, hr, sel(is_g, hg, hb));
    hue = _mm256_add_ps(hue, _mm256_and_ps(lt(hue, _mm256_setzero_ps()), ps(360.0f)));
    h = _mm256_cvttps_epi32(_mm256_mul_ps(hue, ps(Hls8u::kHueOut)));
    s = _mm256_cvttps_epi32(sf);
}

inline F8 hls_value(F8 a, F8 m1, F8 m2) {
    const F8 k = ps(0.016666668f), diff = _mm256_sub_ps(m2, m1);
    const F8 up = _mm256_add_ps(_mm256_mul_ps(_mm256_mul_ps(a, k), diff), m1);
    const F8 down = _mm256_add_ps(_mm256_mul_ps(_mm256_mul_ps(_mm256_sub_ps(ps(240.0f), a), k), diff), m1);
    return sel(lt(a, ps(60.0f)), up, sel(lt(a, ps(180.0f)), m2, sel(lt(a, ps(240.0f)), down, m1)));
}

inline void hls8_to_rgb(I8 H, I8 L, I8 S, I8& r, I8& g, I8& b) {
    const F8 h = _mm256_mul_ps(cvt(H), ps(Hls8u::kHueIn));
    const F8 l = _mm256_mul_ps(cvt(L), ps(Hls8u::kUnit)), s = _mm256_mul_ps(cvt(S), ps(Hls8u::kUnit));
    const F8 m2 = sel(le(l, ps(0.5f)), _mm256_mul_ps(l, _mm256_add_ps(ps(1.0f), s)),
                      _mm256_sub_ps(_mm256_add_ps(l, s), _mm256_mul_ps(l, s)));
    const F8 m1 = _mm256_sub_ps(_mm256_mul_ps(ps(2.0f), l), m2);
    F8 ar = _mm256_add_ps(h, ps(120.0f));
    ar = _mm256_sub_ps(ar, _mm256_and_ps(gt(ar, ps(360.0f)), ps(360.0f)));
    F8 ab = _mm256_sub_ps(h, ps(120.0f));
    ab = _mm256_add_ps(ab, _mm256_and_ps(lt(ab, _mm256_setzero_ps()), ps(360.0f)));
    const I8 gray = eq(S, zero());
    const F8 k = ps(Hls8u::kMax);
    r = _mm256_cvttps_epi32(_mm256_mul_ps(sel(gray, l, hls_value(ar, m1, m2)), k));
    g = _mm256_cvttps_epi32(_mm256_mul_ps(sel(gray, l, hls_value(h, m1, m2)), k));
    b = _mm256_cvttps_epi32(_mm256_mul_ps(sel(gray, l, hls_value(ab, m1, m2)), k));
}

// Shuffle masks taking the sample at byte offset c of four three-byte pixels
// to four 32-bit lanes; pick[1] is for pixels loaded four bytes early.
struct Pick {
    int8_t m[2][3][16];
    constexpr Pick() : m() {
        for (int sh = 0; sh < 2; ++sh)
            for (int c = 0; c < 3; ++c)
                for (int j = 0; j < 16; ++j) m[sh][c][j] = int8_t(j % 4 ? 0x80 : 3 * (j / 4) + c + 4 * sh);
    }
};
inline constexpr Pick kPick{};

inline I8 pick_sample(I8 q, int sh, int c) {
    const __m128i m = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kPick.m[sh][c]));
    return _mm256_shuffle_epi8(q, _mm256_broadcastsi128_si256(m));
}

// Byte offsets of the model samples inside a three-byte pixel.
template <class L>
struct Offsets;
template <int O0, int O1, int O2, bool W>
struct Offsets<Packed<3, O0, O1, O2, W>> {
    static constexpr int kO0 = O0, kO1 = O1, kO2 = O2;
};

// 32 three-byte pixels through f, from the side S to the side D.
template <class Sd, class Dd, class F>
inline int map32(const SrcRow& s, const DstRow& d, int width, F f) {
    using S = Offsets<Sd>;
    using D = Offsets<Dd>;
    int x = 0;
    for (; x + 32 <= width; x += 32) {
        // Group k holds pixels 4k..4k+3 in the low lane and 16+4k.. in the
        // high one, one per 32-bit lane; the last group is loaded four bytes
        // early so that no load passes pixel 31.
        const uint8_t* q = s.p[0] + 3 * ptrdiff_t(x);
        I8 o[3][4];
        for (int k = 0; k < 4; ++k) {
            const int off = k == 3 ? 32 : 12 * k, sh = k == 3;
            const I8 g = px256::ld2(q + off, q + off + 48);
            f(pick_sample(g, sh, S::kO0), pick_sample(g, sh, S::kO1), pick_sample(g, sh, S::kO2), o[0][k], o[1][k],
              o[2][k]);
        }
        I8 out[3];
        out[D::kO0] = narrow(o[0]);
        out[D::kO1] = narrow(o[1]);
        out[D::kO2] = narrow(o[2]);
        px256::store3x32(d.p[0] + 3 * x, out);
    }
    return x;
}

// 32 three-byte pixels through f as three byte vectors, one per model
// sample (pixels 0-15 in the low 128-bit lane, 16-31 in the high one).
template <class Sd, class Dd, class F>
inline int map32_bytes(const SrcRow& s, const DstRow& d, int width, F f) {
    using S = Offsets<Sd>;
    using D = Offsets<Dd>;
    int x = 0;
    for (; x + 32 <= width; x += 32) {
        I8 in[3], out[3];
        px256::load3x32(s.p[0] + 3 * ptrdiff_t(x), in);
        f(in[S::kO0], in[S::kO1], in[S::kO2], out[D::kO0], out[D::kO1], out[D::kO2]);
        px256::store3x32(d.p[0] + 3 * ptrdiff_t(x), out);
    }
    return x;
}

// The rest of the row from column x (a multiple of 32) through the SSE2 kernel.
template <class Row>
inline void rest(Row row, const SrcRow& s, const DstRow& d, int x, int width) {
    if (x == width) return;
    const SrcRow s2{{s.p[0] + 3 * ptrdiff_t(x), nullptr, nullptr, nullptr}};
    const DstRow d2{{d.p[0] + 3 * ptrdiff_t(x), nullptr, nullptr, nullptr}};
    row(s2, d2, width - x);
}

}  // namespace

template <class S, class D>
void innerRGBToHSV_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hsv32(a, b, c, x, y, z); };
    rest(innerRGBToHSV_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHSVToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hsv32_to_rgb(a, b, c, x, y, z); };
    rest(innerHSVToRGB_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerRGBToHLS_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hls8(a, b, c, x, y, z); };
    rest(innerRGBToHLS_8u_sse2<S, D>, s, d, map32<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHLSToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hls8_to_rgb(a, b, c, x, y, z); };
    rest(innerHLSToRGB_8u_sse2<S, D>, s, d, map32<S, D>(s, d, width, f), width);
}

template void innerRGBToHSV_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHSVToRGB_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerRGBToHLS_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHLSToRGB_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);

}  // namespace nmq::hsv
