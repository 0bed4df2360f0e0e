// YCoCg: the per-member check order and size checks, the exact round trip of
// the lifting transform, the 8u offsets and caps, wrap versus saturation,
// C4 alpha, and every member at every SIMD level against a reference written
// from the transforms.
#include <cstring>
#include <string>
#include <vector>

#include "support/sweep.h"

using namespace nmqt;

namespace {

enum class Ty { U8, S16, S32 };
int es(Ty t) { return t == Ty::U8 ? 1 : t == Ty::S16 ? 2 : 4; }

int64_t load(Ty t, const uint8_t* p) {
    if (t == Ty::U8) return *p;
    if (t == Ty::S16) { int16_t v; std::memcpy(&v, p, 2); return v; }
    int32_t v; std::memcpy(&v, p, 4); return v;
}
void store(Ty t, uint8_t* p, int64_t v) {
    if (t == Ty::U8) { *p = uint8_t(v); return; }
    if (t == Ty::S16) { const int16_t s = int16_t(v); std::memcpy(p, &s, 2); return; }
    const int32_t s = int32_t(v); std::memcpy(p, &s, 4);
}

using FwdFn = NmqStatus (*)(const void*, int, void* const*, int, ImageSize);
using InvFn = NmqStatus (*)(const void* const*, int, void*, int, ImageSize, int);

// One member: interleaved side type `pix`, plane type `pl`, pixel stride, RGB
// or BGR order, lifting or plain, whether it checks the size.
struct Member {
    const char* name;
    bool forward;
    Ty pix, pl;
    int stride;
    bool rgb, lifting, size_check;
    FwdFn fwd;
    InvFn inv;
};

template <class T>
T* const* typed(void* const* p, T* (&a)[3]) {
    if (!p) return nullptr;
    for (int i = 0; i < 3; ++i) a[i] = static_cast<T*>(p[i]);
    return a;
}
template <class T>
const T* const* typed(const void* const* p, const T* (&a)[3]) {
    if (!p) return nullptr;
    for (int i = 0; i < 3; ++i) a[i] = static_cast<const T*>(p[i]);
    return a;
}

#define FWD(name, S, D, pix, pl, st, rgb, lift, sc)                                                      \
    Member { #name, true, pix, pl, st, rgb, lift, sc,                                                    \
             [](const void* s, int ss, void* const* d, int ds, ImageSize r) {                            \
                 D* a[3];                                                                                \
                 return name(static_cast<const S*>(s), ss, typed(d, a), ds, r); }, nullptr }
#define INV(name, S, D, pl, pix, st, rgb, lift, sc, ...)                                                 \
    Member { #name, false, pix, pl, st, rgb, lift, sc, nullptr,                                          \
             [](const void* const* s, int ss, void* d, int ds, ImageSize r, int alpha) {                 \
                 const S* a[3]; (void)alpha;                                                             \
                 return name(typed(s, a), ss, static_cast<D*>(d), ds, r __VA_ARGS__); } }

const Ty U8 = Ty::U8, S16 = Ty::S16, S32 = Ty::S32;
const Member kMembers[] = {
    FWD(nmqiRGBToYCoCg_8u_C3P3R, Nmq8u, Nmq8u, U8, U8, 3, true, false, true),
    FWD(nmqiBGRToYCoCg_8u16s_C3P3R, Nmq8u, Nmq16s, U8, S16, 3, false, false, true),
    FWD(nmqiBGRToYCoCg_8u16s_C4P3R, Nmq8u, Nmq16s, U8, S16, 4, false, false, true),
    FWD(nmqiBGRToYCoCg_Rev_8u16s_C3P3R, Nmq8u, Nmq16s, U8, S16, 3, false, true, true),
    FWD(nmqiBGRToYCoCg_Rev_8u16s_C4P3R, Nmq8u, Nmq16s, U8, S16, 4, false, true, true),
    FWD(nmqiSBGRToYCoCg_16s_C3P3R, Nmq16s, Nmq16s, S16, S16, 3, false, false, true),
    FWD(nmqiSBGRToYCoCg_16s_C4P3R, Nmq16s, Nmq16s, S16, S16, 4, false, false, true),
    FWD(nmqiSBGRToYCoCg_16s32s_C3P3R, Nmq16s, Nmq32s, S16, S32, 3, false, false, true),
    FWD(nmqiSBGRToYCoCg_16s32s_C4P3R, Nmq16s, Nmq32s, S16, S32, 4, false, false, false),
    FWD(nmqiSBGRToYCoCg_Rev_16s_C3P3R, Nmq16s, Nmq16s, S16, S16, 3, false, true, false),
    FWD(nmqiSBGRToYCoCg_Rev_16s_C4P3R, Nmq16s, Nmq16s, S16, S16, 4, false, true, false),
    FWD(nmqiSBGRToYCoCg_Rev_16s32s_C3P3R, Nmq16s, Nmq32s, S16, S32, 3, false, true, true),
    FWD(nmqiSBGRToYCoCg_Rev_16s32s_C4P3R, Nmq16s, Nmq32s, S16, S32, 4, false, true, false),
    INV(nmqiYCoCgToRGB_8u_P3C3R, Nmq8u, Nmq8u, U8, U8, 3, true, false, false),
    INV(nmqiYCoCgToBGR_16s8u_P3C3R, Nmq16s, Nmq8u, S16, U8, 3, false, false, false),
    INV(nmqiYCoCgToBGR_16s8u_P3C4R, Nmq16s, Nmq8u, S16, U8, 4, false, false, false, , Nmq8u(alpha)),
    INV(nmqiYCoCgToBGR_Rev_16s8u_P3C3R, Nmq16s, Nmq8u, S16, U8, 3, false, true, false),
    INV(nmqiYCoCgToBGR_Rev_16s8u_P3C4R, Nmq16s, Nmq8u, S16, U8, 4, false, true, false, , Nmq8u(alpha)),
    INV(nmqiYCoCgToSBGR_16s_P3C3R, Nmq16s, Nmq16s, S16, S16, 3, false, false, false),
    INV(nmqiYCoCgToSBGR_16s_P3C4R, Nmq16s, Nmq16s, S16, S16, 4, false, false, true, , Nmq16s(alpha)),
    INV(nmqiYCoCgToSBGR_32s16s_P3C3R, Nmq32s, Nmq16s, S32, S16, 3, false, false, true),
    INV(nmqiYCoCgToSBGR_32s16s_P3C4R, Nmq32s, Nmq16s, S32, S16, 4, false, false, true, , Nmq16s(alpha)),
    INV(nmqiYCoCgToSBGR_Rev_16s_P3C3R, Nmq16s, Nmq16s, S16, S16, 3, false, true, false),
    INV(nmqiYCoCgToSBGR_Rev_16s_P3C4R, Nmq16s, Nmq16s, S16, S16, 4, false, true, false, , Nmq16s(alpha)),
    INV(nmqiYCoCgToSBGR_Rev_32s16s_P3C3R, Nmq32s, Nmq16s, S32, S16, 3, false, true, false),
    INV(nmqiYCoCgToSBGR_Rev_32s16s_P3C4R, Nmq32s, Nmq16s, S32, S16, 4, false, true, false, , Nmq16s(alpha)),
};

const Member& member(const char* name) {
    for (const Member& m : kMembers)
        if (std::strcmp(m.name, name) == 0) return m;
    std::abort();
}

int64_t clamp(int64_t v, int64_t lo, int64_t hi) { return v < lo ? lo : v > hi ? hi : v; }
int64_t wrap16(int64_t v) { return int16_t(uint16_t(v & 0xFFFF)); }

// ---- references from the transforms -----------------------------------------------------
void ref_fwd(const Member& m, int64_t r, int64_t g, int64_t b, int64_t out[3]) {
    int64_t y, co, cg;
    if (m.lifting && m.pix == S16 && m.pl == S16) {  // 16-bit planes: every step wraps
        co = wrap16(r - b);
        const int64_t t = wrap16(b + (co >> 1));
        cg = wrap16(g - t);
        y = wrap16(t + (cg >> 1));
    } else if (m.lifting) {
        co = r - b;
        const int64_t t = b + (co >> 1);
        cg = g - t;
        y = t + (cg >> 1);
    } else {
        y = (r + 2 * g + b + 2) >> 2;
        co = (r - b + 1) >> 1;
        cg = (2 * g - r - b + 2) >> 2;
    }
    if (m.pl == U8) co = std::min<int64_t>(co + 128, 255), cg = clamp(cg + 128, 0, 255);
    if (m.pl == S16) y = clamp(y, -32768, 32767), co = clamp(co, -32768, 32767), cg = clamp(cg, -32768, 32767);
    out[0] = y, out[1] = co, out[2] = cg;
}

// Results in memory order (B, G, R for BGR members).
void ref_inv(const Member& m, int64_t y, int64_t co, int64_t cg, int64_t out[3]) {
    int64_t r, g, b;
    if (m.lifting) {
        const int64_t t = y - (cg >> 1);
        g = cg + t, b = t - (co >> 1), r = b + co;
    } else {
        r = y + co - cg, g = y + cg, b = y - co - cg;
    }
    if (m.pl == U8) g -= 128, b += 256;
    int64_t v[3] = {r, g, b};
    for (int64_t& c : v) {
        if (m.pix == U8) c = clamp(c, 0, 255);
        else if (m.pl == S16) c = wrap16(c);
        else c = clamp(c, -32768, 32767);
    }
    out[0] = m.rgb ? v[0] : v[2], out[1] = v[1], out[2] = m.rgb ? v[2] : v[0];
}

struct Planes {
    Plane p[3];
    void* ptr[3];
    Planes(const Member& m, const Shape& s, int guard) {
        const int e = es(m.pl);
        for (int i = 0; i < 3; ++i) {
            p[i] = Plane(s.w * e, s.h, s.pad * e, (s.misalign * e * (i + 1)) % 64, guard);
            ptr[i] = p[i].ptr();
        }
    }
};

NmqStatus run(const Member& m, Plane& pix, Planes& pl, ImageSize r, int alpha) {
    return m.forward ? m.fwd(pix.ptr(), pix.step, pl.ptr, pl.p[0].step, r)
                     : m.inv(pl.ptr, pl.p[0].step, pix.ptr(), pix.step, r, alpha);
}

}  // namespace

