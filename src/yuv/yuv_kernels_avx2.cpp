// YUV <-> RGB: AVX2 row kernels for the 4:2:0 and 4:2:2 paths. A 32-pixel
// block holds pixels 0-15 in the low 128-bit lane and 16-31 in the high one,
// so every lane runs exactly the arithmetic of a 16-pixel SSE2 block (and
// therefore gives the scalar bytes); only loads and stores cross lanes.
// Three-byte pixels are (de)interleaved with byte shuffles; RGB24 to 4:2:0
// has a kernel of its own that reads four pixels per lane (see below).
// Whatever is left after the last 32-pixel block goes to the SSE2 kernel,
// which ends with the scalar one.
#include <immintrin.h>

#include <type_traits>

#include "models/gray_pixels_avx2.h"
#include "yuv/yuv_kernels.h"

namespace nmq::yuv {
namespace {

using V = __m256i;
using H = __m128i;

inline H ld(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const H*>(p)); }
inline V ld32(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
// Sixteen bytes at a to the low lane, sixteen at b to the high one.
inline V ld2(const uint8_t* a, const uint8_t* b) { return px256::ld2(a, b); }
inline void st32(uint8_t* p, V v) { _mm256_storeu_si256(reinterpret_cast<V*>(p), v); }
inline void st16(uint8_t* p, H v) { _mm_storeu_si128(reinterpret_cast<H*>(p), v); }
inline V c16(int v) { return _mm256_set1_epi16(int16_t(v)); }
inline V c32(int v) { return _mm256_set1_epi32(v); }
inline V pair(int a, int b) { return _mm256_set1_epi32(int32_t(uint32_t(uint16_t(a)) | uint32_t(uint16_t(b)) << 16)); }
inline V lo16(V x) { return _mm256_unpacklo_epi8(x, _mm256_setzero_si256()); }
inline V hi16(V x) { return _mm256_unpackhi_epi8(x, _mm256_setzero_si256()); }
inline V even8(V x) { return _mm256_and_si256(x, c16(255)); }
inline V odd8(V x) { return _mm256_srli_epi16(x, 8); }

// ---- Layout access, 32 pixels as three vectors of bytes ------------------------

template <class L>
struct Io;

template <int A, int B, int C>
struct Io<Packed<3, A, B, C>> {
    static constexpr bool kHas = true;
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        V m[3];
        px256::load3x32(s.p[0] + 3 * i, m);
        a = m[A], b = m[B], c = m[C];
    }
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        V m[3];
        m[A] = a, m[B] = b, m[C] = c;
        px256::store3x32(d.p[0] + 3 * i, m);
    }
};

template <int A, int B, int C>
struct Io<Packed<4, A, B, C>> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        const uint8_t* q = s.p[0] + 4 * i;
        // Each register: bytes of channel 0 of its four pixels, then 1, 2, 3.
        const V by_ch =
            _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
        V t[4];
        for (int k = 0; k < 4; ++k) t[k] = _mm256_shuffle_epi8(ld2(q + 16 * k, q + 64 + 16 * k), by_ch);
        const V l01 = _mm256_unpacklo_epi32(t[0], t[1]), l23 = _mm256_unpacklo_epi32(t[2], t[3]);
        const V h01 = _mm256_unpackhi_epi32(t[0], t[1]), h23 = _mm256_unpackhi_epi32(t[2], t[3]);
        V m[3];
        m[0] = _mm256_unpacklo_epi64(l01, l23);
        m[1] = _mm256_unpackhi_epi64(l01, l23);
        m[2] = _mm256_unpacklo_epi64(h01, h23);
        a = m[A], b = m[B], c = m[C];
    }
};

template <>
struct Io<Planar> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        a = ld32(s.p[0] + i), b = ld32(s.p[1] + i), c = ld32(s.p[2] + i);
    }
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        st32(d.p[0] + i, a), st32(d.p[1] + i, b), st32(d.p[2] + i, c);
    }
};

