// Every export of the family on random images of many shapes, at every SIMD
// level: the bytes must match a reference written here from the formulas
// (floor divisions, no shifts, nothing from the library's kernels), nothing
// outside the ROI may change (guards, padding, kept alpha, the odd column and
// row a 4:2:0 function leaves alone), and sources are exact allocations so
// that AddressSanitizer or a protected page reports any read past them.
#include <algorithm>
#include <functional>
#include <vector>

#include "support/harness.h"

namespace {

using nmqt::Plane;
using nmqt::Shape;

// Plane layouts of the family.
enum class Fmt { C3, AC4, C2, W16, P3, P4, P422, P420 };

struct Img {
    std::vector<Plane> p;
    const uint8_t* c(int i) const { return p[size_t(i)].ptr(); }
    uint8_t* m(int i) { return p[size_t(i)].ptr(); }
    uint8_t& at(int plane, int x_byte, int y) { return p[size_t(plane)].row(y)[x_byte]; }
    int at(int plane, int x_byte, int y) const { return p[size_t(plane)].row(y)[x_byte]; }
};

// The planes of fmt for a w x h ROI. Contiguous images (the forms without
// steps) have no padding; 16-bit rows keep word alignment.
Img make(Fmt f, int w, int h, const Shape& s, int guard, bool contiguous, bool page = false) {
    const bool w16 = f == Fmt::W16;
    const int pad = contiguous ? 0 : w16 ? s.pad & ~1 : s.pad, mis = w16 ? s.misalign & ~1 : s.misalign;
    Img im;
    auto add = [&](int bytes, int rows) {
        im.p.emplace_back(bytes, rows, pad, (mis + 6 * int(im.p.size())) % 16, guard, page);
    };
    const int n = f == Fmt::C3 ? 3 : f == Fmt::AC4 ? 4 : f == Fmt::C2 || w16 ? 2 : 0;
    if (n) add(n * w, h);
    for (int k = 0; !n && k < (f == Fmt::P4 ? 4 : 3); ++k)
        add(k && f >= Fmt::P422 ? (w + 1) / 2 : w, k && f == Fmt::P420 ? (h + 1) / 2 : h);
    return im;
}

// ---- Reference arithmetic ------------------------------------------------------

int64_t fdiv(int64_t a, int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }
int clamp8(int64_t v) { return int(std::min<int64_t>(255, std::max<int64_t>(0, v))); }

struct Yuv { int y, u, v; };
struct Rgb { int r, g, b; };

int64_t lsum(int r, int g, int b) { return 19595LL * r + 38470LL * g + 7471LL * b; }

Yuv fwd_pixel(int r, int g, int b) {
    const int64_t s = lsum(r, g, b);
    const int64_t db = fdiv(b * 65536LL - s + 32768, 65536), dr = fdiv(r * 65536LL - s + 32768, 65536);
    return {int(fdiv(s + 32768, 65536)), int(128 + fdiv(db * 32244, 65536)), clamp8(128 + fdiv(dr * 57475, 65536))};
}
Yuv fwd_block(int r, int g, int b) {
    return {int(fdiv(lsum(r, g, b) + 32768, 65536)), clamp8(128 + fdiv(-4816 * r - 9469 * g + 14286 * b + 16384, 32768)),
            clamp8(128 + fdiv(20152 * r - 16875 * g - 3276 * b + 16384, 32768))};
}
// Chroma of n pixels (2: pair, 4: block) with the rounding k (65535 or 131071).
void fwd_chroma(const Rgb* px, int n, int64_t k, int& u, int& v) {
    int64_t s = 0, rs = 0, bs = 0;
    for (int i = 0; i < n; ++i) s += lsum(px[i].r, px[i].g, px[i].b), rs += px[i].r, bs += px[i].b;
    const int64_t db = fdiv(bs * 65536 - s + k, 65536), dr = fdiv(rs * 65536 - s + k, 65536);
    u = int(128 + fdiv(db * 32244, n == 2 ? 131072 : 262144));
    v = clamp8(128 + fdiv(dr * 57475, n == 2 ? 131072 : 262144));
}
int ytrunc(const Rgb& p) { return int(fdiv(lsum(p.r, p.g, p.b), 65536)); }
Yuv fwd_single(int r, int g, int b) {
    const int64_t s = 9798LL * r + 19235LL * g + 3736LL * b;
    return {int(fdiv(s, 32768)), int(128 + fdiv(fdiv(b * 32768LL - s, 32768) * 16121, 32768)),
            clamp8(128 + fdiv(fdiv(r * 32768LL - s, 32768) * 28737, 32768))};
}

enum class InvKind { Round, TruncG, Planar, Block444, Block422 };
Rgb inv_pixel(InvKind k, int y, int U, int V) {
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

using Get = std::function<Rgb(const Img&, int, int)>;
using Put = std::function<void(Img&, int, int, int, int, int)>;

Get get_px(int n, int a, int b, int c) {
    return [=](const Img& s, int x, int y) { return Rgb{s.at(0, n * x + a, y), s.at(0, n * x + b, y), s.at(0, n * x + c, y)}; };
}
Get get_planes() {
    return [](const Img& s, int x, int y) { return Rgb{s.at(0, x, y), s.at(1, x, y), s.at(2, x, y)}; };
}
// 16-bit words, first-named channel in the low bits; fields widened by repeating their top bits.
Get get_word(int gbits, bool rlow) {
    return [=](const Img& s, int x, int y) {
        const int w = s.at(0, 2 * x, y) | s.at(0, 2 * x + 1, y) << 8;
        const int lo = w & 31, mid = (w >> 5) & ((1 << gbits) - 1), hi = (w >> (5 + gbits)) & 31;
        const int l8 = lo * 8 + lo / 4, h8 = hi * 8 + hi / 4;
        const int g8 = gbits == 6 ? mid * 4 + mid / 16 : mid * 8 + mid / 4;
        return rlow ? Rgb{l8, g8, h8} : Rgb{h8, g8, l8};
    };
}
Put put_px(int n, int a, int b, int c, int alpha = -1) {
    return [=](Img& d, int x, int y, int p, int q, int r) {
        d.at(0, n * x + a, y) = uint8_t(p), d.at(0, n * x + b, y) = uint8_t(q), d.at(0, n * x + c, y) = uint8_t(r);
        if (alpha >= 0) d.at(0, n * x + 3, y) = uint8_t(alpha);
    };
}
Put put_planes() {
    return [](Img& d, int x, int y, int p, int q, int r) { d.at(0, x, y) = uint8_t(p), d.at(1, x, y) = uint8_t(q), d.at(2, x, y) = uint8_t(r); };
}

// ---- References ----------------------------------------------------------------

using Ref = std::function<void(const Img&, Img&, int, int)>;

Ref fwd444(Get get, Put put, bool blocks) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const Rgb p = get(s, x, y);
                const Yuv o = blocks && x < (w & ~15) ? fwd_block(p.r, p.g, p.b) : fwd_pixel(p.r, p.g, p.b);
                put(d, x, y, o.y, o.u, o.v);
            }
    };
}

