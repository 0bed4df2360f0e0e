// XYZ row kernels (linear RGB <-> CIE XYZ, D65 white, BT.709 primaries). The
// scalar forms define the bits; the SSE2 forms (xyz_kernels_sse2.cpp) give the
// same bytes. S is the pixel stride: 3 for C3, 4 for AC4, whose alpha is
// neither read nor written.
#pragma once

#include <cstdint>

namespace nmq::xyz {

// Matrices in the order X_R, Y_R, Z_R, X_G, Y_G, Z_G, X_B, Y_B, Z_B (one
// column per input channel; the inverse likewise with R, G, B per X, Y, Z).
constexpr float RGBToXYZ[9] = {0.412453f, 0.212671f, 0.019334f, 0.357580f, 0.715160f,
                               0.119193f, 0.180423f, 0.072169f, 0.950227f};
constexpr float XYZToRGB[9] = {3.240479f, -0.969256f, 0.055648f, -1.537150f, 1.875991f,
                               -0.204043f, -0.498535f, 0.041556f, 1.057311f};

// 8u: the float coefficients times 65536, truncated toward zero (no rounding
// term anywhere, so the truncated Y row sums to 65534 and white gives Y 254).
constexpr int32_t RGBToXYZ_8u[9] = {27030, 13937, 1267, 23434, 46868, 7811, 11824, 4729, 62274};
constexpr int32_t XYZToRGB_8u[9] = {212368, -63521, 3646, -100738, 122944, -13372, -32671, 2723, 69291};

inline uint8_t clamp_u8(int32_t v) { return uint8_t(v < 0 ? 0 : v > 255 ? 255 : v); }

// Output k of a pixel: (c0 a + c1 b + c2 c) >> 16, the shift flooring.
inline int32_t fixed_row(const int32_t* m, int k, int32_t a, int32_t b, int32_t c) {
    return (m[k] * a + m[3 + k] * b + m[6 + k] * c) >> 16;
}

// X and Y cannot leave 0..255; Z can (white gives 277) and is capped.
template <int S>
inline void innerRGBToXYZ_8u_C3R(const uint8_t* src, uint8_t* dst, int width) {
    for (int x = 0; x < width; ++x, src += S, dst += S)
        for (int k = 0; k < 3; ++k) dst[k] = clamp_u8(fixed_row(RGBToXYZ_8u, k, src[0], src[1], src[2]));
}

template <int S>
inline void innerXYZToRGB_8u_C3R(const uint8_t* src, uint8_t* dst, int width) {
    for (int x = 0; x < width; ++x, src += S, dst += S)
        for (int k = 0; k < 3; ++k) dst[k] = clamp_u8(fixed_row(XYZToRGB_8u, k, src[0], src[1], src[2]));
}

// Float output k: (a c0 + b c1) + c c2, in single precision, in this order.
inline float float_row(const float* m, int k, float a, float b, float c) {
    return (a * m[k] + b * m[3 + k]) + c * m[6 + k];
}

// Forward 32f clamps Z alone to 0..1 (max with 0, then min with 1; a NaN
// becomes 0): only Z's row sums above 1, and X and Y are kept as computed,
// out-of-range inputs giving out-of-range X and Y.
inline float max0(float v) { return v > 0.0f ? v : 0.0f; }
inline float min1(float v) { return v < 1.0f ? v : 1.0f; }

template <int S>
inline void innerRGBToXYZ_32f_C3R(const float* src, float* dst, int width) {
    for (int x = 0; x < width; ++x, src += S, dst += S) {
        const float r = src[0], g = src[1], b = src[2];
        dst[0] = float_row(RGBToXYZ, 0, r, g, b);
        dst[1] = float_row(RGBToXYZ, 1, r, g, b);
        dst[2] = min1(max0(float_row(RGBToXYZ, 2, r, g, b)));
    }
}

// Inverse 32f clamps every channel: a negative result becomes 0 (-0.0 and
// NaN are not negative), then min with 1 (a NaN becomes 1).
inline float clamp01_inv(float v) { return min1(v < 0.0f ? 0.0f : v); }

template <int S>
inline void innerXYZToRGB_32f_C3R(const float* src, float* dst, int width) {
    for (int x = 0; x < width; ++x, src += S, dst += S) {
        const float X = src[0], Y = src[1], Z = src[2];
        for (int k = 0; k < 3; ++k) dst[k] = clamp01_inv(float_row(XYZToRGB, k, X, Y, Z));
    }
}

// 16u and 16s through float: the 32f matrix without the 0..1 clamps, the
// result truncated toward zero and saturated to 16 bits on every channel.
// 16s works on samples shifted by +32768 and shifts the result back.
template <class T>
struct Offset16 {
    static constexpr int32_t value = 0;
};
template <>
struct Offset16<int16_t> {
    static constexpr int32_t value = 32768;
};

template <class T, int S, const float* M>
inline void float_matrix_16(const T* src, T* dst, int width) {
    constexpr int32_t off = Offset16<T>::value;
    for (int x = 0; x < width; ++x, src += S, dst += S) {
        const float a = float(src[0] + off), b = float(src[1] + off), c = float(src[2] + off);
        for (int k = 0; k < 3; ++k) {
            const int32_t v = int32_t(float_row(M, k, a, b, c));  // |v| < 2^19: truncation is exact C++
            dst[k] = T((v < 0 ? 0 : v > 65535 ? 65535 : v) - off);
        }
    }
}

template <class T, int S>
inline void innerRGBToXYZ_16_C3R(const T* src, T* dst, int width) { float_matrix_16<T, S, RGBToXYZ>(src, dst, width); }
template <class T, int S>
inline void innerXYZToRGB_16_C3R(const T* src, T* dst, int width) { float_matrix_16<T, S, XYZToRGB>(src, dst, width); }

template <int S>
void innerRGBToXYZ_8u_C3R_sse2(const uint8_t* src, uint8_t* dst, int width);
template <int S>
void innerXYZToRGB_8u_C3R_sse2(const uint8_t* src, uint8_t* dst, int width);
template <int S>
void innerRGBToXYZ_32f_C3R_sse2(const float* src, float* dst, int width);
template <int S>
void innerXYZToRGB_32f_C3R_sse2(const float* src, float* dst, int width);

// AVX2 forms of the C3 kernels (xyz_kernels_avx2.cpp).
void innerRGBToXYZ_8u_C3R_avx2(const uint8_t* src, uint8_t* dst, int width);
void innerXYZToRGB_8u_C3R_avx2(const uint8_t* src, uint8_t* dst, int width);
void innerRGBToXYZ_32f_C3R_avx2(const float* src, float* dst, int width);
void innerXYZToRGB_32f_C3R_avx2(const float* src, float* dst, int width);
// The same writing the destination with non-temporal stores, for images far
// larger than the caches.
void innerRGBToXYZ_32f_C3R_avx2_nt(const float* src, float* dst, int width);
void innerXYZToRGB_32f_C3R_avx2_nt(const float* src, float* dst, int width);

using Row8u = void (*)(const uint8_t*, uint8_t*, int);
using Row32f = void (*)(const float*, float*, int);

}  // namespace nmq::xyz