// ---- RGB to YUV (the SSE2 arithmetic, lane by lane) -----------------------------

struct Sums {
    V drg, dbg, sy0, sy1;
};

inline Sums sums(V r, V g, V b) {
    Sums s;
    s.drg = _mm256_sub_epi16(r, g), s.dbg = _mm256_sub_epi16(b, g);
    const V w = pair(19595, 7471);
    s.sy0 = _mm256_madd_epi16(_mm256_unpacklo_epi16(s.drg, s.dbg), w);
    s.sy1 = _mm256_madd_epi16(_mm256_unpackhi_epi16(s.drg, s.dbg), w);
    return s;
}

inline V shift_pack(V x0, V x1, int k, int sh) {
    const V kk = c32(k);
    return _mm256_packs_epi32(_mm256_srai_epi32(_mm256_add_epi32(x0, kk), sh),
                              _mm256_srai_epi32(_mm256_add_epi32(x1, kk), sh));
}

inline V u_term(V db) { return _mm256_mulhi_epi16(db, c16(32244)); }
inline V v_term(V dr) { return _mm256_add_epi16(_mm256_mulhi_epi16(dr, c16(57475 - 65536)), dr); }

inline V pair_sums32(V a, V b) {
    const __m256 fa = _mm256_castsi256_ps(a), fb = _mm256_castsi256_ps(b);
    return _mm256_add_epi32(_mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(2, 0, 2, 0))),
                            _mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(3, 1, 3, 1))));
}

struct PairPart {
    V y, sy, drg, dbg;
};
inline PairPart pair_part(V r, V g, V b) {
    const Sums s = sums(r, g, b);
    const V one = c16(1);
    return {_mm256_add_epi16(g, shift_pack(s.sy0, s.sy1, 0, 16)), pair_sums32(s.sy0, s.sy1),
            _mm256_madd_epi16(s.drg, one), _mm256_madd_epi16(s.dbg, one)};
}
inline PairPart add(const PairPart& a, const PairPart& b) {
    return {a.y, _mm256_add_epi32(a.sy, b.sy), _mm256_add_epi32(a.drg, b.drg), _mm256_add_epi32(a.dbg, b.dbg)};
}

inline void chroma8(const PairPart& a, const PairPart& b, int k, int sh, V& u, V& v) {
    const V ta = _mm256_srai_epi32(_mm256_sub_epi32(c32(k), a.sy), 16);
    const V tb = _mm256_srai_epi32(_mm256_sub_epi32(c32(k), b.sy), 16);
    const V db = _mm256_packs_epi32(_mm256_add_epi32(a.dbg, ta), _mm256_add_epi32(b.dbg, tb));
    const V dr = _mm256_packs_epi32(_mm256_add_epi32(a.drg, ta), _mm256_add_epi32(b.drg, tb));
    u = _mm256_add_epi16(c16(128), _mm256_srai_epi16(u_term(db), sh));
    v = _mm256_add_epi16(c16(128), _mm256_srai_epi16(v_term(dr), sh));
}

// The low eight bytes of each lane, side by side.
inline H low_halves(V x) { return _mm256_castsi256_si128(_mm256_permute4x64_epi64(x, _MM_SHUFFLE(3, 1, 2, 0))); }

// ---- YUV to RGB ---------------------------------------------------------------

struct Terms {
    V r, g, b;
};

inline V madd_term(V p0, V p1, int a, int b, int k) {
    const V w = pair(a, b);
    return shift_pack(_mm256_madd_epi16(p0, w), _mm256_madd_epi16(p1, w), k, 16);
}

// The rounded inverse (yuv_to_rgb) on centred 16-bit u and v.
inline Terms terms_round(V u, V v) {
    const V p0 = _mm256_unpacklo_epi16(u, v), p1 = _mm256_unpackhi_epi16(u, v);
    return {_mm256_add_epi16(v, madd_term(p0, p1, 0, 9175, 32768)),
            _mm256_sub_epi16(madd_term(p0, p1, -25821, 27460, 32768), v),
            _mm256_add_epi16(_mm256_add_epi16(u, u), madd_term(p0, p1, 2097, 0, 32768))};
}

