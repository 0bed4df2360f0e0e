/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_REDUCE_H
#define NMQCC_REDUCE_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

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

#endif
