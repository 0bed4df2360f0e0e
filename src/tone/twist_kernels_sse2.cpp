// SSE2 colour-twist row kernels. Every lane computes what twist_channel()
// computes, in the same grouping, so the bytes equal the scalar kernels'.
// Pixel rows go four pixels at a time (one pixel per vector, the inputs
// broadcast); plane rows go four pixels per vector and channel. Loads and
// stores never reach past the row: C3 groups are read and written as 8 + 4
// bytes (8-bit) or 16 + 8 bytes (16-bit), and the remaining pixels go through
// the scalar per-pixel code.
#include <emmintrin.h>

#include <cstring>

#include "tone/twist_kernels.h"

namespace nmq::twist {
namespace {

struct Mat {
    __m128 c0, c1, c2, c3;
    explicit Mat(const Columns& m)
        : c0(_mm_load_ps(m.col[0])), c1(_mm_load_ps(m.col[1])), c2(_mm_load_ps(m.col[2])), c3(_mm_load_ps(m.col[3])) {}
};

template <int K>
inline __m128 bc(__m128 v) { return _mm_shuffle_ps(v, v, _MM_SHUFFLE(K, K, K, K)); }

inline __m128 pixel(const Mat& m, __m128 x0, __m128 x1, __m128 x2) {
    return _mm_add_ps(_mm_add_ps(m.c3, _mm_mul_ps(x0, m.c0)), _mm_add_ps(_mm_mul_ps(x1, m.c1), _mm_mul_ps(x2, m.c2)));
}

// One pixel of an [x0 x1 x2 any] vector.
inline __m128 pixel(const Mat& m, __m128 v) { return pixel(m, bc<0>(v), bc<1>(v), bc<2>(v)); }

template <class T>
inline __m128i to_int(__m128 v) {
    v = _mm_min_ps(v, _mm_set1_ps(Range<T>::hi));
    if constexpr (Range<T>::has_lo) v = _mm_max_ps(v, _mm_set1_ps(Range<T>::lo));
    return _mm_cvtps_epi32(v);
}

// ---- element loads: integer samples to 16-bit lanes, then to floats -------

// 8-bit samples of the low 8 bytes to 16-bit lanes (sign- or zero-extended).
template <class T>
inline __m128i widen_lo(__m128i v) {
    if constexpr (std::is_signed_v<T>) return _mm_srai_epi16(_mm_unpacklo_epi8(v, v), 8);
    else return _mm_unpacklo_epi8(v, _mm_setzero_si128());
}
template <class T>
inline __m128i widen_hi(__m128i v) {
    if constexpr (std::is_signed_v<T>) return _mm_srai_epi16(_mm_unpackhi_epi8(v, v), 8);
    else return _mm_unpackhi_epi8(v, _mm_setzero_si128());
}

// Four 16-bit lanes to floats: signed lanes for every type but 16u.
template <class T>
inline __m128 f_lo(__m128i w) {
    if constexpr (std::is_same_v<T, uint16_t>) return _mm_cvtepi32_ps(_mm_unpacklo_epi16(w, _mm_setzero_si128()));
    else return _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpacklo_epi16(w, w), 16));
}
template <class T>
inline __m128 f_hi(__m128i w) {
    if constexpr (std::is_same_v<T, uint16_t>) return _mm_cvtepi32_ps(_mm_unpackhi_epi16(w, _mm_setzero_si128()));
    else return _mm_cvtepi32_ps(_mm_srai_epi32(_mm_unpackhi_epi16(w, w), 16));
}

inline uint32_t ld32(const void* p) { uint32_t v; std::memcpy(&v, p, 4); return v; }
inline void st32(void* p, uint32_t v) { std::memcpy(p, &v, 4); }

// ---- packing: 32-bit results to the element type --------------------------

// Four vectors of four results to sixteen 8-bit elements.
template <class T>
inline __m128i pack8(__m128i a, __m128i b, __m128i c, __m128i d) {
    const __m128i lo = _mm_packs_epi32(a, b), hi = _mm_packs_epi32(c, d);
    if constexpr (std::is_signed_v<T>) return _mm_packs_epi16(lo, hi);
    else return _mm_packus_epi16(lo, hi);
}

