// Test harness shared by every family: exact-size planes with guard bytes,
// random fills, image shapes to sweep, and every SIMD level of this CPU.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "frame/dispatch.h"
#include "nmqcc.h"

namespace nmqt {

// Deterministic generator for test data.
struct Rng {
    std::mt19937 g;
    explicit Rng(uint32_t seed = 12345) : g(seed) {}
    uint32_t u32() { return g(); }
    int uniform(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(g); }
    float uniformf(float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(g); }
    void fill(void* p, size_t n) {
        auto* b = static_cast<uint8_t*>(p);
        for (size_t i = 0; i < n; ++i) b[i] = uint8_t(g() >> 24);
    }
};

// A plane of `rows` rows of `row_bytes` bytes (the ROI), `step` bytes apart.
// The allocation is exact: it starts `guard` bytes before the first ROI byte
// and ends `guard` bytes after the last ROI byte of the last row (guard 0 for
// sources, so AddressSanitizer reports any read past the ROI). With
// page_guard the allocation ends against a protected page instead, which
// catches over-reads without a sanitizer. `misalign` shifts the first byte
// off a 64-byte boundary; `pad` bytes separate rows (step = row_bytes + pad).
class Plane {
public:
    Plane() = default;
    Plane(int row_bytes, int rows, int pad = 0, int misalign = 0, int guard = 0, bool page_guard = false);
    ~Plane();
    Plane(Plane&& o) noexcept { *this = std::move(o); }
    Plane& operator=(Plane&& o) noexcept;
    Plane(const Plane&) = delete;
    Plane& operator=(const Plane&) = delete;

    uint8_t* ptr() { return roi_; }
    const uint8_t* ptr() const { return roi_; }
    template <class T> T* as() { return reinterpret_cast<T*>(roi_); }
    uint8_t* row(int y) { return roi_ + ptrdiff_t(y) * step; }
    const uint8_t* row(int y) const { return roi_ + ptrdiff_t(y) * step; }

    int step = 0;
    int row_bytes = 0;
    int rows = 0;

    // Whole allocation (guards, padding and ROI) filled with random bytes, then
    // remembered, so that untouched() can say what a call wrote.
    void randomize(Rng& r);
    void fill(uint8_t v);
    void snapshot();
    // No byte outside the ROI (guards, padding) changed since snapshot().
    bool outside_untouched() const;
    // No byte at all changed since snapshot() (error paths).
    bool untouched() const;
    // Bytes inside the ROI at positions where keep(x_byte, y) is true are unchanged
    // since snapshot() (alpha channels that must be kept, odd rows left alone).
    bool kept(const std::function<bool(int, int)>& keep) const;
    // The ROI bytes, row after row.
    std::vector<uint8_t> roi() const;
    // Copies the whole allocation of another plane of the same geometry.
    void copy_from(const Plane& o);

    std::string describe() const;

private:
    uint8_t* base_ = nullptr;   // start of the usable allocation
    size_t size_ = 0;           // usable bytes
    uint8_t* map_ = nullptr;    // mmap region when page_guard
    size_t map_size_ = 0;
    uint8_t* roi_ = nullptr;
    std::vector<uint8_t> snap_;
    bool in_roi(size_t off) const;
};

// One image shape of a sweep.
struct Shape {
    int w, h;       // ROI in pixels
    int pad;        // bytes between rows beyond the ROI bytes
    int misalign;   // bytes off a 64-byte boundary
};
std::string to_string(const Shape& s);

// Widths 1..64 and larger odd and even ones, several heights, padded and
// unaligned rows. `min_w`/`min_h` exclude shapes a family rejects.
std::vector<Shape> sweep_shapes(int min_w = 1, int min_h = 1, int max_w = 1031);

// Every SIMD level this CPU has, scalar first.
std::vector<nmq::Isa> isa_levels();
const char* isa_name(nmq::Isa);

// Runs f once per SIMD level above scalar with the level capped; the first
// argument tells which level runs.
inline void for_each_simd_level(const std::function<void(nmq::Isa)>& f) {
    for (nmq::Isa lv : isa_levels()) {
        if (lv == nmq::Isa::Scalar) continue;
        nmq::IsaCap cap(lv);
        f(lv);
    }
}

// First differing byte of two ROIs as a readable message, or "" when equal.
std::string first_diff(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int row_bytes);

}  // namespace nmqt
