// The noise tables of the noise dithers: 1024 offsets and 1024 noise values
// from seed-0 generators, made and freed within each call.
#pragma once

#include <cstdint>

#include "frame/common.h"

namespace nmq::reduce {

struct NoiseTables {
    float* noise = nullptr;     // 1024 values uniform between the call's bounds
    int16_t* offset = nullptr;  // 1024 values uniform over 0..1024

    // Allocates and fills both tables; on failure everything got is freed and
    // nmqStsNoMemory returned.
    NmqStatus make(float low, float high);
    void release();

    // Noise value of the element at position x of row y (rows counted from 0).
    float at(int x, int y) const {
        const uint32_t i = uint32_t(offset[x & 1023]) + 2u * uint32_t(y) + uint32_t(x);
        return noise[i & 1023];
    }
};

}  // namespace nmq::reduce
