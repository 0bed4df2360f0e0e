// Every YCbCr export: argument checks, and a sweep of image shapes at every
// SIMD level against references written from the formulas, with guard bytes,
// kept alpha and exact source allocations.
#include <algorithm>
#include <tuple>

#include "support/sweep.h"
#include "ycbcr/ycbcr_table.h"

using namespace ycct;
using namespace nmqt;

namespace {

bool is16(L l) { return l == L::B565 || l == L::B555; }
bool keeps_alpha(L l) { return l == L::RGBA4k || l == L::BGRA4k || l == L::Y4; }
int px_bytes(L l) {
    switch (l) {
        case L::RGB3: case L::BGR3: case L::Y3: return 3;
        case L::RGBA4k: case L::BGRA4k: case L::RGBA4w: case L::BGRA4w: case L::Y4: return 4;
        default: return 1;
    }
}
bool is_array(L l) { return l == L::RGBP || l == L::YP || l == L::P422 || l == L::P420 || l == L::P420CrCb || l == L::P411; }

struct Images {
    std::vector<Plane> src, dst;
    Img s, d;
};

Images make(const Export& e, Shape sh, Rng& rng, bool page_guard) {
    Images im;
    // Packed 16-bit rows need even steps and aligned words.
    const int pad = is16(e.src) ? sh.pad & ~1 : sh.pad, mis = is16(e.src) ? sh.misalign & ~1 : sh.misalign;
    for (Geo g : geometry(e.src, sh.w, sh.h)) im.src.emplace_back(g.bytes, g.rows, pad, mis, 0, page_guard);
    for (Geo g : geometry(e.dst, sh.w, sh.h)) im.dst.emplace_back(g.bytes, g.rows, sh.pad, sh.misalign, 16);
    for (auto& p : im.src) p.randomize(rng);
    for (auto& p : im.dst) p.randomize(rng);
    for (size_t i = 0; i < im.src.size(); ++i) { im.s.p[i] = im.src[i].ptr(); im.s.step[i] = im.src[i].step; }
    for (size_t i = 0; i < im.dst.size(); ++i) { im.d.p[i] = im.dst[i].ptr(); im.d.step[i] = im.dst[i].step; }
    return im;
}

NmqStatus expected_status(const Export& e, int w, int h) {
    switch (e.odd) {
        case OddRule::WidthOrHeight: return (w | h) & 1 ? nmqStsOddSize : nmqStsOk;
        case OddRule::Width: return w & 1 ? nmqStsOddSize : nmqStsOk;
        case OddRule::Width4: return w & 3 ? nmqStsOddSize : nmqStsOk;
        default: return nmqStsOk;
    }
}

bool all_untouched(const std::vector<Plane>& ps) {
    return std::all_of(ps.begin(), ps.end(), [](const Plane& p) { return p.untouched(); });
}

std::string cmp(const char* what, const std::vector<int>& want, const std::vector<int>& got, int w) {
    for (size_t i = 0; i < want.size(); ++i)
        if (want[i] >= 0 && got[i] >= 0 && want[i] != got[i])
            return std::string(what) + " at x " + std::to_string(i % w) + " y " + std::to_string(i / w) + ": want " +
                   std::to_string(want[i]) + " got " + std::to_string(got[i]);
    return "";
}

// Converted values against the reference; "" when they agree.
std::string check_values(const Export& e, const std::vector<Plane>& src, const std::vector<Plane>& dst, int w, int h) {
    std::string s;
    if (is_rgb(e.src)) {
        const Ycc want = ref_forward(e.m, e.dst, decode_rgb(e.src, src, w, h)), got = decode_ycc(e.dst, dst, w, h);
        const int cw = std::max(1, want.cw);
        for (auto c : {std::make_tuple("Y", &want.y, &got.y, w), std::make_tuple("Cb", &want.cb, &got.cb, cw),
                       std::make_tuple("Cr", &want.cr, &got.cr, cw)})
            if (s.empty()) s = cmp(std::get<0>(c), *std::get<1>(c), *std::get<2>(c), std::get<3>(c));
        return s;
    }
    const Ycc in = decode_ycc(e.src, src, w, h);
    const Rgb want = e.name.find("_Filter") != std::string::npos ? ref_filter(in) : ref_inverse(e.m, e.src, in);
    const Rgb got = decode_rgb(e.dst, dst, w, h);
    const bool alpha = e.dst == L::RGBA4w || e.dst == L::BGRA4w;  // written as 0xFF
    for (auto c : {std::make_tuple("R", &want.r, &got.r), std::make_tuple("G", &want.g, &got.g),
                   std::make_tuple("B", &want.b, &got.b), std::make_tuple("alpha", alpha ? &want.a : &got.a, &got.a)})
        if (s.empty()) s = cmp(std::get<0>(c), *std::get<1>(c), *std::get<2>(c), w);
    return s;
}

// Bytes inside the ROI that must stay: kept alpha, the odd column and row of 4:2:0.
bool kept_bytes(const Export& e, const std::vector<Plane>& dst, int w, int h) {
    const int n = px_bytes(e.dst);
    const bool half = is420(e.src) || is420(e.dst);
    for (size_t i = 0; i < dst.size(); ++i) {
        const bool luma_or_rgb = i == 0;
        const bool ok = dst[i].kept([&](int xb, int y) {
            if (keeps_alpha(e.dst) && xb % 4 == 3) return true;
            return half && luma_or_rgb && (xb / n >= (w & ~1) || y >= (h & ~1));
        });
        if (!ok) return false;
    }
    return true;
}

}  // namespace

