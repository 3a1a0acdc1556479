#include "benchmarks/harness.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{
constexpr unsigned int RoundNum = 31;
constexpr const char* RatioCounter = "ratio";
constexpr const char* LimitCounter = "goal";

// The time of the benchmark is our own; those of the peers, in seconds, stand beside it as counters.
void run(benchmark::State& state, const bench::Goal& goal)
{
    const bench::Candidates candidates = goal.makeCandidates();
    const bench::sOutcome outcome = bench::compare(candidates, RoundNum);
    for ([[maybe_unused]] auto turn : state)
        state.SetIterationTime(outcome.seconds[0]);

    for (std::size_t i = 1; i < candidates.size(); ++i)
        state.counters[candidates[i].name] = outcome.seconds[i];
    state.counters[LimitCounter] = goal.getLimit();
    if (outcome.bestPeer)
        state.counters[RatioCounter] = outcome.ratio;
    else
        state.SkipWithError("no peer is installed");
}

// One line a goal: number, name, ratio, goal, and whether it holds. One without a peer cannot hold.
class GoalReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            report(run);
    }

    bool allHold() const { return mAllHold; }

private:
    static double getCounter(const Run& run, const char* name)
    {
        const auto counter = run.counters.find(name);
        return counter == run.counters.end() ? 0.0 : counter->second.value;
    }

    void report(const Run& run)
    {
        const double ratio = getCounter(run, RatioCounter);
        const double limit = getCounter(run, LimitCounter);
        const bool holds = !run.error_occurred && ratio <= limit;
        std::printf("%s, %.2f, %.2f, %s\n", run.run_name.function_name.c_str(), ratio, limit,
                    holds ? "holds" : "short");
        std::fflush(stdout);
        mAllHold &= holds;
    }

    bool mAllHold = true;
};

// True if `option` was there; it is taken out.
bool takeOption(int& argumentNum, char** arguments, const char* option)
{
    for (int i = 1; i < argumentNum; ++i)
    {
        if (std::strcmp(arguments[i], option) != 0)
            continue;
        for (--argumentNum; i < argumentNum; ++i)
            arguments[i] = arguments[i + 1];
        return true;
    }
    return false;
}

void registerGoals()
{
    for (const bench::Goal* goal : bench::Goal::getAll())
    {
        const std::string name = std::to_string(goal->getNumber()) + ", " + goal->getName();
        benchmark::RegisterBenchmark(name.c_str(), [goal](benchmark::State& state) { run(state, *goal); })
            ->Iterations(1)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
}
}

// bench_goals [--goals] [--benchmark_...]: with --goals the status is 0 only if every goal asked for holds.
int main(int argumentNum, char** arguments)
{
    const bool lines = takeOption(argumentNum, arguments, "--goals");
    registerGoals();
    benchmark::Initialize(&argumentNum, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentNum, arguments))
        return EXIT_FAILURE;

    if (!lines)
    {
        benchmark::RunSpecifiedBenchmarks();
        return EXIT_SUCCESS;
    }
    GoalReporter reporter;
    const std::size_t number = benchmark::RunSpecifiedBenchmarks(&reporter);
    return number && reporter.allHold() ? EXIT_SUCCESS : EXIT_FAILURE;
}
