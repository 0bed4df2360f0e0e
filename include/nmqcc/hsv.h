/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_HSV_H
#define NMQCC_HSV_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * HSV and HLS: RGB (or BGR) pixels to the hexcone models HSV (hue,
 * saturation, value) and HLS (hue, lightness, saturation) and back.
 *
 * Sample order: RGB functions read R, G, B and write H, S, V or H, L, S in
 * that order; the inverse functions read H, S, V or H, L, S and write R, G, B.
 * BGR functions keep B, G, R in memory. Planar images (P3, AP4) pass one
 * pointer per plane in the same order and one step for all planes of a side;
 * AP4 and AC4P4/AP4C4 carry alpha as the fourth plane or sample.
 *
 * Scales: 8u hue 0..255 for the full circle, S/V/L 0..255; 16u 0..65535 for
 * all three; 16s as 16u on the value offset by 32768; 32f hue 0 <= H < 1
 * (degrees / 360), L, S and R, G, B in 0..1.
 *
 * Alpha: AC4 destinations keep their alpha samples; AP4, AC4P4 and AP4C4
 * destinations receive the source alpha.
 *
 * Rounding: the 8u HSV conversion and the forward 8u, 16u and 16s HLS
 * conversions use the processor's reciprocal estimate (refined by one Newton
 * step in HLS), so their lowest bits can differ between processor makes.
 *
 * Statuses: nmqStsNullPtr (-8) for a null pointer, then nmqStsSize (-6) for a
 * width or height below 1; steps are used as given. The BGR/HLS 8u functions
 * also reject a step below 1 with nmqStsStep (-14): the planar and mixed forms
 * test steps before the size, nmqiBGRToHLS_8u_AC4R after it.
 */

NMQ_API NmqStatus nmqiRGBToHSV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHSVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiRGBToHLS_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHLSToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiBGRToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHLSToBGR_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

#endif