// Pointers come first (the interleaved one, the array, each plane), then the
// size where the member checks it; members without the check accept an empty
// ROI. Nothing is written on any of these paths.
TEST(YCoCgArgs, CheckOrderPerMember) {
    Rng rng;
    const Shape s{8, 2, 0, 0};
    for (const Member& m : kMembers) {
        Plane pix(8 * m.stride * es(m.pix), 2, 0, 0, 16);
        Planes pl(m, s, 16);
        struct Case {
            int null_what;  // 0 none, 1 interleaved pointer, 2 plane array, 3..5 plane 0..2
            ImageSize roi;
            NmqStatus want;
        };
        const NmqStatus empty = m.size_check ? nmqStsSize : nmqStsOk;
        const Case cases[] = {{1, {8, 2}, nmqStsNullPtr}, {2, {8, 2}, nmqStsNullPtr}, {3, {8, 2}, nmqStsNullPtr},
                              {4, {0, 0}, nmqStsNullPtr}, {5, {-1, 2}, nmqStsNullPtr}, {0, {0, 2}, empty},
                              {0, {8, 0}, empty},         {0, {-4, -4}, empty}};
        for (const Case& c : cases) {
            pix.randomize(rng);
            for (auto& p : pl.p) p.randomize(rng);
            void* ptrs[3] = {pl.ptr[0], pl.ptr[1], pl.ptr[2]};
            if (c.null_what >= 3) ptrs[c.null_what - 3] = nullptr;
            void* const* arr = c.null_what == 2 ? nullptr : ptrs;
            void* one = c.null_what == 1 ? nullptr : pix.ptr();
            const NmqStatus st = m.forward ? m.fwd(one, pix.step, arr, pl.p[0].step, c.roi)
                                           : m.inv(arr, pl.p[0].step, one, pix.step, c.roi, 7);
            EXPECT_EQ(st, c.want) << m.name << " case " << c.null_what << " " << c.roi.width << "x" << c.roi.height;
            EXPECT_TRUE(pix.untouched() && pl.p[0].untouched() && pl.p[1].untouched() && pl.p[2].untouched()) << m.name;
        }
    }
}

