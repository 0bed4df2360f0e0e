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

// One vector of an interior run at a, c and b (the rows above, at and
// below): every lane computes every candidate and `site` (the lanes of red or
// blue sites) picks those of its site, so there is no branch per pixel. x is
// the row's own colour, g green, y the colour of the rows above and below.
template <class O>
inline void interior_vector(const typename O::T* a, const typename O::T* c, const typename O::T* b,
                            typename O::M site, typename O::V& x, typename O::V& g, typename O::V& y) {
    using V = typename O::V;
    const V nw = O::load(a - 1), nn = O::load(a), ne = O::load(a + 1);
    const V ww = O::load(c - 1), cc = O::load(c), ee = O::load(c + 1);
    const V sw = O::load(b - 1), ss = O::load(b), se = O::load(b + 1);

    const HalfSum<O> ns(nn, ss), we(ww, ee);
    const V diag = mean4<O>(HalfSum<O>(nw, ne), HalfSum<O>(sw, se));

    // Green: the vertical difference larger, the horizontal pair; the
    // horizontal larger, the vertical pair; equal, all four.
    const V dv = absdiff<O>(nn, ss), dh = absdiff<O>(ww, ee);
    const V green = O::blend(O::le(dv, dh), we.avg, O::blend(O::le(dh, dv), ns.avg, mean4<O>(ns, we)));

    x = O::blend(site, we.avg, cc);
    g = O::blend(site, cc, green);
    y = O::blend(site, ns.avg, diag);
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
