// Depth changes, colour models, gamma, colour twist, tone mapping and bit
// reduction over decoded images, through the library's C interface.
#include "ops.h"

#include <cerrno>
#include <cmath>
#include <cstring>

#include "lib.h"
#include "raw.h"

namespace conv {
namespace {

template <class T> const T* src_of(const View& v) { return v.data<T>(); }

Image widen(const View& v, Depth d) {
    Image out(v.w, v.h, v.ch, d);
    for (int y = 0; y < v.h; ++y)
        for (int i = 0; i < v.w * v.ch; ++i) {
            double s;
            const uint8_t* r = v.p + size_t(y) * v.step;
            if (v.depth == Depth::U8) s = r[i] / 255.0;
            else if (v.depth == Depth::U16) s = reinterpret_cast<const uint16_t*>(r)[i] / 65535.0;
            else s = reinterpret_cast<const float*>(r)[i];
            if (d == Depth::U16) reinterpret_cast<uint16_t*>(out.row(y))[i] = uint16_t(std::lround(s * 65535.0));
            else reinterpret_cast<float*>(out.row(y))[i] = float(s);
        }
    return out;
}

template <class T> using C3Fn = NmqStatus (*)(const T*, int, T*, int, ImageSize);

struct ModelFns {
    Model m;
    C3Fn<Nmq8u> f8, i8;
    C3Fn<Nmq16u> f16, i16;
    C3Fn<Nmq32f> f32, i32;
    const char* names[6];
};
#define MODEL3(name, comp, f8, i8, f16, i16, f32, i32) \
    {{name, comp}, f8, i8, f16, i16, f32, i32, {#f8, #i8, #f16, #i16, #f32, #i32}}

const ModelFns kModels[] = {
    MODEL3("hsv", "h,s,v", nmqiRGBToHSV_8u_C3R, nmqiHSVToRGB_8u_C3R, nmqiRGBToHSV_16u_C3R, nmqiHSVToRGB_16u_C3R,
           nullptr, nullptr),
    MODEL3("hls", "h,l,s", nmqiRGBToHLS_8u_C3R, nmqiHLSToRGB_8u_C3R, nmqiRGBToHLS_16u_C3R, nmqiHLSToRGB_16u_C3R,
           nmqiRGBToHLS_32f_C3R, nmqiHLSToRGB_32f_C3R),
    MODEL3("xyz", "x,y,z", nmqiRGBToXYZ_8u_C3R, nmqiXYZToRGB_8u_C3R, nmqiRGBToXYZ_16u_C3R, nmqiXYZToRGB_16u_C3R,
           nmqiRGBToXYZ_32f_C3R, nmqiXYZToRGB_32f_C3R),
    MODEL3("yuv", "y,u,v", nmqiRGBToYUV_8u_C3R, nmqiYUVToRGB_8u_C3R, nullptr, nullptr, nullptr, nullptr),
    MODEL3("ycbcr", "y,cb,cr", nmqiRGBToYCbCr_8u_C3R, nmqiYCbCrToRGB_8u_C3R, nullptr, nullptr, nullptr, nullptr),
};

const ModelFns* find_model(const std::string& name) {
    for (const ModelFns& m : kModels)
        if (name == m.m.name) return &m;
    return nullptr;
}

template <class T>
void run_c3(C3Fn<T> fn, const char* name, const View& v, Image& out) {
    check(fn(src_of<T>(v), v.step, out.data<T>(), out.step(), size_of(v)), name);
}

void need_colour(const View& v, const char* what) {
    if (v.ch != 3) throw UsageError(std::string(what) + " needs a colour image; the input is gray");
}

}  // namespace

Image to_depth(const View& v, Depth d) {
    if (v.depth == d) return copy_of(v);
    if (int(d) > int(v.depth)) return widen(v, d);
    const bool c3 = v.ch == 3;
    Image out(v.w, v.h, v.ch, d);
    const ImageSize sz = size_of(v);
    if (v.depth == Depth::U16) {  // to 8 bits
        if (c3) LIB(nmqiReduceBits_16u8u_C3R, src_of<Nmq16u>(v), v.step, out.px.data(), out.step(), sz, 0, 0, 256);
        else LIB(nmqiReduceBits_16u8u_C1R, src_of<Nmq16u>(v), v.step, out.px.data(), out.step(), sz, 0, 0, 256);
    } else if (d == Depth::U8) {  // float (0..1) to 8 bits
        if (c3) LIB(nmqiReduceBits_32f8u_C3R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz, 0, 0, 256);
        else LIB(nmqiReduceBits_32f8u_C1R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz, 0, 0, 256);
    } else {  // float to 16 bits
        if (c3) LIB(nmqiReduceBits_32f16u_C3R, src_of<Nmq32f>(v), v.step, out.data<Nmq16u>(), out.step(), sz, 0, 0, 65536);
        else LIB(nmqiReduceBits_32f16u_C1R, src_of<Nmq32f>(v), v.step, out.data<Nmq16u>(), out.step(), sz, 0, 0, 65536);
    }
    return out;
}

Image to_channels(const View& v, int ch) {
    if (v.ch == ch) return copy_of(v);
    return model_convert(v, "gray", v.ch == 1, nullptr);
}

const std::vector<Model>& models() {
    static const std::vector<Model> k = {{"hsv", "h,s,v"}, {"hls", "h,l,s"}, {"xyz", "x,y,z"},
                                         {"ycocg", "y,co,cg"}, {"yuv", "y,u,v"}, {"ycbcr", "y,cb,cr"},
                                         {"gray", "y"}};
    return k;
}

Image model_convert(const View& v, const std::string& model, bool inverse, const float* w) {
    const ImageSize sz = size_of(v);
    if (model == "gray") {
        if (inverse) {
            if (v.ch != 1) throw UsageError("going back from gray needs a one-channel image");
            Image out(v.w, v.h, 3, v.depth);
            if (v.depth == Depth::U8) LIB(nmqiGrayToRGB_8u_C1C3R, v.p, v.step, out.px.data(), out.step(), sz);
            else if (v.depth == Depth::U16)
                LIB(nmqiGrayToRGB_16u_C1C3R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz);
            else LIB(nmqiGrayToRGB_32f_C1C3R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz);
            return out;
        }
        need_colour(v, "gray");
        Image out(v.w, v.h, 1, v.depth);
        if (v.depth == Depth::U8) {
            if (w) LIB(nmqiColorToGray_8u_C3C1R, v.p, v.step, out.px.data(), out.step(), sz, w);
            else LIB(nmqiRGBToGray_8u_C3C1R, v.p, v.step, out.px.data(), out.step(), sz);
        } else if (v.depth == Depth::U16) {
            if (w) LIB(nmqiColorToGray_16u_C3C1R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz, w);
            else LIB(nmqiRGBToGray_16u_C3C1R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz);
        } else {
            if (w) LIB(nmqiColorToGray_32f_C3C1R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz, w);
            else LIB(nmqiRGBToGray_32f_C3C1R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz);
        }
        return out;
    }
    need_colour(v, model.c_str());
    if (model == "ycocg") {
        if (v.depth != Depth::U8) throw UsageError("ycocg takes 8-bit images only");
        std::vector<Nmq8u> planes(size_t(v.w) * v.h * 3);
        Nmq8u* p[3] = {planes.data(), planes.data() + size_t(v.w) * v.h, planes.data() + 2 * size_t(v.w) * v.h};
        Image out(v.w, v.h, 3, Depth::U8);
        if (!inverse) {
            LIB(nmqiRGBToYCoCg_8u_C3P3R, v.p, v.step, p, v.w, sz);
            for (size_t i = 0; i < size_t(v.w) * v.h; ++i)
                for (int c = 0; c < 3; ++c) out.px[3 * i + c] = p[c][i];
        } else {
            for (int y = 0; y < v.h; ++y)
                for (int x = 0; x < v.w; ++x)
                    for (int c = 0; c < 3; ++c) p[c][size_t(y) * v.w + x] = v.p[size_t(y) * v.step + 3 * x + c];
            const Nmq8u* const cp[3] = {p[0], p[1], p[2]};
            LIB(nmqiYCoCgToRGB_8u_P3C3R, cp, v.w, out.px.data(), out.step(), sz);
        }
        return out;
    }
    const ModelFns* m = find_model(model);
    if (!m) throw UsageError("unknown colour model '" + model + "' (hsv, hls, xyz, ycocg, yuv, ycbcr, gray)");
    Image out(v.w, v.h, 3, v.depth);
    const int k = inverse ? 1 : 0;
    if (v.depth == Depth::U8 && (inverse ? m->i8 : m->f8)) run_c3(inverse ? m->i8 : m->f8, m->names[k], v, out);
    else if (v.depth == Depth::U16 && (inverse ? m->i16 : m->f16))
        run_c3(inverse ? m->i16 : m->f16, m->names[2 + k], v, out);
    else if (v.depth == Depth::F32 && (inverse ? m->i32 : m->f32))
        run_c3(inverse ? m->i32 : m->f32, m->names[4 + k], v, out);
    else
        throw UsageError(model + " does not take " + depth_name(v.depth) + " images");
    return out;
}

Image gamma(const View& v, bool fwd) {
    const ImageSize sz = size_of(v);
    Image out(v.w, v.h, v.ch, v.depth);
    if (v.ch == 1) {
        // A gray image is passed as three planes that are all the same plane.
        if (v.depth != Depth::U8) throw UsageError("gamma of a gray image takes 8 bits only");
        const Nmq8u* const s[3] = {v.p, v.p, v.p};
        Nmq8u* const d[3] = {out.px.data(), out.px.data(), out.px.data()};
        if (fwd) LIB(nmqiGammaFwd_8u_P3R, s, v.step, d, out.step(), sz);
        else LIB(nmqiGammaInv_8u_P3R, s, v.step, d, out.step(), sz);
        return out;
    }
    switch (v.depth) {
    case Depth::U8:
        if (fwd) LIB(nmqiGammaFwd_8u_C3R, v.p, v.step, out.px.data(), out.step(), sz);
        else LIB(nmqiGammaInv_8u_C3R, v.p, v.step, out.px.data(), out.step(), sz);
        break;
    case Depth::U16:
        if (fwd) LIB(nmqiGammaFwd_16u_C3R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz);
        else LIB(nmqiGammaInv_16u_C3R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz);
        break;
    case Depth::F32:  // float images are taken as 0..1
        if (fwd) LIB(nmqiGammaFwd_32f_C3R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz, 0.f, 1.f);
        else LIB(nmqiGammaInv_32f_C3R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz, 0.f, 1.f);
        break;
    }
    return out;
}

Image twist(const View& v, const float m[3][4]) {
    need_colour(v, "a colour twist");
    const ImageSize sz = size_of(v);
    Image out(v.w, v.h, 3, v.depth);
    switch (v.depth) {
    case Depth::U8: LIB(nmqiColorTwist32f_8u_C3R, v.p, v.step, out.px.data(), out.step(), sz, m); break;
    case Depth::U16:
        LIB(nmqiColorTwist32f_16u_C3R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz, m);
        break;
    case Depth::F32:
        LIB(nmqiColorTwist_32f_C3R, src_of<Nmq32f>(v), v.step, out.data<Nmq32f>(), out.step(), sz, m);
        break;
    }
    return out;
}

// A matrix file holds 12 numbers, three rows of (r, g, b, offset), or 9
// numbers, three rows without offsets; commas, blanks and # comments allowed.
void read_matrix(const std::string& path, float m[3][4]) {
    const std::vector<uint8_t> bytes = read_file(path);
    std::string text(bytes.begin(), bytes.end());
    std::vector<double> vals;
    size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        if (c == '#') {
            while (i < text.size() && text[i] != '\n') ++i;
        } else if (std::isspace(static_cast<unsigned char>(c)) || c == ',' || c == ';') {
            ++i;
        } else {
            const char* start = text.c_str() + i;
            char* end = nullptr;
            const double d = std::strtod(start, &end);
            if (end == start || !std::isfinite(d))
                throw DataError("'" + path + "': not a number at \"" + text.substr(i, 12) + "\"");
            vals.push_back(d);
            i += size_t(end - start);
        }
    }
    if (vals.size() != 12 && vals.size() != 9)
        throw DataError("'" + path + "' holds " + std::to_string(vals.size()) +
                        " numbers; a colour twist takes 12 (3 rows of 4) or 9 (3 rows of 3)");
    const int cols = vals.size() == 12 ? 4 : 3;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 4; ++c) m[r][c] = c < cols ? float(vals[size_t(r * cols + c)]) : 0.f;
}

Image tonemap(const View& v, bool by_mean) {
    if (v.depth != Depth::F32) throw UsageError("tone mapping takes a float image (PFM input)");
    // A colour image is mapped as one row of samples per image row, so one
    // scale (from the maximum or mean over all channels) keeps its colours.
    const ImageSize sz{v.w * v.ch, v.h};
    Image out(v.w, v.h, v.ch, Depth::U8);
    if (by_mean) LIB(nmqiToneMapMean_32f8u_C1R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz);
    else LIB(nmqiToneMapLinear_32f8u_C1R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz);
    return out;
}

Image reduce(const View& v, int levels, int dither, int noise) {
    const ImageSize sz = size_of(v);
    const bool c3 = v.ch == 3;
    if (v.depth == Depth::U16) {
        Image out(v.w, v.h, v.ch, Depth::U16);
        if (c3) LIB(nmqiReduceBits_16u_C3R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz, noise, dither, levels);
        else LIB(nmqiReduceBits_16u_C1R, src_of<Nmq16u>(v), v.step, out.data<Nmq16u>(), out.step(), sz, noise, dither, levels);
        return out;
    }
    Image out(v.w, v.h, v.ch, Depth::U8);
    if (v.depth == Depth::F32) {
        if (c3) LIB(nmqiReduceBits_32f8u_C3R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz, noise, dither, levels);
        else LIB(nmqiReduceBits_32f8u_C1R, src_of<Nmq32f>(v), v.step, out.px.data(), out.step(), sz, noise, dither, levels);
    } else {
        if (c3) LIB(nmqiReduceBits_8u_C3R, v.p, v.step, out.px.data(), out.step(), sz, noise, dither, levels);
        else LIB(nmqiReduceBits_8u_C1R, v.p, v.step, out.px.data(), out.step(), sz, noise, dither, levels);
    }
    return out;
}

std::vector<Image> split_channels(const Image& img) {
    std::vector<Image> out;
    const int b = depth_bytes(img.depth);
    for (int c = 0; c < img.ch; ++c) {
        Image g(img.w, img.h, 1, img.depth);
        for (size_t i = 0; i < size_t(img.w) * img.h; ++i)
            std::memcpy(&g.px[i * size_t(b)], &img.px[(i * size_t(img.ch) + size_t(c)) * size_t(b)], size_t(b));
        out.push_back(std::move(g));
    }
    return out;
}

void print_operation_list(FILE* o) {
    std::fprintf(o, "Raw frame formats (read -> RGB | RGB -> write):\n");
    for (const RawFormat& f : raw_formats()) {
        std::fprintf(o, "  %-14s %s\n", f.name, f.desc);
        std::fprintf(o, "  %-14s   read:  %s\n", "", f.dec);
        std::fprintf(o, "  %-14s   write: %s\n", "", f.enc);
        if (f.enc_dither) std::fprintf(o, "  %-14s   write with --dither bayer: %s\n", "", f.enc_dither);
    }
    std::fprintf(o, "\nColour models (--model NAME forward, --inverse NAME back), 8-bit | 16-bit | float:\n");
    for (const ModelFns& m : kModels)
        for (int k = 0; k < 2; ++k)
            std::fprintf(o, "  %-6s %-8s %s | %s | %s\n", k ? "" : m.m.name, k ? "inverse" : "forward",
                         m.names[k], m.f16 ? m.names[2 + k] : "-", m.f32 ? m.names[4 + k] : "-");
    std::fprintf(o, "  %-6s %-8s %s\n", "ycocg", "forward", "nmqiRGBToYCoCg_8u_C3P3R");
    std::fprintf(o, "  %-6s %-8s %s\n", "", "inverse", "nmqiYCoCgToRGB_8u_P3C3R");
    std::fprintf(o, "  %-6s %-8s %s | %s | %s\n", "gray", "forward", "nmqiRGBToGray_8u_C3C1R",
                 "nmqiRGBToGray_16u_C3C1R", "nmqiRGBToGray_32f_C3C1R");
    std::fprintf(o, "  %-6s %-8s %s | %s | %s\n", "", "weights", "nmqiColorToGray_8u_C3C1R",
                 "nmqiColorToGray_16u_C3C1R", "nmqiColorToGray_32f_C3C1R");
    std::fprintf(o, "  %-6s %-8s %s | %s | %s\n", "", "inverse", "nmqiGrayToRGB_8u_C1C3R", "nmqiGrayToRGB_16u_C1C3R",
                 "nmqiGrayToRGB_32f_C1C3R");
    std::fprintf(o, "\nOperations, 8-bit | 16-bit | float:\n");
    std::fprintf(o, "  --gamma fwd    nmqiGammaFwd_8u_C3R | nmqiGammaFwd_16u_C3R | nmqiGammaFwd_32f_C3R"
                    " (gray: nmqiGammaFwd_8u_P3R)\n");
    std::fprintf(o, "  --gamma inv    nmqiGammaInv_8u_C3R | nmqiGammaInv_16u_C3R | nmqiGammaInv_32f_C3R"
                    " (gray: nmqiGammaInv_8u_P3R)\n");
    std::fprintf(o, "  --twist FILE   nmqiColorTwist32f_8u_C3R | nmqiColorTwist32f_16u_C3R | nmqiColorTwist_32f_C3R\n");
    std::fprintf(o, "  --tonemap linear  - | - | nmqiToneMapLinear_32f8u_C1R\n");
    std::fprintf(o, "  --tonemap mean    - | - | nmqiToneMapMean_32f8u_C1R\n");
    std::fprintf(o, "  --levels N     nmqiReduceBits_8u_C3R, nmqiReduceBits_8u_C1R | nmqiReduceBits_16u_C3R,"
                    " nmqiReduceBits_16u_C1R | nmqiReduceBits_32f8u_C3R, nmqiReduceBits_32f8u_C1R\n");
    std::fprintf(o, "\nDepth and channel changes for the output:\n");
    std::fprintf(o, "  16-bit -> 8-bit   nmqiReduceBits_16u8u_C3R, nmqiReduceBits_16u8u_C1R (256 levels)\n");
    std::fprintf(o, "  float -> 8-bit    nmqiReduceBits_32f8u_C3R, nmqiReduceBits_32f8u_C1R (256 levels)\n");
    std::fprintf(o, "  float -> 16-bit   nmqiReduceBits_32f16u_C3R, nmqiReduceBits_32f16u_C1R (65536 levels)\n");
    std::fprintf(o, "  colour -> gray    nmqiRGBToGray_8u_C3C1R | nmqiRGBToGray_16u_C3C1R | nmqiRGBToGray_32f_C3C1R\n");
    std::fprintf(o, "  gray -> colour    nmqiGrayToRGB_8u_C1C3R | nmqiGrayToRGB_16u_C1C3R | nmqiGrayToRGB_32f_C1C3R\n");
}

}  // namespace conv
