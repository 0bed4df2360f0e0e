// SSE2 forms of the byte-moving row kernels. Each loop stops at the last full
// block inside the row and hands the rest to the scalar form; no load or
// store leaves the row.
#include <emmintrin.h>

#include "sampling/sampling_kernels.h"

namespace nmq {
namespace smp {
namespace {

inline __m128i ld(const u8* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i lda(const u8* p) { return _mm_load_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i ld8(const u8* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
inline void st(u8* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline void sta(u8* p, __m128i v) { _mm_store_si128(reinterpret_cast<__m128i*>(p), v); }
inline void st8(u8* p, __m128i v) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }
inline __m128i low_bytes() { return _mm_set1_epi16(0x00FF); }

// Even bytes of a then b (16 bytes); odd bytes likewise.
inline __m128i even_bytes(__m128i a, __m128i b) {
    const __m128i m = low_bytes();
    return _mm_packus_epi16(_mm_and_si128(a, m), _mm_and_si128(b, m));
}
inline __m128i odd_bytes(__m128i a, __m128i b) {
    return _mm_packus_epi16(_mm_srli_epi16(a, 8), _mm_srli_epi16(b, 8));
}
// Exchanges the two bytes of every 16-bit lane.
inline __m128i swap_bytes(__m128i v) { return _mm_or_si128(_mm_slli_epi16(v, 8), _mm_srli_epi16(v, 8)); }

template <class O> constexpr bool kLumaEven = O::y0 == 0;
template <class O> constexpr bool kCbFirst = O::cb < O::cr;

// Two vectors of packed groups (8 pairs) into 16 luma bytes and 16 chroma
// bytes in source order (first, second, first, ...).
template <class O>
inline void unpack16(__m128i v0, __m128i v1, __m128i& y, __m128i& c) {
    if (kLumaEven<O>) {
        y = even_bytes(v0, v1);
        c = odd_bytes(v0, v1);
    } else {
        y = odd_bytes(v0, v1);
        c = even_bytes(v0, v1);
    }
}

// Chroma in source order to Cb-first order.
template <class O>
inline __m128i cb_first(__m128i c) { return kCbFirst<O> ? c : swap_bytes(c); }

// 16 luma bytes and 16 chroma bytes in source order (8 pairs) into two vectors of groups.
template <class O>
inline void pack16(__m128i y, __m128i c, u8* d) {
    if (kLumaEven<O>) {
        st(d, _mm_unpacklo_epi8(y, c));
        st(d + 16, _mm_unpackhi_epi8(y, c));
    } else {
        st(d, _mm_unpacklo_epi8(c, y));
        st(d + 16, _mm_unpackhi_epi8(c, y));
    }
}

}  // namespace

void ownccCopy_8u_C1(const u8* s, u8* d, int n, bool streaming) {
    if (n < 16) {
        copy_row_scalar(s, d, n, false);
        return;
    }
    st(d, ld(s));
    int i = 16 - int(reinterpret_cast<uintptr_t>(d) & 15);  // first 16-byte aligned destination byte after it
    const bool nt = streaming && !copy_aliases(s, d);
    if (nt) {
        for (; i + 16 <= n; i += 16) _mm_stream_si128(reinterpret_cast<__m128i*>(d + i), ld(s + i));
    } else {
        for (; i + 16 <= n; i += 16) sta(d + i, ld(s + i));
    }
    if (i < n) st(d + n - 16, ld(s + n - 16));
    if (nt) _mm_sfence();
}

// Blocks of 16 pairs; the aligned kernel differs only in its loads and luma
// stores. Returns the number of pairs done.
template <class O, bool Aligned>
int split422_blocks16(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    const auto load = [](const u8* p) { return Aligned ? lda(p) : ld(p); };
    const auto store = [](u8* p, __m128i v) { Aligned ? sta(p, v) : st(p, v); };
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const u8* p = s + 4 * i;
        __m128i y0, y1, c0, c1;
        unpack16<O>(load(p), load(p + 16), y0, c0);
        unpack16<O>(load(p + 32), load(p + 48), y1, c1);
        const __m128i f = even_bytes(c0, c1), g = odd_bytes(c0, c1);
        store(y + 2 * i, y0);
        store(y + 2 * i + 16, y1);
        st(cb + i, kCbFirst<O> ? f : g);
        st(cr + i, kCbFirst<O> ? g : f);
    }
    return i;
}

template <class O>
void Split422_8u_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    const int i = split422_blocks16<O, false>(s, y, cb, cr, pairs);
    Split422_8u_scalar<O>(s + 4 * i, y + 2 * i, cb + i, cr + i, pairs - i);
}

template <class O>
void Split422_8u_a16_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    int i = split422_blocks16<O, true>(s, y, cb, cr, pairs);
    for (; i + 8 <= pairs; i += 8) {
        const u8* p = s + 4 * i;
        __m128i y0, c0;
        unpack16<O>(lda(p), lda(p + 16), y0, c0);
        const __m128i fg = even_bytes(c0, _mm_srli_epi16(c0, 8));  // first in the low half, second in the high half
        sta(y + 2 * i, y0);
        st8(cb + i, kCbFirst<O> ? fg : _mm_srli_si128(fg, 8));
        st8(cr + i, kCbFirst<O> ? _mm_srli_si128(fg, 8) : fg);
    }
    Split422_8u_scalar<O>(s + 4 * i, y + 2 * i, cb + i, cr + i, pairs - i);
}

template <class O>
void luma422_sse2(const u8* s, u8* y, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const u8* p = s + 4 * i;
        __m128i y0, y1, c;
        unpack16<O>(ld(p), ld(p + 16), y0, c);
        unpack16<O>(ld(p + 32), ld(p + 48), y1, c);
        st(y + 2 * i, y0);
        st(y + 2 * i + 16, y1);
    }
    luma422_scalar<O>(s + 4 * i, y + 2 * i, pairs - i);
}

template <class O>
void split422_p2_sse2(const u8* s, u8* y, u8* c, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const u8* p = s + 4 * i;
        __m128i y0, y1, c0, c1;
        unpack16<O>(ld(p), ld(p + 16), y0, c0);
        unpack16<O>(ld(p + 32), ld(p + 48), y1, c1);
        st(y + 2 * i, y0);
        st(y + 2 * i + 16, y1);
        st(c + 2 * i, cb_first<O>(c0));
        st(c + 2 * i + 16, cb_first<O>(c1));
    }
    split422_p2_scalar<O>(s + 4 * i, y + 2 * i, c + 2 * i, pairs - i);
}

