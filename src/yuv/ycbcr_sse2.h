// SSE2 row kernels of the YCbCr family. Each one gives the bytes of its scalar
// kernel in ycbcr_kernels.h: the 2^16 (and 2^15) fixed-point sums are formed
// exactly in 32-bit lanes with pmaddwd, weights above 16 bits being split into
// a 16-bit part and a multiple of the final scale that is added after the
// shift. Blocks of 16 pixels (two rows for 4:2:0) run here while they lie
// inside the row; the scalar kernel finishes the row. No load or store leaves
// the row's ROI.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "yuv/ycbcr_kernels.h"

namespace nmq::ycc::sse2 {

inline __m128i ld(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i ld8(const uint8_t* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
inline void st(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void st8(uint8_t* p, __m128i v) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }

// A 32-bit lane holding two 16-bit weights, lo in the low half (pmaddwd pairs).
inline __m128i pair16(int lo, int hi) {
    return _mm_set1_epi32(int((uint32_t(uint16_t(hi)) << 16) | uint16_t(lo)));
}

// Four 4-byte pixels per register (8 pixels in v0, v1) -> the first three
// bytes of each pixel as 16-bit lanes.
inline void split4(__m128i v0, __m128i v1, __m128i& c0, __m128i& c1, __m128i& c2) {
    const __m128i m = _mm_set1_epi16(0xFF);
    const __m128i ev = _mm_packus_epi16(_mm_and_si128(v0, m), _mm_and_si128(v1, m));
    const __m128i od = _mm_packus_epi16(_mm_srli_epi16(v0, 8), _mm_srli_epi16(v1, 8));
    c0 = _mm_and_si128(ev, m);
    c2 = _mm_srli_epi16(ev, 8);
    c1 = _mm_and_si128(od, m);
}

// 12 bytes (four 3-byte pixels) at the bottom of c -> four 4-byte pixels.
inline __m128i expand3(__m128i c) {
    const __m128i e = _mm_unpacklo_epi64(c, _mm_srli_si128(c, 6));
    const __m128i lo = _mm_and_si128(e, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF));
    const __m128i hi = _mm_and_si128(_mm_slli_epi64(e, 8), _mm_set_epi32(0xFFFFFF, 0, 0xFFFFFF, 0));
    return _mm_or_si128(lo, hi);
}

// Four 4-byte pixels -> 12 bytes at the bottom, top 4 bytes zero.
inline __m128i compact3(__m128i q) {
    const __m128i t = _mm_or_si128(_mm_and_si128(q, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF)),
                                   _mm_and_si128(_mm_srli_epi64(q, 8), _mm_set_epi32(0xFFFF, int(0xFF000000u), 0xFFFF, int(0xFF000000u))));
    return _mm_or_si128(_mm_move_epi64(t), _mm_slli_si128(_mm_srli_si128(t, 8), 6));
}

// R, G, B of 8 pixels from x on, as 16-bit lanes. SS: 1 planes, 3 or 4
// interleaved bytes per pixel (the fourth is ignored).
template <bool Bgr, int SS>
inline void load8(const RgbIn& in, ptrdiff_t x, __m128i& R, __m128i& G, __m128i& B) {
    if constexpr (SS == 1) {
        const __m128i z = _mm_setzero_si128();
        R = _mm_unpacklo_epi8(ld8(in.r + x), z);
        G = _mm_unpacklo_epi8(ld8(in.g + x), z);
        B = _mm_unpacklo_epi8(ld8(in.b + x), z);
    } else {
        const uint8_t* p = (Bgr ? in.b : in.r) + x * SS;
        __m128i v0, v1;
        if constexpr (SS == 4) {
            v0 = ld(p);
            v1 = ld(p + 16);
        } else {
            const __m128i a = ld(p), b = ld8(p + 16);
            v0 = expand3(a);
            v1 = expand3(_mm_or_si128(_mm_srli_si128(a, 12), _mm_slli_si128(b, 4)));
        }
        __m128i c0, c1, c2;
        split4(v0, v1, c0, c1, c2);
        R = Bgr ? c2 : c0;
        G = c1;
        B = Bgr ? c0 : c2;
    }
}

// Four 4-byte pixels to p; with a null alpha pointer the fourth byte of each
// is left alone, not even rewritten with its own value: each pixel goes out
// as a 16-bit and an 8-bit store.
inline void st_px4(const RgbOut& o, uint8_t* p, __m128i q) {
    if (o.a) {
        st(p, q);
        return;
    }
    alignas(16) uint32_t px[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(px), q);
    for (int k = 0; k < 4; ++k, p += 4) {
        const uint16_t lo = uint16_t(px[k]);
        std::memcpy(p, &lo, 2);
        p[2] = uint8_t(px[k] >> 16);
    }
}

// 16 pixels of R, G, B bytes to an interleaved row (DS = 3, or 4 with alpha
// 0xFF or kept, as o says) or to planes (DS = 1).
template <bool Bgr, int DS>
inline void store16(const RgbOut& o, ptrdiff_t x, __m128i R, __m128i G, __m128i B) {
    if constexpr (DS == 1) {  // planes: the pointers say which is which
        st(o.r + x, R);
        st(o.g + x, G);
        st(o.b + x, B);
        return;
    }
    if constexpr (Bgr) {
        const __m128i t = R;
        R = B;
        B = t;
    }
    uint8_t* p = (Bgr ? o.b : o.r) + x * DS;
    const __m128i rg0 = _mm_unpacklo_epi8(R, G), rg1 = _mm_unpackhi_epi8(R, G);
    const __m128i fill = DS == 4 ? _mm_set1_epi8(-1) : B;
    const __m128i ba0 = _mm_unpacklo_epi8(B, fill), ba1 = _mm_unpackhi_epi8(B, fill);
    const __m128i q0 = _mm_unpacklo_epi16(rg0, ba0), q1 = _mm_unpackhi_epi16(rg0, ba0);
    const __m128i q2 = _mm_unpacklo_epi16(rg1, ba1), q3 = _mm_unpackhi_epi16(rg1, ba1);
    if constexpr (DS == 4) {
        st_px4(o, p, q0);
        st_px4(o, p + 16, q1);
        st_px4(o, p + 32, q2);
        st_px4(o, p + 48, q3);
    } else {
        const __m128i c0 = compact3(q0), c1 = compact3(q1), c2 = compact3(q2), c3 = compact3(q3);
        st(p, _mm_or_si128(c0, _mm_slli_si128(c1, 12)));
        st(p + 16, _mm_or_si128(_mm_srli_si128(c1, 4), _mm_slli_si128(c2, 8)));
        st(p + 32, _mm_or_si128(_mm_srli_si128(c2, 8), _mm_slli_si128(c3, 4)));
    }
}

// ---------------------------------------------------------------- forward

// Luma of 8 pixels; K holds the offset of each pixel (yk, or yk/yk2 by pair).
template <class F>
inline __m128i luma8(__m128i R, __m128i G, __m128i B, __m128i K) {
    constexpr int hi = F::yg > 32767 ? 1 : 0;
    constexpr int lo = F::yg - hi * (1 << F::S);
    const __m128i wrg = pair16(F::yr, lo), wb = pair16(F::yb, 0), z = _mm_setzero_si128();
    const __m128i l = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(R, G), wrg),
                                                  _mm_madd_epi16(_mm_unpacklo_epi16(B, z), wb)), K);
    const __m128i h = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(R, G), wrg),
                                                  _mm_madd_epi16(_mm_unpackhi_epi16(B, z), wb)), K);
    const __m128i y = _mm_packs_epi32(_mm_srai_epi32(l, F::S), _mm_srai_epi32(h, F::S));
    return hi ? _mm_add_epi16(y, G) : y;
}

