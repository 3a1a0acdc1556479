#pragma once

class ObjectBase;
class XmlReader;
class XmlWriter;

// What the tags of all objects have in common: the name of the class, and a number that is the object's identity
// within its document.

// Writes both and returns the number.
unsigned int writeIdentity(XmlWriter* writer, ObjectBase* object);

// Writes "stable". True when the contents follow: always for a stable object, otherwise the first time only.
bool writeStability(XmlWriter* writer, ObjectBase* object, unsigned int id, bool stable);

// The number in the open tag; 0 when there is none to use.
unsigned int readIdentity(const XmlReader* reader);

// A new instance of the class that the open tag names, the caller's; null when there is no such class or nothing
// makes its instances.
[[nodiscard]] ObjectBase* makeNamedInstance(const XmlReader* reader);
