/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_PACKED16_H
#define NMQCC_PACKED16_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Packed 16-bit RGB: YCbCr (BT.601, full-sampled, 4:2:2, 4:2:0, 4:1:1) and
 * YUV 4:2:0 to one 16-bit word per pixel, with or without ordered dither; 8-bit
 * RGB/BGR to and from 565 words; packed BGR to three-plane YCrCb 4:2:0.
 *
 * Word layouts (bit 0 least significant), the channel named first lowest:
 *   RGB565 R 0-4, G 5-10, B 11-15      BGR565 B 0-4, G 5-10, R 11-15
 *   RGB555 R 0-4, G 5-9,  B 10-14      BGR555 B 0-4, G 5-9,  R 10-14
 *   RGB444 R 0-3, G 4-7,  B 8-11       BGR444 B 0-3, G 4-7,  R 8-11
 * Bits above the highest field are written as 0. Destination steps are in
 * bytes, truncated to whole words.
 *
 * The plain outputs compute 8-bit R, G, B exactly as the matching 8-bit
 * YCbCr or YUV conversion, then keep the top bits of each channel (truncation,
 * no rounding). The `Dither` outputs round each channel up to the next level
 * where its remainder above the lower level exceeds the threshold of a 4x4
 * ordered-dither matrix at (row & 3, column & 3) of the ROI: a flat image gives
 * a pattern that repeats every 4 pixels across and down, black stays black
 * and white stays white. The full-sampled dithered outputs form R, G, B with
 * 4 fractional bits instead of the 16.16 arithmetic of the plain ones, so
 * their 8-bit colours can differ from those of the plain outputs in the
 * last bit.
 *
 * Sampling: 4:2:2 and 4:1:1 convert every pixel (a packed 4:2:2 row follows
 * the 8-bit conversion for its odd last pixel and for a width of 1); 4:2:0
 * converts the even part of the ROI, leaves the last odd column and row
 * unwritten and returns nmqStsOddSize. RGB565ToRGB and BGR565ToBGR widen
 * each field by repeating its top bits (a full field gives 255);
 * RGBToRGB565 and BGRToBGR565 truncate. The YCrCb 4:2:0 inputs are the
 * BGR565/BGR555 to YCbCr 4:2:0 conversions with the chroma planes swapped
 * (planes Y, Cr, Cb) and return nmqStsOddSize on an odd size.
 *
 * Statuses: nmqStsNullPtr for a null image pointer, pointer array or step
 * array, then nmqStsSize for a width or height below 1, then nmqStsNullPtr for
 * a null plane inside an array; nothing is written on an error. Otherwise
 * nmqStsOk, or nmqStsOddSize as above.
 */

NMQ_API NmqStatus nmqiYCbCrToRGB565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB565Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR565Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB555_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB555Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR555_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR555Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB444_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB444Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR444_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR444Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCrToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiYCbCr422ToRGB565_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB565Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR565_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR565Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB555_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB555Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR555_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR555Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB444_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB444Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR444_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR444Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr422ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiYCbCr420ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr420ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiYUV420ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYUV420ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiYCbCr411ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiYCbCr411ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiRGBToRGB565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiBGRToBGR565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiRGB565ToRGB_16u8u_C3R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi);
NMQ_API NmqStatus nmqiBGR565ToBGR_16u8u_C3R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi);

NMQ_API NmqStatus nmqiBGR565ToYCrCb420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roi);
NMQ_API NmqStatus nmqiBGR555ToYCrCb420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roi);

#endif
