// Gray conversions: argument checks, the two 8u arithmetics by column, the
// weight conversion and its wrap, the 16-bit rounding and saturation rules,
// float orders of evaluation, and every SIMD level against a reference
// written from the formulas.
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

using Fn = std::function<NmqStatus(const void*, int, void*, int, ImageSize)>;
struct Export {
    const char* name;
    Fn fn;
};

template <class T>
const T* cs(const void* p) { return static_cast<const T*>(p); }
template <class T>
T* ds(void* p) { return static_cast<T*>(p); }

#define GRAY_FN(name, T)                                                                           \
    Export { #name, [](const void* s, int ss, void* d, int dd, ImageSize r) {                       \
        return name(cs<T>(s), ss, ds<T>(d), dd, r); } }
#define GRAY_FN_W(name, T, W)                                                                      \
    Export { #name, [](const void* s, int ss, void* d, int dd, ImageSize r) {                       \
        return name(cs<T>(s), ss, ds<T>(d), dd, r, static_cast<const W*>(nullptr)); } }
#define GRAY_FN_A(name, T)                                                                         \
    Export { #name, [](const void* s, int ss, void* d, int dd, ImageSize r) {                       \
        return name(cs<T>(s), ss, ds<T>(d), dd, r, T(1)); } }

const std::vector<Export>& all_exports() {
    static const std::vector<Export> v = {
        GRAY_FN(nmqiRGBToGray_8u_C3C1R, Nmq8u),          GRAY_FN(nmqiRGBToGray_8u_AC4C1R, Nmq8u),
        GRAY_FN(nmqiRGBToGray_16u_C3C1R, Nmq16u),        GRAY_FN(nmqiRGBToGray_16u_AC4C1R, Nmq16u),
        GRAY_FN(nmqiRGBToGray_16s_C3C1R, Nmq16s),        GRAY_FN(nmqiRGBToGray_16s_AC4C1R, Nmq16s),
        GRAY_FN(nmqiRGBToGray_32f_C3C1R, Nmq32f),        GRAY_FN(nmqiRGBToGray_32f_AC4C1R, Nmq32f),
        GRAY_FN_W(nmqiColorToGray_8u_C3C1R, Nmq8u, Nmq32f),   GRAY_FN_W(nmqiColorToGray_8u_AC4C1R, Nmq8u, Nmq32f),
        GRAY_FN_W(nmqiColorToGray_16u_C3C1R, Nmq16u, Nmq32f), GRAY_FN_W(nmqiColorToGray_16u_AC4C1R, Nmq16u, Nmq32f),
        GRAY_FN_W(nmqiColorToGray_16s_C3C1R, Nmq16s, Nmq32f), GRAY_FN_W(nmqiColorToGray_16s_AC4C1R, Nmq16s, Nmq32f),
        GRAY_FN_W(nmqiColorToGray_32f_C3C1R, Nmq32f, Nmq32f), GRAY_FN_W(nmqiColorToGray_32f_AC4C1R, Nmq32f, Nmq32f),
        GRAY_FN_W(nmqiColorToGray_64f_C3C1R, Nmq64f, Nmq64f), GRAY_FN_W(nmqiColorToGray_64f_AC4C1R, Nmq64f, Nmq64f),
        GRAY_FN(nmqiGrayToRGB_8u_C1C3R, Nmq8u),          GRAY_FN(nmqiGrayToRGB_16u_C1C3R, Nmq16u),
        GRAY_FN(nmqiGrayToRGB_32f_C1C3R, Nmq32f),        GRAY_FN_A(nmqiGrayToRGB_8u_C1C4R, Nmq8u),
        GRAY_FN_A(nmqiGrayToRGB_16u_C1C4R, Nmq16u),      GRAY_FN_A(nmqiGrayToRGB_32f_C1C4R, Nmq32f),
    };
    return v;
}

// ---- references written from the formulas ------------------------------------
uint32_t ref_weight(float c) { return uint32_t(int64_t(std::trunc(double(c) * 32768.0 + 0.5))) & 0xFFFF; }

// Vector part: floor(x * 256 * w / 65536) per channel, saturating 16-bit sum
// with 64, then s >> 7 below 32768 and 0 from there on.
int ref8u_vector(const uint8_t* p, const uint32_t w[3]) {
    int64_t s = 64;
    for (int c = 0; c < 3; ++c) s += int64_t(p[c]) * 256 * w[c] / 65536;
    if (s > 65535) s = 65535;
    return s >= 32768 ? 0 : int(s / 128);
}
int ref8u_tail(const uint8_t* p, const uint32_t w[3]) {
    return int((int64_t(p[0]) * w[0] + int64_t(p[1]) * w[1] + int64_t(p[2]) * w[2] + 16384) / 32768) & 0xFF;
}

