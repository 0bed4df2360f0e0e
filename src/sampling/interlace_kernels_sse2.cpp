// SSE2 forms of the interlace row kernels: the same bytes as the scalar
// forms. Each loop stops at the last full block inside the row and hands the
// rest to the scalar form; no load or store leaves the row.
#include <emmintrin.h>

#include "sampling/interlace_kernels.h"

namespace nmq {
namespace ilc {
namespace {

inline __m128i ld(const u8* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i ld8(const u8* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
inline void st(u8* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void st8(u8* p, __m128i v) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }

struct Weights {
    __m128i wa, wb, four;
    explicit Weights(int w) : wa(_mm_set1_epi16(short(w))), wb(_mm_set1_epi16(short(8 - w))), four(_mm_set1_epi16(4)) {}
    // Blend of two vectors of 16-bit samples (each below 256).
    __m128i words(__m128i a, __m128i b) const {
        const __m128i s = _mm_add_epi16(_mm_mullo_epi16(a, wa), _mm_mullo_epi16(b, wb));
        return _mm_srli_epi16(_mm_add_epi16(s, four), 3);
    }
    // Blend of 16 bytes.
    __m128i bytes(__m128i a, __m128i b) const {
        const __m128i z = _mm_setzero_si128();
        const __m128i lo = words(_mm_unpacklo_epi8(a, z), _mm_unpacklo_epi8(b, z));
        const __m128i hi = words(_mm_unpackhi_epi8(a, z), _mm_unpackhi_epi8(b, z));
        return _mm_packus_epi16(lo, hi);
    }
};

inline __m128i low_bytes() { return _mm_set1_epi16(0x00FF); }

// Even and odd bytes of 16 interleaved bytes, 8 each in the low half.
inline __m128i even8(__m128i v) { return _mm_packus_epi16(_mm_and_si128(v, low_bytes()), _mm_setzero_si128()); }
inline __m128i odd8(__m128i v) { return _mm_packus_epi16(_mm_srli_epi16(v, 8), _mm_setzero_si128()); }

// 16 luma bytes and 16 chroma bytes (Cb, Cr, Cb, ...) into 8 packed groups.
inline void pack16(__m128i y, __m128i c, u8* d) {
    st(d, _mm_unpacklo_epi8(y, c));
    st(d + 16, _mm_unpackhi_epi8(y, c));
}

}  // namespace

void blend_row_sse2(const u8* a, const u8* b, u8* out, int n, int wa) {
    const Weights w(wa);
    int i = 0;
    for (; i + 16 <= n; i += 16) st(out + i, w.bytes(ld(a + i), ld(b + i)));
    blend_row_scalar(a + i, b + i, out + i, n - i, wa);
}

void luma422_sse2(const u8* s, u8* y, int pairs) {
    const __m128i m = low_bytes();
    int i = 0;
    for (; i + 8 <= pairs; i += 8) {
        const __m128i v0 = ld(s + 4 * i), v1 = ld(s + 4 * i + 16);
        st(y + 2 * i, _mm_packus_epi16(_mm_and_si128(v0, m), _mm_and_si128(v1, m)));
    }
    luma422_scalar(s + 4 * i, y + 2 * i, pairs - i);
}

void blend_split422_sse2(const u8* a, const u8* b, u8* cb, u8* cr, int pairs, int wa) {
    const Weights w(wa);
    int i = 0;
    for (; i + 8 <= pairs; i += 8) {
        const u8* pa = a + 4 * i;
        const u8* pb = b + 4 * i;
        // The chroma bytes are the high bytes of the 16-bit lanes.
        const __m128i c0 = w.words(_mm_srli_epi16(ld(pa), 8), _mm_srli_epi16(ld(pb), 8));
        const __m128i c1 = w.words(_mm_srli_epi16(ld(pa + 16), 8), _mm_srli_epi16(ld(pb + 16), 8));
        const __m128i c = _mm_packus_epi16(c0, c1);  // Cb Cr Cb Cr ...
        st8(cb + i, even8(c));
        st8(cr + i, odd8(c));
    }
    blend_split422_scalar(a + 4 * i, b + 4 * i, cb + i, cr + i, pairs - i, wa);
}

void blend_join_sse2(const u8* y, const u8* cba, const u8* cbb, const u8* cra, const u8* crb, u8* d, int pairs,
                     int wa) {
    const Weights w(wa);
    const __m128i z = _mm_setzero_si128();
    int i = 0;
    for (; i + 8 <= pairs; i += 8) {
        const __m128i cb = w.words(_mm_unpacklo_epi8(ld8(cba + i), z), _mm_unpacklo_epi8(ld8(cbb + i), z));
        const __m128i cr = w.words(_mm_unpacklo_epi8(ld8(cra + i), z), _mm_unpacklo_epi8(ld8(crb + i), z));
        pack16(ld(y + 2 * i), _mm_or_si128(cb, _mm_slli_epi16(cr, 8)), d + 4 * i);
    }
    blend_join_scalar(y + 2 * i, cba + i, cbb + i, cra + i, crb + i, d + 4 * i, pairs - i, wa);
}

void blend_join_p2_sse2(const u8* y, const u8* ca, const u8* cb, u8* d, int pairs, int wa) {
    const Weights w(wa);
    int i = 0;
    for (; i + 8 <= pairs; i += 8) pack16(ld(y + 2 * i), w.bytes(ld(ca + 2 * i), ld(cb + 2 * i)), d + 4 * i);
    blend_join_p2_scalar(y + 2 * i, ca + 2 * i, cb + 2 * i, d + 4 * i, pairs - i, wa);
}

void blend_split_p2_sse2(const u8* ca, const u8* cb, u8* dcb, u8* dcr, int pairs, int wa) {
    const Weights w(wa);
    int i = 0;
    for (; i + 8 <= pairs; i += 8) {
        const __m128i c = w.bytes(ld(ca + 2 * i), ld(cb + 2 * i));
        st8(dcb + i, even8(c));
        st8(dcr + i, odd8(c));
    }
    blend_split_p2_scalar(ca + 2 * i, cb + 2 * i, dcb + i, dcr + i, pairs - i, wa);
}

}  // namespace ilc
}  // namespace nmq
