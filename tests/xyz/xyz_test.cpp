// XYZ: argument checks, the truncated 8u tables, the Z-only clamp of the
// forward 32f path, 16-bit truncation and saturation, and every shape at
// every SIMD level against references written from the matrices.
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

enum class Ty { U8, U16, S16, F32 };
int elem_size(Ty t) { return t == Ty::U8 ? 1 : t == Ty::F32 ? 4 : 2; }

using Fn = NmqStatus (*)(const void*, int, void*, int, ImageSize);
struct Export {
    const char* name;
    Ty ty;
    int stride;
    bool forward;
    Fn fn;
};

#define XYZ_FN(name, T, ty, stride, fwd)                                                              \
    Export { #name, ty, stride, fwd, [](const void* s, int ss, void* d, int dd, ImageSize r) {         \
        return name(static_cast<const T*>(s), ss, static_cast<T*>(d), dd, r); } }

const Export kExports[] = {
    XYZ_FN(nmqiRGBToXYZ_8u_C3R, Nmq8u, Ty::U8, 3, true),      XYZ_FN(nmqiRGBToXYZ_8u_AC4R, Nmq8u, Ty::U8, 4, true),
    XYZ_FN(nmqiRGBToXYZ_16u_C3R, Nmq16u, Ty::U16, 3, true),   XYZ_FN(nmqiRGBToXYZ_16u_AC4R, Nmq16u, Ty::U16, 4, true),
    XYZ_FN(nmqiRGBToXYZ_16s_C3R, Nmq16s, Ty::S16, 3, true),   XYZ_FN(nmqiRGBToXYZ_16s_AC4R, Nmq16s, Ty::S16, 4, true),
    XYZ_FN(nmqiRGBToXYZ_32f_C3R, Nmq32f, Ty::F32, 3, true),   XYZ_FN(nmqiRGBToXYZ_32f_AC4R, Nmq32f, Ty::F32, 4, true),
    XYZ_FN(nmqiXYZToRGB_8u_C3R, Nmq8u, Ty::U8, 3, false),     XYZ_FN(nmqiXYZToRGB_8u_AC4R, Nmq8u, Ty::U8, 4, false),
    XYZ_FN(nmqiXYZToRGB_16u_C3R, Nmq16u, Ty::U16, 3, false),  XYZ_FN(nmqiXYZToRGB_16u_AC4R, Nmq16u, Ty::U16, 4, false),
    XYZ_FN(nmqiXYZToRGB_16s_C3R, Nmq16s, Ty::S16, 3, false),  XYZ_FN(nmqiXYZToRGB_16s_AC4R, Nmq16s, Ty::S16, 4, false),
    XYZ_FN(nmqiXYZToRGB_32f_C3R, Nmq32f, Ty::F32, 3, false),  XYZ_FN(nmqiXYZToRGB_32f_AC4R, Nmq32f, Ty::F32, 4, false),
};

// The matrices as published, row by row (output channel, then input channel).
const double kFwd[3][3] = {{0.412453, 0.357580, 0.180423}, {0.212671, 0.715160, 0.072169}, {0.019334, 0.119193, 0.950227}};
const double kInv[3][3] = {{3.240479, -1.537150, -0.498535}, {-0.969256, 1.875991, 0.041556}, {0.055648, -0.204043, 1.057311}};

