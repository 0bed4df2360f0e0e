// The arithmetic, checked without the library's kernels: hand-computed
// values that pin a rounding, a threshold or a tie rule; gray pixels in every
// type; agreement with the textbook formulas in double precision.
#include <emmintrin.h>

#include <array>
#include <cfloat>
#include <cmath>

#include "hsv/hsv_image.h"

using namespace hsvt;
using Px3 = std::array<double, 3>;

namespace {

// Converts a row of pixels given in model order with the named export.
std::vector<Px3> convert(const char* name, const std::vector<Px3>& in) {
    const Export& e = find(name);
    const nmqt::Shape sh{int(in.size()), 1, 0, 0};
    SideImage src(e.src, e.type, sh, 0), dst(e.dst, e.type, sh, 0);
    nmqt::Rng rng;
    src.fill(rng);
    for (int x = 0; x < sh.w; ++x)
        for (int m = 0; m < 3; ++m) src.set(slot(m, e.bgr && e.forward()), x, 0, in[size_t(x)][size_t(m)]);
    EXPECT_EQ(nmqStsOk, e.call(src.cptr.data(), src.step(), dst.ptr.data(), dst.step(), {sh.w, 1})) << name;
    std::vector<Px3> out(in.size());
    for (int x = 0; x < sh.w; ++x)
        for (int m = 0; m < 3; ++m) out[size_t(x)][size_t(m)] = dst.get(slot(m, e.bgr && !e.forward()), x, 0);
    return out;
}

struct Value {
    const char* fn;
    Px3 in, out;
    const char* why;
};

// Inverse results and 16u HSV carry no reciprocal estimate: their bits are
// fixed and were worked out in single precision by hand.
const Value kValues[] = {
    {"nmqiRGBToHSV_16u_C3R", {0, 0, 65535}, {43690, 65535, 65535}, "blue: 4 x 65535 / 6 + 0.5 truncated"},
    {"nmqiRGBToHSV_16u_C3R", {65535, 65535, 0}, {10923, 65535, 65535}, "R = G: green's formula"},
    {"nmqiRGBToHSV_16u_C3R", {0, 65535, 65535}, {32768, 65535, 65535}, "G = B: blue's formula"},
    {"nmqiRGBToHSV_16u_C3R", {65535, 0, 1}, {65535, 65535, 65535}, "hue just below 0 wraps"},
    {"nmqiHSVToRGB_16u_C3R", {30000, 40000, 50000}, {19482, 50000, 42267}, "sextant 2"},
    {"nmqiHSVToRGB_8u_C3R", {21, 255, 255}, {255, 126, 0}, "sextant 0, f = 0.494"},
    {"nmqiHSVToRGB_8u_C3R", {255, 255, 255}, {255, 0, 0}, "H = 255 is H = 0"},
    {"nmqiHSVToRGB_8u_C3R", {100, 200, 150}, {32, 150, 74}, "sextant 2"},
    {"nmqiHLSToRGB_8u_C3R", {0, 128, 255}, {254, 1, 1}, "L > 0.5, channels truncated"},
    {"nmqiHLSToRGB_8u_C3R", {21, 100, 200}, {178, 99, 21}, "rising edge of G"},
    {"nmqiHLSToRGB_16u_C3R", {43690, 20000, 65535}, {0, 0, 40000}, "blue"},
    {"nmqiHLSToRGB_32f_C3R", {0.5, 0.25, 1}, {0, 0.5, 0.5}, "cyan"},
    // Forward 8u values away from the estimate's last bits.
    {"nmqiRGBToHLS_8u_C3R", {20, 20, 200}, {170, 110, 208}, "blue: 240 x 0.7083333 is 170 in float"},
    {"nmqiRGBToHLS_8u_C3R", {200, 120, 20}, {23, 110, 208}, "H = 23.6 truncated"},
    {"nmqiRGBToHLS_8u_C3R", {200, 100, 100}, {0, 150, 121}, "L above 127.5: S over 510 - sum"},
    {"nmqiRGBToHLS_8u_C3R", {100, 40, 40}, {0, 70, 109}, "L below 127.5: S over the sum"},
    {"nmqiRGBToHLS_8u_C3R", {200, 20, 200}, {212, 110, 208}, "R = B: red's formula"},
    {"nmqiRGBToHSV_8u_C3R", {255, 0, 1}, {255, 255, 255}, "hue just below 0 rounds to 255"},
    {"nmqiRGBToHSV_8u_C3R", {255, 128, 0}, {21, 255, 255}, "orange"},
    {"nmqiRGBToHLS_32f_C3R", {0.6, 0.2, 0.2}, {0, 0.4, 0.5}, "L <= 0.5: S = d / (m + V)"},
    {"nmqiRGBToHLS_32f_C3R", {0.8, 0.4, 0.4}, {0, 0.6, 0.5}, "L > 0.5: S = d / (2 - m - V)"},
    {"nmqiRGBToHLS_32f_C3R", {0.6, 0.2, 0.6}, {5 / 6.0, 0.4, 0.5}, "R = B: red's formula, negative hue"},
    {"nmqiRGBToHLS_32f_C3R", {1, 1 - 0x1p-23, 1 - 0x1p-23}, {0, 1 - 0x1p-24, 0}, "d = 2^-23: achromatic"},
    {"nmqiRGBToHLS_32f_C3R", {1, 1 - 0x1p-22, 1 - 0x1p-22}, {0, 1 - 0x1p-23, 1}, "d = 2^-22: S = 1"},
};

}  // namespace

