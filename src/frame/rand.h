// Uniform random generators (16s and 32f twins) used by the noise dithers.
#pragma once

#include "frame/common.h"

struct RandUniState_16s;
struct RandUniState_32f;

NmqStatus nmqsRandUniformInitAlloc_16s(RandUniState_16s** ppState, Nmq16s low, Nmq16s high, unsigned int seed);
NmqStatus nmqsRandUniform_16s(Nmq16s* pDst, int len, RandUniState_16s* pState);
NmqStatus nmqsRandUniformFree_16s(RandUniState_16s* pState);

NmqStatus nmqsRandUniformInitAlloc_32f(RandUniState_32f** ppState, Nmq32f low, Nmq32f high, unsigned int seed);
NmqStatus nmqsRandUniform_32f(Nmq32f* pDst, int len, RandUniState_32f* pState);
NmqStatus nmqsRandUniformFree_32f(RandUniState_32f* pState);
