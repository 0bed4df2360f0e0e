// YUV: AVX-512 (F, BW, VL) kernel for three-byte RGB pixels to 4:2:0, 64
// pixels of a row pair per step.
//
// The integers are those of the scalar formulas (rgb_to_yuv420_rows), worked
// out in another order:
// - with dRG = R - G and dBG = B - G, the luma sum is S = 65536 G + sy, sy =
//   19595 dRG + 7471 dBG: one pmaddwd per pixel on the 16-bit pair (dRG, dBG).
//   Y = S >> 16 = G + (the high half of sy), so a 16-bit add of (G, G) to sy
//   leaves Y in the high half of the pixel's dword.
// - the sums over a 2x2 block are sums of those pairs: the block's sum of sy is
//   the pmaddwd of its summed pair, and the chroma differences are
//   dB = sum(dBG) + t, dR = sum(dRG) + t with t = (131071 - sum(sy)) >> 16,
//   the high half of 131071 - sum(sy), added to both halves of the pair.
// - U and V are worked out side by side in the halves of each block's dword
//   and saturated to signed bytes before 128 is added (an exclusive or of
//   0x80): that is the clamp of V, and U never reaches it.
//
// Loading: the 192 bytes of 64 pixels are 16 groups of four pixels, 12 bytes
// each, dword aligned. A dword permute of two loads gives every 128-bit lane
// one group at its start (vector j, lane l: group 4j + l), and in-lane byte
// shuffles pick (R, B) and (G, G) of each pixel as 16-bit pairs. Results come
// out in that transposed order and are put back with one word or dword
// permute per vector. The formula is the same for every column, so the last
// part of a row is one more block with masked loads and stores: no byte past
// the row's ROI is accessed and no other kernel is called (the inline SSE2
// and scalar templates must not be instantiated in a file built for AVX-512).
#include "frame/avx512_px3.h"

#include "yuv/yuv_kernels.h"

