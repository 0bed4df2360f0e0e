// Driver helpers of the sampling conversions: the size rounding, plane
// records (with the Cr-first exchange done by addressing) and the row walks
// shared by several exports. Kernels are chosen on every call.
#pragma once

#include "frame/common.h"
#include "sampling/sampling_kernels.h"

namespace nmq {
namespace smp {

inline int round2(int v) { return v & ~1; }
inline int round4(int v) { return v & ~3; }
inline int round8(int v) { return v & ~7; }

template <class T>
inline bool null3(const T* const p[3]) { return !p[0] || !p[1] || !p[2]; }

// One plane: first ROI byte and step.
template <class T>
struct Plane {
    T* p;
    int step;
    T* row(ptrdiff_t y) const { return row_at(p, step, y); }
};
using In = Plane<const u8>;
using Out = Plane<u8>;

// The planes of a three-plane image in Y, Cb, Cr order. `crFirst` exchanges
// the two chroma pointers (and steps) for images that store Cr before Cb.
template <class T>
struct Planes3 {
    Plane<T> y, cb, cr;
};
inline Planes3<const u8> in3(const u8* const p[3], const int s[3], bool crFirst = false) {
    const int b = crFirst ? 2 : 1, r = crFirst ? 1 : 2;
    return {{p[0], s[0]}, {p[b], s[b]}, {p[r], s[r]}};
}
inline Planes3<u8> out3(u8* const p[3], const int s[3], bool crFirst = false) {
    const int b = crFirst ? 2 : 1, r = crFirst ? 1 : 2;
    return {{p[0], s[0]}, {p[b], s[b]}, {p[r], s[r]}};
}

// Luma rows copied with ownccCopy_8u_C1 (streaming as the caller says).
inline void copy_luma(In s, Out d, int w, int h, bool streaming = false) {
    const CopyFn copy = copy_kernel();
    for (int y = 0; y < h; ++y) copy(s.row(y), d.row(y), w, streaming);
}

// Packed rows to three planes; chroma comes from rows 0, 2, 4, ... when
// `vstep` is 2 (the other rows give luma only), from every row when it is 1.
template <class O>
inline void packed_to_planes(In s, Planes3<u8> d, int w, int h, int vstep, SplitFn split) {
    const LumaFn luma = luma_kernel<O>();
    for (int y = 0; y < h; ++y) {
        if (y % vstep == 0)
            split(s.row(y), d.y.row(y), d.cb.row(y / vstep), d.cr.row(y / vstep), w / 2);
        else
            luma(s.row(y), d.y.row(y), w / 2);
    }
}

// Packed rows to luma and an interleaved chroma plane, chroma as above.
template <class O>
inline void packed_to_p2(In s, Out y, Out c, int w, int h, int vstep, SplitP2Fn split) {
    const LumaFn luma = luma_kernel<O>();
    for (int r = 0; r < h; ++r) {
        if (r % vstep == 0)
            split(s.row(r), y.row(r), c.row(r / vstep), w / 2);
        else
            luma(s.row(r), y.row(r), w / 2);
    }
}

// Three planes to packed rows; row y takes chroma row y >> vshift.
inline void planes_to_packed(Planes3<const u8> s, Out d, int w, int h, int vshift, JoinFn join) {
    for (int y = 0; y < h; ++y)
        join(s.y.row(y), s.cb.row(y >> vshift), s.cr.row(y >> vshift), d.row(y), w / 2);
}

// Luma and interleaved chroma planes to packed rows; chroma row y >> vshift.
inline void p2_to_packed(In sy, In sc, Out d, int w, int h, int vshift, JoinP2Fn join) {
    for (int y = 0; y < h; ++y) join(sy.row(y), sc.row(y >> vshift), d.row(y), w / 2);
}

}  // namespace smp
}  // namespace nmq
