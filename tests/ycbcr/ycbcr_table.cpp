#include "ycbcr/ycbcr_table.h"

#include "frame/gamma_tables.h"

namespace ycct {
namespace {

// ---- call adapters, one per argument shape ----------------------------------
template <class F> Call pp(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.p[0], s.step[0], d.p[0], d.step[0], r); };
}
template <class F> Call pp16(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) {
        return f(reinterpret_cast<const Nmq16u*>(s.p[0]), s.step[0], d.p[0], d.step[0], r);
    };
}
template <class F> Call a1a1(F f) {  // planes with one step each side
    return [f](const Img& s, const Img& d, ImageSize r) {
        return f(s.null_array ? nullptr : s.p, s.step[0], d.null_array ? nullptr : d.p, d.step[0], r);
    };
}
template <class F> Call pa1(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.p[0], s.step[0], d.null_array ? nullptr : d.p, d.step[0], r); };
}
template <class F> Call pa3(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.p[0], s.step[0], d.null_array ? nullptr : d.p, d.step, r); };
}
template <class F> Call pa3_16(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) {
        return f(reinterpret_cast<const Nmq16u*>(s.p[0]), s.step[0], d.null_array ? nullptr : d.p, d.step, r);
    };
}
template <class F> Call a1p(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.null_array ? nullptr : s.p, s.step[0], d.p[0], d.step[0], r); };
}
template <class F> Call a3p(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.null_array ? nullptr : s.p, s.step, d.p[0], d.step[0], r); };
}
template <class F> Call p2s(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.p[0], s.step[0], s.p[1], s.step[1], d.p[0], d.step[0], r); };
}
template <class F> Call p2d(F f) {
    return [f](const Img& s, const Img& d, ImageSize r) { return f(s.p[0], s.step[0], d.p[0], d.step[0], d.p[1], d.step[1], r); };
}

int sampling(L l) {  // 444, 422, 420, 411
    switch (l) {
        case L::C2YCbCr: case L::C2YCrCb: case L::C2CbYCr: case L::P422: return 422;
        case L::P420: case L::P420CrCb: case L::NV: case L::NVCrCb: return 420;
        case L::P411: return 411;
        default: return 444;
    }
}
bool packed422(L l) { return l == L::C2YCbCr || l == L::C2YCrCb || l == L::C2CbYCr; }

}  // namespace

bool is_rgb(L l) { return l <= L::B555; }
bool is420(L l) { return sampling(l) == 420; }

