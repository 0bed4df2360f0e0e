// Plane allocation, argument decoding and the checks of the hostile-use harness.
#include "harness.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "frame/dispatch.h"

#include "export_table.inc"

namespace nmqf {

const std::vector<const Export*>& exports() {
    static const std::vector<const Export*> all = [] {
        std::vector<const Export*> v;
        for (int i = 0; i < kExportCount; ++i)
            if (kExports[i].fn) v.push_back(&kExports[i]);
        return v;
    }();
    return all;
}

const Export* find_export(const std::string& name) {
    for (const Export* e : exports())
        if (name == e->name) return e;
    return nullptr;
}

std::vector<std::string> undescribed() {
    std::vector<std::string> v;
    for (int i = 0; i < kSkippedCount; ++i)
        if (kSkipped[i]) v.push_back(kSkipped[i]);
    return v;
}

static bool family_is(const Export& e, const char* f) { return std::strcmp(e.family, f) == 0; }

bool checks_steps(const Export& e) {
    if (family_is(e, "gamma") || family_is(e, "twist")) return true;
    // The 8u BGR/HLS conversions of the HSV family.
    return family_is(e, "hsv") && std::strstr(e.name, "_8u_") &&
           (std::strstr(e.name, "BGRToHLS") || std::strstr(e.name, "HLSToBGR"));
}

bool status_allowed(const Export& e, NmqStatus s) {
    switch (s) {
    case nmqStsOk: case nmqStsSize: case nmqStsNullPtr: return true;
    case nmqStsOddSize:
        return !family_is(e, "gamma") && !family_is(e, "twist") && !family_is(e, "reduce") &&
               !family_is(e, "tonemap") && !family_is(e, "bayer");
    case nmqStsStep: return checks_steps(e);
    case nmqStsGammaRange: return family_is(e, "gamma") && (e.params & kVRange);
    case nmqStsNoMemory:
        return family_is(e, "gamma") || family_is(e, "reduce") || family_is(e, "ahd");
    case nmqStsLevelsRange: case nmqStsNoiseRange: return family_is(e, "reduce") && (e.params & kLevels);
    case nmqStsDitherKindUnsupported: return family_is(e, "reduce") && (e.params & kBitOff);
    case nmqStsNegativeLevel: return family_is(e, "tonemap");
    case nmqStsBadArg: return (e.params & kGrid) != 0;
    default: return false;
    }
}

// ---------------------------------------------------------------------------
// Plane geometry

namespace {

constexpr int kGuard = 32;

int ceil_div(int a, int b) { return (a + b - 1) / b; }

struct PlaneShape {
    int rows = 0, row_bytes = 0, esz = 1;
    int first_bit = -1;   // one-bit planes: bit offset within the first byte
    int bits = 0;
};

PlaneShape shape_of(const Export& e, const Args& a, bool dst, int k) {
    const Geo g = (dst ? e.dst : e.src).g[k];
    PlaneShape p;
    p.esz = g.esz;
    if (e.params & kRect) {
        if (!dst) {
            if (a.full.width >= 1 && a.full.height >= 1) {
                p.rows = a.full.height;
                p.row_bytes = a.full.width * g.esz * g.cpp;
            }
        } else if (a.rect.x >= 0 && a.rect.y >= 0) {
            const int64_t w = std::min<int64_t>(a.rect.width, int64_t(a.full.width) - a.rect.x);
            const int64_t h = std::min<int64_t>(a.rect.height, int64_t(a.full.height) - a.rect.y);
            if (w >= 1 && h >= 1 && a.full.width >= 2 && a.full.height >= 2) {
                p.rows = int(h);
                p.row_bytes = int(w) * g.esz * g.cpp;
            }
        }
        return p;
    }
    const int w = a.roi.width, h = a.roi.height;
    if (w < 1 || h < 1) return p;
    p.rows = ceil_div(h, g.ysub);
    if (g.cpp == 0) {
        if (a.bitoff < 0) return PlaneShape{};
        p.first_bit = a.bitoff & 7;
        p.bits = w;
        p.row_bytes = ceil_div(p.first_bit + w, 8);
    } else {
        p.row_bytes = ceil_div(w, g.xsub) * g.cpp * g.esz;
    }
    return p;
}

int pick_step(const StepChoice& c, int row_bytes, int esz) {
    const int rb = std::max(row_bytes, esz);
    const int extra = std::abs(c.extra % 97);
    switch (c.mode) {
    case StepMode::Exact: return rb;
    case StepMode::Padded: return rb + 1 + extra;
    case StepMode::Negative: return -(rb + extra);
    case StepMode::Zero: return 0;
    case StepMode::Overlap: return std::max(1, rb / 2 - extra % std::max(1, rb / 2));
    case StepMode::NegativeExact: return -rb;
    default: return rb;
    }
}

uint32_t mix(uint32_t x) {
    x ^= x >> 16; x *= 0x7feb352dU; x ^= x >> 15; x *= 0x846ca68bU; x ^= x >> 16;
    return x;
}

void fill_bytes(uint8_t* p, size_t n, int esz, const Fill& f, uint32_t salt, bool is_float, bool* finite) {
    uint32_t st = mix(f.seed ^ salt);
    auto next = [&](size_t i) -> uint8_t {
        uint8_t b = f.len ? f.data[(i + salt) % f.len] : 0;
        st = st * 1664525u + 1013904223u;
        return uint8_t(b ^ (st >> 24));
    };
    if (!is_float || f.float_mode == 0) {
        for (size_t i = 0; i < n; ++i) p[i] = next(i);
        if (is_float) {
            for (size_t i = 0; i + esz <= n; i += esz) {
                bool fin = esz == 4 ? std::isfinite([&] { float v; std::memcpy(&v, p + i, 4); return v; }())
                                    : std::isfinite([&] { double v; std::memcpy(&v, p + i, 8); return v; }());
                if (!fin) *finite = false;
            }
        }
        return;
    }
    for (size_t i = 0; i + esz <= n; i += esz) {
        const double u = next(i) / 255.0 + next(i + 1) / 65025.0;
        const double v = f.float_mode == 1 ? u : u * 302.0 - 2.0;
        if (esz == 4) { float x = float(v); std::memcpy(p + i, &x, 4); }
        else { std::memcpy(p + i, &v, 8); }
    }
}

bool float_elems(const Export& e, bool dst) {
    // 32f and 64f planes: the element size alone does not tell 32f from 32s.
    const char* t = std::strrchr(e.name, '_');
    std::string types(e.name, t ? size_t(t - e.name) : 0);
    types = types.substr(types.rfind('_') + 1);
    if (types == "32f" || types == "64f") return true;
    if (types.size() > 3 && types.compare(0, 3, "32f") == 0) return !dst;
    return false;
}

}  // namespace

// ---------------------------------------------------------------------------
// Case

Case::Case(const Export& e, const Args& params, const StepChoice src_steps[4], const StepChoice dst_steps[4],
           const Fill& fill, int misalign)
    : e_(e), a_(params) {
    const bool inplace = e.flags & kInPlace;
    for (int side = inplace ? 1 : 0; side < 2; ++side) {
        const bool dst = side == 1;
        const Planes& pl = dst ? e.dst : e.src;
        const Pass pass = dst ? e.dst_pass : e.src_pass;
        const StepChoice* sc = dst ? dst_steps : src_steps;
        std::vector<PlaneShape> shapes;
        int widest = 0;
        for (int k = 0; k < pl.n; ++k) {
            shapes.push_back(shape_of(e, a_, dst, k));
            widest = std::max(widest, shapes.back().row_bytes);
        }
        int* steps = dst ? a_.ds : a_.ss;
        for (int k = 0; k < pl.n; ++k) {
            int step;
            if (pass == Pass::SingleNoStep || pass == Pass::ArrayNoStep)
                step = shapes[k].row_bytes;   // contiguous planes, derived steps
            else if (pass == Pass::ArrayOneStep)
                step = pick_step(sc[0], widest, shapes[k].esz);
            else
                step = pick_step(sc[k], shapes[k].row_bytes, shapes[k].esz);
            // 64f images step in bytes: a step off the element size would
            // misalign the caller's own rows, so it stays a multiple of 8.
            if (shapes[k].esz == 8) step = step / 8 * 8;
            steps[k] = step;
        }
        for (int k = 0; k < pl.n; ++k) {
            const PlaneShape& s = shapes[k];
            Buf b;
            b.esz = s.esz;
            b.step = steps[k];
            b.eff_step = steps[k] / s.esz * s.esz;   // 16/32-bit planes truncate their steps
            b.rows = s.rows;
            b.row_bytes = s.row_bytes;
            const ptrdiff_t last = ptrdiff_t(std::max(s.rows - 1, 0)) * b.eff_step;
            const ptrdiff_t lo = std::min<ptrdiff_t>(0, last);
            const ptrdiff_t hi = s.rows ? std::max<ptrdiff_t>(s.row_bytes, last + s.row_bytes) : 0;
            const size_t span = size_t(hi - lo);
            const int mis = (misalign % 16) / s.esz * s.esz;
            b.lead = size_t(dst ? kGuard + mis : mis);
            b.size = b.lead + std::max<size_t>(span, 0) + (dst ? kGuard : 0);
            if (b.size == 0) b.size = 1;   // a plane the call must not touch at all
            b.alloc = static_cast<uint8_t*>(std::malloc(b.size));
            b.origin = b.alloc + b.lead - lo;
            bool fin = true;
            fill_bytes(b.alloc, b.size, s.esz, fill, uint32_t(side * 16 + k + 1), float_elems(e, dst), &fin);
            if ((!dst || inplace) && !fin) finite = false;
            if (dst) {
                b.mask.assign(b.size, 0);
                for (int r = 0; r < s.rows; ++r) {
                    uint8_t* row = b.origin + ptrdiff_t(r) * b.eff_step;
                    const size_t off = size_t(row - b.alloc);
                    if (s.first_bit < 0) {
                        std::fill(b.mask.begin() + off, b.mask.begin() + off + s.row_bytes, 0xFF);
                    } else {
                        for (int i = 0; i < s.bits; ++i) {
                            const int bit = s.first_bit + i;
                            b.mask[off + bit / 8] |= uint8_t(0x80 >> (bit % 8));
                        }
                    }
                }
            }
            if (dst) a_.d[k] = b.origin; else a_.s[k] = b.origin;
            (dst ? dst_ : src_).push_back(std::move(b));
        }
    }
    if (inplace) {
        for (int k = 0; k < e.dst.n; ++k) { a_.s[k] = a_.d[k]; a_.ss[k] = a_.ds[k]; }
    }
    if (e.params & (kTwist34 | kTwist44 | kCoeffs | kVRange)) {
        for (auto& r : a_.tw) for (float v : r) if (!std::isfinite(v)) finite = false;
        for (float v : a_.co) if (!std::isfinite(v)) finite = false;
        for (double v : a_.co64) if (!std::isfinite(v)) finite = false;
        if (!std::isfinite(a_.vmin) || !std::isfinite(a_.vmax)) finite = false;
    }
}

Case::~Case() {
    for (Buf& b : src_) std::free(b.alloc);
    for (Buf& b : dst_) std::free(b.alloc);
}

bool Case::set_null(int which) {
    const bool inplace = e_.flags & kInPlace;
    auto array_pass = [](Pass p) { return p == Pass::ArrayOneStep || p == Pass::ArraySteps || p == Pass::ArrayNoStep; };
    if (which == 0 || which == 1) {
        const bool dst = which == 1 || inplace;
        const Pass p = dst ? e_.dst_pass : e_.src_pass;
        if (array_pass(p)) {
            if (e_.flags & kArrayUnchecked) return false;
            (dst ? a_.dst_null_array : a_.src_null_array) = true;
        } else {
            if (dst) a_.d[0] = nullptr; else a_.s[0] = nullptr;
        }
    } else if (which >= 2 && which < 10) {
        const bool dst = which >= 6 || inplace;
        const int k = (which - 2) % 4;
        if (k >= (dst ? e_.dst.n : e_.src.n)) return false;
        if (dst) a_.d[k] = nullptr; else a_.s[k] = nullptr;
        if (inplace) { a_.s[k] = nullptr; a_.d[k] = nullptr; }
    } else if (which == 10) {
        if (!(e_.params & (kTwist34 | kTwist44))) return false;
        a_.null_matrix = true;
    } else {
        return false;
    }
    null_given_ = true;
    return true;
}

void Case::snapshot() {
    for (Buf& b : src_) b.before.assign(b.alloc, b.alloc + b.size);
    for (Buf& b : dst_) b.before.assign(b.alloc, b.alloc + b.size);
}

void Case::restore() {
    for (Buf& b : dst_) std::memcpy(b.alloc, b.before.data(), b.size);
}

std::string Case::run() {
    snapshot();
    status_ = e_.call(a_);
    return check();
}

std::string Case::run_scalar_vs_simd() {
    snapshot();
    NmqStatus scalar_status;
    std::vector<std::vector<uint8_t>> scalar;
    {
        nmq::IsaCap cap(nmq::Isa::Scalar);
        scalar_status = e_.call(a_);
    }
    for (Buf& b : dst_) scalar.emplace_back(b.alloc, b.alloc + b.size);
    restore();
    status_ = e_.call(a_);
    std::string err = check();
    if (!err.empty()) return err;
    if (status_ != scalar_status)
        return "status " + std::to_string(status_) + " differs from the scalar level's " + std::to_string(scalar_status);
    for (size_t k = 0; k < dst_.size(); ++k) {
        const Buf& b = dst_[k];
        for (size_t i = 0; i < b.size; ++i)
            if (b.alloc[i] != scalar[k][i]) {
                const ptrdiff_t off = (b.alloc + i) - b.origin;
                return "destination plane " + std::to_string(k) + " byte at offset " + std::to_string(off) +
                       " differs from the scalar level";
            }
    }
    return "";
}

std::string Case::check() const {
    const NmqStatus s = status_;
    const Args& a = a_;
    auto fail = [&](const std::string& what) { return "status " + std::to_string(s) + ": " + what; };
    if (!status_allowed(e_, s)) return fail("not a status this function returns");
    if (null_given_ && s >= 0) return fail("a null pointer was accepted");
    if (e_.params & kRect) {
        if ((a.full.width < 2 || a.full.height < 2 || a.rect.x < 0 || a.rect.y < 0) && s >= 0)
            return fail("a bad source size or rectangle was accepted");
    } else {
        const bool free = e_.flags & kSizeUnchecked;
        const bool bad_w = a.roi.width < 1 && !free;
        const bool bad_h = a.roi.height < 1 && !free && !(e_.flags & kHeightUnchecked);
        if ((bad_w || bad_h) && s >= 0) return fail("a ROI below 1 was accepted");
        if ((e_.params & kBitOff) && a.bitoff < 0 && s >= 0) return fail("a negative bit offset was accepted");
    }
    if (checks_steps(e_) && s >= 0) {
        const int n = (e_.flags & kInPlace) ? 0 : e_.src.n;
        for (int k = 0; k < n; ++k) if (a.ss[k] < 1) return fail("a step below 1 was accepted");
        for (int k = 0; k < e_.dst.n; ++k) if (a.ds[k] < 1) return fail("a step below 1 was accepted");
    }
    if (!(e_.flags & kInPlace)) {
        for (size_t k = 0; k < src_.size(); ++k)
            if (std::memcmp(src_[k].alloc, src_[k].before.data(), src_[k].size) != 0)
                return fail("source plane " + std::to_string(k) + " was written");
    }
    // Errors and the tone-mapping warning leave the destination as it was;
    // the reduction family documents a partly written destination when its
    // scratch memory runs out.
    const bool untouched = (s < 0 && !(s == nmqStsNoMemory && family_is(e_, "reduce"))) ||
                           (s == nmqStsNegativeLevel && family_is(e_, "tonemap"));
    for (size_t k = 0; k < dst_.size(); ++k) {
        const Buf& b = dst_[k];
        for (size_t i = 0; i < b.size; ++i) {
            const uint8_t changed = uint8_t(b.alloc[i] ^ b.before[i]);
            if (!changed) continue;
            const ptrdiff_t off = (b.alloc + i) - b.origin;
            if (untouched)
                return fail("destination plane " + std::to_string(k) + " written at offset " + std::to_string(off));
            if (changed & ~b.mask[i])
                return fail("destination plane " + std::to_string(k) + " written outside the ROI at offset " +
                            std::to_string(off));
        }
    }
    return "";
}

void Case::paint(uint32_t seed) {
    for (int side = 0; side < 2; ++side) {
        std::vector<Buf>& v = side ? dst_ : src_;
        const bool fl = float_elems(e_, side == 1);
        for (size_t k = 0; k < v.size(); ++k) {
            Buf& b = v[k];
            for (int r = 0; r < b.rows; ++r) {
                uint8_t* row = b.origin + ptrdiff_t(r) * b.eff_step;
                for (int i = 0; i < b.row_bytes; i += fl ? b.esz : 1) {
                    const uint32_t x = mix(seed ^ mix(uint32_t(side * 8 + k) * 0x10001u + uint32_t(r) * 7919u + uint32_t(i)));
                    if (!fl) { row[i] = uint8_t(x); continue; }
                    const double u = (x & 0xFFFFFF) / double(0xFFFFFF);
                    if (b.esz == 4) { float f = float(u); std::memcpy(row + i, &f, 4); }
                    else std::memcpy(row + i, &u, 8);
                }
            }
        }
    }
    finite = true;
}

std::vector<uint8_t> Case::dst_image() const {
    std::vector<uint8_t> v;
    for (const Buf& b : dst_)
        for (int r = 0; r < b.rows; ++r) {
            const uint8_t* row = b.origin + ptrdiff_t(r) * b.eff_step;
            v.insert(v.end(), row, row + b.row_bytes);
        }
    return v;
}

std::string Case::describe() const {
    char buf[512];
    std::snprintf(buf, sizeof buf, "%s roi %dx%d", e_.name, a_.roi.width, a_.roi.height);
    std::string d = buf;
    auto planes = [&](const char* tag, const std::vector<Buf>& v) {
        for (size_t k = 0; k < v.size(); ++k) {
            std::snprintf(buf, sizeof buf, " %s%zu[step %d rows %d bytes %d]", tag, k, v[k].step, v[k].rows,
                          v[k].row_bytes);
            d += buf;
        }
    };
    planes("src", src_);
    planes("dst", dst_);
    if (e_.params & kRect) {
        std::snprintf(buf, sizeof buf, " rect %d,%d %dx%d in %dx%d grid %d", a_.rect.x, a_.rect.y, a_.rect.width,
                      a_.rect.height, a_.full.width, a_.full.height, a_.grid);
        d += buf;
    }
    if (e_.params & (kNoise | kNoiseU)) {
        std::snprintf(buf, sizeof buf, " noise %d dtype %d levels %d bitoff %d threshold %d", a_.noise, a_.dtype,
                      a_.levels, a_.bitoff, a_.threshold);
        d += buf;
    }
    if (e_.params & kVRange) {
        std::snprintf(buf, sizeof buf, " range %g..%g", double(a_.vmin), double(a_.vmax));
        d += buf;
    }
    if (a_.src_null_array || a_.dst_null_array || a_.null_matrix) d += " (null array/matrix)";
    return d;
}

// ---------------------------------------------------------------------------
// Fuzz input decoding

namespace {

class Reader {
public:
    Reader(const uint8_t* p, size_t n) : p_(p), n_(n) {}
    uint8_t u8() { return i_ < n_ ? p_[i_++] : 0; }
    uint16_t u16() { return uint16_t(u8() | (u8() << 8)); }
    uint32_t u32() { return uint32_t(u16()) | (uint32_t(u16()) << 16); }
    const uint8_t* rest() const { return p_ + std::min(i_, n_); }
    size_t rest_len() const { return n_ > i_ ? n_ - i_ : 0; }

private:
    const uint8_t* p_;
    size_t n_, i_ = 0;
};

// Sizes: mostly small images (below and around one vector), sometimes large
// widths, rarely zero or negative.
int decode_extent(Reader& r, int small_max, int large_max) {
    const uint8_t k = r.u8();
    if (k < 8) return int(k) - 4;                                   // -4..3
    if (k < 200) return 1 + (k - 8) % small_max;
    return 1 + int(r.u16() % unsigned(large_max));
}

float decode_float(Reader& r) {
    static const float special[] = {0.f, 1.f, -1.f, 0.5f, 255.f, 65535.f, 1e-40f, -0.f, 1e30f, -1e30f,
                                    std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                                    -std::numeric_limits<float>::infinity(), 2.f, 0.299f, 1.5e-45f};
    const uint8_t k = r.u8();
    if (k < 64) return special[k % 16];
    if (k < 128) { uint32_t bits = r.u32(); float f; std::memcpy(&f, &bits, 4); return f; }
    return (int(r.u16()) - 32768) / 8192.f;   // ordinary values in -4..4
}

int decode_int(Reader& r, const int* table, int n) {
    const uint8_t k = r.u8();
    if (k < 224) return table[k % n];
    return int(r.u32());
}

}  // namespace

Tally& tally() {
    static Tally t;
    return t;
}

std::string run_input(const uint8_t* data, size_t size, bool differential) {
    const auto& all = exports();
    if (all.empty()) return "";
    const Export* e = nullptr;
    size_t skip = 0;
    const void* z = std::memchr(data, 0, std::min<size_t>(size, 96));
    if (size > 4 && std::memcmp(data, "nmqi", 4) == 0 && z) {
        e = find_export(std::string(reinterpret_cast<const char*>(data), static_cast<const uint8_t*>(z) - data));
        skip = size_t(static_cast<const uint8_t*>(z) - data) + 1;
        if (!e) return "";
    }
    Reader r(data + skip, size - skip);
    if (!e) e = all[r.u16() % all.size()];

    Args a;
    a.roi.width = decode_extent(r, 70, 1100);
    a.roi.height = decode_extent(r, 12, 70);
    if (e->params & kRect) {
        a.full.width = decode_extent(r, 40, 300);
        a.full.height = decode_extent(r, 14, 60);
        a.rect.x = int(r.u8() % 48) - 2;
        a.rect.y = int(r.u8() % 16) - 1;
        a.rect.width = decode_extent(r, 44, 300);
        a.rect.height = decode_extent(r, 16, 60);
    }
    static const int noises[] = {0, 0, 1, 50, 100, 101, -1, 37};
    static const int dtypes[] = {0, 1, 2, 3, 4, 5, -1, 3};
    static const int levels[] = {2, 3, 16, 256, 257, 65536, 65537, 1, 0, -1, 7, 255};
    static const int bitoffs[] = {0, 1, 3, 7, 8, 11, -1, 5};
    static const int grids[] = {0, 1, 2, 3, 4, -1};
    a.noise = decode_int(r, noises, 8);
    a.dtype = decode_int(r, dtypes, 8);
    a.levels = decode_int(r, levels, 12);
    a.bitoff = decode_int(r, bitoffs, 8);
    a.grid = decode_int(r, grids, 6);
    a.noise_u = r.u32();
    a.seed = r.u32();
    a.threshold = r.u8();
    a.vmin = decode_float(r);
    a.vmax = decode_float(r);
    for (auto& row : a.tw) for (float& v : row) v = decode_float(r);
    for (float& v : a.co) v = decode_float(r);
    for (double& v : a.co64) v = double(decode_float(r));
    a.aval = double(r.u16());
    const bool null_coeffs = (e->params & kCoeffs) && (r.u8() & 7) == 0;

    StepChoice sc[2][4];
    const bool steps_checked = checks_steps(*e);
    for (auto& side : sc)
        for (StepChoice& c : side) {
            const uint8_t m = r.u8();
            // Families that reject steps below 1 mostly get usable steps.
            const int modes = int(StepMode::Count);
            c.mode = StepMode(steps_checked && m >= 48 ? m % 2 : m % modes);
            c.extra = r.u8();
        }
    Fill fill;
    fill.float_mode = r.u8() % 3;
    fill.seed = r.u32();
    const int misalign = r.u8();
    const uint8_t null_pick = r.u8();
    fill.data = r.rest();
    fill.len = r.rest_len();

    Case c(*e, a, sc[0], sc[1], fill, misalign);
    if (null_coeffs) c.args().null_matrix = true;   // the fixed weights, not an error
    if (null_pick < 24) c.set_null(null_pick % 11);
    // Overlapping destination rows make the result depend on the order of the
    // stores, which differs between levels by design: compare only disjoint rows.
    bool disjoint = true;
    for (const Buf& b : c.dst())
        if (b.rows > 1 && std::abs(b.eff_step) < b.row_bytes) disjoint = false;
    const std::string err = (differential && c.finite && disjoint) ? c.run_scalar_vs_simd() : c.run();
    Tally& t = tally();
    (c.status() < 0 ? t.errors : c.status() > 0 ? t.warnings : t.ok)++;
    return err.empty() ? "" : c.describe() + ": " + err;
}

}  // namespace nmqf
