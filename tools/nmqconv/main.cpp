// nmqconv: converts pictures and raw frames through the nmqcc library.
//
//   nmqconv [options] INPUT OUTPUT     convert (raw video: frame by frame)
//   nmqconv testimage [options] OUTPUT the built-in test image as input
//   nmqconv demo [DIR]                 every family on the test image, HTML contact sheet
//   nmqconv --list                     every conversion and the library functions it calls
//
// Exit status: 0 done; 1 bad input data (unreadable, truncated, size
// mismatch) or a library error; 2 bad usage (unknown option or format,
// refusing to overwrite the input).
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "demo.h"
#include "image.h"
#include "lib.h"
#include "ops.h"
#include "raw.h"

namespace conv {
namespace {

const char* const kUsage =
    "usage: nmqconv [options] INPUT OUTPUT\n"
    "       nmqconv testimage [options] OUTPUT\n"
    "       nmqconv demo [DIR]\n"
    "       nmqconv --list\n"
    "\n"
    "Converts PNG, PPM/PGM, JPEG and PFM pictures and raw frames (YUV/YCbCr planar,\n"
    "two-plane and packed, packed 16-bit RGB, Bayer mosaics) through the nmqcc\n"
    "library. Picture formats are recognised from the file; raw formats are named\n"
    "with --from/--to or by the file extension (e.g. clip.nv12, out.rggb16).\n"
    "\n"
    "  -f, --from FORMAT       input format (nmqconv --list shows them)\n"
    "  -t, --to FORMAT         output format: png, ppm, pgm, jpeg, pfm or a raw format\n"
    "  -s, --size WxH          frame size of a raw input (a file of several frames is\n"
    "                          converted frame by frame)\n"
    "      --roi X,Y,W,H       convert only this rectangle of the input\n"
    "      --model NAME        to a colour model for inspection: hsv, hls, xyz, ycocg,\n"
    "                          yuv, ycbcr, gray (channels hold the components)\n"
    "      --inverse NAME      from a colour model back to RGB\n"
    "      --gray-weights R,G,B  weights of --model gray\n"
    "      --gamma fwd|inv     BT.709 transfer curve or its inverse\n"
    "      --twist FILE        colour twist by a 3x4 (or 3x3) matrix read from FILE\n"
    "      --tonemap linear|mean  float (PFM) image to 8 bits by its maximum or mean\n"
    "      --levels N          reduce each channel to N levels\n"
    "      --dither KIND       none, fs, jjn, stucki or bayer: for --levels; bayer also\n"
    "                          dithers packed 16-bit RGB outputs\n"
    "      --noise P           noise percentage 0..100 of --levels dithering\n"
    "      --depth 8|16        sample depth of a PNG/PPM/PGM output\n"
    "      --split             write each channel as its own gray picture\n"
    "  -q, --quiet             no progress bar\n"
    "      --list              every conversion with the library functions it calls\n"
    "\n"
    "Operations run in the order given. Several frames written to a picture format\n"
    "go to numbered files (OUT_0001.png, ... or a printf pattern such as OUT%03d.png).\n"
    "Outputs are written to a temporary file and renamed when complete.\n";

enum class OpKind { Model, Inverse, Gamma, Twist, Tonemap, Levels };
struct Op {
    OpKind kind;
    std::string arg;
    int levels = 0;
};

struct Options {
    std::string input, output, from, to;
    bool testimage = false, have_size = false, have_roi = false, split = false, quiet = false;
    int w = 0, h = 0;
    Rect roi;
    std::vector<Op> ops;
    int dither = -1, noise = 0, depth = 0;
    bool have_weights = false;
    float weights[3] = {0, 0, 0};
    float matrix[3][4];
};

// ---- output files ------------------------------------------------------------------

// The temporary file being written, removed on an interrupt.
char g_temp[4096];
void on_signal(int sig) {
    if (g_temp[0]) unlink(g_temp);
    signal(sig, SIG_DFL);
    raise(sig);
}

// A file written under a temporary name next to its destination and renamed
// over it only when complete: a failure leaves no partial or clobbered output.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path) : path_(path) {
        const size_t slash = path.rfind('/');
        const std::string dir = slash == std::string::npos ? "" : path.substr(0, slash + 1);
        temp_ = dir + "." + path.substr(slash == std::string::npos ? 0 : slash + 1) + ".XXXXXX";
        std::vector<char> name(temp_.begin(), temp_.end());
        name.push_back(0);
        const int fd = mkstemp(name.data());
        if (fd < 0) throw DataError("cannot create a file next to '" + path + "': " + std::strerror(errno));
        temp_ = name.data();
        std::snprintf(g_temp, sizeof g_temp, "%s", temp_.c_str());
        const mode_t mask = umask(0);
        umask(mask);
        fchmod(fd, 0666 & ~mask);
        f_ = fdopen(fd, "wb");
    }
    ~AtomicFile() {
        if (f_) std::fclose(f_);
        if (!done_) unlink(temp_.c_str());
        g_temp[0] = 0;
    }
    FILE* file() { return f_; }
    void commit() {
        const bool ok = std::fflush(f_) == 0 && !std::ferror(f_);
        const bool closed = std::fclose(f_) == 0;
        f_ = nullptr;
        if (!ok || !closed) throw DataError("cannot write '" + path_ + "': " + std::strerror(errno));
        if (std::rename(temp_.c_str(), path_.c_str()) != 0)
            throw DataError("cannot rename the finished output to '" + path_ + "': " + std::strerror(errno));
        done_ = true;
    }

private:
    std::string path_, temp_;
    FILE* f_ = nullptr;
    bool done_ = false;
};

