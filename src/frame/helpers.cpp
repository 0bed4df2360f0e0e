// Internal image helpers: fill, copy, maximum, sum and mean, scratch memory.
#include "frame/helpers.h"

#include <emmintrin.h>

#include <cstring>

#include "nmqcore.h"

namespace nmq {
namespace {

thread_local int t_fail_countdown = 0;

void* scratch(long long bytes) {
    if (t_fail_countdown > 0 && --t_fail_countdown == 0) return nullptr;
    if (bytes < 1 || bytes > 0x7fffffffLL) return nullptr;
    return nmqMalloc(int(bytes));
}

// Fills n bytes. The streaming form writes the aligned middle with
// non-temporal stores and the unaligned ends with ordinary ones.
void fill_row(uint8_t* d, size_t n, uint8_t v, bool streaming) {
    const __m128i vv = _mm_set1_epi8(char(v));
    size_t i = 0;
    if (streaming) {
        const size_t head = (16 - (reinterpret_cast<uintptr_t>(d) & 15)) & 15;
        if (head <= n) {
            std::memset(d, v, head);
            i = head;
            for (; i + 16 <= n; i += 16) _mm_stream_si128(reinterpret_cast<__m128i*>(d + i), vv);
        }
    } else {
        for (; i + 16 <= n; i += 16) _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), vv);
    }
    std::memset(d + i, v, n - i);
}

void copy_row(const uint8_t* s, uint8_t* d, size_t n, bool streaming) {
    size_t i = 0;
    if (streaming) {
        const size_t head = (16 - (reinterpret_cast<uintptr_t>(d) & 15)) & 15;
        if (head <= n) {
            std::memcpy(d, s, head);
            i = head;
            for (; i + 16 <= n; i += 16) {
                const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
                _mm_stream_si128(reinterpret_cast<__m128i*>(d + i), x);
            }
        }
    }
    std::memmove(d + i, s + i, n - i);
}

}  // namespace

void test_fail_alloc_after(int n) { t_fail_countdown = n < 0 ? 0 : n; }

}  // namespace nmq

using namespace nmq;

NmqStatus nmqiSet_8u_C1R(Nmq8u value, Nmq8u* pDst, int dstStep, int width, int height) {
    if (!pDst) return nmqStsNullPtr;
    if (width < 1 || height < 1) return nmqStsSize;
    // A region without gaps between rows is one long row.
    if (dstStep == width) {
        width = width * height;  // fits: the caller's buffer holds it
        height = 1;
    }
    const long long total = (long long)width * height;
    bool streaming = false;
    if (total > 524288) {
        int cache = 0;
        streaming = nmqGetMaxCacheSizeB(&cache) == nmqCoreStsOk && total >= cache;
    }
    for (int y = 0; y < height; ++y) fill_row(row_at(pDst, dstStep, y), size_t(width), value, streaming);
    if (streaming) _mm_sfence();
    return nmqStsOk;
}

NmqStatus nmqiCopy_8u_C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, int width, int height) {
    if (!pSrc || !pDst) return nmqStsNullPtr;
    if (width < 1 || height < 1) return nmqStsSize;
    if (srcStep == width && dstStep == width) {
        width = width * height;
        height = 1;
    }
    const bool streaming = (long long)width * height > 1048576;
    for (int y = 0; y < height; ++y)
        copy_row(row_at(pSrc, srcStep, y), row_at(pDst, dstStep, y), size_t(width), streaming);
    if (streaming) _mm_sfence();
    return nmqStsOk;
}

NmqStatus nmqiMax_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq32f* pMax) {
    if (!pSrc || !pMax) return nmqStsNullPtr;
    if (width < 1 || height < 1) return nmqStsSize;
    // NaN elements are passed over (a comparison with NaN is false), unless
    // the very first element is NaN, which then stays the answer.
    float m = pSrc[0];
    for (int y = 0; y < height; ++y) {
        const float* s = row_elems(pSrc, srcStep, y);
        for (int x = 0; x < width; ++x)
            if (s[x] > m) m = s[x];
    }
    *pMax = m;
    return nmqStsOk;
}

