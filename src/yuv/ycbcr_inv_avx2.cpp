// AVX2 blocks of the BT.601 inverse on the hot paths: 4:2:0 (three planes or
// an interleaved chroma plane) and packed 4:2:2 to three- and four-byte
// pixels, 32 pixels of a row per step.
//
// A 16-bit lane holds a pair of pixels: Y & 0xFF and Y >> 8 of the luma words
// are the even and the odd pixel, and both share the chroma sample of that
// lane, so the chroma terms are never spread over their pixels (the older
// kernels in ycbcr_kernels_avx2.cpp spend most of their time doing that on the
// shuffle unit). The byte packs clamp and join the even and odd halves.
//
// Four-byte pixels: the lanes hold the pairs "transposed" (128-bit lane k,
// dword j: pixels 8j+4k..8j+4k+3), the order in which the in-lane interleave
// of even and odd pixels gives contiguous pixels; luma and chroma take one
// dword (or qword) permute each on the way in and the stores need none.
// Three-byte pixels: lane k holds pixels 16k..16k+15 in order, each lane's
// bytes are placed by byte shuffles and the lanes joined by 128-bit moves.
//
// The arithmetic is that of InvSplit601x (ycbcr_avx2_split.h), written out
// here with its constants in memory. Blocks stop at the last whole one inside
// the row (the SSE2 kernel finishes it); nothing here calls the inline kernels
// of the headers (see ycbcr_avx2.h).
#include <immintrin.h>

#include <utility>

#include "yuv/ycbcr_inv_avx2.h"

namespace nmq::ycc::avx2pairs {
namespace {

using V = __m256i;

#define NMQ_INLINE inline __attribute__((always_inline))

constexpr ptrdiff_t kB = 32;  // pixels of a row per block

inline V ld32(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
inline __m128i ld16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
// Sixteen bytes at a to the low lane, sixteen at b to the high one.
inline V ld2(const uint8_t* a, const uint8_t* b) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(ld16(a)), ld16(b), 1);
}
inline void st32(uint8_t* p, V v) { _mm256_storeu_si256(reinterpret_cast<V*>(p), v); }

// A byte-shuffle pattern for both lanes, as a constant in memory.
struct alignas(32) Lanes {
    int8_t b[32];
};
inline V ld(const Lanes& l) { return _mm256_load_si256(reinterpret_cast<const V*>(l.b)); }

// Contiguous dwords to the transposed order: lane k, dword j <- dword 2j + k.
inline V transpose_dwords(V x) { return _mm256_permutevar8x32_epi32(x, _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7)); }

// Placing 16 three-byte pixels per lane: shuffle r of channel ch picks the
// bytes of output bytes 16r..16r+15 from the packed channel, whose byte
// 8 * (n % 2) + n / 2 is pixel n (even pixels, then odd ones).
struct Place3 {
    Lanes m[3][3];
    constexpr Place3() : m() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int i = 0; i < 32; ++i) {
                    const int o = 16 * r + i % 16, n = o / 3;
                    m[r][ch].b[i] = int8_t(o % 3 == ch ? 8 * (n % 2) + n / 2 : 0x80);
                }
    }
};
constexpr Place3 kPlace3{};

// Per lane of four packed 4:2:2 pairs: the luma bytes of the pairs as words,
// then their (Cb, Cr) as words.
struct Split422 {
    Lanes m;
    constexpr Split422(int y0, int y1, int cb, int cr) : m() {
        for (int i = 0; i < 32; ++i) {
            const int j = i % 16, pair = (j % 8) / 2, second = j % 2;
            m.b[i] = int8_t(4 * pair + (j < 8 ? (second ? y1 : y0) : (second ? cr : cb)));
        }
    }
};
// Byte positions of Y0, Y1, Cb, Cr inside a packed 4:2:2 pair.
template <Order O>
constexpr Split422 kSplit422 = O == Order::YCbCr   ? Split422(0, 2, 1, 3)
                               : O == Order::YCrCb ? Split422(0, 2, 3, 1)
                                                   : Split422(1, 3, 0, 2);