TEST(YCoCg, EdgeValues) {
    struct Case {
        const char* fn;
        std::vector<int64_t> in, want;  // in memory order
        const char* rule;
    };
    const Case cases[] = {
        {"nmqiRGBToYCoCg_8u_C3P3R", {255, 0, 0}, {64, 255, 64}, "Co 256 capped, Cg -64 + 128"},
        {"nmqiRGBToYCoCg_8u_C3P3R", {0, 0, 255}, {64, 1, 64}, "Co (-255 + 1) >> 1 floors to -127"},
        {"nmqiRGBToYCoCg_8u_C3P3R", {0, 255, 0}, {128, 128, 255}, "Cg 128 + 128 clamped"},
        {"nmqiYCoCgToRGB_8u_P3C3R", {255, 255, 0}, {255, 127, 255}, "offsets taken out; R 510 and B 256 clamped"},
        {"nmqiYCoCgToRGB_8u_P3C3R", {0, 255, 0}, {255, 0, 1}, "G -128 clamped"},
        {"nmqiBGRToYCoCg_8u16s_C3P3R", {0, 0, 255}, {64, 128, -64}, "BGR order, no offsets"},
        {"nmqiSBGRToYCoCg_16s_C3P3R", {-32768, 0, 32767}, {0, 32767, 0}, "Co 32768 saturated"},
        {"nmqiSBGRToYCoCg_16s32s_C3P3R", {-32768, 0, 32767}, {0, 32768, 0}, "32-bit planes keep 32768"},
        {"nmqiSBGRToYCoCg_Rev_16s_C3P3R", {-32768, 0, 32767}, {16383, -1, -32767}, "Co 65535 wraps to -1, t to 32767"},
        {"nmqiYCoCgToSBGR_16s_P3C3R", {32767, 1, 0}, {32766, 32767, -32768}, "R 32768 wraps"},
        {"nmqiYCoCgToSBGR_32s16s_P3C3R", {32767, 1, 0}, {32766, 32767, 32767}, "R 32768 saturates"},
        {"nmqiYCoCgToBGR_16s8u_P3C3R", {-5, 300, 0}, {0, 0, 255}, "clamped both ways"},
    };
    for (const Case& c : cases) {
        const Member& m = member(c.fn);
        Plane pix(m.stride * es(m.pix), 1);
        Planes pl(m, {1, 1, 0, 0}, 0);
        for (int i = 0; i < 3; ++i) store(m.forward ? m.pix : m.pl, m.forward ? pix.ptr() + i * es(m.pix) : pl.p[i].ptr(), c.in[size_t(i)]);
        ASSERT_EQ(run(m, pix, pl, {1, 1}, 0), nmqStsOk);
        for (int i = 0; i < 3; ++i) {
            const int64_t got = m.forward ? load(m.pl, pl.p[i].ptr()) : load(m.pix, pix.ptr() + i * es(m.pix));
            EXPECT_EQ(got, c.want[size_t(i)]) << c.fn << " output " << i << ": " << c.rule;
        }
    }
}

