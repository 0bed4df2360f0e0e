/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_AHD_H
#define NMQCC_AHD_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Adaptive homogeneity-directed demosaicing: a one-channel raw sensor image
 * behind a 2x2 Bayer pattern becomes an RGB image (R, G, B per pixel, same
 * element type as the source), with fewer colour fringes along edges than
 * nmqiCFAToRGB_*. Arguments, checks, statuses, the rectangle and its trimming
 * are those of nmqiCFAToRGB_8u_C1C3R / _16u_C1C3R (bayer.h), and so is every
 * pixel within two pixels of an image edge.
 *
 * Every other pixel is reconstructed twice, once along the rows and once
 * along the columns:
 *   - green at a red or blue site C, with green neighbours n1, n2 and same-
 *     colour samples f1, f2 two pixels away along that direction:
 *     (2 (n1 + C + n2) - f1 - f2 + 2) >> 2, clamped to the range of n1, n2;
 *     green sites keep their sample;
 *   - red and blue: the colour differences (sample minus that direction's
 *     green) of the nearest sites of the colour are averaged, rounding half
 *     up (two neighbours along the row or column at a green site, the four
 *     diagonals at a red or blue site) and added to green; the result is
 *     clamped to the sample range. A site's own colour is copied.
 * Both candidates are converted to CIELab (samples taken as linear RGB with
 * the D65 white at full scale; integer arithmetic through a cube-root table,
 * units of 1/128). For each candidate and each of the four neighbours, the
 * lightness distance |dL| and the chroma distance da^2 + db^2 are compared
 * with tolerances taken, for each measure, as the smaller of "the larger
 * distance to the left and right neighbours in the row candidate" and "the
 * larger distance to the upper and lower neighbours in the column
 * candidate"; a candidate's homogeneity is the number of neighbours within
 * both tolerances. The homogeneities summed over the 3x3 neighbourhood pick
 * the candidate; on a tie the pixel is the rounded-up mean of the two.
 * Neighbours beyond the image edge are read from the mosaic mirrored about
 * its edge pixel. The result is the same on every CPU and build.
 *
 * A rectangle with pixels at least two pixels from every edge takes a scratch
 * block of about 30 rows of its width for the call.
 *
 * Statuses, in the order they are checked:
 *   nmqStsNullPtr   pSrc or pDst is null;
 *   nmqStsSize      srcSize.width below 2, srcSize.height below 2, or a
 *                   negative srcRoi.x or srcRoi.y;
 *   nmqStsBadArg    grid is not 0..3;
 *   nmqStsNoMemory  the scratch block could not be allocated (nothing is
 *                   written);
 *   nmqStsOk        otherwise; a rectangle reaching past the right or bottom
 *                   edge is trimmed without a warning.
 */
NMQ_API NmqStatus nmqiDemosaicAHD_8u_C1C3R(const Nmq8u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                           Nmq8u* pDst, int dstStep, int grid);
NMQ_API NmqStatus nmqiDemosaicAHD_16u_C1C3R(const Nmq16u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                            Nmq16u* pDst, int dstStep, int grid);

#endif
