// Tone-mapping row kernels: sample times scale, truncated, clamped to 0..255.
#pragma once

#include <cstddef>
#include <cstdint>

namespace nmq::tonemap {

// Clamping the product in float before the truncating conversion gives the
// truncate-then-clamp result for every product inside the integer range, and
// saturates the rest (a NaN product gives 0) instead of relying on what a
// conversion does out of range. The operand order matches the SSE max/min.
inline uint8_t tone_sample(float s, float scale) {
    float p = s * scale;
    p = p > 0.0f ? p : 0.0f;
    p = p < 255.0f ? p : 255.0f;
    return uint8_t(int(p));
}

inline void tone_row(const float* s, uint8_t* d, ptrdiff_t n, float scale) {
    for (ptrdiff_t i = 0; i < n; ++i) d[i] = tone_sample(s[i], scale);
}

using ToneRow = void (*)(const float* s, uint8_t* d, ptrdiff_t n, float scale);

// Sixteen samples per step once the destination is 16-byte aligned; a scalar
// head and tail. Same bytes as tone_row.
void tone_row_sse2(const float* s, uint8_t* d, ptrdiff_t n, float scale);

}  // namespace nmq::tonemap
