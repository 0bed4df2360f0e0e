// Picture files: PNG through libpng, JPEG through libjpeg, binary PPM/PGM
// and PFM by hand. Every reader works on the whole file in memory, so a
// truncated file is found by the reader and reported, never half-read.
#include "image.h"

#include <png.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csetjmp>
#include <cstring>
#include <memory>

#ifdef NMQCONV_JPEG
#include <jpeglib.h>
#endif

namespace conv {

const char* depth_name(Depth d) { return d == Depth::U8 ? "8-bit" : d == Depth::U16 ? "16-bit" : "float"; }

View view_of(const Image& img) { return View{img.px.data(), img.step(), img.w, img.h, img.ch, img.depth}; }

View crop(const View& v, int x, int y, int w, int h) {
    View r = v;
    r.p = v.p + size_t(y) * v.step + size_t(x) * v.ch * depth_bytes(v.depth);
    r.w = w;
    r.h = h;
    return r;
}

Image copy_of(const View& v) {
    Image out(v.w, v.h, v.ch, v.depth);
    for (int y = 0; y < v.h; ++y) std::memcpy(out.row(y), v.p + size_t(y) * v.step, size_t(out.step()));
    return out;
}

std::vector<uint8_t> read_file(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) throw DataError("cannot open '" + path + "': " + std::strerror(errno));
    std::vector<uint8_t> bytes;
    uint8_t buf[1 << 16];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) bytes.insert(bytes.end(), buf, buf + n);
    const bool bad = std::ferror(f);
    std::fclose(f);
    if (bad) throw DataError("cannot read '" + path + "'");
    return bytes;
}

FileKind kind_from_magic(const uint8_t* b, size_t n) {
    if (n >= 8 && png_sig_cmp(b, 0, 8) == 0) return FileKind::Png;
    if (n >= 3 && b[0] == 0xFF && b[1] == 0xD8 && b[2] == 0xFF) return FileKind::Jpeg;
    if (n >= 2 && b[0] == 'P' && (b[1] == '5' || b[1] == '6' || b[1] == '2' || b[1] == '3')) return FileKind::Pnm;
    if (n >= 2 && b[0] == 'P' && (b[1] == 'F' || b[1] == 'f')) return FileKind::Pfm;
    return FileKind::None;
}

FileKind kind_from_extension(const std::string& path) {
    const size_t dot = path.rfind('.');
    if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return FileKind::None;
    std::string e = path.substr(dot + 1);
    for (char& c : e) c = char(std::tolower(static_cast<unsigned char>(c)));
    if (e == "png") return FileKind::Png;
    if (e == "ppm" || e == "pgm" || e == "pnm") return FileKind::Pnm;
    if (e == "jpg" || e == "jpeg") return FileKind::Jpeg;
    if (e == "pfm") return FileKind::Pfm;
    return FileKind::None;
}

