#include "benchmarks/harness.h"
#include "foundation/jobsystem.h"
#include "render/command.h"
#include "render/commandsort.h"

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace
{
constexpr unsigned int EntryNum = 16384;
constexpr unsigned int ThreadNum = 2;
constexpr unsigned int RepeatNum = 20;

// Commands as a frame leaves them: each with its vertices behind it.
struct sSlot
{
    sCommand command;
    unsigned char rest[184];
};

// One frame's entries, sorted anew from the same order each time.
class Work
{
public:
    using MakeKey = unsigned int (*)(std::mt19937& random, unsigned int place);

    explicit Work(MakeKey makeKey) : mSlot(EntryNum), mResult(EntryNum), mSort(EntryNum)
    {
        std::mt19937 random(1);
        for (unsigned int i = 0; i < EntryNum; ++i)
        {
            mSlot[i].command = {eCommand::Draw, makeKey(random, i)};
            mEntry.push_back(&mSlot[i].command);
        }
        mpJobs = JobSystem::create(0x10000u, ThreadNum);
    }

    ~Work() { mpJobs->destroy(); }

    double sortOwn()
    {
        return bench::measure(
                   [&]
                   {
                       for (unsigned int i = 0; i < RepeatNum; ++i)
                           mSort.sort(mResult.data(), mEntry.data(), EntryNum, mpJobs);
                   }) /
               RepeatNum;
    }

    double sortStandard()
    {
        double seconds = 0.0;
        for (unsigned int i = 0; i < RepeatNum; ++i)
        {
            mResult = mEntry;
            seconds += bench::measure(
                [&]
                {
                    std::stable_sort(mResult.begin(), mResult.end(),
                                     [](const sCommand* a, const sCommand* b) { return a->key < b->key; });
                });
        }
        return seconds / RepeatNum;
    }

private:
    std::vector<sSlot> mSlot;
    std::vector<sCommand*> mEntry;
    std::vector<sCommand*> mResult;
    CommandSort mSort;
    JobSystem* mpJobs;
};

template <unsigned int (*Key)(std::mt19937&, unsigned int)>
bench::Candidates makeSort()
{
    const auto work = std::make_shared<Work>(Key);
    return {{"CommandSort, two threads",
             [work]
             {
                 return work->sortOwn();
             }},
            {"std::stable_sort", [work]
             {
                 return work->sortStandard();
             }}};
}

unsigned int makeRandom(std::mt19937& random, unsigned int)
{
    return static_cast<unsigned int>(random());
}

unsigned int makeLevel(std::mt19937& random, unsigned int)
{
    return static_cast<unsigned int>(random() % 48) << 16;
}

// Windows of 170 commands each, entered in turn from below and from above; levels rise within a window.
unsigned int makeWindowRun(std::mt19937&, unsigned int place)
{
    const unsigned int window = place / 170;
    return 5u << 28 | (window % 2 ? window : 96 - window) << 8 | place % 170 / 8;
}

unsigned int makeSorted(std::mt19937&, unsigned int place)
{
    return place;
}

constexpr double Limit = 0.35;
const bench::Goal random(8, "sort of 16384 commands, random", Limit, makeSort<makeRandom>);
const bench::Goal levels(8, "sort of 16384 commands, 48 levels", Limit, makeSort<makeLevel>);
const bench::Goal windows(8, "sort of 16384 commands, window runs", Limit, makeSort<makeWindowRun>);
const bench::Goal sorted(8, "sort of 16384 commands, sorted", Limit, makeSort<makeSorted>);
}