Ref inv444(Get get, Put put, InvKind k, bool blocks) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const Rgb p = get(s, x, y);
                const Rgb o = inv_pixel(blocks && x < (w & ~15) ? InvKind::Block444 : k, p.r, p.g, p.b);
                put(d, x, y, o.r, o.g, o.b);
            }
    };
}

// RGB to 4:2:2 planes or C2; `even` leaves an odd last column alone.
Ref fwd422(Get get, bool c2, bool even) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y < h; ++y) {
            for (int x = 0; x + 1 < w; x += 2) {
                const Rgb px[2] = {get(s, x, y), get(s, x + 1, y)};
                int u, v;
                fwd_chroma(px, 2, 65535, u, v);
                const int y0 = ytrunc(px[0]), y1 = ytrunc(px[1]);
                if (c2) {
                    d.at(0, 2 * x, y) = uint8_t(y0), d.at(0, 2 * x + 1, y) = uint8_t(u);
                    d.at(0, 2 * x + 2, y) = uint8_t(y1), d.at(0, 2 * x + 3, y) = uint8_t(v);
                } else {
                    d.at(0, x, y) = uint8_t(y0), d.at(0, x + 1, y) = uint8_t(y1);
                    d.at(1, x / 2, y) = uint8_t(u), d.at(2, x / 2, y) = uint8_t(v);
                }
            }
            if ((w & 1) && !even) {
                const Rgb p = get(s, w - 1, y);
                const Yuv o = fwd_single(p.r, p.g, p.b);
                if (c2) {
                    d.at(0, 2 * w - 2, y) = uint8_t(o.y), d.at(0, 2 * w - 1, y) = uint8_t(o.u);
                } else {
                    d.at(0, w - 1, y) = uint8_t(o.y), d.at(1, w / 2, y) = uint8_t(o.u), d.at(2, w / 2, y) = uint8_t(o.v);
                }
            }
        }
    };
}

