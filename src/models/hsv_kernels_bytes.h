// 8u HSV on 32 three-byte pixels per step in 256-bit registers, for the AVX2
// and the AVX-512 kernels (hsv_kernels_avx2.cpp, hsv_kernels_avx512.cpp).
//
// The integer part works on the 32 pixels as bytes (one sample of a pixel per
// byte), and only the operands of the float arithmetic are widened to 32-bit
// lanes: four groups of eight pixels per byte vector. The float operations of
// a pixel are those of the scalar kernel (hsv_kernels.h) in its order, one
// pixel per lane, with the same packed reciprocal estimate (rcpps: AVX-512's
// own estimate gives other bits), so the bytes are the scalar ones.
//
// Everything here sits in an unnamed namespace: each file built for its own
// instruction set gets its own copy, and no copy can stand in for another.
// Built with AVX-512 BW and VL, byte choices take mask registers (one
// operation where the AVX2 byte blend takes three); the results are the same.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "models/hsv_layout.h"

#if defined(__AVX512BW__) && defined(__AVX512VL__)
#define NMQ_HSV_MASKS 1
#else
#define NMQ_HSV_MASKS 0
#endif

namespace nmq::hsv {
namespace {

using F8 = __m256;
using I8 = __m256i;

inline F8 ps(float v) { return _mm256_set1_ps(v); }
inline F8 cvt(I8 v) { return _mm256_cvtepi32_ps(v); }
inline I8 b8(int v) { return _mm256_set1_epi8(char(v)); }

// Four groups of eight 32-bit lanes (group k: pixels 4k..4k+3 and 16+4k..
// 16+4k+3) to 32 bytes in pixel order, saturated to 0..255 as the SSE2 store
// does (signed 16-bit, then unsigned 8-bit).
inline I8 narrow(const I8 g[4]) {
    return _mm256_packus_epi16(_mm256_packs_epi32(g[0], g[1]), _mm256_packs_epi32(g[2], g[3]));
}

// Shuffle masks, written out for both 128-bit lanes so that the shuffles
// read them from memory instead of broadcasting them in the loop.
// widen[k]: bytes 4k..4k+3 of each lane (pixels 4k..4k+3 and 16+4k..
// 16+4k+3) to the eight 32-bit lanes of group k, zero-extended; dup[k]: the
// same byte into the two upper bytes of its lane instead. gather[r][ch] and
// scatter[r][ch]: channel ch of the 16 three-byte pixels of register r and
// back.
struct Masks {
    alignas(32) int8_t widen[4][32];
    alignas(32) int8_t dup[4][32];
    alignas(32) int8_t gather[3][3][32];
    alignas(32) int8_t scatter[3][3][32];
    constexpr Masks() : widen(), dup(), gather(), scatter() {
        for (int j = 0; j < 32; ++j) {
            const int b = j % 16;
            for (int k = 0; k < 4; ++k) {
                widen[k][j] = int8_t(b % 4 ? 0x80 : 4 * k + b / 4);
                dup[k][j] = int8_t(b % 4 >= 2 ? 4 * k + b / 4 : 0x80);
            }
            for (int r = 0; r < 3; ++r)
                for (int ch = 0; ch < 3; ++ch) {
                    const int g = 3 * b + ch, o = 16 * r + b;
                    gather[r][ch][j] = int8_t(g / 16 == r ? g % 16 : 0x80);
                    scatter[r][ch][j] = int8_t(o % 3 == ch ? o / 3 : 0x80);
                }
        }
    }
};
inline constexpr Masks kMasks{};

inline I8 shuf(I8 v, const int8_t (&m)[32]) {
    return _mm256_shuffle_epi8(v, _mm256_load_si256(reinterpret_cast<const __m256i*>(m)));
}
inline F8 widen_f(I8 v, int k) { return cvt(shuf(v, kMasks.widen[k])); }

// ---- the operations that differ between the two builds ----

#if NMQ_HSV_MASKS
using Mask = __mmask32;  // one bit per byte
inline Mask eq8(I8 a, I8 b) { return _mm256_cmpeq_epi8_mask(a, b); }
inline Mask andnot(Mask a, Mask b) { return _kandn_mask32(a, b); }
inline I8 sel8(Mask m, I8 a, I8 b) { return _mm256_mask_blend_epi8(m, b, a); }
inline I8 or3(I8 a, I8 b, I8 c) { return _mm256_ternarylogic_epi32(a, b, c, 0xFE); }
// 0xFF where m1, else 0x40 where m2, else 0.
inline I8 code8(Mask m1, Mask m2) {
    return _mm256_mask_mov_epi8(_mm256_maskz_mov_epi8(m2, b8(0x40)), m1, b8(0xFF));
}
// H >= T for H in 0..254.
template <int T>
inline Mask at_least(I8 H) { return _mm256_cmpge_epu8_mask(H, b8(T)); }
// H >= T as a mask that both chooses bytes and counts (count_in).
template <int T>
inline Mask ge8(I8 H) { return _mm256_cmpge_epu8_mask(H, b8(T)); }
// n + 1 where m.
inline I8 count_in(I8 n, Mask m) { return _mm256_mask_add_epi8(n, m, n, b8(1)); }
// x + c where x < 0.
inline F8 add_if_negative(F8 x, float c) {
    return _mm256_mask_add_ps(x, _mm256_cmp_ps_mask(x, _mm256_setzero_ps(), _CMP_LT_OQ), x, ps(c));
}
using FMask = __mmask8;
inline FMask le_f(F8 a, F8 b) { return _mm256_cmp_ps_mask(a, b, _CMP_LE_OQ); }
inline F8 self(FMask m, F8 a, F8 b) { return _mm256_mask_blend_ps(m, b, a); }
#else
using Mask = I8;  // 0xFF or 0 per byte, or (at_least) the top bit of each byte
inline Mask eq8(I8 a, I8 b) { return _mm256_cmpeq_epi8(a, b); }
inline Mask andnot(Mask a, Mask b) { return _mm256_andnot_si256(a, b); }
inline I8 sel8(Mask m, I8 a, I8 b) { return _mm256_blendv_epi8(b, a, m); }
inline I8 or3(I8 a, I8 b, I8 c) { return _mm256_or_si256(_mm256_or_si256(a, b), c); }
inline I8 code8(Mask m1, Mask m2) { return _mm256_or_si256(m1, _mm256_and_si256(m2, b8(0x40))); }
// The top bit of H + 128 - T, without wrapping, says H >= T (H <= 254).
template <int T>
inline Mask at_least(I8 H) {
    static_assert(T > 0 && T < 255, "threshold inside the byte range");
    return T < 128 ? _mm256_adds_epu8(H, b8(128 - T)) : _mm256_subs_epu8(H, b8(T - 128));
}
// H >= T as 0xFF or 0 per byte, which both chooses bytes and counts.
template <int T>
inline Mask ge8(I8 H) { return _mm256_cmpeq_epi8(_mm256_max_epu8(H, b8(T)), H); }
inline I8 count_in(I8 n, Mask m) { return _mm256_sub_epi8(n, m); }
inline F8 add_if_negative(F8 x, float c) {
    return _mm256_add_ps(x, _mm256_and_ps(_mm256_cmp_ps(x, _mm256_setzero_ps(), _CMP_LT_OQ), ps(c)));
}
using FMask = F8;
inline FMask le_f(F8 a, F8 b) { return _mm256_cmp_ps(a, b, _CMP_LE_OQ); }
inline F8 self(FMask m, F8 a, F8 b) { return _mm256_blendv_ps(b, a, m); }
#endif
inline F8 wrap255(F8 x) { return add_if_negative(x, 255.0f); }

// 32 pixels at q to the bytes at positions 0, 1 and 2 (pixels 0-15 in the
// low 128-bit lane, 16-31 in the high one), and back. Exactly the 96 bytes
// of the pixels are read and written.
inline I8 ld2(const uint8_t* a, const uint8_t* b) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a))),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(b)), 1);
}
inline void load3(const uint8_t* q, I8 m[3]) {
    const I8 in[3] = {ld2(q, q + 48), ld2(q + 16, q + 64), ld2(q + 32, q + 80)};
    for (int ch = 0; ch < 3; ++ch)
        m[ch] = or3(shuf(in[0], kMasks.gather[0][ch]), shuf(in[1], kMasks.gather[1][ch]),
                    shuf(in[2], kMasks.gather[2][ch]));
}
inline void store3(uint8_t* q, const I8 m[3]) {
    I8 out[3];
    for (int r = 0; r < 3; ++r)
        out[r] = or3(shuf(m[0], kMasks.scatter[r][0]), shuf(m[1], kMasks.scatter[r][1]),
                     shuf(m[2], kMasks.scatter[r][2]));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), _mm256_permute2x128_si256(out[0], out[1], 0x20));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 32), _mm256_permute2x128_si256(out[2], out[0], 0x30));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 64), _mm256_permute2x128_si256(out[1], out[2], 0x31));
}

