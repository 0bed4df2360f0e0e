// YCbCr: the test image through BT.601 4:2:0 (planes and two-plane), packed
// 4:2:2 and back to RGB/BGR; the results show the chroma subsampling.
#include <vector>

#include "demo.h"

namespace {

// BGR(A) to RGB for viewing.
demo::Image to_rgb(const std::vector<Nmq8u>& px, int w, int h, int ch, bool bgr) {
    demo::Image out(w, h, 3);
    for (size_t i = 0; i < size_t(w) * h; ++i)
        for (int c = 0; c < 3; ++c) out.px[3 * i + c] = px[ch * i + (bgr ? 2 - c : c)];
    return out;
}

}  // namespace

NMQ_DEMO(ycbcr) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageSize roi{w, h};
    std::vector<Nmq8u> bgr(size_t(w) * h * 3);
    for (size_t i = 0; i < size_t(w) * h; ++i)
        for (int c = 0; c < 3; ++c) bgr[3 * i + c] = ctx.rgb.px[3 * i + 2 - c];

    // BGR to 4:2:0 planes and back to RGB.
    std::vector<Nmq8u> y(size_t(w) * h), cb(size_t(w / 2) * (h / 2)), cr(cb.size());
    Nmq8u* const planes[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {w, w / 2, w / 2};
    NmqStatus st = nmqiBGRToYCbCr420_8u_C3P3R(bgr.data(), 3 * w, planes, steps, roi);
    ctx.report("nmqiBGRToYCbCr420_8u_C3P3R", st, y.data(), y.size(), "ycbcr420_luma.png");
    demo::Image luma(w, h, 1);
    luma.px = y;
    ctx.save("ycbcr420_luma", luma);

    demo::Image rgb(w, h, 3);
    const Nmq8u* const in[3] = {y.data(), cb.data(), cr.data()};
    st = nmqiYCbCr420ToRGB_8u_P3C3R(in, steps, rgb.px.data(), rgb.step(), roi);
    ctx.report("nmqiYCbCr420ToRGB_8u_P3C3R", st, rgb.px.data(), rgb.px.size(), "ycbcr420_rgb.png");
    ctx.save("ycbcr420_rgb", rgb);

    // The same chroma as one interleaved plane, to BGRA.
    std::vector<Nmq8u> nv(size_t(w) * (h / 2)), bgra(size_t(w) * h * 4);
    for (size_t i = 0; i < cb.size(); ++i) { nv[2 * i] = cb[i]; nv[2 * i + 1] = cr[i]; }
    st = nmqiYCbCr420ToBGR_8u_P2C4R(y.data(), w, nv.data(), w, bgra.data(), 4 * w, roi);
    ctx.report("nmqiYCbCr420ToBGR_8u_P2C4R", st, bgra.data(), bgra.size(), "ycbcr420_p2_bgra.png");
    ctx.save("ycbcr420_p2_bgra", to_rgb(bgra, w, h, 4, true));

    // Packed 4:2:2 and back.
    std::vector<Nmq8u> c2(size_t(w) * h * 2);
    st = nmqiRGBToYCbCr422_8u_C3C2R(ctx.rgb.px.data(), ctx.rgb.step(), c2.data(), 2 * w, roi);
    ctx.report("nmqiRGBToYCbCr422_8u_C3C2R", st, c2.data(), c2.size());
    demo::Image back(w, h, 3);
    st = nmqiYCbCr422ToRGB_8u_C2C3R(c2.data(), 2 * w, back.px.data(), back.step(), roi);
    ctx.report("nmqiYCbCr422ToRGB_8u_C2C3R", st, back.px.data(), back.px.size(), "ycbcr422_rgb.png");
    ctx.save("ycbcr422_rgb", back);
}
