// Packed 16-bit RGB (565, 555, 444): word layouts, reduction of 8-bit R, G, B
// to fewer bits with or without ordered dither, widening of packed words back
// to bytes, and the full-sampled YCbCr dither kernel with its own 4-bit
// fractional arithmetic. The colour arithmetic of the other outputs is the
// YUV and YCbCr families' own (yuv_kernels.h, ycbcr_kernels.h); these kernels
// only take its 8-bit R, G, B and pack them (the AVX2 4:2:0 kernel runs the
// YCbCr inverse itself, in registers, to the same bytes).
//
// The scalar kernels define the bits; packed16_sse2.cpp gives the same words.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/saturate.h"
#include "yuv/ycbcr_kernels.h"

namespace nmq::p16 {

// Word layouts. The lowest field holds the channel named first (R for RGB
// names, B for BGR names); bits above the highest field are written as 0.
enum class Pk { P565, P555, P444 };

template <Pk P>
struct Layout;
template <>
struct Layout<Pk::P565> {
    static constexpr int outer = 5, mid = 6, mid_shift = 5, high_shift = 11;
};
template <>
struct Layout<Pk::P555> {
    static constexpr int outer = 5, mid = 5, mid_shift = 5, high_shift = 10;
};
template <>
struct Layout<Pk::P444> {
    static constexpr int outer = 4, mid = 4, mid_shift = 4, high_shift = 8;
};

// ---- ordered dither ----------------------------------------------------------
//
// A channel value c (0..255) of a field of n bits, L = 2^n - 1 levels above 0,
// lies between level q = (c * L) >> 8 and q + 1. The level step at scale 256
// is F = 255 * 256 / L truncated (2105 for 5 bits, 1036 for 6, 4352 for 4),
// and the value rounds up exactly when its remainder c * 256 - q * F exceeds
// (strictly) the threshold of its position, row y & 3, column x & 3, of the
// 4x4 Bayer rank matrix scaled for that field: ranks * 139.8 for 5 bits, the
// same scaled by 1036 / 2105 (rounded) for the 6-bit green, ranks * 289 for 4
// bits. Black stays 0 and white reaches L at every position.

inline constexpr int16_t kDither5[4][4] = {
    {0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}};
inline constexpr int16_t kDither6[4][4] = {
    {0, 550, 137, 688}, {826, 275, 963, 413}, {206, 757, 68, 619}, {1032, 481, 894, 344}};
inline constexpr int16_t kDither4[4][4] = {
    {0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, {4335, 2023, 3757, 1445}};

template <int Bits>
struct Levels;
template <>
struct Levels<5> {
    static constexpr int L = 31, F = 2105;
    static constexpr const int16_t (&T)[4][4] = kDither5;
};
template <>
struct Levels<6> {
    static constexpr int L = 63, F = 1036;
    static constexpr const int16_t (&T)[4][4] = kDither6;
};
template <>
struct Levels<4> {
    static constexpr int L = 15, F = 4352;
    static constexpr const int16_t (&T)[4][4] = kDither4;
};

// Field value of c without dither: the top bits, truncated.
template <int Bits>
inline int truncated(int c) { return c >> (8 - Bits); }

// Field value of c with the threshold t of its position.
template <int Bits>
inline int dithered(int c, int t) {
    using V = Levels<Bits>;
    const int q = (c * V::L) >> 8;
    return q + (c * 256 - q * V::F > t ? 1 : 0);
}

// ---- packing -----------------------------------------------------------------

// 8-bit R, G, B of one row: channel values of pixel i at r[i*s], g[i*s], b[i*s].
using ycc::RgbIn;

// Plain truncation or the ordered dither above.
enum class Dz { Off, Ordered };

// One word from R, G, B values; bgr is the order flag (R in the high field).
template <Pk P>
inline uint16_t word(int r, int g, int b, bool bgr) {
    using Lo = Layout<P>;
    const int lo = bgr ? b : r, hi = bgr ? r : b;
    return uint16_t(lo | g << Lo::mid_shift | hi << Lo::high_shift);
}

// Packs n pixels of a row into words. x0 and y are the ROI column of pixel 0
// and the ROI row, which place the pixels on the dither matrix.
template <Pk P, Dz D>
void pack_row(const RgbIn& in, uint16_t* dst, int n, int x0, int y, bool bgr) {
    using Lo = Layout<P>;
    for (ptrdiff_t i = 0; i < n; ++i) {
        const int r = in.r[i * in.s], g = in.g[i * in.s], b = in.b[i * in.s];
        if constexpr (D == Dz::Off) {
            dst[i] = word<P>(truncated<Lo::outer>(r), truncated<Lo::mid>(g), truncated<Lo::outer>(b), bgr);
        } else {
            const int row = y & 3, col = int((x0 + i) & 3);
            const int to = Levels<Lo::outer>::T[row][col], tm = Levels<Lo::mid>::T[row][col];
            dst[i] = word<P>(dithered<Lo::outer>(r, to), dithered<Lo::mid>(g, tm), dithered<Lo::outer>(b, to), bgr);
        }
    }
}

using PackFn = void (*)(const RgbIn&, uint16_t*, int, int, int, bool);

// SSE2 forms for planar (SS 1) or three-byte interleaved (SS 3) input.
template <Pk P, Dz D, int SS>
void pack_row_sse2(const RgbIn& in, uint16_t* dst, int n, int x0, int y, bool bgr);

// ---- YCbCr 4:2:0, fused (AVX2, AVX-512) ----------------------------------------------------

namespace avx2 {
// Words of rows y and y + 1 (ROI rows) from 4:2:0 planes (in.cs 1): blocks
// of 32 pixels from column x0 (even) while they lie inside w; returns the
// first column left, x0 when the input is not planar. The bytes of
// inv420_rows<Inv601Sub> packed by pack_row<P, D>. Built for AVX2
// (packed16_avx2.cpp).
template <Pk P, Dz D>
int ycc420_blocks(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y, bool bgr);
}  // namespace avx2
namespace avx512 {
// The same on 64 pixels per step, the row tail masked: returns w (x0 when the
// input is not planar). Built for AVX-512 (packed16_avx512.cpp).
template <Pk P, Dz D>
int ycc420_blocks(const ycc::Ycc420In& in, uint16_t* o0, uint16_t* o1, int x0, int w, int y, bool bgr);
}  // namespace avx512
using Pack420Fn = int (*)(const ycc::Ycc420In&, uint16_t*, uint16_t*, int, int, int, bool);

// ---- widening ----------------------------------------------------------------

// A 565 word back to bytes: the lowest field to byte 0, green to byte 1, the
// highest field to byte 2, each widened by repeating its top bits, so that a
// full field gives 255 and the words of pack_row without dither come back as
// the nearest bytes with the same top bits.
inline void widen565_row(const uint16_t* src, uint8_t* dst, int n) {
    for (ptrdiff_t i = 0; i < n; ++i) {
        const int v = src[i], lo = v & 31, g = (v >> 5) & 63, hi = v >> 11;
        dst[3 * i] = uint8_t(lo << 3 | lo >> 2);
        dst[3 * i + 1] = uint8_t(g << 2 | g >> 4);
        dst[3 * i + 2] = uint8_t(hi << 3 | hi >> 2);
    }
}
void widen565_row_sse2(const uint16_t* src, uint8_t* dst, int n);
using WidenFn = void (*)(const uint16_t*, uint8_t*, int);

// ---- full-sampled YCbCr with dither --------------------------------------------

// The full-sampled dithered outputs (the rule of myYCbCrToRGB555Dither_8u16u_C3R,
// shared by every depth and by the planar source) form R, G, B at 4
// fractional bits rather than with the 16.16 inverse of the plain outputs: L = (Y - 16) * 1.164 * 16,
// chroma centred and scaled by 128, each chroma term truncated on its own,
// then the sum shifted down by 4 and clamped.
inline ycc::Rgb8 ycc_to_rgb_q4(int Y, int Cb, int Cr) {
    const int L = (Y * 1220480 - 19527680) >> 16;
    const int dcb = Cb * 128 - 16384, dcr = Cr * 128 - 16384;
    const int r = (((dcr * 13074) >> 16) + L) >> 4;
    const int g = (L - ((dcb * 3211) >> 16) - ((dcr * 6660) >> 16)) >> 4;
    const int b = (L + ((dcb * 16523) >> 16)) >> 4;  // within int16, so min(255) then max(0) is the clamp
    return {chop(r), chop(g), chop(b)};
}

// R, G, B planes of n pixels from full-sampled YCbCr (s bytes per pixel).
inline void ycc444_q4_row(const ycc::Ycc444In& in, uint8_t* r, uint8_t* g, uint8_t* b, int n) {
    for (ptrdiff_t i = 0; i < n; ++i) {
        const ycc::Rgb8 c = ycc_to_rgb_q4(in.y[i * in.s], in.cb[i * in.s], in.cr[i * in.s]);
        r[i] = c.r;
        g[i] = c.g;
        b[i] = c.b;
    }
}

}  // namespace nmq::p16
