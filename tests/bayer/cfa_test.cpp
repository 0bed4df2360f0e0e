#include <algorithm>
#include <cstring>
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

NmqStatus cfa(const Nmq8u* s, ImageRect r, ImageSize z, int ss, Nmq8u* d, int ds, int g) {
    return nmqiCFAToRGB_8u_C1C3R(s, r, z, ss, d, ds, g);
}
NmqStatus cfa(const Nmq16u* s, ImageRect r, ImageSize z, int ss, Nmq16u* d, int ds, int g) {
    return nmqiCFAToRGB_16u_C1C3R(s, r, z, ss, d, ds, g);
}

// A mosaic of w x h samples in an exact source plane (the last row ends the allocation).
template <class T>
struct Mosaic {
    int w, h;
    std::vector<T> px;
    long long at(int x, int y) const { return px[size_t(y) * w + x]; }
    Plane plane(int pad = 0, int misalign = 0, bool page_guard = false) const {
        Plane p(w * int(sizeof(T)), h, pad, misalign, 0, page_guard);
        for (int y = 0; y < h; ++y) std::memcpy(p.row(y), &px[size_t(y) * w], size_t(w) * sizeof(T));
        return p;
    }
};

template <class T>
std::vector<uint8_t> bytes(const std::vector<T>& v) {
    std::vector<uint8_t> b(v.size() * sizeof(T));
    std::memcpy(b.data(), v.data(), b.size());
    return b;
}

// Random samples; with `levels` only 0, 1, max-1 and max, so that equal
// differences and full-scale sums are common.
template <class T>
Mosaic<T> random_mosaic(Rng& rng, int w, int h, bool levels = false) {
    const int top = T(~T(0)), few[4] = {0, 1, top - 1, top};
    Mosaic<T> m{w, h, std::vector<T>(size_t(w) * h)};
    for (T& v : m.px) v = T(levels ? few[rng.uniform(0, 3)] : rng.uniform(0, top));
    return m;
}

// The method written pixel by pixel from its rules: colours from the pattern
// letters, neighbours outside the image mirrored about the pixel, directed
// green only two pixels or more from every edge. Returns the ROI bytes.
template <class T>
std::vector<uint8_t> reference(const Mosaic<T>& m, ImageRect r, int grid) {
    static const char* const kPattern[4] = {"BGGR", "RGGB", "GBRG", "GRBG"};
    auto colour = [&](int x, int y) { return kPattern[grid][(y & 1) * 2 + (x & 1)]; };
    std::vector<T> out;
    for (int y = r.y; y < r.y + r.height; ++y)
        for (int x = r.x; x < r.x + r.width; ++x) {
            auto nb = [&](int dx, int dy) {
                const int nx = x + dx < 0 || x + dx >= m.w ? x - dx : x + dx;
                return m.at(nx, y + dy < 0 || y + dy >= m.h ? y - dy : y + dy);
            };
            const long long n = nb(0, -1), s = nb(0, 1), w = nb(-1, 0), e = nb(1, 0);
            const long long dv = n > s ? n - s : s - n, dh = w > e ? w - e : e - w;
            const bool inner = x >= 2 && x < m.w - 2 && y >= 2 && y < m.h - 2;
            const char own = colour(x, y);
            for (char ch : {'R', 'G', 'B'}) {
                long long v = (nb(-1, -1) + nb(1, -1) + nb(-1, 1) + nb(1, 1) + 2) / 4;
                if (ch == own) v = m.at(x, y);
                else if (ch == 'G') v = inner && dv > dh ? (w + e + 1) / 2 : inner && dh > dv ? (n + s + 1) / 2 : (n + s + w + e + 2) / 4;
                else if (own == 'G') v = colour(x ^ 1, y) == ch ? (w + e + 1) / 2 : (n + s + 1) / 2;
                out.push_back(T(v));
            }
        }
    return bytes(out);
}

// Converts rectangle r into a guarded destination sized for r (or for `room`
// pixels per row when larger) and checks that nothing outside it was written.
template <class T>
Plane run(const Plane& src, const Mosaic<T>& m, ImageRect r, int grid, Rng& rng, int pad = 0, int room = 0) {
    Plane dst(std::max(r.width, room) * 3 * int(sizeof(T)), r.height, pad, 0, 16);
    dst.randomize(rng);
    EXPECT_EQ(cfa(reinterpret_cast<const T*>(src.ptr()), r, ImageSize{m.w, m.h}, src.step, dst.as<T>(), dst.step, grid),
              nmqStsOk);
    EXPECT_TRUE(dst.outside_untouched()) << dst.describe();
    return dst;
}

template <class T>
class Cfa : public ::testing::Test {};
using Types = ::testing::Types<uint8_t, uint16_t>;
TYPED_TEST_SUITE(Cfa, Types);

