// Adaptive demosaicing: argument checks, scratch failures, SIMD levels
// against scalar, guards, the edge frame shared with the bilinear
// interpolation, rectangle independence, exact reconstruction of stripes,
// and image quality against nmqiCFAToRGB_* on synthetic test images.
#include <cmath>
#include <cstdio>

#include "frame/helpers.h"
#include "support/sweep.h"

using namespace nmqt;

namespace {

template <class T>
struct Fns;
template <>
struct Fns<uint8_t> {
    static constexpr auto ahd = nmqiDemosaicAHD_8u_C1C3R;
    static constexpr auto cfa = nmqiCFAToRGB_8u_C1C3R;
    static constexpr int max = 255;
};
template <>
struct Fns<uint16_t> {
    static constexpr auto ahd = nmqiDemosaicAHD_16u_C1C3R;
    static constexpr auto cfa = nmqiCFAToRGB_16u_C1C3R;
    static constexpr int max = 65535;
};

// Colour of the mosaic at (x, y): 0 red, 1 green, 2 blue.
int cfa_colour(int grid, int x, int y) {
    static const int cell[4][4] = {{2, 1, 1, 0}, {0, 1, 1, 2}, {1, 2, 0, 1}, {1, 0, 2, 1}};
    return cell[grid][(y & 1) * 2 + (x & 1)];
}

template <class T>
class DemosaicAHD : public ::testing::Test {};
using Depths = ::testing::Types<uint8_t, uint16_t>;
TYPED_TEST_SUITE(DemosaicAHD, Depths);

// Test image in 0..1 per channel: smooth colour gradients (top left), sharp
// coloured edges and thin lines (top right), a zone plate (bottom half).
struct Rgbf {
    int w, h;
    std::vector<double> px;  // w*h*3
    double at(int x, int y, int c) const { return px[(size_t(y) * w + x) * 3 + c]; }
};
Rgbf test_image(int w, int h) {
    Rgbf im{w, h, std::vector<double>(size_t(w) * h * 3)};
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            double r, g, b;
            if (y < h / 2 && x < w / 2) {
                r = double(x) / w * 2, g = double(y) / h * 2, b = 0.5 + 0.4 * std::sin((x + y) * 0.05);
            } else if (y < h / 2) {
                // Edges of light and shade on a tinted surface, as in natural images:
                // a disc, bands and diagonal stripes.
                const bool in_disc = (x - 3 * w / 4) * (x - 3 * w / 4) + (y - h / 4) * (y - h / 4) < (h / 6) * (h / 6);
                const bool band = ((x / 5) % 3) == 0 || ((y + x / 2) / 4) % 4 == 0;
                const double k = in_disc ? 0.95 : band ? 0.15 : 0.55;
                r = 0.85 * k, g = 0.75 * k, b = 0.6 * k;
            } else {
                const double dx = x - w / 2.0, dy = y - 3 * h / 4.0;
                const double v = 0.5 + 0.45 * std::cos(0.0009 * (dx * dx + dy * dy) * 3.14159);
                r = v, g = v, b = 0.2 + 0.6 * v;
            }
            double* p = &im.px[(size_t(y) * w + x) * 3];
            p[0] = r, p[1] = g, p[2] = b;
        }
    return im;
}

template <class T>
T quant(double v) { return T(std::lround(std::min(1.0, std::max(0.0, v)) * Fns<T>::max)); }

template <class T>
std::vector<T> mosaic(const Rgbf& im, int grid) {
    std::vector<T> m(size_t(im.w) * im.h);
    for (int y = 0; y < im.h; ++y)
        for (int x = 0; x < im.w; ++x) m[size_t(y) * im.w + x] = quant<T>(im.at(x, y, cfa_colour(grid, x, y)));
    return m;
}

template <class T>
double psnr(const Rgbf& im, const std::vector<T>& out) {
    double se = 0;
    for (int y = 0; y < im.h; ++y)
        for (int x = 0; x < im.w; ++x)
            for (int c = 0; c < 3; ++c) {
                const double d = double(out[(size_t(y) * im.w + x) * 3 + c]) - double(quant<T>(im.at(x, y, c)));
                se += d * d;
            }
    const double mse = se / (double(im.w) * im.h * 3);
    return 10 * std::log10(double(Fns<T>::max) * Fns<T>::max / mse);
}

template <class T, class F>
std::vector<T> run_full(F f, const std::vector<T>& m, int w, int h, int grid) {
    std::vector<T> out(size_t(w) * h * 3);
    const int ss = int(w * sizeof(T)), ds = int(3 * w * sizeof(T));
    EXPECT_EQ(f(m.data(), ImageRect{0, 0, w, h}, ImageSize{w, h}, ss, out.data(), ds, grid), nmqStsOk);
    return out;
}

