// Row kernels that compute new chroma samples: the 4-tap vertical filter of
// the 4:2:0 -> 4:2:2 `_Filter` conversions and the averages of the four
// short-named plane conversions (1620 <-> 420, 411 <-> 420).
//
// The plane conversions round their averages in two ways, and which one a
// sample gets depends on its column: samples inside the 16-byte blocks of the
// vector loop round half up, (a + b + 1) >> 1; the samples after the last
// block truncate, (a + b) >> 1. The block boundaries are therefore part of
// the result, and the scalar forms below reproduce them so that every build
// gives the same bytes.
#pragma once

#include <cstdint>

#include "frame/dispatch.h"
#include "sampling/sampling_kernels.h"

namespace nmq {
namespace smp {

// ---- 4-tap filter --------------------------------------------------------------

// (-a + 9b + 9c - d + 8) >> 4 clamped to 0..255. The sum is kept in signed
// 16 bits like the vector lanes (it cannot leave -510..4598).
inline u8 filter4(int a, int b, int c, int d) {
    const int16_t t = int16_t(9 * (b + c) - (a + d) + 8);
    const int v = t >> 4;
    return u8(v < 0 ? 0 : v > 255 ? 255 : v);
}

// One interpolated chroma row from rows a, b, c, d (k-1, k, k+1, k+2).
inline void filter_row_scalar(const u8* a, const u8* b, const u8* c, const u8* d, u8* out, int n) {
    for (int x = 0; x < n; ++x) out[x] = filter4(a[x], b[x], c[x], d[x]);
}

// The same from interleaved Cb/Cr rows (n pairs), written as two planes.
inline void filter_split_row_scalar(const u8* a, const u8* b, const u8* c, const u8* d, u8* cb, u8* cr, int n) {
    for (int x = 0; x < n; ++x) {
        cb[x] = filter4(a[2 * x], b[2 * x], c[2 * x], d[2 * x]);
        cr[x] = filter4(a[2 * x + 1], b[2 * x + 1], c[2 * x + 1], d[2 * x + 1]);
    }
}

// ---- block boundaries ------------------------------------------------------------

// Source samples of a row of m that 1620 -> 420 takes in vector blocks: 32 at
// a time while more than 32 remain, then 16 at a time while more than 16 remain.
inline int vector_part_1620(int m) {
    int i = 0;
    while (m - i > 32) i += 32;
    while (m - i > 16) i += 16;
    return i;
}

// The same for 411 -> 420: 64 at a time while more than 64 remain, then 16.
inline int vector_part_411(int m) {
    int i = 0;
    while (m - i > 64) i += 64;
    while (m - i > 16) i += 16;
    return i;
}

// Destination samples of a row of d that 420 -> 411 averages in 32-sample
// blocks (rounding up); the 8-sample blocks and single samples after them truncate.
inline int vector_part_420to411(int d) { return d / 32 * 32; }

// ---- horizontal expansion (1620 -> 420 and 411 -> 420) ------------------------

inline int avg_up(int a, int b) { return (a + b + 1) >> 1; }
inline int avg_down(int a, int b) { return (a + b) >> 1; }

// out[2i] = s[i], out[2i+1] = avg(s[i], s[i+1]) rounding up for i < v and
// truncating after; the last sample is repeated.
inline void expand_h(const u8* s, u8* out, int m, int v) {
    int i = 0;
    for (; i < v; ++i) {
        out[2 * i] = s[i];
        out[2 * i + 1] = u8(avg_up(s[i], s[i + 1]));
    }
    for (; i + 1 < m; ++i) {
        out[2 * i] = s[i];
        out[2 * i + 1] = u8(avg_down(s[i], s[i + 1]));
    }
    out[2 * m - 2] = out[2 * m - 1] = s[m - 1];
}

// Row between the expansions of s and t: the average of H(s) and H(t). In the
// vector part both levels round up; after it the even column is (s + t) >> 1
// and the odd column averages the two truncated pair means, truncating again.
inline void expand_hv(const u8* s, const u8* t, u8* out, int m, int v) {
    int i = 0;
    for (; i < v; ++i) {
        out[2 * i] = u8(avg_up(s[i], t[i]));
        out[2 * i + 1] = u8(avg_up(avg_up(s[i], s[i + 1]), avg_up(t[i], t[i + 1])));
    }
    for (; i + 1 < m; ++i) {
        out[2 * i] = u8(avg_down(s[i], t[i]));
        out[2 * i + 1] = u8(avg_down(avg_down(t[i], t[i + 1]), avg_down(s[i], s[i + 1])));
    }
    out[2 * m - 2] = out[2 * m - 1] = u8(avg_down(s[m - 1], t[m - 1]));
}

inline void expand1620_row_scalar(const u8* s, u8* out, int m) { expand_h(s, out, m, vector_part_1620(m)); }
inline void expand1620_mid_scalar(const u8* s, const u8* t, u8* out, int m) {
    expand_hv(s, t, out, m, vector_part_1620(m));
}
inline void expand411_row_scalar(const u8* s, u8* out, int m) { expand_h(s, out, m, vector_part_411(m)); }

// ---- 420 -> 411 -----------------------------------------------------------------

// out[j] = avg(a[2j], b[2j]) for j < d: rounding up in the 32-sample blocks,
// truncating after them.
inline void avg_even_scalar(const u8* a, const u8* b, u8* out, int d) {
    const int v = vector_part_420to411(d);
    int j = 0;
    for (; j < v; ++j) out[j] = u8(avg_up(a[2 * j], b[2 * j]));
    for (; j < d; ++j) out[j] = u8(avg_down(a[2 * j], b[2 * j]));
}

// ---- SSE2 forms and choice ----------------------------------------------------------

void filter_row_sse2(const u8* a, const u8* b, const u8* c, const u8* d, u8* out, int n);
void filter_split_row_sse2(const u8* a, const u8* b, const u8* c, const u8* d, u8* cb, u8* cr, int n);
void expand1620_row_sse2(const u8* s, u8* out, int m);
void expand1620_mid_sse2(const u8* s, const u8* t, u8* out, int m);
void expand411_row_sse2(const u8* s, u8* out, int m);
void avg_even_sse2(const u8* a, const u8* b, u8* out, int d);

using FilterFn = void (*)(const u8*, const u8*, const u8*, const u8*, u8*, int);
using FilterSplitFn = void (*)(const u8*, const u8*, const u8*, const u8*, u8*, u8*, int);
using ExpandFn = void (*)(const u8*, u8*, int);
using ExpandMidFn = void (*)(const u8*, const u8*, u8*, int);

inline FilterFn filter_kernel() { return pick<FilterFn>(filter_row_scalar, filter_row_sse2); }
inline FilterSplitFn filter_split_kernel() { return pick<FilterSplitFn>(filter_split_row_scalar, filter_split_row_sse2); }
inline ExpandFn expand1620_kernel() { return pick<ExpandFn>(expand1620_row_scalar, expand1620_row_sse2); }
inline ExpandMidFn expand1620_mid_kernel() { return pick<ExpandMidFn>(expand1620_mid_scalar, expand1620_mid_sse2); }
inline ExpandFn expand411_kernel() { return pick<ExpandFn>(expand411_row_scalar, expand411_row_sse2); }
inline ExpandMidFn avg_even_kernel() { return pick<ExpandMidFn>(avg_even_scalar, avg_even_sse2); }

}  // namespace smp
}  // namespace nmq
