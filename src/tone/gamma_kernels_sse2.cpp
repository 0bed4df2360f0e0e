// SSE2 table kernel for the 8u gamma forms. SSE2 has no byte shuffle or
// gather, so the lookups stay scalar; the vector registers batch the loads and
// stores sixteen samples at a time.
#include <emmintrin.h>

#include "tone/gamma_kernels.h"

namespace nmq::gamma {

namespace {
template <int K>
inline __m128i look2(const uint8_t* tab, __m128i v, __m128i r) {
    const int w = _mm_extract_epi16(v, K);
    return _mm_insert_epi16(r, tab[w & 255] | (tab[w >> 8] << 8), K);
}
}  // namespace

void table_row_8u_sse2(const uint8_t* tab, const uint8_t* s, uint8_t* d, ptrdiff_t n) {
    ptrdiff_t i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
        __m128i r = _mm_setzero_si128();
        r = look2<0>(tab, v, r);
        r = look2<1>(tab, v, r);
        r = look2<2>(tab, v, r);
        r = look2<3>(tab, v, r);
        r = look2<4>(tab, v, r);
        r = look2<5>(tab, v, r);
        r = look2<6>(tab, v, r);
        r = look2<7>(tab, v, r);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), r);
    }
    table_row(tab, s + i, d + i, n - i);
}

}  // namespace nmq::gamma
