// SSE2 forms of the reduction row routines: four elements per step, each lane
// doing exactly what the scalar form does to one element (the truncating
// conversion gives INT32_MIN out of range, as trunc_i32 does), and the scalar
// form for what is left of a row.
#include <emmintrin.h>

#include <cstring>

#include "reduce/reduce_kernels.h"

namespace nmq::reduce {
namespace {

// Four source elements as floats in the working domain (16s moved up by 32768).
inline __m128 load4(const uint8_t* s) {
    int32_t w;
    std::memcpy(&w, s, 4);
    const __m128i z = _mm_setzero_si128();
    const __m128i v = _mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(w), z), z);
    return _mm_cvtepi32_ps(v);
}
inline __m128 load4(const uint16_t* s) {
    const __m128i v = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(s));
    return _mm_cvtepi32_ps(_mm_unpacklo_epi16(v, _mm_setzero_si128()));
}
inline __m128 load4(const int16_t* s) {
    const __m128i v = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(s));
    const __m128i w = _mm_srai_epi32(_mm_unpacklo_epi16(v, v), 16);
    return _mm_cvtepi32_ps(_mm_add_epi32(w, _mm_set1_epi32(32768)));
}
inline __m128 load4(const float* s) { return _mm_loadu_ps(s); }

// Normalised to 0..1 as Dom::norm does.
template <class D>
inline __m128 norm4(const typename D::Src* s) {
    if constexpr (D::kSrcFloat) return load4(s);
    else if constexpr (D::kSrc8u) return _mm_mul_ps(load4(s), _mm_set1_ps(0.003921569f));
    else return _mm_mul_ps(load4(s), _mm_set1_ps(1.5259022e-5f));
}

// Results clamped to 0..kTop, the bias taken off, as 8- or 16-bit lanes in
// the low part of the register.
template <class D>
inline __m128i narrow4(__m128i i) {
    if constexpr (D::kDst8u) {
        // Signed then unsigned saturation clamps any int32 to 0..255.
        const __m128i w = _mm_packs_epi32(i, i);
        return _mm_packus_epi16(w, w);
    } else {
        // max(i, 0), then 0..65535 through signed saturation of i - 32768.
        const __m128i pos = _mm_andnot_si128(_mm_srai_epi32(i, 31), i);
        __m128i w = _mm_packs_epi32(_mm_sub_epi32(pos, _mm_set1_epi32(32768)), _mm_setzero_si128());
        if constexpr (D::kBias == 0) w = _mm_xor_si128(w, _mm_set1_epi16(int16_t(0x8000)));
        return w;
    }
}

template <class T>
inline void store4(T* d, __m128i w) {
    if constexpr (sizeof(T) == 1) {
        const int32_t v = _mm_cvtsi128_si32(w);
        std::memcpy(d, &v, 4);
    } else {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(d), w);
    }
}

// Stores lanes 0..2 only (AC4: the alpha element is never written).
template <class T>
inline void store3(T* d, __m128i w) {
    if constexpr (sizeof(T) == 1) {
        const uint32_t v = uint32_t(_mm_cvtsi128_si32(w));
        d[0] = uint8_t(v);
        d[1] = uint8_t(v >> 8);
        d[2] = uint8_t(v >> 16);
    } else {
        const uint32_t lo = uint32_t(_mm_cvtsi128_si32(w));
        const uint32_t hi = uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(w, 4)));
        d[0] = T(lo);
        d[1] = T(lo >> 16);
        d[2] = T(hi);
    }
}

template <class D>
inline void put4(typename D::Dst* d, __m128i i32, bool ac4) {
    const __m128i w = narrow4<D>(i32);
    if (ac4) store3(d, w);
    else store4(d, w);
}

}  // namespace

