// Test model of the sampling family: every export described by its source
// and destination formats, its chroma rule, its size rule and its pointer
// checks; a reference written from those descriptions (it decodes the source
// planes into Y/Cb/Cr arrays, resamples the chroma, encodes the destination);
// and one runner that checks a call against the reference, guards included.
#pragma once

#include <vector>

#include "support/harness.h"

namespace smpt {

using u8 = uint8_t;

enum class Fmt { C2_YCbCr, C2_CbYCr, C2_YCrCb, P3_422, P3_422_CrCb, P3_420, P3_420_CrCb, P2_420, P3_411, P2_411,
                 P3_1620 };

// What happens to chroma.
enum class Rule {
    Same,      // planes re-arranged only
    VDec,      // 4:2:2 -> 4:2:0: rows 0, 2, 4, ...
    VDup,      // 4:2:0 -> 4:2:2: each row twice
    VFilter,   // 4:2:0 -> 4:2:2: 4-tap rows in between
    HDec,      // 4:2:2 -> 4:1:1: samples 0, 2, 4, ...
    HDup,      // 4:1:1 -> 4:2:2: each sample twice
    To411,     // 4:2:0 -> 4:1:1, lossless
    From411,   // 4:1:1 -> 4:2:0, lossless
    Down1620,  // short-named plane functions
    Up1620,
    Avg411To420,
    Avg420To411
};

// Size rules: when a ROI is refused, and how an accepted one is rounded.
enum class Sz {
    E2E2,       // w < 2 or h < 2; both to even
    Filter,     // w < 2 or h < 8; w to even, h to a multiple of 8
    Q4E2,       // w < 4 or h < 2; w to a multiple of 4, h to even
    Q4H1,       // w < 4 or h < 1; w to a multiple of 4
    E2H1,       // w < 2 or h < 1; w to even
    Q4Only,     // w < 4; w to a multiple of 4; height not tested
    E2Only,     // w < 2; w to even; height not tested
    Strict4,    // refused unless w, h are multiples of 4 (and >= 4)
    Strict4E2,  // refused unless w is a multiple of 4 (>= 4) and h even (>= 2)
};

// Pointer-check exceptions.
enum : unsigned {
    kArrayUnchecked = 1,   // the three-plane array pointer itself is not tested
    kStepArrayChecked = 2, // the destination step array is tested
    kLatePlanes = 4,       // destination planes tested after a ROI below 1
};

// Arguments of one call, in a layout-neutral form. C2 uses plane 0, P2 planes 0 and 1.
struct Io {
    const u8* s[3] = {};
    int ss[3] = {};
    u8* d[3] = {};
    int ds[3] = {};
    bool nullSrcArray = false, nullDstArray = false, nullDstSteps = false;
    const u8* const* sa() const { return nullSrcArray ? nullptr : s; }
    u8* const* da() const { return nullDstArray ? nullptr : d; }
    const int* dsa() const { return nullDstSteps ? nullptr : ds; }
};
using Call = NmqStatus (*)(const Io&, ImageSize);

struct Member {
    const char* name;
    Call call;
    Fmt src, dst;
    Rule rule;
    Sz size;
    unsigned flags;
};

const std::vector<Member>& members();
const Member& member(const char* name);

// Expected status and rounded size for a ROI under a size rule.
struct Expect {
    NmqStatus status;
    int w, h;
};
Expect expect(Sz rule, int w, int h);

int plane_count(Fmt f);
bool is_p3(Fmt f);

// One call of m on a w x h ROI with random data, at the current SIMD level:
// status, every destination byte against the reference, nothing written
// outside the rounded ROI, sources allocated to exactly what the rounded ROI
// needs (page-guarded when asked). Destinations sit `dst_misalign` bytes off a
// 64-byte boundary (by default 3 more than the sources). Returns "" or a
// description of the failure.
std::string run_case(const Member& m, int w, int h, int pad, int misalign, bool page_guard, uint32_t seed,
                     int dst_misalign = -1);

}  // namespace smpt
