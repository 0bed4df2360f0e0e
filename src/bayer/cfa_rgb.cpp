// nmqiCFAToRGB_8u_C1C3R, nmqiCFAToRGB_16u_C1C3R: the drivers. They check the
// arguments, trim the rectangle and split it into the interior, where every
// pixel has its eight neighbours, and the frame two pixels wide along the
// image edges.
#include <algorithm>
#include <cstdint>

#include "bayer/cfa_kernels.h"
#include "frame/common.h"
#include "frame/dispatch.h"

namespace nmq::cfa {
namespace {

// Row addressing: bytes for 8-bit images, whole elements for 16-bit ones.
inline const uint8_t* src_row(const uint8_t* p, int step, ptrdiff_t y) { return row_at(p, step, y); }
inline uint8_t* dst_row(uint8_t* p, int step, ptrdiff_t y) { return row_at(p, step, y); }
inline const uint16_t* src_row(const uint16_t* p, int step, ptrdiff_t y) { return row_elems(p, step, y); }
inline uint16_t* dst_row(uint16_t* p, int step, ptrdiff_t y) { return row_elems(p, step, y); }

template <class T>
NmqStatus cfa_to_rgb(const T* src, ImageRect roi, ImageSize size, int src_step, T* dst, int dst_step, int grid,
                     InteriorRowFn<T> interior) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (size.width < 2) return nmqStsSize;
    if (size.height < 2) return nmqStsSize;
    if (grid < nmqBayerBGGR || grid > nmqBayerGRBG) return nmqStsBadArg;
    // The rectangle must start inside the image: a negative origin would read
    // before the first pixel. One starting past the right or bottom edge is
    // empty after trimming.
    if (roi.x < 0 || roi.y < 0) return nmqStsSize;
    const int w = size.width, h = size.height;
    const int x0 = roi.x, y0 = roi.y;
    const int x1 = int(std::min<int64_t>(int64_t(x0) + roi.width, w)) - 1;  // last column, trimmed
    const int y1 = int(std::min<int64_t>(int64_t(y0) + roi.height, h)) - 1;
    if (x1 < x0 || y1 < y0) return nmqStsOk;

    // Columns of the three parts of a row away from the top and bottom edges.
    const int left_end = std::min(x1, 1);
    const int mid_begin = std::max(x0, 2), mid_end = std::min(x1, w - 3);
    const int right_begin = std::max({x0, w - 2, 2});

    for (int y = y0; y <= y1; ++y) {
        // The grid code gives the colours of row 0; each row below swaps them.
        const bool red_row = ((grid & 1) != 0) != ((y & 1) != 0);
        const bool even_green = ((grid >> 1) != 0) != ((y & 1) != 0);
        const T* a = src_row(src, src_step, y == 0 ? 1 : y - 1);
        const T* c = src_row(src, src_step, y);
        const T* b = src_row(src, src_step, y == h - 1 ? h - 2 : y + 1);
        T* d = dst_row(dst, dst_step, y - y0);
        auto out = [&](int x) { return d + 3 * ptrdiff_t(x - x0); };
        if (y < 2 || y > h - 3) {
            ownBayerBorderRow(a, c, b, d, x0, x1, w, red_row, even_green);
            continue;
        }
        if (x0 <= left_end) ownBayerBorderRow(a, c, b, d, x0, left_end, w, red_row, even_green);
        // The interior run starts with the kind of site its first column has,
        // so the result does not depend on where the rectangle starts.
        if (mid_begin <= mid_end)
            interior(a + mid_begin, c + mid_begin, b + mid_begin, out(mid_begin), mid_end - mid_begin + 1, red_row,
                     ((mid_begin & 1) == 0) == even_green);
        if (right_begin <= x1) ownBayerBorderRow(a, c, b, out(right_begin), right_begin, x1, w, red_row, even_green);
    }
    return nmqStsOk;
}

}  // namespace
}  // namespace nmq::cfa

using namespace nmq::cfa;

NMQ_EXPORT NmqStatus nmqiCFAToRGB_8u_C1C3R(const Nmq8u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                           Nmq8u* pDst, int dstStep, int grid) {
    nmq::Kernels<InteriorRowFn<uint8_t>> k{ownBayerInteriorRow<uint8_t>, ownBayerInteriorRow_sse2, ownBayerInteriorRow_avx2};
    k.avx512 = ownBayerInteriorRow_avx512;
    const auto row = nmq::pick(k);
    return cfa_to_rgb(pSrc, srcRoi, srcSize, srcStep, pDst, dstStep, grid, row);
}

NMQ_EXPORT NmqStatus nmqiCFAToRGB_16u_C1C3R(const Nmq16u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                            Nmq16u* pDst, int dstStep, int grid) {
    nmq::Kernels<InteriorRowFn<uint16_t>> k{ownBayerInteriorRow<uint16_t>, ownBayerInteriorRow_sse2, ownBayerInteriorRow_avx2};
    k.avx512 = ownBayerInteriorRow_avx512;
    const auto row = nmq::pick(k);
    return cfa_to_rgb(pSrc, srcRoi, srcSize, srcStep, pDst, dstStep, grid, row);
}
