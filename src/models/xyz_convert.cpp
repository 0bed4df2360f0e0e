// XYZ exports: pointer and size checks, then one row kernel per row
// (the row drivers myRGBToXYZ / myXYZToRGB of each type).
#include "frame/common.h"
#include "frame/dispatch.h"
#include "models/xyz_kernels.h"

using namespace nmq;
using namespace nmq::xyz;

namespace {

// Rows of 16- and 32-bit images are addressed with steps truncated to elements.
template <class T, class Row>
NmqStatus xyz_rows(const T* src, int srcStep, T* dst, int dstStep, ImageSize roi, Row row) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    for_rows(roi.height, [&](int y) {
        if constexpr (sizeof(T) == 1) row(row_at(src, srcStep, y), row_at(dst, dstStep, y), roi.width);
        else row(row_elems(src, srcStep, y), row_elems(dst, dstStep, y), roi.width);
    });
    return nmqStsOk;
}

template <int S>
NmqStatus myRGBToXYZ_8u_C3R(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    return xyz_rows(src, srcStep, dst, dstStep, roi,
                    pick(Kernels<Row8u>{innerRGBToXYZ_8u_C3R<S>, innerRGBToXYZ_8u_C3R_sse2<S>,
                                        S == 3 ? innerRGBToXYZ_8u_C3R_avx2 : nullptr}));
}
template <int S>
NmqStatus myXYZToRGB_8u_C3R(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi) {
    return xyz_rows(src, srcStep, dst, dstStep, roi,
                    pick(Kernels<Row8u>{innerXYZToRGB_8u_C3R<S>, innerXYZToRGB_8u_C3R_sse2<S>,
                                        S == 3 ? innerXYZToRGB_8u_C3R_avx2 : nullptr}));
}

// Destinations of more than 8 MB, beyond the per-core caches, are written
// with non-temporal stores: it saves reading them in before writing, which
// is a third of the memory traffic of a 32f conversion. The bytes are the same.
inline bool streamed(ImageSize roi) { return double(roi.width) * double(roi.height) * 12.0 > 8e6; }

template <int S>
NmqStatus myRGBToXYZ_32f_C3R(const Nmq32f* src, int srcStep, Nmq32f* dst, int dstStep, ImageSize roi) {
    const Row32f avx2 = S != 3 ? nullptr : streamed(roi) ? innerRGBToXYZ_32f_C3R_avx2_nt : innerRGBToXYZ_32f_C3R_avx2;
    return xyz_rows(src, srcStep, dst, dstStep, roi,
                    pick(Kernels<Row32f>{innerRGBToXYZ_32f_C3R<S>, innerRGBToXYZ_32f_C3R_sse2<S>, avx2}));
}
template <int S>
NmqStatus myXYZToRGB_32f_C3R(const Nmq32f* src, int srcStep, Nmq32f* dst, int dstStep, ImageSize roi) {
    const Row32f avx2 = S != 3 ? nullptr : streamed(roi) ? innerXYZToRGB_32f_C3R_avx2_nt : innerXYZToRGB_32f_C3R_avx2;
    return xyz_rows(src, srcStep, dst, dstStep, roi,
                    pick(Kernels<Row32f>{innerXYZToRGB_32f_C3R<S>, innerXYZToRGB_32f_C3R_sse2<S>, avx2}));
}

}  // namespace

NMQ_EXPORT NmqStatus nmqiRGBToXYZ_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myRGBToXYZ_8u_C3R<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myRGBToXYZ_8u_C3R<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_8u_C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myXYZToRGB_8u_C3R<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_8u_AC4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myXYZToRGB_8u_C3R<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return myRGBToXYZ_32f_C3R<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return myRGBToXYZ_32f_C3R<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_32f_C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return myXYZToRGB_32f_C3R<3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_32f_AC4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return myXYZToRGB_32f_C3R<4>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerRGBToXYZ_16_C3R<Nmq16u, 3>);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerRGBToXYZ_16_C3R<Nmq16u, 4>);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_16u_C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerXYZToRGB_16_C3R<Nmq16u, 3>);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_16u_AC4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerXYZToRGB_16_C3R<Nmq16u, 4>);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerRGBToXYZ_16_C3R<Nmq16s, 3>);
}
NMQ_EXPORT NmqStatus nmqiRGBToXYZ_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerRGBToXYZ_16_C3R<Nmq16s, 4>);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_16s_C3R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerXYZToRGB_16_C3R<Nmq16s, 3>);
}
NMQ_EXPORT NmqStatus nmqiXYZToRGB_16s_AC4R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return xyz_rows(pSrc, srcStep, pDst, dstStep, roi, innerXYZToRGB_16_C3R<Nmq16s, 4>);
}
