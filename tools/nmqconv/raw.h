// Raw frame formats: YUV/YCbCr planes, packed 4:2:2, packed 16-bit RGB and
// Bayer mosaics, one frame after another in a file without a header.
#pragma once

#include <string>
#include <vector>

#include "image.h"

namespace conv {

enum class Layout { C3, P3, P2, C2, Word16, Mosaic8, Mosaic16 };

struct Rect {
    int x = 0, y = 0, w = 0, h = 0;
};

// Where each plane of one frame lies.
struct Geometry {
    int planes = 1;
    size_t offset[3] = {0, 0, 0};
    int step[3] = {0, 0, 0};
    size_t bytes = 0;
};

struct EncodeOptions {
    bool dither = false;  // ordered dither of the packed 16-bit outputs
};

struct RawFormat {
    const char* name;
    const char* desc;
    Layout layout;
    int cx, cy;        // chroma sampling period (planar and two-plane layouts)
    int ax, ay;        // width, height and ROI origin must be multiples of these
    const char* dec;   // library functions used to read the format ...
    const char* enc;   // ... and to write it
    const char* enc_dither;  // to write it with --dither bayer (or null)
    int grid;          // mosaics: Bayer grid code
    // frame -> RGB (8-bit; 16-bit for 16-bit mosaics), reading `roi`
    Image (*decode)(const RawFormat&, const uint8_t* frame, const Geometry&, int w, int h, const Rect& roi);
    // RGB -> frame (8-bit RGB, or 16-bit RGB for 16-bit mosaics)
    void (*encode)(const RawFormat&, const View& rgb, uint8_t* frame, const Geometry&, const EncodeOptions&);
};

const std::vector<RawFormat>& raw_formats();
const RawFormat* find_raw(const std::string& name);
Geometry geometry(const RawFormat& f, int w, int h);
Depth raw_depth(const RawFormat& f);  // depth of the decoded image / encoder input

}  // namespace conv
