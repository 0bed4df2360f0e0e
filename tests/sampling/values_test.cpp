// Hand-computed values and properties that pin the rules: the filter and its
// clamping, the lossless 4:2:0 <-> 4:1:1 round trip, the two roundings of the
// plane functions at their block boundaries, the luma copy, the aligned split.
#include <cstring>
#include <numeric>

#include "model.h"
#include "sampling/sampling_kernels.h"

using namespace smpt;
using nmqt::Plane;

namespace {

// Three planes whose rows are filled from per-plane row patterns.
struct P3 {
    Plane p[3];
    const Nmq8u* c[3];
    Nmq8u* m[3];
    int s[3];
    P3(int w0, int h0, int w1, int h1, int guard = 0) {
        p[0] = Plane(w0, h0, 0, 0, guard);
        p[1] = Plane(w1, h1, 0, 0, guard);
        p[2] = Plane(w1, h1, 0, 0, guard);
        for (int i = 0; i < 3; ++i) {
            p[i].fill(uint8_t(40 + i));
            c[i] = m[i] = p[i].ptr();
            s[i] = p[i].step;
        }
    }
    void snapshot() { for (auto& q : p) q.snapshot(); }
};

// One chroma column value per row, repeated across the row.
void fill_rows(Plane& p, const std::vector<int>& v) {
    for (int y = 0; y < p.rows; ++y) std::memset(p.row(y), v[size_t(y)], size_t(p.row_bytes));
    p.snapshot();
}

// Every chroma column of rows C = {0, 255, 255, 0} (Cb) and {255, 0, 0, 255}
// (Cr): the in-between rows reach 287 and -32 before clamping.
TEST(SamplingFilter, HandValuesAndClamping) {
    struct Case { std::vector<int> c, want; };
    const Case cases[] = {
        {{0, 255, 255, 0}, {0, 128, 255, 255, 255, 128, 0, 0}},    // 4598 >> 4 = 287 -> 255; -247 >> 4 -> 0
        {{255, 0, 0, 255}, {255, 128, 0, 0, 0, 128, 255, 255}},    // -502 >> 4 = -32 -> 0; 4343 >> 4 -> 255
        {{10, 20, 30, 40}, {10, 14, 20, 25, 30, 36, 40, 41}},      // edge rows: 8C0 + 9C1 - C2, 17C3 - C2
    };
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        for (int w : {2, 34, 70}) {  // scalar only, one vector block plus tail, two blocks plus tail
            for (const Case& k : cases) {
                P3 src(w, 8, w / 2, 4), dst(w, 8, w / 2, 8);
                fill_rows(src.p[1], k.c);
                fill_rows(src.p[2], k.c);
                ASSERT_EQ(nmqiYCbCr420ToYCbCr422_Filter_8u_P3R(src.c, src.s, dst.m, dst.s, ImageSize{w, 8}), nmqStsOk);
                for (int y = 0; y < 8; ++y)
                    for (int x = 0; x < w / 2; ++x) {
                        ASSERT_EQ(dst.p[1].row(y)[x], k.want[size_t(y)]) << "row " << y << " col " << x << " w " << w;
                        ASSERT_EQ(dst.p[2].row(y)[x], k.want[size_t(y)]);
                    }
            }
        }
    }
}

// A height of 15 is processed as 8: the source chroma plane holds exactly 4
// rows (any further read is caught), destination rows 8..14 stay as they were.
TEST(SamplingFilter, Height15ProcessesEightRows) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        nmqt::Rng rng(3);
        Plane sy(40, 8), sc(40, 4), d0(40, 15, 0, 0, 8), d1(20, 15, 0, 0, 8), d2(20, 15, 0, 0, 8);
        for (Plane* p : {&sy, &sc, &d0, &d1, &d2}) p->randomize(rng);
        Nmq8u* dst[3] = {d0.ptr(), d1.ptr(), d2.ptr()};
        const int ds[3] = {d0.step, d1.step, d2.step};
        ASSERT_EQ(nmqiYCbCr420ToYCbCr422_Filter_8u_P2P3R(sy.ptr(), sy.step, sc.ptr(), sc.step, dst, ds, ImageSize{40, 15}),
                  nmqStsOk);
        for (Plane* p : {&d0, &d1, &d2}) {
            EXPECT_TRUE(p->kept([](int, int y) { return y >= 8; }));
            EXPECT_FALSE(p->kept([](int, int y) { return y < 8; }));
        }
    }
}

