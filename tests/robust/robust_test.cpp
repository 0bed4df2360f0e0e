// Hostile use of every export in the table: bad sizes and null pointers give
// the exact error and write nothing; bottom-up images (negative steps, the
// pointer at the last row) give the same pixels as top-down ones; a failing
// scratch allocation gives nmqStsNoMemory, leaks nothing and writes nothing.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <set>
#include <string>

#include "frame/helpers.h"
#include "harness.h"

namespace {

using nmqf::Args;
using nmqf::Case;
using nmqf::Export;
using nmqf::StepChoice;
using nmqf::StepMode;

// Arguments every export accepts: a mid-sized odd image, 16 levels without
// dithering, an identity twist, the standard weights, a rectangle inside the image.
Args valid_args(const Export& e, int w = 37, int h = 9) {
    Args a;
    a.roi = {w, h};
    a.full = {w + 5, h + 4};
    a.rect = {3, 1, w, h};
    a.levels = 16;
    a.bitoff = 3;
    a.threshold = 128;
    a.grid = nmqBayerGRBG;
    for (int i = 0; i < 4; ++i) a.tw[i][i] = 1.f;
    a.co[0] = 0.299f; a.co[1] = 0.587f; a.co[2] = 0.114f;
    a.co64[0] = 0.299; a.co64[1] = 0.587; a.co64[2] = 0.114;
    a.aval = 200;
    // Sampling members that need whole 4-row groups or multiples of 4.
    if (std::strcmp(e.family, "sampling") == 0 || std::strcmp(e.family, "interlace") == 0) a.roi = {w + 3, 16};
    return a;
}

struct Steps {
    StepChoice src[4], dst[4];
    explicit Steps(StepMode m, int extra = 5) {
        for (int k = 0; k < 4; ++k) src[k] = dst[k] = StepChoice{m, extra};
    }
};

nmqf::Fill fill_of(uint32_t seed) {
    nmqf::Fill f;
    f.seed = seed;
    f.float_mode = 1;
    return f;
}

bool has_steps(const Export& e) {
    return e.src_pass != nmqf::Pass::SingleNoStep && e.src_pass != nmqf::Pass::ArrayNoStep &&
           e.dst_pass != nmqf::Pass::SingleNoStep && e.dst_pass != nmqf::Pass::ArrayNoStep;
}

TEST(Robust, TableDescribesEveryDeclaredExport) {
    EXPECT_TRUE(nmqf::undescribed().empty()) << nmqf::undescribed().front();
    EXPECT_GE(nmqf::exports().size(), 500u);
}

// Each case: what is wrong and the status every export must return for it.
struct Hostile {
    const char* what;
    int null_pos;        // Case::set_null position, -1 none
    int w, h;            // ROI (or source size of the rectangle forms)
    NmqStatus expect;
};

TEST(Robust, BadArgumentsGiveTheirStatusAndWriteNothing) {
    const Hostile cases[] = {
        {"null source", 0, 37, 9, nmqStsNullPtr},
        {"null destination", 1, 37, 9, nmqStsNullPtr},
        {"null source, zero width", 0, 0, 9, nmqStsNullPtr},
        {"null destination, negative height", 1, 37, -3, nmqStsNullPtr},
        {"null second source plane", 3, 37, 9, nmqStsNullPtr},
        {"null third destination plane", 8, 37, 9, nmqStsNullPtr},
        {"zero width", -1, 0, 9, nmqStsSize},
        {"negative width", -1, -1, 9, nmqStsSize},
        {"most negative width", -1, INT_MIN, 9, nmqStsSize},
        {"zero height", -1, 37, 0, nmqStsSize},
        {"most negative height", -1, 37, INT_MIN, nmqStsSize},
    };
    for (const Export* e : nmqf::exports()) {
        for (const Hostile& hc : cases) {
            Args a = valid_args(*e);
            const bool rect = e->params & nmqf::kRect;
            if (rect) a.full = {hc.w, hc.h}; else a.roi = {hc.w, hc.h};
            // Height-free members take a bad height as an empty image.
            const bool height_free = !rect && (((e->flags & nmqf::kHeightUnchecked) && hc.h < 1) ||
                                               (e->flags & nmqf::kSizeUnchecked));
            Steps st(StepMode::Padded);
            Case c(*e, a, st.src, st.dst, fill_of(7));
            if (hc.null_pos >= 0 && !c.set_null(hc.null_pos)) continue;
            const std::string err = c.run();
            EXPECT_EQ(err, "") << c.describe() << " [" << hc.what << "]";
            if (height_free && hc.null_pos < 0) continue;
            EXPECT_EQ(c.status(), hc.expect) << e->name << " [" << hc.what << "]";
        }
    }
}

TEST(Robust, BottomUpImagesMatchTopDown) {
    int compared = 0;
    std::set<std::string> families;
    for (const Export* e : nmqf::exports()) {
        // Families that reject steps below 1 cannot take bottom-up images.
        if (!has_steps(*e) || nmqf::checks_steps(*e)) continue;
        for (int w : {1, 17, 38}) {
            Args a = valid_args(*e, w, 7);
            Steps down(StepMode::Padded, 4), up(StepMode::Negative, 5);   // the same |step|
            Case td(*e, a, down.src, down.dst, fill_of(1));
            Case bu(*e, a, up.src, up.dst, fill_of(1));
            td.paint(99);
            bu.paint(99);
            ASSERT_EQ(td.run(), "") << td.describe();
            ASSERT_EQ(bu.run(), "") << bu.describe();
            EXPECT_EQ(td.status(), bu.status()) << e->name;
            EXPECT_TRUE(td.dst_image() == bu.dst_image()) << bu.describe() << ": bottom-up pixels differ";
            ++compared;
        }
        families.insert(e->family);
    }
    EXPECT_GT(compared, 1000);
    EXPECT_GE(families.size(), 12u);
}

// Parameter sets that make allocating members allocate.
std::vector<Args> alloc_variants(const Export& e) {
    std::vector<Args> v;
    if (e.params & nmqf::kLevels) {
        for (int dtype = 0; dtype <= 4; ++dtype)
            for (int noise : {0, 40}) {
                Args a = valid_args(e);
                a.dtype = dtype;
                a.noise = noise;
                v.push_back(a);
            }
    } else if (e.params & nmqf::kBitOff) {
        for (int dtype : {DitherKindNone, DitherKindStucki}) {
            Args a = valid_args(e);
            a.dtype = dtype;
            v.push_back(a);
        }
    } else {
        v.push_back(valid_args(e));
        v.push_back(valid_args(e, 180, 140));   // above the table threshold of the 16u gamma
    }
    return v;
}

TEST(Robust, FailingScratchAllocationGivesNoMemoryAndWritesNothing) {
    std::set<std::string> failing;
    for (const Export* e : nmqf::exports()) {
        for (const Args& a : alloc_variants(*e)) {
            // Fail the 1st, 2nd, ... allocation of the call until it no longer reaches it.
            for (int n = 1; n <= 6; ++n) {
                Steps st(StepMode::Padded, 3);
                Case c(*e, a, st.src, st.dst, fill_of(5));
                nmq::test_fail_alloc_after(n);
                const std::string err = c.run();
                nmq::test_fail_alloc_after(0);
                EXPECT_EQ(err, "") << c.describe() << " (allocation " << n << " fails)";
                if (c.status() != nmqStsNoMemory) break;
                failing.insert(e->name);
            }
        }
    }
    // The members known to take scratch memory.
    for (const char* name : {"nmqiGammaFwd_16u_C3R", "nmqiGammaInv_16u_AC4IR", "nmqiGammaFwd_16u_IP3R",
                             "nmqiReduceBits_8u_C1R", "nmqiReduceBits_16u8u_C3R", "nmqiReduceBits_32f16s_AC4R",
                             "nmqiReduceBits_8u1u_C1R", "nmqiDemosaicAHD_8u_C1C3R", "nmqiDemosaicAHD_16u_C1C3R"}) {
        if (!nmqf::find_export(name)) continue;   // not built yet
        EXPECT_TRUE(failing.count(name)) << name << " never reported nmqStsNoMemory";
    }
    std::string all;
    for (const std::string& s : failing) all += " " + s;
    RecordProperty("allocating", all);
}

}  // namespace
