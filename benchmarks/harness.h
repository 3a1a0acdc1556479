#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <vector>

// Goals are ratios: our time for a piece of work over that of the best peer for the same work, in the same run.
namespace bench
{
// One way to do the work of a goal.
struct sCandidate
{
    const char* name;

    // Does the work once and returns the seconds that count; what it prepares first does not.
    std::function<double()> round;
};

// Our own candidate stands first, the peers behind it. What the candidates need lives in the closures.
using Candidates = std::vector<sCandidate>;

// A goal makes itself known by existing as an object of static storage. Several may share a number.
class Goal
{
public:
    // `limit` is the largest ratio that holds. `make` is called when the goal's turn has come.
    Goal(unsigned int number, const char* name, double limit, Candidates (*make)());

    unsigned int getNumber() const { return mNumber; }
    const char* getName() const { return mpName; }
    double getLimit() const { return mLimit; }
    Candidates makeCandidates() const { return mMake(); }

    // Ordered by number, then by name.
    static std::vector<const Goal*> getAll();

private:
    unsigned int mNumber;
    const char* mpName;
    double mLimit;
    Candidates (*mMake)();
};

// The seconds that a call takes.
template <typename Work>
double measure(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Keeps the compiler from dropping the work behind a value.
template <typename T>
void keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

// For the files that candidates read and write: in memory where that is possible, since it is not the disk that is
// compared.
std::filesystem::path getMemoryDirectory();

struct sOutcome
{
    // Median seconds of each candidate, and the place of the peer that is compared with; 0 when there is none.
    std::vector<double> seconds;
    unsigned int bestPeer;

    // The median of the ratios of the single rounds.
    double ratio;
};

// Runs the candidates in turn within each round, each round beginning with another one.
sOutcome compare(const Candidates& candidates, unsigned int roundNum);
}
