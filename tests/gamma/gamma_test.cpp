#include <cmath>
#include <vector>

#include "frame/helpers.h"
#include "gamma/layouts.h"

using namespace nmqt;

namespace {

float g_lo = -0.25f, g_hi = 2.0f;  // the value range handed to the 32f forms

const Forms<Nmq8u> kFwd8 = NMQT_FORMS(nmqiGammaFwd_8u, Nmq8u);
const Forms<Nmq8u> kInv8 = NMQT_FORMS(nmqiGammaInv_8u, Nmq8u);
const Forms<Nmq16u> kFwd16 = NMQT_FORMS(nmqiGammaFwd_16u, Nmq16u);
const Forms<Nmq16u> kInv16 = NMQT_FORMS(nmqiGammaInv_16u, Nmq16u);
const Forms<Nmq32f> kFwd32 = NMQT_FORMS(nmqiGammaFwd_32f, Nmq32f, , g_lo, g_hi);
const Forms<Nmq32f> kInv32 = NMQT_FORMS(nmqiGammaInv_32f, Nmq32f, , g_lo, g_hi);

// The curve, written out from its definition in long double.
long double ref_fwd(long double t) { return t < 0.018L ? 4.5L * t : 1.099L * std::pow(t, 0.45L) - 0.099L; }
long double ref_inv(long double u, long double threshold) {
    return u < threshold ? u / 4.5L : std::pow((u + 0.099L) / 1.099L, 1.0L / 0.45L);
}
long double ref16(int dir, int v) { return 65535.0L * (dir == 0 ? ref_fwd(v / 65535.0L) : ref_inv(v / 65535.0L, 0.0812L)); }

// The C3 form on one row of samples (a multiple of 3).
template <class T>
std::vector<T> c3_row(const Forms<T>& f, const std::vector<T>& in) {
    std::vector<T> out(in.size());
    const int bytes = int(in.size() * sizeof(T));
    EXPECT_EQ(nmqStsOk, f.c3(in.data(), bytes, out.data(), bytes, {int(in.size() / 3), 1}));
    return out;
}

}  // namespace

// Pointers, then the ROI, then the planes, then the steps; errors write nothing.
TEST(GammaArgs, StatusesAndOrder) {
    const std::vector<ArgCase> cases = {
        {"null source", true, false, false, {4, 2}, 64, 64, nmqStsNullPtr},
        {"null destination", false, true, false, {4, 2}, 64, 64, nmqStsNullPtr},
        {"null before size", true, false, false, {0, 2}, 64, 64, nmqStsNullPtr},
        {"width 0", false, false, false, {0, 2}, 64, 64, nmqStsSize},
        {"height -1", false, false, false, {4, -1}, 64, 64, nmqStsSize},
        {"size before step", false, false, false, {4, 0}, 0, 0, nmqStsSize},
        {"source step 0", false, false, false, {4, 2}, 0, 64, nmqStsStep},
        {"destination step -64", false, false, false, {4, 2}, 64, -64, nmqStsStep},
        {"null plane", false, false, true, {4, 2}, 64, 64, nmqStsNullPtr},
        {"size before null plane", false, false, true, {0, 2}, 64, 64, nmqStsSize},
        {"null plane before step", false, false, true, {4, 2}, 0, 64, nmqStsNullPtr},
    };
    for (const auto* f : {&kFwd8, &kInv8}) check_args(*f, cases);
    for (const auto* f : {&kFwd16, &kInv16}) check_args(*f, cases);
    for (const auto* f : {&kFwd32, &kInv32}) check_args(*f, cases);
}

// The 32f range comes before everything, even null pointers and an empty ROI;
// "not above 0" includes NaN bounds.
TEST(GammaArgs, RangeFirst) {
    const float nan = std::nanf("");
    const float bounds[][2] = {{1, 1}, {2, 1}, {0, -0.0f}, {nan, 1}, {0, nan}, {INFINITY, INFINITY}};
    for (auto b : bounds) {
        g_lo = b[0];
        g_hi = b[1];
        check_args(kFwd32, {{"range", true, true, false, {0, 0}, 0, 0, nmqStsGammaRange}});
        check_args(kInv32, {{"range", true, true, false, {0, 0}, 0, 0, nmqStsGammaRange}});
    }
    g_lo = -0.25f;
    g_hi = 2.0f;
}

