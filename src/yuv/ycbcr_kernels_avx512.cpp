// AVX-512 (F, BW, VL) blocks of the BT.601 inverse on the hot paths: 4:2:0
// (three planes or an interleaved chroma plane) and packed 4:2:2 to three- and
// four-byte pixels, 64 pixels of a row per step.
//
// The AVX2 kernels spend most of their time in the shuffle unit: spreading
// each chroma term over its two pixels, widening luma and (de)interleaving
// the pixels. Here a 16-bit lane holds a pair of pixels instead: Y & 0xFF and
// Y >> 8 of the luma words are the even and the odd pixel, and both share the
// chroma sample of that lane, so the terms need no spreading. The lanes hold
// the pairs "transposed" (128-bit lane k, dword j: pixels 16j+4k..16j+4k+3),
// which is the order the in-lane interleave of even and odd pixels into
// four-byte pixels consumes: luma and chroma get one dword permute each, and
// the pixels come out contiguous.
//
// The arithmetic is that of InvSplit601x (ycbcr_avx2_split.h): the luma part
// Y + hi(10748*Y) plus the chroma part h, plus the carry of the low halves;
// the byte packs clamp.
//
// Each formula here is the same in every column, so a row ends with one more
// block through masked loads and stores: no byte past the row is accessed.
// Only the lone last pixel of an odd packed 4:2:2 row (its own rule) is left
// to the caller. Nothing here calls the inline kernels of the headers (see
// ycbcr_avx2.h).
#include "frame/avx512.h"
#if defined(__GNUC__) && !defined(__clang__)
// GCC 12 also reports the undefined pass-through operand of its AVX-512
// intrinsics at every call inlined in this file.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <utility>

#include "yuv/ycbcr_avx2.h"

namespace nmq::ycc::avx512 {
namespace {

using Z = __m512i;
using M = __mmask64;

#define NMQ_INLINE inline __attribute__((always_inline))

constexpr ptrdiff_t kZ = 64;  // pixels per block

inline Z ld(const uint8_t* p) { return _mm512_loadu_si512(p); }
// A 16-bit constant, set as a 32-bit one: GCC then takes it from memory as a
// broadcast operand instead of building it in the loop from a general register.
inline Z c16(int v) { return _mm512_set1_epi32(int32_t(uint32_t(uint16_t(v)) * 0x10001u)); }

// A byte-shuffle pattern repeated in the four lanes, as a constant in memory.
struct alignas(64) Lanes {
    int8_t b[64];
};
constexpr Lanes lanes(const int8_t (&m)[16]) {
    Lanes l{};
    for (int i = 0; i < 64; ++i) l.b[i] = m[i % 16];
    return l;
}
inline Z ld(const Lanes& l) { return _mm512_load_si512(l.b); }

// The first k bits (k may be below 0 or above 64).
inline M first(ptrdiff_t k) { return k <= 0 ? M(0) : k >= 64 ? ~M(0) : (M(1) << k) - 1; }

// Lane k, dword j <- dword 4j + k: contiguous dwords to the transposed order.
inline Z transpose_dwords(Z x) {
    return _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), x);
}

// Chroma terms of 32 samples in 16-bit lanes: the split of InvSplit601x
// (ycbcr_avx2_split.h), with t kept for an unsigned comparison with the plain
// low half of the luma part (t ^ 0x8000 there, folded into the constants).
template <class I>
struct Chroma;

template <int KR, int KG, int KB>
struct Chroma<Inv601<KR, KG, KB>> {
    Z h[3], t[3];
    static constexpr int lo(int k) { return k & 0xFFFF; }
    static constexpr int hi(int k) { return (k - lo(k)) / 65536; }
    // h, t of the term W * c + K with c scaled by 65536 * M + W.
    template <int M, int W, int K>
    static void one(Z c, Z& h, Z& t) {
        const Z k = c16((32767 - lo(K)) ^ 0x8000);
        t = _mm512_add_epi16(_mm512_mullo_epi16(c, c16(-W)), k);
        const Z mc = M == 2 ? _mm512_add_epi16(c, c) : c;
        const Z s = _mm512_add_epi16(_mm512_add_epi16(_mm512_mulhi_epu16(c, c16(W)), mc), c16(hi(K)));
        h = _mm512_mask_add_epi16(s, _mm512_cmpgt_epu16_mask(t, k), s, c16(1));
    }
    Chroma(Z cb, Z cr) {
        one<1, 104595 - 65536, KR>(cr, h[0], t[0]);
        one<2, 132186 - 131072, KB>(cb, h[2], t[2]);
        const Z w = _mm512_set1_epi32(int32_t(uint32_t(uint16_t(-25690)) | uint32_t(12255) << 16));
        const Z k = _mm512_set1_epi32(KG);
        const Z l = _mm512_add_epi32(_mm512_madd_epi16(_mm512_unpacklo_epi16(cb, cr), w), k);
        const Z u = _mm512_add_epi32(_mm512_madd_epi16(_mm512_unpackhi_epi16(cb, cr), w), k);
        h[1] = _mm512_sub_epi16(_mm512_packs_epi32(_mm512_srai_epi32(l, 16), _mm512_srai_epi32(u, 16)), cr);
        t[1] = _mm512_add_epi16(_mm512_add_epi16(_mm512_mullo_epi16(cb, c16(25690)), _mm512_mullo_epi16(cr, c16(-12255))),
                                c16((32767 - lo(KG)) ^ 0x8000));
    }
};

