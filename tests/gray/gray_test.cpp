// Gray conversions: argument checks, the two 8u arithmetics by column, the
// weight conversion and its wrap, the 16-bit rounding and saturation rules,
// float orders of evaluation, and every SIMD level against a reference
// written from the formulas.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

enum class Ty { U8, U16, S16, F32, F64 };
int es(Ty t) { return t == Ty::U8 ? 1 : t == Ty::F32 ? 4 : t == Ty::F64 ? 8 : 2; }

// Every export behind one signature: `ch` is the pixel stride of the colour
// side; `extra` is the weights pointer (to-gray) or the alpha value (to-colour).
using Fn = NmqStatus (*)(const void*, int, void*, int, ImageSize, const void*);
struct Export {
    const char* name;
    Ty ty;
    int ch;
    bool to_gray, caller_weights;
    Fn fn;
};

#define TO_GRAY(name, T, ty, ch)                                                                        \
    Export { #name, ty, ch, true, false, [](const void* s, int ss, void* d, int dd, ImageSize r, const void*) { \
        return name(static_cast<const T*>(s), ss, static_cast<T*>(d), dd, r); } }
#define TO_GRAY_W(name, T, W, ty, ch)                                                                   \
    Export { #name, ty, ch, true, true, [](const void* s, int ss, void* d, int dd, ImageSize r, const void* w) { \
        return name(static_cast<const T*>(s), ss, static_cast<T*>(d), dd, r, static_cast<const W*>(w)); } }
#define TO_COLOR(name, T, ty, ch, ...)                                                                  \
    Export { #name, ty, ch, false, false, [](const void* s, int ss, void* d, int dd, ImageSize r, const void* a) { \
        (void)a; return name(static_cast<const T*>(s), ss, static_cast<T*>(d), dd, r __VA_ARGS__); } }

const Ty U8 = Ty::U8, U16 = Ty::U16, S16 = Ty::S16, F32 = Ty::F32, F64 = Ty::F64;
const Export kExports[] = {
    TO_GRAY(nmqiRGBToGray_8u_C3C1R, Nmq8u, U8, 3),     TO_GRAY(nmqiRGBToGray_8u_AC4C1R, Nmq8u, U8, 4),
    TO_GRAY(nmqiRGBToGray_16u_C3C1R, Nmq16u, U16, 3),  TO_GRAY(nmqiRGBToGray_16u_AC4C1R, Nmq16u, U16, 4),
    TO_GRAY(nmqiRGBToGray_16s_C3C1R, Nmq16s, S16, 3),  TO_GRAY(nmqiRGBToGray_16s_AC4C1R, Nmq16s, S16, 4),
    TO_GRAY(nmqiRGBToGray_32f_C3C1R, Nmq32f, F32, 3),  TO_GRAY(nmqiRGBToGray_32f_AC4C1R, Nmq32f, F32, 4),
    TO_GRAY_W(nmqiColorToGray_8u_C3C1R, Nmq8u, Nmq32f, U8, 3),
    TO_GRAY_W(nmqiColorToGray_8u_AC4C1R, Nmq8u, Nmq32f, U8, 4),
    TO_GRAY_W(nmqiColorToGray_16u_C3C1R, Nmq16u, Nmq32f, U16, 3),
    TO_GRAY_W(nmqiColorToGray_16u_AC4C1R, Nmq16u, Nmq32f, U16, 4),
    TO_GRAY_W(nmqiColorToGray_16s_C3C1R, Nmq16s, Nmq32f, S16, 3),
    TO_GRAY_W(nmqiColorToGray_16s_AC4C1R, Nmq16s, Nmq32f, S16, 4),
    TO_GRAY_W(nmqiColorToGray_32f_C3C1R, Nmq32f, Nmq32f, F32, 3),
    TO_GRAY_W(nmqiColorToGray_32f_AC4C1R, Nmq32f, Nmq32f, F32, 4),
    TO_GRAY_W(nmqiColorToGray_64f_C3C1R, Nmq64f, Nmq64f, F64, 3),
    TO_GRAY_W(nmqiColorToGray_64f_AC4C1R, Nmq64f, Nmq64f, F64, 4),
    TO_COLOR(nmqiGrayToRGB_8u_C1C3R, Nmq8u, U8, 3),    TO_COLOR(nmqiGrayToRGB_16u_C1C3R, Nmq16u, U16, 3),
    TO_COLOR(nmqiGrayToRGB_32f_C1C3R, Nmq32f, F32, 3),
    TO_COLOR(nmqiGrayToRGB_8u_C1C4R, Nmq8u, U8, 4, , *static_cast<const Nmq8u*>(a)),
    TO_COLOR(nmqiGrayToRGB_16u_C1C4R, Nmq16u, U16, 4, , *static_cast<const Nmq16u*>(a)),
    TO_COLOR(nmqiGrayToRGB_32f_C1C4R, Nmq32f, F32, 4, , *static_cast<const Nmq32f*>(a)),
};

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

