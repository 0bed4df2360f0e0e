#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "frame/gamma_tables.h"
#include "frame/helpers.h"
#include "frame/rand.h"
#include "frame/saturate.h"
#include "support/harness.h"

using namespace nmqt;

TEST(Version, RecordAndSamePointer) {
    const NmqLibVersion* v = nmqccGetLibVersion();
    ASSERT_EQ(v, nmqccGetLibVersion());
    EXPECT_EQ(0, std::memcmp(v->cpuTag, "s2\0\0", 4));
    EXPECT_STREQ(v->name, "nmqCC SSE2 (s2)");
    EXPECT_STREQ(v->version, "8.2.1 (r44077)");
    EXPECT_EQ(std::to_string(v->major) + "." + std::to_string(v->minor) + "." + std::to_string(v->update) + " (r" +
                  std::to_string(v->revision) + ")",
              v->version);
    EXPECT_STREQ(v->buildDate, "Oct  9 2014");
}

TEST(Chop, ClampsTheWholeRange) {
    for (int v = -nmq::kChopBias; v < 256 + nmq::kChopBias; ++v) ASSERT_EQ(nmq::chop(v), std::clamp(v, 0, 255)) << v;
}

// Entry 1 of the forward table is 4 although the curve gives 4.5; the inverse
// table uses its own threshold (0.081).
TEST(GammaTables, MatchTheCurve) {
    EXPECT_EQ(nmq::kGammaFwd8u[1], 4);
    for (int i = 0; i < 256; ++i) {
        const double t = i / 255.0;
        const double f = t < 0.018 ? 4.5 * t : 1.099 * std::pow(t, 0.45) - 0.099;
        const double g = t < 0.081 ? t / 4.5 : std::pow((t + 0.099) / 1.099, 1 / 0.45);
        if (i != 1) {
            EXPECT_EQ(nmq::kGammaFwd8u[i], int(std::floor(255 * f + 0.5))) << i;
        }
        EXPECT_EQ(nmq::kGammaInv8u[i], int(std::floor(255 * g + 0.5))) << i;
    }
}

// ---- generator -------------------------------------------------------------

// Reference: single steps exactly as the algorithm is stated.
static std::vector<double> reference_raw(uint32_t seed, int n) {
    uint32_t L = 1131199209u, A = seed, B = seed * 69069u + 1013904243u, C = B * 69069u + 1013904243u, k = ~0u;
    std::vector<double> r;
    for (int i = 0; i < n; ++i) {
        uint32_t t = B - C + k;
        if (t & 0x80000000u) { k = ~0u; t -= 18; } else k = 0;
        C = B; B = A; A = t;
        L = L * 69069u + 1013904243u;
        r.push_back(double(int32_t(A + L)));
    }
    return r;
}

TEST(RandUniform, MatchesSingleStepsInAnyChunking) {
    const uint32_t seeds[] = {0, 1, 12345, 0xffffffffu};
    for (uint32_t seed : seeds) {
        const auto raw = reference_raw(seed, 101);
        RandUniState_32f* s32 = nullptr;
        ASSERT_EQ(nmqsRandUniformInitAlloc_32f(&s32, -3.5f, 7.25f, seed), nmqStsOk);
        RandUniState_16s* s16 = nullptr;
        ASSERT_EQ(nmqsRandUniformInitAlloc_16s(&s16, -100, 300, seed), nmqStsOk);
        // Odd and even chunks: two-at-a-time and single steps must continue one sequence.
        std::vector<float> f(101);
        std::vector<int16_t> s(101);
        int pos = 0;
        for (int chunk : {1, 2, 7, 10, 81}) {
            ASSERT_EQ(nmqsRandUniform_32f(f.data() + pos, chunk, s32), nmqStsOk);
            ASSERT_EQ(nmqsRandUniform_16s(s.data() + pos, chunk, s16), nmqStsOk);
            pos += chunk;
        }
        const double scale32 = (double(7.25f) - double(-3.5f)) * 2.3283064365387e-10, mean32 = (7.25 - 3.5) * 0.5;
        const double scale16 = 400 * 2.3283064365387e-10, mean16 = 100;
        for (int i = 0; i < 101; ++i) {
            ASSERT_EQ(f[i], float(raw[i] * scale32 + mean32)) << "seed " << seed << " i " << i;
            ASSERT_EQ(s[i], int16_t(std::nearbyint(raw[i] * scale16 + mean16))) << "seed " << seed << " i " << i;
            ASSERT_GE(s[i], -100);
            ASSERT_LE(s[i], 300);
        }
        EXPECT_EQ(nmqsRandUniformFree_32f(s32), nmqStsOk);
        EXPECT_EQ(nmqsRandUniformFree_16s(s16), nmqStsOk);
    }
}

