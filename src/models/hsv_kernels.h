// HSV and HLS: the per-pixel arithmetic and the scalar row kernels. These
// define the bits; the SSE2 kernels (hsv_kernels_sse2.h) give the same bytes.
//
// All arithmetic is single precision in the order written here: float
// products and sums are not associative, and the low bits of H and S are part
// of the interface.
#pragma once

#include <emmintrin.h>

#include <cstdint>
#include <type_traits>

#include "frame/saturate.h"
#include "models/hsv_layout.h"

namespace nmq::hsv {

// The processor's reciprocal estimate (relative error below 1.5 * 2^-12),
// taken from the scalar form of the instruction the vector kernels use in
// packed form: on one machine both give the same bits. The bits themselves
// belong to the processor: x86 makes differ in the last bits of the
// estimate, and processors without this instruction (or with another
// estimate, such as an 8-bit table) give other results in the 8u HSV kernels
// and the forward 8u/16u/16s HLS kernels, usually one unit of H or S.
inline float rcp_est(float x) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(x))); }

// The estimate refined by one Newton step: 2r - x r r.
inline float rcp_nr(float x) {
    const float r = rcp_est(x);
    return 2.0f * r - x * r * r;
}

// Float to int in the current rounding mode (nearest-even unless the caller
// changed it), like the packed conversion of the vector kernels.
inline int round_even(float x) { return _mm_cvtss_si32(_mm_set_ss(x)); }

inline int max3(int a, int b, int c) { return a > b ? (a > c ? a : c) : (b > c ? b : c); }
inline int min3(int a, int b, int c) { return a < b ? (a < c ? a : c) : (b < c ? b : c); }

// ---- 8u HSV -------------------------------------------------------------------

// Which formula a pixel whose maximum is shared by two samples gets. The
// vector part of a row takes G when G is the maximum and R is not, B when B
// is the maximum and G did not win, R otherwise; the scalar tail tests R, G,
// B in turn and the last one equal to the maximum wins. The two hues differ
// in the last float bit, which can move the rounded hue by one unit, so a
// pixel's result depends on whether its column lies in the vector part
// (the first 4 * floor(width / 4) pixels of the row) or in the tail.
enum class Ties { Vector, Tail };

template <Ties T>
inline void rgb_to_hsv_8u(const int r, const int g, const int b, int& h, int& s, int& v) {
    const int V = max3(r, g, b), d = V - min3(r, g, b);
    v = V;
    if (d == 0) {  // gray, black included
        h = s = 0;
        return;
    }
    s = round_even(rcp_est(float(V)) * float(d) * 255.0f);
    const float inv = rcp_est(float(d));
    const float rc = float(V - r) * inv, gc = float(V - g) * inv, bc = float(V - b) * inv;
    float h6;
    if (T == Ties::Vector) {
        const bool g_wins = g == V && r != V;
        if (b == V && !g_wins) h6 = 4.0f + gc - rc;
        else if (g_wins) h6 = 2.0f + rc - bc;
        else h6 = bc - gc;
    } else {
        h6 = 0.0f;
        if (r == V) h6 = bc - gc;
        if (g == V) h6 = 2.0f + rc - bc;
        if (b == V) h6 = 4.0f + gc - rc;
    }
    float hf = h6 * 42.5f;  // 255 / 6 units per sextant
    if (hf < 0.0f) hf += 255.0f;
    h = sat_u8(round_even(hf));  // never above 255
}

inline void hsv_to_rgb_8u(int H, const int S, const int V, int& r, int& g, int& b) {
    if (S == 0) {
        r = g = b = V;
        return;
    }
    if (H == 255) H = 0;  // the full circle
    const float h = float(H) * 0.016666668f * 1.4117647f;  // x 1/60, then x 360/255
    const int i = int(h);                                  // sextant 0..5
    const float f = h - float(i);
    const float fv = float(V);
    const float c = fv * (float(S) * 0.003921569f);
    const float p = fv - c, q = fv - f * c, t = p + f * c;
    float R, G, B;
    switch (i) {
        case 0: R = fv; G = t; B = p; break;
        case 1: R = q; G = fv; B = p; break;
        case 2: R = p; G = fv; B = t; break;
        case 3: R = p; G = q; B = fv; break;
        case 4: R = t; G = p; B = fv; break;
        default: R = fv; G = p; B = q; break;
    }
    r = sat_u8(round_even(R));
    g = sat_u8(round_even(G));
    b = sat_u8(round_even(B));
}

