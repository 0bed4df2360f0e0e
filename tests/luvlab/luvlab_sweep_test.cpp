// Argument checks of every export, and every export on every sweep shape:
// the scalar level against the double-precision reference, each SIMD level
// byte for byte against the scalar level, nothing written outside the ROI or
// into a destination alpha sample, sources read only inside their ROI.
#include <algorithm>
#include <cmath>
#include <string>

#include "luvlab/luvlab_common.h"
#include "support/sweep.h"

using namespace lvt;
using namespace nmqt;

TEST(LuvLabArgs, PointersFirstThenSize) {
    struct Case {
        bool src, dst;
        ImageSize roi;
        NmqStatus want;
    };
    const Case cases[] = {{false, true, {4, 2}, nmqStsNullPtr}, {true, false, {4, 2}, nmqStsNullPtr},
                          {false, false, {0, 0}, nmqStsNullPtr}, {true, true, {0, 2}, nmqStsSize},
                          {true, true, {4, 0}, nmqStsSize},     {true, true, {-1, -7}, nmqStsSize}};
    Rng rng;
    Plane src(256, 2), dst(256, 2, 0, 0, 16);
    src.randomize(rng);
    for (const Export& e : exports())
        for (const Case& c : cases) {
            dst.randomize(rng);
            EXPECT_EQ(e.fn(c.src ? src.ptr() : nullptr, 256, c.dst ? dst.ptr() : nullptr, 256, c.roi), c.want)
                << e.name;
            EXPECT_TRUE(dst.untouched()) << e.name;
        }
}

namespace {

double full_scale(Ty ty) { return ty == Ty::U8 ? 255.0 : ty == Ty::F32 ? 1.0 : 65535.0; }
double offset(Ty ty) { return ty == Ty::S16 ? 32768.0 : 0.0; }

// Random source samples in the range each side is meant for (32f), or any bits.
void fill_source(const Export& e, Plane& p, Rng& rng) {
    p.randomize(rng);
    if (e.ty != Ty::F32) return;
    float lo[3] = {0, 0, 0}, hi[3] = {1.05f, 1.05f, 1.05f};
    if (!e.fwd && e.model == Model::Lab) lo[0] = 0, hi[0] = 100, lo[1] = lo[2] = -128, hi[1] = hi[2] = 127;
    if (!e.fwd && e.model == Model::Luv) lo[0] = 0, hi[0] = 100, lo[1] = -134, hi[1] = 220, lo[2] = -140, hi[2] = 122;
    for (int y = 0; y < p.rows; ++y)
        for (int i = 0; i < p.row_bytes / 4; ++i) {
            const int c = i % e.stride;
            const float v = c < 3 ? rng.uniformf(lo[c], hi[c]) : rng.uniformf(-1, 1);
            std::memcpy(p.row(y) + 4 * i, &v, 4);
        }
}

// Expected destination samples of one pixel (memory order) from the reference.
void expected(const Export& e, const uint8_t* s, double out[3]) {
    const int es = e.elem();
    double in[3];
    for (int c = 0; c < 3; ++c) in[c] = get(e.ty, s + es * c);
    double add[3], mul[3];
    encoding(e.model, e.ty, add, mul);
    const bool integer = e.ty != Ty::F32;
    if (e.fwd) {
        double rgb[3];
        for (int c = 0; c < 3; ++c) rgb[e.bgr ? 2 - c : c] = (in[c] + offset(e.ty)) / full_scale(e.ty);
        ref_fwd(e.model, rgb, out);
        for (int k = 0; k < 3; ++k) {
            if (integer) out[k] = std::clamp((out[k] + add[k]) * mul[k], 0.0, full_scale(e.ty)) - offset(e.ty);
            else if (e.model == Model::Ycc) out[k] /= 255.0;
        }
    } else {
        double v[3], rgb[3];
        for (int k = 0; k < 3; ++k) {
            v[k] = integer ? (in[k] + offset(e.ty)) / mul[k] - add[k] : in[k];
            if (!integer && e.model == Model::Ycc) v[k] *= 255.0;
        }
        ref_inv(e.model, v, rgb);
        for (int c = 0; c < 3; ++c)
            out[e.bgr ? 2 - c : c] = std::clamp(rgb[c], 0.0, 1.0) * full_scale(e.ty) - offset(e.ty);
    }
}

// Largest distance from the reference allowed: the rounding of integer
// results plus single against double precision (margins measured on these
// sweeps). Inverse LUV divides by 13 L, which magnifies the float error of
// dark 16-bit codes.
double tolerance(const Export& e) {
    if (e.ty == Ty::F32) return e.model == Model::Ycc ? 1e-6 : e.fwd ? 1e-3 : 1e-4;
    if (e.ty == Ty::U8) return 0.501;
    return !e.fwd && e.model == Model::Luv ? 4.0 : 0.6;
}

}  // namespace

TEST(LuvLab, SweepScalarAgainstReferenceAndSimdAgainstScalar) {
    Rng rng(7);
    int n = 0;
    for (const Export& e : exports())
        for (const Shape& s : sweep_shapes(1, 1, e.ty == Ty::U8 ? 1031 : 300)) {
            const int es = e.elem(), px = e.pixel_bytes();
            Plane src = shaped(s, s.w * px, s.h, es, 0, ++n % 4 == 0);
            Plane dst(s.w * px, s.h, (s.pad + 1) * es, (s.misalign * 3 * es) % 64, 24);
            fill_source(e, src, rng);
            dst.randomize(rng);
            const std::string what = std::string(e.name) + " " + to_string(s);
            ASSERT_EQ(run_every_level({&dst}, [&] { return e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {s.w, s.h}); }), "")
                << what;
            if (e.stride == 4) {
                ASSERT_TRUE(dst.kept([&](int xb, int) { return xb % px >= 3 * es; })) << what;
            }
            for (int y = 0; y < s.h; ++y)
                for (int x = 0; x < s.w; ++x) {
                    double want[3];
                    expected(e, src.row(y) + px * x, want);
                    for (int k = 0; k < 3; ++k)
                        ASSERT_LE(std::fabs(get(e.ty, dst.row(y) + px * x + es * k) - want[k]), tolerance(e))
                            << what << " pixel " << x << "," << y << " channel " << k;
                }
        }
}
