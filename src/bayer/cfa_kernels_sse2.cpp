// SSE2 interior kernels of the colour-filter-array interpolation. Every lane
// computes all the candidates (own sample, left/right mean, above/below mean,
// diagonal mean, directed green) and a fixed alternating lane mask picks the
// ones of its site, so there is no branch per pixel. The vector step is even,
// so the mask is the same for every vector of a run.
#include <emmintrin.h>

#include "bayer/cfa_kernels.h"
#include "bayer/cfa_lanes.h"

namespace nmq::cfa {
namespace {

// Lane operations on unsigned 8-bit and 16-bit samples.
struct Bits128 {
    using V = __m128i;
    using M = __m128i;  // all ones in the chosen lanes
    static V blend(M m, V if_clear, V if_set) { return _mm_or_si128(_mm_and_si128(m, if_set), _mm_andnot_si128(m, if_clear)); }
    static V and_(V a, V b) { return _mm_and_si128(a, b); }
    static V or_(V a, V b) { return _mm_or_si128(a, b); }
    static V xor_(V a, V b) { return _mm_xor_si128(a, b); }
};

struct Ops8 : Bits128 {
    using T = uint8_t;
    static constexpr int kLanes = 16;
    static __m128i avg(__m128i a, __m128i b) { return _mm_avg_epu8(a, b); }
    static __m128i subs(__m128i a, __m128i b) { return _mm_subs_epu8(a, b); }
    static __m128i add(__m128i a, __m128i b) { return _mm_add_epi8(a, b); }
    static __m128i sub(__m128i a, __m128i b) { return _mm_sub_epi8(a, b); }
    static __m128i le(__m128i a, __m128i b) { return _mm_cmpeq_epi8(_mm_subs_epu8(a, b), _mm_setzero_si128()); }
    static __m128i load(const T* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static __m128i one() { return _mm_set1_epi8(1); }
    // All ones in the lanes of pixels 0, 2, 4... (those of pixels 1, 3, 5... when odd).
    static __m128i alternate(bool odd) { return odd ? _mm_set1_epi16(int16_t(0xff00)) : _mm_set1_epi16(0x00ff); }
};

struct Ops16 : Bits128 {
    using T = uint16_t;
    static constexpr int kLanes = 8;
    static __m128i avg(__m128i a, __m128i b) { return _mm_avg_epu16(a, b); }
    static __m128i subs(__m128i a, __m128i b) { return _mm_subs_epu16(a, b); }
    static __m128i add(__m128i a, __m128i b) { return _mm_add_epi16(a, b); }
    static __m128i sub(__m128i a, __m128i b) { return _mm_sub_epi16(a, b); }
    static __m128i le(__m128i a, __m128i b) { return _mm_cmpeq_epi16(_mm_subs_epu16(a, b), _mm_setzero_si128()); }
    static __m128i load(const T* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static __m128i one() { return _mm_set1_epi16(1); }
    static __m128i alternate(bool odd) { return odd ? _mm_set1_epi32(int32_t(0xffff0000u)) : _mm_set1_epi32(0xffff); }
};

// Keeps the low six bytes of each 64-bit half and packs them into bytes 0..11.
inline __m128i pack_6_6(__m128i q) {
    return _mm_or_si128(_mm_move_epi64(q), _mm_slli_si128(_mm_srli_si128(q, 8), 6));
}

// Writes four 12-byte groups (in bytes 0..11 of r0..r3, zeros above) as 48 bytes.
inline void store48(void* d, __m128i r0, __m128i r1, __m128i r2, __m128i r3) {
    auto* o = static_cast<__m128i*>(d);
    _mm_storeu_si128(o + 0, _mm_or_si128(r0, _mm_slli_si128(r1, 12)));
    _mm_storeu_si128(o + 1, _mm_or_si128(_mm_srli_si128(r1, 4), _mm_slli_si128(r2, 8)));
    _mm_storeu_si128(o + 2, _mm_or_si128(_mm_srli_si128(r2, 8), _mm_slli_si128(r3, 4)));
}

// Four pixels R G B 0 in 32-bit lanes: keep the low three bytes of each.
inline __m128i pack_rgb0(__m128i p) {
    const __m128i lo = _mm_set_epi32(0, 0xffffff, 0, 0xffffff);
    const __m128i hi = _mm_set_epi32(0xffff, int32_t(0xff000000u), 0xffff, int32_t(0xff000000u));
    return pack_6_6(_mm_or_si128(_mm_and_si128(p, lo), _mm_and_si128(_mm_srli_epi64(p, 8), hi)));
}

// Interleaves 16 R, 16 G and 16 B bytes into 48 bytes of RGB.
inline void store_rgb(uint8_t* d, __m128i r, __m128i g, __m128i b) {
    const __m128i z = _mm_setzero_si128();
    const __m128i rg_lo = _mm_unpacklo_epi8(r, g), rg_hi = _mm_unpackhi_epi8(r, g);
    const __m128i b_lo = _mm_unpacklo_epi8(b, z), b_hi = _mm_unpackhi_epi8(b, z);
    store48(d, pack_rgb0(_mm_unpacklo_epi16(rg_lo, b_lo)), pack_rgb0(_mm_unpackhi_epi16(rg_lo, b_lo)),
            pack_rgb0(_mm_unpacklo_epi16(rg_hi, b_hi)), pack_rgb0(_mm_unpackhi_epi16(rg_hi, b_hi)));
}

// Interleaves 8 R, 8 G and 8 B 16-bit samples into 24 samples of RGB.
inline void store_rgb(uint16_t* d, __m128i r, __m128i g, __m128i b) {
    const __m128i z = _mm_setzero_si128();
    const __m128i rg_lo = _mm_unpacklo_epi16(r, g), rg_hi = _mm_unpackhi_epi16(r, g);
    const __m128i b_lo = _mm_unpacklo_epi16(b, z), b_hi = _mm_unpackhi_epi16(b, z);
    store48(d, pack_6_6(_mm_unpacklo_epi32(rg_lo, b_lo)), pack_6_6(_mm_unpackhi_epi32(rg_lo, b_lo)),
            pack_6_6(_mm_unpacklo_epi32(rg_hi, b_hi)), pack_6_6(_mm_unpackhi_epi32(rg_hi, b_hi)));
}

template <class O>
void interior_row(const typename O::T* a, const typename O::T* c, const typename O::T* b, typename O::T* d, int n,
                  bool red_row, bool green_first) {
    constexpr int L = O::kLanes;
    // Lanes of red or blue sites.
    const __m128i site = O::alternate(green_first);
    int i = 0;
    for (; i + L <= n; i += L, d += 3 * L) {
        __m128i x, g, y;
        interior_vector<O>(a + i, c + i, b + i, site, x, g, y);
        if (red_row)
            store_rgb(d, x, g, y);
        else
            store_rgb(d, y, g, x);
    }
    // The vector step is even, so the rest starts at the same kind of site.
    if (i < n) ownBayerInteriorRow(a + i, c + i, b + i, d, n - i, red_row, green_first);
}

}  // namespace

void ownBayerInteriorRow_sse2(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                              bool green_first) {
    interior_row<Ops8>(a, c, b, d, n, red_row, green_first);
}

void ownBayerInteriorRow_sse2(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                              bool red_row, bool green_first) {
    interior_row<Ops16>(a, c, b, d, n, red_row, green_first);
}

}  // namespace nmq::cfa
