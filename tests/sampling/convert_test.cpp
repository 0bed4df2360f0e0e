// Every export against the reference model: argument checks, rounding versus
// rejection, and random images of many shapes at every SIMD level.
#include <cstring>
#include <functional>
#include <utility>

#include "model.h"

using namespace smpt;

namespace smpt {

#define P3P3(f) #f, [](const Io& io, ImageSize r) { return f(io.sa(), io.ss, io.da(), io.dsa(), r); }
#define C2P3(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.da(), io.dsa(), r); }
#define C2P2(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.d[0], io.ds[0], io.d[1], io.ds[1], r); }
#define P3P2(f) #f, [](const Io& io, ImageSize r) { return f(io.sa(), io.ss, io.d[0], io.ds[0], io.d[1], io.ds[1], r); }
#define P2P3(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.s[1], io.ss[1], io.da(), io.dsa(), r); }
#define P2C2(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.s[1], io.ss[1], io.d[0], io.ds[0], r); }
#define P3C2(f) #f, [](const Io& io, ImageSize r) { return f(io.sa(), io.ss, io.d[0], io.ds[0], r); }
#define C2C2(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.d[0], io.ds[0], r); }

const std::vector<Member>& members() {
    using F = Fmt;
    using R = Rule;
    static const std::vector<Member> t = {
        {C2P3(nmqiYCbCr422ToYCbCr420_8u_C2P3R), F::C2_YCbCr, F::P3_420, R::VDec, Sz::E2E2, 0},
        {C2P2(nmqiYCbCr422ToYCbCr420_8u_C2P2R), F::C2_YCbCr, F::P2_420, R::VDec, Sz::E2E2, 0},
        {P3P3(nmqiYCbCr422ToYCbCr420_8u_P3R), F::P3_422, F::P3_420, R::VDec, Sz::E2E2, 0},
        {P3P2(nmqiYCbCr422ToYCbCr420_8u_P3P2R), F::P3_422, F::P2_420, R::VDec, Sz::E2E2, 0},
        {C2P3(nmqiYCrCb422ToYCbCr420_8u_C2P3R), F::C2_YCrCb, F::P3_420, R::VDec, Sz::E2E2, 0},
        {C2P3(nmqiYCbCr422ToYCrCb420_8u_C2P3R), F::C2_YCbCr, F::P3_420_CrCb, R::VDec, Sz::E2E2, 0},
        {C2P3(nmqiCbYCr422ToYCbCr420_8u_C2P3R), F::C2_CbYCr, F::P3_420, R::VDec, Sz::E2E2, 0},
        {C2P2(nmqiCbYCr422ToYCbCr420_8u_C2P2R), F::C2_CbYCr, F::P2_420, R::VDec, Sz::E2E2, 0},
        {C2P3(nmqiCbYCr422ToYCrCb420_8u_C2P3R), F::C2_CbYCr, F::P3_420_CrCb, R::VDec, Sz::E2E2, 0},
        {P3P3(nmqiYCbCr420ToYCbCr422_8u_P3R), F::P3_420, F::P3_422, R::VDup, Sz::E2E2, 0},
        {P2P3(nmqiYCbCr420ToYCbCr422_8u_P2P3R), F::P2_420, F::P3_422, R::VDup, Sz::E2E2, 0},
        {P3P3(nmqiYCrCb420ToYCbCr422_8u_P3R), F::P3_420_CrCb, F::P3_422, R::VDup, Sz::E2E2, 0},
        {P3C2(nmqiYCrCb420ToYCbCr422_8u_P3C2R), F::P3_420_CrCb, F::C2_YCbCr, R::VDup, Sz::E2E2, kArrayUnchecked},
        {P3C2(nmqiYCrCb420ToCbYCr422_8u_P3C2R), F::P3_420_CrCb, F::C2_CbYCr, R::VDup, Sz::E2E2, kArrayUnchecked},
        {P3P2(nmqiYCrCb420ToYCbCr420_8u_P3P2R), F::P3_420_CrCb, F::P2_420, R::Same, Sz::E2E2, 0},
        {P2P3(nmqiYCbCr420_8u_P2P3R), F::P2_420, F::P3_420, R::Same, Sz::E2E2, 0},
        {P3P2(nmqiYCbCr420_8u_P3P2R), F::P3_420, F::P2_420, R::Same, Sz::E2E2, 0},
        {P2P3(nmqiYCbCr420ToYCrCb420_8u_P2P3R), F::P2_420, F::P3_420_CrCb, R::Same, Sz::E2E2, kLatePlanes},
        {P2C2(nmqiYCbCr420ToYCbCr422_8u_P2C2R), F::P2_420, F::C2_YCbCr, R::VDup, Sz::E2E2, 0},
        {P2C2(nmqiYCbCr420ToCbYCr422_8u_P2C2R), F::P2_420, F::C2_CbYCr, R::VDup, Sz::E2E2, 0},
        {P3P3(nmqiYCbCr420ToYCbCr422_Filter_8u_P3R), F::P3_420, F::P3_422, R::VFilter, Sz::Filter, 0},
        {P2P3(nmqiYCbCr420ToYCbCr422_Filter_8u_P2P3R), F::P2_420, F::P3_422, R::VFilter, Sz::Filter, 0},
        {P3P3(nmqiYCrCb420ToYCbCr422_Filter_8u_P3R), F::P3_420_CrCb, F::P3_422, R::VFilter, Sz::Filter, 0},
        {P3P2(nmqiYCbCr420ToYCbCr411_8u_P3P2R), F::P3_420, F::P2_411, R::To411, Sz::Q4E2, 0},
        {P2P3(nmqiYCbCr420ToYCbCr411_8u_P2P3R), F::P2_420, F::P3_411, R::To411, Sz::Q4E2, 0},
        {P3P2(nmqiYCrCb420ToYCbCr411_8u_P3P2R), F::P3_420_CrCb, F::P2_411, R::To411, Sz::Q4E2, 0},
        {P3P3(nmqiYCbCr411ToYCbCr420_8u_P3R), F::P3_411, F::P3_420, R::From411, Sz::Q4E2, 0},
        {P3P2(nmqiYCbCr411ToYCbCr420_8u_P3P2R), F::P3_411, F::P2_420, R::From411, Sz::Q4E2, 0},
        {P2P3(nmqiYCbCr411ToYCbCr420_8u_P2P3R), F::P2_411, F::P3_420, R::From411, Sz::Q4E2, kArrayUnchecked},
        {P2P3(nmqiYCbCr411ToYCrCb420_8u_P2P3R), F::P2_411, F::P3_420_CrCb, R::From411, Sz::Q4E2, kArrayUnchecked},
        {C2P3(nmqiYCbCr422ToYCbCr411_8u_C2P3R), F::C2_YCbCr, F::P3_411, R::HDec, Sz::Q4H1, 0},
        {C2P3(nmqiCbYCr422ToYCbCr422_8u_C2P3R), F::C2_CbYCr, F::P3_422, R::Same, Sz::E2H1, 0},
        {P3P3(nmqiYCbCr422ToYCbCr411_8u_P3R), F::P3_422, F::P3_411, R::HDec, Sz::Q4Only, 0},
        {P3P2(nmqiYCbCr422ToYCbCr411_8u_P3P2R), F::P3_422, F::P2_411, R::HDec, Sz::Q4Only, 0},
        {C2P2(nmqiYCbCr422ToYCbCr411_8u_C2P2R), F::C2_YCbCr, F::P2_411, R::HDec, Sz::Q4Only, 0},
        {C2P3(nmqiYCrCb422ToYCbCr411_8u_C2P3R), F::C2_YCrCb, F::P3_411, R::HDec, Sz::Q4Only, 0},
        {C2P3(nmqiCbYCr422ToYCbCr411_8u_C2P3R), F::C2_CbYCr, F::P3_411, R::HDec, Sz::Q4Only, 0},
        {P3P3(nmqiYCbCr411ToYCbCr422_8u_P3R), F::P3_411, F::P3_422, R::HDup, Sz::Q4Only, 0},
        {P3C2(nmqiYCbCr411ToYCbCr422_8u_P3C2R), F::P3_411, F::C2_YCbCr, R::HDup, Sz::Q4Only, 0},
        {P2P3(nmqiYCbCr411ToYCbCr422_8u_P2P3R), F::P2_411, F::P3_422, R::HDup, Sz::Q4Only, 0},
        {P2C2(nmqiYCbCr411ToYCbCr422_8u_P2C2R), F::P2_411, F::C2_YCbCr, R::HDup, Sz::Q4Only, 0},
        {P3P3(nmqiYCbCr411ToYCrCb422_8u_P3R), F::P3_411, F::P3_422_CrCb, R::HDup, Sz::Q4Only, 0},
        {P3C2(nmqiYCbCr411ToYCrCb422_8u_P3C2R), F::P3_411, F::C2_YCrCb, R::HDup, Sz::Q4Only, 0},
        {P3P2(nmqiYCbCr411_8u_P3P2R), F::P3_411, F::P2_411, R::Same, Sz::Q4Only, 0},
        {P2P3(nmqiYCbCr411_8u_P2P3R), F::P2_411, F::P3_411, R::Same, Sz::Q4Only, kArrayUnchecked},
        {C2C2(nmqiYCbCr422ToYCrCb422_8u_C2R), F::C2_YCbCr, F::C2_YCrCb, R::Same, Sz::E2Only, 0},
        {P3C2(nmqiYCbCr422ToYCrCb422_8u_P3C2R), F::P3_422, F::C2_YCrCb, R::Same, Sz::E2Only, 0},
        {C2C2(nmqiYCbCr422ToCbYCr422_8u_C2R), F::C2_YCbCr, F::C2_CbYCr, R::Same, Sz::E2H1, 0},
        {C2C2(nmqiCbYCr422ToYCbCr422_8u_C2R), F::C2_CbYCr, F::C2_YCbCr, R::Same, Sz::E2H1, 0},
        {C2P3(nmqiYCbCr422_8u_C2P3R), F::C2_YCbCr, F::P3_422, R::Same, Sz::E2H1, kStepArrayChecked},
        {P3C2(nmqiYCbCr422_8u_P3C2R), F::P3_422, F::C2_YCbCr, R::Same, Sz::E2H1, 0},
        {C2P3(nmqiYCrCb422ToYCbCr422_8u_C2P3R), F::C2_YCrCb, F::P3_422, R::Same, Sz::E2H1, 0},
        {P3C2(nmqiYCbCr422ToCbYCr422_8u_P3C2R), F::P3_422, F::C2_CbYCr, R::Same, Sz::E2H1, 0},
        {P3P3(nmqiYCbCr1620To420_8u_P3R), F::P3_1620, F::P3_420, R::Up1620, Sz::Strict4, 0},
        {P3P3(nmqiYCbCr420To1620_8u_P3R), F::P3_420, F::P3_1620, R::Down1620, Sz::Strict4, 0},
        {P3P3(nmqiYCbCr411To420_8u_P3R), F::P3_411, F::P3_420, R::Avg411To420, Sz::Strict4, 0},
        {P3P3(nmqiYCbCr420To411_8u_P3R), F::P3_420, F::P3_411, R::Avg420To411, Sz::Strict4E2, 0},
    };
    return t;
}

const Member& member(const char* name) {
    for (const Member& m : members())
        if (std::strcmp(m.name, name) == 0) return m;
    ADD_FAILURE() << "no member " << name;
    return members()[0];
}

}  // namespace smpt