template <class D>
void ownNo_row_sse2(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const NoParams& p) {
    const __m128 L = _mm_set1_ps(p.L), inv = _mm_set1_ps(p.inv), half = _mm_set1_ps(p.half);
    const __m128 top = _mm_set1_ps(float(D::kTop));
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        const __m128 x = norm4<D>(s + i);
        __m128 y = _mm_mul_ps(_mm_cvtepi32_ps(_mm_cvttps_epi32(_mm_mul_ps(L, x))), inv);
        const __m128 up = _mm_cmpgt_ps(_mm_sub_ps(x, y), half);
        y = _mm_add_ps(y, _mm_and_ps(up, inv));  // y + 0 leaves y as it is
        put4<D>(d + i, _mm_cvttps_epi32(_mm_mul_ps(y, top)), ac4);
    }
    ownNo_row_scalar<D>(s + i, d + i, n - i, ac4, p);
}

template <class D>
void bayer_row_sse2(const typename D::Src* s, typename D::Dst* d, int n, bool ac4, const float* thr,
                    const QuantParams& p) {
    const __m128 st = _mm_set1_ps(p.s), inv = _mm_set1_ps(p.inv);
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        const __m128 v = load4(s + i);
        const __m128 q = _mm_mul_ps(_mm_cvtepi32_ps(_mm_cvttps_epi32(_mm_mul_ps(v, inv))), st);
        const __m128 up = _mm_cmplt_ps(_mm_loadu_ps(thr + i), _mm_sub_ps(v, q));
        const __m128 r = _mm_or_ps(_mm_and_ps(up, _mm_add_ps(q, st)), _mm_andnot_ps(up, q));
        __m128i o;
        if constexpr (D::kSrcFloat) {
            o = _mm_cvttps_epi32(_mm_mul_ps(r, _mm_set1_ps(float(D::kTop))));
        } else {
            o = _mm_srai_epi32(_mm_cvttps_epi32(r), D::kShift);
        }
        put4<D>(d + i, o, ac4);
    }
    bayer_row_scalar<D>(s + i, d + i, n - i, ac4, thr + i, p);
}

void fs_terms_a_sse2(const float* e1, float* e0, int w) {
    const __m128 k3 = _mm_set1_ps(3.0f), k5 = _mm_set1_ps(5.0f);
    int x = 0;
    for (; x + 4 <= w; x += 4) {
        const __m128 l = _mm_loadu_ps(e1 + x - 1), c = _mm_loadu_ps(e1 + x), r = _mm_loadu_ps(e1 + x + 1);
        _mm_storeu_ps(e0 + x, _mm_add_ps(_mm_add_ps(_mm_mul_ps(k3, r), l), _mm_mul_ps(k5, c)));
    }
    for (; x < w; ++x) e0[x] = fs_terms_a(e1, x);
}

void fs_terms_b_sse2(const float* e1, float* e0, int w) {
    const __m128 k3 = _mm_set1_ps(3.0f), k5 = _mm_set1_ps(5.0f);
    int x = 0;
    for (; x + 4 <= w; x += 4) {
        const __m128 l = _mm_loadu_ps(e1 + x - 1), c = _mm_loadu_ps(e1 + x), r = _mm_loadu_ps(e1 + x + 1);
        _mm_storeu_ps(e0 + x, _mm_add_ps(_mm_add_ps(_mm_mul_ps(k3, r), _mm_mul_ps(k5, c)), l));
    }
    for (; x < w; ++x) e0[x] = fs_terms_b(e1, x);
}

template <int Kind>
void jj_terms_sse2(const float* e2, const float* e1, float* e0, int w) {
    const JjWeights& k = Kind == 3 ? kStucki : kJarvis;
    const __m128 a2 = _mm_set1_ps(k.a2), b2 = _mm_set1_ps(k.b2), c2 = _mm_set1_ps(k.c2);
    const __m128 a1 = _mm_set1_ps(k.a1), b1 = _mm_set1_ps(k.b1), c1 = _mm_set1_ps(k.c1);
    auto row = [](const float* e, int x, __m128 a, __m128 b, __m128 c) {
        const __m128 outer = _mm_add_ps(_mm_loadu_ps(e + x - 2), _mm_loadu_ps(e + x + 2));
        const __m128 inner = _mm_add_ps(_mm_loadu_ps(e + x - 1), _mm_loadu_ps(e + x + 1));
        return _mm_add_ps(_mm_add_ps(_mm_mul_ps(outer, a), _mm_mul_ps(inner, b)), _mm_mul_ps(_mm_loadu_ps(e + x), c));
    };
    int x = 0;
    for (; x + 4 <= w; x += 4) _mm_storeu_ps(e0 + x, _mm_add_ps(row(e2, x, a2, b2, c2), row(e1, x, a1, b1, c1)));
    for (; x < w; ++x) e0[x] = jj_terms(e2, e1, x, k);
}

