// Colour-filter-array interpolation: the test image is sampled through each
// of the four Bayer patterns, as a sensor would see it, and rebuilt to RGB.
#include <vector>

#include "demo.h"

NMQ_DEMO(bayer) {
    static const char* const kNames[4] = {"BGGR", "RGGB", "GBRG", "GRBG"};
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageRect all{0, 0, w, h};
    for (int grid = 0; grid < 4; ++grid) {
        // The mosaic keeps, at each pixel, the one channel its filter passes.
        std::vector<Nmq8u> mosaic(size_t(w) * h);
        std::vector<Nmq16u> mosaic16(mosaic.size());
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const char c = kNames[grid][(y & 1) * 2 + (x & 1)];
                const int ch = c == 'R' ? 0 : c == 'G' ? 1 : 2;
                const size_t i = size_t(y) * w + x;
                mosaic[i] = ctx.rgb.row(y)[3 * x + ch];
                mosaic16[i] = Nmq16u(mosaic[i] * 257);
            }
        const std::string name = std::string("cfa_") + kNames[grid];

        demo::Image out(w, h, 3);
        NmqStatus st = nmqiCFAToRGB_8u_C1C3R(mosaic.data(), all, ImageSize{w, h}, w, out.px.data(), out.step(), grid);
        ctx.report(std::string("nmqiCFAToRGB_8u_C1C3R ") + kNames[grid], st, out.px.data(), out.px.size(),
                   name + ".png");
        ctx.save(name, out);

        // The 16-bit member on the same scene scaled to 16 bits, shown by its high bytes.
        std::vector<Nmq16u> out16(size_t(w) * h * 3);
        st = nmqiCFAToRGB_16u_C1C3R(mosaic16.data(), all, ImageSize{w, h}, 2 * w, out16.data(), 6 * w, grid);
        demo::Image view(w, h, 3);
        for (size_t i = 0; i < out16.size(); ++i) view.px[i] = Nmq8u(out16[i] >> 8);
        ctx.report(std::string("nmqiCFAToRGB_16u_C1C3R ") + kNames[grid], st, out16.data(), out16.size() * 2,
                   name + "_16u.png");
        ctx.save(name + "_16u", view);
    }
}
