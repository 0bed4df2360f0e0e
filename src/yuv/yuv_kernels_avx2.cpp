// YUV <-> RGB: AVX2 row kernels for the 4:2:0 and 4:2:2 paths. A 32-pixel
// block holds pixels 0-15 in the low 128-bit lane and 16-31 in the high one,
// so every lane runs exactly the arithmetic of a 16-pixel SSE2 block (and
// therefore gives the scalar bytes); only loads and stores cross lanes.
// Three-byte pixels are (de)interleaved with byte shuffles. Whatever is left
// after the last 32-pixel block goes to the SSE2 kernel, which ends with the
// scalar one.
#include <immintrin.h>

#include "yuv/yuv_kernels.h"

namespace nmq::yuv {
namespace {

using V = __m256i;
using H = __m128i;

inline H ld(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const H*>(p)); }
inline V ld32(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
// Sixteen bytes at a to the low lane, sixteen at b to the high one.
inline V ld2(const uint8_t* a, const uint8_t* b) { return _mm256_inserti128_si256(_mm256_castsi128_si256(ld(a)), ld(b), 1); }
inline void st32(uint8_t* p, V v) { _mm256_storeu_si256(reinterpret_cast<V*>(p), v); }
inline void st16(uint8_t* p, H v) { _mm_storeu_si128(reinterpret_cast<H*>(p), v); }
inline V c16(int v) { return _mm256_set1_epi16(int16_t(v)); }
inline V c32(int v) { return _mm256_set1_epi32(v); }
inline V pair(int a, int b) { return _mm256_set1_epi32(int32_t(uint32_t(uint16_t(a)) | uint32_t(uint16_t(b)) << 16)); }
inline V lo16(V x) { return _mm256_unpacklo_epi8(x, _mm256_setzero_si256()); }
inline V hi16(V x) { return _mm256_unpackhi_epi8(x, _mm256_setzero_si256()); }
inline V even8(V x) { return _mm256_and_si256(x, c16(255)); }
inline V odd8(V x) { return _mm256_srli_epi16(x, 8); }

// Byte-shuffle masks for 16 three-byte pixels in three registers. For
// deinterleaving, gather[r][ch] picks channel ch of the pixels held in input
// register r; for interleaving, scatter[r][ch] places channel ch into output
// register r. 0x80 clears a byte.
struct Masks3 {
    int8_t gather[3][3][16], scatter[3][3][16];
    constexpr Masks3() : gather(), scatter() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int j = 0; j < 16; ++j) {
                    const int g = 3 * j + ch;  // byte of pixel j, channel ch
                    gather[r][ch][j] = int8_t(g / 16 == r ? g % 16 : 0x80);
                    const int o = 16 * r + j;  // output byte
                    scatter[r][ch][j] = int8_t(o % 3 == ch ? o / 3 : 0x80);
                }
    }
};
constexpr Masks3 kM3{};

inline V mask(const int8_t* m) { return _mm256_broadcastsi128_si256(ld(reinterpret_cast<const uint8_t*>(m))); }

// 32 three-byte pixels (96 bytes) to the bytes at positions 0, 1, 2.
inline void load3(const uint8_t* q, V m[3]) {
    const V in[3] = {ld2(q, q + 48), ld2(q + 16, q + 64), ld2(q + 32, q + 80)};
    for (int ch = 0; ch < 3; ++ch) {
        V x = _mm256_shuffle_epi8(in[0], mask(kM3.gather[0][ch]));
        x = _mm256_or_si256(x, _mm256_shuffle_epi8(in[1], mask(kM3.gather[1][ch])));
        m[ch] = _mm256_or_si256(x, _mm256_shuffle_epi8(in[2], mask(kM3.gather[2][ch])));
    }
}

inline void store3(uint8_t* q, const V m[3]) {
    V out[3];
    for (int r = 0; r < 3; ++r) {
        V x = _mm256_shuffle_epi8(m[0], mask(kM3.scatter[r][0]));
        x = _mm256_or_si256(x, _mm256_shuffle_epi8(m[1], mask(kM3.scatter[r][1])));
        out[r] = _mm256_or_si256(x, _mm256_shuffle_epi8(m[2], mask(kM3.scatter[r][2])));
    }
    st32(q, _mm256_permute2x128_si256(out[0], out[1], 0x20));
    st32(q + 32, _mm256_permute2x128_si256(out[2], out[0], 0x30));
    st32(q + 64, _mm256_permute2x128_si256(out[1], out[2], 0x31));
}

// ---- Layout access, 32 pixels as three vectors of bytes ------------------------

template <class L>
struct Io;

template <int A, int B, int C>
struct Io<Packed<3, A, B, C>> {
    static constexpr bool kHas = true;
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        V m[3];
        load3(s.p[0] + 3 * i, m);
        a = m[A], b = m[B], c = m[C];
    }
    static void store(const RowOut& d, ptrdiff_t i, V a, V b, V c) {
        V m[3];
        m[A] = a, m[B] = b, m[C] = c;
        store3(d.p[0] + 3 * i, m);
    }
};

template <int A, int B, int C>
struct Io<Packed<4, A, B, C>> {
    static void load(const RowIn& s, ptrdiff_t i, V& a, V& b, V& c) {
        const uint8_t* q = s.p[0] + 4 * i;
        // Each register: bytes of channel 0 of its four pixels, then 1, 2, 3.
        const V by_ch = _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
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

}  // namespace

// ---- Row kernels --------------------------------------------------------------

template <class S>
void rgb_to_yuv420_rows_avx2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
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
