// BT.709 YCbCr to and from BGR: the studio-range "709CSC" set (4:2:0 and
// full-sampled) and the "709HDTV" set (CbYCr 4:2:2 and 4:2:0). Same checks,
// planes and odd-size statuses as the BT.601 functions.
#include "nmqcc.h"
#include "yuv/ycbcr_drivers.h"
#include "yuv/ycbcr_avx2.h"
#include "yuv/ycbcr_sse2.h"

using namespace nmq;
using namespace nmq::ycc;
namespace s2 = nmq::ycc::sse2;
namespace a2 = nmq::ycc::avx2;

namespace {

// A null plane inside a pointer array.
template <class T>
bool null3(T* const* p) { return !p[0] || !p[1] || !p[2]; }

template <class F, int SS, bool Swap>
NmqStatus bgr_to420p3(const Nmq8u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    rgb_to_420(roi, PixIn{src, srcStep, true, SS}, y420_planes(dst, dstStep, Swap),
               pick(Kernels<Fwd420Fn>{fwd420_rows<F, RgbIn>, s2::fwd420<F, true, SS>, a2::fwd420<F, true, SS>}));
    return ok_or_odd(odd(roi));
}

template <class F, int SS>
NmqStatus bgr_to_cbycr422(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, PixIn{src, srcStep, true, SS}, Y422PackedOut{dst, dstStep, Order::CbYCr},
             pick(Kernels<Fwd422Fn>{fwd422_row<F, RgbIn>, s2::fwd422<F, true, SS, int(Order::CbYCr)>,
                                           a2::fwd422<F, true, SS, int(Order::CbYCr)>}));
    return nmqStsOk;
}

template <class I, int DS>
NmqStatus cbycr422_to_bgr(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, Y422PackedIn{src, srcStep, Order::CbYCr}, PixOut{dst, dstStep, true, DS, DS == 4},
             pick(Kernels<Inv422Fn>{inv422_row<I>, s2::inv422<I, Order::CbYCr, true, DS>, a2::inv422<I, Order::CbYCr, true, DS>}));
    return nmqStsOk;
}

template <class I, int DS>
NmqStatus from420_bgr(const Nmq8u* const src[3], const int srcStep[3], Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    from_420(roi, y420_planes_in(src, srcStep, false), PixOut{dst, dstStep, true, DS, DS == 4},
             pick(Kernels<Inv420Fn>{inv420_rows<I>, s2::inv420<I, true, DS>, a2::inv420<I, true, DS>}));
    return ok_or_odd(odd(roi));
}

template <int DS>
NmqStatus csc444_to_bgr(const Nmq8u* const src[3], int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    each_row(roi, y444_planes_in(src, srcStep), PixOut{dst, dstStep, true, DS, DS == 4},
             pick<Inv444Fn>(inv444_row<Inv709Csc>, s2::inv444<Inv709Csc, 1, true, DS>));
    return nmqStsOk;
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                       const int dstStep[3], ImageSize roi) {
    return bgr_to420p3<Fwd709Csc, 3, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                        const int dstStep[3], ImageSize roi) {
    return bgr_to420p3<Fwd709Csc, 4, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                       Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roi) {
    if (any_null(pSrc, pDstY, pDstCbCr)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    rgb_to_420(roi, PixIn{pSrc, srcStep, true, 3}, y420_p2(pDstY, dstYStep, pDstCbCr, dstCbCrStep, false),
               pick(Kernels<Fwd420Fn>{fwd420_rows<Fwd709Csc, RgbIn>, s2::fwd420<Fwd709Csc, true, 3>,
                                         a2::fwd420<Fwd709Csc, true, 3>}));
    return ok_or_odd(odd(roi));
}
NMQ_EXPORT NmqStatus nmqiBGRToYCrCb420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                       const int dstStep[3], ImageSize roi) {
    return bgr_to420p3<Fwd709Csc, 3, true>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCrCb420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                        const int dstStep[3], ImageSize roi) {
    return bgr_to420p3<Fwd709Csc, 4, true>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                    ImageSize roi) {
    return csc444_to_bgr<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                    ImageSize roi) {
    return csc444_to_bgr<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                       int dstStep, ImageSize roi) {
    return from420_bgr<Inv709Csc, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_709HDTV_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                         const int dstStep[3], ImageSize roi) {
    return bgr_to420p3<Fwd709Hdtv, 4, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_709HDTV_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                        int dstStep, ImageSize roi) {
    return from420_bgr<Inv709Hdtv, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                        ImageSize roi) {
    return bgr_to_cbycr422<Fwd709Hdtv, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                         ImageSize roi) {
    return bgr_to_cbycr422<Fwd709Hdtv, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                        ImageSize roi) {
    return cbycr422_to_bgr<Inv709Hdtv, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                        ImageSize roi) {
    return cbycr422_to_bgr<Inv709Hdtv, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
