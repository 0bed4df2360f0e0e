// The SSE2 kernels that finish the rows of the AVX2 kernels, compiled here
// for SSE2 so that the AVX2 file only declares them.
#include <cstddef>

#include "models/hsv_kernels_sse2.h"

namespace nmq::hsv {

template void innerRGBToHSV_8u_sse2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHSVToRGB_8u_sse2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerRGBToHLS_8u_sse2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);
template void innerHLSToRGB_8u_sse2<Rgb3, Rgb3>(const SrcRow&, const DstRow&, int);

}  // namespace nmq::hsv
