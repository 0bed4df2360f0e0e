#include <algorithm>
#include <cstring>
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

// ---- the two exports behind one signature ------------------------------------

NmqStatus cfa(const Nmq8u* s, ImageRect r, ImageSize z, int ss, Nmq8u* d, int ds, int g) {
    return nmqiCFAToRGB_8u_C1C3R(s, r, z, ss, d, ds, g);
}
NmqStatus cfa(const Nmq16u* s, ImageRect r, ImageSize z, int ss, Nmq16u* d, int ds, int g) {
    return nmqiCFAToRGB_16u_C1C3R(s, r, z, ss, d, ds, g);
}

// ---- a reference written from the method's rules, pixel by pixel -------------

// Colours of the 2x2 cell at even coordinates, per grid code, row 0 then row 1.
const char* const kPattern[4] = {"BGGR", "RGGB", "GBRG", "GRBG"};

template <class T>
struct Mosaic {
    int w, h;
    std::vector<T> px;
    T at(int x, int y) const { return px[size_t(y) * w + x]; }
};

template <class T>
std::vector<T> reference(const Mosaic<T>& m, ImageRect r, int grid) {
    auto colour = [&](int x, int y) { return kPattern[grid][(y & 1) * 2 + (x & 1)]; };
    std::vector<T> out;
    for (int y = r.y; y < r.y + r.height; ++y)
        for (int x = r.x; x < r.x + r.width; ++x) {
            // Neighbour at (x + dx, y + dy), mirrored about (x, y) where it leaves the image.
            auto nb = [&](int dx, int dy) -> long long {
                const int nx = (x + dx < 0 || x + dx >= m.w) ? x - dx : x + dx;
                const int ny = (y + dy < 0 || y + dy >= m.h) ? y - dy : y + dy;
                return m.at(nx, ny);
            };
            const long long n = nb(0, -1), s = nb(0, 1), w = nb(-1, 0), e = nb(1, 0);
            const bool inner = x >= 2 && x < m.w - 2 && y >= 2 && y < m.h - 2;
            const char own = colour(x, y);
            for (char ch : {'R', 'G', 'B'}) {
                long long v;
                if (ch == own) {
                    v = m.at(x, y);
                } else if (ch == 'G') {
                    const long long dv = n > s ? n - s : s - n, dh = w > e ? w - e : e - w;
                    if (inner && dv > dh) v = (w + e + 1) / 2;
                    else if (inner && dh > dv) v = (n + s + 1) / 2;
                    else v = (n + s + w + e + 2) / 4;
                } else if (own == 'G') {
                    v = colour(x ^ 1, y) == ch ? (w + e + 1) / 2 : (n + s + 1) / 2;
                } else {
                    v = (nb(-1, -1) + nb(1, -1) + nb(-1, 1) + nb(1, 1) + 2) / 4;
                }
                out.push_back(T(v));
            }
        }
    return out;
}

// ---- planes of elements --------------------------------------------------------

template <class T>
Plane make_src(const Mosaic<T>& m, int pad = 0, int misalign = 0, bool page_guard = false) {
    Plane p(m.w * int(sizeof(T)), m.h, pad, misalign, 0, page_guard);
    for (int y = 0; y < m.h; ++y) std::memcpy(p.row(y), &m.px[size_t(y) * m.w], size_t(m.w) * sizeof(T));
    return p;
}

template <class T>
std::vector<T> elems(const Plane& p) {
    const std::vector<uint8_t> b = p.roi();
    std::vector<T> v(b.size() / sizeof(T));
    std::memcpy(v.data(), b.data(), b.size());
    return v;
}

// Random samples; with `levels` only the extremes and their neighbours, so
// that equal differences and full-scale sums are common.
template <class T>
Mosaic<T> random_mosaic(Rng& rng, int w, int h, bool levels) {
    const int top = T(~T(0));
    const int few[4] = {0, 1, top - 1, top};
    Mosaic<T> m{w, h, std::vector<T>(size_t(w) * h)};
    for (T& v : m.px) v = T(levels ? few[rng.uniform(0, 3)] : rng.uniform(0, top));
    return m;
}