// Every 8u BGR triple comes back exactly through the lifting pair, C3 and C4
// (which writes the alpha given).
TEST(YCoCg, LiftingRoundTripsEvery8uInput) {
    const int n = 65536;
    std::vector<uint8_t> bgr(size_t(n) * 4), back(size_t(n) * 4);
    std::vector<int16_t> y(n), co(n), cg(n);
    Nmq16s* planes[3] = {y.data(), co.data(), cg.data()};
    const Nmq16s* cplanes[3] = {y.data(), co.data(), cg.data()};
    const ImageSize roi{256, 256};
    for (int r = 0; r < 256; ++r)
        for (int ch : {3, 4}) {
            for (int i = 0; i < n; ++i) {
                uint8_t* p = &bgr[size_t(i * ch)];
                p[0] = uint8_t(i), p[1] = uint8_t(i >> 8), p[2] = uint8_t(r);
            }
            if (ch == 3) {
                ASSERT_EQ(nmqiBGRToYCoCg_Rev_8u16s_C3P3R(bgr.data(), 768, planes, 512, roi), nmqStsOk);
                ASSERT_EQ(nmqiYCoCgToBGR_Rev_16s8u_P3C3R(cplanes, 512, back.data(), 768, roi), nmqStsOk);
            } else {
                ASSERT_EQ(nmqiBGRToYCoCg_Rev_8u16s_C4P3R(bgr.data(), 1024, planes, 512, roi), nmqStsOk);
                ASSERT_EQ(nmqiYCoCgToBGR_Rev_16s8u_P3C4R(cplanes, 512, back.data(), 1024, roi, 9), nmqStsOk);
            }
            for (int i = 0; i < n; ++i) {
                ASSERT_EQ(std::memcmp(&bgr[size_t(ch * i)], &back[size_t(ch * i)], 3), 0) << "R " << r << " C" << ch << " " << i;
                if (ch == 4) {
                    ASSERT_EQ(back[size_t(4 * i + 3)], 9);
                }
            }
        }
}

