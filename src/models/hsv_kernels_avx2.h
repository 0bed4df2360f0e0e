// AVX2 and AVX-512 row kernels of the 8u HSV and HLS conversions between
// three-byte pixels (hsv_kernels_avx2.cpp, hsv_kernels_avx512.cpp), and the
// choice of kernel per instruction-set level. Only declarations here: those
// files must not compile the SSE2 or scalar kernels themselves, or a copy
// built for a newer instruction set could stand in for them.
#pragma once

#include <cstddef>
#include <type_traits>

#include "models/hsv_layout.h"

namespace nmq::hsv {

using Row8 = void (*)(const SrcRow&, const DstRow&, int width);

template <class S, class D> void innerRGBToHSV_8u_sse2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHSVToRGB_8u_sse2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerRGBToHLS_8u_sse2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHLSToRGB_8u_sse2(const SrcRow& s, const DstRow& d, int width);

template <class S, class D> void innerRGBToHSV_8u_avx2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHSVToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerRGBToHLS_8u_avx2(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHLSToRGB_8u_avx2(const SrcRow& s, const DstRow& d, int width);

template <class S, class D> void innerRGBToHSV_8u_avx512(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHSVToRGB_8u_avx512(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerRGBToHLS_8u_avx512(const SrcRow& s, const DstRow& d, int width);
template <class S, class D> void innerHLSToRGB_8u_avx512(const SrcRow& s, const DstRow& d, int width);

// AVX2 and AVX-512 forms exist for RGB (or HSV, HLS) pixel order to pixel order.
template <class S, class D>
inline constexpr bool kHasAvx2 = std::is_same_v<S, Rgb3> && std::is_same_v<D, Rgb3>;

template <class S, class D>
constexpr Row8 hsv_avx2(Row8 f) { return kHasAvx2<S, D> ? f : nullptr; }

}  // namespace nmq::hsv