Ref fwd420(Get get) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y + 1 < h; y += 2)
            for (int x = 0; x + 1 < w; x += 2) {
                const Rgb px[4] = {get(s, x, y), get(s, x + 1, y), get(s, x, y + 1), get(s, x + 1, y + 1)};
                for (int k = 0; k < 4; ++k) d.at(0, x + (k & 1), y + k / 2) = uint8_t(ytrunc(px[k]));
                int u, v;
                fwd_chroma(px, 4, 131071, u, v);
                d.at(1, x / 2, y / 2) = uint8_t(u), d.at(2, x / 2, y / 2) = uint8_t(v);
            }
    };
}

// 4:2:2 planes to RGB. `blocks422`: the planar kernel, whose 16-pixel blocks
// run along the row, or along the whole image when `whole` says so.
Ref inv422(Put put, bool blocks422, std::function<bool(int, int)> whole = nullptr) {
    return [=](const Img& s, Img& d, int w, int h) {
        const bool run = whole && whole(w, h);
        const int64_t nb = run ? (int64_t(w) * h) & ~15 : w & ~15;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int64_t k = run ? int64_t(y) * w + x : x;
                const Rgb o = inv_pixel(blocks422 && k < nb ? InvKind::Block422 : InvKind::Round, s.at(0, x, y),
                                        s.at(1, x / 2, y), s.at(2, x / 2, y));
                put(d, x, y, o.r, o.g, o.b);
            }
    };
}

Ref inv422c2(Put put) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int c = x / 2 * 4;
                Rgb o;
                if (w == 1) {  // one chroma byte for U and V, truncated
                    const int64_t u = s.at(0, 1, y) - 128, y16 = s.at(0, 0, y) * 65536LL;
                    o = {clamp8(fdiv(y16 + 74711 * u, 65536)), clamp8(fdiv(y16 - 63897 * u, 65536)),
                         clamp8(fdiv(y16 + 133169 * u, 65536))};
                } else {
                    const int v = (w & 1) && x == w - 1 ? s.at(0, c - 1, y) : s.at(0, c + 3, y);
                    o = inv_pixel(InvKind::Round, s.at(0, 2 * x, y), s.at(0, c + 1, y), v);
                }
                put(d, x, y, o.r, o.g, o.b);
            }
    };
}

Ref inv420(Put put) {
    return [=](const Img& s, Img& d, int w, int h) {
        for (int y = 0; y < (h & ~1); ++y)
            for (int x = 0; x < (w & ~1); ++x) {
                const Rgb o = inv_pixel(InvKind::Round, s.at(0, x, y), s.at(1, x / 2, y / 2), s.at(2, x / 2, y / 2));
                put(d, x, y, o.r, o.g, o.b);
            }
    };
}

