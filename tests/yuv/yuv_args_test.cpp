// Argument checks of every export: null pointers (image, pointer array, step
// array) first, then the ROI, then the planes inside the arrays; an error
// leaves every destination byte as it was.
#include <cstring>
#include <functional>
#include <vector>

#include "support/harness.h"

namespace {

// One export behind a common signature. s/d are pointer arrays (an
// interleaved image uses entry 0); null s or d stands for a null argument.
using Fn = std::function<NmqStatus(const Nmq8u* const* s, const int* ss, Nmq8u* const* d, int* ds, ImageSize)>;
struct Api {
    const char* name;
    int ns, nd;             // planes in the source and destination arrays (1: a single pointer)
    bool sarr, darr;        // takes a step array
    Fn f;
};

#define S0 (s ? s[0] : nullptr)
#define D0 (d ? d[0] : nullptr)
#define W0 reinterpret_cast<const Nmq16u*>(S0)
#define F(expr) [](const Nmq8u* const* s, const int* ss, Nmq8u* const* d, int* ds, ImageSize r) { return expr; }

const Api kApis[] = {
    {"RGBToYUV_C3R", 1, 1, false, false, F(nmqiRGBToYUV_8u_C3R(S0, 12, D0, 12, r))},
    {"RGBToYUV_AC4R", 1, 1, false, false, F(nmqiRGBToYUV_8u_AC4R(S0, 16, D0, 16, r))},
    {"RGBToYUV_P3R", 3, 3, false, false, F(nmqiRGBToYUV_8u_P3R(s, 4, d, 4, r))},
    {"RGBToYUV_C3P3R", 1, 3, false, false, F(nmqiRGBToYUV_8u_C3P3R(S0, 12, d, 4, r))},
    {"RGBToYUV_AC4P4R", 1, 4, false, false, F(nmqiRGBToYUV_8u_AC4P4R(S0, 16, d, 4, r))},
    {"YUVToRGB_C3R", 1, 1, false, false, F(nmqiYUVToRGB_8u_C3R(S0, 12, D0, 12, r))},
    {"YUVToRGB_AC4R", 1, 1, false, false, F(nmqiYUVToRGB_8u_AC4R(S0, 16, D0, 16, r))},
    {"YUVToRGB_C3C4R", 1, 1, false, false, F(nmqiYUVToRGB_8u_C3C4R(S0, 12, D0, 16, r, 9))},
    {"YUVToRGB_P3R", 3, 3, false, false, F(nmqiYUVToRGB_8u_P3R(s, 4, d, 4, r))},
    {"YUVToRGB_P3C3R", 3, 1, false, false, F(nmqiYUVToRGB_8u_P3C3R(s, 4, D0, 12, r))},
    {"RGBToYUV422_C3C2R", 1, 1, false, false, F(nmqiRGBToYUV422_8u_C3C2R(S0, 12, D0, 8, r))},
    {"RGBToYUV422_C3P3R", 1, 3, false, true, F(nmqiRGBToYUV422_8u_C3P3R(S0, 12, d, ds, r))},
    {"RGBToYUV422_P3R", 3, 3, false, true, F(nmqiRGBToYUV422_8u_P3R(s, 4, d, ds, r))},
    {"RGBToYUV422_P3", 3, 3, false, false, F(nmqiRGBToYUV422_8u_P3(s, d, r))},
    {"RGBToYUV422_C3P3", 1, 3, false, false, F(nmqiRGBToYUV422_8u_C3P3(S0, d, r))},
    {"RGB565ToYUV422", 1, 3, false, true, F(nmqiRGB565ToYUV422_16u8u_C3P3R(W0, 8, d, ds, r))},
    {"YUV422ToRGB_C2C3R", 1, 1, false, false, F(nmqiYUV422ToRGB_8u_C2C3R(S0, 8, D0, 12, r))},
    {"YUV422ToRGB_P3R", 3, 3, true, false, F(nmqiYUV422ToRGB_8u_P3R(s, ss, d, 4, r))},
    {"YUV422ToRGB_P3C3R", 3, 1, true, false, F(nmqiYUV422ToRGB_8u_P3C3R(s, ss, D0, 12, r))},
    {"YUV422ToRGB_P3AC4R", 3, 1, true, false, F(nmqiYUV422ToRGB_8u_P3AC4R(s, ss, D0, 16, r))},
    {"YUV422ToRGB_P3", 3, 3, false, false, F(nmqiYUV422ToRGB_8u_P3(s, d, r))},
    {"YUV422ToRGB_P3C3", 3, 1, false, false, F(nmqiYUV422ToRGB_8u_P3C3(s, D0, r))},
    {"RGBToYUV420_P3R", 3, 3, false, true, F(nmqiRGBToYUV420_8u_P3R(s, 4, d, ds, r))},
    {"RGBToYUV420_C3P3R", 1, 3, false, true, F(nmqiRGBToYUV420_8u_C3P3R(S0, 12, d, ds, r))},
    {"RGBToYUV420_P3", 3, 3, false, false, F(nmqiRGBToYUV420_8u_P3(s, d, r))},
    {"RGBToYUV420_C3P3", 1, 3, false, false, F(nmqiRGBToYUV420_8u_C3P3(S0, d, r))},
    {"BGRToYUV420_AC4P3R", 1, 3, false, true, F(nmqiBGRToYUV420_8u_AC4P3R(S0, 16, d, ds, r))},
    {"RGB565ToYUV420", 1, 3, false, true, F(nmqiRGB565ToYUV420_16u8u_C3P3R(W0, 8, d, ds, r))},
    {"BGR565ToYUV420", 1, 3, false, true, F(nmqiBGR565ToYUV420_16u8u_C3P3R(W0, 8, d, ds, r))},
    {"BGR555ToYUV420", 1, 3, false, true, F(nmqiBGR555ToYUV420_16u8u_C3P3R(W0, 8, d, ds, r))},
    {"YUV420ToRGB_P3R", 3, 3, true, false, F(nmqiYUV420ToRGB_8u_P3R(s, ss, d, 4, r))},
    {"YUV420ToRGB_P3C3R", 3, 1, true, false, F(nmqiYUV420ToRGB_8u_P3C3R(s, ss, D0, 12, r))},
    {"YUV420ToRGB_P3AC4R", 3, 1, true, false, F(nmqiYUV420ToRGB_8u_P3AC4R(s, ss, D0, 16, r))},
    {"YUV420ToRGB_P3", 3, 3, false, false, F(nmqiYUV420ToRGB_8u_P3(s, d, r))},
    {"YUV420ToRGB_P3C3", 3, 1, false, false, F(nmqiYUV420ToRGB_8u_P3C3(s, D0, r))},
    {"YUV420ToBGR_P3C3R", 3, 1, true, false, F(nmqiYUV420ToBGR_8u_P3C3R(s, ss, D0, 12, r))},
};

// What a case breaks, and the status it expects.
enum What { NullSrc, NullDst, NullSrcSteps, NullDstSteps, SrcPlane, DstPlane };
struct Check {
    What what;
    ImageSize roi;
    NmqStatus want;
};

const Check kChecks[] = {
    {NullSrc, {0, 0}, nmqStsNullPtr},      // pointers before the ROI
    {NullDst, {-1, 2}, nmqStsNullPtr},
    {NullSrcSteps, {0, 2}, nmqStsNullPtr},
    {NullDstSteps, {4, 0}, nmqStsNullPtr},
    {SrcPlane, {4, 2}, nmqStsNullPtr},
    {DstPlane, {4, 2}, nmqStsNullPtr},
    {SrcPlane, {0, 2}, nmqStsSize},        // planes after the ROI
    {DstPlane, {4, -3}, nmqStsSize},
    {SrcPlane, {-5, -5}, nmqStsSize},
};

TEST(YuvArgs, CheckOrderAndNothingWritten) {
    std::vector<Nmq8u> src(4 * 64, 0x80);
    std::vector<Nmq8u> dst(4 * 64, 0x3C);
    const std::vector<Nmq8u> before = dst;
    for (const Api& a : kApis) {
        for (const Check& c : kChecks) {
            const bool planes = c.what == SrcPlane || c.what == DstPlane;
            const int n = c.what == SrcPlane ? a.ns : a.nd;
            if ((c.what == NullSrcSteps && !a.sarr) || (c.what == NullDstSteps && !a.darr) || (planes && n == 1))
                continue;
            for (int k = 0; k < (planes ? n : 1); ++k) {
                const Nmq8u* s[4];
                Nmq8u* d[4];
                for (int i = 0; i < 4; ++i) s[i] = src.data() + 64 * i, d[i] = dst.data() + 64 * i;
                int ss[3] = {4, 2, 2}, ds[3] = {4, 2, 2};
                if (c.what == SrcPlane) s[k] = nullptr;
                if (c.what == DstPlane) d[k] = nullptr;
                const NmqStatus st = a.f(c.what == NullSrc ? nullptr : s, c.what == NullSrcSteps ? nullptr : ss,
                                         c.what == NullDst ? nullptr : d, c.what == NullDstSteps ? nullptr : ds, c.roi);
                EXPECT_EQ(st, c.want) << a.name << " case " << int(c.what) << " plane " << k << " roi " << c.roi.width
                                      << "x" << c.roi.height;
                ASSERT_EQ(dst, before) << a.name;
            }
        }
        // A valid call reaches the kernels: 4 x 2 is even in both directions.
        const Nmq8u* s[4] = {src.data(), src.data() + 64, src.data() + 128, src.data() + 192};
        std::vector<Nmq8u> out(4 * 64);
        Nmq8u* d[4] = {out.data(), out.data() + 64, out.data() + 128, out.data() + 192};
        int ss[3] = {4, 2, 2}, ds[3] = {4, 2, 2};
        EXPECT_EQ(a.f(s, ss, d, ds, {4, 2}), nmqStsOk) << a.name;
    }
}

}  // namespace
