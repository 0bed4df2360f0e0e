#include "model.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace smpt {
namespace {

enum class Lay { C2, P2, P3 };
struct Info {
    Lay lay;
    int sx, sy;                 // chroma subsampling
    bool crFirst;               // P3: Cr plane before Cb
    int y0, cb, y1, cr;         // C2 byte positions
};

Info info(Fmt f) {
    switch (f) {
        case Fmt::C2_YCbCr: return {Lay::C2, 2, 1, false, 0, 1, 2, 3};
        case Fmt::C2_CbYCr: return {Lay::C2, 2, 1, false, 1, 0, 3, 2};
        case Fmt::C2_YCrCb: return {Lay::C2, 2, 1, false, 0, 3, 2, 1};
        case Fmt::P3_422: return {Lay::P3, 2, 1, false, 0, 0, 0, 0};
        case Fmt::P3_422_CrCb: return {Lay::P3, 2, 1, true, 0, 0, 0, 0};
        case Fmt::P3_420: return {Lay::P3, 2, 2, false, 0, 0, 0, 0};
        case Fmt::P3_420_CrCb: return {Lay::P3, 2, 2, true, 0, 0, 0, 0};
        case Fmt::P2_420: return {Lay::P2, 2, 2, false, 0, 0, 0, 0};
        case Fmt::P3_411: return {Lay::P3, 4, 1, false, 0, 0, 0, 0};
        case Fmt::P2_411: return {Lay::P2, 4, 1, false, 0, 0, 0, 0};
        case Fmt::P3_1620: return {Lay::P3, 4, 4, false, 0, 0, 0, 0};
    }
    return {};
}

// Plane sizes (bytes per row, rows) of a w x h image; partial chroma
// periods count as whole ones (the caller's buffers for an odd ROI).
std::vector<std::pair<int, int>> plane_sizes(Fmt f, int w, int h) {
    const Info i = info(f);
    w = std::max(w, 0);
    h = std::max(h, 0);
    const int cw = (w + i.sx - 1) / i.sx, ch = (h + i.sy - 1) / i.sy;
    switch (i.lay) {
        case Lay::C2: return {{4 * ((w + 1) / 2), h}};
        case Lay::P2: return {{w, h}, {2 * cw, ch}};
        case Lay::P3: return {{w, h}, {cw, ch}, {cw, ch}};
    }
    return {};
}

// Decoded image: luma and two chroma arrays.
struct Img {
    int w = 0, h = 0, cw = 0, ch = 0;
    std::vector<int> y, cb, cr;
    Img(int w_, int h_, int cw_, int ch_)
        : w(w_), h(h_), cw(cw_), ch(ch_), y(size_t(w_) * h_), cb(size_t(cw_) * ch_), cr(size_t(cw_) * ch_) {}
    int& Y(int r, int x) { return y[size_t(r) * w + x]; }
    int& B(int r, int x) { return cb[size_t(r) * cw + x]; }
    int& R(int r, int x) { return cr[size_t(r) * cw + x]; }
};

Img blank(Fmt f, int w, int h) {
    const Info i = info(f);
    return Img(w, h, w / i.sx, h / i.sy);
}

Img decode(Fmt f, const std::vector<nmqt::Plane>& p, int w, int h) {
    const Info i = info(f);
    Img im = blank(f, w, h);
    for (int r = 0; r < h; ++r) {
        if (i.lay == Lay::C2) {
            for (int j = 0; j < w / 2; ++j) {
                const u8* g = p[0].row(r) + 4 * j;
                im.Y(r, 2 * j) = g[i.y0];
                im.Y(r, 2 * j + 1) = g[i.y1];
                im.B(r, j) = g[i.cb];
                im.R(r, j) = g[i.cr];
            }
        } else {
            for (int x = 0; x < w; ++x) im.Y(r, x) = p[0].row(r)[x];
        }
    }
    for (int r = 0; r < im.ch && i.lay != Lay::C2; ++r)
        for (int x = 0; x < im.cw; ++x) {
            if (i.lay == Lay::P2) {
                im.B(r, x) = p[1].row(r)[2 * x];
                im.R(r, x) = p[1].row(r)[2 * x + 1];
            } else {
                im.B(r, x) = p[i.crFirst ? 2 : 1].row(r)[x];
                im.R(r, x) = p[i.crFirst ? 1 : 2].row(r)[x];
            }
        }
    return im;
}

// Writes im into the expected destination ROIs (row-major, row_bytes wide).
void encode(Fmt f, Img& im, std::vector<std::vector<u8>>& e, const std::vector<nmqt::Plane>& p) {
    const Info i = info(f);
    auto at = [&](int plane, int r, int x) -> u8& { return e[size_t(plane)][size_t(r) * size_t(p[size_t(plane)].row_bytes) + size_t(x)]; };
    for (int r = 0; r < im.h; ++r) {
        if (i.lay == Lay::C2) {
            for (int j = 0; j < im.w / 2; ++j) {
                at(0, r, 4 * j + i.y0) = u8(im.Y(r, 2 * j));
                at(0, r, 4 * j + i.y1) = u8(im.Y(r, 2 * j + 1));
                at(0, r, 4 * j + i.cb) = u8(im.B(r / i.sy, j));
                at(0, r, 4 * j + i.cr) = u8(im.R(r / i.sy, j));
            }
        } else {
            for (int x = 0; x < im.w; ++x) at(0, r, x) = u8(im.Y(r, x));
        }
    }
    for (int r = 0; r < im.ch && i.lay != Lay::C2; ++r)
        for (int x = 0; x < im.cw; ++x) {
            if (i.lay == Lay::P2) {
                at(1, r, 2 * x) = u8(im.B(r, x));
                at(1, r, 2 * x + 1) = u8(im.R(r, x));
            } else {
                at(i.crFirst ? 2 : 1, r, x) = u8(im.B(r, x));
                at(i.crFirst ? 1 : 2, r, x) = u8(im.R(r, x));
            }
        }
}

int up(int a, int b) { return (a + b + 1) / 2; }
int down(int a, int b) { return (a + b) / 2; }
int clamp8(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

// Samples (of a row of m) that the vector blocks cover: blocks of `big` while
// more than `big` remain, then blocks of 16 while more than 16 remain.
int blocks(int m, int big) {
    int i = 0;
    while (m - i > big) i += big;
    while (m - i > 16) i += 16;
    return i;
}

// One chroma plane (as a function of row, column) resampled by the rule.
template <class Get, class Put>
void resample(Rule rule, int scw, int sch, int dcw, int dch, Get s, Put d) {
    switch (rule) {
        case Rule::Same:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(r, x));
            break;
        case Rule::VDec:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(2 * r, x));
            break;
        case Rule::VDup:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(r / 2, x));
            break;
        case Rule::VFilter:
            for (int r = 0; r < dch; ++r)
                for (int x = 0; x < dcw; ++x) {
                    const int k = r / 2;
                    auto c = [&](int j) { return s(std::min(std::max(j, 0), sch - 1), x); };
                    const int t = -c(k - 1) + 9 * c(k) + 9 * c(k + 1) - c(k + 2) + 8;
                    d(r, x, r % 2 ? clamp8(int(std::floor(t / 16.0))) : c(k));
                }
            break;
        case Rule::HDec:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(r, 2 * x));
            break;
        case Rule::HDup:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(r, x / 2));
            break;
        case Rule::To411:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(r / 2, 2 * x + r % 2));
            break;
        case Rule::From411:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(2 * r + x % 2, x / 2));
            break;
        case Rule::Down1620:
            for (int r = 0; r < dch; ++r) for (int x = 0; x < dcw; ++x) d(r, x, s(2 * r, 2 * x));
            break;
        case Rule::Up1620:
        case Rule::Avg411To420: {
            const int m = scw;
            const int v = blocks(m, rule == Rule::Up1620 ? 32 : 64);
            // Horizontal expansion of source row k.
            auto H = [&](int k, int x) {
                const int i = x / 2;
                if (x % 2 == 0) return s(k, i);
                if (i + 1 >= m) return s(k, m - 1);
                return i < v ? up(s(k, i), s(k, i + 1)) : down(s(k, i), s(k, i + 1));
            };
            for (int r = 0; r < dch; ++r)
                for (int x = 0; x < dcw; ++x) {
                    if (rule == Rule::Avg411To420) { d(r, x, H(2 * r, x)); continue; }
                    const int k = r / 2, i = x / 2;
                    if (r % 2 == 0) d(r, x, H(k, x));
                    else if (k + 1 >= sch) d(r, x, s(k, i));                       // last row: samples repeated
                    else if (i < v) d(r, x, up(H(k, x), H(k + 1, x)));              // both levels round up
                    else if (i + 1 >= m || x % 2 == 0) d(r, x, down(s(k, i), s(k + 1, i)));
                    else d(r, x, down(down(s(k + 1, i), s(k + 1, i + 1)), down(s(k, i), s(k, i + 1))));
                }
            break;
        }
        case Rule::Avg420To411: {
            const int v = dcw / 32 * 32;
            for (int r = 0; r < dch; ++r)
                for (int x = 0; x < dcw; ++x) {
                    const int k = r / 2;
                    if (r % 2 == 0 || k + 1 >= sch) d(r, x, s(k, 2 * x));
                    else d(r, x, x < v ? up(s(k, 2 * x), s(k + 1, 2 * x)) : down(s(k, 2 * x), s(k + 1, 2 * x)));
                }
            break;
        }
    }
}

}  // namespace

