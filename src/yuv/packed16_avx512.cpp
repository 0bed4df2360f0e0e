// AVX-512 (F, BW, VL) form of the YCbCr 4:2:0 packed 16-bit outputs: 64
// pixels of each row of the pair per step, the words of inv420_rows<Inv601Sub>
// packed by pack_row, as in packed16_avx2.cpp.
//
// The colour step is InvSplit601x on 512-bit vectors and leaves R, G and B as
// bytes in pixel order. The fields are formed on 16-bit lanes taken from those
// bytes without a shuffle: the even pixels as the low byte moved up, the odd
// ones as the high byte masked, each lane holding the channel value c as
// c * 256 (the form the quotient by one high multiply wants). Even and odd
// words are then merged back in pixel order by one two-source word permute
// per 32 pixels, where the unpack form would take two unpacks per channel and
// a lane permute per store.
//
// The row tail is one more block with masked loads and stores (the arithmetic
// is the same at every column and the dither thresholds come by column), so
// the kernel ends each row pair itself; no other kernel is called from here.
#include "frame/avx512.h"

#include "yuv/packed16_kernels.h"
#include "yuv/ycbcr_avx2_split.h"

namespace nmq::p16::avx512 {
namespace {

using Z = __m512i;
using M = __mmask64;

#define NMQ_INLINE inline __attribute__((always_inline))

NMQ_INLINE Z c16(int v) { return _mm512_set1_epi16(int16_t(v)); }

// The first k bits (0 <= k <= 64).
NMQ_INLINE M first(ptrdiff_t k) { return k >= 64 ? ~M(0) : (M(1) << k) - 1; }

// Thresholds of the 32 even (Odd false) or odd pixels of a block starting at
// column x0: lane i is pixel x0 + 2i (+ 1). Blocks start 64 columns apart,
// so one vector serves the row.
// The matrix has period 4, so the lanes alternate between two values: one
// broadcast pair, no table built per call (small images make many calls).
template <int Bits>
Z thresholds(int x0, int y, bool odd) {
    const int c = x0 + (odd ? 1 : 0);
    const uint16_t a = uint16_t(Levels<Bits>::T[y & 3][c & 3]), b = uint16_t(Levels<Bits>::T[y & 3][(c + 2) & 3]);
    return _mm512_set1_epi32(int32_t(uint32_t(a) | uint32_t(b) << 16));
}

// The multipliers of the dither. F is kept opaque to the compiler, which
// would otherwise turn a product by 1036 into a longer chain of shifts and
// adds.
template <int Bits>
struct Mul {
    Z l, f;
    Mul() : l(c16(Levels<Bits>::L)), f(c16(Levels<Bits>::F)) { __asm__("" : "+v"(f)); }
};

// The dither thresholds of one row: even and odd pixels, outer and middle
// fields (zero and unused without dither).
template <Pk P>
struct RowT {
    using Lo = Layout<P>;
    Z oe, oo, me, mo;
    RowT(int x0, int y, bool dither)
        : oe(dither ? thresholds<Lo::outer>(x0, y, false) : _mm512_setzero_si512()),
          oo(dither ? thresholds<Lo::outer>(x0, y, true) : _mm512_setzero_si512()),
          me(dither ? thresholds<Lo::mid>(x0, y, false) : _mm512_setzero_si512()),
          mo(dither ? thresholds<Lo::mid>(x0, y, true) : _mm512_setzero_si512()) {}
};

// A channel of the even (Odd false) or odd pixels as c * 256 from the bytes
// of 64 pixels.
template <bool Odd>
NMQ_INLINE Z scaled(Z bytes) {
    return Odd ? _mm512_and_si512(bytes, c16(0xFF00)) : _mm512_slli_epi16(bytes, 8);
}

// Ordered dither: the level q = (c * L) >> 8 is the high half of c * 256 * L;
// *up is set where the remainder c * 256 - q * F (0..4352, formed modulo
// 2^16) exceeds the threshold, that is where the field is q + 1.
template <int Bits>
NMQ_INLINE Z level(Z c8, Z t, const Mul<Bits>& m, __mmask32* up) {
    const Z q = _mm512_mulhi_epu16(c8, m.l);
    *up = _mm512_cmpgt_epi16_mask(_mm512_sub_epi16(c8, _mm512_mullo_epi16(q, m.f)), t);
    return q;
}

// The words of the even or odd pixels of 64 from the bytes of their fields'
// channels (lo: the lowest field, hi: the highest).
template <Pk P, Dz D, bool Odd>
NMQ_INLINE Z words(Z lo, Z g, Z hi, Z to, Z tm, const Mul<Layout<P>::outer>& mo, const Mul<Layout<P>::mid>& mm) {
    using Lo = Layout<P>;
    constexpr int kOr3 = 0xFE;  // a | b | c
    if constexpr (D == Dz::Off) {
        // c >> (8 - n) of each field, shifted to its place.
        const auto field = [](Z v, int bits) {
            return Odd ? _mm512_srli_epi16(v, 16 - bits) : _mm512_and_si512(_mm512_srli_epi16(v, 8 - bits), c16((1 << bits) - 1));
        };
        return _mm512_ternarylogic_epi32(field(lo, Lo::outer), _mm512_slli_epi16(field(g, Lo::mid), Lo::mid_shift),
                                         _mm512_slli_epi16(field(hi, Lo::outer), Lo::high_shift), kOr3);
    } else {
        __mmask32 ul, ug, uh;
        const Z ql = level<Lo::outer>(scaled<Odd>(lo), to, mo, &ul);
        const Z qg = level<Lo::mid>(scaled<Odd>(g), tm, mm, &ug);
        const Z qh = level<Lo::outer>(scaled<Odd>(hi), to, mo, &uh);
        Z w = _mm512_ternarylogic_epi32(ql, _mm512_slli_epi16(qg, Lo::mid_shift), _mm512_slli_epi16(qh, Lo::high_shift), kOr3);
        // q + 1 never carries out of its field (q < L where it rounds up).
        w = _mm512_mask_add_epi16(w, ul, w, c16(1));
        w = _mm512_mask_add_epi16(w, ug, w, c16(1 << Lo::mid_shift));
        return _mm512_mask_add_epi16(w, uh, w, c16(1 << Lo::high_shift));
    }
}

// Word permutes that interleave the even and odd words of 64 pixels: pixels
// 0-31 and 32-63.
struct MergeIdx {
    alignas(64) int16_t i0[32], i1[32];
    constexpr MergeIdx() : i0(), i1() {
        for (int j = 0; j < 32; ++j) {
            i0[j] = int16_t((j & 1) * 32 + j / 2);
            i1[j] = int16_t(i0[j] + 16);
        }
    }
};
constexpr MergeIdx kMergeIdx{};
struct Merge {
    Z a = _mm512_load_si512(kMergeIdx.i0), b = _mm512_load_si512(kMergeIdx.i1);
};

template <class S>
struct Blocks {
    using T = typename S::Terms;

