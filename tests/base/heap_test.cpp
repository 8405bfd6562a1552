#include <windows.h>

#include <algorithm>
#include <cstring>

#include "platform/base/heap.h"
#include "platform/faults/failure_points.h"
#include "platform/faults/live_objects.h"
#include "tests/support/machine_fixture.h"

namespace {

using HeapTest = tests::MachineTest;

TEST_F(HeapTest, BlocksGrowShrinkAndGoWithTheirHeap) {
    const HANDLE heap = HeapCreate(0, 0, 0);
    auto* block = static_cast<unsigned char*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, 40));
    EXPECT_EQ(std::count(block, block + 40, 0), 40);
    std::memset(block, 7, 40);
    block = static_cast<unsigned char*>(HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, 5000));
    EXPECT_EQ(std::count(block, block + 5000, 0), 4960);
    block = static_cast<unsigned char*>(HeapReAlloc(heap, 0, block, 10));
    EXPECT_EQ(std::count(block, block + 10, 7), 10);
    HeapAlloc(heap, 0, 100);
    EXPECT_EQ(platform::HeapBytes(heap), 110u);
    EXPECT_EQ(platform::LiveObjects()["heap block"], 2);
    EXPECT_TRUE(HeapFree(heap, 0, block));
    EXPECT_EQ(platform::HeapBytes(heap), 100u);
    EXPECT_TRUE(HeapDestroy(heap));
}

TEST_F(HeapTest, ForeignAndStaleBlocksAndHeapsAreRefused) {
    EXPECT_EQ(HeapCreate(0, 0, 4096), nullptr) << "with a maximum";
    const HANDLE heap = HeapCreate(0, 0, 0);
    void* block = HeapAlloc(GetProcessHeap(), 0, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(HeapReAlloc(heap, 0, block, 10), nullptr);
    EXPECT_FALSE(HeapFree(heap, 0, block));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_TRUE(HeapFree(GetProcessHeap(), 0, block));
    EXPECT_FALSE(HeapFree(GetProcessHeap(), 0, block)) << "freed twice";
    EXPECT_TRUE(HeapFree(heap, 0, nullptr));
    EXPECT_FALSE(HeapDestroy(GetProcessHeap()));
    EXPECT_TRUE(HeapDestroy(heap));
    EXPECT_FALSE(HeapDestroy(heap));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(HeapAlloc(heap, 0, 1), nullptr);
}

TEST_F(HeapTest, AFailedResizeLeavesTheBlock) {
    const std::size_t before = platform::HeapBytes(GetProcessHeap());
    void* block = HeapAlloc(GetProcessHeap(), 0, 8);
    std::memset(block, 5, 8);
    EXPECT_EQ(HeapReAlloc(GetProcessHeap(), 0, block, ~SIZE_T{0}), nullptr);
    {
        const platform::FailurePlan plan("HeapReAlloc", 1, ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_EQ(HeapReAlloc(GetProcessHeap(), 0, block, 16), nullptr);
    }
    EXPECT_EQ(static_cast<unsigned char*>(block)[7], 5);
    EXPECT_EQ(platform::HeapBytes(GetProcessHeap()), before + 8);
    EXPECT_TRUE(HeapFree(GetProcessHeap(), 0, block));
}

}  // namespace
