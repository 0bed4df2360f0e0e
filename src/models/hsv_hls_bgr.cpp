// BGR <-> HLS drivers, 8u, in pixel order and in planes. Unlike the RGB
// functions these reject a step below 1: the planar and mixed forms test the
// pointers, then the steps, then the ROI; nmqiBGRToHLS_8u_AC4R tests the
// pointers, the ROI, then the steps. Both orders are kept as they are.
//
// Alpha: the AP4, AC4P4 and AP4C4 forms copy the source alpha into the
// destination's alpha plane or sample, so the alpha of an image survives the
// change of layout; the AC4 form keeps the destination's alpha as it was.
#include "models/hsv_driver.h"
#include "models/hsv_kernels_sse2.h"

using namespace nmq;
using namespace nmq::hsv;

namespace {

// Pointers, steps, ROI; then the rows.
NmqStatus run_planar(Row8 (*row)(), const uint8_t* const* src, int ns, int srcStep, uint8_t* const* dst, int nd,
                     int dstStep, ImageSize roi) {
    if (null_planes(src, ns) || null_planes(dst, nd)) return nmqStsNullPtr;
    if (const NmqStatus st = steps_then_size(srcStep, dstStep, roi)) return st;
    walk8(row(), src, ns, srcStep, dst, nd, dstStep, roi);
    return nmqStsOk;
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roiSize)) return nmqStsSize;
    if (srcStep < 1 || dstStep < 1) return nmqStsStep;
    walk8(rgb_to_hls_8u_row<Bgra4Keep, Rgba4Keep>(), pSrc, srcStep, pDst, dstStep, roiSize);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                           ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<Bgr3, HlsPlanes>, &pSrc, 1, srcStep, pDst, 3, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                           ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<BgrPlanes, Rgb3>, pSrc, 3, srcStep, &pDst, 1, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<BgrPlanes, HlsPlanes>, pSrc, 3, srcStep, pDst, 3, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep,
                                          ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<BgraPlanes, HlsaPlanes>, pSrc, 4, srcStep, pDst, 4, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep,
                                            ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<Bgra4Keep, HlsaPlanes>, &pSrc, 1, srcStep, pDst, 4, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiBGRToHLS_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep,
                                            ImageSize roiSize) {
    return run_planar(rgb_to_hls_8u_row<BgraPlanes, Hls4>, pSrc, 4, srcStep, &pDst, 1, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                           ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<Rgb3, BgrPlanes>, &pSrc, 1, srcStep, pDst, 3, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                           ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<HlsPlanes, Bgr3>, pSrc, 3, srcStep, &pDst, 1, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<HlsPlanes, BgrPlanes>, pSrc, 3, srcStep, pDst, 3, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep,
                                          ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<HlsaPlanes, BgraPlanes>, pSrc, 4, srcStep, pDst, 4, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep,
                                            ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<Rgba4Keep, BgraPlanes>, &pSrc, 1, srcStep, pDst, 4, dstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiHLSToBGR_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep,
                                            ImageSize roiSize) {
    return run_planar(hls_to_rgb_8u_row<HlsaPlanes, Bgra4>, pSrc, 4, srcStep, &pDst, 1, dstStep, roiSize);
}
