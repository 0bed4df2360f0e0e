// Packed 16-bit RGB outputs (565, 555, 444, with and without ordered dither),
// the plain repacking between 8-bit RGB and 565 words, and the packed inputs
// to three-plane YCrCb 4:2:0: the exported drivers.
//
// An output driver checks its arguments, then walks the ROI in chunks of a
// row (two rows for 4:2:0): the YUV or YCbCr family's own row kernel turns
// the chunk into 8-bit R, G, B planes on the stack, exactly the bytes of the
// matching 8-bit conversion, and a packing kernel reduces them to words. At
// AVX2 the YCbCr 4:2:0 outputs form the words of whole 32-pixel blocks in
// registers first (packed16_avx2.cpp); the chunks finish the row pair. At
// AVX-512 the registers take the whole pair (packed16_avx512.cpp).
#include "nmqcc.h"
#include "yuv/packed16_kernels.h"
#include "yuv/ycbcr_drivers.h"
#include "yuv/ycbcr_sse2.h"
#include "yuv/yuv_rows.h"

using namespace nmq;
using nmq::p16::Dz;
using nmq::p16::Pk;
namespace ycc = nmq::ycc;
namespace yuv = nmq::yuv;
namespace s2 = nmq::ycc::sse2;

namespace {

constexpr bool kRgb = false, kBgr = true;

// Pixels per chunk: a multiple of 16 (whole vectors) and of 4 (whole 4:1:1
// groups and dither periods).
constexpr int kChunk = 256;

// R, G, B planes of one chunk; one spare pixel for a row that ends one pixel
// past a chunk.
struct Chunk {
    alignas(16) uint8_t r[kChunk + 16];
    alignas(16) uint8_t g[kChunk + 16];
    alignas(16) uint8_t b[kChunk + 16];
    ycc::RgbIn in() const { return {r, g, b, 1}; }
    ycc::RgbOut out() { return {r, g, b, nullptr, 1}; }
    yuv::RowOut row_out() { return {{r, g, b, nullptr}, 0}; }
};

// Calls f(x, n) over pixels x0..w-1 of a row in chunks of kChunk. A single
// pixel left after a chunk joins it, so that the lone last pixel of an odd
// packed 4:2:2 row sees the pair before it.
template <class F>
void chunks(int w, F&& f, int x0 = 0) {
    for (int x = x0; x < w;) {
        const int n = w - x > kChunk + 1 ? kChunk : w - x;
        f(x, n);
        x += n;
    }
}

template <Pk P, Dz D>
p16::PackFn packer() { return pick<p16::PackFn>(p16::pack_row<P, D>, p16::pack_row_sse2<P, D, 1>); }

// One source row per destination row: colour(y, x, n, chunk) fills the chunk
// with the 8-bit R, G, B of pixels x..x+n-1 of row y.
template <Pk P, Dz D, class Colour>
void each_row(Nmq16u* dst, int dstStep, ImageSize roi, bool bgr, Colour&& colour) {
    const p16::PackFn pack = packer<P, D>();
    Chunk c;
    for_rows(roi.height, [&](int y) {
        uint16_t* out = row_elems(dst, dstStep, y);
        chunks(roi.width, [&](int x, int n) {
            colour(y, x, n, c);
            pack(c.in(), out + x, n, x, y, bgr);
        });
    });
}

// 4:2:0: row pairs over the even part of the ROI; colour(y, x, n, top, bottom).
// lead(y, w, top, bottom), when there is one, writes the words of a leading
// part of the pair itself and returns the first column it left.
template <Pk P, Dz D, class Colour, class Lead>
NmqStatus each_pair(Nmq16u* dst, int dstStep, ImageSize roi, bool bgr, Colour&& colour, Lead&& lead) {
    const p16::PackFn pack = packer<P, D>();
    Chunk c0, c1;
    const int w = roi.width & ~1;
    for_row_pairs(roi.height, [&](int y) {
        uint16_t* o0 = row_elems(dst, dstStep, y);
        uint16_t* o1 = row_elems(dst, dstStep, y + 1);
        chunks(w, [&](int x, int n) {
            colour(y, x, n, c0, c1);
            pack(c0.in(), o0 + x, n, x, y, bgr);
            pack(c1.in(), o1 + x, n, x, y + 1, bgr);
        }, lead(y, w, o0, o1));
    });
    return ok_or_odd(odd(roi));
}
template <Pk P, Dz D, class Colour>
NmqStatus each_pair(Nmq16u* dst, int dstStep, ImageSize roi, bool bgr, Colour&& colour) {
    return each_pair<P, D>(dst, dstStep, roi, bgr, colour, [](int, int, uint16_t*, uint16_t*) { return 0; });
}

bool null3(const Nmq8u* const p[3]) { return any_null(p[0], p[1], p[2]); }
bool null3(Nmq8u* const p[3]) { return any_null(p[0], p[1], p[2]); }

// ---- full-sampled YCbCr ----------------------------------------------------------

// The plain outputs take the bytes of the 8-bit full-sampled inverse; the
// dithered ones the 4-fractional-bit rule of ycc_to_rgb_q4.
template <Pk P, Dz D>
void from444(const ycc::Y444In& src, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    const ycc::Inv444Fn inv =
        src.s == 3 ? pick<ycc::Inv444Fn>(ycc::inv444_row<ycc::Inv601Full>, s2::inv444<ycc::Inv601Full, 3, false, 1>)
                   : pick<ycc::Inv444Fn>(ycc::inv444_row<ycc::Inv601Full>, s2::inv444<ycc::Inv601Full, 1, false, 1>);
    each_row<P, D>(dst, dstStep, roi, bgr, [&](int y, int x, int n, Chunk& c) {
        const ycc::Ycc444In r = src(y);
        const ptrdiff_t o = ptrdiff_t(x) * r.s;
        const ycc::Ycc444In at{r.y + o, r.cb + o, r.cr + o, r.s};
        if constexpr (D == Dz::Ordered)
            p16::ycc444_q4_row(at, c.r, c.g, c.b, n);
        else
            inv(at, c.out(), 0, n);
    });
}

template <Pk P, Dz D>
NmqStatus ycc444_c3(const Nmq8u* src, int srcStep, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    from444<P, D>(ycc::y444_pix_in(src, srcStep, 3), dst, dstStep, roi, bgr);
    return nmqStsOk;
}

template <Pk P, Dz D>
NmqStatus ycc444_p3(const Nmq8u* const src[3], int srcStep, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    from444<P, D>(ycc::y444_planes_in(src, srcStep), dst, dstStep, roi, bgr);
    return nmqStsOk;
}

// ---- YCbCr 4:2:2 ---------------------------------------------------------------

// Every pixel is converted; an odd last pixel and a row one pixel wide follow
// the 8-bit packed 4:2:2 conversion (the missing chroma byte comes from the
// pair before, or, one pixel wide, Cb serves as Cr too).
template <Pk P, Dz D, class View>
void from422(const View& src, ycc::Inv422Fn inv, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    each_row<P, D>(dst, dstStep, roi, bgr, [&](int y, int x, int n, Chunk& c) {
        const ycc::Ycc422In r = src(y);
        const ptrdiff_t cx = ptrdiff_t(x / 2) * r.cs;
        const ycc::Ycc422In at{r.y + ptrdiff_t(x) * r.ys, r.ys, r.cb + cx, r.cr + cx, r.cs, r.lone};
        inv(at, c.out(), 0, n);
    });
}

template <Pk P, Dz D>
NmqStatus ycc422_c2(const Nmq8u* src, int srcStep, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const ycc::Inv422Fn inv = pick<ycc::Inv422Fn>(ycc::inv422_row<ycc::Inv601Sub>,
                                                  s2::inv422<ycc::Inv601Sub, ycc::Order::YCbCr, false, 1>);
    from422<P, D>(ycc::Y422PackedIn{src, srcStep, ycc::Order::YCbCr}, inv, dst, dstStep, roi, bgr);
    return nmqStsOk;
}

template <Pk P, Dz D>
NmqStatus ycc422_p3(const Nmq8u* const src[3], const int srcStep[3], Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, srcStep, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    const ycc::Inv422Fn inv =
        pick<ycc::Inv422Fn>(ycc::inv422_row<ycc::Inv601Sub>, s2::inv422p<ycc::Inv601Sub, false, 1>);
    from422<P, D>(ycc::Y422PlanesIn{src, srcStep}, inv, dst, dstStep, roi, bgr);
    return nmqStsOk;
}

// ---- 4:2:0 -------------------------------------------------------------------

// The even part of the ROI; status nmqStsOddSize when a size is odd.
template <Pk P, Dz D>
NmqStatus ycc420_p3(const Nmq8u* const src[3], const int srcStep[3], Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, srcStep, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    const ycc::Inv420Fn inv = pick<ycc::Inv420Fn>(ycc::inv420_rows<ycc::Inv601Sub>, s2::inv420<ycc::Inv601Sub, false, 1>);
    // At AVX2 the fused kernel forms the words of whole 32-pixel blocks and
    // the chunks below finish each pair; at AVX-512 it converts whole pairs.
    const p16::Pack420Fn fused = pick(Kernels<p16::Pack420Fn>{nullptr, nullptr, p16::avx2::ycc420_blocks<P, D>, nullptr,
                                                              nullptr, p16::avx512::ycc420_blocks<P, D>});
    const ycc::Y420In view = ycc::y420_planes_in(src, srcStep, false);
    return each_pair<P, D>(
        dst, dstStep, roi, bgr,
        [&](int y, int x, int n, Chunk& c0, Chunk& c1) {
            const ycc::Ycc420In r = view(y / 2);
            const ptrdiff_t cx = ptrdiff_t(x / 2) * r.cs;
            inv(ycc::Ycc420In{r.y0 + x, r.y1 + x, r.cb + cx, r.cr + cx, r.cs}, c0.out(), c1.out(), 0, n);
        },
        [&](int y, int w, uint16_t* o0, uint16_t* o1) { return fused ? fused(view(y / 2), o0, o1, 0, w, y, bgr) : 0; });
}

template <Pk P, Dz D>
NmqStatus yuv420_p3(const Nmq8u* const src[3], const int srcStep[3], Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, srcStep, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    const yuv::Row42xInv inv = pick<yuv::Row42xInv>(yuv::yuv42x_to_rgb_rows<yuv::Planar, 2>,
                                                    yuv::yuv42x_to_rgb_rows_sse2<yuv::Planar, 2>);
    return each_pair<P, D>(dst, dstStep, roi, bgr, [&](int y, int x, int n, Chunk& c0, Chunk& c1) {
        const yuv::RowIn r = yuv::in_yuv(src, srcStep, y, y / 2, true);
        const yuv::RowIn at{{r.p[0] + x, r.p[1] + x / 2, r.p[2] + x / 2, r.p[3] + x}};
        inv(at, c0.row_out(), c1.row_out(), n, 0);
    });
}

// ---- YCbCr 4:1:1 -------------------------------------------------------------------

template <Pk P>
NmqStatus ycc411_p3(const Nmq8u* const src[3], const int srcStep[3], Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, srcStep, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(src)) return nmqStsNullPtr;
    const ycc::Y411In view{src, srcStep};
    each_row<P, Dz::Off>(dst, dstStep, roi, bgr, [&](int y, int x, int n, Chunk& c) {
        const ycc::Ycc411In r = view(y);
        ycc::inv411_row<ycc::Inv601Sub>(ycc::Ycc411In{r.y + x, r.cb + x / 4, r.cr + x / 4}, c.out(), 0, n);
    });
    return nmqStsOk;
}

