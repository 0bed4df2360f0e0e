/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_INTERLACE_H
#define NMQCC_INTERLACE_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

/*
 * Interlaced 4:2:2 <-> 4:2:0 and 4:2:2 to gray (8-bit).
 *
 * An interlaced frame carries two fields: the top field on the even rows and
 * the bottom field on the odd rows. In its 4:2:0 form the chroma rows
 * alternate between the fields too: chroma row 2j belongs to the top field and
 * stands for the position a quarter of the way from frame row 4j to row 4j+2;
 * chroma row 2j+1 belongs to the bottom field and stands for the position
 * three quarters of the way from row 4j+1 to row 4j+3. Chroma is computed from
 * rows of its own field only, so the two fields never mix. Luma is copied
 * unchanged. With C[r] the 4:2:2 chroma of frame row r, T[j] = 4:2:0 chroma
 * row 2j and B[j] = row 2j+1 (all per sample, integer arithmetic):
 *
 *   4:2:2 -> 4:2:0   T[j] = (3 C[4j]   + C[4j+2] + 2) >> 2
 *                    B[j] = (C[4j+1] + 3 C[4j+3] + 2) >> 2
 *   4:2:0 -> 4:2:2   C[4j]   = (T[j-1] + 7 T[j]   + 4) >> 3
 *                    C[4j+2] = (5 T[j] + 3 T[j+1] + 4) >> 3
 *                    C[4j+1] = (3 B[j-1] + 5 B[j] + 4) >> 3
 *                    C[4j+3] = (7 B[j] + B[j+1]   + 4) >> 3
 * The upsampling is the linear interpolation at those positions; a field row
 * before the first (j-1 < 0) or after the last is replaced by that first or
 * last row of the same field.
 *
 * Layouts as in the sampling functions: YCbCr422 C2 is one plane of 4-byte
 * groups Y0 Cb Y1 Cr; P3 images are three planes Y, Cb, Cr (4:2:2 chroma w/2 x
 * h, 4:2:0 chroma w/2 x h/2) passed as pointer and step arrays; the two-plane
 * source of the `_Deinterlace` forms is a luma plane and one plane of w bytes x
 * h/2 rows of interleaved chroma (Cb at even bytes), whose rows alternate
 * between the fields as above. The `_Deinterlace` forms resample exactly as
 * the `_Interlace` forms do; only the source arrangement differs.
 *
 * nmqiYCbCr422ToGray_8u_C2C1R writes the luma of a packed Y0 Cb Y1 Cr image as
 * a one-channel image.
 *
 * Sizes: the interlaced forms need a ROI of at least 2 x 4 luma pixels; the
 * width is rounded down to even and the height to a multiple of 4 (whole
 * 4-row groups, one chroma row per field) without a warning, and nothing
 * right of or below the rounded ROI is written. The gray form needs 2 x 1 and
 * rounds the width down to even.
 *
 * Statuses, in the order they are tested: nmqStsNullPtr (a pointer, a pointer
 * or step array, or a plane pointer inside an array is null), nmqStsSize (ROI
 * below the minimum), nmqStsOk. Steps are used as given.
 */

/* 4:2:2 -> 4:2:0, interlaced */
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_Interlace_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                            const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                          Nmq8u* const pDst[3], const int dstStep[3],
                                                          ImageSize roiSize);

/* 4:2:0 -> 4:2:2, interlaced */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Interlace_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                            Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                          Nmq8u* const pDst[3], const int dstStep[3],
                                                          ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep,
                                                              const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst,
                                                              int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep,
                                                              const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                              Nmq8u* const pDst[3], const int dstStep[3],
                                                              ImageSize roiSize);

/* 4:2:2 -> gray */
NMQ_API NmqStatus nmqiYCbCr422ToGray_8u_C2C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                              ImageSize roiSize);

#endif
