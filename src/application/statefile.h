#pragma once

class AutoString;
class ObjectBase;

// The file that holds the state of the systems between two runs of the program. Whatever it holds, the program starts.
namespace StateFile
{
// Fills the application from the file. One that is missing or empty, or holds the document of something else, changes
// nothing; a damaged one is put aside as "<path>.bad", so that the next save does not lose it.
void restore(ObjectBase& application, const AutoString& path);

// False, with a trace, when the file could not be written; then it stays as it is.
bool save(ObjectBase& application, const AutoString& path);
}
