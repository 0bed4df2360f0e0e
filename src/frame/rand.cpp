// Uniform random generators: a lagged subtract-with-carry generator combined
// with a linear congruential one. The sequences are part of the interface of
// the noise dithers, so every step below is fixed.
#include "frame/rand.h"

#include <cfenv>
#include <cmath>

#include "frame/helpers.h"

namespace {

constexpr uint32_t kId16s = 36;
constexpr uint32_t kId32f = 37;

struct Core {
    uint32_t L, A, B, C;
    uint32_t k;  // carry: 0 or all bits set
};

}  // namespace

struct RandUniState_16s {
    uint32_t id;
    uint32_t seed;
    int16_t low, high;
    double mean;
    double scale;
    Core s;
};

struct RandUniState_32f {
    uint32_t id;
    uint32_t seed;
    float low, high;
    double mean;
    double scale;
    Core s;
};

namespace {

void init_core(Core& c, uint32_t seed) {
    c.L = 1131199209u;
    c.A = seed;
    c.B = seed * 69069u + 1013904243u;
    c.C = c.B * 69069u + 1013904243u;
    c.k = 0xffffffffu;
}

// One subtract-with-carry step; returns the new A.
inline uint32_t swc(Core& c) {
    uint32_t t = c.B - c.C + c.k;
    if (t & 0x80000000u) {
        c.k = 0xffffffffu;
        t -= 18;
    } else {
        c.k = 0;
    }
    c.C = c.B;
    c.B = c.A;
    c.A = t;
    return t;
}

// Produces n raw values r = A + L (as signed), two at a time with the two
// congruential steps folded into one multiply-add, then a single last step.
template <class Out>
void generate(Core& c, int n, Out&& out) {
    int i = 0;
    for (; i + 2 <= n; i += 2) {
        const uint32_t a0 = swc(c);
        const uint32_t l0 = c.L * 69069u + 1013904243u;
        const uint32_t a1 = swc(c);
        c.L = c.L * 475559465u + 924302730u;
        out(i, int32_t(a0 + l0));
        out(i + 1, int32_t(a1 + c.L));
    }
    if (i < n) {
        const uint32_t a = swc(c);
        c.L = c.L * 69069u + 1013904243u;
        out(i, int32_t(a + c.L));
    }
}

template <class State, class T>
NmqStatus init_alloc(State** pp, T low, T high, unsigned seed, uint32_t id, State* block) {
    if (!block) return nmqStsNoMemory;
    block->id = id;
    block->seed = seed;
    block->low = low;
    block->high = high;
    block->mean = (double(low) + double(high)) * 0.5;
    block->scale = (double(high) - double(low)) * 2.3283064365387e-10;
    init_core(block->s, seed);
    *pp = block;
    return nmqStsOk;
}

}  // namespace

NmqStatus nmqsRandUniformInitAlloc_16s(RandUniState_16s** ppState, Nmq16s low, Nmq16s high, unsigned int seed) {
    if (!ppState) return nmqStsNullPtr;
    static_assert(sizeof(RandUniState_16s) <= 48 * sizeof(Nmq16s), "record fits its block");
    return init_alloc(ppState, low, high, seed, kId16s, reinterpret_cast<RandUniState_16s*>(nmqsMalloc_16s(48)));
}

NmqStatus nmqsRandUniformInitAlloc_32f(RandUniState_32f** ppState, Nmq32f low, Nmq32f high, unsigned int seed) {
    if (!ppState) return nmqStsNullPtr;
    static_assert(sizeof(RandUniState_32f) <= 52 * sizeof(Nmq32f), "record fits its block");
    return init_alloc(ppState, low, high, seed, kId32f, reinterpret_cast<RandUniState_32f*>(nmqsMalloc_32f(52)));
}

NmqStatus nmqsRandUniform_16s(Nmq16s* pDst, int len, RandUniState_16s* pState) {
    if (!pDst || !pState) return nmqStsNullPtr;
    if (len < 1) return nmqStsSize;
    if (pState->id != kId16s) return nmqStsWrongContext;
    const double scale = pState->scale, mean = pState->mean;
    // nearbyint rounds in the current mode: ties to even by default.
    generate(pState->s, len, [&](int i, int32_t r) {
        pDst[i] = Nmq16s(uint16_t(uint32_t(int64_t(std::nearbyint(double(r) * scale + mean)))));
    });
    return nmqStsOk;
}

NmqStatus nmqsRandUniform_32f(Nmq32f* pDst, int len, RandUniState_32f* pState) {
    if (!pDst || !pState) return nmqStsNullPtr;
    if (len < 1) return nmqStsSize;
    if (pState->id != kId32f) return nmqStsWrongContext;
    const double scale = pState->scale, mean = pState->mean;
    generate(pState->s, len, [&](int i, int32_t r) { pDst[i] = float(double(r) * scale + mean); });
    return nmqStsOk;
}

NmqStatus nmqsRandUniformFree_16s(RandUniState_16s* pState) {
    if (!pState) return nmqStsNullPtr;
    if (pState->id != kId16s) return nmqStsWrongContext;
    nmqsFree(pState);
    return nmqStsOk;
}

NmqStatus nmqsRandUniformFree_32f(RandUniState_32f* pState) {
    if (!pState) return nmqStsNullPtr;
    if (pState->id != kId32f) return nmqStsWrongContext;
    nmqsFree(pState);
    return nmqStsOk;
}
