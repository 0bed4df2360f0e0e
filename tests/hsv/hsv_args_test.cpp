// Argument checks of every HSV/HLS export: which pointer, size or step is
// bad, and the status each check order gives. An error writes nothing.
#include "hsv/hsv_image.h"

using namespace hsvt;

namespace {

constexpr int kRun = 1000;  // the call goes through: not an error case for this order

struct Case {
    const char* what;
    bool null_src, null_dst;
    int w, h, src_step, dst_step;  // a step of 1000 means "the image's own step"
    int by_order[3];               // PtrSize, PtrStepSize, PtrSizeStep
};

const Case kCases[] = {
    {"null source", true, false, 4, 2, kRun, kRun, {-8, -8, -8}},
    {"null destination", false, true, 4, 2, kRun, kRun, {-8, -8, -8}},
    {"null source and zero width", true, false, 0, 2, kRun, kRun, {-8, -8, -8}},
    {"null destination and bad step", false, true, 4, 2, 0, kRun, {-8, -8, -8}},
    {"zero width", false, false, 0, 2, kRun, kRun, {-6, -6, -6}},
    {"zero height", false, false, 4, 0, kRun, kRun, {-6, -6, -6}},
    {"negative width", false, false, -1, 2, kRun, kRun, {-6, -6, -6}},
    {"zero source step", false, false, 4, 2, 0, kRun, {kRun, -14, -14}},
    {"negative destination step", false, false, 4, 2, kRun, -4, {kRun, -14, -14}},
    {"negative step and zero width", false, false, 0, 2, -1, kRun, {-6, -14, -6}},
    {"zero step and zero height", false, false, 4, 0, kRun, 0, {-6, -14, -6}},
};

struct Images {
    SideImage src, dst;
    explicit Images(const Export& e)
        : src(e.src, e.type, {4, 2, 0, 0}, 0), dst(e.dst, e.type, {4, 2, 0, 0}, 8) {
        nmqt::Rng rng;
        src.fill(rng);
        dst.fill(rng);
    }
};

}  // namespace

TEST(HsvArgs, ChecksAndTheirOrder) {
    for (const Export& e : exports()) {
        for (const Case& c : kCases) {
            const int want = c.by_order[int(e.checks)];
            if (want == kRun) continue;
            Images im(e);
            std::vector<const uint8_t*> s = im.src.cptr;
            std::vector<uint8_t*> d = im.dst.ptr;
            if (c.null_src) s[0] = nullptr;
            if (c.null_dst) d[0] = nullptr;
            const int ss = c.src_step == kRun ? im.src.step() : c.src_step;
            const int ds = c.dst_step == kRun ? im.dst.step() : c.dst_step;
            EXPECT_EQ(want, e.call(s.data(), ss, d.data(), ds, {c.w, c.h})) << e.name << ": " << c.what;
            EXPECT_TRUE(im.dst.untouched()) << e.name << ": " << c.what;
        }
    }
}

// Planar sides: a null array or any null plane is reported before the steps
// and the size.
TEST(HsvArgs, NullPlanes) {
    for (const Export& e : exports()) {
        for (int side = 0; side < 2; ++side) {
            const int n = side == 0 ? e.src.planes : e.dst.planes;
            if (n == 1) continue;
            for (int k = -1; k < n; ++k) {
                for (ImageSize roi : {ImageSize{4, 2}, ImageSize{0, 2}}) {
                    Images im(e);
                    std::vector<const uint8_t*> s = im.src.cptr;
                    std::vector<uint8_t*> d = im.dst.ptr;
                    if (side == 0 && k >= 0) s[size_t(k)] = nullptr;
                    if (side == 1 && k >= 0) d[size_t(k)] = nullptr;
                    const uint8_t* const* sp = side == 0 && k < 0 ? nullptr : s.data();
                    uint8_t* const* dp = side == 1 && k < 0 ? nullptr : d.data();
                    EXPECT_EQ(nmqStsNullPtr, e.call(sp, 0, dp, im.dst.step(), roi))
                        << e.name << " side " << side << " plane " << k << " width " << roi.width;
                    EXPECT_TRUE(im.dst.untouched()) << e.name;
                }
            }
        }
    }
}
