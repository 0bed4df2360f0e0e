// Replays fuzz inputs without libFuzzer (any compiler): files and directories
// given on the command line, then `--random N` inputs from a fixed generator,
// so that the corpus and a deterministic sweep run in every build's tests.
#include <dirent.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "harness.h"

namespace {

int failures = 0;

void run(const std::string& label, const std::vector<uint8_t>& in) {
    const std::string err = nmqf::run_input(in.data(), in.size(), true);
    if (!err.empty()) {
        std::fprintf(stderr, "FAIL %s: %s\n", label.c_str(), err.c_str());
        ++failures;
    }
}

void run_path(const std::string& path) {
    struct stat st;
    if (stat(path.c_str(), &st) != 0) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        ++failures;
        return;
    }
    if (S_ISDIR(st.st_mode)) {
        std::vector<std::string> names;
        if (DIR* d = opendir(path.c_str())) {
            while (dirent* ent = readdir(d))
                if (ent->d_name[0] != '.') names.push_back(ent->d_name);
            closedir(d);
        }
        for (const std::string& n : names) run_path(path + "/" + n);
        return;
    }
    std::ifstream f(path, std::ios::binary);
    std::vector<uint8_t> in((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    run(path, in);
}

}  // namespace

int main(int argc, char** argv) {
    for (const std::string& s : nmqf::undescribed()) {
        std::fprintf(stderr, "FAIL the harness cannot describe %s\n", s.c_str());
        ++failures;
    }
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--random") == 0 && i + 1 < argc) {
            const long n = std::strtol(argv[++i], nullptr, 10);
            std::mt19937 g(20240613);
            const size_t count = nmqf::exports().size();
            for (long k = 0; k < n; ++k) {
                // Every export in turn, with random decoding bytes and pixels.
                std::vector<uint8_t> in(16 + g() % 200);
                for (uint8_t& b : in) b = uint8_t(g() >> 24);
                in[0] = uint8_t((k % count) & 0xFF);
                in[1] = uint8_t((k % count) >> 8);
                run("random input " + std::to_string(k), in);
            }
        } else {
            run_path(argv[i]);
        }
    }
    const nmqf::Tally& t = nmqf::tally();
    std::printf("%zu exports in the table; calls: %ld ok, %ld warnings, %ld errors; %d failure(s)\n",
                nmqf::exports().size(), t.ok, t.warnings, t.errors, failures);
    return failures ? 1 : 0;
}