// ---- repacking -------------------------------------------------------------------

// Bytes in the order of the name to 565 words, truncated.
NmqStatus to565(const Nmq8u* src, int srcStep, Nmq16u* dst, int dstStep, ImageSize roi, bool bgr) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const p16::PackFn pack =
        pick<p16::PackFn>(p16::pack_row<Pk::P565, Dz::Off>, p16::pack_row_sse2<Pk::P565, Dz::Off, 3>);
    for_rows(roi.height, [&](int y) {
        pack(ycc::rgb_in(row_at(src, srcStep, y), bgr, 3), row_elems(dst, dstStep, y), roi.width, 0, y, bgr);
    });
    return nmqStsOk;
}

// 565 words to bytes in the order of the name (the lowest field first).
NmqStatus from565(const Nmq16u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const p16::WidenFn widen = pick<p16::WidenFn>(p16::widen565_row, p16::widen565_row_sse2);
    for_rows(roi.height, [&](int y) { widen(row_elems(src, srcStep, y), row_at(dst, dstStep, y), roi.width); });
    return nmqStsOk;
}

// ---- packed inputs -------------------------------------------------------------------

// Packed BGR to three-plane YCrCb 4:2:0: the BT.601 4:2:0 conversion of the
// YCbCr family with its chroma planes swapped. Fields widen by bit
// replication; the even part of the ROI is converted.
template <class Img, class In>
NmqStatus bgr16_to_ycrcb420(const Nmq16u* src, int srcStep, Nmq8u* const dst[3], const int dstStep[3], ImageSize roi) {
    if (any_null(src, dst, dstStep)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (null3(dst)) return nmqStsNullPtr;
    ycc::rgb_to_420(roi, Img{src, srcStep}, ycc::y420_planes(dst, dstStep, true), ycc::fwd420_rows<ycc::Fwd601, In>);
    return ok_or_odd(odd(roi));
}

}  // namespace

