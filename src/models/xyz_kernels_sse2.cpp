// SSE2 forms of the 8u and 32f XYZ kernels.
//
// 8u: the fixed-point sums are computed exactly in 32-bit lanes with 16-bit
// multiply-add. Coefficients reach 212368, beyond a signed 16-bit factor, so
// each coefficient c is split as c = 128 * (c >> 7) + (c & 127) and each
// sample x enters as the pair (128 x, x): pmaddwd of (128 x, x) with
// (c >> 7, c & 127) gives x * c with every factor inside 16 bits
// (128 * 255 = 32640). The results equal the scalar formulas bit for bit.
#include <emmintrin.h>

#include "models/gray_pixels_sse2.h"
#include "models/xyz_kernels.h"

namespace nmq::xyz {
namespace {

struct FixedMatrix {
    __m128i k[9];
    explicit FixedMatrix(const int32_t* m) {
        for (int i = 0; i < 9; ++i)
            k[i] = _mm_set1_epi32(int32_t(uint32_t(m[i] & 127) << 16 | (uint32_t(m[i] >> 7) & 0xFFFFu)));
    }
};

// Four pixels (one lane register) to four pixels: each output (sum >> 16)
// clamped to 0..255, in the same lane layout.
inline __m128i fixed4(__m128i q, const FixedMatrix& m) {
    __m128i p[3];
    p[0] = px::channel32<0>(q);
    p[1] = px::channel32<1>(q);
    p[2] = px::channel32<2>(q);
    for (auto& v : p) v = _mm_or_si128(_mm_slli_epi32(v, 7), _mm_slli_epi32(v, 16));
    __m128i o[3];
    for (int k = 0; k < 3; ++k) {
        const __m128i s = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(p[0], m.k[k]), _mm_madd_epi16(p[1], m.k[3 + k])),
                                        _mm_madd_epi16(p[2], m.k[6 + k]));
        o[k] = _mm_srai_epi32(s, 16);
    }
    // Clamp through the packs, then back to one pixel per lane.
    const __m128i b = _mm_packus_epi16(_mm_packs_epi32(o[0], o[1]), _mm_packs_epi32(o[2], _mm_setzero_si128()));
    const __m128i xy = _mm_unpacklo_epi8(b, _mm_srli_si128(b, 4));
    const __m128i z0 = _mm_unpacklo_epi8(_mm_srli_si128(b, 8), _mm_setzero_si128());
    return _mm_unpacklo_epi16(xy, z0);
}

// AC4 destinations: three bytes per pixel, the alpha byte is not written.
inline void store3_keep_alpha(uint8_t* d, __m128i q) {
    alignas(16) uint32_t v[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(v), q);
    for (int i = 0; i < 4; ++i) {
        d[4 * i] = uint8_t(v[i]);
        d[4 * i + 1] = uint8_t(v[i] >> 8);
        d[4 * i + 2] = uint8_t(v[i] >> 16);
    }
}

template <int S, bool Forward>
void fixed_rows(const uint8_t* src, uint8_t* dst, int width) {
    const FixedMatrix m(Forward ? RGBToXYZ_8u : XYZToRGB_8u);
    int x = 0;
    __m128i q[4];
    for (; x + 16 <= width; x += 16) {
        if (S == 3) px::load3x16(src + 3 * x, q);
        else px::load4x16(src + 4 * x, q);
        for (auto& v : q) v = fixed4(v, m);
        if (S == 3) px::store3x16(dst + 3 * x, q);
        else
            for (int i = 0; i < 4; ++i) store3_keep_alpha(dst + 4 * (x + 4 * i), q[i]);
    }
    // The rest of the row: the scalar formulas are the same arithmetic.
    if (Forward) innerRGBToXYZ_8u_C3R<S>(src + S * x, dst + S * x, width - x);
    else innerXYZToRGB_8u_C3R<S>(src + S * x, dst + S * x, width - x);
}

// ---- 32f --------------------------------------------------------------------
// Four C3 pixels (three registers) to planes a, b, c and back.
inline void load3f(const float* p, __m128& a, __m128& b, __m128& c) {
    const __m128 i0 = _mm_loadu_ps(p), i1 = _mm_loadu_ps(p + 4), i2 = _mm_loadu_ps(p + 8);
    const __m128 u = _mm_shuffle_ps(i1, i2, _MM_SHUFFLE(1, 0, 0, 2));
    a = _mm_shuffle_ps(i0, u, _MM_SHUFFLE(3, 0, 3, 0));
    const __m128 g0 = _mm_shuffle_ps(i0, i1, _MM_SHUFFLE(0, 0, 1, 1));
    const __m128 g1 = _mm_shuffle_ps(i1, i2, _MM_SHUFFLE(0, 2, 0, 3));
    b = _mm_shuffle_ps(g0, g1, _MM_SHUFFLE(2, 0, 2, 0));
    const __m128 b0 = _mm_shuffle_ps(i0, i1, _MM_SHUFFLE(1, 1, 2, 2));
    c = _mm_shuffle_ps(b0, i2, _MM_SHUFFLE(3, 0, 2, 0));
}

