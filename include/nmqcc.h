/*
 * nmqcc: exact, fast image colour-conversion primitives.
 *
 * Every image function converts one region of interest (ROI). For each plane
 * the caller passes a pointer to the first pixel of the ROI and a line step in
 * bytes (whatever the element type); the ROI size is an ImageSize passed by
 * value. Results are defined to the last bit: every build, on every CPU, gives
 * the same bytes.
 *
 * Statuses: 0 is success; positive values are warnings returned after the
 * work was done; negative values are errors and leave every destination
 * unwritten. Unless a family says otherwise, pointers are checked first
 * (nmqStsNullPtr), then the ROI (nmqStsSize), then the plane pointers inside
 * pointer arrays (nmqStsNullPtr); steps are used as given.
 *
 * All functions are re-entrant; calls writing distinct destinations may run
 * concurrently on any threads. The library keeps no state between calls.
 *
 * This header compiles as C99 and as C++.
 */
#ifndef NMQCC_H
#define NMQCC_H

#include <stdint.h>

#if defined(NMQ_BUILDING_LIB) && defined(__GNUC__)
#  define NMQ_API __attribute__((visibility("default")))
#else
#  define NMQ_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Element types, named by the type tokens of the function names. */
typedef uint8_t  Nmq8u;
typedef int8_t   Nmq8s;
typedef uint16_t Nmq16u;
typedef int16_t  Nmq16s;
typedef int32_t  Nmq32s;
typedef uint32_t Nmq32u;
typedef float    Nmq32f;
typedef double   Nmq64f;

/* ROI size in pixels, passed by value. */
typedef struct ImageSize {
    int32_t width;
    int32_t height;
} ImageSize;

/* A rectangle inside a larger image (colour-filter-array functions). */
typedef struct ImageRect {
    int32_t x;
    int32_t y;
    int32_t width;
    int32_t height;
} ImageRect;

/* Status codes. */
typedef int32_t NmqStatus;
enum {
    nmqStsOk                    = 0,
    nmqStsNegativeLevel         = 1,    /* tone mapping: image maximum or mean negative; destination untouched */
    nmqStsOddSize               = 35,   /* subsampled format with an odd size: the even part was converted */
    nmqStsBadArg                = -5,   /* an enumerated argument is out of range */
    nmqStsSize                  = -6,   /* ROI width or height below 1 */
    nmqStsNullPtr               = -8,   /* a required pointer is null */
    nmqStsNoMemory              = -9,   /* scratch memory could not be allocated */
    nmqStsStep                  = -14,  /* a line step below 1 (families that check steps) */
    nmqStsWrongContext          = -17,  /* a generator record of the wrong kind */
    nmqStsGammaRange            = -49,  /* 32f gamma: vMax - vMin is not above 0 */
    nmqStsLevelsRange           = -54,  /* bit reduction: number of levels out of range */
    nmqStsNoiseRange            = -55,  /* bit reduction: noise percentage outside 0..100 */
    nmqStsDitherKindUnsupported = -224  /* one-bit reduction: dither kind not supported */
};

/* Dither kinds of the bit-depth reduction functions. */
typedef enum DitherKind {
    DitherKindNone              = 0,
    DitherKindFloydSteinberg    = 1,
    DitherKindJarvisJudiceNinke = 2,
    DitherKindStucki            = 3,
    DitherKindBayer             = 4
} DitherKind;

/* Bayer grid codes: the 2x2 cell whose top-left pixel has even absolute coordinates. */
enum {
    nmqBayerBGGR = 0,
    nmqBayerRGGB = 1,
    nmqBayerGBRG = 2,
    nmqBayerGRBG = 3
};

/* Version record: a constant of the library, never written, never freed. */
typedef struct NmqLibVersion {
    int32_t     major;
    int32_t     minor;
    int32_t     update;
    int32_t     revision;
    char        cpuTag[4];
    const char* name;
    const char* version;
    const char* buildDate;
} NmqLibVersion;