// ---- The exports -----------------------------------------------------------------

enum class Odd { Never, Any, Width };  // when nmqStsOddSize is returned

// Pointer and step arrays of two images; the flags pass a null argument instead.
struct Args {
    const Nmq8u* s[4] = {};
    Nmq8u* d[4] = {};
    int ss[4] = {}, ds[4] = {};
    bool ns = false, nd = false, nss = false, nds = false;
    Args(const Img& si, Img& di) {
        for (size_t k = 0; k < si.p.size(); ++k) s[k] = si.c(int(k)), ss[k] = si.p[k].step;
        for (size_t k = 0; k < di.p.size(); ++k) d[k] = di.m(int(k)), ds[k] = di.p[k].step;
    }
    const Nmq8u* const* S() const { return ns ? nullptr : s; }
    Nmq8u* const* D() const { return nd ? nullptr : d; }
    const Nmq8u* S0() const { return ns ? nullptr : s[0]; }
    const Nmq16u* W0() const { return reinterpret_cast<const Nmq16u*>(S0()); }
    Nmq8u* D0() const { return nd ? nullptr : d[0]; }
    const int* SS() const { return nss ? nullptr : ss; }
    int* DS() { return nds ? nullptr : ds; }
};

struct Case {
    const char* name;
    Fmt src, dst;
    bool contiguous;
    Odd odd;
    std::function<NmqStatus(Args&, ImageSize)> call;
    Ref ref;
};

#define CALL(expr) [](Args& a, ImageSize r) { return expr; }

