#include "tests/support/headlessapplication.h"

#include "foundation/dev.h"

#include <cstdlib>
#include <filesystem>

namespace
{
constexpr Application::sInitializer Initializer = {"Test", 1024, 768, 60, 20, 240};
}

HeadlessPlace::HeadlessPlace() : mRoot(std::filesystem::temp_directory_path() / "cellwrightXXXXXX")
{
    if (!mkdtemp(mRoot.data()) || !Platform::create(ePlatform::Headless))
        DEV_ERROR("The test has no place to run.");
    Platform::forceResourceDirectory(mRoot.c_str());
}

HeadlessPlace::~HeadlessPlace()
{
    Platform::forceResourceDirectory("");
    Platform::destroy();
    std::error_code error;
    std::filesystem::remove_all(mRoot, error);
}

HeadlessApplication::HeadlessApplication() : Application(&Initializer)
{
}
