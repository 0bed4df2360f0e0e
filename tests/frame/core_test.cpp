#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "frame/dispatch.h"
#include "nmqcore.h"

TEST(Core, AlignedBlocks) {
    for (int n : {1, 63, 64, 65, 4096, 1 << 20}) {
        void* p = nmqMalloc(n);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) & 63, 0u) << n;
        nmqFree(p);
    }
    EXPECT_EQ(nmqMalloc(0), nullptr);
    EXPECT_EQ(nmqMalloc(-1), nullptr);
    nmqFree(nullptr);
}

TEST(Core, CacheSizeAndFeatures) {
    EXPECT_EQ(nmqGetMaxCacheSizeB(nullptr), nmqCoreStsNullPtr);
    int size = -1;
    const int st = nmqGetMaxCacheSizeB(&size);
    if (st == nmqCoreStsOk) {
        EXPECT_GE(size, 4096);
    } else {
        EXPECT_EQ(size, 0);
    }
    uint64_t f = 0;
    EXPECT_EQ(nmqGetCpuFeatures(nullptr), nmqCoreStsNullPtr);
    EXPECT_EQ(nmqGetCpuFeatures(&f), nmqCoreStsOk);
#if defined(__x86_64__) || defined(__SSE2__)
    EXPECT_TRUE(f & nmqCpuSSE2);
#endif
    if (f & nmqCpuAVX2) {
        EXPECT_TRUE(f & nmqCpuAVX);
    }
}

TEST(Dispatch, CapIsPerThreadAndRestored) {
    const nmq::Isa top = nmq::active_isa();
    {
        nmq::IsaCap cap(nmq::Isa::Scalar);
        EXPECT_EQ(nmq::active_isa(), nmq::Isa::Scalar);
        nmq::Isa other = top;
        std::thread([&] { other = nmq::active_isa(); }).join();
        EXPECT_EQ(other, top);
    }
    EXPECT_EQ(nmq::active_isa(), top);
}
