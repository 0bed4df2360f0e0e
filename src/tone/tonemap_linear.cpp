// Tone mapping by the image maximum or mean.
#include <cstdint>

#include "frame/dispatch.h"
#include "frame/helpers.h"
#include "tone/tonemap_kernels.h"

using namespace nmq;
using namespace nmq::tonemap;

namespace {

// Rows wider than 6 pixels whose source and destination bytes do not overlap
// take the vector kernel; the rest go sample by sample in order, so that a
// destination laid over its own source gives the sequential result.
void map_rows(const Nmq32f* s, int ss, Nmq8u* d, int ds, ImageSize r, float scale) {
    const ToneRow vec = pick<ToneRow>(tone_row, tone_row_sse2);
    for (int y = 0; y < r.height; ++y) {
        const float* sr = row_elems(s, ss, y);
        uint8_t* dr = row_at(d, ds, y);
        const uintptr_t s0 = reinterpret_cast<uintptr_t>(sr), d0 = reinterpret_cast<uintptr_t>(dr);
        const uintptr_t n = uintptr_t(r.width);
        const bool overlap = d0 < s0 + 4 * n && s0 < d0 + n;
        if (r.width > 6 && !overlap) vec(sr, dr, r.width, scale);
        else tone_row(sr, dr, r.width, scale);
    }
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiToneMapLinear_32f8u_C1R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize) {
    if (any_null(pSrc) || any_null(pDst)) return nmqStsNullPtr;
    if (bad_size(roiSize)) return nmqStsSize;
    float m = 0;
    if (NmqStatus st = nmqiMax_32f_C1R(pSrc, srcStep, roiSize.width, roiSize.height, &m)) return st;
    if (m < 0) return nmqStsNegativeLevel;
    if (m <= 1.1754944e-38f) return nmqiSet_8u_C1R(0, pDst, dstStep, roiSize.width, roiSize.height);
    map_rows(pSrc, srcStep, pDst, dstStep, roiSize, 255.0f / m);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiToneMapMean_32f8u_C1R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                               ImageSize roiSize) {
    if (any_null(pSrc) || any_null(pDst)) return nmqStsNullPtr;
    if (bad_size(roiSize)) return nmqStsSize;
    double mean = 0;
    if (NmqStatus st = nmqiMean_32f_C1R(pSrc, srcStep, roiSize.width, roiSize.height, &mean, AlgorithmHintFast))
        return st;
    if (mean < 0) return nmqStsNegativeLevel;
    if (mean <= 1.1754943508222875e-38) {
        nmqiSet_8u_C1R(0, pDst, dstStep, roiSize.width, roiSize.height);
        return nmqStsOk;
    }
    map_rows(pSrc, srcStep, pDst, dstStep, roiSize, float(255.0 / mean));
    return nmqStsOk;
}
