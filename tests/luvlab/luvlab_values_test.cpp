// Known values: the Lab and Luv of the primaries and white, codes of the
// integer encodings, photographic YCC codes worked by hand, the degenerate
// inputs of LUV; and the round-trip bounds stated in the header.
#include <algorithm>
#include <cmath>
#include <string>

#include "luvlab/luvlab_common.h"
#include "support/harness.h"

using namespace lvt;

namespace {

// The largest per-channel difference of an 8u or 16u RGB round trip over a
// grid of `n` values per channel, through the forward and inverse exports.
int round_trip_error(const char* fwd, const char* inv, int n) {
    const Export& f = find(fwd);
    const Export& b = find(inv);
    const double full = f.ty == Ty::U8 ? 255.0 : 65535.0;
    const int es = f.elem(), count = n * n * n;
    std::vector<uint8_t> rgb(size_t(count) * 3 * size_t(es)), mid(rgb.size()), back(rgb.size());
    int i = 0;
    for (int r = 0; r < n; ++r)
        for (int g = 0; g < n; ++g)
            for (int bl = 0; bl < n; ++bl, ++i) {
                const int v[3] = {r, g, bl};
                for (int c = 0; c < 3; ++c) put(f.ty, &rgb[size_t(3 * i + c) * size_t(es)], std::round(v[c] * full / (n - 1)));
            }
    // One row per image; the step is never used.
    const ImageSize roi{count, 1};
    EXPECT_EQ(f.fn(rgb.data(), 0, mid.data(), 0, roi), nmqStsOk);
    EXPECT_EQ(b.fn(mid.data(), 0, back.data(), 0, roi), nmqStsOk);
    int worst = 0;
    for (size_t k = 0; k < size_t(3 * count); ++k)
        worst = std::max(worst, int(std::fabs(get(f.ty, &rgb[k * size_t(es)]) - get(f.ty, &back[k * size_t(es)]))));
    return worst;
}

}  // namespace

// The primaries and white in 32f against the textbook formulas in double
// precision (0.01), and against the published sRGB values (0.05: those use a
// matrix rounded differently); the inverse brings each one back.
TEST(LuvLabValues, PrimariesAndWhite) {
    struct Case {
        const char* fwd;
        const char* inv;
        double rgb[3];
        double published[3];
    };
    const Case cases[] = {
        {"nmqiRGBToLab_32f_C3R", "nmqiLabToRGB_32f_C3R", {1, 0, 0}, {53.2408, 80.0925, 67.2032}},
        {"nmqiRGBToLab_32f_C3R", "nmqiLabToRGB_32f_C3R", {0, 0, 1}, {32.2970, 79.1875, -107.8602}},
        {"nmqiRGBToLab_32f_C3R", "nmqiLabToRGB_32f_C3R", {1, 1, 1}, {100, 0, 0}},
        {"nmqiRGBToLUV_32f_C3R", "nmqiLUVToRGB_32f_C3R", {1, 0, 0}, {53.2408, 175.0151, 37.7564}},
        {"nmqiRGBToLUV_32f_C3R", "nmqiLUVToRGB_32f_C3R", {0, 0, 1}, {32.2970, -9.4054, -130.3423}},
        {"nmqiRGBToLUV_32f_AC4R", "nmqiLUVToRGB_32f_AC4R", {1, 1, 1}, {100, 0, 0}},
    };
    for (const Case& c : cases) {
        double want[3];
        ref_fwd(find(c.fwd).model, c.rgb, want);
        const auto got = convert1(find(c.fwd), {c.rgb[0], c.rgb[1], c.rgb[2]});
        ASSERT_EQ(got.size(), 3u);
        for (int k = 0; k < 3; ++k) {
            EXPECT_NEAR(got[size_t(k)], want[k], 0.01) << c.fwd << " channel " << k;
            EXPECT_NEAR(got[size_t(k)], c.published[k], 0.05) << c.fwd << " channel " << k;
        }
        const auto back = convert1(find(c.inv), got);
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(back[size_t(k)], c.rgb[k], 1e-5) << c.inv << " channel " << k;
    }
    // White lands on the white point exactly: the white point is the matrix applied to white.
    const auto lab = convert1(find("nmqiRGBToLab_32f_C3R"), {1, 1, 1});
    EXPECT_EQ(lab, (std::vector<double>{100, 0, 0}));
}