// ---- RGB to HSV ----

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
    const Mask g_wins = andnot(eq8(r, V), eq8(g, V));
    const Mask b_wins = andnot(g_wins, eq8(b, V));
    const I8 before = _mm256_sub_epi8(V, sel8(b_wins, g, sel8(g_wins, r, b)));
    const I8 after = _mm256_sub_epi8(V, sel8(b_wins, r, sel8(g_wins, b, g)));
    // K's float bits are 0x40800000 (4) or 0x40000000 (2): a code byte with
    // bits 6 and 7 for blue, bit 6 alone for green, copied to the two upper
    // bytes of the lane and masked.
    const I8 kcode = code8(b_wins, g_wins);
    const F8 kbits = _mm256_castsi256_ps(_mm256_set1_epi32(0x40800000));
    I8 hq[4], sq[4];
    for (int k = 0; k < 4; ++k) {
        const F8 fd = widen_f(d, k);
        const F8 sf = _mm256_mul_ps(_mm256_mul_ps(_mm256_rcp_ps(widen_f(V, k)), fd), ps(255.0f));
        const F8 inv = _mm256_rcp_ps(fd);
        const F8 xa = _mm256_mul_ps(widen_f(before, k), inv), xb = _mm256_mul_ps(widen_f(after, k), inv);
        const F8 K = _mm256_and_ps(_mm256_castsi256_ps(shuf(kcode, kMasks.dup[k])), kbits);
        const F8 h6 = _mm256_sub_ps(_mm256_add_ps(K, xa), xb);
        hq[k] = _mm256_cvtps_epi32(wrap255(_mm256_mul_ps(h6, ps(42.5f))));
        sq[k] = _mm256_cvtps_epi32(sf);
    }
    h = narrow(hq);
    s = narrow(sq);
    v = V;
}