// Chroma of 4 horizontal pairs (8 lanes of values or of two-row sums):
// pmaddwd adds the two lanes of each pair, scaled by the weight.
template <class F, int N>
inline __m128i chroma_pairs(__m128i R, __m128i G, __m128i B, int wr, int wg, int wb) {
    const __m128i s = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(R, _mm_set1_epi16(short(wr))),
                                                  _mm_madd_epi16(G, _mm_set1_epi16(short(wg)))),
                                    _mm_add_epi32(_mm_madd_epi16(B, _mm_set1_epi16(short(wb))),
                                                  _mm_set1_epi32(F::ck * (1 << N))));
    return _mm_srai_epi32(s, F::S + N);
}

// 8 chroma values from two groups of 4 as the low 8 bytes: the low byte of
// each value for the matrices whose offset wraps (the sum is stored as
// value - 256), the clamped value for the others.
template <class F>
inline __m128i bytes8(__m128i a, __m128i b) {
    __m128i v = _mm_packs_epi32(a, b);
    if constexpr (!F::clamp) v = _mm_and_si128(v, _mm_set1_epi16(0xFF));
    return _mm_packus_epi16(v, _mm_setzero_si128());
}

// Chroma of 8 single pixels (16-bit lanes, before the wrap or clamp).
template <class F>
inline __m128i chroma8(__m128i R, __m128i G, __m128i B, int wr, int wg, int wb) {
    const __m128i wrg = pair16(wr, wg), wbb = pair16(wb, 0), z = _mm_setzero_si128(), K = _mm_set1_epi32(F::ck);
    const __m128i l = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(R, G), wrg),
                                                  _mm_madd_epi16(_mm_unpacklo_epi16(B, z), wbb)), K);
    const __m128i h = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(R, G), wrg),
                                                  _mm_madd_epi16(_mm_unpackhi_epi16(B, z), wbb)), K);
    return _mm_packs_epi32(_mm_srai_epi32(l, F::S), _mm_srai_epi32(h, F::S));
}
template <class F>
inline __m128i bytes16(__m128i a, __m128i b) {
    if constexpr (!F::clamp) {
        const __m128i m = _mm_set1_epi16(0xFF);
        a = _mm_and_si128(a, m);
        b = _mm_and_si128(b, m);
    }
    return _mm_packus_epi16(a, b);
}