    // One row of a block; n < 64 is a tail of n pixels (even), masked.
    template <Pk P, Dz D, bool Bgr, bool Tail>
    static NMQ_INLINE void row(const uint8_t* y, uint16_t* o, ptrdiff_t n, const T& lo, const T& hi, const RowT<P>& t,
                               const Mul<Layout<P>::outer>& mo, const Mul<Layout<P>::mid>& mm, const Merge& mg) {
        Z R, G, B;
        S::rgb(Tail ? _mm512_maskz_loadu_epi8(first(n), y) : _mm512_loadu_si512(y), lo, hi, R, G, B);
        const Z l = Bgr ? B : R, h = Bgr ? R : B;
        const Z e = words<P, D, false>(l, G, h, t.oe, t.me, mo, mm);
        const Z d = words<P, D, true>(l, G, h, t.oo, t.mo, mo, mm);
        const Z w0 = _mm512_permutex2var_epi16(e, mg.a, d), w1 = _mm512_permutex2var_epi16(e, mg.b, d);
        if (Tail) {
            _mm512_mask_storeu_epi16(o, __mmask32(first(n < 32 ? n : 32)), w0);
            if (n > 32) _mm512_mask_storeu_epi16(o + 32, __mmask32(first(n - 32)), w1);
        } else {
            _mm512_storeu_si512(o, w0);
            _mm512_storeu_si512(o + 32, w1);
        }
    }