template <class T>
std::string show(const std::vector<T>& a, const std::vector<T>& b) {
    for (size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i])
            return "pixel " + std::to_string(i / 3) + " channel " + std::to_string(i % 3) + ": " +
                   std::to_string(a[i]) + " vs " + std::to_string(b[i]);
    return a.size() == b.size() ? "" : "sizes differ";
}

// Converts rectangle r of m into a guarded destination sized for r; the
// destination keeps everything outside r.
template <class T>
std::vector<T> run(const Plane& src, const Mosaic<T>& m, ImageRect r, int grid, Rng& rng, int dpad = 0) {
    Plane dst(r.width * 3 * int(sizeof(T)), r.height, dpad, 0, 16);
    dst.randomize(rng);
    const NmqStatus st = cfa(reinterpret_cast<const T*>(src.ptr()), r, ImageSize{m.w, m.h}, src.step,
                             dst.as<T>(), dst.step, grid);
    EXPECT_EQ(st, nmqStsOk);
    EXPECT_TRUE(dst.outside_untouched()) << dst.describe();
    return elems<T>(dst);
}

template <class T>
class Cfa : public ::testing::Test {};
using Types = ::testing::Types<uint8_t, uint16_t>;
TYPED_TEST_SUITE(Cfa, Types);

// ---- argument checks -------------------------------------------------------------

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
    const ImageRect full{0, 0, 4, 4};
    const Case cases[] = {
        {"null source", true, false, {4, 4}, full, 1, nmqStsNullPtr},
        {"null destination", false, true, {4, 4}, full, 1, nmqStsNullPtr},
        {"null before size and grid", true, true, {0, 0}, full, 9, nmqStsNullPtr},
        {"width 1", false, false, {1, 4}, full, 1, nmqStsSize},
        {"height 1", false, false, {4, 1}, full, 1, nmqStsSize},
        {"negative width", false, false, {-4, 4}, full, 1, nmqStsSize},
        {"size before grid", false, false, {4, 0}, full, 4, nmqStsSize},
        {"grid 4", false, false, {4, 4}, full, 4, nmqStsBadArg},
        {"grid -1", false, false, {4, 4}, full, -1, nmqStsBadArg},
        {"grid before rectangle", false, false, {4, 4}, {-1, 0, 4, 4}, 7, nmqStsBadArg},
        {"negative x", false, false, {4, 4}, {-1, 0, 2, 2}, 0, nmqStsSize},
        {"negative y", false, false, {4, 4}, {0, -2, 2, 2}, 0, nmqStsSize},
        {"empty rectangle", false, false, {4, 4}, {1, 1, 0, 3}, 0, nmqStsOk},
        {"rectangle right of the image", false, false, {4, 4}, {4, 0, 3, 3}, 0, nmqStsOk},
        {"rectangle below the image", false, false, {4, 4}, {0, 9, 3, 3}, 0, nmqStsOk},
    };
    Rng rng(7);
    Plane src(4 * int(sizeof(T)), 4);
    src.randomize(rng);
    for (const Case& c : cases) {
        Plane dst(4 * 3 * int(sizeof(T)), 4, 0, 0, 16);
        dst.randomize(rng);
        const NmqStatus st = cfa(c.null_src ? nullptr : reinterpret_cast<const T*>(src.ptr()), c.roi, c.size, src.step,
                                 c.null_dst ? nullptr : dst.as<T>(), dst.step, c.grid);
        EXPECT_EQ(st, c.want) << c.what;
        EXPECT_TRUE(dst.untouched()) << c.what;
    }
}

// ---- hand-computed values ------------------------------------------------------