template <class O>
void split422_dec_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const u8* p = s + 4 * i;
        __m128i y0, y1, c0, c1;
        unpack16<O>(ld(p), ld(p + 16), y0, c0);
        unpack16<O>(ld(p + 32), ld(p + 48), y1, c1);
        // Cb-first chroma pairs; keep pairs 0, 2, 4, ... and split them.
        const __m128i b0 = cb_first<O>(c0), b1 = cb_first<O>(c1);
        const __m128i kept = _mm_packs_epi32(_mm_srai_epi32(_mm_slli_epi32(b0, 16), 16),
                                             _mm_srai_epi32(_mm_slli_epi32(b1, 16), 16));
        const __m128i bc = even_bytes(kept, _mm_srli_epi16(kept, 8));  // Cb low half, Cr high half
        st(y + 2 * i, y0);
        st(y + 2 * i + 16, y1);
        st8(cb + i / 2, bc);
        st8(cr + i / 2, _mm_srli_si128(bc, 8));
    }
    split422_dec_scalar<O>(s + 4 * i, y + 2 * i, cb + i / 2, cr + i / 2, pairs - i);
}

template <class O>
void split422_dec_p2_sse2(const u8* s, u8* y, u8* c, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const u8* p = s + 4 * i;
        __m128i y0, y1, c0, c1;
        unpack16<O>(ld(p), ld(p + 16), y0, c0);
        unpack16<O>(ld(p + 32), ld(p + 48), y1, c1);
        const __m128i b0 = cb_first<O>(c0), b1 = cb_first<O>(c1);
        const __m128i kept = _mm_packs_epi32(_mm_srai_epi32(_mm_slli_epi32(b0, 16), 16),
                                             _mm_srai_epi32(_mm_slli_epi32(b1, 16), 16));
        st(y + 2 * i, y0);
        st(y + 2 * i + 16, y1);
        st(c + i, kept);
    }
    split422_dec_p2_scalar<O>(s + 4 * i, y + 2 * i, c + i, pairs - i);
}

template <class O>
void Join422_8u_sse2(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const __m128i b = ld(cb + i), r = ld(cr + i);
        const __m128i f = kCbFirst<O> ? b : r, g = kCbFirst<O> ? r : b;
        pack16<O>(ld(y + 2 * i), _mm_unpacklo_epi8(f, g), d + 4 * i);
        pack16<O>(ld(y + 2 * i + 16), _mm_unpackhi_epi8(f, g), d + 4 * i + 32);
    }
    Join422_8u_scalar<O>(y + 2 * i, cb + i, cr + i, d + 4 * i, pairs - i);
}

