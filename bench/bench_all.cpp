// The hot function of every family in one table, at 1920x1080 (throughput)
// and 64x64 (per-call overhead), in megapixels per second. Run only these
// with --benchmark_filter=^hot/ (bench/run-bench.sh does).
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench_util.h"

namespace {

// A 64-byte aligned buffer of pseudo-random bytes, filled eight at a time
// (large frames fill in a fraction of a second).
struct Buf {
    std::vector<uint64_t> v;
    uint8_t* p;
    Buf(size_t n, uint64_t seed) : v(n / 8 + 9) {
        for (auto& x : v) {  // splitmix64
            uint64_t z = (seed += 0x9E3779B97F4A7C15ull);
            z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
            z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
            x = z ^ (z >> 31);
        }
        uint8_t* b = reinterpret_cast<uint8_t*>(v.data());
        p = b + ((64 - (reinterpret_cast<uintptr_t>(b) & 63)) & 63);
    }
    template <class T> T* as() { return reinterpret_cast<T*>(p); }
};

// Planes and frames for one size, every buffer big enough for any case
// (up to 12 bytes per pixel).
struct Frames {
    int w, h;
    size_t n;
    Buf a, b, c, d, e, f;
    Frames(int w_, int h_)
        : w(w_), h(h_), n(size_t(w_) * h_), a(12 * n, 1), b(12 * n, 2), c(12 * n, 3), d(12 * n, 4), e(12 * n, 5),
          f(12 * n, 6) {
        float* x = a.as<float>();  // float sources in 0..1
        for (size_t i = 0; i < 3 * n; ++i) x[i] = float(i % 1021) / 1020.0f;
    }
};

using Op = std::function<void(Frames&)>;

struct Hot {
    const char* name;
    Op op;
};

const std::vector<Hot>& hot() {
    static const Nmq32f twist[3][4] = {{0.393f, 0.769f, 0.189f, 0}, {0.349f, 0.686f, 0.168f, 0}, {0.272f, 0.534f, 0.131f, 0}};
    static const std::vector<Hot> v = {
        // yuv
        {"nmqiYUV420ToRGB_8u_P3C3R", [](Frames& F) {
             const Nmq8u* s[3] = {F.b.p, F.c.p, F.d.p};
             const int ss[3] = {F.w, F.w / 2, F.w / 2};
             nmqiYUV420ToRGB_8u_P3C3R(s, ss, F.e.p, 3 * F.w, {F.w, F.h});
         }},
        {"nmqiRGBToYUV420_8u_C3P3R", [](Frames& F) {
             Nmq8u* const d[3] = {F.b.p, F.c.p, F.d.p};
             int ds[3] = {F.w, F.w / 2, F.w / 2};
             nmqiRGBToYUV420_8u_C3P3R(F.e.p, 3 * F.w, d, ds, {F.w, F.h});
         }},
        {"nmqiYUV422ToRGB_8u_C2C3R",
         [](Frames& F) { nmqiYUV422ToRGB_8u_C2C3R(F.b.p, 2 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        // ycbcr
        {"nmqiYCbCr420ToBGR_8u_P2C4R",
         [](Frames& F) { nmqiYCbCr420ToBGR_8u_P2C4R(F.b.p, F.w, F.c.p, F.w, F.e.p, 4 * F.w, {F.w, F.h}); }},
        {"nmqiRGBToYCbCr420_8u_C3P3R", [](Frames& F) {
             Nmq8u* const d[3] = {F.b.p, F.c.p, F.d.p};
             const int ds[3] = {F.w, F.w / 2, F.w / 2};
             nmqiRGBToYCbCr420_8u_C3P3R(F.e.p, 3 * F.w, d, ds, {F.w, F.h});
         }},
        {"nmqiYCbCr422ToRGB_8u_C2C4R",
         [](Frames& F) { nmqiYCbCr422ToRGB_8u_C2C4R(F.b.p, 2 * F.w, F.e.p, 4 * F.w, {F.w, F.h}); }},
        // packed16
        {"nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R", [](Frames& F) {
             const Nmq8u* s[3] = {F.b.p, F.c.p, F.d.p};
             const int ss[3] = {F.w, F.w / 2, F.w / 2};
             nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R(s, ss, F.e.as<Nmq16u>(), 2 * F.w, {F.w, F.h});
         }},
        // sampling
        {"nmqiYCbCr422ToYCbCr420_8u_C2P3R", [](Frames& F) {
             Nmq8u* const d[3] = {F.c.p, F.d.p, F.e.p};
             const int ds[3] = {F.w, F.w / 2, F.w / 2};
             nmqiYCbCr422ToYCbCr420_8u_C2P3R(F.b.p, 2 * F.w, d, ds, {F.w, F.h});
         }},
        {"nmqiYCbCr420ToYCbCr422_Filter_8u_P3R", [](Frames& F) {
             const Nmq8u* s[3] = {F.b.p, F.c.p, F.d.p};
             const int ss[3] = {F.w, F.w / 2, F.w / 2};
             Nmq8u* const d[3] = {F.e.p, F.f.p, F.f.p + F.n};
             const int ds[3] = {F.w, F.w / 2, F.w / 2};
             nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(s, ss, d, ds, {F.w, F.h});
         }},
        // interlace
        {"nmqiYCbCr422ToGray_8u_C2C1R",
         [](Frames& F) { nmqiYCbCr422ToGray_8u_C2C1R(F.b.p, 2 * F.w, F.e.p, F.w, {F.w, F.h}); }},
        // gray
        {"nmqiRGBToGray_8u_C3C1R", [](Frames& F) { nmqiRGBToGray_8u_C3C1R(F.b.p, 3 * F.w, F.e.p, F.w, {F.w, F.h}); }},
        // xyz
        {"nmqiRGBToXYZ_8u_C3R", [](Frames& F) { nmqiRGBToXYZ_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        {"nmqiRGBToXYZ_32f_C3R", [](Frames& F) {
             nmqiRGBToXYZ_32f_C3R(F.a.as<Nmq32f>(), 12 * F.w, F.e.as<Nmq32f>(), 12 * F.w, {F.w, F.h});
         }},
        // ycocg
        {"nmqiRGBToYCoCg_8u_C3P3R", [](Frames& F) {
             Nmq8u* const d[3] = {F.c.p, F.d.p, F.e.p};
             nmqiRGBToYCoCg_8u_C3P3R(F.b.p, 3 * F.w, d, F.w, {F.w, F.h});
         }},
        // hsv
        {"nmqiRGBToHSV_8u_C3R", [](Frames& F) { nmqiRGBToHSV_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        {"nmqiHSVToRGB_8u_C3R", [](Frames& F) { nmqiHSVToRGB_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        {"nmqiRGBToHLS_8u_C3R", [](Frames& F) { nmqiRGBToHLS_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        {"nmqiHLSToRGB_8u_C3R", [](Frames& F) { nmqiHLSToRGB_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        // luvlab
        {"nmqiRGBToLab_8u_C3R", [](Frames& F) { nmqiRGBToLab_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        // gamma
        {"nmqiGammaFwd_8u_C3R", [](Frames& F) { nmqiGammaFwd_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}); }},
        // twist
        {"nmqiColorTwist32f_8u_C3R",
         [](Frames& F) { nmqiColorTwist32f_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}, twist); }},
        // tonemap
        {"nmqiToneMapLinear_32f8u_C1R",
         [](Frames& F) { nmqiToneMapLinear_32f8u_C1R(F.a.as<Nmq32f>(), 4 * F.w, F.e.p, F.w, {F.w, F.h}); }},
        // reduce: ordered dither to 16 levels, and error diffusion
        {"nmqiReduceBits_8u_C3R/Bayer", [](Frames& F) {
             nmqiReduceBits_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}, 0, DitherKindBayer, 16);
         }},
        {"nmqiReduceBits_8u_C3R/FloydSteinberg", [](Frames& F) {
             nmqiReduceBits_8u_C3R(F.b.p, 3 * F.w, F.e.p, 3 * F.w, {F.w, F.h}, 0, DitherKindFloydSteinberg, 16);
         }},
        // bayer
        {"nmqiCFAToRGB_8u_C1C3R", [](Frames& F) {
             nmqiCFAToRGB_8u_C1C3R(F.b.p, ImageRect{0, 0, F.w, F.h}, ImageSize{F.w, F.h}, F.w, F.e.p, 3 * F.w,
                                   nmqBayerBGGR);
         }},
        // ahd
        {"nmqiDemosaicAHD_8u_C1C3R", [](Frames& F) {
             nmqiDemosaicAHD_8u_C1C3R(F.b.p, ImageRect{0, 0, F.w, F.h}, ImageSize{F.w, F.h}, F.w, F.e.p, 3 * F.w,
                                      nmqBayerBGGR);
         }},
    };
    return v;
}

Frames& frames(int w) {
    if (w == 64) {
        static Frames small(64, 64);
        return small;
    }
    static Frames big(nmqb::kW, nmqb::kH);
    return big;
}

const bool registered = [] {
    for (const Hot& c : hot())
        for (const int w : {nmqb::kW, 64}) {
            const int h = w == 64 ? 64 : nmqb::kH;
            const std::string name = std::string("hot/") + c.name + (w == 64 ? "/64x64" : "/1920x1080");
            benchmark::RegisterBenchmark(name.c_str(), [op = c.op, w, h](benchmark::State& st) {
                Frames& F = frames(w);
                for (auto _ : st) op(F);
                nmqb::set_mpx(st, w, h);
            })->Unit(w == 64 ? benchmark::kMicrosecond : benchmark::kMillisecond);
        }
    return true;
}();

}  // namespace
