// YUV <-> RGB drivers: rows of the caller's images for the row kernels.
#pragma once

#include "frame/common.h"
#include "frame/dispatch.h"
#include "yuv/yuv_kernels.h"

namespace nmq::yuv {

// Width of a half-width chroma plane (and the derived step of the forms
// without steps): half the luma width, rounded up.
inline int chroma_width(int w) { return w / 2 + (w & 1); }

inline RowIn in1(const uint8_t* p, int step, ptrdiff_t y) { return {{row_at(p, step, y), nullptr, nullptr, nullptr}}; }
inline RowIn in1(const uint16_t* p, int step, ptrdiff_t y) {
    return {{reinterpret_cast<const uint8_t*>(row_elems(p, step, y)), nullptr, nullptr, nullptr}};
}
// Three planes sharing one step.
inline RowIn in3(const uint8_t* const p[3], int step, ptrdiff_t y) {
    return {{row_at(p[0], step, y), row_at(p[1], step, y), row_at(p[2], step, y), nullptr}};
}
// Y row y, chroma row cy, and (4:2:0) the second Y row y + 1 when pair is set.
inline RowIn in_yuv(const uint8_t* const p[3], const int step[3], ptrdiff_t y, ptrdiff_t cy, bool pair) {
    return {{row_at(p[0], step[0], y), row_at(p[1], step[1], cy), row_at(p[2], step[2], cy),
             pair ? row_at(p[0], step[0], y + 1) : nullptr}};
}

inline RowOut out1(uint8_t* p, int step, ptrdiff_t y, uint8_t alpha = 0) {
    return {{row_at(p, step, y), nullptr, nullptr, nullptr}, alpha};
}
inline RowOut out3(uint8_t* const p[3], int step, ptrdiff_t y) {
    return {{row_at(p[0], step, y), row_at(p[1], step, y), row_at(p[2], step, y), nullptr}, 0};
}
inline RowOut out_yuv(uint8_t* const p[3], const int step[3], ptrdiff_t y, ptrdiff_t cy, bool pair) {
    return {{row_at(p[0], step[0], y), row_at(p[1], step[1], cy), row_at(p[2], step[2], cy),
             pair ? row_at(p[0], step[0], y + 1) : nullptr},
            0};
}

inline bool planes_null(const uint8_t* const p[3]) { return any_null(p[0], p[1], p[2]); }
inline bool planes_null(uint8_t* const p[3]) { return any_null(p[0], p[1], p[2]); }

}  // namespace nmq::yuv
