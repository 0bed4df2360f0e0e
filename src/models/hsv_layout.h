// Pixel access for the 8u HSV and HLS row kernels: one type per arrangement of
// a side (pixel order with 3 or 4 samples, three or four planes). A side
// hands the kernels three model samples numbered in the order of the model's
// name (R, G, B or H, S, V or H, L, S) plus alpha, whatever their place in
// memory, so that one kernel serves RGB and BGR, pixel order and planes.
//
// Every access touches exactly the bytes of the pixels it names: the vector
// forms read and write four whole pixels and nothing beyond them.
#pragma once

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

namespace nmq::hsv {

// Row pointers of one side: pixel-order images use p[0] only, planar images
// one pointer per plane (alpha last).
struct SrcRow {
    const uint8_t* p[4];
};
struct DstRow {
    uint8_t* p[4];
};

// Four model samples of one pixel (c[3] is alpha, 0 where the side has none).
struct Px {
    int c[4];
};

// Four pixels, one sample per 32-bit lane, each in 0..255.
struct Px4 {
    __m128i c[4];
};

inline uint32_t load_u32(const uint8_t* p) {
    uint32_t v;
    std::memcpy(&v, p, 4);
    return v;
}
inline void store_u32(uint8_t* p, uint32_t v) { std::memcpy(p, &v, 4); }

// Four bytes spread over the four 32-bit lanes.
inline __m128i widen4(uint32_t v) {
    const __m128i z = _mm_setzero_si128();
    return _mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(int(v)), z), z);
}

// Four lanes of four samples, each lane 0..255 or wider, to bytes: the
// result holds sample k of pixels 0..3 in bytes 4k..4k+3. The signed 16-bit
// pack followed by the unsigned 8-bit pack saturates to 0..255.
inline __m128i pack_samples(__m128i s0, __m128i s1, __m128i s2, __m128i s3) {
    return _mm_packus_epi16(_mm_packs_epi32(s0, s1), _mm_packs_epi32(s2, s3));
}

// Bytes grouped by sample (as pack_samples gives them) to pixel order.
inline __m128i samples_to_pixels(__m128i v) {
    const __m128i u = _mm_unpacklo_epi8(v, _mm_srli_si128(v, 8));
    return _mm_unpacklo_epi8(u, _mm_srli_si128(u, 8));
}

// Pixel order, Stride bytes per pixel; O0..O2 are the byte offsets of model
// samples 0..2 inside a pixel. Stride 4 carries alpha at offset 3, which a
// destination writes only when WriteAlpha is set (otherwise it keeps it).
template <int Stride, int O0, int O1, int O2, bool WriteAlpha = false>
struct Packed {
    static_assert(Stride == 3 || Stride == 4, "3 or 4 samples per pixel");

    static Px load(const SrcRow& r, int x) {
        const uint8_t* p = r.p[0] + ptrdiff_t(x) * Stride;
        return {{p[O0], p[O1], p[O2], Stride == 4 ? p[3] : 0}};
    }
    static void store(const DstRow& r, int x, const Px& v) {
        uint8_t* p = r.p[0] + ptrdiff_t(x) * Stride;
        p[O0] = uint8_t(v.c[0]);
        p[O1] = uint8_t(v.c[1]);
        p[O2] = uint8_t(v.c[2]);
        if (WriteAlpha) p[3] = uint8_t(v.c[3]);
    }

