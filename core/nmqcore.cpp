// nmqcore: aligned allocation, cache size and CPU features.
#include "nmqcore.h"

#include <cstdlib>
#include <cstdio>
#include <unistd.h>

#if defined(__i386__) || defined(__x86_64__)
#include <cpuid.h>
#define NMQ_X86 1
#endif

namespace {

constexpr size_t kAlign = 64;

#ifdef NMQ_X86
bool cpuid(unsigned leaf, unsigned sub, unsigned r[4]) {
    if (leaf > __get_cpuid_max(leaf & 0x80000000u, nullptr)) return false;
    __cpuid_count(leaf, sub, r[0], r[1], r[2], r[3]);
    return true;
}

uint64_t xgetbv0() {
    unsigned lo, hi;
    __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
    return (uint64_t(hi) << 32) | lo;
}

uint64_t detect() {
    unsigned r[4];
    uint64_t f = 0;
    if (!cpuid(1, 0, r)) return 0;
    const unsigned ecx = r[2], edx = r[3];
    if (edx & (1u << 25)) f |= nmqCpuSSE;
    if (edx & (1u << 26)) f |= nmqCpuSSE2;
    if (ecx & (1u << 0))  f |= nmqCpuSSE3;
    if (ecx & (1u << 9))  f |= nmqCpuSSSE3;
    if (ecx & (1u << 19)) f |= nmqCpuSSE41;
    if (ecx & (1u << 20)) f |= nmqCpuSSE42;
    if (ecx & (1u << 23)) f |= nmqCpuPOPCNT;
    const bool osxsave = ecx & (1u << 27);
    const uint64_t xcr0 = osxsave ? xgetbv0() : 0;
    const bool ymm = (xcr0 & 6) == 6;
    const bool zmm = ymm && (xcr0 & 0xe0) == 0xe0;
    if (ymm && (ecx & (1u << 28))) f |= nmqCpuAVX;
    if (ymm && (ecx & (1u << 29))) f |= nmqCpuF16C;
    if (ymm && (ecx & (1u << 12))) f |= nmqCpuFMA;
    if (cpuid(7, 0, r)) {
        if (ymm && (r[1] & (1u << 5))) f |= nmqCpuAVX2;
        if (r[1] & (1u << 3)) f |= nmqCpuBMI1;
        if (r[1] & (1u << 8)) f |= nmqCpuBMI2;
        if (zmm && (r[1] & (1u << 16))) f |= nmqCpuAVX512F;
        if (zmm && (r[1] & (1u << 30))) f |= nmqCpuAVX512BW;
        if (zmm && (r[1] & (1u << 31))) f |= nmqCpuAVX512VL;
    }
    return f;
}

// Deterministic cache parameters: leaf 4 on Intel, 0x8000001D on AMD.
long cache_from_cpuid() {
    unsigned r[4];
    long best = 0;
    const unsigned leaves[2] = {4u, 0x8000001Du};
    for (unsigned leaf : leaves) {
        for (unsigned i = 0; i < 16 && cpuid(leaf, i, r); ++i) {
            const unsigned type = r[0] & 31;
            if (type == 0) break;
            if (type == 2) continue;  // instruction cache
            const long ways = ((r[1] >> 22) & 0x3ff) + 1;
            const long parts = ((r[1] >> 12) & 0x3ff) + 1;
            const long line = (r[1] & 0xfff) + 1;
            const long sets = long(r[2]) + 1;
            const long size = ways * parts * line * sets;
            if (size > best) best = size;
        }
        if (best > 0) break;
    }
    return best;
}
#else
uint64_t detect() { return 0; }
long cache_from_cpuid() { return 0; }
#endif

long cache_from_os() {
    long best = 0;
#ifdef _SC_LEVEL3_CACHE_SIZE
    const int names[3] = {_SC_LEVEL1_DCACHE_SIZE, _SC_LEVEL2_CACHE_SIZE, _SC_LEVEL3_CACHE_SIZE};
    for (int n : names) {
        const long v = sysconf(n);
        if (v > best) best = v;
    }
#endif
    for (int i = 0; i < 8 && best == 0; ++i) {
        char path[96];
        std::snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu0/cache/index%d/size", i);
        if (FILE* f = std::fopen(path, "r")) {
            long v = 0;
            char unit = 0;
            if (std::fscanf(f, "%ld%c", &v, &unit) >= 1) {
                if (unit == 'K') v *= 1024;
                if (unit == 'M') v *= 1024 * 1024;
                if (v > best) best = v;
            }
            std::fclose(f);
        }
    }
    return best;
}

}  // namespace

extern "C" {

NMQCORE_API void* nmqMalloc(int length) {
    if (length < 1) return nullptr;
    // Round the size up so aligned_alloc's size rule holds.
    const size_t n = (size_t(length) + kAlign - 1) / kAlign * kAlign;
    return std::aligned_alloc(kAlign, n);
}

NMQCORE_API void nmqFree(void* ptr) { std::free(ptr); }

NMQCORE_API int nmqGetMaxCacheSizeB(int* pSizeByte) {
    if (!pSizeByte) return nmqCoreStsNullPtr;
    // Asked once: the answer cannot change while the process runs.
    static const long size = [] {
        long s = cache_from_cpuid();
        if (s <= 0) s = cache_from_os();
        return s;
    }();
    if (size <= 0) {
        *pSizeByte = 0;
        return nmqCoreStsNotSupported;
    }
    *pSizeByte = size > 0x7fffffffL ? 0x7fffffff : int(size);
    return nmqCoreStsOk;
}

NMQCORE_API int nmqGetCpuFeatures(uint64_t* pFeaturesMask) {
    if (!pFeaturesMask) return nmqCoreStsNullPtr;
    *pFeaturesMask = nmqGetEnabledCpuFeatures();
    return nmqCoreStsOk;
}

NMQCORE_API uint64_t nmqGetEnabledCpuFeatures(void) {
    // A function-local static is initialised once, thread-safely.
    static const uint64_t features = detect();
    return features;
}

}  // extern "C"
