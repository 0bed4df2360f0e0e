// Same bytes on every build: each export converts a fixed pseudo-random row
// (with its scalar tail) and the digest of the result must equal the one
// recorded on the x86-64 build; the i686 and sanitizer builds compare against
// the same numbers, at every SIMD level.
#include <cmath>
#include <map>
#include <string>

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

const std::map<std::string, uint64_t>& recorded() {
    static const std::map<std::string, uint64_t> m = {
        {"nmqiBGRToLab_16u_C3R", 0xd30d65f7b05379efull},
        {"nmqiBGRToLab_32f_C3R", 0x4ae56130812c8d6ull},
        {"nmqiBGRToLab_8u_C3R", 0x8c6c91363aed7680ull},
        {"nmqiLUVToRGB_16s_AC4R", 0x8e6838642bc56c5full},
        {"nmqiLUVToRGB_16s_C3R", 0x7ce19dfaa402b9d2ull},
        {"nmqiLUVToRGB_16u_AC4R", 0x168ade0799bcb1dfull},
        {"nmqiLUVToRGB_16u_C3R", 0x9a1eb66e13f4552ull},
        {"nmqiLUVToRGB_32f_AC4R", 0xb31b027a3c6bce76ull},
        {"nmqiLUVToRGB_32f_C3R", 0xd283b91f6e6a7ddfull},
        {"nmqiLUVToRGB_8u_AC4R", 0x614d3ef6b363cb78ull},
        {"nmqiLUVToRGB_8u_C3R", 0xc9cf41f286ce261eull},
        {"nmqiLabToBGR_16u_C3R", 0xd4f6deed2ad09067ull},
        {"nmqiLabToBGR_32f_C3R", 0x6bddd429dd484bb3ull},
        {"nmqiLabToBGR_8u_C3R", 0xb3e84f611bfec1bfull},
        {"nmqiLabToRGB_16s_C3R", 0x39617511ff1ab903ull},
        {"nmqiLabToRGB_16u_C3R", 0xe8a588204d620f83ull},
        {"nmqiLabToRGB_32f_C3R", 0x282b3756d30d821full},
        {"nmqiLabToRGB_8u_C3R", 0x4dc439ed46e77933ull},
        {"nmqiRGBToLUV_16s_AC4R", 0x4ba22dc466fa8ac9ull},
        {"nmqiRGBToLUV_16s_C3R", 0xa991f232e2f9f9a7ull},
        {"nmqiRGBToLUV_16u_AC4R", 0xd1893ba4a23e4249ull},
        {"nmqiRGBToLUV_16u_C3R", 0x61e034115c52f027ull},
        {"nmqiRGBToLUV_32f_AC4R", 0x31aff2d226f36d86ull},
        {"nmqiRGBToLUV_32f_C3R", 0x8e2406b1d4853f15ull},
        {"nmqiRGBToLUV_8u_AC4R", 0x2173d3a3c3f2d356ull},
        {"nmqiRGBToLUV_8u_C3R", 0xf06143e8980d4655ull},
        {"nmqiRGBToLab_16s_C3R", 0xe74ce6be19b0c62bull},
        {"nmqiRGBToLab_16u_C3R", 0xbcdb01a6b33426abull},
        {"nmqiRGBToLab_32f_C3R", 0xf3804c1cefe581e4ull},
        {"nmqiRGBToLab_8u_C3R", 0xf89f426bb3b53decull},
        {"nmqiRGBToYCC_16s_AC4R", 0xe3b1f003008c0ccaull},
        {"nmqiRGBToYCC_16s_C3R", 0xe9ac4b2106cb61c9ull},
        {"nmqiRGBToYCC_16u_AC4R", 0x97df6360ced55f4aull},
        {"nmqiRGBToYCC_16u_C3R", 0x7efeddb2967c3b49ull},
        {"nmqiRGBToYCC_32f_AC4R", 0xd443ca33d337acceull},
        {"nmqiRGBToYCC_32f_C3R", 0xa9a825d9758c1927ull},
        {"nmqiRGBToYCC_8u_AC4R", 0xfa6c5346d0d4730full},
        {"nmqiRGBToYCC_8u_C3R", 0x41be4d81299ccb92ull},
        {"nmqiYCCToRGB_16s_AC4R", 0xdbc750bf7b652233ull},
        {"nmqiYCCToRGB_16s_C3R", 0x472fa681bbe77334ull},
        {"nmqiYCCToRGB_16u_AC4R", 0x7c9ccfaf73eed5b3ull},
        {"nmqiYCCToRGB_16u_C3R", 0xd56fab9c95330db4ull},
        {"nmqiYCCToRGB_32f_AC4R", 0x8af4c4138373a3f7ull},
        {"nmqiYCCToRGB_32f_C3R", 0x9108103453d3d636ull},
        {"nmqiYCCToRGB_8u_AC4R", 0x66e32296401007faull},
        {"nmqiYCCToRGB_8u_C3R", 0x73718173b3d84697ull},
    };
    return m;
}

}  // namespace

TEST(LuvLabDigest, SameBytesOnEveryBuild) {
    const int w = 1027;
    for (const Export& e : exports()) {
        const std::vector<uint8_t> src = fixed_row(e, w);
        for (nmq::Isa lv : nmqt::isa_levels()) {
            nmq::IsaCap cap(lv);
            std::vector<uint8_t> dst(src.size(), 0);
            ASSERT_EQ(e.fn(src.data(), 0, dst.data(), 0, {w, 1}), nmqStsOk);
            const uint64_t h = fnv1a(dst);
            const auto it = recorded().find(e.name);
            if (it == recorded().end() || it->second != h)
                ADD_FAILURE() << "{\"" << e.name << "\", 0x" << std::hex << h << "ull}," << " " << nmqt::isa_name(lv);
        }
    }
}
