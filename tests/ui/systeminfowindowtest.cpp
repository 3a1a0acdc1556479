#include "ui/systeminfowindow.h"

#include "application/systemmanager.h"
#include "foundation/jobsystem.h"
#include "input/keyboardsystem.h"
#include "tests/support/headlessinterface.h"
#include "ui/uidesktop.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace
{
// Among the children of a form with scroll bars.
constexpr int HolderOfClients = 2;

UIBase* getChild(const UIBase* element, int index)
{
    return *(element->getChildrenBegin() + index);
}

// The block of each system by its name.
std::map<std::string, UIBase*> getGroups(const UIBase* window)
{
    const UIBase* holder = getChild(window, HolderOfClients);
    const SystemManager& manager = *SystemManager::getInstance();
    std::map<std::string, UIBase*> groups;
    for (unsigned int i = 0; i < manager.getSystemNum(); ++i)
        groups[manager.getSystem(i)->getTypeInfo()->getName()] = getChild(holder, static_cast<int>(i));
    return groups;
}
}

TEST(SystemInfoWindowTest, ShowsEverySystemAndEditsThemWhileTheyRun)
{
    HeadlessInterface interface(2);
    interface.mSystem->getDesktop()->launchSystemManager();
    interface.runFrames(2);
    ASSERT_EQ(interface.mSystem->getWindowList().size(), 1u);
    std::map<std::string, UIBase*> groups =
        getGroups(static_cast<const UIWindow*>(interface.mSystem->getWindowList()[0]));
    const std::map<std::string, unsigned int> controlNums = {
        {"JobSystem", 1}, {"RenderSystem", 1}, {"MouseSystem", 4}, {"KeyboardSystem", 3},
        {"UISystem", 17}, {"ToolSystem", 1},   {"ViewSystem", 0},  {"ResourceSystem", 0},
    };
    for (const auto& [name, num] : controlNums)
        EXPECT_EQ(groups[name]->getChildCount(), num) << name;

    interface.mSystem->focus(getChild(getChild(groups["JobSystem"], 0), 0));
    interface.pressKey(KeyboardSystem::UpArrow);
    EXPECT_EQ(JobSystem::getInstance()->getJobThreadNum(), JobSystem::MaximumThreadNum);
    interface.runFrames(2);

    UIBase* redOfWindows = getChild(getChild(groups["UISystem"], 3), 4);
    redOfWindows->sendMessage(UIMouseDownMessage(sPoint(200, 0), UIMouseDownMessage::FirstButton));
    EXPECT_EQ(interface.mSystem->mWindowColor, sColor(255, 0, 255, 255));
}
