// The AVX-512 BT.601 forward kernel from interleaved RGB/BGR to 4:2:0
// (ycbcr_fwd_avx512.cpp). It converts the whole even part of the row itself,
// the last pixels through masked loads and stores, so no lower-level kernel
// is involved.
#pragma once

#include "yuv/ycbcr_kernels.h"

namespace nmq::ycc::avx512 {

// SS: 3 or 4 bytes per pixel (the fourth is ignored). Instantiated for Fwd601.
template <class F, bool Bgr, int SS>
void fwd420(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w);

}  // namespace nmq::ycc::avx512
