// LUV, Lab and YCC row kernels.
//
// The per-pixel arithmetic is written once, as templates over a lane type V:
// plain float for the scalar kernels here, four floats in an SSE register for
// the kernels of luvlab_kernels_sse2.h. The templates use only IEEE basic
// operations (+ - * /), ordered comparisons, selections and min/max with the
// NaN rule of the SSE instructions, each of which gives the same bits in
// either form; with contraction off, both forms therefore give the same
// bytes. The cube root is built from the same operations (a bit-pattern seed
// and three Newton steps) because no library cube root is vectorisable to the
// last bit.
//
// Both directions run through linear RGB in 0..1: integer samples are divided
// by their full scale (16s shifted by +32768 first), model values are encoded
// per type as (value + add) * mul, clamped to the type's range and rounded to
// nearest, ties to even; decoding divides by the same mul and subtracts the
// same add. RGB results are clamped to 0..1 before scaling.
#pragma once

#include <xmmintrin.h>

#include <cstdint>
#include <cstring>

#include "models/xyz_kernels.h"

namespace nmq::luvlab {

// ---- Scalar lane operations -------------------------------------------------
// The SSE lane type defines the same names; the templates below call them
// unqualified so that either is found.
inline bool gt(float a, float b) { return a > b; }
inline bool ne(float a, float b) { return a != b; }
inline float sel(bool m, float a, float b) { return m ? a : b; }
// maxps / minps: the second operand when the comparison fails (NaN included).
inline float vmax(float a, float b) { return a > b ? a : b; }
inline float vmin(float a, float b) { return a < b ? a : b; }

// Seed of the cube root: the bit pattern of t divided by three (through
// float, truncated) plus the bias that maps the exponent; within 2 % of the
// root for every positive normal t.
constexpr int32_t kCbrtBias = 709921077;
inline float cbrt_seed(float t) {
    int32_t i;
    std::memcpy(&i, &t, 4);
    i = int32_t(float(i) * (1.0f / 3.0f)) + kCbrtBias;
    float y;
    std::memcpy(&y, &i, 4);
    return y;
}

// Nearest integer, ties to even: the conversion the SSE form uses, so both
// follow the same rounding mode. Arguments are clamped into range first.
inline int32_t round_even(float v) { return _mm_cvtss_si32(_mm_set_ss(v)); }

// ---- Shared arithmetic --------------------------------------------------------
// Cube root of t > 0 within one unit in the last place (measured on every
// float from 0.0088 to 1e6); cube_root(1) is exactly 1.
template <class V>
inline V cube_root(V t) {
    V y = cbrt_seed(t);
    for (int i = 0; i < 3; ++i) y = ((y + y) + t / (y * y)) / V(3.0f);
    return y;
}

// One row of a matrix of the XYZ family, in that family's order of additions.
template <class V>
inline V mat_row(const float* m, int k, V a, V b, V c) {
    return (a * V(m[k]) + b * V(m[3 + k])) + c * V(m[6 + k]);
}

// D65 white: the forward matrix applied to (1, 1, 1) in the order a pixel
// uses, so RGB white lands exactly on the white point.
constexpr float kXn = (xyz::RGBToXYZ[0] + xyz::RGBToXYZ[3]) + xyz::RGBToXYZ[6];
constexpr float kYn = (xyz::RGBToXYZ[1] + xyz::RGBToXYZ[4]) + xyz::RGBToXYZ[7];
constexpr float kZn = (xyz::RGBToXYZ[2] + xyz::RGBToXYZ[5]) + xyz::RGBToXYZ[8];
static_assert(kYn == 1.0f, "Y of white is 1, so Y/Yn is Y itself");

// CIE 1976 constants: the knee at (6/29)^3, the slope of the linear segment
// (29/6)^2 / 3, its offset 4/29, and kappa = (29/3)^3 for L below the knee.
constexpr float kEps = 216.0f / 24389.0f;
constexpr float kSlope = 24389.0f / 3132.0f;
constexpr float kInvSlope = 3132.0f / 24389.0f;
constexpr float kOffset = 16.0f / 116.0f;
constexpr float kDelta = 6.0f / 29.0f;
constexpr float kKappa = 24389.0f / 27.0f;

// u' and v' of white, in the order a pixel computes them.
constexpr float kDn = (kXn + kYn * 15.0f) + kZn * 3.0f;
constexpr float kUn = (kXn * 4.0f) / kDn;
constexpr float kVn = (kYn * 9.0f) / kDn;
// v' of the blue primary: the smallest v' of any colour with non-negative R,
// G and B (a mixture's u', v' lies inside the triangle of the primaries').
constexpr float kVBlue =
    (xyz::RGBToXYZ[7] * 9.0f) / ((xyz::RGBToXYZ[6] + xyz::RGBToXYZ[7] * 15.0f) + xyz::RGBToXYZ[8] * 3.0f);

template <class V>
inline void rgb_to_xyz(V r, V g, V b, V& X, V& Y, V& Z) {
    X = mat_row(xyz::RGBToXYZ, 0, r, g, b);
    Y = mat_row(xyz::RGBToXYZ, 1, r, g, b);
    Z = mat_row(xyz::RGBToXYZ, 2, r, g, b);
}

template <class V>
inline void xyz_to_rgb(V X, V Y, V Z, V& r, V& g, V& b) {
    r = mat_row(xyz::XYZToRGB, 0, X, Y, Z);
    g = mat_row(xyz::XYZToRGB, 1, X, Y, Z);
    b = mat_row(xyz::XYZToRGB, 2, X, Y, Z);
}

// f(t) of the CIE formulas, with the cube root of t passed in.
template <class V>
inline V lab_f(V t, V root) { return sel(gt(t, V(kEps)), root, t * V(kSlope) + V(kOffset)); }

// L* from Y; below the knee L = kappa Y, so black gives exactly 0.
template <class V>
inline V lightness(V Y, V root) { return sel(gt(Y, V(kEps)), root * V(116.0f) - V(16.0f), Y * V(kKappa)); }

// Inverse of f.
template <class V>
inline V lab_finv(V f) { return sel(gt(f, V(kDelta)), (f * f) * f, (f - V(kOffset)) * V(kInvSlope)); }

// Y from L*: the cube above L = 8, L / kappa below.
template <class V>
inline V luminance(V L) {
    const V fy = (L + V(16.0f)) / V(116.0f);
    return sel(gt(L, V(8.0f)), (fy * fy) * fy, L / V(kKappa));
}

// ---- Models -------------------------------------------------------------------
// fwd: linear r, g, b in 0..1 to the model's natural values; inv: back.

struct Lab {
    template <class V>
    static void fwd(V r, V g, V b, V& o0, V& o1, V& o2) {
        V X, Y, Z;
        rgb_to_xyz(r, g, b, X, Y, Z);
        const V x = X / V(kXn), z = Z / V(kZn);
        const V ry = cube_root(Y);
        const V fx = lab_f(x, cube_root(x)), fy = lab_f(Y, ry), fz = lab_f(z, cube_root(z));
        o0 = lightness(Y, ry);
        o1 = (fx - fy) * V(500.0f);
        o2 = (fy - fz) * V(200.0f);
    }
    template <class V>
    static void inv(V L, V a, V b, V& r, V& g, V& bl) {
        const V fy = (L + V(16.0f)) / V(116.0f);
        const V X = lab_finv(fy + a / V(500.0f)) * V(kXn);
        const V Z = lab_finv(fy - b / V(200.0f)) * V(kZn);
        xyz_to_rgb(X, luminance(L), Z, r, g, bl);
    }
};

struct Luv {
    // A pixel with X + 15Y + 3Z = 0 (black) takes the chromaticity of white.
    template <class V>
    static void fwd(V r, V g, V b, V& o0, V& o1, V& o2) {
        V X, Y, Z;
        rgb_to_xyz(r, g, b, X, Y, Z);
        const V L = lightness(Y, cube_root(Y));
        const V d = (X + Y * V(15.0f)) + Z * V(3.0f);
        const auto nz = ne(d, V(0.0f));
        const V up = sel(nz, (X * V(4.0f)) / d, V(kUn));
        const V vp = sel(nz, (Y * V(9.0f)) / d, V(kVn));
        const V l13 = L * V(13.0f);
        o0 = L;
        o1 = l13 * (up - V(kUn));
        o2 = l13 * (vp - V(kVn));
    }
    // L <= 0 (or NaN) is black whatever u and v say. v' is raised to the
    // blue primary's: no colour the RGB side can hold has less, and dark
    // codes, whose one u or v step spans much of the diagram, would otherwise
    // decode near v' = 0, where X and Z diverge.
    template <class V>
    static void inv(V L, V u, V v, V& r, V& g, V& b) {
        const V Y = luminance(L);
        const V l13 = L * V(13.0f);
        const V up = u / l13 + V(kUn);
        const V vp = vmax(v / l13 + V(kVn), V(kVBlue));
        const V v4 = vp * V(4.0f);
        const V X = ((Y * V(9.0f)) * up) / v4;
        const V Z = (Y * ((V(12.0f) - up * V(3.0f)) - vp * V(20.0f))) / v4;
        const auto lit = gt(L, V(0.0f));
        xyz_to_rgb(sel(lit, X, V(0.0f)), sel(lit, Y, V(0.0f)), sel(lit, Z, V(0.0f)), r, g, b);
    }
};

// Photographic YCC on gamma-corrected RGB: luma with the 0.299/0.587/0.114
// weights and the differences B' - Y', R' - Y', in 8-bit code units:
// Y = 255/1.402 Y', C1 = 111.40 (B' - Y') + 156, C2 = 135.64 (R' - Y') + 137.
struct Ycc {
    static constexpr float kYScale = 255.0f / 1.402f;
    template <class V>
    static void fwd(V r, V g, V b, V& o0, V& o1, V& o2) {
        const V y = (r * V(0.299f) + g * V(0.587f)) + b * V(0.114f);
        o0 = y * V(kYScale);
        o1 = (b - y) * V(111.40f) + V(156.0f);
        o2 = (r - y) * V(135.64f) + V(137.0f);
    }
    template <class V>
    static void inv(V Y, V C1, V C2, V& r, V& g, V& b) {
        const V y = Y / V(kYScale);
        r = y + (C2 - V(137.0f)) / V(135.64f);
        b = y + (C1 - V(156.0f)) / V(111.40f);
        g = ((y - r * V(0.299f)) - b * V(0.114f)) / V(0.587f);
    }
};

// ---- Per-type encodings ---------------------------------------------------------
template <class T>
struct Elem;
template <>
struct Elem<uint8_t> {
    static constexpr bool kFloat = false;
    static constexpr int32_t kOff = 0;
    static constexpr float kMax = 255.0f;
};
template <>
struct Elem<uint16_t> {
    static constexpr bool kFloat = false;
    static constexpr int32_t kOff = 0;
    static constexpr float kMax = 65535.0f;
};
// 16s: the 16u scale on samples shifted by +32768.
template <>
struct Elem<int16_t> {
    static constexpr bool kFloat = false;
    static constexpr int32_t kOff = 32768;
    static constexpr float kMax = 65535.0f;
};
template <>
struct Elem<float> {
    static constexpr bool kFloat = true;
    static constexpr int32_t kOff = 0;
    static constexpr float kMax = 1.0f;
};

// Integer encoding of the model values: code = (value + add) * mul.
struct Scale {
    float add[3];
    float mul[3];
};

template <class Model, class T>
struct Encoding;

// Lab: L * 255/100, a and b + 128 (8u); L * 65535/100 and (a, b + 128) * 256,
// the 8-bit codes widened by 8 bits, for 16u and 16s.
template <>
struct Encoding<Lab, uint8_t> {
    static constexpr Scale s{{0.0f, 128.0f, 128.0f}, {2.55f, 1.0f, 1.0f}};
};
template <>
struct Encoding<Lab, uint16_t> {
    static constexpr Scale s{{0.0f, 128.0f, 128.0f}, {655.35f, 256.0f, 256.0f}};
};
// LUV: u from -134..220 and v from -140..122 onto the full range.
template <>
struct Encoding<Luv, uint8_t> {
    static constexpr Scale s{{0.0f, 134.0f, 140.0f}, {2.55f, 255.0f / 354.0f, 255.0f / 262.0f}};
};
template <>
struct Encoding<Luv, uint16_t> {
    static constexpr Scale s{{0.0f, 134.0f, 140.0f}, {655.35f, 65535.0f / 354.0f, 65535.0f / 262.0f}};
};
// YCC: the 8-bit codes; 16u and 16s scale them by 65535/255 = 257.
template <>
struct Encoding<Ycc, uint8_t> {
    static constexpr Scale s{{0.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f}};
};
template <>
struct Encoding<Ycc, uint16_t> {
    static constexpr Scale s{{0.0f, 0.0f, 0.0f}, {257.0f, 257.0f, 257.0f}};
};
template <class Model>
struct Encoding<Model, int16_t> : Encoding<Model, uint16_t> {};

// 32f: Lab and LUV keep their natural values; YCC is its 8-bit code / 255.
template <class Model>
struct FloatUnit {
    static constexpr float value = 1.0f;
};
template <>
struct FloatUnit<Ycc> {
    static constexpr float value = 255.0f;
};

// One pixel of a conversion, from samples as floats (16s already shifted) to
// values ready to store (integer types: clamped, not yet rounded). The three
// lanes are in RGB order on the RGB side and in model order on the other.
template <class Model, bool Fwd, class T>
struct Pixel {
    using E = Elem<T>;
    template <class V>
    static void run(V& c0, V& c1, V& c2) {
        V c[3] = {c0, c1, c2}, o[3];
        if constexpr (Fwd) {
            // 8u samples arrive already divided (load_input).
            if constexpr (!E::kFloat && sizeof(T) != 1)
                for (auto& v : c) v = v / V(E::kMax);
            Model::fwd(c[0], c[1], c[2], o[0], o[1], o[2]);
            if constexpr (!E::kFloat) {
                const Scale& s = Encoding<Model, T>::s;
                for (int k = 0; k < 3; ++k) o[k] = vmin(vmax((o[k] + V(s.add[k])) * V(s.mul[k]), V(0.0f)), V(E::kMax));
            } else if constexpr (FloatUnit<Model>::value != 1.0f) {
                for (auto& v : o) v = v / V(FloatUnit<Model>::value);
            }
        } else {
            if constexpr (!E::kFloat) {
                const Scale& s = Encoding<Model, T>::s;
                for (int k = 0; k < 3; ++k) c[k] = c[k] / V(s.mul[k]) - V(s.add[k]);
            } else if constexpr (FloatUnit<Model>::value != 1.0f) {
                for (auto& v : c) v = v * V(FloatUnit<Model>::value);
            }
            Model::inv(c[0], c[1], c[2], o[0], o[1], o[2]);
            for (auto& v : o) {
                v = vmin(vmax(v, V(0.0f)), V(1.0f));
                if constexpr (!E::kFloat) v = v * V(E::kMax);
            }
        }
        c0 = o[0];
        c1 = o[1];
        c2 = o[2];
    }
};

// Memory positions of the three lanes: R sits at index Red (0 for RGB, 2 for
// BGR) on the RGB side; model channels are always in model order.
template <bool Fwd, int Red>
struct Lanes {
    static constexpr int in[3] = {Fwd ? Red : 0, 1, Fwd ? 2 - Red : 2};
    static constexpr int out[3] = {Fwd ? 0 : Red, 1, Fwd ? 2 : 2 - Red};
};

template <class T>
inline float load_sample(T v) {
    if constexpr (Elem<T>::kFloat) return v;
    else return float(int32_t(v) + Elem<T>::kOff);
}

// i / 255 for every 8u sample, the quotient of the division a pixel would do.
struct Unit8 {
    float v[256];
    constexpr Unit8() : v() {
        for (int i = 0; i < 256; ++i) v[i] = float(i) / 255.0f;
    }
};
constexpr Unit8 kUnit8{};

// A source sample as the per-pixel template takes it.
template <bool Fwd, class T>
inline float load_input(T v) {
    if constexpr (Fwd && sizeof(T) == 1) return kUnit8.v[v];
    else return load_sample(v);
}

template <class T>
inline T store_sample(float v) {
    if constexpr (Elem<T>::kFloat) return v;
    else return T(round_even(v) - Elem<T>::kOff);
}

// The scalar row kernel: S is the pixel stride (3 for C3, 4 for AC4, whose
// alpha is neither read nor written).
template <class Model, bool Fwd, class T, int S, int Red>
void convert_row(const T* src, T* dst, int width) {
    using L = Lanes<Fwd, Red>;
    for (int x = 0; x < width; ++x, src += S, dst += S) {
        float c0 = load_input<Fwd>(src[L::in[0]]), c1 = load_input<Fwd>(src[L::in[1]]), c2 = load_input<Fwd>(src[L::in[2]]);
        Pixel<Model, Fwd, T>::run(c0, c1, c2);
        dst[L::out[0]] = store_sample<T>(c0);
        dst[L::out[1]] = store_sample<T>(c1);
        dst[L::out[2]] = store_sample<T>(c2);
    }
}

}  // namespace nmq::luvlab
