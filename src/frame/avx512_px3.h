// Helpers of the AVX-512 kernels that read 64 three-byte pixels at a time
// (RGB24 to 4:2:0 in two families, RGB24 to gray). 64 pixels are 16 groups of
// four pixels, 12 bytes each; a two-source dword permute of the three loads
// gives every 128-bit lane one group at its start (vector j, lane l: group
// 4j + l), where in-lane byte shuffles reach all of its samples. Include only
// from files built for AVX-512; everything here has internal linkage, so
// each such file keeps its own copy.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/avx512.h"

namespace nmq::z512 {
namespace {

using Z = __m512i;
using M = __mmask64;

// The first k bits (k may be below 0 or above 64).
inline M first(ptrdiff_t k) { return k <= 0 ? M(0) : k >= 64 ? ~M(0) : (M(1) << k) - 1; }

// A 16-byte shuffle pattern in every lane.
inline Z lanes(const int8_t* m) { return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(m))); }

// A pmaddwd weight pair: a multiplies the even 16-bit lane, b the odd one.
inline Z pair(int a, int b) { return _mm512_set1_epi32(int32_t(uint32_t(uint16_t(a)) | uint32_t(uint16_t(b)) << 16)); }

// Vector j, lane l <- dwords 3g .. 3g + 2 of the row (g = 4j + l), taken from
// the loads (lo, hi) = (0, 1) for j < 2 and (1, 2) above; the lane's fourth
// dword repeats its third.
struct GroupIdx {
    alignas(64) int32_t v[4][16];
    constexpr GroupIdx() : v() {
        for (int j = 0; j < 4; ++j)
            for (int l = 0; l < 4; ++l)
                for (int k = 0; k < 4; ++k) v[j][4 * l + k] = 3 * (4 * j + l) + (k < 3 ? k : 2) - (j < 2 ? 0 : 16);
    }
};
constexpr GroupIdx kGroupIdx{};

// The 64 luma bytes in pixel order from the four group vectors, each pixel's
// luma in the high half of its dword.
inline Z luma_bytes(const Z (&y)[4]) {
    // High halves of two vectors as words, a's in the even words: per lane
    // the pixels a0 b0 a1 b1 ...
    const __mmask32 odd = 0xAAAAAAAAu;
    const Z y01 = _mm512_mask_blend_epi16(odd, _mm512_srli_epi32(y[0], 16), y[1]);
    const Z y23 = _mm512_mask_blend_epi16(odd, _mm512_srli_epi32(y[2], 16), y[3]);
    alignas(16) static constexpr int8_t kGroups[16] = {0, 2, 4, 6, 1, 3, 5, 7, 8, 10, 12, 14, 9, 11, 13, 15};
    const Z bytes = _mm512_shuffle_epi8(_mm512_packus_epi16(y01, y23), lanes(kGroups));
    // Lane l, dword j holds group 4j + l.
    return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), bytes);
}

// Sums of neighbouring dwords of a and b as 16-bit pairs: per lane a0+a1,
// a2+a3, b0+b1, b2+b3.
inline Z pair_sums(Z a, Z b) {
    const __m512 fa = _mm512_castsi512_ps(a), fb = _mm512_castsi512_ps(b);
    return _mm512_add_epi16(_mm512_castps_si512(_mm512_shuffle_ps(fa, fb, _MM_SHUFFLE(2, 0, 2, 0))),
                            _mm512_castps_si512(_mm512_shuffle_ps(fa, fb, _MM_SHUFFLE(3, 1, 3, 1))));
}

}  // namespace
}  // namespace nmq::z512
