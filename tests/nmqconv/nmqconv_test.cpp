// nmqconv end to end: the tool draws its test image, converts it to every raw
// format and back, and is given broken files; the checks look at files and
// exit statuses only.
#include <dirent.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes slurp(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

void spit(const std::string& path, const Bytes& b) {
    std::ofstream f(path, std::ios::binary);
    f.write(reinterpret_cast<const char*>(b.data()), std::streamsize(b.size()));
}

bool exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

// An 8-bit binary PPM or PGM as written by the tool ("P6\nW H\n255\n").
struct Pnm {
    int w = 0, h = 0, ch = 0;
    Bytes px;
    int at(int x, int y, int c) const { return px[(size_t(y) * w + x) * ch + c]; }
};

Pnm read_pnm(const std::string& path) {
    const Bytes b = slurp(path);
    Pnm p;
    int maxval = 0, used = 0;
    const std::string head(b.begin(), b.begin() + long(std::min<size_t>(b.size(), 40)));
    char magic[3] = {};
    if (std::sscanf(head.c_str(), "%2s %d %d %d%n", magic, &p.w, &p.h, &maxval, &used) != 4 || maxval != 255) {
        ADD_FAILURE() << path << ": not an 8-bit PNM";
        return p;
    }
    p.ch = magic[1] == '6' ? 3 : 1;
    p.px.assign(b.begin() + used + 1, b.end());
    EXPECT_EQ(p.px.size(), size_t(p.w) * p.h * p.ch) << path;
    return p;
}

double psnr(const Pnm& a, const Pnm& b) {
    if (a.px.size() != b.px.size() || a.px.empty()) return 0;
    double se = 0;
    for (size_t i = 0; i < a.px.size(); ++i) se += (a.px[i] - b.px[i]) * double(a.px[i] - b.px[i]);
    return se == 0 ? 99 : 10 * std::log10(255.0 * 255.0 * a.px.size() / se);
}

class Conv : public ::testing::Test {
protected:
    std::string dir;
    std::string err;  // stderr of the last run

    void SetUp() override {
        char tmpl[] = "/tmp/nmqconv-test-XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir = tmpl;
    }
    void TearDown() override { std::system(("rm -rf '" + dir + "'").c_str()); }

    std::string path(const std::string& name) const { return dir + "/" + name; }

    // Runs nmqconv in the test folder; returns its exit status.
    int run(const std::string& args) {
        const std::string cmd = "cd '" + dir + "' && " NMQCONV_EXE " " + args + " > out.txt 2> err.txt < /dev/null";
        const int st = std::system(cmd.c_str());
        const Bytes e = slurp(path("err.txt"));
        err.assign(e.begin(), e.end());
        return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    }

    // The folder's entries other than the given files, '.' and '..': leftovers.
    std::vector<std::string> hidden_files() const {
        std::vector<std::string> out;
        if (DIR* d = opendir(dir.c_str())) {
            while (dirent* e = readdir(d)) {
                const std::string n = e->d_name;
                if (n != "." && n != ".." && n[0] == '.') out.push_back(n);
            }
            closedir(d);
        }
        return out;
    }
};

