// The row driver shared by the LUV, Lab and YCC exports: pointer and size
// checks, then one row kernel per row, chosen per call among the scalar and
// SSE2 forms (which give the same bytes).
#pragma once

#include "frame/common.h"
#include "frame/dispatch.h"
#include "models/luvlab_kernels.h"
#include "models/luvlab_kernels_sse2.h"

namespace nmq::luvlab {

template <class T>
using Row = void (*)(const T*, T*, int);

// Rows of 16- and 32-bit images are addressed with steps truncated to elements.
template <class Model, bool Fwd, class T, int S, int Red = 0>
NmqStatus convert_rows(const T* src, int srcStep, T* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row<T> row = pick<Row<T>>(convert_row<Model, Fwd, T, S, Red>, convert_row_sse2<Model, Fwd, T, S, Red>);
    for_rows(roi.height, [&](int y) {
        if constexpr (sizeof(T) == 1) row(row_at(src, srcStep, y), row_at(dst, dstStep, y), roi.width);
        else row(row_elems(src, srcStep, y), row_elems(dst, dstStep, y), roi.width);
    });
    return nmqStsOk;
}

}  // namespace nmq::luvlab

// One export: name, element type, model, direction, pixel stride, index of R.
#define NMQ_LUVLAB_EXPORT(name, T, Model, Fwd, S, Red)                                               \
    NMQ_EXPORT NmqStatus name(const T* pSrc, int srcStep, T* pDst, int dstStep, ImageSize roiSize) { \
        return nmq::luvlab::convert_rows<nmq::luvlab::Model, Fwd, T, S, Red>(pSrc, srcStep, pDst, dstStep, roiSize); \
    }
