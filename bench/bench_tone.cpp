// Gamma, colour twist and tone mapping on 1920x1080 images.
#include "bench_util.h"

namespace {

using nmqb::kH;
using nmqb::kW;

void BM_GammaFwd_8u_C3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 3), dst(size_t(kW) * kH * 3, 2);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiGammaFwd_8u_C3R(src.p, kW * 3, dst.p, kW * 3, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

// Whole image: more than 65536 samples, so the 65536-entry table is built
// and applied.
void BM_GammaFwd_16u_C3R_Table(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 6), dst(size_t(kW) * kH * 6, 2);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiGammaFwd_16u_C3R(src.as<Nmq16u>(), kW * 6, dst.as<Nmq16u>(), kW * 6, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

// The same image in strips of ten rows (57600 samples each): every sample is
// computed directly.
void BM_GammaFwd_16u_C3R_Direct(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 6), dst(size_t(kW) * kH * 6, 2);
    const int strip = 10;
    for (auto _ : st) {
        for (int y = 0; y < kH; y += strip) {
            const size_t off = size_t(y) * kW * 3;
            benchmark::DoNotOptimize(
                nmqiGammaFwd_16u_C3R(src.as<Nmq16u>() + off, kW * 6, dst.as<Nmq16u>() + off, kW * 6, {kW, strip}));
        }
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_ColorTwist32f_8u_C3R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 3), dst(size_t(kW) * kH * 3, 2);
    const Nmq32f sepia[3][4] = {{0.393f, 0.769f, 0.189f, 0}, {0.349f, 0.686f, 0.168f, 0}, {0.272f, 0.534f, 0.131f, 0}};
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiColorTwist32f_8u_C3R(src.p, kW * 3, dst.p, kW * 3, {kW, kH}, sepia));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

void BM_ToneMapLinear_32f8u_C1R(benchmark::State& st) {
    nmqb::Buf src(size_t(kW) * kH * 4), dst(size_t(kW) * kH, 2);
    float* s = src.as<float>();
    for (size_t i = 0; i < size_t(kW) * kH; ++i) s[i] = float(i % 4099) * 0.37f;
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiToneMapLinear_32f8u_C1R(s, kW * 4, dst.p, kW, {kW, kH}));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

BENCHMARK(BM_GammaFwd_8u_C3R);
BENCHMARK(BM_GammaFwd_16u_C3R_Table);
BENCHMARK(BM_GammaFwd_16u_C3R_Direct);
BENCHMARK(BM_ColorTwist32f_8u_C3R);
BENCHMARK(BM_ToneMapLinear_32f8u_C1R);
