// YUV tests: images of every layout of the family, and a reference of the
// arithmetic written from the formulas (floor divisions, no shifts, nothing
// from the library's kernels).
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include "support/harness.h"

namespace yt {

using nmqt::Plane;

// Plane layouts of the family.
enum class Fmt { C3, AC4, C2, W16, P3, P4, P422, P420 };

struct Img {
    std::vector<Plane> p;
    std::vector<int> steps() const {
        std::vector<int> s;
        for (const Plane& q : p) s.push_back(q.step);
        return s;
    }
    const uint8_t* c(int i) const { return p[size_t(i)].ptr(); }
    uint8_t* m(int i) { return p[size_t(i)].ptr(); }
    uint8_t& at(int plane, int x_byte, int y) { return p[size_t(plane)].row(y)[x_byte]; }
    int at(int plane, int x_byte, int y) const { return p[size_t(plane)].row(y)[x_byte]; }
};

// Allocates the planes of fmt for a w x h ROI. Contiguous images (the forms
// without steps) have no padding; 16-bit rows keep word alignment.
inline Img make(Fmt f, int w, int h, const nmqt::Shape& s, int guard, bool contiguous, bool page = false) {
    const int pad = contiguous ? 0 : (f == Fmt::W16 ? s.pad & ~1 : s.pad);
    const int mis = f == Fmt::W16 ? s.misalign & ~1 : s.misalign;
    const int cw = (w + 1) / 2, ch = (h + 1) / 2;
    auto pl = [&](int bytes, int rows, int k) { return Plane(bytes, rows, pad, (mis + 6 * k) % 16, guard, page); };
    Img im;
    switch (f) {
        case Fmt::C3: im.p.push_back(pl(3 * w, h, 0)); break;
        case Fmt::AC4: im.p.push_back(pl(4 * w, h, 0)); break;
        case Fmt::C2:
        case Fmt::W16: im.p.push_back(pl(2 * w, h, 0)); break;
        case Fmt::P3:
        case Fmt::P4:
            for (int k = 0; k < (f == Fmt::P3 ? 3 : 4); ++k) im.p.push_back(pl(w, h, k));
            break;
        case Fmt::P422:
        case Fmt::P420:
            im.p.push_back(pl(w, h, 0));
            for (int k = 1; k < 3; ++k) im.p.push_back(pl(cw, f == Fmt::P420 ? ch : h, k));
            break;
    }
    return im;
}

// ---- Reference arithmetic ------------------------------------------------------

inline int64_t fdiv(int64_t a, int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }
inline int clamp8(int64_t v) { return int(std::min<int64_t>(255, std::max<int64_t>(0, v))); }

struct Yuv { int y, u, v; };
struct Rgb { int r, g, b; };

inline int64_t lsum(int r, int g, int b) { return 19595LL * r + 38470LL * g + 7471LL * b; }

inline Yuv fwd_pixel(int r, int g, int b) {
    const int64_t s = lsum(r, g, b);
    const int64_t db = fdiv(b * 65536LL - s + 32768, 65536), dr = fdiv(r * 65536LL - s + 32768, 65536);
    return {int(fdiv(s + 32768, 65536)), int(128 + fdiv(db * 32244, 65536)), clamp8(128 + fdiv(dr * 57475, 65536))};
}
inline Yuv fwd_block(int r, int g, int b) {
    return {int(fdiv(lsum(r, g, b) + 32768, 65536)), clamp8(128 + fdiv(-4816 * r - 9469 * g + 14286 * b + 16384, 32768)),
            clamp8(128 + fdiv(20152 * r - 16875 * g - 3276 * b + 16384, 32768))};
}
// Chroma of n pixels (2: pair, 4: block) with the rounding k (65535 or 131071).
inline void fwd_chroma(const Rgb* px, int n, int64_t k, int& u, int& v) {
    int64_t s = 0, rs = 0, bs = 0;
    for (int i = 0; i < n; ++i) s += lsum(px[i].r, px[i].g, px[i].b), rs += px[i].r, bs += px[i].b;
    const int64_t db = fdiv(bs * 65536 - s + k, 65536), dr = fdiv(rs * 65536 - s + k, 65536);
    u = int(128 + fdiv(db * 32244, n == 2 ? 131072 : 262144));
    v = clamp8(128 + fdiv(dr * 57475, n == 2 ? 131072 : 262144));
}
inline int ytrunc(const Rgb& p) { return int(fdiv(lsum(p.r, p.g, p.b), 65536)); }
inline Yuv fwd_single(int r, int g, int b) {
    const int64_t s = 9798LL * r + 19235LL * g + 3736LL * b;
    return {int(fdiv(s, 32768)), int(128 + fdiv(fdiv(b * 32768LL - s, 32768) * 16121, 32768)),
            clamp8(128 + fdiv(fdiv(r * 32768LL - s, 32768) * 28737, 32768))};
}

enum class InvKind { Round, TruncG, Planar, Block444, Block422 };
inline Rgb inv_pixel(InvKind k, int y, int U, int V) {
    const int64_t u = U - 128, v = V - 128, y16 = int64_t(y) * 65536;
    switch (k) {
        case InvKind::Block444:
            return {clamp8(y + fdiv(v * 9339, 8192)), clamp8(y + fdiv(u * -3228, 8192) + fdiv(v * -4760, 8192)),
                    clamp8(y + fdiv(u * 16646, 8192))};
        case InvKind::Block422:
            return {clamp8(y + fdiv(v * 9338, 8192)), clamp8(y + fdiv(u * -3227, 8192) + fdiv(v * -4759, 8192)),
                    clamp8(y + fdiv(u * 16645, 8192))};
        case InvKind::Planar:
            return {clamp8(fdiv(y16 + 74710 * v, 65536)), clamp8(fdiv(y16 - 25820 * u - 38075 * v, 65536)),
                    clamp8(fdiv(y16 + 133168 * u, 65536))};
        default:
            return {clamp8(fdiv(y16 + 74711 * v + 32768, 65536)),
                    clamp8(fdiv(y16 - 25821 * u - 38076 * v + (k == InvKind::Round ? 32768 : 0), 65536)),
                    clamp8(fdiv(y16 + 133169 * u + 32768, 65536))};
    }
}

}  // namespace yt
