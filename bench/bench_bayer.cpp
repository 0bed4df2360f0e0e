// Colour-filter-array interpolation of a random RGGB mosaic, whole image.
#include "bench_util.h"

namespace {

NmqStatus cfa(const Nmq8u* s, ImageSize z, int ss, Nmq8u* d, int ds) {
    return nmqiCFAToRGB_8u_C1C3R(s, ImageRect{0, 0, z.width, z.height}, z, ss, d, ds, nmqBayerRGGB);
}
NmqStatus cfa(const Nmq16u* s, ImageSize z, int ss, Nmq16u* d, int ds) {
    return nmqiCFAToRGB_16u_C1C3R(s, ImageRect{0, 0, z.width, z.height}, z, ss, d, ds, nmqBayerRGGB);
}

template <class T>
void run(benchmark::State& st, int w, int h) {
    nmqb::Buf src(size_t(w) * h * sizeof(T)), dst(size_t(w) * h * 3 * sizeof(T));
    const int ss = w * int(sizeof(T));
    for (auto _ : st) {
        benchmark::DoNotOptimize(cfa(src.as<T>(), ImageSize{w, h}, ss, dst.as<T>(), 3 * ss));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, w, h);
}

void BM_CFAToRGB_8u(benchmark::State& st, int w, int h) { run<Nmq8u>(st, w, h); }
void BM_CFAToRGB_16u(benchmark::State& st, int w, int h) { run<Nmq16u>(st, w, h); }

}  // namespace

BENCHMARK_CAPTURE(BM_CFAToRGB_8u, 1920x1080, nmqb::kW, nmqb::kH);
BENCHMARK_CAPTURE(BM_CFAToRGB_16u, 1920x1080, nmqb::kW, nmqb::kH);
BENCHMARK_CAPTURE(BM_CFAToRGB_16u, 4096x3072, 4096, 3072);
