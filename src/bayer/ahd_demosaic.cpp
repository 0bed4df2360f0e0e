// nmqiDemosaicAHD_8u_C1C3R, nmqiDemosaicAHD_16u_C1C3R: the drivers.
//
// They check and trim the rectangle exactly as the colour-filter-array
// interpolation does, and give the frame two pixels wide along the image
// edges the same values it gives there. The interior runs the adaptive
// homogeneity-directed stages (ahd_kernels.h) as a row pipeline: a few rows
// of each stage are kept in a scratch block, five mosaic rows, three rows of
// every later stage. The stages look up to five pixels beyond the pixel they
// serve; where that falls outside the image the mosaic is mirrored about its
// edge pixel (column -1 reads column 1), which keeps the colour pattern.
#include <algorithm>
#include <climits>

#include "bayer/ahd_kernels.h"
#include "bayer/cfa_kernels.h"
#include "frame/common.h"
#include "frame/dispatch.h"
#include "frame/helpers.h"

namespace nmq::ahd {
namespace {

constexpr int kReach = 5;  // columns (and rows) a pixel's result depends on, each way

inline const uint8_t* src_row(const uint8_t* p, int step, ptrdiff_t y) { return row_at(p, step, y); }
inline uint8_t* dst_row(uint8_t* p, int step, ptrdiff_t y) { return row_at(p, step, y); }
inline const uint16_t* src_row(const uint16_t* p, int step, ptrdiff_t y) { return row_elems(p, step, y); }
inline uint16_t* dst_row(uint16_t* p, int step, ptrdiff_t y) { return row_elems(p, step, y); }

inline int16_t* alloc_wide(int16_t*, int n) { return nmqsMalloc_16s(n); }
inline int32_t* alloc_wide(int32_t*, int n) { return nmqsMalloc_32s(n); }

// Mirror about the edge pixel; one reflection is enough for the rows and
// columns the interior reads (the image is at least 5 x 5 when it has one).
inline int mirror(int v, int n) { return v < 0 ? -v : v >= n ? 2 * (n - 1) - v : v; }
inline int ring(int r, int n) { return ((r % n) + n) % n; }

// Colours of a mosaic row (the grid code gives row 0; each row below swaps).
inline bool red_row(int grid, int y) { return ((grid & 1) != 0) != ((y & 1) != 0); }
inline bool even_green(int grid, int y) { return ((grid >> 1) != 0) != ((y & 1) != 0); }

template <class T>
struct Kernels {
    using W = typename Wide<T>::type;
    GreenFn<W> green;
    ColourFn<W> colour;
    HomoFn homo;
    ChooseFn<T, W> choose;
};

// The interior: rows y0..y1, columns x0..x1 of the image, written to d (the
// destination row of y0 at the pixel of x0). buf and lab are scratch blocks
// of kWideRows and kLabRows rows of len elements.
constexpr int kWideRows = 5 + 2 * 3 + 2 * 3 * 3;  // mosaic, green, colour
constexpr int kLabRows = 2 * 3 * 3 + 2 * 3;       // Lab, homogeneity

template <class T>
void interior(const T* src, int src_step, int w, int h, int grid, int x0, int x1, int y0, int y1, T* dst,
              int dst_step, typename Wide<T>::type* buf, int16_t* lab, const Kernels<T>& k) {
    using W = typename Wide<T>::type;
    const int n = x1 - x0 + 1, len = n + 2 * kReach, c0 = x0 - kReach;
    auto wrow = [&](int i) { return buf + ptrdiff_t(i) * len; };
    auto lrow = [&](int i) { return lab + ptrdiff_t(i) * len; };
    // Row slots: mosaic 0..4; green H 5..7, V 8..10; colour H 11..19, V 20..28
    // (three rows of R, G, B each).
    auto raw = [&](int r) { return wrow(ring(r, 5)); };
    auto gr = [&](int d, int r) { return wrow(5 + 3 * d + ring(r, 3)); };
    auto rgb = [&](int d, int c, int r) { return wrow(11 + 9 * d + 3 * c + ring(r, 3)); };
    // Lab H 0..8, V 9..17 (L, a, b); homogeneity H 18..20, V 21..23.
    auto labc = [&](int d, int c, int r) { return lrow(9 * d + 3 * c + ring(r, 3)); };
    auto hom = [&](int d, int r) { return lrow(18 + 3 * d + ring(r, 3)); };
    auto sites = [&](int r) {
        return RowSites{even_green(grid, r) == ((c0 & 1) == 0), red_row(grid, r)};
    };
    auto load = [&](int r) {
        const T* s = src_row(src, src_step, mirror(r, h));
        W* o = raw(r);
        for (int i = 0; i < len; ++i) o[i] = W(s[mirror(c0 + i, w)]);
    };
    const int scale = sizeof(T) == 1 ? 257 : 1;
    for (int r = y0 - kReach; r < y0 - 1; ++r) load(r);
    for (int t = y0 - 3; t <= y1 + 3; ++t) {
        load(t + 2);
        k.green(raw(t - 2), raw(t - 1), raw(t), raw(t + 1), raw(t + 2), gr(0, t), gr(1, t), 2, len - 2, sites(t));
        const int rb = t - 1;  // colour and Lab
        if (rb >= y0 - 2) {
            for (int d = 0; d < 2; ++d) {
                k.colour(raw(rb - 1), raw(rb), raw(rb + 1), gr(d, rb - 1), gr(d, rb), gr(d, rb + 1), rgb(d, 0, rb),
                         rgb(d, 1, rb), rgb(d, 2, rb), 3, len - 3, sites(rb), Wide<T>::max);
                lab_row_scalar<W>(rgb(d, 0, rb), rgb(d, 1, rb), rgb(d, 2, rb), labc(d, 0, rb), labc(d, 1, rb),
                                  labc(d, 2, rb), 3, len - 3, scale);
            }
        }
        const int rh = t - 2;  // homogeneity
        if (rh >= y0 - 1) {
            LabRows lr[2];
            for (int d = 0; d < 2; ++d)
                for (int j = 0; j < 3; ++j) {
                    lr[d].L[j] = labc(d, 0, rh - 1 + j);
                    lr[d].a[j] = labc(d, 1, rh - 1 + j);
                    lr[d].b[j] = labc(d, 2, rh - 1 + j);
                }
            k.homo(lr[0], lr[1], hom(0, rh), hom(1, rh), 4, len - 4);
        }
        const int ro = t - 3;  // output
        if (ro >= y0) {
            const int16_t* hh[3] = {hom(0, ro - 1), hom(0, ro), hom(0, ro + 1)};
            const int16_t* hv[3] = {hom(1, ro - 1), hom(1, ro), hom(1, ro + 1)};
            const W* ch[3] = {rgb(0, 0, ro), rgb(0, 1, ro), rgb(0, 2, ro)};
            const W* cv[3] = {rgb(1, 0, ro), rgb(1, 1, ro), rgb(1, 2, ro)};
            k.choose(hh, hv, ch, cv, dst_row(dst, dst_step, ro - y0), kReach, n);
        }
    }
}

template <class T>
NmqStatus demosaic(const T* src, ImageRect roi, ImageSize size, int src_step, T* dst, int dst_step, int grid,
                   const Kernels<T>& k) {
    using W = typename Wide<T>::type;
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (size.width < 2) return nmqStsSize;
    if (size.height < 2) return nmqStsSize;
    if (grid < nmqBayerBGGR || grid > nmqBayerGRBG) return nmqStsBadArg;
    if (roi.x < 0 || roi.y < 0) return nmqStsSize;
    const int w = size.width, h = size.height;
    const int x0 = roi.x, y0 = roi.y;
    const int x1 = int(std::min<int64_t>(int64_t(x0) + roi.width, w)) - 1;
    const int y1 = int(std::min<int64_t>(int64_t(y0) + roi.height, h)) - 1;
    if (x1 < x0 || y1 < y0) return nmqStsOk;

    // Interior part of the rectangle: at least two pixels from every edge.
    const int ix0 = std::max(x0, 2), ix1 = std::min(x1, w - 3);
    const int iy0 = std::max(y0, 2), iy1 = std::min(y1, h - 3);
    const bool has_interior = ix0 <= ix1 && iy0 <= iy1;

    // Scratch first, so that a failed allocation leaves the destination unwritten.
    W* buf = nullptr;
    int16_t* lab = nullptr;
    if (has_interior) {
        const int64_t len = int64_t(ix1 - ix0 + 1) + 2 * kReach;
        if (len * kWideRows > INT_MAX || len * kLabRows > INT_MAX) return nmqStsNoMemory;
        buf = alloc_wide(buf, int(len * kWideRows));
        lab = buf ? nmqsMalloc_16s(int(len * kLabRows)) : nullptr;
        if (!buf || !lab) {
            nmqsFree(buf);
            return nmqStsNoMemory;
        }
    }

    // The frame along the edges, as the colour-filter-array interpolation.
    const int left_end = std::min(x1, 1);
    const int right_begin = std::max({x0, w - 2, 2});
    for (int y = y0; y <= y1; ++y) {
        const T* a = src_row(src, src_step, y == 0 ? 1 : y - 1);
        const T* c = src_row(src, src_step, y);
        const T* b = src_row(src, src_step, y == h - 1 ? h - 2 : y + 1);
        T* d = dst_row(dst, dst_step, y - y0);
        const bool rr = red_row(grid, y), eg = even_green(grid, y);
        if (y < 2 || y > h - 3) {
            cfa::ownBayerBorderRow(a, c, b, d, x0, x1, w, rr, eg);
            continue;
        }
        if (x0 <= left_end) cfa::ownBayerBorderRow(a, c, b, d, x0, left_end, w, rr, eg);
        if (right_begin <= x1) cfa::ownBayerBorderRow(a, c, b, d + 3 * ptrdiff_t(right_begin - x0), right_begin, x1, w, rr, eg);
    }
    if (has_interior) {
        T* d = dst_row(dst, dst_step, iy0 - y0) + 3 * ptrdiff_t(ix0 - x0);
        interior(src, src_step, w, h, grid, ix0, ix1, iy0, iy1, d, dst_step, buf, lab, k);
        nmqsFree(lab);
        nmqsFree(buf);
    }
    return nmqStsOk;
}

template <class T>
Kernels<T> kernels() {
    using W = typename Wide<T>::type;
    return {pick<GreenFn<W>>(green_row_scalar<W>, green_row_sse2), pick<ColourFn<W>>(colour_row_scalar<W>, colour_row_sse2),
            pick<HomoFn>(homo_row_scalar, homo_row_sse2), pick<ChooseFn<T, W>>(choose_row_scalar<T, W>, choose_row_sse2)};
}

}  // namespace
}  // namespace nmq::ahd

using namespace nmq::ahd;

NMQ_EXPORT NmqStatus nmqiDemosaicAHD_8u_C1C3R(const Nmq8u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                              Nmq8u* pDst, int dstStep, int grid) {
    return demosaic(pSrc, srcRoi, srcSize, srcStep, pDst, dstStep, grid, kernels<uint8_t>());
}

NMQ_EXPORT NmqStatus nmqiDemosaicAHD_16u_C1C3R(const Nmq16u* pSrc, ImageRect srcRoi, ImageSize srcSize, int srcStep,
                                               Nmq16u* pDst, int dstStep, int grid) {
    return demosaic(pSrc, srcRoi, srcSize, srcStep, pDst, dstStep, grid, kernels<uint16_t>());
}