struct Img {
    Plane src, dst;
};

// Source of `ch` elements of T per pixel and a one-element destination with
// guards; paddings and misalignments in whole elements.
template <class T>
Img make_img(const Shape& s, int ch_src, int ch_dst, Rng& rng, bool page_guard) {
    const int e = int(sizeof(T));
    Img m{Plane(s.w * ch_src * e, s.h, s.pad * e, (s.misalign * e) % 64, 0, page_guard),
          Plane(s.w * ch_dst * e, s.h, (s.pad + 2) * e, (s.misalign * 3 * e) % 64, 16)};
    m.src.randomize(rng);
    return m;
}

// Runs `call` at every level and checks the destination against `expect` and its guards.
void at_every_level(Img& m, Rng& rng, const std::vector<uint8_t>& expect, const std::function<NmqStatus()>& call,
                    const std::string& what) {
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        m.dst.randomize(rng);
        ASSERT_EQ(call(), nmqStsOk) << what;
        ASSERT_EQ(first_diff(m.dst.roi(), expect, m.dst.row_bytes), "") << what << " at " << isa_name(lv);
        ASSERT_TRUE(m.dst.outside_untouched()) << what << " at " << isa_name(lv);
    }
}

template <class T>
void put(std::vector<uint8_t>& v, T x) {
    const auto* b = reinterpret_cast<const uint8_t*>(&x);
    v.insert(v.end(), b, b + sizeof(T));
}

template <class T>
T get(const Plane& p, int y, int i) {
    T x;
    std::memcpy(&x, p.row(y) + sizeof(T) * size_t(i), sizeof(T));
    return x;
}

// Runs an 8u conversion on a row of identical pixels and returns the row.
std::vector<uint8_t> gray8u_row(int stride, int width, const uint8_t px[3], const float* coeffs) {
    std::vector<uint8_t> src(size_t(stride * width)), dst(static_cast<size_t>(width));
    for (int x = 0; x < width; ++x) std::memcpy(&src[size_t(stride * x)], px, 3);
    const ImageSize r{width, 1};
    const NmqStatus st = stride == 3 ? nmqiColorToGray_8u_C3C1R(src.data(), 3 * width, dst.data(), width, r, coeffs)
                                     : nmqiColorToGray_8u_AC4C1R(src.data(), 4 * width, dst.data(), width, r, coeffs);
    EXPECT_EQ(st, nmqStsOk);
    return dst;
}

}  // namespace

// ---- argument checks --------------------------------------------------------------
TEST(GrayArgs, PointersFirstThenSize) {
    struct Case {
        bool src, dst;
        ImageSize roi;
        NmqStatus want;
    };
    const Case cases[] = {
        {false, true, {4, 2}, nmqStsNullPtr}, {true, false, {4, 2}, nmqStsNullPtr},
        {false, false, {0, 0}, nmqStsNullPtr}, {true, false, {0, 2}, nmqStsNullPtr},
        {true, true, {0, 2}, nmqStsSize},     {true, true, {4, 0}, nmqStsSize},
        {true, true, {-1, 2}, nmqStsSize},    {true, true, {4, -7}, nmqStsSize},
    };
    Rng rng;
    Plane src(256, 2), dst(256, 2, 0, 0, 16);
    for (const Export& e : all_exports())
        for (const Case& c : cases) {
            dst.randomize(rng);
            EXPECT_EQ(e.fn(c.src ? src.ptr() : nullptr, 256, c.dst ? dst.ptr() : nullptr, 256, c.roi), c.want)
                << e.name << " " << c.roi.width << "x" << c.roi.height;
            EXPECT_TRUE(dst.untouched()) << e.name;
        }
}

