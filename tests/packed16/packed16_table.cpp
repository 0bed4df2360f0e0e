#include "packed16/packed16_table.h"

#include <algorithm>

namespace p16t {
namespace {

using W = Nmq16u*;
using CW = const Nmq16u*;

// Pointer arrays and step arrays as the caller passes them.
const Nmq8u* const* src3(const Img& i, const Nmq8u* (&a)[3]) {
    for (int k = 0; k < 3; ++k) a[k] = i.p[k];
    return i.null_array ? nullptr : a;
}
Nmq8u* const* dst3(const Img& i, Nmq8u* (&a)[3]) {
    for (int k = 0; k < 3; ++k) a[k] = i.p[k];
    return i.null_array ? nullptr : a;
}
const int* steps(const Img& i) { return i.null_steps ? nullptr : i.step; }

constexpr Fmt k565{5, 6, false}, k565b{5, 6, true}, k555{5, 5, false}, k555b{5, 5, true}, k444{4, 4, false},
    k444b{4, 4, true};

}  // namespace

#define ONE(fn) [](const Img& s, const Img& d, ImageSize r) { return fn(s.p[0], s.step[0], W(d.p[0]), d.step[0], r); }
#define P3ONE(fn)                                                      \
    [](const Img& s, const Img& d, ImageSize r) {                      \
        const Nmq8u* a[3];                                             \
        return fn(src3(s, a), s.step[0], W(d.p[0]), d.step[0], r);     \
    }
#define P3(fn)                                                         \
    [](const Img& s, const Img& d, ImageSize r) {                      \
        const Nmq8u* a[3];                                             \
        return fn(src3(s, a), steps(s), W(d.p[0]), d.step[0], r);      \
    }
#define FMTS(X, pre, post, call, src, m, dm)                                                          \
    X(pre##RGB565##post, call, src, m, k565, false), X(pre##RGB565Dither##post, call, src, dm, k565, true), \
    X(pre##BGR565##post, call, src, m, k565b, false), X(pre##BGR565Dither##post, call, src, dm, k565b, true), \
    X(pre##RGB555##post, call, src, m, k555, false), X(pre##RGB555Dither##post, call, src, dm, k555, true), \
    X(pre##BGR555##post, call, src, m, k555b, false), X(pre##BGR555Dither##post, call, src, dm, k555b, true), \
    X(pre##RGB444##post, call, src, m, k444, false), X(pre##RGB444Dither##post, call, src, dm, k444, true), \
    X(pre##BGR444##post, call, src, m, k444b, false), X(pre##BGR444Dither##post, call, src, dm, k444b, true)
#define OUT(fn, call, src, m, f, d) Export{#fn, call(fn), L::src, L::Words, M::m, f, d}

const std::vector<Export>& exports() {
    static const std::vector<Export> v = [] {
        std::vector<Export> t = {
            FMTS(OUT, nmqiYCbCrTo, _8u16u_C3R, ONE, Y3, Full, Q4),
            FMTS(OUT, nmqiYCbCrTo, _8u16u_P3C3R, P3ONE, YP, Full, Q4),
            FMTS(OUT, nmqiYCbCr422To, _8u16u_C2C3R, ONE, C2, Sub, Sub),
            FMTS(OUT, nmqiYCbCr422To, _8u16u_P3C3R, P3, P422, Sub, Sub),
            FMTS(OUT, nmqiYCbCr420To, _8u16u_P3C3R, P3, P420, Sub, Sub),
            FMTS(OUT, nmqiYUV420To, _8u16u_P3C3R, P3, P420, Yuv, Yuv),
            OUT(nmqiYCbCr411ToBGR565_8u16u_P3C3R, P3, P411, Sub, k565b, false),
            OUT(nmqiYCbCr411ToBGR555_8u16u_P3C3R, P3, P411, Sub, k555b, false),
            OUT(nmqiRGBToRGB565_8u16u_C3R, ONE, Bytes3, None, k565, false),
            OUT(nmqiBGRToBGR565_8u16u_C3R, ONE, Bytes3, None, k565b, false),
        };
        const auto widen = [](auto fn) {
            return [fn](const Img& s, const Img& d, ImageSize r) { return fn(CW(s.p[0]), s.step[0], d.p[0], d.step[0], r); };
        };
        t.push_back({"nmqiRGB565ToRGB_16u8u_C3R", widen(nmqiRGB565ToRGB_16u8u_C3R), L::Words, L::Bytes3, M::None, k565, false});
        t.push_back({"nmqiBGR565ToBGR_16u8u_C3R", widen(nmqiBGR565ToBGR_16u8u_C3R), L::Words, L::Bytes3, M::None, k565b, false});
        const auto in420 = [](auto fn) {
            return [fn](const Img& s, const Img& d, ImageSize r) {
                Nmq8u* a[3];
                return fn(CW(s.p[0]), s.step[0], dst3(d, a), steps(d), r);
            };
        };
        t.push_back({"nmqiBGR565ToYCrCb420_16u8u_C3P3R", in420(nmqiBGR565ToYCrCb420_16u8u_C3P3R), L::Words, L::P420CrCb,
                     M::None, k565b, false});
        t.push_back({"nmqiBGR555ToYCrCb420_16u8u_C3P3R", in420(nmqiBGR555ToYCrCb420_16u8u_C3P3R), L::Words, L::P420CrCb,
                     M::None, k555b, false});
        return t;
    }();
    return v;
}

std::vector<Geo> geometry(L l, int w, int h) {
    switch (l) {
        case L::Y3: case L::Bytes3: return {{3 * w, h}};
        case L::YP: return {{w, h}, {w, h}, {w, h}};
        case L::C2: case L::Words: return {{2 * w, h}};
        case L::P422: return {{w, h}, {(w + 1) / 2, h}, {(w + 1) / 2, h}};
        case L::P420: case L::P420CrCb: return {{w, h}, {w / 2, h / 2}, {w / 2, h / 2}};
        case L::P411: return {{w, h}, {(w + 3) / 4, h}, {(w + 3) / 4, h}};
    }
    return {};
}

// ---- reference ----------------------------------------------------------------

namespace {

int clamp8(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }

struct Rgb {
    int r, g, b;
};

// BT.601 inverse at 2^16, truncated: full-sampled offsets, or those of the
// subsampled sources (a few units apart).
Rgb inv601(int Y, int Cb, int Cr, bool sub) {
    const int y = 76284 * Y;
    if (!sub)
        return {clamp8((y + 104595 * (Cr - 128) - 1220544) >> 16),
                clamp8((y - 25690 * (Cb - 128) - 53281 * (Cr - 128) - 1220544) >> 16),
                clamp8((y + 132186 * (Cb - 128) - 1220544) >> 16)};
    return {clamp8((y + 104595 * Cr - 14608761) >> 16), clamp8((y - (53281 * Cr + 25690 * Cb - 8887730)) >> 16),
            clamp8((y + 132186 * Cb - 18140365) >> 16)};
}

// The dithered full-sampled rule: 4 fractional bits.
Rgb inv_q4(int Y, int Cb, int Cr) {
    const int L = (Y * 1220480 - 19527680) >> 16, cb = Cb * 128 - 16384, cr = Cr * 128 - 16384;
    return {clamp8((((cr * 13074) >> 16) + L) >> 4), clamp8((L - ((cb * 3211) >> 16) - ((cr * 6660) >> 16)) >> 4),
            clamp8((L + ((cb * 16523) >> 16)) >> 4)};
}

// YUV, rounded.
Rgb inv_yuv(int Y, int U, int V) {
    const int u = U - 128, v = V - 128, y = Y << 16;
    return {clamp8((y + 74711 * v + 32768) >> 16), clamp8((y - 25821 * u - 38076 * v + 32768) >> 16),
            clamp8((y + 133169 * u + 32768) >> 16)};
}

const int kT5[4][4] = {{0, 1118, 279, 1398}, {1678, 559, 1957, 839}, {419, 1538, 139, 1258}, {2097, 978, 1817, 699}};
const int kT6[4][4] = {{0, 550, 137, 688}, {826, 275, 963, 413}, {206, 757, 68, 619}, {1032, 481, 894, 344}};
const int kT4[4][4] = {{0, 2312, 578, 2890}, {3468, 1156, 4046, 1734}, {867, 3179, 289, 2601}, {4335, 2023, 3757, 1445}};

int reduce(int c, int bits, bool dither, int x, int y) {
    if (!dither) return c >> (8 - bits);
    const int levels = (1 << bits) - 1, step = bits == 5 ? 2105 : bits == 6 ? 1036 : 4352;
    const int t = (bits == 5 ? kT5 : bits == 6 ? kT6 : kT4)[y & 3][x & 3];
    const int q = c * levels / 256;
    return c * 256 - q * step > t ? q + 1 : q;
}

int widen(int v, int bits) { return bits == 6 ? (v << 2 | v >> 4) : (v << 3 | v >> 2); }

}  // namespace

uint16_t ref_word(int r, int g, int b, Fmt f, bool dither, int x, int y) {
    const int lo = reduce(f.bgr ? b : r, f.outer, dither, x, y), hi = reduce(f.bgr ? r : b, f.outer, dither, x, y);
    return uint16_t(lo | reduce(g, f.mid, dither, x, y) << f.outer | hi << (f.outer + f.mid));
}

std::vector<std::vector<int>> reference(const Export& e, const std::vector<nmqt::Plane>& src, int w, int h) {
    std::vector<std::vector<int>> out;
    for (Geo g : geometry(e.dst, w, h)) out.emplace_back(size_t(g.bytes) * g.rows, -1);
    const auto u8 = [&](int plane, int x, int y) -> int { return src[plane].row(y)[x]; };
    const auto u16 = [&](int x, int y) -> int {
        const uint8_t* q = src[0].row(y) + 2 * x;
        return q[0] | q[1] << 8;
    };

    if (e.dst == L::Words) {
        const bool half = e.src == L::P420;
        for (int y = 0; y < (half ? h & ~1 : h); ++y)
            for (int x = 0; x < (half ? w & ~1 : w); ++x) {
                int Y = 0, Cb = 0, Cr = 0;
                switch (e.src) {
                    case L::Y3: Y = u8(0, 3 * x, y), Cb = u8(0, 3 * x + 1, y), Cr = u8(0, 3 * x + 2, y); break;
                    case L::YP: Y = u8(0, x, y), Cb = u8(1, x, y), Cr = u8(2, x, y); break;
                    case L::C2: {
                        const int g = x & ~1;
                        Y = u8(0, 2 * x, y), Cb = u8(0, 2 * g + 1, y);
                        // a lone last pixel has no Cr of its own: the one before its Y, or Cb in a row one pixel wide
                        Cr = g + 1 < w ? u8(0, 2 * g + 3, y) : w == 1 ? Cb : u8(0, 2 * g - 1, y);
                        break;
                    }
                    case L::P422: Y = u8(0, x, y), Cb = u8(1, x / 2, y), Cr = u8(2, x / 2, y); break;
                    case L::P420: Y = u8(0, x, y), Cb = u8(1, x / 2, y / 2), Cr = u8(2, x / 2, y / 2); break;
                    case L::P411: Y = u8(0, x, y), Cb = u8(1, x / 4, y), Cr = u8(2, x / 4, y); break;
                    default: break;
                }
                Rgb c{};
                switch (e.m) {
                    case M::Full: c = inv601(Y, Cb, Cr, false); break;
                    case M::Sub: c = inv601(Y, Cb, Cr, true); break;
                    case M::Q4: c = inv_q4(Y, Cb, Cr); break;
                    case M::Yuv: c = inv_yuv(Y, Cb, Cr); break;
                    case M::None:  // bytes in the order of the name
                        c = e.f.bgr ? Rgb{u8(0, 3 * x + 2, y), u8(0, 3 * x + 1, y), u8(0, 3 * x, y)}
                                    : Rgb{u8(0, 3 * x, y), u8(0, 3 * x + 1, y), u8(0, 3 * x + 2, y)};
                        break;
                }
                const uint16_t v = ref_word(c.r, c.g, c.b, e.f, e.dither, x, y);
                out[0][size_t(y) * 2 * w + 2 * x] = v & 0xFF;
                out[0][size_t(y) * 2 * w + 2 * x + 1] = v >> 8;
            }
        return out;
    }
    if (e.dst == L::Bytes3) {  // 565 words back to bytes, the lowest field first
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int v = u16(x, y);
                int* o = &out[0][size_t(y) * 3 * w + 3 * x];
                o[0] = widen(v & 31, 5), o[1] = widen((v >> 5) & 63, 6), o[2] = widen(v >> 11, 5);
            }
        return out;
    }
    // BGR words to Y, Cr, Cb 4:2:0: every Y rounded, chroma the rounded mean of the 2x2 block.
    const auto bgr = [&](int x, int y) -> Rgb {
        const int v = u16(x, y), b = v & 31;
        if (e.f.mid == 6) return {widen(v >> 11, 5), widen((v >> 5) & 63, 6), widen(b, 5)};
        return {widen((v >> 10) & 31, 5), widen((v >> 5) & 31, 5), widen(b, 5)};
    };
    for (int y = 0; y < (h & ~1); ++y)
        for (int x = 0; x < (w & ~1); ++x) {
            const Rgb c = bgr(x, y);
            out[0][size_t(y) * w + x] = (16843 * c.r + 33030 * c.g + 6423 * c.b + 1081344) >> 16;
        }
    for (int y = 0; y < h / 2; ++y)
        for (int x = 0; x < w / 2; ++x) {
            int sr = 0, sg = 0, sb = 0;
            for (int k = 0; k < 4; ++k) {
                const Rgb c = bgr(2 * x + (k & 1), 2 * y + k / 2);
                sr += c.r, sg += c.g, sb += c.b;
            }
            // 128 + the rounded mean: the offset -127.5 * 2^16 per sample, then the low byte
            out[1][size_t(y) * (w / 2) + x] = ((28770 * sr - 24117 * sg - 4653 * sb - 4 * 8355840) >> 18) & 0xFF;
            out[2][size_t(y) * (w / 2) + x] = ((-9699 * sr - 19071 * sg + 28770 * sb - 4 * 8355840) >> 18) & 0xFF;
        }
    return out;
}

}  // namespace p16t