/* Returns the same pointer to the constant version record on every call. */
NMQ_API const NmqLibVersion* nmqccGetLibVersion(void);

/* The families. Each section documents its family once: what it does and the
 * statuses it returns. */

/* ==== family: yuv ==== */

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

/* ==== family: ycbcr ==== */

/*
 * YCbCr, YCrCb and CbYCr to and from RGB/BGR.
 *
 * BT.601 studio range (Y 16..235, Cb and Cr 16..240 around 128), 8-bit, in
 * fixed point at scale 2^16: RGB (0,0,0) gives (16,128,128) and (255,255,255)
 * gives (235,128,128); the inverse truncates, so (235,128,128) gives
 * (254,254,254). `_709CSC` uses the BT.709 matrix at the same studio range;
 * `_709HDTV` uses BT.709 on studio-range RGB (16..235 stays 16..235 in luma).
 *
 * Layouts: YCbCr C3 holds Y,Cb,Cr per pixel; packed 4:2:2 (C2) holds each pixel
 * pair as Y0 Cb Y1 Cr ("YCbCr422"), Y0 Cr Y1 Cb ("YCrCb422") or Cb Y0 Cr Y1
 * ("CbYCr422"); P3 subsampled planes take one step each; a three-plane YCrCb
 * image lists its planes Y, Cr, Cb; P2 is a Y plane and a plane of interleaved
 * chroma pairs (Cb,Cr, or Cr,Cb for YCrCb), passed as Y pointer and step, then
 * chroma pointer and step. Full-sampled P3 images share one step. BGR565 and
 * BGR555 sources hold B in the low bits; fields are widened by bit replication.
 *
 * Subsampling: a pair (4:2:2), a 2x2 block (4:2:0) or a group of four (4:1:1)
 * shares the rounded mean of its chroma (709CSC rounds with a bias of one
 * eighth); in BT.601 4:2:2 the second Y of a pair is not rounded. Going back
 * to RGB, a chroma sample covers its whole cell unchanged.
 * - 4:2:2 converts every pixel. An odd last pixel gets its own chroma; a packed
 *   row has room for one chroma byte only (the one after its Y, or before it in
 *   CbYCr). Reading a packed row, an odd last pixel takes its missing chroma
 *   byte from the preceding pair, and a one-pixel-wide row uses its one chroma
 *   byte for both. Chroma planes are (width + 1) / 2 wide.
 * - 4:1:1 converts every pixel; a short last group counts its last pixel again
 *   for its chroma. Chroma planes are (width + 3) / 4 wide.
 * - 4:2:0 converts the even part: width / 2 * 2 columns and height / 2 * 2
 *   rows; the last odd column and row are neither read nor written. Chroma
 *   planes are width / 2 by height / 2.
 * C4 destinations write alpha 0xFF; AC4 destinations keep their alpha bytes;
 * AC4 and C4 sources ignore alpha. nmqiRGBToCbYCr422Gamma_8u_C3C2R first maps
 * R, G and B through the 8-bit forward transfer curve (BT.709 curve) of the
 * gamma functions. nmqiYCrCb420ToBGR_Filter_8u_P3C4R interpolates chroma
 * vertically with the 4-tap (-1, 9, 9, -1) / 16 filter of the 4:2:0 to 4:2:2
 * _Filter conversions (edge rows repeated) and covers pixel pairs horizontally.
 *
 * Statuses: nmqStsNullPtr for a null image pointer, then nmqStsSize for a
 * width or height below 1, then nmqStsNullPtr for a null plane inside a
 * pointer array (nmqiRGBToYCbCr_8u_C3P3R and _AC4P3R test their planes before
 * the size). Steps are used as given. nmqStsOddSize (after converting): every
 * 4:2:0 function when the width or height is odd, nmqiRGBToYCbCr422_8u_C3P3R
 * when the width is odd, nmqiBGRToYCbCr411_8u_C3P3R and _AC4P3R when the width
 * is not a multiple of 4.
 */

