// The CIELab f(t) table of the demosaicing homogeneity measure, built at
// compile time with integer arithmetic only, so it is the same on every
// build.
#include <cstddef>

#include "bayer/ahd_kernels.h"

namespace nmq::ahd {
namespace {

// Largest r with r^3 <= v.
constexpr int64_t icbrt(int64_t v) {
    int64_t lo = 0, hi = 1 << 13;
    while (lo < hi) {
        const int64_t mid = (lo + hi + 1) / 2;
        if (mid * mid * mid <= v) lo = mid;
        else hi = mid - 1;
    }
    return lo;
}

// 4096 f(i / 16384): the cube root above (6/29)^3 = 216/24389, the line
// t * 841/108 + 4/29 at and below it.
constexpr std::array<int16_t, kLabIndexMax + 1> make_lab_f() {
    std::array<int16_t, kLabIndexMax + 1> t{};
    for (int64_t i = 0; i <= kLabIndexMax; ++i)
        t[std::size_t(i)] = int16_t(i * 24389 > 216 * 16384 ? icbrt(i << 22) : (i * 24389 + 7077888) / 12528);
    return t;
}

}  // namespace

constexpr std::array<int16_t, kLabIndexMax + 1> kLabF = make_lab_f();

static_assert(kLabF[0] == 564 && kLabF[kLabIndexMax] == 4096, "f(0) = 4/29, f(1) = 1");

}  // namespace nmq::ahd
