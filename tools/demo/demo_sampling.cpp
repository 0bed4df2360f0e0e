// Sampling formats: the test image as packed 4:2:2, taken through 4:2:0,
// 4:1:1 and 1620 and back, each result shown as RGB.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "demo.h"

namespace {

struct Planes {
    int w, h, cw, ch;
    std::vector<Nmq8u> y, cb, cr;
    Planes(int w_, int h_, int cw_, int ch_)
        : w(w_), h(h_), cw(cw_), ch(ch_), y(size_t(w_) * h_), cb(size_t(cw_) * ch_), cr(size_t(cw_) * ch_) {}
    Nmq8u* ptr[3];
    int step[3];
    Nmq8u* const* p() { ptr[0] = y.data(); ptr[1] = cb.data(); ptr[2] = cr.data(); return ptr; }
    const Nmq8u* const* c() { return p(); }
    const int* s() { step[0] = w; step[1] = step[2] = cw; return step; }
};

Nmq8u clamp8(double v) { return Nmq8u(std::min(255.0, std::max(0.0, v + 0.5))); }

// Simple full-range conversions, only to make the planes visible.
demo::Image to_rgb(Planes& p) {
    demo::Image img(p.w, p.h, 3);
    const int sx = p.w / p.cw, sy = p.h / p.ch;
    for (int r = 0; r < p.h; ++r)
        for (int x = 0; x < p.w; ++x) {
            const double Y = p.y[size_t(r) * p.w + x];
            const double Cb = p.cb[size_t(r / sy) * p.cw + x / sx] - 128.0, Cr = p.cr[size_t(r / sy) * p.cw + x / sx] - 128.0;
            Nmq8u* o = img.row(r) + 3 * x;
            o[0] = clamp8(Y + 1.402 * Cr);
            o[1] = clamp8(Y - 0.344 * Cb - 0.714 * Cr);
            o[2] = clamp8(Y + 1.772 * Cb);
        }
    return img;
}

}  // namespace

NMQ_DEMO(sampling) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    // Packed 4:2:2 (Y0 Cb Y1 Cr) from the RGB test image, chroma of the left pixel.
    std::vector<Nmq8u> packed(size_t(2 * w) * h);
    for (int r = 0; r < h; ++r)
        for (int x = 0; x < w; ++x) {
            const Nmq8u* c = ctx.rgb.row(r) + 3 * x;
            const double R = c[0], G = c[1], B = c[2], Y = 0.299 * R + 0.587 * G + 0.114 * B;
            Nmq8u* g = &packed[size_t(r) * 2 * w + 4 * (x / 2)];
            g[2 * (x & 1)] = clamp8(Y);
            if (!(x & 1)) {
                g[1] = clamp8((B - Y) * 0.564 + 128);
                g[3] = clamp8((R - Y) * 0.713 + 128);
            }
        }
    Planes p420(w, h, w / 2, h / 2), p422(w, h, w / 2, h), p411(w, h, w / 4, h), p1620(w, h, w / 4, h / 4),
        back(w, h, w / 2, h / 2);
    const ImageSize roi{w, h};

    NmqStatus st = nmqiYCbCr422ToYCbCr420_8u_C2P3R(packed.data(), 2 * w, p420.p(), p420.s(), roi);
    ctx.report("nmqiYCbCr422ToYCbCr420_8u_C2P3R", st, p420.cb.data(), p420.cb.size(), "sampling_420.png");
    ctx.save("sampling_420", to_rgb(p420));

    st = nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(p420.c(), p420.s(), p422.p(), p422.s(), roi);
    ctx.report("nmqiYCbCr420ToYCbCr422_Filter_8u_P3R", st, p422.cb.data(), p422.cb.size(), "sampling_422_filter.png");
    ctx.save("sampling_422_filter", to_rgb(p422));

    // 4:2:0 -> 4:1:1 two-plane -> 4:2:0 is lossless.
    std::vector<Nmq8u> y411(size_t(w) * h), c411(size_t(w / 2) * h);
    st = nmqiYCbCr420ToYCbCr411_8u_P3P2R(p420.c(), p420.s(), y411.data(), w, c411.data(), w / 2, roi);
    ctx.report("nmqiYCbCr420ToYCbCr411_8u_P3P2R", st, c411.data(), c411.size());
    st = nmqiYCbCr411ToYCbCr420_8u_P2P3R(y411.data(), w, c411.data(), w / 2, back.p(), back.s(), roi);
    ctx.report("nmqiYCbCr411ToYCbCr420_8u_P2P3R", st, back.cb.data(), back.cb.size());
    std::printf("  4:2:0 -> 4:1:1 -> 4:2:0 chroma %s\n", back.cb == p420.cb && back.cr == p420.cr ? "identical" : "DIFFERS");

    // Quarter-resolution chroma and back: the averaging is visible as blur.
    st = nmqiYCbCr420To1620_8u_P3R(p420.c(), p420.s(), p1620.p(), p1620.s(), roi);
    ctx.report("nmqiYCbCr420To1620_8u_P3R", st, p1620.cb.data(), p1620.cb.size());
    st = nmqiYCbCr1620To420_8u_P3R(p1620.c(), p1620.s(), back.p(), back.s(), roi);
    ctx.report("nmqiYCbCr1620To420_8u_P3R", st, back.cb.data(), back.cb.size(), "sampling_1620.png");
    ctx.save("sampling_1620", to_rgb(back));

    st = nmqiYCbCr420To411_8u_P3R(p420.c(), p420.s(), p411.p(), p411.s(), roi);
    ctx.report("nmqiYCbCr420To411_8u_P3R", st, p411.cb.data(), p411.cb.size(), "sampling_411.png");
    ctx.save("sampling_411", to_rgb(p411));

    // A size the plane functions refuse (width not a multiple of 4).
    st = nmqiYCbCr420To1620_8u_P3R(p420.c(), p420.s(), p1620.p(), p1620.s(), ImageSize{w - 2, h});
    ctx.report("nmqiYCbCr420To1620_8u_P3R (width - 2)", st, nullptr, 0);
}
