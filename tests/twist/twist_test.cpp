#include <xmmintrin.h>

#include <tuple>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "gamma/layouts.h"
#include "support/sweep.h"

using namespace nmqt;

namespace {

using Mat = float[3][4];
const float (*g_mat)[4] = nullptr;  // the matrix handed to the forms below

const Forms<Nmq8u> k8u = NMQT_FORMS(nmqiColorTwist32f_8u, Nmq8u, , g_mat);
const Forms<Nmq8s> k8s = NMQT_FORMS(nmqiColorTwist32f_8s, Nmq8s, , g_mat);
const Forms<Nmq16u> k16u = NMQT_FORMS(nmqiColorTwist32f_16u, Nmq16u, , g_mat);
const Forms<Nmq16s> k16s = NMQT_FORMS(nmqiColorTwist32f_16s, Nmq16s, , g_mat);
const Forms<Nmq32f> k32f = NMQT_FORMS(nmqiColorTwist_32f, Nmq32f, , g_mat);

// The arithmetic, written out: the sum in this grouping, then clamp (NaN to
// the upper bound), round half to even, saturate. Run in the default mode.
template <class T>
T expect(const Mat t, int i, const T* x) {
    const float v = (t[i][3] + float(x[0]) * t[i][0]) + (float(x[1]) * t[i][1] + float(x[2]) * t[i][2]);
    if constexpr (std::is_same_v<T, float>) {
        return v;
    } else {
        const double hi = std::is_same_v<T, Nmq8s> ? 127.0 : double(std::numeric_limits<T>::max());
        const double lo = std::numeric_limits<T>::min();
        if (std::isnan(v) || v >= hi) return T(hi);
        return v <= lo ? T(lo) : T(std::nearbyint(double(v)));
    }
}

struct Csr {  // restores the test thread's control register
    unsigned saved = _mm_getcsr();
    ~Csr() { _mm_setcsr(saved); }
};
constexpr unsigned kTruncate = 0x6000, kDown = 0x2000, kUp = 0x4000, kFlags = 0x3f;

}  // namespace

// Pointers (matrix and planes included), then the ROI, then the steps.
TEST(TwistArgs, StatusesAndOrder) {
    const std::vector<ArgCase> cases = {
        {"null source", true, false, false, {4, 2}, 64, 64, nmqStsNullPtr},
        {"null destination", false, true, false, {4, 2}, 64, 64, nmqStsNullPtr},
        {"null plane before size", false, false, true, {-1, 2}, 64, 64, nmqStsNullPtr},
        {"width 0", false, false, false, {0, 2}, 64, 64, nmqStsSize},
        {"height -3", false, false, false, {4, -3}, 64, 64, nmqStsSize},
        {"size before step", false, false, false, {0, 2}, 0, -1, nmqStsSize},
        {"source step 0", false, false, false, {4, 2}, 0, 64, nmqStsStep},
        {"destination step -64", false, false, false, {4, 2}, 64, -64, nmqStsStep},
    };
    const std::vector<ArgCase> no_matrix = {{"null matrix before size", false, false, false, {0, 0}, 0, 0, nmqStsNullPtr}};
    const Mat t = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
    for (bool null_mat : {false, true}) {
        g_mat = null_mat ? nullptr : t;
        const auto& c = null_mat ? no_matrix : cases;
        check_args(k8u, c);
        check_args(k8s, c);
        check_args(k16u, c);
        check_args(k16s, c);
        check_args(k32f, c);
    }
    // C4: the same order.
    Nmq32f img[64] = {};
    const float t4[4][4] = {};
    EXPECT_EQ(nmqStsNullPtr, nmqiColorTwist_32f_C4R(img, 16, img, 16, {0, 1}, nullptr));
    EXPECT_EQ(nmqStsNullPtr, nmqiColorTwist_32f_C4R(nullptr, 16, img, 16, {1, 1}, t4));
    EXPECT_EQ(nmqStsSize, nmqiColorTwist_32f_C4R(img, 0, img, 16, {1, 0}, t4));
    EXPECT_EQ(nmqStsStep, nmqiColorTwist_32f_C4R(img, 16, img, 0, {1, 1}, t4));
    for (float v : img) EXPECT_EQ(v, 0.0f);
}

