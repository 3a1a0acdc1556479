#pragma once

#include "reflection/objectlist.h"

// Searches of lists whose elements are sorted by their frame; `Element` names the class of all elements.

// The first element at exactly that frame, or null.
template <typename Element>
Element* findAtFrame(const ObjectList& list, unsigned int frame)
{
    for (ObjectBase* object : list)
    {
        if (static_cast<Element*>(object)->getFrame() == frame)
            return static_cast<Element*>(object);
    }
    return nullptr;
}

// The place of the first element with a greater frame, and the size where there is none.
template <typename Element>
unsigned int findPlaceBehindFrame(const ObjectList& list, unsigned int frame)
{
    unsigned int index = 0;
    for (ObjectBase* object : list)
    {
        if (static_cast<Element*>(object)->getFrame() > frame)
            break;
        ++index;
    }
    return index;
}

// The last element whose frame is not greater, or null.
template <typename Element>
Element* findUpToFrame(const ObjectList& list, unsigned int frame)
{
    const unsigned int behind = findPlaceBehindFrame<Element>(list, frame);
    return behind ? static_cast<Element*>(list[behind - 1]) : nullptr;
}

// The same place for an element of the list, counted without the element itself.
template <typename Element>
unsigned int findPlaceAmongOthers(const ObjectList& list, const Element& element)
{
    unsigned int index = 0;
    for (ObjectBase* object : list)
    {
        const Element* other = static_cast<Element*>(object);
        if (other == &element)
            continue;
        if (other->getFrame() > element.getFrame())
            break;
        ++index;
    }
    return index;
}