// Two vectors of four results to eight 16-bit elements. 16u results are
// already inside 0..65535, so a biased signed pack stores them exactly.
template <class T>
inline __m128i pack16(__m128i a, __m128i b) {
    if constexpr (std::is_same_v<T, uint16_t>) {
        const __m128i bias = _mm_set1_epi32(32768);
        return _mm_xor_si128(_mm_packs_epi32(_mm_sub_epi32(a, bias), _mm_sub_epi32(b, bias)), _mm_set1_epi16(-32768));
    } else {
        return _mm_packs_epi32(a, b);
    }
}

// 12 bytes from a vector: 8 + 4.
inline void store12(void* p, __m128i v) {
    _mm_storel_epi64(static_cast<__m128i*>(p), v);
    st32(static_cast<uint8_t*>(p) + 8, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(v, 8))));
}

inline __m128i mask_bytes(int from, int count) {
    alignas(16) uint8_t m[16] = {};
    for (int i = from; i < from + count; ++i) m[i] = 0xff;
    return _mm_load_si128(reinterpret_cast<const __m128i*>(m));
}

}  // namespace

// ---- C3 -------------------------------------------------------------------

template <class T>
void owniTwist32f_C3_sse2(const T* s, T* d, ptrdiff_t width, const Columns& cm) {
    const Mat m(cm);
    ptrdiff_t x = 0;
    if constexpr (sizeof(T) == 1) {
        const __m128i k0 = mask_bytes(0, 3), k1 = mask_bytes(3, 3), k2 = mask_bytes(6, 3), k3 = mask_bytes(9, 3);
        for (; x + 4 <= width; x += 4) {
            const T* p = s + 3 * x;
            const __m128i v = _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)),
                                                 _mm_cvtsi32_si128(int(ld32(p + 8))));
            const __m128i w0 = widen_lo<T>(v), w1 = widen_hi<T>(v);
            const __m128 f0 = f_lo<T>(w0), f1 = f_hi<T>(w0), f2 = f_lo<T>(w1);  // r0g0b0r1 g1b1r2g2 b2r3g3b3
            const __m128i i0 = to_int<T>(pixel(m, bc<0>(f0), bc<1>(f0), bc<2>(f0)));
            const __m128i i1 = to_int<T>(pixel(m, bc<3>(f0), bc<0>(f1), bc<1>(f1)));
            const __m128i i2 = to_int<T>(pixel(m, bc<2>(f1), bc<3>(f1), bc<0>(f2)));
            const __m128i i3 = to_int<T>(pixel(m, bc<1>(f2), bc<2>(f2), bc<3>(f2)));
            const __m128i b = pack8<T>(i0, i1, i2, i3);  // r g b spare, four times
            const __m128i c = _mm_or_si128(
                _mm_or_si128(_mm_and_si128(b, k0), _mm_and_si128(_mm_srli_si128(b, 1), k1)),
                _mm_or_si128(_mm_and_si128(_mm_srli_si128(b, 2), k2), _mm_and_si128(_mm_srli_si128(b, 3), k3)));
            store12(d + 3 * x, c);
        }
    } else {
        const __m128i k0 = mask_bytes(0, 6), k1 = mask_bytes(6, 6);
        for (; x + 4 <= width; x += 4) {
            const T* p = s + 3 * x;
            const __m128i w0 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
            const __m128i w1 = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + 8));
            const __m128 f0 = f_lo<T>(w0), f1 = f_hi<T>(w0), f2 = f_lo<T>(w1);
            const __m128i i0 = to_int<T>(pixel(m, bc<0>(f0), bc<1>(f0), bc<2>(f0)));
            const __m128i i1 = to_int<T>(pixel(m, bc<3>(f0), bc<0>(f1), bc<1>(f1)));
            const __m128i i2 = to_int<T>(pixel(m, bc<2>(f1), bc<3>(f1), bc<0>(f2)));
            const __m128i i3 = to_int<T>(pixel(m, bc<1>(f2), bc<2>(f2), bc<3>(f2)));
            const __m128i a = pack16<T>(i0, i1), b = pack16<T>(i2, i3);  // r g b spare, twice each
            store12(d + 3 * x, _mm_or_si128(_mm_and_si128(a, k0), _mm_and_si128(_mm_srli_si128(a, 2), k1)));
            store12(d + 3 * x + 6, _mm_or_si128(_mm_and_si128(b, k0), _mm_and_si128(_mm_srli_si128(b, 2), k1)));
        }
    }
    for (; x < width; ++x) twist_pixel(cm, s + 3 * x, d + 3 * x);
}

