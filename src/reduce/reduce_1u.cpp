// nmqiReduceBits_8u1u_C1R: one bit per pixel by a fixed threshold or by
// integer Stucki error diffusion, packed most significant bit first.
#include <cstring>

#include "frame/dispatch.h"
#include "frame/helpers.h"
#include "reduce/reduce_kernels.h"

namespace nmq::reduce {
namespace {

// Appends bits to a destination row, most significant bit first. The bits of
// the first byte above the start and of the last byte below the end keep
// their values; the bytes in between are overwritten whole.
class BitSink {
public:
    BitSink(uint8_t* d, int lead) : d_(d), n_(lead) { acc_ = lead ? unsigned(d[0]) >> (8 - lead) : 0u; }
    void put8(unsigned b) {
        acc_ = (acc_ << 8) | b;
        *d_++ = uint8_t(acc_ >> n_);
        acc_ &= (1u << n_) - 1;
    }
    void put1(unsigned bit) {
        acc_ = (acc_ << 1) | bit;
        if (++n_ == 8) {
            *d_++ = uint8_t(acc_);
            acc_ = 0;
            n_ = 0;
        }
    }
    void finish() {
        if (n_ == 0) return;
        const int keep = 8 - n_;
        *d_ = uint8_t((acc_ << keep) | (*d_ & ((1u << keep) - 1)));
    }

private:
    uint8_t* d_;
    unsigned acc_;  // n_ pending bits, oldest highest
    int n_;
};

// Threshold mode: bit set where the source is above the threshold.
void thresh_rows(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int lead, ImageSize roi,
                 uint8_t threshold) {
    const ThreshBytes bytes = pick<ThreshBytes>(thresh_bytes_scalar, thresh_bytes_sse2);
    constexpr int kChunk = 2048;  // pixels per batch of packed bytes
    uint8_t packed[kChunk / 8];
    for (int y = 0; y < roi.height; ++y) {
        const uint8_t* s = row_at(src, srcStep, y);
        BitSink out(row_at(dst, dstStep, y), lead);
        int x = 0;
        while (roi.width - x >= 8) {
            const int n = (roi.width - x < kChunk ? roi.width - x : kChunk) & ~7;
            bytes(s + x, packed, n, threshold);
            for (int i = 0; i < n / 8; ++i) out.put8(packed[i]);
            x += n;
        }
        for (; x < roi.width; ++x) out.put1(s[x] > threshold);
        out.finish();
    }
}

// Entries of one error row besides the two guards on either side: width + 4
// with only bit 2 cleared (not rounded to a multiple of four). The block is
// three such rows and no larger.
inline long long st1u_row_core(int width) { return ((long long)width + 4) & ~4LL; }

// Diffusion mode: integer Stucki, errors in eighths of a source step (white is
// 2047); 23/1024 stands for the divisor 42.
NmqStatus stucki_rows(const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, int lead, ImageSize roi,
                      uint8_t threshold) {
    const long long rowLen = st1u_row_core(roi.width) + 4;
    const long long count = 3 * rowLen;
    if (count > 0x7fffffff / 4) return nmqStsNoMemory;
    int32_t* block = nmqsMalloc_32s(int(count));
    if (!block) return nmqStsNoMemory;
    std::memset(block, 0, size_t(count) * sizeof(int32_t));
    const St1uTerms terms = pick<St1uTerms>(st1u_terms_scalar, st1u_terms_sse2);
    int32_t* e[3] = {block + 2, block + rowLen + 2, block + 2 * rowLen + 2};  // current, one above, two above
    const int32_t limit = int32_t(threshold) * 8192;
    for (int y = 0; y < roi.height; ++y) {
        const uint8_t* s = row_at(src, srcStep, y);
        BitSink out(row_at(dst, dstStep, y), lead);
        int32_t* e0 = e[0];
        terms(e[2], e[1], e0, roi.width);
        int32_t pm2 = 0, pm1 = 0;  // e0[-2], e0[-1]: guards
        for (int x = 0; x < roi.width; ++x) {
            const int32_t S = e0[x] + 4 * pm2 + 8 * pm1;
            const int32_t V = int32_t(s[x]) * 8192 + 23 * S;
            const bool on = V > limit;
            pm2 = pm1;
            pm1 = (V >> 10) - (on ? 2047 : 0);
            e0[x] = pm1;
            out.put1(on);
        }
        out.finish();
        int32_t* old2 = e[2];
        e[2] = e[1];
        e[1] = e[0];
        e[0] = old2;
    }
    nmqsFree(block);
    return nmqStsOk;
}

}  // namespace
}  // namespace nmq::reduce

NMQ_EXPORT NmqStatus nmqiReduceBits_8u1u_C1R(const Nmq8u* pSrc, int srcStep, Nmq8u* pDst, int dstStep,
                                             int dstBitOffset, ImageSize roi, Nmq32u noise, Nmq32u seed, int dtype,
                                             Nmq8u threshold) {
    if (nmq::any_null(pSrc, pDst)) return nmqStsNullPtr;
    if (nmq::bad_size(roi) || dstBitOffset < 0) return nmqStsSize;
    // Only the position within the byte counts: a row never starts in a later byte.
    const int lead = dstBitOffset & 7;
    if (dtype == DitherKindNone) {
        nmq::reduce::thresh_rows(pSrc, srcStep, pDst, dstStep, lead, roi, threshold);
        return nmqStsOk;
    }
    if (dtype == DitherKindStucki) return nmq::reduce::stucki_rows(pSrc, srcStep, pDst, dstStep, lead, roi, threshold);
    return nmqStsDitherKindUnsupported;
}