// Full-sampled from RGB to interleaved Y,Cb,Cr (DS 3, or 4 keeping the fourth
// byte) or planes (DS 1).
template <class F, bool Bgr, int SS, int DS>
void fwd444(const RgbIn& in, const Ycc444& o, int x0, int w) {
    const __m128i K = _mm_set1_epi32(F::yk);
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i R0, G0, B0, R1, G1, B1;
        load8<Bgr, SS>(in, x, R0, G0, B0);
        load8<Bgr, SS>(in, x + 8, R1, G1, B1);
        const __m128i Y = _mm_packus_epi16(luma8<F>(R0, G0, B0, K), luma8<F>(R1, G1, B1, K));
        const __m128i Cb = bytes16<F>(chroma8<F>(R0, G0, B0, F::br, F::bg, F::bb), chroma8<F>(R1, G1, B1, F::br, F::bg, F::bb));
        const __m128i Cr = bytes16<F>(chroma8<F>(R0, G0, B0, F::rr, F::rg, F::rb), chroma8<F>(R1, G1, B1, F::rr, F::rg, F::rb));
        store16<false, DS>(RgbOut{o.y, o.cb, o.cr, nullptr, DS}, x, Y, Cb, Cr);
    }
    fwd444_row<F>(in, o, int(x), w);
}

// 4:2:2 from RGB. D: 0..2 packed in the byte order of Order, 3 planes.
template <class F, bool Bgr, int SS, int D>
void fwd422(const RgbIn& in, const Ycc422& o, int x0, int w) {
    const __m128i K = _mm_set_epi32(F::yk2, F::yk, F::yk2, F::yk);
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i R0, G0, B0, R1, G1, B1;
        load8<Bgr, SS>(in, x, R0, G0, B0);
        load8<Bgr, SS>(in, x + 8, R1, G1, B1);
        const __m128i Y = _mm_packus_epi16(luma8<F>(R0, G0, B0, K), luma8<F>(R1, G1, B1, K));
        const __m128i Cb = bytes8<F>(chroma_pairs<F, 1>(R0, G0, B0, F::br, F::bg, F::bb),
                                  chroma_pairs<F, 1>(R1, G1, B1, F::br, F::bg, F::bb));
        const __m128i Cr = bytes8<F>(chroma_pairs<F, 1>(R0, G0, B0, F::rr, F::rg, F::rb),
                                  chroma_pairs<F, 1>(R1, G1, B1, F::rr, F::rg, F::rb));
        if constexpr (D == 3) {
            st(o.y + x, Y);
            st8(o.cb + x / 2, Cb);
            st8(o.cr + x / 2, Cr);
        } else if constexpr (D == int(Order::CbYCr)) {
            uint8_t* p = o.cb + 2 * x;
            const __m128i C = _mm_unpacklo_epi8(Cb, Cr);
            st(p, _mm_unpacklo_epi8(C, Y));
            st(p + 16, _mm_unpackhi_epi8(C, Y));
        } else {
            uint8_t* p = o.y + 2 * x;
            const __m128i C = D == int(Order::YCrCb) ? _mm_unpacklo_epi8(Cr, Cb) : _mm_unpacklo_epi8(Cb, Cr);
            st(p, _mm_unpacklo_epi8(Y, C));
            st(p + 16, _mm_unpackhi_epi8(Y, C));
        }
    }
    fwd422_row<F>(in, o, int(x), w);
}

