/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_LUVLAB_H
#define NMQCC_LUVLAB_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * LUV, Lab and YCC: RGB pixels to CIE 1976 L*u*v*, CIE 1976 L*a*b* and
 * photographic YCC, and back; C3 (and AC4 where named: the source alpha is
 * not read, the destination alpha is not written). BGR forms read and write
 * B, G, R in memory; model channels are always L, a, b / L, u, v / Y, C1, C2.
 *
 * Common rules. Integer RGB samples are read as r = sample / 255 (8u),
 * sample / 65535 (16u) or (sample + 32768) / 65535 (16s); 32f samples are
 * used as they are. All arithmetic is single precision in a fixed order, so
 * every build and processor gives the same bytes. An integer model value is
 * stored as the code (value + add) * mul, clamped to the type's range
 * (16s: 0..65535, then 32768 subtracted) and rounded to nearest, ties to
 * even; the inverse reads value = code / mul - add with the same add and mul.
 * Inverse results are clamped to 0..1 (a NaN becomes 0) and stored as
 * r * 255, r * 65535 (16s: minus 32768) rounded the same way, or as they are
 * in 32f. Forward 32f results are not clamped.
 *
 * Lab and LUV work on linear RGB through the matrix of the XYZ functions
 * (X = (0.412453 R + 0.357580 G) + 0.180423 B, and so on, no clamp) with the
 * D65 white Xn = 0.950456, Yn = 1, Zn = 1.088754 (the matrix applied to
 * white, so RGB white gives L 100 and zero chroma exactly).
 *  - f(t) = cbrt(t) above t = 216/24389, else t * 24389/3132 + 16/116;
 *    L = 116 cbrt(Y) - 16 above the same knee, else 24389/27 * Y.
 *  - Lab: a = 500 (f(X/Xn) - f(Y)), b = 200 (f(Y) - f(Z/Zn)). Inverse:
 *    fy = (L + 16)/116, X = Xn g(fy + a/500), Z = Zn g(fy - b/200) with
 *    g(f) = f^3 above 6/29, else (f - 16/116) * 3132/24389; Y = fy^3 above
 *    L = 8, else L * 27/24389; then the inverse XYZ matrix.
 *  - LUV: d = (X + 15 Y) + 3 Z, u' = 4X/d, v' = 9Y/d (white's u', v' when
 *    d = 0), u = 13 L (u' - u'n), v = 13 L (v' - v'n). Inverse: u' = u/(13L)
 *    + u'n, v' = v/(13L) + v'n, X = 9 Y u' / (4 v'), Z = Y (12 - 3u' - 20v')
 *    / (4 v'); L <= 0 is black, and v' is raised to at least the v' of the
 *    blue primary (0.157895), which no colour of non-negative R, G, B goes
 *    below: dark codes, whose u and v steps span much of the diagram, would
 *    otherwise decode near v' = 0, where X and Z diverge.
 *  - The cube root is a seed from the float's bit pattern followed by three
 *    Newton steps y = ((y + y) + t / (y * y)) / 3, within one unit in the
 *    last place; 8u samples are divided by 255 through a table of the same
 *    quotients. Results are defined for finite inputs.
 *  - 32f: L in 0..100 and the natural a, b, u, v.
 *    8u:  L * 2.55; a + 128, b + 128; (u + 134) * 255/354, (v + 140) * 255/262.
 *    16u, 16s: L * 655.35; (a + 128) * 256, (b + 128) * 256;
 *    (u + 134) * 65535/354, (v + 140) * 65535/262.
 *  - Round trips (RGB to the model and back, same type): every 8u RGB value
 *    comes back within 4 per channel through Lab and within 3 through LUV;
 *    16u within 4 (Lab) and 3 (LUV) of 65535 (measured on 3 million random
 *    values and every dark value below 48).
 *
 * YCC (photographic YCC) works on gamma-corrected R'G'B' in 0..1:
 *  Y' = (0.299 R' + 0.587 G') + 0.114 B'; the 8-bit codes are
 *  Y = Y' * 255/1.402, C1 = (B' - Y') * 111.40 + 156, C2 = (R' - Y') * 135.64
 *  + 137 (white: 182, 156, 137). 16u and 16s store the code * 257, 32f the
 *  code / 255. Inverse: Y' = Y / (255/1.402), R' = Y' + (C2 - 137)/135.64,
 *  B' = Y' + (C1 - 156)/111.40, G' = ((Y' - 0.299 R') - 0.114 B') / 0.587.
 *  Round trips: every 8u RGB value within 2 per channel (Y has 182 levels);
 *  16u within 2 of 65535.
 *
 * Statuses: nmqStsNullPtr (source or destination null), then nmqStsSize
 * (width or height below 1), else nmqStsOk. Steps are bytes and not checked;
 * the 16- and 32-bit forms truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToLab_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLab_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLab_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLab_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiLabToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLabToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLabToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLabToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiBGRToLab_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToLab_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToLab_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiLabToBGR_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLabToBGR_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLabToBGR_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiRGBToLUV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToLUV_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiLUVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiLUVToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiRGBToYCC_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCC_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiYCCToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCCToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
#endif
