// AVX2 interior kernels of the colour-filter-array interpolation: the lane
// arithmetic of the SSE2 kernels (cfa_kernels_sse2.cpp) on 32 bytes, so the
// same bytes as ownBayerInteriorRow. Only the final interleave into RGB
// crosses the 128-bit lanes, through byte shuffles. The rest of a run after
// the last full vector goes to the SSE2 kernel.
#include <immintrin.h>

#include "bayer/cfa_kernels.h"
#include "bayer/cfa_lanes.h"

namespace nmq::cfa {
namespace {

using V = __m256i;

struct Bits256 {
    using V = __m256i;
    using M = __m256i;  // all ones in the chosen lanes
    static V blend(M m, V if_clear, V if_set) { return _mm256_blendv_epi8(if_clear, if_set, m); }
    static V and_(V a, V b) { return _mm256_and_si256(a, b); }
    static V or_(V a, V b) { return _mm256_or_si256(a, b); }
    static V xor_(V a, V b) { return _mm256_xor_si256(a, b); }
};

struct Ops8 : Bits256 {
    using T = uint8_t;
    static constexpr int kLanes = 32;
    static V avg(V a, V b) { return _mm256_avg_epu8(a, b); }
    static V subs(V a, V b) { return _mm256_subs_epu8(a, b); }
    static V add(V a, V b) { return _mm256_add_epi8(a, b); }
    static V sub(V a, V b) { return _mm256_sub_epi8(a, b); }
    static V le(V a, V b) { return _mm256_cmpeq_epi8(_mm256_subs_epu8(a, b), _mm256_setzero_si256()); }
    static V load(const T* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
    static V one() { return _mm256_set1_epi8(1); }
    // All ones in the lanes of pixels 0, 2, 4... (those of pixels 1, 3, 5... when odd).
    static V alternate(bool odd) { return odd ? _mm256_set1_epi16(int16_t(0xff00)) : _mm256_set1_epi16(0x00ff); }
};

struct Ops16 : Bits256 {
    using T = uint16_t;
    static constexpr int kLanes = 16;
    static V avg(V a, V b) { return _mm256_avg_epu16(a, b); }
    static V subs(V a, V b) { return _mm256_subs_epu16(a, b); }
    static V add(V a, V b) { return _mm256_add_epi16(a, b); }
    static V sub(V a, V b) { return _mm256_sub_epi16(a, b); }
    static V le(V a, V b) { return _mm256_cmpeq_epi16(_mm256_subs_epu16(a, b), _mm256_setzero_si256()); }
    static V load(const T* p) { return _mm256_loadu_si256(reinterpret_cast<const V*>(p)); }
    static V one() { return _mm256_set1_epi16(1); }
    static V alternate(bool odd) { return odd ? _mm256_set1_epi32(int32_t(0xffff0000u)) : _mm256_set1_epi32(0xffff); }
};

constexpr Scatter<1> kScatter8{};
constexpr Scatter<2> kScatter16{};

// Interleaves R, G, B (each lane holding 48 bytes' worth) into 96 bytes of RGB.
template <int E>
inline void store_rgb(void* d, V r, V g, V b, const Scatter<E>& s) {
    const V in[3] = {r, g, b};
    V out[3];
    for (int k = 0; k < 3; ++k) {
        V v = _mm256_setzero_si256();
        for (int ch = 0; ch < 3; ++ch) {
            const V m = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s.out[k][ch])));
            v = _mm256_or_si256(v, _mm256_shuffle_epi8(in[ch], m));
        }
        out[k] = v;
    }
    auto* o = static_cast<V*>(d);
    _mm256_storeu_si256(o, _mm256_permute2x128_si256(out[0], out[1], 0x20));
    _mm256_storeu_si256(o + 1, _mm256_permute2x128_si256(out[2], out[0], 0x30));
    _mm256_storeu_si256(o + 2, _mm256_permute2x128_si256(out[1], out[2], 0x31));
}
inline void store_rgb(uint8_t* d, V r, V g, V b) { store_rgb(d, r, g, b, kScatter8); }
inline void store_rgb(uint16_t* d, V r, V g, V b) { store_rgb(d, r, g, b, kScatter16); }

template <class O>
void interior_row(const typename O::T* a, const typename O::T* c, const typename O::T* b, typename O::T* d, int n,
                  bool red_row, bool green_first) {
    constexpr int L = O::kLanes;
    const V site = O::alternate(green_first);  // lanes of red or blue sites
    int i = 0;
    for (; i + L <= n; i += L, d += 3 * L) {
        V x, g, y;
        interior_vector<O>(a + i, c + i, b + i, site, x, g, y);
        if (red_row)
            store_rgb(d, x, g, y);
        else
            store_rgb(d, y, g, x);
    }
    // The vector step is even, so the rest starts at the same kind of site.
    if (i < n) ownBayerInteriorRow_sse2(a + i, c + i, b + i, d, n - i, red_row, green_first);
}

}  // namespace

void ownBayerInteriorRow_avx2(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                              bool green_first) {
    interior_row<Ops8>(a, c, b, d, n, red_row, green_first);
}

void ownBayerInteriorRow_avx2(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                              bool red_row, bool green_first) {
    interior_row<Ops16>(a, c, b, d, n, red_row, green_first);
}

}  // namespace nmq::cfa
