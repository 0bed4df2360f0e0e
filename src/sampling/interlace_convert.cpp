// Interlaced 4:2:2 <-> 4:2:0 conversions and 4:2:2 to gray: the drivers.
//
// An interlaced frame holds two fields: the top field on the even rows, the
// bottom field on the odd rows. Its 4:2:0 chroma rows alternate between the
// fields as well: chroma row 2j belongs to the top field and sits between
// frame rows 4j and 4j+2, a quarter of the way down; chroma row 2j+1 belongs
// to the bottom field and sits between frame rows 4j+1 and 4j+3, three
// quarters of the way down. Every chroma sample is computed from rows of its
// own field only, so motion between the fields never bleeds into the other
// field's colour.
//
// Height rule: a 4:2:0 interlaced frame is a whole number of 4-row groups (one
// chroma row per field and group). Heights below 4 give nmqStsSize; others are
// rounded down to a multiple of 4 silently, as the width is rounded down to
// even, and the rows and column beyond are not written.
#include <algorithm>

#include "frame/common.h"
#include "frame/dispatch.h"
#include "frame/helpers.h"
#include "sampling/interlace_kernels.h"

using namespace nmq;
using namespace nmq::ilc;

namespace {

struct In {
    const u8* p;
    int step;
    const u8* row(ptrdiff_t y) const { return row_at(p, step, y); }
};
struct Out {
    u8* p;
    int step;
    u8* row(ptrdiff_t y) const { return row_at(p, step, y); }
};

// 4:2:2 -> 4:2:0: the 3:1 (top field) and 1:3 (bottom field) weights of the
// chroma siting above, written heavier row first; 6/8 is 3/4 exactly.
constexpr int kDownWeight = 6;
struct Pair {
    int heavy, light, wa;
};
inline Pair down_rows(int k) {
    const int j4 = (k >> 1) * 4;
    return (k & 1) ? Pair{j4 + 3, j4 + 1, kDownWeight} : Pair{j4, j4 + 2, kDownWeight};
}

// 4:2:0 -> 4:2:2: frame row r is interpolated linearly between the two
// chroma rows of its field that enclose it, at the positions the 4:2:0 rows
// stand for. Top field: row 4j = (T[j-1] + 7 T[j]) / 8, row 4j+2 =
// (5 T[j] + 3 T[j+1]) / 8; bottom field: row 4j+1 = (3 B[j-1] + 5 B[j]) / 8,
// row 4j+3 = (7 B[j] + B[j+1]) / 8. A field row before the first or after the
// last is that first or last row. Returned as 4:2:0 chroma row numbers.
inline Pair up_rows(int r, int rows_per_field) {
    const int f = r & 1, line = r >> 1, j = line >> 1, second = line & 1;
    const int nb = second ? std::min(j + 1, rows_per_field - 1) : std::max(j - 1, 0);
    return {2 * j + f, 2 * nb + f, f == second ? 7 : 5};
}

inline bool bad_420(ImageSize r) { return r.width < 2 || r.height < 4; }
inline int even(int v) { return v & ~1; }
inline int four(int v) { return v & ~3; }
template <class T>
inline bool null3(T* const* p) { return !p[0] || !p[1] || !p[2]; }

inline void copy_luma(const u8* s, int ss, u8* d, int ds, int w, int h) { nmqiCopy_8u_C1R(s, ss, d, ds, w, h); }

}  // namespace