// R, G, B before the clamp (16-bit lanes) of the luma words y (0..255).
template <class I>
NMQ_INLINE void apply(Z y, const Chroma<I>& c, Z& R, Z& G, Z& B) {
    const Z w = c16(10748), one = c16(1);
    const Z yy = _mm512_add_epi16(y, _mm512_mulhi_epu16(y, w));
    const Z yl = _mm512_mullo_epi16(y, w);
    Z o[3];
    for (int i = 0; i < 3; ++i) {
        const Z s = _mm512_add_epi16(yy, c.h[i]);
        o[i] = _mm512_mask_add_epi16(s, _mm512_cmpgt_epu16_mask(yl, c.t[i]), s, one);
    }
    R = o[0], G = o[1], B = o[2];
}

// Luma words of the even and odd pixels of 32 transposed pairs to 64
// contiguous pixels, and those to the row: m pixels from p (m = 64 for a
// whole block). The byte packs clamp; the even and odd halves of a lane's
// bytes interleave into the two words of each pixel (bytes 0-1 and 2-3,
// alpha 0xFF or, for three-byte pixels, 0), then into pixels.
template <class I, bool Bgr, int DS, bool Tail>
NMQ_INLINE void pixels(Z ye, Z yo, const Chroma<I>& c, uint8_t* p, ptrdiff_t m) {
    Z R0, G0, B0, R1, G1, B1;
    apply(ye, c, R0, G0, B0);
    apply(yo, c, R1, G1, B1);
    if constexpr (Bgr) {
        std::swap(R0, B0);
        std::swap(R1, B1);
    }
    const Z a = _mm512_packus_epi16(R0, R1), g = _mm512_packus_epi16(G0, G1), b = _mm512_packus_epi16(B0, B1);
    const Z fourth = DS == 4 ? _mm512_set1_epi8(-1) : _mm512_setzero_si512();
    const Z le = _mm512_unpacklo_epi8(a, g), lo = _mm512_unpackhi_epi8(a, g);
    const Z he = _mm512_unpacklo_epi8(b, fourth), ho = _mm512_unpackhi_epi8(b, fourth);
    const Z el = _mm512_unpacklo_epi16(le, he), eh = _mm512_unpackhi_epi16(le, he);
    const Z ol = _mm512_unpacklo_epi16(lo, ho), oh = _mm512_unpackhi_epi16(lo, ho);
    const Z px[4] = {_mm512_unpacklo_epi32(el, ol), _mm512_unpackhi_epi32(el, ol), _mm512_unpacklo_epi32(eh, oh),
                     _mm512_unpackhi_epi32(eh, oh)};
    if constexpr (DS == 4) {
        for (int j = 0; j < 4; ++j) {
            if (Tail) _mm512_mask_storeu_epi8(p + 64 * j, first(4 * (m - 16 * j)), px[j]);
            else _mm512_storeu_si512(p + 64 * j, px[j]);
        }
    } else {
        // Each lane's four pixels to its first twelve bytes, then the lanes
        // closed up: output vector r takes dwords 16r..16r+15 of the 48.
        static constexpr Lanes kPack = lanes({0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1});
        const Z pack = ld(kPack);
        Z q[4];
        for (int j = 0; j < 4; ++j) q[j] = _mm512_shuffle_epi8(px[j], pack);
        // Dword e (0..11) of a block of 16 pixels sits at 4 * (e / 3) + e % 3.
        const Z i0 = _mm512_setr_epi32(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20);
        const Z i1 = _mm512_setr_epi32(5, 6, 8, 9, 10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25);
        const Z i2 = _mm512_setr_epi32(10, 12, 13, 14, 16, 17, 18, 20, 21, 22, 24, 25, 26, 28, 29, 30);
        const Z out[3] = {_mm512_permutex2var_epi32(q[0], i0, q[1]), _mm512_permutex2var_epi32(q[1], i1, q[2]),
                          _mm512_permutex2var_epi32(q[2], i2, q[3])};
        for (int r = 0; r < 3; ++r) {
            if (Tail) _mm512_mask_storeu_epi8(p + 64 * r, first(3 * m - 64 * r), out[r]);
            else _mm512_storeu_si512(p + 64 * r, out[r]);
        }
    }
}

template <bool Bgr, int DS>
inline uint8_t* start(const RgbOut& o, ptrdiff_t x) { return (Bgr ? o.b : o.r) + x * DS; }