// ---- HSV to RGB ----

// The sextant i = int(H / 60 * 360 / 255) as the float arithmetic gives it
// grows with H, so it is known from H alone: i >= k exactly when H >=
// first_of_sextant(k), the least such H, found with the same float products.
constexpr float hue6(int H) { return float(H) * 0.016666668f * 1.4117647f; }
constexpr int first_of_sextant(int k) {
    int H = 0;
    while (H < 255 && int(hue6(H)) < k) ++H;
    return H;
}

// p, q and t are rounded and saturated as the scalar kernel rounds the
// chosen one, and then chosen per byte. Zero saturation needs no case of its
// own: c is 0, so p, q and t are all V.
inline void hsv32_to_rgb(I8 H, I8 S, I8 V, I8& r, I8& g, I8& b) {
    H = _mm256_andnot_si256(_mm256_cmpeq_epi8(H, b8(255)), H);  // the full circle is 0
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
    const Mask c1 = at_least<T1>(H), c2 = at_least<T2>(H), c3 = at_least<T3>(H);
    const Mask c4 = at_least<T4>(H), c5 = at_least<T5>(H);
    // Sextants 0..5 give (R, G, B) = (V,t,p) (q,V,p) (p,V,t) (p,q,V) (t,p,V) (V,p,q).
    r = sel8(andnot(c5, c1), sel8(c4, t, sel8(c2, p, q)), V);
    g = sel8(c3, sel8(c4, p, q), sel8(c1, V, t));
    b = sel8(c3, sel8(c5, q, V), sel8(c2, t, p));
}

