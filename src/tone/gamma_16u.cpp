// 16u gamma: the curve computed in double precision for each sample of small
// images, or once per input value into a 65536-entry table for large ones.
#include "frame/helpers.h"
#include "tone/gamma_driver.h"
#include "tone/gamma_kernels.h"

using namespace nmq;
using namespace nmq::gamma;

namespace {

enum class Layout { C3, AC4, P3 };

// Images of more than this many colour samples (width * height * 3, in every
// layout) are mapped through a table: building it costs 65536 evaluations.
constexpr long long kDirectMaxSamples = 65536;

template <double (*Curve)(unsigned)>
NmqStatus run(Layout lay, const Nmq16u* const* s, int ss, Nmq16u* const* d, int ds, ImageSize r) {
    const ptrdiff_t w = r.width;
    if ((long long)r.width * r.height * 3 <= kDirectMaxSamples) {
        auto direct = [&](const uint16_t* a, uint16_t* b) {
            if (lay == Layout::AC4) curve_row_16u_ac4<Curve>(a, b, w);
            else curve_row_16u<Curve>(a, b, lay == Layout::C3 ? 3 * w : w);
        };
        if (lay == Layout::P3) walk_planar(s, ss, d, ds, r, direct);
        else walk_packed(s[0], ss, d[0], ds, r, direct);
        return nmqStsOk;
    }
    uint16_t* tab = nmqsMalloc_16u(65536);
    if (!tab) return nmqStsNoMemory;
    fill_table_16u<Curve>(tab);
    auto mapped = [&](const uint16_t* a, uint16_t* b) {
        if (lay == Layout::AC4) table_row_ac4<uint16_t>(tab, a, b, w);
        else table_row<uint16_t>(tab, a, b, lay == Layout::C3 ? 3 * w : w);
    };
    if (lay == Layout::P3) walk_planar(s, ss, d, ds, r, mapped);
    else walk_packed(s[0], ss, d[0], ds, r, mapped);
    nmqsFree(tab);
    return nmqStsOk;
}

template <double (*Curve)(unsigned)>
NmqStatus packed(bool ac4, const Nmq16u* s, int ss, Nmq16u* d, int ds, ImageSize r) {
    if (NmqStatus st = check_packed(s, ss, d, ds, r)) return st;
    return run<Curve>(ac4 ? Layout::AC4 : Layout::C3, &s, ss, &d, ds, r);
}

template <double (*Curve)(unsigned)>
NmqStatus planar(const Nmq16u* const* s, int ss, Nmq16u* const* d, int ds, ImageSize r) {
    if (NmqStatus st = check_planar(s, ss, d, ds, r)) return st;
    return run<Curve>(Layout::P3, s, ss, d, ds, r);
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize) {
    return packed<fwd_16u>(false, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_C3IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed<fwd_16u>(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize) {
    return packed<fwd_16u>(true, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_AC4IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed<fwd_16u>(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_P3R(const Nmq16u* const pSrc[3], int srcStep, Nmq16u* const pDst[3], int dstStep,
                                          ImageSize roiSize) {
    return planar<fwd_16u>(pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_16u_IP3R(Nmq16u* const pSrcDst[3], int srcDstStep, ImageSize roiSize) {
    return planar<fwd_16u>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiGammaInv_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize) {
    return packed<inv_16u>(false, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_16u_C3IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed<inv_16u>(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize) {
    return packed<inv_16u>(true, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_16u_AC4IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed<inv_16u>(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_16u_P3R(const Nmq16u* const pSrc[3], int srcStep, Nmq16u* const pDst[3], int dstStep,
                                          ImageSize roiSize) {
    return planar<inv_16u>(pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_16u_IP3R(Nmq16u* const pSrcDst[3], int srcDstStep, ImageSize roiSize) {
    return planar<inv_16u>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
