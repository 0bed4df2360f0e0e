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

/* The families. */
#include "nmqcc/yuv.h"
#include "nmqcc/ycbcr.h"
#include "nmqcc/packed16.h"
#include "nmqcc/sampling.h"
#include "nmqcc/gray.h"
#include "nmqcc/xyz.h"
#include "nmqcc/ycocg.h"
#include "nmqcc/hsv.h"
#include "nmqcc/gamma.h"
#include "nmqcc/twist.h"
#include "nmqcc/tonemap.h"
#include "nmqcc/reduce.h"
#include "nmqcc/bayer.h"
#include "nmqcc/luvlab.h"
#include "nmqcc/interlace.h"
#include "nmqcc/ahd.h"

#ifdef __cplusplus
}
#endif

#endif /* NMQCC_H */
