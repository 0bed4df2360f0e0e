// Every export of the family on random images of many shapes, at every SIMD
// level: the bytes must match the reference arithmetic of yuv_test_util.h,
// nothing outside the ROI may change (guards, padding, kept alpha, the odd
// column and row a 4:2:0 function leaves alone), and sources are exact
// allocations so that AddressSanitizer or a protected page reports any read
// past them.
#include "yuv/yuv_test_util.h"

using namespace yt;
using nmqt::Shape;

namespace {

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

struct Case {
    const char* name;
    Fmt src, dst;
    bool contiguous;
    Odd odd;
    std::function<NmqStatus(const Img&, Img&, ImageSize)> call;
    Ref ref;
};

struct Args {  // pointer and step arrays of two images
    const Nmq8u* s[4] = {};
    Nmq8u* d[4] = {};
    int ss[4] = {}, ds[4] = {};
    Args(const Img& si, Img& di) {
        for (size_t k = 0; k < si.p.size(); ++k) s[k] = si.c(int(k)), ss[k] = si.p[k].step;
        for (size_t k = 0; k < di.p.size(); ++k) d[k] = di.m(int(k)), ds[k] = di.p[k].step;
    }
};

#define CALL(expr) [](const Img& si, Img& di, ImageSize r) { Args a(si, di); return expr; }
#define W16P reinterpret_cast<const Nmq16u*>(a.s[0])

const Case kCases[] = {
    {"RGBToYUV_C3R", Fmt::C3, Fmt::C3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_C3R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)),
     fwd444(get_px(3, 0, 1, 2), put_px(3, 0, 1, 2), true)},
    {"RGBToYUV_AC4R", Fmt::AC4, Fmt::AC4, false, Odd::Never, CALL(nmqiRGBToYUV_8u_AC4R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)),
     fwd444(get_px(4, 0, 1, 2), put_px(4, 0, 1, 2), false)},
    {"RGBToYUV_P3R", Fmt::P3, Fmt::P3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_P3R(a.s, a.ss[0], a.d, a.ds[0], r)),
     fwd444(get_planes(), put_planes(), false)},
    {"RGBToYUV_C3P3R", Fmt::C3, Fmt::P3, false, Odd::Never, CALL(nmqiRGBToYUV_8u_C3P3R(a.s[0], a.ss[0], a.d, a.ds[0], r)),
     fwd444(get_px(3, 0, 1, 2), put_planes(), true)},
    {"RGBToYUV_AC4P4R", Fmt::AC4, Fmt::P4, false, Odd::Never, CALL(nmqiRGBToYUV_8u_AC4P4R(a.s[0], a.ss[0], a.d, a.ds[0], r)),
     [](const Img& s, Img& d, int w, int h) {
         fwd444(get_px(4, 0, 1, 2), put_planes(), false)(s, d, w, h);
         for (int y = 0; y < h; ++y)
             for (int x = 0; x < w; ++x) d.at(3, x, y) = uint8_t(s.at(0, 4 * x + 3, y));
     }},
    {"YUVToRGB_C3R", Fmt::C3, Fmt::C3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_C3R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)),
     inv444(get_px(3, 0, 1, 2), put_px(3, 0, 1, 2), InvKind::Round, true)},
    {"YUVToRGB_AC4R", Fmt::AC4, Fmt::AC4, false, Odd::Never, CALL(nmqiYUVToRGB_8u_AC4R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)),
     inv444(get_px(4, 0, 1, 2), put_px(4, 0, 1, 2), InvKind::TruncG, false)},
    {"YUVToRGB_C3C4R", Fmt::C3, Fmt::AC4, false, Odd::Never,
     CALL(nmqiYUVToRGB_8u_C3C4R(a.s[0], a.ss[0], a.d[0], a.ds[0], r, 0xA7)),
     inv444(get_px(3, 0, 1, 2), put_px(4, 0, 1, 2, 0xA7), InvKind::Round, false)},
    {"YUVToRGB_P3R", Fmt::P3, Fmt::P3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_P3R(a.s, a.ss[0], a.d, a.ds[0], r)),
     inv444(get_planes(), put_planes(), InvKind::Planar, false)},
    {"YUVToRGB_P3C3R", Fmt::P3, Fmt::C3, false, Odd::Never, CALL(nmqiYUVToRGB_8u_P3C3R(a.s, a.ss[0], a.d[0], a.ds[0], r)),
     inv444(get_planes(), put_px(3, 0, 1, 2), InvKind::Round, true)},

    {"RGBToYUV422_C3C2R", Fmt::C3, Fmt::C2, false, Odd::Never,
     CALL(nmqiRGBToYUV422_8u_C3C2R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)), fwd422(get_px(3, 0, 1, 2), true, false)},
    {"RGBToYUV422_C3P3R", Fmt::C3, Fmt::P422, false, Odd::Never,
     CALL(nmqiRGBToYUV422_8u_C3P3R(a.s[0], a.ss[0], a.d, a.ds, r)), fwd422(get_px(3, 0, 1, 2), false, false)},
    {"RGBToYUV422_P3R", Fmt::P3, Fmt::P422, false, Odd::Never, CALL(nmqiRGBToYUV422_8u_P3R(a.s, a.ss[0], a.d, a.ds, r)),
     fwd422(get_planes(), false, false)},
    {"RGBToYUV422_P3", Fmt::P3, Fmt::P422, true, Odd::Never, CALL(nmqiRGBToYUV422_8u_P3(a.s, a.d, r)),
     fwd422(get_planes(), false, false)},
    {"RGBToYUV422_C3P3", Fmt::C3, Fmt::P422, true, Odd::Never, CALL(nmqiRGBToYUV422_8u_C3P3(a.s[0], a.d, r)),
     fwd422(get_px(3, 0, 1, 2), false, false)},
    {"RGB565ToYUV422", Fmt::W16, Fmt::P422, false, Odd::Width,
     CALL(nmqiRGB565ToYUV422_16u8u_C3P3R(W16P, a.ss[0], a.d, a.ds, r)), fwd422(get_word(6, true), false, true)},

    {"YUV422ToRGB_C2C3R", Fmt::C2, Fmt::C3, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_C2C3R(a.s[0], a.ss[0], a.d[0], a.ds[0], r)), inv422c2(put_px(3, 0, 1, 2))},
    {"YUV422ToRGB_P3R", Fmt::P422, Fmt::P3, false, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3R(a.s, a.ss, a.d, a.ds[0], r)),
     inv422(put_planes(), true)},
    {"YUV422ToRGB_P3C3R", Fmt::P422, Fmt::C3, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_P3C3R(a.s, a.ss, a.d[0], a.ds[0], r)), inv422(put_px(3, 0, 1, 2), false)},
    {"YUV422ToRGB_P3AC4R", Fmt::P422, Fmt::AC4, false, Odd::Never,
     CALL(nmqiYUV422ToRGB_8u_P3AC4R(a.s, a.ss, a.d[0], a.ds[0], r)), inv422(put_px(4, 0, 1, 2), false)},
    {"YUV422ToRGB_P3", Fmt::P422, Fmt::P3, true, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3(a.s, a.d, r)),
     inv422(put_planes(), true, [](int w, int h) { return w * h >= 256 && w % 2 == 0; })},
    {"YUV422ToRGB_P3C3", Fmt::P422, Fmt::C3, true, Odd::Never, CALL(nmqiYUV422ToRGB_8u_P3C3(a.s, a.d[0], r)),
     inv422(put_px(3, 0, 1, 2), false)},

    {"RGBToYUV420_P3R", Fmt::P3, Fmt::P420, false, Odd::Any, CALL(nmqiRGBToYUV420_8u_P3R(a.s, a.ss[0], a.d, a.ds, r)),
     fwd420(get_planes())},
    {"RGBToYUV420_C3P3R", Fmt::C3, Fmt::P420, false, Odd::Any,
     CALL(nmqiRGBToYUV420_8u_C3P3R(a.s[0], a.ss[0], a.d, a.ds, r)), fwd420(get_px(3, 0, 1, 2))},
    {"RGBToYUV420_P3", Fmt::P3, Fmt::P420, true, Odd::Any, CALL(nmqiRGBToYUV420_8u_P3(a.s, a.d, r)), fwd420(get_planes())},
    {"RGBToYUV420_C3P3", Fmt::C3, Fmt::P420, true, Odd::Any, CALL(nmqiRGBToYUV420_8u_C3P3(a.s[0], a.d, r)),
     fwd420(get_px(3, 0, 1, 2))},
    {"BGRToYUV420_AC4P3R", Fmt::AC4, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGRToYUV420_8u_AC4P3R(a.s[0], a.ss[0], a.d, a.ds, r)), fwd420(get_px(4, 2, 1, 0))},
    {"RGB565ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiRGB565ToYUV420_16u8u_C3P3R(W16P, a.ss[0], a.d, a.ds, r)), fwd420(get_word(6, true))},
    {"BGR565ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGR565ToYUV420_16u8u_C3P3R(W16P, a.ss[0], a.d, a.ds, r)), fwd420(get_word(6, false))},
    {"BGR555ToYUV420", Fmt::W16, Fmt::P420, false, Odd::Any,
     CALL(nmqiBGR555ToYUV420_16u8u_C3P3R(W16P, a.ss[0], a.d, a.ds, r)), fwd420(get_word(5, false))},

    {"YUV420ToRGB_P3R", Fmt::P420, Fmt::P3, false, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3R(a.s, a.ss, a.d, a.ds[0], r)),
     inv420(put_planes())},
    {"YUV420ToRGB_P3C3R", Fmt::P420, Fmt::C3, false, Odd::Any,
     CALL(nmqiYUV420ToRGB_8u_P3C3R(a.s, a.ss, a.d[0], a.ds[0], r)), inv420(put_px(3, 0, 1, 2))},
    {"YUV420ToRGB_P3AC4R", Fmt::P420, Fmt::AC4, false, Odd::Any,
     CALL(nmqiYUV420ToRGB_8u_P3AC4R(a.s, a.ss, a.d[0], a.ds[0], r)), inv420(put_px(4, 0, 1, 2))},
    {"YUV420ToRGB_P3", Fmt::P420, Fmt::P3, true, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3(a.s, a.d, r)), inv420(put_planes())},
    {"YUV420ToRGB_P3C3", Fmt::P420, Fmt::C3, true, Odd::Any, CALL(nmqiYUV420ToRGB_8u_P3C3(a.s, a.d[0], r)),
     inv420(put_px(3, 0, 1, 2))},
    {"YUV420ToBGR_P3C3R", Fmt::P420, Fmt::C3, false, Odd::Any,
     CALL(nmqiYUV420ToBGR_8u_P3C3R(a.s, a.ss, a.d[0], a.ds[0], r)), inv420(put_px(3, 2, 1, 0))},
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
            ASSERT_EQ(c.call(s, d, {w, h}), odd ? nmqStsOddSize : nmqStsOk) << to_string(sh);
            for (size_t i = 0; i < d.p.size(); ++i) {
                const std::string diff = nmqt::first_diff(d.p[i].roi(), e.p[i].roi(), d.p[i].row_bytes);
                ASSERT_EQ(diff, "") << nmqt::isa_name(lv) << " plane " << i << " " << to_string(sh);
                ASSERT_TRUE(d.p[i].outside_untouched()) << nmqt::isa_name(lv) << " plane " << i << " " << to_string(sh);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Yuv, Sweep, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<Case>& i) { return std::string(i.param.name); });

}  // namespace