TYPED_TEST(DemosaicAHD, BeatsBilinearOnEveryGrid) {
    using T = TypeParam;
    const int w = 256, h = 192;
    const Rgbf im = test_image(w, h);
    for (int grid = 0; grid < 4; ++grid) {
        const auto m = mosaic<T>(im, grid);
        const auto A = run_full<T>(Fns<T>::ahd, m, w, h, grid), B = run_full<T>(Fns<T>::cfa, m, w, h, grid);
        const double pa = psnr(im, A), pb = psnr(im, B);
        std::printf("    %s grid %d: PSNR adaptive %.2f dB, bilinear %.2f dB\n", sizeof(T) == 1 ? "8u" : "16u", grid, pa, pb);
        EXPECT_GT(pa, pb + 2.0) << "grid " << grid;
    }
}

// Rows (or columns) of constant gray are reconstructed exactly away from the
// edge frame: the direction along the stripes is exact and must be chosen.
// Bilinear interpolation blurs them.
TYPED_TEST(DemosaicAHD, StripesAreExact) {
    using T = TypeParam;
    const int w = 24, h = 20;
    for (int vertical = 0; vertical < 2; ++vertical)
        for (int grid = 0; grid < 4; ++grid) {
            std::vector<T> m(size_t(w) * h);
            auto value = [&](int x, int y) { return T(((vertical ? x : y) * 7 % 5) * (Fns<T>::max / 4)); };
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) m[size_t(y) * w + x] = value(x, y);
            const auto out = run_full<T>(Fns<T>::ahd, m, w, h, grid);
            for (int y = 2; y < h - 2; ++y)
                for (int x = 2; x < w - 2; ++x)
                    for (int c = 0; c < 3; ++c)
                        ASSERT_EQ(out[(size_t(y) * w + x) * 3 + c], value(x, y))
                            << "vertical " << vertical << " grid " << grid << " at " << x << "," << y;
        }
}

// Within two pixels of an edge the result is that of nmqiCFAToRGB_*.
TYPED_TEST(DemosaicAHD, EdgeFrameIsBilinear) {
    using T = TypeParam;
    Rng rng(5);
    for (auto [w, h] : {std::pair{2, 2}, {3, 7}, {4, 4}, {5, 5}, {9, 6}, {31, 17}})
        for (int grid = 0; grid < 4; ++grid) {
            std::vector<T> m(size_t(w) * h);
            for (auto& v : m) v = T(rng.uniform(0, Fns<T>::max));
            const auto a = run_full<T>(Fns<T>::ahd, m, w, h, grid);
            const auto b = run_full<T>(Fns<T>::cfa, m, w, h, grid);
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    if (x >= 2 && x < w - 2 && y >= 2 && y < h - 2) continue;
                    for (int c = 0; c < 3; ++c)
                        ASSERT_EQ(a[(size_t(y) * w + x) * 3 + c], b[(size_t(y) * w + x) * 3 + c])
                            << w << "x" << h << " grid " << grid << " at " << x << "," << y;
                }
        }
}

// A rectangle gives the pixels the whole image gives there, whatever its
// origin (odd or even), and one reaching past the edges is trimmed.
TYPED_TEST(DemosaicAHD, RectanglesAgreeWithWholeImage) {
    using T = TypeParam;
    const int w = 41, h = 29;
    Rng rng(9);
    std::vector<T> m(size_t(w) * h);
    for (auto& v : m) v = T(rng.uniform(0, Fns<T>::max));
    const auto full = run_full<T>(Fns<T>::ahd, m, w, h, 3);
    const ImageRect rects[] = {{3, 5, 10, 7}, {0, 0, 7, 3}, {7, 2, 100, 100}, {1, 1, 3, 3}, {38, 26, 5, 5}};
    for (const ImageRect& r : rects) {
        const int rw = std::min(r.width, w - r.x), rh = std::min(r.height, h - r.y);
        Plane d(3 * rw * int(sizeof(T)), rh, 6, 2, 16);
        Rng fill(1);
        d.randomize(fill);
        ASSERT_EQ(Fns<T>::ahd(m.data(), r, ImageSize{w, h}, int(w * sizeof(T)), reinterpret_cast<T*>(d.ptr()), d.step, 3),
                  nmqStsOk);
        EXPECT_TRUE(d.outside_untouched());
        for (int y = 0; y < rh; ++y)
            for (int x = 0; x < 3 * rw; ++x)
                ASSERT_EQ(reinterpret_cast<const T*>(d.row(y))[x], full[(size_t(y + r.y) * w + r.x) * 3 + x])
                    << "rect at " << r.x << "," << r.y << " pixel " << x / 3 << "," << y;
    }
}