namespace {

bool is_little_endian() {
    const uint16_t one = 1;
    uint8_t b;
    std::memcpy(&b, &one, 1);
    return b == 1;
}

// ---- PNG -------------------------------------------------------------------

struct PngReader {
    const std::vector<uint8_t>* bytes;
    size_t pos = 0;
    std::string error;
};

void png_fail(png_structp png, png_const_charp msg) {
    auto* r = static_cast<PngReader*>(png_get_error_ptr(png));
    if (r) r->error = msg;
    png_longjmp(png, 1);
}
void png_quiet(png_structp, png_const_charp) {}

void png_read_mem(png_structp png, png_bytep out, png_size_t n) {
    auto* r = static_cast<PngReader*>(png_get_io_ptr(png));
    if (r->pos + n > r->bytes->size()) png_error(png, "file ends early (truncated)");
    std::memcpy(out, r->bytes->data() + r->pos, n);
    r->pos += n;
}

Image read_png(const std::string& path, const std::vector<uint8_t>& bytes) {
    PngReader rd{&bytes, 0, std::string()};
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &rd, png_fail, png_quiet);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info) throw DataError("out of memory reading '" + path + "'");
    Image img;
    std::vector<png_bytep> rows;
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_read_struct(&png, &info, nullptr);
        throw DataError("'" + path + "' is not a readable PNG image: " + rd.error);
    }
    png_set_read_fn(png, &rd, png_read_mem);
    png_read_info(png, info);
    const int type = png_get_color_type(png, info), bits = png_get_bit_depth(png, info);
    // Palette and low-bit gray become 8 bits; alpha is dropped (the
    // conversions work on colour only); 16-bit samples stay 16-bit.
    if (type == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(png);
    if (type == PNG_COLOR_TYPE_GRAY && bits < 8) png_set_expand_gray_1_2_4_to_8(png);
    if (png_get_valid(png, info, PNG_INFO_tRNS)) png_set_tRNS_to_alpha(png);
    png_set_strip_alpha(png);
    if (bits == 16 && is_little_endian()) png_set_swap(png);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    const int ch = png_get_channels(png, info);
    img = Image(int(png_get_image_width(png, info)), int(png_get_image_height(png, info)), ch,
                png_get_bit_depth(png, info) == 16 ? Depth::U16 : Depth::U8);
    rows.resize(size_t(img.h));
    for (int y = 0; y < img.h; ++y) rows[size_t(y)] = img.row(y);
    png_read_image(png, rows.data());
    png_read_end(png, nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
    return img;
}

void write_png(FILE* f, const Image& img, const std::string& path) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, png_quiet);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        throw DataError("cannot write PNG '" + path + "'");
    }
    png_init_io(png, f);
    png_set_IHDR(png, info, png_uint_32(img.w), png_uint_32(img.h), img.depth == Depth::U16 ? 16 : 8,
                 img.ch == 1 ? PNG_COLOR_TYPE_GRAY : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    if (img.depth == Depth::U16 && is_little_endian()) png_set_swap(png);
    for (int y = 0; y < img.h; ++y) png_write_row(png, const_cast<png_bytep>(img.row(y)));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
}

// ---- PPM / PGM / PFM headers ---------------------------------------------------

// Reads the whitespace-separated header numbers after the two magic bytes,
// skipping comments; leaves `pos` on the first data byte.
bool pnm_header(const std::vector<uint8_t>& b, size_t& pos, double* vals, int count) {
    pos = 2;
    for (int i = 0; i < count; ++i) {
        for (;;) {
            while (pos < b.size() && std::isspace(b[pos])) ++pos;
            if (pos < b.size() && b[pos] == '#') {
                while (pos < b.size() && b[pos] != '\n') ++pos;
                continue;
            }
            break;
        }
        const size_t start = pos;
        while (pos < b.size() && !std::isspace(b[pos])) ++pos;
        if (pos == start || pos >= b.size()) return false;
        const std::string tok(b.begin() + long(start), b.begin() + long(pos));
        char* end = nullptr;
        vals[i] = std::strtod(tok.c_str(), &end);
        if (*end) return false;
    }
    ++pos;  // the single whitespace byte before the data
    return true;
}

Image read_pnm(const std::string& path, const std::vector<uint8_t>& b) {
    if (b[1] == '2' || b[1] == '3')
        throw DataError("'" + path + "' is a plain (text) PNM file; only binary P5/P6 files are read");
    double hv[3];
    size_t pos;
    if (!pnm_header(b, pos, hv, 3) || hv[0] < 1 || hv[1] < 1 || hv[2] < 1 || hv[2] > 65535 || hv[0] > 1e6 || hv[1] > 1e6 ||
        hv[0] != int(hv[0]) || hv[1] != int(hv[1]) || hv[2] != int(hv[2]))
        throw DataError("'" + path + "' has a bad PPM/PGM header");
    const int ch = b[1] == '6' ? 3 : 1, maxval = int(hv[2]);
    Image img(static_cast<int>(hv[0]), static_cast<int>(hv[1]), ch, maxval > 255 ? Depth::U16 : Depth::U8);
    if (b.size() - pos < img.px.size())
        throw DataError("'" + path + "' is truncated: " + std::to_string(b.size() - pos) + " bytes of pixel data, " +
                        std::to_string(img.px.size()) + " expected");
    if (img.depth == Depth::U8) {
        std::memcpy(img.px.data(), b.data() + pos, img.px.size());
        if (maxval != 255)
            for (uint8_t& s : img.px) s = uint8_t(std::min(255, (s * 255 + maxval / 2) / maxval));
    } else {
        uint16_t* d = img.data<uint16_t>();
        for (size_t i = 0; i < img.px.size() / 2; ++i) {
            const unsigned s = unsigned(b[pos + 2 * i]) << 8 | b[pos + 2 * i + 1];
            d[i] = uint16_t(maxval == 65535 ? s : std::min(65535u, (s * 65535u + unsigned(maxval) / 2) / unsigned(maxval)));
        }
    }
    return img;
}

