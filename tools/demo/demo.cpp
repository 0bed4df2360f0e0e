// The demo: draws the test image, prints the version record, runs the image
// through each family, writes the results as PNG files with a table of
// function, status and checksum, and an HTML contact sheet of the pictures.
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
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

const char* status_name(NmqStatus st) {
    switch (st) {
    case nmqStsOk: return "nmqStsOk";
    case nmqStsNegativeLevel: return "nmqStsNegativeLevel";
    case nmqStsOddSize: return "nmqStsOddSize";
    case nmqStsBadArg: return "nmqStsBadArg";
    case nmqStsSize: return "nmqStsSize";
    case nmqStsNullPtr: return "nmqStsNullPtr";
    case nmqStsNoMemory: return "nmqStsNoMemory";
    case nmqStsStep: return "nmqStsStep";
    case nmqStsWrongContext: return "nmqStsWrongContext";
    case nmqStsGammaRange: return "nmqStsGammaRange";
    case nmqStsLevelsRange: return "nmqStsLevelsRange";
    case nmqStsNoiseRange: return "nmqStsNoiseRange";
    case nmqStsDitherKindUnsupported: return "nmqStsDitherKindUnsupported";
    default: return "unknown status";
    }
}

void Context::report(const std::string& function, NmqStatus st, const void* data, size_t bytes, const std::string& file) {
    const uint32_t sum = data ? fnv1a(data, bytes) : 0u;
    if (!quiet) std::printf("%-48s %5d  %08x  %s\n", function.c_str(), int(st), sum, file.c_str());
    calls.push_back(Call{family, function, file, st, sum});
    // A picture saved before its report takes the report now.
    for (Picture& p : pictures)
        if (!file.empty() && p.file == file && p.family == family) {
            p.function = function;
            p.status = st;
            p.has_call = true;
        }
}

