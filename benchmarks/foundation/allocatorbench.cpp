#include "benchmarks/harness.h"
#include "foundation/blockallocator.h"
#include "foundation/instantallocator.h"

#include <memory>
#include <memory_resource>
#include <random>
#include <vector>

#include <dlfcn.h>

namespace
{
// Bump allocation: blocks of the sizes that commands and jobs have, then everything is given up.
constexpr unsigned int BumpHeapSize = 0x400000;
constexpr unsigned int BumpNum = 50000;

int bumpSize(unsigned int index)
{
    return 16 + static_cast<int>(index % 4) * 8;
}

template <typename Allocate>
double bump(Allocate&& allocate)
{
    return bench::measure(
        [&]
        {
            for (unsigned int i = 0; i < BumpNum; ++i)
                bench::keep(allocate(bumpSize(i)));
        });
}

std::function<double()> makeInstant(bool threadSafe)
{
    std::shared_ptr<InstantAllocator> heap =
        std::make_shared<InstantAllocator>(BumpHeapSize, "Bench", nullptr, threadSafe);
    return [heap]
    {
        InstantAllocator* allocator = heap.get();
        bench::keep(allocator);
        const double seconds = bump([=](int size) { return allocator->allocate(size, 8); });
        allocator->clear();
        return seconds;
    };
}

std::function<double()> makeMonotonic()
{
    std::shared_ptr<std::vector<char>> memory = std::make_shared<std::vector<char>>(BumpHeapSize);
    return [memory]
    {
        std::pmr::monotonic_buffer_resource buffer(memory->data(), memory->size(), std::pmr::null_memory_resource());
        std::pmr::monotonic_buffer_resource* resource = &buffer;
        bench::keep(resource);
        return bump([=](int size) { return resource->allocate(static_cast<std::size_t>(size), 8); });
    };
}

// Blocks of a fixed size, as the pool of functors sees them: elements come and go in any order, and each writes what it
// gets.
constexpr unsigned int BlockSize = 32;
constexpr unsigned int BlockNum = 4096;
constexpr unsigned int LiveNum = 3000;
constexpr unsigned int ExchangeNum = 100000;

template <typename Allocate, typename Free>
double exchange(Allocate&& allocate, Free&& release)
{
    std::mt19937 random(1);
    std::vector<unsigned int> places(ExchangeNum);
    for (unsigned int& place : places)
        place = static_cast<unsigned int>(random() % LiveNum);

    std::vector<void*> blocks(LiveNum);
    return bench::measure(
        [&]
        {
            for (void*& block : blocks)
                block = allocate(BlockSize);
            for (unsigned int place : places)
            {
                release(blocks[place]);
                blocks[place] = allocate(BlockSize);
                *static_cast<unsigned int*>(blocks[place]) = place;
            }
            for (void* block : blocks)
                release(block);
        });
}

bench::Candidates makeBlocks()
{
    std::shared_ptr<BlockAllocator> heap =
        std::make_shared<BlockAllocator>(BlockSize, BlockNum, "Bench", nullptr, true);
    bench::Candidates candidates{{"block allocator", [heap]
                                  {
                                      AllocatorBase* allocator = heap.get();
                                      bench::keep(allocator);
                                      return exchange([=](int size) { return allocator->allocate(size, 4); },
                                                      [=](void* block) { allocator->deallocate(block); });
                                  }}};

    // Linking the peer would put it in the place of malloc for the whole program.
    if (void* library = dlopen("libmimalloc.so", RTLD_NOW | RTLD_LOCAL))
    {
        using Allocate = void* (*)(std::size_t);
        using Free = void (*)(void*);
        const Allocate allocate = reinterpret_cast<Allocate>(dlsym(library, "mi_malloc"));
        const Free release = reinterpret_cast<Free>(dlsym(library, "mi_free"));
        candidates.push_back({"mimalloc", [=]
                              {
                                  return exchange(allocate, release);
                              }});
    }
    return candidates;
}

const bench::Goal bumpLocked(
    10, "bump allocator, shared by threads", 1.4,
    [] {
        return bench::Candidates{{"instant allocator", makeInstant(true)}, {"std::pmr monotonic", makeMonotonic()}};
    });
const bench::Goal bumpPlain(
    10, "bump allocator, of one thread", 0.65,
    [] {
        return bench::Candidates{{"instant allocator", makeInstant(false)}, {"std::pmr monotonic", makeMonotonic()}};
    });
const bench::Goal blocks(10, "block allocator", 1.0, makeBlocks);
}
