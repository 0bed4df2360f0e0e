#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "support/sweep.h"

using namespace nmqt;

namespace {

using Fn = NmqStatus (*)(const Nmq32f*, int, Nmq8u*, int, ImageSize);
const Fn kBoth[] = {nmqiToneMapLinear_32f8u_C1R, nmqiToneMapMean_32f8u_C1R};

// One row of floats in, one row of bytes out.
std::vector<int> run(Fn f, const std::vector<float>& in, NmqStatus want = nmqStsOk) {
    std::vector<Nmq8u> out(in.size(), 77);
    const int n = int(in.size());
    EXPECT_EQ(want, f(in.data(), 4 * n, out.data(), n, {n, 1}));
    return std::vector<int>(out.begin(), out.end());
}

// The written-out rule: product in single precision, truncated, clamped.
int expect(float s, float scale) {
    const float p = s * scale;
    if (!(p > 0)) return 0;
    if (p >= 255) return 255;
    return int(std::trunc(p));
}

}  // namespace

TEST(ToneMapArgs, StatusesAndOrder) {
    struct Case {
        const char* what;
        bool null_src, null_dst;
        ImageSize roi;
        NmqStatus want;
    };
    const Case cases[] = {
        {"null source", true, false, {4, 2}, nmqStsNullPtr},
        {"null destination", false, true, {4, 2}, nmqStsNullPtr},
        {"null before size", true, false, {0, 0}, nmqStsNullPtr},
        {"width 0", false, false, {0, 2}, nmqStsSize},
        {"height -1", false, false, {4, -1}, nmqStsSize},
    };
    for (Fn f : kBoth)
        for (const Case& c : cases) {
            Rng rng;
            Plane src(64, 2), dst(16, 2);
            src.randomize(rng);
            dst.randomize(rng);
            SCOPED_TRACE(c.what);
            EXPECT_EQ(c.want, f(c.null_src ? nullptr : src.as<float>(), 64, c.null_dst ? nullptr : dst.ptr(), 16, c.roi));
            EXPECT_TRUE(dst.untouched());
        }
}

// A negative maximum or mean is a warning that leaves the destination as it
// was; a zero or subnormal one fills the ROI with 0.
TEST(ToneMapValues, NegativeAndZeroLevels) {
    const struct { float v0, dv; NmqStatus want; } cases[] = {
        {-1, -1, nmqStsNegativeLevel}, {0, 0, nmqStsOk}, {1e-39f, 0, nmqStsOk}, {-0.0f, 0, nmqStsOk}};
    for (Fn f : kBoth)
        for (const auto& c : cases)
            for (int w : {1, 7, 40}) {
                Rng rng;
                Plane src(4 * w, 3), dst(w, 3, 5, 1, 16);
                for (int y = 0; y < 3; ++y)
                    for (int x = 0; x < w; ++x) reinterpret_cast<float*>(src.row(y))[x] = c.v0 + c.dv * float(x);
                dst.randomize(rng);
                EXPECT_EQ(c.want, f(src.as<float>(), src.step, dst.ptr(), dst.step, {w, 3}));
                EXPECT_TRUE(c.want == nmqStsOk ? dst.outside_untouched() : dst.untouched());
                for (int y = 0; y < 3 && c.want == nmqStsOk; ++y)
                    for (int x = 0; x < w; ++x) ASSERT_EQ(dst.row(y)[x], 0) << c.v0;
            }
}

TEST(ToneMapValues, HandComputed) {
    // Maximum 2: 1.0 -> truncate(127.5) = 127; negative samples -> 0.
    EXPECT_EQ(run(nmqiToneMapLinear_32f8u_C1R, {1.0f, 2.0f, -5.0f, 0.5f, 1.999f, 0.0078f, 0.0079f}),
              (std::vector<int>{127, 255, 0, 63, 254, 0, 1}));
    // Mean 2: scale 127.5; a sample at the mean gives 255, above it saturates.
    EXPECT_EQ(run(nmqiToneMapMean_32f8u_C1R, {1.0f, 3.0f, 2.0f, 2.0f}), (std::vector<int>{127, 255, 255, 255}));
    // A sample so far above the mean (negative samples pull the mean down to
    // 64 / 3) that the product leaves the integer range still saturates at 255.
    EXPECT_EQ(run(nmqiToneMapMean_32f8u_C1R, {1e9f, -1e9f, 64.0f}), (std::vector<int>{255, 0, 255}));
}

// Every level and shape against the written-out rule, with exact-size sources
// (one against a protected page) and guard bytes around the destination.
TEST(ToneMapSweep, EveryLevelEqualsThePixelRule) {
    const auto shapes = sweep_shapes();
    for (size_t k = 0; k < shapes.size(); ++k) {
        const Shape sh = shapes[k];
        const int w = sh.w, h = sh.h;
        Rng rng(uint32_t(k + 11));
        Plane src(4 * w, h, 4 * sh.pad, (4 * sh.misalign) % 64, 0, k % 3 == 0);
        // Integer-valued samples keep the mean exact in any summation order.
        double total = 0;
        float mx = -1e30f;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const float v = float(rng.uniform(-20, 300));
                reinterpret_cast<float*>(src.row(y))[x] = v;
                total += v;
                mx = std::max(mx, v);
            }
        const double mean = total / (double(w) * h);
        for (int which = 0; which < 2; ++which) {
            if (which == 0 && !(mx > 0)) continue;
            if (which == 1 && !(mean > 0)) continue;
            const float scale = which == 0 ? 255.0f / mx : float(255.0 / mean);
            const std::string what = to_string(sh) + (which ? " mean" : " linear");
            Plane dst(w, h, sh.pad + 3, sh.misalign ^ 7, 16);
            dst.randomize(rng);
            ASSERT_EQ(run_every_level({&dst}, [&] { return kBoth[which](src.as<float>(), src.step, dst.ptr(), dst.step, {w, h}); }), "")
                << what;
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                    ASSERT_EQ(int(dst.row(y)[x]), expect(reinterpret_cast<const float*>(src.row(y))[x], scale)) << what << " " << x << "," << y;
        }
    }
}

// A destination laid over its own source row is written sample by sample in
// order, at every level: each sample is read before the bytes written so far
// reach it.
TEST(ToneMapSweep, DestinationOverItsSource) {
    for (int w : {7, 8, 33, 100}) {
        for (int shift : {0, 1, 5, 2 * w}) {
            std::vector<float> init(size_t(w) + 64);
            Rng rng(uint32_t(w * 7 + shift));
            for (int i = 0; i < w; ++i) init[i] = float(rng.uniform(0, 100));
            init[0] = 100;  // the maximum
            // Sequential model of the aliasing, byte by byte.
            std::vector<float> model = init;
            auto* mb = reinterpret_cast<uint8_t*>(model.data());
            for (int i = 0; i < w; ++i) {
                const int v = expect(model[i], 2.55f);
                mb[shift + i] = uint8_t(v);
            }
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                std::vector<float> buf = init;
                auto* bb = reinterpret_cast<uint8_t*>(buf.data());
                ASSERT_EQ(nmqStsOk, nmqiToneMapLinear_32f8u_C1R(buf.data(), 4 * w, bb + shift, w, {w, 1}));
                EXPECT_EQ(0, std::memcmp(bb, mb, buf.size() * 4)) << w << " shift " << shift << " " << isa_name(lv);
            }
        }
    }
}
