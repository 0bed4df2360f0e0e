// SSE2 row kernels of the 8u HSV and HLS conversions: four pixels per step,
// one pixel per 32-bit float lane, the same operations in the same order as
// the scalar kernels of hsv_kernels.h, so the bytes are the same. Each row
// ends with the scalar kernel on the last width % 4 pixels.
#pragma once

#include <emmintrin.h>

#include "frame/dispatch.h"
#include "models/hsv_kernels.h"
#include "models/hsv_kernels_avx2.h"

namespace nmq::hsv {

namespace v4 {

inline __m128 ps(float v) { return _mm_set1_ps(v); }
inline __m128 cvt(__m128i v) { return _mm_cvtepi32_ps(v); }
inline __m128i sel(__m128i m, __m128i a, __m128i b) {
    return _mm_or_si128(_mm_and_si128(m, a), _mm_andnot_si128(m, b));
}
inline __m128 sel(__m128 m, __m128 a, __m128 b) { return _mm_or_ps(_mm_and_ps(m, a), _mm_andnot_ps(m, b)); }
inline __m128 sel(__m128i m, __m128 a, __m128 b) { return sel(_mm_castsi128_ps(m), a, b); }

// Lanes hold 0..255 (the upper halves are zero), so the 16-bit signed
// max/min give the 32-bit max/min.
inline __m128i max3(__m128i a, __m128i b, __m128i c) { return _mm_max_epi16(a, _mm_max_epi16(b, c)); }
inline __m128i min3(__m128i a, __m128i b, __m128i c) { return _mm_min_epi16(a, _mm_min_epi16(b, c)); }

inline __m128 rcp_nr(__m128 x) {
    const __m128 r = _mm_rcp_ps(x);
    return _mm_sub_ps(_mm_mul_ps(ps(2.0f), r), _mm_mul_ps(_mm_mul_ps(x, r), r));
}

// Lanes of gray pixels compute infinities and NaNs; they are masked to zero.
inline void rgb_to_hsv_8u(__m128i r, __m128i g, __m128i b, __m128i& h, __m128i& s, __m128i& v) {
    const __m128i V = max3(r, g, b);
    const __m128i d = _mm_sub_epi32(V, min3(r, g, b));
    const __m128i gray = _mm_cmpeq_epi32(d, _mm_setzero_si128());
    const __m128 fd = cvt(d);
    const __m128 sf = _mm_mul_ps(_mm_mul_ps(_mm_rcp_ps(cvt(V)), fd), ps(255.0f));
    const __m128 inv = _mm_rcp_ps(fd);
    const __m128 rc = _mm_mul_ps(cvt(_mm_sub_epi32(V, r)), inv);
    const __m128 gc = _mm_mul_ps(cvt(_mm_sub_epi32(V, g)), inv);
    const __m128 bc = _mm_mul_ps(cvt(_mm_sub_epi32(V, b)), inv);
    const __m128i g_wins = _mm_andnot_si128(_mm_cmpeq_epi32(r, V), _mm_cmpeq_epi32(g, V));
    const __m128i b_wins = _mm_andnot_si128(g_wins, _mm_cmpeq_epi32(b, V));
    const __m128 h6 = sel(b_wins, _mm_sub_ps(_mm_add_ps(ps(4.0f), gc), rc),
                          sel(g_wins, _mm_sub_ps(_mm_add_ps(ps(2.0f), rc), bc), _mm_sub_ps(bc, gc)));
    __m128 hf = _mm_mul_ps(h6, ps(42.5f));
    hf = _mm_add_ps(hf, _mm_and_ps(_mm_cmplt_ps(hf, _mm_setzero_ps()), ps(255.0f)));
    h = _mm_andnot_si128(gray, _mm_cvtps_epi32(hf));
    s = _mm_andnot_si128(gray, _mm_cvtps_epi32(sf));
    v = V;
}

inline void hsv_to_rgb_8u(__m128i H, __m128i S, __m128i V, __m128i& r, __m128i& g, __m128i& b) {
    H = _mm_andnot_si128(_mm_cmpeq_epi32(H, _mm_set1_epi32(255)), H);
    const __m128 h = _mm_mul_ps(_mm_mul_ps(cvt(H), ps(0.016666668f)), ps(1.4117647f));
    const __m128i i = _mm_cvttps_epi32(h);
    const __m128 f = _mm_sub_ps(h, cvt(i));
    const __m128 fv = cvt(V);
    const __m128 c = _mm_mul_ps(fv, _mm_mul_ps(cvt(S), ps(0.003921569f)));
    const __m128 fc = _mm_mul_ps(f, c);
    const __m128 p = _mm_sub_ps(fv, c), q = _mm_sub_ps(fv, fc), t = _mm_add_ps(p, fc);
    __m128i is[6];
    for (int k = 0; k < 6; ++k) is[k] = _mm_cmpeq_epi32(i, _mm_set1_epi32(k));
    // Sextants 0..5 give (R, G, B) = (V,t,p) (q,V,p) (p,V,t) (p,q,V) (t,p,V) (V,p,q).
    __m128 R = sel(_mm_or_si128(is[0], is[5]), fv, sel(is[1], q, sel(is[4], t, p)));
    __m128 G = sel(_mm_or_si128(is[1], is[2]), fv, sel(is[0], t, sel(is[3], q, p)));
    __m128 B = sel(_mm_or_si128(is[3], is[4]), fv, sel(is[2], t, sel(is[5], q, p)));
    const __m128i gray = _mm_cmpeq_epi32(S, _mm_setzero_si128());
    R = sel(gray, fv, R);
    G = sel(gray, fv, G);
    B = sel(gray, fv, B);
    r = _mm_cvtps_epi32(R);
    g = _mm_cvtps_epi32(G);
    b = _mm_cvtps_epi32(B);
}

inline void rgb_to_hls_8u(__m128i r, __m128i g, __m128i b, __m128i& h, __m128i& l, __m128i& s) {
    const __m128i V = max3(r, g, b), m = min3(r, g, b);
    const __m128i d = _mm_sub_epi32(V, m);
    const __m128i gray = _mm_cmpeq_epi32(d, _mm_setzero_si128());
    const __m128 sum = cvt(_mm_add_epi32(V, m));
    const __m128 half = _mm_mul_ps(sum, ps(0.5f));
    l = _mm_cvttps_epi32(half);
    const __m128 den = sel(_mm_cmpgt_ps(half, ps(Hls8u::kHalf)), _mm_sub_ps(ps(Hls8u::kTwice), sum), sum);
    const __m128 fd = cvt(d);
    const __m128 sf = _mm_mul_ps(_mm_mul_ps(fd, rcp_nr(den)), ps(Hls8u::kMax));
    const __m128 rd = rcp_nr(fd);
    const __m128 sixty = ps(60.0f);
    const __m128 hr = _mm_mul_ps(_mm_mul_ps(cvt(_mm_sub_epi32(g, b)), sixty), rd);
    const __m128 hg = _mm_add_ps(_mm_mul_ps(_mm_mul_ps(cvt(_mm_sub_epi32(b, r)), sixty), rd), ps(120.0f));
    const __m128 hb = _mm_add_ps(_mm_mul_ps(_mm_mul_ps(cvt(_mm_sub_epi32(r, g)), sixty), rd), ps(240.0f));
    const __m128i is_r = _mm_cmpeq_epi32(r, V);
    const __m128i is_g = _mm_andnot_si128(is_r, _mm_cmpeq_epi32(g, V));
    __m128 hue = sel(is_r, hr, sel(is_g, hg, hb));
    hue = _mm_add_ps(hue, _mm_and_ps(_mm_cmplt_ps(hue, _mm_setzero_ps()), ps(360.0f)));
    h = _mm_andnot_si128(gray, _mm_cvttps_epi32(_mm_mul_ps(hue, ps(Hls8u::kHueOut))));
    s = _mm_andnot_si128(gray, _mm_cvttps_epi32(sf));
}

inline __m128 hls_value(__m128 a, __m128 m1, __m128 m2) {
    const __m128 k = ps(0.016666668f), diff = _mm_sub_ps(m2, m1);
    const __m128 up = _mm_add_ps(_mm_mul_ps(_mm_mul_ps(a, k), diff), m1);
    const __m128 down = _mm_add_ps(_mm_mul_ps(_mm_mul_ps(_mm_sub_ps(ps(240.0f), a), k), diff), m1);
    return sel(_mm_cmplt_ps(a, ps(60.0f)), up,
               sel(_mm_cmplt_ps(a, ps(180.0f)), m2, sel(_mm_cmplt_ps(a, ps(240.0f)), down, m1)));
}

inline void hls_to_rgb_8u(__m128i H, __m128i L, __m128i S, __m128i& r, __m128i& g, __m128i& b) {
    const __m128 h = _mm_mul_ps(cvt(H), ps(Hls8u::kHueIn));
    const __m128 l = _mm_mul_ps(cvt(L), ps(Hls8u::kUnit)), s = _mm_mul_ps(cvt(S), ps(Hls8u::kUnit));
    const __m128 m2 = sel(_mm_cmple_ps(l, ps(0.5f)), _mm_mul_ps(l, _mm_add_ps(ps(1.0f), s)),
                          _mm_sub_ps(_mm_add_ps(l, s), _mm_mul_ps(l, s)));
    const __m128 m1 = _mm_sub_ps(_mm_mul_ps(ps(2.0f), l), m2);
    __m128 ar = _mm_add_ps(h, ps(120.0f));
    ar = _mm_sub_ps(ar, _mm_and_ps(_mm_cmpgt_ps(ar, ps(360.0f)), ps(360.0f)));
    __m128 ab = _mm_sub_ps(h, ps(120.0f));
    ab = _mm_add_ps(ab, _mm_and_ps(_mm_cmplt_ps(ab, _mm_setzero_ps()), ps(360.0f)));
    const __m128i gray = _mm_cmpeq_epi32(S, _mm_setzero_si128());
    const __m128 k = ps(Hls8u::kMax);
    r = _mm_cvttps_epi32(_mm_mul_ps(sel(gray, l, hls_value(ar, m1, m2)), k));
    g = _mm_cvttps_epi32(_mm_mul_ps(sel(gray, l, hls_value(h, m1, m2)), k));
    b = _mm_cvttps_epi32(_mm_mul_ps(sel(gray, l, hls_value(ab, m1, m2)), k));
}

// Four pixels at a time, then the scalar pixels of the tail.
template <class S, class D, class F>
inline int map4(const SrcRow& s, const DstRow& d, int width, F f) {
    const int vec_end = width & ~3;
    for (int x = 0; x < vec_end; x += 4) {
        const Px4 p = S::load4(s, x);
        Px4 o;
        o.c[3] = p.c[3];
        f(p.c[0], p.c[1], p.c[2], o.c[0], o.c[1], o.c[2]);
        D::store4(d, x, o);
    }
    return vec_end;
}

}  // namespace v4

template <class S, class D>
void innerRGBToHSV_8u_sse2(const SrcRow& s, const DstRow& d, int width) {
    const int x = v4::map4<S, D>(s, d, width, v4::rgb_to_hsv_8u);
    rgb_to_hsv_8u_pixels<S, D>(s, d, x, x, width);
}

template <class S, class D>
void innerHSVToRGB_8u_sse2(const SrcRow& s, const DstRow& d, int width) {
    const int x = v4::map4<S, D>(s, d, width, v4::hsv_to_rgb_8u);
    map_pixels<S, D>(s, d, x, width, hsv_to_rgb_8u);
}

template <class S, class D>
void innerRGBToHLS_8u_sse2(const SrcRow& s, const DstRow& d, int width) {
    const int x = v4::map4<S, D>(s, d, width, v4::rgb_to_hls_8u);
    map_pixels<S, D>(s, d, x, width, rgb_to_hls<Hls8u>);
}

template <class S, class D>
void innerHLSToRGB_8u_sse2(const SrcRow& s, const DstRow& d, int width) {
    const int x = v4::map4<S, D>(s, d, width, v4::hls_to_rgb_8u);
    map_pixels<S, D>(s, d, x, width, hls_to_rgb<Hls8u>);
}

// The kernel of the calling thread's instruction-set level.
template <class S, class D>
inline Row8 rgb_to_hsv_8u_row() {
    return nmq::pick(Kernels<Row8>{innerRGBToHSV_8u<S, D>, innerRGBToHSV_8u_sse2<S, D>,
                                   hsv_avx2<S, D>(innerRGBToHSV_8u_avx2<Rgb3, Rgb3>), nullptr, nullptr,
                                   hsv_avx2<S, D>(innerRGBToHSV_8u_avx512<Rgb3, Rgb3>)});
}
template <class S, class D>
inline Row8 hsv_to_rgb_8u_row() {
    return nmq::pick(Kernels<Row8>{innerHSVToRGB_8u<S, D>, innerHSVToRGB_8u_sse2<S, D>,
                                   hsv_avx2<S, D>(innerHSVToRGB_8u_avx2<Rgb3, Rgb3>), nullptr, nullptr,
                                   hsv_avx2<S, D>(innerHSVToRGB_8u_avx512<Rgb3, Rgb3>)});
}
template <class S, class D>
inline Row8 rgb_to_hls_8u_row() {
    return nmq::pick(Kernels<Row8>{innerRGBToHLS_8u<S, D>, innerRGBToHLS_8u_sse2<S, D>,
                                   hsv_avx2<S, D>(innerRGBToHLS_8u_avx2<Rgb3, Rgb3>), nullptr, nullptr,
                                   hsv_avx2<S, D>(innerRGBToHLS_8u_avx512<Rgb3, Rgb3>)});
}
template <class S, class D>
inline Row8 hls_to_rgb_8u_row() {
    return nmq::pick(Kernels<Row8>{innerHLSToRGB_8u<S, D>, innerHLSToRGB_8u_sse2<S, D>,
                                   hsv_avx2<S, D>(innerHLSToRGB_8u_avx2<Rgb3, Rgb3>), nullptr, nullptr,
                                   hsv_avx2<S, D>(innerHLSToRGB_8u_avx512<Rgb3, Rgb3>)});
}

}  // namespace nmq::hsv
