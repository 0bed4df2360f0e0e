// YCoCg exports: pointer checks (the interleaved pointer, the plane array and
// each plane), then the size where the member checks it, then one row
// kernel per row. Members without a size check return nmqStsOk for an empty
// or negative ROI without touching anything.
#include "frame/common.h"
#include "frame/dispatch.h"
#include "models/ycocg_kernels.h"

using namespace nmq;
using namespace nmq::ycocg;

namespace {

enum SizeCheck : bool { NoSizeCheck = false, ChecksSize = true };

template <class T, class D>
NmqStatus check_args(const T* one, D* const* planes, ImageSize roi, SizeCheck sc) {
    if (any_null(one, planes)) return nmqStsNullPtr;
    if (any_null(planes[0], planes[1], planes[2])) return nmqStsNullPtr;
    if (bad_size(roi)) return sc ? nmqStsSize : nmqStsOk;
    return nmqStsOk;
}

template <class Policy, class T, int S, Order O>
NmqStatus forward(const T* src, int srcStep, typename Policy::D* const dst[3], int dstStep, ImageSize roi,
                  SizeCheck sc, FwdRow<T, typename Policy::D> sse2 = nullptr) {
    using D = typename Policy::D;
    if (const NmqStatus st = check_args(src, dst, roi, sc); st != nmqStsOk || bad_size(roi)) return st;
    FwdRow<T, D> row = ycocg_fwd_row<Policy, T, S, O>;
    if (sse2) row = pick(row, sse2);
    for_rows(roi.height, [&](int y) {
        row(row_elems(src, srcStep, y), row_elems(dst[0], dstStep, y), row_elems(dst[1], dstStep, y),
            row_elems(dst[2], dstStep, y), roi.width);
    });
    return nmqStsOk;
}

template <class Policy, class T, int S, Order O>
NmqStatus inverse(const T* const src[3], int srcStep, typename Policy::D* dst, int dstStep, ImageSize roi,
                  SizeCheck sc, typename Policy::D alpha = 0, InvRow<T, typename Policy::D> sse2 = nullptr) {
    using D = typename Policy::D;
    if (const NmqStatus st = check_args(dst, src, roi, sc); st != nmqStsOk || bad_size(roi)) return st;
    InvRow<T, D> row = ycocg_inv_row<Policy, T, S, O>;
    if (sse2) row = pick(row, sse2);
    for_rows(roi.height, [&](int y) {
        row(row_elems(src[0], srcStep, y), row_elems(src[1], srcStep, y), row_elems(src[2], srcStep, y),
            row_elems(dst, dstStep, y), roi.width, alpha);
    });
    return nmqStsOk;
}

using Plain16 = FwdSat<int16_t, false>;
using Lifting16 = FwdSat<int16_t, true>;
using Plain32 = FwdSat<int32_t, false>;
using Lifting32 = FwdSat<int32_t, true>;
constexpr Order BGR = Order::Bgr;

}  // namespace

// ---- forward ----------------------------------------------------------------------------
NMQ_EXPORT NmqStatus nmqiRGBToYCoCg_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                             ImageSize roi) {
    return forward<FwdPlain8u, Nmq8u, 3, Order::Rgb>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize,
                                                      ycocg_fwd_row_sse2<FwdPlain8u, 3, Order::Rgb>);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCoCg_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roi) {
    return forward<Plain16, Nmq8u, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize,
                                           ycocg_fwd_row_sse2<Plain16, 3, BGR>);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCoCg_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roi) {
    return forward<Plain16, Nmq8u, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize,
                                           ycocg_fwd_row_sse2<Plain16, 4, BGR>);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3],
                                                    int dstStep, ImageSize roi) {
    return forward<Lifting16, Nmq8u, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize,
                                             ycocg_fwd_row_sse2<Lifting16, 3, BGR>);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3],
                                                    int dstStep, ImageSize roi) {
    return forward<Lifting16, Nmq8u, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize,
                                             ycocg_fwd_row_sse2<Lifting16, 4, BGR>);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                               ImageSize roi) {
    return forward<Plain16, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                               ImageSize roi) {
    return forward<Plain16, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                  int dstStep, ImageSize roi) {
    return forward<Plain32, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                  int dstStep, ImageSize roi) {
    return forward<Plain32, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_Rev_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3],
                                                   int dstStep, ImageSize roi) {
    return forward<FwdLiftingWrap16, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_Rev_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3],
                                                   int dstStep, ImageSize roi) {
    return forward<FwdLiftingWrap16, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                      int dstStep, ImageSize roi) {
    return forward<Lifting32, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize);
}
NMQ_EXPORT NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                      int dstStep, ImageSize roi) {
    return forward<Lifting32, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}

// ---- inverse ----------------------------------------------------------------------------
NMQ_EXPORT NmqStatus nmqiYCoCgToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                             ImageSize roi) {
    return inverse<InvPlain8u, Nmq8u, 3, Order::Rgb>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, 0,
                                                      ycocg_inv_row_sse2<InvPlain8u, Nmq8u, 3, Order::Rgb>);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToBGR_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return inverse<InvClamp8u<false>, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, 0,
                                                      ycocg_inv_row_sse2<InvClamp8u<false>, Nmq16s, 3, BGR>);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToBGR_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roi, Nmq8u aval) {
    return inverse<InvClamp8u<false>, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, aval,
                                                      ycocg_inv_row_sse2<InvClamp8u<false>, Nmq16s, 4, BGR>);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst,
                                                    int dstStep, ImageSize roi) {
    return inverse<InvClamp8u<true>, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, 0,
                                                     ycocg_inv_row_sse2<InvClamp8u<true>, Nmq16s, 3, BGR>);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst,
                                                    int dstStep, ImageSize roi, Nmq8u aval) {
    return inverse<InvClamp8u<true>, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, aval,
                                                     ycocg_inv_row_sse2<InvClamp8u<true>, Nmq16s, 4, BGR>);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roi) {
    return inverse<InvWrap16<false>, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roi, Nmq16s aval) {
    return inverse<InvWrap16<false>, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize, aval);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                  int dstStep, ImageSize roi) {
    return inverse<InvSat16<false>, Nmq32s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                  int dstStep, ImageSize roi, Nmq16s aval) {
    return inverse<InvSat16<false>, Nmq32s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, ChecksSize, aval);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roi) {
    return inverse<InvWrap16<true>, Nmq16s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roi, Nmq16s aval) {
    return inverse<InvWrap16<true>, Nmq16s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, aval);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                      int dstStep, ImageSize roi) {
    return inverse<InvSat16<true>, Nmq32s, 3, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck);
}
NMQ_EXPORT NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                      int dstStep, ImageSize roi, Nmq16s aval) {
    return inverse<InvSat16<true>, Nmq32s, 4, BGR>(pSrc, srcStep, pDst, dstStep, roi, NoSizeCheck, aval);
}
