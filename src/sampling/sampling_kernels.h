// Row kernels of the sampling conversions: luma copy, packed 4:2:2 split and
// join, chroma interleave/deinterleave, selection and duplication. None of
// them computes a new sample value; they only move bytes. The scalar forms
// below define the bytes, the SSE2 forms (sampling_kernels_sse2.cpp) give the
// same bytes faster. Counts are in pixel pairs for the packed kernels and in
// output samples (or sample pairs, as said) for the chroma kernels.
#pragma once

#include <cstdint>
#include <cstring>

#include "frame/dispatch.h"
#include "nmqcc.h"

namespace nmq {
namespace smp {

using u8 = Nmq8u;

// Byte positions inside one 4-byte group of a packed 4:2:2 row.
struct OrdYCbCr { static constexpr int y0 = 0, cb = 1, y1 = 2, cr = 3; };
struct OrdCbYCr { static constexpr int y0 = 1, cb = 0, y1 = 3, cr = 2; };
struct OrdYCrCb { static constexpr int y0 = 0, cb = 3, y1 = 2, cr = 1; };

// ---- luma copy ---------------------------------------------------------------

// Copies one row. The vector form is ownccCopy_8u_C1: one unaligned 16-byte
// move, then aligned 16-byte stores (non-temporal when `streaming` is set and
// the addresses do not alias in the cache), then an overlapping last move.
using CopyFn = void (*)(const u8* s, u8* d, int n, bool streaming);
inline void copy_row_scalar(const u8* s, u8* d, int n, bool) { std::memcpy(d, s, size_t(n)); }
void ownccCopy_8u_C1(const u8* s, u8* d, int n, bool streaming);
// Streaming is not used when the destination lies 16 to 320 bytes above the
// source modulo 64 KiB, (src - dst) mod 65536 in [65216, 65520]: there the
// streamed lines and the lines still being read share cache sets.
inline bool copy_aliases(const void* s, const void* d) {
    const unsigned diff = unsigned((reinterpret_cast<uintptr_t>(s) - reinterpret_cast<uintptr_t>(d)) & 0xFFFFu);
    return diff >= 65216u && diff <= 65520u;
}

// ---- packed 4:2:2 rows -----------------------------------------------------

// Packed row of `pairs` groups into a luma row and two chroma rows.
template <class O>
inline void Split422_8u_scalar(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    for (int i = 0; i < pairs; ++i, s += 4) {
        y[2 * i] = s[O::y0];
        y[2 * i + 1] = s[O::y1];
        cb[i] = s[O::cb];
        cr[i] = s[O::cr];
    }
}

// Luma only (rows whose chroma is dropped).
template <class O>
inline void luma422_scalar(const u8* s, u8* y, int pairs) {
    for (int i = 0; i < pairs; ++i, s += 4) {
        y[2 * i] = s[O::y0];
        y[2 * i + 1] = s[O::y1];
    }
}

// Luma row and one interleaved chroma row (Cb at even bytes).
template <class O>
inline void split422_p2_scalar(const u8* s, u8* y, u8* c, int pairs) {
    for (int i = 0; i < pairs; ++i, s += 4) {
        y[2 * i] = s[O::y0];
        y[2 * i + 1] = s[O::y1];
        c[2 * i] = s[O::cb];
        c[2 * i + 1] = s[O::cr];
    }
}

// Luma row and the chroma of every other group (4:1:1); `pairs` is even.
template <class O>
inline void split422_dec_scalar(const u8* s, u8* y, u8* cb, u8* cr, int pairs) {
    for (int i = 0; i < pairs; ++i) {
        y[2 * i] = s[4 * i + O::y0];
        y[2 * i + 1] = s[4 * i + O::y1];
    }
    for (int j = 0; j < pairs / 2; ++j) {
        cb[j] = s[8 * j + O::cb];
        cr[j] = s[8 * j + O::cr];
    }
}

// As above with the 4:1:1 chroma interleaved (Cb at even bytes).
template <class O>
inline void split422_dec_p2_scalar(const u8* s, u8* y, u8* c, int pairs) {
    for (int i = 0; i < pairs; ++i) {
        y[2 * i] = s[4 * i + O::y0];
        y[2 * i + 1] = s[4 * i + O::y1];
    }
    for (int j = 0; j < pairs / 2; ++j) {
        c[2 * j] = s[8 * j + O::cb];
        c[2 * j + 1] = s[8 * j + O::cr];
    }
}

// Luma row and two chroma rows into a packed row.
template <class O>
inline void Join422_8u_scalar(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, d += 4) {
        d[O::y0] = y[2 * i];
        d[O::y1] = y[2 * i + 1];
        d[O::cb] = cb[i];
        d[O::cr] = cr[i];
    }
}

// Luma row and an interleaved chroma row into a packed row.
template <class O>
inline void join422_p2_scalar(const u8* y, const u8* c, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, d += 4) {
        d[O::y0] = y[2 * i];
        d[O::y1] = y[2 * i + 1];
        d[O::cb] = c[2 * i];
        d[O::cr] = c[2 * i + 1];
    }
}

