#include "render/window.h"

#include "platform/platform.h"

sRect getWindowRect()
{
    const Platform* platform = Platform::getInstance();
    return platform ? sRect(platform->getWindowWidth(), platform->getWindowHeight()) : sRect::Zero;
}
