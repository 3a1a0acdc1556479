#pragma once

#include "platform/platform.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

// A directory of data that holds the samples.
class SampleData : public TemporaryDirectory
{
public:
    SampleData()
    {
        std::filesystem::copy(SAMPLE_DIRECTORY, *this / "intermediate", std::filesystem::copy_options::recursive);
    }
};

// A directory of data behind a real window. The data outlives it where somebody else holds it as well.
class SamplePlace
{
public:
    explicit SamplePlace(std::shared_ptr<const SampleData> data = std::make_shared<SampleData>())
        : mData(std::move(data))
    {
        EXPECT_TRUE(Platform::create(ePlatform::SDL));
        Platform::forceResourceDirectory(mData->getPath().c_str());
    }

    ~SamplePlace()
    {
        Platform::forceResourceDirectory("");
        Platform::destroy();
    }

    SamplePlace(const SamplePlace&) = delete;
    SamplePlace& operator=(const SamplePlace&) = delete;

    std::string operator/(const std::string& name) const { return *mData / name; }

private:
    std::shared_ptr<const SampleData> mData;
};
