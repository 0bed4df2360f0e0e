// Bit-depth reduction: the working domain of each element pair and the scalar
// row routines, which define the bits. The SSE2 forms (reduce_kernels_sse2.cpp)
// give the same bytes; error diffusion is serial along a row, so only the part
// gathered from the rows above has a vector form.
#pragma once

#include <xmmintrin.h>

#include <cstdint>
#include <type_traits>

#include "frame/common.h"

namespace nmq::reduce {

// Float to int32 by truncation toward zero. Values outside the int32 range and
// NaN give INT32_MIN (the processor's truncating conversion, which the vector
// forms use too), so every form agrees on every input.
inline int32_t trunc_i32(float f) { return _mm_cvttss_si32(_mm_set_ss(f)); }

// Channel modes handed to the kernels: a row is width x elems() contiguous
// elements, except AC4, whose fourth element of each pixel is never written.
enum Mode : int { ModeC1 = 1, ModeC3 = 3, ModeAC4 = 4, ModeC4 = 5 };
inline int mode_elems(int mode) { return mode < 4 ? mode : 4; }
inline int mode_channels(int mode) { return mode == ModeAC4 ? 3 : mode_elems(mode); }

// The working domain of a source/destination pair.
template <class S, class T>
struct Dom {
    using Src = S;
    using Dst = T;
    static constexpr bool kSrc8u = std::is_same_v<S, uint8_t>;
    static constexpr bool kSrc16s = std::is_same_v<S, int16_t>;
    static constexpr bool kSrcFloat = std::is_same_v<S, float>;
    static constexpr bool kDst8u = sizeof(T) == 1;
    // Output levels span 0..kTop before the bias of a signed destination is taken off.
    static constexpr int kTop = kDst8u ? 255 : 65535;
    static constexpr int kBias = std::is_same_v<T, int16_t> ? 32768 : 0;
    static constexpr int kMaxLevels = kTop + 1;
    // 16-bit results land in an 8-bit destination through their high byte.
    static constexpr int kShift = (sizeof(S) == 2 && kDst8u) ? 8 : 0;
    // Floyd-Steinberg: these pairs gather the row above as (3*e[x+1] + 5*e[x]) + e[x-1]
    // instead of (3*e[x+1] + e[x-1]) + 5*e[x]; the bits of the two differ.
    static constexpr bool kFsCentreFirst = kSrcFloat || (kSrc16s && kDst8u);
    // Error diffusion stops at these limits: at or above kUpper the element is
    // the top level, below kLower the bottom one, and no error moves on.
    static constexpr float kUpper = kSrcFloat ? 1.0f : kSrc8u ? 255.0f : 65535.0f;
    static constexpr float kLower = kSrcFloat ? 1.1920929e-7f : 0.0f;

