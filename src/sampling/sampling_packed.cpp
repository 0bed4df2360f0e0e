// Sampling conversions with a packed 4:2:2 image on one side: splits into
// planes (with 4:2:0 or 4:1:1 chroma selection), joins from planes (with
// chroma duplication), and packed-to-packed byte reorderings.
#include "sampling/sampling_walk.h"

using namespace nmq;
using namespace nmq::smp;

namespace {

// Packed 4:2:2 to 4:2:0 planes: chroma of rows 0, 2, 4, ...
template <class O>
NmqStatus packed_to_420(const u8* pSrc, int srcStep, u8* const pDst[3], const int dstStep[3], ImageSize roi,
                        bool crFirst) {
    if (!pSrc || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roi.width < 2 || roi.height < 2) return nmqStsSize;
    packed_to_planes<O>({pSrc, srcStep}, out3(pDst, dstStep, crFirst), round2(roi.width), round2(roi.height), 2,
                        split_kernel<O>());
    return nmqStsOk;
}

template <class O>
NmqStatus packed_to_420p2(const u8* pSrc, int srcStep, u8* pDstY, int dstYStep, u8* pDstCbCr, int dstCbCrStep,
                          ImageSize roi) {
    if (any_null(pSrc, pDstY, pDstCbCr)) return nmqStsNullPtr;
    if (roi.width < 2 || roi.height < 2) return nmqStsSize;
    packed_to_p2<O>({pSrc, srcStep}, {pDstY, dstYStep}, {pDstCbCr, dstCbCrStep}, round2(roi.width),
                    round2(roi.height), 2, split_p2_kernel<O>());
    return nmqStsOk;
}

// Packed 4:2:2 to 4:1:1 planes: chroma of groups 0, 2, 4, ...; `checkHeight`
// tells whether a height below 1 is an error or converts nothing.
template <class O>
NmqStatus packed_to_411(const u8* pSrc, int srcStep, u8* const pDst[3], const int dstStep[3], ImageSize roi,
                        bool checkHeight) {
    if (!pSrc || !pDst || null3(pDst)) return nmqStsNullPtr;
    if (roi.width < 4 || (checkHeight && roi.height < 1)) return nmqStsSize;
    packed_to_planes<O>({pSrc, srcStep}, out3(pDst, dstStep), round4(roi.width), roi.height, 1,
                        split_dec_kernel<O>());
    return nmqStsOk;
}

// Packed 4:2:2 to 4:2:2 planes. Sources and luma planes on 16-byte
// boundaries with a width that is a multiple of 16 take the aligned kernel.
template <class O>
NmqStatus packed_to_422(const u8* pSrc, int srcStep, u8* const pDst[3], const int dstStep[3], ImageSize roi,
                        bool alignedKernel) {
    if (roi.width < 2 || roi.height < 1) return nmqStsSize;
    const int w = round2(roi.width);
    const bool aligned = alignedKernel && ((reinterpret_cast<uintptr_t>(pSrc) | reinterpret_cast<uintptr_t>(pDst[0]) |
                                            uintptr_t(unsigned(srcStep)) | uintptr_t(unsigned(dstStep[0]))) & 15) == 0 &&
                         (w & 14) == 0;
    packed_to_planes<O>({pSrc, srcStep}, out3(pDst, dstStep), w, roi.height, 1,
                        aligned ? split_a16_kernel<O>() : split_kernel<O>());
    return nmqStsOk;
}

// Three planes to packed 4:2:2; row y takes chroma row y >> vshift.
void to_packed(const u8* const pSrc[3], const int srcStep[3], bool crFirst, u8* pDst, int dstStep, int w, int h,
               int vshift, JoinFn join) {
    planes_to_packed(in3(pSrc, srcStep, crFirst), {pDst, dstStep}, w, h, vshift, join);
}

// Packed to packed: one byte reordering per group; `checkHeight` as above.
NmqStatus reorder(const u8* pSrc, int srcStep, u8* pDst, int dstStep, ImageSize roi, bool checkHeight,
                  ReorderFn kernel) {
    if (!pSrc || !pDst) return nmqStsNullPtr;
    if ((checkHeight && roi.height < 1) || roi.width < 2) return nmqStsSize;
    const In s{pSrc, srcStep};
    const Out d{pDst, dstStep};
    for (int y = 0; y < roi.height; ++y) kernel(s.row(y), d.row(y), roi.width / 2);
    return nmqStsOk;
}

}  // namespace

// ---- 4:2:2 packed -> 4:2:0 --------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_420<OrdYCbCr>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCrCb422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_420<OrdYCrCb>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_420<OrdYCbCr>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_420<OrdCbYCr>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_420<OrdCbYCr>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                     Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize) {
    return packed_to_420p2<OrdYCbCr>(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roiSize);
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                     Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize) {
    return packed_to_420p2<OrdCbYCr>(pSrc, srcStep, pDstY, dstYStep, pDstCbCr, dstCbCrStep, roiSize);
}