// Reference of one pixel: in[3] samples as doubles, out[3] as the element's bits.
void ref_pixel(Ty ty, bool fwd, const double in[3], uint8_t* out) {
    const auto& m = fwd ? kFwd : kInv;
    for (int k = 0; k < 3; ++k) {
        if (ty == Ty::U8) {
            int64_t s = 0;
            for (int c = 0; c < 3; ++c) s += int64_t(std::trunc(float(m[k][c]) * 65536.0)) * int64_t(in[c]);
            const int64_t v = s >= 0 ? s / 65536 : -((-s + 65535) / 65536);  // floor
            out[k] = uint8_t(v < 0 ? 0 : v > 255 ? 255 : v);
            continue;
        }
        const float off = ty == Ty::S16 ? 32768.0f : 0.0f;
        float a[3];
        for (int c = 0; c < 3; ++c) a[c] = float(in[c]) + off;
        float v = (a[0] * float(m[k][0]) + a[1] * float(m[k][1])) + a[2] * float(m[k][2]);
        if (ty == Ty::F32) {
            if (!fwd || k == 2) v = v < 0.0f ? 0.0f : v;
            if (!fwd || k == 2) v = v < 1.0f ? v : 1.0f;
            std::memcpy(out + 4 * k, &v, 4);
        } else {
            double t = std::trunc(double(v));
            t = t < 0 ? 0 : t > 65535 ? 65535 : t;
            const uint16_t u = uint16_t(int32_t(t) - int32_t(off));
            std::memcpy(out + 2 * k, &u, 2);
        }
    }
}

double sample(Ty ty, const uint8_t* p) {
    switch (ty) {
        case Ty::U8: return *p;
        case Ty::U16: { uint16_t v; std::memcpy(&v, p, 2); return v; }
        case Ty::S16: { int16_t v; std::memcpy(&v, p, 2); return v; }
        case Ty::F32: { float v; std::memcpy(&v, p, 4); return v; }
    }
    return 0;
}

// Converts one pixel through an export and returns its three channels as doubles.
std::vector<double> convert1(const Export& e, std::vector<double> in) {
    const int es = elem_size(e.ty);
    std::vector<uint8_t> s(size_t(es * e.stride)), d(size_t(es * e.stride));
    for (int c = 0; c < 3; ++c) {
        const double v = in[size_t(c)];
        if (e.ty == Ty::U8) s[size_t(c)] = uint8_t(v);
        if (e.ty == Ty::U16) { const uint16_t u = uint16_t(v); std::memcpy(&s[size_t(2 * c)], &u, 2); }
        if (e.ty == Ty::S16) { const int16_t u = int16_t(v); std::memcpy(&s[size_t(2 * c)], &u, 2); }
        if (e.ty == Ty::F32) { const float u = float(v); std::memcpy(&s[size_t(4 * c)], &u, 4); }
    }
    EXPECT_EQ(e.fn(s.data(), int(s.size()), d.data(), int(d.size()), {1, 1}), nmqStsOk);
    return {sample(e.ty, &d[0]), sample(e.ty, &d[size_t(es)]), sample(e.ty, &d[size_t(2 * es)])};
}

const Export& find(const char* name) {
    for (const Export& e : kExports)
        if (std::strcmp(e.name, name) == 0) return e;
    std::abort();
}

}  // namespace

TEST(XyzArgs, PointersFirstThenSize) {
    struct Case {
        bool src, dst;
        ImageSize roi;
        NmqStatus want;
    };
    const Case cases[] = {{false, true, {4, 2}, nmqStsNullPtr}, {true, false, {4, 2}, nmqStsNullPtr},
                          {false, false, {0, 0}, nmqStsNullPtr}, {true, true, {0, 2}, nmqStsSize},
                          {true, true, {4, 0}, nmqStsSize},     {true, true, {-3, -3}, nmqStsSize}};
    Rng rng;
    Plane src(256, 2), dst(256, 2, 0, 0, 16);
    for (const Export& e : kExports)
        for (const Case& c : cases) {
            dst.randomize(rng);
            EXPECT_EQ(e.fn(c.src ? src.ptr() : nullptr, 256, c.dst ? dst.ptr() : nullptr, 256, c.roi), c.want) << e.name;
            EXPECT_TRUE(dst.untouched()) << e.name;
        }
}