// Raw formats of a 64x48 frame: file size worked out by hand from the plane
// layout, and the least PSNR of the round trip RGB -> format -> RGB.
struct RawCase {
    const char* format;
    size_t bytes;
    double min_psnr;
    bool stable;  // format -> RGB -> format gives the same bytes
};
const RawCase kRaw[] = {
    // Full-range YUV clips saturated reds and blues (V reaches 1.14 x 128).
    {"yuv444", 64 * 48 * 3, 28, false},         {"yuv444p", 64 * 48 * 3, 28, false},
    {"yuv422", 64 * 48 * 2, 28, false},         {"yuv422p", 64 * 48 * 2, 28, false},
    {"yuv420p", 64 * 48 * 3 / 2, 28, false},    {"ycbcr444", 64 * 48 * 3, 45, false},
    {"ycbcr444p", 64 * 48 * 3, 45, false},      {"ycbcr422", 64 * 48 * 2, 38, false},
    {"ycrcb422", 64 * 48 * 2, 38, false},       {"cbycr422", 64 * 48 * 2, 38, false},
    {"ycbcr422p", 64 * 48 * 2, 38, false},      {"ycbcr420p", 64 * 48 * 3 / 2, 36, false},
    {"ycrcb420p", 64 * 48 * 3 / 2, 36, false},  {"nv12", 64 * 48 * 3 / 2, 36, false},
    {"nv21", 64 * 48 * 3 / 2, 36, false},       {"ycbcr411p", 64 * 48 * 3 / 2, 33, false},
    {"ycbcr411sp", 64 * 48 * 3 / 2, 33, false}, {"ycbcr420p-709", 64 * 48 * 3 / 2, 35, false},
    {"rgb565", 64 * 48 * 2, 38, true},          {"bgr565", 64 * 48 * 2, 38, true},
    {"rgb555", 64 * 48 * 2, 36, false},         {"bgr555", 64 * 48 * 2, 36, false},
    {"rgb444", 64 * 48 * 2, 30, false},         {"bgr444", 64 * 48 * 2, 30, false},
    // Demosaicing a small image of sharp bars and a zone plate is rough, but
    // every site keeps its own sample, so mosaicking again is exact.
    {"bggr8", 64 * 48, 15, true},               {"rggb8", 64 * 48, 15, true},
    {"gbrg8", 64 * 48, 15, true},               {"grbg8", 64 * 48, 15, true},
    {"bggr16", 64 * 48 * 2, 15, true},          {"rggb16", 64 * 48 * 2, 15, true},
    {"gbrg16", 64 * 48 * 2, 15, true},          {"grbg16", 64 * 48 * 2, 15, true},
};

TEST_F(Conv, EveryRawFormatRoundTrips) {
    ASSERT_EQ(run("testimage --size 64x48 ref.ppm"), 0) << err;
    const Pnm ref = read_pnm(path("ref.ppm"));
    for (const RawCase& c : kRaw) {
        SCOPED_TRACE(c.format);
        const std::string raw = std::string("t.") + c.format, back = std::string("back_") + c.format + ".ppm";
        ASSERT_EQ(run("ref.ppm " + raw), 0) << err;
        EXPECT_EQ(slurp(path(raw)).size(), c.bytes);
        ASSERT_EQ(run("--size 64x48 " + raw + " " + back + " --depth 8"), 0) << err;
        EXPECT_GE(psnr(ref, read_pnm(path(back))), c.min_psnr);
        if (c.stable) {
            // 16-bit mosaics go through a 16-bit picture.
            ASSERT_EQ(run("--size 64x48 " + raw + " again.png && " NMQCONV_EXE " again.png --to " + c.format + " again"), 0)
                << err;
            EXPECT_EQ(slurp(path("again")), slurp(path(raw)));
        }
    }
}

