#pragma once

#include <cstdint>
#include <optional>

// Decides when a frame is due, how long its step is and how long the time left may be slept away. Counts are
// ticks; a tick is numer / denom nanoseconds. With equal limits the clock has a fixed step and missed frames are
// skipped; otherwise the step follows the time that has passed, between the two limits.
class FramePacer
{
public:
    FramePacer() = default;

    // Rates in frames a second. A minimum above the rate, and a maximum below it, is the rate itself.
    FramePacer(float rate, float minRate, float maxRate, std::uint64_t numer, std::uint64_t denom);

    // True for the first call, which only starts the clock: no frame runs then, and nothing is slept away.
    bool start(std::uint64_t now);

    // The step of the frame that is due at `now`, in units of one frame at the target rate; none while no frame
    // is.
    std::optional<float> begin(std::uint64_t now);

    // The milliseconds to sleep when the frame, or the missing of one, has ended at `after`. One millisecond is
    // held back for the latency of waking up, so a sleep of exactly one is dropped.
    unsigned int getSleepTime(std::uint64_t after) const;

    unsigned int getCurrentFrame() const { return mCurrentFrame; }
    float getFrameRate() const { return mFrameRate; }
    float getDeltaTime() const { return mDeltaTime; }

    // The mean of 32 frames, renewed every 32 frames.
    float getAverageFrameRate() const { return mAverageFrameRate; }

private:
    static constexpr unsigned int HistoryNum = 32;

    bool isFixedStep() const { return mMinFrameRate == mMaxFrameRate; }
    std::optional<float> beginVariable(std::uint64_t now);
    std::optional<float> beginFixed(std::uint64_t now);
    void record(float rate);
    std::uint64_t getIdleTicks(std::uint64_t after) const;
    std::uint64_t getInterval(float rate) const;

    float mFrameRate = 0;
    float mMinFrameRate = 0;
    float mMaxFrameRate = 0;
    std::uint64_t mBaseCount = 0;
    std::uint64_t mLastCount = 0;
    unsigned int mCurrentFrame = 0;
    float mFrameRateHistory[HistoryNum] = {};
    unsigned int mFrameRateHistoryIndex = 0;
    float mAverageFrameRate = 0;
    std::uint64_t mFrameInterval = 0;
    std::uint64_t mMinInterval = 0;
    std::uint64_t mMaxInterval = 0;
    bool mFirstFrame = true;
    float mDeltaTime = 0;
    std::uint64_t mTimebaseDenom = 1;
    std::uint64_t mTimebaseNumer = 1;
};
