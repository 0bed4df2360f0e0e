// Every packed 16-bit export: argument checks, and a sweep of image shapes at
// every SIMD level against the reference, with guard bytes around every
// destination and exact source allocations.
#include "packed16/packed16_table.h"
#include "support/sweep.h"

using namespace p16t;
using namespace nmqt;

namespace {

bool words(L l) { return l == L::Words; }
bool is_array(L l) { return l == L::YP || l == L::P422 || l == L::P420 || l == L::P411 || l == L::P420CrCb; }
bool has_steps(L l) { return l == L::P422 || l == L::P420 || l == L::P411 || l == L::P420CrCb; }

struct Images {
    std::vector<Plane> src, dst;
    Img s, d;
};

Images make(const Export& e, Shape sh, Rng& rng, bool page_guard) {
    Images im;
    // 16-bit rows: even steps and aligned words, as the element step truncates.
    const auto pad = [&](L l) { return words(l) ? sh.pad & ~1 : sh.pad; };
    const auto mis = [&](L l) { return words(l) ? sh.misalign & ~1 : sh.misalign; };
    for (Geo g : geometry(e.src, sh.w, sh.h)) im.src.emplace_back(g.bytes, g.rows, pad(e.src), mis(e.src), 0, page_guard);
    for (Geo g : geometry(e.dst, sh.w, sh.h)) im.dst.emplace_back(g.bytes, g.rows, pad(e.dst), mis(e.dst), 16);
    for (auto& p : im.src) p.randomize(rng);
    for (auto& p : im.dst) p.randomize(rng);
    for (size_t i = 0; i < im.src.size(); ++i) im.s.p[i] = im.src[i].ptr(), im.s.step[i] = im.src[i].step;
    for (size_t i = 0; i < im.dst.size(); ++i) im.d.p[i] = im.dst[i].ptr(), im.d.step[i] = im.dst[i].step;
    return im;
}

bool half(const Export& e) { return e.src == L::P420 || e.dst == L::P420CrCb; }

NmqStatus expected_status(const Export& e, int w, int h) {
    return half(e) && ((w | h) & 1) ? nmqStsOddSize : nmqStsOk;
}

// The destination against the reference: "" when every byte agrees and every
// byte marked -1 kept its value.
std::string check(const Export& e, const std::vector<Plane>& src, const std::vector<Plane>& dst, int w, int h) {
    const auto want = reference(e, src, w, h);
    for (size_t i = 0; i < dst.size(); ++i) {
        const std::vector<uint8_t> got = dst[i].roi();
        const int rb = dst[i].row_bytes;
        for (size_t k = 0; k < got.size(); ++k)
            if (want[i][k] >= 0 && want[i][k] != got[k])
                return "plane " + std::to_string(i) + " byte " + std::to_string(k % rb) + " row " + std::to_string(k / rb) +
                       ": want " + std::to_string(want[i][k]) + " got " + std::to_string(got[k]);
        if (!dst[i].kept([&](int xb, int y) { return want[i][size_t(y) * rb + xb] < 0; }))
            return "plane " + std::to_string(i) + ": a byte outside the converted part changed";
    }
    return "";
}

}  // namespace

TEST(Packed16, TableCoversEveryExport) { EXPECT_EQ(exports().size(), 80u); }

// Pointers (and step arrays) first, then the size, then the planes inside
// pointer arrays; an error writes nothing.
TEST(Packed16, ArgumentChecksInOrder) {
    Rng rng(7);
    for (const Export& e : exports()) {
        SCOPED_TRACE(e.name);
        Images im = make(e, {6, 4, 4, 2}, rng, false);
        struct Case {
            const char* what;
            std::function<void(Img&, Img&)> spoil;
            ImageSize roi;
            NmqStatus want;
        };
        std::vector<Case> cases = {
            {"zero width", [](Img&, Img&) {}, {0, 4}, nmqStsSize},
            {"zero height", [](Img&, Img&) {}, {6, 0}, nmqStsSize},
            {"negative height", [](Img&, Img&) {}, {6, -2}, nmqStsSize},
        };
        for (int side = 0; side < 2; ++side) {
            const L l = side ? e.dst : e.src;
            auto img = [side](Img& s, Img& d) -> Img& { return side ? d : s; };
            if (is_array(l)) {
                cases.push_back({"null array, zero width", [=](Img& s, Img& d) { img(s, d).null_array = true; }, {0, 4}, nmqStsNullPtr});
                for (int k = 0; k < 3; ++k) {
                    cases.push_back({"null plane", [=](Img& s, Img& d) { img(s, d).p[k] = nullptr; }, {6, 4}, nmqStsNullPtr});
                    cases.push_back({"null plane, zero width", [=](Img& s, Img& d) { img(s, d).p[k] = nullptr; }, {0, 4}, nmqStsSize});
                }
            } else {
                cases.push_back({"null pointer", [=](Img& s, Img& d) { img(s, d).p[0] = nullptr; }, {6, 4}, nmqStsNullPtr});
                cases.push_back({"null pointer, zero height", [=](Img& s, Img& d) { img(s, d).p[0] = nullptr; }, {6, 0}, nmqStsNullPtr});
            }
            if (has_steps(l))
                cases.push_back({"null steps, zero width", [=](Img& s, Img& d) { img(s, d).null_steps = true; }, {0, 4}, nmqStsNullPtr});
        }
        for (const Case& c : cases) {
            SCOPED_TRACE(c.what);
            Img s = im.s, d = im.d;
            c.spoil(s, d);
            for (auto& p : im.dst) p.snapshot();
            EXPECT_EQ(e.call(s, d, c.roi), c.want);
            for (auto& p : im.dst) EXPECT_TRUE(p.untouched());
        }
    }
}

// Every shape of the sweep (and rows that end around a multiple of 256
// pixels) at every level against the reference; sources are exact
// allocations, ending against a protected page for some shapes.
TEST(Packed16, SweepMatchesReferenceAtEveryLevel) {
    std::vector<Shape> shapes = sweep_shapes(1, 1, 1031);
    for (Shape s : {Shape{258, 2, 6, 3}, Shape{513, 3, 2, 1}, Shape{514, 2, 0, 0}, Shape{769, 1, 0, 4}}) shapes.push_back(s);
    Rng rng(2024);
    int n = 0;
    for (const Export& e : exports()) {
        SCOPED_TRACE(e.name);
        for (const Shape& sh : shapes) {
            if (sh.w > 300 && (++n % 3)) continue;  // the widest shapes for a third of the exports each
            Images im = make(e, sh, rng, (sh.w & 3) == 1);
            std::vector<Plane*> dst;
            for (auto& p : im.dst) dst.push_back(&p);
            ASSERT_EQ(run_every_level(dst, [&] { return e.call(im.s, im.d, {sh.w, sh.h}); }, expected_status(e, sh.w, sh.h)),
                      "")
                << to_string(sh);
            ASSERT_EQ(check(e, im.src, im.dst, sh.w, sh.h), "") << to_string(sh);
        }
    }
}
