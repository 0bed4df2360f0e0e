// SSE2 forms of the filtering and averaging row kernels. The block loops here
// are the ones whose boundaries the scalar forms reproduce.
#include <emmintrin.h>

#include "sampling/sampling_resample.h"

namespace nmq {
namespace smp {
namespace {

inline __m128i ld(const u8* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void st(u8* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void st8(u8* p, __m128i v) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }

// (-a + 9b + 9c - d + 8) >> 4 on signed 16-bit lanes.
inline __m128i filter16(__m128i a, __m128i b, __m128i c, __m128i d) {
    const __m128i bc = _mm_add_epi16(b, c);
    const __m128i t = _mm_sub_epi16(_mm_add_epi16(_mm_slli_epi16(bc, 3), bc), _mm_add_epi16(a, d));
    return _mm_srai_epi16(_mm_add_epi16(t, _mm_set1_epi16(8)), 4);
}

inline __m128i even_bytes(__m128i a, __m128i b) {
    const __m128i m = _mm_set1_epi16(0x00FF);
    return _mm_packus_epi16(_mm_and_si128(a, m), _mm_and_si128(b, m));
}

// 16 source samples from s (reading s[16] too) expanded to 32.
inline void expand16(const u8* s, u8* out) {
    const __m128i a = ld(s), b = ld(s + 1);
    const __m128i odd = _mm_avg_epu8(a, b);
    st(out, _mm_unpacklo_epi8(a, odd));
    st(out + 16, _mm_unpackhi_epi8(a, odd));
}

// The row between the expansions of s and t, 16 source samples.
inline void expand16_mid(const u8* s, const u8* t, u8* out) {
    const __m128i s0 = ld(s), s1 = ld(s + 1), t0 = ld(t), t1 = ld(t + 1);
    const __m128i even = _mm_avg_epu8(s0, t0);
    const __m128i odd = _mm_avg_epu8(_mm_avg_epu8(s0, s1), _mm_avg_epu8(t0, t1));
    st(out, _mm_unpacklo_epi8(even, odd));
    st(out + 16, _mm_unpackhi_epi8(even, odd));
}

}  // namespace

void filter_row_sse2(const u8* a, const u8* b, const u8* c, const u8* d, u8* out, int n) {
    const __m128i z = _mm_setzero_si128();
    int x = 0;
    for (; x + 16 <= n; x += 16) {
        const __m128i va = ld(a + x), vb = ld(b + x), vc = ld(c + x), vd = ld(d + x);
        const __m128i lo = filter16(_mm_unpacklo_epi8(va, z), _mm_unpacklo_epi8(vb, z), _mm_unpacklo_epi8(vc, z),
                                    _mm_unpacklo_epi8(vd, z));
        const __m128i hi = filter16(_mm_unpackhi_epi8(va, z), _mm_unpackhi_epi8(vb, z), _mm_unpackhi_epi8(vc, z),
                                    _mm_unpackhi_epi8(vd, z));
        st(out + x, _mm_packus_epi16(lo, hi));  // the pack clamps to 0..255
    }
    filter_row_scalar(a + x, b + x, c + x, d + x, out + x, n - x);
}

void filter_split_row_sse2(const u8* a, const u8* b, const u8* c, const u8* d, u8* cb, u8* cr, int n) {
    const __m128i m = _mm_set1_epi16(0x00FF);
    int x = 0;
    for (; x + 16 <= n; x += 16) {
        __m128i rb[2], rr[2];
        for (int h = 0; h < 2; ++h) {
            const int o = 2 * x + 16 * h;
            const __m128i va = ld(a + o), vb = ld(b + o), vc = ld(c + o), vd = ld(d + o);
            rb[h] = filter16(_mm_and_si128(va, m), _mm_and_si128(vb, m), _mm_and_si128(vc, m), _mm_and_si128(vd, m));
            rr[h] = filter16(_mm_srli_epi16(va, 8), _mm_srli_epi16(vb, 8), _mm_srli_epi16(vc, 8), _mm_srli_epi16(vd, 8));
        }
        st(cb + x, _mm_packus_epi16(rb[0], rb[1]));
        st(cr + x, _mm_packus_epi16(rr[0], rr[1]));
    }
    filter_split_row_scalar(a + 2 * x, b + 2 * x, c + 2 * x, d + 2 * x, cb + x, cr + x, n - x);
}

void expand1620_row_sse2(const u8* s, u8* out, int m) {
    int i = 0;
    for (; m - i > 32; i += 32) {
        expand16(s + i, out + 2 * i);
        expand16(s + i + 16, out + 2 * i + 32);
    }
    for (; m - i > 16; i += 16) expand16(s + i, out + 2 * i);
    expand_h(s + i, out + 2 * i, m - i, 0);
}

void expand1620_mid_sse2(const u8* s, const u8* t, u8* out, int m) {
    int i = 0;
    for (; m - i > 32; i += 32) {
        expand16_mid(s + i, t + i, out + 2 * i);
        expand16_mid(s + i + 16, t + i + 16, out + 2 * i + 32);
    }
    for (; m - i > 16; i += 16) expand16_mid(s + i, t + i, out + 2 * i);
    expand_hv(s + i, t + i, out + 2 * i, m - i, 0);
}

void expand411_row_sse2(const u8* s, u8* out, int m) {
    int i = 0;
    for (; m - i > 64; i += 64)
        for (int k = 0; k < 64; k += 16) expand16(s + i + k, out + 2 * (i + k));
    for (; m - i > 16; i += 16) expand16(s + i, out + 2 * i);
    expand_h(s + i, out + 2 * i, m - i, 0);
}

void avg_even_sse2(const u8* a, const u8* b, u8* out, int d) {
    int j = 0;
    for (; d - j >= 32; j += 32) {
        const u8* p = a + 2 * j;
        const u8* q = b + 2 * j;
        const __m128i a0 = even_bytes(ld(p), ld(p + 16)), a1 = even_bytes(ld(p + 32), ld(p + 48));
        const __m128i b0 = even_bytes(ld(q), ld(q + 16)), b1 = even_bytes(ld(q + 32), ld(q + 48));
        st(out + j, _mm_avg_epu8(a0, b0));
        st(out + j + 16, _mm_avg_epu8(a1, b1));
    }
    const __m128i z = _mm_setzero_si128(), one = _mm_set1_epi8(1);
    for (; d - j >= 8; j += 8) {
        const __m128i x = even_bytes(ld(a + 2 * j), z), y = even_bytes(ld(b + 2 * j), z);
        // (x + y) >> 1 = rounded-up mean minus the carry bit of odd sums.
        st8(out + j, _mm_sub_epi8(_mm_avg_epu8(x, y), _mm_and_si128(_mm_xor_si128(x, y), one)));
    }
    for (; j < d; ++j) out[j] = u8(avg_down(a[2 * j], b[2 * j]));
}

}  // namespace smp
}  // namespace nmq
