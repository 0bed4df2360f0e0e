// The four short-named plane conversions: 420 <-> 1620 and 411 <-> 420 with
// each chroma plane resampled by itself. They reject sizes that are not whole
// sampling periods instead of rounding them. Luma goes through the plain
// region copy.
#include "frame/helpers.h"
#include "sampling/sampling_resample.h"
#include "sampling/sampling_walk.h"

using namespace nmq;
using namespace nmq::smp;

namespace {

bool checked_planes(const u8* const pSrc[3], u8* const pDst[3]) {
    return pSrc && pDst && !null3(pSrc) && !null3(pDst);
}

void copy_luma_plane(const u8* const pSrc[3], const int srcStep[3], u8* const pDst[3], const int dstStep[3],
                     int w, int h) {
    nmqiCopy_8u_C1R(pSrc[0], srcStep[0], pDst[0], dstStep[0], w, h);
}

// 1620 chroma (m x rows) to 420 (2m x 2 rows): row 2k is the horizontal
// expansion of source row k, row 2k+1 lies between the expansions of rows k
// and k+1; after the last source row it repeats each sample twice instead.
void up_1620(In s, Out d, int m, int rows) {
    const ExpandFn expand = expand1620_kernel();
    const ExpandMidFn mid = expand1620_mid_kernel();
    const MapFn dup = duplicate_kernel();
    for (int k = 0; k < rows; ++k) {
        expand(s.row(k), d.row(2 * k), m);
        if (k + 1 < rows)
            mid(s.row(k), s.row(k + 1), d.row(2 * k + 1), m);
        else
            dup(s.row(k), d.row(2 * k + 1), m);
    }
}

// 420 chroma (2d x rows) to 411 (d x 2 rows): row 2k is the even samples of
// row k, row 2k+1 their mean with the even samples of row k+1; the last
// source row gives both of its rows unaveraged.
void down_411(In s, Out d, int n, int rows) {
    const MapFn dec = decimate_kernel();
    const ExpandMidFn avg = avg_even_kernel();
    for (int k = 0; k < rows; ++k) {
        dec(s.row(k), d.row(2 * k), n);
        if (k + 1 < rows)
            avg(s.row(k), s.row(k + 1), d.row(2 * k + 1), n);
        else
            dec(s.row(k), d.row(2 * k + 1), n);
    }
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiYCbCr420To1620_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                               Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!checked_planes(pSrc, pDst)) return nmqStsNullPtr;
    const int w = roiSize.width, h = roiSize.height;
    if (w < 4 || h < 4 || w % 4 != 0 || h % 4 != 0) return nmqStsSize;
    copy_luma_plane(pSrc, srcStep, pDst, dstStep, w, h);
    const MapFn dec = decimate_kernel();
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    for (int k = 0; k < h / 4; ++k) {
        dec(s.cb.row(2 * k), d.cb.row(k), w / 4);
        dec(s.cr.row(2 * k), d.cr.row(k), w / 4);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr1620To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                               Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!checked_planes(pSrc, pDst)) return nmqStsNullPtr;
    const int w = roiSize.width, h = roiSize.height;
    if (w < 4 || h < 4 || w % 4 != 0 || h % 4 != 0) return nmqStsSize;
    copy_luma_plane(pSrc, srcStep, pDst, dstStep, w, h);
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    up_1620(s.cb, d.cb, w / 4, h / 4);
    up_1620(s.cr, d.cr, w / 4, h / 4);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                              Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!checked_planes(pSrc, pDst)) return nmqStsNullPtr;
    const int w = roiSize.width, h = roiSize.height;
    if (w < 4 || h < 4 || w % 4 != 0 || h % 4 != 0) return nmqStsSize;
    copy_luma_plane(pSrc, srcStep, pDst, dstStep, w, h);
    const ExpandFn expand = expand411_kernel();
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    // Odd source rows are dropped.
    for (int k = 0; k < h / 2; ++k) {
        expand(s.cb.row(2 * k), d.cb.row(k), w / 4);
        expand(s.cr.row(2 * k), d.cr.row(k), w / 4);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420To411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                              Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!checked_planes(pSrc, pDst)) return nmqStsNullPtr;
    const int w = roiSize.width, h = roiSize.height;
    if (w < 4 || h < 2 || w % 4 != 0 || h % 2 != 0) return nmqStsSize;
    copy_luma_plane(pSrc, srcStep, pDst, dstStep, w, h);
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    down_411(s.cb, d.cb, w / 4, h / 2);
    down_411(s.cr, d.cr, w / 4, h / 2);
    return nmqStsOk;
}
