#include "support/harness.h"
TEST(Reduce, Smoke) {
    uint8_t s[2] = {127, 128}, d[2] = {1, 1};
    EXPECT_EQ(nmqiReduceBits_8u_C1R(s, 2, d, 2, {2, 1}, 0, 0, 2), 0);
    EXPECT_EQ(d[0], 0);
    EXPECT_EQ(d[1], 255);
}
