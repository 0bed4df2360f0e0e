/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_SAMPLING_H
#define NMQCC_SAMPLING_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Sampling formats and plane arrangements of 8-bit YCbCr images.
 *
 * These functions move an image between chroma sampling schemes (4:2:2,
 * 4:2:0, 4:1:1 and the quarter-resolution 1620 scheme), plane arrangements
 * (packed two-channel C2, two-plane P2, three-plane P3) and chroma orders,
 * without passing through RGB. The ROI is given in luma pixels.
 *
 * Layouts:
 *   YCbCr422 C2   one plane of 4-byte groups Y0 Cb Y1 Cr; CbYCr422: Cb Y0 Cr Y1;
 *                 YCrCb422: Y0 Cr Y1 Cb
 *   ...422 P3     Y, Cb, Cr planes, chroma w/2 x h    (YCrCb422 P3: Y, Cr, Cb)
 *   ...420 P3     Y, Cb, Cr planes, chroma w/2 x h/2  (YCrCb420 P3: Y, Cr, Cb)
 *   ...420 P2     Y plane, then one chroma plane of w bytes x h/2 rows, Cb at even bytes
 *   ...411 P3     Y, Cb, Cr planes, chroma w/4 x h
 *   ...411 P2     Y plane, then one chroma plane of w/2 bytes x h rows, Cb at even bytes
 *   1620 P3       Y, Cb, Cr planes, chroma w/4 x h/4
 * Three-plane images are passed as an array of three plane pointers and an
 * array of three steps; two-plane images as luma pointer, luma step, chroma
 * pointer, chroma step; packed images as one pointer and one step.
 *
 * Luma is always copied unchanged. Chroma is only selected, duplicated,
 * interleaved or split: 4:2:2 -> 4:2:0 keeps chroma rows 0, 2, 4, ...;
 * 4:2:0 -> 4:2:2 writes every chroma row twice; 4:2:2 -> 4:1:1 keeps samples
 * 0, 2, 4, ...; 4:1:1 -> 4:2:2 writes every sample twice. 4:2:0 <-> 4:1:1 is
 * lossless: 4:2:0 chroma row k gives 4:1:1 row 2k from its even samples and
 * row 2k+1 from its odd samples, and the way back interleaves them again.
 * The exceptions compute new chroma:
 *   - `_Filter`: destination chroma row 2k is source row k; row 2k+1 is
 *     (-C[k-1] + 9 C[k] + 9 C[k+1] - C[k+2] + 8) >> 4 clamped to 0..255, with
 *     rows beyond the plane replaced by its first or last row;
 *   - nmqiYCbCr1620To420_8u_P3R, nmqiYCbCr420To1620_8u_P3R,
 *     nmqiYCbCr411To420_8u_P3R, nmqiYCbCr420To411_8u_P3R: each chroma plane
 *     is resampled by itself with two-sample means. Means inside the 16-byte
 *     blocks of a row round half up, those after the last block truncate;
 *     the block sizes are fixed, so results are the same on every CPU.
 *
 * Sizes: each function needs a minimum ROI (2 x 2 for most 4:2:0 forms,
 * 2 x 8 for `_Filter`, 4 pixels wide for 4:1:1 forms) and returns
 * nmqStsSize below it; above it the width and height are rounded down to
 * the sampling period (a `_Filter` height to a multiple of 8) silently, with
 * status nmqStsOk, and nothing right of or below the rounded ROI is written.
 * Some 4:2:2/4:1:1 forms do not test the height: a height below 1 then
 * converts nothing and returns nmqStsOk. The four short-named plane
 * functions do not round: they return nmqStsSize unless the width and height
 * are multiples of 4 (for nmqiYCbCr420To411_8u_P3R: width a multiple of 4,
 * height even).
 *
 * Statuses: nmqStsOk, nmqStsNullPtr (a checked pointer is null; tested
 * before the size, except the destination planes of
 * nmqiYCbCr420ToYCrCb420_8u_P2P3R, which are tested after width or height
 * below 1), nmqStsSize. Steps are used as given. The array of plane
 * pointers itself is not tested by nmqiYCrCb420ToYCbCr422_8u_P3C2R,
 * nmqiYCrCb420ToCbYCr422_8u_P3C2R, nmqiYCbCr411ToYCbCr420_8u_P2P3R,
 * nmqiYCbCr411ToYCrCb420_8u_P2P3R and nmqiYCbCr411_8u_P2P3R (its planes are);
 * nmqiYCbCr422_8u_C2P3R also tests its array of destination steps.
 */

/* 4:2:2 -> 4:2:0 */
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);

/* 4:2:0 -> 4:2:2 and 4:2:0 plane arrangements */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToCbYCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                        Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                        int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);

/* 4:2:0 -> 4:2:2 with the 4-tap vertical chroma filter */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                       Nmq8u* const pDst[3], const int dstStep[3],
                                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                         int srcCbCrStep, Nmq8u* const pDst[3],
                                                         const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                       Nmq8u* const pDst[3], const int dstStep[3],
                                                       ImageSize roiSize);

/* 4:2:0 <-> 4:1:1, lossless */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);

/* 4:2:2 -> 4:1:1 */
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);

/* 4:1:1 -> 4:2:2 and 4:1:1 plane arrangements */
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                        int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                        Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:2:2 reorderings, splits and joins */
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToCbYCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                        ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                        int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);

/* Short-named plane conversions (rejecting sizes instead of rounding) */
NMQ_API NmqStatus nmqiYCbCr420To1620_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr1620To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                           const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420To411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                           const int dstStep[3], ImageSize roiSize);

#endif