// ---- 8u and 16-bit HLS ----------------------------------------------------------

// Scales of the integer HLS kernels: 8u, and 16u (16s is 16u on the value
// offset by 32768). The arithmetic is the same.
struct Hls8u {
    static constexpr int kTop = 255;
    static constexpr float kMax = 255.0f, kHalf = 127.5f, kTwice = 510.0f;
    static constexpr float kHueOut = 0.7083333f;   // 255 / 360
    static constexpr float kHueIn = 1.4117647f;    // 360 / 255
    static constexpr float kUnit = 0.003921569f;   // 1 / 255
};
struct Hls16u {
    static constexpr int kTop = 65535;
    static constexpr float kMax = 65535.0f, kHalf = 32767.5f, kTwice = 131070.0f;
    static constexpr float kHueOut = 182.04167f;     // 65535 / 360
    static constexpr float kHueIn = 0.005493248f;    // 360 / 65535
    static constexpr float kUnit = 1.5259022e-05f;   // 1 / 65535
};

template <class Sc>
inline int sat_top(int v) { return v < 0 ? 0 : v > Sc::kTop ? Sc::kTop : v; }

// Reciprocals are the refined estimate; every conversion to integer truncates.
template <class Sc>
inline void rgb_to_hls(const int r, const int g, const int b, int& h, int& l, int& s) {
    const int V = max3(r, g, b), m = min3(r, g, b), d = V - m;
    const float sum = float(V + m);
    l = int(sum * 0.5f);
    if (d == 0) {
        h = s = 0;
        return;
    }
    const float den = sum * 0.5f > Sc::kHalf ? Sc::kTwice - sum : sum;
    s = sat_top<Sc>(int(float(d) * rcp_nr(den) * Sc::kMax));
    const float rd = rcp_nr(float(d));
    float hue;  // degrees; red wins ties, then green
    if (r == V) hue = float(g - b) * 60.0f * rd;
    else if (g == V) hue = float(b - r) * 60.0f * rd + 120.0f;
    else hue = float(r - g) * 60.0f * rd + 240.0f;
    if (hue < 0.0f) hue += 360.0f;
    h = sat_top<Sc>(int(hue * Sc::kHueOut));
}

// One channel of the inverse for hue angle a (degrees). The integer kernels
// multiply by 1/60 where the float kernel divides by 60.
inline float hls_value(const float a, const float m1, const float m2) {
    if (a < 60.0f) return a * 0.016666668f * (m2 - m1) + m1;
    if (a < 180.0f) return m2;
    if (a < 240.0f) return (240.0f - a) * 0.016666668f * (m2 - m1) + m1;
    return m1;
}

template <class Sc>
inline void hls_to_rgb(const int H, const int L, const int S, int& r, int& g, int& b) {
    const float h = float(H) * Sc::kHueIn;
    const float l = float(L) * Sc::kUnit, s = float(S) * Sc::kUnit;
    float R, G, B;
    if (S == 0) {
        R = G = B = l;
    } else {
        const float m2 = l <= 0.5f ? l * (1.0f + s) : l + s - l * s;
        const float m1 = 2.0f * l - m2;
        float ar = h + 120.0f;
        if (ar > 360.0f) ar -= 360.0f;
        float ab = h - 120.0f;
        if (ab < 0.0f) ab += 360.0f;
        R = hls_value(ar, m1, m2);
        G = hls_value(h, m1, m2);
        B = hls_value(ab, m1, m2);
    }
    r = sat_top<Sc>(int(R * Sc::kMax));
    g = sat_top<Sc>(int(G * Sc::kMax));
    b = sat_top<Sc>(int(B * Sc::kMax));
}

// ---- 16u HSV (true divisions) ------------------------------------------------------

