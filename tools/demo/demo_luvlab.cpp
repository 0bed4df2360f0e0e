// LUV, Lab and photographic YCC: the test image through each model and back
// in 8u, the encoded images themselves (their codes shown as RGB) and the
// round trips, as PNG.
#include <string>

#include "demo.h"

namespace {

using Conv8 = NmqStatus (*)(const Nmq8u*, int, Nmq8u*, int, ImageSize);

void round_trip(demo::Context& ctx, const char* tag, const char* fwd_name, Conv8 fwd, const char* inv_name, Conv8 inv) {
    const demo::Image& rgb = ctx.rgb;
    const ImageSize roi{rgb.w, rgb.h};
    demo::Image coded(rgb.w, rgb.h, 3), back(rgb.w, rgb.h, 3);
    const std::string coded_name = std::string(tag) + "_codes", back_name = std::string(tag) + "_roundtrip";
    NmqStatus st = fwd(rgb.px.data(), rgb.step(), coded.px.data(), coded.step(), roi);
    ctx.report(fwd_name, st, coded.px.data(), coded.px.size(), coded_name + ".png");
    ctx.save(coded_name, coded);
    st = inv(coded.px.data(), coded.step(), back.px.data(), back.step(), roi);
    ctx.report(inv_name, st, back.px.data(), back.px.size(), back_name + ".png");
    ctx.save(back_name, back);
}

}  // namespace

NMQ_DEMO(luvlab) {
    round_trip(ctx, "lab", "nmqiRGBToLab_8u_C3R", nmqiRGBToLab_8u_C3R, "nmqiLabToRGB_8u_C3R", nmqiLabToRGB_8u_C3R);
    round_trip(ctx, "luv", "nmqiRGBToLUV_8u_C3R", nmqiRGBToLUV_8u_C3R, "nmqiLUVToRGB_8u_C3R", nmqiLUVToRGB_8u_C3R);
    round_trip(ctx, "ycc", "nmqiRGBToYCC_8u_C3R", nmqiRGBToYCC_8u_C3R, "nmqiYCCToRGB_8u_C3R", nmqiYCCToRGB_8u_C3R);
}
