// Hand-computed values that pin the rounding rules of the family.
#include <vector>

#include "support/harness.h"

namespace {

struct Px {
    int a, b, c;
};
bool operator==(Px x, Px y) { return x.a == y.a && x.b == y.b && x.c == y.c; }
std::ostream& operator<<(std::ostream& o, Px p) { return o << "(" << p.a << "," << p.b << "," << p.c << ")"; }

Px rgb_to_ycc(Px in) {
    const uint8_t s[3] = {uint8_t(in.a), uint8_t(in.b), uint8_t(in.c)};
    uint8_t d[3];
    EXPECT_EQ(nmqiRGBToYCbCr_8u_C3R(s, 3, d, 3, {1, 1}), nmqStsOk);
    return {d[0], d[1], d[2]};
}
Px ycc_to_rgb(Px in) {
    const uint8_t s[3] = {uint8_t(in.a), uint8_t(in.b), uint8_t(in.c)};
    uint8_t d[3];
    EXPECT_EQ(nmqiYCbCrToRGB_8u_C3R(s, 3, d, 3, {1, 1}), nmqStsOk);
    return {d[0], d[1], d[2]};
}

}  // namespace

// Black and white: forward offsets 16 and 128; the inverse truncates, so the
// white round trip ends at 254.
TEST(YCbCrValues, BlackAndWhiteRoundTrips) {
    EXPECT_EQ(rgb_to_ycc({0, 0, 0}), (Px{16, 128, 128}));
    EXPECT_EQ(rgb_to_ycc({255, 255, 255}), (Px{235, 128, 128}));
    EXPECT_EQ(ycc_to_rgb({16, 128, 128}), (Px{0, 0, 0}));
    EXPECT_EQ(ycc_to_rgb({235, 128, 128}), (Px{254, 254, 254}));
    // Saturated primaries clamp rather than wrap.
    EXPECT_EQ(ycc_to_rgb({235, 16, 240}), (Px{255, 207, 29}));
    const uint8_t c2[4] = {235, 128, 235, 128};
    uint8_t rgb[6];
    ASSERT_EQ(nmqiYCbCr422ToRGB_8u_C2C3R(c2, 4, rgb, 6, {2, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(rgb, rgb + 6), (std::vector<int>{254, 254, 254, 254, 254, 254}));
}

// Only the first Y of a 4:2:2 pair is rounded: grey 1 is 16.86 in luma.
TEST(YCbCrValues, SecondLumaOfAPairIsNotRounded) {
    const uint8_t rgb[6] = {1, 1, 1, 1, 1, 1};
    uint8_t d[4];
    ASSERT_EQ(nmqiRGBToYCbCr422_8u_C3C2R(rgb, 6, d, 4, {2, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 4), (std::vector<int>{17, 128, 16, 128}));
    // An odd last pixel is a full-sampled pixel: rounded.
    const uint8_t one[3] = {1, 1, 1};
    ASSERT_EQ(nmqiRGBToYCbCr422_8u_C3C2R(one, 3, d, 2, {1, 1}), nmqStsOk);
    EXPECT_EQ(d[0], 17);
}

// The lone last pixel of a packed row borrows Cr from the preceding pair; a
// one-pixel-wide row uses its Cb for both.
TEST(YCbCrValues, PackedOddPixelBorrowsChroma) {
    const uint8_t src[6] = {100, 90, 100, 200, 100, 160};
    uint8_t d[9];
    ASSERT_EQ(nmqiYCbCr422ToRGB_8u_C2C3R(src, 6, d, 9, {3, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 9), (std::vector<int>{212, 54, 21, 212, 54, 21, 212, 26, 162}));
    const uint8_t narrow[4] = {100, 160, 7, 7};  // two rows of one pixel
    ASSERT_EQ(nmqiYCbCr422ToRGB_8u_C2C3R(narrow, 2, d, 3, {1, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 3), (std::vector<int>{148, 59, 162}));
}

// 709CSC 4:2:0 chroma is rounded with a bias of one eighth: -55.44 gives 72
// (a half would give 73), 26.72 gives 154 (not 155).
TEST(YCbCrValues, Csc709ChromaBiasIsOneEighth) {
    struct Case {
        Px bgr;
        Px ycc;
    } cases[] = {{{30, 200, 10}, {142, 72, 51}}, {{220, 10, 90}, {52, 212, 154}}, {{0, 0, 0}, {16, 128, 128}}};
    for (const Case& c : cases) {
        uint8_t bgr[12];
        for (int i = 0; i < 4; ++i) { bgr[3 * i] = uint8_t(c.bgr.a); bgr[3 * i + 1] = uint8_t(c.bgr.b); bgr[3 * i + 2] = uint8_t(c.bgr.c); }
        uint8_t y[4], cb, cr;
        Nmq8u* const dst[3] = {y, &cb, &cr};
        const int steps[3] = {2, 1, 1};
        ASSERT_EQ(nmqiBGRToYCbCr420_709CSC_8u_C3P3R(bgr, 6, dst, steps, {2, 2}), nmqStsOk);
        EXPECT_EQ((Px{y[3], cb, cr}), c.ycc) << c.bgr;
    }
    // The inverse scales luma by 1.164 like BT.601: 235 gives 254.
    const uint8_t Y = 235, Cb = 128, Cr = 128;
    const Nmq8u* const src[3] = {&Y, &Cb, &Cr};
    uint8_t bgr[3];
    ASSERT_EQ(nmqiYCbCrToBGR_709CSC_8u_P3C3R(src, 1, bgr, 3, {1, 1}), nmqStsOk);
    EXPECT_EQ((Px{bgr[0], bgr[1], bgr[2]}), (Px{254, 254, 254}));
}

// HDTV keeps studio-range levels: 16 and 235 grey survive both ways.
TEST(YCbCrValues, HdtvKeepsStudioLevels) {
    const uint8_t bgr[12] = {16, 16, 16, 16, 16, 16, 235, 235, 235, 235, 235, 235};
    uint8_t d[8];
    ASSERT_EQ(nmqiBGRToCbYCr422_709HDTV_8u_C3C2R(bgr, 12, d, 8, {4, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 8), (std::vector<int>{128, 16, 128, 16, 128, 235, 128, 235}));
    uint8_t back[12];
    ASSERT_EQ(nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(d, 8, back, 12, {4, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<uint8_t>(back, back + 12), std::vector<uint8_t>(bgr, bgr + 12));
    // Pure red at studio levels: Cr at its ceiling, B clamped at 0 on the way back.
    const uint8_t c2[4] = {90, 81, 240, 81};
    ASSERT_EQ(nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(c2, 4, back, 6, {2, 1}), nmqStsOk);
    EXPECT_EQ((Px{back[0], back[1], back[2]}), (Px{12, 35, 253}));
}

// The gamma form maps R, G, B through the transfer curve (200 -> 226, 50 ->
// 109, 10 -> 40) before a 2^15 conversion with the pair rule.
TEST(YCbCrValues, GammaCbYCrPair) {
    const uint8_t rgb[6] = {200, 50, 10, 200, 50, 10};
    uint8_t d[4];
    ASSERT_EQ(nmqiRGBToCbYCr422Gamma_8u_C3C2R(rgb, 6, d, 4, {2, 1}), nmqStsOk);
    EXPECT_EQ(std::vector<int>(d, d + 4), (std::vector<int>{80, 133, 184, 132}));
}

// 4:2:0 with odd sizes converts the even part and says so; a width of 3 in
// 4:1:1 is a short group and returns the same warning.
TEST(YCbCrValues, OddSizesWarn) {
    std::vector<uint8_t> rgb(27, 50), y(9, 7), c(1, 7), c2(1, 7);
    Nmq8u* const dst[3] = {y.data(), c.data(), c2.data()};
    const int steps[3] = {3, 1, 1};
    EXPECT_EQ(nmqiRGBToYCbCr420_8u_C3P3R(rgb.data(), 9, dst, steps, {3, 3}), nmqStsOddSize);
    EXPECT_EQ(y[2], 7);  // last column
    EXPECT_EQ(y[6], 7);  // last row
    EXPECT_NE(y[4], 7);
    std::vector<uint8_t> y411(3), cb(1), cr(1);
    Nmq8u* const d411[3] = {y411.data(), cb.data(), cr.data()};
    EXPECT_EQ(nmqiBGRToYCbCr411_8u_C3P3R(rgb.data(), 9, d411, steps, {3, 1}), nmqStsOddSize);
    EXPECT_EQ(nmqiBGR565ToYCbCr411_16u8u_C3P3R(reinterpret_cast<const Nmq16u*>(rgb.data()), 6, d411, steps, {3, 1}),
              nmqStsOk);
}
