// AVX2 blocks of the YCbCr row kernels. A block of 32 pixels keeps pixels
// 0-15 in the low 128-bit lane and 16-31 in the high one, so each lane runs
// the arithmetic of one 16-pixel block of the SSE2 kernels (ycbcr_sse2.h),
// lane for lane, and gives the scalar bytes; only loads and stores cross
// lanes. Three-byte pixels are split and merged with byte shuffles. Nothing
// here calls the inline kernels of the headers (see ycbcr_avx2.h).
#include <immintrin.h>

#include <utility>

#include "yuv/ycbcr_avx2.h"
#include "yuv/ycbcr_avx2_io.h"
#include "yuv/ycbcr_avx2_split.h"

namespace nmq::ycc::avx2 {
namespace {

// ---------------------------------------------------------------- forward

// Luma of 16 pixels (16-bit lanes); K holds the offset of each pixel.
template <class F>
inline V luma16(V R, V G, V B, V K) {
    constexpr int hi = F::yg > 32767 ? 1 : 0;
    constexpr int lo = F::yg - hi * (1 << F::S);
    const V wrg = pair16(F::yr, lo), wb = pair16(F::yb, 0), z = _mm256_setzero_si256();
    const V l = _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(_mm256_unpacklo_epi16(R, G), wrg),
                                                  _mm256_madd_epi16(_mm256_unpacklo_epi16(B, z), wb)), K);
    const V h = _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(_mm256_unpackhi_epi16(R, G), wrg),
                                                  _mm256_madd_epi16(_mm256_unpackhi_epi16(B, z), wb)), K);
    const V y = _mm256_packs_epi32(_mm256_srai_epi32(l, F::S), _mm256_srai_epi32(h, F::S));
    return hi ? _mm256_add_epi16(y, G) : y;
}

// Luma bytes of 32 pixels given as bytes.
template <class F>
inline V luma32(V R, V G, V B, V K) {
    return _mm256_packus_epi16(luma16<F>(lo16(R), lo16(G), lo16(B), K), luma16<F>(hi16(R), hi16(G), hi16(B), K));
}

// Chroma of 8 horizontal pairs (16 lanes of values or of two-row sums).
template <class F, int N>
inline V chroma_pairs(V R, V G, V B, int wr, int wg, int wb) {
    const V s = _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(R, c16(wr)), _mm256_madd_epi16(G, c16(wg))),
                                 _mm256_add_epi32(_mm256_madd_epi16(B, c16(wb)), c32(F::ck * (1 << N))));
    return _mm256_srai_epi32(s, F::S + N);
}

// Cb and Cr of 16 pairs given as sums in 16-bit lanes (pairs 0-3 in R0's
// low lane, 4-7 in R1's, 8-11 and 12-15 in their high lanes), as bytes: Cb of
// pairs 0-7, Cr of 0-7 in the low lane, Cb and Cr of 8-15 in the high one.
template <class F, int N>
inline V chroma_bytes(V R0, V G0, V B0, V R1, V G1, V B1) {
    V cb = _mm256_packs_epi32(chroma_pairs<F, N>(R0, G0, B0, F::br, F::bg, F::bb),
                              chroma_pairs<F, N>(R1, G1, B1, F::br, F::bg, F::bb));
    V cr = _mm256_packs_epi32(chroma_pairs<F, N>(R0, G0, B0, F::rr, F::rg, F::rb),
                              chroma_pairs<F, N>(R1, G1, B1, F::rr, F::rg, F::rb));
    if constexpr (!F::clamp) {  // the low byte of each value: see bytes8 in ycbcr_sse2.h
        cb = _mm256_and_si256(cb, c16(0xFF));
        cr = _mm256_and_si256(cr, c16(0xFF));
    }
    return _mm256_packus_epi16(cb, cr);
}

// The chroma bytes above as 16 Cb (low half) and 16 Cr (high half).
inline V planar(V c) { return _mm256_permute4x64_epi64(c, 0xD8); }
inline void store_planar(uint8_t* cb, uint8_t* cr, V c) {
    const V p = planar(c);
    st16(cb, _mm256_castsi256_si128(p));
    st16(cr, _mm256_extracti128_si256(p, 1));
}

