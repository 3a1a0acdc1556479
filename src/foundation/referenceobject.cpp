#include "foundation/referenceobject.h"

#include "foundation/dev.h"

void ReferenceObject::release()
{
    const int old = mReference.decrement();
    if (old == 0)
        dev_assert("Reference counter underflow.", __FILE__, __LINE__);
    if (old == 1)
        end();
}

void ReferenceObject::end()
{
    delete this;
}
