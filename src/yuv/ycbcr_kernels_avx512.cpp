// AVX-512 blocks of the BT.601 4:2:0 inverse: 64 pixels of each of the two
// rows per step, the split arithmetic of ycbcr_avx2_split.h on 512-bit
// vectors (each 128-bit lane runs what a 16-pixel SSE2 block runs), stored
// through the AVX2 shuffles in two halves of 32 pixels. Nothing here calls
// the inline kernels of the headers (see ycbcr_avx2.h).
#include <immintrin.h>

// GCC 12 reports the deliberately undefined pass-through operand inside its
// own AVX-512 intrinsics as maybe uninitialized; nothing here reads it.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"

#include "yuv/ycbcr_avx2.h"
#include "yuv/ycbcr_avx2_io.h"
#include "yuv/ycbcr_avx2_split.h"

namespace nmq::ycc::avx512 {

using avx2::Ops512;
using Z = __m512i;

namespace {

inline Z ld64(const uint8_t* p) { return _mm512_loadu_si512(p); }

template <bool Bgr, int DS>
inline void store64(const RgbOut& o, ptrdiff_t x, Z R, Z G, Z B) {
    avx2::store32<Bgr, DS>(o, x, _mm512_castsi512_si256(R), _mm512_castsi512_si256(G), _mm512_castsi512_si256(B));
    avx2::store32<Bgr, DS>(o, x + 32, _mm512_extracti64x4_epi64(R, 1), _mm512_extracti64x4_epi64(G, 1),
                           _mm512_extracti64x4_epi64(B, 1));
}

}  // namespace

template <class I, bool Bgr, int DS>
int inv420_blocks(const Ycc420In& in, const RgbOut& o0, const RgbOut& o1, int x0, int w) {
    using S = typename avx2::SplitX<Ops512, I>::type;
    const bool cr_first = in.cr < in.cb;
    ptrdiff_t x = x0;
    for (; x + 64 <= w; x += 64) {
        Z cb, cr;  // 32 samples in 16-bit lanes, in order
        if (in.cs == 2) {
            const Z v = ld64((cr_first ? in.cr : in.cb) + x);
            const Z a = _mm512_and_si512(v, _mm512_set1_epi16(0xFF)), b = _mm512_srli_epi16(v, 8);
            cb = cr_first ? b : a;
            cr = cr_first ? a : b;
        } else {
            cb = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in.cb + x / 2)));
            cr = _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in.cr + x / 2)));
        }
        const typename S::Terms c = S::terms(cb, cr), lo = S::dup(c, false), hi = S::dup(c, true);
        Z R, G, B;
        S::rgb(ld64(in.y0 + x), lo, hi, R, G, B);
        store64<Bgr, DS>(o0, x, R, G, B);
        S::rgb(ld64(in.y1 + x), lo, hi, R, G, B);
        store64<Bgr, DS>(o1, x, R, G, B);
    }
    return int(x);
}

template int inv420_blocks<Inv601Sub, false, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, false, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 3>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);
template int inv420_blocks<Inv601Sub, true, 4>(const Ycc420In&, const RgbOut&, const RgbOut&, int, int);

}  // namespace nmq::ycc::avx512