// The same picture in formats that differ only in byte order: each file is a
// rearrangement of the other, known from the layouts.
TEST_F(Conv, ChromaOrdersAndPlaneArrangementsAgree) {
    ASSERT_EQ(run("testimage --size 64x48 t.png"), 0) << err;
    for (const char* f : {"ycbcr422", "ycrcb422", "cbycr422", "ycbcr420p", "ycrcb420p", "nv12", "nv21", "yuv444",
                          "yuv444p", "rgb565", "bgr565", "ycbcr411p", "ycbcr411sp"})
        ASSERT_EQ(run(std::string("t.png t.") + f), 0) << f << ": " << err;
    const size_t n = 64 * 48, q = n / 4;
    const Bytes yuyv = slurp(path("t.ycbcr422")), yvyu = slurp(path("t.ycrcb422")), uyvy = slurp(path("t.cbycr422"));
    ASSERT_EQ(yuyv.size(), 2 * n);
    for (size_t i = 0; i < yuyv.size(); i += 4) {
        EXPECT_EQ(yvyu[i + 0], yuyv[i + 0]); EXPECT_EQ(yvyu[i + 1], yuyv[i + 3]);
        EXPECT_EQ(yvyu[i + 2], yuyv[i + 2]); EXPECT_EQ(yvyu[i + 3], yuyv[i + 1]);
        EXPECT_EQ(uyvy[i + 0], yuyv[i + 1]); EXPECT_EQ(uyvy[i + 1], yuyv[i + 0]);
        EXPECT_EQ(uyvy[i + 2], yuyv[i + 3]); EXPECT_EQ(uyvy[i + 3], yuyv[i + 2]);
    }
    const Bytes p3 = slurp(path("t.ycbcr420p")), p3r = slurp(path("t.ycrcb420p"));
    const Bytes nv12 = slurp(path("t.nv12")), nv21 = slurp(path("t.nv21"));
    ASSERT_EQ(p3.size(), n + 2 * q);
    for (const Bytes* b : {&p3r, &nv12, &nv21}) EXPECT_TRUE(std::equal(p3.begin(), p3.begin() + long(n), b->begin()));
    for (size_t i = 0; i < q; ++i) {
        const int cb = p3[n + i], cr = p3[n + q + i];
        EXPECT_EQ(p3r[n + i], cr); EXPECT_EQ(p3r[n + q + i], cb);
        EXPECT_EQ(nv12[n + 2 * i], cb); EXPECT_EQ(nv12[n + 2 * i + 1], cr);
        EXPECT_EQ(nv21[n + 2 * i], cr); EXPECT_EQ(nv21[n + 2 * i + 1], cb);
    }
    const Bytes c3 = slurp(path("t.yuv444")), planes = slurp(path("t.yuv444p"));
    for (size_t i = 0; i < n; ++i)
        for (size_t c = 0; c < 3; ++c) EXPECT_EQ(planes[c * n + i], c3[3 * i + c]);
    // 565: R in the low five bits, or B; G in the middle either way.
    const Bytes rgb = slurp(path("t.rgb565")), bgr = slurp(path("t.bgr565"));
    for (size_t i = 0; i < 2 * n; i += 2) {
        const unsigned a = rgb[i] | rgb[i + 1] << 8, b = bgr[i] | bgr[i + 1] << 8;
        EXPECT_EQ(a & 31, b >> 11); EXPECT_EQ(a >> 11, b & 31); EXPECT_EQ((a >> 5) & 63, (b >> 5) & 63);
    }
    // 4:1:1: planes Y, Cb, Cr against Y and Cb Cr pairs.
    const Bytes p411 = slurp(path("t.ycbcr411p")), sp411 = slurp(path("t.ycbcr411sp"));
    for (size_t i = 0; i < q; ++i) {
        EXPECT_EQ(sp411[n + 2 * i], p411[n + i]);
        EXPECT_EQ(sp411[n + 2 * i + 1], p411[n + q + i]);
    }
}

// Packed 565 against the picture it came from: the top bits of each channel.
TEST_F(Conv, Rgb565KeepsTheTopBits) {
    ASSERT_EQ(run("testimage --size 32x16 t.ppm"), 0) << err;
    ASSERT_EQ(run("t.ppm t.rgb565"), 0) << err;
    const Pnm p = read_pnm(path("t.ppm"));
    const Bytes w = slurp(path("t.rgb565"));
    for (int i = 0; i < 32 * 16; ++i) {
        const unsigned v = w[2 * i] | w[2 * i + 1] << 8;
        ASSERT_EQ(v & 31, unsigned(p.px[3 * i] >> 3)) << i;
        ASSERT_EQ((v >> 5) & 63, unsigned(p.px[3 * i + 1] >> 2)) << i;
        ASSERT_EQ(v >> 11, unsigned(p.px[3 * i + 2] >> 3)) << i;
    }
    // Ordered dither changes some of the words.
    ASSERT_EQ(run("t.ppm --dither bayer d.rgb565"), 0) << err;
    const Bytes d = slurp(path("d.rgb565"));
    ASSERT_EQ(d.size(), w.size());
    EXPECT_NE(d, w);
}

