/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_GRAY_H
#define NMQCC_GRAY_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Gray: colour to luminance and back.
 *
 * nmqiRGBToGray_* weight R, G, B (C3, or AC4 whose alpha is not read) with the
 * fixed weights 0.299, 0.587, 0.114; nmqiColorToGray_* with three caller
 * weights (coeffs, order R, G, B; a null pointer selects the fixed weights).
 * The destination is one channel of the source type.
 *  - 8u: 16-bit integer weights with 15 fraction bits (fixed 9798, 19235,
 *    3736; a caller weight c becomes trunc(c * 32768 + 0.5), low 16 bits, so
 *    weights of 2.0 and above or below 0 wrap). A row is converted in two
 *    parts with different rounding: the first 4*floor(width/4) pixels (C3) or
 *    8*floor(width/8) pixels (AC4) in 16-bit steps whose sum saturates (a
 *    weight sum well above 1 gives 0), the rest with a 32-bit sum whose low 8
 *    bits are stored. Some colours therefore differ by one with their column.
 *  - 16u, 16s, 32f: single-precision (R*wR + G*wG) + B*wB; 16u rounds to
 *    nearest-even and stores the low 16 bits; 16s offsets samples by +32768
 *    before weighting and removes the offset after rounding, saturating on
 *    the first 4*floor(width/4) pixels and storing the low 16 bits on the rest;
 *    32f is not clamped.
 *  - 64f: double weights; the default is the float fixed weights widened.
 * nmqiGrayToRGB_* copy the gray sample into three channels; the C1C4 forms
 * write aval into the fourth.
 *
 * Statuses: nmqStsNullPtr (source or destination null), then nmqStsSize
 * (width or height below 1), else nmqStsOk. Steps are bytes and not checked;
 * the 16- and 32-bit forms truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiColorToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                           const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                            const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_64f_C3C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq64f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_64f_AC4C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq64f coeffs[3]);

NMQ_API NmqStatus nmqiGrayToRGB_8u_C1C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_16u_C1C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_32f_C1C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_8u_C1C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                         Nmq8u aval);
NMQ_API NmqStatus nmqiGrayToRGB_16u_C1C4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize,
                                          Nmq16u aval);
NMQ_API NmqStatus nmqiGrayToRGB_32f_C1C4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                          Nmq32f aval);

#endif
