/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_XYZ_H
#define NMQCC_XYZ_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * XYZ: linear RGB to CIE XYZ and back (D65 white, BT.709 primaries), C3 and
 * AC4 (the source alpha is not read, the destination alpha is not written).
 *  - 8u: coefficients times 65536 truncated, sums shifted right by 16 without
 *    rounding and clamped to 0..255 (white gives X 242, Y 254, Z 255).
 *  - 32f: single precision, (a*c0 + b*c1) + c*c2; forward clamps Z alone to
 *    0..1 (X and Y follow out-of-range inputs), inverse clamps R, G, B to 0..1.
 *  - 16u, 16s: the float matrix without the 0..1 clamps, truncated toward
 *    zero and saturated; 16s works on samples offset by +32768.
 * Statuses: nmqStsNullPtr (source or destination null), then nmqStsSize
 * (width or height below 1), else nmqStsOk. Steps are bytes and not checked;
 * the 16- and 32-bit forms truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToXYZ_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToXYZ_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiXYZToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

#endif
