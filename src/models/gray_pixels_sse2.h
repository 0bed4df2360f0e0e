// Interleaved 8-bit pixels in SSE2 registers, shared by the colour-model
// kernels (gray, XYZ, YCoCg). Sixteen pixels travel as four registers of four
// 32-bit lanes, one pixel per lane: channel 0 in bits 0..7, channel 1 in bits
// 8..15, channel 2 in bits 16..23, and channel 3 (alpha or zero) on top.
// Loads and stores touch exactly the 48 (three channels) or 64 (four) bytes
// of the sixteen pixels.
#pragma once

#include <emmintrin.h>

#include <cstdint>

namespace nmq::px {

// Sixteen three-byte pixels; the top byte of every lane is zero.
inline void load3x16(const uint8_t* p, __m128i q[4]) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16));
    const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 32));
    // Four groups of four pixels, each in the low 12 bytes of a register.
    const __m128i g[4] = {a, _mm_or_si128(_mm_srli_si128(a, 12), _mm_slli_si128(b, 4)),
                          _mm_or_si128(_mm_srli_si128(b, 8), _mm_slli_si128(c, 8)), _mm_srli_si128(c, 4)};
    const __m128i lo3 = _mm_set_epi32(0, 0x00FFFFFF, 0, 0x00FFFFFF);
    const __m128i hi3 = _mm_set_epi32(0x00FFFFFF, 0, 0x00FFFFFF, 0);
    for (int i = 0; i < 4; ++i) {
        // Pixels 0,1 in the low quadword, pixels 2,3 in the high one; then the
        // second pixel of each quadword moves up by one byte.
        const __m128i y = _mm_unpacklo_epi64(g[i], _mm_srli_si128(g[i], 6));
        q[i] = _mm_or_si128(_mm_and_si128(y, lo3), _mm_and_si128(_mm_slli_epi64(y, 8), hi3));
    }
}

// Sixteen four-byte pixels as they are.
inline void load4x16(const uint8_t* p, __m128i q[4]) {
    for (int i = 0; i < 4; ++i) q[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16 * i));
}

// Sixteen pixels written as three bytes each; the top byte of every lane is dropped.
inline void store3x16(uint8_t* p, const __m128i q[4]) {
    const __m128i lo3 = _mm_set_epi32(0, 0x00FFFFFF, 0, 0x00FFFFFF);
    const __m128i mid3 = _mm_set_epi32(0x0000FFFF, static_cast<int>(0xFF000000u), 0x0000FFFF, static_cast<int>(0xFF000000u));
    const __m128i lo6 = _mm_set_epi32(0, 0, 0x0000FFFF, static_cast<int>(0xFFFFFFFFu));
    const __m128i hi6 = _mm_set_epi32(0x0000FFFF, static_cast<int>(0xFFFFFFFFu), 0, 0);
    __m128i g[4];
    for (int i = 0; i < 4; ++i) {
        // Two pixels per quadword in its low six bytes, then both halves side by side.
        const __m128i m = _mm_or_si128(_mm_and_si128(q[i], lo3), _mm_and_si128(_mm_srli_epi64(q[i], 8), mid3));
        g[i] = _mm_or_si128(_mm_and_si128(m, lo6), _mm_srli_si128(_mm_and_si128(m, hi6), 2));
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_or_si128(g[0], _mm_slli_si128(g[1], 12)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 16), _mm_or_si128(_mm_srli_si128(g[1], 4), _mm_slli_si128(g[2], 8)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 32), _mm_or_si128(_mm_srli_si128(g[2], 8), _mm_slli_si128(g[3], 4)));
}

inline void store4x16(uint8_t* p, const __m128i q[4]) {
    for (int i = 0; i < 4; ++i) _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 16 * i), q[i]);
}

// Channel K (0..3) of eight pixels (two lane registers) as eight 16-bit lanes.
template <int K>
inline __m128i channel16(__m128i q0, __m128i q1) {
    const __m128i ff = _mm_set1_epi32(0xFF);
    return _mm_packs_epi32(_mm_and_si128(_mm_srli_epi32(q0, 8 * K), ff), _mm_and_si128(_mm_srli_epi32(q1, 8 * K), ff));
}

// Channel K of four pixels as four 32-bit lanes.
template <int K>
inline __m128i channel32(__m128i q) {
    return _mm_and_si128(_mm_srli_epi32(q, 8 * K), _mm_set1_epi32(0xFF));
}

// Sixteen pixels from three byte vectors (one per channel) and a fourth one
// (alpha, or zero).
inline void from_planes(__m128i c0, __m128i c1, __m128i c2, __m128i c3, __m128i q[4]) {
    const __m128i l01 = _mm_unpacklo_epi8(c0, c1), h01 = _mm_unpackhi_epi8(c0, c1);
    const __m128i l23 = _mm_unpacklo_epi8(c2, c3), h23 = _mm_unpackhi_epi8(c2, c3);
    q[0] = _mm_unpacklo_epi16(l01, l23);
    q[1] = _mm_unpackhi_epi16(l01, l23);
    q[2] = _mm_unpacklo_epi16(h01, h23);
    q[3] = _mm_unpackhi_epi16(h01, h23);
}

}  // namespace nmq::px