#define E(name, adapter, s, d, m, odd) {#name, adapter(name), L::s, L::d, M::m, OddRule::odd}
const std::vector<Export>& exports() {
    static const std::vector<Export> t = {
        // full-sampled
        E(nmqiRGBToYCbCr_8u_C3R, pp, RGB3, Y3, B601, None),
        E(nmqiRGBToYCbCr_8u_AC4R, pp, RGBA4k, Y4, B601, None),
        E(nmqiRGBToYCbCr_8u_P3R, a1a1, RGBP, YP, B601, None),
        {"nmqiRGBToYCbCr_8u_C3P3R", pa1(nmqiRGBToYCbCr_8u_C3P3R), L::RGB3, L::YP, M::B601, OddRule::None, true},
        {"nmqiRGBToYCbCr_8u_AC4P3R", pa1(nmqiRGBToYCbCr_8u_AC4P3R), L::RGBA4k, L::YP, M::B601, OddRule::None, true},
        E(nmqiYCbCrToRGB_8u_C3R, pp, Y3, RGB3, B601, None),
        E(nmqiYCbCrToRGB_8u_AC4R, pp, Y4, RGBA4k, B601, None),
        E(nmqiYCbCrToRGB_8u_P3R, a1a1, YP, RGBP, B601, None),
        E(nmqiYCbCrToRGB_8u_P3C3R, a1p, YP, RGB3, B601, None),
        E(nmqiYCbCrToRGB_8u_P3C4R, a1p, YP, RGBA4w, B601, None),
        E(nmqiYCbCrToBGR_8u_P3C3R, a1p, YP, BGR3, B601, None),
        E(nmqiYCbCrToBGR_8u_P3C4R, a1p, YP, BGRA4w, B601, None),
        // 4:2:2
        E(nmqiRGBToYCbCr422_8u_C3C2R, pp, RGB3, C2YCbCr, B601, None),
        E(nmqiRGBToYCbCr422_8u_C3P3R, pa3, RGB3, P422, B601, Width),
        E(nmqiRGBToYCbCr422_8u_P3C2R, a1p, RGBP, C2YCbCr, B601, None),
        E(nmqiBGRToYCbCr422_8u_C3C2R, pp, BGR3, C2YCbCr, B601, None),
        E(nmqiBGRToYCbCr422_8u_C3P3R, pa3, BGR3, P422, B601, None),
        E(nmqiBGRToYCbCr422_8u_AC4C2R, pp, BGRA4k, C2YCbCr, B601, None),
        E(nmqiBGRToYCbCr422_8u_AC4P3R, pa3, BGRA4k, P422, B601, None),
        E(nmqiYCbCr422ToRGB_8u_C2C3R, pp, C2YCbCr, RGB3, B601, None),
        E(nmqiYCbCr422ToRGB_8u_C2C4R, pp, C2YCbCr, RGBA4w, B601, None),
        E(nmqiYCbCr422ToRGB_8u_C2P3R, pa1, C2YCbCr, RGBP, B601, None),
        E(nmqiYCbCr422ToRGB_8u_P3C3R, a3p, P422, RGB3, B601, None),
        E(nmqiYCbCr422ToBGR_8u_C2C3R, pp, C2YCbCr, BGR3, B601, None),
        E(nmqiYCbCr422ToBGR_8u_C2C4R, pp, C2YCbCr, BGRA4w, B601, None),
        E(nmqiYCbCr422ToBGR_8u_P3C3R, a3p, P422, BGR3, B601, None),
        E(nmqiRGBToYCrCb422_8u_C3C2R, pp, RGB3, C2YCrCb, B601, None),
        E(nmqiRGBToYCrCb422_8u_P3C2R, a1p, RGBP, C2YCrCb, B601, None),
        E(nmqiYCrCb422ToRGB_8u_C2C3R, pp, C2YCrCb, RGB3, B601, None),
        E(nmqiYCrCb422ToRGB_8u_C2C4R, pp, C2YCrCb, RGBA4w, B601, None),
        E(nmqiYCrCb422ToRGB_8u_C2P3R, pa1, C2YCrCb, RGBP, B601, None),
        E(nmqiYCrCb422ToBGR_8u_C2C3R, pp, C2YCrCb, BGR3, B601, None),
        E(nmqiYCrCb422ToBGR_8u_C2C4R, pp, C2YCrCb, BGRA4w, B601, None),
        E(nmqiRGBToCbYCr422_8u_C3C2R, pp, RGB3, C2CbYCr, B601, None),
        E(nmqiRGBToCbYCr422Gamma_8u_C3C2R, pp, RGB3, C2CbYCr, B601Gamma, None),
        E(nmqiBGRToCbYCr422_8u_AC4C2R, pp, BGRA4k, C2CbYCr, B601, None),
        E(nmqiCbYCr422ToRGB_8u_C2C3R, pp, C2CbYCr, RGB3, B601, None),
        E(nmqiCbYCr422ToBGR_8u_C2C4R, pp, C2CbYCr, BGRA4w, B601, None),
        E(nmqiBGR565ToYCbCr422_16u8u_C3C2R, pp16, B565, C2YCbCr, B601, None),
        E(nmqiBGR565ToYCbCr422_16u8u_C3P3R, pa3_16, B565, P422, B601, None),
        E(nmqiBGR555ToYCbCr422_16u8u_C3C2R, pp16, B555, C2YCbCr, B601, None),
        E(nmqiBGR555ToYCbCr422_16u8u_C3P3R, pa3_16, B555, P422, B601, None),
        // 4:2:0
        E(nmqiRGBToYCbCr420_8u_C3P3R, pa3, RGB3, P420, B601, WidthOrHeight),
        E(nmqiRGBToYCbCr420_8u_C3P2R, p2d, RGB3, NV, B601, WidthOrHeight),
        E(nmqiRGBToYCbCr420_8u_C4P2R, p2d, RGBA4w, NV, B601, WidthOrHeight),
        E(nmqiBGRToYCbCr420_8u_C3P3R, pa3, BGR3, P420, B601, WidthOrHeight),
        E(nmqiBGRToYCbCr420_8u_AC4P3R, pa3, BGRA4k, P420, B601, WidthOrHeight),
        E(nmqiRGBToYCrCb420_8u_AC4P3R, pa3, RGBA4k, P420CrCb, B601, WidthOrHeight),
        E(nmqiBGRToYCrCb420_8u_C3P3R, pa3, BGR3, P420CrCb, B601, WidthOrHeight),
        E(nmqiBGRToYCrCb420_8u_AC4P3R, pa3, BGRA4k, P420CrCb, B601, WidthOrHeight),
        E(nmqiYCbCr420ToRGB_8u_P3C3R, a3p, P420, RGB3, B601, WidthOrHeight),
        E(nmqiYCbCr420ToRGB_8u_P2C3R, p2s, NV, RGB3, B601, WidthOrHeight),
        E(nmqiYCbCr420ToRGB_8u_P2C4R, p2s, NV, RGBA4w, B601, WidthOrHeight),
        E(nmqiYCbCr420ToBGR_8u_P3C3R, a3p, P420, BGR3, B601, WidthOrHeight),
        E(nmqiYCbCr420ToBGR_8u_P3C4R, a3p, P420, BGRA4w, B601, WidthOrHeight),
        E(nmqiYCbCr420ToBGR_8u_P2C3R, p2s, NV, BGR3, B601, WidthOrHeight),
        E(nmqiYCbCr420ToBGR_8u_P2C4R, p2s, NV, BGRA4w, B601, WidthOrHeight),
        E(nmqiYCrCb420ToRGB_8u_P3C4R, a3p, P420CrCb, RGBA4w, B601, WidthOrHeight),
        E(nmqiYCrCb420ToRGB_8u_P2C3R, p2s, NVCrCb, RGB3, B601, WidthOrHeight),
        E(nmqiYCrCb420ToRGB_8u_P2C4R, p2s, NVCrCb, RGBA4w, B601, WidthOrHeight),
        E(nmqiYCrCb420ToBGR_8u_P2C3R, p2s, NVCrCb, BGR3, B601, WidthOrHeight),
        E(nmqiYCrCb420ToBGR_8u_P2C4R, p2s, NVCrCb, BGRA4w, B601, WidthOrHeight),
        // The filtered form has its own reference (ycbcr_values_test.cpp).
        E(nmqiYCrCb420ToBGR_Filter_8u_P3C4R, a3p, P420CrCb, BGRA4w, B601, WidthOrHeight),
        E(nmqiBGR565ToYCbCr420_16u8u_C3P3R, pa3_16, B565, P420, B601, WidthOrHeight),
        E(nmqiBGR555ToYCbCr420_16u8u_C3P3R, pa3_16, B555, P420, B601, WidthOrHeight),
        // 4:1:1
        E(nmqiBGRToYCbCr411_8u_C3P3R, pa3, BGR3, P411, B601, Width4),
        E(nmqiBGRToYCbCr411_8u_AC4P3R, pa3, BGRA4k, P411, B601, Width4),
        E(nmqiYCbCr411ToBGR_8u_P3C3R, a3p, P411, BGR3, B601, None),
        E(nmqiYCbCr411ToBGR_8u_P3C4R, a3p, P411, BGRA4w, B601, None),
        E(nmqiBGR565ToYCbCr411_16u8u_C3P3R, pa3_16, B565, P411, B601, None),
        E(nmqiBGR555ToYCbCr411_16u8u_C3P3R, pa3_16, B555, P411, B601, None),
        // BT.709
        E(nmqiBGRToYCbCr420_709CSC_8u_C3P3R, pa3, BGR3, P420, Csc, WidthOrHeight),
        E(nmqiBGRToYCbCr420_709CSC_8u_AC4P3R, pa3, BGRA4k, P420, Csc, WidthOrHeight),
        E(nmqiBGRToYCbCr420_709CSC_8u_C3P2R, p2d, BGR3, NV, Csc, WidthOrHeight),
        E(nmqiBGRToYCrCb420_709CSC_8u_C3P3R, pa3, BGR3, P420CrCb, Csc, WidthOrHeight),
        E(nmqiBGRToYCrCb420_709CSC_8u_AC4P3R, pa3, BGRA4k, P420CrCb, Csc, WidthOrHeight),
        E(nmqiYCbCrToBGR_709CSC_8u_P3C3R, a1p, YP, BGR3, Csc, None),
        E(nmqiYCbCrToBGR_709CSC_8u_P3C4R, a1p, YP, BGRA4w, Csc, None),
        E(nmqiYCbCr420ToBGR_709CSC_8u_P3C3R, a3p, P420, BGR3, Csc, WidthOrHeight),
        E(nmqiBGRToYCbCr420_709HDTV_8u_AC4P3R, pa3, BGRA4k, P420, Hdtv, WidthOrHeight),
        E(nmqiYCbCr420ToBGR_709HDTV_8u_P3C4R, a3p, P420, BGRA4w, Hdtv, WidthOrHeight),
        E(nmqiBGRToCbYCr422_709HDTV_8u_C3C2R, pp, BGR3, C2CbYCr, Hdtv, None),
        E(nmqiBGRToCbYCr422_709HDTV_8u_AC4C2R, pp, BGRA4k, C2CbYCr, Hdtv, None),
        E(nmqiCbYCr422ToBGR_709HDTV_8u_C2C3R, pp, C2CbYCr, BGR3, Hdtv, None),
        E(nmqiCbYCr422ToBGR_709HDTV_8u_C2C4R, pp, C2CbYCr, BGRA4w, Hdtv, None),
    };
    return t;
}
#undef E

