// YUV <-> RGB: AVX-512 (F, BW, VL) row kernels for four-byte outputs whose
// fourth byte belongs to the caller. Below this level such pixels take three
// byte stores each; here whole vectors are stored through a byte mask that
// leaves every fourth byte out, so the kept byte is never accessed (a masked-off
// byte is neither read nor written, not even with its own value).
//
// A 64-pixel block runs the 16-bit arithmetic of the SSE2 kernels in each
// 128-bit lane, so the bytes are the scalar ones. The lanes hold the pixels
// "transposed": lane k, bytes 4j..4j+3 are the pixels 16j+4k..16j+4k+3. That
// order is what the in-lane (de)interleaving of four-byte pixels produces and
// consumes, so a block of four-byte pixels is loaded and stored with plain
// contiguous accesses, and planar rows get one dword permute per vector.
//
// Each formula here is the same for every column, so the row tail is one more
// block with masked loads and stores: no byte past the row's ROI is accessed
// and no other kernel is called (the inline SSE2 and scalar templates must not
// be instantiated in a file built for AVX-512).
#include "frame/avx512.h"

#include "yuv/yuv_kernels.h"

namespace nmq::yuv {
namespace {

using Z = __m512i;
using M = __mmask64;

constexpr ptrdiff_t kZ = 64;  // pixels per block

inline Z ld(const uint8_t* p) { return _mm512_loadu_si512(p); }
inline Z c16(int v) { return _mm512_set1_epi16(int16_t(v)); }
inline Z c32(int v) { return _mm512_set1_epi32(v); }
// A pmaddwd weight pair: a multiplies the even 16-bit lane, b the odd one.
inline Z pair(int a, int b) { return _mm512_set1_epi32(int32_t(uint32_t(uint16_t(a)) | uint32_t(uint16_t(b)) << 16)); }
inline Z lo16(Z x) { return _mm512_unpacklo_epi8(x, _mm512_setzero_si512()); }
inline Z hi16(Z x) { return _mm512_unpackhi_epi8(x, _mm512_setzero_si512()); }
inline Z centred(Z x16) { return _mm512_sub_epi16(x16, c16(128)); }

// The first k bits (k may be below 0 or above 64).
inline M first(ptrdiff_t k) { return k <= 0 ? M(0) : k >= 64 ? ~M(0) : (M(1) << k) - 1; }

// Lane k, dword j <- dword 4j + k: contiguous pixels to the transposed order.
inline Z transpose_dwords(Z x) {
    return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), x);
}

// ---- Four-byte pixels, 64 at a time ----------------------------------------------

template <class L>
struct Px4;

template <int A, int B, int C>
struct Px4<Packed<4, A, B, C>> {
    static_assert(A != B && B != C && A != C && A < 3 && B < 3 && C < 3, "the fourth byte is the kept one");
    // The channel bytes of 16 pixels.
    static constexpr M kChannels = 0x1111111111111111ull * ((1u << A) | (1u << B) | (1u << C));