namespace nmq::yuv {
namespace {

using namespace nmq::z512;

constexpr ptrdiff_t kZ = 64;  // pixels per block

inline Z c32(int v) { return _mm512_set1_epi32(v); }

// Byte shuffles of a lane holding four pixels at bytes 0-11: (R, B) and
// (G, G) of each pixel as 16-bit pairs (the high bytes zero).
template <int A, int B, int C>
struct Masks {
    int8_t rb[16], gg[16];
    constexpr Masks() : rb(), gg() {
        for (int j = 0; j < 4; ++j) {
            rb[4 * j] = int8_t(3 * j + A), rb[4 * j + 2] = int8_t(3 * j + C);
            gg[4 * j] = gg[4 * j + 2] = int8_t(3 * j + B);
            rb[4 * j + 1] = rb[4 * j + 3] = gg[4 * j + 1] = gg[4 * j + 3] = int8_t(0x80);
        }
    }
};
template <int A, int B, int C>
inline constexpr Masks<A, B, C> kMasks{};

// Word p of the V half <- word 8 (p % 4) + p / 4 of the split chroma (V of
// block pair p), and the U half alike from word 4 on in each lane.
struct ChromaOrder {
    alignas(64) int16_t v[32];
    constexpr ChromaOrder() : v() {
        for (int p = 0; p < 16; ++p) v[p] = int16_t(8 * (p % 4) + p / 4), v[16 + p] = int16_t(8 * (p % 4) + 4 + p / 4);
    }
};
inline constexpr ChromaOrder kChromaOrder{};

// One row: per pixel the (dRG, dBG) pair and sy + (G, G), whose high half is Y.
struct Row {
    Z d[4], y[4];
};

template <int A, int B, int C, bool Tail>
inline Row row(const uint8_t* q, ptrdiff_t m, const Z idx[4]) {
    Z in[3];
    for (int k = 0; k < 3; ++k)
        in[k] = Tail ? _mm512_maskz_loadu_epi8(first(3 * m - 64 * k), q + 64 * k) : _mm512_loadu_si512(q + 64 * k);
    const Z mrb = lanes(kMasks<A, B, C>.rb), mgg = lanes(kMasks<A, B, C>.gg), w = pair(19595, 7471);
    Row r;
    for (int j = 0; j < 4; ++j) {
        const Z g4 = _mm512_permutex2var_epi32(in[j < 2 ? 0 : 1], idx[j], in[j < 2 ? 1 : 2]);
        const Z rb = _mm512_shuffle_epi8(g4, mrb), gg = _mm512_shuffle_epi8(g4, mgg);
        r.d[j] = _mm512_sub_epi16(rb, gg);
        r.y[j] = _mm512_add_epi16(_mm512_madd_epi16(r.d[j], w), gg);
    }
    return r;
}

// Per block dword (summed dRG, summed dBG): (V, U) as signed 16-bit values
// before the 128 is added.
inline Z block_vu(Z p) {
    const Z ps = _mm512_sub_epi32(c32(131071), _mm512_madd_epi16(p, pair(19595, 7471)));
    alignas(16) static constexpr int8_t kHighHalf[16] = {2, 3, 2, 3, 6, 7, 6, 7, 10, 11, 10, 11, 14, 15, 14, 15};
    const Z x = _mm512_add_epi16(p, _mm512_shuffle_epi8(ps, lanes(kHighHalf)));  // (dR, dB)
    // dR 57475 / 2^16 = dR + dR (57475 - 65536) / 2^16; dB 32244 / 2^16.
    const Z h = _mm512_mulhi_epi16(x, pair(57475 - 65536, 32244));
    return _mm512_srai_epi16(_mm512_mask_add_epi16(h, 0x55555555u, h, x), 2);
}

template <int A, int B, int C, bool Tail>
inline void block(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t i, ptrdiff_t m, const Z idx[4]) {
    const Row a = row<A, B, C, Tail>(s0.p[0] + 3 * i, m, idx);
    const Row b = row<A, B, C, Tail>(s1.p[0] + 3 * i, m, idx);
    const Z y0 = luma_bytes(a.y), y1 = luma_bytes(b.y);
    // Lane l: blocks 2l, 2l + 1, 8 + 2l, 9 + 2l (p01), 16 + 2l ... 25 + 2l (p23).
    const Z p01 = pair_sums(_mm512_add_epi16(a.d[0], b.d[0]), _mm512_add_epi16(a.d[1], b.d[1]));
    const Z p23 = pair_sums(_mm512_add_epi16(a.d[2], b.d[2]), _mm512_add_epi16(a.d[3], b.d[3]));
    const Z vu = _mm512_xor_si512(_mm512_packs_epi16(block_vu(p01), block_vu(p23)), _mm512_set1_epi8(int8_t(0x80)));
    // Per lane: V of block pairs l, 4 + l, 8 + l, 12 + l as words, then U.
    alignas(16) static constexpr int8_t kSplit[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    const Z split = _mm512_shuffle_epi8(vu, lanes(kSplit));
    const Z uv = _mm512_permutexvar_epi16(_mm512_load_si512(kChromaOrder.v), split);  // V, then U
    const __m256i v = _mm512_castsi512_si256(uv), u = _mm512_extracti64x4_epi64(uv, 1);
    if constexpr (Tail) {
        const M ky = first(m);
        const __mmask32 kc = __mmask32(first(m / 2));
        _mm512_mask_storeu_epi8(d.p[0] + i, ky, y0);
        _mm512_mask_storeu_epi8(d.p[3] + i, ky, y1);
        _mm256_mask_storeu_epi8(d.p[1] + i / 2, kc, u);
        _mm256_mask_storeu_epi8(d.p[2] + i / 2, kc, v);
    } else {
        _mm512_storeu_si512(d.p[0] + i, y0);
        _mm512_storeu_si512(d.p[3] + i, y1);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d.p[1] + i / 2), u);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d.p[2] + i / 2), v);
    }
}

template <int A, int B, int C>
void rgb3_to_yuv420_rows_avx512(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    const Z idx[4] = {_mm512_load_si512(kGroupIdx.v[0]), _mm512_load_si512(kGroupIdx.v[1]),
                      _mm512_load_si512(kGroupIdx.v[2]), _mm512_load_si512(kGroupIdx.v[3])};
    ptrdiff_t i = from;
    for (; i + kZ <= n; i += kZ) block<A, B, C, false>(s0, s1, d, i, kZ, idx);
    if (i < n) block<A, B, C, true>(s0, s1, d, i, n - i, idx);
}

}  // namespace

template <class S>
void rgb_to_yuv420_rows_avx512(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from) {
    static_assert(S::kBytes == 3, "three-byte pixels only");
    rgb3_to_yuv420_rows_avx512<S::kA, S::kB, S::kC>(s0, s1, d, n, from);
}

template void rgb_to_yuv420_rows_avx512<RGB3>(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);

}  // namespace nmq::yuv
