// AVX-512 (F, BW, VL) form of the 8u C3 gray kernel: 64 pixels per step with
// the vector-part arithmetic of the SSE2 form.
//
// The 192 bytes of 64 pixels are 16 groups of four pixels, 12 bytes each,
// dword aligned. A dword permute of two loads gives every 128-bit lane one
// group at its start (vector j, lane l: group 4j + l); an in-lane byte shuffle
// sorts the group to R0-3 G0-3 B0-3, and dword unpacks gather the R, G and B
// dwords of the four vectors: lane l, dword j of each channel holds group
// 4j + l. The arithmetic works on 16-bit lanes and does not care about the
// order; one dword permute puts the results back in pixel order.
//
// The vector part is the same arithmetic on every column, so its last pixels
// (fewer than 64, a multiple of four) are one more block with masked loads and
// stores. The scalar tail (the last width % 4 pixels) goes to the SSE2 kernel,
// which gives those columns the tail arithmetic (the inline scalar templates
// must not be instantiated in a file built for AVX-512).
#include "frame/avx512_px3.h"

#include "models/gray_kernels.h"

namespace nmq::gray {
namespace {

using namespace nmq::z512;

struct W {
    Z r, g, b;
};

// Channel samples in the bytes of 16-bit lanes: those in the low bytes move
// up by a shift, those in the high bytes stay there (the low byte masked).
inline Z term_lo(Z x, Z w) { return _mm512_mulhi_epu16(_mm512_slli_epi16(x, 8), w); }
inline Z term_hi(Z x, Z w) { return _mm512_mulhi_epu16(_mm512_and_si512(x, _mm512_set1_epi16(short(0xFF00))), w); }

// Sum with 64 in saturating unsigned 16-bit steps, then s >> 7 as a signed
// number (the unsigned pack that follows turns negative results into 0).
inline Z finish(Z tr, Z tg, Z tb) {
    const Z s = _mm512_adds_epu16(_mm512_adds_epu16(_mm512_adds_epu16(tr, tg), tb), _mm512_set1_epi16(64));
    return _mm512_srai_epi16(s, 7);
}

template <bool Tail>
inline void block(const uint8_t* src, uint8_t* dst, int m, const W& w) {
    Z in[3];
    for (int k = 0; k < 3; ++k)
        in[k] = Tail ? _mm512_maskz_loadu_epi8(first(3 * m - 64 * k), src + 64 * k) : _mm512_loadu_si512(src + 64 * k);
    const Z sort = _mm512_broadcast_i32x4(_mm_setr_epi8(0, 3, 6, 9, 1, 4, 7, 10, 2, 5, 8, 11, -1, -1, -1, -1));
    Z g[4];
    for (int j = 0; j < 4; ++j)
        g[j] = _mm512_shuffle_epi8(
            _mm512_permutex2var_epi32(in[j < 2 ? 0 : 1], _mm512_load_si512(kGroupIdx.v[j]), in[j < 2 ? 1 : 2]), sort);
    const Z rg01 = _mm512_unpacklo_epi32(g[0], g[1]), rg23 = _mm512_unpacklo_epi32(g[2], g[3]);
    const Z bx01 = _mm512_unpackhi_epi32(g[0], g[1]), bx23 = _mm512_unpackhi_epi32(g[2], g[3]);
    const Z r = _mm512_unpacklo_epi64(rg01, rg23), gr = _mm512_unpackhi_epi64(rg01, rg23);
    const Z b = _mm512_unpacklo_epi64(bx01, bx23);
    const Z lo = finish(term_lo(r, w.r), term_lo(gr, w.g), term_lo(b, w.b));
    const Z hi = finish(term_hi(r, w.r), term_hi(gr, w.g), term_hi(b, w.b));
    // Per lane: results of the low bytes, then of the high bytes; interleaved
    // back, then the groups put in order.
    const Z mixed = _mm512_shuffle_epi8(_mm512_packus_epi16(lo, hi), _mm512_broadcast_i32x4(_mm_setr_epi8(
                                                                          0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15)));
    const Z out = _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), mixed);
    if constexpr (Tail)
        _mm512_mask_storeu_epi8(dst, first(m), out);
    else
        _mm512_storeu_si512(dst, out);
}

}  // namespace

void innerRGBToGray_8u_C3C1R_avx512(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w8) {
    const W w{_mm512_set1_epi16(short(w8.r)), _mm512_set1_epi16(short(w8.g)), _mm512_set1_epi16(short(w8.b))};
    const int v = gray8u_vector_part<3>(width);
    int x = 0;
    for (; x + 64 <= v; x += 64) block<false>(src + 3 * x, dst + x, 64, w);
    if (x < v) block<true>(src + 3 * x, dst + x, v - x, w);
    // Fewer than four pixels left: all of them take the tail arithmetic.
    if (v < width) innerRGBToGray_8u_C3C1R_sse2<3>(src + 3 * v, dst + v, width - v, w8);
}

}  // namespace nmq::gray
