#include "render/commandsort.h"

#include "application/system.h"
#include "foundation/jobsystem.h"
#include "render/command.h"

#include <algorithm>
#include <cstring>

namespace
{
// A block's two arrays fit the first cache of a processor.
constexpr unsigned int BlockSize = 1024;
constexpr unsigned int RunSize = 4;

CommandRank makeRank(const sCommand* command, unsigned int place)
{
    return static_cast<CommandRank>(command->key) << 32 | place;
}

void copy(CommandRank* destination, const CommandRank* source, unsigned int count)
{
    std::memcpy(destination, source, count * sizeof(CommandRank));
}

void order(CommandRank& first, CommandRank& second)
{
    const CommandRank low = std::min(first, second);
    second = std::max(first, second);
    first = low;
}

// The first `count` entries of the merged halves [left, middle) and [middle, end).
void mergeFront(CommandRank* destination, const CommandRank* left, const CommandRank* middle, const CommandRank* end,
                unsigned int count)
{
    const CommandRank* right = middle;
    const CommandRank* last = destination + count;
    while (destination != last && left != middle && right != end)
    {
        const bool takeRight = *right < *left;
        *destination++ = takeRight ? *right : *left;
        right += takeRight;
        left += !takeRight;
    }
    copy(destination, left != middle ? left : right, static_cast<unsigned int>(last - destination));
}

// The last `count` entries of the merged halves; `destination` is the end of the merged run.
void mergeBack(CommandRank* destination, const CommandRank* begin, const CommandRank* middle, const CommandRank* end,
               unsigned int count)
{
    const CommandRank* left = middle;
    const CommandRank* right = end;
    const CommandRank* first = destination - count;
    while (destination != first && left != begin && right != middle)
    {
        const bool takeLeft = right[-1] < left[-1];
        *--destination = takeLeft ? left[-1] : right[-1];
        left -= takeLeft;
        right -= !takeLeft;
    }
    const unsigned int rest = static_cast<unsigned int>(destination - first);
    copy(destination - rest, (left != begin ? left : right) - rest, rest);
}

// Both ends at once, for halves of equal length: neither walk can leave its half, and the two do not wait for each
// other.
void mergeBothEnds(CommandRank* destination, const CommandRank* source, unsigned int half)
{
    const CommandRank* left = source;
    const CommandRank* right = source + half;
    const CommandRank* leftBack = source + half - 1;
    const CommandRank* rightBack = source + 2 * half - 1;
    CommandRank* back = destination + 2 * half - 1;
    for (unsigned int i = 0; i < half; ++i)
    {
        const bool takeRight = *right < *left;
        *destination++ = takeRight ? *right : *left;
        right += takeRight;
        left += !takeRight;

        const bool takeLeft = *rightBack < *leftBack;
        *back-- = takeLeft ? *leftBack : *rightBack;
        leftBack -= takeLeft;
        rightBack -= !takeLeft;
    }
}

// True if the sorted runs of that width already follow each other.
bool isOrdered(const CommandRank* rank, unsigned int count, unsigned int width)
{
    for (unsigned int i = width; i < count; i += width)
    {
        if (rank[i] < rank[i - 1])
            return false;
    }
    return true;
}

void resolve(sCommand** destination, const CommandRank* rank, sCommand* const* command, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        destination[i] = command[static_cast<unsigned int>(rank[i])];
}
}

void sortCommandEach4(CommandRank* destination, const CommandRank* source, unsigned int count)
{
    constexpr CommandRank Greatest = ~CommandRank{0};
    CommandRank a = source[0];
    CommandRank b = count > 1 ? source[1] : Greatest;
    CommandRank c = count > 2 ? source[2] : Greatest;
    CommandRank d = count > 3 ? source[3] : Greatest;
    order(a, b);
    order(c, d);
    order(a, c);
    order(b, d);
    order(b, c);
    const CommandRank sorted[RunSize] = {a, b, c, d};
    copy(destination, sorted, std::min(count, RunSize));
}

