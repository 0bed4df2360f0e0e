// AVX2 forms of the C3 XYZ kernels: the sums of the SSE2 forms
// (xyz_kernels_sse2.cpp), exact in integers or in the same float order, so
// the bytes are the same; the rest of a row goes to the SSE2 form.
//
// 8u: 32 pixels per step, eight per group of 32-bit lanes. The inverse takes
// each sample as the pair (128 x, x) multiplied with the split coefficient
// (c >> 7, c & 127), as the SSE2 form does; the forward matrix, all positive,
// takes two samples per multiply-add (forward_rows_c3).
// 32f: eight pixels per step, pixels 0-3 in the low lane and 4-7 in the high
// one, shuffled lane by lane as the SSE2 form shuffles four pixels.
#include <immintrin.h>

#include "models/gray_pixels_avx2.h"
#include "models/xyz_kernels.h"

namespace nmq::xyz {
namespace {

using I8 = __m256i;
using F8 = __m256;

// ---- 8u -------------------------------------------------------------------------

struct FixedMatrix {
    I8 k[9];
    explicit FixedMatrix(const int32_t* m) {
        for (int i = 0; i < 9; ++i)
            k[i] = _mm256_set1_epi32(int32_t(uint32_t(m[i] & 127) << 16 | (uint32_t(m[i] >> 7) & 0xFFFFu)));
    }
};

// Bytes 8j..8j+7 of a 32-byte register as pairs (128 x, x) in 32-bit lanes.
inline I8 pairs(I8 m, int j) {
    const __m128i h = j < 2 ? _mm256_castsi256_si128(m) : _mm256_extracti128_si256(m, 1);
    const I8 x = _mm256_cvtepu8_epi32(j & 1 ? _mm_srli_si128(h, 8) : h);
    return _mm256_or_si256(_mm256_slli_epi32(x, 7), _mm256_slli_epi32(x, 16));
}

// Four groups of eight 32-bit results to 32 bytes in pixel order, clamped to
// 0..255 through the signed 16-bit and unsigned 8-bit packs.
inline I8 narrow(const I8 g[4]) {
    const I8 b = _mm256_packus_epi16(_mm256_packs_epi32(g[0], g[1]), _mm256_packs_epi32(g[2], g[3]));
    return _mm256_permutevar8x32_epi32(b, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

// The inverse, whose coefficients reach 212368 and change sign: one
// multiply-add per sample and output, on the split coefficients.
void inverse_rows_c3(const uint8_t* src, uint8_t* dst, int width) {
    const FixedMatrix m(XYZToRGB_8u);
    int x = 0;
    for (; x + 32 <= width; x += 32) {
        I8 c[3];
        px256::load3x32(src + 3 * x, c);
        I8 o[3][4];
        for (int j = 0; j < 4; ++j) {
            const I8 p0 = pairs(c[0], j), p1 = pairs(c[1], j), p2 = pairs(c[2], j);
            for (int k = 0; k < 3; ++k) {
                const I8 s = _mm256_add_epi32(
                    _mm256_add_epi32(_mm256_madd_epi16(p0, m.k[k]), _mm256_madd_epi16(p1, m.k[3 + k])),
                    _mm256_madd_epi16(p2, m.k[6 + k]));
                o[k][j] = _mm256_srai_epi32(s, 16);
            }
        }
        const I8 out[3] = {narrow(o[0]), narrow(o[1]), narrow(o[2])};
        px256::store3x32(dst + 3 * x, out);
    }
    innerXYZToRGB_8u_C3R_sse2<3>(src + 3 * x, dst + 3 * x, width - x);
}

// The forward 8u matrix has only positive coefficients and sums below 2^25,
// so each output is two multiply-adds on pairs of samples, (R, G) and
// (B, G) as 16-bit halves of a 32-bit lane: the coefficients of 16 bits or
// more are split over the two halves (Y's G as twice 23434, both products
// exact) or doubled after the product (Z's B as 31137, then a shift). The
// sums are the scalar ones exactly.
struct ForwardPairs {
    // Lane constants (low half, high half): (R, G) and (B, G) factors.
    int32_t rg[3], bg[3];
};
constexpr int32_t lane(int32_t lo, int32_t hi) { return int32_t(uint32_t(hi) << 16 | uint32_t(lo)); }
constexpr const int32_t* kF = RGBToXYZ_8u;
static_assert(kF[0] < 32768 && kF[3] < 32768 && kF[6] < 32768, "X in one product per sample");
static_assert(kF[1] < 32768 && kF[4] % 2 == 0 && kF[4] / 2 < 32768 && kF[7] < 32768, "Y: G split in two");
static_assert(kF[2] < 32768 && kF[5] < 32768 && kF[8] % 2 == 0 && kF[8] / 2 < 32768, "Z: B doubled");
constexpr ForwardPairs kPairs{{lane(kF[0], kF[3]), lane(kF[1], kF[4] / 2), lane(kF[2], kF[5])},
                              {lane(kF[6], 0), lane(kF[7], kF[4] / 2), lane(kF[8] / 2, 0)}};

// Bytes a and b of 32 pixels as 32-bit lanes (a, b), group k holding pixels
// 4k..4k+3 of each 128-bit lane.
inline void pair_groups(I8 a, I8 b, I8 out[4]) {
    const I8 z = _mm256_setzero_si256();
    const I8 lo = _mm256_unpacklo_epi8(a, b), hi = _mm256_unpackhi_epi8(a, b);
    out[0] = _mm256_unpacklo_epi8(lo, z);
    out[1] = _mm256_unpackhi_epi8(lo, z);
    out[2] = _mm256_unpacklo_epi8(hi, z);
    out[3] = _mm256_unpackhi_epi8(hi, z);
}

// The upper halves (s >> 16) of groups k and k + 1 side by side as 16-bit
// words: pixel j of group k in word 2j, of group k + 1 in word 2j + 1.
inline I8 upper_words(I8 a, I8 b) { return _mm256_blend_epi16(_mm256_srli_epi32(a, 16), b, 0xAA); }

// The packed result holds pixel q of each 128-bit lane (16 pixels) in byte
// pos_of_pixel(q) of that lane (0, 4, 1, 5, 2, 6, 3, 7, then 8..15 alike);
// the store's masks take each pixel from there.
constexpr int pos_of_pixel(int q) { return (q & 8) + 2 * (q & 3) + ((q >> 2) & 1); }
struct ScatterMasks {
    alignas(32) int8_t m[3][3][32];
    constexpr ScatterMasks() : m() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int j = 0; j < 32; ++j) {
                    const int o = 16 * r + j % 16;
                    m[r][ch][j] = int8_t(o % 3 == ch ? pos_of_pixel(o / 3) : 0x80);
                }
    }
};
inline constexpr ScatterMasks kScatter{};

inline I8 scatter(I8 v, const int8_t (&m)[32]) {
    return _mm256_shuffle_epi8(v, _mm256_load_si256(reinterpret_cast<const __m256i*>(m)));
}

inline void store3_packed(uint8_t* q, const I8 c[3]) {
    I8 out[3];
    for (int r = 0; r < 3; ++r)
        out[r] = _mm256_or_si256(_mm256_or_si256(scatter(c[0], kScatter.m[r][0]), scatter(c[1], kScatter.m[r][1])),
                                 scatter(c[2], kScatter.m[r][2]));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), _mm256_permute2x128_si256(out[0], out[1], 0x20));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 32), _mm256_permute2x128_si256(out[2], out[0], 0x30));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 64), _mm256_permute2x128_si256(out[1], out[2], 0x31));
}

