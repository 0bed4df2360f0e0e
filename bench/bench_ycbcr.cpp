// YCbCr hot paths on a 1920x1080 frame: 4:2:0 planes and two-plane to RGB/BGR
// (3 and 4 bytes per pixel), packed 4:2:2 to and from RGB, 4:2:2 planes to
// RGB, RGB/BGR to 4:2:0 planes and two-plane, full-sampled with alpha kept,
// and the 4:1:1 pair.
#include "bench_util.h"

namespace {

using nmqb::kH;
using nmqb::kW;

constexpr ImageSize kRoi{kW, kH};
constexpr size_t kPx = size_t(kW) * kH;

// Planar 4:2:0 (or 4:2:2 / 4:1:1 with other chroma sizes) sources and destinations.
struct Planes {
    nmqb::Buf y, c1, c2;
    int steps[3];
    Planes(int cw, int ch) : y(kPx), c1(size_t(cw) * ch, 2), c2(size_t(cw) * ch, 3), steps{kW, cw, cw} {}
    const Nmq8u* const* src() const { return in; }
    Nmq8u* const* dst() const { return out; }
    const Nmq8u* in[3] = {y.p, c1.p, c2.p};
    Nmq8u* out[3] = {y.p, c1.p, c2.p};
};

template <class F>
void loop(benchmark::State& st, F f) {
    for (auto _ : st) {
        benchmark::DoNotOptimize(f());
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, kW, kH);
}

// ---- 4:2:0 to RGB ---------------------------------------------------------------

void BM_YCbCr420ToRGB_8u_P3C3R(benchmark::State& st) {
    Planes p(kW / 2, kH / 2);
    nmqb::Buf dst(kPx * 3);
    loop(st, [&] { return nmqiYCbCr420ToRGB_8u_P3C3R(p.src(), p.steps, dst.p, 3 * kW, kRoi); });
}
void BM_YCbCr420ToBGR_8u_P3C4R(benchmark::State& st) {
    Planes p(kW / 2, kH / 2);
    nmqb::Buf dst(kPx * 4);
    loop(st, [&] { return nmqiYCbCr420ToBGR_8u_P3C4R(p.src(), p.steps, dst.p, 4 * kW, kRoi); });
}
void BM_YCbCr420ToRGB_8u_P2C3R(benchmark::State& st) {
    nmqb::Buf y(kPx), c(kPx / 2, 2), dst(kPx * 3);
    loop(st, [&] { return nmqiYCbCr420ToRGB_8u_P2C3R(y.p, kW, c.p, kW, dst.p, 3 * kW, kRoi); });
}
void BM_YCbCr420ToBGR_8u_P2C4R(benchmark::State& st) {
    nmqb::Buf y(kPx), c(kPx / 2, 2), dst(kPx * 4);
    loop(st, [&] { return nmqiYCbCr420ToBGR_8u_P2C4R(y.p, kW, c.p, kW, dst.p, 4 * kW, kRoi); });
}
void BM_YCbCr420ToBGR_709HDTV_8u_P3C4R(benchmark::State& st) {
    Planes p(kW / 2, kH / 2);
    nmqb::Buf dst(kPx * 4);
    loop(st, [&] { return nmqiYCbCr420ToBGR_709HDTV_8u_P3C4R(p.src(), p.steps, dst.p, 4 * kW, kRoi); });
}

// ---- packed 4:2:2 to RGB ------------------------------------------------------------

void BM_YCbCr422ToRGB_8u_C2C3R(benchmark::State& st) {
    nmqb::Buf src(kPx * 2), dst(kPx * 3);
    loop(st, [&] { return nmqiYCbCr422ToRGB_8u_C2C3R(src.p, 2 * kW, dst.p, 3 * kW, kRoi); });
}
void BM_YCbCr422ToBGR_8u_C2C4R(benchmark::State& st) {
    nmqb::Buf src(kPx * 2), dst(kPx * 4);
    loop(st, [&] { return nmqiYCbCr422ToBGR_8u_C2C4R(src.p, 2 * kW, dst.p, 4 * kW, kRoi); });
}

void BM_YCbCr422ToRGB_8u_P3C3R(benchmark::State& st) {
    Planes p(kW / 2, kH);
    nmqb::Buf dst(kPx * 3);
    loop(st, [&] { return nmqiYCbCr422ToRGB_8u_P3C3R(p.src(), p.steps, dst.p, 3 * kW, kRoi); });
}

// ---- RGB to 4:2:0 and 4:2:2 -------------------------------------------------------

void BM_BGRToYCbCr420_8u_C3P3R(benchmark::State& st) {
    nmqb::Buf src(kPx * 3);
    Planes p(kW / 2, kH / 2);
    loop(st, [&] { return nmqiBGRToYCbCr420_8u_C3P3R(src.p, 3 * kW, p.dst(), p.steps, kRoi); });
}
void BM_BGRToYCbCr420_8u_AC4P3R(benchmark::State& st) {
    nmqb::Buf src(kPx * 4);
    Planes p(kW / 2, kH / 2);
    loop(st, [&] { return nmqiBGRToYCbCr420_8u_AC4P3R(src.p, 4 * kW, p.dst(), p.steps, kRoi); });
}
void BM_RGBToYCbCr420_8u_C3P2R(benchmark::State& st) {
    nmqb::Buf src(kPx * 3), y(kPx), c(kPx / 2);
    loop(st, [&] { return nmqiRGBToYCbCr420_8u_C3P2R(src.p, 3 * kW, y.p, kW, c.p, kW, kRoi); });
}
void BM_RGBToYCbCr422_8u_C3C2R(benchmark::State& st) {
    nmqb::Buf src(kPx * 3), dst(kPx * 2);
    loop(st, [&] { return nmqiRGBToYCbCr422_8u_C3C2R(src.p, 3 * kW, dst.p, 2 * kW, kRoi); });
}

// ---- full-sampled, alpha kept --------------------------------------------------------

void BM_YCbCrToRGB_8u_AC4R(benchmark::State& st) {
    nmqb::Buf src(kPx * 4), dst(kPx * 4);
    loop(st, [&] { return nmqiYCbCrToRGB_8u_AC4R(src.p, 4 * kW, dst.p, 4 * kW, kRoi); });
}
void BM_RGBToYCbCr_8u_AC4R(benchmark::State& st) {
    nmqb::Buf src(kPx * 4), dst(kPx * 4);
    loop(st, [&] { return nmqiRGBToYCbCr_8u_AC4R(src.p, 4 * kW, dst.p, 4 * kW, kRoi); });
}

// ---- 4:1:1 --------------------------------------------------------------------------

void BM_BGRToYCbCr411_8u_C3P3R(benchmark::State& st) {
    nmqb::Buf src(kPx * 3);
    Planes p(kW / 4, kH);
    loop(st, [&] { return nmqiBGRToYCbCr411_8u_C3P3R(src.p, 3 * kW, p.dst(), p.steps, kRoi); });
}
void BM_YCbCr411ToBGR_8u_P3C3R(benchmark::State& st) {
    Planes p(kW / 4, kH);
    nmqb::Buf dst(kPx * 3);
    loop(st, [&] { return nmqiYCbCr411ToBGR_8u_P3C3R(p.src(), p.steps, dst.p, 3 * kW, kRoi); });
}

}  // namespace

