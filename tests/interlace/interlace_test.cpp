// Interlaced 4:2:2 <-> 4:2:0 and 4:2:2 to gray: every export against a
// reference written from the field rules (decode the source into Y/Cb/Cr
// arrays, resample per field, compare the decoded destination), argument
// checks, SIMD levels against scalar, guards, hand-computed weights and the
// ramp the resampling exists to keep.
#include <functional>

#include "support/sweep.h"

using namespace nmqt;
using u8 = uint8_t;

namespace {

enum class Kind { C2, P3_422, P3_420, P2_420, Gray };

// Plane sizes (row bytes, rows) of an image of w x h luma pixels.
std::vector<std::pair<int, int>> planes_of(Kind k, int w, int h) {
    switch (k) {
        case Kind::C2: return {{2 * w, h}};
        case Kind::P3_422: return {{w, h}, {w / 2, h}, {w / 2, h}};
        case Kind::P3_420: return {{w, h}, {w / 2, h / 2}, {w / 2, h / 2}};
        case Kind::P2_420: return {{w, h}, {w, h / 2}};
        case Kind::Gray: return {{w, h}};
    }
    return {};
}

// Logical image: luma and chroma planes as arrays.
struct Img {
    int w = 0, h = 0, crows = 0;
    std::vector<int> y, cb, cr;
    int& Y(int r, int x) { return y[size_t(r) * w + x]; }
    int& Cb(int r, int x) { return cb[size_t(r) * (w / 2) + x]; }
    int& Cr(int r, int x) { return cr[size_t(r) * (w / 2) + x]; }
};

Img decode(Kind k, const std::vector<Plane>& p, int w, int h) {
    Img m;
    m.w = w, m.h = h, m.crows = (k == Kind::P3_420 || k == Kind::P2_420) ? h / 2 : h;
    m.y.assign(size_t(w) * h, 0);
    m.cb.assign(size_t(w / 2) * m.crows, 0);
    m.cr = m.cb;
    for (int r = 0; r < h; ++r)
        for (int x = 0; x < w; ++x) m.Y(r, x) = k == Kind::C2 ? p[0].row(r)[2 * x] : p[0].row(r)[x];
    for (int r = 0; r < m.crows && k != Kind::Gray; ++r)
        for (int i = 0; i < w / 2; ++i) {
            if (k == Kind::C2) m.Cb(r, i) = p[0].row(r)[4 * i + 1], m.Cr(r, i) = p[0].row(r)[4 * i + 3];
            else if (k == Kind::P2_420) m.Cb(r, i) = p[1].row(r)[2 * i], m.Cr(r, i) = p[1].row(r)[2 * i + 1];
            else m.Cb(r, i) = p[1].row(r)[i], m.Cr(r, i) = p[2].row(r)[i];
        }
    return m;
}

// 4:2:2 -> 4:2:0: 3:1 within the top field, 1:3 within the bottom field.
Img down(Img s) {
    Img d = s;
    d.crows = s.h / 2;
    d.cb.assign(size_t(s.w / 2) * d.crows, 0);
    d.cr = d.cb;
    for (int k = 0; k < d.crows; ++k) {
        const int j = k / 2;
        const int a = k % 2 ? 4 * j + 3 : 4 * j, b = k % 2 ? 4 * j + 1 : 4 * j + 2;
        for (int i = 0; i < s.w / 2; ++i) {
            d.Cb(k, i) = (3 * s.Cb(a, i) + s.Cb(b, i) + 2) / 4;
            d.Cr(k, i) = (3 * s.Cr(a, i) + s.Cr(b, i) + 2) / 4;
        }
    }
    return d;
}

// 4:2:0 -> 4:2:2: linear interpolation within each field, edge rows repeated.
Img up(Img s) {
    Img d = s;
    d.crows = s.h;
    d.cb.assign(size_t(s.w / 2) * s.h, 0);
    d.cr = d.cb;
    const int n = s.h / 4;
    auto clampj = [n](int j) { return j < 0 ? 0 : j >= n ? n - 1 : j; };
    for (int r = 0; r < s.h; ++r) {
        const int f = r % 2, j = r / 4, second = (r / 2) % 2;
        // weights of field rows j-1, j, j+1 (in eighths)
        int w0, w1, w2;
        if (f == 0) second ? (w0 = 0, w1 = 5, w2 = 3) : (w0 = 1, w1 = 7, w2 = 0);
        else second ? (w0 = 0, w1 = 7, w2 = 1) : (w0 = 3, w1 = 5, w2 = 0);
        const int r0 = 2 * clampj(j - 1) + f, r1 = 2 * j + f, r2 = 2 * clampj(j + 1) + f;
        for (int i = 0; i < s.w / 2; ++i) {
            d.Cb(r, i) = (w0 * s.Cb(r0, i) + w1 * s.Cb(r1, i) + w2 * s.Cb(r2, i) + 4) / 8;
            d.Cr(r, i) = (w0 * s.Cr(r0, i) + w1 * s.Cr(r1, i) + w2 * s.Cr(r2, i) + 4) / 8;
        }
    }
    return d;
}

// Arguments of one call in a layout-neutral form.
struct Io {
    const u8* s[3] = {};
    int ss[3] = {};
    u8* d[3] = {};
    int ds[3] = {};
};
using Call = std::function<NmqStatus(const Io&, ImageSize)>;

struct Member {
    const char* name;
    Call call;
    Kind src, dst;
    int min_h;  // 4 for the interlaced forms, 1 for gray
};

#define C2P3(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.d, io.ds, r); }
#define P3P3(f) #f, [](const Io& io, ImageSize r) { return f(io.s, io.ss, io.d, io.ds, r); }
#define P3C2(f) #f, [](const Io& io, ImageSize r) { return f(io.s, io.ss, io.d[0], io.ds[0], r); }
#define P2C2(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.s[1], io.ss[1], io.d[0], io.ds[0], r); }
#define P2P3(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.s[1], io.ss[1], io.d, io.ds, r); }
#define C2C1(f) #f, [](const Io& io, ImageSize r) { return f(io.s[0], io.ss[0], io.d[0], io.ds[0], r); }

const std::vector<Member>& members() {
    static const std::vector<Member> t = {
        {C2P3(nmqiYCbCr422ToYCbCr420_Interlace_8u_C2P3R), Kind::C2, Kind::P3_420, 4},
        {P3P3(nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R), Kind::P3_422, Kind::P3_420, 4},
        {P3C2(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3C2R), Kind::P3_420, Kind::C2, 4},
        {P3P3(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R), Kind::P3_420, Kind::P3_422, 4},
        {P2C2(nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2C2R), Kind::P2_420, Kind::C2, 4},
        {P2P3(nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2P3R), Kind::P2_420, Kind::P3_422, 4},
        {C2C1(nmqiYCbCr422ToGray_8u_C2C1R), Kind::C2, Kind::Gray, 1},
    };
    return t;
}

bool is_down(const Member& m) { return m.src == Kind::C2 || m.src == Kind::P3_422; }

// Rounded ROI of a member.
ImageSize rounded(const Member& m, ImageSize r) { return {r.width & ~1, m.min_h == 4 ? r.height & ~3 : r.height}; }

struct Case {
    std::vector<Plane> src, dst;
    Io io;
};

// Planes sized for the rounded ROI: sources exact (no guard), destinations
// with guard bytes.
Case make_case(const Member& m, ImageSize roi, int pad, int mis, bool page_guard, uint32_t seed) {
    const ImageSize e = rounded(m, roi);
    Case c;
    Rng rng(seed);
    for (auto [rb, rows] : planes_of(m.src, e.width, e.height)) c.src.emplace_back(rb, rows, pad, mis, 0, page_guard);
    for (auto [rb, rows] : planes_of(m.dst, e.width, e.height)) c.dst.emplace_back(rb, rows, pad + 3, mis + 1, 32);
    for (auto& p : c.src) p.randomize(rng);
    for (auto& p : c.dst) p.randomize(rng);
    for (size_t i = 0; i < c.src.size(); ++i) c.io.s[i] = c.src[i].ptr(), c.io.ss[i] = c.src[i].step;
    for (size_t i = 0; i < c.dst.size(); ++i) c.io.d[i] = c.dst[i].ptr(), c.io.ds[i] = c.dst[i].step;
    return c;
}

// The destination decoded against the reference; "" or a message.
std::string check_against_reference(const Member& m, const Case& c, ImageSize roi) {
    const ImageSize e = rounded(m, roi);
    const Img in = decode(m.src, c.src, e.width, e.height);
    const Img got = decode(m.dst, c.dst, e.width, e.height);
    Img want = m.dst == Kind::Gray ? in : is_down(m) ? down(in) : up(in);
    if (got.y != want.y) return "luma differs";
    if (m.dst != Kind::Gray && (got.cb != want.cb || got.cr != want.cr)) return "chroma differs";
    return "";
}

TEST(Interlace, EveryShapeMatchesReferenceAtEveryLevel) {
    uint32_t seed = 1;
    for (const Member& m : members())
        for (const Shape& s : sweep_shapes(2, m.min_h)) {
            const ImageSize roi{s.w, s.h};
            Case c = make_case(m, roi, s.pad, s.misalign, (seed & 3) == 0, seed);
            ++seed;
            std::vector<Plane*> dst;
            for (auto& p : c.dst) dst.push_back(&p);
            ASSERT_EQ(run_every_level(dst, [&] { return m.call(c.io, roi); }), "") << m.name << " " << to_string(s);
            ASSERT_EQ(check_against_reference(m, c, roi), "") << m.name << " " << to_string(s);
        }
}
// Argument checks: pointers first (-8), then the size (-6); an error writes nothing.
TEST(Interlace, ArgumentChecksInOrder) {
    struct Row {
        const char* what;
        int null_src, null_dst;  // index of the plane pointer to null, -1 none, 9 the array/pointer itself
        ImageSize roi;
        NmqStatus want;
    };
    const Row rows[] = {
        {"null source", 9, -1, {8, 8}, nmqStsNullPtr},
        {"null destination", -1, 9, {8, 8}, nmqStsNullPtr},
        {"null source and zero size", 9, -1, {0, 0}, nmqStsNullPtr},
        {"second source plane null, zero size", 1, -1, {0, 8}, nmqStsNullPtr},
        {"last destination plane null", -1, 2, {8, 8}, nmqStsNullPtr},
        {"width 0", -1, -1, {0, 8}, nmqStsSize},
        {"width 1", -1, -1, {1, 8}, nmqStsSize},
        {"height 0", -1, -1, {8, 0}, nmqStsSize},
        {"negative height", -1, -1, {8, -4}, nmqStsSize},
    };
    for (const Member& m : members()) {
        const size_t ns = planes_of(m.src, 8, 8).size(), nd = planes_of(m.dst, 8, 8).size();
        for (const Row& r : rows) {
            if ((r.null_src >= 0 && r.null_src != 9 && size_t(r.null_src) >= ns) ||
                (r.null_dst >= 0 && r.null_dst != 9 && size_t(r.null_dst) >= nd))
                continue;
            Case c = make_case(m, {8, 8}, 0, 0, false, 7);
            for (auto& p : c.dst) p.snapshot();
            if (r.null_src == 9) c.io.s[0] = nullptr;
            else if (r.null_src >= 0) c.io.s[r.null_src] = nullptr;
            if (r.null_dst == 9) c.io.d[0] = nullptr;
            else if (r.null_dst >= 0) c.io.d[r.null_dst] = nullptr;
            EXPECT_EQ(m.call(c.io, r.roi), r.want) << m.name << ": " << r.what;
            for (auto& p : c.dst) EXPECT_TRUE(p.untouched()) << m.name << ": " << r.what;
        }
        // Heights 1..3 are refused by the interlaced forms only.
        Case c = make_case(m, {8, 8}, 0, 0, false, 8);
        for (int h = 1; h < 4; ++h)
            EXPECT_EQ(m.call(c.io, {8, h}), m.min_h == 4 ? nmqStsSize : nmqStsOk) << m.name << " h=" << h;
    }
}

// The array forms also refuse a missing array of plane pointers.
TEST(Interlace, NullArraysRefused) {
    u8 buf[64] = {};
    u8* planes[3] = {buf, buf + 16, buf + 32};
    const u8* cplanes[3] = {buf, buf + 16, buf + 32};
    const int steps[3] = {8, 4, 4};
    EXPECT_EQ(nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(nullptr, steps, planes, steps, {4, 4}), nmqStsNullPtr);
    EXPECT_EQ(nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(cplanes, steps, nullptr, steps, {4, 4}), nmqStsNullPtr);
    EXPECT_EQ(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3C2R(nullptr, steps, buf, 8, {4, 4}), nmqStsNullPtr);
    EXPECT_EQ(nmqiYCbCr422ToYCbCr420_Interlace_8u_C2P3R(buf, 8, nullptr, steps, {4, 4}), nmqStsNullPtr);
    EXPECT_EQ(nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2P3R(buf, 4, buf, 4, nullptr, steps, {4, 4}), nmqStsNullPtr);
}

// Hand-computed samples of one chroma column pin the weights and rounding.
TEST(Interlace, HandComputedWeights) {
    // 4:2:2 chroma rows 0..3 (top: 10, 13; bottom: 100, 103) -> 4:2:0
    // top (3*10 + 13 + 2) >> 2 = 11, bottom (100 + 3*103 + 2) >> 2 = 102.
    const u8 cin[4] = {10, 100, 13, 103};
    u8 yin[4 * 2] = {}, ycopy[8], cbo[2], cro[2];
    const u8* s[3] = {yin, cin, cin};
    const int ss[3] = {2, 1, 1};
    u8* d[3] = {ycopy, cbo, cro};
    const int ds[3] = {2, 1, 1};
    ASSERT_EQ(nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(s, ss, d, ds, {2, 4}), nmqStsOk);
    EXPECT_EQ(cbo[0], 11);
    EXPECT_EQ(cbo[1], 102);
    // 4:2:0 with two top rows T = 0, 80 and two bottom rows B = 8, 200 (h = 8):
    // row 0 = T0 = 0; row 2 = (5*0 + 3*80 + 4) >> 3 = 30; row 4 = (0 + 7*80 + 4) >> 3 = 70;
    // row 6 = 80; row 1 = 8; row 3 = (7*8 + 200 + 4) >> 3 = 32; row 5 = (3*8 + 5*200 + 4) >> 3 = 128;
    // row 7 = 200.
    const u8 c420[4] = {0, 8, 80, 200};
    u8 y8[16] = {}, yo[16], c422[8], c422r[8];
    const u8* s2[3] = {y8, c420, c420};
    u8* d2[3] = {yo, c422, c422r};
    ASSERT_EQ(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R(s2, ss, d2, ds, {2, 8}), nmqStsOk);
    const u8 want[8] = {0, 8, 30, 32, 70, 128, 80, 200};
    for (int r = 0; r < 8; ++r) EXPECT_EQ(c422[r], want[r]) << "row " << r;
}

// A vertical chroma ramp survives 4:2:2 -> 4:2:0 -> 4:2:2 within one step
// away from the first and last group: the upsampling interpolates at the
// positions the downsampling assumes.
TEST(Interlace, RampRoundTrip) {
    const int w = 4, h = 32;
    std::vector<u8> y(w * h, 0), cb(h * 2), cr(h * 2), y2(w * h), cb420(h), cr420(h), cb2(h * 2), cr2(h * 2);
    for (int r = 0; r < h; ++r) cb[2 * r] = cb[2 * r + 1] = u8(20 + 6 * r), cr[2 * r] = cr[2 * r + 1] = u8(230 - 5 * r);
    const u8* s[3] = {y.data(), cb.data(), cr.data()};
    const int s422[3] = {w, 2, 2};
    u8* d[3] = {y2.data(), cb420.data(), cr420.data()};
    ASSERT_EQ(nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(s, s422, d, s422, {w, h}), nmqStsOk);
    const u8* s2[3] = {y2.data(), cb420.data(), cr420.data()};
    u8* d2[3] = {y2.data(), cb2.data(), cr2.data()};
    ASSERT_EQ(nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R(s2, s422, d2, s422, {w, h}), nmqStsOk);
    for (int r = 4; r < h - 4; ++r) {
        EXPECT_NEAR(cb2[2 * r], cb[2 * r], 1) << "row " << r;
        EXPECT_NEAR(cr2[2 * r], cr[2 * r], 1) << "row " << r;
    }
}

}  // namespace