template <Order O>
constexpr int kY0 = O == Order::CbYCr ? 1 : 0;

// Constants in memory, read through a pointer the compiler cannot see
// through: otherwise it rebuilds them inside the loops from general registers
// on the shuffle unit once the vector registers run out.
struct alignas(32) C16 {
    int16_t e[16];
};
constexpr C16 rep16(int v) {
    C16 c{};
    for (int i = 0; i < 16; ++i) c.e[i] = int16_t(v);
    return c;
}
constexpr C16 rep32(int v) {  // a 32-bit value in each dword
    C16 c{};
    for (int i = 0; i < 16; ++i) c.e[i] = int16_t(uint16_t(uint32_t(v) >> (16 * (i % 2))));
    return c;
}
inline V ld(const C16& c) { return _mm256_load_si256(reinterpret_cast<const V*>(c.e)); }

// The split of InvSplit601x (ycbcr_avx2_split.h): a chroma term is h * 65536
// plus a low half l; t = 65535 - l, biased by 0x8000 for a signed comparison
// with the low half of the luma part (biased the same way), tells where the
// low halves carry.
template <class I>
struct Tab;
template <int KR, int KG, int KB>
struct Tab<Inv601<KR, KG, KB>> {
    static constexpr int lo(int k) { return k & 0xFFFF; }
    static constexpr int hi(int k) { return (k - lo(k)) / 65536; }
    static constexpr int WR = 104595 - 65536, WB = 132186 - 131072;
    C16 low = rep16(0xFF), wy = rep16(10748), sign = rep16(-32768);
    C16 r_neg = rep16(-WR), r_k = rep16(32767 - lo(KR)), r_w = rep16(WR), r_hi = rep16(hi(KR));
    C16 b_neg = rep16(-WB), b_k = rep16(32767 - lo(KB)), b_w = rep16(WB), b_hi = rep16(hi(KB));
    C16 g_w = rep32(int32_t(uint32_t(uint16_t(-25690)) | uint32_t(12255) << 16)), g_k = rep32(KG);
    C16 g_cb = rep16(25690), g_cr = rep16(-12255), g_t = rep16(32767 - lo(KG));
};
template <class I>
constexpr Tab<I> kTab{};

template <class I>
inline const Tab<I>* tab() {
    const Tab<I>* t = &kTab<I>;
    asm("" : "+r"(t));
    return t;
}

struct Terms {
    V h[3], t[3];
};

template <class I>
NMQ_INLINE Terms terms(const Tab<I>& k, V cb, V cr) {
    Terms o;
    const auto one = [&](V c, V& h, V& t, const C16& neg, const C16& kk, const C16& w, const C16& hk, bool twice) {
        const V kv = ld(kk);
        t = _mm256_add_epi16(_mm256_mullo_epi16(c, ld(neg)), kv);
        const V mc = twice ? _mm256_add_epi16(c, c) : c;
        const V s = _mm256_add_epi16(_mm256_add_epi16(_mm256_mulhi_epu16(c, ld(w)), mc), ld(hk));
        h = _mm256_sub_epi16(s, _mm256_cmpgt_epi16(t, kv));
    };
    one(cr, o.h[0], o.t[0], k.r_neg, k.r_k, k.r_w, k.r_hi, false);
    one(cb, o.h[2], o.t[2], k.b_neg, k.b_k, k.b_w, k.b_hi, true);
    const V w = ld(k.g_w), kg = ld(k.g_k);
    const V l = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(cb, cr), w), kg);
    const V u = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(cb, cr), w), kg);
    o.h[1] = _mm256_sub_epi16(_mm256_packs_epi32(_mm256_srai_epi32(l, 16), _mm256_srai_epi32(u, 16)), cr);
    o.t[1] = _mm256_add_epi16(_mm256_add_epi16(_mm256_mullo_epi16(cb, ld(k.g_cb)), _mm256_mullo_epi16(cr, ld(k.g_cr))),
                              ld(k.g_t));
    return o;
}