// Random mosaics of many shapes: every SIMD level gives the scalar bytes,
// nothing outside the destination rectangle is written, sources are exact
// allocations (some against a protected page).
TYPED_TEST(DemosaicAHD, SimdMatchesScalar) {
    using T = TypeParam;
    uint32_t seed = 3;
    for (const Shape& s : sweep_shapes(2, 2)) {
        const int grid = int(seed % 4);
        // 16-bit rows keep whole elements: padding and offsets in elements.
        const int e = int(sizeof(T));
        Plane src(s.w * e, s.h, s.pad * e, s.misalign * e, 0, seed % 3 == 0);
        Rng rng(seed++);
        src.randomize(rng);
        Plane d(3 * s.w * e, s.h, (s.pad + 2) * e, (s.misalign + 1) * e, 24);
        d.randomize(rng);
        ASSERT_EQ(run_every_level({&d}, [&] {
                      return Fns<T>::ahd(reinterpret_cast<const T*>(src.ptr()), ImageRect{0, 0, s.w, s.h},
                                         ImageSize{s.w, s.h}, src.step, reinterpret_cast<T*>(d.ptr()), d.step, grid);
                  }),
                  "")
            << to_string(s);
    }
}

// Argument checks in their order; an error writes nothing. The scratch block
// failing gives nmqStsNoMemory, also with nothing written.
TYPED_TEST(DemosaicAHD, ArgumentChecksInOrder) {
    using T = TypeParam;
    const int w = 12, h = 10;
    std::vector<T> m(size_t(w) * h, T(100));
    struct Row {
        const char* what;
        bool null_src, null_dst;
        ImageRect rect;
        ImageSize size;
        int grid, fail_alloc;
        NmqStatus want;
    };
    const Row rows[] = {
        {"null source", true, false, {0, 0, w, h}, {w, h}, 0, 0, nmqStsNullPtr},
        {"null destination", false, true, {0, 0, w, h}, {w, h}, 0, 0, nmqStsNullPtr},
        {"null before size", true, false, {0, 0, w, h}, {0, 0}, 9, 0, nmqStsNullPtr},
        {"width 1", false, false, {0, 0, w, h}, {1, h}, 0, 0, nmqStsSize},
        {"height 1", false, false, {0, 0, w, h}, {w, 1}, 0, 0, nmqStsSize},
        {"size before grid", false, false, {0, 0, w, h}, {w, 0}, 7, 0, nmqStsSize},
        {"negative x", false, false, {-1, 0, w, h}, {w, h}, 0, 0, nmqStsSize},
        {"negative y", false, false, {0, -2, w, h}, {w, h}, 0, 0, nmqStsSize},
        {"grid 4", false, false, {0, 0, w, h}, {w, h}, 4, 0, nmqStsBadArg},
        {"grid -1", false, false, {0, 0, w, h}, {w, h}, -1, 0, nmqStsBadArg},
        {"grid before origin", false, false, {-1, 0, w, h}, {w, h}, 4, 0, nmqStsBadArg},
        {"first scratch block fails", false, false, {0, 0, w, h}, {w, h}, 1, 1, nmqStsNoMemory},
        {"second scratch block fails", false, false, {0, 0, w, h}, {w, h}, 1, 2, nmqStsNoMemory},
        {"no scratch for a frame-only rectangle", false, false, {0, 0, w, 2}, {w, h}, 1, 1, nmqStsOk},
        {"empty after trimming", false, false, {w, 0, 4, 4}, {w, h}, 2, 0, nmqStsOk},
    };
    for (const Row& r : rows) {
        Plane d(3 * w * int(sizeof(T)), h, 0, 0, 8);
        Rng fill(2);
        d.randomize(fill);
        nmq::test_fail_alloc_after(r.fail_alloc);
        const NmqStatus st = Fns<T>::ahd(r.null_src ? nullptr : m.data(), r.rect, r.size, int(w * sizeof(T)),
                                         r.null_dst ? nullptr : reinterpret_cast<T*>(d.ptr()), d.step, r.grid);
        nmq::test_fail_alloc_after(0);
        EXPECT_EQ(st, r.want) << r.what;
        if (st < 0 || r.rect.x >= w) EXPECT_TRUE(d.untouched()) << r.what;
        else EXPECT_TRUE(d.outside_untouched()) << r.what;
    }
}

}  // namespace
