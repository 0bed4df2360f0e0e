/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_TONEMAP_H
#define NMQCC_TONEMAP_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Tone mapping: a one-channel float image of unbounded values (linear
 * radiance, say) to 8u by one global scale.
 *
 * nmqiToneMapLinear_32f8u_C1R maps the image maximum m to 255: the scale is
 *   255 / m in single precision.
 * nmqiToneMapMean_32f8u_C1R maps the image mean to 255: the scale is 255 / mean
 *   in double precision, then rounded to single; samples above the mean
 *   saturate at 255.
 *
 * Each destination sample is the single-precision product of the source sample
 * and the scale, truncated toward zero and clamped to 0..255 (products beyond
 * the integer range saturate the same way; NaN gives 0). When the maximum
 * (mean) is 0 or below the smallest normal float, the destination is filled
 * with 0.
 *
 * Statuses, in this order: nmqStsNullPtr (-8) a null pointer; nmqStsSize (-6)
 * width or height below 1; nmqStsNegativeLevel (+1, a warning) the maximum
 * (mean) is negative: the destination is left as it was. Steps are not
 * checked.
 */

NMQ_API NmqStatus nmqiToneMapLinear_32f8u_C1R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                              ImageSize roiSize);
NMQ_API NmqStatus nmqiToneMapMean_32f8u_C1R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                            ImageSize roiSize);

#endif
