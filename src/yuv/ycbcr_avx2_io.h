// Loads and stores of the AVX2 YCbCr kernels: three- and four-byte pixels to
// and from R, G, B byte vectors with byte shuffles. Include only from files
// built for AVX2 or above; everything here has internal linkage, so each such
// file keeps its own copy (an inline function shared with a file built for
// another level could be merged into one copy by the linker).
#pragma once

#include <immintrin.h>

#include <utility>

#include "yuv/ycbcr_sse2.h"

namespace nmq::ycc::avx2 {
namespace {

using V = __m256i;
using H = __m128i;

inline H ld16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const H*>(p)); }
inline V ld32(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
// Sixteen bytes at a to the low lane, sixteen at b to the high one.
inline V ld2(const uint8_t* a, const uint8_t* b) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(ld16(a)), ld16(b), 1);
}
inline void st16(uint8_t* p, H v) { _mm_storeu_si128(reinterpret_cast<H*>(p), v); }
inline void st32(uint8_t* p, V v) { _mm256_storeu_si256(reinterpret_cast<V*>(p), v); }
inline V c16(int v) { return _mm256_set1_epi16(int16_t(v)); }
inline V c32(int v) { return _mm256_set1_epi32(v); }
// A 32-bit lane holding two 16-bit weights, lo in the low half (pmaddwd pairs).
inline V pair16(int lo, int hi) { return _mm256_set1_epi32(int32_t(uint32_t(uint16_t(lo)) | uint32_t(uint16_t(hi)) << 16)); }
inline V lo16(V x) { return _mm256_unpacklo_epi8(x, _mm256_setzero_si256()); }
inline V hi16(V x) { return _mm256_unpackhi_epi8(x, _mm256_setzero_si256()); }
// Lanes [a.lo, b.lo] and [a.hi, b.hi].
inline V lows(V a, V b) { return _mm256_permute2x128_si256(a, b, 0x20); }
inline V highs(V a, V b) { return _mm256_permute2x128_si256(a, b, 0x31); }

// Byte-shuffle masks (per 128-bit lane). For 16 three-byte pixels in three
// registers, gather[r][ch] picks channel ch of the pixels held in register r
// and scatter[r][ch] places channel ch into output register r. gather4 sorts
// four 4-byte pixels by channel; zip/zip_swap interleave the low and high
// eight bytes. 0x80 clears a byte.
struct Masks {
    int8_t gather[3][3][16], scatter[3][3][16], gather4[16], zip[16], zip_swap[16];
    constexpr Masks() : gather(), scatter(), gather4(), zip(), zip_swap() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int j = 0; j < 16; ++j) {
                    const int g = 3 * j + ch;  // byte of pixel j, channel ch
                    gather[r][ch][j] = int8_t(g / 16 == r ? g % 16 : 0x80);
                    const int o = 16 * r + j;  // output byte
                    scatter[r][ch][j] = int8_t(o % 3 == ch ? o / 3 : 0x80);
                }
        for (int j = 0; j < 16; ++j) {
            gather4[j] = int8_t(4 * (j % 4) + j / 4);
            zip[j] = int8_t(j / 2 + (j % 2) * 8);
            zip_swap[j] = int8_t(j / 2 + (1 - j % 2) * 8);
        }
    }
};
constexpr Masks kM{};

inline V mask(const int8_t* m) { return _mm256_broadcastsi128_si256(ld16(reinterpret_cast<const uint8_t*>(m))); }

// 32 three-byte pixels (96 bytes) to their bytes 0, 1, 2.
inline void load3(const uint8_t* q, V& c0, V& c1, V& c2) {
    const V in[3] = {ld2(q, q + 48), ld2(q + 16, q + 64), ld2(q + 32, q + 80)};
    V m[3];
    for (int ch = 0; ch < 3; ++ch) {
        V x = _mm256_shuffle_epi8(in[0], mask(kM.gather[0][ch]));
        x = _mm256_or_si256(x, _mm256_shuffle_epi8(in[1], mask(kM.gather[1][ch])));
        m[ch] = _mm256_or_si256(x, _mm256_shuffle_epi8(in[2], mask(kM.gather[2][ch])));
    }
    c0 = m[0];
    c1 = m[1];
    c2 = m[2];
}

// 32 four-byte pixels (128 bytes) to their bytes 0, 1, 2.
inline void load4(const uint8_t* q, V& c0, V& c1, V& c2) {
    const V g = mask(kM.gather4);
    const V a = _mm256_shuffle_epi8(ld2(q, q + 64), g), b = _mm256_shuffle_epi8(ld2(q + 16, q + 80), g);
    const V c = _mm256_shuffle_epi8(ld2(q + 32, q + 96), g), d = _mm256_shuffle_epi8(ld2(q + 48, q + 112), g);
    const V ab = _mm256_unpacklo_epi32(a, b), cd = _mm256_unpacklo_epi32(c, d);
    c0 = _mm256_unpacklo_epi64(ab, cd);
    c1 = _mm256_unpackhi_epi64(ab, cd);
    c2 = _mm256_unpacklo_epi64(_mm256_unpackhi_epi32(a, b), _mm256_unpackhi_epi32(c, d));
}

