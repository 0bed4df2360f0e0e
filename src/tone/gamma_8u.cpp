// 8u gamma: every colour sample through the forward or inverse curve table.
#include "frame/dispatch.h"
#include "frame/gamma_tables.h"
#include "tone/gamma_driver.h"
#include "tone/gamma_kernels.h"

using namespace nmq;
using namespace nmq::gamma;

namespace {

NmqStatus packed(const uint8_t* tab, bool ac4, const Nmq8u* s, int ss, Nmq8u* d, int ds, ImageSize r) {
    if (NmqStatus st = check_packed(s, ss, d, ds, r)) return st;
    if (ac4) {  // scalar: a vector store would write the alpha bytes too
        walk_packed(s, ss, d, ds, r, [&](const uint8_t* a, uint8_t* b) { table_row_ac4(tab, a, b, r.width); });
    } else {
        const Table8uRow row = pick<Table8uRow>(table_row<uint8_t>, table_row_8u_sse2);
        const ptrdiff_t n = ptrdiff_t(r.width) * 3;
        walk_packed(s, ss, d, ds, r, [&](const uint8_t* a, uint8_t* b) { row(tab, a, b, n); });
    }
    return nmqStsOk;
}

NmqStatus planar(const uint8_t* tab, const Nmq8u* const* s, int ss, Nmq8u* const* d, int ds, ImageSize r) {
    if (NmqStatus st = check_planar(s, ss, d, ds, r)) return st;
    const Table8uRow row = pick<Table8uRow>(table_row<uint8_t>, table_row_8u_sse2);
    walk_planar(s, ss, d, ds, r, [&](const uint8_t* a, uint8_t* b) { row(tab, a, b, r.width); });
    return nmqStsOk;
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    return packed(kGammaFwd8u, false, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_C3IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed(kGammaFwd8u, false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    return packed(kGammaFwd8u, true, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_AC4IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed(kGammaFwd8u, true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roiSize) {
    return planar(kGammaFwd8u, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaFwd_8u_IP3R(Nmq8u* const pSrcDst[3], int srcDstStep, ImageSize roiSize) {
    return planar(kGammaFwd8u, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiGammaInv_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    return packed(kGammaInv8u, false, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_8u_C3IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed(kGammaInv8u, false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    return packed(kGammaInv8u, true, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_8u_AC4IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize) {
    return packed(kGammaInv8u, true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roiSize) {
    return planar(kGammaInv8u, pSrc, srcStep, pDst, dstStep, roiSize);
}
NMQ_EXPORT NmqStatus nmqiGammaInv_8u_IP3R(Nmq8u* const pSrcDst[3], int srcDstStep, ImageSize roiSize) {
    return planar(kGammaInv8u, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize);
}
