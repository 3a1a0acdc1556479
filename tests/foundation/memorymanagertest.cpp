#include "foundation/memorymanager.h"

#include "foundation/allocator.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

TEST(MemoryManagerTest, ListsTheGlobalHeapAndThoseItCutsFromIt)
{
    AllocatorBase* global = AllocatorBase::getGlobalAllocator();
    const unsigned int used = global->getUsedSize();
    TraceCapture trace;
    MemoryManager* manager = MemoryManager::create();
    AllocatorBase* heap = manager->createAllocator(0x20000, "String");

    ASSERT_EQ(manager->getAllocatorNum(), 2u);
    EXPECT_TRUE(manager->getAllocator(0) == global && manager->getAllocator(1) == heap);
    EXPECT_TRUE(global->getHeapSize() == 0x8000000 && heap->getHeapSize() == 0x20000);
    EXPECT_GE(global->getUsedSize(), used + 0x20000);

    manager->destroy();
    EXPECT_EQ(MemoryManager::getInstance(), nullptr);
    EXPECT_EQ(global->getUsedSize(), used) << "the heaps are given back, the global one stays";
    EXPECT_EQ(trace.take(), "MemoryManager : start.\nMemoryManager : end.\n");
}
