// Row kernels of the gamma family. The scalar forms here define the bits;
// the SSE2 table kernel gives the same bytes faster.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace nmq::gamma {

// ---- 8u and the 16u table path: samples through a lookup table ------------

// n contiguous samples (C3 rows, P3 planes).
template <class T>
inline void table_row(const T* tab, const T* s, T* d, ptrdiff_t n) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = tab[s[i]];
}

// width four-sample pixels; the fourth sample (alpha) is never written.
template <class T>
inline void table_row_ac4(const T* tab, const T* s, T* d, ptrdiff_t width) {
    for (ptrdiff_t x = 0; x < width; ++x, s += 4, d += 4) {
        const T a = tab[s[0]], b = tab[s[1]], c = tab[s[2]];
        d[0] = a;
        d[1] = b;
        d[2] = c;
    }
}

using Table8uRow = void (*)(const uint8_t* tab, const uint8_t* s, uint8_t* d, ptrdiff_t n);
void table_row_8u_sse2(const uint8_t* tab, const uint8_t* s, uint8_t* d, ptrdiff_t n);

// ---- 16u: the curve over 0..65535 in double precision ---------------------

constexpr double kInv65535 = 1.5259021896696422e-5;
constexpr double kInv4_5 = 0.2222222222222222;
constexpr double kInv1_099 = 0.9099181073703366;
constexpr double kInvExp = 2.2222222222222223;  // 1 / 0.45
// The computed inverse switches branch at 0.0812; the 8u inverse table was
// built with 0.081. Both are part of the interface.
constexpr double kInvThreshold = 0.0812;

inline double fwd_16u(unsigned v) {
    const double t = double(v) * kInv65535;
    return t < 0.018 ? double(v) * 4.5 : (1.099 * std::pow(t, 0.45) - 0.099) * 65535.0;
}

inline double inv_16u(unsigned v) {
    const double t = double(v) * kInv65535;
    return t < kInvThreshold ? double(v) * kInv4_5 : std::pow((t + 0.099) * kInv1_099, kInvExp) * 65535.0;
}

// Round to nearest, ties to even: r + 0.5 truncated, and an exact tie that
// lands on an odd value goes one down. The curve stays inside 0..65535.
inline uint16_t round_even_16u(double r) {
    const double h = r + 0.5;
    int i = int(h);
    if (double(i) == h && (i & 1)) --i;
    return uint16_t(i);
}

// The same rule with the half added in single precision: how the 65536-entry
// table of large images is filled (it can differ from the direct path on
// values that single precision turns into ties).
inline uint16_t round_even_16u_single(double r) {
    const float h = float(r) + 0.5f;
    int i = int(h);
    if (float(i) == h && (i & 1)) --i;
    return uint16_t(i);
}

template <double (*Curve)(unsigned)>
inline void curve_row_16u(const uint16_t* s, uint16_t* d, ptrdiff_t n) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = round_even_16u(Curve(s[i]));
}

template <double (*Curve)(unsigned)>
inline void curve_row_16u_ac4(const uint16_t* s, uint16_t* d, ptrdiff_t width) {
    for (ptrdiff_t x = 0; x < width; ++x, s += 4, d += 4) {
        const uint16_t a = round_even_16u(Curve(s[0])), b = round_even_16u(Curve(s[1])),
                       c = round_even_16u(Curve(s[2]));
        d[0] = a;
        d[1] = b;
        d[2] = c;
    }
}

template <double (*Curve)(unsigned)>
inline void fill_table_16u(uint16_t* tab) {
    for (unsigned v = 0; v < 65536; ++v) tab[v] = round_even_16u_single(Curve(v));
}

// ---- 32f: the curve over the caller's value range -------------------------

struct Range {
    double lo;     // vMin
    double range;  // vMax - vMin
    double inv;    // 1 / range
};

inline float fwd_32f(float s, const Range& r) {
    const double x = double(s) - r.lo;
    const double t = x * r.inv;
    const double y = t < 0.018 ? x * 4.5 : (1.099 * std::pow(t, 0.45) - 0.099) * r.range;
    return float(y + r.lo);
}

inline float inv_32f(float s, const Range& r) {
    const double x = double(s) - r.lo;
    const double t = x * r.inv;
    const double y = t < kInvThreshold ? x * kInv4_5 : std::pow((t + 0.099) * kInv1_099, kInvExp) * r.range;
    return float(y + r.lo);
}

template <float (*Curve)(float, const Range&)>
inline void curve_row_32f(const float* s, float* d, ptrdiff_t n, const Range& r) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = Curve(s[i], r);
}

template <float (*Curve)(float, const Range&)>
inline void curve_row_32f_ac4(const float* s, float* d, ptrdiff_t width, const Range& r) {
    for (ptrdiff_t x = 0; x < width; ++x, s += 4, d += 4) {
        const float a = Curve(s[0], r), b = Curve(s[1], r), c = Curve(s[2], r);
        d[0] = a;
        d[1] = b;
        d[2] = c;
    }
}

}  // namespace nmq::gamma