// Codes that pin the encodings (offsets, scales, rounding to nearest, the
// 16s offset) and the degenerate cases, worked by hand.
TEST(LuvLabValues, HandComputedCodes) {
    struct Case {
        const char* fn;
        std::vector<double> in, want;
        const char* rule;
    };
    const Case cases[] = {
        {"nmqiRGBToLab_8u_C3R", {255, 255, 255}, {255, 128, 128}, "white: L 100 * 2.55, a and b + 128"},
        {"nmqiBGRToLab_16u_C3R", {65535, 65535, 65535}, {65535, 32768, 32768}, "(a + 128) * 256"},
        {"nmqiRGBToLab_16s_C3R", {32767, 32767, 32767}, {32767, 0, 0}, "16u codes - 32768"},
        {"nmqiLabToRGB_8u_C3R", {0, 255, 0}, {0, 0, 139}, "L 0, a 127, b -128: R -0.07, G -0.03 clamped, B 0.5451"},
        {"nmqiRGBToLUV_8u_C3R", {255, 255, 255}, {255, 97, 136}, "u 134 * 255/354 = 96.5, v 140 * 255/262 = 136.3"},
        {"nmqiRGBToLUV_8u_AC4R", {0, 0, 0}, {0, 97, 136}, "black takes white's chromaticity"},
        {"nmqiRGBToLUV_16u_C3R", {65535, 65535, 65535}, {65535, 24807, 35019}, "24807.03, 35018.70"},
        {"nmqiLUVToRGB_32f_C3R", {0, 50, -50}, {0, 0, 0}, "L = 0 is black whatever u and v"},
        {"nmqiRGBToLUV_32f_C3R", {0, 0, 0}, {0, 0, 0}, "X + 15Y + 3Z = 0"},
        {"nmqiRGBToYCC_8u_C3R", {255, 255, 255}, {182, 156, 137}, "181.88, and the offsets"},
        {"nmqiRGBToYCC_8u_C3R", {255, 0, 0}, {54, 123, 232}, "54.38, 122.69, 232.08"},
        {"nmqiRGBToYCC_16u_C3R", {65535, 65535, 65535}, {46744, 40092, 35209}, "8-bit codes * 257"},
        {"nmqiRGBToYCC_16s_AC4R", {32767, 32767, 32767}, {13976, 7324, 2441}, "16u codes - 32768"},
        {"nmqiYCCToRGB_8u_C3R", {54, 123, 232}, {254, 0, 0}, "red back: R' 0.9973 after the 8-bit codes"},
        {"nmqiYCCToRGB_32f_C3R", {0, 156.0 / 255, 137.0 / 255}, {0, 0, 0}, "32f codes are 8-bit codes / 255"},
    };
    for (const Case& c : cases) {
        const auto got = convert1(find(c.fn), c.in);
        ASSERT_EQ(got.size(), 3u) << c.fn;
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(got[size_t(k)], c.want[size_t(k)], 1e-6) << c.fn << " channel " << k << ": " << c.rule;
    }
    // A v' of 0 or below (X and Z would diverge) decodes as the blue primary's v'.
    const double vn = 9.0 / (0.950456 + 15.0 + 3 * 1.088754);
    for (double v : {-13 * 50 * vn, -1000.0}) {
        const auto got = convert1(find("nmqiLUVToRGB_32f_C3R"), {50, 0, v});
        ASSERT_EQ(got.size(), 3u);
        for (double c : got) EXPECT_TRUE(c >= 0 && c <= 1) << c;
        const auto blue = convert1(find("nmqiLUVToRGB_32f_C3R"), {50, 0, -13 * 50 * (vn - 0.157895)});
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(got[size_t(k)], blue[size_t(k)], 1e-4) << k;
    }
}

// 8u RGB through each model and back, over a grid that includes 0 and 255;
// the bounds are the ones the header states.
TEST(LuvLabValues, RoundTripBounds) {
    struct Case {
        const char* fwd;
        const char* inv;
        int n, bound;
    };
    const Case cases[] = {
        {"nmqiRGBToLab_8u_C3R", "nmqiLabToRGB_8u_C3R", 86, 4},    {"nmqiBGRToLab_8u_C3R", "nmqiLabToBGR_8u_C3R", 52, 4},
        {"nmqiRGBToLUV_8u_C3R", "nmqiLUVToRGB_8u_C3R", 86, 3},    {"nmqiRGBToYCC_8u_C3R", "nmqiYCCToRGB_8u_C3R", 86, 2},
        {"nmqiRGBToLab_16u_C3R", "nmqiLabToRGB_16u_C3R", 52, 4},  {"nmqiRGBToLUV_16u_C3R", "nmqiLUVToRGB_16u_C3R", 52, 3},
        {"nmqiRGBToYCC_16u_C3R", "nmqiYCCToRGB_16u_C3R", 52, 2},
    };
    for (const Case& c : cases) EXPECT_LE(round_trip_error(c.fwd, c.inv, c.n), c.bound) << c.fwd;
}
