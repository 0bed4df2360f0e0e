/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YCBCR_H
#define NMQCC_YCBCR_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * YCbCr, YCrCb and CbYCr to and from RGB/BGR.
 *
 * BT.601 studio range (Y 16..235, Cb and Cr 16..240 around 128), 8-bit, in
 * fixed point at scale 2^16: RGB (0,0,0) gives (16,128,128) and (255,255,255)
 * gives (235,128,128); the inverse truncates, so (235,128,128) gives
 * (254,254,254). `_709CSC` uses the BT.709 matrix at the same studio range;
 * `_709HDTV` uses BT.709 on studio-range RGB (16..235 stays 16..235 in luma).
 *
 * Layouts: YCbCr C3 holds Y,Cb,Cr per pixel; packed 4:2:2 (C2) holds each pixel
 * pair as Y0 Cb Y1 Cr ("YCbCr422"), Y0 Cr Y1 Cb ("YCrCb422") or Cb Y0 Cr Y1
 * ("CbYCr422"); P3 subsampled planes take one step each; a three-plane YCrCb
 * image lists its planes Y, Cr, Cb; P2 is a Y plane and a plane of interleaved
 * chroma pairs (Cb,Cr, or Cr,Cb for YCrCb), passed as Y pointer and step, then
 * chroma pointer and step. Full-sampled P3 images share one step. BGR565 and
 * BGR555 sources hold B in the low bits; fields are widened by bit replication.
 *
 * Subsampling: a pair (4:2:2), a 2x2 block (4:2:0) or a group of four (4:1:1)
 * shares the rounded mean of its chroma (709CSC rounds with a bias of one
 * eighth); in BT.601 4:2:2 the second Y of a pair is not rounded. Going back
 * to RGB, a chroma sample covers its whole cell unchanged.
 * - 4:2:2 converts every pixel. An odd last pixel gets its own chroma; a packed
 *   row has room for one chroma byte only (the one after its Y, or before it in
 *   CbYCr). Reading a packed row, an odd last pixel takes its missing chroma
 *   byte from the preceding pair, and a one-pixel-wide row uses its one chroma
 *   byte for both. Chroma planes are (width + 1) / 2 wide.
 * - 4:1:1 converts every pixel; a short last group counts its last pixel again
 *   for its chroma. Chroma planes are (width + 3) / 4 wide.
 * - 4:2:0 converts the even part: width / 2 * 2 columns and height / 2 * 2
 *   rows; the last odd column and row are neither read nor written. Chroma
 *   planes are width / 2 by height / 2.
 * C4 destinations write alpha 0xFF; AC4 destinations keep their alpha bytes;
 * AC4 and C4 sources ignore alpha. nmqiRGBToCbYCr422Gamma_8u_C3C2R first maps
 * R, G and B through the 8-bit forward transfer curve (BT.709 curve) of the
 * gamma functions. nmqiYCrCb420ToBGR_Filter_8u_P3C4R interpolates chroma
 * vertically with the 4-tap (-1, 9, 9, -1) / 16 filter of the 4:2:0 to 4:2:2
 * _Filter conversions (edge rows repeated) and covers pixel pairs horizontally.
 *
 * Statuses: nmqStsNullPtr for a null image pointer, then nmqStsSize for a
 * width or height below 1, then nmqStsNullPtr for a null plane inside a
 * pointer array (nmqiRGBToYCbCr_8u_C3P3R and _AC4P3R test their planes before
 * the size). Steps are used as given. nmqStsOddSize (after converting): every
 * 4:2:0 function when the width or height is odd, nmqiRGBToYCbCr422_8u_C3P3R
 * when the width is odd, nmqiBGRToYCbCr411_8u_C3P3R and _AC4P3R when the width
 * is not a multiple of 4.
 */

/* Full-sampled. */
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

/* 4:2:2. */
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToCbYCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToCbYCr422Gamma_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:2:0. */
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C4P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_Filter_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:1:1. */
NMQ_API NmqStatus nmqiBGRToYCbCr411_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr411_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* BT.709. */
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709HDTV_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_709HDTV_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

#endif
