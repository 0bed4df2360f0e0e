/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_TWIST_H
#define NMQCC_TWIST_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Colour twist: an affine matrix applied to every pixel. With the 3 x 4
 * matrix t (row-major), output channel i of a pixel (x0, x1, x2) is
 *
 *     (t[i][3] + x0 * t[i][0]) + (x1 * t[i][1] + x2 * t[i][2])
 *
 * computed in single precision in exactly this grouping, so results are the
 * same bits on every build.
 *
 * nmqiColorTwist_32f_*: float images, no clamping, computed in the caller's
 *   SSE rounding mode. nmqiColorTwist_32f_C4R takes a 4 x 4 matrix over four
 *   channels without offset: (x0 t[i][0] + x1 t[i][1]) + (x2 t[i][2] + x3 t[i][3]).
 *   When both steps equal width * 4 bytes, the image is taken as one row of
 *   width * height pixels (contiguous pixels from the first one).
 * nmqiColorTwist32f_<8u|8s|16u|16s>_*: integer images; the sum is clamped to
 *   the type's range (upper bound first; 8s clamps at 127.0 and saturates at
 *   -128) and rounded to nearest with ties to even. For the duration of the
 *   call these functions set the SSE rounding field of the calling thread to
 *   nearest-even and afterwards restore the caller's control register exactly
 *   as it was when its rounding field was not already nearest-even. A caller
 *   running with another rounding mode still gets nearest-even results.
 *
 * C3 and P3 (three planes, one step) transform every pixel; AC4 transforms the
 * first three channels and never writes the fourth (alpha). IR / IP3R forms
 * work in place.
 *
 * Statuses, checked in this order: nmqStsNullPtr (-8) a null image, plane or
 * matrix pointer; nmqStsSize (-6) width or height below 1; nmqStsStep (-14) a
 * step below 1. Errors write nothing. The matrix values are not checked.
 */

NMQ_API NmqStatus nmqiColorTwist_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_C3IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                          const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_AC4IR(Nmq32f* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_P3R(const Nmq32f* const pSrc[3], int srcStep, Nmq32f* const pDst[3], int dstStep,
                                         ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_IP3R(Nmq32f* const pSrcDst[3], int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist_32f_C4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[4][4]);

NMQ_API NmqStatus nmqiColorTwist32f_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8u_C3IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                          const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8u_AC4IR(Nmq8u* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                         ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8u_IP3R(Nmq8u* const pSrcDst[3], int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);

NMQ_API NmqStatus nmqiColorTwist32f_8s_C3R(const Nmq8s* pSrc, int srcStep, Nmq8s* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8s_C3IR(Nmq8s* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8s_AC4R(const Nmq8s* pSrc, int srcStep, Nmq8s* pDst, int dstStep, ImageSize roiSize,
                                          const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8s_AC4IR(Nmq8s* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8s_P3R(const Nmq8s* const pSrc[3], int srcStep, Nmq8s* const pDst[3], int dstStep,
                                         ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_8s_IP3R(Nmq8s* const pSrcDst[3], int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);

NMQ_API NmqStatus nmqiColorTwist32f_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16u_C3IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize,
                                          const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16u_AC4IR(Nmq16u* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16u_P3R(const Nmq16u* const pSrc[3], int srcStep, Nmq16u* const pDst[3], int dstStep,
                                         ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16u_IP3R(Nmq16u* const pSrcDst[3], int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);

NMQ_API NmqStatus nmqiColorTwist32f_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize,
                                         const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16s_C3IR(Nmq16s* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize,
                                          const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16s_AC4IR(Nmq16s* pSrcDst, int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16s_P3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* const pDst[3], int dstStep,
                                         ImageSize roiSize, const Nmq32f twist[3][4]);
NMQ_API NmqStatus nmqiColorTwist32f_16s_IP3R(Nmq16s* const pSrcDst[3], int srcDstStep, ImageSize roiSize, const Nmq32f twist[3][4]);

#endif
