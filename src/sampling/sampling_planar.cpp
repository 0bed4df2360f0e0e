// Sampling conversions between planar images (three planes or luma plus
// interleaved chroma): 4:2:2 <-> 4:2:0, 4:2:2 <-> 4:1:1, 4:2:0 <-> 4:1:1,
// plane re-arrangements, and the filtered 4:2:0 -> 4:2:2.
#include "sampling/sampling_resample.h"
#include "sampling/sampling_walk.h"

using namespace nmq;
using namespace nmq::smp;

namespace {

// Above this many luma pixels the 4:2:2 -> 4:2:0 luma copy streams past the cache.
constexpr long long kStreamLumaPixels = 348603;

// Chroma row k of a 4:2:0 plane from row 2k of a 4:2:2 plane.
void even_rows(In s, Out d, int n, int rows) {
    const CopyFn copy = copy_kernel();
    for (int k = 0; k < rows; ++k) copy(s.row(2 * k), d.row(k), n, false);
}

// Each row k of a 4:2:0 chroma plane written to rows 2k and 2k+1.
void double_rows(In s, Out d, int n, int rows) {
    const CopyFn copy = copy_kernel();
    for (int k = 0; k < rows; ++k) {
        copy(s.row(k), d.row(2 * k), n, false);
        copy(s.row(k), d.row(2 * k + 1), n, false);
    }
}

// Interleaved chroma rows split into two planes; source row k >> shift.
void split_rows(In c, Out cb, Out cr, int n, int rows, int shift) {
    const UnpairFn split = deinterleave_kernel();
    for (int y = 0; y < rows; ++y) split(c.row(y >> shift), cb.row(y), cr.row(y), n);
}

// Two chroma planes interleaved row by row; destination row y from source
// row y * every (every = 2 drops the odd rows).
void join_rows(In cb, In cr, Out c, int n, int rows, int every = 1) {
    const PairFn join = interleave_kernel();
    for (int y = 0; y < rows; ++y) join(cb.row(ptrdiff_t(y) * every), cr.row(ptrdiff_t(y) * every), c.row(y), n);
}

// 4:2:0 -> 4:2:2 through the 4-tap filter. Source rows beyond the plane are
// its first or last row. Even destination rows are the source rows.
void filter_plane(In s, Out d, int n, int rows) {
    const CopyFn copy = copy_kernel();
    const FilterFn filter = filter_kernel();
    auto at = [rows](int k) { return k < 0 ? 0 : k >= rows ? rows - 1 : k; };
    for (int k = 0; k < rows; ++k) {
        copy(s.row(k), d.row(2 * k), n, false);
        filter(s.row(at(k - 1)), s.row(k), s.row(at(k + 1)), s.row(at(k + 2)), d.row(2 * k + 1), n);
    }
}

void filter_p2(In c, Out dcb, Out dcr, int n, int rows) {
    const UnpairFn split = deinterleave_kernel();
    const FilterSplitFn filter = filter_split_kernel();
    auto at = [rows](int k) { return k < 0 ? 0 : k >= rows ? rows - 1 : k; };
    for (int k = 0; k < rows; ++k) {
        split(c.row(k), dcb.row(2 * k), dcr.row(2 * k), n);
        filter(c.row(at(k - 1)), c.row(k), c.row(at(k + 1)), c.row(at(k + 2)), dcb.row(2 * k + 1), dcr.row(2 * k + 1),
               n);
    }
}

// 4:2:0 three planes to 4:1:1 interleaved chroma: row k gives row 2k from its
// even samples and row 2k+1 from its odd samples.
void to411_p2(In cb, In cr, Out c, int n, int rows) {
    const PickFn pick_ = interleave_pick_kernel();
    for (int k = 0; k < rows; ++k) {
        pick_(cb.row(k), cr.row(k), c.row(2 * k), n, 0);
        pick_(cb.row(k), cr.row(k), c.row(2 * k + 1), n, 1);
    }
}

// 4:2:0 interleaved chroma to 4:1:1 planes, the same split.
void to411_p3(In c, Out cb, Out cr, int n, int rows) {
    const UnpickFn pick_ = deinterleave_pick_kernel();
    for (int k = 0; k < rows; ++k) {
        pick_(c.row(k), cb.row(2 * k), cr.row(2 * k), n, 0);
        pick_(c.row(k), cb.row(2 * k + 1), cr.row(2 * k + 1), n, 1);
    }
}

// 4:1:1 planes to 4:2:0 planes: row k interleaves rows 2k and 2k+1.
void from411_p3(In s, Out d, int n, int rows) {
    const PairFn zip = interleave_kernel();
    for (int k = 0; k < rows; ++k) zip(s.row(2 * k), s.row(2 * k + 1), d.row(k), n);
}

}  // namespace

