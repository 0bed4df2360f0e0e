// Row kernels of the interlaced 4:2:2 <-> 4:2:0 conversions and of 4:2:2 to
// gray. Every new chroma sample is a weighted mean of two chroma samples of
// the same field:
//     out = (wa * a + (8 - wa) * b + 4) >> 3,   wa in 1..7,
// the heavier sample first. Sums stay below 2^11, so 16-bit lanes hold them
// exactly and the SSE2 forms (interlace_kernels_sse2.cpp) give the bytes of
// the scalar forms below. Counts are in pixel pairs for packed rows and in
// bytes for chroma rows.
#pragma once

#include <cstdint>

#include "nmqcc.h"

namespace nmq {
namespace ilc {

using u8 = Nmq8u;

inline u8 blend8(int a, int b, int wa) { return u8((wa * a + (8 - wa) * b + 4) >> 3); }

// out[i] = blend of a[i] and b[i], i < n (a chroma plane row, or an
// interleaved Cb/Cr row counted in bytes).
inline void blend_row_scalar(const u8* a, const u8* b, u8* out, int n, int wa) {
    for (int i = 0; i < n; ++i) out[i] = blend8(a[i], b[i], wa);
}

// Luma of a packed Y0 Cb Y1 Cr row.
inline void luma422_scalar(const u8* s, u8* y, int pairs) {
    for (int i = 0; i < pairs; ++i) {
        y[2 * i] = s[4 * i];
        y[2 * i + 1] = s[4 * i + 2];
    }
}

// Chroma of two packed Y0 Cb Y1 Cr rows, blended, into a Cb row and a Cr row.
inline void blend_split422_scalar(const u8* a, const u8* b, u8* cb, u8* cr, int pairs, int wa) {
    for (int i = 0; i < pairs; ++i) {
        cb[i] = blend8(a[4 * i + 1], b[4 * i + 1], wa);
        cr[i] = blend8(a[4 * i + 3], b[4 * i + 3], wa);
    }
}

// A luma row and the blend of two Cb rows and of two Cr rows into a packed
// Y0 Cb Y1 Cr row.
inline void blend_join_scalar(const u8* y, const u8* cba, const u8* cbb, const u8* cra, const u8* crb, u8* d,
                              int pairs, int wa) {
    for (int i = 0; i < pairs; ++i) {
        d[4 * i] = y[2 * i];
        d[4 * i + 1] = blend8(cba[i], cbb[i], wa);
        d[4 * i + 2] = y[2 * i + 1];
        d[4 * i + 3] = blend8(cra[i], crb[i], wa);
    }
}

// A luma row and the blend of two interleaved chroma rows (Cb at even bytes)
// into a packed Y0 Cb Y1 Cr row.
inline void blend_join_p2_scalar(const u8* y, const u8* ca, const u8* cb, u8* d, int pairs, int wa) {
    for (int i = 0; i < pairs; ++i) {
        d[4 * i] = y[2 * i];
        d[4 * i + 1] = blend8(ca[2 * i], cb[2 * i], wa);
        d[4 * i + 2] = y[2 * i + 1];
        d[4 * i + 3] = blend8(ca[2 * i + 1], cb[2 * i + 1], wa);
    }
}

// The blend of two interleaved chroma rows split into a Cb row and a Cr row.
inline void blend_split_p2_scalar(const u8* ca, const u8* cb, u8* dcb, u8* dcr, int pairs, int wa) {
    for (int i = 0; i < pairs; ++i) {
        dcb[i] = blend8(ca[2 * i], cb[2 * i], wa);
        dcr[i] = blend8(ca[2 * i + 1], cb[2 * i + 1], wa);
    }
}

using BlendRowFn = void (*)(const u8*, const u8*, u8*, int, int);
using LumaFn = void (*)(const u8*, u8*, int);
using BlendSplit422Fn = void (*)(const u8*, const u8*, u8*, u8*, int, int);
using BlendJoinFn = void (*)(const u8*, const u8*, const u8*, const u8*, const u8*, u8*, int, int);
using BlendJoinP2Fn = void (*)(const u8*, const u8*, const u8*, u8*, int, int);
using BlendSplitP2Fn = void (*)(const u8*, const u8*, u8*, u8*, int, int);

void blend_row_sse2(const u8* a, const u8* b, u8* out, int n, int wa);
void luma422_sse2(const u8* s, u8* y, int pairs);
void blend_split422_sse2(const u8* a, const u8* b, u8* cb, u8* cr, int pairs, int wa);
void blend_join_sse2(const u8* y, const u8* cba, const u8* cbb, const u8* cra, const u8* crb, u8* d, int pairs,
                     int wa);
void blend_join_p2_sse2(const u8* y, const u8* ca, const u8* cb, u8* d, int pairs, int wa);
void blend_split_p2_sse2(const u8* ca, const u8* cb, u8* dcb, u8* dcr, int pairs, int wa);

}  // namespace ilc
}  // namespace nmq
