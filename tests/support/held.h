#pragma once

#include <memory>

// Gives a reference to a resource or a texture back.
struct sRelease
{
    template <typename T>
    void operator()(T* object) const
    {
        object->release();
    }
};

template <typename T>
using Held = std::unique_ptr<T, sRelease>;