// 4:2:0 from interleaved pixels by pairs, for the matrices that allow it
// (BT.601): the integers of fwd420_rows in another order, as in the AVX-512
// kernel (ycbcr_fwd_avx512.cpp). Byte shuffles give per pixel the 16-bit
// pairs (R, B) and (G, G); the luma sum is the sum of one pmaddwd of each,
// (yr, yb) and the two halves of yg, plus yk, and its high half is Y. Their
// difference (R - G, B - G), summed over a block, gives Cb and Cr with one
// pmaddwd each, because the chroma weights of each row sum to zero; with
// 4 ck = -510 * 2^16 the value is floor((h + 2) / 4) - 128 for h the high
// half of the product sum, worked out for Cb and Cr side by side in the
// halves of the block's dword. The values stay within -112..112, so the byte
// pack does not saturate, and an exclusive or of 0x80 adds the 128.
template <class F>
struct Pairs420 {
    static constexpr bool on = F::S == 16 && !F::clamp && F::br + F::bg + F::bb == 0 && F::rr + F::rg + F::rb == 0 &&
                               4 * F::ck % 65536 == 0 && ((4 * F::ck / 65536 - 2) % 1024 + 1024) % 1024 == 512 &&
                               F::yg < 65535;
    static constexpr int g1 = F::yg / 2, g2 = F::yg - g1;
};

// Shuffles for four pixels of SS bytes at byte 4 * shifted of a lane, the
// channels at byte offsets A (R), B (G), C (B) inside a pixel.
template <int SS, int A, int B, int C>
struct PairMasks {
    int8_t rb[2][16], gg[2][16];
    constexpr PairMasks() : rb(), gg() {
        for (int k = 0; k < 2; ++k)
            for (int j = 0; j < 4; ++j) {
                const int base = SS * j + 4 * k;
                rb[k][4 * j] = int8_t(base + A), rb[k][4 * j + 2] = int8_t(base + C);
                gg[k][4 * j] = gg[k][4 * j + 2] = int8_t(base + B);
                rb[k][4 * j + 1] = rb[k][4 * j + 3] = gg[k][4 * j + 1] = gg[k][4 * j + 3] = int8_t(0x80);
            }
    }
};
template <int SS, int A, int B, int C>
inline constexpr PairMasks<SS, A, B, C> kPairMasks{};

// Four pixels per lane: the (R - G, B - G) pairs and the luma sums.
template <class F, int SS, int A, int B, int C>
inline void pixels4(V q, int shifted, V& d, V& y) {
    constexpr auto& m = kPairMasks<SS, A, B, C>;
    const V rb = _mm256_shuffle_epi8(q, mask(m.rb[shifted])), gg = _mm256_shuffle_epi8(q, mask(m.gg[shifted]));
    d = _mm256_sub_epi16(rb, gg);
    y = _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(rb, pair16(F::yr, F::yb)),
                                          _mm256_madd_epi16(gg, pair16(Pairs420<F>::g1, Pairs420<F>::g2))),
                         c32(F::yk));
}

// The Y bytes of four groups of four pixels in order, from the high halves
// of the luma sums of groups 0 and 1 interleaved as words (a0 b0 a1 b1 ...)
// in y01 and those of groups 2 and 3 in y23: packed, and sorted back by group.
inline V luma_groups(V y01, V y23) {
    alignas(16) static constexpr int8_t kGroups[16] = {0, 2, 4, 6, 1, 3, 5, 7, 8, 10, 12, 14, 9, 11, 13, 15};
    return _mm256_shuffle_epi8(_mm256_packus_epi16(y01, y23), mask(kGroups));
}

// Sums of neighbouring dwords of a and b as 16-bit pairs: per lane a0+a1,
// a2+a3, b0+b1, b2+b3.
inline V pair_sums(V a, V b) {
    const __m256 fa = _mm256_castsi256_ps(a), fb = _mm256_castsi256_ps(b);
    return _mm256_add_epi16(_mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(2, 0, 2, 0))),
                            _mm256_castps_si256(_mm256_shuffle_ps(fa, fb, _MM_SHUFFLE(3, 1, 3, 1))));
}