// ---- 8u: two arithmetics chosen by column ---------------------------------------------
TEST(Gray8u, ColumnDecidesTheRounding) {
    const uint8_t px[3] = {0, 6, 70};
    // C3: the vector part is 4*floor(w/4) pixels; AC4: 8*floor(w/8).
    struct Case {
        int stride, width;
        std::vector<uint8_t> want;
    };
    const Case cases[] = {
        {3, 1, {12}},           {3, 3, {12, 12, 12}},       {3, 4, {11, 11, 11, 11}},
        {3, 5, {11, 11, 11, 11, 12}},                      {3, 7, {11, 11, 11, 11, 12, 12, 12}},
        {4, 7, {12, 12, 12, 12, 12, 12, 12}},              {4, 9, {11, 11, 11, 11, 11, 11, 11, 11, 12}},
    };
    for (const Case& c : cases) {
        for (nmq::Isa lv : isa_levels()) {
            nmq::IsaCap cap(lv);
            EXPECT_EQ(gray8u_row(c.stride, c.width, px, nullptr), c.want)
                << "stride " << c.stride << " width " << c.width << " " << isa_name(lv);
        }
    }
}

TEST(Gray8u, WeightConversionAndSaturation) {
    struct Case {
        float w[3];
        uint8_t px[3];
        int vec, tail;  // results in the vector part and in the tail
        const char* rule;
    };
    const Case cases[] = {
        {{0.299f, 0.587f, 0.114f}, {255, 255, 255}, 255, 255, "fixed weights keep white"},
        {{1.0f, 1.0f, 0.0f}, {255, 255, 255}, 0, 254, "saturated sum gives 0; the tail keeps the low 8 bits of 510"},
        {{2.0f, 0.0f, 0.0f}, {200, 0, 0}, 0, 0, "2.0 wraps to weight 0"},
        {{2.5f, 0.0f, 0.0f}, {200, 0, 0}, 100, 100, "2.5 wraps to 0.5"},
        {{-0.5f, 0.0f, 0.0f}, {10, 0, 0}, 15, 15, "-0.5 wraps to 49153"},
    };
    for (const Case& c : cases)
        for (int stride : {3, 4}) {
            const int vw = stride == 3 ? 4 : 8;
            const auto v = gray8u_row(stride, vw + 1, c.px, c.w);
            EXPECT_EQ(v[0], c.vec) << c.rule << " stride " << stride;
            EXPECT_EQ(v[size_t(vw)], c.tail) << c.rule << " stride " << stride;
        }
}

TEST(Gray8u, FloatFixedWeightsEqualTheIntegerOnes) {
    Rng rng(7);
    const float w[3] = {0.299f, 0.587f, 0.114f};
    for (int width : {1, 3, 4, 7, 8, 13, 37}) {
        Plane src(width * 4, 3);
        src.randomize(rng);
        Plane a(width, 3), b(width, 3);
        const ImageSize r{width, 3};
        ASSERT_EQ(nmqiRGBToGray_8u_C3C1R(src.ptr(), src.step, a.ptr(), width, r), nmqStsOk);
        ASSERT_EQ(nmqiColorToGray_8u_C3C1R(src.ptr(), src.step, b.ptr(), width, r, w), nmqStsOk);
        EXPECT_EQ(a.roi(), b.roi()) << width;
        ASSERT_EQ(nmqiRGBToGray_8u_AC4C1R(src.ptr(), src.step, a.ptr(), width, r), nmqStsOk);
        ASSERT_EQ(nmqiColorToGray_8u_AC4C1R(src.ptr(), src.step, b.ptr(), width, r, w), nmqStsOk);
        EXPECT_EQ(a.roi(), b.roi()) << width;
    }
}

// Every shape at every level against the reference, with the fixed weights and
// with caller weights that sum above 1, wrap or are negative.
TEST(Gray8u, SweepMatchesReference) {
    const float weight_sets[][3] = {{0.299f, 0.587f, 0.114f}, {0.9f, 0.7f, 0.3f}, {2.3f, -0.2f, 0.5f}, {1.0f, 1.0f, 1.0f}};
    Rng rng(11);
    int k = 0;
    for (const Shape& s : sweep_shapes())
        for (int stride : {3, 4}) {
            const float* coeffs = ++k % 5 == 0 ? nullptr : weight_sets[k % 4];
            uint32_t w[3];
            for (int c = 0; c < 3; ++c) w[c] = ref_weight(coeffs ? coeffs[c] : weight_sets[0][c]);
            Img m = make_img<uint8_t>(s, stride, 1, rng, k % 3 == 0);
            const int v = stride == 3 ? s.w & ~3 : s.w & ~7;
            std::vector<uint8_t> expect;
            for (int y = 0; y < s.h; ++y)
                for (int x = 0; x < s.w; ++x) {
                    const uint8_t* p = m.src.row(y) + stride * x;
                    expect.push_back(uint8_t(x < v ? ref8u_vector(p, w) : ref8u_tail(p, w)));
                }
            const ImageSize r{s.w, s.h};
            at_every_level(m, rng, expect, [&] {
                return stride == 3 ? nmqiColorToGray_8u_C3C1R(m.src.ptr(), m.src.step, m.dst.ptr(), m.dst.step, r, coeffs)
                                   : nmqiColorToGray_8u_AC4C1R(m.src.ptr(), m.src.step, m.dst.ptr(), m.dst.step, r, coeffs);
            }, to_string(s) + " stride " + std::to_string(stride));
        }
}

