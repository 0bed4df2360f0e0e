// Adaptive demosaicing (8u, 16u) and the interlaced 4:2:x conversions on
// 1920x1080.
#include "bench_util.h"

namespace {

template <class T>
NmqStatus ahd(const T* s, ImageSize z, int ss, T* d, int ds) {
    if constexpr (sizeof(T) == 1)
        return nmqiDemosaicAHD_8u_C1C3R(s, ImageRect{0, 0, z.width, z.height}, z, ss, d, ds, nmqBayerRGGB);
    else
        return nmqiDemosaicAHD_16u_C1C3R(s, ImageRect{0, 0, z.width, z.height}, z, ss, d, ds, nmqBayerRGGB);
}

template <class T>
void BM_DemosaicAHD(benchmark::State& st) {
    const int w = nmqb::kW, h = nmqb::kH;
    nmqb::Buf src(size_t(w) * h * sizeof(T)), dst(size_t(w) * h * 3 * sizeof(T));
    const int ss = w * int(sizeof(T));
    for (auto _ : st) {
        benchmark::DoNotOptimize(ahd(src.as<T>(), ImageSize{w, h}, ss, dst.as<T>(), 3 * ss));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, w, h);
}

// Planes of a 4:2:2 and a 4:2:0 frame and a packed 4:2:2 frame.
struct Frames {
    int w = nmqb::kW, h = nmqb::kH;
    nmqb::Buf y{size_t(w) * h}, cb422{size_t(w / 2) * h}, cr422{size_t(w / 2) * h}, cb420{size_t(w / 2) * h / 2},
        cr420{size_t(w / 2) * h / 2}, c420{size_t(w) * h / 2}, packed{size_t(2 * w) * h}, out{size_t(2 * w) * h};
    int s422[3] = {w, w / 2, w / 2};
    ImageSize roi{w, h};
};

void BM_422To420_Interlace_C2P3R(benchmark::State& st) {
    Frames f;
    Nmq8u* d[3] = {f.out.p, f.cb420.p, f.cr420.p};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCbCr422ToYCbCr420_Interlace_8u_C2P3R(f.packed.p, 2 * f.w, d, f.s422, f.roi));
    nmqb::set_mpx(st, f.w, f.h);
}

void BM_420To422_Interlace_P3C2R(benchmark::State& st) {
    Frames f;
    const Nmq8u* s[3] = {f.y.p, f.cb420.p, f.cr420.p};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3C2R(s, f.s422, f.out.p, 2 * f.w, f.roi));
    nmqb::set_mpx(st, f.w, f.h);
}

void BM_420To422_Interlace_P3R(benchmark::State& st) {
    Frames f;
    const Nmq8u* s[3] = {f.y.p, f.cb420.p, f.cr420.p};
    Nmq8u* d[3] = {f.out.p, f.cb422.p, f.cr422.p};
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R(s, f.s422, d, f.s422, f.roi));
    nmqb::set_mpx(st, f.w, f.h);
}

void BM_420To422_Deinterlace_P2C2R(benchmark::State& st) {
    Frames f;
    for (auto _ : st)
        benchmark::DoNotOptimize(
            nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2C2R(f.y.p, f.w, f.c420.p, f.w, f.out.p, 2 * f.w, f.roi));
    nmqb::set_mpx(st, f.w, f.h);
}

void BM_422ToGray_C2C1R(benchmark::State& st) {
    Frames f;
    for (auto _ : st) benchmark::DoNotOptimize(nmqiYCbCr422ToGray_8u_C2C1R(f.packed.p, 2 * f.w, f.y.p, f.w, f.roi));
    nmqb::set_mpx(st, f.w, f.h);
}

}  // namespace

BENCHMARK(BM_DemosaicAHD<Nmq8u>)->Name("BM_DemosaicAHD_8u/1920x1080");
BENCHMARK(BM_DemosaicAHD<Nmq16u>)->Name("BM_DemosaicAHD_16u/1920x1080");
BENCHMARK(BM_422To420_Interlace_C2P3R);
BENCHMARK(BM_420To422_Interlace_P3C2R);
BENCHMARK(BM_420To422_Interlace_P3R);
BENCHMARK(BM_420To422_Deinterlace_P2C2R);
BENCHMARK(BM_422ToGray_C2C1R);
