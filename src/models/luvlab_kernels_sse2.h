// SSE2 forms of the LUV, Lab and YCC row kernels: the per-pixel templates of
// luvlab_kernels.h run on four pixels at once through the lane type F4, whose
// operations are the vector forms of the scalar ones, so the bytes are those
// of the scalar kernels. Samples are gathered into lane registers and results
// scattered back element by element, touching exactly the pixels of the row
// (and never an alpha sample); the rest of a row after the last group of four
// goes through the scalar kernel.
#pragma once

#include <emmintrin.h>

#include "models/gray_pixels_sse2.h"
#include "models/luvlab_kernels.h"

namespace nmq::luvlab {

struct F4 {
    __m128 v;
    F4() = default;
    F4(__m128 x) : v(x) {}
    F4(float c) : v(_mm_set1_ps(c)) {}
    friend F4 operator+(F4 a, F4 b) { return _mm_add_ps(a.v, b.v); }
    friend F4 operator-(F4 a, F4 b) { return _mm_sub_ps(a.v, b.v); }
    friend F4 operator*(F4 a, F4 b) { return _mm_mul_ps(a.v, b.v); }
    friend F4 operator/(F4 a, F4 b) { return _mm_div_ps(a.v, b.v); }
};

// A lane mask: all ones where the comparison holds (NaN compares false in
// gt and true in ne, as in C++).
struct M4 {
    __m128 m;
};
inline M4 gt(F4 a, F4 b) { return {_mm_cmpgt_ps(a.v, b.v)}; }
inline M4 ne(F4 a, F4 b) { return {_mm_cmpneq_ps(a.v, b.v)}; }
inline F4 sel(M4 m, F4 a, F4 b) { return _mm_or_ps(_mm_and_ps(m.m, a.v), _mm_andnot_ps(m.m, b.v)); }
inline F4 vmax(F4 a, F4 b) { return _mm_max_ps(a.v, b.v); }
inline F4 vmin(F4 a, F4 b) { return _mm_min_ps(a.v, b.v); }

inline F4 cbrt_seed(F4 t) {
    const __m128i i = _mm_castps_si128(t.v);
    const __m128i third = _mm_cvttps_epi32(_mm_mul_ps(_mm_cvtepi32_ps(i), _mm_set1_ps(1.0f / 3.0f)));
    return _mm_castsi128_ps(_mm_add_epi32(third, _mm_set1_epi32(kCbrtBias)));
}

// 8u: sixteen pixels per step through the interleaved-pixel loads and
// stores of the colour-model kernels (one pixel per 32-bit lane). Forward
// samples are divided by 255 here: the quotient equals the table entry the
// scalar kernel reads.
template <int K>
inline F4 channel_f(__m128i q) { return _mm_cvtepi32_ps(px::channel32<K>(q)); }

template <class Model, bool Fwd, int S, int Red>
int convert16_8u(const uint8_t* src, uint8_t* dst, int width) {
    using L = Lanes<Fwd, Red>;
    int x = 0;
    for (; x + 16 <= width; x += 16) {
        __m128i q[4];
        if (S == 3) px::load3x16(src + 3 * x, q);
        else px::load4x16(src + 4 * x, q);
        for (auto& g : q) {
            const F4 ch[3] = {channel_f<0>(g), channel_f<1>(g), channel_f<2>(g)};
            F4 c0 = ch[L::in[0]], c1 = ch[L::in[1]], c2 = ch[L::in[2]];
            if (Fwd) {
                c0 = c0 / F4(255.0f);
                c1 = c1 / F4(255.0f);
                c2 = c2 / F4(255.0f);
            }
            Pixel<Model, Fwd, uint8_t>::run(c0, c1, c2);
            __m128i o[3];
            o[L::out[0]] = _mm_cvtps_epi32(c0.v);
            o[L::out[1]] = _mm_cvtps_epi32(c1.v);
            o[L::out[2]] = _mm_cvtps_epi32(c2.v);
            g = _mm_or_si128(_mm_or_si128(o[0], _mm_slli_epi32(o[1], 8)), _mm_slli_epi32(o[2], 16));
        }
        if (S == 3) {
            px::store3x16(dst + 3 * x, q);
        } else {
            // The alpha byte of each destination pixel is not written.
            alignas(16) uint32_t v[16];
            for (int i = 0; i < 4; ++i) _mm_store_si128(reinterpret_cast<__m128i*>(v + 4 * i), q[i]);
            for (int i = 0; i < 16; ++i) {
                uint8_t* d = dst + 4 * (x + i);
                d[0] = uint8_t(v[i]);
                d[1] = uint8_t(v[i] >> 8);
                d[2] = uint8_t(v[i] >> 16);
            }
        }
    }
    return x;
}

template <class Model, bool Fwd, class T, int S, int Red>
void convert_row_sse2(const T* src, T* dst, int width) {
    using L = Lanes<Fwd, Red>;
    int x = 0;
    if constexpr (sizeof(T) == 1) x = convert16_8u<Model, Fwd, S, Red>(src, dst, width);
    for (; x + 4 <= width; x += 4) {
        const T* s = src + S * x;
        T* d = dst + S * x;
        alignas(16) float in[3][4];
        for (int i = 0; i < 4; ++i)
            for (int k = 0; k < 3; ++k) in[k][i] = load_input<Fwd>(s[S * i + L::in[k]]);
        F4 c0 = _mm_load_ps(in[0]), c1 = _mm_load_ps(in[1]), c2 = _mm_load_ps(in[2]);
        Pixel<Model, Fwd, T>::run(c0, c1, c2);
        if constexpr (Elem<T>::kFloat) {
            alignas(16) float out[3][4];
            _mm_store_ps(out[0], c0.v);
            _mm_store_ps(out[1], c1.v);
            _mm_store_ps(out[2], c2.v);
            for (int i = 0; i < 4; ++i)
                for (int k = 0; k < 3; ++k) d[S * i + L::out[k]] = out[k][i];
        } else {
            // Values are clamped into the type's range: the conversion is exact
            // rounding to nearest, as round_even.
            alignas(16) int32_t out[3][4];
            _mm_store_si128(reinterpret_cast<__m128i*>(out[0]), _mm_cvtps_epi32(c0.v));
            _mm_store_si128(reinterpret_cast<__m128i*>(out[1]), _mm_cvtps_epi32(c1.v));
            _mm_store_si128(reinterpret_cast<__m128i*>(out[2]), _mm_cvtps_epi32(c2.v));
            for (int i = 0; i < 4; ++i)
                for (int k = 0; k < 3; ++k) d[S * i + L::out[k]] = T(out[k][i] - Elem<T>::kOff);
        }
    }
    convert_row<Model, Fwd, T, S, Red>(src + S * x, dst + S * x, width - x);
}

}  // namespace nmq::luvlab
