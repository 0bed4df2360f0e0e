// AVX-512 (F, BW, VL) interior kernels of the colour-filter-array
// interpolation: the lane arithmetic of the SSE2 and AVX2 kernels on 64
// bytes, with the per-lane choices (site, interpolation direction) made with
// mask registers, so the same bytes as ownBayerInteriorRow. The RGB
// interleave shuffles each 128-bit lane and then moves whole lanes into
// place. The rest of a run after the last full vector goes to the AVX2 kernel.
#include "frame/avx512.h"

#include "bayer/cfa_kernels.h"
#include "bayer/cfa_lanes.h"

namespace nmq::cfa {
namespace {

using Z = __m512i;

struct Bits512 {
    using V = __m512i;
    static V and_(V a, V b) { return _mm512_and_si512(a, b); }
    static V or_(V a, V b) { return _mm512_or_si512(a, b); }
    static V xor_(V a, V b) { return _mm512_xor_si512(a, b); }
};

struct Ops8 : Bits512 {
    using T = uint8_t;
    using M = __mmask64;
    static constexpr int kLanes = 64;
    static Z avg(Z a, Z b) { return _mm512_avg_epu8(a, b); }
    static Z subs(Z a, Z b) { return _mm512_subs_epu8(a, b); }
    static Z add(Z a, Z b) { return _mm512_add_epi8(a, b); }
    static Z sub(Z a, Z b) { return _mm512_sub_epi8(a, b); }
    static Z one() { return _mm512_set1_epi8(1); }
    static M le(Z a, Z b) { return _mm512_cmple_epu8_mask(a, b); }
    static Z load(const T* p) { return _mm512_loadu_si512(p); }
    static Z blend(M m, Z if_clear, Z if_set) { return _mm512_mask_blend_epi8(m, if_clear, if_set); }
    // The lanes of pixels 1, 3, 5... (odd) or 0, 2, 4...
    static M alternate(bool odd) { return odd ? M(0xAAAAAAAAAAAAAAAAull) : M(0x5555555555555555ull); }
};

struct Ops16 : Bits512 {
    using T = uint16_t;
    using M = __mmask32;
    static constexpr int kLanes = 32;
    static Z avg(Z a, Z b) { return _mm512_avg_epu16(a, b); }
    static Z subs(Z a, Z b) { return _mm512_subs_epu16(a, b); }
    static Z add(Z a, Z b) { return _mm512_add_epi16(a, b); }
    static Z sub(Z a, Z b) { return _mm512_sub_epi16(a, b); }
    static Z one() { return _mm512_set1_epi16(1); }
    static M le(Z a, Z b) { return _mm512_cmple_epu16_mask(a, b); }
    static Z load(const T* p) { return _mm512_loadu_si512(p); }
    static Z blend(M m, Z if_clear, Z if_set) { return _mm512_mask_blend_epi16(m, if_clear, if_set); }
    static M alternate(bool odd) { return odd ? M(0xAAAAAAAAu) : M(0x55555555u); }
};

constexpr Scatter<1> kScatter8{};
constexpr Scatter<2> kScatter16{};

// Interleaves R, G, B into 192 bytes. Lane j of part r holds bytes
// 16r..16r+15 of the 48 bytes lane j covers; the parts are then gathered
// lane by lane into three contiguous vectors (two 128-bit lane moves each).
template <int E>
inline void store_rgb(void* d, Z r, Z g, Z b, const Scatter<E>& s) {
    const Z in[3] = {r, g, b};
    Z o[3];
    for (int k = 0; k < 3; ++k) {
        Z v = _mm512_setzero_si512();
        for (int ch = 0; ch < 3; ++ch) {
            const Z m = _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s.out[k][ch])));
            v = _mm512_or_si512(v, _mm512_shuffle_epi8(in[ch], m));
        }
        o[k] = v;
    }
    // Qword indices: 0-7 the first source, 8-15 the second; lane j = 2j, 2j+1.
    const auto q = [](int a, int b, int c, int e) { return _mm512_setr_epi64(2 * a, 2 * a + 1, 2 * b, 2 * b + 1, 2 * c, 2 * c + 1, 2 * e, 2 * e + 1); };
    // [o0.l0, o1.l0, o2.l0, o0.l1], [o1.l1, o2.l1, o0.l2, o1.l2], [o2.l2, o0.l3, o1.l3, o2.l3]
    const Z m0 = _mm512_permutex2var_epi64(_mm512_permutex2var_epi64(o[0], q(0, 4, 0, 1), o[1]), q(0, 1, 4, 3), o[2]);
    const Z m1 = _mm512_permutex2var_epi64(_mm512_permutex2var_epi64(o[0], q(5, 0, 2, 6), o[1]), q(0, 5, 2, 3), o[2]);
    const Z m2 = _mm512_permutex2var_epi64(_mm512_permutex2var_epi64(o[0], q(0, 3, 7, 0), o[1]), q(6, 1, 2, 7), o[2]);
    auto* p = static_cast<uint8_t*>(d);
    _mm512_storeu_si512(p, m0);
    _mm512_storeu_si512(p + 64, m1);
    _mm512_storeu_si512(p + 128, m2);
}
inline void store_rgb(uint8_t* d, Z r, Z g, Z b) { store_rgb(d, r, g, b, kScatter8); }
inline void store_rgb(uint16_t* d, Z r, Z g, Z b) { store_rgb(d, r, g, b, kScatter16); }

template <class O>
int interior_blocks(const typename O::T* a, const typename O::T* c, const typename O::T* b, typename O::T* d, int n,
                    bool red_row, bool green_first) {
    constexpr int L = O::kLanes;
    const typename O::M site = O::alternate(green_first);  // lanes of red or blue sites
    int i = 0;
    for (; i + L <= n; i += L, d += 3 * L) {
        Z x, g, y;
        interior_vector<O>(a + i, c + i, b + i, site, x, g, y);
        if (red_row)
            store_rgb(d, x, g, y);
        else
            store_rgb(d, y, g, x);
    }
    return i;
}

}  // namespace

// The vector step is even, so the rest starts at the same kind of site.
void ownBayerInteriorRow_avx512(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                                bool green_first) {
    const int i = interior_blocks<Ops8>(a, c, b, d, n, red_row, green_first);
    if (i < n) ownBayerInteriorRow_avx2(a + i, c + i, b + i, d + 3 * i, n - i, red_row, green_first);
}

void ownBayerInteriorRow_avx512(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                                bool red_row, bool green_first) {
    const int i = interior_blocks<Ops16>(a, c, b, d, n, red_row, green_first);
    if (i < n) ownBayerInteriorRow_avx2(a + i, c + i, b + i, d + 3 * i, n - i, red_row, green_first);
}

}  // namespace nmq::cfa
