// YUV <-> RGB: SSE2 row kernels. Each one walks a row in blocks of 16 pixels
// and hands the pixels after the last block to its scalar kernel, whose bytes
// it reproduces exactly. Loads and stores never pass the last pixel of a row.
//
// Rounding of the vector arithmetic: sums are exact 32-bit pmaddwd sums and
// high-half products floor exactly where the scalar formula does, so a block
// gives the per-pixel bytes. Only the 16-pixel blocks of the interleaved 4:4:4
// kernels and of the planar 4:2:2 kernel have formulas of their own
// (rgb_to_yuv_block, yuv_to_rgb_block): RGB to YUV rounds its scale-2^15
// chroma to nearest, as the per-pixel formula rounds; YUV to RGB keeps the
// floor of each high-half product, as 16-bit lanes give it.
#include <emmintrin.h>

#include <cstring>

#include "yuv/yuv_kernels.h"

namespace nmq::yuv {
namespace {

using V = __m128i;

inline V ld(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const V*>(p)); }
inline V ld8(const uint8_t* p) { return _mm_loadl_epi64(reinterpret_cast<const V*>(p)); }
inline void st(uint8_t* p, V v) { _mm_storeu_si128(reinterpret_cast<V*>(p), v); }
inline void st8(uint8_t* p, V v) { _mm_storel_epi64(reinterpret_cast<V*>(p), v); }
inline V c16(int v) { return _mm_set1_epi16(int16_t(v)); }
inline V c32(int v) { return _mm_set1_epi32(v); }
// A pmaddwd weight pair: a multiplies the even 16-bit lane, b the odd one.
inline V pair(int a, int b) { return _mm_set1_epi32(int32_t(uint32_t(uint16_t(a)) | uint32_t(uint16_t(b)) << 16)); }
inline V lo16(V x) { return _mm_unpacklo_epi8(x, _mm_setzero_si128()); }
inline V hi16(V x) { return _mm_unpackhi_epi8(x, _mm_setzero_si128()); }
inline V even8(V x) { return _mm_and_si128(x, c16(255)); }
inline V odd8(V x) { return _mm_srli_epi16(x, 8); }

// 48 bytes of three-byte pixels to the three byte positions, 16 pixels each:
// four rounds of interleaving a half with the other half of its neighbour.
inline void deinterleave3(V a, V b, V c, V m[3]) {
    for (int k = 0; k < 4; ++k) {
        const V t0 = _mm_unpacklo_epi8(a, _mm_unpackhi_epi64(b, b));
        const V t1 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(a, a), c);
        const V t2 = _mm_unpacklo_epi8(b, _mm_unpackhi_epi64(c, c));
        a = t0, b = t1, c = t2;
    }
    m[0] = a, m[1] = b, m[2] = c;
}

// The inverse: four rounds of splitting even and odd bytes.
inline void interleave3(V a, V b, V c, uint8_t* p) {
    for (int k = 0; k < 4; ++k) {
        const V t0 = _mm_packus_epi16(even8(a), even8(b));
        const V t1 = _mm_packus_epi16(even8(c), odd8(a));
        const V t2 = _mm_packus_epi16(odd8(b), odd8(c));
        a = t0, b = t1, c = t2;
    }
    st(p, a), st(p + 16, b), st(p + 32, c);
}

// ---- Layout access, 16 pixels as three vectors of bytes ------------------------

template <class L>
struct Io;

template <int A, int B, int C>
struct Io<Packed<3, A, B, C>> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        const uint8_t* q = s.p[0] + 3 * i;
        V m[3];
        deinterleave3(ld(q), ld(q + 16), ld(q + 32), m);
        a = m[A], b = m[B], c = m[C];
    }
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        V m[3];
        m[A] = a, m[B] = b, m[C] = c;
        interleave3(m[0], m[1], m[2], d.p[0] + 3 * i);
    }
};