// ---- RGB to HLS ----

// The constants of the scalar 8u HLS kernels (Hls8u in hsv_kernels.h).
constexpr float kHlsHueOut = 0.7083333f, kHlsHueIn = 1.4117647f, kHlsUnit = 0.003921569f;

// The integer stages are exact in bytes: L = (V + m) >> 1, and the
// denominator of S, V + m or 510 - V - m (whichever the float test of the
// scalar kernel picks: V + m above 255), is min(V + m, 255) - max(V + m - 255,
// 0), always 0..255. The hue's difference of samples is signed: it goes
// through 16-bit lanes, times 60 there (float(a - b) * 60 is exact, so the
// product of integers is the same number), and its angle offset 0, 120 or
// 240 comes from a code byte as in rgb_to_hsv32: bytes 0x43F0 of the lane's
// top half masked with 0xF2F2 give 120 (0x42F00000), with 0x7373 240
// (0x43700000). Red wins ties, then green, as in the scalar kernel.
//
// Gray pixels (d = 0) compute NaN for H, and for S of black, through the
// refined reciprocal of 0 (inf - 0 * inf * inf); narrow() turns the
// conversions' integer indefinite into 0, the scalar value.
inline F8 rcp_nr(F8 x) {
    const F8 r = _mm256_rcp_ps(x);
    return _mm256_sub_ps(_mm256_mul_ps(ps(2.0f), r), _mm256_mul_ps(_mm256_mul_ps(x, r), r));
}

inline void rgb_to_hls32(I8 r, I8 g, I8 b, I8& h, I8& l, I8& s) {
    const I8 V = _mm256_max_epu8(r, _mm256_max_epu8(g, b));
    const I8 m = _mm256_min_epu8(r, _mm256_min_epu8(g, b));
    const I8 d = _mm256_sub_epi8(V, m);
    l = _mm256_sub_epi8(_mm256_avg_epu8(V, m), _mm256_and_si256(_mm256_xor_si256(V, m), b8(1)));
    const I8 den = _mm256_sub_epi8(_mm256_adds_epu8(V, m), _mm256_subs_epu8(V, _mm256_xor_si256(m, b8(0xFF))));
    const Mask r_wins = eq8(r, V);
    const Mask g_wins = andnot(r_wins, eq8(g, V));
    // hue = 60 (a - b) / d + K: (g - b, 0) for red, (b - r, 120) for green,
    // (r - g, 240) for blue.
    const I8 a = sel8(r_wins, g, sel8(g_wins, b, r));
    const I8 c = sel8(r_wins, b, sel8(g_wins, r, g));
    const I8 kcode = sel8(r_wins, _mm256_setzero_si256(), sel8(g_wins, b8(0xF2), b8(0x73)));
    const I8 z = _mm256_setzero_si256(), sixty = _mm256_set1_epi16(60);
    const I8 diff[2] = {
        _mm256_mullo_epi16(_mm256_sub_epi16(_mm256_unpacklo_epi8(a, z), _mm256_unpacklo_epi8(c, z)), sixty),
        _mm256_mullo_epi16(_mm256_sub_epi16(_mm256_unpackhi_epi8(a, z), _mm256_unpackhi_epi8(c, z)), sixty)};
    const F8 kbits = _mm256_castsi256_ps(_mm256_set1_epi32(0x43F00000));
    I8 hq[4], sq[4];
    for (int k = 0; k < 4; ++k) {
        // Words 4k'..4k'+3 of each lane (pixels of group k) sign-extended.
        const I8 w = diff[k / 2];
        const I8 w2 = k % 2 ? _mm256_unpackhi_epi16(w, w) : _mm256_unpacklo_epi16(w, w);
        const F8 d60 = cvt(_mm256_srai_epi32(w2, 16));
        const F8 fd = widen_f(d, k);
        const F8 sf = _mm256_mul_ps(_mm256_mul_ps(fd, rcp_nr(widen_f(den, k))), ps(255.0f));
        const F8 K = _mm256_and_ps(_mm256_castsi256_ps(shuf(kcode, kMasks.dup[k])), kbits);
        const F8 hue = add_if_negative(_mm256_add_ps(_mm256_mul_ps(d60, rcp_nr(fd)), K), 360.0f);
        hq[k] = _mm256_cvttps_epi32(_mm256_mul_ps(hue, ps(kHlsHueOut)));
        sq[k] = _mm256_cvttps_epi32(sf);
    }
    h = narrow(hq);
    s = narrow(sq);
}