template <class O>
void join422_p2_sse2(const u8* y, const u8* c, u8* d, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        pack16<O>(ld(y + 2 * i), cb_first<O>(ld(c + 2 * i)), d + 4 * i);
        pack16<O>(ld(y + 2 * i + 16), cb_first<O>(ld(c + 2 * i + 16)), d + 4 * i + 32);
    }
    join422_p2_scalar<O>(y + 2 * i, c + 2 * i, d + 4 * i, pairs - i);
}

template <class O>
void join422_dup_sse2(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const __m128i b = ld8(cb + i / 2), r = ld8(cr + i / 2);
        const __m128i bd = _mm_unpacklo_epi8(b, b), rd = _mm_unpacklo_epi8(r, r);
        const __m128i f = kCbFirst<O> ? bd : rd, g = kCbFirst<O> ? rd : bd;
        pack16<O>(ld(y + 2 * i), _mm_unpacklo_epi8(f, g), d + 4 * i);
        pack16<O>(ld(y + 2 * i + 16), _mm_unpackhi_epi8(f, g), d + 4 * i + 32);
    }
    join422_dup_scalar<O>(y + 2 * i, cb + i / 2, cr + i / 2, d + 4 * i, pairs - i);
}

template <class O>
void join422_p2dup_sse2(const u8* y, const u8* c, u8* d, int pairs) {
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const __m128i x = ld(c + i);  // 8 Cb/Cr pairs, each serving two groups
        pack16<O>(ld(y + 2 * i), cb_first<O>(_mm_unpacklo_epi16(x, x)), d + 4 * i);
        pack16<O>(ld(y + 2 * i + 16), cb_first<O>(_mm_unpackhi_epi16(x, x)), d + 4 * i + 32);
    }
    join422_p2dup_scalar<O>(y + 2 * i, c + i, d + 4 * i, pairs - i);
}

void swap13_sse2(const u8* s, u8* d, int pairs) {
    int i = 0;
    const __m128i m = low_bytes();
    for (; i + 4 <= pairs; i += 4) {
        const __m128i v = ld(s + 4 * i);
        const __m128i c = _mm_andnot_si128(m, v);
        st(d + 4 * i, _mm_or_si128(_mm_and_si128(v, m), _mm_or_si128(_mm_slli_epi32(c, 16), _mm_srli_epi32(c, 16))));
    }
    swap13_scalar(s + 4 * i, d + 4 * i, pairs - i);
}

void swap_adjacent_sse2(const u8* s, u8* d, int pairs) {
    int i = 0;
    for (; i + 4 <= pairs; i += 4) st(d + 4 * i, swap_bytes(ld(s + 4 * i)));
    swap_adjacent_scalar(s + 4 * i, d + 4 * i, pairs - i);
}

void interleave_sse2(const u8* a, const u8* b, u8* out, int n) {
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i x = ld(a + i), y = ld(b + i);
        st(out + 2 * i, _mm_unpacklo_epi8(x, y));
        st(out + 2 * i + 16, _mm_unpackhi_epi8(x, y));
    }
    interleave_scalar(a + i, b + i, out + 2 * i, n - i);
}

void deinterleave_sse2(const u8* in, u8* a, u8* b, int n) {
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i v0 = ld(in + 2 * i), v1 = ld(in + 2 * i + 16);
        st(a + i, even_bytes(v0, v1));
        st(b + i, odd_bytes(v0, v1));
    }
    deinterleave_scalar(in + 2 * i, a + i, b + i, n - i);
}

void decimate_sse2(const u8* in, u8* out, int n) {
    int i = 0;
    for (; i + 16 <= n; i += 16) st(out + i, even_bytes(ld(in + 2 * i), ld(in + 2 * i + 16)));
    decimate_scalar(in + 2 * i, out + i, n - i);
}

void duplicate_sse2(const u8* in, u8* out, int n) {
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i v = ld(in + i);
        st(out + 2 * i, _mm_unpacklo_epi8(v, v));
        st(out + 2 * i + 16, _mm_unpackhi_epi8(v, v));
    }
    duplicate_scalar(in + i, out + 2 * i, n - i);
}

void interleave_pick_sse2(const u8* a, const u8* b, u8* out, int n, int p) {
    int i = 0;
    const __m128i m = low_bytes();
    for (; i + 8 <= n; i += 8) {
        const __m128i va = ld(a + 2 * i), vb = ld(b + 2 * i);
        const __m128i sa = p ? _mm_srli_epi16(va, 8) : _mm_and_si128(va, m);
        const __m128i sb = p ? _mm_andnot_si128(m, vb) : _mm_slli_epi16(vb, 8);
        st(out + 2 * i, _mm_or_si128(sa, sb));
    }
    interleave_pick_scalar(a + 2 * i, b + 2 * i, out + 2 * i, n - i, p);
}