// R, G, B before the clamp (16-bit lanes) of the luma words y (0..255).
template <class I>
NMQ_INLINE void apply(const Tab<I>& k, V y, const Terms& c, V& R, V& G, V& B) {
    const V w = ld(k.wy);
    const V yy = _mm256_add_epi16(y, _mm256_mulhi_epu16(y, w));
    const V yl = _mm256_xor_si256(_mm256_mullo_epi16(y, w), ld(k.sign));
    V o[3];
    for (int i = 0; i < 3; ++i) o[i] = _mm256_sub_epi16(_mm256_add_epi16(yy, c.h[i]), _mm256_cmpgt_epi16(yl, c.t[i]));
    R = o[0], G = o[1], B = o[2];
}

// Even and odd pixels of 16 pairs (luma in 16-bit lanes) with the terms of
// their samples to the row at p: pairs 8j+4k.. in transposed order for
// DS = 4, pairs 8k..8k+7 of lane k for DS = 3.
template <class I, bool Bgr, int DS>
NMQ_INLINE void pixels(const Tab<I>& k, V ye, V yo, const Terms& c, uint8_t* p) {
    V R0, G0, B0, R1, G1, B1;
    apply(k, ye, c, R0, G0, B0);
    apply(k, yo, c, R1, G1, B1);
    if constexpr (Bgr) {
        std::swap(R0, B0);
        std::swap(R1, B1);
    }
    const V a = _mm256_packus_epi16(R0, R1), g = _mm256_packus_epi16(G0, G1), b = _mm256_packus_epi16(B0, B1);
    if constexpr (DS == 4) {
        const V ff = _mm256_set1_epi8(-1);
        const V le = _mm256_unpacklo_epi8(a, g), lo = _mm256_unpackhi_epi8(a, g);
        const V he = _mm256_unpacklo_epi8(b, ff), ho = _mm256_unpackhi_epi8(b, ff);
        const V el = _mm256_unpacklo_epi16(le, he), eh = _mm256_unpackhi_epi16(le, he);
        const V ol = _mm256_unpacklo_epi16(lo, ho), oh = _mm256_unpackhi_epi16(lo, ho);
        st32(p, _mm256_unpacklo_epi32(el, ol));
        st32(p + 32, _mm256_unpackhi_epi32(el, ol));
        st32(p + 64, _mm256_unpacklo_epi32(eh, oh));
        st32(p + 96, _mm256_unpackhi_epi32(eh, oh));
    } else {
        const V src[3] = {a, g, b};
        V out[3];
        for (int r = 0; r < 3; ++r) {
            V v = _mm256_shuffle_epi8(src[0], ld(kPlace3.m[r][0]));
            v = _mm256_or_si256(v, _mm256_shuffle_epi8(src[1], ld(kPlace3.m[r][1])));
            out[r] = _mm256_or_si256(v, _mm256_shuffle_epi8(src[2], ld(kPlace3.m[r][2])));
        }
        st32(p, _mm256_permute2x128_si256(out[0], out[1], 0x20));
        st32(p + 32, _mm256_permute2x128_si256(out[2], out[0], 0x30));
        st32(p + 64, _mm256_permute2x128_si256(out[1], out[2], 0x31));
    }
}

// 32 pixels of both rows from x; CS: the chroma step of the source (c: the
// first chroma plane in memory for CS = 2).
template <class I, bool Bgr, int DS, int CS>
NMQ_INLINE void block420(const Tab<I>& k, const uint8_t* y0, const uint8_t* y1, const uint8_t* cb_, const uint8_t* cr_,
                         bool cr_first, uint8_t* p0, uint8_t* p1) {
    constexpr bool T = DS == 4;
    V cb, cr;
    if constexpr (CS == 2) {  // (Cb, Cr) words, in the order of the luma words
        const V v0 = ld32(cb_), v = T ? transpose_dwords(v0) : v0;
        const V a = _mm256_and_si256(v, ld(k.low)), b = _mm256_srli_epi16(v, 8);
        cb = cr_first ? b : a;
        cr = cr_first ? a : b;
    } else {
        cb = _mm256_cvtepu8_epi16(ld16(cb_));
        cr = _mm256_cvtepu8_epi16(ld16(cr_));
        if constexpr (T) {
            cb = transpose_dwords(cb);
            cr = transpose_dwords(cr);
        }
    }
    const Terms c = terms(k, cb, cr);
    for (int r = 0; r < 2; ++r) {
        const V v = ld32(r ? y1 : y0), y = T ? transpose_dwords(v) : v;
        pixels<I, Bgr, DS>(k, _mm256_and_si256(y, ld(k.low)), _mm256_srli_epi16(y, 8), c, r ? p1 : p0);
    }
}