// 32f C3: four pixels in three vectors, rearranged back into three vectors.
namespace {
template <bool Stream>
void twist_32f_c3(const float* s, float* d, ptrdiff_t width, const Columns& cm) {
    const Mat m(cm);
    ptrdiff_t x = 0;
    for (; x + 4 <= width; x += 4) {
        const float* p = s + 3 * x;
        const __m128 f0 = _mm_loadu_ps(p), f1 = _mm_loadu_ps(p + 4), f2 = _mm_loadu_ps(p + 8);
        const __m128 a = pixel(m, bc<0>(f0), bc<1>(f0), bc<2>(f0));
        const __m128 b = pixel(m, bc<3>(f0), bc<0>(f1), bc<1>(f1));
        const __m128 c = pixel(m, bc<2>(f1), bc<3>(f1), bc<0>(f2));
        const __m128 e = pixel(m, bc<1>(f2), bc<2>(f2), bc<3>(f2));
        const __m128 ab = _mm_shuffle_ps(a, b, _MM_SHUFFLE(0, 0, 2, 2));              // a2 a2 b0 b0
        const __m128 o0 = _mm_shuffle_ps(a, ab, _MM_SHUFFLE(2, 0, 1, 0));             // a0 a1 a2 b0
        const __m128 o1 = _mm_shuffle_ps(b, c, _MM_SHUFFLE(1, 0, 2, 1));              // b1 b2 c0 c1
        const __m128 ce = _mm_shuffle_ps(c, e, _MM_SHUFFLE(0, 0, 2, 2));              // c2 c2 e0 e0
        const __m128 o2 = _mm_shuffle_ps(ce, e, _MM_SHUFFLE(2, 1, 2, 0));             // c2 e0 e1 e2
        float* q = d + 3 * x;
        if constexpr (Stream) {
            _mm_stream_ps(q, o0);
            _mm_stream_ps(q + 4, o1);
            _mm_stream_ps(q + 8, o2);
        } else {
            _mm_storeu_ps(q, o0);
            _mm_storeu_ps(q + 4, o1);
            _mm_storeu_ps(q + 8, o2);
        }
    }
    for (; x < width; ++x) twist_pixel(cm, s + 3 * x, d + 3 * x);
}
}  // namespace

template <>
void owniTwist32f_C3_sse2<float>(const float* s, float* d, ptrdiff_t width, const Columns& m) {
    twist_32f_c3<false>(s, d, width, m);
}

void owniTwist_32f_C3_Nt(const float* s, float* d, ptrdiff_t width, const Columns& m) {
    twist_32f_c3<true>(s, d, width, m);
}

// ---- AC4: three samples written per pixel, alpha never -------------------

template <class T>
void owniTwist32f_AC4_sse2(const T* s, T* d, ptrdiff_t width, const Columns& cm) {
    const Mat m(cm);
    ptrdiff_t x = 0;
    if constexpr (std::is_same_v<T, float>) {
        for (; x < width; ++x) {
            const __m128 v = pixel(m, _mm_loadu_ps(s + 4 * x));
            _mm_storel_pi(reinterpret_cast<__m64*>(d + 4 * x), v);
            _mm_store_ss(d + 4 * x + 2, _mm_movehl_ps(v, v));
        }
    } else if constexpr (sizeof(T) == 1) {
        for (; x + 4 <= width; x += 4) {
            const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + 4 * x));
            const __m128i w0 = widen_lo<T>(v), w1 = widen_hi<T>(v);
            const __m128i b = pack8<T>(to_int<T>(pixel(m, f_lo<T>(w0))), to_int<T>(pixel(m, f_hi<T>(w0))),
                                       to_int<T>(pixel(m, f_lo<T>(w1))), to_int<T>(pixel(m, f_hi<T>(w1))));
            alignas(16) uint8_t out[16];
            _mm_store_si128(reinterpret_cast<__m128i*>(out), b);
            uint8_t* q = reinterpret_cast<uint8_t*>(d + 4 * x);
            for (int k = 0; k < 16; k += 4) {
                std::memcpy(q + k, out + k, 2);
                q[k + 2] = out[k + 2];
            }
        }
    } else {
        for (; x + 2 <= width; x += 2) {
            const __m128i w = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + 4 * x));
            const __m128i a = pack16<T>(to_int<T>(pixel(m, f_lo<T>(w))), to_int<T>(pixel(m, f_hi<T>(w))));
            T* q = d + 4 * x;
            st32(q, uint32_t(_mm_cvtsi128_si32(a)));
            q[2] = T(_mm_extract_epi16(a, 2));
            st32(q + 4, uint32_t(_mm_cvtsi128_si32(_mm_srli_si128(a, 8))));
            q[6] = T(_mm_extract_epi16(a, 6));
        }
    }
    for (; x < width; ++x) twist_pixel(cm, s + 4 * x, d + 4 * x);
}

