// The 8-bit forward and inverse transfer-curve tables (BT.709 curve).
#pragma once

#include <cstdint>

namespace nmq {
extern const uint8_t kGammaFwd8u[256];
extern const uint8_t kGammaInv8u[256];
}  // namespace nmq
