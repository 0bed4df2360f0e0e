// AVX2 forms of the YCbCr row kernels on the hot paths: 4:2:0 and 4:2:2 from
// and to interleaved RGB/BGR, 4:2:2 planes to RGB/BGR. ycbcr_kernels_avx2.cpp (built for AVX2) runs
// blocks of 32 pixels and returns the first pixel it left; the kernels below
// hand the rest of the row to the SSE2 kernel, which ends with the scalar
// one. The rest is run from here, in code built for SSE2, because the SSE2
// and scalar kernels are inline templates: instantiated inside the AVX2 file
// they would be compiled with AVX2 instructions, and the linker may keep that
// copy for every caller, CPUs without AVX2 included.
#pragma once

#include "yuv/ycbcr_sse2.h"

namespace nmq::ycc::avx2 {

// Defined and instantiated (for the forms the drivers use) in ycbcr_kernels_avx2.cpp.
template <class F, bool Bgr, int SS>
int fwd420_blocks(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w);
template <class F, bool Bgr, int SS, int D>
int fwd422_blocks(const RgbIn& in, const Ycc422& o, int x0, int w);
template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w);
template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w);
template <class I, bool Bgr, int DS>
int inv422p_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w);

// Same template arguments as the SSE2 kernels of the same names.
template <class F, bool Bgr, int SS>
void fwd420(const RgbIn& s0, const RgbIn& s1, const Ycc420& o, int x0, int w) {
    sse2::fwd420<F, Bgr, SS>(s0, s1, o, fwd420_blocks<F, Bgr, SS>(s0, s1, o, x0, w), w);
}
template <class F, bool Bgr, int SS, int D>
void fwd422(const RgbIn& in, const Ycc422& o, int x0, int w) {
    sse2::fwd422<F, Bgr, SS, D>(in, o, fwd422_blocks<F, Bgr, SS, D>(in, o, x0, w), w);
}
template <class I, bool Bgr, int DS>
void inv420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    sse2::inv420<I, Bgr, DS>(in, o0, o1, inv420_blocks<I, Bgr, DS>(in, o0, o1, x0, w), w);
}
template <class I, Order O, bool Bgr, int DS>
void inv422(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    sse2::inv422<I, O, Bgr, DS>(in, o, inv422_blocks<I, O, Bgr, DS>(in, o, x0, w), w);
}

template <class I, bool Bgr, int DS>
void inv422p(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    sse2::inv422p<I, Bgr, DS>(in, o, inv422p_blocks<I, Bgr, DS>(in, o, x0, w), w);
}

}  // namespace nmq::ycc::avx2

namespace nmq::ycc::avx512 {

// The BT.601 inverse from 4:2:0 and packed 4:2:2 to three- and four-byte
// pixels (ycbcr_kernels_avx512.cpp). The blocks return the first pixel they
// left: none for 4:2:0 (the last block is masked), the lone last pixel of an
// odd 4:2:2 row, which the lower-level kernel finishes by its own rule.
template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w);
template <class I, Order O, bool Bgr, int DS>
int inv422_blocks(const Ycc422In& in, const RgbOut& o, int x0, int w);

template <class I, bool Bgr, int DS>
void inv420(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    avx2::inv420<I, Bgr, DS>(in, o0, o1, inv420_blocks<I, Bgr, DS>(in, o0, o1, x0, w), w);
}
template <class I, Order O, bool Bgr, int DS>
void inv422(const Ycc422In& in, const RgbOut& o, int x0, int w) {
    avx2::inv422<I, O, Bgr, DS>(in, o, inv422_blocks<I, O, Bgr, DS>(in, o, x0, w), w);
}

}  // namespace nmq::ycc::avx512
