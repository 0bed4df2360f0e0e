// SSE2 forms of the 8u gray kernels: the vector part of a row in 16-bit lanes,
// the tail through the scalar tail arithmetic (the split decides the bits).
#include <emmintrin.h>

#include <cstring>

#include "models/gray_kernels.h"
#include "models/gray_pixels_sse2.h"

namespace nmq::gray {
namespace {

struct W8 {
    __m128i r, g, b;
    explicit W8(const Weights8u& w)
        : r(_mm_set1_epi16(short(w.r))), g(_mm_set1_epi16(short(w.g))), b(_mm_set1_epi16(short(w.b))) {}
};

// Eight pixels (two lane registers) to eight signed 16-bit results s >> 7.
inline __m128i gray8(__m128i q0, __m128i q1, const W8& w) {
    const __m128i tr = _mm_mulhi_epu16(_mm_slli_epi16(px::channel16<0>(q0, q1), 8), w.r);
    const __m128i tg = _mm_mulhi_epu16(_mm_slli_epi16(px::channel16<1>(q0, q1), 8), w.g);
    const __m128i tb = _mm_mulhi_epu16(_mm_slli_epi16(px::channel16<2>(q0, q1), 8), w.b);
    const __m128i s = _mm_adds_epu16(_mm_adds_epu16(_mm_adds_epu16(tr, tg), tb), _mm_set1_epi16(64));
    return _mm_srai_epi16(s, 7);
}

inline __m128i gray16(const __m128i q[4], const W8& w) {
    return _mm_packus_epi16(gray8(q[0], q[1], w), gray8(q[2], q[3], w));
}

}  // namespace

template <>
void innerRGBToGray_8u_C3C1R_sse2<3>(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w8) {
    const W8 w(w8);
    const int v = gray8u_vector_part<3>(width);
    int x = 0;
    __m128i q[4];
    for (; x + 16 <= v; x += 16) {
        px::load3x16(src + 3 * x, q);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + x), gray16(q, w));
    }
    if (x < v) {  // 4, 8 or 12 pixels of the vector part left: through a stack copy
        const int n = v - x;
        alignas(16) uint8_t in[48] = {}, out[16];
        std::memcpy(in, src + 3 * x, size_t(3 * n));
        px::load3x16(in, q);
        _mm_store_si128(reinterpret_cast<__m128i*>(out), gray16(q, w));
        std::memcpy(dst + x, out, size_t(n));
    }
    gray8u_tail<3>(src, dst, v, width, w8);
}

template <>
void innerRGBToGray_8u_C3C1R_sse2<4>(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w8) {
    const W8 w(w8);
    const int v = gray8u_vector_part<4>(width);
    int x = 0;
    __m128i q[4];
    for (; x + 16 <= v; x += 16) {
        px::load4x16(src + 4 * x, q);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + x), gray16(q, w));
    }
    if (x < v) {  // one block of eight
        const __m128i q0 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + 4 * x));
        const __m128i q1 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + 4 * x + 16));
        const __m128i g = gray8(q0, q1, w);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + x), _mm_packus_epi16(g, g));
    }
    gray8u_tail<4>(src, dst, v, width, w8);
}

}  // namespace nmq::gray
