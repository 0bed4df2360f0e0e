// AVX2 form of the 8u C3 gray kernel: 32 pixels per step with the vector-part
// arithmetic of the SSE2 form; the rest of the row (fewer than 32 pixels of
// the vector part, then the tail) goes to the SSE2 form.
#include <immintrin.h>

#include "models/gray_kernels.h"
#include "models/gray_pixels_avx2.h"

namespace nmq::gray {
namespace {

// The samples of one channel of 32 pixels sit in the bytes of 16-bit lanes:
// even pixels in the low bytes, odd ones in the high bytes. Each moves to the
// high byte of its lane (a shift for the even ones, a mask for the odd ones)
// and is multiplied by its weight, high half: no byte shuffles needed.
inline __m256i term_even(__m256i x, __m256i w) { return _mm256_mulhi_epu16(_mm256_slli_epi16(x, 8), w); }
inline __m256i term_odd(__m256i x, __m256i w) {
    return _mm256_mulhi_epu16(_mm256_and_si256(x, _mm256_set1_epi16(short(0xFF00))), w);
}

// Sum s with 64 in saturating unsigned 16-bit steps, then s >> 7 as a signed
// number and negative results to 0 (the unsigned pack of the SSE2 form).
inline __m256i finish(__m256i tr, __m256i tg, __m256i tb) {
    const __m256i s = _mm256_adds_epu16(_mm256_adds_epu16(_mm256_adds_epu16(tr, tg), tb), _mm256_set1_epi16(64));
    return _mm256_max_epi16(_mm256_srai_epi16(s, 7), _mm256_setzero_si256());
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
        const __m256i even = finish(term_even(m[0], wr), term_even(m[1], wg), term_even(m[2], wb));
        const __m256i odd = finish(term_odd(m[0], wr), term_odd(m[1], wg), term_odd(m[2], wb));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + x), _mm256_or_si256(even, _mm256_slli_epi16(odd, 8)));
    }
    // x is a multiple of four: the vector part of the rest starts where this one stopped.
    innerRGBToGray_8u_C3C1R_sse2<3>(src + 3 * x, dst + x, width - x, w8);
}

}  // namespace nmq::gray
