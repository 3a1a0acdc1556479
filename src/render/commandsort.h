#pragma once

#include "render/commandpieces.h"

#include <vector>

class JobSystem;
struct sCommand;

// Sorts at most four entries.
void sortCommandEach4(CommandRank* destination, const CommandRank* source, unsigned int count);

// Merges the two sorted halves of a run of at most `width` entries, of which `remaining` are there.
void sortCommandEach(CommandRank* destination, const CommandRank* source, unsigned int width, unsigned int remaining);

// Sorts the commands of a frame by key, stably, in passes that the job threads share: runs of four, then of twice
// the width each time. Blocks that fit the processor's cache go through their passes in one job.
class CommandSort
{
public:
    // The memory comes from the systems' allocator.
    explicit CommandSort(unsigned int capacity);
    ~CommandSort();

    CommandSort(const CommandSort&) = delete;
    CommandSort& operator=(const CommandSort&) = delete;

    // Writes the commands in ascending order of their keys. `jobs` may be null.
    void sort(sCommand** destination, sCommand* const* source, unsigned int count, JobSystem* jobs);

private:
    // Two arrays of one block fit the first cache of a processor.
    static constexpr unsigned int BlockSize = 2048;
    static constexpr unsigned int RunNum = 32;

    struct sPass
    {
        CommandRank* destination;
        CommandRank* source;
        sCommand** result;
        sCommand* const* command;
        unsigned int count;
        unsigned int width;
    };

    // Where the runs of a block begin that are sorted as they come; RunNum of them stand for too many.
    struct sBlock
    {
        bool sorted;
        unsigned int runNum;
        unsigned int runBegin[RunNum + 1];
    };

    template <typename Method>
    void run(JobSystem* jobs, Method method, unsigned int end, sPass& pass);
    void rank(JobSystem* jobs, unsigned int blockNum, sPass& pass);
    void rankJob(unsigned int index, void* pass);
    void rankBlock(unsigned int index, const sPass& pass);
    static void findRuns(sBlock& block, const CommandRank* rank, unsigned int begin, unsigned int end);
    bool joinRuns(const sPass& pass, unsigned int blockNum);
    void sortBlockJob(unsigned int index, void* pass);
    void sortCommandJob(unsigned int index, void* pass);
    void mergeLastJob(unsigned int index, void* pass);

    CommandRank* mpRank[2];
    std::vector<sBlock> mBlock;
    CommandPieces mPieces;
};
