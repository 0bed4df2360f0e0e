// RGB <-> YUV 4:2:2.
#include "yuv/yuv_rows.h"

using namespace nmq;
using namespace nmq::yuv;

namespace {

template <class S, bool C2>
Row444 fwd422() { return pick<Row444>(rgb_to_yuv422_row<S, C2>, rgb_to_yuv422_row_sse2<S, C2>); }

// RGB rows (made by in(y)) to three 4:2:2 planes; n pixels of each row.
template <class S, class In>
void rgb_to_planes(In in, Nmq8u* const pDst[3], const int dstStep[3], ptrdiff_t n, int height) {
    const Row444 row = fwd422<S, false>();
    for_rows(height, [&](int y) { row(in(y), out_yuv(pDst, dstStep, y, y, false), n, 0); });
}

// 4:2:2 planes to RGB rows made by out(y).
template <class D, class Out>
void planes_to_rgb(const Nmq8u* const pSrc[3], const int srcStep[3], Out out, ImageSize roi) {
    const Row42xInv rows =
        pick(Kernels<Row42xInv>{yuv42x_to_rgb_rows<D, 1>, yuv42x_to_rgb_rows_sse2<D, 1>, yuv42x_to_rgb_avx2_form<D, 1>(),
                                nullptr, nullptr, yuv42x_to_rgb_avx512_form<D, 1>()});
    for_rows(roi.height, [&](int y) {
        const RowOut d = out(y);
        rows(in_yuv(pSrc, srcStep, y, y, false), d, d, roi.width, 0);
    });
}

void planes_to_planes(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3], int dstStep,
                      ImageSize roi) {
    const Row444 row = pick<Row444>(yuv422_to_rgb_planar_row, yuv422_to_rgb_planar_row_sse2);
    for_rows(roi.height, [&](int y) { row(in_yuv(pSrc, srcStep, y, y, false), out3(pDst, dstStep, y), roi.width, 0); });
}

}  // namespace

// ---- RGB to 4:2:2 ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToYUV422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                              ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = fwd422<RGB3, true>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                              ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    rgb_to_planes<RGB3>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi.width, roi.height);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV422_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3],
                                            int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    rgb_to_planes<Planar>([&](int y) { return in3(pSrc, srcStep, y); }, pDst, dstStep, roi.width, roi.height);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV422_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), dstStep[3] = {roi.width, cw, cw};
    rgb_to_planes<Planar>([&](int y) { return in3(pSrc, roi.width, y); }, pDst, dstStep, roi.width, roi.height);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV422_8u_C3P3(const Nmq8u* pSrc, Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), dstStep[3] = {roi.width, cw, cw};
    rgb_to_planes<RGB3>([&](int y) { return in1(pSrc, 3 * roi.width, y); }, pDst, dstStep, roi.width, roi.height);
    return nmqStsOk;
}

// An odd width is reported, and its last column left unwritten, rather than
// converted on its own as the 8-bit forms do.
NMQ_EXPORT NmqStatus nmqiRGB565ToYUV422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                    int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    rgb_to_planes<RGB565>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi.width & ~1, roi.height);
    return (roi.width & 1) ? nmqStsOddSize : nmqStsOk;
}

// ---- 4:2:2 to RGB ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                              ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = pick(
        Kernels<Row444>{yuv422c2_to_rgb_row<RGB3>, yuv422c2_to_rgb_row_sse2<RGB3>, yuv422c2_to_rgb_row_avx2<RGB3>});
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    planes_to_planes(pSrc, srcStep, pDst, dstStep, roi);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                              int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    planes_to_rgb<RGB3>(pSrc, srcStep, [&](int y) { return out1(pDst, dstStep, y); }, roi);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_P3AC4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                               int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    planes_to_rgb<RGBA>(pSrc, srcStep, [&](int y) { return out1(pDst, dstStep, y); }, roi);
    return nmqStsOk;
}

// An image of at least 256 pixels with even rows is contiguous in all six
// planes, so it is converted as one long row: the 16-pixel blocks then run
// across row ends and only the last pixels of the image take the per-pixel
// formula.
NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const ptrdiff_t total = ptrdiff_t(roi.width) * roi.height;
    if (total >= 256 && !(roi.width & 1)) {
        const Row444 row = pick<Row444>(yuv422_to_rgb_planar_row, yuv422_to_rgb_planar_row_sse2);
        row(RowIn{{pSrc[0], pSrc[1], pSrc[2], nullptr}}, RowOut{{pDst[0], pDst[1], pDst[2], nullptr}, 0}, total, 0);
        return nmqStsOk;
    }
    const int cw = chroma_width(roi.width), srcStep[3] = {roi.width, cw, cw};
    planes_to_planes(pSrc, srcStep, pDst, roi.width, roi);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUV422ToRGB_8u_P3C3(const Nmq8u* const pSrc[3], Nmq8u* pDst, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), srcStep[3] = {roi.width, cw, cw};
    planes_to_rgb<RGB3>(pSrc, srcStep, [&](int y) { return out1(pDst, 3 * roi.width, y); }, roi);
    return nmqStsOk;
}