TEST(HsvValues, HandComputed) {
    for (const Value& v : kValues) {
        // Column 0 lies in the vector part of a row of 8, column 7 in the tail.
        const Px3 got = convert(v.fn, std::vector<Px3>(8, v.in))[0];
        const Px3 tail = convert(v.fn, std::vector<Px3>(7, v.in))[6];
        for (int m = 0; m < 3; ++m) {
            if (find(v.fn).type == Type::f32) {
                EXPECT_FLOAT_EQ(float(v.out[m]), float(got[m])) << v.fn << " " << v.why << " sample " << m;
            } else {
                EXPECT_EQ(v.out[m], got[m]) << v.fn << " " << v.why << " sample " << m;
                EXPECT_EQ(v.out[m], tail[m]) << v.fn << " " << v.why << " sample " << m << " (tail)";
            }
        }
    }
}

// Gray in: hue and saturation at the bottom of the type's range; V or L is the
// gray level. Gray out: S = 0 gives R = G = B.
TEST(HsvValues, GrayInEveryType) {
    for (const Export& e : exports()) {
        if (e.bgr || e.src.ch != 3) continue;
        const double lo = e.type == Type::s16 ? -32768 : 0;
        const double hi = e.type == Type::u8 ? 255 : e.type == Type::u16 ? 65535 : e.type == Type::s16 ? 32767 : 1;
        const bool hls = e.conv == Conv::ToHls || e.conv == Conv::FromHls;
        std::vector<Px3> in;
        for (double t : {0.0, 1.0 / 255, 0.5, 0.75, 1.0}) {
            const double g = e.type == Type::f32 ? double(float(t)) : std::floor(lo + t * (hi - lo));
            const double h = lo + (hi - lo) * 0.3;
            in.push_back(e.forward() ? Px3{g, g, g} : hls ? Px3{h, g, lo} : Px3{h, lo, g});
        }
        const std::vector<Px3> out = convert(e.name, in);
        for (size_t i = 0; i < in.size(); ++i) {
            const double g = e.forward() ? in[i][0] : in[i][hls ? 1 : 2];
            if (e.forward()) {
                EXPECT_EQ(lo, out[i][0]) << e.name << " H of " << g;
                EXPECT_EQ(lo, out[i][hls ? 2 : 1]) << e.name << " S of " << g;
                EXPECT_EQ(g, out[i][hls ? 1 : 2]) << e.name << " V or L of " << g;
            } else {
                EXPECT_EQ(out[i][0], out[i][1]) << e.name;
                EXPECT_EQ(out[i][0], out[i][2]) << e.name;
                // 16-bit HLS loses one unit on some levels (L / 65535 x 65535 truncated).
                const double tol = hls && (e.type == Type::u16 || e.type == Type::s16) ? 1 : 0;
                EXPECT_NEAR(g, out[i][0], tol) << e.name << " level " << g;
            }
        }
    }
}

// 8u HSV with two samples sharing the maximum: the vector part of a row and
// the scalar tail pick different formulas, whose hues differ in the last
// float bit; after rounding that is one unit for many levels. x = d / d
// computed with the reciprocal estimate.
TEST(HsvValues, TiesDependOnTheColumn) {
    auto rcp = [](float v) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(v))); };
    auto hue = [](float h6) { return double(_mm_cvtss_si32(_mm_set_ss(h6 * 42.5f))); };
    int differ = 0;
    for (int d = 1; d < 256; ++d) {
        const float x = float(d) * rcp(float(d));
        struct Tie { Px3 px; double vec, tail; };
        const Tie ties[] = {
            {{double(d), double(d), 0}, hue(x), hue(2.0f - x)},         // R = G: red's vs green's formula
            {{0, double(d), double(d)}, hue(2.0f + x), hue(4.0f - x)},  // G = B: green's vs blue's
            {{double(d), 0, double(d)}, hue(4.0f + x), hue(4.0f + x)},  // R = B: blue's in both
        };
        for (const Tie& t : ties) {
            const double vec = convert("nmqiRGBToHSV_8u_C3R", std::vector<Px3>(8, t.px))[0][0];
            const double tail = convert("nmqiRGBToHSV_8u_AC4R", std::vector<Px3>(7, t.px))[6][0];
            EXPECT_EQ(t.vec, vec) << "d " << d << " pixel " << t.px[0] << "," << t.px[1];
            EXPECT_EQ(t.tail, tail) << "d " << d << " pixel " << t.px[0] << "," << t.px[1];
            differ += t.vec != t.tail;
        }
    }
    EXPECT_GT(differ, 0) << "the two rules never round apart: the test shows nothing";
}