// 4:1:1 planes into a packed row: each chroma sample serves two groups.
template <class O>
inline void join422_dup_scalar(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, d += 4) {
        d[O::y0] = y[2 * i];
        d[O::y1] = y[2 * i + 1];
        d[O::cb] = cb[i / 2];
        d[O::cr] = cr[i / 2];
    }
}

// 4:1:1 interleaved chroma into a packed row.
template <class O>
inline void join422_p2dup_scalar(const u8* y, const u8* c, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, d += 4) {
        d[O::y0] = y[2 * i];
        d[O::y1] = y[2 * i + 1];
        d[O::cb] = c[2 * (i / 2)];
        d[O::cr] = c[2 * (i / 2) + 1];
    }
}

// Y0 Cb Y1 Cr <-> Y0 Cr Y1 Cb: bytes 1 and 3 of each group exchanged.
inline void swap13_scalar(const u8* s, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, s += 4, d += 4) {
        const u8 a = s[0], b = s[1], c = s[2], e = s[3];
        d[0] = a; d[1] = e; d[2] = c; d[3] = b;
    }
}

// Y0 Cb Y1 Cr <-> Cb Y0 Cr Y1: both directions exchange neighbouring bytes.
inline void swap_adjacent_scalar(const u8* s, u8* d, int pairs) {
    for (int i = 0; i < pairs; ++i, s += 4, d += 4) {
        const u8 a = s[0], b = s[1], c = s[2], e = s[3];
        d[0] = b; d[1] = a; d[2] = e; d[3] = c;
    }
}

// ---- chroma rows -------------------------------------------------------------

// out[2i] = a[i], out[2i+1] = b[i], i < n.
inline void interleave_scalar(const u8* a, const u8* b, u8* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[2 * i] = a[i];
        out[2 * i + 1] = b[i];
    }
}

// a[i] = in[2i], b[i] = in[2i+1], i < n.
inline void deinterleave_scalar(const u8* in, u8* a, u8* b, int n) {
    for (int i = 0; i < n; ++i) {
        a[i] = in[2 * i];
        b[i] = in[2 * i + 1];
    }
}

// out[i] = in[2i], i < n (odd samples dropped).
inline void decimate_scalar(const u8* in, u8* out, int n) {
    for (int i = 0; i < n; ++i) out[i] = in[2 * i];
}

// out[2i] = out[2i+1] = in[i], i < n.
inline void duplicate_scalar(const u8* in, u8* out, int n) {
    for (int i = 0; i < n; ++i) out[2 * i] = out[2 * i + 1] = in[i];
}

// out[2i] = a[2i+p], out[2i+1] = b[2i+p], i < n, p = parity (0 or 1): the even
// or odd samples of two chroma rows, interleaved.
inline void interleave_pick_scalar(const u8* a, const u8* b, u8* out, int n, int p) {
    for (int i = 0; i < n; ++i) {
        out[2 * i] = a[2 * i + p];
        out[2 * i + 1] = b[2 * i + p];
    }
}

