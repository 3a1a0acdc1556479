#pragma once

#include <gtest/gtest.h>

#include <string>

// Collects what is traced from its construction on.
class TraceCapture
{
public:
    TraceCapture() { testing::internal::CaptureStderr(); }
    ~TraceCapture() { take(); }

    // Everything so far; ends the collecting.
    std::string take()
    {
        if (!mTaken)
            mText = testing::internal::GetCapturedStderr();
        mTaken = true;
        return mText;
    }

private:
    bool mTaken = false;
    std::string mText;
};