    static Px4 load4(const SrcRow& r, int x) {
        const uint8_t* p = r.p[0] + ptrdiff_t(x) * Stride;
        __m128i d;  // one pixel per 32-bit lane, samples in bytes 0..Stride-1
        if (Stride == 4) {
            d = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        } else {
            // Exactly 12 bytes: 8 + 4, then pixel 1 and pixel 3 move up one byte.
            const __m128i a = _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)),
                                                 _mm_cvtsi32_si128(int(load_u32(p + 8))));
            const __m128i y = _mm_unpacklo_epi64(a, _mm_srli_si128(a, 6));
            d = _mm_or_si128(_mm_and_si128(y, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF)),
                             _mm_and_si128(_mm_slli_epi64(y, 8), _mm_set_epi32(0xFFFFFF, 0, 0xFFFFFF, 0)));
        }
        const __m128i m = _mm_set1_epi32(0xFF);
        Px4 v;
        v.c[0] = _mm_and_si128(_mm_srli_epi32(d, 8 * O0), m);
        v.c[1] = _mm_and_si128(_mm_srli_epi32(d, 8 * O1), m);
        v.c[2] = _mm_and_si128(_mm_srli_epi32(d, 8 * O2), m);
        v.c[3] = Stride == 4 ? _mm_srli_epi32(d, 24) : _mm_setzero_si128();
        return v;
    }

    static void store4(const DstRow& r, int x, const Px4& v) {
        uint8_t* p = r.p[0] + ptrdiff_t(x) * Stride;
        __m128i mem[4];  // samples in memory order
        mem[O0] = v.c[0];
        mem[O1] = v.c[1];
        mem[O2] = v.c[2];
        mem[3] = Stride == 4 ? v.c[3] : _mm_setzero_si128();
        const __m128i px = samples_to_pixels(pack_samples(mem[0], mem[1], mem[2], mem[3]));
        if (Stride == 4 && WriteAlpha) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(p), px);
        } else if (Stride == 4) {
            // Alpha is kept: three bytes per pixel, the fourth is never written.
            alignas(16) uint8_t b[16];
            _mm_store_si128(reinterpret_cast<__m128i*>(b), px);
            for (int i = 0; i < 4; ++i) std::memcpy(p + 4 * i, b + 4 * i, 3);
        } else {
            // Pixel i sits in bytes 4i..4i+2: close the gaps to 12 contiguous
            // bytes, first inside each half, then between the halves.
            const __m128i t = _mm_or_si128(
                _mm_and_si128(px, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF)),
                _mm_and_si128(_mm_srli_epi64(px, 8),
                              _mm_set_epi32(0xFFFF, int(0xFF000000), 0xFFFF, int(0xFF000000))));
            const __m128i lo6 = _mm_and_si128(t, _mm_set_epi32(0, 0, 0xFFFF, -1));
            const __m128i hi6 = _mm_and_si128(_mm_srli_si128(t, 2), _mm_set_epi32(0, -1, int(0xFFFF0000), 0));
            const __m128i c = _mm_or_si128(lo6, hi6);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(p), c);
            store_u32(p + 8, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(c, 8))));
        }
    }
};

// Planes: N = 3, or 4 with alpha in plane 3; I0..I2 are the planes of model
// samples 0..2. A four-plane destination always receives alpha.
template <int N, int I0, int I1, int I2>
struct Planar {
    static_assert(N == 3 || N == 4, "3 or 4 planes");

    static Px load(const SrcRow& r, int x) {
        return {{r.p[I0][x], r.p[I1][x], r.p[I2][x], N == 4 ? r.p[3][x] : 0}};
    }
    static void store(const DstRow& r, int x, const Px& v) {
        r.p[I0][x] = uint8_t(v.c[0]);
        r.p[I1][x] = uint8_t(v.c[1]);
        r.p[I2][x] = uint8_t(v.c[2]);
        if (N == 4) r.p[3][x] = uint8_t(v.c[3]);
    }

    static Px4 load4(const SrcRow& r, int x) {
        Px4 v;
        v.c[0] = widen4(load_u32(r.p[I0] + x));
        v.c[1] = widen4(load_u32(r.p[I1] + x));
        v.c[2] = widen4(load_u32(r.p[I2] + x));
        v.c[3] = N == 4 ? widen4(load_u32(r.p[3] + x)) : _mm_setzero_si128();
        return v;
    }
    static void store4(const DstRow& r, int x, const Px4& v) {
        alignas(16) uint8_t b[16];  // sample k of pixels 0..3 in bytes 4k..4k+3
        _mm_store_si128(reinterpret_cast<__m128i*>(b), pack_samples(v.c[0], v.c[1], v.c[2], v.c[3]));
        std::memcpy(r.p[I0] + x, b, 4);
        std::memcpy(r.p[I1] + x, b + 4, 4);
        std::memcpy(r.p[I2] + x, b + 8, 4);
        if (N == 4) std::memcpy(r.p[3] + x, b + 12, 4);
    }
};

// The arrangements of the library's exports.
using Rgb3 = Packed<3, 0, 1, 2>;            // RGB, or H S V / H L S, pixel order
using Rgba4Keep = Packed<4, 0, 1, 2>;       // same with alpha kept in the destination
using Bgr3 = Packed<3, 2, 1, 0>;            // B G R in memory, model samples R G B
using Bgra4Keep = Packed<4, 2, 1, 0>;
using Bgra4 = Packed<4, 2, 1, 0, true>;     // destination alpha written from the source
using Hls4 = Packed<4, 0, 1, 2, true>;
using BgrPlanes = Planar<3, 2, 1, 0>;       // planes B, G, R
using BgraPlanes = Planar<4, 2, 1, 0>;
using HlsPlanes = Planar<3, 0, 1, 2>;       // planes H, L, S
using HlsaPlanes = Planar<4, 0, 1, 2>;

}  // namespace nmq::hsv