// 64 pixels of both rows from x (m of them in a tail block); CS: the chroma
// step of the source.
template <class I, bool Bgr, int DS, int CS, bool Tail>
NMQ_INLINE void block420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, ptrdiff_t x, ptrdiff_t m) {
    Z cb, cr;
    if constexpr (CS == 2) {  // Cb, Cr pairs: a dword holds the samples of two pairs, as luma does
        const bool cr_first = in.cr < in.cb;
        const uint8_t* c = (cr_first ? in.cr : in.cb) + x;
        const Z v = transpose_dwords(Tail ? _mm512_maskz_loadu_epi8(first(m), c) : ld(c));
        const Z a = _mm512_and_si512(v, c16(0xFF)), b = _mm512_srli_epi16(v, 8);
        cb = cr_first ? b : a;
        cr = cr_first ? a : b;
    } else {
        const __mmask32 k = __mmask32(first(m / 2));
        const auto ld32 = [&](const uint8_t* p) {
            return Tail ? _mm256_maskz_loadu_epi8(k, p) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        };
        cb = transpose_dwords(_mm512_cvtepu8_epi16(ld32(in.cb + x / 2)));
        cr = transpose_dwords(_mm512_cvtepu8_epi16(ld32(in.cr + x / 2)));
    }
    const Chroma<I> c(cb, cr);
    for (int r = 0; r < 2; ++r) {
        const uint8_t* yp = (r ? in.y1 : in.y0) + x;
        const Z y = transpose_dwords(Tail ? _mm512_maskz_loadu_epi8(first(m), yp) : ld(yp));
        pixels<I, Bgr, DS, Tail>(_mm512_and_si512(y, c16(0xFF)), _mm512_srli_epi16(y, 8), c,
                                 start<Bgr, DS>(r ? o1 : o0, x), m);
    }
}

// Byte positions of Y0, Y1, Cb, Cr inside a packed 4:2:2 pair.
template <Order O>
struct PairBytes;
template <>
struct PairBytes<Order::YCbCr> {
    static constexpr int y0 = 0, y1 = 2, cb = 1, cr = 3;
};
template <>
struct PairBytes<Order::YCrCb> {
    static constexpr int y0 = 0, y1 = 2, cb = 3, cr = 1;
};
template <>
struct PairBytes<Order::CbYCr> {
    static constexpr int y0 = 1, y1 = 3, cb = 0, cr = 2;
};

// Per lane of four pairs: the bytes a, then the bytes b, each widened to a word.
template <int A, int B>
constexpr Lanes kSplit = lanes({A, -1, A + 4, -1, A + 8, -1, A + 12, -1, B, -1, B + 4, -1, B + 8, -1, B + 12, -1});

// 64 pixels of a packed 4:2:2 row from pixel x (m of them in a tail block).
// Each vector of 16 pairs is permuted so that the in-lane split and the
// merge of the two vectors give the transposed pair order.
template <class I, Order O, bool Bgr, int DS, bool Tail>
NMQ_INLINE void block422(const uint8_t* q, const RgbOut& o, ptrdiff_t x, ptrdiff_t m) {
    using P = PairBytes<O>;
    const Z order = _mm512_setr_epi32(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
    const Z sy = ld(kSplit<P::y0, P::y1>), sc = ld(kSplit<P::cb, P::cr>);
    Z ys[2], cs[2];
    for (int h = 0; h < 2; ++h) {
        const uint8_t* p = q + 2 * x + 64 * h;
        const Z v = _mm512_permutexvar_epi32(order, Tail ? _mm512_maskz_loadu_epi8(first(2 * m - 64 * h), p) : ld(p));
        ys[h] = _mm512_shuffle_epi8(v, sy);
        cs[h] = _mm512_shuffle_epi8(v, sc);
    }
    const Chroma<I> c(_mm512_unpacklo_epi64(cs[0], cs[1]), _mm512_unpackhi_epi64(cs[0], cs[1]));
    pixels<I, Bgr, DS, Tail>(_mm512_unpacklo_epi64(ys[0], ys[1]), _mm512_unpackhi_epi64(ys[0], ys[1]), c,
                             start<Bgr, DS>(o, x), m);
}

template <class I, bool Bgr, int DS, int CS>
void rows420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    ptrdiff_t x = x0;
    for (; x + kZ <= w; x += kZ) block420<I, Bgr, DS, CS, false>(in, o0, o1, x, kZ);
    if (x < w) block420<I, Bgr, DS, CS, true>(in, o0, o1, x, w - x);
}

}  // namespace

template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    if (in.cs == 2) rows420<I, Bgr, DS, 2>(in, o0, o1, x0, w);
    else rows420<I, Bgr, DS, 1>(in, o0, o1, x0, w);
    return w;
}

// The pairs of the row; a lone last pixel is left to the caller.
template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    const uint8_t* q = in.y - PairBytes<O>::y0;
    const ptrdiff_t n = w & ~1;
    ptrdiff_t x = x0;
    for (; x + kZ <= n; x += kZ) block422<I, O, Bgr, DS, false>(q, o, x, kZ);
    if (x < n) block422<I, O, Bgr, DS, true>(q, o, x, n - x);
    return int(n > x0 ? n : x0);
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

}  // namespace nmq::ycc::avx512