std::vector<Geo> geometry(L l, int w, int h) {
    switch (l) {
        case L::RGB3: case L::BGR3: case L::Y3: return {{3 * w, h}};
        case L::RGBA4k: case L::BGRA4k: case L::RGBA4w: case L::BGRA4w: case L::Y4: return {{4 * w, h}};
        case L::RGBP: case L::YP: return {{w, h}, {w, h}, {w, h}};
        case L::B565: case L::B555: case L::C2YCbCr: case L::C2YCrCb: case L::C2CbYCr: return {{2 * w, h}};
        case L::P422: return {{w, h}, {(w + 1) / 2, h}, {(w + 1) / 2, h}};
        case L::P420: case L::P420CrCb: return {{w, h}, {w / 2, h / 2}, {w / 2, h / 2}};
        case L::NV: case L::NVCrCb: return {{w, h}, {w / 2 * 2, h / 2}};
        case L::P411: return {{w, h}, {(w + 3) / 4, h}, {(w + 3) / 4, h}};
    }
    return {};
}

// ---- decoders ------------------------------------------------------------------

Rgb decode_rgb(L l, const std::vector<nmqt::Plane>& p, int w, int h) {
    Rgb o;
    o.w = w; o.h = h;
    const size_t n = size_t(w) * h;
    o.r.assign(n, -1); o.g.assign(n, -1); o.b.assign(n, -1); o.a.assign(n, -1);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const size_t i = size_t(y) * w + x;
            const uint8_t* q = p[0].row(y);
            switch (l) {
                case L::RGB3: o.r[i] = q[3 * x]; o.g[i] = q[3 * x + 1]; o.b[i] = q[3 * x + 2]; break;
                case L::BGR3: o.b[i] = q[3 * x]; o.g[i] = q[3 * x + 1]; o.r[i] = q[3 * x + 2]; break;
                case L::RGBA4k: case L::RGBA4w:
                    o.r[i] = q[4 * x]; o.g[i] = q[4 * x + 1]; o.b[i] = q[4 * x + 2]; o.a[i] = q[4 * x + 3]; break;
                case L::BGRA4k: case L::BGRA4w:
                    o.b[i] = q[4 * x]; o.g[i] = q[4 * x + 1]; o.r[i] = q[4 * x + 2]; o.a[i] = q[4 * x + 3]; break;
                case L::RGBP: o.r[i] = p[0].row(y)[x]; o.g[i] = p[1].row(y)[x]; o.b[i] = p[2].row(y)[x]; break;
                case L::B565: case L::B555: {
                    const int v = q[2 * x] | q[2 * x + 1] << 8;  // little-endian words
                    const int b5 = v & 31, r5 = l == L::B565 ? v >> 11 : (v >> 10) & 31;
                    o.b[i] = b5 * 33 >> 2;  // fields widened by repeating their top bits
                    o.r[i] = r5 * 33 >> 2;
                    o.g[i] = l == L::B565 ? ((v >> 5) & 63) * 65 >> 4 : ((v >> 5) & 31) * 33 >> 2;
                    break;
                }
                default: break;
            }
        }
    return o;
}

