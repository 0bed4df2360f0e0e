// RGB <-> YUV 4:2:0. Both directions convert the even part of an odd-sized
// image (the last odd column and row are left unwritten) and then return
// nmqStsOddSize.
#include "yuv/yuv_rows.h"

using namespace nmq;
using namespace nmq::yuv;

namespace {

// RGB rows made by in(y) to 4:2:0 planes, two rows at a time.
template <class S, class In>
NmqStatus rgb_to_420(In in, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roi) {
    const Row420Fwd rows = pick(Kernels<Row420Fwd>{rgb_to_yuv420_rows<S>, rgb_to_yuv420_rows_sse2<S>,
                                                   rgb_to_yuv420_avx2_form<S>(), nullptr, nullptr,
                                                   rgb_to_yuv420_avx512_form<S>()});
    const ptrdiff_t n = roi.width & ~1;
    for_row_pairs(roi.height, [&](int y) { rows(in(y), in(y + 1), out_yuv(pDst, dstStep, y, y / 2, true), n, 0); });
    return ok_or_odd(odd(roi));
}

// 4:2:0 planes to RGB rows made by out(y), two rows at a time.
template <class D, class Out>
NmqStatus yuv420_to(const Nmq8u* const pSrc[3], const int srcStep[3], Out out, ImageSize roi) {
    const Row42xInv rows =
        pick(Kernels<Row42xInv>{yuv42x_to_rgb_rows<D, 2>, yuv42x_to_rgb_rows_sse2<D, 2>, yuv42x_to_rgb_avx2_form<D, 2>(),
                                nullptr, nullptr, yuv42x_to_rgb_avx512_form<D, 2>()});
    const ptrdiff_t n = roi.width & ~1;
    for_row_pairs(roi.height, [&](int y) { rows(in_yuv(pSrc, srcStep, y, y / 2, true), out(y), out(y + 1), n, 0); });
    return ok_or_odd(odd(roi));
}

}  // namespace

// ---- RGB to 4:2:0 ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToYUV420_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3],
                                            int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<Planar>([&](int y) { return in3(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                              ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<RGB3>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV420_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), dstStep[3] = {roi.width, cw, cw};
    return rgb_to_420<Planar>([&](int y) { return in3(pSrc, roi.width, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiRGBToYUV420_8u_C3P3(const Nmq8u* pSrc, Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), dstStep[3] = {roi.width, cw, cw};
    return rgb_to_420<RGB3>([&](int y) { return in1(pSrc, 3 * roi.width, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiBGRToYUV420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                               ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<BGRA>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiRGB565ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                    int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<RGB565>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiBGR565ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                    int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<BGR565>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

NMQ_EXPORT NmqStatus nmqiBGR555ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                    int dstStep[3], ImageSize roi) {
    if (any_null(pSrc, pDst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pDst)) return nmqStsNullPtr;
    return rgb_to_420<BGR555>([&](int y) { return in1(pSrc, srcStep, y); }, pDst, dstStep, roi);
}

// ---- 4:2:0 to RGB ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    return yuv420_to<Planar>(pSrc, srcStep, [&](int y) { return out3(pDst, dstStep, y); }, roi);
}

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                              int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    return yuv420_to<RGB3>(pSrc, srcStep, [&](int y) { return out1(pDst, dstStep, y); }, roi);
}

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB_8u_P3AC4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                               int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    return yuv420_to<RGBA>(pSrc, srcStep, [&](int y) { return out1(pDst, dstStep, y); }, roi);
}

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc) || planes_null(pDst)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), srcStep[3] = {roi.width, cw, cw};
    return yuv420_to<Planar>(pSrc, srcStep, [&](int y) { return out3(pDst, roi.width, y); }, roi);
}

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB_8u_P3C3(const Nmq8u* const pSrc[3], Nmq8u* pDst, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    const int cw = chroma_width(roi.width), srcStep[3] = {roi.width, cw, cw};
    return yuv420_to<RGB3>(pSrc, srcStep, [&](int y) { return out1(pDst, 3 * roi.width, y); }, roi);
}

NMQ_EXPORT NmqStatus nmqiYUV420ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                              int dstStep, ImageSize roi) {
    if (any_null(pSrc, srcStep, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (planes_null(pSrc)) return nmqStsNullPtr;
    return yuv420_to<BGR3>(pSrc, srcStep, [&](int y) { return out1(pDst, dstStep, y); }, roi);
}
