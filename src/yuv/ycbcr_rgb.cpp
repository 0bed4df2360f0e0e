// BT.601 YCbCr, YCrCb and CbYCr to and from RGB/BGR: the exported drivers.
// Each one checks its arguments (pointers, size, planes), then hands rows to a
// kernel of ycbcr_kernels.h, or to its SSE2 form where there is one.
#include "nmqcc.h"
#include "yuv/ycbcr_drivers.h"
#include "yuv/ycbcr_avx2.h"
#include "yuv/ycbcr_fwd_avx512.h"
#include "yuv/ycbcr_inv_avx2.h"
#include "yuv/ycbcr_sse2.h"

using namespace nmq;
using namespace nmq::ycc;
namespace s2 = nmq::ycc::sse2;
namespace a2 = nmq::ycc::avx2;
namespace a2p = nmq::ycc::avx2pairs;

namespace {

constexpr bool kRgb = false, kBgr = true;

template <bool Bgr, int SS, int D>
Fwd422Fn fwd422k() {
    return pick(Kernels<Fwd422Fn>{fwd422_row<Fwd601, RgbIn>, s2::fwd422<Fwd601, Bgr, SS, D>, a2::fwd422<Fwd601, Bgr, SS, D>});
}
template <bool Bgr, int SS>
Fwd420Fn fwd420k() {
    Kernels<Fwd420Fn> k{fwd420_rows<Fwd601, RgbIn>, s2::fwd420<Fwd601, Bgr, SS>, a2::fwd420<Fwd601, Bgr, SS>};
    k.avx512 = avx512::fwd420<Fwd601, Bgr, SS>;
    return pick(k);
}
template <Order O, bool Bgr, int DS>
Inv422Fn inv422k() {
    Kernels<Inv422Fn> k{inv422_row<Inv601Sub>, s2::inv422<Inv601Sub, O, Bgr, DS>, a2::inv422<Inv601Sub, O, Bgr, DS>};
    if constexpr (DS != 1) {  // planes stay at the older AVX2 kernel
        k.avx2 = a2p::inv422<Inv601Sub, O, Bgr, DS>;
        k.avx512 = avx512::inv422<Inv601Sub, O, Bgr, DS>;
    }
    return pick(k);
}
template <bool Bgr, int DS>
Inv420Fn inv420k() {
    Kernels<Inv420Fn> k{inv420_rows<Inv601Sub>, s2::inv420<Inv601Sub, Bgr, DS>, a2p::inv420<Inv601Sub, Bgr, DS>};
    k.avx512 = avx512::inv420<Inv601Sub, Bgr, DS>;
    return pick(k);
}
template <int SS, bool Bgr, int DS>
Inv444Fn inv444k() { return pick<Inv444Fn>(inv444_row<Inv601Full>, s2::inv444<Inv601Full, SS, Bgr, DS>); }
template <int SS, int DS>
Fwd444Fn fwd444k() { return pick<Fwd444Fn>(fwd444_row<Fwd601, RgbIn>, s2::fwd444<Fwd601, false, SS, DS>); }

// A null plane inside a pointer array.
template <class T>
bool null3(T* const* p) { return !p[0] || !p[1] || !p[2]; }

// Interleaved RGB (SS bytes per pixel) to full-sampled YCbCr, interleaved in
// DS bytes per pixel (4: the fourth byte is kept) or planes (DS 1).
template <int SS, int DS>
NmqStatus to444(const Nmq8u* src, int step, Y444Out dst, ImageSize roi) {
    each_row(roi, PixIn{src, step, false, SS}, dst, fwd444k<SS, DS>());
    return nmqStsOk;
}

// Interleaved RGB/BGR to packed 4:2:2.
template <bool Bgr, int SS, Order O>
NmqStatus to422c2(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, PixIn{src, srcStep, Bgr, SS}, Y422PackedOut{dst, dstStep, O}, fwd422k<Bgr, SS, int(O)>());
    return nmqStsOk;
}
// Interleaved RGB/BGR to 4:2:2 planes.
template <bool Bgr, int SS>
NmqStatus to422p3(const Nmq8u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    each_row(roi, PixIn{src, srcStep, Bgr, SS}, Y422PlanesOut{dst, dstStep}, fwd422k<Bgr, SS, 3>());
    return nmqStsOk;
}
// RGB planes to packed 4:2:2.
template <Order O>
NmqStatus planes_to422c2(const Nmq8u* const src[3], int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    each_row(roi, PlanesIn{src, srcStep}, Y422PackedOut{dst, dstStep, O}, fwd422k<false, 1, int(O)>());
    return nmqStsOk;
}
// Packed 4:2:2 to interleaved RGB/BGR (DS 3, or 4 with alpha 0xFF).
template <Order O, bool Bgr, int DS>
NmqStatus from422c2(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, Y422PackedIn{src, srcStep, O}, PixOut{dst, dstStep, Bgr, DS, DS == 4}, inv422k<O, Bgr, DS>());
    return nmqStsOk;
}
// Packed 4:2:2 to RGB planes.
template <Order O>
NmqStatus from422c2_planes(const Nmq8u* src, int srcStep, Nmq8u* const dst[3], int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    each_row(roi, Y422PackedIn{src, srcStep, O}, PlanesOut{dst, dstStep}, inv422k<O, kRgb, 1>());
    return nmqStsOk;
}
// 4:2:2 planes to interleaved RGB/BGR.
template <bool Bgr>
NmqStatus from422p3(const Nmq8u* const src[3], const int srcStep[3], Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    each_row(roi, Y422PlanesIn{src, srcStep}, PixOut{dst, dstStep, Bgr, 3, false},
             pick(Kernels<Inv422Fn>{inv422_row<Inv601Sub>, s2::inv422p<Inv601Sub, Bgr, 3>, a2::inv422p<Inv601Sub, Bgr, 3>}));
    return nmqStsOk;
}
// Packed 16-bit BGR to 4:2:2, packed or planar.
template <class Img, class In>
NmqStatus bgr16_to422c2(const Nmq16u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, Img{src, srcStep}, Y422PackedOut{dst, dstStep, Order::YCbCr}, fwd422_row<Fwd601, In>);
    return nmqStsOk;
}
template <class Img, class In>
NmqStatus bgr16_to422p3(const Nmq16u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    each_row(roi, Img{src, srcStep}, Y422PlanesOut{dst, dstStep}, fwd422_row<Fwd601, In>);
    return nmqStsOk;
}

