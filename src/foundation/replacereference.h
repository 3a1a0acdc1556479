#pragma once

// Puts an object into a field that owns one reference of what it points at; both may be null. The new object gets its
// reference before the old one loses its own, since they may be the same.
template <typename T>
void replaceReference(T*& field, T* object)
{
    if (object)
        object->addRef();
    if (field)
        field->release();
    field = object;
}
