// Kernel choice per CPU. A kernel set holds one row operation at several
// instruction-set levels; the scalar form defines the bits and every other
// form must give the same bytes. Drivers call pick() on every call: it reads
// the CPU level detected once (thread-safely) and the calling thread's cap.
#pragma once

#include <cstdint>

namespace nmq {

// Avx512 means AVX-512 F, BW and VL together (byte-masked loads and stores on
// 128/256/512-bit vectors); a CPU with only some of them stays at Avx2.
enum class Isa : int { Scalar = 0, Sse2 = 1, Ssse3 = 2, Sse41 = 3, Avx2 = 4, Avx512 = 5 };

// Best level this CPU and OS allow (detected once through nmqGetEnabledCpuFeatures).
Isa cpu_isa();

// Level kernels may use on this thread: cpu_isa() lowered by the test cap.
Isa active_isa();

// Test-only: lower the level for the calling thread (RAII). Production code
// never constructs one; the cap is thread-local so concurrent tests at
// different levels do not interfere.
class IsaCap {
public:
    explicit IsaCap(Isa cap);
    ~IsaCap();
    IsaCap(const IsaCap&) = delete;
    IsaCap& operator=(const IsaCap&) = delete;
private:
    Isa saved_;
};

// Kernel set: null entries mean "no form at this level". The scalar form is
// mandatory.
template <class F>
struct Kernels {
    F scalar;
    F sse2 = nullptr;
    F avx2 = nullptr;
    F ssse3 = nullptr;
    F sse41 = nullptr;
    F avx512 = nullptr;
};

template <class F>
inline F pick(const Kernels<F>& k) {
    const Isa a = active_isa();
    if (a >= Isa::Avx512 && k.avx512) return k.avx512;
    if (a >= Isa::Avx2 && k.avx2) return k.avx2;
    if (a >= Isa::Sse41 && k.sse41) return k.sse41;
    if (a >= Isa::Ssse3 && k.ssse3) return k.ssse3;
    if (a >= Isa::Sse2 && k.sse2) return k.sse2;
    return k.scalar;
}

// Convenience for the common {scalar, sse2} pair.
template <class F>
inline F pick(F scalar, F sse2) {
    return active_isa() >= Isa::Sse2 ? sse2 : scalar;
}

}  // namespace nmq
