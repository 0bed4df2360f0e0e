// Colour twist of integer images (8u, 8s, 16u, 16s): single-precision sums,
// clamped, rounded to nearest even under a rounding mode set for the call.
#include <xmmintrin.h>

#include "frame/dispatch.h"
#include "tone/twist_driver.h"
#include "tone/twist_kernels.h"

using namespace nmq;
using namespace nmq::twist;

namespace {

// The rounding-control field (bits 13-14) of the SSE control/status register.
constexpr unsigned kRoundField = 0x6000;

// Sets the rounding field to rc and returns the register's previous value. The
// register is written only when the field differs, and then with only that
// field replaced.
unsigned nmq_set_rc_ssx(unsigned rc) {
    const unsigned old = _mm_getcsr();
    if ((old & kRoundField) != rc) _mm_setcsr((old & ~kRoundField) | rc);
    return old;
}

void nmq_set_cw_ssx(unsigned cw) { _mm_setcsr(cw); }

// Runs the rows with nearest-even rounding. The caller's register comes back
// whole (flags raised meanwhile included) when its rounding field was not
// nearest-even; when it already was, nothing is written back.
template <class F>
void with_nearest_even(F&& rows) {
    const unsigned saved = nmq_set_rc_ssx(0);
    rows();
    if (saved & kRoundField) nmq_set_cw_ssx(saved);
}

template <class T>
NmqStatus packed(bool ac4, const T* s, int ss, T* d, int ds, ImageSize r, const Nmq32f t[3][4]) {
    if (NmqStatus st = check_packed(s, ss, d, ds, r, t)) return st;
    const Columns m = ownSetMatrix(t);
    const PixelRow<T> row = ac4 ? pick<PixelRow<T>>(owniTwist32f_AC4<T>, owniTwist32f_AC4_sse2<T>)
                                : pick<PixelRow<T>>(owniTwist32f_C3<T>, owniTwist32f_C3_sse2<T>);
    with_nearest_even([&] {
        for (int y = 0; y < r.height; ++y) row(row_elems(s, ss, y), row_elems(d, ds, y), r.width, m);
    });
    return nmqStsOk;
}

template <class T>
NmqStatus planar(const T* const* s, int ss, T* const* d, int ds, ImageSize r, const Nmq32f t[3][4]) {
    if (NmqStatus st = check_planar(s, ss, d, ds, r, t)) return st;
    const Columns m = ownSetMatrix(t);
    const PlaneRow<T> row = pick<PlaneRow<T>>(owniTwist32f_P3<T>, owniTwist32f_P3_sse2<T>);
    with_nearest_even([&] {
        for (int y = 0; y < r.height; ++y) row(PlaneRows<const T>(s, ss, y).p, PlaneRows<T>(d, ds, y).p, r.width, m);
    });
    return nmqStsOk;
}

}  // namespace

#define NMQ_TWIST_EXPORTS(TY, T)                                                                                      \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_C3R(const T* pSrc, int srcStep, T* pDst, int dstStep,               \
                                                      ImageSize roiSize, const Nmq32f twist[3][4]) {                  \
        return packed<T>(false, pSrc, srcStep, pDst, dstStep, roiSize, twist);                                        \
    }                                                                                                                 \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_C3IR(T* pSrcDst, int srcDstStep, ImageSize roiSize,                 \
                                                       const Nmq32f twist[3][4]) {                                    \
        return packed<T>(false, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);                            \
    }                                                                                                                 \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_AC4R(const T* pSrc, int srcStep, T* pDst, int dstStep,              \
                                                       ImageSize roiSize, const Nmq32f twist[3][4]) {                 \
        return packed<T>(true, pSrc, srcStep, pDst, dstStep, roiSize, twist);                                         \
    }                                                                                                                 \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_AC4IR(T* pSrcDst, int srcDstStep, ImageSize roiSize,                \
                                                        const Nmq32f twist[3][4]) {                                   \
        return packed<T>(true, pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);                             \
    }                                                                                                                 \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_P3R(const T* const pSrc[3], int srcStep, T* const pDst[3],          \
                                                      int dstStep, ImageSize roiSize, const Nmq32f twist[3][4]) {     \
        return planar<T>(pSrc, srcStep, pDst, dstStep, roiSize, twist);                                               \
    }                                                                                                                 \
    NMQ_EXPORT NmqStatus nmqiColorTwist32f_##TY##_IP3R(T* const pSrcDst[3], int srcDstStep, ImageSize roiSize,        \
                                                       const Nmq32f twist[3][4]) {                                    \
        return planar<T>(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roiSize, twist);                                   \
    }

NMQ_TWIST_EXPORTS(8u, Nmq8u)
NMQ_TWIST_EXPORTS(8s, Nmq8s)
NMQ_TWIST_EXPORTS(16u, Nmq16u)
NMQ_TWIST_EXPORTS(16s, Nmq16s)
