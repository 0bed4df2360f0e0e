// Hostile-use harness shared by the fuzzers and the robustness tests: one
// descriptor per export (generated from the public headers), a call record
// that holds every argument any export takes, planes allocated to exactly the
// bytes a call may touch, and the checks every call must pass.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "nmqcc.h"

namespace nmqf {

// Further parameters an export takes.
enum : uint32_t {
    kNoise = 1u << 0, kDtype = 1u << 1, kLevels = 1u << 2, kBitOff = 1u << 3, kNoiseU = 1u << 4,
    kSeed = 1u << 5, kThreshold = 1u << 6, kGrid = 1u << 7, kVRange = 1u << 8, kTwist34 = 1u << 9,
    kTwist44 = 1u << 10, kCoeffs = 1u << 11, kAval = 1u << 12, kRect = 1u << 13,
};
// Contract details of single members.
enum : uint32_t {
    kArrayUnchecked = 1,   // the plane-pointer array itself is dereferenced unchecked
    kHeightUnchecked = 2,  // a height below 1 converts nothing and succeeds
    kInPlace = 4,          // one image is source and destination
    kSizeUnchecked = 8,    // a width or height below 1 converts nothing and succeeds
};

// How a side's planes are passed.
enum class Pass : uint8_t { Single, SingleNoStep, Split2, ArrayOneStep, ArraySteps, ArrayNoStep };

// One plane: element size, elements per pixel (0: one bit per pixel), and
// subsampling; a row holds ceil(w / xsub) * cpp elements, the plane
// ceil(h / ysub) rows.
struct Geo {
    uint8_t esz, cpp, xsub, ysub;
};
struct Planes {
    int n;
    Geo g[4];
};

// Every argument of every export, in a layout-neutral form.
struct Args {
    const void* s[4] = {};
    int ss[4] = {};
    void* d[4] = {};
    int ds[4] = {};
    bool src_null_array = false, dst_null_array = false, null_matrix = false;
    ImageSize roi{0, 0};
    ImageRect rect{0, 0, 0, 0};
    ImageSize full{0, 0};
    int noise = 0, dtype = 0, levels = 2, bitoff = 0, grid = 0;
    uint32_t noise_u = 0, seed = 0;
    uint8_t threshold = 0;
    float vmin = 0.f, vmax = 1.f;
    float tw[4][4] = {};
    float co[3] = {};
    double co64[3] = {};
    double aval = 0;
};

struct Export {
    const char* name;
    const char* family;
    const void* fn;                       // null while the function is not built yet
    NmqStatus (*call)(const Args&);
    Pass src_pass;
    Planes src;
    Pass dst_pass;
    Planes dst;
    uint32_t params;
    uint32_t flags;
};

// The table, sorted by name.
const std::vector<const Export*>& exports();
const Export* find_export(const std::string& name);
// Exports the headers declare that the harness cannot describe (should be none).
std::vector<std::string> undescribed();

// Families whose functions reject steps below 1 instead of using them.
bool checks_steps(const Export& e);
// Statuses the export may return at all.
bool status_allowed(const Export& e, NmqStatus s);

// How a plane's step is chosen relative to its row bytes.
enum class StepMode : uint8_t { Exact, Padded, Negative, Zero, Overlap, NegativeExact, Count };
struct StepChoice {
    StepMode mode = StepMode::Exact;
    int extra = 0;
};

// How image bytes are made.
struct Fill {
    const uint8_t* data = nullptr;  // bytes cycled into every plane (may be null)
    size_t len = 0;
    uint32_t seed = 1;
    int float_mode = 0;             // 0 raw bits, 1 values in 0..1, 2 values in -2..300
};

// One plane allocation. Sources are exact (no byte before the first or after
// the last byte the call may read); destinations have guard bytes around them.
struct Buf {
    uint8_t* alloc = nullptr;
    size_t size = 0;
    uint8_t* origin = nullptr;      // pointer passed to the call
    size_t lead = 0;                // bytes before the lowest row
    std::vector<uint8_t> mask;      // per byte: bits the call may change
    std::vector<uint8_t> before;
    int step = 0, eff_step = 0, rows = 0, row_bytes = 0, esz = 1;
};

class Case {
public:
    Case(const Export& e, const Args& params, const StepChoice src_steps[4], const StepChoice dst_steps[4],
         const Fill& fill, int misalign = 0);
    ~Case();
    Case(const Case&) = delete;
    Case& operator=(const Case&) = delete;

    // Replaces one pointer by null: 0 source (array), 1 destination (array),
    // 2 + k source plane k, 6 + k destination plane k, 10 the matrix. Only
    // positions the export tests are honoured; returns whether one was set.
    bool set_null(int which);

    // Calls the export and checks the outcome; "" or what went wrong.
    std::string run();
    // Calls the export with the SIMD levels capped at scalar, then uncapped,
    // and compares statuses and destination bytes; "" or the first difference.
    std::string run_scalar_vs_simd();

    // Rewrites the ROI rows of every plane from (seed, plane, row, column)
    // alone, so that two cases of the same image with different steps hold the
    // same logical image (floats get values in 0..1).
    void paint(uint32_t seed);

    NmqStatus status() const { return status_; }
    const Args& args() const { return a_; }
    Args& args() { return a_; }
    const std::vector<Buf>& dst() const { return dst_; }
    // Destination ROI bytes, row by row from the top (the logical image).
    std::vector<uint8_t> dst_image() const;
    std::string describe() const;
    bool finite = true;             // no NaN or infinity among float inputs

private:
    void snapshot();
    void restore();
    std::string check() const;

    const Export& e_;
    Args a_;
    std::vector<Buf> src_, dst_;
    bool null_given_ = false;
    NmqStatus status_ = 0;
};

// Decodes one fuzz input into a case and runs it with every check; "" when
// the input passes (or names no built export). Inputs that begin with an
// export name and a zero byte select that export by name.
std::string run_input(const uint8_t* data, size_t size, bool differential);

// Outcomes of run_input on this thread so far.
struct Tally {
    long ok = 0, warnings = 0, errors = 0;
};
Tally& tally();

}  // namespace nmqf
