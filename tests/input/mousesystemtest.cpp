#include "input/mousesystem.h"

#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

#include <array>

class MouseSystemTest : public testing::Test
{
protected:
    ~MouseSystemTest() override { mMouse->destroy(); }

    HeadlessApplication mApplication;
    MouseSystem* mMouse = MouseSystem::create(nullptr);
};

TEST_F(MouseSystemTest, TellsEachChangeOfTheButtonsForOneFrame)
{
    constexpr struct
    {
        eMouseEvent kind;
        unsigned int button;
        std::array<unsigned int, 3> state;
    } Frames[] = {
        {eMouseEvent::Moved, 0, {0, 0, 0}}, {eMouseEvent::Down, 1, {1, 1, 0}},    {eMouseEvent::Dragged, 0, {1, 0, 0}},
        {eMouseEvent::Down, 3, {5, 4, 0}},  {eMouseEvent::Up, 1, {4, 0, 1}},      {eMouseEvent::Down, 2, {6, 2, 0}},
        {eMouseEvent::Up, 3, {2, 0, 4}},    {eMouseEvent::Dragged, 0, {2, 0, 0}},
    };
    for (const auto& frame : Frames)
    {
        mApplication.sendMouse({.kind = frame.kind, .button = frame.button});
        mMouse->update();
        EXPECT_EQ((std::array{mMouse->getButtonOn(), mMouse->getButtonTrgOn(), mMouse->getButtonTrgOff()}),
                  frame.state);
        EXPECT_EQ(mMouse->getButtonOff(), ~frame.state[0]) << "all bits without a button are set";
    }
}

TEST_F(MouseSystemTest, KeepsWhatItSawUntilTheNextUpdate)
{
    mApplication.sendMouse({.x = 30, .y = 40});
    mApplication.sendMouse({.kind = eMouseEvent::Wheel, .x = 30, .y = 40, .axis = 1, .amount = 3});
    EXPECT_EQ(mMouse->getPosition(), sPoint::Zero);
    mMouse->update();
    EXPECT_EQ(mMouse->getPosition(), sPoint(30, 40));
    EXPECT_EQ(mMouse->getWheelAmount(), sPoint(0, 3));

    mApplication.sendMouse({.kind = eMouseEvent::Wheel, .axis = 0, .amount = -2});
    mApplication.sendMouse({.kind = eMouseEvent::Down, .button = 1});
    mApplication.sendMouse({.kind = eMouseEvent::Up, .button = 1});
    mMouse->update();
    EXPECT_EQ(mMouse->getWheelAmount(), sPoint(-2, 0)) << "of the last frame alone";
    EXPECT_EQ(mMouse->getButtonTrgOn() | mMouse->getButtonTrgOff(), 0u) << "a click between two frames is not seen";
}