// Every 16u input through the direct path (at most 65536 samples) against the
// curve in long double, rounded to nearest even (1 -> 4.5 -> 4): this pins the
// ties and both thresholds (0.018 forward, 0.0812 inverse).
TEST(Gamma16u, DirectPathMatchesTheCurve) {
    for (int dir = 0; dir < 2; ++dir) {
        std::vector<Nmq16u> in(65535);
        for (size_t i = 0; i < in.size(); ++i) in[i] = Nmq16u(i + 1);
        const auto out = c3_row(dir ? kInv16 : kFwd16, in);
        for (size_t i = 0; i < in.size(); ++i)
            ASSERT_EQ(long(std::nearbyint(ref16(dir, in[i]))), long(out[i])) << (dir ? "inv " : "fwd ") << in[i];
    }
}

// Large images go through the 65536-entry table filled through single
// precision: equal to the direct path except where the curve lies so close to
// a half that single precision makes it a tie, which then goes to even.
TEST(Gamma16u, TablePathAgreesWithDirectPath) {
    const int w = 21846;  // 65538 samples: the table path
    for (int dir = 0; dir < 2; ++dir) {
        std::vector<Nmq16u> all(3 * size_t(w)), ac4(size_t(w) * 4, 7), planes(all.size());
        for (size_t i = 0; i < all.size(); ++i) all[i] = Nmq16u(i);
        const auto& f = dir ? kInv16 : kFwd16;
        const auto big = c3_row(f, all);
        int differ = 0;
        for (size_t i = 0; i < 65536; ++i) {
            const long double r = ref16(dir, int(i));
            if (big[i] == long(std::nearbyint(r))) continue;
            ++differ;
            ASSERT_LT(std::fabs(r - std::floor(r) - 0.5L), 1.0L / 256) << i;
            ASSERT_EQ(big[i] % 2, 0) << i;
            ASSERT_EQ(std::fabs(big[i] - std::nearbyint(r)), 1) << i;
        }
        EXPECT_LT(differ, 300) << dir;
        // The other layouts map through the same table; AC4 keeps its alpha.
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < 3; ++c) ac4[4 * x + c] = all[3 * x + c], planes[size_t(c) * w + x] = all[3 * x + c];
        Nmq16u* p3[3] = {&planes[0], &planes[w], &planes[2 * w]};
        ASSERT_EQ(nmqStsOk, f.ac4i(ac4.data(), w * 8, {w, 1}));
        ASSERT_EQ(nmqStsOk, f.ip3(p3, w * 2, {w, 1}));
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < 4; ++c) {
                ASSERT_EQ(ac4[4 * x + c], c == 3 ? 7 : big[3 * x + c]);
                if (c < 3) {
                    ASSERT_EQ(planes[size_t(c) * w + x], big[3 * x + c]);
                }
            }
    }
}

// Only the table path allocates: a failed allocation is -9 with nothing
// written; images of up to 65536 samples never allocate.
TEST(Gamma16u, AllocationFailure) {
    for (const auto* f : {&kFwd16, &kInv16}) {
        for (int w : {21845, 21846}) {
            const bool table = w * 3 > 65536;
            const ImageSize r{w, 1};
            Rng rng;
            Plane img(w * 8, 1), pl[3] = {Plane(w * 2, 1), Plane(w * 2, 1), Plane(w * 2, 1)};
            Nmq16u* d3[3] = {pl[0].as<Nmq16u>(), pl[1].as<Nmq16u>(), pl[2].as<Nmq16u>()};
            Nmq16u* p = img.as<Nmq16u>();
            const std::function<NmqStatus()> calls[] = {
                [&] { return f->c3(p, w * 6, p, w * 6, r); }, [&] { return f->c3i(p, w * 6, r); },
                [&] { return f->ac4(p, w * 8, p, w * 8, r); }, [&] { return f->ac4i(p, w * 8, r); },
                [&] { return f->p3(d3, w * 2, d3, w * 2, r); }, [&] { return f->ip3(d3, w * 2, r); }};
            for (const auto& call : calls) {
                img.randomize(rng);
                for (auto& q : pl) q.randomize(rng);
                nmq::test_fail_alloc_after(1);
                EXPECT_EQ(table ? nmqStsNoMemory : nmqStsOk, call()) << f->name << " width " << w;
                nmq::test_fail_alloc_after(0);
                EXPECT_TRUE(!table || (img.untouched() && pl[0].untouched() && pl[1].untouched() && pl[2].untouched()));
            }
        }
    }
}

