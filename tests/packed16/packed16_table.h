// The packed 16-bit exports as a table (how each is called, its layouts, word
// format and colour rule) and a reference of every output written from the
// formulas, independent of the library's kernels.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

namespace p16t {

// Source and destination layouts. YCbCr: interleaved full-sampled (Y3),
// planes sharing one step (YP), packed 4:2:2 Y0 Cb Y1 Cr (C2), subsampled
// planes; 8-bit RGB/BGR bytes; 16-bit words; Y, Cr, Cb 4:2:0 planes.
enum class L { Y3, YP, C2, P422, P420, P411, Bytes3, Words, P420CrCb };

// Colour rule of the source: BT.601 full-sampled or subsampled inverse, the
// 4-fractional-bit dithered inverse, YUV, or none (repacking, inputs).
enum class M { Full, Sub, Q4, Yuv, None };

struct Fmt {
    int outer, mid;  // field bits: 5/6, 5/5, 4/4
    bool bgr;        // R in the high field
};

struct Img {
    uint8_t* p[3] = {nullptr, nullptr, nullptr};
    int step[3] = {0, 0, 0};
    bool null_array = false;      // pass a null pointer array
    bool null_steps = false;      // pass a null step array
};
using Call = std::function<NmqStatus(const Img& src, const Img& dst, ImageSize)>;

struct Export {
    std::string name;
    Call call;
    L src, dst;
    M m;
    Fmt f;
    bool dither;
};
const std::vector<Export>& exports();

struct Geo {
    int bytes, rows;
};
std::vector<Geo> geometry(L l, int w, int h);

// The expected destination planes (row-major ROI bytes, -1 where a byte must
// keep its old value) for the source planes given.
std::vector<std::vector<int>> reference(const Export& e, const std::vector<nmqt::Plane>& src, int w, int h);

// The word of 8-bit R, G, B at ROI position (x, y), written from the rules.
uint16_t ref_word(int r, int g, int b, Fmt f, bool dither, int x, int y);

}  // namespace p16t
