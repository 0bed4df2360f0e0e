// RGB <-> YUV at full sampling.
//
// The interleaved forms (C3R, C3P3R, P3C3R) compute each 16-pixel block with
// the block formulas of yuv_kernels.h and the pixels after the last block with
// the per-pixel formulas; the AC4, C4 and planar-to-planar forms use their
// per-pixel formula for every pixel.
#include "yuv/yuv_rows.h"

using namespace nmq;
using namespace nmq::yuv;

namespace {

template <class S, class D, Fwd F>
Row444 fwd() {
    return pick(Kernels<Row444>{rgb_to_yuv_row<S, D, F>, rgb_to_yuv_row_sse2<S, D, F>, nullptr, nullptr, nullptr,
                                rgb_to_yuv_avx512_form<S, D, F>()});
}

template <class S, class D, Inv F>
Row444 inv() {
    return pick(Kernels<Row444>{yuv_to_rgb_row<S, D, F>, yuv_to_rgb_row_sse2<S, D, F>, nullptr, nullptr, nullptr,
                                yuv_to_rgb_avx512_form<S, D, F>()});
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiRGBToYUV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = fwd<RGB3, RGB3, Fwd::Blocks>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = fwd<RGBA, RGBA, Fwd::PerPixel>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const Row444 row = fwd<Planar, Planar, Fwd::PerPixel>();
    for_rows(roi.height, [&](int y) { row(in3(pSrc, srcStep, y), out3(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                           ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    const Row444 row = fwd<RGB3, Planar, Fwd::Blocks>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out3(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep,
                                            ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst) || !pDst[3]) return nmqStsNullPtr;
    const Row444 row = fwd<RGBA, Planar, Fwd::PerPixel>();
    for_rows(roi.height, [&](int y) {
        const RowIn s = in1(pSrc, srcStep, y);
        row(s, out3(pDst, dstStep, y), roi.width, 0);
        alpha_to_plane_row(s.p[0], row_at(pDst[3], dstStep, y), roi.width);
    });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = inv<RGB3, RGB3, Inv::Blocks>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = inv<RGBA, RGBA, Inv::TruncG>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUVToRGB_8u_C3C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
                                           Nmq8u aval) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Row444 row = inv<RGB3, RGBX, Inv::Round>();
    for_rows(roi.height, [&](int y) { row(in1(pSrc, srcStep, y), out1(pDst, dstStep, y, aval), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUVToRGB_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const Row444 row = pick<Row444>(myYUVToRGB_8u_P3R, myYUVToRGB_8u_P3R_sse2);
    for_rows(roi.height, [&](int y) { row(in3(pSrc, srcStep, y), out3(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYUVToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                           ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    const Row444 row = inv<Planar, RGB3, Inv::Blocks>();
    for_rows(roi.height, [&](int y) { row(in3(pSrc, srcStep, y), out1(pDst, dstStep, y), roi.width, 0); });
    return nmqStsOk;
}
