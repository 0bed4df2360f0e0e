/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_GAMMA_H
#define NMQCC_GAMMA_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Gamma correction: the BT.709 transfer curve (Fwd: linear light to
 * gamma-corrected values) or its inverse (Inv), applied to the three colour
 * channels of an image.
 *
 *   forward  E(t)  = 4.5 t                      for t < 0.018
 *                    1.099 t^0.45 - 0.099       otherwise
 *   inverse  E'(u) = u / 4.5                    below the threshold
 *                    ((u + 0.099) / 1.099)^(1/0.45) otherwise
 *
 * 8u:  two constant 256-entry tables (forward entry 1 is 4; the inverse table
 *      switches branch at u = 0.081).
 * 16u: the curve over 0..65535 in double precision, rounded to nearest with
 *      ties to even; the inverse switches branch at t = 0.0812. Images of more
 *      than 65536 samples (width * height * 3) go through a 65536-entry table
 *      built for the call, whose entries are rounded through single precision
 *      and may differ from the direct computation on rare ties.
 * 32f: the curve over the value range [vMin, vMax] in double precision,
 *      inverse threshold 0.0812; values outside the range are not clamped.
 *
 * C3 and P3 process three samples per pixel (P3: three planes, one step);
 * AC4 processes the first three and never writes the fourth (alpha). The
 * forms ending in IR / IP3R work in place.
 *
 * Statuses, checked in this order:
 *   nmqStsGammaRange (-49) 32f only, before anything else: vMax - vMin is not
 *                          above 0 (NaN bounds included);
 *   nmqStsNullPtr    (-8)  a null image pointer or pointer array;
 *   nmqStsSize       (-6)  width or height below 1;
 *   nmqStsNullPtr    (-8)  P3 forms: a null plane pointer;
 *   nmqStsStep       (-14) a step below 1;
 *   nmqStsNoMemory   (-9)  16u: the table could not be allocated.
 * Errors write nothing.
 */

NMQ_API NmqStatus nmqiGammaFwd_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_8u_C3IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_8u_AC4IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_8u_IP3R(Nmq8u* const pSrcDst[3], int srcDstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiGammaFwd_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_16u_C3IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_16u_AC4IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_16u_P3R(const Nmq16u* const pSrc[3], int srcStep, Nmq16u* const pDst[3], int dstStep,
                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaFwd_16u_IP3R(Nmq16u* const pSrcDst[3], int srcDstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiGammaFwd_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaFwd_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaFwd_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaFwd_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaFwd_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                       ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaFwd_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);

NMQ_API NmqStatus nmqiGammaInv_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_8u_C3IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_8u_AC4IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_8u_IP3R(Nmq8u* const pSrcDst[3], int srcDstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiGammaInv_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_16u_C3IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_16u_AC4IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_16u_P3R(const Nmq16u* const pSrc[3], int srcStep, Nmq16u* const pDst[3], int dstStep,
                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiGammaInv_16u_IP3R(Nmq16u* const pSrcDst[3], int srcDstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiGammaInv_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaInv_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaInv_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaInv_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaInv_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                       ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);
NMQ_API NmqStatus nmqiGammaInv_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize, Nmq32f vMin, Nmq32f vMax);

#endif