    // Bytes of channels A, B, C of the first m pixels at q, transposed.
    template <bool Tail>
    static void load(const uint8_t* q, ptrdiff_t m, Z& a, Z& b, Z& c) {
        const Z by_ch = _mm512_broadcast_i32x4(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
        Z t[4];
        for (int j = 0; j < 4; ++j) {
            const Z x = Tail ? _mm512_maskz_loadu_epi8(first(4 * (m - 16 * j)), q + 64 * j) : ld(q + 64 * j);
            t[j] = _mm512_shuffle_epi8(x, by_ch);  // per lane: channel 0 of four pixels, then 1, 2, 3
        }
        const Z l01 = _mm512_unpacklo_epi32(t[0], t[1]), l23 = _mm512_unpacklo_epi32(t[2], t[3]);
        const Z h01 = _mm512_unpackhi_epi32(t[0], t[1]), h23 = _mm512_unpackhi_epi32(t[2], t[3]);
        Z ch[3];
        ch[0] = _mm512_unpacklo_epi64(l01, l23);
        ch[1] = _mm512_unpackhi_epi64(l01, l23);
        ch[2] = _mm512_unpacklo_epi64(h01, h23);
        a = ch[A], b = ch[B], c = ch[C];
    }

    // Transposed channel bytes to the first m pixels at q; the fourth byte of
    // each pixel is masked off.
    template <bool Tail>
    static void store(uint8_t* q, ptrdiff_t m, Z a, Z b, Z c) {
        Z ch[3];
        ch[A] = a, ch[B] = b, ch[C] = c;
        const Z l01 = _mm512_unpacklo_epi8(ch[0], ch[1]), h01 = _mm512_unpackhi_epi8(ch[0], ch[1]);
        const Z l22 = _mm512_unpacklo_epi8(ch[2], ch[2]), h22 = _mm512_unpackhi_epi8(ch[2], ch[2]);
        const Z px[4] = {_mm512_unpacklo_epi16(l01, l22), _mm512_unpackhi_epi16(l01, l22),
                         _mm512_unpacklo_epi16(h01, h22), _mm512_unpackhi_epi16(h01, h22)};
        for (int j = 0; j < 4; ++j) {
            const M k = Tail ? kChannels & first(4 * (m - 16 * j)) : kChannels;
            _mm512_mask_storeu_epi8(q + 64 * j, k, px[j]);
        }
    }
};

// ---- RGB to YUV (fwd8<Fwd::PerPixel> of the SSE2 kernels) -----------------------

inline Z shift_pack(Z x0, Z x1, int k, int sh) {
    const Z kk = c32(k);
    return _mm512_packs_epi32(_mm512_srai_epi32(_mm512_add_epi32(x0, kk), sh),
                              _mm512_srai_epi32(_mm512_add_epi32(x1, kk), sh));
}

// 32 pixels as 16-bit lanes: Y and the rounded B - Y, R - Y based U and V.
inline void fwd_pixels(Z r, Z g, Z b, Z& y, Z& u, Z& v) {
    const Z drg = _mm512_sub_epi16(r, g), dbg = _mm512_sub_epi16(b, g);
    const Z w = pair(19595, 7471);
    const Z sy0 = _mm512_madd_epi16(_mm512_unpacklo_epi16(drg, dbg), w);
    const Z sy1 = _mm512_madd_epi16(_mm512_unpackhi_epi16(drg, dbg), w);
    y = _mm512_add_epi16(g, shift_pack(sy0, sy1, 32768, 16));
    const Z kk = c32(32768);
    const Z t = _mm512_packs_epi32(_mm512_srai_epi32(_mm512_sub_epi32(kk, sy0), 16),
                                   _mm512_srai_epi32(_mm512_sub_epi32(kk, sy1), 16));
    const Z db = _mm512_add_epi16(dbg, t), dr = _mm512_add_epi16(drg, t);
    u = _mm512_add_epi16(c16(128), _mm512_mulhi_epi16(db, c16(32244)));
    v = _mm512_add_epi16(c16(128), _mm512_add_epi16(_mm512_mulhi_epi16(dr, c16(57475 - 65536)), dr));
}

// ---- YUV to RGB (terms<Inv::Round / TruncG> of the SSE2 kernels) ----------------

struct Terms {
    Z r, g, b;
};

inline Z madd_term(Z p0, Z p1, int a, int b, int k) {
    const Z w = pair(a, b);
    return shift_pack(_mm512_madd_epi16(p0, w), _mm512_madd_epi16(p1, w), k, 16);
}

// Chroma terms of 32 centred samples: R and B rounded, G rounded or truncated.
template <bool RoundG>
inline Terms terms(Z u, Z v) {
    const Z p0 = _mm512_unpacklo_epi16(u, v), p1 = _mm512_unpackhi_epi16(u, v);
    return {_mm512_add_epi16(v, madd_term(p0, p1, 0, 9175, 32768)),
            _mm512_sub_epi16(madd_term(p0, p1, -25821, 27460, RoundG ? 32768 : 0), v),
            _mm512_add_epi16(_mm512_add_epi16(u, u), madd_term(p0, p1, 2097, 0, 32768))};
}

inline void apply(Z y, const Terms& lo, const Terms& hi, Z& r, Z& g, Z& b) {
    const Z y0 = lo16(y), y1 = hi16(y);
    r = _mm512_packus_epi16(_mm512_adds_epi16(y0, lo.r), _mm512_adds_epi16(y1, hi.r));
    g = _mm512_packus_epi16(_mm512_adds_epi16(y0, lo.g), _mm512_adds_epi16(y1, hi.g));
    b = _mm512_packus_epi16(_mm512_adds_epi16(y0, lo.b), _mm512_adds_epi16(y1, hi.b));
}

inline Terms dup_lo(const Terms& t) {
    return {_mm512_unpacklo_epi16(t.r, t.r), _mm512_unpacklo_epi16(t.g, t.g), _mm512_unpacklo_epi16(t.b, t.b)};
}
inline Terms dup_hi(const Terms& t) {
    return {_mm512_unpackhi_epi16(t.r, t.r), _mm512_unpackhi_epi16(t.g, t.g), _mm512_unpackhi_epi16(t.b, t.b)};
}

// ---- Blocks -----------------------------------------------------------------------

template <class S, class D, bool Tail>
inline void fwd444_block(const uint8_t* s, uint8_t* d, ptrdiff_t m) {
    Z r, g, b, y0, u0, v0, y1, u1, v1;
    Px4<S>::template load<Tail>(s, m, r, g, b);
    fwd_pixels(lo16(r), lo16(g), lo16(b), y0, u0, v0);
    fwd_pixels(hi16(r), hi16(g), hi16(b), y1, u1, v1);
    Px4<D>::template store<Tail>(d, m, _mm512_packus_epi16(y0, y1), _mm512_packus_epi16(u0, u1),
                                 _mm512_packus_epi16(v0, v1));
}

template <class S, class D, bool RoundG, bool Tail>
inline void inv444_block(const uint8_t* s, uint8_t* d, ptrdiff_t m) {
    Z y, u, v, r, g, b;
    Px4<S>::template load<Tail>(s, m, y, u, v);
    const Terms lo = terms<RoundG>(centred(lo16(u)), centred(lo16(v)));
    const Terms hi = terms<RoundG>(centred(hi16(u)), centred(hi16(v)));
    apply(y, lo, hi, r, g, b);
    Px4<D>::template store<Tail>(d, m, r, g, b);
}

// 64 pixels from pixel i of a 4:2:2 row (or of both rows of a 4:2:0 pair; i
// even). The 32 chroma samples are widened to words and transposed as dword
// pairs, so lane k holds the samples of the pixels in its lane: dup_lo and
// dup_hi then give each pixel its pair's terms, as in the SSE2 kernel.
template <class D, int Rows, bool Tail>
inline void inv42x_block(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t i, ptrdiff_t m) {
    const M ky = first(m);
    const __mmask32 kc = __mmask32(first((m + 1) / 2));
    const __m256i u8 = Tail ? _mm256_maskz_loadu_epi8(kc, s.p[1] + i / 2) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s.p[1] + i / 2));
    const __m256i v8 = Tail ? _mm256_maskz_loadu_epi8(kc, s.p[2] + i / 2) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s.p[2] + i / 2));
    const Z u = transpose_dwords(centred(_mm512_cvtepu8_epi16(u8)));
    const Z v = transpose_dwords(centred(_mm512_cvtepu8_epi16(v8)));
    const Terms t = terms<true>(u, v);
    const Terms lo = dup_lo(t), hi = dup_hi(t);
    Z r, g, b;
    const Z y0 = Tail ? _mm512_maskz_loadu_epi8(ky, s.p[0] + i) : ld(s.p[0] + i);
    apply(transpose_dwords(y0), lo, hi, r, g, b);
    Px4<D>::template store<Tail>(d0.p[0] + 4 * i, m, r, g, b);
    if constexpr (Rows == 2) {
        const Z y1 = Tail ? _mm512_maskz_loadu_epi8(ky, s.p[3] + i) : ld(s.p[3] + i);
        apply(transpose_dwords(y1), lo, hi, r, g, b);
        Px4<D>::template store<Tail>(d1.p[0] + 4 * i, m, r, g, b);
    }
}

}  // namespace