template <int A, int B, int C>
struct Io<Packed<4, A, B, C>> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        const uint8_t* q = s.p[0] + 4 * i;
        const V q0 = ld(q), q1 = ld(q + 16), q2 = ld(q + 32), q3 = ld(q + 48);
        const V e0 = _mm_packus_epi16(even8(q0), even8(q1)), e1 = _mm_packus_epi16(even8(q2), even8(q3));
        const V o0 = _mm_packus_epi16(odd8(q0), odd8(q1)), o1 = _mm_packus_epi16(odd8(q2), odd8(q3));
        V m[3];
        m[0] = _mm_packus_epi16(even8(e0), even8(e1));
        m[2] = _mm_packus_epi16(odd8(e0), odd8(e1));
        m[1] = _mm_packus_epi16(even8(o0), even8(o1));
        a = m[A], b = m[B], c = m[C];
    }
    // The fourth byte must not be written, not even with its own value.
    // The pixels are interleaved in registers, then each goes out as a 16-bit
    // and an 8-bit store: two stores a pixel rather than three.
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        V m[4];
        m[A] = a, m[B] = b, m[C] = c, m[3] = _mm_setzero_si128();
        const V l01 = _mm_unpacklo_epi8(m[0], m[1]), h01 = _mm_unpackhi_epi8(m[0], m[1]);
        const V l23 = _mm_unpacklo_epi8(m[2], m[3]), h23 = _mm_unpackhi_epi8(m[2], m[3]);
        alignas(16) uint32_t px[16];
        _mm_store_si128(reinterpret_cast<V*>(px), _mm_unpacklo_epi16(l01, l23));
        _mm_store_si128(reinterpret_cast<V*>(px + 4), _mm_unpackhi_epi16(l01, l23));
        _mm_store_si128(reinterpret_cast<V*>(px + 8), _mm_unpacklo_epi16(h01, h23));
        _mm_store_si128(reinterpret_cast<V*>(px + 12), _mm_unpackhi_epi16(h01, h23));
        uint8_t* q = d.p[0] + 4 * i;
        for (int k = 0; k < 16; ++k, q += 4) {
            const uint16_t lo = uint16_t(px[k]);
            std::memcpy(q, &lo, 2);
            q[2] = uint8_t(px[k] >> 16);
        }
    }
};

template <int A, int B, int C>
struct Io<PackedAlpha<A, B, C>> {
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        V m[4];
        m[A] = a, m[B] = b, m[C] = c, m[3] = _mm_set1_epi8(char(d.alpha));
        const V l01 = _mm_unpacklo_epi8(m[0], m[1]), h01 = _mm_unpackhi_epi8(m[0], m[1]);
        const V l23 = _mm_unpacklo_epi8(m[2], m[3]), h23 = _mm_unpackhi_epi8(m[2], m[3]);
        uint8_t* q = d.p[0] + 4 * i;
        st(q, _mm_unpacklo_epi16(l01, l23)), st(q + 16, _mm_unpackhi_epi16(l01, l23));
        st(q + 32, _mm_unpacklo_epi16(h01, h23)), st(q + 48, _mm_unpackhi_epi16(h01, h23));
    }
};

template <>
struct Io<Planar> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        a = ld(s.p[0] + i), b = ld(s.p[1] + i), c = ld(s.p[2] + i);
    }
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        st(d.p[0] + i, a), st(d.p[1] + i, b), st(d.p[2] + i, c);
    }
};

template <int GBits, bool RLow>
struct Io<Word16<GBits, RLow>> {
    // Eight words to 16-bit R, G, B with the top bits of each field repeated.
    static void fields(V w, V& r, V& g, V& b) {
        const V lo = _mm_and_si128(w, c16(31));
        const V mid = _mm_and_si128(_mm_srli_epi16(w, 5), c16((1 << GBits) - 1));
        const V hi = _mm_and_si128(_mm_srli_epi16(w, 5 + GBits), c16(31));
        const V l8 = _mm_or_si128(_mm_slli_epi16(lo, 3), _mm_srli_epi16(lo, 2));
        const V h8 = _mm_or_si128(_mm_slli_epi16(hi, 3), _mm_srli_epi16(hi, 2));
        g = GBits == 6 ? _mm_or_si128(_mm_slli_epi16(mid, 2), _mm_srli_epi16(mid, 4))
                       : _mm_or_si128(_mm_slli_epi16(mid, 3), _mm_srli_epi16(mid, 2));
        r = RLow ? l8 : h8;
        b = RLow ? h8 : l8;
    }
    static void load(const RowIn& s, ptrdiff_t i, V& r, V& g, V& b) {
        const uint8_t* q = s.p[0] + 2 * i;
        V r0, g0, b0, r1, g1, b1;
        fields(ld(q), r0, g0, b0);
        fields(ld(q + 16), r1, g1, b1);
        r = _mm_packus_epi16(r0, r1), g = _mm_packus_epi16(g0, g1), b = _mm_packus_epi16(b0, b1);
    }
};

