// Hand-computed values that pin the rounding rules of the family (the sweep
// holds every level and layout to the reference these values check).
#include <algorithm>
#include <functional>
#include <vector>

#include "support/harness.h"

namespace {

using Bytes = std::vector<Nmq8u>;

// w pixels of n bytes, each starting with the three given bytes.
Bytes flat(int w, int n, Bytes c) {
    Bytes v(size_t(w * n), 0);
    for (int i = 0; i < w; ++i) std::copy(c.begin(), c.end(), v.begin() + i * n);
    return v;
}

// Runs an interleaved 4:4:4 export over one row of w pixels; returns the row.
using Fn444 = NmqStatus (*)(const Nmq8u*, int, Nmq8u*, int, ImageSize);
Bytes row444(Fn444 f, int w, Bytes px) {
    const Bytes s = flat(w, 3, px);
    Bytes d(s.size());
    EXPECT_EQ(f(s.data(), 3 * w, d.data(), 3 * w, {w, 1}), nmqStsOk);
    return d;
}

// Three planes of 4:2:x from a 2 x 2 image of one RGB colour; returns Y0 Y3 U V.
using Fn42x = NmqStatus (*)(const Nmq8u*, int, Nmq8u* const*, int*, ImageSize);
Bytes sub2x2(Fn42x f, Bytes px) {
    const Bytes s = flat(4, 3, px);
    Nmq8u y[4], u[2], v[2];
    Nmq8u* d[3] = {y, u, v};
    int st[3] = {2, 1, 1};
    EXPECT_EQ(f(s.data(), 6, d, st, {2, 2}), nmqStsOk);
    return {y[0], y[3], u[0], v[0]};
}

Bytes pick(const Bytes& v, std::initializer_list<int> at) {
    Bytes o;
    for (int i : at) o.push_back(v[size_t(i)]);
    return o;
}

struct Case {
    const char* what;
    std::function<Bytes()> run;
    Bytes want;
};

const Case kCases[] = {
    // Pure red: Y 76; V = 128 + 156 clamped; U 90 per pixel, 91 in a 16-pixel
    // block of the interleaved kernel (U from R directly: -0.147 x 255 rounded).
    {"red, one pixel", [] { return row444(nmqiRGBToYUV_8u_C3R, 1, {255, 0, 0}); }, {76, 90, 255}},
    {"red, block then tail", [] { return pick(row444(nmqiRGBToYUV_8u_C3R, 17, {255, 0, 0}), {0, 1, 2, 49, 50}); },
     {76, 91, 255, 90, 255}},
    // Y 100, V 148: per pixel R rounds to 123; a block floors 20 x 9339 / 8192 (R 122).
    {"inverse block then tail", [] { return pick(row444(nmqiYUVToRGB_8u_C3R, 17, {100, 128, 148}), {0, 1, 2, 48}); },
     {122, 88, 100, 123}},
    // G of Y 100, U 129, V 128 is 99.6: C3C4R rounds (100), AC4 and the planar kernel truncate (99).
    {"G rounded in C3C4R",
     [] {
         const Bytes s = {100, 129, 128};
         Bytes d(4);
         EXPECT_EQ(nmqiYUVToRGB_8u_C3C4R(s.data(), 3, d.data(), 4, {1, 1}, 0xEE), nmqStsOk);
         return d;
     },
     {100, 100, 102, 0xEE}},
    {"G truncated in AC4, alpha kept",
     [] {
         Bytes d = {100, 129, 128, 0x5A};
         EXPECT_EQ(nmqiYUVToRGB_8u_AC4R(d.data(), 4, d.data(), 4, {1, 1}), nmqStsOk);
         return d;
     },
     {100, 99, 102, 0x5A}},
    // The planar constants, truncated: V 127 gives R 98.86 and G 100.58 (C3C4R: 99, 101).
    {"planar kernel",
     [] {
         Nmq8u y[2] = {100, 100}, u[2] = {128, 129}, v[2] = {127, 128}, o[6];
         const Nmq8u* s[3] = {y, u, v};
         Nmq8u* d[3] = {o, o + 2, o + 4};
         EXPECT_EQ(nmqiYUVToRGB_8u_P3R(s, 2, d, 2, {2, 1}), nmqStsOk);
         return Bytes(o, o + 6);
     },
     {98, 100, 100, 99, 100, 102}},
    // (173, 0, 191) has a luma sum of 73.5 x 65536: Y truncates to 73 in 4:2:2
    // and 4:2:0, and the chroma is U 185 where a rounding constant of half
    // the scale would give 186.
    {"pair rounding", [] { return sub2x2(nmqiRGBToYUV422_8u_C3P3R, {173, 0, 191}); }, {73, 73, 185, 215}},
    {"block rounding", [] { return sub2x2(nmqiRGBToYUV420_8u_C3P3R, {173, 0, 191}); }, {73, 73, 185, 215}},
    // The last pixel of an odd 4:2:2 row is at scale 2^15, whose weights sum
    // to 32769: white gives U = V = 127 there, 128 in a pair.
    {"odd last pixel",
     [] {
         const Bytes s = flat(3, 3, {255, 255, 255});
         Nmq8u y[3], u[2], v[2];
         Nmq8u* d[3] = {y, u, v};
         int st[3] = {3, 2, 2};
         EXPECT_EQ(nmqiRGBToYUV422_8u_C3P3R(s.data(), 9, d, st, {3, 1}), nmqStsOk);
         return Bytes{y[0], u[0], v[0], y[2], u[1], v[1]};
     },
     {255, 128, 128, 255, 127, 127}},
    // A C2 row one pixel wide: Y 100 and the chroma byte 118 as U and V, all
    // truncated: (88, 109, 79); the same colour in a pair rounds R to 89.
    {"C2 single column",
     [] {
         const Bytes one = {100, 118}, two = {100, 118, 100, 118};
         Bytes o1(3), o2(6);
         EXPECT_EQ(nmqiYUV422ToRGB_8u_C2C3R(one.data(), 2, o1.data(), 3, {1, 1}), nmqStsOk);
         EXPECT_EQ(nmqiYUV422ToRGB_8u_C2C3R(two.data(), 4, o2.data(), 6, {2, 1}), nmqStsOk);
         return Bytes{o1[0], o1[1], o1[2], o2[0]};
     },
     {88, 109, 79, 89}},
};

TEST(YuvValues, HandComputed) {
    for (const Case& c : kCases) EXPECT_EQ(c.run(), c.want) << c.what;
}

// Flat colours through RGB24 to 4:2:0 at every level, on a row pair of 130
// pixels (whole vector blocks and a partial one at each level). Red and green
// drive V past both ends of the byte range: 128 + 157 and 128 - 131.
TEST(YuvValues, FlatColours420AtEveryLevel) {
    struct Flat {
        Nmq8u rgb[3], y, u, v;
    };
    const Flat flats[] = {
        {{255, 0, 0}, 76, 90, 255},   {{0, 255, 0}, 149, 54, 0},      {{0, 0, 255}, 29, 239, 102},
        {{173, 0, 191}, 73, 185, 215}, {{255, 255, 255}, 255, 128, 128}, {{0, 0, 0}, 0, 128, 128},
    };
    const int w = 130, cw = w / 2;
    for (nmq::Isa lv : nmqt::isa_levels()) {
        nmq::IsaCap cap(lv);
        for (const Flat& f : flats) {
            const Bytes s = flat(2 * w, 3, {f.rgb[0], f.rgb[1], f.rgb[2]});
            Bytes y(2 * static_cast<size_t>(w)), u(static_cast<size_t>(cw)), v(static_cast<size_t>(cw));
            Nmq8u* d[3] = {y.data(), u.data(), v.data()};
            int st[3] = {w, cw, cw};
            ASSERT_EQ(nmqiRGBToYUV420_8u_C3P3R(s.data(), 3 * w, d, st, {w, 2}), nmqStsOk);
            const auto all = [](const Bytes& b, Nmq8u x) {
                return std::all_of(b.begin(), b.end(), [x](Nmq8u c) { return c == x; });
            };
            EXPECT_TRUE(all(y, f.y) && all(u, f.u) && all(v, f.v))
                << int(f.rgb[0]) << "," << int(f.rgb[1]) << "," << int(f.rgb[2]) << " " << nmqt::isa_name(lv);
        }
    }
}

}  // namespace
