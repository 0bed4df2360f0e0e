// Hand-computed values that pin the rounding rules of the family (the sweep
// compares every export with the references; these check the references).
#include <vector>

#include "support/harness.h"

namespace {

using V = std::vector<int>;
V rep(const V& px, int n) {
    V v;
    for (int i = 0; i < n; ++i) v.insert(v.end(), px.begin(), px.end());
    return v;
}

NmqStatus csc420(const Nmq8u* s, Nmq8u* d) {  // 2x2 BGR to Y (4 bytes), Cb, Cr
    Nmq8u* const p[3] = {d, d + 4, d + 5};
    const int st[3] = {2, 1, 1};
    return nmqiBGRToYCbCr420_709CSC_8u_C3P3R(s, 6, p, st, {2, 2});
}
NmqStatus csc_inverse(const Nmq8u* s, Nmq8u* d) {
    const Nmq8u* const p[3] = {s, s + 1, s + 2};
    return nmqiYCbCrToBGR_709CSC_8u_P3C3R(p, 1, d, 3, {1, 1});
}

#define F(expr) [](const Nmq8u* s, Nmq8u* d) -> NmqStatus { return expr; }

struct Case {
    const char* rule;
    std::function<NmqStatus(const Nmq8u*, Nmq8u*)> call;
    V in, want;
};

TEST(YCbCrValues, RoundingRules) {
    const V studio = {16, 16, 16, 16, 16, 16, 235, 235, 235, 235, 235, 235};
    const Case cases[] = {
        {"black and white: offsets 16 and 128", F(nmqiRGBToYCbCr_8u_C3R(s, 6, d, 6, {2, 1})), {0, 0, 0, 255, 255, 255},
         {16, 128, 128, 235, 128, 128}},
        {"the inverse truncates (white ends at 254) and clamps", F(nmqiYCbCrToRGB_8u_C3R(s, 9, d, 9, {3, 1})),
         {16, 128, 128, 235, 128, 128, 235, 16, 240}, {0, 0, 0, 254, 254, 254, 255, 207, 29}},
        {"the subsampled inverse truncates too", F(nmqiYCbCr422ToRGB_8u_C2C3R(s, 4, d, 6, {2, 1})), {235, 128, 235, 128},
         rep({254}, 6)},
        // Grey 1 is 16.86 in luma.
        {"second luma of a pair not rounded, a lone last pixel is", F(nmqiRGBToYCbCr422_8u_C3C2R(s, 9, d, 6, {3, 1})),
         rep({1}, 9), {17, 128, 16, 128, 17, 128}},
        {"a lone last pixel borrows Cr from the pair before", F(nmqiYCbCr422ToRGB_8u_C2C3R(s, 6, d, 9, {3, 1})),
         {100, 90, 100, 200, 100, 160}, {212, 54, 21, 212, 54, 21, 212, 26, 162}},
        {"a one-pixel row uses its Cb for both", F(nmqiYCbCr422ToRGB_8u_C2C3R(s, 2, d, 3, {1, 1})), {100, 160},
         {148, 59, 162}},
        // Chroma -55.44 gives 72 (a half would give 73), 26.72 gives 154 (not 155).
        {"709CSC 4:2:0 chroma bias is one eighth", csc420, rep({30, 200, 10}, 4), {142, 142, 142, 142, 72, 51}},
        {"709CSC 4:2:0 chroma bias is one eighth", csc420, rep({220, 10, 90}, 4), {52, 52, 52, 52, 212, 154}},
        {"709CSC inverse scales luma by 1.164", csc_inverse, {235, 128, 128}, {254, 254, 254}},
        {"HDTV keeps studio levels", F(nmqiBGRToCbYCr422_709HDTV_8u_C3C2R(s, 12, d, 8, {4, 1})), studio,
         {128, 16, 128, 16, 128, 235, 128, 235}},
        {"HDTV keeps studio levels back", F(nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(s, 8, d, 12, {4, 1})),
         {128, 16, 128, 16, 128, 235, 128, 235}, studio},
        {"HDTV red: Cr at its ceiling, B clamped at 0", F(nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R(s, 4, d, 6, {2, 1})),
         {90, 81, 240, 81}, rep({12, 35, 253}, 2)},
        // 200 -> 226, 50 -> 109, 10 -> 40 on the curve, then 2^15 weights with the pair rule.
        {"the gamma form goes through the transfer curve", F(nmqiRGBToCbYCr422Gamma_8u_C3C2R(s, 6, d, 4, {2, 1})),
         rep({200, 50, 10}, 2), {80, 133, 184, 132}},
    };
    for (const Case& c : cases) {
        const std::vector<Nmq8u> in(c.in.begin(), c.in.end());
        std::vector<Nmq8u> out(c.want.size(), 7);
        ASSERT_EQ(c.call(in.data(), out.data()), nmqStsOk) << c.rule;
        EXPECT_EQ(V(out.begin(), out.end()), c.want) << c.rule;
    }
}

}  // namespace
