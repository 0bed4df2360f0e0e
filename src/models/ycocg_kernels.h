// YCoCg row kernels. A forward row reads interleaved pixels and writes the
// three planes Y, Co, Cg; an inverse row does the reverse. The scalar forms
// define the bits; the SSE2 forms (ycocg_kernels_sse2.cpp) cover the 8u and
// 8u<->16s members with the same bytes.
//
// Two transforms: the plain one (rounded divisions by 4 and 2, lossy) and the
// lifting one (exactly invertible on integers). All right shifts floor.
#pragma once

#include <cstdint>

namespace nmq::ycocg {

// Channel order of the interleaved side: RGB (channel 0 is R) or BGR.
enum class Order { Rgb, Bgr };

struct Ycc {
    int64_t y, co, cg;
};
struct Rgb {
    int64_t r, g, b;
};

// The transforms in 64-bit integers: exact for every input of every member
// (32-bit planes included), so each output policy below sees the true value.
inline Ycc plain_fwd(int64_t r, int64_t g, int64_t b) {
    return {(r + 2 * g + b + 2) >> 2, (r - b + 1) >> 1, (2 * g - r - b + 2) >> 2};
}
inline Ycc lifting_fwd(int64_t r, int64_t g, int64_t b) {
    const int64_t co = r - b, t = b + (co >> 1), cg = g - t;
    return {t + (cg >> 1), co, cg};
}
inline Rgb plain_inv(int64_t y, int64_t co, int64_t cg) { return {y + co - cg, y + cg, y - co - cg}; }
inline Rgb lifting_inv(int64_t y, int64_t co, int64_t cg) {
    const int64_t t = y - (cg >> 1), g = cg + t, b = t - (co >> 1);
    return {b + co, g, b};
}

inline int16_t wrap16(int64_t v) { return int16_t(uint16_t(uint64_t(v))); }
inline int16_t sat16(int64_t v) { return int16_t(v < -32768 ? -32768 : v > 32767 ? 32767 : v); }
inline uint8_t sat8(int64_t v) { return uint8_t(v < 0 ? 0 : v > 255 ? 255 : v); }

// ---- forward policies: samples to the three plane values -------------------------
// 8u planes: Co and Cg carry +128; Co is capped at 255 (it can reach 256) and
// Cg clamped to 0..255.
struct FwdPlain8u {
    using D = uint8_t;
    static void px(int64_t r, int64_t g, int64_t b, D& y, D& co, D& cg) {
        const Ycc v = plain_fwd(r, g, b);
        y = D(v.y);
        co = D(v.co + 128 > 255 ? 255 : v.co + 128);
        cg = sat8(v.cg + 128);
    }
};
// 16-bit planes saturate (a no-op for 8u sources), 32-bit planes take every value.
template <class DT, bool Lifting>
struct FwdSat {
    using D = DT;
    static void px(int64_t r, int64_t g, int64_t b, D& y, D& co, D& cg) {
        const Ycc v = Lifting ? lifting_fwd(r, g, b) : plain_fwd(r, g, b);
        if constexpr (sizeof(D) == 2) {
            y = sat16(v.y), co = sat16(v.co), cg = sat16(v.cg);
        } else {
            y = D(v.y), co = D(v.co), cg = D(v.cg);
        }
    }
};
// Lifting into 16-bit planes from 16-bit samples: every step wraps to 16 bits
// as 16-bit lanes do, which keeps the transform exactly invertible by the
// wrapping inverse below, whatever the samples.
struct FwdLiftingWrap16 {
    using D = int16_t;
    static void px(int64_t r, int64_t g, int64_t b, D& y, D& co, D& cg) {
        co = wrap16(r - b);
        const int16_t t = wrap16(b + (co >> 1));
        cg = wrap16(g - t);
        y = wrap16(t + (cg >> 1));
    }
};

// ---- inverse policies: plane values to the three samples ---------------------------
// 8u planes: the +128 offsets come out as G - 128 and B + 256; clamped to 0..255.
struct InvPlain8u {
    using D = uint8_t;
    static void px(int64_t y, int64_t co, int64_t cg, D& r, D& g, D& b) {
        r = sat8(y + co - cg);
        g = sat8(y + cg - 128);
        b = sat8(y - co - cg + 256);
    }
};
// 16s planes to 8u samples: exact results clamped to 0..255 (both transforms).
template <bool Lifting>
struct InvClamp8u {
    using D = uint8_t;
    static void px(int64_t y, int64_t co, int64_t cg, D& r, D& g, D& b) {
        const Rgb v = Lifting ? lifting_inv(y, co, cg) : plain_inv(y, co, cg);
        r = sat8(v.r), g = sat8(v.g), b = sat8(v.b);
    }
};
// 16s planes to 16s samples wrap like 16-bit lanes. The inverse shifts only
// its inputs, so wrapping the exact result equals wrapping every step.
template <bool Lifting>
struct InvWrap16 {
    using D = int16_t;
    static void px(int64_t y, int64_t co, int64_t cg, D& r, D& g, D& b) {
        const Rgb v = Lifting ? lifting_inv(y, co, cg) : plain_inv(y, co, cg);
        r = wrap16(v.r), g = wrap16(v.g), b = wrap16(v.b);
    }
};
// 32s planes to 16s samples saturate: planes written by the 32-bit forward
// transforms come back exactly, and out-of-range values give the nearest
// representable sample rather than an unrelated one.
template <bool Lifting>
struct InvSat16 {
    using D = int16_t;
    static void px(int64_t y, int64_t co, int64_t cg, D& r, D& g, D& b) {
        const Rgb v = Lifting ? lifting_inv(y, co, cg) : plain_inv(y, co, cg);
        r = sat16(v.r), g = sat16(v.g), b = sat16(v.b);
    }
};

// ---- rows ----------------------------------------------------------------------------
// S: pixel stride of the interleaved side (3, or 4 with the fourth channel
// ignored on input and set to alpha on output).
template <class Policy, class T, int S, Order O>
inline void ycocg_fwd_row(const T* src, typename Policy::D* y, typename Policy::D* co, typename Policy::D* cg,
                          int width) {
    constexpr int ri = O == Order::Rgb ? 0 : 2, bi = 2 - ri;
    for (int x = 0; x < width; ++x, src += S) Policy::px(src[ri], src[1], src[bi], y[x], co[x], cg[x]);
}

template <class Policy, class T, int S, Order O>
inline void ycocg_inv_row(const T* y, const T* co, const T* cg, typename Policy::D* dst, int width,
                          typename Policy::D alpha) {
    constexpr int ri = O == Order::Rgb ? 0 : 2, bi = 2 - ri;
    for (int x = 0; x < width; ++x, dst += S) {
        Policy::px(y[x], co[x], cg[x], dst[ri], dst[1], dst[bi]);
        if constexpr (S == 4) dst[3] = alpha;
    }
}

template <class T, class D>
using FwdRow = void (*)(const T*, D*, D*, D*, int);
template <class T, class D>
using InvRow = void (*)(const T*, const T*, const T*, D*, int, D);

// SSE2 forms, for the 8u interleaved side with 8u or 16s planes.
template <class Policy, int S, Order O>
void ycocg_fwd_row_sse2(const uint8_t* src, typename Policy::D* y, typename Policy::D* co, typename Policy::D* cg,
                        int width);
template <class Policy, class T, int S, Order O>
void ycocg_inv_row_sse2(const T* y, const T* co, const T* cg, uint8_t* dst, int width, uint8_t alpha);

}  // namespace nmq::ycocg