TEST(Gamma32f, ValuesOverTheRange) {
    struct Case { float lo, hi, s; int dir; double want; };
    const Case cases[] = {
        {0, 1, 0.5f, 0, 0.705515},      // 1.099 * 0.5^0.45 - 0.099
        {0, 1, 0.01f, 0, 0.045},        // linear below 0.018
        {10, 20, 15, 0, 17.05515},      // scaled into the range
        {0, 1, -1, 0, -4.5},            // below the range: not clamped
        {0, 1, 2, 0, 1.4022782},        // above the range: not clamped
        {0, 1, 0.0811f, 1, 0.0180222},  // between 0.081 and 0.0812: linear
        {0, 1, 0.0813f, 1, 0.0180116},  // above 0.0812: the power branch
        {0, 1, 0.705515f, 1, 0.5},
        {-1, 1, 1, 1, 1},
    };
    for (const Case& c : cases) {
        g_lo = c.lo;
        g_hi = c.hi;
        const auto out = c3_row(c.dir ? kInv32 : kFwd32, {c.s, c.lo, c.hi});
        EXPECT_NEAR(out[0], c.want, 2e-6 * std::max(1.0, std::fabs(c.want))) << c.s << " in " << c.lo << ".." << c.hi;
        EXPECT_NEAR(out[1], c.lo, 1e-6);
        EXPECT_NEAR(out[2], c.hi, 2e-6 * std::fabs(c.hi));
    }
    g_lo = -0.25f;
    g_hi = 2.0f;
}

// Every form, level and shape. 8u against the curve itself; 16u and 32f
// against their C3 form on a packed copy (whose arithmetic the tests above pin).
TEST(GammaSweep, EveryFormLevelAndShape) {
    for (int dir = 0; dir < 2; ++dir) {
        sweep_layouts<Nmq8u>(dir ? kInv8 : kFwd8, 1, [&](Rng& rng, std::vector<Nmq8u>& in) {
            std::vector<Nmq8u> want(in.size());
            for (size_t i = 0; i < in.size(); ++i) {
                in[i] = Nmq8u(rng.u32());
                const long double t = in[i] / 255.0L, v = dir ? ref_inv(t, 0.081L) : ref_fwd(t);
                want[i] = in[i] == 1 && !dir ? 4 : Nmq8u(std::floor(255 * v + 0.5L));
            }
            return want;
        });
        auto packed = [](const auto& f, auto gen) {
            return [&f, gen](Rng& rng, auto& in) {
                for (auto& v : in) v = gen(rng);
                auto want = in;
                nmq::IsaCap cap(nmq::Isa::Scalar);
                const int bytes = int(in.size() / 3 * sizeof(in[0]) * 3);
                EXPECT_EQ(nmqStsOk, f.c3(in.data(), bytes, want.data(), bytes, {int(in.size() / 3), 1}));
                return want;
            };
        };
        sweep_layouts<Nmq16u>(dir ? kInv16 : kFwd16, 2, packed(dir ? kInv16 : kFwd16, [](Rng& r) { return Nmq16u(r.u32()); }));
        sweep_layouts<Nmq32f>(dir ? kInv32 : kFwd32, 2, packed(dir ? kInv32 : kFwd32, [](Rng& r) { return r.uniformf(-0.5f, 2.25f); }));
    }
}