namespace {

class Each : public ::testing::TestWithParam<size_t> {};

std::string member_name(const ::testing::TestParamInfo<size_t>& i) { return members()[i.param].name + 4; }

// ---- pointer checks ------------------------------------------------------------------

// The pointers a member tests, each as a way to spoil the arguments (true for
// destination planes): each plane pointer, the array pointers unless the
// member reads them untested, and the step array where it is tested.
std::vector<std::pair<std::function<void(Io&)>, bool>> checked(const Member& m) {
    std::vector<std::pair<std::function<void(Io&)>, bool>> v;
    const bool arrays = !(m.flags & kArrayUnchecked);
    if (is_p3(m.src) && arrays) v.push_back({[](Io& io) { io.nullSrcArray = true; }, false});
    for (int i = 0; i < plane_count(m.src); ++i) v.push_back({[i](Io& io) { io.s[i] = nullptr; }, false});
    if (is_p3(m.dst) && arrays) v.push_back({[](Io& io) { io.nullDstArray = true; }, false});
    for (int i = 0; i < plane_count(m.dst); ++i) v.push_back({[i](Io& io) { io.d[i] = nullptr; }, true});
    if (m.flags & kStepArrayChecked) v.push_back({[](Io& io) { io.nullDstSteps = true; }, false});
    return v;
}

TEST_P(Each, NullPointersComeFirstAndWriteNothing) {
    const Member& m = members()[GetParam()];
    nmqt::Rng rng(7);
    std::vector<nmqt::Plane> src, dst;
    for (int i = 0; i < plane_count(m.src); ++i) src.emplace_back(64, 16, 0, 0, 0);
    for (int i = 0; i < plane_count(m.dst); ++i) dst.emplace_back(64, 16, 0, 0, 16);
    for (auto& p : src) p.randomize(rng);
    for (auto& p : dst) p.randomize(rng);
    int k = 0;
    for (const auto& [spoil, dst_plane] : checked(m)) {
        // A valid ROI, then a ROI of width 0: the pointer is reported either
        // way, except destination planes tested after the ROI.
        for (ImageSize roi : {ImageSize{8, 8}, ImageSize{0, 8}}) {
            Io io;
            for (size_t i = 0; i < src.size(); ++i) { io.s[i] = src[i].ptr(); io.ss[i] = src[i].step; }
            for (size_t i = 0; i < dst.size(); ++i) { io.d[i] = dst[i].ptr(); io.ds[i] = dst[i].step; }
            spoil(io);
            const bool late = dst_plane && (m.flags & kLatePlanes) && roi.width < 1;
            EXPECT_EQ(m.call(io, roi), late ? nmqStsSize : nmqStsNullPtr) << "pointer " << k << " roi w " << roi.width;
            for (auto& p : dst) EXPECT_TRUE(p.untouched());
        }
        ++k;
    }
}

// ---- sizes ---------------------------------------------------------------------------------

// Each member either refuses a size (and writes nothing) or rounds it down
// silently, writing exactly the rounded ROI; members that do not test the
// height convert nothing for a height below 1.
TEST_P(Each, RoundsOrRejectsSizes) {
    const Member& m = members()[GetParam()];
    const ImageSize sizes[] = {{0, 8},  {8, 0},  {-3, 8}, {8, -2}, {1, 1},  {1, 8},  {2, 1},  {2, 2},
                               {3, 2},  {3, 3},  {4, 1},  {4, 2},  {5, 3},  {6, 4},  {6, 6},  {7, 9},
                               {8, 4},  {8, 7},  {8, 8},  {9, 15}, {12, 16}, {2, 8}, {4, 12}, {6, 17}};
    for (ImageSize s : sizes) {
        const std::string r = run_case(m, s.width, s.height, 3, 1, false, uint32_t(s.width * 97 + s.height));
        EXPECT_EQ(r, "");
    }
}

// ---- random images, every SIMD level ----------------------------------------------------

TEST_P(Each, MatchesReferenceAtEveryLevel) {
    const Member& m = members()[GetParam()];
    std::vector<nmqt::Shape> shapes = nmqt::sweep_shapes(1, 1, 1031);
    // Taller shapes for the filter (heights 8..24) and multiples of 4 for the plane functions.
    for (nmqt::Shape s : {nmqt::Shape{36, 15, 3, 1}, {100, 12, 0, 5}, {68, 20, 16, 0}, {132, 24, 1, 2},
                          {260, 8, 0, 3}, {4, 8, 0, 0}, {6, 9, 2, 7}, {64, 16, 0, 0}, {196, 12, 5, 4},
                          {516, 4, 0, 9}, {1028, 8, 2, 0}, {2, 8, 0, 1}})
        shapes.push_back(s);
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        int k = 0;
        for (const nmqt::Shape& s : shapes) {
            const std::string r = run_case(m, s.w, s.h, s.pad, s.misalign, k % 4 == 1, uint32_t(1000 + k));
            ++k;
            ASSERT_EQ(r, "") << "level " << nmqt::isa_name(level);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sampling, Each, ::testing::Range<size_t>(0, members().size()), member_name);

TEST(Sampling, TableCoversEveryExportOnce) {
    EXPECT_EQ(members().size(), 57u);
    for (size_t i = 0; i < members().size(); ++i)
        for (size_t j = i + 1; j < members().size(); ++j) EXPECT_STRNE(members()[i].name, members()[j].name);
}

}  // namespace