// 4:2:0 from RGB, two rows; planes (cs 1) or an interleaved chroma plane (cs 2).
template <class F, bool Bgr, int SS>
void fwd420(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w) {
    const __m128i K = _mm_set1_epi32(F::yk);
    const bool cr_first = o.cr < o.cb;
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i R0, G0, B0, R1, G1, B1, R2, G2, B2, R3, G3, B3;
        load8<Bgr, SS>(s0, x, R0, G0, B0);
        load8<Bgr, SS>(s0, x + 8, R1, G1, B1);
        load8<Bgr, SS>(s1, x, R2, G2, B2);
        load8<Bgr, SS>(s1, x + 8, R3, G3, B3);
        st(o.y0 + x, _mm_packus_epi16(luma8<F>(R0, G0, B0, K), luma8<F>(R1, G1, B1, K)));
        st(o.y1 + x, _mm_packus_epi16(luma8<F>(R2, G2, B2, K), luma8<F>(R3, G3, B3, K)));
        const __m128i SR0 = _mm_add_epi16(R0, R2), SG0 = _mm_add_epi16(G0, G2), SB0 = _mm_add_epi16(B0, B2);
        const __m128i SR1 = _mm_add_epi16(R1, R3), SG1 = _mm_add_epi16(G1, G3), SB1 = _mm_add_epi16(B1, B3);
        const __m128i Cb = bytes8<F>(chroma_pairs<F, 2>(SR0, SG0, SB0, F::br, F::bg, F::bb),
                                  chroma_pairs<F, 2>(SR1, SG1, SB1, F::br, F::bg, F::bb));
        const __m128i Cr = bytes8<F>(chroma_pairs<F, 2>(SR0, SG0, SB0, F::rr, F::rg, F::rb),
                                  chroma_pairs<F, 2>(SR1, SG1, SB1, F::rr, F::rg, F::rb));
        if (o.cs == 1) {
            st8(o.cb + x / 2, Cb);
            st8(o.cr + x / 2, Cr);
        } else if (cr_first) {
            st(o.cr + x, _mm_unpacklo_epi8(Cr, Cb));
        } else {
            st(o.cb + x, _mm_unpacklo_epi8(Cb, Cr));
        }
    }
    fwd420_rows<F>(s0, s1, o, int(x), w);
}

// Chroma of 4 groups of four pixels (8 lanes in each register) as 4 bytes:
// pmaddwd sums the pairs, the pairs of a group are then added in 32 bits.
template <class F>
inline int chroma_quads(__m128i R0, __m128i G0, __m128i B0, __m128i R1, __m128i G1, __m128i B1, int wr, int wg,
                        int wb) {
    const __m128i vr = _mm_set1_epi16(short(wr)), vg = _mm_set1_epi16(short(wg)), vb = _mm_set1_epi16(short(wb));
    const __m128i k = _mm_set1_epi32(F::ck * 4);
    const auto groups = [&](__m128i R, __m128i G, __m128i B) {  // in lanes 0 and 1
        const __m128i s = _mm_add_epi32(_mm_add_epi32(_mm_madd_epi16(R, vr), _mm_madd_epi16(G, vg)), _mm_madd_epi16(B, vb));
        const __m128i t = _mm_add_epi32(_mm_add_epi32(s, _mm_srli_epi64(s, 32)), k);
        return _mm_shuffle_epi32(_mm_srai_epi32(t, F::S + 2), 0x08);
    };
    __m128i v = _mm_packs_epi32(_mm_unpacklo_epi64(groups(R0, G0, B0), groups(R1, G1, B1)), _mm_setzero_si128());
    if constexpr (!F::clamp) v = _mm_and_si128(v, _mm_set1_epi16(0xFF));
    return _mm_cvtsi128_si32(_mm_packus_epi16(v, v));
}

