/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_BAYER_H
#define NMQCC_BAYER_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Colour-filter-array interpolation: a one-channel raw sensor image behind a
 * 2x2 Bayer pattern becomes an RGB image (R, G, B per pixel, same element
 * type as the source).
 *
 * pSrc points to pixel (0, 0) of the whole source image of srcSize pixels;
 * srcRoi selects the rectangle to convert, and destination pixel (0, 0) is
 * source pixel (srcRoi.x, srcRoi.y). grid is one of nmqBayerBGGR, nmqBayerRGGB,
 * nmqBayerGBRG, nmqBayerGRBG: the colours of the 2x2 cell whose top-left pixel
 * has even image coordinates. Steps are in bytes.
 *
 * Inside the image, green at a red or blue site follows the smaller of the
 * vertical and horizontal differences (the mean of all four neighbours when
 * they are equal); red and blue are bilinear. Within two pixels of an image
 * edge, green is always the four-neighbour mean, and a neighbour outside the
 * image is replaced by its mirror image about the current pixel. Means of two
 * round half up, means of four add 2 before the shift. Pixels next to the
 * rectangle but inside the image are read as neighbours, so a pixel's value
 * does not depend on the rectangle that contains it.
 *
 * Statuses, in the order they are checked:
 *   nmqStsNullPtr  pSrc or pDst is null;
 *   nmqStsSize     srcSize.width below 2, srcSize.height below 2, or a
 *                  negative srcRoi.x or srcRoi.y;
 *   nmqStsBadArg   grid is not 0..3;
 *   nmqStsOk       otherwise. A rectangle reaching past the right or bottom
 *                  edge is trimmed to the image without a warning; an empty
 *                  rectangle (after trimming) writes nothing.
 */
NMQ_API NmqStatus nmqiCFAToRGB_8u_C1C3R(const Nmq8u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                        Nmq8u* pDst, int dstStep, int grid);
NMQ_API NmqStatus nmqiCFAToRGB_16u_C1C3R(const Nmq16u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                         Nmq16u* pDst, int dstStep, int grid);

#endif