Ycc decode_ycc(L l, const std::vector<nmqt::Plane>& p, int w, int h) {
    Ycc o;
    o.w = w; o.h = h;
    const int s = sampling(l);
    o.cw = s == 444 ? w : s == 422 ? (w + 1) / 2 : s == 420 ? w / 2 : (w + 3) / 4;
    o.ch = s == 420 ? h / 2 : h;
    o.y.assign(size_t(w) * h, -1);
    o.cb.assign(size_t(o.cw) * o.ch, -1);
    o.cr.assign(size_t(o.cw) * o.ch, -1);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const size_t i = size_t(y) * w + x;
            if (l == L::Y3 || l == L::Y4) {
                const int n = l == L::Y3 ? 3 : 4;
                o.y[i] = p[0].row(y)[n * x]; o.cb[i] = p[0].row(y)[n * x + 1]; o.cr[i] = p[0].row(y)[n * x + 2];
            } else if (packed422(l)) {
                const uint8_t* g = p[0].row(y) + 4 * (x / 2);
                const int yo = l == L::C2CbYCr ? 1 : 0;
                o.y[i] = g[yo + 2 * (x & 1)];
                const bool lone = x == w - 1 && (w & 1);
                const size_t c = size_t(y) * o.cw + x / 2;
                const int b = l == L::C2YCbCr ? 1 : l == L::C2YCrCb ? 3 : 0, r = l == L::C2YCbCr ? 3 : l == L::C2YCrCb ? 1 : 2;
                o.cb[c] = lone && b >= 2 ? -1 : g[b];
                o.cr[c] = lone && r >= 2 ? -1 : g[r];
            } else {
                o.y[i] = p[0].row(y)[x];
            }
        }
    if (l == L::YP || l == L::P422 || l == L::P420 || l == L::P420CrCb || l == L::P411) {
        const int cbp = l == L::P420CrCb ? 2 : 1, crp = 3 - cbp;
        for (int y = 0; y < o.ch; ++y)
            for (int x = 0; x < o.cw; ++x) {
                o.cb[size_t(y) * o.cw + x] = p[cbp].row(y)[x];
                o.cr[size_t(y) * o.cw + x] = p[crp].row(y)[x];
            }
    } else if (l == L::NV || l == L::NVCrCb) {
        const int bo = l == L::NV ? 0 : 1;
        for (int y = 0; y < o.ch; ++y)
            for (int x = 0; x < o.cw; ++x) {
                o.cb[size_t(y) * o.cw + x] = p[1].row(y)[2 * x + bo];
                o.cr[size_t(y) * o.cw + x] = p[1].row(y)[2 * x + 1 - bo];
            }
    }
    return o;
}

