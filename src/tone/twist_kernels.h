// Colour-twist row kernels. The per-pixel arithmetic here defines the bits:
// one output channel i of a pixel is
//     (col3[i] + x0 * col0[i]) + (x1 * col1[i] + x2 * col2[i])
// in single precision, which is also what every lane of the vector kernels
// computes, so both give the same bits under the same rounding mode.
#pragma once

#include <xmmintrin.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace nmq::twist {

// The matrix as four column vectors: col[j] = (t[0][j], t[1][j], t[2][j], 0)
// for a 3 x 4 matrix (the fourth lane is a spare computed with zeros), or
// (t[0][j], ..., t[3][j]) for the 4 x 4 matrix of the C4 form.
struct Columns {
    alignas(16) float col[4][4];
};

inline Columns ownSetMatrix(const float t[3][4]) {
    Columns m{};
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < 3; ++i) m.col[j][i] = t[i][j];
    return m;
}

inline Columns ownSetMatrix4(const float t[4][4]) {
    Columns m{};
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < 4; ++i) m.col[j][i] = t[i][j];
    return m;
}

inline float twist_channel(const Columns& m, int i, float x0, float x1, float x2) {
    return (m.col[3][i] + x0 * m.col[0][i]) + (x1 * m.col[1][i] + x2 * m.col[2][i]);
}

// C4: no offset column; the four products are added in pairs.
inline float twist_channel4(const Columns& m, int i, float x0, float x1, float x2, float x3) {
    return (x0 * m.col[0][i] + x1 * m.col[1][i]) + (x2 * m.col[2][i] + x3 * m.col[3][i]);
}

// Range of each integer type. The clamp takes the minimum with the upper
// bound first, then the maximum with the lower bound, with the operand order
// of the SSE min/max instructions (a NaN sum becomes the upper bound). 8s has
// no lower bound here: the conversion of anything below -128 saturates there.
template <class T> struct Range;
template <> struct Range<uint8_t> { static constexpr float hi = 255.0f, lo = 0.0f; static constexpr bool has_lo = true; };
template <> struct Range<int8_t> { static constexpr float hi = 127.0f, lo = 0.0f; static constexpr bool has_lo = false; };
template <> struct Range<uint16_t> { static constexpr float hi = 65535.0f, lo = 0.0f; static constexpr bool has_lo = true; };
template <> struct Range<int16_t> { static constexpr float hi = 32767.0f, lo = -32768.0f; static constexpr bool has_lo = true; };

// Clamps, converts with the current rounding mode (the SSE conversion, as the
// vector kernels do: nearest-even while a twist call runs; out-of-range input
// gives INT_MIN) and saturates to the element type.
template <class T>
inline T finish(float v) {
    v = v < Range<T>::hi ? v : Range<T>::hi;
    if constexpr (Range<T>::has_lo) v = v > Range<T>::lo ? v : Range<T>::lo;
    const int i = _mm_cvtss_si32(_mm_set_ss(v));
    if constexpr (std::is_same_v<T, int8_t>) return int8_t(i < -128 ? -128 : i);
    else return T(i);
}

// One pixel of an integer image: all three inputs are read before any output
// is written, so in-place rows work.
template <class T>
inline void twist_pixel(const Columns& m, const T* s, T* d) {
    const float x0 = float(s[0]), x1 = float(s[1]), x2 = float(s[2]);
    const T a = finish<T>(twist_channel(m, 0, x0, x1, x2));
    const T b = finish<T>(twist_channel(m, 1, x0, x1, x2));
    const T c = finish<T>(twist_channel(m, 2, x0, x1, x2));
    d[0] = a;
    d[1] = b;
    d[2] = c;
}

inline void twist_pixel(const Columns& m, const float* s, float* d) {
    const float x0 = s[0], x1 = s[1], x2 = s[2];
    const float a = twist_channel(m, 0, x0, x1, x2), b = twist_channel(m, 1, x0, x1, x2),
                c = twist_channel(m, 2, x0, x1, x2);
    d[0] = a;
    d[1] = b;
    d[2] = c;
}

// Row kernels over `width` pixels; T is uint8_t, int8_t, uint16_t, int16_t or
// float. Pixel rows: C3 (three samples per pixel) and AC4 (four, the fourth
// never written); plane rows: three source and three destination rows.
template <class T> using PixelRow = void (*)(const T* s, T* d, ptrdiff_t width, const Columns& m);
template <class T> using PlaneRow = void (*)(const T* const* s, T* const* d, ptrdiff_t width, const Columns& m);
using C4Row = void (*)(const float* s, float* d, ptrdiff_t width, const Columns& m);

template <class T> void owniTwist32f_C3(const T* s, T* d, ptrdiff_t width, const Columns& m);
template <class T> void owniTwist32f_AC4(const T* s, T* d, ptrdiff_t width, const Columns& m);
template <class T> void owniTwist32f_P3(const T* const* s, T* const* d, ptrdiff_t width, const Columns& m);
void innerColorTwist_32f_C4(const float* s, float* d, ptrdiff_t width, const Columns& m);

template <class T> void owniTwist32f_C3_sse2(const T* s, T* d, ptrdiff_t width, const Columns& m);
template <class T> void owniTwist32f_AC4_sse2(const T* s, T* d, ptrdiff_t width, const Columns& m);
template <class T> void owniTwist32f_P3_sse2(const T* const* s, T* const* d, ptrdiff_t width, const Columns& m);
// 32f C3 with non-temporal stores (destination rows 16-byte aligned).
void owniTwist_32f_C3_Nt(const float* s, float* d, ptrdiff_t width, const Columns& m);
// C4 with aligned loads and stores (both rows 16-byte aligned), and without.
void innerColorTwist_32f_C4R(const float* s, float* d, ptrdiff_t width, const Columns& m);
void innerColorTwist_32f_C4R_N(const float* s, float* d, ptrdiff_t width, const Columns& m);

}  // namespace nmq::twist
