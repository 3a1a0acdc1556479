#pragma once

#include "foundation/multithread.h"
#include "reflection/objectbase.h"

// An object shared by count. It starts with one reference; the last release() calls end().
class ReferenceObject : public ObjectBase
{
public:
    void addRef() { mReference.increment(); }
    void release();

    // What happens to an object without references. Deletes it.
    virtual void end();

    int getReferenceCount() const { return mReference.get(); }

private:
    Atomic mReference{1};
};
