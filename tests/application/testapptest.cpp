#include "application/testapp.h"

#include "foundation/jobsystem.h"
#include "tests/support/headlessapplication.h"
#include "ui/uisystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace
{
constexpr Application::sInitializer Initializer = {"Test", 1024, 768, 60, 20, 240};

// An element that is being edited. It notes whether the edit ended in time.
class Edit : public UIBase
{
public:
    explicit Edit(const std::string& statePath) : mStatePath(statePath) {}

    void eventDefocus() override { mInTime = JobSystem::getInstance() && !std::filesystem::exists(mStatePath); }

    bool mInTime = false;

private:
    std::string mStatePath;
};
}

TEST(TestAppTest, EndsAnEditBeforeItSavesAndDestroysAnything)
{
    HeadlessPlace place;
    const std::string state = place.getRoot() + "/intermediate/test.xml";
    Edit edit(state);
    {
        TestApp application(&Initializer);
        application.setup();
        application.update(1.0f);
        UISystem::getInstance()->focus(&edit);
    }
    EXPECT_TRUE(edit.mInTime);
    EXPECT_TRUE(std::filesystem::exists(state));
}
