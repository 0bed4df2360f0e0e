// Shared helpers for the benchmarks: 1920x1080 buffers and Mpx/s counters.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

#include "nmqcc.h"

namespace nmqb {

constexpr int kW = 1920, kH = 1080;

// A buffer of random bytes, 64-byte aligned.
struct Buf {
    std::vector<uint8_t> v;
    uint8_t* p;
    explicit Buf(size_t n, uint32_t seed = 1) : v(n + 64) {
        std::mt19937 g(seed);
        for (auto& b : v) b = uint8_t(g() >> 24);
        p = v.data() + ((64 - (reinterpret_cast<uintptr_t>(v.data()) & 63)) & 63);
    }
    template <class T> T* as() { return reinterpret_cast<T*>(p); }
};

// Reports megapixels per second for a w x h image converted once per iteration.
inline void set_mpx(benchmark::State& st, int w, int h) {
    st.counters["Mpx/s"] = benchmark::Counter(double(w) * h * 1e-6 * double(st.iterations()), benchmark::Counter::kIsRate);
}

}  // namespace nmqb
