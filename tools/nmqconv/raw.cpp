// The raw formats and the library calls that read and write each of them.
// A decoder hands the library the frame's planes at the ROI (first pixel,
// step) and the ROI size; an encoder writes a whole frame.
#include "raw.h"

#include <cstring>

#include "lib.h"

namespace conv {
namespace {

// Plane pointers of a frame at luma pixel (x, y).
struct Planes {
    const Nmq8u* c[3] = {nullptr, nullptr, nullptr};
    Nmq8u* m[3] = {nullptr, nullptr, nullptr};
    int step[3] = {0, 0, 0};
};

int luma_bytes(Layout l) {
    switch (l) {
    case Layout::C3: return 3;
    case Layout::C2: case Layout::Word16: case Layout::Mosaic16: return 2;
    default: return 1;
    }
}

Planes planes_at(const RawFormat& f, const uint8_t* frame, const Geometry& g, int x, int y) {
    Planes p;
    for (int k = 0; k < g.planes; ++k) {
        size_t off = g.offset[k];
        if (k == 0)
            off += size_t(y) * size_t(g.step[0]) + size_t(x) * size_t(luma_bytes(f.layout));
        else
            off += size_t(y / f.cy) * size_t(g.step[k]) + size_t(x / f.cx) * (f.layout == Layout::P2 ? 2 : 1);
        p.c[k] = frame + off;
        p.m[k] = const_cast<uint8_t*>(frame) + off;
        p.step[k] = g.step[k];
    }
    return p;
}

Image rgb_out(const Rect& r) { return Image(r.w, r.h, 3, Depth::U8); }

// RGBA copy of an RGB view, alpha 255, for the forms that read four channels.
Image with_alpha(const View& v) {
    Image out(v.w, v.h, 4, Depth::U8);
    for (int y = 0; y < v.h; ++y) {
        const uint8_t* s = v.p + size_t(y) * v.step;
        uint8_t* d = out.row(y);
        for (int x = 0; x < v.w; ++x) {
            std::memcpy(d + 4 * x, s + 3 * x, 3);
            d[4 * x + 3] = 255;
        }
    }
    return out;
}

Image drop_alpha(const Image& rgba) {
    Image out(rgba.w, rgba.h, 3, Depth::U8);
    for (size_t i = 0; i < size_t(rgba.w) * rgba.h; ++i) std::memcpy(&out.px[3 * i], &rgba.px[4 * i], 3);
    return out;
}

// ---- decoders ------------------------------------------------------------------

#define DECODER(name) Image name(const RawFormat& f, const uint8_t* frame, const Geometry& g, int, int, const Rect& r)
#define PLANES const Planes p = planes_at(f, frame, g, r.x, r.y); Image o = rgb_out(r); const ImageSize sz{r.w, r.h}; (void)sz

DECODER(dec_yuv444) { PLANES; LIB(nmqiYUVToRGB_8u_C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_yuv444p) { PLANES; LIB(nmqiYUVToRGB_8u_P3C3R, p.c, p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_yuv422) { PLANES; LIB(nmqiYUV422ToRGB_8u_C2C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_yuv422p) { PLANES; LIB(nmqiYUV422ToRGB_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz); return o; }
DECODER(dec_yuv420p) { PLANES; LIB(nmqiYUV420ToRGB_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycc444) { PLANES; LIB(nmqiYCbCrToRGB_8u_C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycc444p) { PLANES; LIB(nmqiYCbCrToRGB_8u_P3C3R, p.c, p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycbcr422) { PLANES; LIB(nmqiYCbCr422ToRGB_8u_C2C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycrcb422) { PLANES; LIB(nmqiYCrCb422ToRGB_8u_C2C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_cbycr422) { PLANES; LIB(nmqiCbYCr422ToRGB_8u_C2C3R, p.c[0], p.step[0], o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycc422p) { PLANES; LIB(nmqiYCbCr422ToRGB_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycc420p) { PLANES; LIB(nmqiYCbCr420ToRGB_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz); return o; }
DECODER(dec_ycrcb420p) {
    PLANES;
    Image rgba(r.w, r.h, 4, Depth::U8);
    LIB(nmqiYCrCb420ToRGB_8u_P3C4R, p.c, p.step, rgba.px.data(), rgba.step(), sz);
    return o = drop_alpha(rgba);
}
DECODER(dec_nv12) {
    PLANES;
    LIB(nmqiYCbCr420ToRGB_8u_P2C3R, p.c[0], p.step[0], p.c[1], p.step[1], o.px.data(), o.step(), sz);
    return o;
}
DECODER(dec_nv21) {
    PLANES;
    LIB(nmqiYCrCb420ToRGB_8u_P2C3R, p.c[0], p.step[0], p.c[1], p.step[1], o.px.data(), o.step(), sz);
    return o;
}
DECODER(dec_ycc411p) {
    PLANES;
    LIB(nmqiYCbCr411ToBGR_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz);
    return swap_rb(view_of(o));
}
DECODER(dec_ycc411sp) {
    PLANES;
    // Two planes to three, then to BGR.
    const int cw = r.w / 4;
    std::vector<Nmq8u> y(size_t(r.w) * r.h), cb(size_t(cw) * r.h), cr(cb.size());
    Nmq8u* const dst[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {r.w, cw, cw};
    LIB(nmqiYCbCr411_8u_P2P3R, p.c[0], p.step[0], p.c[1], p.step[1], dst, steps, sz);
    const Nmq8u* const src[3] = {y.data(), cb.data(), cr.data()};
    LIB(nmqiYCbCr411ToBGR_8u_P3C3R, src, steps, o.px.data(), o.step(), sz);
    return swap_rb(view_of(o));
}
DECODER(dec_709) {
    PLANES;
    LIB(nmqiYCbCr420ToBGR_709CSC_8u_P3C3R, p.c, p.step, o.px.data(), o.step(), sz);
    return swap_rb(view_of(o));
}
DECODER(dec_rgb565) {
    PLANES;
    LIB(nmqiRGB565ToRGB_16u8u_C3R, reinterpret_cast<const Nmq16u*>(p.c[0]), p.step[0], o.px.data(), o.step(), sz);
    return o;
}
DECODER(dec_bgr565) {
    PLANES;
    LIB(nmqiBGR565ToBGR_16u8u_C3R, reinterpret_cast<const Nmq16u*>(p.c[0]), p.step[0], o.px.data(), o.step(), sz);
    return swap_rb(view_of(o));
}
// 555 and 444 words have no reading function in the library: their fields
// are widened here the way the library widens 565 (top bits repeated).
DECODER(dec_word) {
    PLANES;
    const bool bgr = f.name[0] == 'b', is444 = std::strstr(f.name, "444") != nullptr;
    const int bits = is444 ? 4 : 5;
    for (int y = 0; y < r.h; ++y) {
        const uint8_t* s = p.c[0] + size_t(y) * p.step[0];
        uint8_t* d = o.row(y);
        for (int x = 0; x < r.w; ++x) {
            const unsigned w = unsigned(s[2 * x]) | unsigned(s[2 * x + 1]) << 8;
            for (int c = 0; c < 3; ++c) {
                const unsigned v = (w >> (bits * c)) & ((1u << bits) - 1);
                const unsigned wide = is444 ? v * 17 : (v << 3 | v >> 2);
                d[3 * x + (bgr ? 2 - c : c)] = uint8_t(wide);
            }
        }
    }
    return o;
}
DECODER(dec_mosaic8) {
    Image o = rgb_out(r);
    const ImageRect rect{r.x, r.y, r.w, r.h};
    LIB(nmqiCFAToRGB_8u_C1C3R, frame, rect, ImageSize{r.x + r.w, r.y + r.h}, g.step[0], o.px.data(), o.step(), f.grid);
    return o;
}
Image dec_mosaic16(const RawFormat& f, const uint8_t* frame, const Geometry& g, int w, int h, const Rect& r) {
    Image o(r.w, r.h, 3, Depth::U16);
    const ImageRect rect{r.x, r.y, r.w, r.h};
    LIB(nmqiCFAToRGB_16u_C1C3R, reinterpret_cast<const Nmq16u*>(frame), rect, ImageSize{w, h}, g.step[0],
        o.data<Nmq16u>(), o.step(), f.grid);
    return o;
}

// ---- encoders ------------------------------------------------------------------

#define ENCODER(name) void name(const RawFormat& f, const View& s, uint8_t* frame, const Geometry& g, const EncodeOptions& opt)
#define OUT_PLANES const Planes p = planes_at(f, frame, g, 0, 0); const ImageSize sz = size_of(s); (void)opt

ENCODER(enc_yuv444) { OUT_PLANES; LIB(nmqiRGBToYUV_8u_C3R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_yuv444p) { OUT_PLANES; LIB(nmqiRGBToYUV_8u_C3P3R, s.p, s.step, p.m, p.step[0], sz); }
ENCODER(enc_yuv422) { OUT_PLANES; LIB(nmqiRGBToYUV422_8u_C3C2R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_yuv422p) {
    OUT_PLANES;
    int steps[3] = {p.step[0], p.step[1], p.step[2]};
    LIB(nmqiRGBToYUV422_8u_C3P3R, s.p, s.step, p.m, steps, sz);
}
ENCODER(enc_yuv420p) {
    OUT_PLANES;
    int steps[3] = {p.step[0], p.step[1], p.step[2]};
    LIB(nmqiRGBToYUV420_8u_C3P3R, s.p, s.step, p.m, steps, sz);
}
ENCODER(enc_ycc444) { OUT_PLANES; LIB(nmqiRGBToYCbCr_8u_C3R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_ycc444p) { OUT_PLANES; LIB(nmqiRGBToYCbCr_8u_C3P3R, s.p, s.step, p.m, p.step[0], sz); }
ENCODER(enc_ycbcr422) { OUT_PLANES; LIB(nmqiRGBToYCbCr422_8u_C3C2R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_ycrcb422) { OUT_PLANES; LIB(nmqiRGBToYCrCb422_8u_C3C2R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_cbycr422) { OUT_PLANES; LIB(nmqiRGBToCbYCr422_8u_C3C2R, s.p, s.step, p.m[0], p.step[0], sz); }
ENCODER(enc_ycc422p) { OUT_PLANES; LIB(nmqiRGBToYCbCr422_8u_C3P3R, s.p, s.step, p.m, p.step, sz); }
ENCODER(enc_ycc420p) { OUT_PLANES; LIB(nmqiRGBToYCbCr420_8u_C3P3R, s.p, s.step, p.m, p.step, sz); }
ENCODER(enc_ycrcb420p) {
    OUT_PLANES;
    const Image rgba = with_alpha(s);
    LIB(nmqiRGBToYCrCb420_8u_AC4P3R, rgba.px.data(), rgba.step(), p.m, p.step, sz);
}
ENCODER(enc_nv12) { OUT_PLANES; LIB(nmqiRGBToYCbCr420_8u_C3P2R, s.p, s.step, p.m[0], p.step[0], p.m[1], p.step[1], sz); }
ENCODER(enc_nv21) {
    OUT_PLANES;
    // Three planes, then merged with the chroma planes given Cr first.
    const int cw = s.w / 2, chh = s.h / 2;
    std::vector<Nmq8u> cb(size_t(cw) * chh), cr(cb.size());
    Nmq8u* const dst[3] = {p.m[0], cb.data(), cr.data()};
    const int steps[3] = {p.step[0], cw, cw};
    LIB(nmqiRGBToYCbCr420_8u_C3P3R, s.p, s.step, dst, steps, sz);
    const Nmq8u* const swapped[3] = {p.m[0], cr.data(), cb.data()};
    LIB(nmqiYCbCr420_8u_P3P2R, swapped, steps, p.m[0], p.step[0], p.m[1], p.step[1], sz);
}
ENCODER(enc_ycc411p) {
    OUT_PLANES;
    const Image bgr = swap_rb(s);
    LIB(nmqiBGRToYCbCr411_8u_C3P3R, bgr.px.data(), bgr.step(), p.m, p.step, sz);
}
ENCODER(enc_ycc411sp) {
    OUT_PLANES;
    const Image bgr = swap_rb(s);
    const int cw = s.w / 4;
    std::vector<Nmq8u> cb(size_t(cw) * s.h), cr(cb.size());
    Nmq8u* const dst[3] = {p.m[0], cb.data(), cr.data()};
    const int steps[3] = {p.step[0], cw, cw};
    LIB(nmqiBGRToYCbCr411_8u_C3P3R, bgr.px.data(), bgr.step(), dst, steps, sz);
    const Nmq8u* const src[3] = {p.m[0], cb.data(), cr.data()};
    LIB(nmqiYCbCr411_8u_P3P2R, src, steps, p.m[0], p.step[0], p.m[1], p.step[1], sz);
}
ENCODER(enc_709) {
    OUT_PLANES;
    const Image bgr = swap_rb(s);
    LIB(nmqiBGRToYCbCr420_709CSC_8u_C3P3R, bgr.px.data(), bgr.step(), p.m, p.step, sz);
}

// Packed 16-bit outputs. Without dither, 565 comes straight from RGB; the
// other words and every dithered output come from full-sampled YCbCr.
using WordFn = NmqStatus (*)(const Nmq8u*, int, Nmq16u*, int, ImageSize);
struct WordForm {
    const char* name;
    WordFn plain, dither;
    const char *plain_name, *dither_name;
};
#define WORD_FORM(fmt, model)                                                                                  \
    {fmt, nmqiYCbCrTo##model##_8u16u_C3R, nmqiYCbCrTo##model##Dither_8u16u_C3R, "nmqiYCbCrTo" #model "_8u16u_C3R", \
     "nmqiYCbCrTo" #model "Dither_8u16u_C3R"}
const WordForm kWordForms[] = {WORD_FORM("rgb565", RGB565), WORD_FORM("bgr565", BGR565),
                               WORD_FORM("rgb555", RGB555), WORD_FORM("bgr555", BGR555),
                               WORD_FORM("rgb444", RGB444), WORD_FORM("bgr444", BGR444)};

ENCODER(enc_word) {
    OUT_PLANES;
    auto* dst = reinterpret_cast<Nmq16u*>(p.m[0]);
    const bool is565 = std::strstr(f.name, "565") != nullptr;
    if (is565 && !opt.dither) {
        if (f.name[0] == 'r') {
            LIB(nmqiRGBToRGB565_8u16u_C3R, s.p, s.step, dst, p.step[0], sz);
        } else {
            const Image bgr = swap_rb(s);
            LIB(nmqiBGRToBGR565_8u16u_C3R, bgr.px.data(), bgr.step(), dst, p.step[0], sz);
        }
        return;
    }
    Image ycc(s.w, s.h, 3, Depth::U8);
    LIB(nmqiRGBToYCbCr_8u_C3R, s.p, s.step, ycc.px.data(), ycc.step(), sz);
    for (const WordForm& w : kWordForms)
        if (std::strcmp(w.name, f.name) == 0)
            check((opt.dither ? w.dither : w.plain)(ycc.px.data(), ycc.step(), dst, p.step[0], sz),
                  opt.dither ? w.dither_name : w.plain_name);
}

// The library reads mosaics but does not make them: a mosaic keeps, at each
// pixel, the one channel its filter passes.
template <class T>
void mosaic(const RawFormat& f, const View& s, uint8_t* frame, const Geometry& g) {
    static const char* const kGrids[4] = {"BGGR", "RGGB", "GBRG", "GRBG"};
    for (int y = 0; y < s.h; ++y) {
        const T* row = reinterpret_cast<const T*>(s.p + size_t(y) * s.step);
        T* d = reinterpret_cast<T*>(frame + size_t(y) * g.step[0]);
        for (int x = 0; x < s.w; ++x) {
            const char c = kGrids[f.grid][(y & 1) * 2 + (x & 1)];
            d[x] = row[3 * x + (c == 'R' ? 0 : c == 'G' ? 1 : 2)];
        }
    }
}
ENCODER(enc_mosaic8) { (void)opt; mosaic<uint8_t>(f, s, frame, g); }
ENCODER(enc_mosaic16) { (void)opt; mosaic<uint16_t>(f, s, frame, g); }

#define MOSAIC(grid, code)                                                                                          \
    {grid "8", "Bayer mosaic " grid ", 8 bits", Layout::Mosaic8, 1, 1, 1, 1, "nmqiCFAToRGB_8u_C1C3R",                \
     "(mosaic sampling in nmqconv)", nullptr, code, dec_mosaic8, enc_mosaic8},                                       \
    {grid "16", "Bayer mosaic " grid ", 16 bits little-endian", Layout::Mosaic16, 1, 1, 1, 1,                         \
     "nmqiCFAToRGB_16u_C1C3R", "(mosaic sampling in nmqconv)", nullptr, code, dec_mosaic16, enc_mosaic16}

#define WORD(fmt, desc, dec_name, plain_enc, dither_enc)                                                  \
    {fmt, desc, Layout::Word16, 1, 1, 1, 1, dec_name, plain_enc, dither_enc, 0, fmt[3] == '5' && fmt[4] == '6' \
         ? (fmt[0] == 'r' ? dec_rgb565 : dec_bgr565) : dec_word, enc_word}

}  // namespace

const std::vector<RawFormat>& raw_formats() {
    static const std::vector<RawFormat> k = {
        {"yuv444", "YUV 4:4:4, packed Y U V", Layout::C3, 1, 1, 1, 1, "nmqiYUVToRGB_8u_C3R", "nmqiRGBToYUV_8u_C3R",
         nullptr, 0, dec_yuv444, enc_yuv444},
        {"yuv444p", "YUV 4:4:4, planes Y, U, V", Layout::P3, 1, 1, 1, 1, "nmqiYUVToRGB_8u_P3C3R",
         "nmqiRGBToYUV_8u_C3P3R", nullptr, 0, dec_yuv444p, enc_yuv444p},
        {"yuv422", "YUV 4:2:2, packed Y0 U Y1 V", Layout::C2, 2, 1, 2, 1, "nmqiYUV422ToRGB_8u_C2C3R",
         "nmqiRGBToYUV422_8u_C3C2R", nullptr, 0, dec_yuv422, enc_yuv422},
        {"yuv422p", "YUV 4:2:2, planes Y, U, V", Layout::P3, 2, 1, 2, 1, "nmqiYUV422ToRGB_8u_P3C3R",
         "nmqiRGBToYUV422_8u_C3P3R", nullptr, 0, dec_yuv422p, enc_yuv422p},
        {"yuv420p", "YUV 4:2:0, planes Y, U, V", Layout::P3, 2, 2, 2, 2, "nmqiYUV420ToRGB_8u_P3C3R",
         "nmqiRGBToYUV420_8u_C3P3R", nullptr, 0, dec_yuv420p, enc_yuv420p},
        {"ycbcr444", "YCbCr 4:4:4 (BT.601), packed Y Cb Cr", Layout::C3, 1, 1, 1, 1, "nmqiYCbCrToRGB_8u_C3R",
         "nmqiRGBToYCbCr_8u_C3R", nullptr, 0, dec_ycc444, enc_ycc444},
        {"ycbcr444p", "YCbCr 4:4:4 (BT.601), planes Y, Cb, Cr", Layout::P3, 1, 1, 1, 1, "nmqiYCbCrToRGB_8u_P3C3R",
         "nmqiRGBToYCbCr_8u_C3P3R", nullptr, 0, dec_ycc444p, enc_ycc444p},
        {"ycbcr422", "YCbCr 4:2:2, packed luma first Y0 Cb Y1 Cr", Layout::C2, 2, 1, 2, 1,
         "nmqiYCbCr422ToRGB_8u_C2C3R", "nmqiRGBToYCbCr422_8u_C3C2R", nullptr, 0, dec_ycbcr422, enc_ycbcr422},
        {"ycrcb422", "YCbCr 4:2:2, packed luma first Y0 Cr Y1 Cb", Layout::C2, 2, 1, 2, 1,
         "nmqiYCrCb422ToRGB_8u_C2C3R", "nmqiRGBToYCrCb422_8u_C3C2R", nullptr, 0, dec_ycrcb422, enc_ycrcb422},
        {"cbycr422", "YCbCr 4:2:2, packed chroma first Cb Y0 Cr Y1", Layout::C2, 2, 1, 2, 1,
         "nmqiCbYCr422ToRGB_8u_C2C3R", "nmqiRGBToCbYCr422_8u_C3C2R", nullptr, 0, dec_cbycr422, enc_cbycr422},
        {"ycbcr422p", "YCbCr 4:2:2, planes Y, Cb, Cr", Layout::P3, 2, 1, 2, 1, "nmqiYCbCr422ToRGB_8u_P3C3R",
         "nmqiRGBToYCbCr422_8u_C3P3R", nullptr, 0, dec_ycc422p, enc_ycc422p},
        {"ycbcr420p", "YCbCr 4:2:0, planes Y, Cb, Cr", Layout::P3, 2, 2, 2, 2, "nmqiYCbCr420ToRGB_8u_P3C3R",
         "nmqiRGBToYCbCr420_8u_C3P3R", nullptr, 0, dec_ycc420p, enc_ycc420p},
        {"ycrcb420p", "YCbCr 4:2:0, planes Y, Cr, Cb", Layout::P3, 2, 2, 2, 2, "nmqiYCrCb420ToRGB_8u_P3C4R",
         "nmqiRGBToYCrCb420_8u_AC4P3R", nullptr, 0, dec_ycrcb420p, enc_ycrcb420p},
        {"nv12", "YCbCr 4:2:0, two planes: Y, then Cb Cr pairs", Layout::P2, 2, 2, 2, 2,
         "nmqiYCbCr420ToRGB_8u_P2C3R", "nmqiRGBToYCbCr420_8u_C3P2R", nullptr, 0, dec_nv12, enc_nv12},
        {"nv21", "YCbCr 4:2:0, two planes: Y, then Cr Cb pairs", Layout::P2, 2, 2, 2, 2,
         "nmqiYCrCb420ToRGB_8u_P2C3R", "nmqiRGBToYCbCr420_8u_C3P3R + nmqiYCbCr420_8u_P3P2R", nullptr, 0, dec_nv21,
         enc_nv21},
        {"ycbcr411p", "YCbCr 4:1:1, planes Y, Cb, Cr", Layout::P3, 4, 1, 4, 1, "nmqiYCbCr411ToBGR_8u_P3C3R",
         "nmqiBGRToYCbCr411_8u_C3P3R", nullptr, 0, dec_ycc411p, enc_ycc411p},
        {"ycbcr411sp", "YCbCr 4:1:1, two planes: Y, then Cb Cr pairs", Layout::P2, 4, 1, 4, 1,
         "nmqiYCbCr411_8u_P2P3R + nmqiYCbCr411ToBGR_8u_P3C3R", "nmqiBGRToYCbCr411_8u_C3P3R + nmqiYCbCr411_8u_P3P2R",
         nullptr, 0, dec_ycc411sp, enc_ycc411sp},
        {"ycbcr420p-709", "YCbCr 4:2:0 (BT.709), planes Y, Cb, Cr", Layout::P3, 2, 2, 2, 2,
         "nmqiYCbCr420ToBGR_709CSC_8u_P3C3R", "nmqiBGRToYCbCr420_709CSC_8u_C3P3R", nullptr, 0, dec_709, enc_709},
        WORD("rgb565", "packed 16-bit RGB 5:6:5, R in the low bits", "nmqiRGB565ToRGB_16u8u_C3R",
             "nmqiRGBToRGB565_8u16u_C3R", "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToRGB565Dither_8u16u_C3R"),
        WORD("bgr565", "packed 16-bit RGB 5:6:5, B in the low bits", "nmqiBGR565ToBGR_16u8u_C3R",
             "nmqiBGRToBGR565_8u16u_C3R", "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToBGR565Dither_8u16u_C3R"),
        WORD("rgb555", "packed 16-bit RGB 5:5:5, R in the low bits", "(field widening in nmqconv)",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToRGB555_8u16u_C3R",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToRGB555Dither_8u16u_C3R"),
        WORD("bgr555", "packed 16-bit RGB 5:5:5, B in the low bits", "(field widening in nmqconv)",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToBGR555_8u16u_C3R",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToBGR555Dither_8u16u_C3R"),
        WORD("rgb444", "packed 16-bit RGB 4:4:4, R in the low bits", "(field widening in nmqconv)",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToRGB444_8u16u_C3R",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToRGB444Dither_8u16u_C3R"),
        WORD("bgr444", "packed 16-bit RGB 4:4:4, B in the low bits", "(field widening in nmqconv)",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToBGR444_8u16u_C3R",
             "nmqiRGBToYCbCr_8u_C3R + nmqiYCbCrToBGR444Dither_8u16u_C3R"),
        MOSAIC("bggr", nmqBayerBGGR),
        MOSAIC("rggb", nmqBayerRGGB),
        MOSAIC("gbrg", nmqBayerGBRG),
        MOSAIC("grbg", nmqBayerGRBG),
    };
    return k;
}

const RawFormat* find_raw(const std::string& name) {
    for (const RawFormat& f : raw_formats())
        if (name == f.name) return &f;
    return nullptr;
}

Depth raw_depth(const RawFormat& f) { return f.layout == Layout::Mosaic16 ? Depth::U16 : Depth::U8; }

Geometry geometry(const RawFormat& f, int w, int h) {
    Geometry g;
    g.step[0] = w * luma_bytes(f.layout);
    size_t end = size_t(g.step[0]) * size_t(h);
    if (f.layout == Layout::P3 || f.layout == Layout::P2) {
        const int cw = w / f.cx, chh = h / f.cy;
        g.planes = f.layout == Layout::P3 ? 3 : 2;
        for (int k = 1; k < g.planes; ++k) {
            g.step[k] = f.layout == Layout::P2 ? 2 * cw : cw;
            g.offset[k] = end;
            end += size_t(g.step[k]) * size_t(chh);
        }
    }
    g.bytes = end;
    return g;
}

}  // namespace conv
