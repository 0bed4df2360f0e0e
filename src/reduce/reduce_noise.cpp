// Noise tables: every generator starts from seed 0, so the same call on the
// same input gives the same output.
#include "reduce/reduce_noise.h"

#include "frame/helpers.h"
#include "frame/rand.h"

namespace nmq::reduce {

NmqStatus NoiseTables::make(float low, float high) {
    noise = nmqsMalloc_32f(1024);
    offset = nmqsMalloc_16s(1024);
    if (!noise || !offset) {
        release();
        return nmqStsNoMemory;
    }
    RandUniState_16s* r16 = nullptr;
    NmqStatus st = nmqsRandUniformInitAlloc_16s(&r16, 0, 1024, 0);
    if (st != nmqStsOk) {
        release();
        return st;
    }
    nmqsRandUniform_16s(offset, 1024, r16);
    nmqsRandUniformFree_16s(r16);
    RandUniState_32f* r32 = nullptr;
    st = nmqsRandUniformInitAlloc_32f(&r32, low, high, 0);
    if (st != nmqStsOk) {
        release();
        return st;
    }
    nmqsRandUniform_32f(noise, 1024, r32);
    nmqsRandUniformFree_32f(r32);
    return nmqStsOk;
}

void NoiseTables::release() {
    nmqsFree(noise);
    nmqsFree(offset);
    noise = nullptr;
    offset = nullptr;
}

}  // namespace nmq::reduce