// R, G, B bytes of 32 pixels from x on. SS: 1 planes, 3 or 4 interleaved
// bytes per pixel (the fourth is ignored).
template <bool Bgr, int SS>
inline void load32(const RgbIn& in, ptrdiff_t x, V& R, V& G, V& B) {
    if constexpr (SS == 1) {
        R = ld32(in.r + x);
        G = ld32(in.g + x);
        B = ld32(in.b + x);
    } else {
        const uint8_t* p = (Bgr ? in.b : in.r) + x * SS;
        V c0, c1, c2;
        if constexpr (SS == 3) load3(p, c0, c1, c2);
        else load4(p, c0, c1, c2);
        R = Bgr ? c2 : c0;
        G = c1;
        B = Bgr ? c0 : c2;
    }
}

// 32 pixels of R, G, B bytes to an interleaved row (DS = 3, or 4 with alpha
// 0xFF) or to planes (DS = 1).
template <bool Bgr, int DS>
inline void store32(const RgbOut& o, ptrdiff_t x, V R, V G, V B) {
    if constexpr (DS == 1) {
        st32(o.r + x, R);
        st32(o.g + x, G);
        st32(o.b + x, B);
        return;
    }
    if constexpr (Bgr) std::swap(R, B);
    uint8_t* p = (Bgr ? o.b : o.r) + x * DS;
    if constexpr (DS == 4) {
        const V ones = _mm256_set1_epi8(-1);
        const V rg0 = _mm256_unpacklo_epi8(R, G), rg1 = _mm256_unpackhi_epi8(R, G);
        const V ba0 = _mm256_unpacklo_epi8(B, ones), ba1 = _mm256_unpackhi_epi8(B, ones);
        const V q0 = _mm256_unpacklo_epi16(rg0, ba0), q1 = _mm256_unpackhi_epi16(rg0, ba0);
        const V q2 = _mm256_unpacklo_epi16(rg1, ba1), q3 = _mm256_unpackhi_epi16(rg1, ba1);
        st32(p, lows(q0, q1));
        st32(p + 32, lows(q2, q3));
        st32(p + 64, highs(q0, q1));
        st32(p + 96, highs(q2, q3));
    } else {
        const V m[3] = {R, G, B};
        V out[3];
        for (int r = 0; r < 3; ++r) {
            V v = _mm256_shuffle_epi8(m[0], mask(kM.scatter[r][0]));
            v = _mm256_or_si256(v, _mm256_shuffle_epi8(m[1], mask(kM.scatter[r][1])));
            out[r] = _mm256_or_si256(v, _mm256_shuffle_epi8(m[2], mask(kM.scatter[r][2])));
        }
        st32(p, lows(out[0], out[1]));
        st32(p + 32, _mm256_permute2x128_si256(out[2], out[0], 0x30));
        st32(p + 64, highs(out[1], out[2]));
    }
}

// 32 pixels to four-byte pixels with alpha 0xFF, from R, G, B in 16-bit lanes
// before the clamp (pixels 0-7 and 16-23 in R0, 8-15 and 24-31 in R1). The
// clamp and the 16-bit halves of each pixel are plain arithmetic, which
// leaves the shuffle unit only the widening to 32 bits and the lane order.
template <bool Bgr>
inline void store32_words(uint8_t* p, V R0, V G0, V B0, V R1, V G1, V B1) {
    if constexpr (Bgr) {
        std::swap(R0, B0);
        std::swap(R1, B1);
    }
    const V z = _mm256_setzero_si256(), top = c16(255), alpha = c16(0xFF00);
    const auto cl = [&](V v) { return _mm256_min_epi16(_mm256_max_epi16(v, z), top); };
    const V lo0 = _mm256_or_si256(cl(R0), _mm256_slli_epi16(cl(G0), 8)), hi0 = _mm256_or_si256(cl(B0), alpha);
    const V lo1 = _mm256_or_si256(cl(R1), _mm256_slli_epi16(cl(G1), 8)), hi1 = _mm256_or_si256(cl(B1), alpha);
    const V q0 = _mm256_unpacklo_epi16(lo0, hi0), q1 = _mm256_unpackhi_epi16(lo0, hi0);
    const V q2 = _mm256_unpacklo_epi16(lo1, hi1), q3 = _mm256_unpackhi_epi16(lo1, hi1);
    st32(p, lows(q0, q1));
    st32(p + 32, lows(q2, q3));
    st32(p + 64, highs(q0, q1));
    st32(p + 96, highs(q2, q3));
}

}  // namespace
}  // namespace nmq::ycc::avx2