// ---- 16u and 16s --------------------------------------------------------------------
TEST(Gray16, RoundingSaturationAndWrap) {
    // 16u rounds to nearest-even and keeps the low 16 bits on every column.
    {
        const float half[3] = {0.5f, 0.0f, 0.0f}, two[3] = {1.0f, 1.0f, 0.0f};
        const uint16_t src[] = {3, 9, 9, 5, 9, 9, 65535, 65535, 0, 65535, 65535, 0, 65535, 65535, 0,
                                65535, 65535, 0, 65535, 65535, 0};
        uint16_t dst[5];
        ASSERT_EQ(nmqiColorToGray_16u_C3C1R(src, 12, dst, 4, {2, 1}, half), nmqStsOk);
        EXPECT_EQ(dst[0], 2);  // 1.5
        EXPECT_EQ(dst[1], 2);  // 2.5
        ASSERT_EQ(nmqiColorToGray_16u_C3C1R(src + 6, 30, dst, 10, {5, 1}, two), nmqStsOk);
        for (int x = 0; x < 5; ++x) EXPECT_EQ(dst[x], 65534) << x;  // 131070, low 16 bits
    }
    // 16s: the offset keeps the extremes; with weights above 1 the first
    // 4*floor(w/4) pixels saturate and the rest wrap.
    {
        struct Case {
            const float* w;
            int16_t px;
            int16_t vec, tail;
        };
        const float two[3] = {1.0f, 1.0f, 0.0f};
        const Case cases[] = {{nullptr, -32768, -32768, -32768}, {nullptr, 32767, 32767, 32767},
                              {nullptr, 0, 0, 0}, {two, 32767, 32767, 32766}, {two, -32768, -32768, -32768}};
        for (const Case& c : cases)
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                std::vector<int16_t> src(15, c.px), dst(5);
                if (c.w == two)
                    for (int x = 0; x < 5; ++x) src[size_t(3 * x + 2)] = 0;
                ASSERT_EQ(nmqiColorToGray_16s_C3C1R(src.data(), 30, dst.data(), 10, {5, 1}, c.w), nmqStsOk);
                EXPECT_EQ(dst[0], c.vec) << c.px;
                EXPECT_EQ(dst[3], c.vec) << c.px;
                EXPECT_EQ(dst[4], c.tail) << c.px;
            }
    }
}

