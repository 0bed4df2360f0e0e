// The lane arithmetic the vector interior kernels share, over a set of lane
// operations O (one per vector width and sample size, with its vector type V).
// Everything here has internal linkage: each file, built for its own
// instruction set, keeps its own copy.
#pragma once

#include <cstdint>

namespace nmq::cfa {
namespace {

// Means of four without widening. With h = floor((a + b) / 2) and r the low
// bit of a + b for each pair, (a + b + c + d + 2) >> 2 equals
// (h1 + h2 + (r1 & r2) + 1) >> 1, which the rounding average computes; h2 +
// (r1 & r2) cannot overflow, since h2 is the maximum only when c = d.
template <class O>
struct HalfSum {
    using V = typename O::V;
    V avg, half, low;  // rounded mean, floored mean, low bit of the sum
    HalfSum(V a, V b) {
        avg = O::avg(a, b);
        low = O::and_(O::xor_(a, b), O::one());
        half = O::sub(avg, low);
    }
};

template <class O>
inline typename O::V mean4(const HalfSum<O>& p, const HalfSum<O>& q) {
    return O::avg(p.half, O::add(q.half, O::and_(p.low, q.low)));
}

// |a - b| for unsigned lanes.
template <class O>
inline typename O::V absdiff(typename O::V a, typename O::V b) {
    return O::or_(O::subs(a, b), O::subs(b, a));
}

// Byte-shuffle masks interleaving three registers of E-byte samples into RGB,
// per 128-bit lane: out[r][ch] places channel ch into the lane's output part r
// (0x80 clears a byte).
template <int E>
struct Scatter {
    int8_t out[3][3][16];
    constexpr Scatter() : out() {
        for (int r = 0; r < 3; ++r)
            for (int ch = 0; ch < 3; ++ch)
                for (int j = 0; j < 16; ++j) {
                    const int o = 16 * r + j, s = o / E;  // output byte, its sample
                    out[r][ch][j] = int8_t(s % 3 == ch ? E * (s / 3) + o % E : 0x80);
                }
    }
};

}  // namespace
}  // namespace nmq::cfa