inline void store3f(float* p, __m128 a, __m128 b, __m128 c) {
    const __m128 ab = _mm_unpacklo_ps(a, b);
    const __m128 ca = _mm_shuffle_ps(c, a, _MM_SHUFFLE(1, 1, 0, 0));
    _mm_storeu_ps(p, _mm_shuffle_ps(ab, ca, _MM_SHUFFLE(2, 0, 1, 0)));
    const __m128 bc = _mm_shuffle_ps(b, c, _MM_SHUFFLE(1, 1, 1, 1));
    const __m128 ab2 = _mm_shuffle_ps(a, b, _MM_SHUFFLE(2, 2, 2, 2));
    _mm_storeu_ps(p + 4, _mm_shuffle_ps(bc, ab2, _MM_SHUFFLE(2, 0, 2, 0)));
    const __m128 ca3 = _mm_shuffle_ps(c, a, _MM_SHUFFLE(3, 3, 2, 2));
    const __m128 bc3 = _mm_shuffle_ps(b, c, _MM_SHUFFLE(3, 3, 3, 3));
    _mm_storeu_ps(p + 8, _mm_shuffle_ps(ca3, bc3, _MM_SHUFFLE(2, 0, 2, 0)));
}

// Four AC4 pixels: the alpha lanes are dropped on load and not written on store.
inline void load4f(const float* p, __m128& a, __m128& b, __m128& c) {
    __m128 r0 = _mm_loadu_ps(p), r1 = _mm_loadu_ps(p + 4), r2 = _mm_loadu_ps(p + 8), r3 = _mm_loadu_ps(p + 12);
    _MM_TRANSPOSE4_PS(r0, r1, r2, r3);
    a = r0;
    b = r1;
    c = r2;
}

inline void store4f_keep_alpha(float* p, __m128 a, __m128 b, __m128 c) {
    __m128 r0 = a, r1 = b, r2 = c, r3 = _mm_setzero_ps();
    _MM_TRANSPOSE4_PS(r0, r1, r2, r3);
    const __m128 px4[4] = {r0, r1, r2, r3};
    for (int i = 0; i < 4; ++i) {
        _mm_storel_pi(reinterpret_cast<__m64*>(p + 4 * i), px4[i]);
        _mm_store_ss(p + 4 * i + 2, _mm_movehl_ps(px4[i], px4[i]));
    }
}

inline __m128 frow(const float* m, int k, __m128 a, __m128 b, __m128 c) {
    return _mm_add_ps(_mm_add_ps(_mm_mul_ps(a, _mm_set1_ps(m[k])), _mm_mul_ps(b, _mm_set1_ps(m[3 + k]))),
                      _mm_mul_ps(c, _mm_set1_ps(m[6 + k])));
}

// Same comparisons as the scalar max0/min1: NaN gives 0 in max, 1 in min.
inline __m128 vmax0(__m128 v) { return _mm_max_ps(v, _mm_setzero_ps()); }
inline __m128 vmin1(__m128 v) { return _mm_min_ps(v, _mm_set1_ps(1.0f)); }
inline __m128 vclamp_inv(__m128 v) { return vmin1(_mm_andnot_ps(_mm_cmplt_ps(v, _mm_setzero_ps()), v)); }

template <int S, bool Forward>
void float_rows(const float* src, float* dst, int width) {
    int x = 0;
    for (; x + 4 <= width; x += 4) {
        __m128 a, b, c;
        if (S == 3) load3f(src + 3 * x, a, b, c);
        else load4f(src + 4 * x, a, b, c);
        __m128 o0, o1, o2;
        if (Forward) {
            o0 = frow(RGBToXYZ, 0, a, b, c);
            o1 = frow(RGBToXYZ, 1, a, b, c);
            o2 = vmin1(vmax0(frow(RGBToXYZ, 2, a, b, c)));
        } else {
            o0 = vclamp_inv(frow(XYZToRGB, 0, a, b, c));
            o1 = vclamp_inv(frow(XYZToRGB, 1, a, b, c));
            o2 = vclamp_inv(frow(XYZToRGB, 2, a, b, c));
        }
        if (S == 3) store3f(dst + 3 * x, o0, o1, o2);
        else store4f_keep_alpha(dst + 4 * x, o0, o1, o2);
    }
    if (Forward) innerRGBToXYZ_32f_C3R<S>(src + S * x, dst + S * x, width - x);
    else innerXYZToRGB_32f_C3R<S>(src + S * x, dst + S * x, width - x);
}

}  // namespace

template <int S>
void innerRGBToXYZ_8u_C3R_sse2(const uint8_t* src, uint8_t* dst, int width) { fixed_rows<S, true>(src, dst, width); }
template <int S>
void innerXYZToRGB_8u_C3R_sse2(const uint8_t* src, uint8_t* dst, int width) { fixed_rows<S, false>(src, dst, width); }
template <int S>
void innerRGBToXYZ_32f_C3R_sse2(const float* src, float* dst, int width) { float_rows<S, true>(src, dst, width); }
template <int S>
void innerXYZToRGB_32f_C3R_sse2(const float* src, float* dst, int width) { float_rows<S, false>(src, dst, width); }

template void innerRGBToXYZ_8u_C3R_sse2<3>(const uint8_t*, uint8_t*, int);
template void innerRGBToXYZ_8u_C3R_sse2<4>(const uint8_t*, uint8_t*, int);
template void innerXYZToRGB_8u_C3R_sse2<3>(const uint8_t*, uint8_t*, int);
template void innerXYZToRGB_8u_C3R_sse2<4>(const uint8_t*, uint8_t*, int);
template void innerRGBToXYZ_32f_C3R_sse2<3>(const float*, float*, int);
template void innerRGBToXYZ_32f_C3R_sse2<4>(const float*, float*, int);
template void innerXYZToRGB_32f_C3R_sse2<3>(const float*, float*, int);
template void innerXYZToRGB_32f_C3R_sse2<4>(const float*, float*, int);

}  // namespace nmq::xyz
