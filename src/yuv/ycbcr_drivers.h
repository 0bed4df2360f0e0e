// Image views and row walkers shared by the YCbCr drivers: a view turns a row
// index into the row view a kernel takes; a walker runs a kernel over the ROI.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/common.h"
#include "frame/dispatch.h"
#include "yuv/ycbcr_kernels.h"

namespace nmq::ycc {

// ---- RGB images -------------------------------------------------------------

// Interleaved RGB or BGR, s bytes per pixel.
struct PixIn {
    const uint8_t* p;
    int step;
    bool bgr;
    int s;
    RgbIn operator()(ptrdiff_t y) const { return rgb_in(row_at(p, step, y), bgr, s); }
};
// Three planes R, G, B sharing one step.
struct PlanesIn {
    const uint8_t* const* p;
    int step;
    RgbIn operator()(ptrdiff_t y) const { return {row_at(p[0], step, y), row_at(p[1], step, y), row_at(p[2], step, y), 1}; }
};
struct GammaPixIn {
    PixIn i;
    GammaIn operator()(ptrdiff_t y) const { return {i(y)}; }
};
struct Bgr565Img {
    const uint16_t* p;
    int step;
    Bgr565In operator()(ptrdiff_t y) const { return {row_elems(p, step, y)}; }
};
struct Bgr555Img {
    const uint16_t* p;
    int step;
    Bgr555In operator()(ptrdiff_t y) const { return {row_elems(p, step, y)}; }
};

// Interleaved RGB or BGR destination: s = 3, or 4 with alpha written (C4) or kept (AC4).
struct PixOut {
    uint8_t* p;
    int step;
    bool bgr;
    int s;
    bool alpha;
    RgbOut operator()(ptrdiff_t y) const { return rgb_out(row_at(p, step, y), bgr, s, alpha); }
};
struct PlanesOut {
    uint8_t* const* p;
    int step;
    RgbOut operator()(ptrdiff_t y) const {
        return {row_at(p[0], step, y), row_at(p[1], step, y), row_at(p[2], step, y), nullptr, 1};
    }
};

// ---- YCbCr images -----------------------------------------------------------

// Full-sampled: interleaved Y,Cb,Cr (s = 3 or 4) or three planes (s = 1).
struct Y444Out {
    uint8_t *y, *cb, *cr;
    int step, s;
    Ycc444 operator()(ptrdiff_t r) const { return {row_at(y, step, r), row_at(cb, step, r), row_at(cr, step, r), s}; }
};
inline Y444Out y444_pix(uint8_t* p, int step, int s) { return {p, p + 1, p + 2, step, s}; }
inline Y444Out y444_planes(uint8_t* const* p, int step) { return {p[0], p[1], p[2], step, 1}; }
struct Y444In {
    const uint8_t *y, *cb, *cr;
    int step, s;
    Ycc444In operator()(ptrdiff_t r) const { return {row_at(y, step, r), row_at(cb, step, r), row_at(cr, step, r), s}; }
};
inline Y444In y444_pix_in(const uint8_t* p, int step, int s) { return {p, p + 1, p + 2, step, s}; }
inline Y444In y444_planes_in(const uint8_t* const* p, int step) { return {p[0], p[1], p[2], step, 1}; }

// 4:2:2 packed, or three planes with their own steps.
struct Y422PackedOut {
    uint8_t* p;
    int step;
    Order o;
    Ycc422 operator()(ptrdiff_t r) const { return ycc422_packed(row_at(p, step, r), o); }
};
struct Y422PlanesOut {
    uint8_t* const* p;
    const int* step;
    Ycc422 operator()(ptrdiff_t r) const {
        return {row_at(p[0], step[0], r), 1, row_at(p[1], step[1], r), row_at(p[2], step[2], r), 1, kLoneBoth};
    }
};
struct Y422PackedIn {
    const uint8_t* p;
    int step;
    Order o;
    Ycc422In operator()(ptrdiff_t r) const { return ycc422_packed_in(row_at(p, step, r), o); }
};
struct Y422PlanesIn {
    const uint8_t* const* p;
    const int* step;
    Ycc422In operator()(ptrdiff_t r) const {
        return {row_at(p[0], step[0], r), 1, row_at(p[1], step[1], r), row_at(p[2], step[2], r), 1, kLoneBoth};
    }
};

// 4:2:0, indexed by row pair k. Planes Y, c1, c2 (swap for Y, Cr, Cb), or a Y
// plane and an interleaved chroma plane (Cb first unless cr_first).
struct Y420Out {
    uint8_t *y, *cb, *cr;
    int sy, scb, scr, cs;
    Ycc420 operator()(ptrdiff_t k) const {
        return {row_at(y, sy, 2 * k), row_at(y, sy, 2 * k + 1), row_at(cb, scb, k), row_at(cr, scr, k), cs};
    }
};
inline Y420Out y420_planes(uint8_t* const* p, const int* s, bool swap) {
    return swap ? Y420Out{p[0], p[2], p[1], s[0], s[2], s[1], 1} : Y420Out{p[0], p[1], p[2], s[0], s[1], s[2], 1};
}
inline Y420Out y420_p2(uint8_t* y, int sy, uint8_t* c, int sc, bool cr_first) {
    return cr_first ? Y420Out{y, c + 1, c, sy, sc, sc, 2} : Y420Out{y, c, c + 1, sy, sc, sc, 2};
}
struct Y420In {
    const uint8_t *y, *cb, *cr;
    int sy, scb, scr, cs;
    Ycc420In operator()(ptrdiff_t k) const {
        return {row_at(y, sy, 2 * k), row_at(y, sy, 2 * k + 1), row_at(cb, scb, k), row_at(cr, scr, k), cs};
    }
};
inline Y420In y420_planes_in(const uint8_t* const* p, const int* s, bool swap) {
    return swap ? Y420In{p[0], p[2], p[1], s[0], s[2], s[1], 1} : Y420In{p[0], p[1], p[2], s[0], s[1], s[2], 1};
}
inline Y420In y420_p2_in(const uint8_t* y, int sy, const uint8_t* c, int sc, bool cr_first) {
    return cr_first ? Y420In{y, c + 1, c, sy, sc, sc, 2} : Y420In{y, c, c + 1, sy, sc, sc, 2};
}

// 4:1:1 planes.
struct Y411Out {
    uint8_t* const* p;
    const int* s;
    Ycc411 operator()(ptrdiff_t r) const { return {row_at(p[0], s[0], r), row_at(p[1], s[1], r), row_at(p[2], s[2], r)}; }
};
struct Y411In {
    const uint8_t* const* p;
    const int* s;
    Ycc411In operator()(ptrdiff_t r) const { return {row_at(p[0], s[0], r), row_at(p[1], s[1], r), row_at(p[2], s[2], r)}; }
};

// ---- walkers ---------------------------------------------------------------

// One kernel call per row.
template <class Src, class Dst, class K>
inline void each_row(ImageSize roi, const Src& src, const Dst& dst, K k) {
    for_rows(roi.height, [&](int y) { k(src(y), dst(y), 0, roi.width); });
}

// 4:2:0 from RGB over the even part of the ROI.
template <class Src, class Dst, class K>
inline void rgb_to_420(ImageSize roi, const Src& src, const Dst& dst, K k) {
    const int w = roi.width & ~1;
    for_row_pairs(roi.height, [&](int y) { k(src(y), src(y + 1), dst(y / 2), 0, w); });
}

// 4:2:0 to RGB over the even part of the ROI.
template <class Src, class Dst, class K>
inline void from_420(ImageSize roi, const Src& src, const Dst& dst, K k) {
    const int w = roi.width & ~1;
    for_row_pairs(roi.height, [&](int y) { k(src(y / 2), dst(y), dst(y + 1), 0, w); });
}

}  // namespace nmq::ycc