// ---- RGB to YUV ---------------------------------------------------------------

// Eight pixels as 16-bit lanes. With dRG = R - G and dBG = B - G, the luma sum
// is S = 65536 G + sy, sy = 19595 dRG + 7471 dBG (one pmaddwd per four pixels).
struct Sums {
    V drg, dbg;   // 16-bit
    V p0, p1;     // (dRG, dBG) pairs of pixels 0-3 and 4-7
    V sy0, sy1;   // 32-bit, pixels 0-3 and 4-7
};

inline Sums sums(V r, V g, V b) {
    Sums s;
    s.drg = _mm_sub_epi16(r, g), s.dbg = _mm_sub_epi16(b, g);
    s.p0 = _mm_unpacklo_epi16(s.drg, s.dbg), s.p1 = _mm_unpackhi_epi16(s.drg, s.dbg);
    const V w = pair(19595, 7471);
    s.sy0 = _mm_madd_epi16(s.p0, w), s.sy1 = _mm_madd_epi16(s.p1, w);
    return s;
}

// (x0 + k) >> sh, (x1 + k) >> sh packed to eight 16-bit lanes.
inline V shift_pack(V x0, V x1, int k, int sh) {
    const V kk = c32(k);
    return _mm_packs_epi32(_mm_srai_epi32(_mm_add_epi32(x0, kk), sh), _mm_srai_epi32(_mm_add_epi32(x1, kk), sh));
}
inline V shift_pack_from(int k, V x0, V x1, int sh) {  // (k - x) >> sh
    const V kk = c32(k);
    return _mm_packs_epi32(_mm_srai_epi32(_mm_sub_epi32(kk, x0), sh), _mm_srai_epi32(_mm_sub_epi32(kk, x1), sh));
}

// floor(d * 32244 / 2^16) and floor(d * 57475 / 2^16), 16-bit lanes.
inline V u_term(V db) { return _mm_mulhi_epi16(db, c16(32244)); }
inline V v_term(V dr) { return _mm_add_epi16(_mm_mulhi_epi16(dr, c16(57475 - 65536)), dr); }

template <Fwd F>
inline void fwd8(V r, V g, V b, V& y, V& u, V& v) {
    const Sums s = sums(r, g, b);
    y = _mm_add_epi16(g, shift_pack(s.sy0, s.sy1, 32768, 16));
    if constexpr (F == Fwd::PerPixel) {
        // B - Y and R - Y rounded: (65536 dBG - sy + 32768) >> 16.
        const V t = shift_pack_from(32768, s.sy0, s.sy1, 16);
        u = _mm_add_epi16(c16(128), u_term(_mm_add_epi16(s.dbg, t)));
        v = _mm_add_epi16(c16(128), v_term(_mm_add_epi16(s.drg, t)));
    } else {
        // -4816 R - 9469 G + 14286 B = -4816 dRG + 14286 dBG + G, and V alike.
        const V z = _mm_setzero_si128(), p0 = s.p0, p1 = s.p1;
        const V g0 = _mm_add_epi32(_mm_unpacklo_epi16(g, z), c32(16384));
        const V g1 = _mm_add_epi32(_mm_unpackhi_epi16(g, z), c32(16384));
        const V wu = pair(-4816, 14286), wv = pair(20152, -3276);
        u = _mm_add_epi16(c16(128), shift_pack(_mm_add_epi32(_mm_madd_epi16(p0, wu), g0),
                                               _mm_add_epi32(_mm_madd_epi16(p1, wu), g1), 0, 15));
        v = _mm_add_epi16(c16(128), shift_pack(_mm_add_epi32(_mm_madd_epi16(p0, wv), g0),
                                               _mm_add_epi32(_mm_madd_epi16(p1, wv), g1), 0, 15));
    }
}

template <Fwd F>
inline void fwd16(V r, V g, V b, V& y, V& u, V& v) {
    V y0, u0, v0, y1, u1, v1;
    fwd8<F>(lo16(r), lo16(g), lo16(b), y0, u0, v0);
    fwd8<F>(hi16(r), hi16(g), hi16(b), y1, u1, v1);
    y = _mm_packus_epi16(y0, y1), u = _mm_packus_epi16(u0, u1), v = _mm_packus_epi16(v0, v1);
}