// ---- references -----------------------------------------------------------------

namespace {
struct W {
    int S, yr, yg, yb, yk, yk2, br, bg, bb, rr, rg, rb;
    int off[3];  // chroma offset for 1, 2 and 4 pixels
    bool clamp;
};
W weights(M m) {
    switch (m) {
        case M::B601: return {16, 16843, 33030, 6423, 1081344, 1048576, -9699, -19071, 28770, 28770, -24117, -4653,
                              {-8355840, -16711680, -33423360}, false};
        case M::B601Gamma: return {15, 8421, 16515, 3211, 540672, 524288, -4850, -9535, 14385, 14385, -12059, -2326,
                                   {-4177920, -8355840, -16711680}, false};
        case M::Csc: return {16, 11993, 40239, 4063, 1081344, 1081344, -6619, -22151, 28770, 28770, -26149, -2621,
                             {-8380416, -16760832, -33521664}, false};
        case M::Hdtv: return {15, 6980, 23429, 2359, 16384, 16384, -3834, -12911, 16744, 16744, -15204, -1540,
                              {4210688, 8421376, 16842752}, true};
    }
    return {};
}
int fin(const W& w, int v) { return w.clamp ? (v < 0 ? 0 : v > 255 ? 255 : v) : (v & 255); }
int clamp255(int v) { return v < 0 ? 0 : v > 255 ? 255 : v; }
}  // namespace

