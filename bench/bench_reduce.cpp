// Bit-depth reduction of a random 1920x1080 image: 8u C3 with every dither
// kind, with and without noise, and the one-bit reduction in both modes.
#include "bench_util.h"

namespace {

void BM_ReduceBits_8u_C3R(benchmark::State& st, int kind, int noise) {
    const int w = nmqb::kW, h = nmqb::kH;
    nmqb::Buf src(size_t(w) * h * 3), dst(size_t(w) * h * 3);
    for (auto _ : st) {
        benchmark::DoNotOptimize(nmqiReduceBits_8u_C3R(src.p, 3 * w, dst.p, 3 * w, ImageSize{w, h}, noise, kind, 4));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, w, h);
}

void BM_ReduceBits_8u1u_C1R(benchmark::State& st, int kind) {
    const int w = nmqb::kW, h = nmqb::kH;
    nmqb::Buf src(size_t(w) * h), dst(size_t(w / 8 + 1) * h);
    for (auto _ : st) {
        benchmark::DoNotOptimize(
            nmqiReduceBits_8u1u_C1R(src.p, w, dst.p, w / 8 + 1, 3, ImageSize{w, h}, 0, 0, kind, 127));
        benchmark::ClobberMemory();
    }
    nmqb::set_mpx(st, w, h);
}

}  // namespace

BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, none, DitherKindNone, 0);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, floyd_steinberg, DitherKindFloydSteinberg, 0);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, floyd_steinberg_noise, DitherKindFloydSteinberg, 30);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, jarvis_judice_ninke, DitherKindJarvisJudiceNinke, 0);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, jarvis_judice_ninke_noise, DitherKindJarvisJudiceNinke, 30);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, stucki, DitherKindStucki, 0);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, stucki_noise, DitherKindStucki, 30);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, bayer, DitherKindBayer, 0);
BENCHMARK_CAPTURE(BM_ReduceBits_8u_C3R, bayer_noise, DitherKindBayer, 30);
BENCHMARK_CAPTURE(BM_ReduceBits_8u1u_C1R, threshold, DitherKindNone);
BENCHMARK_CAPTURE(BM_ReduceBits_8u1u_C1R, stucki, DitherKindStucki);