inline void rgb_to_hsv_16u(const int r, const int g, const int b, int& h, int& s, int& v) {
    const int V = max3(r, g, b), d = V - min3(r, g, b);
    v = V;
    if (d == 0) {
        h = s = 0;
        return;
    }
    s = sat_u16(int(float(d) / float(V) * 65535.0f + 0.5f));
    const float inv = 1.0f / float(d);
    const float rc = float(V - r) * inv, gc = float(V - g) * inv, bc = float(V - b) * inv;
    float h6;  // blue wins ties, then green
    if (b == V) h6 = 4.0f - rc + gc;
    else if (g == V) h6 = 2.0f + rc - bc;
    else h6 = bc - gc;
    if (h6 + 1.1920929e-7f < 0.0f) h6 += 6.0f;
    h = sat_u16(int(h6 * 65535.0f / 6.0f + 0.5f));
}

// The 8u scheme on the 16u scales: the hue goes through x 1/60 and then
// x 360/65535 as the 8u hue goes through x 1/60 and x 360/255.
inline void hsv_to_rgb_16u(int H, const int S, const int V, int& r, int& g, int& b) {
    if (S == 0) {
        r = g = b = V;
        return;
    }
    if (H == 65535) H = 0;
    const float h = float(H) * 0.016666668f * 0.005493248f;
    const int i = int(h);
    const float f = h - float(i);
    const float fv = float(V);
    const float c = fv * (float(S) * 1.5259022e-05f);
    const float p = fv - c, q = fv - f * c, t = p + f * c;
    float R, G, B;
    switch (i) {
        case 0: R = fv; G = t; B = p; break;
        case 1: R = q; G = fv; B = p; break;
        case 2: R = p; G = fv; B = t; break;
        case 3: R = p; G = q; B = fv; break;
        case 4: R = t; G = p; B = fv; break;
        default: R = fv; G = p; B = q; break;
    }
    r = sat_u16(round_even(R));
    g = sat_u16(round_even(G));
    b = sat_u16(round_even(B));
}

// ---- 32f HLS (true divisions) ------------------------------------------------------

inline void rgb_to_hls_32f(const float r, const float g, const float b, float& h, float& l, float& s) {
    float V = r, m = r;
    if (g > V) V = g;
    if (b > V) V = b;
    if (g < m) m = g;
    if (b < m) m = b;
    const float d = V - m;
    l = 0.5f * (m + V);
    if (d <= 1.1920929e-7f) {  // achromatic
        h = s = 0.0f;
        return;
    }
    s = l <= 0.5f ? d / (m + V) : d / (2.0f - (m + V));
    float hue;  // red wins ties, then green
    if (r == V) hue = (g - b) * 60.0f / d;
    else if (g == V) hue = 120.0f + (b - r) * 60.0f / d;
    else hue = (r - g) * 60.0f / d + 240.0f;
    if (hue < 0.0f) hue += 360.0f;
    h = hue / 360.0f;
}

inline float hls_value_32f(const float a, const float m1, const float m2) {
    if (a < 60.0f) return m1 + (m2 - m1) * a / 60.0f;
    if (a < 180.0f) return m2;
    if (a < 240.0f) return m1 + (m2 - m1) * (240.0f - a) / 60.0f;
    return m1;
}

inline void hls_to_rgb_32f(const float H, const float L, const float S, float& r, float& g, float& b) {
    const float h = H * 360.0f;
    if (S == 0.0f) {
        r = g = b = L;
        return;
    }
    const float m2 = L <= 0.5f ? L * (1.0f + S) : L + S - L * S;
    const float m1 = 2.0f * L - m2;
    float ar = h + 120.0f;
    if (ar > 360.0f) ar -= 360.0f;
    float ab = h - 120.0f;
    if (ab < 0.0f) ab += 360.0f;
    r = hls_value_32f(ar, m1, m2);
    g = hls_value_32f(h, m1, m2);
    b = hls_value_32f(ab, m1, m2);
}

// ---- scalar row kernels ----------------------------------------------------------------

// 8u rows between two sides (hsv_layout.h). Alpha travels with the pixel; the
// destination side decides whether it is written.
using Row8 = void (*)(const SrcRow&, const DstRow&, int width);

// Pixels from x0 on; columns below vec_end take the vector part's ties.
template <class S, class D>
inline void rgb_to_hsv_8u_pixels(const SrcRow& s, const DstRow& d, int x0, int vec_end, int width) {
    for (int x = x0; x < width; ++x) {
        const Px p = S::load(s, x);
        Px o;
        o.c[3] = p.c[3];
        if (x < vec_end) rgb_to_hsv_8u<Ties::Vector>(p.c[0], p.c[1], p.c[2], o.c[0], o.c[1], o.c[2]);
        else rgb_to_hsv_8u<Ties::Tail>(p.c[0], p.c[1], p.c[2], o.c[0], o.c[1], o.c[2]);
        D::store(d, x, o);
    }
}