Ycc ref_forward(M m, L dst, const Rgb& in0) {
    const W k = weights(m);
    Rgb in = in0;
    if (m == M::B601Gamma)
        for (size_t i = 0; i < in.r.size(); ++i) {
            in.r[i] = nmq::kGammaFwd8u[in.r[i]]; in.g[i] = nmq::kGammaFwd8u[in.g[i]]; in.b[i] = nmq::kGammaFwd8u[in.b[i]];
        }
    const int w = in.w, h = in.h, s = sampling(dst);
    Ycc o;
    o.w = w; o.h = h;
    o.cw = s == 444 ? w : s == 422 ? (w + 1) / 2 : s == 420 ? w / 2 : (w + 3) / 4;
    o.ch = s == 420 ? h / 2 : h;
    o.y.assign(size_t(w) * h, -1);
    o.cb.assign(size_t(o.cw) * o.ch, -1);
    o.cr.assign(size_t(o.cw) * o.ch, -1);
    auto Y = [&](size_t i, int kk) { return (k.yr * in.r[i] + k.yg * in.g[i] + k.yb * in.b[i] + kk) >> k.S; };
    // Chroma of the pixels idx (2^lg of them).
    auto C = [&](const std::vector<size_t>& idx, int lg, size_t c) {
        int sr = 0, sg = 0, sb = 0;
        for (size_t i : idx) { sr += in.r[i]; sg += in.g[i]; sb += in.b[i]; }
        o.cb[c] = fin(k, (k.br * sr + k.bg * sg + k.bb * sb + k.off[lg]) >> (k.S + lg));
        o.cr[c] = fin(k, (k.rr * sr + k.rg * sg + k.rb * sb + k.off[lg]) >> (k.S + lg));
    };
    for (int y = 0; y < h; ++y) {
        const size_t row = size_t(y) * w;
        if (s == 444) {
            for (int x = 0; x < w; ++x) { o.y[row + x] = Y(row + x, k.yk); C({row + x}, 0, row + x); }
        } else if (s == 422) {
            for (int x = 0; x < w; x += 2) {
                const size_t c = size_t(y) * o.cw + x / 2;
                o.y[row + x] = Y(row + x, k.yk);
                if (x + 1 < w) { o.y[row + x + 1] = Y(row + x + 1, k.yk2); C({row + x, row + x + 1}, 1, c); }
                else C({row + x}, 0, c);
            }
        } else if (s == 411) {
            for (int x = 0; x < w; x += 4) {
                std::vector<size_t> idx;
                for (int j = 0; j < 4; ++j) idx.push_back(row + std::min(x + j, w - 1));
                for (int j = x; j < std::min(x + 4, w); ++j) o.y[row + j] = Y(row + j, k.yk);
                C(idx, 2, size_t(y) * o.cw + x / 4);
            }
        }
    }
    if (s == 420)
        for (int y = 0; y + 1 < h; y += 2)
            for (int x = 0; x + 1 < w; x += 2) {
                const size_t a = size_t(y) * w + x, b = a + w;
                for (size_t i : {a, a + 1, b, b + 1}) o.y[i] = Y(i, k.yk);
                C({a, a + 1, b, b + 1}, 2, size_t(y / 2) * o.cw + x / 2);
            }
    return o;
}

