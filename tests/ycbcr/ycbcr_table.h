// The YCbCr exports as a table: how each is called, the layouts of its source
// and destination, its matrix and its odd-size status; decoders from those
// layouts to plain sample arrays; and references written from the formulas.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

namespace ycct {

// Layouts. RGB side: interleaved 3/4 bytes (A4k: alpha kept, A4w: alpha 0xFF
// written, and ignored as a source), planes, packed 16-bit BGR. YCbCr side:
// full-sampled interleaved or planes, packed 4:2:2, 4:2:2 / 4:2:0 / 4:1:1
// planes (Cr plane second for *CrCb), 4:2:0 two-plane.
enum class L {
    RGB3, BGR3, RGBA4k, BGRA4k, RGBA4w, BGRA4w, RGBP, B565, B555,
    Y3, Y4, YP, C2YCbCr, C2YCrCb, C2CbYCr, P422, P420, P420CrCb, NV, NVCrCb, P411
};
bool is_rgb(L l);

// Matrices: BT.601 (full-sampled inverse or subsampled inverse), BT.601 through
// the transfer curve at 2^15, 709CSC, 709HDTV.
enum class M { B601, B601Gamma, Csc, Hdtv };

// Plane pointers and steps as a call passes them; null_array replaces a
// pointer array by null.
struct Img {
    uint8_t* p[3] = {nullptr, nullptr, nullptr};
    int step[3] = {0, 0, 0};
    bool null_array = false;
};
using Call = std::function<NmqStatus(const Img& src, const Img& dst, ImageSize)>;

enum class OddRule { None, WidthOrHeight, Width, Width4 };

struct Export {
    std::string name;
    Call call;
    L src, dst;
    M m;
    OddRule odd;
    bool planes_first = false;  // plane pointers tested before the size
};
const std::vector<Export>& exports();

// Plane geometry of a layout for a w x h ROI: bytes per row and rows.
struct Geo {
    int bytes, rows;
};
std::vector<Geo> geometry(L l, int w, int h);

// Plain samples: RGB of every pixel, or Y and a chroma grid (cw x ch). -1 marks
// a sample a layout does not hold (the absent chroma of a lone 4:2:2 pixel).
struct Rgb {
    int w = 0, h = 0;
    std::vector<int> r, g, b, a;
};
struct Ycc {
    int w = 0, h = 0, cw = 0, ch = 0;
    std::vector<int> y, cb, cr;
};
Rgb decode_rgb(L l, const std::vector<nmqt::Plane>& p, int w, int h);
Ycc decode_ycc(L l, const std::vector<nmqt::Plane>& p, int w, int h);

// References, from the formulas.
Ycc ref_forward(M m, L dst, const Rgb& in);
Rgb ref_inverse(M m, L src, const Ycc& in);
// nmqiYCrCb420ToBGR_Filter_8u_P3C4R: odd rows take vertically filtered chroma.
Rgb ref_filter(const Ycc& in);

// Region a call converts: the even part for 4:2:0, else the whole ROI.
bool is420(L l);

}  // namespace ycct
