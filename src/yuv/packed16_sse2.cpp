// SSE2 forms of the packing and widening kernels of packed16_kernels.h: eight
// words per step while they lie inside the row, the scalar kernel for the
// rest. Every lane computes exactly the scalar formula: the products and the
// remainders of the dither fit 16-bit lanes (c * 63 <= 16065, and the
// remainder c * 256 - q * F, formed modulo 2^16, lies in 0..4352).
#include <emmintrin.h>

#include "yuv/packed16_kernels.h"
#include "yuv/ycbcr_sse2.h"

namespace nmq::p16 {
namespace {

namespace s2 = nmq::ycc::sse2;

// Thresholds of the eight lanes starting at column x0 of row y.
template <int Bits>
__m128i thresholds(int x0, int y) {
    alignas(16) int16_t t[8];
    for (int k = 0; k < 8; ++k) t[k] = Levels<Bits>::T[y & 3][(x0 + k) & 3];
    return _mm_load_si128(reinterpret_cast<const __m128i*>(t));
}

// Field values of eight channel values (16-bit lanes, 0..255).
template <int Bits, Dz D>
__m128i field(__m128i c, __m128i t) {
    if constexpr (D == Dz::Off) {
        return _mm_srli_epi16(c, 8 - Bits);
    } else {
        using V = Levels<Bits>;
        const __m128i q = _mm_srli_epi16(_mm_mullo_epi16(c, _mm_set1_epi16(V::L)), 8);
        const __m128i rem = _mm_sub_epi16(_mm_slli_epi16(c, 8), _mm_mullo_epi16(q, _mm_set1_epi16(int16_t(V::F))));
        return _mm_sub_epi16(q, _mm_cmpgt_epi16(rem, t));  // the mask is -1 where the value rounds up
    }
}

}  // namespace

template <Pk P, Dz D, int SS>
void pack_row_sse2(const RgbIn& in, uint16_t* dst, int n, int x0, int y, bool bgr) {
    using Lo = Layout<P>;
    __m128i to = _mm_setzero_si128(), tm = _mm_setzero_si128();
    if constexpr (D == Dz::Ordered) {
        to = thresholds<Lo::outer>(x0, y);
        tm = thresholds<Lo::mid>(x0, y);
    }
    const bool b_first = in.b < in.r;  // a BGR byte row (interleaved input only)
    ptrdiff_t i = 0;
    for (; i + 8 <= n; i += 8) {
        __m128i R, G, B;
        if (SS == 3 && b_first)
            s2::load8<true, SS>(in, i, R, G, B);
        else
            s2::load8<false, SS>(in, i, R, G, B);
        R = field<Lo::outer, D>(R, to);
        G = field<Lo::mid, D>(G, tm);
        B = field<Lo::outer, D>(B, to);
        const __m128i lo = bgr ? B : R, hi = bgr ? R : B;
        const __m128i w = _mm_or_si128(_mm_or_si128(lo, _mm_slli_epi16(G, Lo::mid_shift)), _mm_slli_epi16(hi, Lo::high_shift));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), w);
    }
    if (i < n) {
        const ptrdiff_t o = i * in.s;
        pack_row<P, D>(RgbIn{in.r + o, in.g + o, in.b + o, in.s}, dst + i, n - int(i), x0 + int(i), y, bgr);
    }
}

void widen565_row_sse2(const uint16_t* src, uint8_t* dst, int n) {
    const __m128i m5 = _mm_set1_epi16(31), m6 = _mm_set1_epi16(63);
    const auto widen = [&](__m128i v, __m128i& lo, __m128i& g, __m128i& hi) {
        const __m128i l = _mm_and_si128(v, m5), m = _mm_and_si128(_mm_srli_epi16(v, 5), m6), h = _mm_srli_epi16(v, 11);
        lo = _mm_or_si128(_mm_slli_epi16(l, 3), _mm_srli_epi16(l, 2));
        g = _mm_or_si128(_mm_slli_epi16(m, 2), _mm_srli_epi16(m, 4));
        hi = _mm_or_si128(_mm_slli_epi16(h, 3), _mm_srli_epi16(h, 2));
    };
    const ycc::RgbOut out{dst, dst + 1, dst + 2, nullptr, 3};
    ptrdiff_t i = 0;
    for (; i + 16 <= n; i += 16) {
        __m128i l0, g0, h0, l1, g1, h1;
        widen(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i)), l0, g0, h0);
        widen(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i + 8)), l1, g1, h1);
        s2::store16<false, 3>(out, i, _mm_packus_epi16(l0, l1), _mm_packus_epi16(g0, g1), _mm_packus_epi16(h0, h1));
    }
    widen565_row(src + i, dst + 3 * i, n - int(i));
}

#define NMQ_P16_PACK(P)                                                                                 \
    template void pack_row_sse2<P, Dz::Off, 1>(const RgbIn&, uint16_t*, int, int, int, bool);       \
    template void pack_row_sse2<P, Dz::Ordered, 1>(const RgbIn&, uint16_t*, int, int, int, bool);   \
    template void pack_row_sse2<P, Dz::Off, 3>(const RgbIn&, uint16_t*, int, int, int, bool);       \
    template void pack_row_sse2<P, Dz::Ordered, 3>(const RgbIn&, uint16_t*, int, int, int, bool);
NMQ_P16_PACK(Pk::P565)
NMQ_P16_PACK(Pk::P555)
NMQ_P16_PACK(Pk::P444)
#undef NMQ_P16_PACK

}  // namespace nmq::p16