// In a 2x2 image every pixel is on the edge: each missing neighbour is the
// mirror image of the one opposite, so green at R and B is the mean of the two
// greens, taken twice each. The 16-bit greens sum past 16 bits.
TYPED_TEST(Cfa, TwoByTwoIsAllBorder) {
    using T = TypeParam;
    const int g1 = sizeof(T) == 1 ? 20 : 65535, g2 = sizeof(T) == 1 ? 31 : 65532;
    const int want_g = sizeof(T) == 1 ? 26 : 65534;  // (2*g1 + 2*g2 + 2) >> 2
    const Mosaic<T> m{2, 2, {T(10), T(g1), T(g2), T(40)}};  // read as RGGB: R G / G B
    const Plane src = make_src(m);
    Rng rng(1);
    struct Case {
        int grid;
        std::vector<int> want;  // R G B of the four pixels
    };
    const Case cases[] = {
        {nmqBayerRGGB, {10, want_g, 40, 10, g1, 40, 10, g2, 40, 10, want_g, 40}},
        {nmqBayerBGGR, {40, want_g, 10, 40, g1, 10, 40, g2, 10, 40, want_g, 10}},
        // G R / B G: the greens sit on 10 and 40; the R and B sites see them mirrored.
        {nmqBayerGRBG, {g1, 10, g2, g1, 25, g2, g1, 25, g2, g1, 40, g2}},
        {nmqBayerGBRG, {g2, 10, g1, g2, 25, g1, g2, 25, g1, g2, 40, g1}},
    };
    for (const Case& c : cases) {
        const std::vector<T> got = run<T>(src, m, {0, 0, 2, 2}, c.grid, rng);
        EXPECT_EQ(got, std::vector<T>(c.want.begin(), c.want.end())) << "grid " << c.grid;
    }
}

// Green at red site (2, 2) of an RGGB image; the run is long enough for the
// vector kernels to compute that pixel.
TYPED_TEST(Cfa, GreenFollowsTheSmallerDifference) {
    using T = TypeParam;
    struct Case {
        const char* rule;
        int n, s, w, e, want;
    };
    const int top = T(~T(0));
    const Case cases[] = {
        {"vertical edge: left/right mean, rounded up", 10, 50, 20, 23, 22},
        {"horizontal edge: above/below mean, rounded up", 10, 13, 100, 0, 12},
        {"equal differences: four-neighbour mean", 1, 2, 3, 4, 3},
        {"flat area", 7, 7, 7, 7, 7},
        {"equal differences at full scale", top, top - 1, top, top - 1, top},
        {"differences compared unsigned", 0, top * 4 / 5, 0, top / 3, (top / 3 + 1) / 2},
    };
    Rng rng(3);
    for (const Case& c : cases) {
        Mosaic<T> m = random_mosaic<T>(rng, 40, 5, false);
        m.px[1 * 40 + 2] = T(c.n);
        m.px[3 * 40 + 2] = T(c.s);
        m.px[2 * 40 + 1] = T(c.w);
        m.px[2 * 40 + 3] = T(c.e);
        const Plane src = make_src(m);
        for (nmq::Isa lv : isa_levels()) {
            nmq::IsaCap cap(lv);
            const std::vector<T> got = run<T>(src, m, {2, 2, 20, 1}, nmqBayerRGGB, rng);
            EXPECT_EQ(int(got[1]), c.want) << c.rule << " at " << isa_name(lv);
            EXPECT_EQ(got[0], m.at(2, 2)) << c.rule;
        }
    }
}

// ---- against the reference, at every level ---------------------------------------

// Every shape of the sweep as a whole image, converted whole and through a
// random rectangle, with padded and unaligned rows. The source is an exact
// allocation, so a read past the image is reported by AddressSanitizer.
TYPED_TEST(Cfa, MatchesTheReferenceAtEveryLevel) {
    using T = TypeParam;
    const int even = sizeof(T) == 1 ? ~0 : ~1;  // 16-bit rows stay aligned to their elements
    Rng rng(11);
    int k = 0;
    for (const Shape& sh : sweep_shapes(2, 2, 1031)) {
        const int grid = k % 4;
        const Mosaic<T> m = random_mosaic<T>(rng, sh.w, sh.h, ++k % 3 == 0);
        const Plane src = make_src(m, sh.pad & even, sh.misalign & even);
        const int rx = rng.uniform(0, sh.w - 1), ry = rng.uniform(0, sh.h - 1);
        const ImageRect rects[] = {{0, 0, sh.w, sh.h},
                                   {rx, ry, rng.uniform(1, sh.w - rx), rng.uniform(1, sh.h - ry)}};
        for (const ImageRect& r : rects) {
            const std::vector<T> want = reference(m, r, grid);
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                const std::vector<T> got = run<T>(src, m, r, grid, rng, sh.pad & even);
                ASSERT_EQ(show(got, want), "") << to_string(sh) << " grid " << grid << " rect " << r.x << ","
                                               << r.y << " " << r.width << "x" << r.height << " at "
                                               << isa_name(lv);
            }
        }
    }
}