TYPED_TEST(Cfa, ChecksInOrderAndWritesNothingOnError) {
    using T = TypeParam;
    struct Case {
        const char* what;
        bool null_src, null_dst;
        ImageSize size;
        ImageRect roi;
        int grid;
        NmqStatus want;
    };
    const ImageRect all{0, 0, 4, 4};
    const Case cases[] = {
        {"null source", true, false, {4, 4}, all, 1, nmqStsNullPtr},
        {"null destination", false, true, {4, 4}, all, 1, nmqStsNullPtr},
        {"null before size and grid", true, true, {0, 0}, all, 9, nmqStsNullPtr},
        {"width 1", false, false, {1, 4}, all, 1, nmqStsSize},
        {"height 1", false, false, {4, 1}, all, 1, nmqStsSize},
        {"size before grid", false, false, {4, 0}, all, 4, nmqStsSize},
        {"grid 4", false, false, {4, 4}, all, 4, nmqStsBadArg},
        {"grid -1", false, false, {4, 4}, all, -1, nmqStsBadArg},
        {"grid before rectangle", false, false, {4, 4}, {-1, 0, 4, 4}, 7, nmqStsBadArg},
        {"negative x", false, false, {4, 4}, {-1, 0, 2, 2}, 0, nmqStsSize},
        {"negative y", false, false, {4, 4}, {0, -2, 2, 2}, 0, nmqStsSize},
        {"empty rectangle", false, false, {4, 4}, {1, 1, 0, 3}, 0, nmqStsOk},
        {"rectangle right of the image", false, false, {4, 4}, {4, 0, 3, 3}, 0, nmqStsOk},
    };
    Rng rng(7);
    Plane src(4 * int(sizeof(T)), 4);
    src.randomize(rng);
    for (const Case& c : cases) {
        Plane dst(4 * 3 * int(sizeof(T)), 4, 0, 0, 16);
        dst.randomize(rng);
        EXPECT_EQ(cfa(c.null_src ? nullptr : reinterpret_cast<const T*>(src.ptr()), c.roi, c.size, src.step,
                      c.null_dst ? nullptr : dst.as<T>(), dst.step, c.grid),
                  c.want) << c.what;
        EXPECT_TRUE(dst.untouched()) << c.what;
    }
}

// Green at red site (2, 2) of an RGGB image (the sweep holds the vector
// kernels to the same bytes).
TYPED_TEST(Cfa, GreenFollowsTheSmallerDifference) {
    using T = TypeParam;
    const int top = T(~T(0));
    struct Case {
        const char* rule;
        int n, s, w, e, want;
    } const cases[] = {
        {"vertical edge: left/right mean, rounded up", 10, 50, 20, 23, 22},
        {"horizontal edge: above/below mean, rounded up", 10, 13, 100, 0, 12},
        {"equal differences: four-neighbour mean", 1, 2, 3, 4, 3},
        {"equal differences at full scale", top, top - 1, top, top - 1, top},
        {"differences compared unsigned", 0, top * 4 / 5, 0, top / 3, (top / 3 + 1) / 2},
    };
    Rng rng(3);
    for (const Case& c : cases) {
        Mosaic<T> m = random_mosaic<T>(rng, 40, 5);
        m.px[42] = T(c.n), m.px[122] = T(c.s), m.px[81] = T(c.w), m.px[83] = T(c.e);
        const Plane d = run<T>(m.plane(), m, {2, 2, 20, 1}, nmqBayerRGGB, rng);
        EXPECT_EQ(int(reinterpret_cast<const T*>(d.row(0))[1]), c.want) << c.rule;
    }
}

// Every shape of the sweep as a whole image, converted whole, through a random
// rectangle and through one whose runs end inside the image, at every level.
// Sources are exact allocations (some end against a protected page), so reads
// past the image are caught.
TYPED_TEST(Cfa, MatchesTheReferenceAtEveryLevel) {
    using T = TypeParam;
    const int even = sizeof(T) == 1 ? ~0 : ~1;  // 16-bit rows stay aligned to their elements
    Rng rng(11);
    int k = 0;
    for (const Shape& sh : sweep_shapes(2, 2, 1031)) {
        const int grid = ++k % 4, pad = sh.pad & even;
        const Mosaic<T> m = random_mosaic<T>(rng, sh.w, sh.h, k % 3 == 0);
        const Plane src = m.plane(pad, sh.misalign & even, k % 5 == 0);
        const int rx = rng.uniform(0, sh.w - 1), ry = rng.uniform(0, sh.h - 1);
        const int ix = std::min(2, sh.w - 1), iy = std::min(2, sh.h - 1);  // runs of every length ending inside
        for (const ImageRect& r : {ImageRect{0, 0, sh.w, sh.h},
                                   ImageRect{rx, ry, rng.uniform(1, sh.w - rx), rng.uniform(1, sh.h - ry)},
                                   ImageRect{ix, iy, std::min(k % 37 + 1, sh.w - ix), std::min(3, sh.h - iy)}}) {
            const std::vector<uint8_t> want = reference(m, r, grid);
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                ASSERT_EQ(first_diff(run<T>(src, m, r, grid, rng, pad).roi(), want, r.width * 3 * int(sizeof(T))), "")
                    << to_string(sh) << " grid " << grid << " rect " << r.x << "," << r.y << " " << r.width << "x"
                    << r.height << " at " << isa_name(lv);
            }
        }
    }
}

// A rectangle reaching past the right and bottom edges is cut to the image
// without a warning; the destination beyond the cut keeps its bytes.
TYPED_TEST(Cfa, TrimsTheRectangleSilently) {
    using T = TypeParam;
    Rng rng(9);
    const Mosaic<T> m = random_mosaic<T>(rng, 45, 23);
    const Plane src = m.plane();
    const int px = 3 * int(sizeof(T));
    const Plane d = run<T>(src, m, {30, 17, 40, 12}, nmqBayerGBRG, rng, 0, 40);
    EXPECT_TRUE(d.kept([&](int xb, int y) { return xb >= 15 * px || y >= 6; }));
    const std::vector<uint8_t> want = reference(m, {30, 17, 15, 6}, nmqBayerGBRG);
    for (int y = 0; y < 6; ++y) EXPECT_EQ(0, std::memcmp(d.row(y), &want[size_t(y) * 15 * px], size_t(15 * px))) << y;
}

}  // namespace
