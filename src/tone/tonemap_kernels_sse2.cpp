// SSE2 tone-mapping row kernel.
#include <emmintrin.h>

#include <cstdint>

#include "tone/tonemap_kernels.h"

namespace nmq::tonemap {

namespace {
inline __m128i four(const float* s, __m128 k) {
    __m128 p = _mm_mul_ps(_mm_loadu_ps(s), k);
    p = _mm_max_ps(p, _mm_setzero_ps());
    p = _mm_min_ps(p, _mm_set1_ps(255.0f));
    return _mm_cvttps_epi32(p);
}
}  // namespace

void tone_row_sse2(const float* s, uint8_t* d, ptrdiff_t n, float scale) {
    ptrdiff_t i = 0;
    const ptrdiff_t head = ptrdiff_t((16 - (reinterpret_cast<uintptr_t>(d) & 15)) & 15);
    if (head < n) {
        for (; i < head; ++i) d[i] = tone_sample(s[i], scale);
        const __m128 k = _mm_set1_ps(scale);
        for (; i + 16 <= n; i += 16) {
            const __m128i a = _mm_packs_epi32(four(s + i, k), four(s + i + 4, k));
            const __m128i b = _mm_packs_epi32(four(s + i + 8, k), four(s + i + 12, k));
            _mm_store_si128(reinterpret_cast<__m128i*>(d + i), _mm_packus_epi16(a, b));
        }
    }
    tone_row(s + i, d + i, n - i, scale);
}

}  // namespace nmq::tonemap