// Interleaved RGB/BGR to 4:2:0 planes (Y, Cr, Cb when swap).
template <bool Bgr, int SS, bool Swap>
NmqStatus to420p3(const Nmq8u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    rgb_to_420(roi, PixIn{src, srcStep, Bgr, SS}, y420_planes(dst, dstStep, Swap), fwd420k<Bgr, SS>());
    return ok_or_odd(odd(roi));
}
template <bool Bgr, int SS>
NmqStatus to420p2(const Nmq8u* src, int srcStep, Nmq8u* y, int yStep, Nmq8u* c, int cStep, ImageSize roi) {
    if (any_null(src, y, c)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    rgb_to_420(roi, PixIn{src, srcStep, Bgr, SS}, y420_p2(y, yStep, c, cStep, false), fwd420k<Bgr, SS>());
    return ok_or_odd(odd(roi));
}
template <class Img, class In>
NmqStatus bgr16_to420(const Nmq16u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    rgb_to_420(roi, Img{src, srcStep}, y420_planes(dst, dstStep, false), fwd420_rows<Fwd601, In>);
    return ok_or_odd(odd(roi));
}
// 4:2:0 planes (Y, Cr, Cb when swap) or two planes to interleaved RGB/BGR.
template <bool Swap, bool Bgr, int DS>
NmqStatus from420p3(const Nmq8u* const src[3], const int srcStep[3], Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    from_420(roi, y420_planes_in(src, srcStep, Swap), PixOut{dst, dstStep, Bgr, DS, DS == 4}, inv420k<Bgr, DS>());
    return ok_or_odd(odd(roi));
}
template <bool CrFirst, bool Bgr, int DS>
NmqStatus from420p2(const Nmq8u* y, int yStep, const Nmq8u* c, int cStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(y, c, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    from_420(roi, y420_p2_in(y, yStep, c, cStep, CrFirst), PixOut{dst, dstStep, Bgr, DS, DS == 4}, inv420k<Bgr, DS>());
    return ok_or_odd(odd(roi));
}

// 4:1:1.
template <class Src>
NmqStatus to411(const Src& src, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    each_row(roi, src, Y411Out{dst, dstStep}, fwd411_row<Fwd601, decltype(src(0))>);
    return nmqStsOk;
}
template <int DS>
NmqStatus from411(const Nmq8u* const src[3], const int srcStep[3], Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    each_row(roi, Y411In{src, srcStep}, PixOut{dst, dstStep, true, DS, DS == 4},
             pick<Inv411Fn>(inv411_row<Inv601Sub>, s2::inv411<Inv601Sub, kBgr, DS>));
    return nmqStsOk;
}
template <int SS>
NmqStatus bgr_to411(const Nmq8u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    each_row(roi, PixIn{src, srcStep, kBgr, SS}, Y411Out{dst, dstStep},
             pick<Fwd411Fn>(fwd411_row<Fwd601, RgbIn>, s2::fwd411<Fwd601, kBgr, SS>));
    return (roi.width & 3) ? nmqStsOddSize : nmqStsOk;
}
template <class Img>
NmqStatus bgr16_to411(const Nmq16u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    return to411(Img{src, srcStep}, dst, dstStep, roi);
}

// Full-sampled inverse to interleaved RGB/BGR.
template <bool Bgr, int DS>
NmqStatus from444p3(const Nmq8u* const src[3], int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    each_row(roi, y444_planes_in(src, srcStep), PixOut{dst, dstStep, Bgr, DS, DS == 4}, inv444k<1, Bgr, DS>());
    return nmqStsOk;
}

}  // namespace

// ---- full-sampled ------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToYCbCr_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    return to444<3, 3>(pSrc, srcStep, y444_pix(pDst, dstStep, 3), roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    return to444<4, 4>(pSrc, srcStep, y444_pix(pDst, dstStep, 4), roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                           ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(pSrc) || null3(pDst))
        return nmqStsNullPtr;
    each_row(roi, PlanesIn{pSrc, srcStep}, y444_planes(pDst, dstStep), fwd444k<1, 1>());
    return nmqStsOk;
}
// These two test their planes together with the image pointers, before the size.
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                             ImageSize roi) {
    if (any_null(pSrc, pDst) || null3(pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    return to444<3, 1>(pSrc, srcStep, y444_planes(pDst, dstStep), roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                              ImageSize roi) {
    if (any_null(pSrc, pDst) || null3(pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    return to444<4, 1>(pSrc, srcStep, y444_planes(pDst, dstStep), roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, y444_pix_in(pSrc, srcStep, 3), PixOut{pDst, dstStep, kRgb, 3, false}, inv444k<3, kRgb, 3>());
    return nmqStsOk;
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, y444_pix_in(pSrc, srcStep, 4), PixOut{pDst, dstStep, kRgb, 4, false}, inv444k<4, kRgb, 4>());
    return nmqStsOk;
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                           ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(pSrc) || null3(pDst))
        return nmqStsNullPtr;
    each_row(roi, y444_planes_in(pSrc, srcStep), PlanesOut{pDst, dstStep}, inv444k<1, kRgb, 1>());
    return nmqStsOk;
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from444p3<kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from444p3<kRgb, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from444p3<kBgr, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from444p3<kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}

// ---- 4:2:2 -------------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kRgb, 3, Order::YCbCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    const NmqStatus st = to422p3<kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
    return st == nmqStsOk && (roi.width & 1) ? nmqStsOddSize : st;
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return planes_to422c2<Order::YCbCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kBgr, 3, Order::YCbCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    return to422p3<kBgr, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kBgr, 4, Order::YCbCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr422_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                 ImageSize roi) {
    return to422p3<kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCbCr, kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCbCr, kRgb, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                                ImageSize roi) {
    return from422c2_planes<Order::YCbCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from422p3<kRgb>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCbCr, kBgr, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCbCr, kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from422p3<kBgr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCrCb422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kRgb, 3, Order::YCrCb>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return planes_to422c2<Order::YCrCb>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCrCb, kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCrCb, kRgb, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                                ImageSize roi) {
    return from422c2_planes<Order::YCrCb>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCrCb, kBgr, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::YCrCb, kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToCbYCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kRgb, 3, Order::CbYCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToCbYCr422Gamma_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                     ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    each_row(roi, GammaPixIn{{pSrc, srcStep, kRgb, 3}}, Y422PackedOut{pDst, dstStep, Order::CbYCr},
             fwd422_row<FwdGamma601, GammaIn>);
    return nmqStsOk;
}
NMQ_EXPORT NmqStatus nmqiBGRToCbYCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return to422c2<kBgr, 4, Order::CbYCr>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiCbYCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::CbYCr, kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiCbYCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from422c2<Order::CbYCr, kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                      ImageSize roi) {
    return bgr16_to422c2<Bgr565Img, Bgr565In>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to422p3<Bgr565Img, Bgr565In>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                      ImageSize roi) {
    return bgr16_to422c2<Bgr555Img, Bgr555In>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to422p3<Bgr555Img, Bgr555In>(pSrc, srcStep, pDst, dstStep, roi);
}

// ---- 4:2:0 -------------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    return to420p3<kRgb, 3, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr420_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr,
                                                int dstCbCrStep, ImageSize roi) {
    return to420p2<kRgb, 3>(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCbCr420_8u_C4P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr,
                                                int dstCbCrStep, ImageSize roi) {
    return to420p2<kRgb, 4>(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    return to420p3<kBgr, 3, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                 ImageSize roi) {
    return to420p3<kBgr, 4, false>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                 ImageSize roi) {
    return to420p3<kRgb, 4, true>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCrCb420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    return to420p3<kBgr, 3, true>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                 ImageSize roi) {
    return to420p3<kBgr, 4, true>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from420p3<false, kRgb, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<false, kRgb, 3>(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<false, kRgb, 4>(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from420p3<false, kBgr, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from420p3<false, kBgr, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<false, kBgr, 3>(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<false, kBgr, 4>(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from420p3<true, kRgb, 4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<true, kRgb, 3>(pSrcY, srcYStep, pSrcCrCb, srcCrCbStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<true, kRgb, 4>(pSrcY, srcYStep, pSrcCrCb, srcCrCbStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<true, kBgr, 3>(pSrcY, srcYStep, pSrcCrCb, srcCrCbStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep,
                                                Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from420p2<true, kBgr, 4>(pSrcY, srcYStep, pSrcCrCb, srcCrCbStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCrCb420ToBGR_Filter_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                       int dstStep, ImageSize roi) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(pSrc)) return nmqStsNullPtr;
    const int n = roi.height / 2, w = roi.width & ~1;
    const PixOut out{pDst, dstStep, kBgr, 4, true};
    for (int k = 0; k < n; ++k) {
        const uint8_t* cb[4];
        const uint8_t* cr[4];
        for (int j = 0; j < 4; ++j) {
            const int r = k - 1 + j < 0 ? 0 : k - 1 + j >= n ? n - 1 : k - 1 + j;  // edge rows repeat
            cr[j] = row_at(pSrc[1], srcStep[1], r);
            cb[j] = row_at(pSrc[2], srcStep[2], r);
        }
        inv420_filter_rows<Inv601Sub>(row_at(pSrc[0], srcStep[0], 2 * k), row_at(pSrc[0], srcStep[0], 2 * k + 1), cb, cr,
                                      out(2 * k), out(2 * k + 1), 0, w);
    }
    return ok_or_odd(odd(roi));
}
NMQ_EXPORT NmqStatus nmqiBGR565ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to420<Bgr565Img, Bgr565In>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR555ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to420<Bgr555Img, Bgr555In>(pSrc, srcStep, pDst, dstStep, roi);
}

// ---- 4:1:1 -------------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiBGRToYCbCr411_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                ImageSize roi) {
    return bgr_to411<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGRToYCbCr411_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                 ImageSize roi) {
    return bgr_to411<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr411ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from411<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiYCbCr411ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep,
                                                ImageSize roi) {
    return from411<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR565ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to411<Bgr565Img>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR555ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                      const int dstStep[3], ImageSize roi) {
    return bgr16_to411<Bgr555Img>(pSrc, srcStep, pDst, dstStep, roi);
}
