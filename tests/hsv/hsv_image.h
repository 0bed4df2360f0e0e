// Test images for the HSV/HLS exports: one side of a call (pixel order or
// planes) built from a sweep shape, with typed access to model samples.
#pragma once

#include <cstring>
#include <vector>

#include "hsv/hsv_table.h"
#include "support/harness.h"

namespace hsvt {

struct SideImage {
    Side side;
    Type type;
    int elem;
    std::vector<nmqt::Plane> planes;
    std::vector<const uint8_t*> cptr;
    std::vector<uint8_t*> ptr;

    // Padding and misalignment are rounded to whole elements: 16- and 32-bit
    // steps are used in elements.
    SideImage(const Side& s, Type t, const nmqt::Shape& sh, int guard, bool page_guard = false)
        : side(s), type(t), elem(t == Type::u8 ? 1 : t == Type::f32 ? 4 : 2) {
        const int pad = (sh.pad + elem - 1) / elem * elem, mis = sh.misalign / elem * elem;
        for (int k = 0; k < s.planes; ++k)
            planes.emplace_back(sh.w * s.ch * elem, sh.h, pad, mis, guard, page_guard);
        for (auto& p : planes) {
            cptr.push_back(p.ptr());
            ptr.push_back(p.ptr());
        }
    }
    int step() const { return planes[0].step; }

    // Memory slot (0..3) of sample k of pixel x in row y.
    uint8_t* at(int slot, int x, int y) {
        if (side.planes == 1) return planes[0].row(y) + (ptrdiff_t(x) * side.ch + slot) * elem;
        return planes[size_t(slot)].row(y) + ptrdiff_t(x) * elem;
    }
    double get(int slot, int x, int y) {
        const uint8_t* p = at(slot, x, y);
        switch (type) {
            case Type::u8: return *p;
            case Type::u16: { uint16_t v; std::memcpy(&v, p, 2); return v; }
            case Type::s16: { int16_t v; std::memcpy(&v, p, 2); return v; }
            default: { float v; std::memcpy(&v, p, 4); return v; }
        }
    }
    void set(int slot, int x, int y, double v) {
        uint8_t* p = at(slot, x, y);
        switch (type) {
            case Type::u8: *p = uint8_t(v); break;
            case Type::u16: { const uint16_t u = uint16_t(v); std::memcpy(p, &u, 2); break; }
            case Type::s16: { const int16_t u = int16_t(v); std::memcpy(p, &u, 2); break; }
            default: { const float u = float(v); std::memcpy(p, &u, 4); break; }
        }
    }
    int w() const { return planes[0].row_bytes / (side.ch * elem); }
    int h() const { return planes[0].rows; }

    // Random bytes everywhere, then ROI samples that hit gray pixels, ties
    // and the ends of the range often. 32f samples lie in [0, 1).
    void fill(nmqt::Rng& rng) {
        for (auto& p : planes) p.randomize(rng);
        const int nslots = side.planes == 1 ? side.ch : side.planes;
        for (int y = 0; y < h(); ++y)
            for (int x = 0; x < w(); ++x)
                for (int k = 0; k < nslots; ++k) set(k, x, y, pick(rng));
        for (auto& p : planes) p.snapshot();
    }
    double pick(nmqt::Rng& rng) {
        static const double u8[] = {0, 1, 127, 128, 254, 255}, u16[] = {0, 1, 32767, 32768, 65534, 65535};
        static const double f32[] = {0, 0.25, 0.5, 0.75, 0.999, 0.5};
        const int a = rng.uniform(0, 7);
        switch (type) {
            case Type::u8: return a < 6 ? u8[a] : rng.uniform(0, 255);
            case Type::u16: return a < 6 ? u16[a] : rng.uniform(0, 65535);
            case Type::s16: return (a < 6 ? u16[a] : rng.uniform(0, 65535)) - 32768;
            default: return a < 6 ? f32[a] : rng.uniformf(0.0f, 1.0f);
        }
    }
    void copy_from(const SideImage& o) {
        for (size_t k = 0; k < planes.size(); ++k) planes[k].copy_from(o.planes[k]);
    }
    void snapshot() { for (auto& p : planes) p.snapshot(); }
    bool untouched() const {
        for (auto& p : planes) if (!p.untouched()) return false;
        return true;
    }
    bool outside_untouched() const {
        for (auto& p : planes) if (!p.outside_untouched()) return false;
        return true;
    }
    std::vector<uint8_t> bytes() const {
        std::vector<uint8_t> v;
        for (auto& p : planes) { auto r = p.roi(); v.insert(v.end(), r.begin(), r.end()); }
        return v;
    }
};

// Memory slot of model sample m (0..2 colour or model samples, 3 alpha) on a
// side that is in B, G, R order or not.
inline int slot(int m, bool reversed) { return reversed && m < 3 ? 2 - m : m; }

}  // namespace hsvt
