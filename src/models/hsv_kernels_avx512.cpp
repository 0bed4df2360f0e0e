// AVX-512 (F, BW, VL) row kernels of the 8u HSV conversions between
// three-byte pixels: the 256-bit kernels of hsv_kernels_bytes.h with their
// byte choices, wrap-around and three-way ors on mask registers and ternary
// logic. The vectors stay 256 bits wide: the float arithmetic needs the packed
// reciprocal estimate of the lower levels (rcpps, which has no 512-bit form;
// AVX-512's own estimate gives other bits). The rest of a row goes to the
// SSE2 kernel, as at the AVX2 level.
#include "frame/avx512.h"

#include "models/hsv_kernels_bytes.h"

#include "models/hsv_kernels_avx2.h"

static_assert(NMQ_HSV_MASKS, "built with AVX-512 BW and VL");

namespace nmq::hsv {

template <class S, class D>
void innerRGBToHSV_8u_avx512(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hsv32(a, b, c, x, y, z); };
    rest(innerRGBToHSV_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHSVToRGB_8u_avx512(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hsv32_to_rgb(a, b, c, x, y, z); };
    rest(innerHSVToRGB_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}

template <class S, class D>
void innerRGBToHLS_8u_avx512(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hls32(a, b, c, x, y, z); };
    rest(innerRGBToHLS_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHLSToRGB_8u_avx512(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hls32_to_rgb(a, b, c, x, y, z); };
    rest(innerHLSToRGB_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}

template void innerRGBToHSV_8u_avx512<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHSVToRGB_8u_avx512<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerRGBToHLS_8u_avx512<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHLSToRGB_8u_avx512<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);

}  // namespace nmq::hsv
