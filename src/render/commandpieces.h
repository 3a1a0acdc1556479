#pragma once

#include <cstdint>

// One entry while it is being sorted: the key above, the place in the order of entry below. No two are equal, so the
// one order that they have is that of a stable sort by key.
using CommandRank = std::uint64_t;

// Sorted runs, merged as pieces whose entries stay where they are: a piece is cut where another one belongs in
// between. That is quick while there are few of them.
class CommandPieces
{
public:
    static constexpr unsigned int MaximumNum = 512;

    struct sPiece
    {
        const CommandRank* begin;
        const CommandRank* end;
    };

    void clear();

    // Runs come in any order; one that goes on where the last one ended becomes part of it. False if there is no room.
    [[nodiscard]] bool addRun(const CommandRank* begin, const CommandRank* end);

    // Puts the pieces into one ascending order. False, with nothing to be used, if they become too many.
    [[nodiscard]] bool merge();

    const sPiece* begin() const { return mpPiece; }
    const sPiece* end() const { return mpPiece + mNum; }

private:
    bool mergeLists(sPiece* first, sPiece* middle, sPiece* last);
    bool emit(const CommandRank* begin, const CommandRank* end);

    sPiece mStore[2][MaximumNum];
    unsigned int mListEnd[MaximumNum];
    sPiece* mpPiece = mStore[0];
    sPiece* mpMerged = mStore[1];
    unsigned int mNum = 0;
    unsigned int mMergedNum = 0;
    unsigned int mListNum = 0;
};