// ---- 4:2:2 planes -> 4:2:0 --------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h, (long long)w * h >= kStreamLumaPixels);
    even_rows(s.cb, d.cb, w / 2, h / 2);
    even_rows(s.cr, d.cr, w / 2, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    join_rows(s.cb, s.cr, {pDstCbCr, dstCbCrStep}, w / 2, h / 2, 2);
    return nmqStsOk;
}

// ---- 4:2:0 -> 4:2:2 planes ----------------------------------------------------------

namespace {
NmqStatus p3_420_to_422(const u8* const pSrc[3], const int srcStep[3], u8* const pDst[3], const int dstStep[3],
                        ImageSize roi, bool crFirst) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roi.width < 2 || roi.height < 2) return nmqStsSize;
    const int w = round2(roi.width), h = round2(roi.height);
    const auto s = in3(pSrc, srcStep, crFirst);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h);
    double_rows(s.cb, d.cb, w / 2, h / 2);
    double_rows(s.cr, d.cr, w / 2, h / 2);
    return nmqStsOk;
}
}  // namespace

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    return p3_420_to_422(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    return p3_420_to_422(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    split_rows({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 2, h, 1);
    return nmqStsOk;
}

// ---- 4:2:0 plane arrangements ----------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCrCb420ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep, true);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    join_rows(s.cb, s.cr, {pDstCbCr, dstCbCrStep}, w / 2, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                           int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    join_rows(s.cb, s.cr, {pDstCbCr, dstCbCrStep}, w / 2, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                           Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    split_rows({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 2, h / 2, 0);
    return nmqStsOk;
}

// Checked in four stages: the two source planes and the destination array,
// a ROI below 1, the destination planes, a ROI below 2.
NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst) return nmqStsNullPtr;
    if (bad_size(roiSize)) return nmqStsSize;
    if (null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    const int w = round2(roiSize.width), h = round2(roiSize.height);
    const auto d = out3(pDst, dstStep, true);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    split_rows({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 2, h / 2, 0);
    return nmqStsOk;
}

// ---- 4:2:0 -> 4:2:2 filtered ------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                          Nmq8u* const pDst[3], const int dstStep[3],
                                                          ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 8) return nmqStsSize;
    const int w = round2(roiSize.width), h = round8(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h);
    filter_plane(s.cb, d.cb, w / 2, h / 2);
    filter_plane(s.cr, d.cr, w / 2, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCrCb420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                          Nmq8u* const pDst[3], const int dstStep[3],
                                                          ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 8) return nmqStsSize;
    const int w = round2(roiSize.width), h = round8(roiSize.height);
    const auto s = in3(pSrc, srcStep, true);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h);
    filter_plane(s.cb, d.cb, w / 2, h / 2);
    filter_plane(s.cr, d.cr, w / 2, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep,
                                                            const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                            Nmq8u* const pDst[3], const int dstStep[3],
                                                            ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 8) return nmqStsSize;
    const int w = round2(roiSize.width), h = round8(roiSize.height);
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    filter_p2({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 2, h / 2);
    return nmqStsOk;
}

// ---- 4:2:0 <-> 4:1:1 ---------------------------------------------------------------------

namespace {
NmqStatus p3_420_to_411p2(const u8* const pSrc[3], const int srcStep[3], u8* pDstY, int dstYStep, u8* pDstCbCr,
                          int dstCbCrStep, ImageSize roi, bool crFirst) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roi.width < 4 || roi.height < 2) return nmqStsSize;
    const int w = round4(roi.width), h = round2(roi.height);
    const auto s = in3(pSrc, srcStep, crFirst);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    to411_p2(s.cb, s.cr, {pDstCbCr, dstCbCrStep}, w / 4, h / 2);
    return nmqStsOk;
}