const Case kCases[] = {
    {"RGBToYUV_C3R", Fmt::C3, Fmt::C3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_C3R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)),
     fwd444(get_px(3, 0, 1, 2), put_px(3, 0, 1, 2), true)},
    {"RGBToYUV_AC4R", Fmt::AC4, Fmt::AC4, false, Odd::Never, CALL(nmqiRGBToYUV_8u_AC4R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)),
     fwd444(get_px(4, 0, 1, 2), put_px(4, 0, 1, 2), false)},
    {"RGBToYUV_P3R", Fmt::P3, Fmt::P3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_P3R(a.S(), a.ss[0], a.D(), a.ds[0], r)),
     fwd444(get_planes(), put_planes(), false)},
    {"RGBToYUV_C3P3R", Fmt::C3, Fmt::P3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_C3P3R(a.S0(), a.ss[0], a.D(), a.ds[0], r)),
     fwd444(get_px(3, 0, 1, 2), put_planes(), true)},
    {"RGBToYUV_AC4P4R", Fmt::AC4, Fmt::P4, false, Odd::Never, CALL(nmqiRGBToYUV_8u_AC4P4R(a.S0(), a.ss[0], a.D(), a.ds[0], r)),
     [](const Img& s, Img& d, int w, int h) {
         fwd444(get_px(4, 0, 1, 2), put_planes(), false)(s, d, w, h);
         for (int y = 0; y < h; ++y)
             for (int x = 0; x < w; ++x) d.at(3, x, y) = uint8_t(s.at(0, 4 * x + 3, y));
     }},
    {"YUVToRGB_C3R", Fmt::C3, Fmt::C3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_C3R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)),
     inv444(get_px(3, 0, 1, 2), put_px(3, 0, 1, 2), InvKind::Round, true)},
    {"YUVToRGB_AC4R", Fmt::AC4, Fmt::AC4, false, Odd::Never, CALL(nmqiYUVToRGB_8u_AC4R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)),
     inv444(get_px(4, 0, 1, 2), put_px(4, 0, 1, 2), InvKind::TruncG, false)},
    {"YUVToRGB_C3C4R", Fmt::C3, Fmt::AC4, false, Odd::Never,
     CALL(nmqiYUVToRGB_8u_C3C4R(a.S0(), a.ss[0], a.D0(), a.ds[0], r, 0xA7)),
     inv444(get_px(3, 0, 1, 2), put_px(4, 0, 1, 2, 0xA7), InvKind::Round, false)},
    {"YUVToRGB_P3R", Fmt::P3, Fmt::P3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_P3R(a.S(), a.ss[0], a.D(), a.ds[0], r)),
     inv444(get_planes(), put_planes(), InvKind::Planar, false)},
    {"YUVToRGB_P3C3R", Fmt::P3, Fmt::C3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_P3C3R(a.S(), a.ss[0], a.D0(), a.ds[0], r)),
     inv444(get_planes(), put_px(3, 0, 1, 2), InvKind::Round, true)},

    {"RGBToYUV422_C3C2R", Fmt::C3, Fmt::C2, false, Odd::Never,
     CALL(nmqiRGBToYUV422_8u_C3C2R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)), fwd422(get_px(3, 0, 1, 2), true, false)},
    {"RGBToYUV422_C3P3R", Fmt::C3, Fmt::P422, false, Odd::Never,
     CALL(nmqiRGBToYUV422_8u_C3P3R(a.S0(), a.ss[0], a.D(), a.DS(), r)), fwd422(get_px(3, 0, 1, 2), false, false)},
    {"RGBToYUV422_P3R", Fmt::P3, Fmt::P422, false, Odd::Never, CALL(nmqiRGBToYUV422_8u_P3R(a.S(), a.ss[0], a.D(), a.DS(), r)),
     fwd422(get_planes(), false, false)},
    {"RGBToYUV422_P3", Fmt::P3, Fmt::P422, true, Odd::Never, CALL(nmqiRGBToYUV422_8u_P3(a.S(), a.D(), r)),
     fwd422(get_planes(), false, false)},
    {"RGBToYUV422_C3P3", Fmt::C3, Fmt::P422, true, Odd::Never, CALL(nmqiRGBToYUV422_8u_C3P3(a.S0(), a.D(), r)),
     fwd422(get_px(3, 0, 1, 2), false, false)},
    {"RGB565ToYUV422", Fmt::W16, Fmt::P422, false, Odd::Width,
     CALL(nmqiRGB565ToYUV422_16u8u_C3P3R(a.W0(), a.ss[0], a.D(), a.DS(), r)), fwd422(get_word(6, true), false, true)},

    {"YUV422ToRGB_C2C3R", Fmt::C2, Fmt::C3, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_C2C3R(a.S0(), a.ss[0], a.D0(), a.ds[0], r)), inv422c2(put_px(3, 0, 1, 2))},
    {"YUV422ToRGB_P3R", Fmt::P422, Fmt::P3, false, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3R(a.S(), a.SS(), a.D(), a.ds[0], r)),
     inv422(put_planes(), true)},
    {"YUV422ToRGB_P3C3R", Fmt::P422, Fmt::C3, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_P3C3R(a.S(), a.SS(), a.D0(), a.ds[0], r)), inv422(put_px(3, 0, 1, 2), false)},
    {"YUV422ToRGB_P3AC4R", Fmt::P422, Fmt::AC4, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_P3AC4R(a.S(), a.SS(), a.D0(), a.ds[0], r)), inv422(put_px(4, 0, 1, 2), false)},
    {"YUV422ToRGB_P3", Fmt::P422, Fmt::P3, true, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3(a.S(), a.D(), r)),
     inv422(put_planes(), true, [](int w, int h) { return w * h >= 256 && w % 2 == 0; })},
    {"YUV422ToRGB_P3C3", Fmt::P422, Fmt::C3, true, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3C3(a.S(), a.D0(), r)),
     inv422(put_px(3, 0, 1, 2), false)},

    {"RGBToYUV420_P3R", Fmt::P3, Fmt::P420, false, Odd::Any, CALL(nmqiRGBToYUV420_8u_P3R(a.S(), a.ss[0], a.D(), a.DS(), r)),
     fwd420(get_planes())},
    {"RGBToYUV420_C3P3R", Fmt::C3, Fmt::P420, false, Odd::Any,
     CALL(nmqiRGBToYUV420_8u_C3P3R(a.S0(), a.ss[0], a.D(), a.DS(), r)), fwd420(get_px(3, 0, 1, 2))},
    {"RGBToYUV420_P3", Fmt::P3, Fmt::P420, true, Odd::Any, CALL(nmqiRGBToYUV420_8u_P3(a.S(), a.D(), r)), fwd420(get_planes())},
    {"RGBToYUV420_C3P3", Fmt::C3, Fmt::P420, true, Odd::Any, CALL(nmqiRGBToYUV420_8u_C3P3(a.S0(), a.D(), r)),
     fwd420(get_px(3, 0, 1, 2))},
    {"BGRToYUV420_AC4P3R", Fmt::AC4, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGRToYUV420_8u_AC4P3R(a.S0(), a.ss[0], a.D(), a.DS(), r)), fwd420(get_px(4, 2, 1, 0))},
    {"RGB565ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiRGB565ToYUV420_16u8u_C3P3R(a.W0(), a.ss[0], a.D(), a.DS(), r)), fwd420(get_word(6, true))},
    {"BGR565ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGR565ToYUV420_16u8u_C3P3R(a.W0(), a.ss[0], a.D(), a.DS(), r)), fwd420(get_word(6, false))},
    {"BGR555ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGR555ToYUV420_16u8u_C3P3R(a.W0(), a.ss[0], a.D(), a.DS(), r)), fwd420(get_word(5, false))},

    {"YUV420ToRGB_P3R", Fmt::P420, Fmt::P3, false, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3R(a.S(), a.SS(), a.D(), a.ds[0], r)),
     inv420(put_planes())},
    {"YUV420ToRGB_P3C3R", Fmt::P420, Fmt::C3, false, Odd::Any,
     CALL(nmqiYUV420ToRGB_8u_P3C3R(a.S(), a.SS(), a.D0(), a.ds[0], r)), inv420(put_px(3, 0, 1, 2))},
    {"YUV420ToRGB_P3AC4R", Fmt::P420, Fmt::AC4, false, Odd::Any,
     CALL(nmqiYUV420ToRGB_8u_P3AC4R(a.S(), a.SS(), a.D0(), a.ds[0], r)), inv420(put_px(4, 0, 1, 2))},
    {"YUV420ToRGB_P3", Fmt::P420, Fmt::P3, true, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3(a.S(), a.D(), r)), inv420(put_planes())},
    {"YUV420ToRGB_P3C3", Fmt::P420, Fmt::C3, true, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3C3(a.S(), a.D0(), r)),
     inv420(put_px(3, 0, 1, 2))},
    {"YUV420ToBGR_P3C3R", Fmt::P420, Fmt::C3, false, Odd::Any,
     CALL(nmqiYUV420ToBGR_8u_P3C3R(a.S(), a.SS(), a.D0(), a.ds[0], r)), inv420(put_px(3, 2, 1, 0))},
};