// a[i] = in[4i+2p], b[i] = in[4i+2p+1], i < n: the even (p = 0) or odd (p = 1)
// pairs of an interleaved chroma row, split.
inline void deinterleave_pick_scalar(const u8* in, u8* a, u8* b, int n, int p) {
    for (int i = 0; i < n; ++i) {
        a[i] = in[4 * i + 2 * p];
        b[i] = in[4 * i + 2 * p + 1];
    }
}

// a[2i] = a[2i+1] = in[2i], b[2i] = b[2i+1] = in[2i+1], i < n pairs.
inline void deinterleave_dup_scalar(const u8* in, u8* a, u8* b, int n) {
    for (int i = 0; i < n; ++i) {
        a[2 * i] = a[2 * i + 1] = in[2 * i];
        b[2 * i] = b[2 * i + 1] = in[2 * i + 1];
    }
}

// out[4i..4i+3] = a0[i], b0[i], a1[i], b1[i], i < n.
inline void zip4_scalar(const u8* a0, const u8* b0, const u8* a1, const u8* b1, u8* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[4 * i] = a0[i];
        out[4 * i + 1] = b0[i];
        out[4 * i + 2] = a1[i];
        out[4 * i + 3] = b1[i];
    }
}

// From two interleaved rows s0, s1 (n pairs each): a[2i] = s0[2i], a[2i+1] =
// s1[2i], b[2i] = s0[2i+1], b[2i+1] = s1[2i+1].
inline void unzip_pairs_scalar(const u8* s0, const u8* s1, u8* a, u8* b, int n) {
    for (int i = 0; i < n; ++i) {
        a[2 * i] = s0[2 * i];
        a[2 * i + 1] = s1[2 * i];
        b[2 * i] = s0[2 * i + 1];
        b[2 * i + 1] = s1[2 * i + 1];
    }
}

// ---- SSE2 forms ----------------------------------------------------------------

template <class O> void Split422_8u_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs);
// Same bytes; source, source step, luma plane and luma step 16-byte aligned, pairs a multiple of 8.
template <class O> void Split422_8u_a16_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs);
template <class O> void luma422_sse2(const u8* s, u8* y, int pairs);
template <class O> void split422_p2_sse2(const u8* s, u8* y, u8* c, int pairs);
template <class O> void split422_dec_sse2(const u8* s, u8* y, u8* cb, u8* cr, int pairs);
template <class O> void split422_dec_p2_sse2(const u8* s, u8* y, u8* c, int pairs);
template <class O> void Join422_8u_sse2(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs);
template <class O> void join422_p2_sse2(const u8* y, const u8* c, u8* d, int pairs);
template <class O> void join422_dup_sse2(const u8* y, const u8* cb, const u8* cr, u8* d, int pairs);
template <class O> void join422_p2dup_sse2(const u8* y, const u8* c, u8* d, int pairs);
void swap13_sse2(const u8* s, u8* d, int pairs);
void swap_adjacent_sse2(const u8* s, u8* d, int pairs);
void interleave_sse2(const u8* a, const u8* b, u8* out, int n);
void deinterleave_sse2(const u8* in, u8* a, u8* b, int n);
void decimate_sse2(const u8* in, u8* out, int n);
void duplicate_sse2(const u8* in, u8* out, int n);
void interleave_pick_sse2(const u8* a, const u8* b, u8* out, int n, int p);
void deinterleave_pick_sse2(const u8* in, u8* a, u8* b, int n, int p);
void deinterleave_dup_sse2(const u8* in, u8* a, u8* b, int n);
void zip4_sse2(const u8* a0, const u8* b0, const u8* a1, const u8* b1, u8* out, int n);
void unzip_pairs_sse2(const u8* s0, const u8* s1, u8* a, u8* b, int n);

// ---- kernel choice -----------------------------------------------------------

