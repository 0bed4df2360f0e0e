// Interleaved three-byte pixels in AVX2 registers, shared by the AVX2 kernels
// of the colour models and of YUV (include only from files compiled for AVX2). Thirty-two pixels
// travel as three registers of bytes, one per channel position, pixels 0-15
// in the low 128-bit lane and 16-31 in the high one, so lane-wise arithmetic
// sees the pixels of a 16-pixel SSE2 block. Loads and stores touch exactly the
// 96 bytes of the 32 pixels.
#pragma once

#include <immintrin.h>

#include <cstdint>

namespace nmq::px256 {

inline __m128i ld16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
// Sixteen bytes at a to the low lane, sixteen at b to the high one.
inline __m256i ld2(const uint8_t* a, const uint8_t* b) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(ld16(a)), ld16(b), 1);
}

// Byte-shuffle masks for 16 three-byte pixels in three registers: gather[r][ch]
// picks channel ch of the pixels held in input register r; scatter[r][ch]
// places channel ch into output register r. 0x80 clears a byte.
struct Masks3 {
    int8_t gather[3][3][16], scatter[3][3][16];
    constexpr Masks3() : gather(), scatter() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int j = 0; j < 16; ++j) {
                    const int g = 3 * j + ch;
                    gather[r][ch][j] = int8_t(g / 16 == r ? g % 16 : 0x80);
                    const int o = 16 * r + j;
                    scatter[r][ch][j] = int8_t(o % 3 == ch ? o / 3 : 0x80);
                }
    }
};
inline constexpr Masks3 kMasks3{};

inline __m256i mask(const int8_t* m) { return _mm256_broadcastsi128_si256(ld16(reinterpret_cast<const uint8_t*>(m))); }

// 32 pixels at q to the bytes at positions 0, 1 and 2.
inline void load3x32(const uint8_t* q, __m256i m[3]) {
    const __m256i in[3] = {ld2(q, q + 48), ld2(q + 16, q + 64), ld2(q + 32, q + 80)};
    for (int ch = 0; ch < 3; ++ch) {
        __m256i x = _mm256_shuffle_epi8(in[0], mask(kMasks3.gather[0][ch]));
        x = _mm256_or_si256(x, _mm256_shuffle_epi8(in[1], mask(kMasks3.gather[1][ch])));
        m[ch] = _mm256_or_si256(x, _mm256_shuffle_epi8(in[2], mask(kMasks3.gather[2][ch])));
    }
}

// The inverse: byte vectors of positions 0, 1, 2 to 32 pixels at q.
inline void store3x32(uint8_t* q, const __m256i m[3]) {
    __m256i out[3];
    for (int r = 0; r < 3; ++r) {
        __m256i x = _mm256_shuffle_epi8(m[0], mask(kMasks3.scatter[r][0]));
        x = _mm256_or_si256(x, _mm256_shuffle_epi8(m[1], mask(kMasks3.scatter[r][1])));
        out[r] = _mm256_or_si256(x, _mm256_shuffle_epi8(m[2], mask(kMasks3.scatter[r][2])));
    }
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), _mm256_permute2x128_si256(out[0], out[1], 0x20));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 32), _mm256_permute2x128_si256(out[2], out[0], 0x30));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(q + 64), _mm256_permute2x128_si256(out[1], out[2], 0x31));
}

}  // namespace nmq::px256