// Float orders of evaluation: (R*wR + G*wG) + B*wB; the other grouping gives 0.
TEST(GrayFloat, OrderOfEvaluationAndDefaults) {
    const float wf[3] = {1.0f, 1.0f, 1.0f};
    const float sf[4] = {1e8f, -1e8f, 1.0f, 0.0f};
    float df = -1;
    ASSERT_EQ(nmqiColorToGray_32f_AC4C1R(sf, 16, &df, 4, {1, 1}, wf), nmqStsOk);
    EXPECT_EQ(df, 1.0f);
    const double wd[3] = {1.0, 1.0, 1.0};
    const double sd[3] = {1e17, -1e17, 1.0};
    double dd = -1;
    ASSERT_EQ(nmqiColorToGray_64f_C3C1R(sd, 24, &dd, 8, {1, 1}, wd), nmqStsOk);
    EXPECT_EQ(dd, 1.0);
    // 64f default weights: the float weights widened.
    const double unit[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    double g[3];
    ASSERT_EQ(nmqiColorToGray_64f_C3C1R(unit, 72, g, 24, {3, 1}, nullptr), nmqStsOk);
    EXPECT_EQ(g[0], 0.29899999499320984);
    EXPECT_EQ(g[1], 0.5870000123977661);
    EXPECT_EQ(g[2], 0.11400000005960464);
    // 32f fixed weights have the same bits.
    const float unitf[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    float gf[3];
    ASSERT_EQ(nmqiRGBToGray_32f_C3C1R(unitf, 36, gf, 12, {3, 1}), nmqStsOk);
    uint32_t bits[3];
    std::memcpy(bits, gf, sizeof bits);
    EXPECT_EQ(bits[0], 0x3E991687u);
    EXPECT_EQ(bits[1], 0x3F1645A2u);
    EXPECT_EQ(bits[2], 0x3DE978D5u);
}

// 16u, 16s, 32f and 64f over every shape against the reference formulas.
TEST(GrayWide, SweepMatchesReference) {
    const float wf[3] = {0.25f, 0.5f, 0.375f};
    Rng rng(21);
    int k = 0;
    for (const Shape& s : sweep_shapes(1, 1, 300)) {
        const ImageSize r{s.w, s.h};
        const bool pg = ++k % 4 == 0;
        const float* w = k % 2 ? wf : nullptr;
        const float w0 = w ? w[0] : 0.299f, w1 = w ? w[1] : 0.587f, w2 = w ? w[2] : 0.114f;
        for (int stride : {3, 4}) {
            const std::string what = to_string(s) + " stride " + std::to_string(stride);
            {  // 16u
                Img m = make_img<uint16_t>(s, stride, 1, rng, pg);
                std::vector<uint8_t> e;
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x) {
                        const float v = (float(get<uint16_t>(m.src, y, stride * x)) * w0 +
                                         float(get<uint16_t>(m.src, y, stride * x + 1)) * w1) +
                                        float(get<uint16_t>(m.src, y, stride * x + 2)) * w2;
                        put(e, uint16_t(std::lrint(v)));
                    }
                at_every_level(m, rng, e, [&] {
                    auto* sp = m.src.as<Nmq16u>();
                    auto* dp = m.dst.as<Nmq16u>();
                    return stride == 3 ? nmqiColorToGray_16u_C3C1R(sp, m.src.step, dp, m.dst.step, r, w)
                                       : nmqiColorToGray_16u_AC4C1R(sp, m.src.step, dp, m.dst.step, r, w);
                }, "16u " + what);
            }
            {  // 16s
                Img m = make_img<int16_t>(s, stride, 1, rng, pg);
                std::vector<uint8_t> e;
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x) {
                        const float v = (float(get<int16_t>(m.src, y, stride * x) + 32768) * w0 +
                                         float(get<int16_t>(m.src, y, stride * x + 1) + 32768) * w1) +
                                        float(get<int16_t>(m.src, y, stride * x + 2) + 32768) * w2;
                        const long g = std::lrint(v) - 32768;
                        // The weights sum above 1: saturation in the vector part, low 16 bits in the tail.
                        put(e, x < (s.w & ~3) ? int16_t(g < -32768 ? -32768 : g > 32767 ? 32767 : g)
                                              : int16_t(uint16_t(g & 0xFFFF)));
                    }
                at_every_level(m, rng, e, [&] {
                    auto* sp = m.src.as<Nmq16s>();
                    auto* dp = m.dst.as<Nmq16s>();
                    return stride == 3 ? nmqiColorToGray_16s_C3C1R(sp, m.src.step, dp, m.dst.step, r, w)
                                       : nmqiColorToGray_16s_AC4C1R(sp, m.src.step, dp, m.dst.step, r, w);
                }, "16s " + what);
            }
            {  // 32f
                Img m = make_img<float>(s, stride, 1, rng, pg);
                for (int y = 0; y < s.h; ++y)
                    for (int i = 0; i < s.w * stride; ++i) {
                        const float v = rng.uniformf(-2.0f, 2.0f);
                        std::memcpy(m.src.row(y) + 4 * i, &v, 4);
                    }
                std::vector<uint8_t> e;
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x)
                        put(e, (get<float>(m.src, y, stride * x) * w0 + get<float>(m.src, y, stride * x + 1) * w1) +
                                   get<float>(m.src, y, stride * x + 2) * w2);
                at_every_level(m, rng, e, [&] {
                    auto* sp = m.src.as<Nmq32f>();
                    auto* dp = m.dst.as<Nmq32f>();
                    return stride == 3 ? nmqiColorToGray_32f_C3C1R(sp, m.src.step, dp, m.dst.step, r, w)
                                       : nmqiColorToGray_32f_AC4C1R(sp, m.src.step, dp, m.dst.step, r, w);
                }, "32f " + what);
            }
            {  // 64f
                Img m = make_img<double>(s, stride, 1, rng, pg);
                for (int y = 0; y < s.h; ++y)
                    for (int i = 0; i < s.w * stride; ++i) {
                        const double v = rng.uniformf(-2.0f, 2.0f) / 3.0;
                        std::memcpy(m.src.row(y) + 8 * i, &v, 8);
                    }
                const double wd[3] = {0.2, 0.7, 0.1};
                const double* pw = w ? wd : nullptr;
                const double d0 = pw ? wd[0] : double(0.299f), d1 = pw ? wd[1] : double(0.587f),
                             d2 = pw ? wd[2] : double(0.114f);
                std::vector<uint8_t> e;
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x)
                        put(e, (d0 * get<double>(m.src, y, stride * x) + d1 * get<double>(m.src, y, stride * x + 1)) +
                                   d2 * get<double>(m.src, y, stride * x + 2));
                at_every_level(m, rng, e, [&] {
                    auto* sp = m.src.as<Nmq64f>();
                    auto* dp = m.dst.as<Nmq64f>();
                    return stride == 3 ? nmqiColorToGray_64f_C3C1R(sp, m.src.step, dp, m.dst.step, r, pw)
                                       : nmqiColorToGray_64f_AC4C1R(sp, m.src.step, dp, m.dst.step, r, pw);
                }, "64f " + what);
            }
        }
    }
}

