#pragma once

#include "application/system.h"
#include "foundation/singleton.h"
#include "foundation/spoint.h"

class HIDSystem;

// The mouse as it was when the frame's update began, with the buttons that changed since the frame before. A press and
// release between two frames is never seen. In all masks bit 0 is the primary button, bit 1 the secondary, bit 2 the
// tertiary.
class MouseSystem : public System, public Singleton<MouseSystem>
{
    REFLECTED(MouseSystem)

    friend class Singleton<MouseSystem>;

public:
    void destroy() override;
    void update() override;

    // Defined in ui, like that of all systems below that folder.
    void makeUIList(List<UIBase>& list) override;

    // In the window's content; outside of it only during a drag.
    const sPoint& getPosition() const { return mPosition; }

    unsigned int getButtonOn() const { return mButtonOn; }

    // The complement, so that all bits without a button are set.
    unsigned int getButtonOff() const { return mButtonOff; }
    unsigned int getButtonTrgOn() const { return mButtonTrgOn; }
    unsigned int getButtonTrgOff() const { return mButtonTrgOff; }

    // Notches of the last frame.
    sPoint getWheelAmount() const { return mWheelCurrent - mWheelPrevious; }

private:
    // The devices' own system has no part in the mouse, which the window reports.
    explicit MouseSystem(HIDSystem* hidSystem);
    ~MouseSystem() override;

    sPoint mPosition = sPoint::Zero;
    unsigned int mButtonOn = 0;
    unsigned int mButtonOff = ~0u;
    unsigned int mButtonTrgOn = 0;
    unsigned int mButtonTrgOff = 0;
    unsigned int mButtonPrevious = 0;
    sPoint mWheelPrevious = sPoint::Zero;
    sPoint mWheelCurrent = sPoint::Zero;
};
