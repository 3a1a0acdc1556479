#include "foundation/gpallocator.h"

#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace
{
constexpr int Threshold = 32;
constexpr unsigned int HeapSize = 0x40000;
constexpr std::int64_t HeaderSize = 32;

// The plain form of the heap: walks all free blocks and takes the first that fits. Places are offsets from the start.
class WalkedHeap
{
public:
    explicit WalkedHeap(const GPAllocator& heap)
        : mBase(reinterpret_cast<std::intptr_t>(heap.getHeap())), mHeapSize(heap.getHeapSize())
    {
        mFree[0] = mHeapSize / 32 * 32;
    }

    // The offset of what is handed out, or -1.
    std::int64_t allocate(std::int64_t size, std::int64_t alignment)
    {
        const bool fromStart = size > Threshold;
        const std::int64_t rounded = size == 0 ? 32 : (std::abs(size) + 31) / 32 * 32;
        std::int64_t found = -1;
        auto place = mFree.end();
        for (auto block = mFree.begin(); block != mFree.end() && (found < 0 || !fromStart); ++block)
        {
            const std::int64_t wanted = fromStart ? block->first + HeaderSize + alignment - 1 : block->second - rounded;
            const std::int64_t start = (mBase + wanted) / alignment * alignment - mBase;
            if (start < block->first + HeaderSize || start + rounded > block->second)
                continue;
            found = start;
            place = block;
        }
        if (found >= 0)
            take(place, fromStart ? place->first : found - HeaderSize, found,
                 fromStart ? found + rounded : place->second);
        return found;
    }

    void deallocate(std::int64_t start)
    {
        mFree.insert(mUsed.extract(start).mapped());
        for (auto block = mFree.begin(), next = std::next(block); next != mFree.end(); next = std::next(block))
        {
            if (next->first != block->second)
            {
                block = next;
                continue;
            }
            block->second = next->second;
            mFree.erase(next);
        }
    }

    unsigned int getUsedSize() const
    {
        std::int64_t used = mHeapSize;
        for (const auto& [begin, end] : mFree)
            used -= end - begin - HeaderSize;
        return static_cast<unsigned int>(used);
    }

private:
    using Blocks = std::map<std::int64_t, std::int64_t>;

    // Cuts [begin, end) out of the free block; a rest below 64 bytes goes along.
    void take(Blocks::iterator block, std::int64_t begin, std::int64_t start, std::int64_t end)
    {
        const auto [low, high] = *block;
        begin = begin - low < 64 ? low : begin;
        end = high - end < 64 ? high : end;
        mFree.erase(block);
        if (begin > low)
            mFree[low] = begin;
        if (end < high)
            mFree[end] = high;
        mUsed.emplace(start, Blocks::value_type(begin, end));
    }

    std::intptr_t mBase;
    std::int64_t mHeapSize;
    Blocks mFree;
    std::map<std::int64_t, Blocks::value_type> mUsed;
};

std::int64_t offsetIn(const AllocatorBase& heap, const void* block)
{
    return block ? static_cast<const char*>(block) - static_cast<const char*>(heap.getHeap()) : -1;
}

// Small and negative sizes mostly, all alignments, sizes at the edges of granules, and now and then far too much.
int drawSize(std::mt19937& random, unsigned int heapSize)
{
    const int kind = static_cast<int>(random() % 16);
    const int size = kind < 8    ? static_cast<int>(random() % 70)
                     : kind < 13 ? static_cast<int>(random() % 1200)
                     : kind < 15 ? static_cast<int>(random() % 5 * 32 + random() % 3)
                                 : static_cast<int>(random() % heapSize >> random() % 8);
    return random() % 4 ? size : -size;
}
}

class GPAllocatorTest : public testing::Test
{
protected:
    void* allocate(int size, unsigned int alignment = 4)
    {
        mBlocks.push_back(mHeap->allocate(size, alignment));
        return mBlocks.back();
    }