/* Full-sampled. */
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

/* 4:2:2. */
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr422_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToRGB_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToBGR_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToCbYCr422_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToCbYCr422Gamma_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToRGB_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3C2R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr422_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:2:0. */
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCbCr420_8u_C4P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToRGB_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_8u_P2C3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_8u_P2C4R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCrCb, int srcCrCbStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToBGR_Filter_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:1:1. */
NMQ_API NmqStatus nmqiBGRToYCbCr411_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr411_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToBGR_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR565ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGR555ToYCbCr411_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* BT.709. */
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709CSC_8u_C3P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_709CSC_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCrCb420_709CSC_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCrToBGR_709CSC_8u_P3C4R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_709CSC_8u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCbCr420_709HDTV_8u_AC4P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToBGR_709HDTV_8u_P3C4R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_C3C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToCbYCr422_709HDTV_8u_AC4C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToBGR_709HDTV_8u_C2C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

/* ==== family: packed16 ==== */

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

/* ==== family: sampling ==== */

/*
 * Sampling formats and plane arrangements of 8-bit YCbCr images.
 *
 * These functions move an image between chroma sampling schemes (4:2:2,
 * 4:2:0, 4:1:1 and the quarter-resolution 1620 scheme), plane arrangements
 * (packed two-channel C2, two-plane P2, three-plane P3) and chroma orders,
 * without passing through RGB. The ROI is given in luma pixels.
 *
 * Layouts:
 *   YCbCr422 C2   one plane of 4-byte groups Y0 Cb Y1 Cr; CbYCr422: Cb Y0 Cr Y1;
 *                 YCrCb422: Y0 Cr Y1 Cb
 *   ...422 P3     Y, Cb, Cr planes, chroma w/2 x h    (YCrCb422 P3: Y, Cr, Cb)
 *   ...420 P3     Y, Cb, Cr planes, chroma w/2 x h/2  (YCrCb420 P3: Y, Cr, Cb)
 *   ...420 P2     Y plane, then one chroma plane of w bytes x h/2 rows, Cb at even bytes
 *   ...411 P3     Y, Cb, Cr planes, chroma w/4 x h
 *   ...411 P2     Y plane, then one chroma plane of w/2 bytes x h rows, Cb at even bytes
 *   1620 P3       Y, Cb, Cr planes, chroma w/4 x h/4
 * Three-plane images are passed as an array of three plane pointers and an
 * array of three steps; two-plane images as luma pointer, luma step, chroma
 * pointer, chroma step; packed images as one pointer and one step.
 *
 * Luma is always copied unchanged. Chroma is only selected, duplicated,
 * interleaved or split: 4:2:2 -> 4:2:0 keeps chroma rows 0, 2, 4, ...;
 * 4:2:0 -> 4:2:2 writes every chroma row twice; 4:2:2 -> 4:1:1 keeps samples
 * 0, 2, 4, ...; 4:1:1 -> 4:2:2 writes every sample twice. 4:2:0 <-> 4:1:1 is
 * lossless: 4:2:0 chroma row k gives 4:1:1 row 2k from its even samples and
 * row 2k+1 from its odd samples, and the way back interleaves them again.
 * The exceptions compute new chroma:
 *   - `_Filter`: destination chroma row 2k is source row k; row 2k+1 is
 *     (-C[k-1] + 9 C[k] + 9 C[k+1] - C[k+2] + 8) >> 4 clamped to 0..255, with
 *     rows beyond the plane replaced by its first or last row;
 *   - nmqiYCbCr1620To420_8u_P3R, nmqiYCbCr420To1620_8u_P3R,
 *     nmqiYCbCr411To420_8u_P3R, nmqiYCbCr420To411_8u_P3R: each chroma plane
 *     is resampled by itself with two-sample means. Means inside the 16-byte
 *     blocks of a row round half up, those after the last block truncate;
 *     the block sizes are fixed, so results are the same on every CPU.
 *
 * Sizes: each function needs a minimum ROI (2 x 2 for most 4:2:0 forms,
 * 2 x 8 for `_Filter`, 4 pixels wide for 4:1:1 forms) and returns
 * nmqStsSize below it; above it the width and height are rounded down to
 * the sampling period (a `_Filter` height to a multiple of 8) silently, with
 * status nmqStsOk, and nothing right of or below the rounded ROI is written.
 * Some 4:2:2/4:1:1 forms do not test the height: a height below 1 then
 * converts nothing and returns nmqStsOk. The four short-named plane
 * functions do not round: they return nmqStsSize unless the width and height
 * are multiples of 4 (for nmqiYCbCr420To411_8u_P3R: width a multiple of 4,
 * height even).
 *
 * Statuses: nmqStsOk, nmqStsNullPtr (a checked pointer is null; tested
 * before the size, except the destination planes of
 * nmqiYCbCr420ToYCrCb420_8u_P2P3R, which are tested after width or height
 * below 1), nmqStsSize. Steps are used as given. The array of plane
 * pointers itself is not tested by nmqiYCrCb420ToYCbCr422_8u_P3C2R,
 * nmqiYCrCb420ToCbYCr422_8u_P3C2R, nmqiYCbCr411ToYCbCr420_8u_P2P3R,
 * nmqiYCbCr411ToYCrCb420_8u_P2P3R and nmqiYCbCr411_8u_P2P3R (its planes are);
 * nmqiYCbCr422_8u_C2P3R also tests its array of destination steps.
 */

