// Packed 16-bit RGB: the test image through YCbCr 4:2:0 to RGB565 with and
// without dither, widened back to 8 bits, and the same at 444 with a 4x
// enlarged crop, where the 4x4 dither pattern is plain to see.
#include <vector>

#include "demo.h"

namespace {

// 444 words (R lowest) to RGB bytes, each field times 17.
demo::Image from444(const std::vector<Nmq16u>& words, int w, int h) {
    demo::Image out(w, h, 3);
    for (size_t i = 0; i < words.size(); ++i)
        for (int c = 0; c < 3; ++c) out.px[3 * i + c] = Nmq8u(((words[i] >> (4 * c)) & 15) * 17);
    return out;
}

// A quarter-size crop of the colour gradients (below the bars), each pixel
// drawn as a 4x4 block.
demo::Image zoom(const demo::Image& in) {
    const int x0 = in.w * 3 / 8, y0 = in.h * 2 / 5;
    demo::Image out(in.w, in.h, 3);
    for (int y = 0; y < out.h; ++y)
        for (int x = 0; x < out.w; ++x)
            for (int c = 0; c < 3; ++c)
                out.px[(size_t(y) * out.w + x) * 3 + c] = in.px[(size_t(y0 + y / 4) * in.w + x0 + x / 4) * 3 + c];
    return out;
}

}  // namespace

NMQ_DEMO(packed16) {
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageSize roi{w, h};
    std::vector<Nmq8u> y(size_t(w) * h), cb(size_t(w / 2) * (h / 2)), cr(cb.size());
    Nmq8u* const planes[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {w, w / 2, w / 2};
    NmqStatus st = nmqiRGBToYCbCr420_8u_C3P3R(ctx.rgb.px.data(), ctx.rgb.step(), planes, steps, roi);
    ctx.report("nmqiRGBToYCbCr420_8u_C3P3R", st, y.data(), y.size());
    const Nmq8u* const in[3] = {y.data(), cb.data(), cr.data()};

    std::vector<Nmq16u> words(size_t(w) * h);
    struct Out565 {
        const char* function;
        NmqStatus (*f)(const Nmq8u* const[3], const int[3], Nmq16u*, int, ImageSize);
        const char* file;
    };
    const Out565 outs[] = {
        {"nmqiYCbCr420ToRGB565_8u16u_P3C3R", nmqiYCbCr420ToRGB565_8u16u_P3C3R, "packed16_rgb565"},
        {"nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R", nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R, "packed16_rgb565_dither"},
    };
    for (const Out565& o : outs) {
        st = o.f(in, steps, words.data(), 2 * w, roi);
        ctx.report(o.function, st, words.data(), words.size() * 2, std::string(o.file) + ".png");
        demo::Image back(w, h, 3);
        st = nmqiRGB565ToRGB_16u8u_C3R(words.data(), 2 * w, back.px.data(), back.step(), roi);
        ctx.report("nmqiRGB565ToRGB_16u8u_C3R", st, back.px.data(), back.px.size());
        ctx.save(o.file, back);
    }

    // 4 bits per channel: the dither is coarse enough to see at 4x.
    st = nmqiYCbCr420ToRGB444_8u16u_P3C3R(in, steps, words.data(), 2 * w, roi);
    ctx.report("nmqiYCbCr420ToRGB444_8u16u_P3C3R", st, words.data(), words.size() * 2, "packed16_rgb444_zoom.png");
    ctx.save("packed16_rgb444_zoom", zoom(from444(words, w, h)));
    st = nmqiYCbCr420ToRGB444Dither_8u16u_P3C3R(in, steps, words.data(), 2 * w, roi);
    ctx.report("nmqiYCbCr420ToRGB444Dither_8u16u_P3C3R", st, words.data(), words.size() * 2,
               "packed16_rgb444_dither_zoom.png");
    ctx.save("packed16_rgb444_dither_zoom", zoom(from444(words, w, h)));
}
