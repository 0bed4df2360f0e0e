// The BT.601 inverse from 4:2:0 and packed 4:2:2 to three- and four-byte
// pixels with the pixel pairs of 16-bit lanes (ycbcr_inv_avx2.cpp, built for
// AVX2). The blocks return the first pixel they left; the rest of the row runs
// through the SSE2 kernel from here, in code built for SSE2 (see the top of
// ycbcr_avx2.h for why).
#pragma once

#include "yuv/ycbcr_sse2.h"

namespace nmq::ycc::avx2pairs {

template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w);
template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w);

// Same template arguments as the SSE2 kernels of the same names.
template <class I, bool Bgr, int DS>
void inv420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    sse2::inv420<I, Bgr, DS>(in, o0, o1, inv420_blocks<I, Bgr, DS>(in, o0, o1, x0, w), w);
}
template <class I, Order O, bool Bgr, int DS>
void inv422(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    sse2::inv422<I, O, Bgr, DS>(in, o, inv422_blocks<I, O, Bgr, DS>(in, o, x0, w), w);
}

}  // namespace nmq::ycc::avx2pairs
