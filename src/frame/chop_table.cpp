#include "frame/saturate.h"

namespace nmq {
namespace {
constexpr std::array<uint8_t, kChopSize> make_chop() {
    std::array<uint8_t, kChopSize> t{};
    for (int i = 0; i < kChopSize; ++i) {
        const int v = i - kChopBias;
        t[i] = uint8_t(v < 0 ? 0 : v > 255 ? 255 : v);
    }
    return t;
}
}  // namespace

// Built at compile time: constant data, nothing runs at load.
constexpr std::array<uint8_t, kChopSize> kChopTable = make_chop();

}  // namespace nmq
