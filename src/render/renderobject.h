#pragma once

#include "foundation/referenceobject.h"

#include <atomic>
#include <cstddef>

// A shared object that commands already recorded may still name when its owner lets go of it. It is therefore not
// deleted by the last release(), which only ends it; RenderSystem deletes what has ended after the next replay.
class RenderObject : public ReferenceObject
{
public:
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block);

    // Notes the frame of the latest use. Any thread may call it.
    void protect(unsigned int frame) { mProtectFrame.store(frame, std::memory_order_relaxed); }

    // Ends the protection once `frame` has reached the noted one.
    void unprotect(unsigned int frame);

    // Any thread may drop the last reference; the main thread may delete the object from here on.
    void end() override { mEnd.store(true, std::memory_order_release); }

    // On purpose: nothing sets mProtected, so that an ended object is invalid at once.
    bool isValid() const { return !mEnd.load(std::memory_order_acquire) || mProtected; }

private:
    std::atomic<bool> mEnd = false;
    bool mProtected = false;
    std::atomic<unsigned int> mProtectFrame = 0;
};
