// Tone and matrix operations: the test image through the forward and inverse
// gamma curve, a sepia colour twist, and a tone map of a synthetic radiance
// image.
#include <cmath>
#include <vector>

#include "demo.h"

NMQ_DEMO(tone) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageSize roi{w, h};

    demo::Image fwd(w, h, 3), inv(w, h, 3);
    NmqStatus st = nmqiGammaFwd_8u_C3R(ctx.rgb.px.data(), ctx.rgb.step(), fwd.px.data(), fwd.step(), roi);
    ctx.report("nmqiGammaFwd_8u_C3R", st, fwd.px.data(), fwd.px.size(), "gamma_fwd.png");
    ctx.save("gamma_fwd", fwd);
    st = nmqiGammaInv_8u_C3R(ctx.rgb.px.data(), ctx.rgb.step(), inv.px.data(), inv.step(), roi);
    ctx.report("nmqiGammaInv_8u_C3R", st, inv.px.data(), inv.px.size(), "gamma_inv.png");
    ctx.save("gamma_inv", inv);

    const Nmq32f sepia[3][4] = {{0.393f, 0.769f, 0.189f, 0}, {0.349f, 0.686f, 0.168f, 0}, {0.272f, 0.534f, 0.131f, 0}};
    demo::Image tw(w, h, 3);
    st = nmqiColorTwist32f_8u_C3R(ctx.rgb.px.data(), ctx.rgb.step(), tw.px.data(), tw.step(), roi, sepia);
    ctx.report("nmqiColorTwist32f_8u_C3R sepia", st, tw.px.data(), tw.px.size(), "twist_sepia.png");
    ctx.save("twist_sepia", tw);

    // Radiance: the image's luma, linearised and brightened towards the centre.
    std::vector<Nmq32f> rad(size_t(w) * h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const uint8_t* p = ctx.rgb.row(y) + 3 * x;
            const float luma = (0.299f * p[0] + 0.587f * p[1] + 0.114f * p[2]) / 255.0f;
            const float dx = (x - w / 2.0f) / w, dy = (y - h / 2.0f) / h;
            rad[size_t(y) * w + x] = std::pow(luma, 2.2f) * (1.0f + 20.0f * std::exp(-40.0f * (dx * dx + dy * dy)));
        }
    demo::Image lin(w, h, 1), mean(w, h, 1);
    st = nmqiToneMapLinear_32f8u_C1R(rad.data(), w * 4, lin.px.data(), w, roi);
    ctx.report("nmqiToneMapLinear_32f8u_C1R", st, lin.px.data(), lin.px.size(), "tonemap_linear.png");
    ctx.save("tonemap_linear", lin);
    st = nmqiToneMapMean_32f8u_C1R(rad.data(), w * 4, mean.px.data(), w, roi);
    ctx.report("nmqiToneMapMean_32f8u_C1R", st, mean.px.data(), mean.px.size(), "tonemap_mean.png");
    ctx.save("tonemap_mean", mean);
}