// Per block dword (summed R - G, summed B - G): the samples of weights w1
// and w2 as signed 16-bit values before the 128 is added.
inline V block_chroma(V p, V w1, V w2) {
    const V h = _mm256_blend_epi16(_mm256_srli_epi32(_mm256_madd_epi16(p, w1), 16), _mm256_madd_epi16(p, w2), 0xAA);
    return _mm256_srai_epi16(_mm256_add_epi16(h, c16(2)), 2);
}

template <class F, int SS, int A, int B, int C>
int fwd420_pairs(const uint8_t* q0, const uint8_t* q1, const Ycc420& o, int x0, int w) {
    const bool cr_first = o.cr < o.cb;  // decides the interleaved order; planes take either
    const V wb = pair16(F::br, F::bb), wr = pair16(F::rr, F::rb);
    const V w1 = cr_first ? wr : wb, w2 = cr_first ? wb : wr;
    uint8_t* const c1 = cr_first ? o.cr : o.cb;
    uint8_t* const c2 = cr_first ? o.cb : o.cr;
    alignas(16) static constexpr int8_t kSplit[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        // Group k: pixels 4k..4k+3 in the low lane, 16+4k.. in the high one;
        // the last group of three-byte pixels is loaded four bytes early so
        // no load passes pixel 31.
        // Row by row, the Y of two groups merged as soon as both are there,
        // which keeps the live vectors within the register file.
        V sum[4];
        for (int r = 0; r < 2; ++r) {
            const uint8_t* p = (r ? q1 : q0) + SS * x;
            V yy[2], y[2];
            for (int k = 0; k < 4; ++k) {
                const int off = SS == 4 ? 16 * k : k == 3 ? 32 : 12 * k, sh = SS == 3 && k == 3;
                V d;
                pixels4<F, SS, A, B, C>(ld2(p + off, p + off + 16 * SS), sh, d, y[k % 2]);
                sum[k] = r ? _mm256_add_epi16(sum[k], d) : d;
                if (k % 2) yy[k / 2] = _mm256_blend_epi16(_mm256_srli_epi32(y[0], 16), y[1], 0xAA);
            }
            st32((r ? o.y1 : o.y0) + x, luma_groups(yy[0], yy[1]));
        }
        // Blocks 0-3 and 4-7 in the low lanes, 8-11 and 12-15 in the high ones.
        const V c = _mm256_xor_si256(_mm256_packs_epi16(block_chroma(pair_sums(sum[0], sum[1]), w1, w2),
                                                        block_chroma(pair_sums(sum[2], sum[3]), w1, w2)),
                                     _mm256_set1_epi8(int8_t(0x80)));
        if (o.cs == 2) {
            st32(c1 + x, c);
        } else {
            const V v = _mm256_permute4x64_epi64(_mm256_shuffle_epi8(c, mask(kSplit)), _MM_SHUFFLE(3, 1, 2, 0));
            st16(c1 + x / 2, _mm256_castsi256_si128(v));
            st16(c2 + x / 2, _mm256_extracti128_si256(v, 1));
        }
    }
    return int(x);
}

}  // namespace

template <class F, bool Bgr, int SS>
int fwd420_blocks(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w) {
    if constexpr (Pairs420<F>::on && SS != 1) {
        constexpr int R = Bgr ? 2 : 0, B = Bgr ? 0 : 2;
        return fwd420_pairs<F, SS, R, 1, B>(Bgr ? s0.b : s0.r, Bgr ? s1.b : s1.r, o, x0, w);
    }
    const V K = c32(F::yk);
    const V zip = mask(o.cr < o.cb ? kM.zip_swap : kM.zip);
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        V R0, G0, B0, R1, G1, B1;
        load32<Bgr, SS>(s0, x, R0, G0, B0);
        load32<Bgr, SS>(s1, x, R1, G1, B1);
        st32(o.y0 + x, luma32<F>(R0, G0, B0, K));
        st32(o.y1 + x, luma32<F>(R1, G1, B1, K));
        const V C = chroma_bytes<F, 2>(
            _mm256_add_epi16(lo16(R0), lo16(R1)), _mm256_add_epi16(lo16(G0), lo16(G1)), _mm256_add_epi16(lo16(B0), lo16(B1)),
            _mm256_add_epi16(hi16(R0), hi16(R1)), _mm256_add_epi16(hi16(G0), hi16(G1)), _mm256_add_epi16(hi16(B0), hi16(B1)));
        if (o.cs == 1) store_planar(o.cb + x / 2, o.cr + x / 2, C);
        else st32((o.cr < o.cb ? o.cr : o.cb) + x, _mm256_shuffle_epi8(C, zip));
    }
    return int(x);
}

