// Gray exports: argument checks, weight conversion once per call, then one
// row kernel per row.
#include <cstring>

#include "frame/common.h"
#include "frame/dispatch.h"
#include "models/gray_kernels.h"

using namespace nmq;
using namespace nmq::gray;

namespace {

// 8u weights of a call: the caller's converted, or the fixed ones for null.
Weights8u weights_8u(const Nmq32f* c) {
    return c ? Weights8u{weight_8u(c[0]), weight_8u(c[1]), weight_8u(c[2])} : kFixed8u;
}
Weights32f weights_32f(const Nmq32f* c) { return c ? Weights32f{c[0], c[1], c[2]} : kFixed32f; }
Weights64f weights_64f(const Nmq64f* c) { return c ? Weights64f{c[0], c[1], c[2]} : kFixed64f; }

template <int S>
NmqStatus myRGBToGray_8u_C3C1R(const Nmq8u* src, int srcStep, Nmq8u* dst, int dstStep, ImageSize roi,
                               const Nmq32f* coeffs) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Weights8u w = weights_8u(coeffs);
    const Gray8uRow row = pick(Kernels<Gray8uRow>{innerRGBToGray_8u_C3C1R<S>, innerRGBToGray_8u_C3C1R_sse2<S>,
                                                  S == 3 ? innerRGBToGray_8u_C3C1R_avx2 : nullptr, nullptr, nullptr,
                                                  S == 3 ? innerRGBToGray_8u_C3C1R_avx512 : nullptr});
    for_rows(roi.height, [&](int y) { row(row_at(src, srcStep, y), row_at(dst, dstStep, y), roi.width, w); });
    return nmqStsOk;
}

// 16u, 16s and 32f: steps truncated to whole elements.
template <class T, class Row>
NmqStatus gray_rows(const T* src, int srcStep, T* dst, int dstStep, ImageSize roi, const Nmq32f* coeffs, Row row) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Weights32f w = weights_32f(coeffs);
    for_rows(roi.height, [&](int y) { row(row_elems(src, srcStep, y), row_elems(dst, dstStep, y), roi.width, w); });
    return nmqStsOk;
}

// 64f rows are addressed in bytes.
template <int S>
NmqStatus ownColorToGray_64f(const Nmq64f* src, int srcStep, Nmq64f* dst, int dstStep, ImageSize roi,
                             const Nmq64f* coeffs) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    const Weights64f w = weights_64f(coeffs);
    for_rows(roi.height, [&](int y) {
        innerColorToGray_64f_C3C1R<S>(row_at(src, srcStep, y), row_at(dst, dstStep, y), roi.width, w);
    });
    return nmqStsOk;
}

// Gray to colour; T carries the element's bits.
template <class T, int C, class E>
NmqStatus gray_to_color(const E* src, int srcStep, E* dst, int dstStep, ImageSize roi, T alpha = T()) {
    if (any_null(src, dst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    for_rows(roi.height, [&](int y) {
        gray_to_color_row<T, C>(reinterpret_cast<const uint8_t*>(row_elems(src, srcStep, y)),
                                reinterpret_cast<uint8_t*>(row_elems(dst, dstStep, y)), roi.width, alpha);
    });
    return nmqStsOk;
}

}  // namespace

// ---- fixed weights ------------------------------------------------------------
NMQ_EXPORT NmqStatus nmqiRGBToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myRGBToGray_8u_C3C1R<3>(pSrc, srcStep, pDst, dstStep, roi, nullptr);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return myRGBToGray_8u_C3C1R<4>(pSrc, srcStep, pDst, dstStep, roi, nullptr);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_16u_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_16u_C3C1R<4>);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_16s_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_16s_C3C1R<4>);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_32f_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiRGBToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, nullptr, innerRGBToGray_32f_C3C1R<4>);
}

// ---- caller weights (null: the fixed ones) ---------------------------------------
NMQ_EXPORT NmqStatus nmqiColorToGray_8u_C3C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
                                              const Nmq32f coeffs[3]) {
    return myRGBToGray_8u_C3C1R<3>(pSrc, srcStep, pDst, dstStep, roi, coeffs);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_8u_AC4C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
                                               const Nmq32f coeffs[3]) {
    return myRGBToGray_8u_C3C1R<4>(pSrc, srcStep, pDst, dstStep, roi, coeffs);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_16u_C3C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                               ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_16u_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_16u_AC4C1R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep,
                                                ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_16u_C3C1R<4>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_16s_C3C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                               ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_16s_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_16s_AC4C1R(const Nmq16s* pSrc, int srcStep, Nmq16s* pDst, int dstStep,
                                                ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_16s_C3C1R<4>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_32f_C3C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                               ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_32f_C3C1R<3>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_32f_AC4C1R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep,
                                                ImageSize roi, const Nmq32f coeffs[3]) {
    return gray_rows(pSrc, srcStep, pDst, dstStep, roi, coeffs, innerRGBToGray_32f_C3C1R<4>);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_64f_C3C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                               ImageSize roi, const Nmq64f coeffs[3]) {
    return ownColorToGray_64f<3>(pSrc, srcStep, pDst, dstStep, roi, coeffs);
}
NMQ_EXPORT NmqStatus nmqiColorToGray_64f_AC4C1R(const Nmq64f* pSrc, int srcStep, Nmq64f* pDst, int dstStep,
                                                ImageSize roi, const Nmq64f coeffs[3]) {
    return ownColorToGray_64f<4>(pSrc, srcStep, pDst, dstStep, roi, coeffs);
}

// ---- gray to colour -------------------------------------------------------------
NMQ_EXPORT NmqStatus nmqiGrayToRGB_8u_C1C3R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi) {
    return gray_to_color<uint8_t, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiGrayToRGB_16u_C1C3R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi) {
    return gray_to_color<uint16_t, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiGrayToRGB_32f_C1C3R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi) {
    return gray_to_color<uint32_t, 3>(pSrc, srcStep, pDst, dstStep, roi);
}
NMQ_EXPORT NmqStatus nmqiGrayToRGB_8u_C1C4R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep, ImageSize roi,
                                            Nmq8u aval) {
    return gray_to_color<uint8_t, 4>(pSrc, srcStep, pDst, dstStep, roi, aval);
}
NMQ_EXPORT NmqStatus nmqiGrayToRGB_16u_C1C4R(const Nmq16u* pSrc, int srcStep, Nmq16u* pDst, int dstStep, ImageSize roi,
                                             Nmq16u aval) {
    return gray_to_color<uint16_t, 4>(pSrc, srcStep, pDst, dstStep, roi, aval);
}
NMQ_EXPORT NmqStatus nmqiGrayToRGB_32f_C1C4R(const Nmq32f* pSrc, int srcStep, Nmq32f* pDst, int dstStep, ImageSize roi,
                                             Nmq32f aval) {
    uint32_t bits;
    std::memcpy(&bits, &aval, sizeof bits);
    return gray_to_color<uint32_t, 4>(pSrc, srcStep, pDst, dstStep, roi, bits);
}