// ---- 4:2:2 packed -> 4:1:1 --------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_411<OrdYCbCr>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCrCb422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_411<OrdYCrCb>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    return packed_to_411<OrdCbYCr>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                     Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize) {
    if (any_null(pSrc, pDstY, pDstCbCr)) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    packed_to_p2<OrdYCbCr>({pSrc, srcStep}, {pDstY, dstYStep}, {pDstCbCr, dstCbCrStep}, round4(roiSize.width),
                           roiSize.height, 1, split_dec_p2_kernel<OrdYCbCr>());
    return nmqStsOk;
}

// ---- 4:2:2 packed -> 4:2:2 planes ----------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                           const int dstStep[3], ImageSize roiSize) {
    // The only member that also refuses a missing step array.
    if (!pSrc || !pDst || !dstStep || null3(pDst)) return nmqStsNullPtr;
    return packed_to_422<OrdYCbCr>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiYCrCb422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pDst)) return nmqStsNullPtr;
    return packed_to_422<OrdYCrCb>(pSrc, srcStep, pDst, dstStep, roiSize, true);
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                     const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || null3(pDst)) return nmqStsNullPtr;
    return packed_to_422<OrdCbYCr>(pSrc, srcStep, pDst, dstStep, roiSize, false);
}

// ---- planes -> 4:2:2 packed ---------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                           int dstStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 1) return nmqStsSize;
    to_packed(pSrc, srcStep, false, pDst, dstStep, round2(roiSize.width), roiSize.height, 0,
                        join_kernel<OrdYCbCr>());
    return nmqStsOk;
}

// An odd last column is left alone, as in every other 4:2:2 output.
NMQ_EXPORT NmqStatus nmqiYCbCr422ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 1) return nmqStsSize;
    to_packed(pSrc, srcStep, false, pDst, dstStep, round2(roiSize.width), roiSize.height, 0,
                        join_kernel<OrdCbYCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2) return nmqStsSize;
    to_packed(pSrc, srcStep, false, pDst, dstStep, round2(roiSize.width), roiSize.height, 0,
                        join_kernel<OrdYCrCb>());
    return nmqStsOk;
}

// The Cr-first sources are read through their plane pointers only: the
// array pointer itself is not tested.
NMQ_EXPORT NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    to_packed(pSrc, srcStep, true, pDst, dstStep, round2(roiSize.width), round2(roiSize.height), 1,
                        join_kernel<OrdYCbCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCrCb420ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    to_packed(pSrc, srcStep, true, pDst, dstStep, round2(roiSize.width), round2(roiSize.height), 1,
                        join_kernel<OrdCbYCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    to_packed(pSrc, srcStep, false, pDst, dstStep, round4(roiSize.width), roiSize.height, 0,
                        join_dup_kernel<OrdYCbCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                     int dstStep, ImageSize roiSize) {
    if (!pSrc || null3(pSrc) || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    to_packed(pSrc, srcStep, false, pDst, dstStep, round4(roiSize.width), roiSize.height, 0,
                        join_dup_kernel<OrdYCrCb>());
    return nmqStsOk;
}

// Two-plane 4:2:0: both pointers are tested, then the size in two steps
// (below 1, then below 2) with the same outcome.
NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (any_null(pSrcY, pSrcCbCr, pDst)) return nmqStsNullPtr;
    if (bad_size(roiSize) || roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    p2_to_packed({pSrcY, srcYStep}, {pSrcCbCr, srcCbCrStep}, {pDst, dstStep}, round2(roiSize.width),
                 round2(roiSize.height), 1, join_p2_kernel<OrdYCbCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToCbYCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (any_null(pSrcY, pSrcCbCr, pDst)) return nmqStsNullPtr;
    if (bad_size(roiSize) || roiSize.width < 2 || roiSize.height < 2) return nmqStsSize;
    p2_to_packed({pSrcY, srcYStep}, {pSrcCbCr, srcCbCrStep}, {pDst, dstStep}, round2(roiSize.width),
                 round2(roiSize.height), 1, join_p2_kernel<OrdCbYCr>());
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                     int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (any_null(pSrcY, pSrcCbCr, pDst)) return nmqStsNullPtr;
    if (roiSize.width < 4) return nmqStsSize;
    p2_to_packed({pSrcY, srcYStep}, {pSrcCbCr, srcCbCrStep}, {pDst, dstStep}, round4(roiSize.width), roiSize.height,
                 0, join_p2dup_kernel<OrdYCbCr>());
    return nmqStsOk;
}

// ---- packed -> packed --------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCrCb422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                   ImageSize roiSize) {
    return reorder(pSrc, srcStep, pDst, dstStep, roiSize, false, swap13_kernel());
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToCbYCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                   ImageSize roiSize) {
    return reorder(pSrc, srcStep, pDst, dstStep, roiSize, true, swap_adjacent_kernel());
}

NMQ_EXPORT NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                   ImageSize roiSize) {
    return reorder(pSrc, srcStep, pDst, dstStep, roiSize, true, swap_adjacent_kernel());
}
