// Hand-computed words: the field layout of every format, truncation, the
// dither pattern of flat images and the rounding of the 555 dither rule.
#include <algorithm>
#include <cstring>

#include "packed16/packed16_table.h"

using namespace p16t;
using namespace nmqt;

namespace {

const Export& find(const std::string& name) {
    for (const Export& e : exports())
        if (e.name == name) return e;
    throw std::runtime_error(name);
}

// Runs a full-sampled interleaved YCbCr export over w x h pixels of one colour.
std::vector<uint16_t> flat444(const std::string& name, int Y, int Cb, int Cr, int w, int h) {
    std::vector<uint8_t> src(size_t(3) * w * h);
    for (size_t i = 0; i < src.size(); i += 3) src[i] = uint8_t(Y), src[i + 1] = uint8_t(Cb), src[i + 2] = uint8_t(Cr);
    std::vector<uint16_t> dst(size_t(w) * h, 0xDEAD);
    Img s, d;
    s.p[0] = src.data(), s.step[0] = 3 * w;
    d.p[0] = reinterpret_cast<uint8_t*>(dst.data()), d.step[0] = 2 * w;
    EXPECT_EQ(find(name).call(s, d, {w, h}), nmqStsOk);
    return dst;
}

}  // namespace

// Pixels that convert to pure red (82, 90, 240), green (145, 54, 34) and blue
// (41, 241, 110) fill exactly one field, plain and dithered alike (0 and 255
// never move under the dither).
TEST(Packed16Values, WordLayoutOfEveryFormat) {
    struct Row {
        const char* fmt;
        uint16_t red, green, blue;
    };
    const Row rows[] = {
        {"RGB565", 0x001F, 0x07E0, 0xF800}, {"BGR565", 0xF800, 0x07E0, 0x001F},
        {"RGB555", 0x001F, 0x03E0, 0x7C00}, {"BGR555", 0x7C00, 0x03E0, 0x001F},
        {"RGB444", 0x000F, 0x00F0, 0x0F00}, {"BGR444", 0x0F00, 0x00F0, 0x000F},
    };
    for (const Row& r : rows)
        for (const char* kind : {"", "Dither"}) {
            const std::string name = std::string("nmqiYCbCrTo") + r.fmt + kind + "_8u16u_C3R";
            SCOPED_TRACE(name);
            for (uint16_t w : flat444(name, 82, 90, 240, 4, 4)) EXPECT_EQ(w, r.red);
            for (uint16_t w : flat444(name, 145, 54, 34, 4, 4)) EXPECT_EQ(w, r.green);
            for (uint16_t w : flat444(name, 41, 241, 110, 4, 4)) EXPECT_EQ(w, r.blue);
        }
}

// Repacking keeps the top bits (no rounding), the byte named first in the
// lowest field; widening repeats the top bits of each field.
TEST(Packed16Values, RepackAndWiden) {
    struct Case {
        const char* name;
        uint8_t bytes[3];
        uint16_t word;
    };
    const Case cases[] = {
        {"nmqiRGBToRGB565_8u16u_C3R", {7, 3, 8}, 0x0800},         {"nmqiRGBToRGB565_8u16u_C3R", {255, 0, 0}, 0x001F},
        {"nmqiBGRToBGR565_8u16u_C3R", {0x87, 0x87, 0x87}, 0x8430}, {"nmqiBGRToBGR565_8u16u_C3R", {0, 0, 255}, 0xF800},
        {"nmqiRGB565ToRGB_16u8u_C3R", {132, 130, 132}, 0x8410},   {"nmqiBGR565ToBGR_16u8u_C3R", {8, 4, 0}, 0x0021},
    };
    for (const Case& c : cases) {
        uint8_t bytes[3] = {c.bytes[0], c.bytes[1], c.bytes[2]};
        uint16_t word = c.word;
        const bool widen = find(c.name).src == L::Words;
        Img b, w;
        b.p[0] = bytes, b.step[0] = 3;
        w.p[0] = reinterpret_cast<uint8_t*>(&word), w.step[0] = 2;
        if (widen) std::fill_n(bytes, 3, 1);
        else word = 0;
        EXPECT_EQ(find(c.name).call(widen ? w : b, widen ? b : w, {1, 1}), nmqStsOk);
        EXPECT_EQ(word, c.word) << c.name;
        EXPECT_EQ(0, std::memcmp(bytes, c.bytes, 3)) << c.name;
    }
}

// Mid grey (128, 128, 128) is 130 in every channel: 130 / 255 of 31 levels
// lies between levels 15 and 16 with remainder 33280 - 15 * 2105 = 1705, so
// the dithered 555 word rounds up except where the threshold exceeds 1705
// (1957 at column 2 of row 1, 2097 and 1817 at columns 0 and 2 of row 3).
TEST(Packed16Values, DitheredGrey555) {
    const std::vector<uint16_t> plain = flat444("nmqiYCbCrToRGB555_8u16u_C3R", 128, 128, 128, 8, 8);
    const std::vector<uint16_t> dith = flat444("nmqiYCbCrToBGR555Dither_8u16u_C3R", 128, 128, 128, 8, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            const bool down = (x % 4 == 2 && y % 4 == 1) || (x % 4 == 0 && y % 4 == 3) || (x % 4 == 2 && y % 4 == 3);
            EXPECT_EQ(plain[size_t(y) * 8 + x], 0x4210) << x << "," << y;
            EXPECT_EQ(dith[size_t(y) * 8 + x], down ? 0x3DEF : 0x4210) << x << "," << y;
        }
}

// Packed BGR words to Y, Cr, Cb 4:2:0: white and pure blue 2x2 blocks;
// the second plane holds Cr.
TEST(Packed16Values, PackedInputToYCrCb420) {
    struct Case {
        const char* name;
        uint16_t word;
        int y, cr, cb;
    };
    const Case cases[] = {
        {"nmqiBGR565ToYCrCb420_16u8u_C3P3R", 0xFFFF, 235, 128, 128},
        {"nmqiBGR565ToYCrCb420_16u8u_C3P3R", 0x001F, 41, 110, 240},
        {"nmqiBGR555ToYCrCb420_16u8u_C3P3R", 0x001F, 41, 110, 240},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const uint16_t src[4] = {c.word, c.word, c.word, c.word};
        uint8_t y[4] = {}, cr = 0, cb = 0;
        Img s, d;
        s.p[0] = reinterpret_cast<uint8_t*>(const_cast<uint16_t*>(src)), s.step[0] = 4;
        d.p[0] = y, d.p[1] = &cr, d.p[2] = &cb, d.step[0] = 2, d.step[1] = d.step[2] = 1;
        EXPECT_EQ(find(c.name).call(s, d, {2, 2}), nmqStsOk);
        for (uint8_t v : y) EXPECT_EQ(v, c.y);
        EXPECT_EQ(cr, c.cr);
        EXPECT_EQ(cb, c.cb);
    }
}
