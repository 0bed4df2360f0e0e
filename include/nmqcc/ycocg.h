/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YCOCG_H
#define NMQCC_YCOCG_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * YCoCg: interleaved RGB/BGR pixels to three planes Y, Co, Cg (one common
 * step for the planes) and back. "SBGR" is signed 16-bit BGR. C4 sources
 * ignore their fourth channel; C4 destinations get aval there.
 *  - Plain transform (lossy): Y = (R + 2G + B + 2) >> 2, Co = (R - B + 1) >> 1,
 *    Cg = (2G - R - B + 2) >> 2; inverse R = Y + Co - Cg, G = Y + Cg,
 *    B = Y - Co - Cg.
 *  - _Rev, lifting transform (lossless): Co = R - B, t = B + (Co >> 1),
 *    Cg = G - t, Y = t + (Cg >> 1), and its exact inverse.
 * Shifts floor. 8u planes carry +128 in Co (capped at 255) and Cg (clamped);
 * 8u destinations are clamped to 0..255; 16s planes from 16s samples saturate
 * (plain) or wrap at every step (_Rev, which keeps the pair exactly
 * invertible); 16s results from 16s planes wrap; 16s results from 32s planes
 * saturate; 32s planes hold every value.
 *
 * Statuses: nmqStsNullPtr (the interleaved pointer, the plane array or a plane
 * null), then, in the members that check the size, nmqStsSize (width or
 * height below 1), else nmqStsOk. Members without the size check return
 * nmqStsOk for an empty ROI and write nothing. Size checked by:
 * nmqiRGBToYCoCg_8u_C3P3R, nmqiBGRToYCoCg_8u16s_*, nmqiBGRToYCoCg_Rev_8u16s_*,
 * nmqiSBGRToYCoCg_16s_*, nmqiSBGRToYCoCg_16s32s_C3P3R,
 * nmqiSBGRToYCoCg_Rev_16s32s_C3P3R, nmqiYCoCgToSBGR_16s_P3C4R,
 * nmqiYCoCgToSBGR_32s16s_*. Steps are bytes and not checked; 16- and 32-bit
 * images truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToYCoCg_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                          ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                          ImageSize roiSize);

NMQ_API NmqStatus nmqiBGRToYCoCg_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                             ImageSize roiSize, Nmq8u aval);
NMQ_API NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize, Nmq8u aval);

NMQ_API NmqStatus nmqiSBGRToYCoCg_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3], int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3], int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                   int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                   int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiYCoCgToSBGR_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                                ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roiSize, Nmq16s aval);

#endif
