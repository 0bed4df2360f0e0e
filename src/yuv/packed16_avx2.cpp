// AVX2 form of the YCbCr 4:2:0 packed 16-bit outputs: the BT.601 inverse, the
// reduction to fields (truncated or ordered dither) and the word assembly in
// registers, 32 pixels of a row pair per step, where the SSE2 path converts a
// chunk to R, G, B planes on the stack and packs them in a second pass. The
// words are those of inv420_rows<Inv601Sub> followed by pack_row: the colour
// step is InvSplit601x (the SSE2 split lane for lane), and the fields are the
// formulas of packed16_sse2.cpp on 16 lanes.
//
// The driver (packed16_convert.cpp, built for SSE2) finishes each row: no
// SSE2 or scalar inline template is instantiated here.
#include <immintrin.h>

#include "yuv/packed16_kernels.h"
#include "yuv/ycbcr_avx2_split.h"

namespace nmq::p16::avx2 {
namespace {

using V = __m256i;

// The block helpers take the chroma terms by reference: inlined, they stay
// in registers.
#define NMQ_INLINE inline __attribute__((always_inline))

// Thresholds of the eight lanes of each 128-bit half. Pixels enter as 16-bit
// lanes unpacked from 32 bytes, so every group of eight lanes starts at a
// column x0 + 8k: one vector serves the whole row.
template <int Bits>
V thresholds(int x0, int y) {
    const int16_t* t = Levels<Bits>::T[y & 3];  // period 4: one 64-bit pattern, broadcast
    const auto at = [&](int k) { return uint64_t(uint16_t(t[(x0 + k) & 3])) << (16 * k); };
    return _mm256_set1_epi64x(int64_t(at(0) | at(1) | at(2) | at(3)));
}

// The multipliers of the dither. F is kept opaque to the compiler: left
// visible, a product by 1036 is turned into a chain of shifts and adds that
// costs more than the multiply.
template <int Bits>
struct Mul {
    V l, f;
    Mul() : l(_mm256_set1_epi16(Levels<Bits>::L)), f(_mm256_set1_epi16(int16_t(Levels<Bits>::F))) { __asm__("" : "+x"(f)); }
};

// Field values of 16 channel values c held as c * 256 (16-bit lanes: the
// bytes unpacked above a zero byte). The quotient (c * L) >> 8 is the high
// half of c * 256 * L; the remainder c * 256 - q * F, formed modulo 2^16,
// lies in 0..4352 as in the SSE2 form.
template <int Bits, Dz D>
NMQ_INLINE V field(V c8, V t, const Mul<Bits>& m) {
    if constexpr (D == Dz::Off) {
        return _mm256_srli_epi16(c8, 16 - Bits);
    } else {
        const V q = _mm256_mulhi_epu16(c8, m.l);
        const V rem = _mm256_sub_epi16(c8, _mm256_mullo_epi16(q, m.f));
        return _mm256_sub_epi16(q, _mm256_cmpgt_epi16(rem, t));  // the mask is -1 where the value rounds up
    }
}

// Everything one row needs besides its pixels: the multipliers (shared by
// the rows) and the thresholds of the row (zero and unused without dither).
template <Pk P>
struct RowK {
    using Lo = Layout<P>;
    const Mul<Lo::outer>& mo;
    const Mul<Lo::mid>& mm;
    V to, tm;
    RowK(const Mul<Lo::outer>& o, const Mul<Lo::mid>& m, int x0, int y, bool dither)
        : mo(o), mm(m), to(dither ? thresholds<Lo::outer>(x0, y) : _mm256_setzero_si256()),
          tm(dither ? thresholds<Lo::mid>(x0, y) : _mm256_setzero_si256()) {}
};

// 16 words from the bytes of R, G, B: unpack picks pixels 0-7 and 16-23
// (lo) or 8-15 and 24-31 (hi).
template <Pk P, Dz D, bool Bgr, bool High>
NMQ_INLINE V words16(V R, V G, V B, const RowK<P>& k) {
    using Lo = Layout<P>;
    const V z = _mm256_setzero_si256();
    const auto up = [&](V v) { return High ? _mm256_unpackhi_epi8(z, v) : _mm256_unpacklo_epi8(z, v); };
    const V lo = field<Lo::outer, D>(up(Bgr ? B : R), k.to, k.mo);
    const V g = field<Lo::mid, D>(up(G), k.tm, k.mm);
    const V hi = field<Lo::outer, D>(up(Bgr ? R : B), k.to, k.mo);
    return _mm256_or_si256(_mm256_or_si256(lo, _mm256_slli_epi16(g, Lo::mid_shift)), _mm256_slli_epi16(hi, Lo::high_shift));
}

// 32 words of one row; the two halves of words16 are put back in pixel
// order to store.
template <Pk P, Dz D, bool Bgr, class S>
NMQ_INLINE void row32(const uint8_t* y, uint16_t* o, const typename S::Terms& lo, const typename S::Terms& hi, const RowK<P>& k) {
    V R, G, B;
    S::rgb(_mm256_loadu_si256(reinterpret_cast<const V*>(y)), lo, hi, R, G, B);
    const V a = words16<P, D, Bgr, false>(R, G, B, k), b = words16<P, D, Bgr, true>(R, G, B, k);
    _mm256_storeu_si256(reinterpret_cast<V*>(o), _mm256_permute2x128_si256(a, b, 0x20));
    _mm256_storeu_si256(reinterpret_cast<V*>(o + 16), _mm256_permute2x128_si256(a, b, 0x31));
}

template <Pk P, Dz D, bool Bgr>
int blocks(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y) {
    using S = ycc::avx2::SplitX<ycc::avx2::Ops256, ycc::Inv601Sub>::type;
    const Mul<Layout<P>::outer> mo;
    const Mul<Layout<P>::mid> mm;
    const RowK<P> k0(mo, mm, x0, y, D == Dz::Ordered), k1(mo, mm, x0, y + 1, D == Dz::Ordered);
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        const V cb = _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in.cb + x / 2)));
        const V cr = _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in.cr + x / 2)));
        const typename S::Terms c = S::terms(cb, cr), lo = S::dup(c, false), hi = S::dup(c, true);
        row32<P, D, Bgr, S>(in.y0 + x, o0 + x, lo, hi, k0);
        row32<P, D, Bgr, S>(in.y1 + x, o1 + x, lo, hi, k1);
    }
    return int(x);
}

#undef NMQ_INLINE

}  // namespace

template <Pk P, Dz D>
int ycc420_blocks(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y, bool bgr) {
    if (in.cs != 1) return x0;  // chroma planes only
    return bgr ? blocks<P, D, true>(in, o0, o1, x0, w, y) : blocks<P, D, false>(in, o0, o1, x0, w, y);
}

#define NMQ_P16_420(P)                                                                                        \
    template int ycc420_blocks<P, Dz::Off>(const ycc::Ycc420In&, uint16_t*, uint16_t*, int, int, int, bool); \
    template int ycc420_blocks<P, Dz::Ordered>(const ycc::Ycc420In&, uint16_t*, uint16_t*, int, int, int, bool);
NMQ_P16_420(Pk::P565)
NMQ_P16_420(Pk::P555)
NMQ_P16_420(Pk::P444)
#undef NMQ_P16_420

}  // namespace nmq::p16::avx2