inline void apply(V y, const Terms& lo, const Terms& hi, V& r, V& g, V& b) {
    const V y0 = lo16(y), y1 = hi16(y);
    r = _mm256_packus_epi16(_mm256_adds_epi16(y0, lo.r), _mm256_adds_epi16(y1, hi.r));
    g = _mm256_packus_epi16(_mm256_adds_epi16(y0, lo.g), _mm256_adds_epi16(y1, hi.g));
    b = _mm256_packus_epi16(_mm256_adds_epi16(y0, lo.b), _mm256_adds_epi16(y1, hi.b));
}

inline Terms dup_lo(const Terms& t) {
    return {_mm256_unpacklo_epi16(t.r, t.r), _mm256_unpacklo_epi16(t.g, t.g), _mm256_unpacklo_epi16(t.b, t.b)};
}
inline Terms dup_hi(const Terms& t) {
    return {_mm256_unpackhi_epi16(t.r, t.r), _mm256_unpackhi_epi16(t.g, t.g), _mm256_unpackhi_epi16(t.b, t.b)};
}

inline V centred(V x16) { return _mm256_sub_epi16(x16, c16(128)); }

constexpr ptrdiff_t kWide = 32;

// ---- Three-byte pixels to 4:2:0 straight from memory -------------------------------
//
// Four pixels per lane: a byte shuffle turns the 12 bytes of four pixels into
// the 16-bit pairs (R, B) and (G, G), whose difference is the (dRG, dBG) pair
// of each pixel in one 32-bit lane, ready for pmaddwd: sy = 19595 dRG + 7471
// dBG, and the luma sum is S = 65536 G + sy. So Y = S >> 16 = G + (the high
// half of sy): a 16-bit add of (G, G) to sy leaves Y in the high half.
// The chroma sums of a 2x2 block are sums of those pairs over neighbouring
// lanes of two rows: the block's sum of sy is the pmaddwd of its summed pair,
// and dB = sum(dBG) + t, dR = sum(dRG) + t with t = (131071 - sum(sy)) >> 16,
// the high half of 131071 - sum(sy), added to both halves of the pair. U and V
// are then worked out side by side in the halves of each block's lane and
// saturated to signed bytes before 128 is added (an exclusive or of 0x80):
// that is the clamp of V, and U never reaches it. The integers are those of
// the scalar formulas, so are the bytes.

// Shuffle masks for the four pixels at bytes k..k+11 of a lane, where the
// channels sit at byte offsets A (R), B (G), C (B) inside a pixel.
template <int A, int B, int C>
struct Masks420 {
    int8_t rb[2][16], gg[2][16];  // [0]: pixels at byte 0 of the load, [1]: at byte 4
    constexpr Masks420() : rb(), gg() {
        for (int k = 0; k < 2; ++k)
            for (int j = 0; j < 4; ++j) {
                const int base = 3 * j + 4 * k;
                rb[k][4 * j] = int8_t(base + A), rb[k][4 * j + 2] = int8_t(base + C);
                gg[k][4 * j] = gg[k][4 * j + 2] = int8_t(base + B);
                rb[k][4 * j + 1] = rb[k][4 * j + 3] = gg[k][4 * j + 1] = gg[k][4 * j + 3] = int8_t(0x80);
            }
    }
};
template <int A, int B, int C>
inline constexpr Masks420<A, B, C> kMasks420{};

inline V bmask(const int8_t* m) { return _mm256_broadcastsi128_si256(ld(reinterpret_cast<const uint8_t*>(m))); }

// Eight pixels of one row: per pixel the (dRG, dBG) pair and sy + (G, G),
// whose high half is Y.
struct Px8 {
    V d, y;
};

