// Per-pixel arithmetic and the scalar row kernels of the YCbCr family (BT.601,
// BT.709 studio range "709CSC" and BT.709 HDTV). The scalar kernels define the
// bits; the SSE2 kernels in ycbcr_sse2.cpp give the same bytes. Other families
// that need these formulas (the packed 16-bit outputs) include this header.
//
// Kernels work on one row (two rows for 4:2:0) from pixel x0 (even, or a
// multiple of 4 for 4:1:1) to pixel w; x0 lets a vector kernel finish its row
// here while rules that depend on the whole row (the one-pixel-wide 4:2:2 row)
// still see the real width.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/gamma_tables.h"
#include "frame/saturate.h"

namespace nmq::ycc {

// ============================================================================
// RGB -> YCbCr matrices.
//
// Luma: (yr*R + yg*G + yb*B + yk) >> S, where yk2 replaces yk for the second
// pixel of a 4:2:2 pair. Chroma of a cell of 2^n pixels with channel sums
// SR, SG, SB: (w . (SR, SG, SB) + ck * 2^n) >> (S + n), i.e. 128 plus the
// rounded mean, where ck carries the offset and the rounding. A cell cut by
// the right edge repeats its last pixel, so a lone pixel gets exactly the
// full-sampled chroma and a pair inside a 4:1:1 group exactly the pair mean.
// ============================================================================

// BT.601 studio range, scale 2^16. The second pixel of a 4:2:2 pair is not
// rounded (yk2 has no half): these bits are part of the interface.
struct Fwd601 {
    static constexpr int S = 16;
    static constexpr int yr = 16843, yg = 33030, yb = 6423;
    static constexpr int yk = 1081344, yk2 = 1048576;  // 16.5 and 16.0 * 2^16
    static constexpr int br = -9699, bg = -19071, bb = 28770;
    static constexpr int rr = 28770, rg = -24117, rb = -4653;
    static constexpr int ck = -8355840;  // -127.5 * 2^16: the low byte is 128 + rounded value
    static constexpr bool clamp = false;  // chroma stays within 16..240, the low byte is the value
};

// BT.601 at scale 2^15 for the gamma-corrected CbYCr output: the 2^16 weights
// halved, the halves resolved so that each chroma row sums to zero (grey stays
// at 128); same pair rule as Fwd601.
struct FwdGamma601 {
    static constexpr int S = 15;
    static constexpr int yr = 8421, yg = 16515, yb = 3211;
    static constexpr int yk = 540672, yk2 = 524288;  // 16.5 and 16.0 * 2^15
    static constexpr int br = -4850, bg = -9535, bb = 14385;
    static constexpr int rr = 14385, rg = -12059, rb = -2326;
    static constexpr int ck = -4177920;  // -127.5 * 2^15
    static constexpr bool clamp = false;
};

// BT.709 studio range ("709CSC"), scale 2^16. Chroma is rounded with a bias of
// one eighth (127.875 * 2^16), not one half.
struct Fwd709Csc {
    static constexpr int S = 16;
    static constexpr int yr = 11993, yg = 40239, yb = 4063;
    static constexpr int yk = 1081344, yk2 = 1081344;
    static constexpr int br = -6619, bg = -22151, bb = 28770;
    static constexpr int rr = 28770, rg = -26149, rb = -2621;
    static constexpr int ck = -8380416;  // -127.875 * 2^16
    static constexpr bool clamp = false;
};

// BT.709 HDTV, scale 2^15. The RGB input is studio-range video (16..235): the
// luma weights sum to one, so luma needs no offset (16 stays 16, 235 stays
// 235), and chroma is 128 + the rounded difference, clamped for inputs outside
// the studio range. Every luma is rounded.
struct Fwd709Hdtv {
    static constexpr int S = 15;
    static constexpr int yr = 6980, yg = 23429, yb = 2359;
    static constexpr int yk = 16384, yk2 = 16384;
    static constexpr int br = -3834, bg = -12911, bb = 16744;
    static constexpr int rr = 16744, rg = -15204, rb = -1540;
    static constexpr int ck = 4210688;  // 128.5 * 2^15
    static constexpr bool clamp = true;
};

template <class F>
inline uint8_t luma(int r, int g, int b, int k = F::yk) {
    return uint8_t((F::yr * r + F::yg * g + F::yb * b + k) >> F::S);
}

template <class F, int N>
inline uint8_t chroma(int wr, int wg, int wb, int sr, int sg, int sb) {
    const int v = (wr * sr + wg * sg + wb * sb + F::ck * (1 << N)) >> (F::S + N);
    return F::clamp ? sat_u8(v) : uint8_t(v);
}
template <class F, int N>
inline uint8_t cb_of(int sr, int sg, int sb) { return chroma<F, N>(F::br, F::bg, F::bb, sr, sg, sb); }
template <class F, int N>
inline uint8_t cr_of(int sr, int sg, int sb) { return chroma<F, N>(F::rr, F::rg, F::rb, sr, sg, sb); }

// ============================================================================
// YCbCr -> RGB. Each policy maps (Y, Cb, Cr) bytes to clamped R, G, B.
// ============================================================================

struct Rgb8 {
    uint8_t r, g, b;
};

// BT.601, scale 2^16, truncating, clamped through the saturation table:
// (76284*Y + 104595*Cr + KR) >> 16 and so on, with Cb and Cr as stored bytes.
// Full-sampled sources use KR, KG, KB = -(104595*128 + 16*76284), ...; the
// subsampled sources (4:2:2, 4:2:0, 4:1:1) share the constants of the
// interleaved 4:2:2 kernel, which differ from those by a few units.
template <int KR, int KG, int KB>
struct Inv601 {
    static constexpr int kr = KR, kg = KG, kb = KB;
    static Rgb8 px(int Y, int Cb, int Cr) {
        const int y = 76284 * Y;
        return {chop((y + 104595 * Cr + KR) >> 16), chop((y - 25690 * Cb - 53281 * Cr + KG) >> 16),
                chop((y + 132186 * Cb + KB) >> 16)};
    }
};
using Inv601Full = Inv601<-14608704, 8887744, -18140352>;
using Inv601Sub = Inv601<-14608761, 8887730, -18140365>;

// BT.709 inverses at scale 2^13 in 16-bit lanes: each term is
// floor(8*d*c / 2^16) = floor(d*c / 2^13) of its own, then the terms are added
// and clamped. 709CSC scales luma by 1.164 (9535), like the BT.601 inverse, so
// 235 gives 254; 709HDTV keeps studio-range luma as it is and scales chroma
// back by 219/224 (the inverse of the forward chroma gain).
template <int CY, int YOFF, int CRR, int CBG, int CRG, int CBB>
struct Inv709 {
    static constexpr int cy = CY, yoff = YOFF, crr = CRR, cbg = CBG, crg = CRG, cbb = CBB;
    static Rgb8 px(int Y, int Cb, int Cr) {
        const int yt = CY ? ((Y - YOFF) * 8 * CY) >> 16 : Y;
        const int cb = (Cb - 128) * 8, cr = (Cr - 128) * 8;
        return {chop(yt + ((cr * CRR) >> 16)), chop(yt + ((cb * CBG) >> 16) + ((cr * CRG) >> 16)),
                chop(yt + ((cb * CBB) >> 16))};
    }
};
using Inv709Csc = Inv709<9535, 16, 14688, -1745, -4375, 17326>;
using Inv709Hdtv = Inv709<0, 0, 12613, -1500, -3749, 14862>;

// ============================================================================
// Row views. Pixel x of a pixel-interleaved or planar row is at p[x * s].
// ============================================================================

// An RGB source row: R, G, B of pixel x at r[x*s], g[x*s], b[x*s].
struct RgbIn {
    const uint8_t *r, *g, *b;
    int s;
    void operator()(ptrdiff_t x, int& R, int& G, int& B) const {
        R = r[x * s]; G = g[x * s]; B = b[x * s];
    }
};
inline RgbIn rgb_in(const uint8_t* p, bool bgr, int s) {
    return bgr ? RgbIn{p + 2, p + 1, p, s} : RgbIn{p, p + 1, p + 2, s};
}

// The same row with every byte through the 8-bit forward transfer curve.
struct GammaIn {
    RgbIn in;
    void operator()(ptrdiff_t x, int& R, int& G, int& B) const {
        in(x, R, G, B);
        R = kGammaFwd8u[R]; G = kGammaFwd8u[G]; B = kGammaFwd8u[B];
    }
};

// Packed 16-bit BGR rows (B in the low bits). Fields widen to 8 bits by bit
// replication, so a full field gives 255 and an empty one 0.
struct Bgr565In {
    const uint16_t* p;
    void operator()(ptrdiff_t x, int& R, int& G, int& B) const {
        const int v = p[x], b = v & 31, g = (v >> 5) & 63, r = v >> 11;
        R = (r << 3) | (r >> 2); G = (g << 2) | (g >> 4); B = (b << 3) | (b >> 2);
    }
};
struct Bgr555In {
    const uint16_t* p;
    void operator()(ptrdiff_t x, int& R, int& G, int& B) const {
        const int v = p[x], b = v & 31, g = (v >> 5) & 31, r = (v >> 10) & 31;
        R = (r << 3) | (r >> 2); G = (g << 3) | (g >> 2); B = (b << 3) | (b >> 2);
    }
};

// An RGB destination row; a null `a` leaves alpha alone, otherwise 0xFF is
// written there.
struct RgbOut {
    uint8_t *r, *g, *b, *a;
    int s;
    void put(ptrdiff_t x, Rgb8 c) const {
        r[x * s] = c.r; g[x * s] = c.g; b[x * s] = c.b;
        if (a) a[x * s] = 0xFF;
    }
};
// s = 3 (C3), 4 with alpha kept (AC4) or written (C4), 1 for planes.
inline RgbOut rgb_out(uint8_t* p, bool bgr, int s, bool write_alpha) {
    uint8_t* a = write_alpha ? p + 3 : nullptr;
    return bgr ? RgbOut{p + 2, p + 1, p, a, s} : RgbOut{p, p + 1, p + 2, a, s};
}

// Full-sampled YCbCr, interleaved (s = 3 or 4) or planar (s = 1).
struct Ycc444 {
    uint8_t *y, *cb, *cr;
    int s;
};
struct Ycc444In {
    const uint8_t *y, *cb, *cr;
    int s;
};

// Which chroma samples the lone last pixel of an odd 4:2:2 row has in its
// group: planes have both; packed rows only the one stored next to its Y.
enum Lone : int { kLoneCb = 1, kLoneCr = 2, kLoneBoth = 3 };

// 4:2:2: Y of pixel x at y[x*ys], chroma of pair k at cb[k*cs], cr[k*cs].
struct Ycc422 {
    uint8_t* y;
    int ys;
    uint8_t *cb, *cr;
    int cs;
    Lone lone;
};
struct Ycc422In {
    const uint8_t* y;
    int ys;
    const uint8_t *cb, *cr;
    int cs;
    Lone lone;
};
// Packed 4:2:2 byte orders.
enum class Order { YCbCr, YCrCb, CbYCr };
inline Ycc422 ycc422_packed(uint8_t* p, Order o) {
    switch (o) {
        case Order::YCbCr: return {p, 2, p + 1, p + 3, 4, kLoneCb};
        case Order::YCrCb: return {p, 2, p + 3, p + 1, 4, kLoneCr};
        default: return {p + 1, 2, p, p + 2, 4, kLoneCb};
    }
}
inline Ycc422In ycc422_packed_in(const uint8_t* p, Order o) {
    const Ycc422 v = ycc422_packed(const_cast<uint8_t*>(p), o);
    return {v.y, v.ys, v.cb, v.cr, v.cs, v.lone};
}

// 4:2:0: two luma rows and one chroma row; chroma of pair k at cb[k*cs]
// (cs = 1 for planes, 2 for an interleaved chroma plane).
struct Ycc420 {
    uint8_t *y0, *y1, *cb, *cr;
    int cs;
};
struct Ycc420In {
    const uint8_t *y0, *y1, *cb, *cr;
    int cs;
};

// 4:1:1 planes: chroma of group k (pixels 4k..4k+3) at cb[k], cr[k].
struct Ycc411 {
    uint8_t *y, *cb, *cr;
};
struct Ycc411In {
    const uint8_t *y, *cb, *cr;
};

// ============================================================================
// Scalar row kernels: RGB -> YCbCr.
// ============================================================================

template <class F, class Src>
void fwd444_row(const Src& src, const Ycc444& o, int x0, int w) {
    for (ptrdiff_t x = x0; x < w; ++x) {
        int r, g, b;
        src(x, r, g, b);
        o.y[x * o.s] = luma<F>(r, g, b);
        o.cb[x * o.s] = cb_of<F, 0>(r, g, b);
        o.cr[x * o.s] = cr_of<F, 0>(r, g, b);
    }
}

// Pairs share the rounded mean of their chroma; the first Y is rounded with
// yk, the second with yk2. An odd last pixel is a full-sampled pixel whose
// chroma is written where its group has room for it.
template <class F, class Src>
void fwd422_row(const Src& src, const Ycc422& o, int x0, int w) {
    ptrdiff_t x = x0;
    for (; x + 1 < w; x += 2) {
        int r0, g0, b0, r1, g1, b1;
        src(x, r0, g0, b0);
        src(x + 1, r1, g1, b1);
        o.y[x * o.ys] = luma<F>(r0, g0, b0, F::yk);
        o.y[(x + 1) * o.ys] = luma<F>(r1, g1, b1, F::yk2);
        const ptrdiff_t k = (x >> 1) * o.cs;
        o.cb[k] = cb_of<F, 1>(r0 + r1, g0 + g1, b0 + b1);
        o.cr[k] = cr_of<F, 1>(r0 + r1, g0 + g1, b0 + b1);
    }
    if (x < w) {
        int r, g, b;
        src(x, r, g, b);
        o.y[x * o.ys] = luma<F>(r, g, b);
        const ptrdiff_t k = (x >> 1) * o.cs;
        if (o.lone & kLoneCb) o.cb[k] = cb_of<F, 0>(r, g, b);
        if (o.lone & kLoneCr) o.cr[k] = cr_of<F, 0>(r, g, b);
    }
}

// 2x2 blocks over an even width: every Y rounded, chroma the rounded block mean.
template <class F, class Src>
void fwd420_rows(const Src& s0, const Src& s1, const Ycc420& o, int x0, int w) {
    for (ptrdiff_t x = x0; x + 1 < w; x += 2) {
        int r[4], g[4], b[4];
        s0(x, r[0], g[0], b[0]);
        s0(x + 1, r[1], g[1], b[1]);
        s1(x, r[2], g[2], b[2]);
        s1(x + 1, r[3], g[3], b[3]);
        o.y0[x] = luma<F>(r[0], g[0], b[0]);
        o.y0[x + 1] = luma<F>(r[1], g[1], b[1]);
        o.y1[x] = luma<F>(r[2], g[2], b[2]);
        o.y1[x + 1] = luma<F>(r[3], g[3], b[3]);
        const int sr = r[0] + r[1] + r[2] + r[3], sg = g[0] + g[1] + g[2] + g[3], sb = b[0] + b[1] + b[2] + b[3];
        const ptrdiff_t k = (x >> 1) * o.cs;
        o.cb[k] = cb_of<F, 2>(sr, sg, sb);
        o.cr[k] = cr_of<F, 2>(sr, sg, sb);
    }
}

// Groups of four; a short last group repeats its last pixel (see above).
template <class F, class Src>
void fwd411_row(const Src& src, const Ycc411& o, int x0, int w) {
    for (ptrdiff_t x = x0; x < w; x += 4) {
        int sr = 0, sg = 0, sb = 0, r = 0, g = 0, b = 0;
        for (int i = 0; i < 4; ++i) {
            if (x + i < w) {
                src(x + i, r, g, b);
                o.y[x + i] = luma<F>(r, g, b);
            }
            sr += r; sg += g; sb += b;
        }
        o.cb[x >> 2] = cb_of<F, 2>(sr, sg, sb);
        o.cr[x >> 2] = cr_of<F, 2>(sr, sg, sb);
    }
}

// ============================================================================
// Scalar row kernels: YCbCr -> RGB. Subsampled chroma covers its whole cell
// unchanged (2x1, 2x2 or 4x1 pixels); there is no interpolation.
// ============================================================================

template <class I>
void inv444_row(const Ycc444In& in, const RgbOut& o, int x0, int w) {
    for (ptrdiff_t x = x0; x < w; ++x) o.put(x, I::px(in.y[x * in.s], in.cb[x * in.s], in.cr[x * in.s]));
}

// An odd last pixel of a packed row has only one chroma byte in its group: it
// takes the other from the preceding pair, and a row one pixel wide uses the
// byte it has for both.
template <class I>
void inv422_row(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    ptrdiff_t x = x0;
    for (; x + 1 < w; x += 2) {
        const ptrdiff_t k = (x >> 1) * in.cs;
        const int cb = in.cb[k], cr = in.cr[k];
        o.put(x, I::px(in.y[x * in.ys], cb, cr));
        o.put(x + 1, I::px(in.y[(x + 1) * in.ys], cb, cr));
    }
    if (x < w) {
        const ptrdiff_t k = (x >> 1) * in.cs;
        int cb, cr;
        if (in.lone == kLoneBoth) {
            cb = in.cb[k]; cr = in.cr[k];
        } else if (in.lone == kLoneCb) {
            cb = in.cb[k]; cr = w == 1 ? cb : in.cr[k - in.cs];
        } else {
            cr = in.cr[k]; cb = w == 1 ? cr : in.cb[k - in.cs];
        }
        o.put(x, I::px(in.y[x * in.ys], cb, cr));
    }
}

template <class I>
void inv420_rows(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    for (ptrdiff_t x = x0; x + 1 < w; x += 2) {
        const ptrdiff_t k = (x >> 1) * in.cs;
        const int cb = in.cb[k], cr = in.cr[k];
        o0.put(x, I::px(in.y0[x], cb, cr));
        o0.put(x + 1, I::px(in.y0[x + 1], cb, cr));
        o1.put(x, I::px(in.y1[x], cb, cr));
        o1.put(x + 1, I::px(in.y1[x + 1], cb, cr));
    }
}

template <class I>
void inv411_row(const Ycc411In& in, const RgbOut& o, int x0, int w) {
    for (ptrdiff_t x = x0; x < w; ++x) o.put(x, I::px(in.y[x], in.cb[x >> 2], in.cr[x >> 2]));
}

// 4:2:0 to RGB with vertically interpolated chroma: row 2k takes chroma row
// k, row 2k+1 the (-1, 9, 9, -1) / 16 mean of chroma rows k-1..k+2 (rows past
// the plane repeat its edge rows), rounded and clamped like the 4:2:0 to 4:2:2
// _Filter conversions. c[0..3] are those four rows of one chroma plane.
inline uint8_t filter4(int a, int b, int c, int d) { return sat_u8((-a + 9 * b + 9 * c - d + 8) >> 4); }

template <class I>
void inv420_filter_rows(const uint8_t* y0, const uint8_t* y1, const uint8_t* const cb[4], const uint8_t* const cr[4],
                        const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    for (ptrdiff_t x = x0; x + 1 < w; x += 2) {
        const ptrdiff_t i = x >> 1;
        const int b0 = cb[1][i], r0 = cr[1][i];
        const int b1 = filter4(cb[0][i], b0, cb[2][i], cb[3][i]), r1 = filter4(cr[0][i], r0, cr[2][i], cr[3][i]);
        o0.put(x, I::px(y0[x], b0, r0));
        o0.put(x + 1, I::px(y0[x + 1], b0, r0));
        o1.put(x, I::px(y1[x], b1, r1));
        o1.put(x + 1, I::px(y1[x + 1], b1, r1));
    }
}

// ============================================================================
// Row-kernel types, so that drivers can pick a scalar or vector form.
// ============================================================================

using Fwd444Fn = void (*)(const RgbIn&, const Ycc444&, int, int);
using Fwd422Fn = void (*)(const RgbIn&, const Ycc422&, int, int);
using Fwd420Fn = void (*)(const RgbIn&, const RgbIn&, const Ycc420&, int, int);
using Inv444Fn = void (*)(const Ycc444In&, const RgbOut&, int, int);
using Inv422Fn = void (*)(const Ycc422In&, const RgbOut&, int, int);
using Inv420Fn = void (*)(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
using Fwd411Fn = void (*)(const RgbIn&, const Ycc411&, int, int);
using Inv411Fn = void (*)(const Ycc411In&, const RgbOut&, int, int);

}  // namespace nmq::ycc