template <class I, bool Bgr, int DS, int CS>
ptrdiff_t rows420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, ptrdiff_t x, ptrdiff_t w) {
    const Tab<I>& k = *tab<I>();
    const uint8_t *y0 = in.y0 + x, *y1 = in.y1 + x;
    const bool cr_first = in.cr < in.cb;
    const uint8_t *cb = (CS == 2 ? (cr_first ? in.cr : in.cb) + x : in.cb + x / 2), *cr = in.cr + x / 2;
    uint8_t *p0 = (Bgr ? o0.b : o0.r) + x * DS, *p1 = (Bgr ? o1.b : o1.r) + x * DS;
    for (; x + kB <= w; x += kB) {
        block420<I, Bgr, DS, CS>(k, y0, y1, cb, cr, cr_first, p0, p1);
        y0 += kB, y1 += kB, cb += kB / 2 * CS, cr += kB / 2, p0 += kB * DS, p1 += kB * DS;
    }
    return x;
}

// 32 pixels of a packed 4:2:2 row from p. Each pair is a dword; one byte
// shuffle per vector of 8 pairs gathers the luma words and the chroma words of
// a lane's four pairs into its two halves, and the halves of the two vectors
// are joined. For the transposed order the qwords (pairs 2i, 2i+1) of each
// vector are first put in the order 0, 2, 1, 3; for three-byte pixels the
// loads pick the lanes' pairs instead.
template <class I, Order O, bool Bgr, int DS>
NMQ_INLINE void block422(const Tab<I>& k, const uint8_t* p, uint8_t* out) {
    const V split = ld(kSplit422<O>.m);
    V v0, v1;
    if constexpr (DS == 4) {
        v0 = _mm256_permute4x64_epi64(ld32(p), 0xD8);
        v1 = _mm256_permute4x64_epi64(ld32(p + 32), 0xD8);
    } else {
        v0 = ld2(p, p + 32);
        v1 = ld2(p + 16, p + 48);
    }
    const V s0 = _mm256_shuffle_epi8(v0, split), s1 = _mm256_shuffle_epi8(v1, split);
    const V y = _mm256_unpacklo_epi64(s0, s1), cw = _mm256_unpackhi_epi64(s0, s1), low = ld(k.low);
    const Terms c = terms(k, _mm256_and_si256(cw, low), _mm256_srli_epi16(cw, 8));
    pixels<I, Bgr, DS>(k, _mm256_and_si256(y, low), _mm256_srli_epi16(y, 8), c, out);
}

}  // namespace

template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    return int(in.cs == 2 ? rows420<I, Bgr, DS, 2>(in, o0, o1, x0, w) : rows420<I, Bgr, DS, 1>(in, o0, o1, x0, w));
}

template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    const Tab<I>& k = *tab<I>();
    ptrdiff_t x = x0;
    const uint8_t* p = in.y - kY0<O> + 2 * x;
    uint8_t* out = (Bgr ? o.b : o.r) + x * DS;
    for (; x + kB <= w; x += kB, p += 2 * kB, out += kB * DS) block422<I, O, Bgr, DS>(k, p, out);
    return int(x);
}
template int inv420_blocks<Inv601Sub, false, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, false, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);

template int inv422_blocks<Inv601Sub, Order::YCbCr, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, false, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, true, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, true, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, false, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, true, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, true, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::CbYCr, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::CbYCr, true, 4>(const Ycc422In&, const RgbOut&, int, int);

}  // namespace nmq::ycc::avx2pairs