// Hand-computed values that pin the truncation, the clamps and their asymmetry
// (the sweep holds every level to the reference they check).
TEST(Xyz, EdgeValues) {
    struct Case {
        const char* fn;
        std::vector<double> in, want;
        const char* rule;
    };
    const float x_white = 0.950456f;
    const Case cases[] = {
        {"nmqiRGBToXYZ_8u_C3R", {255, 255, 255}, {242, 254, 255}, "truncated tables; Z 277 capped"},
        {"nmqiXYZToRGB_8u_C3R", {0, 255, 0}, {0, 255, 0}, "R floor(-100738*255/65536) = -392 clamped"},
        {"nmqiXYZToRGB_8u_C3R", {1, 0, 0}, {3, 0, 0}, "212368 >> 16 = 3, -63521 >> 16 floors to -1"},
        {"nmqiRGBToXYZ_32f_C3R", {1, 1, 1}, {x_white, 1.0, 1.0}, "Z clamped from 1.088754"},
        {"nmqiRGBToXYZ_32f_C3R", {2, 2, 2}, {2 * double(x_white), 2.0, 1.0}, "X and Y are not clamped"},
        {"nmqiRGBToXYZ_32f_C3R", {-1, 0, 0}, {-0.412453f, -0.212671f, 0.0}, "negative X, Y kept; Z to 0"},
        {"nmqiXYZToRGB_32f_C3R", {0, 1, 0}, {0, 1, 0}, "every inverse channel clamped"},
        {"nmqiRGBToXYZ_16u_C3R", {65535, 65535, 65535}, {62288, 65535, 65535}, "truncation, Z saturated"},
        {"nmqiXYZToRGB_16u_C3R", {0, 65535, 0}, {0, 65535, 0}, "saturation on both sides"},
        {"nmqiRGBToXYZ_16s_C3R", {32767, 32767, 32767}, {29520, 32767, 32767}, "offset, truncation, saturation"},
    };
    for (const Case& c : cases) {
        const Export& e = find(c.fn);
        const auto got = convert1(e, c.in);
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(got[size_t(k)], c.want[size_t(k)], e.ty == Ty::F32 ? 1e-6 : 0) << c.fn << " channel " << k << ": " << c.rule;
    }
    // White X is exactly the float sum in its stated order.
    const auto w = convert1(find("nmqiRGBToXYZ_32f_AC4R"), {1, 1, 1});
    EXPECT_EQ(float(w[0]), (0.412453f + 0.357580f) + 0.180423f);
}

// Every export over every shape and level: the colour samples match the
// reference, the alpha of AC4 destinations and everything outside the ROI
// are left as they were.
TEST(Xyz, SweepMatchesReference) {
    Rng rng(3);
    int k = 0;
    for (const Export& e : kExports)
        for (const Shape& s : sweep_shapes(1, 1, e.ty == Ty::U8 || e.ty == Ty::F32 ? 1031 : 300)) {
            const int es = elem_size(e.ty), px = es * e.stride;
            Plane src(s.w * px, s.h, s.pad * es, (s.misalign * es) % 64, 0, ++k % 4 == 0);
            Plane dst(s.w * px, s.h, (s.pad + 1) * es, (s.misalign * 2 * es) % 64, 24);
            src.randomize(rng);
            if (e.ty == Ty::F32)
                for (int y = 0; y < s.h; ++y)
                    for (int i = 0; i < s.w * e.stride; ++i) {
                        const float v = rng.uniformf(-0.25f, 1.5f);
                        std::memcpy(src.row(y) + 4 * i, &v, 4);
                    }
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                dst.randomize(rng);
                std::vector<uint8_t> want = dst.roi();
                for (int y = 0; y < s.h; ++y)
                    for (int x = 0; x < s.w; ++x) {
                        double in[3];
                        for (int c = 0; c < 3; ++c) in[c] = sample(e.ty, src.row(y) + px * x + es * c);
                        ref_pixel(e.ty, e.forward, in, &want[size_t(y) * size_t(dst.row_bytes) + size_t(px * x)]);
                    }
                ASSERT_EQ(e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {s.w, s.h}), nmqStsOk);
                ASSERT_EQ(first_diff(dst.roi(), want, dst.row_bytes), "") << e.name << " " << to_string(s) << " "
                                                                          << isa_name(lv);
                ASSERT_TRUE(dst.outside_untouched()) << e.name << " " << to_string(s);
            }
        }
}
