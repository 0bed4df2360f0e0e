// Saturating conversions shared by every family.
#pragma once

#include <array>
#include <cstdint>

namespace nmq {

// The saturation table ("chop"): any index in [-kChopBias, 255 + kChopBias]
// maps to the value clamped to 0..255. Table lookups and sat_u8 agree.
constexpr int kChopBias = 1024;
constexpr int kChopSize = 256 + 2 * kChopBias;
extern const std::array<uint8_t, kChopSize> kChopTable;
inline uint8_t chop(int v) { return kChopTable[v + kChopBias]; }

inline uint8_t sat_u8(int v) { return uint8_t(v < 0 ? 0 : v > 255 ? 255 : v); }
inline uint16_t sat_u16(int v) { return uint16_t(v < 0 ? 0 : v > 65535 ? 65535 : v); }
inline int16_t sat_s16(int v) { return int16_t(v < -32768 ? -32768 : v > 32767 ? 32767 : v); }
inline int8_t sat_s8(int v) { return int8_t(v < -128 ? -128 : v > 127 ? 127 : v); }

}  // namespace nmq