template <class S, class D>
void innerRGBToHSV_8u(const SrcRow& s, const DstRow& d, int width) {
    rgb_to_hsv_8u_pixels<S, D>(s, d, 0, width & ~3, width);
}

// Pixel-by-pixel loop of a conversion with one formula for every column.
template <class S, class D, class F>
inline void map_pixels(const SrcRow& s, const DstRow& d, int x0, int width, F f) {
    for (int x = x0; x < width; ++x) {
        const Px p = S::load(s, x);
        Px o;
        o.c[3] = p.c[3];
        f(p.c[0], p.c[1], p.c[2], o.c[0], o.c[1], o.c[2]);
        D::store(d, x, o);
    }
}

template <class S, class D>
void innerHSVToRGB_8u(const SrcRow& s, const DstRow& d, int width) {
    map_pixels<S, D>(s, d, 0, width, hsv_to_rgb_8u);
}

template <class S, class D>
void innerRGBToHLS_8u(const SrcRow& s, const DstRow& d, int width) {
    map_pixels<S, D>(s, d, 0, width, rgb_to_hls<Hls8u>);
}

template <class S, class D>
void innerHLSToRGB_8u(const SrcRow& s, const DstRow& d, int width) {
    map_pixels<S, D>(s, d, 0, width, hls_to_rgb<Hls8u>);
}

// Typed rows of 16u, 16s and 32f images: Stride elements per pixel (3, or 4
// with the destination's fourth element kept).
template <class T>
using RowT = void (*)(const T* src, T* dst, int width);

// 16s samples are 16u samples offset by 32768.
inline int to_u16(uint16_t v) { return v; }
inline int to_u16(int16_t v) { return v + 32768; }
template <class T>
inline T from_u16(int v) { return T(std::is_signed_v<T> ? v - 32768 : v); }

template <int Stride>
void innerRGBToHSV_16u(const uint16_t* s, uint16_t* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        int h, sat, v;
        rgb_to_hsv_16u(s[0], s[1], s[2], h, sat, v);
        d[0] = uint16_t(h);
        d[1] = uint16_t(sat);
        d[2] = uint16_t(v);
    }
}

template <int Stride>
void innerHSVToRGB_16u(const uint16_t* s, uint16_t* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        int r, g, b;
        hsv_to_rgb_16u(s[0], s[1], s[2], r, g, b);
        d[0] = uint16_t(r);
        d[1] = uint16_t(g);
        d[2] = uint16_t(b);
    }
}

template <class T, int Stride>
void innerRGBToHLS_16(const T* s, T* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        int h, l, sat;
        rgb_to_hls<Hls16u>(to_u16(s[0]), to_u16(s[1]), to_u16(s[2]), h, l, sat);
        d[0] = from_u16<T>(h);
        d[1] = from_u16<T>(l);
        d[2] = from_u16<T>(sat);
    }
}

template <class T, int Stride>
void innerHLSToRGB_16(const T* s, T* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        int r, g, b;
        hls_to_rgb<Hls16u>(to_u16(s[0]), to_u16(s[1]), to_u16(s[2]), r, g, b);
        d[0] = from_u16<T>(r);
        d[1] = from_u16<T>(g);
        d[2] = from_u16<T>(b);
    }
}

template <int Stride>
void innerRGBToHLS_32f(const float* s, float* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        float h, l, sat;
        rgb_to_hls_32f(s[0], s[1], s[2], h, l, sat);
        d[0] = h;
        d[1] = l;
        d[2] = sat;
    }
}

template <int Stride>
void innerHLSToRGB_32f(const float* s, float* d, int width) {
    for (int x = 0; x < width; ++x, s += Stride, d += Stride) {
        float r, g, b;
        hls_to_rgb_32f(s[0], s[1], s[2], r, g, b);
        d[0] = r;
        d[1] = g;
        d[2] = b;
    }
}

}  // namespace nmq::hsv