template <class T>
T get(const uint8_t* p, int i) {
    T x;
    std::memcpy(&x, p + sizeof(T) * size_t(i), sizeof(T));
    return x;
}
template <class T>
void put(uint8_t* p, T x) { std::memcpy(p, &x, sizeof(T)); }

// Gray of the pixel at p (column x of a row of `width`), weights wf (float
// types and 8u) or wd (64f), written to out.
void ref_gray(const Export& e, const uint8_t* p, int x, int width, const float* wf, const double* wd, uint8_t* out) {
    switch (e.ty) {
        case Ty::U8: {
            const uint32_t w[3] = {ref_weight(wf[0]), ref_weight(wf[1]), ref_weight(wf[2])};
            const bool vec = x < (e.ch == 3 ? width & ~3 : width & ~7);
            *out = uint8_t(vec ? ref8u_vector(p, w) : ref8u_tail(p, w));
            break;
        }
        case Ty::U16: {
            const float v = (float(get<uint16_t>(p, 0)) * wf[0] + float(get<uint16_t>(p, 1)) * wf[1]) +
                            float(get<uint16_t>(p, 2)) * wf[2];
            put(out, uint16_t(std::lrint(v)));  // low 16 bits
            break;
        }
        case Ty::S16: {
            const float v = (float(get<int16_t>(p, 0) + 32768) * wf[0] + float(get<int16_t>(p, 1) + 32768) * wf[1]) +
                            float(get<int16_t>(p, 2) + 32768) * wf[2];
            const long g = std::lrint(v) - 32768;
            // Saturated in the vector part, low 16 bits in the tail.
            put(out, x < (width & ~3) ? int16_t(g < -32768 ? -32768 : g > 32767 ? 32767 : g) : int16_t(uint16_t(g & 0xFFFF)));
            break;
        }
        case Ty::F32:
            put(out, (get<float>(p, 0) * wf[0] + get<float>(p, 1) * wf[1]) + get<float>(p, 2) * wf[2]);
            break;
        case Ty::F64:
            put(out, (wd[0] * get<double>(p, 0) + wd[1] * get<double>(p, 1)) + wd[2] * get<double>(p, 2));
            break;
    }
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
    const double extra[3] = {};  // zero weights, or a zero alpha
    for (const Export& e : kExports)
        for (const Case& c : cases) {
            dst.randomize(rng);
            EXPECT_EQ(e.fn(c.src ? src.ptr() : nullptr, 256, c.dst ? dst.ptr() : nullptr, 256, c.roi, extra), c.want)
                << e.name << " " << c.roi.width << "x" << c.roi.height;
            EXPECT_TRUE(dst.untouched()) << e.name;
        }
}

// ---- 8u: two arithmetics chosen by column ---------------------------------------------
// At every level, with rows that end in a partial vector block and rows of
// several whole blocks (64 pixels at the widest level).
TEST(Gray8u, ColumnDecidesTheRounding) {
    const uint8_t px[3] = {0, 6, 70};
    // C3: the vector part is 4*floor(w/4) pixels; AC4: 8*floor(w/8). The
    // vector arithmetic gives 11 here, the tail 12.
    struct Case {
        int stride, width;
    };
    const Case cases[] = {{3, 3}, {3, 5}, {3, 67}, {3, 131}, {4, 7}, {4, 9}, {4, 71}, {4, 133}};
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        for (const Case& c : cases) {
            const int v = c.width & ~(c.stride == 3 ? 3 : 7);
            std::vector<uint8_t> want(size_t(c.width), 12);
            std::fill(want.begin(), want.begin() + v, 11);
            EXPECT_EQ(gray8u_row(c.stride, c.width, px, nullptr), want)
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
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        for (const Case& c : cases)
            for (int stride : {3, 4}) {
                const auto v = gray8u_row(stride, 129, c.px, c.w);  // 128 pixels of vector part, one of tail
                EXPECT_EQ(v[0], c.vec) << c.rule << " stride " << stride << " " << isa_name(lv);
                EXPECT_EQ(v[127], c.vec) << c.rule << " stride " << stride << " " << isa_name(lv);
                EXPECT_EQ(v[128], c.tail) << c.rule << " stride " << stride << " " << isa_name(lv);
            }
    }
}

