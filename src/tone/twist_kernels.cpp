// Scalar colour-twist row kernels. They live in their own file so that the
// drivers call them out of line, after the rounding mode has been set.
#include "tone/twist_kernels.h"

namespace nmq::twist {

template <class T>
void owniTwist32f_C3(const T* s, T* d, ptrdiff_t width, const Columns& m) {
    for (ptrdiff_t x = 0; x < width; ++x) twist_pixel(m, s + 3 * x, d + 3 * x);
}

template <class T>
void owniTwist32f_AC4(const T* s, T* d, ptrdiff_t width, const Columns& m) {
    for (ptrdiff_t x = 0; x < width; ++x) twist_pixel(m, s + 4 * x, d + 4 * x);
}

template <class T>
void owniTwist32f_P3(const T* const* s, T* const* d, ptrdiff_t width, const Columns& m) {
    for (ptrdiff_t x = 0; x < width; ++x) {
        const T in[3] = {s[0][x], s[1][x], s[2][x]};
        T out[3];
        twist_pixel(m, in, out);
        d[0][x] = out[0];
        d[1][x] = out[1];
        d[2][x] = out[2];
    }
}

void innerColorTwist_32f_C4(const float* s, float* d, ptrdiff_t width, const Columns& m) {
    for (ptrdiff_t x = 0; x < width; ++x, s += 4, d += 4) {
        const float x0 = s[0], x1 = s[1], x2 = s[2], x3 = s[3];
        for (int i = 0; i < 4; ++i) d[i] = twist_channel4(m, i, x0, x1, x2, x3);
    }
}

#define NMQ_TWIST_ROWS(T)                                                                    \
    template void owniTwist32f_C3<T>(const T*, T*, ptrdiff_t, const Columns&);               \
    template void owniTwist32f_AC4<T>(const T*, T*, ptrdiff_t, const Columns&);              \
    template void owniTwist32f_P3<T>(const T* const*, T* const*, ptrdiff_t, const Columns&);
NMQ_TWIST_ROWS(uint8_t)
NMQ_TWIST_ROWS(int8_t)
NMQ_TWIST_ROWS(uint16_t)
NMQ_TWIST_ROWS(int16_t)
NMQ_TWIST_ROWS(float)

}  // namespace nmq::twist