BENCHMARK(BM_YCbCr420ToRGB_8u_P3C3R);
BENCHMARK(BM_YCbCr420ToBGR_8u_P3C4R);
BENCHMARK(BM_YCbCr420ToRGB_8u_P2C3R);
BENCHMARK(BM_YCbCr420ToBGR_8u_P2C4R);
BENCHMARK(BM_YCbCr420ToBGR_709HDTV_8u_P3C4R);
BENCHMARK(BM_YCbCr422ToRGB_8u_C2C3R);
BENCHMARK(BM_YCbCr422ToBGR_8u_C2C4R);
BENCHMARK(BM_YCbCr422ToRGB_8u_P3C3R);
BENCHMARK(BM_BGRToYCbCr420_8u_C3P3R);
BENCHMARK(BM_BGRToYCbCr420_8u_AC4P3R);
BENCHMARK(BM_RGBToYCbCr420_8u_C3P2R);
BENCHMARK(BM_RGBToYCbCr422_8u_C3C2R);
BENCHMARK(BM_YCbCrToRGB_8u_AC4R);
BENCHMARK(BM_RGBToYCbCr_8u_AC4R);
BENCHMARK(BM_BGRToYCbCr411_8u_C3P3R);
BENCHMARK(BM_YCbCr411ToBGR_8u_P3C3R);
