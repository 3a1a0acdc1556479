#include "render/commandsort.h"

#include "application/system.h"
#include "foundation/jobsystem.h"
#include "render/command.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr unsigned int NetworkSize = 4;

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

// Merges runs that follow each other, each of two sorted halves of equal length, and each from both ends at once: no
// walk can leave its half, and none waits for another. Where the right half stands follows from how many entries came
// from the left one, so that a walk is one number.
template <unsigned int RunNum>
void mergeBothEnds(CommandRank* destination, const CommandRank* source, std::size_t half)
{
    std::size_t front[RunNum] = {};
    std::size_t back[RunNum] = {};
    const std::size_t width = 2 * half;
    for (std::size_t i = 0; i < half; ++i)
    {
        for (unsigned int run = 0; run < RunNum; ++run)
        {
            const CommandRank* begin = source + run * width;
            CommandRank* merged = destination + run * width;
            const CommandRank left = begin[front[run]];
            const CommandRank right = begin[half + i - front[run]];
            merged[i] = std::min(left, right);
            front[run] += left < right;

            const CommandRank leftBack = begin[half - 1 - back[run]];
            const CommandRank rightBack = begin[width - 1 - i + back[run]];
            merged[width - 1 - i] = std::max(leftBack, rightBack);
            back[run] += rightBack < leftBack;
        }
    }
}

// One pass over a block. Two runs that both need merging go together: twice as many walks wait for memory at once.
void mergePass(CommandRank* destination, const CommandRank* source, unsigned int width, unsigned int count)
{
    const unsigned int half = width / 2;
    for (unsigned int i = 0; i < count;)
    {
        const CommandRank* run = source + i;
        const bool isPair =
            count - i >= 2 * width && run[half] < run[half - 1] && run[width + half] < run[width + half - 1];
        if (isPair)
            mergeBothEnds<2>(destination + i, run, half);
        else
            sortCommandEach(destination + i, run, width, count - i);
        i += isPair ? 2 * width : width;
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
    const CommandRank sorted[NetworkSize] = {a, b, c, d};
    copy(destination, sorted, std::min(count, NetworkSize));
}

void sortCommandEach(CommandRank* destination, const CommandRank* source, unsigned int width, unsigned int remaining)
{
    const unsigned int half = width / 2;
    const unsigned int count = std::min(width, remaining);
    if (count <= half || source[half - 1] < source[half])
        copy(destination, source, count);
    else if (count == width)
        mergeBothEnds<1>(destination, source, half);
    else
        mergeFront(destination, source, source + half, source + count, count);
}

CommandSort::CommandSort(unsigned int capacity) : mBlock((capacity + BlockSize - 1) / BlockSize)
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
    const unsigned int blockNum = (count + BlockSize - 1) / BlockSize;
    sPass pass = {mpRank[0], mpRank[1], destination, source, count, BlockSize};
    rank(jobs, blockNum, pass);
    if (joinRuns(pass, blockNum))
        return;
    const auto isSorted = [](const sBlock& block)
    {
        return block.sorted;
    };
    if (!std::all_of(mBlock.begin(), mBlock.begin() + blockNum, isSorted))
        run(jobs, &CommandSort::sortBlockJob, blockNum, pass);

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

// What begins with a few long runs is ranked before another thread would be awake.
void CommandSort::rank(JobSystem* jobs, unsigned int blockNum, sPass& pass)
{
    rankBlock(0, pass);
    if (mBlock[0].runNum == RunNum)
        return run(jobs, &CommandSort::rankJob, blockNum, pass);
    for (unsigned int i = 1; i < blockNum; ++i)
        rankBlock(i, pass);
}

// A block of many short runs is sorted on the spot.
void CommandSort::rankJob(unsigned int index, void* passData)
{
    rankBlock(index, *static_cast<sPass*>(passData));
    if (mBlock[index].runNum == RunNum)
        sortBlockJob(index, passData);
}

// Ranks a block's commands and notes where its runs begin.
void CommandSort::rankBlock(unsigned int index, const sPass& pass)
{
    const unsigned int begin = index * BlockSize;
    const unsigned int end = std::min(begin + BlockSize, pass.count);
    for (unsigned int i = begin; i < end; ++i)
        pass.destination[i] = makeRank(pass.command[i], i);

    sBlock& block = mBlock[index];
    findRuns(block, pass.destination, begin, end);
    block.sorted = block.runNum == 1;
}

// Looks at several entries at once, since mostly none of them begins a run.
void CommandSort::findRuns(sBlock& block, const CommandRank* rank, unsigned int begin, unsigned int end)
{
    constexpr unsigned int Step = 8;
    block.runBegin[0] = begin;
    block.runNum = 1;
    for (unsigned int i = begin + 1; i < end && block.runNum < RunNum; i += Step)
    {
        const unsigned int stepEnd = std::min(i + Step, end);
        bool rises = true;
        for (unsigned int k = i; k < stepEnd; ++k)
            rises &= rank[k - 1] < rank[k];
        for (unsigned int k = i; !rises && k < stepEnd && block.runNum < RunNum; ++k)
        {
            if (rank[k] < rank[k - 1])
                block.runBegin[block.runNum++] = k;
        }
    }
    block.runBegin[block.runNum] = end;
}

// Most frames are made of a few long runs, one a window or a thread, that only have to change places.
bool CommandSort::joinRuns(const sPass& pass, unsigned int blockNum)
{
    mPieces.clear();
    for (unsigned int i = 0; i < blockNum; ++i)
    {
        const sBlock& block = mBlock[i];
        if (block.runNum == RunNum)
            return false;
        for (unsigned int run = 0; run < block.runNum; ++run)
        {
            if (!mPieces.addRun(pass.destination + block.runBegin[run], pass.destination + block.runBegin[run + 1]))
                return false;
        }
    }
    if (!mPieces.merge())
        return false;

    sCommand** result = pass.result;
    for (const CommandPieces::sPiece& piece : mPieces)
    {
        const unsigned int count = static_cast<unsigned int>(piece.end - piece.begin);
        resolve(result, piece.begin, pass.command, count);
        result += count;
    }
    return true;
}

// Leaves the block sorted in the destination, whichever of the two arrays its last pass came from.
void CommandSort::sortBlockJob(unsigned int index, void* passData)
{
    const sPass& pass = *static_cast<sPass*>(passData);
    const unsigned int begin = index * BlockSize;
    const unsigned int count = std::min(BlockSize, pass.count - begin);
    CommandRank* rank = pass.destination + begin;
    CommandRank* other = pass.source + begin;
    if (mBlock[index].sorted)
        return;
    mBlock[index].sorted = true;

    for (unsigned int i = 0; i < count; i += NetworkSize)
        sortCommandEach4(rank + i, rank + i, count - i);
    for (unsigned int width = NetworkSize * 2; width < count * 2; width *= 2)
    {
        mergePass(other, rank, width, count);
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