// ---- 4:2:2 -> 4:2:0 ------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_Interlace_8u_C2P3R(const Nmq8u* pSrc, int srcStep, Nmq8u* const pDst[3],
                                                               const int dstStep[3], ImageSize roiSize) {
    if (!pSrc || !pDst || !dstStep || null3(pDst)) return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const LumaFn luma = pick<LumaFn>(luma422_scalar, luma422_sse2);
    const BlendSplit422Fn chroma = pick<BlendSplit422Fn>(blend_split422_scalar, blend_split422_sse2);
    const In s{pSrc, srcStep};
    const Out y{pDst[0], dstStep[0]}, cb{pDst[1], dstStep[1]}, cr{pDst[2], dstStep[2]};
    for (int r = 0; r < h; ++r) luma(s.row(r), y.row(r), w / 2);
    for (int k = 0; k < h / 2; ++k) {
        const Pair p = down_rows(k);
        chroma(s.row(p.heavy), s.row(p.light), cb.row(k), cr.row(k), w / 2, p.wa);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr422ToYCbCr420_Interlace_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                             Nmq8u* const pDst[3], const int dstStep[3],
                                                             ImageSize roiSize) {
    if (!pSrc || !srcStep || !pDst || !dstStep) return nmqStsNullPtr;
    if (null3(pSrc) || null3(pDst))
        return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const BlendRowFn blend = pick<BlendRowFn>(blend_row_scalar, blend_row_sse2);
    copy_luma(pSrc[0], srcStep[0], pDst[0], dstStep[0], w, h);
    for (int c = 1; c < 3; ++c) {
        const In s{pSrc[c], srcStep[c]};
        const Out d{pDst[c], dstStep[c]};
        for (int k = 0; k < h / 2; ++k) {
            const Pair p = down_rows(k);
            blend(s.row(p.heavy), s.row(p.light), d.row(k), w / 2, p.wa);
        }
    }
    return nmqStsOk;
}

// ---- 4:2:0 -> 4:2:2 --------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Interlace_8u_P3C2R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                               Nmq8u* pDst, int dstStep, ImageSize roiSize) {
    if (!pSrc || !srcStep || !pDst || null3(pSrc)) return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const BlendJoinFn join = pick<BlendJoinFn>(blend_join_scalar, blend_join_sse2);
    const In y{pSrc[0], srcStep[0]}, cb{pSrc[1], srcStep[1]}, cr{pSrc[2], srcStep[2]};
    const Out d{pDst, dstStep};
    for (int r = 0; r < h; ++r) {
        const Pair p = up_rows(r, h / 4);
        join(y.row(r), cb.row(p.heavy), cb.row(p.light), cr.row(p.heavy), cr.row(p.light), d.row(r), w / 2, p.wa);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Interlace_8u_P3R(const Nmq8u* const pSrc[3], const int srcStep[3],
                                                             Nmq8u* const pDst[3], const int dstStep[3],
                                                             ImageSize roiSize) {
    if (!pSrc || !srcStep || !pDst || !dstStep) return nmqStsNullPtr;
    if (null3(pSrc) || null3(pDst))
        return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const BlendRowFn blend = pick<BlendRowFn>(blend_row_scalar, blend_row_sse2);
    copy_luma(pSrc[0], srcStep[0], pDst[0], dstStep[0], w, h);
    for (int c = 1; c < 3; ++c) {
        const In s{pSrc[c], srcStep[c]};
        const Out d{pDst[c], dstStep[c]};
        for (int r = 0; r < h; ++r) {
            const Pair p = up_rows(r, h / 4);
            blend(s.row(p.heavy), s.row(p.light), d.row(r), w / 2, p.wa);
        }
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2C2R(const Nmq8u* pSrcY, int srcYStep,
                                                                 const Nmq8u* pSrcCbCr, int srcCbCrStep, Nmq8u* pDst,
                                                                 int dstStep, ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst) return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const BlendJoinP2Fn join = pick<BlendJoinP2Fn>(blend_join_p2_scalar, blend_join_p2_sse2);
    const In y{pSrcY, srcYStep}, c{pSrcCbCr, srcCbCrStep};
    const Out d{pDst, dstStep};
    for (int r = 0; r < h; ++r) {
        const Pair p = up_rows(r, h / 4);
        join(y.row(r), c.row(p.heavy), c.row(p.light), d.row(r), w / 2, p.wa);
    }
    return nmqStsOk;
}

NMQ_EXPORT NmqStatus nmqiYCbCr420ToYCbCr422_Deinterlace_8u_P2P3R(const Nmq8u* pSrcY, int srcYStep,
                                                                 const Nmq8u* pSrcCbCr, int srcCbCrStep,
                                                                 Nmq8u* const pDst[3], const int dstStep[3],
                                                                 ImageSize roiSize) {
    if (!pSrcY || !pSrcCbCr || !pDst || !dstStep || null3(pDst))
        return nmqStsNullPtr;
    if (bad_420(roiSize)) return nmqStsSize;
    const int w = even(roiSize.width), h = four(roiSize.height);
    const BlendSplitP2Fn split = pick<BlendSplitP2Fn>(blend_split_p2_scalar, blend_split_p2_sse2);
    copy_luma(pSrcY, srcYStep, pDst[0], dstStep[0], w, h);
    const In c{pSrcCbCr, srcCbCrStep};
    const Out cb{pDst[1], dstStep[1]}, cr{pDst[2], dstStep[2]};
    for (int r = 0; r < h; ++r) {
        const Pair p = up_rows(r, h / 4);
        split(c.row(p.heavy), c.row(p.light), cb.row(r), cr.row(r), w / 2, p.wa);
    }
    return nmqStsOk;
}

// ---- 4:2:2 -> gray ----------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToGray_8u_C2C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                                 ImageSize roiSize) {
    if (!pSrc || !pDst) return nmqStsNullPtr;
    if (roiSize.width < 2 || roiSize.height < 1) return nmqStsSize;
    const int w = even(roiSize.width), h = roiSize.height;
    const LumaFn luma = pick<LumaFn>(luma422_scalar, luma422_sse2);
    const In s{pSrc, srcStep};
    const Out d{pDst, dstStep};
    for (int r = 0; r < h; ++r) luma(s.row(r), d.row(r), w / 2);
    return nmqStsOk;
}
