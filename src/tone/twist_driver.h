// Argument checks shared by the colour-twist drivers: pointers (the matrix and,
// for planar forms, every plane included) first, then the ROI, then steps.
#pragma once

#include "frame/common.h"

namespace nmq::twist {

inline NmqStatus check_packed(const void* s, int ss, const void* d, int ds, ImageSize r, const void* t) {
    if (!s || !d || !t) return nmqStsNullPtr;
    if (bad_size(r)) return nmqStsSize;
    if (ss < 1 || ds < 1) return nmqStsStep;
    return nmqStsOk;
}

template <class S, class D>
inline NmqStatus check_planar(const S* const* s, int ss, D* const* d, int ds, ImageSize r, const void* t) {
    if (!s || !d || !t) return nmqStsNullPtr;
    if (!s[0] || !s[1] || !s[2] || !d[0] || !d[1] || !d[2]) return nmqStsNullPtr;
    if (bad_size(r)) return nmqStsSize;
    if (ss < 1 || ds < 1) return nmqStsStep;
    return nmqStsOk;
}

// Row pointers of the three planes at row y.
template <class T>
struct PlaneRows {
    T* p[3];
    PlaneRows(T* const* base, int step, int y) {
        for (int c = 0; c < 3; ++c) p[c] = row_elems(base[c], step, y);
    }
};

}  // namespace nmq::twist
