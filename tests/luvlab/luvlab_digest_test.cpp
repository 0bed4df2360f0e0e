// Same bytes on every build: every export converts a fixed pseudo-random row
// (vector part and scalar tail) and the digest of all the results must equal
// the one recorded on the x86-64 build; the i686 and sanitizer builds compare
// against the same number, at every SIMD level.
#include <cmath>

#include "luvlab/luvlab_common.h"
#include "support/harness.h"

using namespace lvt;

namespace {

uint64_t fnv1a(const std::vector<uint8_t>& b) {
    uint64_t h = 1469598103934665603ull;
    for (uint8_t c : b) h = (h ^ c) * 1099511628211ull;
    return h;
}

// The row: integer samples from a linear congruential sequence; 32f samples
// in the ranges of their side.
std::vector<uint8_t> fixed_row(const Export& e, int w) {
    std::vector<uint8_t> row(size_t(w * e.pixel_bytes()));
    uint32_t s = 2463534242u;
    for (int i = 0; i < w * e.stride; ++i) {
        s = s * 1664525u + 1013904223u;
        const double u = double(s >> 8) / double(1 << 24);
        const int c = i % e.stride;
        double v;
        if (e.ty == Ty::F32) {
            if (e.fwd || e.model == Model::Ycc) v = u * 1.1 - 0.02;
            else v = c == 0 ? u * 100 : u * 300 - 150;
        } else {
            v = e.ty == Ty::U8 ? std::floor(u * 256) : std::floor(u * 65536) - (e.ty == Ty::S16 ? 32768 : 0);
        }
        put(e.ty, &row[size_t(i * e.elem())], v);
    }
    return row;
}

}  // namespace

TEST(LuvLabDigest, SameBytesOnEveryBuild) {
    const int w = 1027;
    for (nmq::Isa lv : nmqt::isa_levels()) {
        nmq::IsaCap cap(lv);
        std::vector<uint8_t> all;
        for (const Export& e : exports()) {
            const std::vector<uint8_t> src = fixed_row(e, w);
            std::vector<uint8_t> dst(src.size(), 0);
            ASSERT_EQ(e.fn(src.data(), 0, dst.data(), 0, {w, 1}), nmqStsOk);
            all.insert(all.end(), dst.begin(), dst.end());
        }
        EXPECT_EQ(fnv1a(all), 0xc70482d099684ec2ull) << nmqt::isa_name(lv);
    }
}