/* 4:2:2 -> 4:2:0 */
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr420_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCrCb420_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);

/* 4:2:0 -> 4:2:2 and 4:2:0 plane arrangements */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToCbYCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                        Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                        int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);

/* 4:2:0 -> 4:2:2 with the 4-tap vertical chroma filter */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                       Nmq8u* const pDst[3], const int dstStep[3],
                                                       ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr422_Filter_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                         int srcCbCrStep, Nmq8u* const pDst[3],
                                                         const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr422_Filter_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                       Nmq8u* const pDst[3], const int dstStep[3],
                                                       ImageSize roiSize);

/* 4:2:0 <-> 4:1:1, lossless */
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420ToYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb420ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb420_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);

/* 4:2:2 -> 4:1:1 */
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_C2P2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDstY, int dstYStep,
                                                  Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                                  int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep,
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr411_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);

/* 4:1:1 -> 4:2:2 and 4:1:1 plane arrangements */
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* const pDst[3], const int dstStep[3],
                                                  ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCbCr422_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr,
                                                  int srcCbCrStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411_8u_P3P2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDstY,
                                        int dstYStep, Nmq8u* pDstCbCr, int dstCbCrStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep, const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                        Nmq8u* const pDst[3], const int dstStep[3], ImageSize roiSize);

/* 4:2:2 reorderings, splits and joins */
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToCbYCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3],
                                        ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                        int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCrCb422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiCbYCr422ToYCbCr422_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                  const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToYCrCb422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr422ToCbYCr422_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* pDst,
                                                  int dstStep, ImageSize roiSize);

/* Short-named plane conversions (rejecting sizes instead of rounding) */
NMQ_API NmqStatus nmqiYCbCr420To1620_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr1620To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                            const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr411To420_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                           const int dstStep[3], ImageSize roiSize);
NMQ_API NmqStatus nmqiYCbCr420To411_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq8u* const pDst[3],
                                           const int dstStep[3], ImageSize roiSize);

/* ==== family: gray ==== */

