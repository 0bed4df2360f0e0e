// YCbCr hot paths on a 1920x1080 frame: 4:2:0 planes and two-plane to RGB/BGR,
// packed 4:2:2 to RGB, BGR to 4:2:0 planes.
#include "bench_util.h"

namespace {

using nmqb::kH;
using nmqb::kW;

void BM_YCbCr420ToRGB_8u_P3C3R(benchmark::State& st) {
    nmqb::Buf y(size_t(kW) * kH), cb(size_t(kW / 2) * (kH / 2), 2), cr(size_t(kW / 2) * (kH / 2), 3), dst(size_t(kW) * kH * 3);
    const Nmq8u* const src[3] = {y.p, cb.p, cr.p};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiYCbCr420ToRGB_8u_P3C3R(src, steps, dst.p, 3 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_YCbCr420ToBGR_8u_P2C4R(benchmark::State& st) {
    nmqb::Buf y(size_t(kW) * kH), c(size_t(kW) * (kH / 2), 2), dst(size_t(kW) * kH * 4);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiYCbCr420ToBGR_8u_P2C4R(y.p, kW, c.p, kW, dst.p, 4 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_YCbCr422ToRGB_8u_C2C3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 2), dst(size_t(kW) * kH * 3);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiYCbCr422ToRGB_8u_C2C3R(src.p, 2 * kW, dst.p, 3 * kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_BGRToYCbCr420_8u_C3P3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 3), y(size_t(kW) * kH), cb(size_t(kW / 2) * (kH / 2)), cr(size_t(kW / 2) * (kH / 2));
    Nmq8u* const dst[3] = {y.p, cb.p, cr.p};
    const int steps[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiBGRToYCbCr420_8u_C3P3R(src.p, 3 * kW, dst, steps, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

BENCHMARK(BM_YCbCr420ToRGB_8u_P3C3R);
BENCHMARK(BM_YCbCr420ToBGR_8u_P2C4R);
BENCHMARK(BM_YCbCr422ToRGB_8u_C2C3R);
BENCHMARK(BM_BGRToYCbCr420_8u_C3P3R);
