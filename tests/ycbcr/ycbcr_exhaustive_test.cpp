// Every (Y, Cb, Cr) through the BT.601 4:2:0 inverse, at every level. The
// vector forms split each sum at the chroma sample into 16-bit halves and
// rebuild the carry per pixel; random images reach few of the carries that
// matter, so this walks all 2^24 of them once, through three planes to
// three-byte pixels and through an interleaved chroma plane to four-byte
// pixels (the vector kernels order and load those differently).
#include <functional>
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
    std::vector<Nmq8u> cbcr(2 * cb.size());
    for (size_t s = 0; s < cb.size(); ++s) {
        cbcr[2 * s] = cb[s];
        cbcr[2 * s + 1] = cr[s];
    }
    const Nmq8u* const src[3] = {y.data(), cb.data(), cr.data()};
    const int steps[3] = {W, CW, CW};
    struct Case {
        const char* name;
        int ds;  // bytes per pixel; the fourth is alpha 0xFF
        std::function<NmqStatus(Nmq8u*)> run;
    };
    const Case cases[] = {
        {"P3C3R", 3, [&](Nmq8u* d) { return nmqiYCbCr420ToRGB_8u_P3C3R(src, steps, d, 3 * W, {W, H}); }},
        {"P2C4R", 4, [&](Nmq8u* d) { return nmqiYCbCr420ToRGB_8u_P2C4R(y.data(), W, cbcr.data(), W, d, 4 * W, {W, H}); }},
    };
    const size_t n = size_t(W) * H;
    std::vector<Nmq8u> out(4 * n);
    for (const Case& c : cases)
        for (nmq::Isa lv : nmqt::isa_levels()) {
            nmq::IsaCap cap(lv);
            std::fill(out.begin(), out.end(), Nmq8u(0));
            ASSERT_EQ(c.run(out.data()), nmqStsOk);
            size_t bad = n;
            for (size_t px = 0; px < n && bad == n; ++px) {
                const Nmq8u *o = &out[c.ds * px], *w = &want[3 * px];
                if (o[0] != w[0] || o[1] != w[1] || o[2] != w[2] || (c.ds == 4 && o[3] != 0xFF)) bad = px;
            }
            ASSERT_EQ(bad, n) << c.name << " at " << nmqt::isa_name(lv) << ": pixel (" << bad % W << ", " << bad / W
                              << ")";
        }
}

}  // namespace
