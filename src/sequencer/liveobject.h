#pragma once

class ObjectBase;

// Ends an object that TypeInfo::newInstance() made, in the way of its class: what is shared by count is released, all
// else deleted. Null is nothing.
void disposeObject(ObjectBase* object);
