// The BT.601 inverse split at the chroma sample (InvSplit601 in ycbcr_sse2.h)
// on 256-bit vectors, and on 512-bit ones in files built for AVX-512: the same
// arithmetic lane for lane. Include only from files built for AVX2 or above;
// everything here has internal linkage (see ycbcr_avx2_io.h).
#pragma once

#include <immintrin.h>

#include "yuv/ycbcr_kernels.h"

namespace nmq::ycc::avx2 {
namespace {

// 16-bit lane operations of one vector width.
struct Ops256 {
    using V = __m256i;
    static V c16(int v) { return _mm256_set1_epi16(short(v)); }
    static V c32(int v) { return _mm256_set1_epi32(v); }
    static V add(V a, V b) { return _mm256_add_epi16(a, b); }
    static V sub(V a, V b) { return _mm256_sub_epi16(a, b); }
    static V mullo(V a, V b) { return _mm256_mullo_epi16(a, b); }
    static V mulhu(V a, V b) { return _mm256_mulhi_epu16(a, b); }
    static V xor_(V a, V b) { return _mm256_xor_si256(a, b); }
    // a + 1 where x > t (signed), else a.
    static V add_gt(V a, V x, V t) { return _mm256_sub_epi16(a, _mm256_cmpgt_epi16(x, t)); }
    static V madd(V a, V b) { return _mm256_madd_epi16(a, b); }
    static V add32(V a, V b) { return _mm256_add_epi32(a, b); }
    static V srai32_16(V a) { return _mm256_srai_epi32(a, 16); }
    static V packs32(V a, V b) { return _mm256_packs_epi32(a, b); }
    static V packus16(V a, V b) { return _mm256_packus_epi16(a, b); }
    static V unlo16(V a, V b) { return _mm256_unpacklo_epi16(a, b); }
    static V unhi16(V a, V b) { return _mm256_unpackhi_epi16(a, b); }
    static V unlo8(V a) { return _mm256_unpacklo_epi8(a, _mm256_setzero_si256()); }
    static V unhi8(V a) { return _mm256_unpackhi_epi8(a, _mm256_setzero_si256()); }
};

#ifdef __AVX512BW__
struct Ops512 {
    using V = __m512i;
    static V c16(int v) { return _mm512_set1_epi16(short(v)); }
    static V c32(int v) { return _mm512_set1_epi32(v); }
    static V add(V a, V b) { return _mm512_add_epi16(a, b); }
    static V sub(V a, V b) { return _mm512_sub_epi16(a, b); }
    static V mullo(V a, V b) { return _mm512_mullo_epi16(a, b); }
    static V mulhu(V a, V b) { return _mm512_mulhi_epu16(a, b); }
    static V xor_(V a, V b) { return _mm512_xor_si512(a, b); }
    static V add_gt(V a, V x, V t) { return _mm512_mask_add_epi16(a, _mm512_cmpgt_epi16_mask(x, t), a, c16(1)); }
    static V madd(V a, V b) { return _mm512_madd_epi16(a, b); }
    static V add32(V a, V b) { return _mm512_add_epi32(a, b); }
    static V srai32_16(V a) { return _mm512_srai_epi32(a, 16); }
    static V packs32(V a, V b) { return _mm512_packs_epi32(a, b); }
    static V packus16(V a, V b) { return _mm512_packus_epi16(a, b); }
    static V unlo16(V a, V b) { return _mm512_unpacklo_epi16(a, b); }
    static V unhi16(V a, V b) { return _mm512_unpackhi_epi16(a, b); }
    static V unlo8(V a) { return _mm512_unpacklo_epi8(a, _mm512_setzero_si512()); }
    static V unhi8(V a) { return _mm512_unpackhi_epi8(a, _mm512_setzero_si512()); }
};
#endif

// Samples sit in 16-bit lanes, eight per 128-bit lane; luma is widened from
// bytes with unpacklo/unpackhi, so the terms of a lane's samples 0-3 serve
// its low eight pixels and 4-7 its high eight.
template <class O, int KR, int KG, int KB>
struct InvSplit601x {
    using V = typename O::V;
    struct Terms {
        V h[3], t[3];
    };
    static constexpr int lo(int k) { return k & 0xFFFF; }
    static constexpr int hi(int k) { return (k - lo(k)) / 65536; }

    template <int M, int W, int K>
    static void one(V c, V& h, V& t) {
        const V k = O::c16(32767 - lo(K));
        t = O::add(O::mullo(c, O::c16(-W)), k);
        const V mc = M == 2 ? O::add(c, c) : c;
        h = O::add_gt(O::add(O::add(O::mulhu(c, O::c16(W)), mc), O::c16(hi(K))), t, k);
    }
    static Terms terms(V Cb, V Cr) {
        Terms o;
        one<1, 104595 - 65536, KR>(Cr, o.h[0], o.t[0]);
        one<2, 132186 - 131072, KB>(Cb, o.h[2], o.t[2]);
        const V w = O::c32(int32_t(uint32_t(uint16_t(-25690)) | uint32_t(12255) << 16)), k = O::c32(KG);
        const V l = O::add32(O::madd(O::unlo16(Cb, Cr), w), k), u = O::add32(O::madd(O::unhi16(Cb, Cr), w), k);
        o.h[1] = O::sub(O::packs32(O::srai32_16(l), O::srai32_16(u)), Cr);
        o.t[1] = O::add(O::add(O::mullo(Cb, O::c16(25690)), O::mullo(Cr, O::c16(-12255))), O::c16(32767 - lo(KG)));
        return o;
    }
    static Terms dup(const Terms& c, bool high) {
        Terms o;
        for (int i = 0; i < 3; ++i) {
            o.h[i] = high ? O::unhi16(c.h[i], c.h[i]) : O::unlo16(c.h[i], c.h[i]);
            o.t[i] = high ? O::unhi16(c.t[i], c.t[i]) : O::unlo16(c.t[i], c.t[i]);
        }
        return o;
    }
    static void apply(V Y, const Terms& c, V& R, V& G, V& B) {
        const V yy = O::add(Y, O::mulhu(Y, O::c16(10748)));
        const V yl = O::xor_(O::mullo(Y, O::c16(10748)), O::c16(-32768));
        R = O::add_gt(O::add(yy, c.h[0]), yl, c.t[0]);
        G = O::add_gt(O::add(yy, c.h[1]), yl, c.t[1]);
        B = O::add_gt(O::add(yy, c.h[2]), yl, c.t[2]);
    }
    // R, G, B bytes (in pixel order) of luma bytes with the terms of their
    // samples as dup gives them.
    static void rgb(V y, const Terms& lo, const Terms& hi, V& R, V& G, V& B) {
        V r0, g0, b0, r1, g1, b1;
        apply(O::unlo8(y), lo, r0, g0, b0);
        apply(O::unhi8(y), hi, r1, g1, b1);
        R = O::packus16(r0, r1);
        G = O::packus16(g0, g1);
        B = O::packus16(b0, b1);
    }
};

template <class O, class I>
struct SplitX {
    static constexpr bool on = false;
    using type = void;
};
template <class O, int KR, int KG, int KB>
struct SplitX<O, Inv601<KR, KG, KB>> {
    static constexpr bool on = true;
    using type = InvSplit601x<O, KR, KG, KB>;
};

}  // namespace
}  // namespace nmq::ycc::avx2