/*
 * Gray: colour to luminance and back.
 *
 * nmqiRGBToGray_* weight R, G, B (C3, or AC4 whose alpha is not read) with the
 * fixed weights 0.299, 0.587, 0.114; nmqiColorToGray_* with three caller
 * weights (coeffs, order R, G, B; a null pointer selects the fixed weights).
 * The destination is one channel of the source type.
 *  - 8u: 16-bit integer weights with 15 fraction bits (fixed 9798, 19235,
 *    3736; a caller weight c becomes trunc(c * 32768 + 0.5), low 16 bits, so
 *    weights of 2.0 and above or below 0 wrap). A row is converted in two
 *    parts with different rounding: the first 4*floor(width/4) pixels (C3) or
 *    8*floor(width/8) pixels (AC4) in 16-bit steps whose sum saturates (a
 *    weight sum well above 1 gives 0), the rest with a 32-bit sum whose low 8
 *    bits are stored. Some colours therefore differ by one with their column.
 *  - 16u, 16s, 32f: single-precision (R*wR + G*wG) + B*wB; 16u rounds to
 *    nearest-even and stores the low 16 bits; 16s offsets samples by +32768
 *    before weighting and removes the offset after rounding, saturating on
 *    the first 4*floor(width/4) pixels and storing the low 16 bits on the rest;
 *    32f is not clamped.
 *  - 64f: double weights; the default is the float fixed weights widened.
 * nmqiGrayToRGB_* copy the gray sample into three channels; the C1C4 forms
 * write aval into the fourth.
 *
 * Statuses: nmqStsNullPtr (source or destination null), then nmqStsSize
 * (width or height below 1), else nmqStsOk. Steps are bytes and not checked;
 * the 16- and 32-bit forms truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiColorToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                           const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                            const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq32f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_64f_C3C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                            ImageSize roiSize, const Nmq64f coeffs[3]);
NMQ_API NmqStatus nmqiColorToGray_64f_AC4C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                             ImageSize roiSize, const Nmq64f coeffs[3]);

NMQ_API NmqStatus nmqiGrayToRGB_8u_C1C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_16u_C1C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_32f_C1C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiGrayToRGB_8u_C1C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize,
                                         Nmq8u aval);
NMQ_API NmqStatus nmqiGrayToRGB_16u_C1C4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize,
                                          Nmq16u aval);
NMQ_API NmqStatus nmqiGrayToRGB_32f_C1C4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize,
                                          Nmq32f aval);

/* ==== family: xyz ==== */

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

/* ==== family: ycocg ==== */

/*
 * YCoCg: interleaved RGB/BGR pixels to three planes Y, Co, Cg (one common
 * step for the planes) and back. "SBGR" is signed 16-bit BGR. C4 sources
 * ignore their fourth channel; C4 destinations get aval there.
 *  - Plain transform (lossy): Y = (R + 2G + B + 2) >> 2, Co = (R - B + 1) >> 1,
 *    Cg = (2G - R - B + 2) >> 2; inverse R = Y + Co - Cg, G = Y + Cg,
 *    B = Y - Co - Cg.
 *  - _Rev, lifting transform (lossless): Co = R - B, t = B + (Co >> 1),
 *    Cg = G - t, Y = t + (Cg >> 1), and its exact inverse.
 * Shifts floor. 8u planes carry +128 in Co (capped at 255) and Cg (clamped);
 * 8u destinations are clamped to 0..255; 16s planes from 16s samples saturate
 * (plain) or wrap at every step (_Rev, which keeps the pair exactly
 * invertible); 16s results from 16s planes wrap; 16s results from 32s planes
 * saturate; 32s planes hold every value.
 *
 * Statuses: nmqStsNullPtr (the interleaved pointer, the plane array or a plane
 * null), then, in the members that check the size, nmqStsSize (width or
 * height below 1), else nmqStsOk. Members without the size check return
 * nmqStsOk for an empty ROI and write nothing. Size checked by:
 * nmqiRGBToYCoCg_8u_C3P3R, nmqiBGRToYCoCg_8u16s_*, nmqiBGRToYCoCg_Rev_8u16s_*,
 * nmqiSBGRToYCoCg_16s_*, nmqiSBGRToYCoCg_16s32s_C3P3R,
 * nmqiSBGRToYCoCg_Rev_16s32s_C3P3R, nmqiYCoCgToSBGR_16s_P3C4R,
 * nmqiYCoCgToSBGR_32s16s_*. Steps are bytes and not checked; 16- and 32-bit
 * images truncate them to whole elements.
 */

