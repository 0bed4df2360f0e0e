// Side-by-side timing of this library's hot conversions and the nearest
// functions of other open-source libraries, in one process, single thread.
//
// Each case converts one frame (1920x1080 by default) per call. A measurement
// runs the call until it has used --min-ms of this thread's CPU time, repeats
// that --reps times and keeps the fastest run: CPU time and best-of-n keep the
// numbers usable on a busy machine. The peers use other constants and
// rounding, so only speed is compared.
//
// Columns: ours with the run-time kernel choice, ours with the kernels capped
// at SSE2 (the level of the 32-bit build), the peer's rate, the ratios, and
// "bw": the bytes a call reads and writes per second as a fraction of those
// of a memcpy moving as many bytes on the same machine.
//
// Built without the peers (the 32-bit build), it prints our columns only.
#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "frame/dispatch.h"
#include "nmqcc.h"

#ifdef NMQ_PEER_LIBYUV
#include <libyuv.h>
#endif
#ifdef NMQ_PEER_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif
#ifdef NMQ_PEER_SWSCALE
extern "C" {
#include <libswscale/swscale.h>
}
#endif

namespace {

int W = 1920, H = 1080;
int g_reps = 5;
double g_min_ms = 150;

double cpu_now() {
    timespec t;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + 1e-9 * double(t.tv_nsec);
}

// Megapixels per second of the fastest of g_reps runs.
double rate(const std::function<void()>& f) {
    f();  // warm caches and lazily built tables
    double best = 0;
    for (int r = 0; r < g_reps; ++r) {
        long n = 0;
        const double t0 = cpu_now();
        double t = 0;
        do {
            f();
            ++n;
            t = cpu_now() - t0;
        } while (t * 1e3 < g_min_ms);
        best = std::max(best, double(W) * H * 1e-6 * double(n) / t);
    }
    return best;
}

// Random bytes, 64-byte aligned.
struct Buf {
    std::vector<uint8_t> v;
    uint8_t* p;
    explicit Buf(size_t n, uint32_t seed = 1) : v(n + 64) {
        std::mt19937 g(seed);
        for (auto& b : v) b = uint8_t(g() >> 24);
        p = v.data() + ((64 - (reinterpret_cast<uintptr_t>(v.data()) & 63)) & 63);
    }
    template <class T> T* as() { return reinterpret_cast<T*>(p); }
};

struct Peer {
    const char* lib;
    const char* fn;
    std::function<void()> run;
};

struct Case {
    const char* ours_fn;
    double bytes_per_px;  // read + written
    std::function<void()> ours;
    std::vector<Peer> peers;
};

// Every buffer a case might use, allocated once.
struct Frames {
    size_t n = size_t(W) * H, c = size_t(W / 2) * (H / 2);
    Buf i420{n + 2 * c, 2}, nv12{n + 2 * c, 3}, yuy2{2 * n, 4}, rgb{3 * n, 5}, rgb_b{3 * n, 6}, rgba{4 * n, 7},
        bayer{n, 8}, gray{n, 9}, f32{3 * n * 4, 10}, f32_b{3 * n * 4, 11}, p16{2 * n, 12};
    Frames() {
        std::mt19937 g(13);
        float* f = f32.as<float>();
        for (size_t i = 0; i < 3 * n; ++i) f[i] = float(g() >> 8) / float(1 << 24);
    }
    uint8_t* y() { return i420.p; }
    uint8_t* u() { return i420.p + n; }
    uint8_t* v() { return i420.p + n + c; }
};

std::vector<Case> cases(Frames& F) {
    const ImageSize roi{W, H};
    const int w = W, h = H, cw = W / 2;
    std::vector<Case> out;
    const Nmq8u* p3[3] = {F.y(), F.u(), F.v()};
    static int s3[3];
    s3[0] = w, s3[1] = cw, s3[2] = cw;
    static const Nmq8u* src3[3];
    std::copy(p3, p3 + 3, src3);

#ifdef NMQ_PEER_OPENCV
    const cv::Mat cv_i420(h * 3 / 2, w, CV_8UC1, F.i420.p), cv_nv12(h * 3 / 2, w, CV_8UC1, F.nv12.p);
    const cv::Mat cv_yuy2(h, w, CV_8UC2, F.yuy2.p), cv_bayer(h, w, CV_8UC1, F.bayer.p);
    const cv::Mat cv_rgb(h, w, CV_8UC3, F.rgb.p), cv_f32(h, w, CV_32FC3, F.f32.p);
    cv::Mat cv_rgb_out(h, w, CV_8UC3, F.rgb_b.p), cv_rgba_out(h, w, CV_8UC4, F.rgba.p);
    cv::Mat cv_gray_out(h, w, CV_8UC1, F.gray.p), cv_f32_out(h, w, CV_32FC3, F.f32_b.p);
    auto cvt = [](const cv::Mat& s, cv::Mat d, int code) { return [s, d, code]() mutable { cv::cvtColor(s, d, code); }; };
#endif
#ifdef NMQ_PEER_SWSCALE
    // One context per output format, kept for the life of the process (the
    // cases are timed until it exits).
    const auto sws_to = [&F, w, cw, h](AVPixelFormat fmt, uint8_t* dst, int bpp) {
        SwsContext* sws = sws_getContext(w, h, AV_PIX_FMT_YUV420P, w, h, fmt, SWS_BILINEAR, nullptr, nullptr, nullptr);
        return [sws, &F, w, cw, h, dst, bpp]() {
            const uint8_t* s[3] = {F.y(), F.u(), F.v()};
            const int ss[3] = {w, cw, cw};
            uint8_t* d[1] = {dst};
            const int ds[1] = {bpp * w};
            sws_scale(sws, s, ss, 0, h, d, ds);
        };
    };
    const auto sws_run = sws_to(AV_PIX_FMT_RGB24, F.rgb_b.p, 3);
#endif

    // 4:2:0 planar to RGB24 (RGB byte order).
    out.push_back({"nmqiYUV420ToRGB_8u_P3C3R", 4.5,
                   [&F, roi, w]() { nmqiYUV420ToRGB_8u_P3C3R(src3, s3, F.rgb_b.p, 3 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "I420ToRAW", [&F, w, h, cw]() {
        libyuv::I420ToRAW(F.y(), w, F.u(), cw, F.v(), cw, F.rgb_b.p, 3 * w, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_YUV2RGB_I420", cvt(cv_i420, cv_rgb_out, cv::COLOR_YUV2RGB_I420)});
#endif
#ifdef NMQ_PEER_SWSCALE
    out.back().peers.push_back({"swscale", "yuv420p->rgb24", sws_run});
#endif
    out.push_back({"nmqiYCbCr420ToRGB_8u_P3C3R", 4.5,
                   [&F, roi, w]() { nmqiYCbCr420ToRGB_8u_P3C3R(src3, s3, F.rgb_b.p, 3 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "I420ToRAW", [&F, w, h, cw]() {
        libyuv::I420ToRAW(F.y(), w, F.u(), cw, F.v(), cw, F.rgb_b.p, 3 * w, w, h); }});
#endif

    // 4:2:0 planar to four-channel pixels.
    out.push_back({"nmqiYUV420ToRGB_8u_P3AC4R", 5.5,
                   [&F, roi, w]() { nmqiYUV420ToRGB_8u_P3AC4R(src3, s3, F.rgba.p, 4 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "I420ToABGR", [&F, w, h, cw]() {
        libyuv::I420ToABGR(F.y(), w, F.u(), cw, F.v(), cw, F.rgba.p, 4 * w, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_YUV2RGBA_I420", cvt(cv_i420, cv_rgba_out, cv::COLOR_YUV2RGBA_I420)});
#endif
#ifdef NMQ_PEER_SWSCALE
    out.back().peers.push_back({"swscale", "yuv420p->rgba", sws_to(AV_PIX_FMT_RGBA, F.rgba.p, 4)});
#endif
    out.push_back({"nmqiYCbCr420ToBGR_8u_P3C4R", 5.5,
                   [&F, roi, w]() { nmqiYCbCr420ToBGR_8u_P3C4R(src3, s3, F.rgba.p, 4 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "I420ToARGB", [&F, w, h, cw]() {
        libyuv::I420ToARGB(F.y(), w, F.u(), cw, F.v(), cw, F.rgba.p, 4 * w, w, h); }});
#endif

    // RGB24 to 4:2:0 planar.
    out.push_back({"nmqiRGBToYUV420_8u_C3P3R", 4.5, [&F, roi, w, cw]() {
        Nmq8u* const d[3] = {F.gray.p, F.nv12.p, F.nv12.p + F.c};
        int ds[3] = {w, cw, cw};
        nmqiRGBToYUV420_8u_C3P3R(F.rgb.p, 3 * w, d, ds, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "RAWToI420", [&F, w, h, cw]() {
        libyuv::RAWToI420(F.rgb.p, 3 * w, F.gray.p, w, F.nv12.p, cw, F.nv12.p + F.c, cw, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    {
        cv::Mat o(h * 3 / 2, w, CV_8UC1, F.nv12.p);
        out.back().peers.push_back({"opencv", "COLOR_RGB2YUV_I420", cvt(cv_rgb, o, cv::COLOR_RGB2YUV_I420)});
    }
#endif
    out.push_back({"nmqiRGBToYCbCr420_8u_C3P3R", 4.5, [&F, roi, w, cw]() {
        Nmq8u* const d[3] = {F.gray.p, F.nv12.p, F.nv12.p + F.c};
        const int ds[3] = {w, cw, cw};
        nmqiRGBToYCbCr420_8u_C3P3R(F.rgb.p, 3 * w, d, ds, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "RAWToI420", [&F, w, h, cw]() {
        libyuv::RAWToI420(F.rgb.p, 3 * w, F.gray.p, w, F.nv12.p, cw, F.nv12.p + F.c, cw, w, h); }});
#endif

    // Two-plane 4:2:0 to BGRA.
    out.push_back({"nmqiYCbCr420ToBGR_8u_P2C4R", 5.5, [&F, roi, w]() {
        nmqiYCbCr420ToBGR_8u_P2C4R(F.nv12.p, w, F.nv12.p + F.n, w, F.rgba.p, 4 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "NV12ToARGB", [&F, w, h]() {
        libyuv::NV12ToARGB(F.nv12.p, w, F.nv12.p + F.n, w, F.rgba.p, 4 * w, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_YUV2BGRA_NV12", cvt(cv_nv12, cv_rgba_out, cv::COLOR_YUV2BGRA_NV12)});
#endif

    // Packed 4:2:2 (Y0 U Y1 V) to RGB.
    out.push_back({"nmqiYUV422ToRGB_8u_C2C3R", 5, [&F, roi, w]() {
        nmqiYUV422ToRGB_8u_C2C3R(F.yuy2.p, 2 * w, F.rgb_b.p, 3 * w, roi); }, {}});
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_YUV2RGB_YUY2", cvt(cv_yuy2, cv_rgb_out, cv::COLOR_YUV2RGB_YUY2)});
#endif
    out.push_back({"nmqiYCbCr422ToRGB_8u_C2C4R", 6, [&F, roi, w]() {
        nmqiYCbCr422ToRGB_8u_C2C4R(F.yuy2.p, 2 * w, F.rgba.p, 4 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "YUY2ToARGB", [&F, w, h]() {
        libyuv::YUY2ToARGB(F.yuy2.p, 2 * w, F.rgba.p, 4 * w, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_YUV2RGBA_YUY2", cvt(cv_yuy2, cv_rgba_out, cv::COLOR_YUV2RGBA_YUY2)});
#endif

    // RGB to gray.
    out.push_back({"nmqiRGBToGray_8u_C3C1R", 4, [&F, roi, w]() {
        nmqiRGBToGray_8u_C3C1R(F.rgb.p, 3 * w, F.gray.p, w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "RAWToJ400", [&F, w, h]() {
        libyuv::RAWToJ400(F.rgb.p, 3 * w, F.gray.p, w, w, h); }});
#endif
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_RGB2GRAY", cvt(cv_rgb, cv_gray_out, cv::COLOR_RGB2GRAY)});
#endif

    // HSV and HLS, 8u, both ways (hue over the full byte range in both libraries).
    struct Hsv { const char* ours; NmqStatus (*f)(const Nmq8u*, int, Nmq8u*, int, ImageSize); const char* cvname; int code; };
#ifdef NMQ_PEER_OPENCV
    const Hsv hsv[] = {{"nmqiRGBToHSV_8u_C3R", nmqiRGBToHSV_8u_C3R, "COLOR_RGB2HSV_FULL", cv::COLOR_RGB2HSV_FULL},
                       {"nmqiHSVToRGB_8u_C3R", nmqiHSVToRGB_8u_C3R, "COLOR_HSV2RGB_FULL", cv::COLOR_HSV2RGB_FULL},
                       {"nmqiRGBToHLS_8u_C3R", nmqiRGBToHLS_8u_C3R, "COLOR_RGB2HLS_FULL", cv::COLOR_RGB2HLS_FULL},
                       {"nmqiHLSToRGB_8u_C3R", nmqiHLSToRGB_8u_C3R, "COLOR_HLS2RGB_FULL", cv::COLOR_HLS2RGB_FULL},
                       {"nmqiRGBToXYZ_8u_C3R", nmqiRGBToXYZ_8u_C3R, "COLOR_RGB2XYZ", cv::COLOR_RGB2XYZ}};
#else
    const Hsv hsv[] = {{"nmqiRGBToHSV_8u_C3R", nmqiRGBToHSV_8u_C3R, "", 0},
                       {"nmqiHSVToRGB_8u_C3R", nmqiHSVToRGB_8u_C3R, "", 0},
                       {"nmqiRGBToHLS_8u_C3R", nmqiRGBToHLS_8u_C3R, "", 0},
                       {"nmqiHLSToRGB_8u_C3R", nmqiHLSToRGB_8u_C3R, "", 0},
                       {"nmqiRGBToXYZ_8u_C3R", nmqiRGBToXYZ_8u_C3R, "", 0}};
#endif
    for (const Hsv& c : hsv) {
        out.push_back({c.ours, 6, [&F, roi, w, f = c.f]() { f(F.rgb.p, 3 * w, F.rgb_b.p, 3 * w, roi); }, {}});
#ifdef NMQ_PEER_OPENCV
        out.back().peers.push_back({"opencv", c.cvname, cvt(cv_rgb, cv_rgb_out, c.code)});
#endif
    }

    // XYZ, 32f.
    out.push_back({"nmqiRGBToXYZ_32f_C3R", 24, [&F, roi, w]() {
        nmqiRGBToXYZ_32f_C3R(F.f32.as<float>(), 12 * w, F.f32_b.as<float>(), 12 * w, roi); }, {}});
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_RGB2XYZ (32f)", cvt(cv_f32, cv_f32_out, cv::COLOR_RGB2XYZ)});
#endif

    // Bayer BGGR to RGB, bilinear.
    out.push_back({"nmqiCFAToRGB_8u_C1C3R", 4, [&F, w, h]() {
        nmqiCFAToRGB_8u_C1C3R(F.bayer.p, ImageRect{0, 0, w, h}, ImageSize{w, h}, w, F.rgb_b.p, 3 * w, nmqBayerBGGR); }, {}});
#ifdef NMQ_PEER_OPENCV
    out.back().peers.push_back({"opencv", "COLOR_BayerBG2RGB", cvt(cv_bayer, cv_rgb_out, cv::COLOR_BayerBG2RGB)});
#endif

    // 4:2:0 to RGB565 with the 4x4 ordered dither.
    out.push_back({"nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R", 3.5, [&F, roi, w]() {
        nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R(src3, s3, F.p16.as<Nmq16u>(), 2 * w, roi); }, {}});
#ifdef NMQ_PEER_LIBYUV
    out.back().peers.push_back({"libyuv", "I420ToRGB565Dither", [&F, w, h, cw]() {
        libyuv::I420ToRGB565Dither(F.y(), w, F.u(), cw, F.v(), cw, F.p16.p, 2 * w, nullptr, w, h); }});
    out.back().peers.push_back({"libyuv", "ARGBToRGB565Dither", [&F, w, h]() {
        libyuv::ARGBToRGB565Dither(F.rgba.p, 4 * w, F.p16.p, 2 * w, nullptr, w, h); }});
#endif
    return out;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (!std::strncmp(argv[i], "--reps=", 7)) g_reps = std::max(1, std::atoi(argv[i] + 7));
        else if (!std::strncmp(argv[i], "--min-ms=", 9)) g_min_ms = std::atof(argv[i] + 9);
        else if (!std::strncmp(argv[i], "--size=", 7)) std::sscanf(argv[i] + 7, "%dx%d", &W, &H);
        else {
            std::fprintf(stderr, "usage: %s [--reps=N] [--min-ms=MS] [--size=WxH]\n", argv[0]);
            return 2;
        }
    }
    W &= ~1, H &= ~1;
#ifdef NMQ_PEER_OPENCV
    cv::setNumThreads(1);
#endif
    Frames F;
    const std::vector<Case> all = cases(F);

    // Bandwidth reference: a memcpy moving the same bytes as the call (half of
    // what it reads and writes, read and written once), timed once per size.
    Buf a(size_t(W) * H * 12, 21), b(size_t(W) * H * 12, 22);
    std::vector<std::pair<double, double>> memcpy_rates;  // bytes per pixel, MB/s read + written
    auto memcpy_rate = [&](double bytes_per_px) {
        for (const auto& m : memcpy_rates)
            if (m.first == bytes_per_px) return m.second;
        const size_t n = size_t(double(W) * H * bytes_per_px / 2);
        const double r = rate([&]() { std::memcpy(b.p, a.p, n); }) * bytes_per_px;
        memcpy_rates.push_back({bytes_per_px, r});
        return r;
    };
    const double memcpy_mpx = memcpy_rate(6) / 6;

    static const char* const kLevel[] = {"scalar", "SSE2", "SSSE3", "SSE4.1", "AVX2", "AVX-512"};
    std::printf("%dx%d, one thread, best of %d runs of >= %.0f ms CPU time; kernels up to %s\n", W, H, g_reps,
                g_min_ms, kLevel[int(nmq::cpu_isa())]);
    std::printf("memcpy of an RGB24 frame: %.0f Mpx/s (%.1f GB/s read+written)\n\n", memcpy_mpx, memcpy_mpx * 6e-3);
    std::printf("| %-38s | %7s | %7s | %7s | %-7s | %-20s | %7s | %5s | %5s | %5s | %4s |\n", "function", "ours",
                "ours/a2", "ours/2", "peer", "peer's function", "peer", "ratio", "r/a2", "r/2", "bw");
    std::printf("|%s|--------:|--------:|--------:|---------|----------------------|--------:|------:|------:|------:|"
                "-----:|\n",
                std::string(40, '-').c_str());
    const auto capped = [](nmq::Isa lv, const std::function<void()>& f) {
        nmq::IsaCap cap(lv);
        return rate(f);
    };
    for (const Case& c : all) {
        const double ours = rate(c.ours);
        const double avx2 = capped(nmq::Isa::Avx2, c.ours), sse2 = capped(nmq::Isa::Sse2, c.ours);
        const double bw = ours * c.bytes_per_px / memcpy_rate(c.bytes_per_px);
        if (c.peers.empty())
            std::printf("| %-38s | %7.0f | %7.0f | %7.0f | %-7s | %-20s | %7s | %5s | %5s | %5s | %3.0f%% |\n",
                        c.ours_fn, ours, avx2, sse2, "", "", "", "", "", "", 100 * bw);
        for (const Peer& p : c.peers) {
            const double pr = rate(p.run);
            std::printf("| %-38s | %7.0f | %7.0f | %7.0f | %-7s | %-20s | %7.0f | %5.2f | %5.2f | %5.2f | %3.0f%% |\n",
                        c.ours_fn, ours, avx2, sse2, p.lib, p.fn, pr, ours / pr, avx2 / pr, sse2 / pr, 100 * bw);
            std::fflush(stdout);
        }
    }
    std::printf("\nours/a2, r/a2: kernels capped at AVX2; ours/2, r/2: capped at SSE2. bw: bytes read and written\n"
                "per second over those of a memcpy moving as many bytes.\n");
    return 0;
}