void write_pnm(FILE* f, const Image& img) {
    std::fprintf(f, "P%c\n%d %d\n%d\n", img.ch == 3 ? '6' : '5', img.w, img.h, img.depth == Depth::U16 ? 65535 : 255);
    if (img.depth == Depth::U8) {
        std::fwrite(img.px.data(), 1, img.px.size(), f);
        return;
    }
    std::vector<uint8_t> be(img.px.size());
    const uint16_t* s = img.data<uint16_t>();
    for (size_t i = 0; i < be.size() / 2; ++i) {
        be[2 * i] = uint8_t(s[i] >> 8);
        be[2 * i + 1] = uint8_t(s[i]);
    }
    std::fwrite(be.data(), 1, be.size(), f);
}

// PFM: "PF" colour or "Pf" gray, width height, scale (negative: little
// endian), then float rows from the bottom of the picture up.
Image read_pfm(const std::string& path, const std::vector<uint8_t>& b) {
    double hv[3];
    size_t pos;
    if (!pnm_header(b, pos, hv, 3) || hv[0] < 1 || hv[1] < 1 || hv[0] > 1e6 || hv[1] > 1e6 || hv[2] == 0)
        throw DataError("'" + path + "' has a bad PFM header");
    Image img(static_cast<int>(hv[0]), static_cast<int>(hv[1]), b[1] == 'F' ? 3 : 1, Depth::F32);
    if (b.size() - pos < img.px.size())
        throw DataError("'" + path + "' is truncated: " + std::to_string(b.size() - pos) + " bytes of pixel data, " +
                        std::to_string(img.px.size()) + " expected");
    const bool swap = (hv[2] < 0) != is_little_endian();
    for (int y = 0; y < img.h; ++y) {
        uint8_t* d = img.row(img.h - 1 - y);
        std::memcpy(d, b.data() + pos + size_t(y) * size_t(img.step()), size_t(img.step()));
        if (swap)
            for (int i = 0; i < img.step(); i += 4) {
                std::swap(d[i], d[i + 3]);
                std::swap(d[i + 1], d[i + 2]);
            }
    }
    return img;
}

void write_pfm(FILE* f, const Image& img) {
    std::fprintf(f, "P%c\n%d %d\n%s\n", img.ch == 3 ? 'F' : 'f', img.w, img.h, is_little_endian() ? "-1.0" : "1.0");
    for (int y = img.h - 1; y >= 0; --y) std::fwrite(img.row(y), 1, size_t(img.step()), f);
}

// ---- JPEG ------------------------------------------------------------------

#ifdef NMQCONV_JPEG
struct JpegErr {
    jpeg_error_mgr mgr;
    std::jmp_buf jump;
    char msg[JMSG_LENGTH_MAX];
};
void jpeg_fail(j_common_ptr c) {
    auto* e = reinterpret_cast<JpegErr*>(c->err);
    c->err->format_message(c, e->msg);
    std::longjmp(e->jump, 1);
}
// Warnings are counted, not printed: a warning means damaged data
// ("premature end of data"), which the reader turns into an error.
void jpeg_note(j_common_ptr c, int level) {
    if (level < 0) {
        if (c->err->num_warnings++ == 0) c->err->format_message(c, reinterpret_cast<JpegErr*>(c->err)->msg);
    }
}

