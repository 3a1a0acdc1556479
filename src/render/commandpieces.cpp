#include "render/commandpieces.h"

#include <algorithm>

void CommandPieces::clear()
{
    mNum = 0;
    mListNum = 0;
}

bool CommandPieces::addRun(const CommandRank* begin, const CommandRank* end)
{
    if (mNum && mpPiece[mNum - 1].end == begin && begin[-1] < *begin)
    {
        mpPiece[mNum - 1].end = end;
        return true;
    }
    if (mNum == MaximumNum)
        return false;
    mpPiece[mNum++] = {begin, end};
    mListEnd[mListNum++] = mNum;
    return true;
}

bool CommandPieces::merge()
{
    while (mListNum > 1)
    {
        unsigned int begin = 0;
        unsigned int listNum = 0;
        mMergedNum = 0;
        for (unsigned int i = 0; i < mListNum; i += 2)
        {
            const unsigned int end = mListEnd[std::min(i + 1, mListNum - 1)];
            if (!mergeLists(mpPiece + begin, mpPiece + mListEnd[i], mpPiece + end))
                return false;
            begin = end;
            mListEnd[listNum++] = mMergedNum;
        }
        std::swap(mpPiece, mpMerged);
        mNum = mMergedNum;
        mListNum = listNum;
    }
    return true;
}

bool CommandPieces::mergeLists(sPiece* first, sPiece* middle, sPiece* last)
{
    sPiece* left = first;
    sPiece* right = middle;
    while (left != middle && right != last)
    {
        // The piece that begins lower goes ahead, up to where the other one begins.
        const bool isLeft = *left->begin < *right->begin;
        sPiece*& lower = isLeft ? left : right;
        const CommandRank limit = *(isLeft ? right : left)->begin;
        const CommandRank* cut =
            lower->end[-1] < limit ? lower->end : std::lower_bound(lower->begin, lower->end, limit);
        if (!emit(lower->begin, cut))
            return false;
        lower->begin = cut;
        lower += cut == lower->end;
    }
    for (; left != middle; ++left)
    {
        if (!emit(left->begin, left->end))
            return false;
    }
    for (; right != last; ++right)
    {
        if (!emit(right->begin, right->end))
            return false;
    }
    return true;
}

bool CommandPieces::emit(const CommandRank* begin, const CommandRank* end)
{
    if (mMergedNum == MaximumNum)
        return false;
    mpMerged[mMergedNum++] = {begin, end};
    return true;
}