namespace {

// Accurate sum of one row: even and odd positions apart, eight pairs per step
// with independent partial sums folded in at the end of the row.
void sum_row_accurate(const float* s, int width, double& even, double& odd) {
    double pe[8] = {0}, po[8] = {0};
    int x = 0;
    for (; x + 16 <= width; x += 16)
        for (int k = 0; k < 8; ++k) {
            pe[k] += double(s[x + 2 * k]);
            po[k] += double(s[x + 2 * k + 1]);
        }
    for (; x + 2 <= width; x += 2) {
        pe[0] += double(s[x]);
        po[0] += double(s[x + 1]);
    }
    if (x < width) pe[0] += double(s[x]);  // odd width: the last element joins the even sum
    for (int k = 0; k < 8; ++k) {
        even += pe[k];
        odd += po[k];
    }
}

// Fast sum of one row in single precision. Lane of an element = its address
// in 4-byte units modulo 8, so the lanes follow the row's alignment exactly as
// two aligned 4-float vectors would; the lanes are then added in order.
float sum_row_fast(const float* s, int width) {
    float lane[8] = {0};
    const unsigned first = unsigned(reinterpret_cast<uintptr_t>(s) >> 2) & 7;
    int x = 0;
    // Scalar head up to the 32-byte boundary.
    for (; x < width && ((first + unsigned(x)) & 7) != 0; ++x) lane[(first + unsigned(x)) & 7] += s[x];
    __m128 a0 = _mm_setzero_ps(), a1 = _mm_setzero_ps();
    if (width - x >= 8) {
        for (; x + 8 <= width; x += 8) {
            a0 = _mm_add_ps(a0, _mm_loadu_ps(s + x));
            a1 = _mm_add_ps(a1, _mm_loadu_ps(s + x + 4));
        }
    }
    float v[8];
    _mm_storeu_ps(v, a0);
    _mm_storeu_ps(v + 4, a1);
    // The vector partials were accumulated separately from the head: add them
    // to the lanes in one place so every build does the same additions.
    for (int k = 0; k < 8; ++k) lane[k] += v[k];
    for (; x < width; ++x) lane[(first + unsigned(x)) & 7] += s[x];
    return ((lane[0] + lane[4]) + (lane[1] + lane[5])) + ((lane[2] + lane[6]) + (lane[3] + lane[7]));
}

}  // namespace

NmqStatus nmqiSum_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq64f* pSum, int hint) {
    if (!pSrc || !pSum) return nmqStsNullPtr;
    if (width < 1 || height < 1) return nmqStsSize;
    if (hint == AlgorithmHintAccurate) {
        double even = 0, odd = 0;
        for (int y = 0; y < height; ++y) sum_row_accurate(row_elems(pSrc, srcStep, y), width, even, odd);
        *pSum = odd + even;
    } else {
        long double total = 0;
        for (int y = 0; y < height; ++y) total += (long double)sum_row_fast(row_elems(pSrc, srcStep, y), width);
        *pSum = double(total);
    }
    return nmqStsOk;
}

NmqStatus nmqiMean_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq64f* pMean, int hint) {
    if (!pMean) return nmqStsNullPtr;
    double sum = 0;
    const NmqStatus st = nmqiSum_32f_C1R(pSrc, srcStep, width, height, &sum, hint);
    if (st != nmqStsOk) return st;
    *pMean = sum / double(int32_t(uint32_t(width) * uint32_t(height)));
    return nmqStsOk;
}

Nmq16s* nmqsMalloc_16s(int count) { return count < 1 ? nullptr : static_cast<Nmq16s*>(scratch(2LL * count)); }
Nmq16u* nmqsMalloc_16u(int count) { return count < 1 ? nullptr : static_cast<Nmq16u*>(scratch(2LL * count)); }
Nmq32s* nmqsMalloc_32s(int count) { return count < 1 ? nullptr : static_cast<Nmq32s*>(scratch(4LL * count)); }
Nmq32f* nmqsMalloc_32f(int count) { return count < 1 ? nullptr : static_cast<Nmq32f*>(scratch(4LL * count)); }
Nmq8u* nmqsMalloc_8u(int count) { return count < 1 ? nullptr : static_cast<Nmq8u*>(scratch(count)); }
void nmqsFree(void* ptr) { nmqFree(ptr); }
