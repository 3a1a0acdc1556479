// A program with the real operators: allocates in each way, or leaves something behind, and ends. What it finds wrong
// goes to the standard error stream and into its exit status.

#include "foundation/allocator.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <dlfcn.h>

namespace
{
int faultNum = 0;

void check(bool holds, const char* claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", claim);
    ++faultNum;
}

bool isInHeap(const void* block)
{
    const AllocatorBase* heap = AllocatorBase::getGlobalAllocator();
    const char* start = static_cast<const char*>(heap->getHeap());
    return block >= start && block < start + heap->getHeapSize();
}

using Bytes = char[100];

// Made before main and ended after it.
std::vector<int> early(1000, 1);

void checkOperators()
{
    const AllocatorBase* heap = AllocatorBase::getGlobalAllocator();
    const unsigned int used = heap->getUsedSize();
    {
        std::unique_ptr<int> object(new int);
        std::unique_ptr<int> quiet(new (std::nothrow) int);
        std::unique_ptr<Bytes[]> array(new Bytes[10]);
        const std::string text(100, 'x');
        check(isInHeap(object.get()) && isInHeap(array.get()) && isInHeap(quiet.get()), "operators leave the heap");
        check(isInHeap(text.data()) && isInHeap(early.data()), "the standard library leaves the heap");
        check(heap->getUsedSize() > used, "nothing is counted");
    }
    check(heap->getUsedSize() == used, "operator delete keeps something");

    volatile std::size_t num = 0x80000000;
    check(new char[num] == nullptr, "more than a signed word can tell is given");
    num = heap->getHeapSize() / sizeof(Bytes);
    check(new Bytes[num] == nullptr, "more than the heap holds is given");
    check(dlsym(RTLD_DEFAULT, "_Znwm") != reinterpret_cast<void*>(static_cast<void* (*)(std::size_t)>(&operator new)),
          "shared libraries see the operators");
}
}

int main(int argumentNum, char** arguments)
{
    static std::vector<int> late(1000, 2);
    checkOperators();
    if (argumentNum > 1 && std::strcmp(arguments[1], "leak") == 0)
        early[0] = *(new Bytes[2])[0];
    return faultNum;
}