int plane_count(Fmt f) { return int(plane_sizes(f, 4, 4).size()); }
bool is_p3(Fmt f) { return info(f).lay == Lay::P3; }

Expect expect(Sz rule, int w, int h) {
    const NmqStatus bad = nmqStsSize;
    switch (rule) {
        case Sz::E2E2: return (w < 2 || h < 2) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~1, h & ~1};
        case Sz::Filter: return (w < 2 || h < 8) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~1, h & ~7};
        case Sz::Q4E2: return (w < 4 || h < 2) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~3, h & ~1};
        case Sz::Q4H1: return (w < 4 || h < 1) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~3, h};
        case Sz::E2H1: return (w < 2 || h < 1) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~1, h};
        case Sz::Q4Only: return w < 4 ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~3, std::max(h, 0)};
        case Sz::E2Only: return w < 2 ? Expect{bad, 0, 0} : Expect{nmqStsOk, w & ~1, std::max(h, 0)};
        case Sz::Strict4:
            return (w < 4 || h < 4 || w % 4 || h % 4) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w, h};
        case Sz::Strict4E2:
            return (w < 4 || h < 2 || w % 4 || h % 2) ? Expect{bad, 0, 0} : Expect{nmqStsOk, w, h};
    }
    return {bad, 0, 0};
}