void deinterleave_pick_sse2(const u8* in, u8* a, u8* b, int n, int p) {
    int i = 0;
    // Select the low (p = 0) or high (p = 1) 16 bits of every 32-bit lane,
    // sign-extended so that the signed pack keeps the bit pattern.
    auto half = [p](__m128i v) { return p ? _mm_srai_epi32(v, 16) : _mm_srai_epi32(_mm_slli_epi32(v, 16), 16); };
    for (; i + 16 <= n; i += 16) {
        const u8* q = in + 4 * i;
        const __m128i w0 = _mm_packs_epi32(half(ld(q)), half(ld(q + 16)));
        const __m128i w1 = _mm_packs_epi32(half(ld(q + 32)), half(ld(q + 48)));
        st(a + i, even_bytes(w0, w1));
        st(b + i, odd_bytes(w0, w1));
    }
    deinterleave_pick_scalar(in + 4 * i, a + i, b + i, n - i, p);
}

void deinterleave_dup_sse2(const u8* in, u8* a, u8* b, int n) {
    int i = 0;
    const __m128i m = low_bytes();
    for (; i + 8 <= n; i += 8) {
        const __m128i v = ld(in + 2 * i);
        const __m128i x = _mm_and_si128(v, m), y = _mm_srli_epi16(v, 8);
        st(a + 2 * i, _mm_or_si128(x, _mm_slli_epi16(x, 8)));
        st(b + 2 * i, _mm_or_si128(y, _mm_slli_epi16(y, 8)));
    }
    deinterleave_dup_scalar(in + 2 * i, a + 2 * i, b + 2 * i, n - i);
}

void zip4_sse2(const u8* a0, const u8* b0, const u8* a1, const u8* b1, u8* out, int n) {
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i x0 = ld(a0 + i), y0 = ld(b0 + i), x1 = ld(a1 + i), y1 = ld(b1 + i);
        const __m128i p0 = _mm_unpacklo_epi8(x0, y0), q0 = _mm_unpackhi_epi8(x0, y0);
        const __m128i p1 = _mm_unpacklo_epi8(x1, y1), q1 = _mm_unpackhi_epi8(x1, y1);
        u8* o = out + 4 * i;
        st(o, _mm_unpacklo_epi16(p0, p1));
        st(o + 16, _mm_unpackhi_epi16(p0, p1));
        st(o + 32, _mm_unpacklo_epi16(q0, q1));
        st(o + 48, _mm_unpackhi_epi16(q0, q1));
    }
    zip4_scalar(a0 + i, b0 + i, a1 + i, b1 + i, out + 4 * i, n - i);
}

void unzip_pairs_sse2(const u8* s0, const u8* s1, u8* a, u8* b, int n) {
    int i = 0;
    const __m128i m = low_bytes();
    for (; i + 8 <= n; i += 8) {
        const __m128i x = ld(s0 + 2 * i), y = ld(s1 + 2 * i);
        st(a + 2 * i, _mm_or_si128(_mm_and_si128(x, m), _mm_slli_epi16(y, 8)));
        st(b + 2 * i, _mm_or_si128(_mm_srli_epi16(x, 8), _mm_andnot_si128(m, y)));
    }
    unzip_pairs_scalar(s0 + 2 * i, s1 + 2 * i, a + 2 * i, b + 2 * i, n - i);
}

#define NMQ_SMP_ORDER(O)                                                                     \
    template void Split422_8u_sse2<O>(const u8*, u8*, u8*, u8*, int);                      \
    template void Split422_8u_a16_sse2<O>(const u8*, u8*, u8*, u8*, int);                  \
    template void luma422_sse2<O>(const u8*, u8*, int);                                    \
    template void split422_p2_sse2<O>(const u8*, u8*, u8*, int);                           \
    template void split422_dec_sse2<O>(const u8*, u8*, u8*, u8*, int);                     \
    template void split422_dec_p2_sse2<O>(const u8*, u8*, u8*, int);                       \
    template void Join422_8u_sse2<O>(const u8*, const u8*, const u8*, u8*, int);           \
    template void join422_p2_sse2<O>(const u8*, const u8*, u8*, int);                      \
    template void join422_dup_sse2<O>(const u8*, const u8*, const u8*, u8*, int);          \
    template void join422_p2dup_sse2<O>(const u8*, const u8*, u8*, int);
NMQ_SMP_ORDER(OrdYCbCr)
NMQ_SMP_ORDER(OrdCbYCr)
NMQ_SMP_ORDER(OrdYCrCb)
#undef NMQ_SMP_ORDER

}  // namespace smp
}  // namespace nmq
