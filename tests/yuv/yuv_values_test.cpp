// Hand-computed values that pin the rounding rules of the family.
#include <array>
#include <vector>

#include "support/harness.h"

namespace {

using Px = std::array<int, 3>;

// A w x h image of one colour, interleaved with n bytes per pixel.
std::vector<Nmq8u> flat(int w, int h, int n, Px c) {
    std::vector<Nmq8u> v(size_t(w) * h * n, 0);
    for (size_t i = 0; i < v.size(); i += size_t(n))
        for (int k = 0; k < 3; ++k) v[i + size_t(k)] = Nmq8u(c[size_t(k)]);
    return v;
}

Px at(const std::vector<Nmq8u>& v, int i, int n) { return {v[size_t(i * n)], v[size_t(i * n + 1)], v[size_t(i * n + 2)]}; }

// Every SIMD level must give these values, so each check runs at all of them.
template <class F>
void each_level(F f) {
    for (nmq::Isa lv : nmqt::isa_levels()) {
        nmq::IsaCap cap(lv);
        SCOPED_TRACE(nmqt::isa_name(lv));
        f();
    }
}

// Pure red: Y 76 (0.299 x 255 rounded); V = 128 + 156 is clamped. The
// per-pixel U is 90; a 16-pixel block of the interleaved kernel computes U
// from R directly (-0.147 x 255 rounded) and gives 91.
TEST(YuvValues, RedPerPixelAndInBlocks) {
    each_level([] {
        for (int w : {1, 15, 16, 17}) {
            const auto src = flat(w, 1, 3, {255, 0, 0});
            std::vector<Nmq8u> dst(size_t(3 * w));
            ASSERT_EQ(nmqiRGBToYUV_8u_C3R(src.data(), 3 * w, dst.data(), 3 * w, {w, 1}), nmqStsOk);
            EXPECT_EQ(at(dst, 0, 3), (Px{76, w >= 16 ? 91 : 90, 255})) << w;
            EXPECT_EQ(at(dst, w - 1, 3), (Px{76, w == 16 ? 91 : 90, 255})) << w;
        }
    });
}

// Y 100, U 128, V 148: the per-pixel inverse rounds R to 123 and G to 88; a
// 16-pixel block floors each term at scale 2^13: R 100 + [20 x 9339 / 8192] = 122.
TEST(YuvValues, InverseBlocksFloorEachTerm) {
    each_level([] {
        for (int w : {15, 16}) {
            const auto src = flat(w, 1, 3, {100, 128, 148});
            std::vector<Nmq8u> dst(size_t(3 * w));
            ASSERT_EQ(nmqiYUVToRGB_8u_C3R(src.data(), 3 * w, dst.data(), 3 * w, {w, 1}), nmqStsOk);
            EXPECT_EQ(at(dst, 0, 3), (Px{w == 16 ? 122 : 123, 88, 100})) << w;
        }
    });
}

// The three inverses of one pixel: G of Y 100, U 128, V 127 is 100.58 before
// rounding. C3C4R rounds it (101); AC4 truncates it (100); the planar kernel
// truncates with its own constants (100). Y 100, U 129, V 128 gives G 99 in AC4.
TEST(YuvValues, InverseGRounding) {
    each_level([] {
        struct Row { Px yuv; int g_c4, g_ac4, g_p3; };
        for (const Row& r : {Row{{100, 128, 127}, 101, 100, 100}, Row{{100, 129, 128}, 100, 99, 99}}) {
            const auto c3 = flat(1, 1, 3, r.yuv), ac4 = flat(1, 1, 4, r.yuv);
            std::vector<Nmq8u> o4(4, 7), oa(ac4);
            oa[3] = 0x5A;
            ASSERT_EQ(nmqiYUVToRGB_8u_C3C4R(c3.data(), 3, o4.data(), 4, {1, 1}, 0xEE), nmqStsOk);
            ASSERT_EQ(nmqiYUVToRGB_8u_AC4R(oa.data(), 4, oa.data(), 4, {1, 1}), nmqStsOk);
            Nmq8u y = Nmq8u(r.yuv[0]), u = Nmq8u(r.yuv[1]), v = Nmq8u(r.yuv[2]), p[3];
            const Nmq8u* sp[3] = {&y, &u, &v};
            Nmq8u* dp[3] = {p, p + 1, p + 2};
            ASSERT_EQ(nmqiYUVToRGB_8u_P3R(sp, 1, dp, 1, {1, 1}), nmqStsOk);
            EXPECT_EQ(o4[1], r.g_c4);
            EXPECT_EQ(o4[3], 0xEE);
            EXPECT_EQ(oa[1], r.g_ac4);
            EXPECT_EQ(oa[3], 0x5A);
            EXPECT_EQ(p[1], r.g_p3);
        }
    });
}

// (173, 0, 191) has a luma sum of exactly 73.5 x 65536: Y is truncated to 73
// in 4:2:2 and 4:2:0 (74 at full sampling), and the chroma of a pair or block
// is U 185, where a rounding constant of half the scale would give 186.
TEST(YuvValues, SubsampledRoundingConstants) {
    each_level([] {
        const auto src = flat(2, 2, 3, {173, 0, 191});
        Nmq8u y[4], u[2], v[2];
        Nmq8u* d[3] = {y, u, v};
        int st[3] = {2, 1, 1};
        ASSERT_EQ(nmqiRGBToYUV422_8u_C3P3R(src.data(), 6, d, st, {2, 2}), nmqStsOk);
        EXPECT_EQ(y[0], 73);
        EXPECT_EQ(y[3], 73);
        EXPECT_EQ(u[0], 185);
        EXPECT_EQ(u[1], 185);
        ASSERT_EQ(nmqiRGBToYUV420_8u_C3P3R(src.data(), 6, d, st, {2, 2}), nmqStsOk);
        EXPECT_EQ(y[2], 73);
        EXPECT_EQ(u[0], 185);
        Nmq8u full[3];
        ASSERT_EQ(nmqiRGBToYUV_8u_C3R(src.data(), 3, full, 3, {1, 1}), nmqStsOk);
        EXPECT_EQ(full[0], 74);
    });
}

// The lone last pixel of an odd 4:2:2 row works at scale 2^15, whose weights
// sum to 32769: white gives U = V = 127 there, 128 in a pair.
TEST(YuvValues, OddLastPixelAtScale15) {
    each_level([] {
        const auto src = flat(3, 1, 3, {255, 255, 255});
        Nmq8u y[3], u[2], v[2];
        Nmq8u* d[3] = {y, u, v};
        int st[3] = {3, 2, 2};
        ASSERT_EQ(nmqiRGBToYUV422_8u_C3P3R(src.data(), 9, d, st, {3, 1}), nmqStsOk);
        EXPECT_EQ((Px{y[2], u[1], v[1]}), (Px{255, 127, 127}));
        EXPECT_EQ((Px{y[0], u[0], v[0]}), (Px{255, 128, 128}));
    });
}

// A C2 row one pixel wide: its chroma byte serves as U and V and all channels
// are truncated: Y 100, C 118 gives (88, 109, 79); the same colour in a pair
// rounds R to 89.
TEST(YuvValues, C2SingleColumn) {
    each_level([] {
        const Nmq8u one[2] = {100, 118}, two[4] = {100, 118, 100, 118};
        Nmq8u o1[3], o2[6];
        ASSERT_EQ(nmqiYUV422ToRGB_8u_C2C3R(one, 2, o1, 3, {1, 1}), nmqStsOk);
        ASSERT_EQ(nmqiYUV422ToRGB_8u_C2C3R(two, 4, o2, 6, {2, 1}), nmqStsOk);
        EXPECT_EQ((Px{o1[0], o1[1], o1[2]}), (Px{88, 109, 79}));
        EXPECT_EQ(o2[0], 89);
    });
}

// Pure red in each packed format: fields widen to 255 and a 2x2 block gives
// Y 76, U 90, V 255 (dB4 = -303, dR4 = 717).
TEST(YuvValues, PackedRedInEveryWordLayout) {
    using Fn = NmqStatus (*)(const Nmq16u*, int, Nmq8u* const*, int*, ImageSize);
    struct Row { Fn f; Nmq16u red; };
    each_level([] {
        for (const Row& r : {Row{nmqiRGB565ToYUV420_16u8u_C3P3R, 0x001F}, Row{nmqiBGR565ToYUV420_16u8u_C3P3R, 0xF800},
                             Row{nmqiBGR555ToYUV420_16u8u_C3P3R, 0x7C00}}) {
            const Nmq16u src[4] = {r.red, r.red, r.red, r.red};
            Nmq8u y[4], u, v;
            Nmq8u* d[3] = {y, &u, &v};
            int st[3] = {2, 1, 1};
            ASSERT_EQ(r.f(src, 4, d, st, {2, 2}), nmqStsOk);
            EXPECT_EQ((Px{y[3], u, v}), (Px{76, 90, 255})) << r.red;
        }
    });
}

// nmqiYUV422ToRGB_8u_P3 runs an image of at least 256 pixels with even rows
// as one row, so every pixel of a 24 x 12 image lies in a 16-pixel block
// (R 122 for Y 100, V 148); at 24 x 10 each row ends with 8 per-pixel columns (R 123).
TEST(YuvValues, Planar422WholeImageRun) {
    each_level([] {
        for (int h : {12, 10}) {
            const int w = 24;
            std::vector<Nmq8u> y(size_t(w * h), 100), u(size_t(w * h / 2), 128), v(size_t(w * h / 2), 148);
            std::vector<Nmq8u> r(size_t(w * h)), g(r.size()), b(r.size());
            const Nmq8u* s[3] = {y.data(), u.data(), v.data()};
            Nmq8u* d[3] = {r.data(), g.data(), b.data()};
            ASSERT_EQ(nmqiYUV422ToRGB_8u_P3(s, d, {w, h}), nmqStsOk);
            EXPECT_EQ(r[size_t(w + 20)], h == 12 ? 122 : 123) << h;
            EXPECT_EQ(r[size_t(w + 3)], 122) << h;
        }
    });
}

// 4:2:0 of odd sizes: nmqStsOddSize, and the last odd row and column are not
// written; with one row nothing is.
TEST(YuvValues, Yuv420OddSizes) {
    const Nmq8u y[9] = {10, 20, 30, 40, 50, 60, 70, 80, 90}, u[4] = {128, 128, 128, 128}, v[4] = {128, 128, 128, 128};
    const Nmq8u* s[3] = {y, u, v};
    const int st[3] = {3, 2, 2};
    std::vector<Nmq8u> d(36, 0xCC);
    ASSERT_EQ(nmqiYUV420ToRGB_8u_P3AC4R(s, st, d.data(), 12, {3, 3}), nmqStsOddSize);
    EXPECT_EQ(at(d, 0, 4), (Px{10, 10, 10}));
    EXPECT_EQ(at(d, 4, 4), (Px{50, 50, 50}));
    for (int i : {2, 5, 6, 7, 8}) EXPECT_EQ(at(d, i, 4), (Px{0xCC, 0xCC, 0xCC})) << i;
    for (int i = 0; i < 9; ++i) EXPECT_EQ(d[size_t(4 * i + 3)], 0xCC);
    std::vector<Nmq8u> one(12, 0xCC);
    ASSERT_EQ(nmqiYUV420ToRGB_8u_P3AC4R(s, st, one.data(), 12, {3, 1}), nmqStsOddSize);
    EXPECT_EQ(one, std::vector<Nmq8u>(12, 0xCC));
}

}  // namespace