std::string run_case(const Member& m, int w, int h, int pad, int misalign, bool page_guard, uint32_t seed,
                     int dst_misalign) {
    if (dst_misalign < 0) dst_misalign = (misalign + 3) % 16;
    nmqt::Rng rng(seed);
    const Expect e = expect(m.size, w, h);
    std::vector<nmqt::Plane> src, dst;
    // Sources hold exactly the rounded ROI; destinations the caller's ROI plus guards.
    for (auto [rb, rows] : plane_sizes(m.src, e.w, e.h)) src.emplace_back(rb, rows, pad, misalign, 0, page_guard);
    for (auto [rb, rows] : plane_sizes(m.dst, w, h)) dst.emplace_back(rb, rows, pad, dst_misalign, 16);
    for (auto& p : src) p.randomize(rng);
    for (auto& p : dst) p.randomize(rng);
    std::vector<std::vector<u8>> want;
    for (auto& p : dst) want.push_back(p.roi());
    if (e.status == nmqStsOk) {
        Img a = decode(m.src, src, e.w, e.h);
        Img b = blank(m.dst, e.w, e.h);
        for (int c = 0; c < 2; ++c) {
            std::vector<int>& sv = c ? a.cr : a.cb;
            std::vector<int>& dv = c ? b.cr : b.cb;
            resample(m.rule, a.cw, a.ch, b.cw, b.ch, [&](int r, int x) { return sv[size_t(r) * a.cw + x]; },
                     [&](int r, int x, int v) { dv[size_t(r) * b.cw + x] = v; });
        }
        b.y = a.y;
        encode(m.dst, b, want, dst);
    }
    Io io;
    for (size_t i = 0; i < src.size(); ++i) { io.s[i] = src[i].ptr(); io.ss[i] = src[i].step; }
    for (size_t i = 0; i < dst.size(); ++i) { io.d[i] = dst[i].ptr(); io.ds[i] = dst[i].step; }
    const NmqStatus st = m.call(io, ImageSize{w, h});
    std::ostringstream o;
    o << m.name << " " << w << "x" << h << " pad " << pad << " misalign " << misalign << ": ";
    if (st != e.status) return o.str() + "status " + std::to_string(st) + ", want " + std::to_string(e.status);
    for (size_t i = 0; i < dst.size(); ++i) {
        if (!dst[i].outside_untouched()) return o.str() + "wrote outside plane " + std::to_string(i);
        const std::string d = nmqt::first_diff(dst[i].roi(), want[i], dst[i].row_bytes);
        if (!d.empty()) return o.str() + "plane " + std::to_string(i) + ": " + d;
    }
    return "";
}

}  // namespace smpt