inline void st4(uint8_t* p, int v) { std::memcpy(p, &v, 4); }
inline __m128i ld4(const uint8_t* p) {
    int v;
    std::memcpy(&v, p, 4);
    return _mm_cvtsi32_si128(v);
}

// 4:1:1 planes from interleaved RGB/BGR; the groups of a block are whole.
template <class F, bool Bgr, int SS>
void fwd411(const RgbIn& in, const Ycc411& o, int x0, int w) {
    const __m128i K = _mm_set1_epi32(F::yk);
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i R0, G0, B0, R1, G1, B1;
        load8<Bgr, SS>(in, x, R0, G0, B0);
        load8<Bgr, SS>(in, x + 8, R1, G1, B1);
        st(o.y + x, _mm_packus_epi16(luma8<F>(R0, G0, B0, K), luma8<F>(R1, G1, B1, K)));
        st4(o.cb + x / 4, chroma_quads<F>(R0, G0, B0, R1, G1, B1, F::br, F::bg, F::bb));
        st4(o.cr + x / 4, chroma_quads<F>(R0, G0, B0, R1, G1, B1, F::rr, F::rg, F::rb));
    }
    fwd411_row<F>(in, o, int(x), w);
}

// ---------------------------------------------------------------- inverse

// R, G, B (16-bit, before the clamp) of 8 pixels from Y, Cb, Cr bytes in
// 16-bit lanes.
template <class I>
struct InvCore;

// 76284 = 65536 + 10748, 104595 = 2*65536 - 26477, -53281 = -65536 + 12255,
// 132186 = 2*65536 + 1114: the multiples of 65536 come back after the shift.
template <int KR, int KG, int KB>
struct InvCore<Inv601<KR, KG, KB>> {
    static void run(__m128i Y, __m128i Cb, __m128i Cr, __m128i& R, __m128i& G, __m128i& B) {
        const __m128i ycl = _mm_unpacklo_epi16(Y, Cr), ych = _mm_unpackhi_epi16(Y, Cr);
        const __m128i cyl = _mm_unpacklo_epi16(Cb, Y), cyh = _mm_unpackhi_epi16(Cb, Y);
        const __m128i wr = pair16(10748, -26477), wg1 = pair16(10748, 12255), wg2 = pair16(-25690, 0),
                      wb = pair16(1114, 10748);
        const auto fin = [](__m128i l, __m128i h, int k) {
            const __m128i kk = _mm_set1_epi32(k);
            return _mm_packs_epi32(_mm_srai_epi32(_mm_add_epi32(l, kk), 16), _mm_srai_epi32(_mm_add_epi32(h, kk), 16));
        };
        R = _mm_add_epi16(fin(_mm_madd_epi16(ycl, wr), _mm_madd_epi16(ych, wr), KR),
                          _mm_add_epi16(Y, _mm_add_epi16(Cr, Cr)));
        G = _mm_add_epi16(fin(_mm_add_epi32(_mm_madd_epi16(ycl, wg1), _mm_madd_epi16(cyl, wg2)),
                              _mm_add_epi32(_mm_madd_epi16(ych, wg1), _mm_madd_epi16(cyh, wg2)), KG),
                          _mm_sub_epi16(Y, Cr));
        B = _mm_add_epi16(fin(_mm_madd_epi16(cyl, wb), _mm_madd_epi16(cyh, wb), KB),
                          _mm_add_epi16(Y, _mm_add_epi16(Cb, Cb)));
    }
};