    void TearDown() override
    {
        for (void* block : mBlocks)
            mHeap->deallocate(block);
        EXPECT_TRUE(mHeap->isConsistent());
        EXPECT_EQ(mHeap->getUsedSize(), mUsedAtStart) << "everything has grown together again";
    }

    std::unique_ptr<GPAllocator> mHeap = std::make_unique<GPAllocator>(HeapSize, "Test", nullptr, Threshold, true);
    unsigned int mUsedAtStart = mHeap->getUsedSize();
    std::vector<void*> mBlocks;
};

TEST_F(GPAllocatorTest, HandsOutTheAddressesOfAWalkOverTheFreeBlocks)
{
    TraceCapture trace;
    for (unsigned int heapSize : {0x8000000u, HeapSize + 63, 0x1020u, 64u, 40u})
    {
        GPAllocator heap(heapSize, "Traced", nullptr, Threshold, false);
        WalkedHeap walked(heap);
        std::mt19937 random(heapSize);
        std::vector<void*> live;
        for (unsigned int step = 0; step < 20000; ++step)
        {
            // The live blocks come and go in waves, so that the heap is nearly full and nearly empty in turn.
            const bool growing = step / 1500 % 2 == 0;
            if (live.empty() || random() % 100 < (growing ? 70u : 30u))
            {
                const int size = drawSize(random, heapSize);
                const unsigned int alignment = random() % 3 ? 4 : 1u << random() % 11;
                void* block = heap.allocate(size, alignment);
                ASSERT_EQ(offsetIn(heap, block), walked.allocate(size, alignment))
                    << "step " << step << ", size " << size << ", alignment " << alignment;
                if (block)
                    live.push_back(block);
            }
            else
            {
                std::swap(live[random() % live.size()], live.back());
                walked.deallocate(offsetIn(heap, live.back()));
                heap.deallocate(live.back());
                live.pop_back();
            }
            ASSERT_EQ(heap.getUsedSize(), walked.getUsedSize()) << "step " << step;
            ASSERT_TRUE(step % 64 || heap.isConsistent()) << "step " << step;
        }
        for (void* block : live)
            heap.deallocate(block);
        ASSERT_TRUE(heap.isConsistent());
    }
}

TEST_F(GPAllocatorTest, RefusesWhatFitsNowhereWithOneTrace)
{
    allocate(1000);
    const unsigned int used = mHeap->getUsedSize();
    for (int size : {static_cast<int>(HeapSize), -static_cast<int>(HeapSize), INT_MAX, -INT_MAX, INT_MIN})
    {
        TraceCapture trace;
        EXPECT_EQ(mHeap->allocate(size, 4), nullptr);
        EXPECT_EQ(trace.take(), "Heap allocation failed.(Test:size = " + std::to_string(size) + ")");
        EXPECT_EQ(mHeap->getUsedSize(), used);
    }
    mHeap->deallocate(nullptr);
}

TEST_F(GPAllocatorTest, StaysWholeUnderSeveralThreads)
{
    const auto exchange = [this]
    {
        for (int i = 0; i < 2000; ++i)
            mHeap->deallocate(mHeap->allocate(i % 128, 4));
    };
    std::thread other(exchange);
    exchange();
    other.join();
}

TEST_F(GPAllocatorTest, ReportsEveryLeakInTheOrderOfAddressesAndStops)
{
    const char* leaks = "Test : leak detected\\(call no = 2,size = 40\\).\n"
                        "Test : leak detected\\(call no = 3,size = 500\\).\n"
                        "Test : leak detected\\(call no = 1,size = 8\\).\n"
                        ".*Memory leak detected.";
    allocate(8);
    allocate(40, 512);
    allocate(500);
    EXPECT_DEATH(mHeap->clear(), leaks);
    EXPECT_DEATH(mHeap.reset(), leaks);
}
