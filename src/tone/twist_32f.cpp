// Colour twist of float images: the same sums, no clamping, and the caller's
// rounding mode.
#include <emmintrin.h>

#include <cstdint>

#include "frame/dispatch.h"
#include "tone/twist_driver.h"
#include "tone/twist_kernels.h"

using namespace nmq;
using namespace nmq::twist;

namespace {

// Images whose destination exceeds this many bytes are written with
// non-temporal stores (rows that start 16-byte aligned): they would only
// push the source out of the cache.
constexpr long long kStreamBytes = 4 << 20;

inline bool aligned16(const void* p) { return (reinterpret_cast<uintptr_t>(p) & 15) == 0; }

NmqStatus packed(bool ac4, const float* s, int ss, float* d, int ds, ImageSize r, const Nmq32f t[3][4]) {
    if (NmqStatus st = check_packed(s, ss, d, ds, r, t)) return st;
    const Columns m = ownSetMatrix(t);
    if (ac4) {
        const PixelRow<float> row = pick<PixelRow<float>>(owniTwist32f_AC4<float>, owniTwist32f_AC4_sse2<float>);
        for (int y = 0; y < r.height; ++y) row(row_elems(s, ss, y), row_elems(d, ds, y), r.width, m);
        return nmqStsOk;
    }
    const PixelRow<float> row = pick<PixelRow<float>>(owniTwist32f_C3<float>, owniTwist32f_C3_sse2<float>);
    const bool stream = row != owniTwist32f_C3<float> && (long long)r.width * r.height * 12 > kStreamBytes;
    bool streamed = false;
    for (int y = 0; y < r.height; ++y) {
        float* drow = row_elems(d, ds, y);
        if (stream && aligned16(drow)) {
            owniTwist_32f_C3_Nt(row_elems(s, ss, y), drow, r.width, m);
            streamed = true;
        } else {
            row(row_elems(s, ss, y), drow, r.width, m);
        }
    }
    if (streamed) _mm_sfence();
    return nmqStsOk;
}

NmqStatus planar(const float* const* s, int ss, float* const* d, int ds, ImageSize r, const Nmq32f t[3][4]) {
    if (NmqStatus st = check_planar(s, ss, d, ds, r, t)) return st;
    const Columns m = ownSetMatrix(t);
    const PlaneRow<float> row = pick<PlaneRow<float>>(owniTwist32f_P3<float>, owniTwist32f_P3_sse2<float>);
    for (int y = 0; y < r.height; ++y) row(PlaneRows<const float>(s, ss, y).p, PlaneRows<float>(d, ds, y).p, r.width, m);
    return nmqStsOk;
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiColorTwist_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                            const Nmq32f twist[3][4]) {
    return packed(false, pSrc, srcStep, pDst, dstStep, roiSize, twist);
}
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]) {
    return packed(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);
}
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                             const Nmq32f twist[3][4]) {
    return packed(true, pSrc, srcStep, pDst, dstStep, roiSize, twist);
}
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]) {
    return packed(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);
}
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                            ImageSize roiSize, const Nmq32f twist[3][4]) {
    return planar(pSrc, srcStep, pDst, dstStep, roiSize, twist);
}
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize,
                                             const Nmq32f twist[3][4]) {
    return planar(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);
}

// C4 with a 4 x 4 matrix. When both steps equal width * 4 bytes the image is
// taken as one row of width * height pixels. The comparison is with a quarter
// of a C4 float row, not a whole one; odd as it is, callers see it, so it is
// part of the interface and kept exactly so.
NMQ_EXPORT NmqStatus nmqiColorTwist_32f_C4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                            const Nmq32f twist[4][4]) {
    if (NmqStatus st = check_packed(pSrc, srcStep, pDst, dstStep, roiSize, twist)) return st;
    const Columns m = ownSetMatrix4(twist);
    const bool simd = active_isa() >= Isa::Sse2;
    auto run = [&](const float* s, float* d, ptrdiff_t n) {
        if (!simd) innerColorTwist_32f_C4(s, d, n, m);
        else if (aligned16(s) && aligned16(d)) innerColorTwist_32f_C4R(s, d, n, m);
        else innerColorTwist_32f_C4R_N(s, d, n, m);
    };
    if (srcStep == dstStep && (long long)srcStep == (long long)roiSize.width * 4) {
        run(pSrc, pDst, ptrdiff_t(roiSize.width) * roiSize.height);
    } else {
        for (int y = 0; y < roiSize.height; ++y) run(row_elems(pSrc, srcStep, y), row_elems(pDst, dstStep, y), roiSize.width);
    }
    return nmqStsOk;
}