// 4:1:1 interleaved chroma to 4:2:0 planes: row k takes its even samples from
// row 2k and its odd samples from row 2k+1. The destination array is read
// without a test of its own; its planes are tested.
NmqStatus p2_411_to_420p3(const u8* pSrcY, int srcYStep, const u8* pSrcCbCr, int srcCbCrStep, u8* const pDst[3],
                          const int dstStep[3], ImageSize roi, bool crFirst) {
    if (!pSrcY || !pSrcCbCr || null3(pDst)) return nmqStsNullPtr;
    if (roi.width < 4 || roi.height < 2) return nmqStsSize;
    const int w = round4(roi.width), h = round2(roi.height);
    const auto d = out3(pDst, dstStep, crFirst);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    const UnzipFn unzip = unzip_pairs_kernel();
    const In c{pSrcCbCr, srcCbCrStep};
    for (int k = 0; k < h / 2; ++k) unzip(c.row(2 * k), c.row(2 * k + 1), d.cb.row(k), d.cr.row(k), w / 4);
    return nmqStsOk;
}
}  // namespace

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    return p3_420_to_411p2(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCrCb420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    return p3_420_to_411p2(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4 || roiSize.height < 2) return nmqStsSize;
    const int w = round4(roiSize.width), h = round2(roiSize.height);
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    to411_p3({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 4, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4 || roiSize.height < 2) return nmqStsSize;
    const int w = round4(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h);
    from411_p3(s.cb, d.cb, w / 4, h / 2);
    from411_p3(s.cr, d.cr, w / 4, h / 2);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 4 || roiSize.height < 2) return nmqStsSize;
    const int w = round4(roiSize.width), h = round2(roiSize.height);
    const auto s = in3(pSrc, srcStep);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    const Zip4Fn zip = zip4_kernel();
    const Out c{pDstCbCr, dstCbCrStep};
    for (int k = 0; k < h / 2; ++k)
        zip(s.cb.row(2 * k), s.cr.row(2 * k), s.cb.row(2 * k + 1), s.cr.row(2 * k + 1), c.row(k), w / 4);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    return p2_411_to_420p3(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    return p2_411_to_420p3(pSrcY, srcYStep, pSrcCbCr, srcCbCrStep, pDst, dstStep, roiSize, true);
}

// ---- 4:2:2 <-> 4:1:1 planes (the height is not tested: below 1 converts nothing) ----------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    const int w = round4(roiSize.width), h = roiSize.height;
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep);
    copy_luma(s.y, d.y, w, h);
    const MapFn dec = decimate_kernel();
    for (int y = 0; y < h; ++y) {
        dec(s.cb.row(y), d.cb.row(y), w / 4);
        dec(s.cr.row(y), d.cr.row(y), w / 4);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                     int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                     ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    const int w = round4(roiSize.width), h = roiSize.height;
    const auto s = in3(pSrc, srcStep);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    const PickFn pick_ = interleave_pick_kernel();
    const Out c{pDstCbCr, dstCbCrStep};
    for (int y = 0; y < h; ++y) pick_(s.cb.row(y), s.cr.row(y), c.row(y), w / 4, 0);
    return nmqStsOk;
}

namespace {
NmqStatus p3_411_to_422(const u8* const pSrc[3], const int srcStep[3], u8* const pDst[3], const int dstStep[3],
                        ImageSize roi, bool crFirst) {
    if (!pSrc || !pDst || null3(pSrc) || null3(pDst)) return nmqStsNullPtr;
    if (roi.width < 4) return nmqStsSize;
    const int w = round4(roi.width), h = roi.height;
    const auto s = in3(pSrc, srcStep);
    const auto d = out3(pDst, dstStep, crFirst);
    copy_luma(s.y, d.y, w, h);
    const MapFn dup = duplicate_kernel();
    for (int y = 0; y < h; ++y) {
        dup(s.cb.row(y), d.cb.row(y), w / 4);
        dup(s.cr.row(y), d.cr.row(y), w / 4);
    }
    return nmqStsOk;
}
}  // namespace

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    return p3_411_to_422(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                   Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    return p3_411_to_422(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                     ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    const int w = round4(roiSize.width), h = roiSize.height;
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    const UnpairFn split = deinterleave_dup_kernel();
    const In c{pSrcCbCr, srcCbCrStep};
    for (int y = 0; y < h; ++y) split(c.row(y), d.cb.row(y), d.cr.row(y), w / 4);
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                           int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDstY || !pDstCbCr) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    const int w = round4(roiSize.width), h = roiSize.height;
    const auto s = in3(pSrc, srcStep);
    copy_luma(s.y, {pDstY, dstYStep}, w, h);
    join_rows(s.cb, s.cr, {pDstCbCr, dstCbCrStep}, w / 4, h);
    return nmqStsOk;
}

// The destination array is read without a test of its own; its planes are tested.
NMQ_EXPORT NmqStatus nmqiYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                           Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || null3(pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    const int w = round4(roiSize.width), h = roiSize.height;
    const auto d = out3(pDst, dstStep);
    copy_luma({pSrcY, srcYStep}, d.y, w, h);
    split_rows({pSrcCbCr, srcCbCrStep}, d.cb, d.cr, w / 4, h, 0);
    return nmqStsOk;
}
