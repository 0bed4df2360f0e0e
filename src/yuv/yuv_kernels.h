// YUV <-> RGB: the per-pixel arithmetic, the pixel layouts and the scalar row
// kernels. The scalar kernels define the bits; the SSE2 kernels
// (yuv_kernels_sse2.cpp) give the same bytes faster.
//
// The per-pixel functions below are also the arithmetic of the packed 16-bit
// RGB outputs of the YUV family: use them rather than writing the formulas
// again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame/saturate.h"

namespace nmq::yuv {

struct Yuv { uint8_t y, u, v; };
struct Rgb { uint8_t r, g, b; };

// ---- RGB to YUV ---------------------------------------------------------------

// Luma sum at scale 2^16: 0.299 R + 0.587 G + 0.114 B.
constexpr int32_t luma_sum(int r, int g, int b) { return 19595 * r + 38470 * g + 7471 * b; }

// One pixel at full sampling (the per-pixel kernels, and the pixels after the
// last 16-pixel block of the interleaved kernels). B - Y and R - Y are rounded
// first; 0.492 (B - Y) stays within the byte range, 0.877 (R - Y) does not,
// so only V is clamped.
inline Yuv rgb_to_yuv(int r, int g, int b) {
    const int32_t s = luma_sum(r, g, b);
    const int32_t db = ((b << 16) - s + 32768) >> 16;
    const int32_t dr = ((r << 16) - s + 32768) >> 16;
    return {uint8_t((s + 32768) >> 16), uint8_t(128 + ((db * 32244) >> 16)), chop(128 + ((dr * 57475) >> 16))};
}

// One pixel of a 16-pixel block of the interleaved 4:4:4 kernels: the same
// rounded luma, chroma straight from R, G, B with weights at scale 2^15
// (U: -0.147, -0.289, 0.436; V: 0.615, -0.515, -0.100), rounded to nearest.
inline Yuv rgb_to_yuv_block(int r, int g, int b) {
    const int32_t s = luma_sum(r, g, b);
    return {uint8_t((s + 32768) >> 16), chop(128 + ((-4816 * r - 9469 * g + 14286 * b + 16384) >> 15)),
            chop(128 + ((20152 * r - 16875 * g - 3276 * b + 16384) >> 15))};
}

// A horizontal pair sharing one chroma sample. Each Y is truncated; the chroma
// is the mean of the pair in a single rounding at scale 2^17, whose constant
// 65535 is deliberately one less than half the scale.
inline void rgb_pair_to_yuv(int r0, int g0, int b0, int r1, int g1, int b1, uint8_t& y0, uint8_t& y1,
                            uint8_t& u, uint8_t& v) {
    const int32_t s0 = luma_sum(r0, g0, b0), s1 = luma_sum(r1, g1, b1), s = s0 + s1;
    const int32_t db = (((b0 + b1) << 16) - s + 65535) >> 16;
    const int32_t dr = (((r0 + r1) << 16) - s + 65535) >> 16;
    y0 = uint8_t(s0 >> 16);
    y1 = uint8_t(s1 >> 16);
    u = uint8_t(128 + ((db * 32244) >> 17));
    v = chop(128 + ((dr * 57475) >> 17));
}

// The last pixel of an odd 4:2:2 row forms a pair of its own and is converted
// at scale 2^15, truncating.
inline Yuv rgb_single_to_yuv(int r, int g, int b) {
    const int32_t s = 9798 * r + 19235 * g + 3736 * b;
    const int32_t db = ((b << 15) - s) >> 15;
    const int32_t dr = (r * 32768 - s) >> 15;
    return {uint8_t(s >> 15), uint8_t(128 + ((db * 16121) >> 15)), chop(128 + ((dr * 28737) >> 15))};
}

// Chroma of a 2x2 block from its channel sums and the sum of its four luma
// sums, at scale 2^18 with the constant 131071 (one less than half the scale).
inline void block_chroma(int rsum, int bsum, int32_t ssum, uint8_t& u, uint8_t& v) {
    const int32_t db = ((bsum << 16) - ssum + 131071) >> 16;
    const int32_t dr = ((rsum << 16) - ssum + 131071) >> 16;
    u = uint8_t(128 + ((db * 32244) >> 18));
    v = chop(128 + ((dr * 57475) >> 18));
}

// ---- YUV to RGB ---------------------------------------------------------------

// Rounded inverse: YUVToRGB C3C4R, the pixels after the last 16-pixel block of
// the interleaved and planar 4:2:2 kernels, and every 4:2:2 and 4:2:0 input.
inline Rgb yuv_to_rgb(int y, int u8, int v8) {
    const int32_t u = u8 - 128, v = v8 - 128, y16 = y << 16;
    return {chop((y16 + 74711 * v + 32768) >> 16), chop((y16 - 25821 * u - 38076 * v + 32768) >> 16),
            chop((y16 + 133169 * u + 32768) >> 16)};
}

// The AC4 inverse: G is truncated, not rounded. These bits are part of the
// interface and must stay as they are.
inline Rgb yuv_to_rgb_trunc_g(int y, int u8, int v8) {
    const int32_t u = u8 - 128, v = v8 - 128, y16 = y << 16;
    return {chop((y16 + 74711 * v + 32768) >> 16), chop((y16 - 25821 * u - 38076 * v) >> 16),
            chop((y16 + 133169 * u + 32768) >> 16)};
}

// myYUVToRGB_8u_P3R: the planar 4:4:4 kernel has its own constants, each one
// smaller in magnitude, and truncates all three channels. Kept as it is.
inline Rgb yuv_to_rgb_planar(int y, int u8, int v8) {
    const int32_t u = u8 - 128, v = v8 - 128, y16 = y << 16;
    return {chop((y16 + 74710 * v) >> 16), chop((y16 - 25820 * u - 38075 * v) >> 16), chop((y16 + 133168 * u) >> 16)};
}

// 16-pixel blocks work at scale 2^13 and floor each chroma term on its own
// (the high half of (8 u) c): R = Y + [v cr], G = Y + [u cgu] + [v cgv],
// B = Y + [u cb]. The interleaved 4:4:4 kernels use 9339, -3228, -4760, 16646;
// the planar 4:2:2 kernel uses 9338, -3227, -4759, 16645.
template <int CR, int CGU, int CGV, int CB>
inline Rgb yuv_to_rgb_block(int y, int u8, int v8) {
    const int32_t u = u8 - 128, v = v8 - 128;
    return {chop(y + ((v * CR) >> 13)), chop(y + ((u * CGU) >> 13) + ((v * CGV) >> 13)), chop(y + ((u * CB) >> 13))};
}
inline Rgb yuv_to_rgb_block444(int y, int u, int v) { return yuv_to_rgb_block<9339, -3228, -4760, 16646>(y, u, v); }
inline Rgb yuv_to_rgb_block422(int y, int u, int v) { return yuv_to_rgb_block<9338, -3227, -4759, 16645>(y, u, v); }

// A 4:2:2 C2 row one pixel wide holds Y and one chroma byte, which serves as
// both U and V; all three channels are truncated (G weight 0.394 + 0.581).
inline Rgb yuv_single_to_rgb(int y, int c8) {
    const int32_t c = c8 - 128, y16 = y << 16;
    return {chop((y16 + 74711 * c) >> 16), chop((y16 - 63897 * c) >> 16), chop((y16 + 133169 * c) >> 16)};
}

// ---- Pixel layouts ------------------------------------------------------------

// One row of up to four planes (interleaved images use p[0] only).
struct RowIn { const uint8_t* p[4]; };
struct RowOut { uint8_t* p[4]; uint8_t alpha; };

// Interleaved pixels of N bytes with the three channels at byte offsets A, B, C;
// any fourth byte is neither read nor written.
template <int N, int A, int B, int C>
struct Packed {
    static constexpr int kBytes = N, kA = A, kB = B, kC = C;
    static void get(const RowIn& s, ptrdiff_t i, int& a, int& b, int& c) {
        const uint8_t* q = s.p[0] + i * N;
        a = q[A], b = q[B], c = q[C];
    }
    static void put(const RowOut& d, ptrdiff_t i, int a, int b, int c) {
        uint8_t* q = d.p[0] + i * N;
        q[A] = uint8_t(a), q[B] = uint8_t(b), q[C] = uint8_t(c);
    }
};

// Four-byte pixels whose fourth byte receives the caller's alpha value.
template <int A, int B, int C>
struct PackedAlpha {
    static void put(const RowOut& d, ptrdiff_t i, int a, int b, int c) {
        uint8_t* q = d.p[0] + i * 4;
        q[A] = uint8_t(a), q[B] = uint8_t(b), q[C] = uint8_t(c), q[3] = d.alpha;
    }
};

// Three planes of the same width.
struct Planar {
    static void get(const RowIn& s, ptrdiff_t i, int& a, int& b, int& c) { a = s.p[0][i], b = s.p[1][i], c = s.p[2][i]; }
    static void put(const RowOut& d, ptrdiff_t i, int a, int b, int c) {
        d.p[0][i] = uint8_t(a), d.p[1][i] = uint8_t(b), d.p[2][i] = uint8_t(c);
    }
};

// Packed 16-bit RGB words read as R, G, B. The channel named first in the
// format lies in the low bits (RLow: RGB565; otherwise BGR565/BGR555). Fields
// are widened to 8 bits by repeating their top bits, so full scale stays 255.
template <int GBits, bool RLow>
struct Word16 {
    static void get(const RowIn& s, ptrdiff_t i, int& r, int& g, int& b) {
        const unsigned w = reinterpret_cast<const uint16_t*>(s.p[0])[i];
        const unsigned lo = w & 31, mid = (w >> 5) & ((1u << GBits) - 1), hi = (w >> (5 + GBits)) & 31;
        const int l8 = int(lo << 3 | lo >> 2), h8 = int(hi << 3 | hi >> 2);
        g = GBits == 6 ? int(mid << 2 | mid >> 4) : int(mid << 3 | mid >> 2);
        r = RLow ? l8 : h8;
        b = RLow ? h8 : l8;
    }
};

using RGB3 = Packed<3, 0, 1, 2>;   // also YUV C3
using BGR3 = Packed<3, 2, 1, 0>;
using RGBA = Packed<4, 0, 1, 2>;   // also YUV AC4; alpha kept
using BGRA = Packed<4, 2, 1, 0>;
using RGBX = PackedAlpha<0, 1, 2>;  // C4 with the alpha argument
using RGB565 = Word16<6, true>;
using BGR565 = Word16<6, false>;
using BGR555 = Word16<5, false>;

// Every vector kernel works on blocks of this many pixels.
constexpr ptrdiff_t kBlock = 16;
inline ptrdiff_t block_end(ptrdiff_t n) { return n & ~(kBlock - 1); }

// ---- Scalar row kernels: 4:4:4 -------------------------------------------------

// Formula selectors of the 4:4:4 row kernels.
enum class Fwd { PerPixel, Blocks };                    // RGB to YUV
enum class Inv { Round, TruncG, Planar, Blocks };       // YUV to RGB

template <class S, class D, Fwd F>
void rgb_to_yuv_row(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    const ptrdiff_t nb = F == Fwd::Blocks ? block_end(n) : 0;
    for (ptrdiff_t i = from; i < n; ++i) {
        int r, g, b;
        S::get(s, i, r, g, b);
        const Yuv o = i < nb ? rgb_to_yuv_block(r, g, b) : rgb_to_yuv(r, g, b);
        D::put(d, i, o.y, o.u, o.v);
    }
}

template <Inv F>
inline Rgb inverse(int y, int u, int v) {
    if constexpr (F == Inv::TruncG) return yuv_to_rgb_trunc_g(y, u, v);
    else if constexpr (F == Inv::Planar) return yuv_to_rgb_planar(y, u, v);
    else return yuv_to_rgb(y, u, v);
}

template <class S, class D, Inv F>
void yuv_to_rgb_row(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    const ptrdiff_t nb = F == Inv::Blocks ? block_end(n) : 0;
    for (ptrdiff_t i = from; i < n; ++i) {
        int y, u, v;
        S::get(s, i, y, u, v);
        const Rgb o = i < nb ? yuv_to_rgb_block444(y, u, v) : inverse<F>(y, u, v);
        D::put(d, i, o.r, o.g, o.b);
    }
}

// myYUVToRGB_8u_P3R: the planar 4:4:4 inverse, yuv_to_rgb_planar on every pixel.
inline void myYUVToRGB_8u_P3R(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    yuv_to_rgb_row<Planar, Planar, Inv::Planar>(s, d, n, from);
}

// Copies the alpha byte of four-byte pixels into a plane.
inline void alpha_to_plane_row(const uint8_t* s, uint8_t* a, ptrdiff_t n) {
    for (ptrdiff_t i = 0; i < n; ++i) a[i] = s[4 * i + 3];
}

// ---- Scalar row kernels: RGB to 4:2:2 and 4:2:0 ---------------------------------

// RGB to 4:2:2, C2 (Y0 U Y1 V) when C2, else three planes (p[0] Y, p[1] U,
// p[2] V). An odd last pixel is converted on its own at scale 2^15.
template <class S, bool C2>
void rgb_to_yuv422_row(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    ptrdiff_t i = from;
    for (; i + 1 < n; i += 2) {
        int r0, g0, b0, r1, g1, b1;
        S::get(s, i, r0, g0, b0);
        S::get(s, i + 1, r1, g1, b1);
        uint8_t y0, y1, u, v;
        rgb_pair_to_yuv(r0, g0, b0, r1, g1, b1, y0, y1, u, v);
        if constexpr (C2) {
            uint8_t* q = d.p[0] + 2 * i;
            q[0] = y0, q[1] = u, q[2] = y1, q[3] = v;
        } else {
            d.p[0][i] = y0, d.p[0][i + 1] = y1, d.p[1][i / 2] = u, d.p[2][i / 2] = v;
        }
    }
    if (i < n) {
        int r, g, b;
        S::get(s, i, r, g, b);
        const Yuv o = rgb_single_to_yuv(r, g, b);
        if constexpr (C2) {
            d.p[0][2 * i] = o.y, d.p[0][2 * i + 1] = o.u;  // the pair's V has no place in the row
        } else {
            d.p[0][i] = o.y, d.p[1][i / 2] = o.u, d.p[2][i / 2] = o.v;
        }
    }
}

// RGB to 4:2:0 for one pair of rows (s0, s1), n even: p[0] and p[3] are the two
// Y rows, p[1] and p[2] the U and V rows. Y is truncated here.
template <class S>
void rgb_to_yuv420_rows(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    for (ptrdiff_t i = from; i + 1 < n; i += 2) {
        int r[4], g[4], b[4];
        S::get(s0, i, r[0], g[0], b[0]);
        S::get(s0, i + 1, r[1], g[1], b[1]);
        S::get(s1, i, r[2], g[2], b[2]);
        S::get(s1, i + 1, r[3], g[3], b[3]);
        int32_t ssum = 0;
        for (int k = 0; k < 4; ++k) {
            const int32_t sk = luma_sum(r[k], g[k], b[k]);
            ssum += sk;
            d.p[k < 2 ? 0 : 3][i + (k & 1)] = uint8_t(sk >> 16);
        }
        block_chroma(r[0] + r[1] + r[2] + r[3], b[0] + b[1] + b[2] + b[3], ssum, d.p[1][i / 2], d.p[2][i / 2]);
    }
}

// ---- Scalar row kernels: 4:2:2 and 4:2:0 to RGB ---------------------------------

// s.p[0] Y, s.p[1] U, s.p[2] V (chroma at half width), s.p[3] the second Y row
// of a 4:2:0 pair. Rows is 1 (4:2:2: d0) or 2 (4:2:0: d0 and d1). The chroma
// sample serves both pixels of its pair (and both rows) unchanged.
template <class D, int Rows>
void yuv42x_to_rgb_rows(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from = 0) {
    for (ptrdiff_t i = from; i < n; ++i) {
        const int u = s.p[1][i >> 1], v = s.p[2][i >> 1];
        const Rgb a = yuv_to_rgb(s.p[0][i], u, v);
        D::put(d0, i, a.r, a.g, a.b);
        if constexpr (Rows == 2) {
            const Rgb c = yuv_to_rgb(s.p[3][i], u, v);
            D::put(d1, i, c.r, c.g, c.b);
        }
    }
}

// The planar 4:2:2 to planar RGB kernel: 16-pixel blocks at scale 2^13, the
// pixels after the last block rounded per pixel. Also run over a whole
// contiguous image as one row.
inline void yuv422_to_rgb_planar_row(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    const ptrdiff_t nb = block_end(n);
    for (ptrdiff_t i = from; i < n; ++i) {
        const int y = s.p[0][i], u = s.p[1][i >> 1], v = s.p[2][i >> 1];
        const Rgb o = i < nb ? yuv_to_rgb_block422(y, u, v) : yuv_to_rgb(y, u, v);
        d.p[0][i] = o.r, d.p[1][i] = o.g, d.p[2][i] = o.b;
    }
}

// 4:2:2 C2 (Y0 U Y1 V) to RGB. A row one pixel wide has its own rule; the last
// pixel of a longer odd row holds Y and U only and takes V from the pair
// before it.
template <class D>
void yuv422c2_to_rgb_row(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from = 0) {
    const uint8_t* q = s.p[0];
    if (n == 1) {
        const Rgb o = yuv_single_to_rgb(q[0], q[1]);
        D::put(d, 0, o.r, o.g, o.b);
        return;
    }
    for (ptrdiff_t i = from; i < n; ++i) {
        const ptrdiff_t c = (i & ~ptrdiff_t(1)) * 2;
        const int u = q[c + 1], v = i + 1 == n && (n & 1) ? q[c - 1] : q[c + 3];
        const Rgb o = yuv_to_rgb(q[2 * i], u, v);
        D::put(d, i, o.r, o.g, o.b);
    }
}

// ---- Kernel types and SSE2 forms (yuv_kernels_sse2.cpp) -------------------------

using Row444 = void (*)(const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
using Row420Fwd = void (*)(const RowIn&, const RowIn&, const RowOut&, ptrdiff_t, ptrdiff_t);
using Row42xInv = void (*)(const RowIn&, const RowOut&, const RowOut&, ptrdiff_t, ptrdiff_t);

template <class S, class D, Fwd F>
void rgb_to_yuv_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class S, class D, Inv F>
void yuv_to_rgb_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class S, bool C2>
void rgb_to_yuv422_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class S>
void rgb_to_yuv420_rows_sse2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class D, int Rows>
void yuv42x_to_rgb_rows_sse2(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from);
void myYUVToRGB_8u_P3R_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
void yuv422_to_rgb_planar_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class D>
void yuv422c2_to_rgb_row_sse2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);

// ---- AVX2 forms (yuv_kernels_avx2.cpp), for the layouts listed there -------------

template <class S>
void rgb_to_yuv420_rows_avx2(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class D, int Rows>
void yuv42x_to_rgb_rows_avx2(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from);
template <class D>
void yuv422c2_to_rgb_row_avx2(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);

// The AVX2 form of a layout, or null where there is none (packed 16-bit
// sources, and four-byte outputs whose fourth byte must be kept).
template <class S>
constexpr Row420Fwd rgb_to_yuv420_avx2_form() {
    if constexpr (std::is_same_v<S, Planar> || std::is_same_v<S, RGB3> || std::is_same_v<S, BGRA>)
        return rgb_to_yuv420_rows_avx2<S>;
    else
        return nullptr;
}
template <class D, int Rows>
constexpr Row42xInv yuv42x_to_rgb_avx2_form() {
    if constexpr ((Rows == 2 && (std::is_same_v<D, Planar> || std::is_same_v<D, BGR3>)) || std::is_same_v<D, RGB3>)
        return yuv42x_to_rgb_rows_avx2<D, Rows>;
    else
        return nullptr;
}

// ---- AVX-512 forms (yuv_kernels_avx512.cpp): four-byte outputs whose fourth
// byte is kept, stored through byte masks ---------------------------------------

template <class S, class D, Fwd F>
void rgb_to_yuv_row_avx512(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class S, class D, Inv F>
void yuv_to_rgb_row_avx512(const RowIn& s, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class D, int Rows>
void yuv42x_to_rgb_rows_avx512(const RowIn& s, const RowOut& d0, const RowOut& d1, ptrdiff_t n, ptrdiff_t from);

// The AVX-512 form of a layout, or null where there is none (every output but
// RGBA with its fourth byte kept).
template <class S, class D, Fwd F>
constexpr Row444 rgb_to_yuv_avx512_form() {
    if constexpr (std::is_same_v<S, RGBA> && std::is_same_v<D, RGBA> && F == Fwd::PerPixel)
        return rgb_to_yuv_row_avx512<S, D, F>;
    else
        return nullptr;
}
template <class S, class D, Inv F>
constexpr Row444 yuv_to_rgb_avx512_form() {
    if constexpr (std::is_same_v<S, RGBA> && std::is_same_v<D, RGBA> && F == Inv::TruncG)
        return yuv_to_rgb_row_avx512<S, D, F>;
    else
        return nullptr;
}
// RGB24 to 4:2:0 (yuv_fwd_avx512.cpp): 64 pixels of a row pair per step.
template <class S>
void rgb_to_yuv420_rows_avx512(const RowIn& s0, const RowIn& s1, const RowOut& d, ptrdiff_t n, ptrdiff_t from);
template <class S>
constexpr Row420Fwd rgb_to_yuv420_avx512_form() {
    if constexpr (std::is_same_v<S, RGB3>)
        return rgb_to_yuv420_rows_avx512<S>;
    else
        return nullptr;
}
template <class D, int Rows>
constexpr Row42xInv yuv42x_to_rgb_avx512_form() {
    if constexpr (std::is_same_v<D, RGBA>)
        return yuv42x_to_rgb_rows_avx512<D, Rows>;
    else
        return nullptr;
}

}  // namespace nmq::yuv
