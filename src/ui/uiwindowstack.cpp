#include "ui/uiwindowstack.h"

#include "ui/uiwindow.h"

#include <initializer_list>

namespace
{
UIWindow* toWindow(ObjectBase* object)
{
    return static_cast<UIWindow*>(object);
}

UIWindow* getFirst(const ObjectList& list)
{
    return list.empty() ? nullptr : toWindow(*list.begin());
}
}

void UIWindowStack::add(UIWindow* window)
{
    mAddWindowList.addLast(window);
}

UIWindow* UIWindowStack::bringNextAlive()
{
    UIWindow* window = getFirst(mAddWindowList);
    if (!window)
        return nullptr;
    mAddWindowList.remove(mAddWindowList.begin());
    mWindowList.addFirst(window);
    return window;
}

UIWindow* UIWindowStack::raiseModal()
{
    UIWindow* top = nullptr;
    for (UIWindow* window : mModalWindowList)
    {
        mWindowList.remove(window);
        mWindowList.addFirst(window);
        top = window;
    }
    return top;
}

void UIWindowStack::listForRemoval(UIWindow* window)
{
    if (isListedForRemoval(window))
        return;
    mAddWindowList.remove(window);
    mRemoveWindowList.addLast(window);
}

void UIWindowStack::listAllForRemoval()
{
    for (ObjectBase* window : mWindowList)
        listForRemoval(toWindow(window));
    while (UIWindow* window = getFirst(mAddWindowList))
        listForRemoval(window);
}

bool UIWindowStack::isListedForRemoval(const UIWindow* window) const
{
    return mRemoveWindowList.find(window) != mRemoveWindowList.end();
}

UIWindow* UIWindowStack::getNextRemoval() const
{
    return getFirst(mRemoveWindowList);
}

void UIWindowStack::retire(UIWindow* window)
{
    mWindowList.remove(window);
    mAddWindowList.remove(window);
    mModalWindowList.remove(window);
}

void UIWindowStack::disown(const UIWindow* window)
{
    for (const ObjectList* list : {&mWindowList, &mAddWindowList, &mRemoveWindowList})
        for (ObjectBase* object : *list)
            if (toWindow(object)->getOwnerWindow() == window)
                toWindow(object)->setOwnerWindow(nullptr);
}

void UIWindowStack::releaseAfterRemoval()
{
    mRemoveWindowList.reserve(0);
    mWindowList.reserve(mWindowList.size());
}

bool UIWindowStack::hasManagerOf(const ResourceBase* resource) const
{
    if (!resource)
        return false;
    for (ObjectBase* window : mWindowList)
        if (toWindow(window)->getManagedResource() == resource)
            return true;
    return false;
}

void UIWindowStack::notifyInvalidate(UIBase* element) const
{
    for (const ObjectList* list : {&mWindowList, &mAddWindowList})
        for (ObjectBase* window : *list)
            toWindow(window)->notifyInvalidate(element);
}
