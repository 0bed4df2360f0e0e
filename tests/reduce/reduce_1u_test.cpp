// nmqiReduceBits_8u1u_C1R: bit placement, neighbour bits, thresholds, integer
// Stucki diffusion against a direct rendering of its rule, SIMD levels.
#include <vector>

#include "support/harness.h"

using namespace nmqt;

namespace {

// Expected destination bytes: the old bytes with each row's bits placed from
// bit 7 - (offset & 7) of its first byte on.
std::vector<uint8_t> place(std::vector<uint8_t> old, int rowBytes, int offset, const std::vector<std::vector<int>>& bits) {
    for (size_t y = 0; y < bits.size(); ++y)
        for (size_t x = 0; x < bits[y].size(); ++x) {
            const size_t pos = size_t(offset & 7) + x;
            uint8_t& b = old[y * rowBytes + pos / 8];
            const int sh = 7 - int(pos % 8);
            b = uint8_t((b & ~(1 << sh)) | (bits[y][x] << sh));
        }
    return old;
}

// Stucki in integers, straight from the rule, on one image.
std::vector<std::vector<int>> stucki(const Plane& s, int w, int h, int threshold) {
    std::vector<std::vector<int>> err(h, std::vector<int>(w)), bits(h, std::vector<int>(w));
    auto e = [&](int y, int x) { return y >= 0 && x >= 0 && x < w ? err[y][x] : 0; };
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const int S = e(y - 2, x - 2) + e(y - 2, x + 2) +
                          2 * (e(y - 2, x - 1) + e(y - 2, x + 1) + e(y - 1, x - 2) + e(y - 1, x + 2)) +
                          4 * (e(y - 2, x) + e(y - 1, x - 1) + e(y - 1, x + 1) + e(y, x - 2)) +
                          8 * (e(y - 1, x) + e(y, x - 1));
            const int V = s.row(y)[x] * 8192 + 23 * S;
            bits[y][x] = V > threshold * 8192;
            err[y][x] = (V >> 10) - (bits[y][x] ? 2047 : 0);
        }
    return bits;
}

}  // namespace

// The threshold is strict: 255 never sets a bit, 0 sets every non-zero pixel.
TEST(ReduceBits1u, ThresholdEnds) {
    const uint8_t s[9] = {0, 1, 2, 128, 254, 255, 0, 7, 255};
    uint8_t d[2] = {0xaa, 0xaa};
    ASSERT_EQ(nmqiReduceBits_8u1u_C1R(s, 9, d, 2, 0, {9, 1}, 0, 0, DitherKindNone, 255), nmqStsOk);
    EXPECT_EQ(d[0], 0x00);
    EXPECT_EQ(d[1], 0x2a);  // bit 7 written 0, the seven below kept
    ASSERT_EQ(nmqiReduceBits_8u1u_C1R(s, 9, d, 2, 0, {9, 1}, 0, 0, DitherKindNone, 0), nmqStsOk);
    EXPECT_EQ(d[0], 0x7d);  // every non-zero pixel
    EXPECT_EQ(d[1], 0xaa);  // 255 sets bit 7, already set
}

// Random images, widths across a byte boundary and beyond a vector, every
// offset up to 19 (8 and more act as their low three bits), both modes, every
// SIMD level; the destination has guard bytes and sources end at a page.
TEST(ReduceBits1u, BitsLandWhereTheyBelong) {
    Rng rng(7);
    int k = 0;
    for (int w : {1, 2, 5, 7, 8, 9, 15, 16, 17, 23, 31, 33, 40, 64, 77, 130, 2049, 2100}) {
        for (int offset : {0, 1, 3, 5, 7, 8, 11, 19}) {
            for (int kind : {DitherKindNone, DitherKindStucki}) {
                const int h = 1 + k % 5, thr = rng.uniform(0, 255);
                const int rowBytes = (offset % 8 + w + 7) / 8;
                Plane src(w, h, k % 3, k % 7, 0, k % 2), fresh(rowBytes, h, k % 4, 0, 8);
                ++k;
                src.randomize(rng);
                fresh.randomize(rng);
                std::vector<std::vector<int>> bits(h, std::vector<int>(w));
                if (kind == DitherKindStucki) bits = stucki(src, w, h, thr);
                else
                    for (int y = 0; y < h; ++y)
                        for (int x = 0; x < w; ++x) bits[y][x] = src.row(y)[x] > thr;
                const auto want = place(fresh.roi(), rowBytes, offset, bits);
                for (nmq::Isa lv : isa_levels()) {
                    nmq::IsaCap cap(lv);
                    Plane dst(rowBytes, h, (k - 1) % 4, 0, 8);
                    dst.copy_from(fresh);
                    ASSERT_EQ(nmqiReduceBits_8u1u_C1R(src.ptr(), src.step, dst.ptr(), dst.step, offset, {w, h}, 0, 0,
                                                      kind, uint8_t(thr)),
                              nmqStsOk);
                    ASSERT_EQ(first_diff(want, dst.roi(), rowBytes), "")
                        << isa_name(lv) << " w " << w << " h " << h << " offset " << offset << " kind " << kind;
                    ASSERT_TRUE(dst.outside_untouched()) << w << " " << offset;
                }
            }
        }
    }
}
