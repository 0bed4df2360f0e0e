// HSV and HLS: the test image's H, S and V planes as gray images, and the
// round trips RGB -> HSV -> RGB and BGR -> HLS planes -> BGR.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "demo.h"

NMQ_DEMO(hsv) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageSize roi{w, h};

    demo::Image hsv(w, h, 3), back(w, h, 3);
    NmqStatus st = nmqiRGBToHSV_8u_C3R(ctx.rgb.px.data(), ctx.rgb.step(), hsv.px.data(), hsv.step(), roi);
    ctx.report("nmqiRGBToHSV_8u_C3R", st, hsv.px.data(), hsv.px.size());
    const char* names[3] = {"hsv_h", "hsv_s", "hsv_v"};
    for (int c = 0; c < 3; ++c) {
        demo::Image plane(w, h, 1);
        for (size_t i = 0; i < plane.px.size(); ++i) plane.px[i] = hsv.px[3 * i + size_t(c)];
        ctx.save(names[c], plane);
    }
    st = nmqiHSVToRGB_8u_C3R(hsv.px.data(), hsv.step(), back.px.data(), back.step(), roi);
    ctx.report("nmqiHSVToRGB_8u_C3R", st, back.px.data(), back.px.size(), "hsv_roundtrip.png");
    ctx.save("hsv_roundtrip", back);

    // BGR order through three HLS planes and back.
    demo::Image bgr(w, h, 3), bgr_back(w, h, 3);
    for (size_t i = 0; i < bgr.px.size(); i += 3) {
        bgr.px[i] = ctx.rgb.px[i + 2];
        bgr.px[i + 1] = ctx.rgb.px[i + 1];
        bgr.px[i + 2] = ctx.rgb.px[i];
    }
    demo::Image hp(w, h, 1), lp(w, h, 1), sp(w, h, 1);
    Nmq8u* const planes[3] = {hp.px.data(), lp.px.data(), sp.px.data()};
    st = nmqiBGRToHLS_8u_C3P3R(bgr.px.data(), bgr.step(), planes, w, roi);
    ctx.report("nmqiBGRToHLS_8u_C3P3R (L plane)", st, lp.px.data(), lp.px.size(), "hls_l.png");
    ctx.save("hls_l", lp);
    const Nmq8u* const cplanes[3] = {hp.px.data(), lp.px.data(), sp.px.data()};
    st = nmqiHLSToBGR_8u_P3C3R(cplanes, w, bgr_back.px.data(), bgr_back.step(), roi);
    ctx.report("nmqiHLSToBGR_8u_P3C3R", st, bgr_back.px.data(), bgr_back.px.size());

    int worst_hsv = 0, worst_hls = 0;
    for (size_t i = 0; i < back.px.size(); ++i) {
        worst_hsv = std::max(worst_hsv, std::abs(int(back.px[i]) - int(ctx.rgb.px[i])));
        worst_hls = std::max(worst_hls, std::abs(int(bgr_back.px[i]) - int(bgr.px[i])));
    }
    std::printf("  round trip, largest sample error: HSV %d, HLS %d\n", worst_hsv, worst_hls);
}
