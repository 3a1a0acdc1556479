#include "benchmarks/harness.h"

#include <algorithm>
#include <cstring>

#include <unistd.h>

namespace
{
// Goals register before main in any order.
std::vector<const bench::Goal*>& registry()
{
    static std::vector<const bench::Goal*> goals;
    return goals;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}
}

bench::Goal::Goal(unsigned int number, const char* name, double limit, Candidates (*make)())
    : mNumber(number), mpName(name), mLimit(limit), mMake(make)
{
    registry().push_back(this);
}

std::vector<const bench::Goal*> bench::Goal::getAll()
{
    std::vector<const Goal*> goals = registry();
    std::sort(goals.begin(), goals.end(),
              [](const Goal* left, const Goal* right)
              {
                  return left->mNumber != right->mNumber ? left->mNumber < right->mNumber
                                                         : std::strcmp(left->mpName, right->mpName) < 0;
              });
    return goals;
}

std::filesystem::path bench::getMemoryDirectory()
{
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path();
}

bench::sOutcome bench::compare(const Candidates& candidates, unsigned int roundNum)
{
    const unsigned int candidateNum = static_cast<unsigned int>(candidates.size());
    for (const sCandidate& candidate : candidates)
        candidate.round();

    std::vector<std::vector<double>> times(candidateNum, std::vector<double>(roundNum));
    for (unsigned int round = 0; round < roundNum; ++round)
        for (unsigned int turn = 0; turn < candidateNum; ++turn)
        {
            const unsigned int which = (round + turn) % candidateNum;
            times[which][round] = candidates[which].round();
        }

    sOutcome outcome{{}, 0, 0};
    for (const std::vector<double>& own : times)
        outcome.seconds.push_back(median(own));
    if (candidateNum < 2)
        return outcome;

    const auto best = std::min_element(outcome.seconds.begin() + 1, outcome.seconds.end());
    outcome.bestPeer = static_cast<unsigned int>(best - outcome.seconds.begin());
    std::vector<double> ratios;
    for (unsigned int round = 0; round < roundNum; ++round)
        ratios.push_back(times[0][round] / times[outcome.bestPeer][round]);
    outcome.ratio = median(ratios);
    return outcome;
}