// ---- P3: four pixels per vector and plane ---------------------------------

template <class T>
void owniTwist32f_P3_sse2(const T* const* s, T* const* d, ptrdiff_t width, const Columns& cm) {
    __m128 k[3][4];  // k[i][j]: t[i][j] in every lane
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 4; ++j) k[i][j] = _mm_set1_ps(cm.col[j][i]);
    auto load = [&](int c, ptrdiff_t x) -> __m128 {
        if constexpr (std::is_same_v<T, float>) return _mm_loadu_ps(s[c] + x);
        else if constexpr (sizeof(T) == 1) return f_lo<T>(widen_lo<T>(_mm_cvtsi32_si128(int(ld32(s[c] + x)))));
        else return f_lo<T>(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(s[c] + x)));
    };
    ptrdiff_t x = 0;
    for (; x + 4 <= width; x += 4) {
        const __m128 x0 = load(0, x), x1 = load(1, x), x2 = load(2, x);
        __m128 o[3];
        for (int i = 0; i < 3; ++i)
            o[i] = _mm_add_ps(_mm_add_ps(k[i][3], _mm_mul_ps(x0, k[i][0])),
                              _mm_add_ps(_mm_mul_ps(x1, k[i][1]), _mm_mul_ps(x2, k[i][2])));
        for (int i = 0; i < 3; ++i) {
            if constexpr (std::is_same_v<T, float>) {
                _mm_storeu_ps(d[i] + x, o[i]);
            } else if constexpr (sizeof(T) == 1) {
                const __m128i v = to_int<T>(o[i]);
                st32(d[i] + x, uint32_t(_mm_cvtsi128_si32(pack8<T>(v, v, v, v))));
            } else {
                const __m128i v = to_int<T>(o[i]);
                _mm_storel_epi64(reinterpret_cast<__m128i*>(d[i] + x), pack16<T>(v, v));
            }
        }
    }
    for (; x < width; ++x) {
        const T in[3] = {s[0][x], s[1][x], s[2][x]};
        T out[3];
        twist_pixel(cm, in, out);
        d[0][x] = out[0];
        d[1][x] = out[1];
        d[2][x] = out[2];
    }
}

// ---- C4 -------------------------------------------------------------------

namespace {
template <bool Aligned>
void twist_c4(const float* s, float* d, ptrdiff_t width, const Columns& cm) {
    const Mat m(cm);
    for (ptrdiff_t x = 0; x < width; ++x, s += 4, d += 4) {
        const __m128 v = Aligned ? _mm_load_ps(s) : _mm_loadu_ps(s);
        const __m128 r = _mm_add_ps(_mm_add_ps(_mm_mul_ps(bc<0>(v), m.c0), _mm_mul_ps(bc<1>(v), m.c1)),
                                    _mm_add_ps(_mm_mul_ps(bc<2>(v), m.c2), _mm_mul_ps(bc<3>(v), m.c3)));
        if (Aligned) _mm_store_ps(d, r);
        else _mm_storeu_ps(d, r);
    }
}
}  // namespace

void innerColorTwist_32f_C4R(const float* s, float* d, ptrdiff_t width, const Columns& m) { twist_c4<true>(s, d, width, m); }
void innerColorTwist_32f_C4R_N(const float* s, float* d, ptrdiff_t width, const Columns& m) {
    twist_c4<false>(s, d, width, m);
}

#define NMQ_TWIST_SSE2(T)                                                                         \
    template void owniTwist32f_AC4_sse2<T>(const T*, T*, ptrdiff_t, const Columns&);              \
    template void owniTwist32f_P3_sse2<T>(const T* const*, T* const*, ptrdiff_t, const Columns&);
#define NMQ_TWIST_SSE2_INT(T)                                                                     \
    NMQ_TWIST_SSE2(T)                                                                             \
    template void owniTwist32f_C3_sse2<T>(const T*, T*, ptrdiff_t, const Columns&);
NMQ_TWIST_SSE2_INT(uint8_t)
NMQ_TWIST_SSE2_INT(int8_t)
NMQ_TWIST_SSE2_INT(uint16_t)
NMQ_TWIST_SSE2_INT(int16_t)
NMQ_TWIST_SSE2(float)

}  // namespace nmq::twist