TEST_F(Conv, VideoIsConvertedFrameByFrame) {
    ASSERT_EQ(run("testimage --size 32x16 a.png"), 0) << err;
    ASSERT_EQ(run("a.png --gamma fwd b.png"), 0) << err;
    ASSERT_EQ(run("a.png a.nv12"), 0) << err;
    ASSERT_EQ(run("b.png b.nv12"), 0) << err;
    Bytes clip = slurp(path("a.nv12")), b = slurp(path("b.nv12"));
    clip.insert(clip.end(), b.begin(), b.end());
    clip.insert(clip.end(), clip.begin(), clip.begin() + long(b.size()));
    spit(path("clip.nv12"), clip);  // frames a, b, a

    ASSERT_EQ(run("-s 32x16 clip.nv12 f%02d.ppm"), 0) << err;
    EXPECT_EQ(err, "") << "no progress bar when stderr is not a terminal";
    ASSERT_EQ(run("-s 32x16 a.nv12 a.ppm"), 0) << err;
    ASSERT_EQ(run("-s 32x16 b.nv12 b.ppm"), 0) << err;
    EXPECT_EQ(slurp(path("f01.ppm")), slurp(path("a.ppm")));
    EXPECT_EQ(slurp(path("f02.ppm")), slurp(path("b.ppm")));
    EXPECT_EQ(slurp(path("f03.ppm")), slurp(path("a.ppm")));
    EXPECT_FALSE(exists(path("f04.ppm")));

    // Without a pattern, frames are numbered before the extension.
    ASSERT_EQ(run("-s 32x16 clip.nv12 g.png"), 0) << err;
    EXPECT_TRUE(exists(path("g_0001.png")) && exists(path("g_0003.png")));

    // Raw to raw keeps every frame.
    ASSERT_EQ(run("-s 32x16 clip.nv12 clip.yuv422"), 0) << err;
    EXPECT_EQ(slurp(path("clip.yuv422")).size(), 3u * 32 * 16 * 2);
}

// A ROI converts exactly the pixels a crop of the whole result would hold.
TEST_F(Conv, RoiMatchesACropOfTheWholeImage) {
    ASSERT_EQ(run("testimage --size 64x48 t.ppm"), 0) << err;
    ASSERT_EQ(run("t.ppm t.nv12"), 0) << err;
    struct Case {
        const char* whole;
        const char* part;
    } cases[] = {
        {"-s 64x48 t.nv12 whole.ppm", "-s 64x48 t.nv12 --roi 10,6,20,14 part.ppm"},
        {"t.ppm --model hsv whole.ppm", "t.ppm --roi 5,7,21,13 --model hsv part.ppm"},
    };
    const int roi[2][4] = {{10, 6, 20, 14}, {5, 7, 21, 13}};
    for (int k = 0; k < 2; ++k) {
        ASSERT_EQ(run(cases[k].whole), 0) << err;
        ASSERT_EQ(run(cases[k].part), 0) << err;
        const Pnm whole = read_pnm(path("whole.ppm")), part = read_pnm(path("part.ppm"));
        ASSERT_EQ(part.w, roi[k][2]);
        ASSERT_EQ(part.h, roi[k][3]);
        for (int y = 0; y < part.h; ++y)
            for (int x = 0; x < part.w; ++x)
                for (int c = 0; c < 3; ++c)
                    ASSERT_EQ(part.at(x, y, c), whole.at(x + roi[k][0], y + roi[k][1], c)) << k << " " << x << "," << y;
    }
}

TEST_F(Conv, ReductionGivesOnlyTheRequestedLevels) {
    ASSERT_EQ(run("testimage --size 48x32 t.ppm"), 0) << err;
    for (const char* dither : {"none", "fs", "jjn", "stucki", "bayer"})
        for (int levels : {2, 4}) {
            SCOPED_TRACE(std::string(dither) + " " + std::to_string(levels));
            ASSERT_EQ(run("t.ppm --levels " + std::to_string(levels) + " --dither " + dither + " r.ppm"), 0) << err;
            const std::set<int> allowed = levels == 2 ? std::set<int>{0, 255} : std::set<int>{0, 85, 170, 255};
            const Pnm r = read_pnm(path("r.ppm"));
            std::set<int> seen(r.px.begin(), r.px.end());
            for (int v : seen) EXPECT_TRUE(allowed.count(v)) << v;
            EXPECT_EQ(seen.size(), allowed.size());
        }
}

