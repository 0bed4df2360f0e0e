// One conversion run at every SIMD level on the same input, the levels
// compared byte for byte, and planes shaped after a sweep shape.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "support/harness.h"

namespace nmqt {

// A plane of `row_bytes` x `rows` with the padding and misalignment of `s`
// counted in elements of `elem` bytes (16- and 32-bit rows stay aligned to
// their element). Sources: guard 0, so any read past the ROI is caught.
inline Plane shaped(const Shape& s, int row_bytes, int rows, int elem, int guard, bool page_guard = false) {
    return Plane(row_bytes, rows, s.pad * elem, (s.misalign * elem) % 64, guard, page_guard);
}

// Runs `call` once per SIMD level, scalar first, with every destination
// holding the same bytes before each run. Every run must return `want`,
// leave the bytes outside the destination ROIs alone and, above scalar,
// write exactly the scalar bytes. Returns "" or what went wrong; on success
// the destinations hold the result (snapshot() taken just before the last
// run, so kept() still answers for it) and `scalar` the ROI bytes of each.
inline std::string run_every_level(const std::vector<Plane*>& dst, const std::function<NmqStatus()>& call,
                                   NmqStatus want = nmqStsOk, std::vector<std::vector<uint8_t>>* scalar = nullptr) {
    std::vector<std::vector<uint8_t>> before, first;
    for (Plane* p : dst) before.push_back(p->roi());
    for (nmq::Isa lv : isa_levels()) {
        nmq::IsaCap cap(lv);
        const std::string at = std::string(" at ") + isa_name(lv);
        for (size_t i = 0; i < dst.size(); ++i) {
            for (int y = 0; y < dst[i]->rows; ++y)
                std::copy_n(&before[i][size_t(y) * size_t(dst[i]->row_bytes)], dst[i]->row_bytes, dst[i]->row(y));
            dst[i]->snapshot();
        }
        const NmqStatus st = call();
        if (st != want) return "status " + std::to_string(st) + at;
        for (size_t i = 0; i < dst.size(); ++i) {
            const std::string plane = "destination " + std::to_string(i) + ": ";
            if (!dst[i]->outside_untouched()) return plane + "wrote outside the ROI" + at;
            if (lv == nmq::Isa::Scalar) {
                first.push_back(dst[i]->roi());
                continue;
            }
            const std::string d = first_diff(first[i], dst[i]->roi(), dst[i]->row_bytes);
            if (!d.empty()) return plane + d + at + " against scalar";
        }
    }
    if (scalar) *scalar = std::move(first);
    return "";
}

}  // namespace nmqt