TEST(RandUniform, LowEqualsHighIsConstant) {
    RandUniState_16s* s = nullptr;
    RandUniState_32f* f = nullptr;
    ASSERT_EQ(nmqsRandUniformInitAlloc_16s(&s, 42, 42, 7), nmqStsOk);
    ASSERT_EQ(nmqsRandUniformInitAlloc_32f(&f, 0.25f, 0.25f, 7), nmqStsOk);
    std::vector<int16_t> v(33);
    std::vector<float> w(33);
    ASSERT_EQ(nmqsRandUniform_16s(v.data(), 33, s), nmqStsOk);
    ASSERT_EQ(nmqsRandUniform_32f(w.data(), 33, f), nmqStsOk);
    EXPECT_EQ(v, std::vector<int16_t>(33, 42));
    EXPECT_EQ(w, std::vector<float>(33, 0.25f));
    nmqsRandUniformFree_16s(s);
    nmqsRandUniformFree_32f(f);
}

TEST(RandUniform, ChecksAndTheOtherTwinsRecord) {
    RandUniState_16s* s16 = nullptr;
    RandUniState_32f* s32 = nullptr;
    ASSERT_EQ(nmqsRandUniformInitAlloc_16s(&s16, 0, 1, 0), nmqStsOk);
    ASSERT_EQ(nmqsRandUniformInitAlloc_32f(&s32, 0, 1, 0), nmqStsOk);
    int16_t d16[2];
    float d32[2];
    auto* as16 = reinterpret_cast<RandUniState_16s*>(s32);
    auto* as32 = reinterpret_cast<RandUniState_32f*>(s16);
    struct { NmqStatus got, want; } cases[] = {
        {nmqsRandUniformInitAlloc_16s(nullptr, 0, 1, 0), nmqStsNullPtr},
        {nmqsRandUniformInitAlloc_32f(nullptr, 0, 1, 0), nmqStsNullPtr},
        {nmqsRandUniform_16s(nullptr, 2, s16), nmqStsNullPtr},
        {nmqsRandUniform_16s(d16, 2, nullptr), nmqStsNullPtr},
        {nmqsRandUniform_16s(d16, 0, s16), nmqStsSize},
        {nmqsRandUniform_16s(d16, 2, as16), nmqStsWrongContext},
        {nmqsRandUniform_32f(d32, 0, s32), nmqStsSize},
        {nmqsRandUniform_32f(d32, 2, as32), nmqStsWrongContext},
        {nmqsRandUniformFree_16s(as16), nmqStsWrongContext},
        {nmqsRandUniformFree_32f(as32), nmqStsWrongContext},
        {nmqsRandUniformFree_16s(nullptr), nmqStsNullPtr},
    };
    for (size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) EXPECT_EQ(cases[i].got, cases[i].want) << "case " << i;
    nmq::test_fail_alloc_after(1);
    RandUniState_16s* none = nullptr;
    EXPECT_EQ(nmqsRandUniformInitAlloc_16s(&none, 0, 1, 0), nmqStsNoMemory);
    EXPECT_EQ(none, nullptr);
    nmqsRandUniformFree_16s(s16);
    nmqsRandUniformFree_32f(s32);
}

// ---- statistics -----------------------------------------------------------

TEST(Sum, FastHintAgreesWithAccurateWithinFloatRounding) {
    Rng r(7);
    for (const Shape& s : sweep_shapes(1, 1, 300)) {
        Plane p(s.w * 4, s.h, s.pad * 4, (s.misalign & ~3) + 4 * (s.misalign & 1));
        double ref = 0, abs_sum = 0;
        for (int y = 0; y < s.h; ++y) {
            float* row = reinterpret_cast<float*>(p.row(y));
            for (int x = 0; x < s.w; ++x) {
                row[x] = r.uniformf(-1000, 1000);
                ref += row[x];
                abs_sum += std::fabs(row[x]);
            }
        }
        double acc = 0, fast = 0, mean = 0;
        ASSERT_EQ(nmqiSum_32f_C1R(p.as<float>(), p.step, s.w, s.h, &acc, nmq::AlgorithmHintAccurate), nmqStsOk);
        ASSERT_EQ(nmqiSum_32f_C1R(p.as<float>(), p.step, s.w, s.h, &fast, nmq::AlgorithmHintNone), nmqStsOk);
        ASSERT_EQ(nmqiMean_32f_C1R(p.as<float>(), p.step, s.w, s.h, &mean, nmq::AlgorithmHintAccurate), nmqStsOk);
        EXPECT_NEAR(acc, ref, 1e-9 * abs_sum) << to_string(s);
        EXPECT_NEAR(fast, acc, 1e-6 * abs_sum) << to_string(s);
        EXPECT_DOUBLE_EQ(mean, acc / (double(s.w) * s.h)) << to_string(s);
    }
}

