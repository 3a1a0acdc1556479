#include "benchmarks/harness.h"
#include "foundation/gpallocator.h"

#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#if __has_include(<tbb/scalable_allocator.h>)
#include <tbb/scalable_allocator.h>
#define HAS_TBBMALLOC
#endif

namespace
{
constexpr unsigned int HeapSize = 0x8000000;
constexpr unsigned int OperationNum = 100000;
constexpr unsigned int LiveNum = 4000;

// An operation frees what a slot holds and fills the slot anew.
struct sOperation
{
    unsigned int slot;
    int size;
};

using Trace = std::vector<sOperation>;

// Sizes as the program asks for them: mostly nodes and strings, some arrays, now and then a picture.
int drawSize(std::mt19937& random)
{
    const unsigned int kind = random() % 100;
    if (kind < 50)
        return 8 + static_cast<int>(random() % 25);
    if (kind < 85)
        return 33 + static_cast<int>(random() % 224);
    if (kind < 98)
        return 257 + static_cast<int>(random() % 3840);
    return 4097 + static_cast<int>(random() % 28672);
}

const Trace& getMixedTrace()
{
    static const Trace trace = []
    {
        std::mt19937 random(1);
        Trace operations(OperationNum);
        for (sOperation& operation : operations)
            operation = {static_cast<unsigned int>(random() % LiveNum), drawSize(random)};
        return operations;
    }();
    return trace;
}

// Half of the operations allocate into an empty slot or free a full one, so that some 4000 blocks are live in the end.
template <typename Allocate, typename Free>
double playTrace(Allocate&& allocate, Free&& release)
{
    std::vector<void*> slots(LiveNum, nullptr);
    const Trace& trace = getMixedTrace();
    const double seconds = bench::measure(
        [&]
        {
            for (const sOperation& operation : trace)
            {
                void*& slot = slots[operation.slot];
                if (slot)
                    release(slot);
                slot = allocate(operation.size);
                *static_cast<int*>(slot) = operation.size;
            }
        });
    for (void* slot : slots)
        if (slot)
            release(slot);
    return seconds;
}

bench::Candidates makeMixedTrace()
{
    std::shared_ptr<GPAllocator> heap = std::make_shared<GPAllocator>(HeapSize, "Bench", nullptr, 32, true);
    bench::Candidates candidates{{"general heap", [heap]
                                  {
                                      AllocatorBase* allocator = heap.get();
                                      return playTrace([=](int size) { return allocator->allocate(size, 4); },
                                                       [=](void* block) { allocator->deallocate(block); });
                                  }}};
#ifdef HAS_TBBMALLOC
    candidates.push_back({"tbbmalloc", []
                          {
                              return playTrace([](int size) { return scalable_malloc(static_cast<std::size_t>(size)); },
                                               [](void* block) { scalable_free(block); });
                          }});
#endif
    return candidates;
}

// A heap with holes of 32 bytes between used blocks at its lower end, and the time of pairs that fit in none of them.
std::function<double()> makeHoles(unsigned int holeNum)
{
    constexpr unsigned int PairNum = 20000;

    struct sHoles
    {
        GPAllocator heap{HeapSize, "Bench", nullptr, 0, true};
        std::vector<void*> used;

        ~sHoles()
        {
            for (void* block : used)
                heap.deallocate(block);
        }
    };

    std::shared_ptr<sHoles> holes = std::make_shared<sHoles>();
    std::vector<void*> freed;
    for (unsigned int i = 0; i < holeNum; ++i)
    {
        freed.push_back(holes->heap.allocate(32, 4));
        holes->used.push_back(holes->heap.allocate(32, 4));
    }
    for (void* block : freed)
        holes->heap.deallocate(block);

    return [holes]
    {
        GPAllocator& heap = holes->heap;
        return bench::measure(
            [&]
            {
                for (unsigned int i = 0; i < PairNum; ++i)
                    heap.deallocate(heap.allocate(64 + static_cast<int>(i % 8) * 32, 4));
            });
    };
}

const bench::Goal mixedTrace(9, "general heap: mixed trace of 100k operations with 4000 live", 3.0, makeMixedTrace);
const bench::Goal
    holesGoal(9, "general heap: 50000 holes that do not fit, to its own time at 200", 2.5,
              [] {
                  return bench::Candidates{{"50000 holes", makeHoles(50000)}, {"200 holes", makeHoles(200)}};
              });
}
