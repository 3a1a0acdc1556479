#include "application/quitrequest.h"

#include "tool/toolbase.h"
#include "ui/uisystem.h"

void QuitRequest::start()
{
    UISystem::getInstance()->defocus();
    mPending = true;
}

// A tool that has a dialog open anyway is waited for and not asked a second time.
bool QuitRequest::update()
{
    if (!mPending)
        return false;
    ToolBase* tool = findUnsaved();
    if (!tool)
        return true;

    const bool hasAsked = tool == mpAsking;
    mpAsking = tool;
    if (tool->hasOpenDialog())
        return false;
    if (hasAsked)
        *this = QuitRequest();
    else
        tool->close();
    return false;
}

ToolBase* QuitRequest::findUnsaved() const
{
    const UISystem& system = *UISystem::getInstance();
    ToolBase* first = nullptr;
    for (ObjectBase* window : system.getWindowList())
    {
        ToolBase* tool = window->cast<ToolBase>();
        if (!tool || system.isListedForRemoval(tool) || !tool->isManagedResourceModified())
            continue;
        if (tool == mpAsking)
            return tool;
        if (!first)
            first = tool;
    }
    return first;
}