TEST_F(Conv, TwistGammaAndToneMap) {
    ASSERT_EQ(run("testimage --size 40x30 t.ppm"), 0) << err;
    const Pnm t = read_pnm(path("t.ppm"));
    // Identity and a red/blue exchange, the second as 3 x 3 with a comment.
    spit(path("id.txt"), Bytes{'1', ' ', '0', ' ', '0', ' ', '0', '\n', '0', ' ', '1', ' ', '0', ' ', '0', '\n',
                               '0', ' ', '0', ' ', '1', ' ', '0', '\n'});
    const std::string swap = "# swap r and b\n0,0,1\n0,1,0\n1,0,0\n";
    spit(path("swap.txt"), Bytes(swap.begin(), swap.end()));
    ASSERT_EQ(run("t.ppm --twist id.txt id.ppm"), 0) << err;
    EXPECT_EQ(read_pnm(path("id.ppm")).px, t.px);
    ASSERT_EQ(run("t.ppm --twist swap.txt sw.ppm"), 0) << err;
    const Pnm sw = read_pnm(path("sw.ppm"));
    for (size_t i = 0; i < t.px.size(); i += 3) {
        ASSERT_EQ(sw.px[i], t.px[i + 2]);
        ASSERT_EQ(sw.px[i + 2], t.px[i]);
    }
    // The transfer curve lies above the identity and keeps black and white.
    ASSERT_EQ(run("t.ppm --gamma fwd g.ppm"), 0) << err;
    const Pnm g = read_pnm(path("g.ppm"));
    for (size_t i = 0; i < t.px.size(); ++i) {
        ASSERT_GE(g.px[i], t.px[i]);
        if (t.px[i] == 0 || t.px[i] == 255) {
            ASSERT_EQ(g.px[i], t.px[i]);
        }
    }
    // Float picture of maximum 1.0: the linear map scales by 255 again.
    ASSERT_EQ(run("t.ppm t.pfm"), 0) << err;
    ASSERT_EQ(run("t.pfm --tonemap linear tm.ppm"), 0) << err;
    const Pnm tm = read_pnm(path("tm.ppm"));
    for (size_t i = 0; i < t.px.size(); ++i) ASSERT_LE(std::abs(tm.px[i] - t.px[i]), 1) << i;
}

TEST_F(Conv, ModelsGoBackToRgb) {
    ASSERT_EQ(run("testimage --size 40x30 t.ppm"), 0) << err;
    const Pnm t = read_pnm(path("t.ppm"));
    const struct {
        const char* model;
        double min_psnr;
    } cases[] = {{"hsv", 35}, {"hls", 35}, {"xyz", 30}, {"ycocg", 40}, {"ycbcr", 40}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.model);
        ASSERT_EQ(run(std::string("t.ppm --model ") + c.model + " --inverse " + c.model + " back.ppm"), 0) << err;
        EXPECT_GE(psnr(t, read_pnm(path("back.ppm"))), c.min_psnr);
    }
    ASSERT_EQ(run("t.ppm --model hsv --split m.pgm"), 0) << err;
    EXPECT_TRUE(exists(path("m_h.pgm")) && exists(path("m_s.pgm")) && exists(path("m_v.pgm")));
    // The colour bars' V is their largest channel.
    EXPECT_EQ(read_pnm(path("m_v.pgm")).at(0, 0, 0), 255);
    ASSERT_EQ(run("t.ppm --model gray g.pgm"), 0) << err;
    EXPECT_EQ(read_pnm(path("g.pgm")).ch, 1);
}