NMQ_API NmqStatus nmqiRGBToYCoCg_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep,
                                          ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToRGB_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                          ImageSize roiSize);

NMQ_API NmqStatus nmqiBGRToYCoCg_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToYCoCg_Rev_8u16s_C4P3R(const Nmq8u* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                             ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                             ImageSize roiSize, Nmq8u aval);
NMQ_API NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToBGR_Rev_16s8u_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize, Nmq8u aval);

NMQ_API NmqStatus nmqiSBGRToYCoCg_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3], int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3], int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq16s* const pDst[3], int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C3P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                   int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiSBGRToYCoCg_Rev_16s32s_C4P3R(const Nmq16s* pSrc, int srcStep, Nmq32s* const pDst[3],
                                                   int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiYCoCgToSBGR_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                            ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C3R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                                ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_16s_P3C4R(const Nmq16s* const pSrc[3], int srcStep, Nmq16s* pDst, int dstStep,
                                                ImageSize roiSize, Nmq16s aval);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C3R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiYCoCgToSBGR_Rev_32s16s_P3C4R(const Nmq32s* const pSrc[3], int srcStep, Nmq16s* pDst,
                                                   int dstStep, ImageSize roiSize, Nmq16s aval);

/* ==== family: hsv ==== */

/*
 * HSV and HLS: RGB (or BGR) pixels to the hexcone models HSV (hue,
 * saturation, value) and HLS (hue, lightness, saturation) and back.
 *
 * Sample order: RGB functions read R, G, B and write H, S, V or H, L, S in
 * that order; the inverse functions read H, S, V or H, L, S and write R, G, B.
 * BGR functions keep B, G, R in memory. Planar images (P3, AP4) pass one
 * pointer per plane in the same order and one step for all planes of a side;
 * AP4 and AC4P4/AP4C4 carry alpha as the fourth plane or sample.
 *
 * Scales: 8u hue 0..255 for the full circle, S/V/L 0..255; 16u 0..65535 for
 * all three; 16s as 16u on the value offset by 32768; 32f hue 0 <= H < 1
 * (degrees / 360), L, S and R, G, B in 0..1.
 *
 * Alpha: AC4 destinations keep their alpha samples; AP4, AC4P4 and AP4C4
 * destinations receive the source alpha.
 *
 * Rounding: the 8u HSV conversion and the forward 8u, 16u and 16s HLS
 * conversions use the processor's reciprocal estimate (refined by one Newton
 * step in HLS), so their lowest bits can differ between processor makes.
 *
 * Statuses: nmqStsNullPtr (-8) for a null pointer, then nmqStsSize (-6) for a
 * width or height below 1; steps are used as given. The BGR/HLS 8u functions
 * also reject a step below 1 with nmqStsStep (-14): the planar and mixed forms
 * test steps before the size, nmqiBGRToHLS_8u_AC4R after it.
 */

NMQ_API NmqStatus nmqiRGBToHSV_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHSV_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHSVToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHSVToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiRGBToHLS_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiRGBToHLS_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHLSToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiBGRToHLS_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiBGRToHLS_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

NMQ_API NmqStatus nmqiHLSToBGR_8u_C3P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_P3R(const Nmq8u* const pSrc[3], int srcStep, Nmq8u* const pDst[3], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AP4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AC4P4R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[4], int dstStep, ImageSize roiSize);
NMQ_API NmqStatus nmqiHLSToBGR_8u_AP4C4R(const Nmq8u* const pSrc[4], int srcStep, Nmq8u* pDst, int dstStep, ImageSize roiSize);

/* ==== family: gamma ==== */

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

/* ==== family: twist ==== */

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

/* ==== family: tonemap ==== */

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

/* ==== family: reduce ==== */

/*
 * Bit-depth reduction with dithering.
 *
 * nmqiReduceBits_<types>_<layout> maps every element to one of `levels`
 * evenly spaced output values, optionally converting to a narrower type
 * (16u8u, 16s8u, 32f8u, 32f16u, 32f16s; 32f input is taken as 0..1, 16s as
 * -32768..32767). `dtype` is a DitherKind: none (the nearest level; an exact
 * half goes down), Floyd-Steinberg, Jarvis-Judice-Ninke and Stucki error
 * diffusion (channel by channel, each channel pass continuing the error rows
 * of the previous one), or ordered 4x4 Bayer dithering. A `noise` percentage
 * above 0 randomises the error-diffusion threshold or the Bayer threshold with
 * a fixed sequence, so equal calls give equal results. C4 reduces all four
 * channels; AC4 never writes the destination's alpha elements. Results
 * saturate to the destination's range (float input beyond 0..1, noise at the
 * top level).
 *
 * Checks, in order: null pointer nmqStsNullPtr; width or height below 1
 * nmqStsSize; noise outside 0..100 nmqStsNoiseRange; levels outside 2..256
 * (8u destinations) or 2..65536 (16-bit destinations) nmqStsLevelsRange; a
 * dither kind outside 0..4 returns nmqStsOk and writes nothing. The dithering
 * kinds other than none and Bayer-without-noise take scratch memory and return
 * nmqStsNoMemory when it cannot be had (the destination may then be partly
 * written).
 *
 * nmqiReduceBits_8u1u_C1R packs a one-channel 8u image into one bit per pixel,
 * most significant bit first. Each destination row starts at bit
 * 7 - (dstBitOffset & 7) of its first byte: only the low three bits of the
 * offset count, an offset of 8 or more does not move to a later byte.
 * Neighbouring bits in the first and last byte of a row keep their values.
 * dtype DitherKindNone sets a bit when the source is above `threshold`;
 * DitherKindStucki diffuses the error in integer arithmetic (a bit is set when
 * the value with its gathered error is above `threshold`). `noise` and `seed`
 * are accepted and ignored. Checks: null pointer nmqStsNullPtr; width or
 * height below 1 or a negative offset nmqStsSize; any other dither kind
 * nmqStsDitherKindUnsupported; nmqStsNoMemory when the error rows of the
 * Stucki mode cannot be allocated.
 */

NMQ_API NmqStatus nmqiReduceBits_8u_C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_8u_C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_16u_C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u_C4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_16s_C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s_C4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_16u8u_C1R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u8u_C3R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u8u_C4R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16u8u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_16s8u_C1R(const Nmq16s* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s8u_C3R(const Nmq16s* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s8u_C4R(const Nmq16s* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_16s8u_AC4R(const Nmq16s* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_32f8u_C1R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f8u_C3R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f8u_C4R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f8u_AC4R(const Nmq32f* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_32f16u_C1R(const Nmq32f* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16u_C3R(const Nmq32f* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16u_C4R(const Nmq32f* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16u_AC4R(const Nmq32f* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);

NMQ_API NmqStatus nmqiReduceBits_32f16s_C1R(const Nmq32f* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16s_C3R(const Nmq32f* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16s_C4R(const Nmq32f* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_32f16s_AC4R(const Nmq32f* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi,
    int noise, int dtype, int levels);
NMQ_API NmqStatus nmqiReduceBits_8u1u_C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, int dstBitOffset,
                                          ImageSize roi, Nmq32u noise, Nmq32u seed, int dtype, Nmq8u threshold);

/* ==== family: bayer ==== */

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

/* ==== family: luvlab ==== */

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

/* ==== family: interlace ==== */

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

/* ==== family: ahd ==== */

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

#ifdef __cplusplus
}
#endif

#endif /* NMQCC_H */
