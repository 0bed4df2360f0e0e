// Colour models: the test image to gray, through XYZ and back, and through
// both YCoCg transforms and back; every result is written as PNG.
#include <vector>

#include "demo.h"

NMQ_DEMO(models) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageSize roi{w, h};
    const demo::Image& rgb = ctx.rgb;

    {  // gray, fixed weights
        demo::Image gray(w, h, 1);
        const NmqStatus st = nmqiRGBToGray_8u_C3C1R(rgb.px.data(), rgb.step(), gray.px.data(), gray.step(), roi);
        ctx.report("nmqiRGBToGray_8u_C3C1R", st, gray.px.data(), gray.px.size(), "gray.png");
        ctx.save("gray", gray);
    }
    {  // XYZ and back
        demo::Image xyz(w, h, 3), back(w, h, 3);
        NmqStatus st = nmqiRGBToXYZ_8u_C3R(rgb.px.data(), rgb.step(), xyz.px.data(), xyz.step(), roi);
        ctx.report("nmqiRGBToXYZ_8u_C3R", st, xyz.px.data(), xyz.px.size());
        st = nmqiXYZToRGB_8u_C3R(xyz.px.data(), xyz.step(), back.px.data(), back.step(), roi);
        ctx.report("nmqiXYZToRGB_8u_C3R", st, back.px.data(), back.px.size(), "xyz_roundtrip.png");
        ctx.save("xyz_roundtrip", back);
    }
    {  // YCoCg, plain transform on 8u planes
        demo::Image y(w, h, 1), co(w, h, 1), cg(w, h, 1), back(w, h, 3);
        Nmq8u* d[3] = {y.px.data(), co.px.data(), cg.px.data()};
        NmqStatus st = nmqiRGBToYCoCg_8u_C3P3R(rgb.px.data(), rgb.step(), d, w, roi);
        ctx.report("nmqiRGBToYCoCg_8u_C3P3R", st, y.px.data(), y.px.size(), "ycocg_y.png");
        ctx.save("ycocg_y", y);
        ctx.save("ycocg_co", co);
        ctx.save("ycocg_cg", cg);
        const Nmq8u* s[3] = {y.px.data(), co.px.data(), cg.px.data()};
        st = nmqiYCoCgToRGB_8u_P3C3R(s, w, back.px.data(), back.step(), roi);
        ctx.report("nmqiYCoCgToRGB_8u_P3C3R", st, back.px.data(), back.px.size(), "ycocg_roundtrip.png");
        ctx.save("ycocg_roundtrip", back);
    }
    {  // YCoCg, lifting transform on 16s planes: the round trip is exact.
        // The test image is RGB; read as BGR both ways, the order cancels out.
        std::vector<Nmq16s> y(size_t(w) * h), co(y.size()), cg(y.size());
        demo::Image back(w, h, 3);
        Nmq16s* d[3] = {y.data(), co.data(), cg.data()};
        NmqStatus st = nmqiBGRToYCoCg_Rev_8u16s_C3P3R(rgb.px.data(), rgb.step(), d, 2 * w, roi);
        ctx.report("nmqiBGRToYCoCg_Rev_8u16s_C3P3R", st, y.data(), y.size() * sizeof(Nmq16s));
        const Nmq16s* s[3] = {y.data(), co.data(), cg.data()};
        st = nmqiYCoCgToBGR_Rev_16s8u_P3C3R(s, 2 * w, back.px.data(), back.step(), roi);
        ctx.report("nmqiYCoCgToBGR_Rev_16s8u_P3C3R", st, back.px.data(), back.px.size(), "ycocg_rev_roundtrip.png");
        ctx.save("ycocg_rev_roundtrip", back);
    }
}