// Identity plus 0.5 in every caller mode and at every level: halves round to
// even (10.5 -> 10, 11.5 -> 12). A caller's register whose rounding field had
// to change comes back whole (flags the call raised cleared with it); one
// already in nearest-even mode is not written back (the inexact flag stays).
TEST(TwistRounding, NearestEvenAndTheCallersRegister) {
    const Mat t = {{1, 0, 0, 0.5f}, {0, 1, 0, 0.5f}, {0, 0, 1, 0.5f}};
    const Nmq8u in[12] = {10, 11, 0, 254, 255, 1, 2, 3, 100, 101, 12, 13};
    const Nmq8u want[12] = {10, 12, 0, 254, 255, 2, 2, 4, 100, 102, 12, 14};
    for (unsigned mode : {0u, kDown, kUp, kTruncate})
        for (nmq::Isa lv : isa_levels()) {
            nmq::IsaCap cap(lv);
            Csr keep;
            const unsigned caller = (keep.saved & ~(kTruncate | kFlags)) | mode;
            Nmq8u out[12];
            _mm_setcsr(caller);
            const NmqStatus st = nmqiColorTwist32f_8u_C3R(in, 12, out, 12, {4, 1}, t);
            const unsigned after = _mm_getcsr();
            _mm_setcsr(keep.saved);
            SCOPED_TRACE(std::to_string(mode) + " " + isa_name(lv));
            EXPECT_EQ(nmqStsOk, st);
            EXPECT_EQ(0, std::memcmp(out, want, 12));
            if (mode) EXPECT_EQ(after, caller);
            else EXPECT_EQ(after, caller | 0x20);
        }
}

// The float forms neither change nor depend on a mode of their own.
TEST(TwistRounding, FloatFormsUseTheCallersMode) {
    const float e = 1.5f / 16777216.0f;  // 0.75 ulp of 1
    const Mat t = {{e, 0, 0, 1}, {e, 0, 0, 1}, {e, 0, 0, 1}};
    const float in[3] = {1, 0, 0};
    float out[3];
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        Csr keep;
        _mm_setcsr(keep.saved | kTruncate);
        ASSERT_EQ(nmqStsOk, nmqiColorTwist_32f_C3R(in, 12, out, 12, {1, 1}, t));
        const unsigned after = _mm_getcsr();
        _mm_setcsr(keep.saved);
        EXPECT_EQ(out[0], 1.0f) << isa_name(lv);
        EXPECT_EQ(after & kTruncate, kTruncate);
        ASSERT_EQ(nmqStsOk, nmqiColorTwist_32f_C3R(in, 12, out, 12, {1, 1}, t));
        EXPECT_EQ(out[0], 1.0f + 2.0f / 16777216.0f) << isa_name(lv);
    }
}

// Hand-computed clamps: channel 0 is 4 x0 - 100, channel 1 is -1e6 x1 (far
// beyond the integer range), channel 2 is NaN (taken as the upper bound).
template <class T>
void clamps(const std::vector<T>& in, const std::vector<T>& want) {
    const Mat t = {{4, 0, 0, -100}, {0, -1e6f, 0, 0}, {0, 0, std::nanf(""), 0}};
    g_mat = t;
    const Forms<T>& f = *std::get<const Forms<T>*>(std::make_tuple(&k8u, &k8s, &k16u, &k16s));
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        std::vector<T> out(in.size());
        const int n = int(in.size()), bytes = n * int(sizeof(T));
        ASSERT_EQ(nmqStsOk, f.c3(in.data(), bytes, out.data(), bytes, {n / 3, 1}));
        EXPECT_EQ(out, want) << f.name << " " << isa_name(lv);
    }
}

TEST(TwistValues, ClampAndSaturate) {
    clamps<Nmq8u>({20, 0, 0, 100, 1, 9, 25, 0, 0, 88, 7, 7}, {0, 0, 255, 255, 0, 255, 0, 0, 255, 252, 0, 255});
    // 8s: 127 from above; below -128 (also beyond the integer range) saturates.
    clamps<Nmq8s>({60, -5, 0, -128, 1, 0, 5, 0, 0, 26, -1, 1}, {127, 127, 127, -128, -128, 127, -80, 0, 127, 4, 127, 127});
    clamps<Nmq16s>({10000, -1, 0, -9000, 1, 0}, {32767, 32767, 32767, -32768, -32768, 32767});
    clamps<Nmq16u>({20000, 0, 0, 10, 65535, 0}, {65535, 0, 65535, 0, 0, 65535});
}