void st1u_terms_sse2(const int32_t* e2, const int32_t* e1, int32_t* e0, int w) {
    auto ld = [](const int32_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); };
    int x = 0;
    for (; x + 4 <= w; x += 4) {
        const __m128i ones = _mm_add_epi32(ld(e2 + x - 2), ld(e2 + x + 2));
        const __m128i twos = _mm_add_epi32(_mm_add_epi32(ld(e2 + x - 1), ld(e2 + x + 1)),
                                           _mm_add_epi32(ld(e1 + x - 2), ld(e1 + x + 2)));
        const __m128i fours = _mm_add_epi32(ld(e2 + x), _mm_add_epi32(ld(e1 + x - 1), ld(e1 + x + 1)));
        const __m128i eights = ld(e1 + x);
        const __m128i sum = _mm_add_epi32(_mm_add_epi32(ones, _mm_slli_epi32(twos, 1)),
                                          _mm_add_epi32(_mm_slli_epi32(fours, 2), _mm_slli_epi32(eights, 3)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(e0 + x), sum);
    }
    for (; x < w; ++x) e0[x] = st1u_terms(e2, e1, x);
}

namespace {
// Bit order of a byte reversed: a comparison mask has pixel 0 in bit 0, the
// packed row wants it in bit 7.
constexpr uint8_t rev8(unsigned b) {
    return uint8_t(((b & 1) << 7) | ((b & 2) << 5) | ((b & 4) << 3) | ((b & 8) << 1) | ((b & 16) >> 1) |
                   ((b & 32) >> 3) | ((b & 64) >> 5) | ((b & 128) >> 7));
}
struct Rev8 {
    uint8_t t[256];
    constexpr Rev8() : t() {
        for (unsigned i = 0; i < 256; ++i) t[i] = rev8(i);
    }
};
constexpr Rev8 kRev8{};
}  // namespace

void thresh_bytes_sse2(const uint8_t* s, uint8_t* out, int n, uint8_t threshold) {
    // Unsigned comparison through the signed one with the top bits flipped.
    const __m128i flip = _mm_set1_epi8(char(0x80));
    const __m128i t = _mm_xor_si128(_mm_set1_epi8(char(threshold)), flip);
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i v = _mm_xor_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i)), flip);
        const unsigned m = unsigned(_mm_movemask_epi8(_mm_cmpgt_epi8(v, t)));
        out[i >> 3] = kRev8.t[m & 0xff];
        out[(i >> 3) + 1] = kRev8.t[m >> 8];
    }
    thresh_bytes_scalar(s + i, out + (i >> 3), n - i, threshold);
}

#define NMQ_REDUCE_INSTANTIATE(D)                                                                               \
    template void ownNo_row_sse2<D>(const D::Src*, D::Dst*, int, bool, const NoParams&);                       \
    template void bayer_row_sse2<D>(const D::Src*, D::Dst*, int, bool, const float*, const QuantParams&);
NMQ_REDUCE_INSTANTIATE(D8u)
NMQ_REDUCE_INSTANTIATE(D16u)
NMQ_REDUCE_INSTANTIATE(D16s)
NMQ_REDUCE_INSTANTIATE(D16u8u)
NMQ_REDUCE_INSTANTIATE(D16s8u)
NMQ_REDUCE_INSTANTIATE(D32f8u)
NMQ_REDUCE_INSTANTIATE(D32f16u)
NMQ_REDUCE_INSTANTIATE(D32f16s)
template void jj_terms_sse2<2>(const float*, const float*, float*, int);
template void jj_terms_sse2<3>(const float*, const float*, float*, int);

}  // namespace nmq::reduce