template <int A, int B, int C>
inline Px8 px8(V q, int shifted) {
    const Masks420<A, B, C>& m = kMasks420<A, B, C>;
    const V rb = _mm256_shuffle_epi8(q, bmask(m.rb[shifted])), gg = _mm256_shuffle_epi8(q, bmask(m.gg[shifted]));
    Px8 p;
    p.d = _mm256_sub_epi16(rb, gg);
    p.y = _mm256_add_epi16(_mm256_madd_epi16(p.d, pair(19595, 7471)), gg);
    return p;
}

// The Y bytes of four groups of four pixels (y[k]: group k of each lane) in
// order: the high halves of two vectors interleaved as words (a0 b0 a1 b1 ...),
// packed, and sorted back by group.
inline V luma32(const V y[4]) {
    const V y01 = _mm256_blend_epi16(_mm256_srli_epi32(y[0], 16), y[1], 0xAA);
    const V y23 = _mm256_blend_epi16(_mm256_srli_epi32(y[2], 16), y[3], 0xAA);
    const V groups = _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 2, 4, 6, 1, 3, 5, 7, 8, 10, 12, 14, 9, 11, 13, 15));
    return _mm256_shuffle_epi8(_mm256_packus_epi16(y01, y23), groups);
}

// Sums of neighbouring lanes of a and b as 16-bit pairs: per 128-bit lane
// a0+a1, a2+a3, b0+b1, b2+b3.
inline V pair_sums16(V a, V b) {
    const __m256 fa = _mm256_castsi256_ps(a), fb = _mm256_castsi256_ps(b);
    return _mm256_add_epi16(_mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(2, 0, 2, 0))),
                            _mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(3, 1, 3, 1))));
}

// Per block lane (summed dRG, summed dBG): (V, U) as signed 16-bit values
// before the 128 is added.
inline V block_vu(V p) {
    const V ps = _mm256_sub_epi32(c32(131071), _mm256_madd_epi16(p, pair(19595, 7471)));
    const V high = _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15));
    const V x = _mm256_add_epi16(p, _mm256_shuffle_epi8(ps, high));  // (dR, dB)
    // dR 57475 / 2^16 = dR + dR (57475 - 65536) / 2^16; dB 32244 / 2^16.
    const V h = _mm256_mulhi_epi16(x, pair(57475 - 65536, 32244));
    return _mm256_srai_epi16(_mm256_blend_epi16(h, _mm256_add_epi16(h, x), 0x55), 2);
}

template <int A, int B, int C>
void rgb3_to_yuv420_rows_avx2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kWide <= n; i += kWide) {
        // Group k: pixels 4k..4k+3 in the low lane, 16+4k.. in the high one;
        // the last group is loaded four bytes early so no load passes pixel 31.
        const uint8_t* q0 = s0.p[0] + 3 * i;
        const uint8_t* q1 = s1.p[0] + 3 * i;
        V sum[4], y0[4], y1[4];
        for (int k = 0; k < 4; ++k) {
            const int off = k == 3 ? 32 : 12 * k, sh = k == 3;
            const Px8 a = px8<A, B, C>(ld2(q0 + off, q0 + off + 48), sh);
            const Px8 b = px8<A, B, C>(ld2(q1 + off, q1 + off + 48), sh);
            sum[k] = _mm256_add_epi16(a.d, b.d);
            y0[k] = a.y, y1[k] = b.y;
        }
        st32(d.p[0] + i, luma32(y0));
        st32(d.p[3] + i, luma32(y1));
        // Blocks 0-3 and 4-7 in the low lanes, 8-11 and 12-15 in the high ones.
        const V vu = _mm256_xor_si256(
            _mm256_packs_epi16(block_vu(pair_sums16(sum[0], sum[1])), block_vu(pair_sums16(sum[2], sum[3]))),
            _mm256_set1_epi8(int8_t(0x80)));
        const V split =
            _mm256_shuffle_epi8(vu, _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7,
                                                                               9, 11, 13, 15)));
        const V uv = _mm256_permute4x64_epi64(split, _MM_SHUFFLE(3, 1, 2, 0));  // V, then U
        st16(d.p[1] + i / 2, _mm256_extracti128_si256(uv, 1));
        st16(d.p[2] + i / 2, _mm256_castsi256_si128(uv));
    }
    rgb_to_yuv420_rows_sse2<Packed<3, A, B, C>>(s0, s1, d, n, i);
}

}  // namespace