// ---- 16u and 16s --------------------------------------------------------------------
// (16u rounding to nearest-even and its low 16 bits are held by the sweep,
// whose weights 0.25, 0.5, 0.375 make many exact halves.)
TEST(Gray16s, SaturationAndWrap) {
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
        for (const Case& c : cases) {
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
TEST(GrayFloat, OrderOfEvaluation) {
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
}

// A 16-bit step that is not a multiple of two is truncated to whole elements.
TEST(GrayWide, OddByteStepIsTruncated) {
    const uint16_t src[2][4] = {{100, 100, 100, 7}, {200, 200, 200, 7}};
    uint16_t dst[2][2] = {{1, 1}, {1, 1}};
    ASSERT_EQ(nmqiRGBToGray_16u_C3C1R(&src[0][0], 9, &dst[0][0], 5, {1, 2}), nmqStsOk);
    EXPECT_EQ(dst[0][0], 100);
    EXPECT_EQ(dst[1][0], 200);
}

// ---- every export over every shape ------------------------------------------------
// At every level against the reference, with the fixed weights and with caller
// weights that sum above 1, wrap or are negative; guards around the
// destination; sources are exact allocations, some against a protected page.
TEST(Gray, SweepMatchesReference) {
    const float wsets[][3] = {{0.299f, 0.587f, 0.114f}, {0.9f, 0.7f, 0.3f}, {2.3f, -0.2f, 0.5f}, {0.25f, 0.5f, 0.375f}};
    const double wd[3] = {0.2, 0.7, 0.1}, wd_fixed[3] = {double(0.299f), double(0.587f), double(0.114f)};
    Rng rng(11);
    int k = 0;
    for (const Export& e : kExports)
        for (const Shape& s : sweep_shapes(1, 1, e.ty == U8 ? 1031 : 300)) {
            const int z = es(e.ty), src_ch = e.to_gray ? e.ch : 1, dst_ch = e.to_gray ? 1 : e.ch;
            Plane src(s.w * src_ch * z, s.h, s.pad * z, (s.misalign * z) % 64, 0, ++k % 3 == 0);
            Plane dst(s.w * dst_ch * z, s.h, (s.pad + 2) * z, (s.misalign * 3 * z) % 64, 16);
            src.randomize(rng);
            if (e.to_gray && (e.ty == F32 || e.ty == F64))  // finite values; GrayToRGB copies any bits
                for (int y = 0; y < s.h; ++y)
                    for (int i = 0; i < s.w * src_ch; ++i) {
                        const float v = rng.uniformf(-2.0f, 2.0f);
                        if (e.ty == F32) put(src.row(y) + 4 * i, v);
                        else put(src.row(y) + 8 * i, double(v) / 3.0);
                    }
            // Caller weights: none (the fixed ones) on every fifth call.
            const bool caller = e.caller_weights && k % 5 != 0;
            const float* wf = caller ? wsets[k % 4] : wsets[0];
            const void* extra = e.ty == F64 ? static_cast<const void*>(caller ? wd : nullptr) : (caller ? wf : nullptr);
            const uint64_t alpha = 0x3F0000C8u;  // 200 as 8u and 16u, about 0.5 as 32f
            std::vector<uint8_t> want;
            for (int y = 0; y < s.h; ++y)
                for (int x = 0; x < s.w; ++x) {
                    const uint8_t* p = src.row(y) + x * src_ch * z;
                    uint8_t out[32];
                    if (e.to_gray) ref_gray(e, p, x, s.w, wf, caller ? wd : wd_fixed, out);
                    for (int c = 0; !e.to_gray && c < e.ch; ++c) std::memcpy(out + c * z, c < 3 ? p : reinterpret_cast<const uint8_t*>(&alpha), size_t(z));
                    want.insert(want.end(), out, out + dst_ch * z);
                }
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                dst.randomize(rng);
                ASSERT_EQ(e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {s.w, s.h}, e.to_gray ? extra : &alpha), nmqStsOk);
                ASSERT_EQ(first_diff(dst.roi(), want, dst.row_bytes), "") << e.name << " " << to_string(s) << " " << isa_name(lv);
                ASSERT_TRUE(dst.outside_untouched()) << e.name << " " << to_string(s);
            }
        }
}