void forward_rows_c3(const uint8_t* src, uint8_t* dst, int width) {
    const I8 rg[3] = {_mm256_set1_epi32(kPairs.rg[0]), _mm256_set1_epi32(kPairs.rg[1]), _mm256_set1_epi32(kPairs.rg[2])};
    const I8 bg[3] = {_mm256_set1_epi32(kPairs.bg[0]), _mm256_set1_epi32(kPairs.bg[1]), _mm256_set1_epi32(kPairs.bg[2])};
    int x = 0;
    for (; x + 32 <= width; x += 32) {
        I8 c[3];
        px256::load3x32(src + 3 * x, c);
        I8 prg[4], pbg[4];
        pair_groups(c[0], c[1], prg);
        pair_groups(c[2], c[1], pbg);
        I8 out[3];
        for (int k = 0; k < 3; ++k) {
            I8 sum[4];
            for (int j = 0; j < 4; ++j) {
                I8 b = _mm256_madd_epi16(pbg[j], bg[k]);
                if (k == 2) b = _mm256_slli_epi32(b, 1);
                sum[j] = _mm256_add_epi32(_mm256_madd_epi16(prg[j], rg[k]), b);
            }
            // Z above 255 saturates to 255 in the unsigned pack.
            out[k] = _mm256_packus_epi16(upper_words(sum[0], sum[1]), upper_words(sum[2], sum[3]));
        }
        store3_packed(dst + 3 * x, out);
    }
    innerRGBToXYZ_8u_C3R_sse2<3>(src + 3 * x, dst + 3 * x, width - x);
}

