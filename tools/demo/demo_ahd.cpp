// Adaptive demosaicing: the test image is sampled through each of the four
// Bayer patterns and rebuilt by nmqiDemosaicAHD_8u_C1C3R and, for
// comparison, nmqiCFAToRGB_8u_C1C3R; the 16-bit member runs on the RGGB
// mosaic. The PSNR of each against the original is printed in the report
// line's function text.
#include <cmath>
#include <cstdio>
#include <vector>

#include "demo.h"

namespace {

double psnr(const demo::Image& a, const demo::Image& b) {
    double se = 0;
    for (size_t i = 0; i < a.px.size(); ++i) {
        const double d = double(a.px[i]) - double(b.px[i]);
        se += d * d;
    }
    return se == 0 ? 99.0 : 10 * std::log10(255.0 * 255.0 * double(a.px.size()) / se);
}

}  // namespace

NMQ_DEMO(ahd) {
    static const char* const kNames[4] = {"BGGR", "RGGB", "GBRG", "GRBG"};
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    const ImageRect all{0, 0, w, h};
    for (int grid = 0; grid < 4; ++grid) {
        std::vector<Nmq8u> mosaic(size_t(w) * h);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const char c = kNames[grid][(y & 1) * 2 + (x & 1)];
                mosaic[size_t(y) * w + x] = ctx.rgb.row(y)[3 * x + (c == 'R' ? 0 : c == 'G' ? 1 : 2)];
            }
        demo::Image out(w, h, 3), lin(w, h, 3);
        const NmqStatus st = nmqiDemosaicAHD_8u_C1C3R(mosaic.data(), all, ImageSize{w, h}, w, out.px.data(), out.step(), grid);
        nmqiCFAToRGB_8u_C1C3R(mosaic.data(), all, ImageSize{w, h}, w, lin.px.data(), lin.step(), grid);
        char what[160];
        std::snprintf(what, sizeof what, "nmqiDemosaicAHD_8u_C1C3R %s (PSNR %.2f dB; nmqiCFAToRGB_8u_C1C3R %.2f dB)",
                      kNames[grid], psnr(out, ctx.rgb), psnr(lin, ctx.rgb));
        const std::string name = std::string("ahd_") + kNames[grid];
        ctx.report(what, st, out.px.data(), out.px.size(), name + ".png");
        ctx.save(name, out);

        if (grid == nmqBayerRGGB) {
            // The 16-bit member on the same scene scaled to 16 bits, shown by its high bytes.
            std::vector<Nmq16u> m16(mosaic.size()), out16(size_t(w) * h * 3);
            for (size_t i = 0; i < mosaic.size(); ++i) m16[i] = Nmq16u(mosaic[i] * 257);
            const NmqStatus s16 =
                nmqiDemosaicAHD_16u_C1C3R(m16.data(), all, ImageSize{w, h}, 2 * w, out16.data(), 6 * w, grid);
            demo::Image view(w, h, 3);
            for (size_t i = 0; i < out16.size(); ++i) view.px[i] = Nmq8u(out16[i] >> 8);
            ctx.report("nmqiDemosaicAHD_16u_C1C3R RGGB", s16, out16.data(), out16.size() * 2, name + "_16u.png");
            ctx.save(name + "_16u", view);
        }
    }
}