// A 16-bit step that is not a multiple of two is truncated to whole elements.
TEST(GrayWide, OddByteStepIsTruncated) {
    const uint16_t src[2][4] = {{100, 100, 100, 7}, {200, 200, 200, 7}};
    uint16_t dst[2][2] = {{1, 1}, {1, 1}};
    ASSERT_EQ(nmqiRGBToGray_16u_C3C1R(&src[0][0], 9, &dst[0][0], 5, {1, 2}), nmqStsOk);
    EXPECT_EQ(dst[0][0], 100);
    EXPECT_EQ(dst[1][0], 200);
}

// ---- gray to colour ------------------------------------------------------------------
TEST(GrayToRGB, CopiesAndAlpha) {
    Rng rng(5);
    int k = 0;
    for (const Shape& s : sweep_shapes(1, 1, 300)) {
        const ImageSize r{s.w, s.h};
        const bool pg = ++k % 3 == 0;
        for (int ch : {3, 4}) {
            const std::string what = to_string(s) + " C" + std::to_string(ch);
            auto expand = [&](const Plane& src, int e, const void* alpha) {
                std::vector<uint8_t> out;
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x) {
                        for (int c = 0; c < 3; ++c) out.insert(out.end(), src.row(y) + e * x, src.row(y) + e * x + e);
                        if (ch == 4) out.insert(out.end(), static_cast<const uint8_t*>(alpha), static_cast<const uint8_t*>(alpha) + e);
                    }
                return out;
            };
            {
                Img m = make_img<uint8_t>(s, 1, ch, rng, pg);
                const Nmq8u a = 200;
                at_every_level(m, rng, expand(m.src, 1, &a), [&] {
                    return ch == 3 ? nmqiGrayToRGB_8u_C1C3R(m.src.ptr(), m.src.step, m.dst.ptr(), m.dst.step, r)
                                   : nmqiGrayToRGB_8u_C1C4R(m.src.ptr(), m.src.step, m.dst.ptr(), m.dst.step, r, a);
                }, "8u " + what);
            }
            {
                Img m = make_img<uint16_t>(s, 1, ch, rng, pg);
                const Nmq16u a = 0xBEEF;
                at_every_level(m, rng, expand(m.src, 2, &a), [&] {
                    auto* sp = m.src.as<Nmq16u>();
                    auto* dp = m.dst.as<Nmq16u>();
                    return ch == 3 ? nmqiGrayToRGB_16u_C1C3R(sp, m.src.step, dp, m.dst.step, r)
                                   : nmqiGrayToRGB_16u_C1C4R(sp, m.src.step, dp, m.dst.step, r, a);
                }, "16u " + what);
            }
            {  // random bits, NaNs included: copied as they are
                Img m = make_img<float>(s, 1, ch, rng, pg);
                const Nmq32f a = -0.5f;
                at_every_level(m, rng, expand(m.src, 4, &a), [&] {
                    auto* sp = m.src.as<Nmq32f>();
                    auto* dp = m.dst.as<Nmq32f>();
                    return ch == 3 ? nmqiGrayToRGB_32f_C1C3R(sp, m.src.step, dp, m.dst.step, r)
                                   : nmqiGrayToRGB_32f_C1C4R(sp, m.src.step, dp, m.dst.step, r, a);
                }, "32f " + what);
            }
        }
    }
}