// Every form, level and shape against the written-out arithmetic, with
// random matrices that push results out of range and halves that tie.
template <class T>
void sweep(const Forms<T>& f, size_t stride, unsigned mode) {
    Mat t;
    g_mat = t;
    const double span = std::is_same_v<T, Nmq32f> ? 1000.0 : double(std::numeric_limits<T>::max());
    int shape = 0;
    sweep_layouts<T>(
        f, stride,
        [&](Rng& rng, std::vector<T>& in) {
            for (auto& row : t) {
                for (int j = 0; j < 3; ++j) row[j] = rng.uniformf(-1.2f, 1.2f);
                row[3] = float(rng.uniformf(-0.5f, 0.5f) * span);
            }
            if (shape++ % 3 == 0) t[1][0] = t[1][2] = 0, t[1][1] = 1, t[1][3] = 0.5f;
            for (auto& v : in) v = std::is_same_v<T, Nmq32f> ? T(rng.uniformf(-1000, 1000)) : T(rng.u32());
            std::vector<T> want(in.size());
            for (size_t p = 0; p < in.size(); p += 3)
                for (int i = 0; i < 3; ++i) want[p + i] = expect<T>(t, i, &in[p]);
            return want;
        },
        [&](const std::function<NmqStatus()>& call) {  // in the caller's rounding mode
            Csr keep;
            _mm_setcsr((keep.saved & ~kTruncate) | mode);
            const NmqStatus st = call();
            const unsigned after = _mm_getcsr() & kTruncate;
            _mm_setcsr(keep.saved);
            EXPECT_EQ(after, mode);
            return st;
        });
}

TEST(TwistSweep, Integer8) {
    sweep(k8u, 1, 0);
    sweep(k8s, 1, 0);
    sweep(k8u, 3, kTruncate);
}
TEST(TwistSweep, Integer16) {
    sweep(k16u, 1, 0);
    sweep(k16s, 1, 0);
    sweep(k16s, 3, kDown);
}
TEST(TwistSweep, Float) { sweep(k32f, 1, 0); }

// Images of more than 4 MiB are written with non-temporal stores where rows
// start 16-byte aligned: the same bits as the scalar level.
TEST(TwistSweep, FloatLargeImage) {
    const int w = 1000, h = 400;  // 4.8 MB
    Rng rng(5);
    Plane src(w * 12, h, 16), dst(w * 12, h, 4, 0, 16);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < 3 * w; ++x) reinterpret_cast<float*>(src.row(y))[x] = rng.uniformf(-1000, 1000);
    const Mat t = {{0.393f, 0.769f, 0.189f, 1}, {0.349f, 0.686f, 0.168f, 2}, {0.272f, 0.534f, 0.131f, 3}};
    dst.randomize(rng);
    EXPECT_EQ(run_every_level({&dst}, [&] { return nmqiColorTwist_32f_C3R(src.as<float>(), src.step, dst.as<float>(), dst.step, {w, h}, t); }), "");
}

// C4: rows aligned and not, and the merged image when both steps equal
// width * 4 bytes (one row of width * height contiguous pixels, more than
// row-by-row addressing with that step would reach).
TEST(TwistC4, RowsAndTheMergedImage) {
    Rng rng(9);
    float t[4][4];
    for (auto& r : t)
        for (auto& v : r) v = rng.uniformf(-2, 2);
    auto want = [&](const float* x, int i) { return (x[0] * t[i][0] + x[1] * t[i][1]) + (x[2] * t[i][2] + x[3] * t[i][3]); };
    const auto shapes = sweep_shapes();
    for (size_t k = 0; k < shapes.size(); ++k) {
        const Shape sh = shapes[k];
        const int w = sh.w, h = sh.h, mis = (sh.misalign * 4) % 64;
        const bool merged = k % 4 == 1;  // steps w * 4; the planes then hold w * h pixels in one row
        const int rw = merged ? w * h : w, rh = merged ? 1 : h, pad = 4 * sh.pad;
        Plane src(rw * 16, rh, pad, mis, 0, k % 2 == 0), dst(rw * 16, rh, pad + 16 * (k % 3 == 0), (mis + 16 * (k % 2)) % 64, 16);
        for (int y = 0; y < rh; ++y)
            for (int x = 0; x < 4 * rw; ++x) reinterpret_cast<float*>(src.row(y))[x] = rng.uniformf(-100, 100);
        dst.randomize(rng);
        const int ss = merged ? w * 4 : src.step, ds = merged ? w * 4 : dst.step;
        const std::string what = to_string(sh) + (merged ? " merged" : "");
        ASSERT_EQ(run_every_level({&dst}, [&] { return nmqiColorTwist_32f_C4R(src.as<float>(), ss, dst.as<float>(), ds, {w, h}, t); }), "")
            << what;
        for (int y = 0; y < rh; ++y)
            for (int x = 0; x < rw; ++x)
                for (int i = 0; i < 4; ++i) {
                    const float e = want(reinterpret_cast<const float*>(src.row(y)) + 4 * x, i);
                    ASSERT_EQ(0, std::memcmp(&e, reinterpret_cast<const float*>(dst.row(y)) + 4 * x + i, 4)) << what << " " << x << "," << y;
                }
    }
}
