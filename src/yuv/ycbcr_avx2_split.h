// The BT.601 inverse split at the chroma sample, 16 samples to a 256-bit
// vector: the arithmetic of InvSplit601 in ycbcr_sse2.h, lane for lane.
// Include only from files built for AVX2.
#pragma once

#include <immintrin.h>

#include "yuv/ycbcr_kernels.h"

namespace nmq::ycc::avx2 {

template <int KR, int KG, int KB>
struct InvSplit601x {
    using V = __m256i;
    struct Terms {
        V h[3], t[3];
    };
    static constexpr int lo(int k) { return k & 0xFFFF; }
    static constexpr int hi(int k) { return (k - lo(k)) / 65536; }
    static V c16(int v) { return _mm256_set1_epi16(short(v)); }

    template <int M, int W, int K>
    static void one(V c, V& h, V& t) {
        const V k = c16(32767 - lo(K));
        t = _mm256_add_epi16(_mm256_mullo_epi16(c, c16(-W)), k);
        const V mc = M == 2 ? _mm256_add_epi16(c, c) : c;
        h = _mm256_sub_epi16(_mm256_add_epi16(_mm256_add_epi16(_mm256_mulhi_epu16(c, c16(W)), mc), c16(hi(K))),
                             _mm256_cmpgt_epi16(t, k));
    }
    // Terms of 16 samples (16-bit lanes).
    static Terms terms(V Cb, V Cr) {
        Terms o;
        one<1, 104595 - 65536, KR>(Cr, o.h[0], o.t[0]);
        one<2, 132186 - 131072, KB>(Cb, o.h[2], o.t[2]);
        const V w = _mm256_set1_epi32(int32_t(uint32_t(uint16_t(-25690)) | uint32_t(12255) << 16));
        const V k = _mm256_set1_epi32(KG);
        const V l = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(Cb, Cr), w), k);
        const V u = _mm256_add_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(Cb, Cr), w), k);
        o.h[1] = _mm256_sub_epi16(_mm256_packs_epi32(_mm256_srai_epi32(l, 16), _mm256_srai_epi32(u, 16)), Cr);
        o.t[1] = _mm256_add_epi16(_mm256_add_epi16(_mm256_mullo_epi16(Cb, c16(25690)), _mm256_mullo_epi16(Cr, c16(-12255))),
                                  c16(32767 - lo(KG)));
        return o;
    }
    // Each sample for two pixels in a row: samples 0-3 and 8-11 (lo), 4-7 and
    // 12-15 (high), matching luma widened from bytes with unpacklo/unpackhi.
    static Terms dup(const Terms& c, bool high) {
        Terms o;
        for (int i = 0; i < 3; ++i) {
            o.h[i] = high ? _mm256_unpackhi_epi16(c.h[i], c.h[i]) : _mm256_unpacklo_epi16(c.h[i], c.h[i]);
            o.t[i] = high ? _mm256_unpackhi_epi16(c.t[i], c.t[i]) : _mm256_unpacklo_epi16(c.t[i], c.t[i]);
        }
        return o;
    }
    // R, G, B of 16 pixels (16-bit, before the clamp).
    static void apply(V Y, const Terms& c, V& R, V& G, V& B) {
        const V yy = _mm256_add_epi16(Y, _mm256_mulhi_epu16(Y, c16(10748)));
        const V yl = _mm256_xor_si256(_mm256_mullo_epi16(Y, c16(10748)), c16(-32768));
        V v[3];
        for (int i = 0; i < 3; ++i)
            v[i] = _mm256_sub_epi16(_mm256_add_epi16(yy, c.h[i]), _mm256_cmpgt_epi16(yl, c.t[i]));
        R = v[0];
        G = v[1];
        B = v[2];
    }
    // R, G, B bytes of 32 luma bytes with the terms of their 16 samples
    // (lo and high halves from dup).
    static void rgb32(V y, const Terms& lo, const Terms& hi, V& R, V& G, V& B) {
        const V z = _mm256_setzero_si256();
        V r0, g0, b0, r1, g1, b1;
        apply(_mm256_unpacklo_epi8(y, z), lo, r0, g0, b0);
        apply(_mm256_unpackhi_epi8(y, z), hi, r1, g1, b1);
        R = _mm256_packus_epi16(r0, r1);
        G = _mm256_packus_epi16(g0, g1);
        B = _mm256_packus_epi16(b0, b1);
    }
};

template <class I>
struct SplitX {
    static constexpr bool on = false;
    using type = void;
};
template <int KR, int KG, int KB>
struct SplitX<Inv601<KR, KG, KB>> {
    static constexpr bool on = true;
    using type = InvSplit601x<KR, KG, KB>;
};

}  // namespace nmq::ycc::avx2
