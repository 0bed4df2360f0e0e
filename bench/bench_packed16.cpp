// Packed 16-bit RGB on a 1920x1080 frame: YCbCr 4:2:0 to dithered RGB565 and
// YUV 4:2:0 to RGB565 (the video overlay paths), plus the plain repacking.
#include "bench_util.h"

namespace {

using nmqb::kH;
using nmqb::kW;

template <NmqStatus (*F)(const Nmq8u* const[3], const int[3], Nmq16u*, int, ImageSize)>
void BM_420To16(benchmark::State& st) {
    nmqb::Buf y(size_t(kW) * kH), u(size_t(kW / 2) * (kH / 2), 2), v(size_t(kW / 2) * (kH / 2), 3), dst(size_t(kW) * kH * 2);
    const Nmq8u* const src[3] = {y.p, u.p, v.p};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) {
        benchmark::DoNotOptimize(F(src, steps, dst.as<Nmq16u>(), 2 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_YCbCr422ToRGB565Dither_8u16u_C2C3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 2), dst(size_t(kW) * kH * 2);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiYCbCr422ToRGB565Dither_8u16u_C2C3R(src.p, 2 * kW, dst.as<Nmq16u>(), 2 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_RGBToRGB565_8u16u_C3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 3), dst(size_t(kW) * kH * 2);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiRGBToRGB565_8u16u_C3R(src.p, 3 * kW, dst.as<Nmq16u>(), 2 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

BENCHMARK(BM_420To16<nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R>)->Name("BM_YCbCr420ToRGB565Dither_8u16u_P3C3R");
BENCHMARK(BM_420To16<nmqiYCbCr420ToRGB565_8u16u_P3C3R>)->Name("BM_YCbCr420ToRGB565_8u16u_P3C3R");
BENCHMARK(BM_420To16<nmqiYUV420ToRGB565_8u16u_P3C3R>)->Name("BM_YUV420ToRGB565_8u16u_P3C3R");
BENCHMARK(BM_420To16<nmqiYUV420ToRGB565Dither_8u16u_P3C3R>)->Name("BM_YUV420ToRGB565Dither_8u16u_P3C3R");
BENCHMARK(BM_YCbCr422ToRGB565Dither_8u16u_C2C3R);
BENCHMARK(BM_RGBToRGB565_8u16u_C3R);