TEST(YCbCr, TableCoversEveryExport) { EXPECT_EQ(exports().size(), 85u); }

// Pointers first, then the size, then the planes inside pointer arrays (two
// functions test their planes with the pointers); an error writes nothing.
TEST(YCbCr, ArgumentChecksInOrder) {
    Rng rng(7);
    for (const Export& e : exports()) {
        SCOPED_TRACE(e.name);
        Images im = make(e, {6, 4, 3, 1}, rng, false);
        struct Case {
            const char* what;
            std::function<void(Img&, Img&)> spoil;
            ImageSize roi;
            NmqStatus want;
        };
        std::vector<Case> cases = {
            {"zero width", [](Img&, Img&) {}, {0, 4}, nmqStsSize},
            {"zero height", [](Img&, Img&) {}, {6, 0}, nmqStsSize},
            {"negative width", [](Img&, Img&) {}, {-3, 4}, nmqStsSize},
        };
        for (int side = 0; side < 2; ++side) {
            const L l = side ? e.dst : e.src;
            auto pick = [side](Img& s, Img& d) -> Img& { return side ? d : s; };
            const bool arr = is_array(l);
            if (arr)
                for (ImageSize r : {ImageSize{6, 4}, ImageSize{0, 4}})
                    cases.push_back({"null array", [=](Img& s, Img& d) { pick(s, d).null_array = true; }, r, nmqStsNullPtr});
            // A null plane inside an array is seen after the size (but for two functions).
            for (int k = 0; k < (arr ? 3 : l == L::NV || l == L::NVCrCb ? 2 : 1); ++k)
                for (ImageSize r : {ImageSize{6, 4}, ImageSize{arr ? 0 : 6, arr ? 4 : 0}})
                    cases.push_back({"null plane", [=](Img& s, Img& d) { pick(s, d).p[k] = nullptr; }, r,
                                     arr && r.width == 0 && !e.planes_first ? nmqStsSize : nmqStsNullPtr});
        }
        for (const Case& c : cases) {
            Img s = im.s, d = im.d;
            c.spoil(s, d);
            EXPECT_EQ(e.call(s, d, c.roi), c.want) << c.what;
            EXPECT_TRUE(all_untouched(im.dst)) << c.what;
        }
    }
}

// Every shape, every level: status, nothing written outside the ROI, the
// scalar bytes at every level, no kept byte written, values against the
// reference. (A failing export stops at its first failure; the others still run.)
static void sweep(const Export& e, const std::vector<Shape>& shapes, Rng& rng) {
    int k = 0;
    for (const Shape& sh : shapes) {
        SCOPED_TRACE(to_string(sh));
        Images im = make(e, sh, rng, (k++ % 3) == 0);
        std::vector<Plane*> dst;
        for (auto& p : im.dst) dst.push_back(&p);
        ASSERT_EQ(run_every_level(dst, [&] { return e.call(im.s, im.d, {sh.w, sh.h}); }, expected_status(e, sh.w, sh.h)),
                  "");
        ASSERT_TRUE(kept_bytes(e, im.dst, sh.w, sh.h));
        ASSERT_EQ(check_values(e, im.src, im.dst, sh.w, sh.h), "");
    }
}

TEST(YCbCr, EveryExportMatchesReferenceAtEveryLevel) {
    Rng rng(2024);
    const auto shapes = sweep_shapes(1, 1, 300);
    for (const Export& e : exports()) {
        SCOPED_TRACE(e.name);
        sweep(e, shapes, rng);
    }
}