Rgb ref_inverse(M m, L src, const Ycc& in) {
    const int w = in.w, h = in.h, s = sampling(src);
    Rgb o;
    o.w = w; o.h = h;
    const size_t n = size_t(w) * h;
    o.r.assign(n, -1); o.g.assign(n, -1); o.b.assign(n, -1); o.a.assign(n, -1);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            int cx = x, cy = y;
            if (s == 422) cx = x / 2;
            if (s == 411) cx = x / 4;
            if (s == 420) {
                if (x >= (w & ~1) || y >= (h & ~1)) continue;
                cx = x / 2; cy = y / 2;
            }
            const size_t c = size_t(cy) * in.cw + cx, i = size_t(y) * w + x;
            int Cb = in.cb[c], Cr = in.cr[c];
            if (Cb < 0) Cb = w == 1 ? Cr : in.cb[c - 1];  // lone pixel of a packed row
            if (Cr < 0) Cr = w == 1 ? Cb : in.cr[c - 1];
            const int Yv = in.y[i];
            if (m == M::B601 && s == 444) {
                const int yy = 76284 * Yv, cb = Cb - 128, cr = Cr - 128;
                o.r[i] = clamp255((yy + 104595 * cr - 1220544) >> 16);
                o.g[i] = clamp255((yy - 25690 * cb - 53281 * cr - 1220544) >> 16);
                o.b[i] = clamp255((yy + 132186 * cb - 1220544) >> 16);
            } else if (m == M::B601) {
                o.r[i] = clamp255((76284 * Yv + 104595 * Cr - 14608761) >> 16);
                o.g[i] = clamp255((76284 * Yv - (53281 * Cr + 25690 * Cb - 8887730)) >> 16);
                o.b[i] = clamp255((76284 * Yv + 132186 * Cb - 18140365) >> 16);
            } else {
                // Scale 2^13, each term floored on its own.
                const bool csc = m == M::Csc;
                const int yt = csc ? ((Yv - 16) * 9535) >> 13 : Yv, cb = Cb - 128, cr = Cr - 128;
                const int kr = csc ? 14688 : 12613, kgb = csc ? -1745 : -1500, kgr = csc ? -4375 : -3749,
                          kb = csc ? 17326 : 14862;
                o.r[i] = clamp255(yt + ((cr * kr) >> 13));
                o.g[i] = clamp255(yt + ((cb * kgb) >> 13) + ((cr * kgr) >> 13));
                o.b[i] = clamp255(yt + ((cb * kb) >> 13));
            }
            o.a[i] = 255;
        }
    return o;
}

Rgb ref_filter(const Ycc& in) {
    Ycc even = in, odd = in;
    const int n = in.ch;
    auto at = [&](const std::vector<int>& c, int r, int x) { return c[size_t(r < 0 ? 0 : r >= n ? n - 1 : r) * in.cw + x]; };
    for (int r = 0; r < n; ++r)
        for (int x = 0; x < in.cw; ++x) {
            const size_t i = size_t(r) * in.cw + x;
            odd.cb[i] = clamp255((-at(in.cb, r - 1, x) + 9 * at(in.cb, r, x) + 9 * at(in.cb, r + 1, x) - at(in.cb, r + 2, x) + 8) >> 4);
            odd.cr[i] = clamp255((-at(in.cr, r - 1, x) + 9 * at(in.cr, r, x) + 9 * at(in.cr, r + 1, x) - at(in.cr, r + 2, x) + 8) >> 4);
        }
    Rgb a = ref_inverse(M::B601, L::P420, even), b = ref_inverse(M::B601, L::P420, odd);
    for (int y = 1; y < in.h; y += 2)
        for (int x = 0; x < in.w; ++x) {
            const size_t i = size_t(y) * in.w + x;
            a.r[i] = b.r[i]; a.g[i] = b.g[i]; a.b[i] = b.b[i]; a.a[i] = b.a[i];
        }
    return a;
}

}  // namespace ycct
