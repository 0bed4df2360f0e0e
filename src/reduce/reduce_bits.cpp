// nmqiReduceBits_<types>_<layout>: the drivers and the call-level kernels that
// walk channels and rows. The arithmetic lives in reduce_kernels.h.
#include <cstring>
#include <utility>

#include "frame/dispatch.h"
#include "frame/helpers.h"
#include "reduce/reduce_kernels.h"
#include "reduce/reduce_noise.h"

namespace nmq::reduce {
namespace {

template <class D>
using Src = typename D::Src;
template <class D>
using Dst = typename D::Dst;

// Row y of an image of elements given a byte step (16- and 32-bit steps are
// truncated to whole elements).
template <class T>
inline T* row_of(T* base, int step, int y) {
    if constexpr (sizeof(T) == 1) return row_at(base, step, y);
    else return row_elems(base, step, y);
}

// ---- undithered ----------------------------------------------------------------

template <class D>
NmqStatus ownNo(const Src<D>* src, int srcStep, Dst<D>* dst, int dstStep, int width, int height, int L,
                int mode) {
    const NoParams p = no_params(L);
    const NoRow<D> row = pick<NoRow<D>>(ownNo_row_scalar<D>, ownNo_row_sse2<D>);
    const int n = width * mode_elems(mode);
    for (int y = 0; y < height; ++y) row(row_of(src, srcStep, y), row_of(dst, dstStep, y), n, mode == ModeAC4, p);
    return nmqStsOk;
}

// ---- ordered dithering -------------------------------------------------------

constexpr float kBayerThresh[16] = {
    0.0f,       0.53333336f, 0.13333334f, 0.6666667f,   //
    0.8f,       0.26666668f, 0.93333334f, 0.4f,         //
    0.2f,       0.73333335f, 0.06666667f, 0.6f,         //
    1.0f,       0.46666667f, 0.8666667f,  0.33333334f,  //
};

// Rows go through in chunks of this many pixels, whose element thresholds are
// laid out first.
constexpr int kChunk = 256;

template <class D, bool Noise>
NmqStatus ownReduceBits_bayer(const Src<D>* src, int srcStep, Dst<D>* dst, int dstStep, int width, int height,
                              int L, int noise, int mode) {
    const QuantParams p{D::step(L), D::inverse(L)};
    float scaled[16];
    for (int i = 0; i < 16; ++i) scaled[i] = kBayerThresh[i] * p.s;
    NoiseTables nz;
    if constexpr (Noise) {
        const NmqStatus st = nz.make(-float(noise) / 100.0f, float(noise) / 100.0f);
        if (st != nmqStsOk) return st;
    }
    const BayerRow<D> row = pick<BayerRow<D>>(bayer_row_scalar<D>, bayer_row_sse2<D>);
    const int ne = mode_elems(mode);
    alignas(16) float thr[kChunk * 4];
    for (int y = 0; y < height; ++y) {
        const Src<D>* s = row_of(src, srcStep, y);
        Dst<D>* d = row_of(dst, dstStep, y);
        const float* m = kBayerThresh + 4 * (y & 3);
        const float* ms = scaled + 4 * (y & 3);
        for (int x0 = 0; x0 < width; x0 += kChunk) {
            const int n = width - x0 < kChunk ? width - x0 : kChunk;
            // The thresholds of a row repeat every four pixels, and the chunk is
            // a multiple of four: without noise they are laid out once per row.
            if (Noise || x0 == 0) {
                for (int i = 0; i < n; ++i) {
                    const int x = x0 + i;
                    const float t = Noise ? (nz.at(x, y) + m[x & 3]) * p.s : ms[x & 3];
                    for (int c = 0; c < ne; ++c) thr[i * ne + c] = t;
                }
            }
            row(s + ptrdiff_t(x0) * ne, d + ptrdiff_t(x0) * ne, n * ne, mode == ModeAC4, thr, p);
        }
    }
    if constexpr (Noise) nz.release();
    return nmqStsOk;
}

// ---- error diffusion ------------------------------------------------------------

// Scratch block of count floats, zeroed; null when it cannot be had.
inline float* zeroed_block(long long count) {
    if (count > 0x7fffffff / 4) return nullptr;
    float* b = nmqsMalloc_32f(int(count));
    if (b) std::memset(b, 0, size_t(count) * sizeof(float));
    return b;
}

// Per-call constants of the serial pass.
struct EdParams {
    float s, inv, half;
};

// Quantises one element of value v against threshold t; returns its error and
// writes its output. Saturated elements pass no error on.
template <class D>
inline float ed_elem(float v, float t, const EdParams& p, Dst<D>* out) {
    if (v >= D::kUpper) {
        *out = D::store(D::kTop);
        return 0.0f;
    }
    if (v < D::kLower) {
        *out = D::store(0);
        return 0.0f;
    }
    const float q = float(trunc_i32(v * p.inv)) * p.s;
    // q + 0 is q: adding the masked step keeps the decision off the branch predictor.
    const float r = q + (t < v - q ? p.s : 0.0f);
    *out = D::ed_out(r);
    return v - r;
}

// One row of one channel pass: its elements, `stride` apart, and its row
// number within the pass (for the noise index).
template <class D>
struct EdRow {
    const Src<D>* s;
    Dst<D>* d;
    int y;
};

// Serial state of a row: the errors of the two elements to the left (the
// guards, 0, at the start of a row).
struct Left {
    float m1 = 0.0f, m2 = 0.0f;
};

// One element: adds the current row's terms to `above`, the weighted sum of
// the rows above, quantises and returns the element's error. Floyd-Steinberg
// forms (above + 7*e0[x-1]) * 1/16; the others (above + m2*e0[x-2]) + m1*e0[x-1]
// times their multiplier. x is the pixel index.
template <class D, bool Noise, bool Fs>
inline float ed_step(const EdRow<D>& r, int stride, int x, float above, Left& left, const JjWeights& k,
                     const EdParams& p, const NoiseTables& nz) {
    const ptrdiff_t i = ptrdiff_t(x) * stride;
    const float sum = Fs ? (above + 7.0f * left.m1) * 0.0625f : ((above + k.m2 * left.m2) + k.m1 * left.m1) * k.mult;
    const float v = D::value(r.s[i]) + sum;
    const float t = Noise ? nz.at(x, r.y) : p.half;
    left.m2 = left.m1;
    left.m1 = ed_elem<D>(v, t, p, r.d + i);
    return left.m1;
}

// Terms of the rows above for one element, in the order of the row routines.
template <class D, bool Fs>
inline float ed_above(const float* e2, const float* e1, int x, const JjWeights& k) {
    if constexpr (!Fs) return jj_terms(e2, e1, x, k);
    else if constexpr (D::kFsCentreFirst) return fs_terms_b(e1, x);
    else return fs_terms_a(e1, x);
}

// A row alone: e0 holds its terms from the rows above on entry, its errors on return.
template <class D, bool Noise, bool Fs>
void innerReduceBits_row(const EdRow<D>& a, int stride, int w, float* e0, const JjWeights& k, const EdParams& p,
                         const NoiseTables& nz) {
    Left la;
    for (int x = 0; x < w; ++x) e0[x] = ed_step<D, Noise, Fs>(a, stride, x, e0[x], la, k, p, nz);
}

// Two consecutive rows at once, the lower one `lag` elements behind, so that
// every error it gathers from the upper row is final: the two serial chains
// overlap. The upper row's terms are in a0 on entry (from a1 and the row
// above it); the lower row gathers from a0 (and a1) as it goes and writes b0.
template <class D, bool Noise, bool Fs>
void innerReduceBits_pair(const EdRow<D>& a, const EdRow<D>& b, int stride, int w, float* a0, const float* a1,
                          float* b0, const JjWeights& k, const EdParams& p, const NoiseTables& nz) {
    constexpr int lag = Fs ? 1 : 2;
    Left la, lb;
    int x = 0;
    for (; x < lag && x < w; ++x) a0[x] = ed_step<D, Noise, Fs>(a, stride, x, a0[x], la, k, p, nz);
    for (; x < w; ++x) {
        a0[x] = ed_step<D, Noise, Fs>(a, stride, x, a0[x], la, k, p, nz);
        const int xb = x - lag;
        b0[xb] = ed_step<D, Noise, Fs>(b, stride, xb, ed_above<D, Fs>(a1, a0, xb, k), lb, k, p, nz);
    }
    for (int xb = x - lag < 0 ? 0 : x - lag; xb < w; ++xb)
        b0[xb] = ed_step<D, Noise, Fs>(b, stride, xb, ed_above<D, Fs>(a1, a0, xb, k), lb, k, p, nz);
}

// Floyd-Steinberg (kind 1) and Jarvis-Judice-Ninke / Stucki (kinds 2, 3).
// Channels are separate passes over the whole image; the error rows are not
// cleared between passes, so a channel's first rows gather what the previous
// channel's last rows left: the rows of all passes form one sequence, walked
// two at a time.
template <class D, bool Noise, bool Fs>
NmqStatus ownReduceBits_ed(const Src<D>* src, int srcStep, Dst<D>* dst, int dstStep, int width, int height, int L,
                           int noise, int mode, int kind) {
    constexpr int guard = Fs ? 1 : 2;
    const long long rowLen = (long long)width + 2 * guard;
    float* block = zeroed_block(Fs ? 2 * rowLen : 3 * rowLen);
    if (!block) return nmqStsNoMemory;
    const EdParams p{D::step(L), D::inverse(L), 0.5f * D::step(L)};
    NoiseTables nz;
    if constexpr (Noise) {
        const float low = float(50 - noise) * p.s / 100.0f, high = float(50 + noise) * p.s / 100.0f;
        const NmqStatus st = nz.make(low, high);
        if (st != nmqStsOk) {
            nmqsFree(block);
            return st;
        }
    }
    const int stride = mode_elems(mode), channels = mode_channels(mode);
    const FsTerms fsTerms = D::kFsCentreFirst ? pick<FsTerms>(fs_terms_b_scalar, fs_terms_b_sse2)
                                              : pick<FsTerms>(fs_terms_a_scalar, fs_terms_a_sse2);
    const JjTerms jjTerms = kind == 3 ? pick<JjTerms>(jj_terms_scalar<3>, jj_terms_sse2<3>)
                                      : pick<JjTerms>(jj_terms_scalar<2>, jj_terms_sse2<2>);
    const JjWeights& k = kind == 3 ? kStucki : kJarvis;
    // Rows by role: e[0] current, e[1] one above, e[2] two above (not used by
    // Floyd-Steinberg). After each row: two above <- one above <- current <- old.
    float* e[3] = {block + guard, block + rowLen + guard, Fs ? nullptr : block + 2 * rowLen + guard};
    auto rotate = [&] {
        if (Fs) {
            std::swap(e[0], e[1]);
        } else {
            float* old2 = e[2];
            e[2] = e[1];
            e[1] = e[0];
            e[0] = old2;
        }
    };
    auto row = [&](long long g) {
        const int c = int(g / height), y = int(g % height);
        return EdRow<D>{row_of(src, srcStep, y) + c, row_of(dst, dstStep, y) + c, y};
    };
    const long long total = (long long)channels * height;
    for (long long g = 0; g < total; g += 2) {
        const EdRow<D> a = row(g);
        float* a0 = e[0];
        float* a1 = e[1];
        if (Fs) fsTerms(a1, a0, width);
        else jjTerms(e[2], a1, a0, width);
        rotate();
        if (g + 1 < total) {
            innerReduceBits_pair<D, Noise, Fs>(a, row(g + 1), stride, width, a0, a1, e[0], k, p, nz);
            rotate();
        } else {
            innerReduceBits_row<D, Noise, Fs>(a, stride, width, a0, k, p, nz);
        }
    }
    if constexpr (Noise) nz.release();
    nmqsFree(block);
    return nmqStsOk;
}

// ---- the driver -------------------------------------------------------------------

template <class D>
NmqStatus reduce_bits(const Src<D>* pSrc, int srcStep, Dst<D>* pDst, int dstStep, ImageSize roi, int noise,
                      int dtype, int levels, int mode) {
    if (any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (bad_size(roi)) return nmqStsSize;
    if (unsigned(noise) > 100u) return nmqStsNoiseRange;
    if (levels < 2 || levels > D::kMaxLevels) return nmqStsLevelsRange;
    // Unknown kinds succeed without writing anything: callers rely on it.
    if (unsigned(dtype) > 4u) return nmqStsOk;
    const int L = levels - 1, w = roi.width, h = roi.height;
    switch (dtype) {
        case DitherKindNone:
            return ownNo<D>(pSrc, srcStep, pDst, dstStep, w, h, L, mode);
        case DitherKindBayer:
            return noise ? ownReduceBits_bayer<D, true>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode)
                         : ownReduceBits_bayer<D, false>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode);
        case DitherKindFloydSteinberg:
            return noise ? ownReduceBits_ed<D, true, true>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode, dtype)
                         : ownReduceBits_ed<D, false, true>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode, dtype);
        default:  // Jarvis-Judice-Ninke, Stucki
            return noise ? ownReduceBits_ed<D, true, false>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode, dtype)
                         : ownReduceBits_ed<D, false, false>(pSrc, srcStep, pDst, dstStep, w, h, L, noise, mode, dtype);
    }
}

}  // namespace
}  // namespace nmq::reduce