namespace {

double circ(double a, double b, double period) {
    const double d = std::fmod(std::fabs(a - b), period);
    return std::min(d, period - d);
}

// Textbook hexcone models in double precision; H in degrees, others 0..1.
Px3 ideal_hsv(double r, double g, double b) {
    const double v = std::max({r, g, b}), d = v - std::min({r, g, b});
    if (d == 0) return {0, 0, v};
    double h = v == r ? 60 * (g - b) / d : v == g ? 120 + 60 * (b - r) / d : 240 + 60 * (r - g) / d;
    return {h < 0 ? h + 360 : h, d / v, v};
}
Px3 ideal_hls(double r, double g, double b) {
    const double v = std::max({r, g, b}), m = std::min({r, g, b}), l = (v + m) / 2, d = v - m;
    if (d == 0) return {0, l, 0};
    const Px3 hsv = ideal_hsv(r, g, b);
    return {hsv[0], l, d / (1 - std::fabs(v + m - 1))};
}
// Chroma c spread over the hue: the common inverse of both models.
Px3 ideal_rgb(double hdeg, double c, double lo) {
    const double hp = std::fmod(hdeg, 360) / 60, x = c * (1 - std::fabs(std::fmod(hp, 2) - 1));
    const int i = int(hp);
    const Px3 t[6] = {{c, x, 0}, {x, c, 0}, {0, c, x}, {0, x, c}, {x, 0, c}, {c, 0, x}};
    return {t[i][0] + lo, t[i][1] + lo, t[i][2] + lo};
}

}  // namespace

// Random pixels against the textbook formulas. The tolerances cover the
// rounding and truncation of each type (and the reciprocal estimate); any
// mix-up of sextants, channels or scales is far outside them.
TEST(HsvValues, CloseToTheTextbook) {
    for (const Export& e : exports()) {
        if (e.bgr || e.src.ch != 3 || e.type == Type::s16) continue;
        const bool hls = e.conv == Conv::ToHls || e.conv == Conv::FromHls, f32 = e.type == Type::f32;
        const double top = e.type == Type::u8 ? 255 : e.type == Type::u16 ? 65535 : 1, htop = f32 ? 1 : top;
        const double tol = (e.type == Type::u8 ? 1 : e.type == Type::u16 ? 2 : 1e-5) + 1e-6;
        const double tol_rgb = e.type == Type::u8 ? 2 : e.type == Type::u16 ? 3 : 1e-5;
        nmqt::Rng rng(11);
        SideImage gen(e.src, e.type, {1, 1, 0, 0}, 0);
        std::vector<Px3> in(500);
        for (Px3& p : in)
            for (double& v : p) v = gen.pick(rng);
        const std::vector<Px3> out = convert(e.name, in);
        for (size_t i = 0; i < in.size(); ++i) {
            const Px3 &p = in[i], &o = out[i];
            const double a = p[0] / top, b = p[1] / top, c = p[2] / top;
            SCOPED_TRACE(std::string(e.name) + " pixel " + std::to_string(i));
            if (e.forward()) {
                const Px3 w = hls ? ideal_hls(a, b, c) : ideal_hsv(a, b, c);
                EXPECT_LE(w[hls ? 2 : 1] > 0 ? circ(o[0], w[0] / 360 * htop, htop) : 0.0, tol);  // no hue when gray
                EXPECT_NEAR(o[1], w[1] * top, tol);
                EXPECT_NEAR(o[2], w[2] * top, tol);
                continue;
            }
            const double h = p[0] / htop * 360, ch = hls ? (1 - std::fabs(2 * b - 1)) * c : b * c;
            const Px3 w = ideal_rgb(h, ch, hls ? b - ch / 2 : c - ch);
            for (int m = 0; m < 3; ++m) EXPECT_NEAR(o[m], w[m] * top, tol_rgb) << "sample " << m;
        }
    }
}

// 32f HLS to RGB at L = 0.5 takes m2 = L (1 + S): for S = 0.0005 the other
// branch, (L + S) - L S, is one float step higher. G at hue 120 is m2.
TEST(HsvValues, HalfLightnessTakesTheLowerBranch) {
    const float s = 0.0005f, lower = 0.5f * (1.0f + s), upper = (0.5f + s) - 0.5f * s;
    ASSERT_NE(lower, upper);
    const Px3 rgb = convert("nmqiHLSToRGB_32f_C3R", {{double(1.0f / 3.0f), 0.5, double(s)}})[0];
    EXPECT_EQ(double(lower), rgb[1]);
    EXPECT_EQ(double(2.0f * 0.5f - lower), rgb[2]);
}
