// nmqdemo [OUTDIR]: draws the test image, prints the version record, runs the
// image through each family and writes the results as PNG files, with a table
// of function, status and checksum.
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

#include "demo.h"

namespace demo {
namespace {
std::map<std::string, Fn>& registry() {
    static std::map<std::string, Fn> r;
    return r;
}

uint32_t fnv1a(const void* p, size_t n) {
    uint32_t h = 2166136261u;
    const auto* b = static_cast<const uint8_t*>(p);
    for (size_t i = 0; i < n; ++i) h = (h ^ b[i]) * 16777619u;
    return h;
}
}  // namespace

Register::Register(const char* name, Fn fn) { registry()[name] = fn; }

void Context::report(const std::string& function, NmqStatus st, const void* data, size_t bytes, const std::string& file) {
    std::printf("%-48s %5d  %08x  %s\n", function.c_str(), int(st), data ? fnv1a(data, bytes) : 0u, file.c_str());
}

void Context::save(const std::string& name, const Image& img) {
    const std::string path = outdir + "/" + name + ".png";
    if (!write_png(path, img)) std::fprintf(stderr, "cannot write %s\n", path.c_str());
}

Image test_image(int w, int h) {
    Image img(w, h, 3);
    static const uint8_t bars[8][3] = {{255, 255, 255}, {255, 255, 0}, {0, 255, 255}, {0, 255, 0},
                                       {255, 0, 255},   {255, 0, 0},   {0, 0, 255},   {0, 0, 0}};
    for (int y = 0; y < h; ++y) {
        uint8_t* r = img.row(y);
        for (int x = 0; x < w; ++x) {
            uint8_t* p = r + 3 * x;
            if (y < h / 3) {  // colour bars
                const uint8_t* c = bars[std::min(7, x * 8 / w)];
                p[0] = c[0]; p[1] = c[1]; p[2] = c[2];
            } else if (y < 2 * h / 3) {  // gradients: hue sweep over a gray ramp
                const double t = double(x) / (w - 1), v = double(y - h / 3) / (h / 3);
                p[0] = uint8_t(std::lround(255 * (0.5 + 0.5 * std::cos(6.2832 * t)) * (1 - v) + 255 * t * v));
                p[1] = uint8_t(std::lround(255 * (0.5 + 0.5 * std::cos(6.2832 * (t - 1.0 / 3))) * (1 - v) + 255 * t * v));
                p[2] = uint8_t(std::lround(255 * (0.5 + 0.5 * std::cos(6.2832 * (t - 2.0 / 3))) * (1 - v) + 255 * t * v));
            } else {  // zone plate
                const double cx = x - w / 2.0, cy = y - 5 * h / 6.0;
                const double z = 0.5 + 0.5 * std::cos((cx * cx + cy * cy) * 3.14159 / (w * 1.5));
                p[0] = p[1] = p[2] = uint8_t(std::lround(255 * z));
            }
        }
    }
    return img;
}

}  // namespace demo

int main(int argc, char** argv) {
    demo::Context ctx;
    ctx.outdir = argc > 1 ? argv[1] : "demo-out";
    mkdir(ctx.outdir.c_str(), 0755);
    const NmqLibVersion* v = nmqccGetLibVersion();
    std::printf("%s %s, built %s, cpu tag \"%s\" (%d.%d.%d r%d)\n\n", v->name, v->version, v->buildDate, v->cpuTag,
                v->major, v->minor, v->update, v->revision);
    ctx.rgb = demo::test_image(640, 480);
    ctx.save("test_image", ctx.rgb);
    std::printf("%-48s %5s  %-8s  %s\n", "function", "status", "checksum", "file");
    for (auto& [name, fn] : demo::registry()) fn(ctx);
    std::printf("\nimages written to %s/\n", ctx.outdir.c_str());
    return 0;
}
