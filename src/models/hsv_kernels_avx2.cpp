// AVX2 row kernels of the 8u HSV and HLS conversions between three-byte
// pixels, 32 pixels per step: the byte kernels of hsv_kernels_bytes.h. The
// rest of a row goes to the SSE2 kernel.
#include "models/hsv_kernels_bytes.h"

#include "models/hsv_kernels_avx2.h"

namespace nmq::hsv {

template <class S, class D>
void innerRGBToHSV_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hsv32(a, b, c, x, y, z); };
    rest(innerRGBToHSV_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHSVToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hsv32_to_rgb(a, b, c, x, y, z); };
    rest(innerHSVToRGB_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerRGBToHLS_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { rgb_to_hls32(a, b, c, x, y, z); };
    rest(innerRGBToHLS_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}
template <class S, class D>
void innerHLSToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width) {
    const auto f = [](I8 a, I8 b, I8 c, I8& x, I8& y, I8& z) { hls32_to_rgb(a, b, c, x, y, z); };
    rest(innerHLSToRGB_8u_sse2<S, D>, s, d, map32_bytes<S, D>(s, d, width, f), width);
}

template void innerRGBToHSV_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHSVToRGB_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerRGBToHLS_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHLSToRGB_8u_avx2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);

}  // namespace nmq::hsv
