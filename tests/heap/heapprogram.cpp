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

struct sObject
{
    char bytes[100];
};

// Made before main and ended after it.
std::vector<int> early(1000, 1);

void checkOperators()
{
    const unsigned int used = AllocatorBase::getGlobalAllocator()->getUsedSize();
    {
        std::unique_ptr<sObject> object(new sObject);
        std::unique_ptr<sObject[]> array(new sObject[10]);
        std::unique_ptr<sObject> quiet(new (std::nothrow) sObject);
        std::string text(100, 'x');
        check(isInHeap(object.get()) && isInHeap(array.get()) && isInHeap(quiet.get()), "operators leave the heap");
        check(isInHeap(text.data()), "the standard library leaves the heap");
        check(isInHeap(early.data()), "what is older than main leaves the heap");
        check(AllocatorBase::getGlobalAllocator()->getUsedSize() > used, "nothing is counted");
    }
    check(AllocatorBase::getGlobalAllocator()->getUsedSize() == used, "operator delete keeps something");
}

void checkLimits()
{
    volatile std::size_t num = 0x80000000;
    check(new char[num] == nullptr, "more than a signed word can tell is given");
    num = AllocatorBase::getGlobalAllocator()->getHeapSize() / sizeof(sObject);
    check(new sObject[num] == nullptr, "more than the heap holds is given");
    check(dlsym(RTLD_DEFAULT, "_Znwm") != reinterpret_cast<void*>(static_cast<void* (*)(std::size_t)>(&operator new)),
          "shared libraries see the operators");
}
}

int main(int argumentNum, char** arguments)
{
    static std::vector<int> late(1000, 2);
    checkOperators();
    checkLimits();
    if (argumentNum > 1 && std::strcmp(arguments[1], "leak") == 0)
        early[0] = (new sObject[2])->bytes[0];
    return faultNum;
}
