/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YUV_H
#define NMQCC_YUV_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * YUV <-> RGB.
 *
 * 8-bit RGB and YUV (full 0..255 range, U and V centred on 128; Y = 0.299 R +
 * 0.587 G + 0.114 B, U = 0.492 (B - Y), V = 0.877 (R - Y)) at full sampling
 * (4:4:4), with chroma halved horizontally (4:2:2) and halved in both
 * directions (4:2:0). Planar YUV is passed as [Y, U, V]; 4:2:2 and 4:2:0
 * chroma planes are half the luma width, rounded up (4:2:0: and half its
 * height). Interleaved 4:2:2 (C2) stores each pixel pair as Y0 U Y1 V.
 * Packed 16-bit inputs (16u8u) hold the channel named first in the low bits:
 * RGB565 R in bits 0-4, G in 5-10, B in 11-15; BGR565 the other way round;
 * BGR555 B in 0-4, G in 5-9, R in 10-14 (bit 15 ignored). Their fields are
 * widened to 8 bits by repeating their top bits.
 *
 * Full-sampled planar images share one step; subsampled planar images take
 * one step per plane. The forms without steps (P3, C3P3, P3C3) take
 * contiguous planes: the full-width plane's step is the width, a half-width
 * chroma plane's step is width/2 + (width & 1), an interleaved RGB image's
 * step is 3 x width.
 *
 * Results are exact to the bit. The interleaved 4:4:4 forms (nmqiRGBToYUV_8u_C3R
 * and _C3P3R, nmqiYUVToRGB_8u_C3R and _P3C3R) and nmqiYUV422ToRGB_8u_P3R
 * compute each full run of 16 pixels from the start of a row at the
 * precision of 16-bit lanes (RGB to YUV: chroma at scale 2^15, rounded; YUV
 * to RGB: each chroma term floored at scale 2^13) and the remaining pixels
 * of the row per pixel at scale 2^16. nmqiYUV422ToRGB_8u_P3 treats an image
 * of at least 256 pixels with an even width as one long row. The AC4 inverse
 * truncates G; nmqiYUVToRGB_8u_P3R truncates all three channels.
 *
 * AC4 destinations keep their alpha bytes; nmqiYUVToRGB_8u_C3C4R writes aval
 * into every alpha byte; nmqiRGBToYUV_8u_AC4P4R copies the source alpha into
 * the fourth plane; nmqiBGRToYUV420_8u_AC4P3R ignores the source alpha.
 *
 * Odd sizes. RGB to 4:2:2 converts the last pixel of an odd row on its own
 * (in C2 its V has no place and is dropped). 4:2:2 to RGB gives the last
 * pixel of an odd row the chroma sample of its column (C2: its own U and the V
 * of the pair before it; a C2 row one pixel wide uses its one chroma byte as
 * both U and V). The 4:2:0 functions convert the even part only, leaving the
 * last odd column and row unwritten, and then return nmqStsOddSize;
 * nmqiRGB565ToYUV422_16u8u_C3P3R does the same with an odd width.
 *
 * Statuses: nmqStsNullPtr if a pointer argument (image, pointer array or step
 * array) is null; then nmqStsSize if the width or height is below 1; then
 * nmqStsNullPtr if a plane pointer inside an array is null; otherwise
 * nmqStsOk, or nmqStsOddSize as above. Steps are used as given.
 */

/* 4:4:4 */
NMQ_API NmqStatus nmqiRGBToYUV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                      ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                        ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep,
                                         ImageSize roiSize);
NMQ_API NmqStatus nmqiYUVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUVToRGB_8u_C3C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                        Nmq8u aval);
NMQ_API NmqStatus nmqiYUVToRGB_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep,
                                      ImageSize roiSize);
NMQ_API NmqStatus nmqiYUVToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                        ImageSize roiSize);

/* RGB to 4:2:2 */
NMQ_API NmqStatus nmqiRGBToYUV422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                           ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                           ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV422_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3],
                                         int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV422_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiRGBToYUV422_8u_C3P3(const Nmq8u* pSrc, Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiRGB565ToYUV422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                 int dstStep[3], ImageSize roiSize);

/* 4:2:2 to RGB */
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                           ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                         int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                           int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_P3AC4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                            int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiYUV422ToRGB_8u_P3C3(const Nmq8u* const pSrc[3], Nmq8u* pDst, ImageSize imgSize);

/* RGB to 4:2:0 */
NMQ_API NmqStatus nmqiRGBToYUV420_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3],
                                         int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                           ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYUV420_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiRGBToYUV420_8u_C3P3(const Nmq8u* pSrc, Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiBGRToYUV420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep[3],
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiRGB565ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                 int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                 int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYUV420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                 int dstStep[3], ImageSize roiSize);

/* 4:2:0 to RGB */
NMQ_API NmqStatus nmqiYUV420ToRGB_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                         int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV420ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                           int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV420ToRGB_8u_P3AC4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                            int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYUV420ToRGB_8u_P3(const Nmq8u* const pSrc[3], Nmq8u* const pDst[3], ImageSize imgSize);
NMQ_API NmqStatus nmqiYUV420ToRGB_8u_P3C3(const Nmq8u* const pSrc[3], Nmq8u* pDst, ImageSize imgSize);
NMQ_API NmqStatus nmqiYUV420ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                           int dstStep, ImageSize roiSize);

#endif