bool same_file(const std::string& a, const std::string& b) {
    struct stat sa, sb;
    return stat(a.c_str(), &sa) == 0 && stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

// ---- formats ---------------------------------------------------------------------

struct Format {
    FileKind picture = FileKind::None;
    std::string pnm;  // "ppm", "pgm" or "pnm"
    const RawFormat* raw = nullptr;
};

std::string lower(std::string s) {
    for (char& c : s) c = char(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

bool parse_format(const std::string& name_in, Format& f) {
    const std::string name = lower(name_in);
    f = Format();
    if (name == "png") f.picture = FileKind::Png;
    else if (name == "ppm" || name == "pgm" || name == "pnm") f.picture = FileKind::Pnm, f.pnm = name;
    else if (name == "jpg" || name == "jpeg") f.picture = FileKind::Jpeg;
    else if (name == "pfm") f.picture = FileKind::Pfm;
    else f.raw = find_raw(name);
    return f.picture != FileKind::None || f.raw;
}

std::string extension(const std::string& path) {
    const size_t dot = path.rfind('.');
    if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return "";
    return path.substr(dot + 1);
}

Format resolve(const std::string& given, const std::string& path, bool output) {
    Format f;
    if (!given.empty()) {
        if (!parse_format(given, f))
            throw UsageError("unknown format '" + given + "' (nmqconv --list shows the formats)");
        return f;
    }
    if (parse_format(extension(path), f)) return f;
    if (output)
        throw UsageError("cannot tell the output format of '" + path +
                         "': give --to FORMAT or a known extension (nmqconv --list shows the formats)");
    return f;  // an input picture is recognised from its first bytes
}

// ---- options ------------------------------------------------------------------

int parse_int(const std::string& s, const char* what) {
    char* end = nullptr;
    errno = 0;
    const long v = std::strtol(s.c_str(), &end, 10);
    if (s.empty() || *end || errno || v < -2147483647L || v > 2147483647L)
        throw UsageError(std::string("bad ") + what + " '" + s + "'");
    return int(v);
}

std::vector<std::string> split_list(const std::string& s, char sep) {
    std::vector<std::string> out;
    size_t start = 0;
    for (;;) {
        const size_t p = s.find(sep, start);
        out.push_back(s.substr(start, p - start));
        if (p == std::string::npos) break;
        start = p + 1;
    }
    return out;
}

int dither_kind(const std::string& s) {
    static const char* const kNames[5] = {"none", "fs", "jjn", "stucki", "bayer"};
    for (int i = 0; i < 5; ++i)
        if (lower(s) == kNames[i]) return i;
    if (lower(s) == "floyd-steinberg") return 1;
    if (lower(s) == "ordered") return 4;
    throw UsageError("unknown dither '" + s + "' (none, fs, jjn, stucki, bayer)");
}

Options parse(int argc, char** argv) {
    Options o;
    std::vector<std::string> pos;
    for (int i = 1; i < argc; ++i) {
        std::string a = argv[i], val;
        const bool is_opt = a.size() > 1 && a[0] == '-';
        const size_t eq = a.find('=');
        if (is_opt && a[1] == '-' && eq != std::string::npos) {
            val = a.substr(eq + 1);
            a = a.substr(0, eq);
        }
        auto value = [&]() -> std::string {
            if (eq != std::string::npos && is_opt && a[1] == '-') return val;
            if (i + 1 >= argc) throw UsageError("option " + a + " needs a value");
            return argv[++i];
        };
        if (!is_opt) {
            pos.push_back(a);
        } else if (a == "-f" || a == "--from") {
            o.from = value();
        } else if (a == "-t" || a == "--to") {
            o.to = value();
        } else if (a == "-s" || a == "--size") {
            const std::vector<std::string> p = split_list(lower(value()), 'x');
            if (p.size() != 2) throw UsageError("bad size '" + a + "': give WxH, e.g. 640x480");
            o.w = parse_int(p[0], "width");
            o.h = parse_int(p[1], "height");
            if (o.w < 1 || o.h < 1 || o.w > 65536 || o.h > 65536) throw UsageError("size out of range");
            o.have_size = true;
        } else if (a == "--roi") {
            const std::vector<std::string> p = split_list(value(), ',');
            if (p.size() != 4) throw UsageError("bad ROI: give X,Y,W,H");
            o.roi = Rect{parse_int(p[0], "ROI x"), parse_int(p[1], "ROI y"), parse_int(p[2], "ROI width"),
                         parse_int(p[3], "ROI height")};
            if (o.roi.x < 0 || o.roi.y < 0 || o.roi.w < 1 || o.roi.h < 1) throw UsageError("bad ROI: negative or empty");
            o.have_roi = true;
        } else if (a == "--model" || a == "--inverse") {
            o.ops.push_back(Op{a == "--model" ? OpKind::Model : OpKind::Inverse, lower(value())});
            bool known = false;
            for (const Model& m : models()) known |= o.ops.back().arg == m.name;
            if (!known) throw UsageError("unknown colour model '" + o.ops.back().arg + "' (hsv, hls, xyz, ycocg, yuv, ycbcr, gray)");
        } else if (a == "--gray-weights") {
            const std::vector<std::string> p = split_list(value(), ',');
            if (p.size() != 3) throw UsageError("bad weights: give R,G,B");
            for (int k = 0; k < 3; ++k) o.weights[k] = std::strtof(p[size_t(k)].c_str(), nullptr);
            o.have_weights = true;
        } else if (a == "--gamma") {
            const std::string g = lower(value());
            if (g != "fwd" && g != "inv") throw UsageError("--gamma takes fwd or inv");
            o.ops.push_back(Op{OpKind::Gamma, g});
        } else if (a == "--twist") {
            o.ops.push_back(Op{OpKind::Twist, value()});
        } else if (a == "--tonemap") {
            const std::string t = lower(value());
            if (t != "linear" && t != "mean") throw UsageError("--tonemap takes linear or mean");
            o.ops.push_back(Op{OpKind::Tonemap, t});
        } else if (a == "--levels") {
            Op op{OpKind::Levels, ""};
            op.levels = parse_int(value(), "number of levels");
            o.ops.push_back(op);
        } else if (a == "--dither") {
            o.dither = dither_kind(value());
        } else if (a == "--noise") {
            o.noise = parse_int(value(), "noise percentage");
        } else if (a == "--depth") {
            o.depth = parse_int(value(), "depth");
            if (o.depth != 8 && o.depth != 16) throw UsageError("--depth takes 8 or 16");
        } else if (a == "--split") {
            o.split = true;
        } else if (a == "-q" || a == "--quiet") {
            o.quiet = true;
        } else {
            throw UsageError("unknown option '" + a + "' (nmqconv --help)");
        }
    }
    if (!pos.empty() && pos[0] == "testimage") {
        o.testimage = true;
        pos.erase(pos.begin());
        if (pos.size() != 1) throw UsageError("usage: nmqconv testimage [options] OUTPUT");
        o.output = pos[0];
        return o;
    }
    if (pos.size() != 2) throw UsageError(pos.empty() ? "no input or output given (nmqconv --help)"
                                                      : "give one input and one output (nmqconv --help)");
    o.input = pos[0];
    o.output = pos[1];
    return o;
}

// ---- conversion --------------------------------------------------------------

Image apply_ops(const Options& o, Image img) {
    for (const Op& op : o.ops) {
        const View v = view_of(img);
        switch (op.kind) {
        case OpKind::Model:
        case OpKind::Inverse:
            img = model_convert(v, op.arg, op.kind == OpKind::Inverse, o.have_weights ? o.weights : nullptr);
            break;
        case OpKind::Gamma: img = gamma(v, op.arg == "fwd"); break;
        case OpKind::Twist: img = twist(v, o.matrix); break;
        case OpKind::Tonemap: img = tonemap(v, op.arg == "mean"); break;
        case OpKind::Levels:
            img = reduce(v, op.levels, o.dither < 0 ? 0 : o.dither, o.noise);
            break;
        }
    }
    return img;
}

// Brings a processed image to what the output takes, through the library.
Image fit_output(Image img, const Options& o, const Format& out) {
    int ch = img.ch;
    Depth d = img.depth;
    if (out.raw) {
        ch = 3;
        d = raw_depth(*out.raw);
    } else if (o.split) {
        // Each channel as it is; a float picture needs PFM.
        if (d == Depth::F32 && out.picture != FileKind::Pfm) d = Depth::U8;
    } else {
        switch (out.picture) {
        case FileKind::Jpeg: d = Depth::U8; break;
        case FileKind::Pfm: d = Depth::F32; break;
        default:
            if (d == Depth::F32) d = Depth::U8;
            break;
        }
        if (out.pnm == "ppm") ch = 3;
        if (out.pnm == "pgm") ch = 1;
    }
    if (o.depth && !out.raw && out.picture != FileKind::Pfm && out.picture != FileKind::Jpeg)
        d = o.depth == 16 ? Depth::U16 : Depth::U8;
    if (img.ch != ch) img = to_channels(view_of(img), ch);
    if (img.depth != d) img = to_depth(view_of(img), d);
    return img;
}

std::string frame_path(const std::string& path, int index, int count) {
    if (count == 1) return path;
    if (path.find('%') != std::string::npos) {
        char buf[4096];
        std::snprintf(buf, sizeof buf, path.c_str(), index + 1);
        return buf;
    }
    const std::string ext = extension(path);
    const std::string stem = ext.empty() ? path : path.substr(0, path.size() - ext.size() - 1);
    char num[16];
    std::snprintf(num, sizeof num, "_%04d", index + 1);
    return stem + num + (ext.empty() ? "" : "." + ext);
}

std::string with_suffix(const std::string& path, const std::string& suffix) {
    const std::string ext = extension(path);
    const std::string stem = ext.empty() ? path : path.substr(0, path.size() - ext.size() - 1);
    return stem + "_" + suffix + (ext.empty() ? "" : "." + ext);
}

void write_one(const std::string& path, const Image& img, const Format& out, const std::string& input) {
    if (!input.empty() && same_file(input, path)) throw UsageError("refusing to overwrite the input file '" + path + "'");
    AtomicFile f(path);
    write_picture(f.file(), out.picture, img, path);
    f.commit();
}

void progress(int done, int total) {
    const int width = 40, fill = total ? done * width / total : width;
    std::fprintf(stderr, "\r[%.*s%*s] %d/%d frames", fill, "########################################", width - fill,
                 "", done, total);
    if (done == total) std::fputc('\n', stderr);
    std::fflush(stderr);
}

void check_alignment(const RawFormat& f, int w, int h, const char* what) {
    if (w % f.ax || h % f.ay) {
        const std::string need = f.ax == f.ay ? "a multiple of " + std::to_string(f.ax) + " in width and height"
                                 : f.ay == 1  ? "a width that is a multiple of " + std::to_string(f.ax)
                                              : "sizes that are multiples of " + std::to_string(f.ax) + "x" + std::to_string(f.ay);
        throw DataError(std::string(f.name) + " needs " + need + "; " + what + " is " + std::to_string(w) + "x" +
                        std::to_string(h) + " (--roi can crop it)");
    }
}

int convert(Options& o) {
    for (const Op& op : o.ops)
        if (op.kind == OpKind::Twist) read_matrix(op.arg, o.matrix);
    const Format out = resolve(o.to, o.output, true);
    Format in;
    if (!o.testimage) in = resolve(o.from, o.input, false);
    const bool packed16_out = out.raw && out.raw->layout == Layout::Word16;
    bool has_levels = false;
    for (const Op& op : o.ops) has_levels |= op.kind == OpKind::Levels;
    if (o.dither >= 0 && !has_levels && !packed16_out)
        throw UsageError("--dither applies to --levels N or to a packed 16-bit RGB output");
    if (packed16_out && !has_levels && o.dither > 0 && o.dither != 4)
        throw UsageError("packed 16-bit RGB outputs dither with 'bayer' (ordered) only");
    if (o.split && out.raw) throw UsageError("--split writes pictures, not raw frames");
    if (!o.testimage && same_file(o.input, o.output))
        throw UsageError("refusing to overwrite the input file '" + o.output + "'");
    EncodeOptions eo;
    eo.dither = packed16_out && !has_levels && o.dither == 4;

    // The input: one picture, or raw frames read one at a time.
    Image picture;
    FILE* rawf = nullptr;
    int frames = 1, fw = 0, fh = 0;
    Geometry g;
    if (o.testimage) {
        if (o.from.size()) throw UsageError("testimage takes no --from");
        picture.w = o.have_size ? o.w : 640;
        picture.h = o.have_size ? o.h : 480;
        const demo::Image t = demo::test_image(picture.w, picture.h);
        picture = Image(t.w, t.h, 3, Depth::U8);
        picture.px = t.px;
        fw = picture.w, fh = picture.h;
    } else if (in.raw) {
        if (!o.have_size) throw UsageError(std::string("a raw ") + in.raw->name + " input needs --size WxH");
        check_alignment(*in.raw, o.w, o.h, "the frame size");
        g = geometry(*in.raw, o.w, o.h);
        struct stat st;
        if (stat(o.input.c_str(), &st) != 0) throw DataError("cannot open '" + o.input + "': " + std::strerror(errno));
        const unsigned long long bytes = (unsigned long long)st.st_size;
        if (bytes == 0 || bytes % g.bytes != 0)
            throw DataError("'" + o.input + "' has " + std::to_string(bytes) + " bytes, which does not match " +
                            std::to_string(o.w) + "x" + std::to_string(o.h) + " " + in.raw->name + " frames of " +
                            std::to_string(g.bytes) + " bytes each");
        frames = int(bytes / g.bytes);
        rawf = std::fopen(o.input.c_str(), "rb");
        if (!rawf) throw DataError("cannot open '" + o.input + "': " + std::strerror(errno));
        fw = o.w, fh = o.h;
    } else {
        if (o.have_size)
            throw UsageError("'" + o.input + "' is read as a picture; name its raw format with --from FORMAT");
        // The file's first bytes tell the picture format; a format named with
        // --from or by the extension must agree with them.
        const std::vector<uint8_t> bytes = read_file(o.input);
        const FileKind kind = kind_from_magic(bytes.data(), bytes.size());
        if (in.picture != FileKind::None && kind != FileKind::None && kind != in.picture)
            throw DataError("'" + o.input + "' is not a " + (o.from.empty() ? extension(o.input) : lower(o.from)) +
                            " file");
        picture = read_picture(o.input, bytes);
        fw = picture.w, fh = picture.h;
    }
    Rect roi{0, 0, fw, fh};
    if (o.have_roi) {
        if (o.roi.x + o.roi.w > fw || o.roi.y + o.roi.h > fh)
            throw DataError("the ROI " + std::to_string(o.roi.x) + "," + std::to_string(o.roi.y) + "," +
                            std::to_string(o.roi.w) + "," + std::to_string(o.roi.h) + " lies outside the " +
                            std::to_string(fw) + "x" + std::to_string(fh) + " input");
        roi = o.roi;
        if (in.raw && (roi.x % in.raw->ax || roi.y % in.raw->ay)) {
            if (rawf) std::fclose(rawf);
            throw DataError(std::string("a ") + in.raw->name + " ROI must start at a multiple of " +
                            std::to_string(in.raw->ax) + (in.raw->ay > 1 ? " in x and y" : " in x"));
        }
    }
    if (out.raw) {
        try {
            check_alignment(*out.raw, roi.w, roi.h, "the image");
        } catch (...) {
            if (rawf) std::fclose(rawf);
            throw;
        }
    }

    const bool bar = frames > 1 && !o.quiet && isatty(STDERR_FILENO);
    std::unique_ptr<AtomicFile> rawout;
    std::vector<uint8_t> frame(in.raw ? g.bytes : 0), encoded;
    struct Closer {
        FILE*& f;
        ~Closer() { if (f) std::fclose(f); }
    } closer{rawf};
    for (int i = 0; i < frames; ++i) {
        Image img;
        if (in.raw) {
            if (std::fread(frame.data(), 1, frame.size(), rawf) != frame.size())
                throw DataError("'" + o.input + "' ends early in frame " + std::to_string(i + 1));
            img = in.raw->decode(*in.raw, frame.data(), g, fw, fh, roi);
        } else {
            img = o.have_roi ? copy_of(crop(view_of(picture), roi.x, roi.y, roi.w, roi.h)) : picture;
        }
        img = fit_output(apply_ops(o, std::move(img)), o, out);
        if (out.raw) {
            if (!rawout) {
                rawout.reset(new AtomicFile(o.output));
            }
            const Geometry og = geometry(*out.raw, img.w, img.h);
            encoded.assign(og.bytes, 0);
            out.raw->encode(*out.raw, view_of(img), encoded.data(), og, eo);
            if (std::fwrite(encoded.data(), 1, encoded.size(), rawout->file()) != encoded.size())
                throw DataError("cannot write '" + o.output + "': " + std::strerror(errno));
        } else if (o.split) {
            // Files are named after the last model's components.
            std::string comp = "r,g,b";
            for (const Op& op : o.ops) {
                if (op.kind == OpKind::Inverse) comp = "r,g,b";
                if (op.kind == OpKind::Model)
                    for (const Model& m : models())
                        if (op.arg == m.name) comp = m.components;
            }
            const std::vector<std::string> names = split_list(comp, ',');
            const std::vector<Image> planes = split_channels(img);
            for (size_t c = 0; c < planes.size(); ++c)
                write_one(with_suffix(frame_path(o.output, i, frames), c < names.size() && planes.size() == names.size()
                                                                           ? names[c] : std::to_string(c)),
                          planes[c], out, o.testimage ? "" : o.input);
        } else {
            write_one(frame_path(o.output, i, frames), img, out, o.testimage ? "" : o.input);
        }
        if (bar) progress(i + 1, frames);
    }
    if (rawout) rawout->commit();
    return 0;
}

}  // namespace
}  // namespace conv

int main(int argc, char** argv) {
    std::signal(SIGINT, conv::on_signal);
    std::signal(SIGTERM, conv::on_signal);
    if (argc > 1 && std::strcmp(argv[1], "demo") == 0) {
        if (argc > 3) {
            std::fprintf(stderr, "nmqconv: usage: nmqconv demo [DIR]\n");
            return 2;
        }
        return demo::run(argc > 2 ? argv[2] : "demo-out");
    }
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--list") == 0) {
            conv::print_operation_list(stdout);
            return 0;
        }
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            std::fputs(conv::kUsage, stdout);
            return 0;
        }
    }
    try {
        conv::Options o = conv::parse(argc, argv);
        return conv::convert(o);
    } catch (const conv::UsageError& e) {
        std::fprintf(stderr, "nmqconv: %s\n", e.what());
        return 2;
    } catch (const conv::DataError& e) {
        std::fprintf(stderr, "nmqconv: error: %s\n", e.what());
        return 1;
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "nmqconv: error: out of memory\n");
        return 1;
    }
}
