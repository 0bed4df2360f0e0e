// 8u pixel-order HSV and HLS on rows long enough for the 32-pixel vector
// blocks, filled with the pixels whose arithmetic is degenerate: every gray
// level (black included), pure and near-pure hues, and zero saturation on the
// way back. Random images almost never hold them. Each level must give the
// scalar bytes, and gray must give H = S = 0 going forward.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "frame/dispatch.h"
#include "nmqcc.h"
#include "support/harness.h"

namespace {

using Fn = NmqStatus (*)(const Nmq8u*, int, Nmq8u*, int, ImageSize);

struct Case {
    const char* name;
    Fn fn;
    bool forward;  // RGB in
    int sat;       // position of S in the model triple (HSV: 1, HLS: 2)
};

const Case kCases[] = {
    {"RGBToHSV", nmqiRGBToHSV_8u_C3R, true, 1},
    {"HSVToRGB", nmqiHSVToRGB_8u_C3R, false, 1},
    {"RGBToHLS", nmqiRGBToHLS_8u_C3R, true, 2},
    {"HLSToRGB", nmqiHLSToRGB_8u_C3R, false, 2},
};

// 256 gray pixels, then colours with one, two or three extreme samples; for
// the inverse forms the same triples read as model samples, plus every value
// with zero saturation.
std::vector<uint8_t> degenerate_row(const Case& c) {
    std::vector<uint8_t> px;
    for (int v = 0; v < 256; ++v) px.insert(px.end(), {uint8_t(v), uint8_t(v), uint8_t(v)});
    for (int a : {0, 1, 254, 255})
        for (int b : {0, 1, 128, 254, 255})
            for (int d : {0, 255}) px.insert(px.end(), {uint8_t(a), uint8_t(b), uint8_t(d)});
    if (!c.forward)
        for (int v = 0; v < 256; ++v) {
            uint8_t t[3] = {uint8_t(v * 7), uint8_t(v), uint8_t(v)};
            t[c.sat] = 0;
            px.insert(px.end(), t, t + 3);
        }
    while (px.size() % 96) px.insert(px.end(), {255, 0, 0});  // whole 32-pixel blocks
    return px;
}

TEST(HsvWide, DegeneratePixelsGiveTheScalarBytesAtEveryLevel) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        const std::vector<uint8_t> row = degenerate_row(c);
        const int w = int(row.size() / 3);
        for (int width : {w, w - 1, w - 31}) {  // also rows ending inside a block
            std::vector<uint8_t> want(row.size(), 0xA5);
            {
                nmq::IsaCap cap(nmq::Isa::Scalar);
                ASSERT_EQ(nmqStsOk, c.fn(row.data(), 3 * width, want.data(), 3 * width, {width, 1}));
            }
            if (c.forward)
                for (int v = 0; v < 256 && v < width; ++v) {  // gray: no hue, no saturation
                    ASSERT_EQ(0, want[3 * v]) << "level " << v;
                    ASSERT_EQ(0, want[3 * v + c.sat]) << "level " << v;
                }
            nmqt::for_each_simd_level([&](nmq::Isa lv) {
                std::vector<uint8_t> got(row.size(), 0xA5);
                ASSERT_EQ(nmqStsOk, c.fn(row.data(), 3 * width, got.data(), 3 * width, {width, 1}));
                EXPECT_EQ("", nmqt::first_diff(want, got, int(got.size()))) << nmqt::isa_name(lv) << " width " << width;
            });
        }
    }
}

}  // namespace
