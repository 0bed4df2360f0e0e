// Every (Y, Cb, Cr) through the BT.601 4:2:0 inverse, at every level. The
// vector forms split each sum at the chroma sample into 16-bit halves and
// rebuild the carry per pixel; random images reach few of the carries that
// matter, so this walks all 2^24 of them once.
#include <vector>

#include "support/harness.h"

namespace {

int clamp255(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

TEST(YCbCrExhaustive, Every420TripleAtEveryLevel) {
    // Chroma sample s carries the pair s mod 2^16 (Cb low byte, Cr high byte);
    // the four luma values of its block are 4 * (s >> 16) + 0..3, so the 64
    // blocks of each pair hold every Y.
    constexpr int W = 4096, H = 4096, CW = W / 2;
    std::vector<Nmq8u> y(size_t(W) * H), cb(size_t(CW) * (H / 2)), cr(cb.size());
    std::vector<Nmq8u> want(size_t(3) * W * H);
    for (int cy = 0; cy < H / 2; ++cy)
        for (int cx = 0; cx < CW; ++cx) {
            const int s = cy * CW + cx, Cb = s & 255, Cr = (s >> 8) & 255, g = s >> 16;
            cb[size_t(s)] = Nmq8u(Cb);
            cr[size_t(s)] = Nmq8u(Cr);
            for (int k = 0; k < 4; ++k) {
                const size_t px = size_t(2 * cy + k / 2) * W + size_t(2 * cx + k % 2);
                const int Y = 4 * g + k;
                y[px] = Nmq8u(Y);
                Nmq8u* o = &want[3 * px];
                o[0] = Nmq8u(clamp255((76284 * Y + 104595 * Cr - 14608761) >> 16));
                o[1] = Nmq8u(clamp255((76284 * Y - 25690 * Cb - 53281 * Cr + 8887730) >> 16));
                o[2] = Nmq8u(clamp255((76284 * Y + 132186 * Cb - 18140365) >> 16));
            }
        }
    const Nmq8u* const src[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {W, CW, CW};
    std::vector<Nmq8u> out(want.size());
    for (nmq::Isa lv : nmqt::isa_levels()) {
        nmq::IsaCap cap(lv);
        std::fill(out.begin(), out.end(), Nmq8u(0));
        ASSERT_EQ(nmqiYCbCr420ToRGB_8u_P3C3R(src, steps, out.data(), 3 * W, {W, H}), nmqStsOk);
        ASSERT_EQ(nmqt::first_diff(out, want, 3 * W), "") << nmqt::isa_name(lv);
    }
}

}  // namespace
