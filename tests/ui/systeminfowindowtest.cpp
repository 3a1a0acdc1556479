#include "ui/systeminfowindow.h"

#include "foundation/jobsystem.h"
#include "input/keyboardsystem.h"
#include "tests/support/elements.h"
#include "tests/support/headlessinterface.h"
#include "ui/uidesktop.h"

#include <gtest/gtest.h>

TEST(SystemInfoWindowTest, ShowsEverySystemAndEditsThemWhileTheyRun)
{
    HeadlessInterface interface(2);
    interface.mSystem->getDesktop()->launchSystemManager();
    interface.runFrames(2);
    const UIBase* holder = getChild(*static_cast<UIWindow*>(interface.mSystem->getWindowList()[0]), 2);

    // Jobs, resources, drawing, mouse, keyboard, devices, views, the interface, tools.
    std::vector<unsigned int> controlNums;
    for (UIBase::iterator group = holder->getChildrenBegin(); group != holder->getChildrenEnd(); ++group)
        controlNums.push_back((*group)->getChildCount());
    EXPECT_EQ(controlNums, (std::vector<unsigned int>{1, 0, 1, 4, 3, 0, 0, 17, 1}));

    interface.mSystem->focus(getChild(*holder, 0, 0, 0));
    interface.pressKey(KeyboardSystem::UpArrow);
    interface.mSystem->defocus(); // As the program does it before its end: the jobs go first.
    EXPECT_EQ(JobSystem::getInstance()->getJobThreadNum(), JobSystem::MaximumThreadNum);
    interface.runFrames(2);

    UIBase* redOfWindows = getChild(*holder, 7, 3, 4);
    redOfWindows->sendMessage(UIMouseDownMessage(sPoint(200, 0), UIMouseDownMessage::FirstButton));
    EXPECT_EQ(interface.mSystem->mWindowColor, sColor(255, 0, 255, 255));
}