// D: 0..2 packed in the byte order of Order, 3 planes.
template <class F, bool Bgr, int SS, int D>
int fwd422_blocks(const RgbIn& in, const Ycc422& o, int x0, int w) {
    const V K = _mm256_set_epi32(F::yk2, F::yk, F::yk2, F::yk, F::yk2, F::yk, F::yk2, F::yk);
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        V R, G, B;
        load32<Bgr, SS>(in, x, R, G, B);
        const V Y = luma32<F>(R, G, B, K);
        const V C = chroma_bytes<F, 1>(lo16(R), lo16(G), lo16(B), hi16(R), hi16(G), hi16(B));
        if constexpr (D == 3) {
            st32(o.y + x, Y);
            store_planar(o.cb + x / 2, o.cr + x / 2, C);
        } else {
            // Chroma pairs in stored order, then merged with luma.
            const V P = _mm256_shuffle_epi8(C, mask(D == int(Order::YCrCb) ? kM.zip_swap : kM.zip));
            const bool cfirst = D == int(Order::CbYCr);
            const V a = cfirst ? _mm256_unpacklo_epi8(P, Y) : _mm256_unpacklo_epi8(Y, P);
            const V b = cfirst ? _mm256_unpackhi_epi8(P, Y) : _mm256_unpackhi_epi8(Y, P);
            uint8_t* p = (cfirst ? o.cb : o.y) + 2 * x;
            st32(p, lows(a, b));
            st32(p + 32, highs(a, b));
        }
    }
    return int(x);
}

// ---------------------------------------------------------------- inverse

