// Gray, XYZ and YCoCg on 1920x1080.
#include "bench_util.h"

namespace {

using nmqb::Buf;
using nmqb::kH;
using nmqb::kW;

void RGBToGray_8u_C3C1R(benchmark::State& st) {
    Buf rgb(size_t(kW) * kH * 3), gray(size_t(kW) * kH);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToGray_8u_C3C1R(rgb.p, 3 * kW, gray.p, kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToGray_8u_AC4C1R(benchmark::State& st) {
    Buf rgba(size_t(kW) * kH * 4), gray(size_t(kW) * kH);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToGray_8u_AC4C1R(rgba.p, 4 * kW, gray.p, kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToXYZ_32f_C3R(benchmark::State& st) {
    Buf src(size_t(kW) * kH * 12), dst(size_t(kW) * kH * 12);
    float* s = src.as<float>();
    for (size_t i = 0; i < size_t(kW) * kH * 3; ++i) s[i] = float(i % 251) / 250.0f;
    for (auto _ : st)
        benchmark::DoNotOptimize(nmqiRGBToXYZ_32f_C3R(s, 12 * kW, dst.as<float>(), 12 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToXYZ_8u_C3R(benchmark::State& st) {
    Buf src(size_t(kW) * kH * 3), dst(size_t(kW) * kH * 3);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToXYZ_8u_C3R(src.p, 3 * kW, dst.p, 3 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void BGRToYCoCg_Rev_8u16s_C3P3R(benchmark::State& st) {
    Buf bgr(size_t(kW) * kH * 3), y(size_t(kW) * kH * 2), co(size_t(kW) * kH * 2), cg(size_t(kW) * kH * 2);
    Nmq16s* d[3] = {y.as<Nmq16s>(), co.as<Nmq16s>(), cg.as<Nmq16s>()};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiBGRToYCoCg_Rev_8u16s_C3P3R(bgr.p, 3 * kW, d, 2 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void YCoCgToBGR_Rev_16s8u_P3C3R(benchmark::State& st) {
    Buf y(size_t(kW) * kH * 2), co(size_t(kW) * kH * 2), cg(size_t(kW) * kH * 2), bgr(size_t(kW) * kH * 3);
    const Nmq16s* s[3] = {y.as<Nmq16s>(), co.as<Nmq16s>(), cg.as<Nmq16s>()};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCoCgToBGR_Rev_16s8u_P3C3R(s, 2 * kW, bgr.p, 3 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

BENCHMARK(RGBToGray_8u_C3C1R)->Name("nmqiRGBToGray_8u_C3C1R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToGray_8u_AC4C1R)->Name("nmqiRGBToGray_8u_AC4C1R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToXYZ_32f_C3R)->Name("nmqiRGBToXYZ_32f_C3R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToXYZ_8u_C3R)->Name("nmqiRGBToXYZ_8u_C3R")->Unit(benchmark::kMillisecond);
BENCHMARK(BGRToYCoCg_Rev_8u16s_C3P3R)->Name("nmqiBGRToYCoCg_Rev_8u16s_C3P3R")->Unit(benchmark::kMillisecond);
BENCHMARK(YCoCgToBGR_Rev_16s8u_P3C3R)->Name("nmqiYCoCgToBGR_Rev_16s8u_P3C3R")->Unit(benchmark::kMillisecond);
