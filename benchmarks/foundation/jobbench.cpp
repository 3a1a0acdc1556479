#include "benchmarks/harness.h"
#include "foundation/jobsystem.h"

#include <chrono>
#include <memory>

#if __has_include(<tbb/parallel_for.h>)
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#define HAS_TBB
#endif

namespace
{
constexpr unsigned int IndexNum = 16;
constexpr unsigned int ThreadNum = 2;

// Some microseconds of work that the clock does not share in.
class Work
{
public:
    explicit Work(double microseconds) : mTurnNum(static_cast<unsigned int>(microseconds * getTurnsPerMicrosecond())) {}

    void call(unsigned int index, void*)
    {
        unsigned int value = index;
        for (unsigned int i = 0; i < mTurnNum; ++i)
            value = value * 1664525 + 1013904223;
        bench::keep(value);
    }

private:
    static double getTurnsPerMicrosecond()
    {
        static const double turns = []
        {
            constexpr unsigned int TurnNum = 10000000;
            unsigned int value = 1;
            const double seconds = bench::measure(
                [&]
                {
                    for (unsigned int i = 0; i < TurnNum; ++i)
                    {
                        value = value * 1664525 + 1013904223;
                        bench::keep(value);
                    }
                });
            return TurnNum / (seconds * 1e6);
        }();
        return turns;
    }

    unsigned int mTurnNum;
};

struct sPlan
{
    double microseconds;
    unsigned int callNum;
    unsigned int pauseMilliseconds;
};

constexpr sPlan BackToBack{3, 500, 0};
constexpr sPlan AfterSleep{0, 30, 4};

// Only the calls count, not the pauses in front of them.
template <typename Call>
double play(const sPlan& plan, Call&& call)
{
    double seconds = 0;
    for (unsigned int i = 0; i < plan.callNum; ++i)
    {
        if (plan.pauseMilliseconds)
            Thread::sleep(plan.pauseMilliseconds);
        seconds += bench::measure(call);
    }
    return seconds;
}

struct sJobSystemEnd
{
    void operator()(JobSystem* jobSystem) const { jobSystem->destroy(); }
};

bench::Candidates makeLoops(const sPlan& plan)
{
    const std::shared_ptr<Work> work = std::make_shared<Work>(plan.microseconds);
    const std::shared_ptr<JobSystem> jobSystem(JobSystem::create(0x10000, ThreadNum), sJobSystemEnd());
    bench::Candidates candidates{
        {"executeLoopJob", [=]
         {
             return play(plan, [&] { jobSystem->executeLoopJob(work.get(), &Work::call, 0, IndexNum, nullptr); });
         }}};
#ifdef HAS_TBB
    const auto threads = std::make_shared<tbb::global_control>(tbb::global_control::max_allowed_parallelism, ThreadNum);
    candidates.push_back({"oneTBB parallel_for, static", [=]
                          {
                              const auto body = [&](unsigned int index)
                              {
                                  work->call(index, nullptr);
                              };
                              const auto loop = [&]
                              {
                                  tbb::parallel_for(0u, IndexNum, body, tbb::static_partitioner());
                              };
                              return threads ? play(plan, loop) : 0;
                          }});
#endif
    return candidates;
}

const bench::Goal backToBack(7, "loop over 16 indices on two threads: 3 us each, back to back", 1.05,
                             [] { return makeLoops(BackToBack); });
const bench::Goal afterSleep(7, "loop over 16 indices on two threads: empty, after 4 ms asleep", 0.65,
                             [] { return makeLoops(AfterSleep); });
}
