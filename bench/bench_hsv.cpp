// HSV and HLS, 8u pixel order, on a random 1920x1080 image.
#include "bench_util.h"

namespace {

using Fn = NmqStatus (*)(const Nmq8u*, int, Nmq8u*, int, ImageSize);

void run(benchmark::State& st, Fn fn) {
    const int w = nmqb::kW, h = nmqb::kH;
    nmqb::Buf src(size_t(w) * h * 3), dst(size_t(w) * h * 3, 2);
    for (auto _ : st) {
        benchmark::DoNotOptimize(fn(src.p, 3 * w, dst.p, 3 * w, ImageSize{w, h}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, w, h);
}

}  // namespace

BENCHMARK_CAPTURE(run, RGBToHSV_8u_C3R, nmqiRGBToHSV_8u_C3R);
BENCHMARK_CAPTURE(run, HSVToRGB_8u_C3R, nmqiHSVToRGB_8u_C3R);
BENCHMARK_CAPTURE(run, RGBToHLS_8u_C3R, nmqiRGBToHLS_8u_C3R);
BENCHMARK_CAPTURE(run, HLSToRGB_8u_C3R, nmqiHLSToRGB_8u_C3R);
