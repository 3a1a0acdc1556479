#pragma once

#include <cstdint>

class JobSystem;
struct sCommand;

// One entry while it is being sorted: the key above, the place in the order of entry below. No two are equal, so the
// one order that they have is that of a stable sort by key.
using CommandRank = std::uint64_t;

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
    struct sPass
    {
        CommandRank* destination;
        const CommandRank* source;
        sCommand** result;
        sCommand* const* command;
        unsigned int count;
        unsigned int width;
    };

    template <typename Method>
    void run(JobSystem* jobs, Method method, unsigned int end, sPass& pass);
    void sortBlockJob(unsigned int index, void* pass);
    void sortCommandJob(unsigned int index, void* pass);
    void mergeLastJob(unsigned int index, void* pass);

    CommandRank* mpRank[2];
};
