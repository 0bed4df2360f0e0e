// The streaming-store forms of the 32f C3 kernels (chosen for large images)
// against the scalar kernels, over short and long rows and every alignment
// of the destination to the 32-byte boundary the streaming stores need.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "frame/dispatch.h"
#include "models/xyz_kernels.h"
#include "support/harness.h"

namespace {

using Row = void (*)(const float*, float*, int);

struct Pair {
    const char* name;
    Row scalar, streamed;
};

TEST(XyzStream, MatchesScalarAtEveryAlignment) {
    if (nmq::cpu_isa() < nmq::Isa::Avx2) GTEST_SKIP() << "no AVX2";
    const Pair pairs[] = {
        {"forward", nmq::xyz::innerRGBToXYZ_32f_C3R<3>, nmq::xyz::innerRGBToXYZ_32f_C3R_avx2_nt},
        {"inverse", nmq::xyz::innerXYZToRGB_32f_C3R<3>, nmq::xyz::innerXYZToRGB_32f_C3R_avx2_nt},
    };
    nmqt::Rng rng(7);
    for (const Pair& p : pairs)
        for (int width : {1, 5, 8, 9, 15, 16, 17, 23, 31, 40, 64, 67, 333})
            for (int shift = 0; shift < 8; ++shift) {  // destination offset in floats
                std::vector<float> src(3 * size_t(width));
                for (float& v : src) v = float(rng.uniform(-600, 1800)) / 1000.0f;  // also outside 0..1
                std::vector<float> want(3 * size_t(width) + 16, -7.0f), got(want.size() + 8, -7.0f);
                // got + k is 32-byte aligned for one k in 0..7: shift walks every residue.
                float* g = got.data() + shift;
                p.scalar(src.data(), want.data(), width);
                p.streamed(src.data(), g, width);
                ASSERT_EQ(0, std::memcmp(want.data(), g, 12 * size_t(width)))
                    << p.name << " width " << width << " shift " << shift;
                for (int k = 0; k < shift; ++k) ASSERT_EQ(-7.0f, got[k]) << "written before the row";
                for (size_t k = shift + 3 * size_t(width); k < got.size(); ++k)
                    ASSERT_EQ(-7.0f, got[k]) << "written after the row";
            }
}

}  // namespace
