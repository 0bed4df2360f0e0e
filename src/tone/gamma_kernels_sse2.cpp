// SSE2 table kernel for the 8u gamma forms. SSE2 has no byte shuffle or
// gather, so the lookups stay scalar; sixteen samples are loaded and stored
// at once and the entries packed four to a 32-bit lane.
#include <emmintrin.h>

#include "tone/gamma_kernels.h"

namespace nmq::gamma {

namespace {
// Four table entries for the four bytes of u, packed back into 32 bits.
inline int look4(const uint8_t* tab, uint32_t u) {
    return int(uint32_t(tab[u & 255]) | uint32_t(tab[(u >> 8) & 255]) << 8 | uint32_t(tab[(u >> 16) & 255]) << 16 |
               uint32_t(tab[u >> 24]) << 24);
}
}  // namespace

void table_row_8u_sse2(const uint8_t* tab, const uint8_t* s, uint8_t* d, ptrdiff_t n) {
    ptrdiff_t i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
        const int r0 = look4(tab, uint32_t(_mm_cvtsi128_si32(v)));
        const int r1 = look4(tab, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(v, 4))));
        const int r2 = look4(tab, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(v, 8))));
        const int r3 = look4(tab, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(v, 12))));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm_set_epi32(r3, r2, r1, r0));
    }
    table_row(tab, s + i, d + i, n - i);
}

}  // namespace nmq::gamma