// Every member, every shape, every level: planes and pixels match the
// reference; C4 destinations get the alpha value; nothing outside the ROI moves.
TEST(YCoCg, SweepMatchesReference) {
    Rng rng(17);
    int k = 0;
    for (const Member& m : kMembers)
        for (const Shape& s : sweep_shapes(1, 1, m.pix == U8 ? 1031 : 300)) {
            const int pe = es(m.pix), le = es(m.pl);
            const bool pg = ++k % 4 == 0;
            Plane pix(s.w * m.stride * pe, s.h, s.pad * pe, (s.misalign * pe) % 64, m.forward ? 0 : 16,
                      m.forward && pg);
            Planes pl(m, s, m.forward ? 16 : 0);
            if (m.forward) pix.randomize(rng);
            else
                for (auto& p : pl.p) p.randomize(rng);
            const int alpha = int(rng.u32() & 0x7F);
            // Expected outputs: the planes (forward) or the pixel image (inverse).
            std::vector<std::vector<uint8_t>> want(m.forward ? 3 : 1);
            for (auto& v : want) v.resize(size_t(s.h) * size_t(m.forward ? s.w * le : s.w * m.stride * pe));
            for (int y = 0; y < s.h; ++y)
                for (int x = 0; x < s.w; ++x) {
                    int64_t in[3], out[3];
                    if (m.forward) {
                        for (int c = 0; c < 3; ++c) in[c] = load(m.pix, pix.row(y) + (m.stride * x + c) * pe);
                        ref_fwd(m, m.rgb ? in[0] : in[2], in[1], m.rgb ? in[2] : in[0], out);
                        for (int c = 0; c < 3; ++c) store(m.pl, &want[size_t(c)][size_t((y * s.w + x) * le)], out[c]);
                    } else {
                        for (int c = 0; c < 3; ++c) in[c] = load(m.pl, pl.p[c].row(y) + x * le);
                        ref_inv(m, in[0], in[1], in[2], out);
                        uint8_t* d = &want[0][size_t((y * s.w + x) * m.stride * pe)];
                        for (int c = 0; c < 3; ++c) store(m.pix, d + c * pe, out[c]);
                        if (m.stride == 4) store(m.pix, d + 3 * pe, alpha);
                    }
                }
            const std::string what = std::string(m.name) + " " + to_string(s);
            std::vector<Plane*> dst{&pix};
            if (m.forward) dst = {&pl.p[0], &pl.p[1], &pl.p[2]};
            for (Plane* p : dst) p->randomize(rng);
            ASSERT_EQ(run_every_level(dst, [&] { return run(m, pix, pl, {s.w, s.h}, alpha); }), "") << what;
            for (size_t c = 0; c < dst.size(); ++c)
                ASSERT_EQ(first_diff(dst[c]->roi(), want[c], dst[c]->row_bytes), "") << what << " destination " << c;
        }
}
