// AVX-512 (F, BW, VL) kernel for BT.601 RGB/BGR (three- or four-byte pixels)
// to 4:2:0, 64 pixels of a row pair per step.
//
// The integers are those of fwd420_rows (ycbcr_kernels.h), worked out in
// another order:
// - the byte shuffles that split the pixels give per pixel the 16-bit pairs
//   (R + 256, B - 256) and (G + 256, G - 256): the bytes 0x01 and 0xFF above
//   the channels come from a constant through the shuffle's merge mask, for
//   free. One pmaddwd of each pair, with weights (yr, yb) and (g1, g2), g1 +
//   g2 = yg, adds to yr R + yg G + yb B + 256 (yr - yb + g1 - g2), and g1 - g2
//   is chosen to make that constant yk: two multiply-adds and an add give the
//   luma sum, whose high half is Y (it is never negative). Both weights of G
//   stay below 2^15, which a single weight of yg = 33030 would not.
// - the difference of the two pairs is (R - G, B - G). The chroma weights of
//   each row sum to zero, so a block's chroma is br (SR - SG) + bb (SB - SG)
//   (and Cr alike): one pmaddwd of the summed pairs. With 4 ck = -510 * 2^16,
//   floor((m + 4 ck) / 2^18) = floor((h + 2) / 4) - 128 for h the high half of
//   the product sum m, so Cb and Cr are worked out side by side in the halves
//   of each block's dword, and 128 is added to the signed bytes by an
//   exclusive or of 0x80 (the values stay within -112..112, so the byte pack
//   does not saturate and the byte is the low byte of the scalar value).
//
// Loading: 64 three-byte pixels are 16 groups of four pixels, 12 bytes each,
// dword aligned. A dword permute of two loads gives every 128-bit lane one
// group at its start (vector j, lane l: group 4j + l); four-byte pixels are
// in that order as loaded. Results come out in that transposed order and are
// put back with one dword or word permute per vector. The formula is the same
// for every column, so the last part of a row is one more block with masked
// loads and stores: no byte past the row's ROI is accessed and no other kernel
// is called (the inline SSE2 and scalar templates must not be instantiated in
// a file built for AVX-512).
#include "frame/avx512_px3.h"

#include "yuv/ycbcr_fwd_avx512.h"