Image read_jpeg(const std::string& path, const std::vector<uint8_t>& b) {
    jpeg_decompress_struct ci;
    JpegErr err;
    ci.err = jpeg_std_error(&err.mgr);
    err.mgr.error_exit = jpeg_fail;
    err.mgr.emit_message = jpeg_note;
    err.msg[0] = 0;
    Image img;
    if (setjmp(err.jump)) {
        jpeg_destroy_decompress(&ci);
        throw DataError("'" + path + "' is not a readable JPEG image: " + err.msg);
    }
    jpeg_create_decompress(&ci);
    jpeg_mem_src(&ci, b.data(), static_cast<unsigned long>(b.size()));
    jpeg_read_header(&ci, TRUE);
    ci.out_color_space = ci.num_components == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_start_decompress(&ci);
    img = Image(int(ci.output_width), int(ci.output_height), ci.output_components, Depth::U8);
    while (ci.output_scanline < ci.output_height) {
        JSAMPROW row = img.row(int(ci.output_scanline));
        jpeg_read_scanlines(&ci, &row, 1);
    }
    jpeg_finish_decompress(&ci);
    const bool damaged = err.mgr.num_warnings > 0;
    jpeg_destroy_decompress(&ci);
    if (damaged) throw DataError("'" + path + "' is truncated or damaged: " + err.msg);
    return img;
}

void write_jpeg(FILE* f, const Image& img, const std::string& path) {
    jpeg_compress_struct ci;
    JpegErr err;
    ci.err = jpeg_std_error(&err.mgr);
    err.mgr.error_exit = jpeg_fail;
    if (setjmp(err.jump)) {
        jpeg_destroy_compress(&ci);
        throw DataError("cannot write JPEG '" + path + "': " + err.msg);
    }
    jpeg_create_compress(&ci);
    jpeg_stdio_dest(&ci, f);
    ci.image_width = JDIMENSION(img.w);
    ci.image_height = JDIMENSION(img.h);
    ci.input_components = img.ch;
    ci.in_color_space = img.ch == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&ci);
    jpeg_set_quality(&ci, 92, TRUE);
    jpeg_start_compress(&ci, TRUE);
    while (ci.next_scanline < ci.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(img.row(int(ci.next_scanline)));
        jpeg_write_scanlines(&ci, &row, 1);
    }
    jpeg_finish_compress(&ci);
    jpeg_destroy_compress(&ci);
}
#endif

}  // namespace

Image read_picture(const std::string& path, const std::vector<uint8_t>& bytes) {
    switch (kind_from_magic(bytes.data(), bytes.size())) {
    case FileKind::Png: return read_png(path, bytes);
    case FileKind::Pnm: return read_pnm(path, bytes);
    case FileKind::Pfm: return read_pfm(path, bytes);
    case FileKind::Jpeg:
#ifdef NMQCONV_JPEG
        return read_jpeg(path, bytes);
#else
        throw DataError("'" + path + "' is a JPEG image, and this nmqconv was built without JPEG support");
#endif
    case FileKind::None: break;
    }
    throw DataError("'" + path + "' is not a PNG, PPM/PGM, JPEG or PFM image" +
                    (bytes.empty() ? std::string(" (the file is empty)") : std::string()));
}

void write_picture(FILE* f, FileKind kind, const Image& img, const std::string& path) {
    switch (kind) {
    case FileKind::Png: write_png(f, img, path); return;
    case FileKind::Pnm: write_pnm(f, img); return;
    case FileKind::Pfm: write_pfm(f, img); return;
    case FileKind::Jpeg:
#ifdef NMQCONV_JPEG
        write_jpeg(f, img, path);
        return;
#else
        throw UsageError("this nmqconv was built without JPEG support");
#endif
    case FileKind::None: break;
    }
    throw UsageError("cannot tell the picture format of '" + path + "'");
}

}  // namespace conv