// ---- HLS to RGB ----

// The hue angle of the scalar kernel, and the first H of each 60-degree
// sextant (h grows with H).
constexpr float hls_angle(int H) { return float(H) * kHlsHueIn; }
constexpr int first_of_hls_sextant(int k) {
    int H = 0;
    while (H < 255 && hls_angle(H) < 60.0f * float(k)) ++H;
    return H;
}

// Inside sextant i one channel is on a ramp, fa (m2 - m1) + m1, and the
// other two are m2 and m1: (R, G, B) = (m2, up, m1) (down, m2, m1)
// (m1, m2, up) (m1, down, m2) (up, m1, m2) (m2, m1, down). The ramp's
// factor fa, a / 60 going up and (240 - a) / 60 going down for the
// channel's angle a, is found as (h + c1 + c2) * ks, one rounding per
// operation as in the scalar kernel: the angle is h + 120 (R, rounded, then
// less 360 going up), h or h - 120 (B, exact), and the down ramps take
// (a - 240) * -1/60, the same number as (240 - a) / 60. Where the scalar
// angle lands on a sextant's edge (H = 255 gives h = 360) the other cases
// give the ramp at factor 0, which is m1 exactly.
struct HlsRamp {
    alignas(32) float c1[8], c2[8], ks[8];
};
inline constexpr HlsRamp kHlsRamp{{0.0f, 120.0f, -120.0f, 0.0f, 120.0f, -120.0f, 0.0f, 0.0f},
                                  {0.0f, -240.0f, 0.0f, -240.0f, -360.0f, -240.0f, 0.0f, 0.0f},
                                  {0.016666668f, -0.016666668f, 0.016666668f, -0.016666668f, 0.016666668f,
                                   -0.016666668f, 0.0f, 0.0f}};

