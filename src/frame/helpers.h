// Internal image helpers and the signal-domain scratch allocator. Not exported.
#pragma once

#include "frame/common.h"

namespace nmq {
enum AlgorithmHint { AlgorithmHintNone = 0, AlgorithmHintFast = 1, AlgorithmHintAccurate = 2 };
}

// Every byte of the region set to value; regions of at least the largest cache
// (and above 512 KiB) are written with non-temporal stores.
NmqStatus nmqiSet_8u_C1R(Nmq8u value, Nmq8u* pDst, int dstStep, int width, int height);
// Region copied byte for byte; above 1 MiB with non-temporal stores.
NmqStatus nmqiCopy_8u_C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, int width, int height);
// Largest element.
NmqStatus nmqiMax_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq32f* pMax);
// Sum of all elements: hint 2 sums in double (even and odd positions apart),
// any other hint in single-precision lanes with an extended-precision total.
NmqStatus nmqiSum_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq64f* pSum, int hint);
// Sum / (width * height).
NmqStatus nmqiMean_32f_C1R(const Nmq32f* pSrc, int srcStep, int width, int height, Nmq64f* pMean, int hint);

// Scratch blocks of count elements (64-byte aligned); count < 1 gives null.
Nmq16s* nmqsMalloc_16s(int count);
Nmq16u* nmqsMalloc_16u(int count);
Nmq32s* nmqsMalloc_32s(int count);
Nmq32f* nmqsMalloc_32f(int count);
Nmq8u*  nmqsMalloc_8u(int count);
void nmqsFree(void* ptr);

namespace nmq {
// Test-only allocation failure: the n-th allocation from now on this thread
// (1 = the next one) returns null. 0 disables. Not used by the library.
void test_fail_alloc_after(int n);
}  // namespace nmq
