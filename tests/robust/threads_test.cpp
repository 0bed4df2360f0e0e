// Several threads convert distinct destinations from one shared source
// through every family at once; each result must equal the single-threaded
// one. Threads running the colour twist under other SSE rounding modes must
// get nearest-even integer results and find their own mode intact after every
// call. Built with ThreadSanitizer in the tsan configuration.
#include <xmmintrin.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "harness.h"

namespace {

using nmqf::Args;
using nmqf::Case;
using nmqf::Export;
using nmqf::StepChoice;
using nmqf::StepMode;

struct Job {
    const Export* e;
    Args a;
    std::unique_ptr<Case> shared;   // the source every thread reads
    std::vector<uint8_t> expect;
    NmqStatus status;
};

StepChoice steps[4] = {{StepMode::Padded, 6}, {StepMode::Padded, 6}, {StepMode::Padded, 6}, {StepMode::Padded, 6}};

Args args_for(const Export& e) {
    Args a;
    a.roi = {45, 12};
    a.full = {50, 16};
    a.rect = {1, 2, 45, 12};
    a.levels = 8;
    a.dtype = DitherKindFloydSteinberg;
    a.noise = 20;
    a.bitoff = 2;
    a.threshold = 100;
    a.grid = nmqBayerBGGR;
    // A twist whose products land on halves, so the rounding mode matters.
    const float t[4][4] = {{0.5f, 0.25f, 0.25f, 0.5f}, {-0.5f, 1.5f, 0.f, 10.5f}, {0.75f, 0.f, 0.25f, -0.5f},
                           {0.f, 0.f, 0.5f, 0.5f}};
    std::memcpy(a.tw, t, sizeof t);
    a.co[0] = 0.3f; a.co[1] = 0.6f; a.co[2] = 0.1f;
    a.co64[0] = 0.3; a.co64[1] = 0.6; a.co64[2] = 0.1;
    a.aval = 77;
    (void)e;
    return a;
}

bool integer_twist(const Export& e) { return std::strncmp(e.name, "nmqiColorTwist32f_", 18) == 0; }

std::mutex report_mutex;
int failures = 0;

void fail(const std::string& what) {
    std::lock_guard<std::mutex> lock(report_mutex);
    if (++failures <= 20) std::fprintf(stderr, "FAIL %s\n", what.c_str());
}

void worker(std::vector<Job>& jobs, unsigned rounding, int rounds) {
    const unsigned csr = (_mm_getcsr() & ~0x6000u) | rounding;
    _mm_setcsr(csr);
    for (int r = 0; r < rounds; ++r) {
        for (Job& j : jobs) {
            const bool twist = std::strcmp(j.e->family, "twist") == 0;
            // Other rounding modes change float results by design: those threads
            // run the colour twist only.
            if (rounding != 0 && !twist) continue;
            Case mine(*j.e, j.a, steps, steps, nmqf::Fill{});
            mine.paint(3);
            if (!(j.e->flags & nmqf::kInPlace))
                for (int k = 0; k < j.e->src.n; ++k) mine.args().s[k] = j.shared->args().s[k];
            const std::string err = mine.run();
            if (!err.empty()) fail(mine.describe() + ": " + err);
            if (_mm_getcsr() != csr) fail(std::string(j.e->name) + " changed the caller's MXCSR");
            if (rounding != 0 && !integer_twist(*j.e)) continue;
            if (mine.status() != j.status) fail(std::string(j.e->name) + ": status differs from a single thread");
            else if (mine.dst_image() != j.expect)
                fail(std::string(j.e->name) + ": result differs from a single thread (rounding " +
                     std::to_string(rounding >> 13) + ")");
        }
    }
}

}  // namespace

int main() {
    std::vector<Job> jobs;
    std::set<std::string> families;
    for (const Export* e : nmqf::exports()) {
        const bool twist = std::strcmp(e->family, "twist") == 0;
        // One member of each family (the first with steps), every colour twist.
        if (!twist && (families.count(e->family) || e->src_pass == nmqf::Pass::SingleNoStep ||
                       e->src_pass == nmqf::Pass::ArrayNoStep))
            continue;
        families.insert(e->family);
        Job j{e, args_for(*e), nullptr, {}, 0};
        j.shared.reset(new Case(*e, j.a, steps, steps, nmqf::Fill{}));
        j.shared->paint(3);
        const std::string err = j.shared->run();
        if (!err.empty()) fail(j.shared->describe() + ": " + err);
        j.expect = j.shared->dst_image();
        j.status = j.shared->status();
        jobs.push_back(std::move(j));
    }
    const unsigned modes[] = {0x0000, 0x2000, 0x4000, 0x6000, 0x0000, 0x0000};
    std::vector<std::thread> threads;
    for (unsigned m : modes) threads.emplace_back(worker, std::ref(jobs), m, 3);
    for (std::thread& t : threads) t.join();
    std::printf("%zu exports from %zu families on %zu threads: %d failure(s)\n", jobs.size(), families.size(),
                threads.size(), failures);
    return failures ? 1 : 0;
}
