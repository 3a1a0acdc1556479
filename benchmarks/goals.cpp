#include "benchmarks/harness.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{
constexpr unsigned int RoundNum = 31;

struct sOptions
{
    // One line a goal instead of tables.
    bool lines = false;

    // Only the goals of this number; 0 for all.
    unsigned int number = 0;
};

void printTable(const bench::Goal& goal, const bench::Candidates& candidates, const bench::sOutcome& outcome)
{
    std::printf("%u %s\n", goal.getNumber(), goal.getName());
    for (std::size_t i = 0; i < candidates.size(); ++i)
        std::printf("    %-36s %12.3f us%s\n", candidates[i].name, outcome.seconds[i] * 1e6,
                    i && i == outcome.bestPeer ? "  best peer" : "");
    std::printf("    %-36s %12.3f of %.2f\n", "ratio, median of the rounds", outcome.ratio, goal.getLimit());
}

// A goal without a peer on this machine cannot hold.
bool run(const bench::Goal& goal, const sOptions& options)
{
    const bench::Candidates candidates = goal.makeCandidates();
    const bench::sOutcome outcome = bench::compare(candidates, RoundNum);
    const bool holds = outcome.bestPeer != 0 && outcome.ratio <= goal.getLimit();
    if (options.lines)
        std::printf("%u, %s, %.2f, %.2f, %s\n", goal.getNumber(), goal.getName(), outcome.ratio, goal.getLimit(),
                    holds ? "holds" : "short");
    else
        printTable(goal, candidates, outcome);
    std::fflush(stdout);
    return holds;
}

sOptions readOptions(int argumentNum, char** arguments)
{
    sOptions options;
    for (int i = 1; i < argumentNum; ++i)
    {
        if (std::strcmp(arguments[i], "--goals") == 0)
            options.lines = true;
        else
            options.number = static_cast<unsigned int>(std::atoi(arguments[i]));
    }
    return options;
}
}

// bench_goals [--goals] [NUMBER]: status 0 if every goal asked for holds.
int main(int argumentNum, char** arguments)
{
    const sOptions options = readOptions(argumentNum, arguments);
    bool allHold = true;
    for (const bench::Goal* goal : bench::Goal::getAll())
        if (options.number == 0 || options.number == goal->getNumber())
            allHold &= run(*goal, options);
    return !options.lines || allHold ? EXIT_SUCCESS : EXIT_FAILURE;
}
