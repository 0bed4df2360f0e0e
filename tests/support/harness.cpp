#include "support/harness.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace nmqt {

Plane::Plane(int row_bytes_, int rows_, int pad, int misalign, int guard, bool page_guard)
    : step(row_bytes_ + pad), row_bytes(row_bytes_), rows(rows_) {
    const size_t span = rows_ > 0 ? size_t(rows_ - 1) * size_t(step) + size_t(row_bytes_) : 0;
    size_ = span + 2 * size_t(guard);
    if (page_guard) {
        const size_t pg = size_t(sysconf(_SC_PAGESIZE));
        const size_t body = (size_ + size_t(misalign) + pg - 1) / pg * pg;
        map_size_ = body + pg;
        void* m = mmap(nullptr, map_size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (m == MAP_FAILED) std::abort();
        map_ = static_cast<uint8_t*>(m);
        mprotect(map_ + body, pg, PROT_NONE);
        base_ = map_ + body - size_;  // the last usable byte touches the protected page
    } else {
        // Exact-size heap block, so AddressSanitizer sees one byte too far;
        // the misalignment is taken in front of the plane.
        void* p = nullptr;
        const size_t n = size_t(misalign) + size_;
        if (posix_memalign(&p, 64, n ? n : 1) != 0) std::abort();
        map_ = static_cast<uint8_t*>(p);
        base_ = map_ + misalign;
    }
    roi_ = base_ + guard;
}

Plane::~Plane() {
    if (map_size_) munmap(map_, map_size_);
    else std::free(map_);
}

Plane& Plane::operator=(Plane&& o) noexcept {
    if (this != &o) {
        if (map_size_) munmap(map_, map_size_);
        else std::free(map_);
        base_ = o.base_; size_ = o.size_; map_ = o.map_; map_size_ = o.map_size_; roi_ = o.roi_;
        step = o.step; row_bytes = o.row_bytes; rows = o.rows; snap_ = std::move(o.snap_);
        o.base_ = o.map_ = o.roi_ = nullptr; o.size_ = o.map_size_ = 0;
    }
    return *this;
}

void Plane::randomize(Rng& r) {
    r.fill(base_, size_);
    snapshot();
}

void Plane::fill(uint8_t v) {
    std::memset(base_, v, size_);
    snapshot();
}

void Plane::snapshot() { snap_.assign(base_, base_ + size_); }

bool Plane::in_roi(size_t off) const {
    const ptrdiff_t rel = ptrdiff_t(off) - (roi_ - base_);
    if (rel < 0) return false;
    const ptrdiff_t y = rel / step, x = rel % step;
    return y < rows && x < row_bytes;
}

bool Plane::outside_untouched() const {
    for (size_t i = 0; i < size_; ++i)
        if (base_[i] != snap_[i] && !in_roi(i)) return false;
    return true;
}

bool Plane::untouched() const { return std::memcmp(base_, snap_.data(), size_) == 0; }

bool Plane::kept(const std::function<bool(int, int)>& keep) const {
    const ptrdiff_t off = roi_ - base_;
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < row_bytes; ++x) {
            const size_t i = size_t(off + ptrdiff_t(y) * step + x);
            if (keep(x, y) && base_[i] != snap_[i]) return false;
        }
    return true;
}

std::vector<uint8_t> Plane::roi() const {
    std::vector<uint8_t> v;
    v.reserve(size_t(row_bytes) * size_t(rows));
    for (int y = 0; y < rows; ++y) v.insert(v.end(), row(y), row(y) + row_bytes);
    return v;
}

void Plane::copy_from(const Plane& o) {
    if (o.size_ != size_) std::abort();
    std::memcpy(base_, o.base_, size_);
    snapshot();
}

std::string Plane::describe() const {
    std::ostringstream s;
    s << row_bytes << "B x " << rows << " step " << step << " align " << (reinterpret_cast<uintptr_t>(roi_) & 63);
    return s.str();
}

std::string to_string(const Shape& s) {
    std::ostringstream o;
    o << s.w << "x" << s.h << " pad " << s.pad << " misalign " << s.misalign;
    return o.str();
}

std::vector<Shape> sweep_shapes(int min_w, int min_h, int max_w) {
    std::vector<Shape> v;
    const int heights[] = {1, 2, 3, 4, 5, 7, 8, 16};
    const int pads[] = {0, 1, 3, 13, 64};
    const int mis[] = {0, 1, 2, 3, 5, 8, 15};
    int k = 0;
    auto add = [&](int w) {
        if (w < min_w || w > max_w) return;
        const int h = heights[k % 8];
        if (h >= min_h) v.push_back({w, h, pads[k % 5], mis[k % 7]});
        ++k;
    };
    for (int w = 1; w <= 64; ++w) add(w);
    for (int w : {65, 66, 67, 96, 97, 127, 128, 129, 255, 256, 257, 333, 511, 1023, 1024, 1031}) add(w);
    // A few taller images with odd heights.
    for (Shape s : {Shape{17, 9, 7, 3}, Shape{40, 13, 0, 0}, Shape{63, 31, 5, 1}, Shape{130, 33, 2, 6}})
        if (s.w >= min_w && s.h >= min_h && s.w <= max_w) v.push_back(s);
    return v;
}

std::vector<nmq::Isa> isa_levels() {
    std::vector<nmq::Isa> v{nmq::Isa::Scalar};
    const nmq::Isa top = nmq::cpu_isa();
    for (nmq::Isa l : {nmq::Isa::Sse2, nmq::Isa::Ssse3, nmq::Isa::Sse41, nmq::Isa::Avx2,
                          nmq::Isa::Avx512})
        if (l <= top) v.push_back(l);
    return v;
}

const char* isa_name(nmq::Isa l) {
    switch (l) {
        case nmq::Isa::Scalar: return "scalar";
        case nmq::Isa::Sse2: return "sse2";
        case nmq::Isa::Ssse3: return "ssse3";
        case nmq::Isa::Sse41: return "sse4.1";
        case nmq::Isa::Avx2: return "avx2";
        case nmq::Isa::Avx512: return "avx512";
    }
    return "?";
}

std::string first_diff(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int row_bytes) {
    if (a.size() != b.size()) return "sizes differ";
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) {
            std::ostringstream o;
            o << "first difference at row " << i / size_t(row_bytes) << " byte " << i % size_t(row_bytes) << ": "
              << int(a[i]) << " vs " << int(b[i]);
            return o.str();
        }
    return "";
}

}  // namespace nmqt