#define NMQ_REDUCE_EXPORT(types, layout, D, mode)                                                              \
    NMQ_EXPORT NmqStatus nmqiReduceBits_##types##_##layout(const D::Src* pSrc, int srcStep, D::Dst* pDst,      \
                                                           int dstStep, ImageSize roi, int noise, int dtype,   \
                                                           int levels) {                                       \
        return nmq::reduce::reduce_bits<D>(pSrc, srcStep, pDst, dstStep, roi, noise, dtype, levels,            \
                                           nmq::reduce::mode);                                                 \
    }
#define NMQ_REDUCE_EXPORT4(types, D)               \
    NMQ_REDUCE_EXPORT(types, C1R, D, ModeC1)       \
    NMQ_REDUCE_EXPORT(types, C3R, D, ModeC3)       \
    NMQ_REDUCE_EXPORT(types, C4R, D, ModeC4)       \
    NMQ_REDUCE_EXPORT(types, AC4R, D, ModeAC4)

NMQ_REDUCE_EXPORT4(8u, nmq::reduce::D8u)
NMQ_REDUCE_EXPORT4(16u, nmq::reduce::D16u)
NMQ_REDUCE_EXPORT4(16s, nmq::reduce::D16s)
NMQ_REDUCE_EXPORT4(16u8u, nmq::reduce::D16u8u)
NMQ_REDUCE_EXPORT4(16s8u, nmq::reduce::D16s8u)
NMQ_REDUCE_EXPORT4(32f8u, nmq::reduce::D32f8u)
NMQ_REDUCE_EXPORT4(32f16u, nmq::reduce::D32f16u)
NMQ_REDUCE_EXPORT4(32f16s, nmq::reduce::D32f16s)