// The same sums split at the chroma sample, for sources where several pixels
// share one (4:2:0). Per sample and channel the chroma part C of the sum
// (C = 104595*Cr + KR for R) is held as its high half H = floor(C / 2^16) and
// a threshold T = 32767 - (C mod 2^16); per pixel, 76284*Y is 2^16*(Y + Yh) +
// Yl with Yh, Yl the halves of 10748*Y, and the result is Y + Yh + H plus the
// carry out of Yl + (C mod 2^16), which is Yl - 32768 > T as signed 16-bit
// numbers. Every step is exact: the bytes are those of the 32-bit sums.
// A channel weight a = 2^16*m + w (0 <= w < 2^16) gives H from m*c + the
// unsigned high half of w*c, and T from the low half of -w*c; the carry of
// that low half into the constant's own is T > 32767 - (K mod 2^16).
template <int KR, int KG, int KB>
struct InvSplit601 {
    struct Terms {
        __m128i h[3], t[3];
    };
    static constexpr int lo(int k) { return k & 0xFFFF; }
    static constexpr int hi(int k) { return (k - lo(k)) / 65536; }
    // H and T of one weight a = 2^16*m + w on one chroma input c.
    template <int M, int W, int K>
    static void one(__m128i c, __m128i& h, __m128i& t) {
        const __m128i k = _mm_set1_epi16(short(32767 - lo(K)));
        t = _mm_add_epi16(_mm_mullo_epi16(c, _mm_set1_epi16(short(-W))), k);
        const __m128i mc = M == 2 ? _mm_add_epi16(c, c) : c;
        h = _mm_sub_epi16(_mm_add_epi16(_mm_add_epi16(_mm_mulhi_epu16(c, _mm_set1_epi16(short(W))), mc),
                                        _mm_set1_epi16(short(hi(K)))),
                          _mm_cmpgt_epi16(t, k));
    }
    // Terms of 8 samples (16-bit lanes). G is -25690*Cb + 12255*Cr - 2^16*Cr
    // + KG: its high half comes from an exact 32-bit pmaddwd sum.
    static Terms terms(__m128i Cb, __m128i Cr) {
        Terms o;
        one<1, 104595 - 65536, KR>(Cr, o.h[0], o.t[0]);
        one<2, 132186 - 131072, KB>(Cb, o.h[2], o.t[2]);
        const __m128i w = pair16(-25690, 12255), k = _mm_set1_epi32(KG);
        const __m128i l = _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(Cb, Cr), w), k);
        const __m128i u = _mm_add_epi32(_mm_madd_epi16(_mm_unpackhi_epi16(Cb, Cr), w), k);
        o.h[1] = _mm_sub_epi16(_mm_packs_epi32(_mm_srai_epi32(l, 16), _mm_srai_epi32(u, 16)), Cr);
        o.t[1] = _mm_add_epi16(_mm_add_epi16(_mm_mullo_epi16(Cb, _mm_set1_epi16(25690)),
                                             _mm_mullo_epi16(Cr, _mm_set1_epi16(-12255))),
                               _mm_set1_epi16(short(32767 - lo(KG))));
        return o;
    }
    // The terms of samples 0-3 (lo) or 4-7, each for two pixels in a row.
    static Terms dup(const Terms& c, bool high) {
        Terms o;
        for (int i = 0; i < 3; ++i) {
            o.h[i] = high ? _mm_unpackhi_epi16(c.h[i], c.h[i]) : _mm_unpacklo_epi16(c.h[i], c.h[i]);
            o.t[i] = high ? _mm_unpackhi_epi16(c.t[i], c.t[i]) : _mm_unpacklo_epi16(c.t[i], c.t[i]);
        }
        return o;
    }
    // R, G, B of 8 pixels (16-bit, before the clamp).
    static void apply(__m128i Y, const Terms& c, __m128i& R, __m128i& G, __m128i& B) {
        const __m128i yy = _mm_add_epi16(Y, _mm_mulhi_epu16(Y, _mm_set1_epi16(10748)));
        const __m128i yl = _mm_xor_si128(_mm_mullo_epi16(Y, _mm_set1_epi16(10748)), _mm_set1_epi16(-32768));
        __m128i v[3];
        for (int i = 0; i < 3; ++i) v[i] = _mm_sub_epi16(_mm_add_epi16(yy, c.h[i]), _mm_cmpgt_epi16(yl, c.t[i]));
        R = v[0];
        G = v[1];
        B = v[2];
    }
};

// Which inverses have a split form.
template <class I>
struct Split {
    static constexpr bool on = false;
    using type = void;
};
template <int KR, int KG, int KB>
struct Split<Inv601<KR, KG, KB>> {
    static constexpr bool on = true;
    using type = InvSplit601<KR, KG, KB>;
};

