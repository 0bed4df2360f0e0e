#include "lib.h"

#include <cstdio>
#include <set>

namespace conv {

const char* status_name(NmqStatus st) {
    switch (st) {
    case nmqStsOk: return "nmqStsOk";
    case nmqStsNegativeLevel: return "nmqStsNegativeLevel";
    case nmqStsOddSize: return "nmqStsOddSize";
    case nmqStsBadArg: return "nmqStsBadArg";
    case nmqStsSize: return "nmqStsSize";
    case nmqStsNullPtr: return "nmqStsNullPtr";
    case nmqStsNoMemory: return "nmqStsNoMemory";
    case nmqStsStep: return "nmqStsStep";
    case nmqStsWrongContext: return "nmqStsWrongContext";
    case nmqStsGammaRange: return "nmqStsGammaRange";
    case nmqStsLevelsRange: return "nmqStsLevelsRange";
    case nmqStsNoiseRange: return "nmqStsNoiseRange";
    case nmqStsDitherKindUnsupported: return "nmqStsDitherKindUnsupported";
    default: return "unknown status";
    }
}

void check(NmqStatus st, const char* function) {
    if (st < 0)
        throw DataError(std::string(function) + " failed: status " + std::to_string(st) + " (" + status_name(st) + ")");
    if (st > 0) {
        // Once per function: a video of many frames would repeat it on every frame.
        static std::set<std::string> seen;
        if (seen.insert(function).second)
            std::fprintf(stderr, "nmqconv: warning: %s returned %d (%s)\n", function, int(st), status_name(st));
    }
}

Image swap_rb(const View& v) {
    Image out(v.w, v.h, 3, Depth::U8);
    for (int y = 0; y < v.h; ++y) {
        const uint8_t* s = v.p + size_t(y) * v.step;
        uint8_t* d = out.row(y);
        for (int x = 0; x < v.w; ++x) {
            d[3 * x] = s[3 * x + 2];
            d[3 * x + 1] = s[3 * x + 1];
            d[3 * x + 2] = s[3 * x];
        }
    }
    return out;
}

}  // namespace conv
