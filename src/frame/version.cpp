// Version record and the entry mechanism.
//
// Each export is bound directly to its implementation rather than through a
// table of code pointers: this build carries one set of exports, and the
// choice of the fastest kernel for the CPU is made per kernel, inside the
// implementation (frame/dispatch.h), which is where it costs least and where
// tests can reach every level.
#include "frame/common.h"

namespace {
const NmqLibVersion kVersion = {
    8, 2, 1, 44077,
    {'s', '2', 0, 0},
    "nmqCC SSE2 (s2)",
    "8.2.1 (r44077)",
    "Oct  9 2014",
};
}  // namespace

NMQ_EXPORT const NmqLibVersion* nmqccGetLibVersion(void) { return &kVersion; }