    // The terms of 32 chroma samples in order (each 128-bit lane: samples
    // 0-3 for its low eight pixels, 4-7 for the high eight).
    template <bool Tail>
    static NMQ_INLINE void terms(const uint8_t* cb, const uint8_t* cr, ptrdiff_t n, T& lo, T& hi) {
        const __mmask32 k = __mmask32(first(n / 2));
        const __m256i b = Tail ? _mm256_maskz_loadu_epi8(k, cb) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(cb));
        const __m256i r = Tail ? _mm256_maskz_loadu_epi8(k, cr) : _mm256_loadu_si256(reinterpret_cast<const __m256i*>(cr));
        const T c = S::terms(_mm512_cvtepu8_epi16(b), _mm512_cvtepu8_epi16(r));
        lo = S::dup(c, false);
        hi = S::dup(c, true);
    }

    template <Pk P, Dz D, bool Bgr>
    static int run(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y) {
        const Mul<Layout<P>::outer> mo;
        const Mul<Layout<P>::mid> mm;
        const Merge mg;
        const RowT<P> t0(x0, y, D == Dz::Ordered), t1(x0, y + 1, D == Dz::Ordered);
        T lo, hi;
        ptrdiff_t x = x0;
        for (; x + 64 <= w; x += 64) {
            terms<false>(in.cb + x / 2, in.cr + x / 2, 64, lo, hi);
            row<P, D, Bgr, false>(in.y0 + x, o0 + x, 64, lo, hi, t0, mo, mm, mg);
            row<P, D, Bgr, false>(in.y1 + x, o1 + x, 64, lo, hi, t1, mo, mm, mg);
        }
        if (const ptrdiff_t n = w - x; n > 0) {
            terms<true>(in.cb + x / 2, in.cr + x / 2, n, lo, hi);
            row<P, D, Bgr, true>(in.y0 + x, o0 + x, n, lo, hi, t0, mo, mm, mg);
            row<P, D, Bgr, true>(in.y1 + x, o1 + x, n, lo, hi, t1, mo, mm, mg);
        }
        return w;
    }
};

#undef NMQ_INLINE

}  // namespace

template <Pk P, Dz D>
int ycc420_blocks(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y, bool bgr) {
    using B = Blocks<ycc::avx2::SplitX<ycc::avx2::Ops512, ycc::Inv601Sub>::type>;
    if (in.cs != 1 || (w - x0) & 1) return x0;  // chroma planes and whole pairs only
    return bgr ? B::run<P, D, true>(in, o0, o1, x0, w, y) : B::run<P, D, false>(in, o0, o1, x0, w, y);
}

#define NMQ_P16_420(P)                                                                                        \
    template int ycc420_blocks<P, Dz::Off>(const ycc::Ycc420In&, uint16_t*, uint16_t*, int, int, int, bool); \
    template int ycc420_blocks<P, Dz::Ordered>(const ycc::Ycc420In&, uint16_t*, uint16_t*, int, int, int, bool);
NMQ_P16_420(Pk::P565)
NMQ_P16_420(Pk::P555)
NMQ_P16_420(Pk::P444)
#undef NMQ_P16_420

}  // namespace nmq::p16::avx512