// Sums of the pixel pairs (0,1), (2,3), ... of eight 32-bit lanes in two vectors.
inline V pair_sums32(V a, V b) {
    const __m128 fa = _mm_castsi128_ps(a), fb = _mm_castsi128_ps(b);
    return _mm_add_epi32(_mm_castps_si128(_mm_shuffle_ps(fa, fb, _MM_SHUFFLE(2, 0, 2, 0))),
                         _mm_castps_si128(_mm_shuffle_ps(fa, fb, _MM_SHUFFLE(3, 1, 3, 1))));
}

// Eight pixels of one row: truncated Y (16-bit) and, per pair, the sum of sy
// and of dRG and dBG (32-bit, four pairs).
struct PairPart {
    V y, sy, drg, dbg;
};
inline PairPart pair_part(V r, V g, V b) {
    const Sums s = sums(r, g, b);
    const V one = c16(1);
    return {_mm_add_epi16(g, shift_pack(s.sy0, s.sy1, 0, 16)), pair_sums32(s.sy0, s.sy1), _mm_madd_epi16(s.drg, one),
            _mm_madd_epi16(s.dbg, one)};
}

// Chroma of eight pairs (4:2:2, k = 65535, shift 1) or blocks (4:2:0, k =
// 131071, shift 2) from the halves a (pairs 0-3) and b (pairs 4-7).
inline void chroma8(const PairPart& a, const PairPart& b, int k, int sh, V& u, V& v) {
    const V ta = _mm_srai_epi32(_mm_sub_epi32(c32(k), a.sy), 16), tb = _mm_srai_epi32(_mm_sub_epi32(c32(k), b.sy), 16);
    const V db = _mm_packs_epi32(_mm_add_epi32(a.dbg, ta), _mm_add_epi32(b.dbg, tb));
    const V dr = _mm_packs_epi32(_mm_add_epi32(a.drg, ta), _mm_add_epi32(b.drg, tb));
    u = _mm_add_epi16(c16(128), _mm_srai_epi16(u_term(db), sh));
    v = _mm_add_epi16(c16(128), _mm_srai_epi16(v_term(dr), sh));
}

inline PairPart add(const PairPart& a, const PairPart& b) {
    return {a.y, _mm_add_epi32(a.sy, b.sy), _mm_add_epi32(a.drg, b.drg), _mm_add_epi32(a.dbg, b.dbg)};
}

// ---- YUV to RGB ---------------------------------------------------------------

// Chroma terms of eight samples (u, v = U - 128, V - 128 as 16-bit lanes):
// each is c u + d v + ((a u + b v + k) >> 16) with the weights split so that
// a and b fit 16 bits (74711 = 65536 + 9175, -38076 = -65536 + 27460,
// 133169 = 2 * 65536 + 2097).
struct Terms {
    V r, g, b;
};

inline V madd_term(V p0, V p1, int a, int b, int k) {
    const V w = pair(a, b);
    return shift_pack(_mm_madd_epi16(p0, w), _mm_madd_epi16(p1, w), k, 16);
}

template <Inv F>
inline Terms terms(V u, V v) {
    Terms t;
    if constexpr (F == Inv::Blocks) {
        const V u8 = _mm_slli_epi16(u, 3), v8 = _mm_slli_epi16(v, 3);
        t.r = _mm_mulhi_epi16(v8, c16(9339));
        t.g = _mm_add_epi16(_mm_mulhi_epi16(u8, c16(-3228)), _mm_mulhi_epi16(v8, c16(-4760)));
        t.b = _mm_mulhi_epi16(u8, c16(16646));
    } else {
        const V p0 = _mm_unpacklo_epi16(u, v), p1 = _mm_unpackhi_epi16(u, v);
        const bool planar = F == Inv::Planar;
        const int kr = planar ? 0 : 32768, kg = F == Inv::Round ? 32768 : 0;
        t.r = _mm_add_epi16(v, madd_term(p0, p1, 0, planar ? 9174 : 9175, kr));
        t.g = _mm_sub_epi16(madd_term(p0, p1, planar ? -25820 : -25821, planar ? 27461 : 27460, kg), v);
        t.b = _mm_add_epi16(_mm_add_epi16(u, u), madd_term(p0, p1, planar ? 2096 : 2097, 0, kr));
    }
    return t;
}