void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }

class Sweep : public ::testing::TestWithParam<Case> {};

TEST_P(Sweep, MatchesReferenceAtEveryLevel) {
    const Case& c = GetParam();
    nmqt::Rng rng(uint32_t(std::hash<std::string>()(c.name)));
    int k = 0;
    for (const Shape& sh : nmqt::sweep_shapes()) {
        const int w = sh.w, h = sh.h;
        Img s = make(c.src, w, h, sh, 0, c.contiguous, ++k % 5 == 0);
        for (Plane& q : s.p) q.randomize(rng);
        Img d0 = make(c.dst, w, h, sh, 16, c.contiguous), d = make(c.dst, w, h, sh, 16, c.contiguous);
        Img e = make(c.dst, w, h, sh, 16, c.contiguous);
        for (size_t i = 0; i < d0.p.size(); ++i) d0.p[i].randomize(rng), e.p[i].copy_from(d0.p[i]);
        c.ref(s, e, w, h);
        const bool odd = c.odd == Odd::Any ? ((w | h) & 1) : c.odd == Odd::Width && (w & 1);
        for (nmq::Isa lv : nmqt::isa_levels()) {
            for (size_t i = 0; i < d.p.size(); ++i) d.p[i].copy_from(d0.p[i]), d.p[i].snapshot();
            nmq::IsaCap cap(lv);
            Args a(s, d);
            ASSERT_EQ(c.call(a, {w, h}), odd ? nmqStsOddSize : nmqStsOk) << to_string(sh);
            for (size_t i = 0; i < d.p.size(); ++i) {
                const std::string diff = nmqt::first_diff(d.p[i].roi(), e.p[i].roi(), d.p[i].row_bytes);
                ASSERT_EQ(diff, "") << nmqt::isa_name(lv) << " plane " << i << " " << to_string(sh);
                ASSERT_TRUE(d.p[i].outside_untouched()) << nmqt::isa_name(lv) << " plane " << i << " " << to_string(sh);
            }
        }
    }
}

