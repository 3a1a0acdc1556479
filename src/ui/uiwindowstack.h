#pragma once

#include "foundation/list.h"
#include "reflection/objectlist.h"

class ResourceBase;
class UIBase;
class UIWindow;

// The windows of the interface, each in the state that it is in: waiting to come alive, alive, or listed to be
// deleted, which a live or waiting window can be besides. The lists delete nothing.
class UIWindowStack
{
public:
    void add(UIWindow* window);

    // Puts the window that has waited longest in front of all others and returns it, or null when none waits.
    UIWindow* bringNextAlive();
    void addModal(UIWindow* window) { mModalWindowList.addLast(window); }

    // Puts the modal windows in front of all others, the newest first, and returns that one, or null.
    UIWindow* raiseModal();

    // A waiting window then waits no longer. Nothing if it is listed already.
    void listForRemoval(UIWindow* window);
    void listAllForRemoval();
    bool isListedForRemoval(const UIWindow* window) const;

    // The listed window that comes next, or null.
    UIWindow* getNextRemoval() const;

    // Takes a listed window out of all other lists.
    void retire(UIWindow* window);

    // No window has that one as its owner any longer.
    void disown(const UIWindow* window);

    // Takes the listed window that came next off the list; it may have been deleted.
    void endRemoval() { mRemoveWindowList.remove(mRemoveWindowList.begin()); }

    // Room for what is to come, and none for what has gone.
    void reserveForAdding() { mWindowList.reserve(mWindowList.size() + mAddWindowList.size()); }
    void releaseAfterAdding() { mAddWindowList.reserve(0); }
    void releaseAfterRemoval();

    // Whether a live window edits that resource, which may be null.
    bool hasManagerOf(const ResourceBase* resource) const;

    // Lets all windows forget an element that dies. Any thread.
    void notifyInvalidate(UIBase* element) const;

    const ObjectList& getWindowList() const { return mWindowList; }
    const ObjectList& getAddWindowList() const { return mAddWindowList; }
    const ObjectList& getRemoveWindowList() const { return mRemoveWindowList; }
    const List<UIWindow>& getModalWindowList() const { return mModalWindowList; }

private:
    // From the topmost to the backmost.
    ObjectList mWindowList;
    ObjectList mAddWindowList;
    ObjectList mRemoveWindowList;

    // In the order of their coming alive.
    List<UIWindow> mModalWindowList;
};