// Bad input: a message naming the problem, a non-zero status, no output and
// nothing left behind; an existing output is left as it was.
TEST_F(Conv, BadInputFailsCleanly) {
    ASSERT_EQ(run("testimage --size 32x16 t.png"), 0) << err;
    ASSERT_EQ(run("t.png t.nv12"), 0) << err;
    ASSERT_EQ(run("t.png t.ppm"), 0) << err;
    // JPEG only where nmqconv was built with libjpeg.
    const bool jpeg = run("t.png t.jpg") == 0;
    const Bytes png = slurp(path("t.png")), ppm = slurp(path("t.ppm")), jpg = slurp(path("t.jpg"));
    spit(path("short.png"), Bytes(png.begin(), png.begin() + long(png.size() / 2)));
    spit(path("short.ppm"), Bytes(ppm.begin(), ppm.end() - 7));
    if (jpeg) spit(path("short.jpg"), Bytes(jpg.begin(), jpg.end() - 40));
    Bytes odd = slurp(path("t.nv12"));
    odd.pop_back();
    spit(path("odd.nv12"), odd);
    spit(path("junk.png"), Bytes{'h', 'e', 'l', 'l', 'o'});
    spit(path("empty.ppm"), Bytes());
    const Bytes keep{'k', 'e', 'e', 'p'};

    const struct {
        const char* args;
        int status;
        const char* message;
    } cases[] = {
        {"-s 32x16 odd.nv12 out.png", 1, "767 bytes, which does not match 32x16 nv12 frames of 768 bytes"},
        {"-s 30x16 t.nv12 out.png", 1, "does not match"},
        {"-s 31x16 t.nv12 out.png", 1, "nv12 needs a multiple of 2"},
        {"t.nv12 out.png", 2, "needs --size"},
        {"short.png out.png", 1, "truncated"},
        {"short.ppm out.png", 1, "truncated"},
        {"short.jpg out.png", 1, "truncated"},
        {"junk.png out.png", 1, "not a PNG, PPM/PGM, JPEG or PFM image"},
        {"empty.ppm out.png", 1, "empty"},
        {"missing.png out.png", 1, "cannot open"},
        {"t.png out.xyz", 2, "cannot tell the output format"},
        {"t.png --to zzz out.png", 2, "unknown format 'zzz'"},
        {"-f qqq t.png out.png", 2, "unknown format 'qqq'"},
        {"t.png --bogus out.png", 2, "unknown option"},
        {"t.png --roi 30,0,8,8 out.png", 1, "outside"},
        {"t.png --tonemap linear out.png", 2, "float"},
        {"t.png --levels 300 out.png", 1, "nmqStsLevelsRange"},
        {"t.png --dither fs out.png", 2, "--dither"},
        {"t.png --twist missing.txt out.png", 1, "cannot open"},
        {"t.png t.png", 2, "refusing to overwrite the input"},
        {"-s 32x16 t.nv12 ./t.nv12", 2, "refusing to overwrite the input"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args);
        if (!jpeg && std::strstr(c.args, ".jpg")) continue;
        spit(path("out.png"), keep);
        EXPECT_EQ(run(c.args), c.status);
        EXPECT_NE(err.find(c.message), std::string::npos) << err;
        EXPECT_EQ(slurp(path("out.png")), keep);
        EXPECT_EQ(hidden_files(), std::vector<std::string>{});
    }
    EXPECT_EQ(slurp(path("t.png")), png);
    EXPECT_EQ(slurp(path("t.nv12")).size(), 768u);
}

// --list names real exports only, and every raw format.
TEST_F(Conv, ListNamesExportedFunctions) {
    ASSERT_EQ(run("--list"), 0);
    const Bytes out = slurp(path("out.txt"));
    const std::string text(out.begin(), out.end());
    std::set<std::string> exported;
    if (DIR* d = opendir(NMQ_EXPORTS_DIR)) {
        while (dirent* e = readdir(d)) {
            const std::string n = e->d_name;
            if (n.size() > 4 && n.substr(n.size() - 4) == ".txt") {
                std::ifstream f(std::string(NMQ_EXPORTS_DIR) + "/" + n);
                for (std::string line; std::getline(f, line);)
                    if (!line.empty()) exported.insert(line);
            }
        }
        closedir(d);
    }
    ASSERT_FALSE(exported.empty());
    const std::regex fn("nmqi[A-Za-z0-9_]+");
    int count = 0;
    for (auto it = std::sregex_iterator(text.begin(), text.end(), fn); it != std::sregex_iterator(); ++it, ++count)
        EXPECT_TRUE(exported.count(it->str())) << it->str();
    EXPECT_GT(count, 80);
    for (const RawCase& c : kRaw) EXPECT_NE(text.find(std::string("  ") + c.format + " "), std::string::npos) << c.format;
}

}  // namespace
