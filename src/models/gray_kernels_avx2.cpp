// AVX2 form of the 8u C3 gray kernel: 32 pixels per step with the vector-part
// arithmetic of the SSE2 form; the rest of the row (fewer than 32 pixels of
// the vector part, then the tail) goes to the SSE2 form.
#include <immintrin.h>

#include "models/gray_kernels.h"
#include "models/gray_pixels_avx2.h"

namespace nmq::gray {
namespace {

// Sixteen samples per lane in the high bytes of 16-bit lanes (lo: bytes 0-7
// of each lane, hi: bytes 8-15) times the weight, high half.
inline __m256i term_lo(__m256i x, __m256i w) {
    return _mm256_mulhi_epu16(_mm256_unpacklo_epi8(_mm256_setzero_si256(), x), w);
}
inline __m256i term_hi(__m256i x, __m256i w) {
    return _mm256_mulhi_epu16(_mm256_unpackhi_epi8(_mm256_setzero_si256(), x), w);
}

inline __m256i finish(__m256i tr, __m256i tg, __m256i tb) {
    const __m256i s = _mm256_adds_epu16(_mm256_adds_epu16(_mm256_adds_epu16(tr, tg), tb), _mm256_set1_epi16(64));
    return _mm256_srai_epi16(s, 7);
}

}  // namespace

void innerRGBToGray_8u_C3C1R_avx2(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w8) {
    const __m256i wr = _mm256_set1_epi16(short(w8.r)), wg = _mm256_set1_epi16(short(w8.g)),
                  wb = _mm256_set1_epi16(short(w8.b));
    const int v = gray8u_vector_part<3>(width);
    int x = 0;
    for (; x + 32 <= v; x += 32) {
        __m256i m[3];
        px256::load3x32(src + 3 * x, m);
        const __m256i lo = finish(term_lo(m[0], wr), term_lo(m[1], wg), term_lo(m[2], wb));
        const __m256i hi = finish(term_hi(m[0], wr), term_hi(m[1], wg), term_hi(m[2], wb));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + x), _mm256_packus_epi16(lo, hi));
    }
    // x is a multiple of four: the vector part of the rest starts where this one stopped.
    innerRGBToGray_8u_C3C1R_sse2<3>(src + 3 * x, dst + x, width - x, w8);
}

}  // namespace nmq::gray
