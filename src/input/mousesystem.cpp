#include "input/mousesystem.h"

#include "application/application.h"
#include "foundation/dev.h"

REFLECT(MouseSystem, eTypeAttribute::Singleton, "System");

MouseSystem::MouseSystem(HIDSystem*) : Singleton("MouseSystem already instanced.")
{
    DEV_TRACE("MouseSystem : start.\n");
    setProcessEnable(false, true, false);
}

MouseSystem::~MouseSystem()
{
    DEV_TRACE("MouseSystem : end.\n");
}

void MouseSystem::destroy()
{
    delete this;
}

void MouseSystem::update()
{
    const Application& application = *Application::getInstance();
    const unsigned int button = application.getMouseButton();
    mPosition = application.getCursorPosition();
    mButtonOn = button;
    mButtonOff = ~button;
    mButtonTrgOn = button & ~mButtonPrevious;
    mButtonTrgOff = mButtonPrevious & ~button;
    mButtonPrevious = button;
    mWheelPrevious = mWheelCurrent;
    mWheelCurrent = application.getWheelAmount();
}