void sortCommandEach(CommandRank* destination, const CommandRank* source, unsigned int width, unsigned int remaining)
{
    const unsigned int half = width / 2;
    const unsigned int count = std::min(width, remaining);
    if (count <= half || source[half - 1] < source[half])
        copy(destination, source, count);
    else if (count == width)
        mergeBothEnds(destination, source, half);
    else
        mergeFront(destination, source, source + half, source + count, count);
}

CommandSort::CommandSort(unsigned int capacity)
{
    for (CommandRank*& rank : mpRank)
        rank = static_cast<CommandRank*>(System::allocate(capacity * static_cast<unsigned int>(sizeof(CommandRank))));
}

CommandSort::~CommandSort()
{
    for (CommandRank* rank : mpRank)
        System::deallocate(rank);
}

void CommandSort::sort(sCommand** destination, sCommand* const* source, unsigned int count, JobSystem* jobs)
{
    sPass pass = {mpRank[0], mpRank[1], destination, source, count, BlockSize};
    run(jobs, &CommandSort::sortBlockJob, (count + BlockSize - 1) / BlockSize, pass);

    while (!isOrdered(pass.destination, count, pass.width))
    {
        pass.width *= 2;
        std::swap(mpRank[0], mpRank[1]);
        pass.source = mpRank[1];
        pass.destination = mpRank[0];
        if (pass.width >= count)
            return run(jobs, &CommandSort::mergeLastJob, 2, pass);
        run(jobs, &CommandSort::sortCommandJob, (count + pass.width - 1) / pass.width, pass);
    }
    resolve(destination, pass.destination, source, count);
}

template <typename Method>
void CommandSort::run(JobSystem* jobs, Method method, unsigned int end, sPass& pass)
{
    if (jobs && end > 1)
        return jobs->executeLoopJob(this, method, 0u, end, &pass);
    for (unsigned int i = 0; i < end; ++i)
        (this->*method)(i, &pass);
}

// Leaves the block sorted in the destination, whichever of the two arrays its last pass came from.
void CommandSort::sortBlockJob(unsigned int index, void* passData)
{
    const sPass& pass = *static_cast<sPass*>(passData);
    const unsigned int begin = index * BlockSize;
    const unsigned int count = std::min(BlockSize, pass.count - begin);
    CommandRank* rank = pass.destination + begin;
    CommandRank* other = const_cast<CommandRank*>(pass.source) + begin;

    bool ordered = true;
    CommandRank previous = 0;
    for (unsigned int i = 0; i < count; ++i)
    {
        rank[i] = makeRank(pass.command[begin + i], begin + i);
        ordered &= previous <= rank[i];
        previous = rank[i];
    }
    if (ordered)
        return;

    for (unsigned int i = 0; i < count; i += RunSize)
        sortCommandEach4(rank + i, rank + i, count - i);
    for (unsigned int width = RunSize * 2; width < count * 2; width *= 2)
    {
        for (unsigned int i = 0; i < count; i += width)
            sortCommandEach(other + i, rank + i, width, count - i);
        std::swap(rank, other);
    }
    if (rank != pass.destination + begin)
        copy(other, rank, count);
}

void CommandSort::sortCommandJob(unsigned int index, void* passData)
{
    const sPass& pass = *static_cast<sPass*>(passData);
    const unsigned int begin = index * pass.width;
    sortCommandEach(pass.destination + begin, pass.source + begin, pass.width, pass.count - begin);
}

// The last pass has one run only: one job merges its lower half from the front, the other its upper half from the
// back, and each looks up the commands of what it merged.
void CommandSort::mergeLastJob(unsigned int index, void* passData)
{
    const sPass& pass = *static_cast<sPass*>(passData);
    const CommandRank* middle = pass.source + pass.width / 2;
    const CommandRank* end = pass.source + pass.count;
    const unsigned int lower = pass.count / 2;
    const unsigned int begin = index ? lower : 0;
    const unsigned int count = index ? pass.count - lower : lower;

    if (index)
        mergeBack(pass.destination + pass.count, pass.source, middle, end, count);
    else
        mergeFront(pass.destination, pass.source, middle, end, count);
    resolve(pass.result + begin, pass.destination + begin, pass.command, count);
}
