// RGB <-> HLS drivers, 8u, 16u, 16s and 32f, pixel order with three or four
// samples.
#include "models/hsv_driver.h"
#include "models/hsv_kernels_sse2.h"

using namespace nmq;
using namespace nmq::hsv;

NMQ_EXPORT NmqStatus nmqiRGBToHLS_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(rgb_to_hls_8u_row<Rgb3, Rgb3>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(rgb_to_hls_8u_row<Rgba4Keep, Rgba4Keep>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(hls_to_rgb_8u_row<Rgb3, Rgb3>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk8(hls_to_rgb_8u_row<Rgba4Keep, Rgba4Keep>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerRGBToHLS_16<uint16_t, 3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerRGBToHLS_16<uint16_t, 4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerHLSToRGB_16<uint16_t, 3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<uint16_t>(innerHLSToRGB_16<uint16_t, 4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<int16_t>(innerRGBToHLS_16<int16_t, 3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<int16_t>(innerRGBToHLS_16<int16_t, 4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<int16_t>(innerHLSToRGB_16<int16_t, 3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<int16_t>(innerHLSToRGB_16<int16_t, 4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<float>(innerRGBToHLS_32f<3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiRGBToHLS_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<float>(innerRGBToHLS_32f<4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                          ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<float>(innerHLSToRGB_32f<3>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiHLSToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                           ImageSize roiSize) {
    if (const NmqStatus st = check(pSrc, pDst, roiSize)) return st;
    walk<float>(innerHLSToRGB_32f<4>, pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}
