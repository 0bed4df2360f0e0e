// libFuzzer entry: every input names one export (by table index or by name)
// and decodes its sizes, steps, parameters and pixels; any failed check
// aborts with the call described.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string err = nmqf::run_input(data, size, true);
    if (!err.empty()) {
        std::fprintf(stderr, "robustness check failed: %s\n", err.c_str());
        std::abort();
    }
    return 0;
}
