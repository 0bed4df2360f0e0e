// LUV, Lab and photographic YCC on 1920x1080.
#include "bench_util.h"

namespace {

using nmqb::Buf;
using nmqb::kH;
using nmqb::kW;

template <class T>
using Conv = NmqStatus (*)(const T*, int, T*, int, ImageSize);

// One conversion of a 1920x1080 image with `ch` samples per pixel. Sources
// are sensible values of their side: random 8/16-bit codes, and for 32f
// RGB in 0..1 or Lab/LUV values in their usual ranges.
template <class T>
void run(benchmark::State& st, Conv<T> fn, int ch, bool model_side_32f) {
    const size_t n = size_t(kW) * kH * size_t(ch);
    Buf src(n * sizeof(T)), dst(n * sizeof(T), 2);
    if constexpr (sizeof(T) == 4) {
        float* s = src.as<float>();
        for (size_t i = 0; i < n; ++i) s[i] = model_side_32f ? float(i % 101) - (i % 3 ? 50.0f : 0.0f) : float(i % 251) / 250.0f;
    }
    const int step = kW * ch * int(sizeof(T));
    for (auto _ : st) benchmark::DoNotOptimize(fn(src.as<T>(), step, dst.as<T>(), step, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

#define LUVLAB_BENCH(name, T, ch, model_side_32f)                                        \
    static void bench_##name(benchmark::State& st) { run<T>(st, name, ch, model_side_32f); } \
    BENCHMARK(bench_##name)->Name(#name)->Unit(benchmark::kMillisecond);

LUVLAB_BENCH(nmqiRGBToLab_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiLabToRGB_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiRGBToLab_32f_C3R, Nmq32f, 3, false)
LUVLAB_BENCH(nmqiLabToRGB_32f_C3R, Nmq32f, 3, true)
LUVLAB_BENCH(nmqiRGBToLab_16u_C3R, Nmq16u, 3, false)
LUVLAB_BENCH(nmqiRGBToLUV_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiRGBToLUV_8u_AC4R, Nmq8u, 4, false)
LUVLAB_BENCH(nmqiLUVToRGB_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiRGBToLUV_32f_C3R, Nmq32f, 3, false)
LUVLAB_BENCH(nmqiRGBToYCC_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiYCCToRGB_8u_C3R, Nmq8u, 3, false)
LUVLAB_BENCH(nmqiRGBToYCC_16u_AC4R, Nmq16u, 4, false)
