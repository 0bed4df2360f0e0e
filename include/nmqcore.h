/*
 * nmqcore: the companion core library of nmqcc.
 * Aligned memory, the size of the largest processor cache, CPU features.
 * Compiles as C99 and as C++.
 */
#ifndef NMQCORE_H
#define NMQCORE_H

#include <stddef.h>
#include <stdint.h>

#if defined(NMQ_BUILDING_CORE) && defined(__GNUC__)
#  define NMQCORE_API __attribute__((visibility("default")))
#else
#  define NMQCORE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* CPU feature bits reported by nmqGetCpuFeatures / nmqGetEnabledCpuFeatures. */
#define nmqCpuSSE    (1ull << 0)
#define nmqCpuSSE2   (1ull << 1)
#define nmqCpuSSE3   (1ull << 2)
#define nmqCpuSSSE3  (1ull << 3)
#define nmqCpuSSE41  (1ull << 4)
#define nmqCpuSSE42  (1ull << 5)
#define nmqCpuPOPCNT (1ull << 6)
#define nmqCpuAVX    (1ull << 7)   /* set only when the OS saves the YMM state */
#define nmqCpuF16C   (1ull << 8)
#define nmqCpuFMA    (1ull << 9)
#define nmqCpuAVX2   (1ull << 10)  /* set only when the OS saves the YMM state */
#define nmqCpuBMI1   (1ull << 11)
#define nmqCpuBMI2   (1ull << 12)
#define nmqCpuAVX512F (1ull << 13) /* set only when the OS saves the ZMM state */
#define nmqCpuAVX512BW (1ull << 14)
#define nmqCpuAVX512VL (1ull << 15)

/* Statuses of the core functions (the same values as nmqcc's). */
#define nmqCoreStsOk            0
#define nmqCoreStsNullPtr      (-8)
#define nmqCoreStsNotSupported (-9702) /* the processor and the OS do not tell */

/* Allocates `length` bytes aligned on 64 bytes; null when length < 1 or on failure. */
NMQCORE_API void* nmqMalloc(int length);
/* Frees a block from nmqMalloc; a null pointer is ignored. */
NMQCORE_API void  nmqFree(void* ptr);

/* Size in bytes of the largest cache of the processor. Returns nmqCoreStsOk,
 * nmqCoreStsNullPtr, or nmqCoreStsNotSupported (and 0 in *pSizeByte) when
 * neither the processor nor the OS tells. */
NMQCORE_API int nmqGetMaxCacheSizeB(int* pSizeByte);

/* Features of this processor (nmqCpu* bits). Returns nmqCoreStsOk or nmqCoreStsNullPtr. */
NMQCORE_API int nmqGetCpuFeatures(uint64_t* pFeaturesMask);
/* Features the library may use: those of the processor that the OS supports. */
NMQCORE_API uint64_t nmqGetEnabledCpuFeatures(void);

#ifdef __cplusplus
}
#endif

#endif /* NMQCORE_H */
