// Hand-computed values that pin the rules: the filter and its clamping, the
// 4:1:1 layout, the scalar tail of the plane functions, the luma copy, the aligned split.
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
    for (int w : {2, 70}) {  // scalar only; vector blocks and a tail (the sweep holds every level to these bytes)
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

// The 4:1:1 layout of 4:2:0 chroma, by hand: chroma row [a b c d] of an
// 8 x 2 image gives 4:1:1 rows [a c] and [b d].
TEST(Sampling411, LayoutByHand) {
    P3 s(8, 2, 4, 1);
    const uint8_t cb[4] = {1, 2, 3, 4}, cr[4] = {5, 6, 7, 8};
    std::memcpy(s.p[1].ptr(), cb, 4);
    std::memcpy(s.p[2].ptr(), cr, 4);
    Plane y(8, 2), c(4, 2);
    ASSERT_EQ(nmqiYCbCr420ToYCbCr411_8u_P3P2R(s.c, s.s, y.ptr(), 8, c.ptr(), 4, ImageSize{8, 2}), nmqStsOk);
    EXPECT_EQ(c.roi(), (std::vector<uint8_t>{1, 5, 3, 7, 2, 6, 4, 8}));
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
            for (auto [w, h] : {std::pair{16, 3}, {48, 5}, {1024, 2}, {50, 3}})
                for (int pad : {0, 32})
                    EXPECT_EQ(run_case(member(name), w, h, pad, 0, false, uint32_t(w + pad), 0), "");
    }
}

// The 4:2:2 -> 4:2:0 planar luma copy streams above 348603 pixels.
TEST(Sampling422, LargeImageStreamsLuma) {
    for (nmq::Isa level : nmqt::isa_levels()) {
        nmq::IsaCap cap(level);
        EXPECT_EQ(run_case(member("nmqiYCbCr422ToYCbCr420_8u_P3R"), 592, 590, 0, 0, false, 5), "");  // 349280 pixels
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