// Argument checks: null pointers (image, pointer array, step array) first,
// then the ROI, then the planes inside the arrays; an error writes nothing.
TEST_P(Sweep, CheckOrderAndNothingWritten) {
    const Case& c = GetParam();
    enum What { NullSrc, NullDst, NullSrcSteps, NullDstSteps, SrcPlane, DstPlane };
    struct Check { What what; ImageSize roi; NmqStatus want; };
    const Check checks[] = {
        {NullSrc, {0, 0}, nmqStsNullPtr},   {NullDst, {-1, 2}, nmqStsNullPtr}, {NullSrcSteps, {0, 2}, nmqStsNullPtr},
        {NullDstSteps, {4, 0}, nmqStsNullPtr}, {SrcPlane, {4, 2}, nmqStsNullPtr}, {DstPlane, {4, 2}, nmqStsNullPtr},
        {SrcPlane, {0, 2}, nmqStsSize},     {DstPlane, {4, -3}, nmqStsSize},    {SrcPlane, {-5, -5}, nmqStsSize},
    };
    const auto has_steps = [&](Fmt f) { return !c.contiguous && (f == Fmt::P422 || f == Fmt::P420); };
    nmqt::Rng rng;
    Img s = make(c.src, 4, 2, {4, 2, 0, 0}, 0, c.contiguous), d = make(c.dst, 4, 2, {4, 2, 0, 0}, 16, c.contiguous);
    for (Plane& q : s.p) q.randomize(rng);
    for (Plane& q : d.p) q.randomize(rng);
    for (const Check& k : checks) {
        const int planes = k.what == SrcPlane ? int(s.p.size()) : k.what == DstPlane ? int(d.p.size()) : 0;
        if ((k.what == NullSrcSteps && !has_steps(c.src)) || (k.what == NullDstSteps && !has_steps(c.dst)) ||
            planes == 1)
            continue;
        for (int i = 0; i < std::max(planes, 1); ++i) {
            Args a(s, d);
            a.ns = k.what == NullSrc, a.nd = k.what == NullDst, a.nss = k.what == NullSrcSteps;
            a.nds = k.what == NullDstSteps;
            if (k.what == SrcPlane) a.s[i] = nullptr;
            if (k.what == DstPlane) a.d[i] = nullptr;
            EXPECT_EQ(c.call(a, k.roi), k.want) << "case " << k.what << " plane " << i << " roi " << k.roi.width
                                                << "x" << k.roi.height;
            for (const Plane& q : d.p) ASSERT_TRUE(q.untouched());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Yuv, Sweep, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<Case>& i) { return std::string(i.param.name); });

}  // namespace
