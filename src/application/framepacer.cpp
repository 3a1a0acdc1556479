#include "application/framepacer.h"

#include "foundation/dev.h"

#include <algorithm>

namespace
{
constexpr std::uint64_t SecondInNanoseconds = 1000000000;
constexpr std::uint64_t MillisecondInNanoseconds = 1000000;
}

FramePacer::FramePacer(float rate, float minRate, float maxRate, std::uint64_t numer, std::uint64_t denom)
    : mFrameRate(rate),
      mMinFrameRate(std::min(minRate, rate)),
      mMaxFrameRate(std::max(maxRate, rate)),
      mTimebaseDenom(denom),
      mTimebaseNumer(numer)
{
    mFrameInterval = getInterval(mFrameRate);
    mMaxInterval = getInterval(mMinFrameRate);
    mMinInterval = getInterval(mMaxFrameRate);
}

std::uint64_t FramePacer::getInterval(float rate) const
{
    const std::uint64_t divisor = static_cast<std::uint64_t>(rate) * mTimebaseNumer;
    if (divisor == 0)
        dev_assert("Invalid frame rate.", __FILE__, __LINE__);
    return mTimebaseDenom * SecondInNanoseconds / divisor;
}

bool FramePacer::start(std::uint64_t now)
{
    if (!mFirstFrame)
        return false;
    mBaseCount = now;
    mLastCount = now;
    mFirstFrame = false;
    return true;
}

std::optional<float> FramePacer::begin(std::uint64_t now)
{
    return isFixedStep() ? beginFixed(now) : beginVariable(now);
}

std::optional<float> FramePacer::beginVariable(std::uint64_t now)
{
    const std::uint64_t elapsed = now - mLastCount;
    if (elapsed < mMinInterval)
        return std::nullopt;

    const double ticks = static_cast<double>(std::min(elapsed, mMaxInterval));
    mDeltaTime = static_cast<float>(ticks / static_cast<double>(mFrameInterval));
    ++mCurrentFrame;
    mLastCount = now;
    record(mFrameRate / mDeltaTime);
    return mDeltaTime;
}

std::optional<float> FramePacer::beginFixed(std::uint64_t now)
{
    const std::uint64_t frame = (now - mBaseCount) / mFrameInterval;
    if (mCurrentFrame >= frame)
        return std::nullopt;

    mCurrentFrame = static_cast<unsigned int>(frame);
    mAverageFrameRate = mFrameRate;
    mDeltaTime = 1.0f;
    return mDeltaTime;
}

void FramePacer::record(float rate)
{
    mFrameRateHistory[mFrameRateHistoryIndex++] = rate;
    if (mFrameRateHistoryIndex < HistoryNum)
        return;

    float sum = 0;
    for (float entry : mFrameRateHistory)
        sum += entry;
    mAverageFrameRate = sum / static_cast<float>(HistoryNum);
    mFrameRateHistoryIndex = 0;
}

unsigned int FramePacer::getSleepTime(std::uint64_t after) const
{
    const std::uint64_t nanoseconds = getIdleTicks(after) * mTimebaseNumer / mTimebaseDenom;
    const unsigned int sleepTime = static_cast<unsigned int>(nanoseconds / MillisecondInNanoseconds);
    return sleepTime ? sleepTime - 1 : 0;
}

std::uint64_t FramePacer::getIdleTicks(std::uint64_t after) const
{
    if (!isFixedStep())
        return after - mLastCount < mMinInterval ? mMinInterval - (after - mLastCount) : 0;
    if ((after - mBaseCount) / mFrameInterval != mCurrentFrame)
        return 0;
    return mBaseCount + (std::uint64_t(mCurrentFrame) + 1) * mFrameInterval - after;
}