TEST(Sum, AccurateSplitsEvenAndOddPositions) {
    // 1e16 + 1 - 1e16 loses the 1 in a running double sum unless the even and
    // odd positions are summed apart: here the big values are all at even
    // positions, the small ones at odd positions.
    float v[4] = {1e16f, 1.0f, -1e16f, 1.0f};
    double sum = 0;
    ASSERT_EQ(nmqiSum_32f_C1R(v, 16, 4, 1, &sum, nmq::AlgorithmHintAccurate), nmqStsOk);
    EXPECT_EQ(sum, 2.0);
}

TEST(Statistics, CheckOrder) {
    float v[4] = {1, 2, 3, 4};
    float mx = 0;
    double d = 0;
    struct { NmqStatus got, want; const char* what; } cases[] = {
        {nmqiMean_32f_C1R(nullptr, 16, 0, 1, nullptr, 2), nmqStsNullPtr, "mean: null out before everything"},
        {nmqiMean_32f_C1R(v, 16, 0, 1, nullptr, 2), nmqStsNullPtr, "mean: null out before size"},
        {nmqiMean_32f_C1R(nullptr, 16, 0, 1, &d, 2), nmqStsNullPtr, "mean: null source before size"},
        {nmqiMean_32f_C1R(v, 16, 0, 1, &d, 2), nmqStsSize, "mean: size from the sum"},
        {nmqiSum_32f_C1R(v, 16, 4, 0, &d, 1), nmqStsSize, "sum: height 0"},
        {nmqiSum_32f_C1R(v, 16, 4, 1, nullptr, 1), nmqStsNullPtr, "sum: null out"},
        {nmqiMax_32f_C1R(v, 16, 4, 1, nullptr), nmqStsNullPtr, "max: null out"},
        {nmqiMax_32f_C1R(nullptr, 16, 0, 0, &mx), nmqStsNullPtr, "max: pointers first"},
        {nmqiMax_32f_C1R(v, 16, -1, 1, &mx), nmqStsSize, "max: width"},
    };
    for (auto& c : cases) EXPECT_EQ(c.got, c.want) << c.what;
    EXPECT_EQ(nmqiMax_32f_C1R(v, 8, 2, 2, &mx), nmqStsOk);
    EXPECT_EQ(mx, 4.0f);
}

// ---- set, copy, scratch ---------------------------------------------------

TEST(SetCopy, WriteOnlyTheRegionIncludingStreamingSizes) {
    Rng r(3);
    struct { int w, h, pad; } shapes[] = {{1, 1, 0}, {17, 3, 5}, {64, 4, 0}, {1000, 600, 0}, {1500, 700, 13}, {2048, 2, 0}};
    for (auto s : shapes) {
        Plane src(s.w, s.h, s.pad, 3), dst(s.w, s.h, s.pad + 2, 5, 16);
        src.randomize(r);
        dst.randomize(r);
        ASSERT_EQ(nmqiCopy_8u_C1R(src.ptr(), src.step, dst.ptr(), dst.step, s.w, s.h), nmqStsOk);
        EXPECT_EQ(src.roi(), dst.roi()) << s.w << "x" << s.h;
        EXPECT_TRUE(dst.outside_untouched());
        dst.snapshot();
        ASSERT_EQ(nmqiSet_8u_C1R(0x5a, dst.ptr(), dst.step, s.w, s.h), nmqStsOk);
        for (uint8_t b : dst.roi()) ASSERT_EQ(b, 0x5a);
        EXPECT_TRUE(dst.outside_untouched());
    }
    uint8_t b = 0;
    EXPECT_EQ(nmqiSet_8u_C1R(1, nullptr, 1, 0, 0), nmqStsNullPtr);
    EXPECT_EQ(nmqiSet_8u_C1R(1, &b, 1, 1, 0), nmqStsSize);
    EXPECT_EQ(nmqiCopy_8u_C1R(&b, 1, nullptr, 1, 0, 1), nmqStsNullPtr);
    EXPECT_EQ(nmqiCopy_8u_C1R(&b, 1, &b, 1, 0, 1), nmqStsSize);
}

TEST(Scratch, CountsBelowOneGiveNullAndBlocksAreAligned) {
    EXPECT_EQ(nmqsMalloc_32f(0), nullptr);
    EXPECT_EQ(nmqsMalloc_16s(-5), nullptr);
    Nmq32f* p = nmqsMalloc_32f(3);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) & 63, 0u);
    nmqsFree(p);
    nmq::test_fail_alloc_after(2);
    Nmq16u* a = nmqsMalloc_16u(4);
    Nmq16u* b = nmqsMalloc_16u(4);
    EXPECT_NE(a, nullptr);
    EXPECT_EQ(b, nullptr);
    nmqsFree(a);
}