// ---- full-sampled YCbCr ---------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCrToRGB565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB565Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR565Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB555_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB555Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR555_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR555Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB444_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB444Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR444_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR444Dither_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_c3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCrToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc444_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}

// ---- YCbCr 4:2:2 ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB565_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB565Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR565_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR565Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB555_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB555Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR555_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR555Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB444_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB444Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR444_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR444Dither_8u16u_C2C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_c2<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr422ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc422_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}

// ---- YCbCr 4:2:0 ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr420ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc420_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}

// ---- YUV 4:2:0 ------------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYUV420ToRGB565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToRGB565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P565, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR565Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P565, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToRGB555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToRGB555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P555, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR555Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P555, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToRGB444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToRGB444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR444_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P444, Dz::Off>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYUV420ToBGR444Dither_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return yuv420_p3<Pk::P444, Dz::Ordered>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}

// ---- YCbCr 4:1:1 ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiYCbCr411ToBGR565_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc411_p3<Pk::P565>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiYCbCr411ToBGR555_8u16u_P3C3R(const Nmq8u* const pSrc[3], const int srcStep[3], Nmq16u* pDst, int dstStep, ImageSize roi) {
    return ycc411_p3<Pk::P555>(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}

// ---- repacking ------------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiRGBToRGB565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return to565(pSrc, srcStep, pDst, dstStep, roi, kRgb);
}
NMQ_EXPORT NmqStatus nmqiBGRToBGR565_8u16u_C3R(const Nmq8u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return to565(pSrc, srcStep, pDst, dstStep, roi, kBgr);
}
NMQ_EXPORT NmqStatus nmqiRGB565ToRGB_16u8u_C3R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from565(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR565ToBGR_16u8u_C3R(const Nmq16u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return from565(pSrc, srcStep, pDst, dstStep, roi);
}

// ---- packed inputs ---------------------------------------------------------------

NMQ_EXPORT NmqStatus nmqiBGR565ToYCrCb420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roi) {
    return bgr16_to_ycrcb420<ycc::Bgr565Img, ycc::Bgr565In>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiBGR555ToYCrCb420_16u8u_C3P3R(const Nmq16u* pSrc, int srcStep, Nmq8u* const pDst[3], const int dstStep[3], ImageSize roi) {
    return bgr16_to_ycrcb420<ycc::Bgr555Img, ycc::Bgr555In>(pSrc, srcStep, pDst, dstStep, roi);
}