// ---- 32f ------------------------------------------------------------------------

inline F8 ld2f(const float* a, const float* b) {
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(a)), _mm_loadu_ps(b), 1);
}

// Eight C3 pixels to planes a, b, c (pixels 0-3 low lane, 4-7 high lane).
inline void load3f(const float* p, F8& a, F8& b, F8& c) {
    const F8 i0 = ld2f(p, p + 12), i1 = ld2f(p + 4, p + 16), i2 = ld2f(p + 8, p + 20);
    const F8 u = _mm256_shuffle_ps(i1, i2, _MM_SHUFFLE(1, 0, 0, 2));
    a = _mm256_shuffle_ps(i0, u, _MM_SHUFFLE(3, 0, 3, 0));
    const F8 g0 = _mm256_shuffle_ps(i0, i1, _MM_SHUFFLE(0, 0, 1, 1));
    const F8 g1 = _mm256_shuffle_ps(i1, i2, _MM_SHUFFLE(0, 2, 0, 3));
    b = _mm256_shuffle_ps(g0, g1, _MM_SHUFFLE(2, 0, 2, 0));
    const F8 b0 = _mm256_shuffle_ps(i0, i1, _MM_SHUFFLE(1, 1, 2, 2));
    c = _mm256_shuffle_ps(b0, i2, _MM_SHUFFLE(3, 0, 2, 0));
}

template <bool Stream>
inline void st8f(float* p, F8 v) {
    if (Stream) _mm256_stream_ps(p, v);
    else _mm256_storeu_ps(p, v);
}

template <bool Stream>
inline void store3f(float* p, F8 a, F8 b, F8 c) {
    const F8 ab = _mm256_unpacklo_ps(a, b);
    const F8 ca = _mm256_shuffle_ps(c, a, _MM_SHUFFLE(1, 1, 0, 0));
    const F8 o0 = _mm256_shuffle_ps(ab, ca, _MM_SHUFFLE(2, 0, 1, 0));
    const F8 bc = _mm256_shuffle_ps(b, c, _MM_SHUFFLE(1, 1, 1, 1));
    const F8 ab2 = _mm256_shuffle_ps(a, b, _MM_SHUFFLE(2, 2, 2, 2));
    const F8 o1 = _mm256_shuffle_ps(bc, ab2, _MM_SHUFFLE(2, 0, 2, 0));
    const F8 ca3 = _mm256_shuffle_ps(c, a, _MM_SHUFFLE(3, 3, 2, 2));
    const F8 bc3 = _mm256_shuffle_ps(b, c, _MM_SHUFFLE(3, 3, 3, 3));
    const F8 o2 = _mm256_shuffle_ps(ca3, bc3, _MM_SHUFFLE(2, 0, 2, 0));
    // Low lanes hold floats 0-11, high lanes 12-23.
    st8f<Stream>(p, _mm256_permute2f128_ps(o0, o1, 0x20));
    st8f<Stream>(p + 8, _mm256_permute2f128_ps(o2, o0, 0x30));
    st8f<Stream>(p + 16, _mm256_permute2f128_ps(o1, o2, 0x31));
}