inline Terms terms422(V u, V v) {
    const V u8 = _mm_slli_epi16(u, 3), v8 = _mm_slli_epi16(v, 3);
    return {_mm_mulhi_epi16(v8, c16(9338)),
            _mm_add_epi16(_mm_mulhi_epi16(u8, c16(-3227)), _mm_mulhi_epi16(v8, c16(-4759))),
            _mm_mulhi_epi16(u8, c16(16645))};
}

// Y (16 bytes) plus the terms of pixels 0-7 (lo) and 8-15 (hi), saturated.
inline void apply(V y, const Terms& lo, const Terms& hi, V& r, V& g, V& b) {
    const V y0 = lo16(y), y1 = hi16(y);
    r = _mm_packus_epi16(_mm_adds_epi16(y0, lo.r), _mm_adds_epi16(y1, hi.r));
    g = _mm_packus_epi16(_mm_adds_epi16(y0, lo.g), _mm_adds_epi16(y1, hi.g));
    b = _mm_packus_epi16(_mm_adds_epi16(y0, lo.b), _mm_adds_epi16(y1, hi.b));
}

// Each of eight chroma terms for two neighbouring pixels.
inline Terms dup_lo(const Terms& t) {
    return {_mm_unpacklo_epi16(t.r, t.r), _mm_unpacklo_epi16(t.g, t.g), _mm_unpacklo_epi16(t.b, t.b)};
}
inline Terms dup_hi(const Terms& t) {
    return {_mm_unpackhi_epi16(t.r, t.r), _mm_unpackhi_epi16(t.g, t.g), _mm_unpackhi_epi16(t.b, t.b)};
}

inline V centred(V x8) { return _mm_sub_epi16(x8, c16(128)); }

}  // namespace

// ---- Row kernels --------------------------------------------------------------

template <class S, class D, Fwd F>
void rgb_to_yuv_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        V r, g, b, y, u, v;
        Io<S>::load(s, i, r, g, b);
        fwd16<F>(r, g, b, y, u, v);
        Io<D>::store(d, i, y, u, v);
    }
    rgb_to_yuv_row<S, D, F>(s, d, n, i);
}

template <class S, class D, Inv F>
void yuv_to_rgb_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        V y, u, v, r, g, b;
        Io<S>::load(s, i, y, u, v);
        const Terms lo = terms<F>(centred(lo16(u)), centred(lo16(v)));
        const Terms hi = terms<F>(centred(hi16(u)), centred(hi16(v)));
        apply(y, lo, hi, r, g, b);
        Io<D>::store(d, i, r, g, b);
    }
    yuv_to_rgb_row<S, D, F>(s, d, n, i);
}

template <class S, bool C2>
void rgb_to_yuv422_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        V r, g, b, u, v;
        Io<S>::load(s, i, r, g, b);
        const PairPart a = pair_part(lo16(r), lo16(g), lo16(b));
        const PairPart c = pair_part(hi16(r), hi16(g), hi16(b));
        chroma8(a, c, 65535, 1, u, v);
        const V y = _mm_packus_epi16(a.y, c.y);
        const V u8 = _mm_packus_epi16(u, u), v8 = _mm_packus_epi16(v, v);
        if constexpr (C2) {
            const V uv = _mm_unpacklo_epi8(u8, v8);
            st(d.p[0] + 2 * i, _mm_unpacklo_epi8(y, uv));
            st(d.p[0] + 2 * i + 16, _mm_unpackhi_epi8(y, uv));
        } else {
            st(d.p[0] + i, y), st8(d.p[1] + i / 2, u8), st8(d.p[2] + i / 2, v8);
        }
    }
    rgb_to_yuv422_row<S, C2>(s, d, n, i);
}

