// RGB <-> HSV drivers, 8u and 16u, pixel order with three or four samples.
#include "models/hsv_driver.h"
#include "models/hsv_kernels_sse2.h"

using namespace nmq;
using namespace nmq::hsv;

NMQ_EXPORT NmqStatus nmqiRGBToHSV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(rgb_to_hsv_8u_row<Rgb3, Rgb3>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHSV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(rgb_to_hsv_8u_row<Rgba4Keep, Rgba4Keep>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHSVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(hsv_to_rgb_8u_row<Rgb3, Rgb3>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHSVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(hsv_to_rgb_8u_row<Rgba4Keep, Rgba4Keep>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHSV_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerRGBToHSV_16u<3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHSV_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerRGBToHSV_16u<4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHSVToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerHSVToRGB_16u<3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHSVToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerHSVToRGB_16u<4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}
