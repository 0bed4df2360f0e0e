// Bit-depth reduction: the test image reduced to 2 and 4 levels per channel
// with each dither kind (none, Floyd-Steinberg, Jarvis-Judice-Ninke, Stucki,
// Bayer), and to one bit per pixel from its green channel.
#include <string>
#include <vector>

#include "demo.h"

NMQ_DEMO(reduce) {
    static const char* const kKinds[5] = {"none", "fs", "jjn", "stucki", "bayer"};
    const int w = ctx.rgb.w, h = ctx.rgb.h;
    for (int levels : {2, 4}) {
        for (int kind = 0; kind < 5; ++kind) {
            demo::Image out(w, h, 3);
            const NmqStatus st = nmqiReduceBits_8u_C3R(ctx.rgb.px.data(), ctx.rgb.step(), out.px.data(), out.step(),
                                                       ImageSize{w, h}, 0, kind, levels);
            const std::string name = "reduce_" + std::to_string(levels) + "_" + kKinds[kind];
            ctx.report("nmqiReduceBits_8u_C3R " + std::to_string(levels) + "lv " + kKinds[kind], st,
                       out.px.data(), out.px.size(), name + ".png");
            ctx.save(name, out);
        }
    }
    // One bit per pixel, shown as black and white.
    std::vector<Nmq8u> green(size_t(w) * h), bits(size_t((w + 7) / 8) * h);
    for (size_t i = 0; i < green.size(); ++i) green[i] = ctx.rgb.px[3 * i + 1];
    for (int kind : {0, 3}) {
        const NmqStatus st = nmqiReduceBits_8u1u_C1R(green.data(), w, bits.data(), (w + 7) / 8, 0, ImageSize{w, h},
                                                     0, 0, kind, 127);
        demo::Image view(w, h, 1);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                view.row(y)[x] = (bits[size_t(y) * ((w + 7) / 8) + x / 8] >> (7 - x % 8)) & 1 ? 255 : 0;
        const std::string name = std::string("reduce_1u_") + kKinds[kind];
        ctx.report(std::string("nmqiReduceBits_8u1u_C1R ") + kKinds[kind], st, bits.data(), bits.size(),
                   name + ".png");
        ctx.save(name, view);
    }
}
