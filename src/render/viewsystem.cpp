#include "render/viewsystem.h"

#include "foundation/dev.h"
#include "render/window.h"

REFLECT(ViewSystem, eTypeAttribute::Singleton, "System");

ViewSystem::View::View() : mViewport(getWindowRect()), mProjection(mViewport)
{
}

void ViewSystem::View::draw(DrawContext*)
{
}

void ViewSystem::View::setViewport(const sRect& rect)
{
    mViewport = rect & getWindowRect();
}

// On purpose: the words are those of the job system.
ViewSystem::ViewSystem() : Singleton("JobSystem already instanced.")
{
    DEV_TRACE("ViewSystem : start.\n");
}

ViewSystem::~ViewSystem()
{
    DEV_TRACE("ViewSystem : end.\n");
}

void ViewSystem::destroy()
{
    delete this;
}