// ---- Row kernels --------------------------------------------------------------

template <class S>
void rgb_to_yuv420_rows_avx2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    if constexpr (std::is_same_v<S, RGB3>) {
        rgb3_to_yuv420_rows_avx2<0, 1, 2>(s0, s1, d, n, from);
    } else {
        ptrdiff_t i = from;
        for (; i + kWide <= n; i += kWide) {
            V r0, g0, b0, r1, g1, b1, u, v;
            Io<S>::load(s0, i, r0, g0, b0);
            Io<S>::load(s1, i, r1, g1, b1);
            const PairPart a0 = pair_part(lo16(r0), lo16(g0), lo16(b0)), c0 = pair_part(hi16(r0), hi16(g0), hi16(b0));
            const PairPart a1 = pair_part(lo16(r1), lo16(g1), lo16(b1)), c1 = pair_part(hi16(r1), hi16(g1), hi16(b1));
            chroma8(add(a0, a1), add(c0, c1), 131071, 2, u, v);
            st32(d.p[0] + i, _mm256_packus_epi16(a0.y, c0.y));
            st32(d.p[3] + i, _mm256_packus_epi16(a1.y, c1.y));
            st16(d.p[1] + i / 2, low_halves(_mm256_packus_epi16(u, u)));
            st16(d.p[2] + i / 2, low_halves(_mm256_packus_epi16(v, v)));
        }
        rgb_to_yuv420_rows_sse2<S>(s0, s1, d, n, i);
    }
}

template <class D, int Rows>
void yuv42x_to_rgb_rows_avx2(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kWide <= n; i += kWide) {
        const V u = centred(_mm256_cvtepu8_epi16(ld(s.p[1] + i / 2)));
        const V v = centred(_mm256_cvtepu8_epi16(ld(s.p[2] + i / 2)));
        const Terms t = terms_round(u, v);
        const Terms lo = dup_lo(t), hi = dup_hi(t);
        V r, g, b;
        apply(ld32(s.p[0] + i), lo, hi, r, g, b);
        Io<D>::store(d0, i, r, g, b);
        if constexpr (Rows == 2) {
            apply(ld32(s.p[3] + i), lo, hi, r, g, b);
            Io<D>::store(d1, i, r, g, b);
        }
    }
    yuv42x_to_rgb_rows_sse2<D, Rows>(s, d0, d1, n, i);
}

template <class D>
void yuv422c2_to_rgb_row_avx2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    ptrdiff_t i = from;
    for (; i + kWide <= n; i += kWide) {
        const uint8_t* q = s.p[0] + 2 * i;
        const V q0 = ld2(q, q + 32), q1 = ld2(q + 16, q + 48);
        const V y = _mm256_packus_epi16(even8(q0), even8(q1));
        const V c = _mm256_packus_epi16(odd8(q0), odd8(q1));  // U0 V0 U1 V1 ... per lane
        const Terms t = terms_round(centred(even8(c)), centred(odd8(c)));
        V r, g, b;
        apply(y, dup_lo(t), dup_hi(t), r, g, b);
        Io<D>::store(d, i, r, g, b);
    }
    yuv422c2_to_rgb_row_sse2<D>(s, d, n, i);
}

// ---- Instances used by the drivers ---------------------------------------------

template void rgb_to_yuv420_rows_avx2<Planar>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_avx2<RGB3>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void rgb_to_yuv420_rows_avx2<BGRA>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void yuv42x_to_rgb_rows_avx2<RGB3, 1>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_avx2<Planar, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_avx2<RGB3, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);
template void yuv42x_to_rgb_rows_avx2<BGR3, 2>(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);

template void yuv422c2_to_rgb_row_avx2<RGB3>(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

}  // namespace nmq::yuv
