// 32f gamma: the curve over the caller's value range in double precision.
#include "tone/gamma_driver.h"
#include "tone/gamma_kernels.h"

using namespace nmq;
using namespace nmq::gamma;

namespace {

// The range is checked before anything else. "Not above 0" also rejects NaN
// bounds and an infinite range of two infinities.
inline bool bad_range(float lo, float hi) { return !(hi - lo > 0.0f); }

inline Range make_range(float lo, float hi) {
    const double range = double(hi) - double(lo);
    return Range{double(lo), range, 1.0 / range};
}

template <float (*Curve)(float, const Range&)>
NmqStatus packed(bool ac4, const Nmq32f* s, int ss, Nmq32f* d, int ds, ImageSize r, float lo, float hi) {
    if (bad_range(lo, hi)) return nmqStsGammaRange;
    if (NmqStatus st = check_packed(s, ss, d, ds, r)) return st;
    const Range rg = make_range(lo, hi);
    const ptrdiff_t w = r.width;
    walk_packed(s, ss, d, ds, r, [&](const float* a, float* b) {
        if (ac4) curve_row_32f_ac4<Curve>(a, b, w, rg);
        else curve_row_32f<Curve>(a, b, 3 * w, rg);
    });
    return nmqStsOk;
}

template <float (*Curve)(float, const Range&)>
NmqStatus planar(const Nmq32f* const* s, int ss, Nmq32f* const* d, int ds, ImageSize r, float lo, float hi) {
    if (bad_range(lo, hi)) return nmqStsGammaRange;
    if (NmqStatus st = check_planar(s, ss, d, ds, r)) return st;
    const Range rg = make_range(lo, hi);
    walk_planar(s, ss, d, ds, r, [&](const float* a, float* b) { curve_row_32f<Curve>(a, b, r.width, rg); });
    return nmqStsOk;
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                          Nmq32f vMin, Nmq32f vMax) {
    return packed<fwd_32f>(false, pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return packed<fwd_32f>(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                           Nmq32f vMin, Nmq32f vMax) {
    return packed<fwd_32f>(true, pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return packed<fwd_32f>(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                          ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return planar<fwd_32f>(pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize, Nmq32f vMin,
                                           Nmq32f vMax) {
    return planar<fwd_32f>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}

NMQ_EXPORT NmqStatus nmqiGammaInv_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                          Nmq32f vMin, Nmq32f vMax) {
    return packed<inv_32f>(false, pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return packed<inv_32f>(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                           Nmq32f vMin, Nmq32f vMax) {
    return packed<inv_32f>(true, pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return packed<inv_32f>(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                          ImageSize roiSize, Nmq32f vMin, Nmq32f vMax) {
    return planar<inv_32f>(pSrc, srcStep, pDst, dstStep, roiSize, vMin, vMax);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize, Nmq32f vMin,
                                           Nmq32f vMax) {
    return planar<inv_32f>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, vMin, vMax);
}
