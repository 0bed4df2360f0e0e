// AVX2 row kernels of the 8u HSV and HLS conversions between three-byte
// pixels, 32 pixels per step. HSV is hsv_kernels_bytes.h. HLS puts eight
// pixels in each group of 32-bit float lanes (a byte shuffle takes each
// sample straight into its lane) and runs the operations of the SSE2 kernels
// (hsv_kernels_sse2.h) lane by lane, so the bytes are the scalar ones; the
// packed reciprocal estimate is the same instruction at both widths. The rest
// of a row goes to the SSE2 kernel.
#include "models/hsv_kernels_bytes.h"

#include "models/hsv_kernels.h"
#include "models/hsv_kernels_avx2.h"

namespace nmq::hsv {
namespace {

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
            const I8 g = ld2(q + off, q + off + 48);
            f(pick_sample(g, sh, S::kO0), pick_sample(g, sh, S::kO1), pick_sample(g, sh, S::kO2), o[0][k], o[1][k],
              o[2][k]);
        }
        I8 out[3];
        out[D::kO0] = narrow(o[0]);
        out[D::kO1] = narrow(o[1]);
        out[D::kO2] = narrow(o[2]);
        store3(d.p[0] + 3 * ptrdiff_t(x), out);
    }
    return x;
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
