// Row walkers and argument checks shared by the HSV and HLS drivers.
#pragma once

#include "frame/common.h"
#include "models/hsv_kernels.h"

namespace nmq::hsv {

// Any null among the pointer to a plane array and its first n planes.
template <class T>
inline bool null_planes(T* const* planes, int n) {
    if (!planes) return true;
    for (int k = 0; k < n; ++k)
        if (!planes[k]) return true;
    return false;
}

// Steps first, then the ROI: the order of the planar BGR/HLS functions.
inline NmqStatus steps_then_size(int srcStep, int dstStep, ImageSize roi) {
    if (srcStep < 1 || dstStep < 1) return nmqStsStep;
    if (bad_size(roi)) return nmqStsSize;
    return nmqStsOk;
}

// 8u image of ns planes (1 for pixel order) to one of nd planes; every plane
// of a side uses that side's step.
inline void walk8(Row8 row, const uint8_t* const* src, int ns, int srcStep, uint8_t* const* dst, int nd,
                  int dstStep, ImageSize roi) {
    for_rows(roi.height, [&](int y) {
        SrcRow s{};
        DstRow d{};
        for (int k = 0; k < ns; ++k) s.p[k] = row_at(src[k], srcStep, y);
        for (int k = 0; k < nd; ++k) d.p[k] = row_at(dst[k], dstStep, y);
        row(s, d, roi.width);
    });
}

// Pixel order to pixel order.
inline void walk8(Row8 row, const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, ImageSize roi) {
    walk8(row, &src, 1, srcStep, &dst, 1, dstStep, roi);
}

// 16- and 32-bit pixel-order images: steps in bytes, truncated to elements.
template <class T>
inline void walk(RowT<T> row, const T* src, int srcStep, T* dst, int dstStep, ImageSize roi) {
    for_rows(roi.height, [&](int y) { row(row_elems(src, srcStep, y), row_elems(dst, dstStep, y), roi.width); });
}

// The common checks of the RGB/HSV and RGB/HLS functions: pointers, then the
// ROI; steps are used as given.
template <class T>
inline NmqStatus check(const T* src, const T* dst, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    return nmqStsOk;
}

}  // namespace nmq::hsv
