#include "frame/dispatch.h"

#include "nmqcore.h"

namespace nmq {
namespace {
Isa detect_isa() {
    const uint64_t f = nmqGetEnabledCpuFeatures();
    const uint64_t avx512 = nmqCpuAVX512F | nmqCpuAVX512BW | nmqCpuAVX512VL;
    if ((f & avx512) == avx512 && (f & nmqCpuAVX2)) return Isa::Avx512;
    if (f & nmqCpuAVX2) return Isa::Avx2;
    if (f & nmqCpuSSE41) return Isa::Sse41;
    if (f & nmqCpuSSSE3) return Isa::Ssse3;
    if (f & nmqCpuSSE2) return Isa::Sse2;
    return Isa::Scalar;
}
// The only per-thread state of the library, and only tests write it.
thread_local Isa t_cap = Isa::Avx512;
}  // namespace

Isa cpu_isa() {
    static const Isa level = detect_isa();  // initialised once, thread-safely
    return level;
}

Isa active_isa() {
    const Isa c = cpu_isa();
    return t_cap < c ? t_cap : c;
}

IsaCap::IsaCap(Isa cap) : saved_(t_cap) { t_cap = cap; }
IsaCap::~IsaCap() { t_cap = saved_; }

}  // namespace nmq