namespace {

// R, G, B (16-bit, before the clamp) of 16 pixels; the same arithmetic as
// InvCore in ycbcr_sse2.h, which explains the split weights.
template <class I>
struct InvCore;

template <int KR, int KG, int KB>
struct InvCore<Inv601<KR, KG, KB>> {
    static void run(V Y, V Cb, V Cr, V& R, V& G, V& B) {
        const V ycl = _mm256_unpacklo_epi16(Y, Cr), ych = _mm256_unpackhi_epi16(Y, Cr);
        const V cyl = _mm256_unpacklo_epi16(Cb, Y), cyh = _mm256_unpackhi_epi16(Cb, Y);
        const V wr = pair16(10748, -26477), wg1 = pair16(10748, 12255), wg2 = pair16(-25690, 0), wb = pair16(1114, 10748);
        const auto fin = [](V l, V h, int k) {
            const V kk = c32(k);
            return _mm256_packs_epi32(_mm256_srai_epi32(_mm256_add_epi32(l, kk), 16),
                                      _mm256_srai_epi32(_mm256_add_epi32(h, kk), 16));
        };
        R = _mm256_add_epi16(fin(_mm256_madd_epi16(ycl, wr), _mm256_madd_epi16(ych, wr), KR),
                             _mm256_add_epi16(Y, _mm256_add_epi16(Cr, Cr)));
        G = _mm256_add_epi16(fin(_mm256_add_epi32(_mm256_madd_epi16(ycl, wg1), _mm256_madd_epi16(cyl, wg2)),
                                 _mm256_add_epi32(_mm256_madd_epi16(ych, wg1), _mm256_madd_epi16(cyh, wg2)), KG),
                             _mm256_sub_epi16(Y, Cr));
        B = _mm256_add_epi16(fin(_mm256_madd_epi16(cyl, wb), _mm256_madd_epi16(cyh, wb), KB),
                             _mm256_add_epi16(Y, _mm256_add_epi16(Cb, Cb)));
    }
};

template <int CY, int YOFF, int CRR, int CBG, int CRG, int CBB>
struct InvCore<Inv709<CY, YOFF, CRR, CBG, CRG, CBB>> {
    static void run(V Y, V Cb, V Cr, V& R, V& G, V& B) {
        const V yt = CY ? _mm256_mulhi_epi16(_mm256_slli_epi16(_mm256_sub_epi16(Y, c16(YOFF)), 3), c16(CY)) : Y;
        const V cb = _mm256_slli_epi16(_mm256_sub_epi16(Cb, c16(128)), 3);
        const V cr = _mm256_slli_epi16(_mm256_sub_epi16(Cr, c16(128)), 3);
        R = _mm256_add_epi16(yt, _mm256_mulhi_epi16(cr, c16(CRR)));
        G = _mm256_add_epi16(_mm256_add_epi16(yt, _mm256_mulhi_epi16(cb, c16(CBG))), _mm256_mulhi_epi16(cr, c16(CRG)));
        B = _mm256_add_epi16(yt, _mm256_mulhi_epi16(cb, c16(CBB)));
    }
};

// 32 pixels from Y in 16-bit lanes (pixels 0-7 and 16-23 in Y0, 8-15 and
// 24-31 in Y1) and the matching Cb and Cr.
template <class I, bool Bgr, int DS>
inline void inv32(const RgbOut& o, ptrdiff_t x, V Y0, V Cb0, V Cr0, V Y1, V Cb1, V Cr1) {
    V R0, G0, B0, R1, G1, B1;
    InvCore<I>::run(Y0, Cb0, Cr0, R0, G0, B0);
    InvCore<I>::run(Y1, Cb1, Cr1, R1, G1, B1);
    if constexpr (DS == 4)
        store32_words<Bgr>((Bgr ? o.b : o.r) + x * 4, R0, G0, B0, R1, G1, B1);
    else
        store32<Bgr, DS>(o, x, _mm256_packus_epi16(R0, R1), _mm256_packus_epi16(G0, G1), _mm256_packus_epi16(B0, B1));
}

}  // namespace

template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    const bool cr_first = in.cr < in.cb;
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        V cb, cr;  // 16 chroma pairs in 16-bit lanes, 0-7 low, 8-15 high
        if (in.cs == 2) {
            const V v = ld32((cr_first ? in.cr : in.cb) + x);
            const V a = _mm256_and_si256(v, c16(0xFF)), b = _mm256_srli_epi16(v, 8);
            cb = cr_first ? b : a;
            cr = cr_first ? a : b;
        } else {
            cb = _mm256_cvtepu8_epi16(ld16(in.cb + x / 2));
            cr = _mm256_cvtepu8_epi16(ld16(in.cr + x / 2));
        }
        if constexpr (SplitX<Ops256, I>::on) {  // the chroma part once per sample, for four pixels
            using S = typename SplitX<Ops256, I>::type;
            const typename S::Terms c = S::terms(cb, cr), lo = S::dup(c, false), hi = S::dup(c, true);
            for (int r = 0; r < 2; ++r) {
                const V y = ld32((r ? in.y1 : in.y0) + x);
                const RgbOut& o = r ? o1 : o0;
                if constexpr (DS == 4) {
                    V R0, G0, B0, R1, G1, B1;
                    S::apply(lo16(y), lo, R0, G0, B0);
                    S::apply(hi16(y), hi, R1, G1, B1);
                    store32_words<Bgr>((Bgr ? o.b : o.r) + x * 4, R0, G0, B0, R1, G1, B1);
                } else {
                    V R, G, B;
                    S::rgb(y, lo, hi, R, G, B);
                    store32<Bgr, DS>(o, x, R, G, B);
                }
            }
            continue;
        }
        const V cbl = _mm256_unpacklo_epi16(cb, cb), cbh = _mm256_unpackhi_epi16(cb, cb);
        const V crl = _mm256_unpacklo_epi16(cr, cr), crh = _mm256_unpackhi_epi16(cr, cr);
        const V y0 = ld32(in.y0 + x), y1 = ld32(in.y1 + x);
        inv32<I, Bgr, DS>(o0, x, lo16(y0), cbl, crl, hi16(y0), cbh, crh);
        inv32<I, Bgr, DS>(o1, x, lo16(y1), cbl, crl, hi16(y1), cbh, crh);
    }
    return int(x);
}

