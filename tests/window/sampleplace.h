#pragma once

#include "platform/platform.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

// A directory of data with the samples, behind a real window.
class SamplePlace : public TemporaryDirectory
{
public:
    SamplePlace()
    {
        std::filesystem::copy(SAMPLE_DIRECTORY, *this / "intermediate", std::filesystem::copy_options::recursive);
        EXPECT_TRUE(Platform::create(ePlatform::SDL));
        Platform::forceResourceDirectory(getPath().c_str());
    }

    ~SamplePlace()
    {
        Platform::forceResourceDirectory("");
        Platform::destroy();
    }
};