inline F8 frow(const float* m, int k, F8 a, F8 b, F8 c) {
    const F8 ab = _mm256_add_ps(_mm256_mul_ps(a, _mm256_set1_ps(m[k])), _mm256_mul_ps(b, _mm256_set1_ps(m[3 + k])));
    return _mm256_add_ps(ab, _mm256_mul_ps(c, _mm256_set1_ps(m[6 + k])));
}

// The SSE2 comparisons: NaN gives 0 in max, 1 in min.
inline F8 vmax0(F8 v) { return _mm256_max_ps(v, _mm256_setzero_ps()); }
inline F8 vmin1(F8 v) { return _mm256_min_ps(v, _mm256_set1_ps(1.0f)); }
inline F8 vclamp_inv(F8 v) { return vmin1(_mm256_andnot_ps(_mm256_cmp_ps(v, _mm256_setzero_ps(), _CMP_LT_OS), v)); }

template <bool Forward>
inline void float_tail(const float* src, float* dst, int width) {
    if (Forward) innerRGBToXYZ_32f_C3R_sse2<3>(src, dst, width);
    else innerXYZToRGB_32f_C3R_sse2<3>(src, dst, width);
}

// Stream: the destination is written with non-temporal stores from its first
// 32-byte boundary on (images much larger than the caches); the pixels before
// it go through the SSE2 form.
template <bool Forward, bool Stream>
void float_rows_c3(const float* src, float* dst, int width) {
    int x = 0;
    if (Stream) {
        const uintptr_t a = reinterpret_cast<uintptr_t>(dst);
        if (a % 4) return float_rows_c3<Forward, false>(src, dst, width);
        while ((a + 12 * uintptr_t(x)) % 32 && x < width) ++x;
        float_tail<Forward>(src, dst, x);
    }
    for (; x + 8 <= width; x += 8) {
        F8 a, b, c;
        load3f(src + 3 * x, a, b, c);
        F8 o0, o1, o2;
        if (Forward) {
            o0 = frow(RGBToXYZ, 0, a, b, c);
            o1 = frow(RGBToXYZ, 1, a, b, c);
            o2 = vmin1(vmax0(frow(RGBToXYZ, 2, a, b, c)));
        } else {
            o0 = vclamp_inv(frow(XYZToRGB, 0, a, b, c));
            o1 = vclamp_inv(frow(XYZToRGB, 1, a, b, c));
            o2 = vclamp_inv(frow(XYZToRGB, 2, a, b, c));
        }
        store3f<Stream>(dst + 3 * x, o0, o1, o2);
    }
    if (Stream) _mm_sfence();
    float_tail<Forward>(src + 3 * x, dst + 3 * x, width - x);
}

}  // namespace

void innerRGBToXYZ_8u_C3R_avx2(const uint8_t* src, uint8_t* dst, int width) { forward_rows_c3(src, dst, width); }
void innerXYZToRGB_8u_C3R_avx2(const uint8_t* src, uint8_t* dst, int width) { inverse_rows_c3(src, dst, width); }
void innerRGBToXYZ_32f_C3R_avx2(const float* src, float* dst, int width) {
    float_rows_c3<true, false>(src, dst, width);
}
void innerXYZToRGB_32f_C3R_avx2(const float* src, float* dst, int width) {
    float_rows_c3<false, false>(src, dst, width);
}
void innerRGBToXYZ_32f_C3R_avx2_nt(const float* src, float* dst, int width) {
    float_rows_c3<true, true>(src, dst, width);
}
void innerXYZToRGB_32f_C3R_avx2_nt(const float* src, float* dst, int width) {
    float_rows_c3<false, true>(src, dst, width);
}

}  // namespace nmq::xyz