template <int CY, int YOFF, int CRR, int CBG, int CRG, int CBB>
struct InvCore<Inv709<CY, YOFF, CRR, CBG, CRG, CBB>> {
    static void run(__m128i Y, __m128i Cb, __m128i Cr, __m128i& R, __m128i& G, __m128i& B) {
        const __m128i yt = CY ? _mm_mulhi_epi16(_mm_slli_epi16(_mm_sub_epi16(Y, _mm_set1_epi16(YOFF)), 3), _mm_set1_epi16(CY))
                              : Y;
        const __m128i c128 = _mm_set1_epi16(128);
        const __m128i cb = _mm_slli_epi16(_mm_sub_epi16(Cb, c128), 3), cr = _mm_slli_epi16(_mm_sub_epi16(Cr, c128), 3);
        R = _mm_add_epi16(yt, _mm_mulhi_epi16(cr, _mm_set1_epi16(CRR)));
        G = _mm_add_epi16(_mm_add_epi16(yt, _mm_mulhi_epi16(cb, _mm_set1_epi16(CBG))),
                          _mm_mulhi_epi16(cr, _mm_set1_epi16(CRG)));
        B = _mm_add_epi16(yt, _mm_mulhi_epi16(cb, _mm_set1_epi16(CBB)));
    }
};

// 16 pixels: Y bytes, per-pixel Cb and Cr as 16-bit lanes (low and high 8).
template <class I, bool Bgr, int DS>
inline void inv16(const RgbOut& o, ptrdiff_t x, __m128i Yb, __m128i cbl, __m128i cbh, __m128i crl, __m128i crh) {
    const __m128i z = _mm_setzero_si128();
    __m128i R0, G0, B0, R1, G1, B1;
    InvCore<I>::run(_mm_unpacklo_epi8(Yb, z), cbl, crl, R0, G0, B0);
    InvCore<I>::run(_mm_unpackhi_epi8(Yb, z), cbh, crh, R1, G1, B1);
    store16<Bgr, DS>(o, x, _mm_packus_epi16(R0, R1), _mm_packus_epi16(G0, G1), _mm_packus_epi16(B0, B1));
}

// 4:2:0 to RGB, two rows; chroma planes (cs 1) or an interleaved plane (cs 2).
template <class I, bool Bgr, int DS>
void inv420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    const __m128i z = _mm_setzero_si128(), m = _mm_set1_epi16(0xFF);
    const bool cr_first = in.cr < in.cb;
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i cb, cr;
        if (in.cs == 2) {
            const __m128i v = ld((cr_first ? in.cr : in.cb) + x);
            const __m128i a = _mm_and_si128(v, m), b = _mm_srli_epi16(v, 8);
            cb = cr_first ? b : a;
            cr = cr_first ? a : b;
        } else {
            cb = _mm_unpacklo_epi8(ld8(in.cb + x / 2), z);
            cr = _mm_unpacklo_epi8(ld8(in.cr + x / 2), z);
        }
        if constexpr (Split<I>::on) {  // the chroma part once per sample, for four pixels
            using S = typename Split<I>::type;
            const typename S::Terms c = S::terms(cb, cr), lo = S::dup(c, false), hi = S::dup(c, true);
            for (int r = 0; r < 2; ++r) {
                const __m128i Yb = ld((r ? in.y1 : in.y0) + x);
                __m128i R0, G0, B0, R1, G1, B1;
                S::apply(_mm_unpacklo_epi8(Yb, z), lo, R0, G0, B0);
                S::apply(_mm_unpackhi_epi8(Yb, z), hi, R1, G1, B1);
                store16<Bgr, DS>(r ? o1 : o0, x, _mm_packus_epi16(R0, R1), _mm_packus_epi16(G0, G1),
                                 _mm_packus_epi16(B0, B1));
            }
            continue;
        }
        const __m128i cbl = _mm_unpacklo_epi16(cb, cb), cbh = _mm_unpackhi_epi16(cb, cb);
        const __m128i crl = _mm_unpacklo_epi16(cr, cr), crh = _mm_unpackhi_epi16(cr, cr);
        inv16<I, Bgr, DS>(o0, x, ld(in.y0 + x), cbl, cbh, crl, crh);
        inv16<I, Bgr, DS>(o1, x, ld(in.y1 + x), cbl, cbh, crl, crh);
    }
    inv420_rows<I>(in, o0, o1, int(x), w);
}

