#include "input/mousesystem.h"

#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

TEST(MouseSystemTest, KeepsWhatItSawUntilTheNextUpdate)
{
    HeadlessApplication application;
    MouseSystem* mouse = MouseSystem::create(nullptr);
    application.sendMouse({.x = 30, .y = 40});
    application.sendMouse({.kind = eMouseEvent::Wheel, .x = 30, .y = 40, .axis = 1, .amount = 3});
    EXPECT_EQ(mouse->getPosition(), sPoint::Zero);
    mouse->update();
    EXPECT_EQ(mouse->getPosition(), sPoint(30, 40));
    EXPECT_EQ(mouse->getWheelAmount(), sPoint(0, 3));

    application.sendMouse({.kind = eMouseEvent::Wheel, .axis = 0, .amount = -2});
    application.sendMouse({.kind = eMouseEvent::Down, .button = 1});
    application.sendMouse({.kind = eMouseEvent::Up, .button = 1});
    mouse->update();
    EXPECT_EQ(mouse->getWheelAmount(), sPoint(-2, 0)) << "of the last frame alone";
    EXPECT_EQ(mouse->getButtonTrgOn() | mouse->getButtonTrgOff(), 0u) << "a click between two frames is not seen";
    mouse->destroy();
}