template <class S>
void rgb_to_yuv420_rows_sse2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        V r0, g0, b0, r1, g1, b1, u, v;
        Io<S>::load(s0, i, r0, g0, b0);
        Io<S>::load(s1, i, r1, g1, b1);
        const PairPart a0 = pair_part(lo16(r0), lo16(g0), lo16(b0)), c0 = pair_part(hi16(r0), hi16(g0), hi16(b0));
        const PairPart a1 = pair_part(lo16(r1), lo16(g1), lo16(b1)), c1 = pair_part(hi16(r1), hi16(g1), hi16(b1));
        chroma8(add(a0, a1), add(c0, c1), 131071, 2, u, v);
        st(d.p[0] + i, _mm_packus_epi16(a0.y, c0.y));
        st(d.p[3] + i, _mm_packus_epi16(a1.y, c1.y));
        st8(d.p[1] + i / 2, _mm_packus_epi16(u, u));
        st8(d.p[2] + i / 2, _mm_packus_epi16(v, v));
    }
    rgb_to_yuv420_rows<S>(s0, s1, d, n, i);
}

template <class D, int Rows>
void yuv42x_to_rgb_rows_sse2(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        const Terms t = terms<Inv::Round>(centred(lo16(ld8(s.p[1] + i / 2))), centred(lo16(ld8(s.p[2] + i / 2))));
        const Terms lo = dup_lo(t), hi = dup_hi(t);
        V r, g, b;
        apply(ld(s.p[0] + i), lo, hi, r, g, b);
        Io<D>::store(d0, i, r, g, b);
        if constexpr (Rows == 2) {
            apply(ld(s.p[3] + i), lo, hi, r, g, b);
            Io<D>::store(d1, i, r, g, b);
        }
    }
    yuv42x_to_rgb_rows<D, Rows>(s, d0, d1, n, i);
}

void myYUVToRGB_8u_P3R_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    yuv_to_rgb_row_sse2<Planar, Planar, Inv::Planar>(s, d, n, from);
}

void yuv422_to_rgb_planar_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        const Terms t = terms422(centred(lo16(ld8(s.p[1] + i / 2))), centred(lo16(ld8(s.p[2] + i / 2))));
        V r, g, b;
        apply(ld(s.p[0] + i), dup_lo(t), dup_hi(t), r, g, b);
        st(d.p[0] + i, r), st(d.p[1] + i, g), st(d.p[2] + i, b);
    }
    yuv422_to_rgb_planar_row(s, d, n, i);
}

template <class D>
void yuv422c2_to_rgb_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kBlock <= n; i += kBlock) {
        const uint8_t* q = s.p[0] + 2 * i;
        const V q0 = ld(q), q1 = ld(q + 16);
        const V y = _mm_packus_epi16(even8(q0), even8(q1));
        const V c = _mm_packus_epi16(odd8(q0), odd8(q1));  // U0 V0 U1 V1 ...
        const Terms t = terms<Inv::Round>(centred(even8(c)), centred(odd8(c)));
        V r, g, b;
        apply(y, dup_lo(t), dup_hi(t), r, g, b);
        Io<D>::store(d, i, r, g, b);
    }
    if (i < n) yuv422c2_to_rgb_row<D>(s, d, n, i);
}

// ---- Instances used by the drivers ---------------------------------------------

template void rgb_to_yuv_row_sse2<RGB3, RGB3, Fwd::Blocks>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv_row_sse2<RGBA, RGBA, Fwd::PerPixel>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv_row_sse2<Planar, Planar, Fwd::PerPixel>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv_row_sse2<RGB3, Planar, Fwd::Blocks>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv_row_sse2<RGBA, Planar, Fwd::PerPixel>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void yuv_to_rgb_row_sse2<RGB3, RGB3, Inv::Blocks>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv_to_rgb_row_sse2<RGBA, RGBA, Inv::TruncG>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv_to_rgb_row_sse2<RGB3, RGBX, Inv::Round>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv_to_rgb_row_sse2<Planar, RGB3, Inv::Blocks>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void rgb_to_yuv422_row_sse2<RGB3, true>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv422_row_sse2<RGB3, false>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv422_row_sse2<Planar, false>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv422_row_sse2<RGB565, false>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void rgb_to_yuv420_rows_sse2<Planar>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_sse2<RGB3>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_sse2<BGRA>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_sse2<RGB565>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_sse2<BGR565>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_sse2<BGR555>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void yuv42x_to_rgb_rows_sse2<RGB3, 1>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_sse2<RGBA, 1>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_sse2<Planar, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_sse2<RGB3, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_sse2<RGBA, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_sse2<BGR3, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void yuv422c2_to_rgb_row_sse2<RGB3>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

}  // namespace nmq::yuv