// 4:2:0 -> 4:1:1 -> 4:2:0 through both pairs of members gives back the
// starting chroma byte for byte; one small case checks the layout by hand.
TEST(Sampling411, RoundTripIsLossless) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        for (auto [w, h] : {std::pair{4, 2}, {8, 6}, {36, 10}, {132, 4}, {260, 14}}) {
            nmqt::Rng rng(uint32_t(w * h));
            P3 a(w, h, w / 2, h / 2), back(w, h, w / 2, h / 2);
            for (auto& p : a.p) p.randomize(rng);
            Plane y411(w, h), c411(w / 2, h), y2(w, h), c420(w, h / 2);
            ASSERT_EQ(nmqiYCbCr420ToYCbCr411_8u_P3P2R(a.c, a.s, y411.ptr(), y411.step, c411.ptr(), c411.step,
                                                      ImageSize{w, h}), nmqStsOk);
            ASSERT_EQ(nmqiYCbCr411ToYCbCr420_8u_P2P3R(y411.ptr(), y411.step, c411.ptr(), c411.step, back.m, back.s,
                                                      ImageSize{w, h}), nmqStsOk);
            for (int i = 0; i < 3; ++i) EXPECT_EQ(back.p[i].roi(), a.p[i].roi()) << w << "x" << h << " plane " << i;
            // The same from the two-plane side: 4:2:0 P2 -> 4:1:1 P3 -> 4:2:0 P2.
            P3 mid(w, h, w / 4, h);
            ASSERT_EQ(nmqiYCbCr420_8u_P3P2R(a.c, a.s, y2.ptr(), y2.step, c420.ptr(), c420.step, ImageSize{w, h}), nmqStsOk);
            ASSERT_EQ(nmqiYCbCr420ToYCbCr411_8u_P2P3R(y2.ptr(), y2.step, c420.ptr(), c420.step, mid.m, mid.s,
                                                      ImageSize{w, h}), nmqStsOk);
            Plane y3(w, h), c3(w, h / 2);
            ASSERT_EQ(nmqiYCbCr411ToYCbCr420_8u_P3P2R(mid.c, mid.s, y3.ptr(), y3.step, c3.ptr(), c3.step,
                                                      ImageSize{w, h}), nmqStsOk);
            EXPECT_EQ(c3.roi(), c420.roi());
            EXPECT_EQ(y3.roi(), a.p[0].roi());
        }
    }
    // Chroma row [a b c d] of an 8 x 2 image gives 4:1:1 rows [a c] and [b d].
    P3 s(8, 2, 4, 1);
    const uint8_t cb[4] = {1, 2, 3, 4}, cr[4] = {5, 6, 7, 8};
    std::memcpy(s.p[1].ptr(), cb, 4);
    std::memcpy(s.p[2].ptr(), cr, 4);
    Plane y(8, 2), c(4, 2);
    ASSERT_EQ(nmqiYCbCr420ToYCbCr411_8u_P3P2R(s.c, s.s, y.ptr(), 8, c.ptr(), 4, ImageSize{8, 2}), nmqStsOk);
    EXPECT_EQ(c.roi(), (std::vector<uint8_t>{1, 5, 3, 7, 2, 6, 4, 8}));
}

// The plane functions round half up inside the vector blocks and truncate
// after the last one, wherever they run. Sources alternate 0, 1, so every
// mean is 1 when rounded up and 0 when truncated.
TEST(SamplingPlanes, RoundingFollowsBlockBoundaries) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        // 1620 -> 420 and 411 -> 420: a row of m source samples has its first
        // 16 * ((m - 1) / 16) means rounded up.
        for (int w : {64, 68, 128, 132, 256, 260, 264}) {
            const int m = w / 4, rounded = 16 * ((m - 1) / 16);
            for (bool is1620 : {true, false}) {
                const int sh = is1620 ? 4 : 16;
                P3 s(w, 16, m, sh), d(w, 16, w / 2, 8);
                for (int i = 1; i < 3; ++i)
                    for (int y = 0; y < sh; ++y)
                        for (int x = 0; x < m; ++x) s.p[i].row(y)[x] = uint8_t(x & 1);
                const NmqStatus st = is1620 ? nmqiYCbCr1620To420_8u_P3R(s.c, s.s, d.m, d.s, ImageSize{w, 16})
                                            : nmqiYCbCr411To420_8u_P3R(s.c, s.s, d.m, d.s, ImageSize{w, 16});
                ASSERT_EQ(st, nmqStsOk);
                for (int i = 0; i + 1 < m; ++i)
                    ASSERT_EQ(d.p[1].row(0)[2 * i + 1], i < rounded ? 1 : 0) << "w " << w << " sample " << i;
            }
        }
        // 420 -> 411: 32-sample blocks round up, the 8-sample blocks and single samples after them truncate.
        for (int w : {124, 128, 132, 164, 260}) {
            const int d4 = w / 4, rounded = d4 / 32 * 32;
            P3 s(w, 4, w / 2, 2), d(w, 4, d4, 4);
            for (int i = 1; i < 3; ++i) {
                std::memset(s.p[i].row(0), 0, size_t(w / 2));
                std::memset(s.p[i].row(1), 1, size_t(w / 2));
            }
            ASSERT_EQ(nmqiYCbCr420To411_8u_P3R(s.c, s.s, d.m, d.s, ImageSize{w, 4}), nmqStsOk);
            for (int j = 0; j < d4; ++j) ASSERT_EQ(d.p[2].row(1)[j], j < rounded ? 1 : 0) << "w " << w << " sample " << j;
        }
    }
}