// 4:2:2 planes: one row of the 4:2:0 planar block.
template <class I, bool Bgr, int DS>
int inv422p_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        const V cb = _mm256_cvtepu8_epi16(ld16(in.cb + x / 2)), cr = _mm256_cvtepu8_epi16(ld16(in.cr + x / 2));
        const V y = ld32(in.y + x);
        inv32<I, Bgr, DS>(o, x, lo16(y), _mm256_unpacklo_epi16(cb, cb), _mm256_unpacklo_epi16(cr, cr), hi16(y),
                          _mm256_unpackhi_epi16(cb, cb), _mm256_unpackhi_epi16(cr, cr));
    }
    return int(x);
}

template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    const uint8_t* p = in.y - (O == Order::CbYCr ? 1 : 0);
    ptrdiff_t x = x0;
    for (; x + 32 <= w; x += 32) {
        V Y[2], Cb[2], Cr[2];
        for (int h = 0; h < 2; ++h) {  // pixels 0-7 and 16-23, then 8-15 and 24-31
            const uint8_t* q = p + 2 * x + 16 * h;
            const V v = ld2(q, q + 32);
            const V c = O == Order::CbYCr ? _mm256_and_si256(v, c16(0xFF)) : _mm256_srli_epi16(v, 8);
            Y[h] = O == Order::CbYCr ? _mm256_srli_epi16(v, 8) : _mm256_and_si256(v, c16(0xFF));
            const V first = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(c, 0xA0), 0xA0);
            const V second = _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(c, 0xF5), 0xF5);
            Cb[h] = O == Order::YCrCb ? second : first;
            Cr[h] = O == Order::YCrCb ? first : second;
        }
        inv32<I, Bgr, DS>(o, x, Y[0], Cb[0], Cr[0], Y[1], Cb[1], Cr[1]);
    }
    return int(x);
}

// ---- the forms the drivers use ------------------------------------------------

template int fwd420_blocks<Fwd601, false, 3>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd601, false, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd601, true, 3>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd601, true, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd709Csc, true, 3>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd709Csc, true, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
template int fwd420_blocks<Fwd709Hdtv, true, 4>(const RgbIn&, const RgbIn&, const Ycc420&, int, int);

template int fwd422_blocks<Fwd601, false, 1, 0>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, false, 1, 1>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, false, 3, 0>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, false, 3, 1>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, false, 3, 2>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, false, 3, 3>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, true, 3, 0>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, true, 3, 3>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, true, 4, 0>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, true, 4, 2>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd601, true, 4, 3>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd709Hdtv, true, 3, 2>(const RgbIn&, const Ycc422&, int, int);
template int fwd422_blocks<Fwd709Hdtv, true, 4, 2>(const RgbIn&, const Ycc422&, int, int);

template int inv420_blocks<Inv601Sub, false, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, false, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv709Csc, true, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv709Hdtv, true, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);

template int inv422_blocks<Inv601Sub, Order::YCbCr, false, 1>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, false, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, true, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCbCr, true, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, false, 1>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, false, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, true, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::YCrCb, true, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::CbYCr, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv601Sub, Order::CbYCr, true, 4>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv709Hdtv, Order::CbYCr, true, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422_blocks<Inv709Hdtv, Order::CbYCr, true, 4>(const Ycc422In&, const RgbOut&, int, int);

template int inv422p_blocks<Inv601Sub, false, 3>(const Ycc422In&, const RgbOut&, int, int);
template int inv422p_blocks<Inv601Sub, true, 3>(const Ycc422In&, const RgbOut&, int, int);

}  // namespace nmq::ycc::avx2