void Context::save(const std::string& name, const Image& img) {
    const std::string path = outdir + "/" + name + ".png";
    if (!write_png(path, img)) std::fprintf(stderr, "cannot write %s\n", path.c_str());
    Picture pic{family, name + ".png", "", img.w, img.h, 0, false};
    // The call that made it: the report naming the file, or else the family's
    // latest report (planes saved one by one after a single call).
    const Call* maker = nullptr;
    for (const Call& c : calls)
        if (c.family == family && c.file == pic.file) maker = &c;
    if (!maker)
        for (const Call& c : calls)
            if (c.family == family) maker = &c;
    if (maker) {
        pic.function = maker->function;
        pic.status = maker->status;
        pic.has_call = true;
    }
    pictures.push_back(pic);
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

namespace {

std::string html_escape(const std::string& s) {
    std::string o;
    for (char c : s) {
        if (c == '<') o += "&lt;";
        else if (c == '>') o += "&gt;";
        else if (c == '&') o += "&amp;";
        else if (c == '"') o += "&quot;";
        else o += c;
    }
    return o;
}

std::string status_html(NmqStatus st) {
    const char* cls = st < 0 ? "err" : st > 0 ? "warn" : "ok";
    return std::string("<span class=\"") + cls + "\">status " + std::to_string(st) + " " + status_name(st) + "</span>";
}

// The contact sheet: one section per family, a figure per picture with the
// function and status under it, then the family's calls without a picture.
bool write_sheet(const Context& ctx, const NmqLibVersion* v) {
    const std::string path = ctx.outdir + "/index.html";
    FILE* f = std::fopen(path.c_str(), "w");
    if (!f) return false;
    std::fprintf(f,
                 "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                 "<title>nmqcc contact sheet</title>\n<style>\n"
                 "body{font-family:sans-serif;margin:16px;background:#f4f4f4;color:#222}\n"
                 "h1{font-size:20px}h2{font-size:17px;margin:22px 0 8px;border-bottom:1px solid #bbb}\n"
                 ".grid{display:flex;flex-wrap:wrap;gap:10px}\n"
                 "figure{margin:0;padding:6px;background:#fff;border:1px solid #ccc;width:320px}\n"
                 "figure img{display:block;width:320px;height:auto}\n"
                 "figcaption{font-size:12px;margin-top:4px;word-break:break-all}\n"
                 ".file{color:#666}.ok{color:#176317}.warn{color:#8a5a00}.err{color:#b00020;font-weight:bold}\n"
                 "table{border-collapse:collapse;font-size:12px;margin-top:8px}"
                 "td,th{border:1px solid #ccc;padding:2px 6px;text-align:left;background:#fff}\n"
                 "</style>\n</head>\n<body>\n");
    std::fprintf(f, "<h1>nmqcc contact sheet</h1>\n<p>%s %s, built %s. The built-in %dx%d test image through each "
                    "family; under each picture the function that made it and its status.</p>\n",
                 html_escape(v->name).c_str(), html_escape(v->version).c_str(), html_escape(v->buildDate).c_str(),
                 ctx.rgb.w, ctx.rgb.h);
    std::vector<std::string> families;
    for (const Picture& p : ctx.pictures)
        if (std::find(families.begin(), families.end(), p.family) == families.end()) families.push_back(p.family);
    for (const Call& c : ctx.calls)
        if (std::find(families.begin(), families.end(), c.family) == families.end()) families.push_back(c.family);
    for (const std::string& fam : families) {
        std::fprintf(f, "<h2>%s</h2>\n<div class=\"grid\">\n", html_escape(fam.empty() ? "test image" : fam).c_str());
        for (const Picture& p : ctx.pictures) {
            if (p.family != fam) continue;
            const int h = p.w > 0 ? 320 * p.h / p.w : 240;
            // Thumbnails are smoothed (a nearest-pixel reduction would alias the
            // dither patterns into false tones); the full size is one click away.
            std::fprintf(f, "<figure><a href=\"%s\"><img src=\"%s\" width=\"320\" height=\"%d\" alt=\"%s\"></a>"
                            "<figcaption>",
                         html_escape(p.file).c_str(), html_escape(p.file).c_str(), h, html_escape(p.file).c_str());
            if (p.has_call)
                std::fprintf(f, "<code>%s</code><br>%s", html_escape(p.function).c_str(), status_html(p.status).c_str());
            else
                std::fprintf(f, "drawn by the demo");
            std::fprintf(f, "<br><span class=\"file\">%s</span></figcaption></figure>\n", html_escape(p.file).c_str());
        }
        std::fprintf(f, "</div>\n");
        bool header = false;
        for (const Call& c : ctx.calls) {
            if (c.family != fam) continue;
            bool shown = false;
            for (const Picture& p : ctx.pictures) shown |= p.family == fam && p.has_call && p.function == c.function;
            if (shown) continue;
            if (!header) std::fprintf(f, "<table><tr><th>call without a picture</th><th>status</th><th>checksum</th></tr>\n");
            header = true;
            std::fprintf(f, "<tr><td><code>%s</code></td><td>%s</td><td><code>%08x</code></td></tr>\n",
                         html_escape(c.function).c_str(), status_html(c.status).c_str(), c.checksum);
        }
        if (header) std::fprintf(f, "</table>\n");
    }
    std::fprintf(f, "</body>\n</html>\n");
    return std::fclose(f) == 0;
}

}  // namespace

int run(const std::string& outdir, bool quiet) {
    Context ctx;
    ctx.outdir = outdir;
    ctx.quiet = quiet;
    if (mkdir(outdir.c_str(), 0755) != 0 && errno != EEXIST) {
        std::fprintf(stderr, "cannot create %s: %s\n", outdir.c_str(), std::strerror(errno));
        return 1;
    }
    const NmqLibVersion* v = nmqccGetLibVersion();
    if (!quiet)
        std::printf("%s %s, built %s, cpu tag \"%s\" (%d.%d.%d r%d)\n\n", v->name, v->version, v->buildDate,
                    v->cpuTag, v->major, v->minor, v->update, v->revision);
    ctx.rgb = test_image(640, 480);
    ctx.save("test_image", ctx.rgb);
    if (!quiet) std::printf("%-48s %5s  %-8s  %s\n", "function", "status", "checksum", "file");
    for (auto& [name, fn] : registry()) {
        ctx.family = name;
        fn(ctx);
    }
    if (!write_sheet(ctx, v)) {
        std::fprintf(stderr, "cannot write %s/index.html\n", outdir.c_str());
        return 1;
    }
    if (!quiet)
        std::printf("\n%zu pictures written to %s/, contact sheet %s/index.html\n", ctx.pictures.size(),
                    outdir.c_str(), outdir.c_str());
    return 0;
}

}  // namespace demo