// Packed 4:2:2 to RGB.
template <class I, Order O, bool Bgr, int DS>
void inv422(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    const __m128i m = _mm_set1_epi16(0xFF);
    const uint8_t* p = in.y - (O == Order::CbYCr ? 1 : 0);
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i Y[2], Cb[2], Cr[2];
        for (int h = 0; h < 2; ++h) {
            const __m128i v = ld(p + 2 * x + 16 * h);
            const __m128i c = O == Order::CbYCr ? _mm_and_si128(v, m) : _mm_srli_epi16(v, 8);
            Y[h] = O == Order::CbYCr ? _mm_srli_epi16(v, 8) : _mm_and_si128(v, m);
            const __m128i first = _mm_shufflehi_epi16(_mm_shufflelo_epi16(c, 0xA0), 0xA0);
            const __m128i second = _mm_shufflehi_epi16(_mm_shufflelo_epi16(c, 0xF5), 0xF5);
            Cb[h] = O == Order::YCrCb ? second : first;
            Cr[h] = O == Order::YCrCb ? first : second;
        }
        __m128i R0, G0, B0, R1, G1, B1;
        InvCore<I>::run(Y[0], Cb[0], Cr[0], R0, G0, B0);
        InvCore<I>::run(Y[1], Cb[1], Cr[1], R1, G1, B1);
        store16<Bgr, DS>(o, x, _mm_packus_epi16(R0, R1), _mm_packus_epi16(G0, G1), _mm_packus_epi16(B0, B1));
    }
    inv422_row<I>(in, o, int(x), w);
}

// Full-sampled, interleaved (SS 3) or planes (SS 1), to RGB/BGR.
template <class I, int SS, bool Bgr, int DS>
void inv444(const Ycc444In& in, const RgbOut& o, int x0, int w) {
    const RgbIn v{in.y, in.cb, in.cr, SS};
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        __m128i Y0, Cb0, Cr0, Y1, Cb1, Cr1, R0, G0, B0, R1, G1, B1;
        load8<false, SS>(v, x, Y0, Cb0, Cr0);
        load8<false, SS>(v, x + 8, Y1, Cb1, Cr1);
        InvCore<I>::run(Y0, Cb0, Cr0, R0, G0, B0);
        InvCore<I>::run(Y1, Cb1, Cr1, R1, G1, B1);
        store16<Bgr, DS>(o, x, _mm_packus_epi16(R0, R1), _mm_packus_epi16(G0, G1), _mm_packus_epi16(B0, B1));
    }
    inv444_row<I>(in, o, int(x), w);
}

// 4:2:2 planes to RGB/BGR.
template <class I, bool Bgr, int DS>
void inv422p(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    const __m128i z = _mm_setzero_si128();
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        const __m128i cb = _mm_unpacklo_epi8(ld8(in.cb + x / 2), z), cr = _mm_unpacklo_epi8(ld8(in.cr + x / 2), z);
        inv16<I, Bgr, DS>(o, x, ld(in.y + x), _mm_unpacklo_epi16(cb, cb), _mm_unpackhi_epi16(cb, cb),
                          _mm_unpacklo_epi16(cr, cr), _mm_unpackhi_epi16(cr, cr));
    }
    inv422_row<I>(in, o, int(x), w);
}

// 4:1:1 planes to RGB/BGR: each chroma byte covers four pixels.
template <class I, bool Bgr, int DS>
void inv411(const Ycc411In& in, const RgbOut& o, int x0, int w) {
    const __m128i z = _mm_setzero_si128();
    const auto quad = [](__m128i c) {
        const __m128i d = _mm_unpacklo_epi8(c, c);
        return _mm_unpacklo_epi16(d, d);
    };
    ptrdiff_t x = x0;
    for (; x + 16 <= w; x += 16) {
        const __m128i cb = quad(ld4(in.cb + x / 4)), cr = quad(ld4(in.cr + x / 4));
        inv16<I, Bgr, DS>(o, x, ld(in.y + x), _mm_unpacklo_epi8(cb, z), _mm_unpackhi_epi8(cb, z),
                          _mm_unpacklo_epi8(cr, z), _mm_unpackhi_epi8(cr, z));
    }
    inv411_row<I>(in, o, int(x), w);
}

}  // namespace nmq::ycc::sse2
