// YUV: the test image through RGB to YUV at full sampling, 4:2:2 and 4:2:0
// and back to RGB; each round trip is written as PNG (the 4:2:0 one also as
// BGR read back, and the YUV planes of 4:2:0 as gray images).
#include <vector>

#include "demo.h"

NMQ_DEMO(yuv) {
    const int w = ctx.rgb.w, h = ctx.rgb.h, cw = (w + 1) / 2;
    const ImageSize roi{w, h};
    const demo::Image& rgb = ctx.rgb;

    {  // 4:4:4, interleaved
        demo::Image yuv(w, h, 3), back(w, h, 3);
        NmqStatus st = nmqiRGBToYUV_8u_C3R(rgb.px.data(), rgb.step(), yuv.px.data(), yuv.step(), roi);
        ctx.report("nmqiRGBToYUV_8u_C3R", st, yuv.px.data(), yuv.px.size());
        st = nmqiYUVToRGB_8u_C3R(yuv.px.data(), yuv.step(), back.px.data(), back.step(), roi);
        ctx.report("nmqiYUVToRGB_8u_C3R", st, back.px.data(), back.px.size(), "yuv444_roundtrip.png");
        ctx.save("yuv444_roundtrip", back);
    }
    {  // 4:2:2, interleaved Y0 U Y1 V
        std::vector<Nmq8u> yuyv(size_t(w) * h * 2);
        demo::Image back(w, h, 3);
        NmqStatus st = nmqiRGBToYUV422_8u_C3C2R(rgb.px.data(), rgb.step(), yuyv.data(), 2 * w, roi);
        ctx.report("nmqiRGBToYUV422_8u_C3C2R", st, yuyv.data(), yuyv.size());
        st = nmqiYUV422ToRGB_8u_C2C3R(yuyv.data(), 2 * w, back.px.data(), back.step(), roi);
        ctx.report("nmqiYUV422ToRGB_8u_C2C3R", st, back.px.data(), back.px.size(), "yuv422_roundtrip.png");
        ctx.save("yuv422_roundtrip", back);
    }
    {  // 4:2:0, planar
        demo::Image y(w, h, 1), u(cw, (h + 1) / 2, 1), v(cw, (h + 1) / 2, 1), back(w, h, 3), bgr(w, h, 3);
        Nmq8u* d[3] = {y.px.data(), u.px.data(), v.px.data()};
        int ds[3] = {w, cw, cw};
        NmqStatus st = nmqiRGBToYUV420_8u_C3P3R(rgb.px.data(), rgb.step(), d, ds, roi);
        ctx.report("nmqiRGBToYUV420_8u_C3P3R", st, y.px.data(), y.px.size(), "yuv420_y.png");
        ctx.save("yuv420_y", y);
        ctx.save("yuv420_u", u);
        ctx.save("yuv420_v", v);
        const Nmq8u* s[3] = {y.px.data(), u.px.data(), v.px.data()};
        st = nmqiYUV420ToRGB_8u_P3C3R(s, ds, back.px.data(), back.step(), roi);
        ctx.report("nmqiYUV420ToRGB_8u_P3C3R", st, back.px.data(), back.px.size(), "yuv420_roundtrip.png");
        ctx.save("yuv420_roundtrip", back);
        // The BGR output read as RGB shows red and blue exchanged.
        st = nmqiYUV420ToBGR_8u_P3C3R(s, ds, bgr.px.data(), bgr.step(), roi);
        ctx.report("nmqiYUV420ToBGR_8u_P3C3R", st, bgr.px.data(), bgr.px.size(), "yuv420_bgr_as_rgb.png");
        ctx.save("yuv420_bgr_as_rgb", bgr);
    }
}