// The last source byte against a protected page: nothing past it is read.
TYPED_TEST(Cfa, ReadsNothingPastTheImage) {
    using T = TypeParam;
    Rng rng(5);
    for (int w : {2, 3, 18, 19, 35, 67}) {
        const Mosaic<T> m = random_mosaic<T>(rng, w, 6, false);
        const Plane src = make_src(m, 0, 0, true);
        for (nmq::Isa lv : isa_levels()) {
            nmq::IsaCap cap(lv);
            EXPECT_EQ(show(run<T>(src, m, {0, 0, w, 6}, w % 4, rng), reference(m, {0, 0, w, 6}, w % 4)), "");
        }
    }
}

// ---- the rectangle -------------------------------------------------------------

// A rectangle reaching past the right and bottom edges is cut to the image
// without a warning; the destination beyond the cut keeps its bytes.
TYPED_TEST(Cfa, TrimsTheRectangleSilently) {
    using T = TypeParam;
    Rng rng(9);
    const Mosaic<T> m = random_mosaic<T>(rng, 45, 23, false);
    const Plane src = make_src(m);
    const ImageRect over{30, 17, 40, 12}, cut{30, 17, 15, 6};
    const int px = 3 * int(sizeof(T));
    Plane dst(over.width * px, over.height, 0, 0, 16);
    dst.randomize(rng);
    EXPECT_EQ(cfa(reinterpret_cast<const T*>(src.ptr()), over, ImageSize{m.w, m.h}, src.step, dst.as<T>(), dst.step, nmqBayerGBRG), nmqStsOk);
    EXPECT_TRUE(dst.outside_untouched());
    EXPECT_TRUE(dst.kept([&](int xb, int y) { return xb >= cut.width * px || y >= cut.height; }));
    const std::vector<T> all = elems<T>(dst);
    std::vector<T> got;
    for (int y = 0; y < cut.height; ++y)
        got.insert(got.end(), all.begin() + ptrdiff_t(y) * over.width * 3,
                   all.begin() + ptrdiff_t(y) * over.width * 3 + cut.width * 3);
    EXPECT_EQ(show(got, reference(m, cut, nmqBayerGBRG)), "");
}

// A pixel's value depends on the image, not on the rectangle: rectangles whose
// origins differ by odd amounts agree where they overlap.
TYPED_TEST(Cfa, OverlappingRectanglesAgree) {
    using T = TypeParam;
    Rng rng(13);
    const Mosaic<T> m = random_mosaic<T>(rng, 70, 12, false);
    const Plane src = make_src(m);
    struct Case {
        ImageRect a, b;
    };
    const Case cases[] = {
        {{0, 0, 70, 12}, {1, 0, 69, 12}},
        {{2, 3, 60, 8}, {5, 3, 40, 8}},
        {{4, 2, 50, 9}, {7, 5, 43, 6}},
        {{1, 1, 33, 10}, {0, 0, 70, 12}},
    };
    for (int grid = 0; grid < 4; ++grid)
        for (const Case& c : cases)
            for (nmq::Isa lv : isa_levels()) {
                nmq::IsaCap cap(lv);
                const std::vector<T> a = run<T>(src, m, c.a, grid, rng), b = run<T>(src, m, c.b, grid, rng);
                const int x0 = std::max(c.a.x, c.b.x), x1 = std::min(c.a.x + c.a.width, c.b.x + c.b.width);
                const int y0 = std::max(c.a.y, c.b.y), y1 = std::min(c.a.y + c.a.height, c.b.y + c.b.height);
                for (int y = y0; y < y1; ++y)
                    for (int x = x0; x < x1; ++x)
                        for (int ch = 0; ch < 3; ++ch)
                            ASSERT_EQ(a[(size_t(y - c.a.y) * c.a.width + (x - c.a.x)) * 3 + ch],
                                      b[(size_t(y - c.b.y) * c.b.width + (x - c.b.x)) * 3 + ch])
                                << "grid " << grid << " pixel " << x << "," << y << " at " << isa_name(lv);
            }
}

}  // namespace
