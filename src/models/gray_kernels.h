// Gray row kernels. The scalar forms define the bits; the SSE2 forms
// (gray_kernels_sse2.cpp) give the same bytes. No ROI logic here.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

namespace nmq::gray {

// 8u weights: unsigned 16-bit numbers with 15 fraction bits, order R, G, B.
struct Weights8u {
    uint32_t r, g, b;
};
// Float weights of the 16u, 16s and 32f paths, order R, G, B.
struct Weights32f {
    float r, g, b;
};
struct Weights64f {
    double r, g, b;
};

// The fixed weights. Their sum is 32769: white stays white on both 8u paths.
constexpr Weights8u kFixed8u{9798, 19235, 3736};
constexpr Weights32f kFixed32f{0.299f, 0.587f, 0.114f};
// The 64f default is the float weights widened, not the doubles nearest to
// 0.299, 0.587 and 0.114: both float and double callers get the same gray.
constexpr Weights64f kFixed64f{double(0.299f), double(0.587f), double(0.114f)};

// Float to int32 as the SSE conversions do it: truncation toward zero or the
// current rounding mode (nearest-even here); NaN and values outside the int32
// range give INT32_MIN. Every path converts through these so that the scalar
// forms and the vector forms agree on any input.
inline int32_t cvt_trunc(double v) {
    return (v > -2147483649.0 && v < 2147483648.0) ? int32_t(v) : INT32_MIN;
}
inline int32_t cvt_round(float v) {
    return (v >= -2147483648.0f && v < 2147483648.0f) ? int32_t(std::nearbyint(v)) : INT32_MIN;
}

// Caller weight to 8u weight: w = trunc(c * 32768 + 0.5) in double, of which
// only the low 16 bits are kept, so 2.0 and above, or negative weights, wrap.
inline uint32_t weight_8u(float c) { return uint32_t(cvt_trunc(double(c) * 32768.0 + 0.5)) & 0xFFFFu; }

// ---- 8u ------------------------------------------------------------------
// An 8u row has two arithmetics, chosen by column: the vector part (the first
// 4*floor(w/4) pixels of C3 rows, 8*floor(w/8) of AC4 rows) and the scalar
// tail (the rest). They differ by one in some pixels; both are part of the
// interface, so the scalar kernel implements both by column.

// Vector-part pixel: each sample sits in the high byte of a 16-bit lane and is
// multiplied unsigned-high-half by its weight; the three products and 64 are
// summed with unsigned 16-bit saturation, and the sum is shifted right by 7 as
// a signed 16-bit number and packed with unsigned saturation: a sum of 32768
// or more (weights well above 1) gives 0.
inline uint8_t gray8u_vector_px(uint32_t r, uint32_t g, uint32_t b, const Weights8u& w) {
    uint32_t s = ((r << 8) * w.r >> 16) + ((g << 8) * w.g >> 16) + ((b << 8) * w.b >> 16) + 64;
    if (s > 0xFFFFu) s = 0xFFFFu;
    return s < 0x8000u ? uint8_t(s >> 7) : 0;
}

// Tail pixel: rounded 32-bit sum with 15 fraction bits, low 8 bits stored.
inline uint8_t gray8u_tail_px(uint32_t r, uint32_t g, uint32_t b, const Weights8u& w) {
    return uint8_t((r * w.r + g * w.g + b * w.b + 16384u) >> 15);
}

// Pixels of an 8u row that the vector arithmetic converts (S = pixel stride).
template <int S>
constexpr int gray8u_vector_part(int width) {
    return S == 3 ? width & ~3 : width & ~7;
}

template <int S>
inline void gray8u_tail(const uint8_t* src, uint8_t* dst, int from, int width, const Weights8u& w) {
    for (int x = from; x < width; ++x) dst[x] = gray8u_tail_px(src[S * x], src[S * x + 1], src[S * x + 2], w);
}

template <int S>
inline void innerRGBToGray_8u_C3C1R(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w) {
    const int v = gray8u_vector_part<S>(width);
    for (int x = 0; x < v; ++x) dst[x] = gray8u_vector_px(src[S * x], src[S * x + 1], src[S * x + 2], w);
    gray8u_tail<S>(src, dst, v, width, w);
}

template <int S>
void innerRGBToGray_8u_C3C1R_sse2(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w);
// AVX2 form of the three-channel kernel (gray_kernels_avx2.cpp).
void innerRGBToGray_8u_C3C1R_avx2(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w);
// AVX-512 form of the three-channel kernel (gray_kernels_avx512.cpp).
void innerRGBToGray_8u_C3C1R_avx512(const uint8_t* src, uint8_t* dst, int width, const Weights8u& w);

using Gray8uRow = void (*)(const uint8_t*, uint8_t*, int, const Weights8u&);

// ---- 16u, 16s, 32f, 64f ----------------------------------------------------
inline float gray_sum(float r, float g, float b, const Weights32f& w) { return (r * w.r + g * w.g) + b * w.b; }

// 16u: rounded to nearest-even; the low 16 bits are stored on every column
// (out-of-range results only arise from caller weights and are not
// meaningful; storing the low bits keeps both paths alike).
template <int S>
inline void innerRGBToGray_16u_C3C1R(const uint16_t* src, uint16_t* dst, int width, const Weights32f& w) {
    for (int x = 0; x < width; ++x) {
        const uint16_t* p = src + S * x;
        dst[x] = uint16_t(cvt_round(gray_sum(float(p[0]), float(p[1]), float(p[2]), w)));
    }
}

// 16s: samples offset by +32768 before weighting and the offset taken out of
// the rounded result, so weights summing to s != 1 shift the result by
// 32768 * (s - 1). The vector part (4*floor(w/4) pixels) saturates to 16 bits,
// the tail keeps the low 16 bits.
inline int32_t gray16s_unclamped(const int16_t* p, const Weights32f& w) {
    const float y = gray_sum(float(p[0] + 32768), float(p[1] + 32768), float(p[2] + 32768), w);
    return int32_t(uint32_t(cvt_round(y)) - 32768u);  // wraps like a 32-bit lane
}

template <int S>
inline void innerRGBToGray_16s_C3C1R(const int16_t* src, int16_t* dst, int width, const Weights32f& w) {
    const int v = width & ~3;
    for (int x = 0; x < v; ++x) {
        const int32_t y = gray16s_unclamped(src + S * x, w);
        dst[x] = int16_t(y < -32768 ? -32768 : y > 32767 ? 32767 : y);
    }
    for (int x = v; x < width; ++x) dst[x] = int16_t(uint16_t(uint32_t(gray16s_unclamped(src + S * x, w))));
}

template <int S>
inline void innerRGBToGray_32f_C3C1R(const float* src, float* dst, int width, const Weights32f& w) {
    for (int x = 0; x < width; ++x) dst[x] = gray_sum(src[S * x], src[S * x + 1], src[S * x + 2], w);
}

// 64f: w_R * R + w_G * G + w_B * B, left to right.
template <int S>
inline void innerColorToGray_64f_C3C1R(const double* src, double* dst, int width, const Weights64f& w) {
    for (int x = 0; x < width; ++x) dst[x] = (w.r * src[S * x] + w.g * src[S * x + 1]) + w.b * src[S * x + 2];
}

// ---- gray to colour --------------------------------------------------------
// The gray sample goes to three channels (and the alpha value to the fourth).
// Samples are copied as bit patterns (float NaNs keep their payload).
template <class T, int C>
inline void gray_to_color_row(const uint8_t* src, uint8_t* dst, int width, T alpha) {
    for (int x = 0; x < width; ++x) {
        T g;
        std::memcpy(&g, src + sizeof(T) * x, sizeof(T));
        uint8_t* d = dst + sizeof(T) * C * x;
        std::memcpy(d, &g, sizeof(T));
        std::memcpy(d + sizeof(T), &g, sizeof(T));
        std::memcpy(d + 2 * sizeof(T), &g, sizeof(T));
        if (C == 4) std::memcpy(d + 3 * sizeof(T), &alpha, sizeof(T));
    }
}

}  // namespace nmq::gray