// m2, m1 and the ramp are converted (x 255, truncated, saturated) per lane
// and chosen per byte by the sextant. Zero saturation needs no case of its
// own: m2 = m1 = l and the ramp adds 0 to l, so all three are the gray value.
inline void hls32_to_rgb(I8 H, I8 L, I8 S, I8& r, I8& g, I8& b) {
    constexpr int T1 = first_of_hls_sextant(1), T2 = first_of_hls_sextant(2), T3 = first_of_hls_sextant(3);
    constexpr int T4 = first_of_hls_sextant(4), T5 = first_of_hls_sextant(5);
    static_assert(0 < T1 && T1 < T2 && T2 < T3 && T3 < T4 && T4 < T5 && T5 < 255, "six sextants");
    const Mask c1 = ge8<T1>(H), c2 = ge8<T2>(H), c3 = ge8<T3>(H), c4 = ge8<T4>(H), c5 = ge8<T5>(H);
    const I8 sextant = count_in(count_in(count_in(count_in(count_in(_mm256_setzero_si256(), c1), c2), c3), c4), c5);
    const F8 tc1 = _mm256_load_ps(kHlsRamp.c1), tc2 = _mm256_load_ps(kHlsRamp.c2), tks = _mm256_load_ps(kHlsRamp.ks);
    I8 hi[4], lo[4], ramp[4];
    for (int k = 0; k < 4; ++k) {
        const I8 i = shuf(sextant, kMasks.widen[k]);
        const F8 h = _mm256_mul_ps(widen_f(H, k), ps(kHlsHueIn));
        const F8 a = _mm256_add_ps(_mm256_add_ps(h, _mm256_permutevar8x32_ps(tc1, i)), _mm256_permutevar8x32_ps(tc2, i));
        const F8 fa = _mm256_mul_ps(a, _mm256_permutevar8x32_ps(tks, i));
        const F8 l = _mm256_mul_ps(widen_f(L, k), ps(kHlsUnit)), s = _mm256_mul_ps(widen_f(S, k), ps(kHlsUnit));
        const F8 m2 = self(le_f(l, ps(0.5f)), _mm256_mul_ps(l, _mm256_add_ps(ps(1.0f), s)),
                           _mm256_sub_ps(_mm256_add_ps(l, s), _mm256_mul_ps(l, s)));
        const F8 m1 = _mm256_sub_ps(_mm256_mul_ps(ps(2.0f), l), m2);
        const F8 x = _mm256_add_ps(_mm256_mul_ps(fa, _mm256_sub_ps(m2, m1)), m1);
        hi[k] = _mm256_cvttps_epi32(_mm256_mul_ps(m2, ps(255.0f)));
        lo[k] = _mm256_cvttps_epi32(_mm256_mul_ps(m1, ps(255.0f)));
        ramp[k] = _mm256_cvttps_epi32(_mm256_mul_ps(x, ps(255.0f)));
    }
    const I8 M2 = narrow(hi), M1 = narrow(lo), X = narrow(ramp);
    r = sel8(c2, sel8(c4, sel8(c5, M2, X), M1), sel8(c1, X, M2));
    g = sel8(c4, M1, sel8(c3, X, sel8(c1, M2, X)));
    b = sel8(c2, sel8(c3, sel8(c5, X, M2), X), M1);
}

// ---- rows ----

// Byte offsets of the model samples inside a three-byte pixel.
template <class L>
struct Offsets;
template <int O0, int O1, int O2, bool W>
struct Offsets<Packed<3, O0, O1, O2, W>> {
    static constexpr int kO0 = O0, kO1 = O1, kO2 = O2;
};

// Whole blocks of 32 three-byte pixels through f as three byte vectors, one
// per model sample, from the side Sd to the side Dd; returns the first
// column left.
template <class Sd, class Dd, class F>
inline int map32_bytes(const SrcRow& s, const DstRow& d, int width, F f) {
    using S = Offsets<Sd>;
    using D = Offsets<Dd>;
    int x = 0;
    for (; x + 32 <= width; x += 32) {
        I8 in[3], out[3];
        load3(s.p[0] + 3 * ptrdiff_t(x), in);
        f(in[S::kO0], in[S::kO1], in[S::kO2], out[D::kO0], out[D::kO1], out[D::kO2]);
        store3(d.p[0] + 3 * ptrdiff_t(x), out);
    }
    return x;
}

// The rest of the row from column x (a multiple of 32, so a multiple of 4:
// the SSE2 kernel's vector part, and with it the tie rule of 8u HSV, ends at
// the same column) through the SSE2 kernel.
template <class Row>
inline void rest(Row row, const SrcRow& s, const DstRow& d, int x, int width) {
    if (x == width) return;
    const SrcRow s2{{s.p[0] + 3 * ptrdiff_t(x), nullptr, nullptr, nullptr}};
    const DstRow d2{{d.p[0] + 3 * ptrdiff_t(x), nullptr, nullptr, nullptr}};
    row(s2, d2, width - x);
}

}  // namespace
}  // namespace nmq::hsv
