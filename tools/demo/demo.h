// The demo: a built-in test image run through every family of the library.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "nmqcc.h"

namespace demo {

// An 8-bit interleaved image.
struct Image {
    int w = 0, h = 0, ch = 3;
    std::vector<uint8_t> px;
    Image() = default;
    Image(int w_, int h_, int ch_) : w(w_), h(h_), ch(ch_), px(size_t(w_) * h_ * ch_) {}
    uint8_t* row(int y) { return px.data() + size_t(y) * w * ch; }
    int step() const { return w * ch; }
};

// Colour bars, gradients and a zone plate, drawn in code.
Image test_image(int w, int h);

// Writes an 8-bit gray, RGB or RGBA image as PNG; false on failure.
bool write_png(const std::string& path, const Image& img);

// The name of a status code ("nmqStsOk", "nmqStsOddSize", ...).
const char* status_name(NmqStatus st);

// A picture the demo wrote, with the call that made it.
struct Picture {
    std::string family, file, function;
    int w = 0, h = 0;
    NmqStatus status = 0;
    bool has_call = false;
};

// One library call the demo reported.
struct Call {
    std::string family, function, file;
    NmqStatus status = 0;
    uint32_t checksum = 0;
};

// What a family's demo reports: one line of the summary table per call. Every
// saved picture is recorded with the call that made it (the report naming its
// file, or else the family's latest report) for the contact sheet.
struct Context {
    std::string outdir;
    Image rgb;           // the test image, RGB
    std::string family;  // the demo running now
    std::vector<Picture> pictures;
    std::vector<Call> calls;
    bool quiet = false;  // no table on stdout
    void report(const std::string& function, NmqStatus st, const void* data, size_t bytes, const std::string& file = "");
    void save(const std::string& name, const Image& img);  // writes outdir/name.png
};

// Runs every family's demo into outdir and writes outdir/index.html, the
// contact sheet. Returns 0, or 1 when a picture could not be written.
int run(const std::string& outdir, bool quiet = false);

// A family's demo: registered once by a file of the demo, run in name order.
using Fn = void (*)(Context&);
struct Register {
    Register(const char* name, Fn fn);
};

}  // namespace demo

#define NMQ_DEMO(name)                                          \
    static void demo_##name(demo::Context&);                    \
    static demo::Register demo_reg_##name(#name, demo_##name);  \
    static void demo_##name(demo::Context& ctx)
