#include "tests/support/headlessinterface.h"

#include "application/systemmanager.h"
#include "foundation/jobsystem.h"
#include "input/hidsystem.h"
#include "platform/event.h"
#include "render/rendersystem.h"
#include "render/viewsystem.h"
#include "resource/resourcesystem.h"
#include "tool/toolsystem.h"
#include "ui/uijobround.h"

#include <bit>

namespace
{
constexpr unsigned int JobMemorySize = 0x10000;
constexpr std::uint64_t ClockStart = 1000000000;
}

HeadlessInterface::HeadlessInterface(unsigned int threadNum)
{
    // The clock stands, so that a round would never begin to use other threads.
    UIJobRound::setPatience(0);
    getPlatform().stopClock(ClockStart);
    SystemManager* manager = SystemManager::getInstance();
    manager->addSystem(JobSystem::create(JobMemorySize, threadNum));
    manager->addSystem(ResourceSystem::create());
    manager->addSystem(RenderSystem::create());
    manager->addSystem(HIDSystem::create());
    manager->addSystem(ViewSystem::create());
    mSystem = UISystem::create();
    manager->addSystem(mSystem);
    manager->addSystem(ToolSystem::create());
    manager->setup();
    manager->order();
}

void HeadlessInterface::runFrame()
{
    SystemManager* manager = SystemManager::getInstance();
    manager->preprocess();
    manager->update();
    mSystem->draw();
    manager->postprocess();
    RenderSystem::getInstance()->executeCommand();
}

void HeadlessInterface::runFrames(unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        runFrame();
}

void HeadlessInterface::movePointer(const sPoint& position)
{
    mPointer = position;
    sendMouse({.kind = getMouseButton() ? eMouseEvent::Dragged : eMouseEvent::Moved, .x = position.x, .y = position.y});
}

void HeadlessInterface::setButton(unsigned int button, bool down)
{
    sendMouse({.kind = down ? eMouseEvent::Down : eMouseEvent::Up,
               .x = mPointer.x,
               .y = mPointer.y,
               .button = static_cast<unsigned int>(std::bit_width(button))});
}

void HeadlessInterface::turnWheel(int notches)
{
    sendMouse({.kind = eMouseEvent::Wheel, .x = mPointer.x, .y = mPointer.y, .axis = 1, .amount = notches});
}

void HeadlessInterface::press(const sPoint& position, unsigned int button)
{
    movePointer(position);
    setButton(button, true);
    runFrame();
}

void HeadlessInterface::release(unsigned int button)
{
    setButton(button, false);
    runFrame();
}

void HeadlessInterface::click(const sPoint& position, unsigned int button)
{
    press(position, button);
    release(button);
}

void HeadlessInterface::pressKey(unsigned char usage)
{
    setKey(usage, true);
    runFrame();
    setKey(usage, false);
    runFrame();
}