using SplitFn = void (*)(const u8*, u8*, u8*, u8*, int);
using LumaFn = void (*)(const u8*, u8*, int);
using SplitP2Fn = void (*)(const u8*, u8*, u8*, int);
using JoinFn = void (*)(const u8*, const u8*, const u8*, u8*, int);
using JoinP2Fn = void (*)(const u8*, const u8*, u8*, int);
using ReorderFn = void (*)(const u8*, u8*, int);
using PairFn = void (*)(const u8*, const u8*, u8*, int);        // interleave
using UnpairFn = void (*)(const u8*, u8*, u8*, int);            // deinterleave, deinterleave_dup
using MapFn = void (*)(const u8*, u8*, int);                    // decimate, duplicate
using PickFn = void (*)(const u8*, const u8*, u8*, int, int);   // interleave_pick
using UnpickFn = void (*)(const u8*, u8*, u8*, int, int);       // deinterleave_pick
using Zip4Fn = void (*)(const u8*, const u8*, const u8*, const u8*, u8*, int);
using UnzipFn = void (*)(const u8*, const u8*, u8*, u8*, int);

inline CopyFn copy_kernel() { return pick<CopyFn>(copy_row_scalar, ownccCopy_8u_C1); }
template <class O> inline SplitFn split_kernel() { return pick<SplitFn>(Split422_8u_scalar<O>, Split422_8u_sse2<O>); }
template <class O> inline SplitFn split_a16_kernel() { return pick<SplitFn>(Split422_8u_scalar<O>, Split422_8u_a16_sse2<O>); }
template <class O> inline LumaFn luma_kernel() { return pick<LumaFn>(luma422_scalar<O>, luma422_sse2<O>); }
template <class O> inline SplitP2Fn split_p2_kernel() { return pick<SplitP2Fn>(split422_p2_scalar<O>, split422_p2_sse2<O>); }
template <class O> inline SplitFn split_dec_kernel() { return pick<SplitFn>(split422_dec_scalar<O>, split422_dec_sse2<O>); }
template <class O> inline SplitP2Fn split_dec_p2_kernel() { return pick<SplitP2Fn>(split422_dec_p2_scalar<O>, split422_dec_p2_sse2<O>); }
template <class O> inline JoinFn join_kernel() { return pick<JoinFn>(Join422_8u_scalar<O>, Join422_8u_sse2<O>); }
template <class O> inline JoinP2Fn join_p2_kernel() { return pick<JoinP2Fn>(join422_p2_scalar<O>, join422_p2_sse2<O>); }
template <class O> inline JoinFn join_dup_kernel() { return pick<JoinFn>(join422_dup_scalar<O>, join422_dup_sse2<O>); }
template <class O> inline JoinP2Fn join_p2dup_kernel() { return pick<JoinP2Fn>(join422_p2dup_scalar<O>, join422_p2dup_sse2<O>); }
inline ReorderFn swap13_kernel() { return pick<ReorderFn>(swap13_scalar, swap13_sse2); }
inline ReorderFn swap_adjacent_kernel() { return pick<ReorderFn>(swap_adjacent_scalar, swap_adjacent_sse2); }
inline PairFn interleave_kernel() { return pick<PairFn>(interleave_scalar, interleave_sse2); }
inline UnpairFn deinterleave_kernel() { return pick<UnpairFn>(deinterleave_scalar, deinterleave_sse2); }
inline MapFn decimate_kernel() { return pick<MapFn>(decimate_scalar, decimate_sse2); }
inline MapFn duplicate_kernel() { return pick<MapFn>(duplicate_scalar, duplicate_sse2); }
inline PickFn interleave_pick_kernel() { return pick<PickFn>(interleave_pick_scalar, interleave_pick_sse2); }
inline UnpickFn deinterleave_pick_kernel() { return pick<UnpickFn>(deinterleave_pick_scalar, deinterleave_pick_sse2); }
inline UnpairFn deinterleave_dup_kernel() { return pick<UnpairFn>(deinterleave_dup_scalar, deinterleave_dup_sse2); }
inline Zip4Fn zip4_kernel() { return pick<Zip4Fn>(zip4_scalar, zip4_sse2); }
inline UnzipFn unzip_pairs_kernel() { return pick<UnzipFn>(unzip_pairs_scalar, unzip_pairs_sse2); }

}  // namespace smp
}  // namespace nmq
