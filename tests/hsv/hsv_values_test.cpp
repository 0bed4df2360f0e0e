// The arithmetic, checked without the library's kernels: hand-computed
// values that pin a rounding, a threshold or a tie rule; gray pixels in every
// type; the relation between 16s and 16u; agreement with the textbook
// formulas in double precision; round trips.
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
    {"nmqiRGBToHSV_16u_C3R", {65535, 0, 0}, {0, 65535, 65535}, "red"},
    {"nmqiRGBToHSV_16u_C3R", {0, 0, 65535}, {43690, 65535, 65535}, "blue: 4 x 65535 / 6 + 0.5 truncated"},
    {"nmqiRGBToHSV_16u_C3R", {0, 65535, 0}, {21845, 65535, 65535}, "green"},
    {"nmqiRGBToHSV_16u_C3R", {65535, 65535, 0}, {10923, 65535, 65535}, "R = G: green's formula"},
    {"nmqiRGBToHSV_16u_C3R", {0, 65535, 65535}, {32768, 65535, 65535}, "G = B: blue's formula"},
    {"nmqiRGBToHSV_16u_C3R", {65535, 0, 1}, {65535, 65535, 65535}, "hue just below 0 wraps"},
    {"nmqiRGBToHSV_16u_C3R", {40000, 30000, 20000}, {5461, 32768, 40000}, "S rounds half up"},
    {"nmqiRGBToHSV_16u_C3R", {3, 1, 2}, {60074, 43690, 3}, "small values"},
    {"nmqiHSVToRGB_16u_C3R", {0, 65535, 65535}, {65535, 0, 0}, "red"},
    {"nmqiHSVToRGB_16u_C3R", {43690, 65535, 65535}, {0, 0, 65535}, "blue"},
    {"nmqiHSVToRGB_16u_C3R", {5461, 65535, 65535}, {65535, 32766, 0}, "sextant 0"},
    {"nmqiHSVToRGB_16u_C3R", {30000, 40000, 50000}, {19482, 50000, 42267}, "sextant 2"},
    {"nmqiHSVToRGB_16u_C3R", {65535, 30000, 50000}, {50000, 27111, 27111}, "H = 65535 is H = 0"},
    {"nmqiHSVToRGB_8u_C3R", {0, 255, 255}, {255, 0, 0}, "red"},
    {"nmqiHSVToRGB_8u_C3R", {21, 255, 255}, {255, 126, 0}, "sextant 0, f = 0.494"},
    {"nmqiHSVToRGB_8u_C3R", {85, 255, 255}, {0, 255, 0}, "green"},
    {"nmqiHSVToRGB_8u_C3R", {170, 255, 255}, {0, 0, 255}, "blue"},
    {"nmqiHSVToRGB_8u_C3R", {255, 255, 255}, {255, 0, 0}, "H = 255 is H = 0"},
    {"nmqiHSVToRGB_8u_C3R", {100, 200, 150}, {32, 150, 74}, "sextant 2"},
    {"nmqiHSVToRGB_8u_C3R", {200, 100, 50}, {44, 30, 50}, "sextant 4"},
    {"nmqiHLSToRGB_8u_C3R", {0, 128, 255}, {254, 1, 1}, "L > 0.5, channels truncated"},
    {"nmqiHLSToRGB_8u_C3R", {0, 127, 255}, {254, 0, 0}, "L <= 0.5"},
    {"nmqiHLSToRGB_8u_C3R", {21, 100, 200}, {178, 99, 21}, "rising edge of G"},
    {"nmqiHLSToRGB_8u_C3R", {200, 60, 30}, {62, 52, 67}, "falling edge of R"},
    {"nmqiHLSToRGB_8u_C3R", {128, 200, 100}, {178, 221, 221}, "cyan side"},
    {"nmqiHLSToRGB_16u_C3R", {0, 32768, 65535}, {65535, 0, 0}, "red"},
    {"nmqiHLSToRGB_16u_C3R", {10923, 40000, 30000}, {51688, 51689, 28310}, "yellow side"},
    {"nmqiHLSToRGB_16u_C3R", {43690, 20000, 65535}, {0, 0, 40000}, "blue"},
    {"nmqiHLSToRGB_32f_C3R", {0, 0.5, 1}, {1, 0, 0}, "red at L = 0.5"},
    {"nmqiHLSToRGB_32f_C3R", {0.5, 0.25, 1}, {0, 0.5, 0.5}, "cyan"},
    // Forward 8u values away from the estimate's last bits.
    {"nmqiRGBToHLS_8u_C3R", {255, 255, 255}, {0, 255, 0}, "white"},
    {"nmqiRGBToHLS_8u_C3R", {20, 20, 200}, {170, 110, 208}, "blue: 240 x 0.7083333 is 170 in float"},
    {"nmqiRGBToHLS_8u_C3R", {20, 200, 20}, {85, 110, 208}, "green"},
    {"nmqiRGBToHLS_8u_C3R", {200, 120, 20}, {23, 110, 208}, "H = 23.6 truncated"},
    {"nmqiRGBToHLS_8u_C3R", {200, 100, 100}, {0, 150, 121}, "L above 127.5: S over 510 - sum"},
    {"nmqiRGBToHLS_8u_C3R", {100, 40, 40}, {0, 70, 109}, "L below 127.5: S over the sum"},
    {"nmqiRGBToHLS_8u_C3R", {200, 20, 200}, {212, 110, 208}, "R = B: red's formula"},
    {"nmqiRGBToHSV_8u_C3R", {0, 0, 255}, {170, 255, 255}, "blue"},
    {"nmqiRGBToHSV_8u_C3R", {255, 0, 1}, {255, 255, 255}, "hue just below 0 rounds to 255"},
    {"nmqiRGBToHSV_8u_C3R", {255, 0, 0}, {0, 255, 255}, "red"},
    {"nmqiRGBToHSV_8u_C3R", {255, 128, 0}, {21, 255, 255}, "orange"},
    {"nmqiRGBToHLS_32f_C3R", {0.6, 0.2, 0.2}, {0, 0.4, 0.5}, "L <= 0.5: S = d / (m + V)"},
    {"nmqiRGBToHLS_32f_C3R", {0.8, 0.4, 0.4}, {0, 0.6, 0.5}, "L > 0.5: S = d / (2 - m - V)"},
    {"nmqiRGBToHLS_32f_C3R", {0.2, 0.6, 0.2}, {1 / 3.0, 0.4, 0.5}, "green"},
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
            const double g = e.type == Type::f32 ? double(float(t)) : std::floor(lo + t * (hi - lo)), h = lo + (hi - lo) * 0.3;
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