// ---- Row kernels --------------------------------------------------------------

template <class S, class D, Fwd F>
void rgb_to_yuv_row_avx512(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    static_assert(F == Fwd::PerPixel, "one formula for every column");
    ptrdiff_t i = from;
    for (; i + kZ <= n; i += kZ) fwd444_block<S, D, false>(s.p[0] + 4 * i, d.p[0] + 4 * i, kZ);
    if (i < n) fwd444_block<S, D, true>(s.p[0] + 4 * i, d.p[0] + 4 * i, n - i);
}

template <class S, class D, Inv F>
void yuv_to_rgb_row_avx512(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    static_assert(F == Inv::Round || F == Inv::TruncG, "one formula for every column");
    constexpr bool kRoundG = F == Inv::Round;
    ptrdiff_t i = from;
    for (; i + kZ <= n; i += kZ) inv444_block<S, D, kRoundG, false>(s.p[0] + 4 * i, d.p[0] + 4 * i, kZ);
    if (i < n) inv444_block<S, D, kRoundG, true>(s.p[0] + 4 * i, d.p[0] + 4 * i, n - i);
}

template <class D, int Rows>
void yuv42x_to_rgb_rows_avx512(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kZ <= n; i += kZ) inv42x_block<D, Rows, false>(s, d0, d1, i, kZ);
    if (i < n) inv42x_block<D, Rows, true>(s, d0, d1, i, n - i);
}

// ---- Instances used by the drivers ---------------------------------------------

template void rgb_to_yuv_row_avx512<RGBA, RGBA, Fwd::PerPixel>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv_to_rgb_row_avx512<RGBA, RGBA, Inv::TruncG>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_avx512<RGBA, 1>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_avx512<RGBA, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);

}  // namespace nmq::yuv
