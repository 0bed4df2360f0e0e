// SSE2 forms of the YCoCg rows with an 8u interleaved side: sixteen pixels per
// step, 16-bit lanes where the values fit (8u samples), 32-bit lanes for 16s
// planes (their sums do not fit 16 bits); the rest of a row goes through the
// scalar row, which has the same arithmetic.
#include <emmintrin.h>

#include <type_traits>

#include "models/gray_pixels_sse2.h"
#include "models/ycocg_kernels.h"

namespace nmq::ycocg {
namespace {

struct V16 {
    __m128i y, co, cg;
};

// Eight pixels of 8u samples (16-bit lanes) through one transform.
template <bool Lifting>
inline V16 fwd8(__m128i r, __m128i g, __m128i b) {
    if (Lifting) {
        const __m128i co = _mm_sub_epi16(r, b);
        const __m128i t = _mm_add_epi16(b, _mm_srai_epi16(co, 1));
        const __m128i cg = _mm_sub_epi16(g, t);
        return {_mm_add_epi16(t, _mm_srai_epi16(cg, 1)), co, cg};
    }
    const __m128i two = _mm_set1_epi16(2), g2 = _mm_add_epi16(g, g);
    return {_mm_srai_epi16(_mm_add_epi16(_mm_add_epi16(r, g2), _mm_add_epi16(b, two)), 2),
            _mm_srai_epi16(_mm_add_epi16(_mm_sub_epi16(r, b), _mm_set1_epi16(1)), 1),
            _mm_srai_epi16(_mm_add_epi16(_mm_sub_epi16(g2, _mm_add_epi16(r, b)), two), 2)};
}

inline void store8(int16_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
inline __m128i load8(const int16_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i load16(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

// Sign-extended halves of eight 16-bit lanes.
inline __m128i lo32(__m128i v) { return _mm_srai_epi32(_mm_unpacklo_epi16(v, v), 16); }
inline __m128i hi32(__m128i v) { return _mm_srai_epi32(_mm_unpackhi_epi16(v, v), 16); }

// Four pixels of 32-bit plane values to samples (R, G, B), exact.
template <bool Lifting>
inline void inv4(__m128i y, __m128i co, __m128i cg, __m128i& r, __m128i& g, __m128i& b) {
    if (Lifting) {
        const __m128i t = _mm_sub_epi32(y, _mm_srai_epi32(cg, 1));
        g = _mm_add_epi32(cg, t);
        b = _mm_sub_epi32(t, _mm_srai_epi32(co, 1));
        r = _mm_add_epi32(b, co);
    } else {
        r = _mm_sub_epi32(_mm_add_epi32(y, co), cg);
        g = _mm_add_epi32(y, cg);
        b = _mm_sub_epi32(_mm_sub_epi32(y, co), cg);
    }
}

// Eight pixels of 16s planes to 16-bit samples saturated to 16 bits (then
// clamped to 8 bits by the caller's pack: the same as clamping the exact value).
template <bool Lifting>
inline void inv8(const int16_t* y, const int16_t* co, const int16_t* cg, __m128i& r, __m128i& g, __m128i& b) {
    const __m128i vy = load8(y), vco = load8(co), vcg = load8(cg);
    __m128i r0, g0, b0, r1, g1, b1;
    inv4<Lifting>(lo32(vy), lo32(vco), lo32(vcg), r0, g0, b0);
    inv4<Lifting>(hi32(vy), hi32(vco), hi32(vcg), r1, g1, b1);
    r = _mm_packs_epi32(r0, r1);
    g = _mm_packs_epi32(g0, g1);
    b = _mm_packs_epi32(b0, b1);
}

}  // namespace

template <class Policy, int S, Order O>
void ycocg_fwd_row_sse2(const uint8_t* src, typename Policy::D* y, typename Policy::D* co, typename Policy::D* cg,
                        int width) {
    constexpr bool kLifting = std::is_same_v<Policy, FwdSat<int16_t, true>>;
    int x = 0;
    __m128i q[4];
    for (; x + 16 <= width; x += 16) {
        if (S == 3) px::load3x16(src + 3 * x, q);
        else px::load4x16(src + 4 * x, q);
        V16 h[2];
        for (int i = 0; i < 2; ++i) {
            const __m128i c0 = px::channel16<0>(q[2 * i], q[2 * i + 1]);
            const __m128i c1 = px::channel16<1>(q[2 * i], q[2 * i + 1]);
            const __m128i c2 = px::channel16<2>(q[2 * i], q[2 * i + 1]);
            h[i] = O == Order::Rgb ? fwd8<kLifting>(c0, c1, c2) : fwd8<kLifting>(c2, c1, c0);
        }
        if constexpr (std::is_same_v<typename Policy::D, uint8_t>) {
            // Co + 128 reaches 256 at most and Cg + 128 stays in 1..256: the
            // unsigned pack gives the cap and the clamp.
            const __m128i k128 = _mm_set1_epi16(128);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(y + x), _mm_packus_epi16(h[0].y, h[1].y));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(co + x),
                             _mm_packus_epi16(_mm_add_epi16(h[0].co, k128), _mm_add_epi16(h[1].co, k128)));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(cg + x),
                             _mm_packus_epi16(_mm_add_epi16(h[0].cg, k128), _mm_add_epi16(h[1].cg, k128)));
        } else {
            for (int i = 0; i < 2; ++i) {
                store8(y + x + 8 * i, h[i].y);
                store8(co + x + 8 * i, h[i].co);
                store8(cg + x + 8 * i, h[i].cg);
            }
        }
    }
    ycocg_fwd_row<Policy, uint8_t, S, O>(src + S * x, y + x, co + x, cg + x, width - x);
}

template <class Policy, class T, int S, Order O>
void ycocg_inv_row_sse2(const T* y, const T* co, const T* cg, uint8_t* dst, int width, uint8_t alpha) {
    int x = 0;
    const __m128i va = _mm_set1_epi8(char(alpha));
    for (; x + 16 <= width; x += 16) {
        __m128i r8, g8, b8;
        if constexpr (std::is_same_v<T, uint8_t>) {
            // 8u planes in 16-bit lanes: every sum stays within -255..511.
            const __m128i z = _mm_setzero_si128();
            const __m128i vy = load16(y + x), vco = load16(co + x), vcg = load16(cg + x);
            __m128i r[2], g[2], b[2];
            for (int i = 0; i < 2; ++i) {
                const __m128i yy = i ? _mm_unpackhi_epi8(vy, z) : _mm_unpacklo_epi8(vy, z);
                const __m128i cc = i ? _mm_unpackhi_epi8(vco, z) : _mm_unpacklo_epi8(vco, z);
                const __m128i gg = i ? _mm_unpackhi_epi8(vcg, z) : _mm_unpacklo_epi8(vcg, z);
                r[i] = _mm_sub_epi16(_mm_add_epi16(yy, cc), gg);
                g[i] = _mm_sub_epi16(_mm_add_epi16(yy, gg), _mm_set1_epi16(128));
                b[i] = _mm_add_epi16(_mm_sub_epi16(_mm_sub_epi16(yy, cc), gg), _mm_set1_epi16(256));
            }
            r8 = _mm_packus_epi16(r[0], r[1]);
            g8 = _mm_packus_epi16(g[0], g[1]);
            b8 = _mm_packus_epi16(b[0], b[1]);
        } else {
            constexpr bool kLifting = std::is_same_v<Policy, InvClamp8u<true>>;
            __m128i r[2], g[2], b[2];
            for (int i = 0; i < 2; ++i)
                inv8<kLifting>(y + x + 8 * i, co + x + 8 * i, cg + x + 8 * i, r[i], g[i], b[i]);
            r8 = _mm_packus_epi16(r[0], r[1]);
            g8 = _mm_packus_epi16(g[0], g[1]);
            b8 = _mm_packus_epi16(b[0], b[1]);
        }
        __m128i q[4];
        if (O == Order::Rgb) px::from_planes(r8, g8, b8, va, q);
        else px::from_planes(b8, g8, r8, va, q);
        if (S == 3) px::store3x16(dst + 3 * x, q);
        else px::store4x16(dst + 4 * x, q);
    }
    ycocg_inv_row<Policy, T, S, O>(y + x, co + x, cg + x, dst + S * x, width - x, alpha);
}

template void ycocg_fwd_row_sse2<FwdPlain8u, 3, Order::Rgb>(const uint8_t*, uint8_t*, uint8_t*, uint8_t*, int);
template void ycocg_fwd_row_sse2<FwdSat<int16_t, false>, 3, Order::Bgr>(const uint8_t*, int16_t*, int16_t*, int16_t*, int);
template void ycocg_fwd_row_sse2<FwdSat<int16_t, false>, 4, Order::Bgr>(const uint8_t*, int16_t*, int16_t*, int16_t*, int);
template void ycocg_fwd_row_sse2<FwdSat<int16_t, true>, 3, Order::Bgr>(const uint8_t*, int16_t*, int16_t*, int16_t*, int);
template void ycocg_fwd_row_sse2<FwdSat<int16_t, true>, 4, Order::Bgr>(const uint8_t*, int16_t*, int16_t*, int16_t*, int);
template void ycocg_inv_row_sse2<InvPlain8u, uint8_t, 3, Order::Rgb>(const uint8_t*, const uint8_t*, const uint8_t*,
                                                                     uint8_t*, int, uint8_t);
template void ycocg_inv_row_sse2<InvClamp8u<false>, int16_t, 3, Order::Bgr>(const int16_t*, const int16_t*,
                                                                            const int16_t*, uint8_t*, int, uint8_t);
template void ycocg_inv_row_sse2<InvClamp8u<false>, int16_t, 4, Order::Bgr>(const int16_t*, const int16_t*,
                                                                            const int16_t*, uint8_t*, int, uint8_t);
template void ycocg_inv_row_sse2<InvClamp8u<true>, int16_t, 3, Order::Bgr>(const int16_t*, const int16_t*,
                                                                           const int16_t*, uint8_t*, int, uint8_t);
template void ycocg_inv_row_sse2<InvClamp8u<true>, int16_t, 4, Order::Bgr>(const int16_t*, const int16_t*,
                                                                           const int16_t*, uint8_t*, int, uint8_t);

}  // namespace nmq::ycocg