    // Value of a source element in the error-diffusion and Bayer domain.
    static float value(S v) {
        if constexpr (kSrc16s) return float(int(v) + 32768);
        else return float(v);
    }
    // Value normalised to 0..1 for the undithered reduction (float is taken as is).
    static float norm(S v) {
        if constexpr (kSrc8u) return float(v) * 0.003921569f;
        else if constexpr (kSrc16s) return float(int(v) + 32768) * 1.5259022e-5f;
        else if constexpr (kSrcFloat) return v;
        else return float(v) * 1.5259022e-5f;
    }
    // Quantisation step and its inverse for L = levels - 1.
    static float step(int L) {
        if constexpr (kSrc8u) return (65280.0f / float(L)) * 0.00390625f;
        else if constexpr (kSrcFloat) return 1.0f / float(L);
        else return 65535.0f / float(L);
    }
    static float inverse(int L) {
        if constexpr (kSrc8u) return float(L) / 255.0f;
        else if constexpr (kSrcFloat) return float(L);
        else return float(L) / 65535.0f;
    }
    // Every result saturates to the destination: the rules keep ordinary
    // results in range, but noise at the top level, NaN and huge float input
    // can step past it.
    static T store(int32_t i) { return T((i < 0 ? 0 : i > kTop ? kTop : i) - kBias); }
    // Output of a level r of the error-diffusion domain (float input rounds).
    static T ed_out(float r) {
        if constexpr (kSrcFloat) return store(trunc_i32(r * float(kTop) + 0.5f));
        else return store(trunc_i32(r) >> kShift);
    }
    // Output of a level r of the Bayer domain (float input truncates).
    static T bayer_out(float r) {
        if constexpr (kSrcFloat) return store(trunc_i32(r * float(kTop)));
        else return store(trunc_i32(r) >> kShift);
    }
};

using D8u = Dom<uint8_t, uint8_t>;
using D16u = Dom<uint16_t, uint16_t>;
using D16s = Dom<int16_t, int16_t>;
using D16u8u = Dom<uint16_t, uint8_t>;
using D16s8u = Dom<int16_t, uint8_t>;
using D32f8u = Dom<float, uint8_t>;
using D32f16u = Dom<float, uint16_t>;
using D32f16s = Dom<float, int16_t>;

// ---- undithered reduction -------------------------------------------------

// Constants of one call: L and 1/L, 0.5/L as float divisions.
struct NoParams {
    float L, inv, half;
};
inline NoParams no_params(int L) { return {float(L), 1.0f / float(L), 0.5f / float(L)}; }

// Nearest level of one element; an exact half goes down.
template <class D>
inline typename D::Dst ownNo_elem(typename D::Src v, const NoParams& p) {
    const float x = D::norm(v);
    float y = float(trunc_i32(p.L * x)) * p.inv;
    if (x - y > p.half) y = y + p.inv;
    return D::store(trunc_i32(y * float(D::kTop)));
}

// One row: n contiguous elements, or n / 4 AC4 pixels whose alpha is skipped.
template <class D>
using NoRow = void (*)(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const NoParams& p);

template <class D>
void ownNo_row_scalar(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const NoParams& p) {
    for (int i = 0; i < n; ++i) {
        if (ac4 && (i & 3) == 3) continue;
        d[i] = ownNo_elem<D>(s[i], p);
    }
}

// ---- ordered (Bayer) dithering ---------------------------------------------

struct QuantParams {
    float s, inv;
};

// Level of one element against its threshold t: up a step when t < v - q.
template <class D>
inline typename D::Dst bayer_elem(typename D::Src src, float t, const QuantParams& p) {
    const float v = D::value(src);
    const float q = float(trunc_i32(v * p.inv)) * p.s;
    const float r = t < v - q ? q + p.s : q;
    return D::bayer_out(r);
}

// One row chunk: element i compared with thr[i]; in AC4 every fourth element is skipped.
template <class D>
using BayerRow = void (*)(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const float* thr,
                          const QuantParams& p);

template <class D>
void bayer_row_scalar(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const float* thr,
                      const QuantParams& p) {
    for (int i = 0; i < n; ++i) {
        if (ac4 && (i & 3) == 3) continue;
        d[i] = bayer_elem<D>(s[i], thr[i], p);
    }
}

// ---- error diffusion: terms gathered from the rows above --------------------
// Each routine writes, into the current error row e0[0..w-1], the weighted sum
// of the rows above for every x; the serial pass then adds the terms of the
// current row. Guard elements (e[-1] and e[w] for Floyd-Steinberg, two at
// either end for the others) are read, never written.

using FsTerms = void (*)(const float* e1, float* e0, int w);
using JjTerms = void (*)(const float* e2, const float* e1, float* e0, int w);

// Floyd-Steinberg: (3*e1[x+1] + e1[x-1]) + 5*e1[x].
inline float fs_terms_a(const float* e1, int x) { return (3.0f * e1[x + 1] + e1[x - 1]) + 5.0f * e1[x]; }
// Floyd-Steinberg, centre first: (3*e1[x+1] + 5*e1[x]) + e1[x-1].
inline float fs_terms_b(const float* e1, int x) { return (3.0f * e1[x + 1] + 5.0f * e1[x]) + e1[x - 1]; }

inline void fs_terms_a_scalar(const float* e1, float* e0, int w) {
    for (int x = 0; x < w; ++x) e0[x] = fs_terms_a(e1, x);
}
inline void fs_terms_b_scalar(const float* e1, float* e0, int w) {
    for (int x = 0; x < w; ++x) e0[x] = fs_terms_b(e1, x);
}

// Weights of the twelve-neighbour kernels: row two above (outer, inner,
// centre), row one above (outer, inner, centre), current row (x-2, x-1), and
// the multiplier that stands for the division by the weights' sum.
struct JjWeights {
    float a2, b2, c2, a1, b1, c1, m2, m1, mult;
};
constexpr JjWeights kJarvis{1.0f, 3.0f, 5.0f, 3.0f, 5.0f, 7.0f, 5.0f, 7.0f, 0.020833334f};
constexpr JjWeights kStucki{1.0f, 2.0f, 4.0f, 2.0f, 4.0f, 8.0f, 4.0f, 8.0f, 0.023809524f};

// The rows above, symmetric pairs first, row two above before row one above.
// This order is the library's own and fixed: every form follows it.
inline float jj_terms(const float* e2, const float* e1, int x, const JjWeights& k) {
    const float t2 = ((e2[x - 2] + e2[x + 2]) * k.a2 + (e2[x - 1] + e2[x + 1]) * k.b2) + e2[x] * k.c2;
    const float t1 = ((e1[x - 2] + e1[x + 2]) * k.a1 + (e1[x - 1] + e1[x + 1]) * k.b1) + e1[x] * k.c1;
    return t2 + t1;
}

template <int Kind>
void jj_terms_scalar(const float* e2, const float* e1, float* e0, int w) {
    const JjWeights& k = Kind == 3 ? kStucki : kJarvis;
    for (int x = 0; x < w; ++x) e0[x] = jj_terms(e2, e1, x, k);
}

// ---- one bit per pixel -------------------------------------------------------

// Integer Stucki terms of the rows above (exact, so any order gives the same sum).
inline int32_t st1u_terms(const int32_t* e2, const int32_t* e1, int x) {
    return e2[x - 2] + e2[x + 2] + 2 * (e2[x - 1] + e2[x + 1] + e1[x - 2] + e1[x + 2]) +
           4 * (e2[x] + e1[x - 1] + e1[x + 1]) + 8 * e1[x];
}
using St1uTerms = void (*)(const int32_t* e2, const int32_t* e1, int32_t* e0, int w);
inline void st1u_terms_scalar(const int32_t* e2, const int32_t* e1, int32_t* e0, int w) {
    for (int x = 0; x < w; ++x) e0[x] = st1u_terms(e2, e1, x);
}

// Threshold bits of n pixels (n a multiple of 8) packed most significant bit
// first into n / 8 bytes.
using ThreshBytes = void (*)(const uint8_t* s, uint8_t* out, int n, uint8_t threshold);
inline void thresh_bytes_scalar(const uint8_t* s, uint8_t* out, int n, uint8_t threshold) {
    for (int i = 0; i < n; i += 8) {
        unsigned b = 0;
        for (int k = 0; k < 8; ++k) b = (b << 1) | unsigned(s[i + k] > threshold);
        out[i >> 3] = uint8_t(b);
    }
}

// ---- the SSE2 forms -----------------------------------------------------------

template <class D>
void ownNo_row_sse2(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const NoParams& p);
template <class D>
void bayer_row_sse2(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const float* thr,
                    const QuantParams& p);
void fs_terms_a_sse2(const float* e1, float* e0, int w);
void fs_terms_b_sse2(const float* e1, float* e0, int w);
template <int Kind>
void jj_terms_sse2(const float* e2, const float* e1, float* e0, int w);
void st1u_terms_sse2(const int32_t* e2, const int32_t* e1, int32_t* e0, int w);
void thresh_bytes_sse2(const uint8_t* s, uint8_t* out, int n, uint8_t threshold);

}  // namespace nmq::reduce
