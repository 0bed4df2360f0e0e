// Argument checks and row walks shared by the gamma drivers.
#pragma once

#include "frame/common.h"

namespace nmq::gamma {

// Interleaved forms (C3, AC4, in place or not).
inline NmqStatus check_packed(const void* s, int ss, const void* d, int ds, ImageSize r) {
    if (!s || !d) return nmqStsNullPtr;
    if (bad_size(r)) return nmqStsSize;
    if (ss < 1 || ds < 1) return nmqStsStep;
    return nmqStsOk;
}

// Planar forms: the arrays first, the planes after the ROI, as everywhere in
// the library, then the common step.
template <class S, class D>
inline NmqStatus check_planar(const S* const* s, int ss, D* const* d, int ds, ImageSize r) {
    if (!s || !d) return nmqStsNullPtr;
    if (bad_size(r)) return nmqStsSize;
    if (!s[0] || !s[1] || !s[2] || !d[0] || !d[1] || !d[2]) return nmqStsNullPtr;
    if (ss < 1 || ds < 1) return nmqStsStep;
    return nmqStsOk;
}

// f(source row, destination row) for each row of an interleaved image.
template <class T, class F>
inline void walk_packed(const T* s, int ss, T* d, int ds, ImageSize r, F&& f) {
    for (int y = 0; y < r.height; ++y) f(row_elems(s, ss, y), row_elems(d, ds, y));
}

// f(source row, destination row) for each row of each of the three planes.
template <class T, class F>
inline void walk_planar(const T* const* s, int ss, T* const* d, int ds, ImageSize r, F&& f) {
    for (int y = 0; y < r.height; ++y)
        for (int c = 0; c < 3; ++c) f(row_elems(s[c], ss, y), row_elems(d[c], ds, y));
}

}  // namespace nmq::gamma