namespace nmq::ycc::avx512 {
namespace {

using namespace nmq::z512;

#define NMQ_INLINE inline __attribute__((always_inline))

constexpr ptrdiff_t kZ = 64;  // pixels per block

// The weights above, from the coefficients of F.
template <class F>
struct Weights {
    static constexpr int g1 = (F::yg + F::yk / 256 - F::yr + F::yb) / 2, g2 = F::yg - g1;
    static constexpr int hoff = 4 * F::ck / 65536;  // 4 ck in units of 2^16
    static_assert(F::S == 16 && !F::clamp, "BT.601 studio range only");
    static_assert(F::yk % 256 == 0 && 256 * (F::yr - F::yb + g1 - g2) == F::yk, "luma offset from the pair bytes");
    static_assert(g1 > -32768 && g1 < 32768 && g2 > -32768 && g2 < 32768, "G weights in 16 bits");
    static_assert(F::br + F::bg + F::bb == 0 && F::rr + F::rg + F::rb == 0, "chroma weights sum to zero");
    static_assert(4 * F::ck % 65536 == 0 && ((hoff - 2) % 1024 + 1024) % 1024 == 512, "chroma offset is -128 after (h + 2) >> 2");
};

// Byte shuffles of a lane holding four pixels of S bytes at bytes 0..4S-1,
// the channels at byte offsets A (R), B (G), C (B) in a pixel: R, B and G, G
// in the low bytes of 16-bit pairs (the high bytes come from kHigh).
template <int S, int A, int B, int C>
struct Masks {
    int8_t rb[16], gg[16];
    constexpr Masks() : rb(), gg() {
        for (int j = 0; j < 4; ++j) {
            rb[4 * j] = int8_t(S * j + A), rb[4 * j + 2] = int8_t(S * j + C);
            gg[4 * j] = gg[4 * j + 2] = int8_t(S * j + B);
            rb[4 * j + 1] = rb[4 * j + 3] = gg[4 * j + 1] = gg[4 * j + 3] = 0;
        }
    }
};
template <int S, int A, int B, int C>
inline constexpr Masks<S, A, B, C> kMasks{};

constexpr M kLowBytes = 0x5555555555555555ull;  // byte 0 of each 16-bit lane
inline Z high_bytes() { return _mm512_set1_epi32(int32_t(0xFF000100u)); }  // +256, -256

// Block of lane l, word i of the packed chroma (see block()): the pair sums
// put blocks 2l, 2l + 1, 8 + 2l, 9 + 2l in words 0-3 and 16 more in 4-7.
constexpr int block_of(int l, int i) { return (i < 4 ? 0 : 16) + (i % 4 < 2 ? 0 : 8) + 2 * l + i % 2; }

// Word permutes of the chroma: planar (from the split bytes, lane l: words
// 0-3 the first samples of block pairs l, 4 + l, 8 + l, 12 + l, words 4-7 the
// second ones) puts the first plane's 32 bytes in the low half and the second
// plane's in the high one; interleaved puts the (first, second) words of the
// 32 blocks in order.
struct ChromaOrder {
    alignas(64) int16_t planar[32], inter[32];
    constexpr ChromaOrder() : planar(), inter() {
        for (int p = 0; p < 16; ++p)
            planar[p] = int16_t(8 * (p % 4) + p / 4), planar[16 + p] = int16_t(8 * (p % 4) + 4 + p / 4);
        for (int l = 0; l < 4; ++l)
            for (int i = 0; i < 8; ++i) inter[block_of(l, i)] = int16_t(8 * l + i);
    }
};
inline constexpr ChromaOrder kChromaOrder{};

// One row: per pixel the (R - G, B - G) pair and the luma sum, whose high half is Y.
struct Row {
    Z d[4], y[4];
};

template <class F>
NMQ_INLINE void pixels(Z g4, Z mrb, Z mgg, Z& d, Z& y) {
    using W = Weights<F>;
    const Z rb = _mm512_mask_shuffle_epi8(high_bytes(), kLowBytes, g4, mrb);
    const Z gg = _mm512_mask_shuffle_epi8(high_bytes(), kLowBytes, g4, mgg);
    d = _mm512_sub_epi16(rb, gg);
    y = _mm512_add_epi32(_mm512_madd_epi16(rb, pair(F::yr, F::yb)), _mm512_madd_epi16(gg, pair(W::g1, W::g2)));
}

// m: pixels of the row from q on (all 64 unless Tail).
template <class F, int SS, int A, int B, int C, bool Tail>
NMQ_INLINE Row row(const uint8_t* q, ptrdiff_t m, const Z idx[4]) {
    const Z mrb = lanes(kMasks<SS, A, B, C>.rb), mgg = lanes(kMasks<SS, A, B, C>.gg);
    Z in[SS];
    for (int k = 0; k < SS; ++k)
        in[k] = Tail ? _mm512_maskz_loadu_epi8(first(SS * m - 64 * k), q + 64 * k) : _mm512_loadu_si512(q + 64 * k);
    Row r;
    for (int j = 0; j < 4; ++j) {
        const Z g4 = SS == 4 ? in[j] : _mm512_permutex2var_epi32(in[j < 2 ? 0 : 1], idx[j], in[j < 2 ? 1 : 2]);
        pixels<F>(g4, mrb, mgg, r.d[j], r.y[j]);
    }
    return r;
}

// Per block dword (summed R - G, summed B - G): the first and the second
// chroma sample as signed 16-bit values before the 128 is added.
NMQ_INLINE Z block_chroma(Z p, Z w1, Z w2) {
    const Z h = _mm512_mask_blend_epi16(0xAAAAAAAAu, _mm512_srli_epi32(_mm512_madd_epi16(p, w1), 16),
                                        _mm512_madd_epi16(p, w2));
    return _mm512_srai_epi16(_mm512_add_epi16(h, _mm512_set1_epi32(0x00020002)), 2);
}

struct Consts {
    Z idx[4], w1, w2;
    uint8_t *c1, *c2;  // first and second chroma plane (or the interleaved row)
    bool inter;
};

template <class F, int SS, int A, int B, int C, bool Tail>
NMQ_INLINE void block(const uint8_t* q0, const uint8_t* q1, const Ycc420& o, const Consts& k, ptrdiff_t x, ptrdiff_t m) {
    const Row a = row<F, SS, A, B, C, Tail>(q0 + SS * x, m, k.idx);
    const Row b = row<F, SS, A, B, C, Tail>(q1 + SS * x, m, k.idx);
    const Z y0 = luma_bytes(a.y), y1 = luma_bytes(b.y);
    // Lane l: blocks 2l, 2l + 1, 8 + 2l, 9 + 2l (p01), 16 + 2l ... 25 + 2l (p23).
    const Z p01 = pair_sums(_mm512_add_epi16(a.d[0], b.d[0]), _mm512_add_epi16(a.d[1], b.d[1]));
    const Z p23 = pair_sums(_mm512_add_epi16(a.d[2], b.d[2]), _mm512_add_epi16(a.d[3], b.d[3]));
    const Z c = _mm512_xor_si512(_mm512_packs_epi16(block_chroma(p01, k.w1, k.w2), block_chroma(p23, k.w1, k.w2)),
                                 _mm512_set1_epi8(int8_t(0x80)));
    const M ky = Tail ? first(m) : ~M(0);
    if (Tail) {
        _mm512_mask_storeu_epi8(o.y0 + x, ky, y0);
        _mm512_mask_storeu_epi8(o.y1 + x, ky, y1);
    } else {
        _mm512_storeu_si512(o.y0 + x, y0);
        _mm512_storeu_si512(o.y1 + x, y1);
    }
    if (k.inter) {
        const Z v = _mm512_permutexvar_epi16(_mm512_load_si512(kChromaOrder.inter), c);
        if (Tail) _mm512_mask_storeu_epi8(k.c1 + x, ky, v);
        else _mm512_storeu_si512(k.c1 + x, v);
    } else {
        // Per lane: the first samples of block pairs l, 4 + l, 8 + l, 12 + l as words, then the second.
        alignas(16) static constexpr int8_t kSplit[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
        const Z v = _mm512_permutexvar_epi16(_mm512_load_si512(kChromaOrder.planar), _mm512_shuffle_epi8(c, lanes(kSplit)));
        const __m256i v1 = _mm512_castsi512_si256(v), v2 = _mm512_extracti64x4_epi64(v, 1);
        if (Tail) {
            const __mmask32 kc = __mmask32(first(m / 2));
            _mm256_mask_storeu_epi8(k.c1 + x / 2, kc, v1);
            _mm256_mask_storeu_epi8(k.c2 + x / 2, kc, v2);
        } else {
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(k.c1 + x / 2), v1);
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(k.c2 + x / 2), v2);
        }
    }
}

template <class F, int SS, int A, int B, int C>
void rows(const uint8_t* q0, const uint8_t* q1, const Ycc420& o, ptrdiff_t x, ptrdiff_t n) {
    const bool cr_first = o.cr < o.cb;  // decides the interleaved order; planes take either
    Consts k;
    for (int j = 0; j < 4; ++j) k.idx[j] = _mm512_load_si512(kGroupIdx.v[j]);
    const Z wb = pair(F::br, F::bb), wr = pair(F::rr, F::rb);
    k.w1 = cr_first ? wr : wb;
    k.w2 = cr_first ? wb : wr;
    k.c1 = cr_first ? o.cr : o.cb;
    k.c2 = cr_first ? o.cb : o.cr;
    k.inter = o.cs == 2;
    for (; x + kZ <= n; x += kZ) block<F, SS, A, B, C, false>(q0, q1, o, k, x, kZ);
    if (x < n) block<F, SS, A, B, C, true>(q0, q1, o, k, x, n - x);
}

}  // namespace

template <class F, bool Bgr, int SS>
void fwd420(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w) {
    static_assert(SS == 3 || SS == 4, "interleaved pixels only");
    constexpr int R = Bgr ? 2 : 0, B = Bgr ? 0 : 2;
    rows<F, SS, R, 1, B>(Bgr ? s0.b : s0.r, Bgr ? s1.b : s1.r, o, x0, w & ~1);
}

template void fwd420<Fwd601, false, 3>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template void fwd420<Fwd601, false, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template void fwd420<Fwd601, true, 3>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template void fwd420<Fwd601, true, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);

}  // namespace nmq::ycc::avx512