// 1620 -> 420 on an 8 x 8 image (2 x 2 chroma) runs entirely in the scalar
// tail: rows [1 2] and [2 3] give, by hand, H(0) = 1 1 2 2, the row between
// = 1 1 2 2 (((2 + 3) >> 1) + ((1 + 2) >> 1)) >> 1 = 1 at the odd column),
// H(1) = 2 2 3 3 and the last row repeated samples 2 2 3 3.
TEST(SamplingPlanes, ScalarTailOf1620To420) {
    P3 s(8, 8, 2, 2), d(8, 8, 4, 4);
    const uint8_t r0[2] = {1, 2}, r1[2] = {2, 3};
    for (int i = 1; i < 3; ++i) {
        std::memcpy(s.p[i].row(0), r0, 2);
        std::memcpy(s.p[i].row(1), r1, 2);
    }
    ASSERT_EQ(nmqiYCbCr1620To420_8u_P3R(s.c, s.s, d.m, d.s, ImageSize{8, 8}), nmqStsOk);
    EXPECT_EQ(d.p[1].roi(), (std::vector<uint8_t>{1, 1, 2, 2, 1, 1, 2, 2, 2, 2, 3, 3, 2, 2, 3, 3}));
    // 420 -> 411 at the smallest height: one chroma row gives both rows its even samples.
    P3 a(4, 2, 2, 1), b(4, 2, 1, 2);
    a.p[1].row(0)[0] = 9;
    a.p[1].row(0)[1] = 200;
    ASSERT_EQ(nmqiYCbCr420To411_8u_P3R(a.c, a.s, b.m, b.s, ImageSize{4, 2}), nmqStsOk);
    EXPECT_EQ(b.p[1].roi(), (std::vector<uint8_t>{9, 9}));
}

// Aligned sources, steps and luma planes with a width that is a multiple of
// 16 take the aligned split kernel; its bytes match the reference.
TEST(Sampling422, AlignedSplitMatchesReference) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        for (const char* name : {"nmqiYCbCr422_8u_C2P3R", "nmqiYCrCb422ToYCbCr422_8u_C2P3R"})
            for (auto [w, h] : {std::pair{16, 3}, {32, 2}, {48, 5}, {1024, 2}, {17, 2}, {50, 3}})
                for (int pad : {0, 16, 32})
                    EXPECT_EQ(run_case(member(name), w, h, pad, 0, false, uint32_t(w + pad), 0), "");
    }
}

// The 4:2:2 -> 4:2:0 planar luma copy streams above 348603 pixels.
TEST(Sampling422, LargeImageStreamsLuma) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        EXPECT_EQ(run_case(member("nmqiYCbCr422ToYCbCr420_8u_P3R"), 592, 590, 0, 0, false, 5), "");  // 349280 pixels
        EXPECT_EQ(run_case(member("nmqiYCbCr422ToYCbCr420_8u_P3R"), 590, 590, 3, 1, false, 6), "");  // 348100 pixels
    }
}

// The row copy gives the same bytes for every length and alignment, with and
// without streaming, also where streaming is refused for cache aliasing.
TEST(SamplingCopy, EveryLengthAlignmentAndStreamingWindow) {
    std::vector<uint8_t> buf(2 * 65536 + 4096);
    std::iota(buf.begin(), buf.begin() + 4096, uint8_t(0));
    uint8_t* src = buf.data() + 64;
    // Destinations 64 KiB plus 8 to 381 bytes above the source: streaming is
    // refused from 16 to 320.
    for (int above : {8, 16, 200, 320, 336})
        for (int mis = 0; mis < 16; mis += 3)
            for (int n : {0, 1, 15, 16, 17, 31, 32, 33, 100, 1000}) {
                uint8_t* dst = buf.data() + 64 + 65536 + above + mis;
                ASSERT_EQ(nmq::smp::copy_aliases(src, dst), above + mis >= 16 && above + mis <= 320);
                std::memset(dst - 1, 0xA5, size_t(n) + 2);
                for (bool streaming : {false, true}) {
                    nmq::smp::ownccCopy_8u_C1(src, dst, n, streaming);
                    ASSERT_EQ(std::memcmp(dst, src, size_t(n)), 0) << n << " " << above << " " << mis;
                    ASSERT_EQ(dst[-1], 0xA5);
                    ASSERT_EQ(dst[n], 0xA5);
                }
            }
}

}  // namespace
