// YUV <-> RGB on 1920x1080: the 4:2:0 and 4:2:2 paths of video pipelines and
// the full-sampled interleaved conversion.
#include "bench_util.h"

namespace {

using nmqb::Buf;
using nmqb::kH;
using nmqb::kW;

void YUV420ToRGB_P3C3R(benchmark::State& st) {
    Buf y(size_t(kW) * kH), u(size_t(kW / 2) * kH / 2), v(size_t(kW / 2) * kH / 2), rgb(size_t(kW) * kH * 3);
    const Nmq8u* s[3] = {y.p, u.p, v.p};
    const int ss[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYUV420ToRGB_8u_P3C3R(s, ss, rgb.p, 3 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToYUV420_C3P3R(benchmark::State& st) {
    Buf rgb(size_t(kW) * kH * 3), y(size_t(kW) * kH), u(size_t(kW / 2) * kH / 2), v(size_t(kW / 2) * kH / 2);
    Nmq8u* d[3] = {y.p, u.p, v.p};
    int ds[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToYUV420_8u_C3P3R(rgb.p, 3 * kW, d, ds, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void YUV422ToRGB_C2C3R(benchmark::State& st) {
    Buf yuyv(size_t(kW) * kH * 2), rgb(size_t(kW) * kH * 3);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYUV422ToRGB_8u_C2C3R(yuyv.p, 2 * kW, rgb.p, 3 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToYUV_C3R(benchmark::State& st) {
    Buf rgb(size_t(kW) * kH * 3), yuv(size_t(kW) * kH * 3);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToYUV_8u_C3R(rgb.p, 3 * kW, yuv.p, 3 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

// Four-byte outputs whose fourth byte is kept.
void YUV420ToRGB_P3AC4R(benchmark::State& st) {
    Buf y(size_t(kW) * kH), u(size_t(kW / 2) * kH / 2), v(size_t(kW / 2) * kH / 2), rgba(size_t(kW) * kH * 4);
    const Nmq8u* s[3] = {y.p, u.p, v.p};
    const int ss[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYUV420ToRGB_8u_P3AC4R(s, ss, rgba.p, 4 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void YUV422ToRGB_P3AC4R(benchmark::State& st) {
    Buf y(size_t(kW) * kH), u(size_t(kW / 2) * kH), v(size_t(kW / 2) * kH), rgba(size_t(kW) * kH * 4);
    const Nmq8u* s[3] = {y.p, u.p, v.p};
    const int ss[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYUV422ToRGB_8u_P3AC4R(s, ss, rgba.p, 4 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void YUVToRGB_AC4R(benchmark::State& st) {
    Buf yuv(size_t(kW) * kH * 4), rgba(size_t(kW) * kH * 4);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYUVToRGB_8u_AC4R(yuv.p, 4 * kW, rgba.p, 4 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

void RGBToYUV_AC4R(benchmark::State& st) {
    Buf rgba(size_t(kW) * kH * 4), yuv(size_t(kW) * kH * 4);
    for (auto _ : st) benchmark::DoNotOptimize(nmqiRGBToYUV_8u_AC4R(rgba.p, 4 * kW, yuv.p, 4 * kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}

}  // namespace

BENCHMARK(YUV420ToRGB_P3C3R)->Name("nmqiYUV420ToRGB_8u_P3C3R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToYUV420_C3P3R)->Name("nmqiRGBToYUV420_8u_C3P3R")->Unit(benchmark::kMillisecond);
BENCHMARK(YUV422ToRGB_C2C3R)->Name("nmqiYUV422ToRGB_8u_C2C3R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToYUV_C3R)->Name("nmqiRGBToYUV_8u_C3R")->Unit(benchmark::kMillisecond);
BENCHMARK(YUV420ToRGB_P3AC4R)->Name("nmqiYUV420ToRGB_8u_P3AC4R")->Unit(benchmark::kMillisecond);
BENCHMARK(YUV422ToRGB_P3AC4R)->Name("nmqiYUV422ToRGB_8u_P3AC4R")->Unit(benchmark::kMillisecond);
BENCHMARK(YUVToRGB_AC4R)->Name("nmqiYUVToRGB_8u_AC4R")->Unit(benchmark::kMillisecond);
BENCHMARK(RGBToYUV_AC4R)->Name("nmqiRGBToYUV_8u_AC4R")->Unit(benchmark::kMillisecond);
