// Sampling conversions on 1920x1080: packed 4:2:2 to 4:2:0 planes, the
// filtered 4:2:0 to 4:2:2, and 4:2:0 three planes to two planes.
#include "bench_util.h"

namespace {

using nmqb::kH;
using nmqb::kW;

void BM_YCbCr422ToYCbCr420_8u_C2P3R(benchmark::State& st) {
    nmqb::Buf src(size_t(2 * kW) * kH), y(size_t(kW) * kH), cb(size_t(kW / 2) * kH / 2), cr(size_t(kW / 2) * kH / 2);
    Nmq8u* dst[3] = {y.p, cb.p, cr.p};
    const int dstStep[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCbCr422ToYCbCr420_8u_C2P3R(src.p, 2 * kW, dst, dstStep, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}
BENCHMARK(BM_YCbCr422ToYCbCr420_8u_C2P3R);

void BM_YCbCr420ToYCbCr422_Filter_8u_P3R(benchmark::State& st) {
    nmqb::Buf y(size_t(kW) * kH), cb(size_t(kW / 2) * kH / 2), cr(size_t(kW / 2) * kH / 2);
    nmqb::Buf dy(size_t(kW) * kH), dcb(size_t(kW / 2) * kH), dcr(size_t(kW / 2) * kH);
    const Nmq8u* src[3] = {y.p, cb.p, cr.p};
    const int srcStep[3] = {kW, kW / 2, kW / 2};
    Nmq8u* dst[3] = {dy.p, dcb.p, dcr.p};
    const int dstStep[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st)
        benchmark::DoNotOptimize(nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(src, srcStep, dst, dstStep, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}
BENCHMARK(BM_YCbCr420ToYCbCr422_Filter_8u_P3R);

void BM_YCbCr420_8u_P3P2R(benchmark::State& st) {
    nmqb::Buf y(size_t(kW) * kH), cb(size_t(kW / 2) * kH / 2), cr(size_t(kW / 2) * kH / 2);
    nmqb::Buf dy(size_t(kW) * kH), dc(size_t(kW) * kH / 2);
    const Nmq8u* src[3] = {y.p, cb.p, cr.p};
    const int srcStep[3] = {kW, kW / 2, kW / 2};
    for (auto _ : st)
        benchmark::DoNotOptimize(nmqiYCbCr420_8u_P3P2R(src, srcStep, dy.p, kW, dc.p, kW, {kW, kH}));
    nmqb::set_mpx(st, kW, kH);
}
BENCHMARK(BM_YCbCr420_8u_P3P2R);

}  // namespace
