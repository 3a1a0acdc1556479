#pragma once

// True if `name` is one of the words of `list`, which are ended by a blank or the end. A null list has none. What was
// found goes to the trace.
bool checkExtention(const char* list, const char* name);

// True if any of the names is in the list; the trace speaks of the first.
bool checkExtention(const char* list, const char* const* names, unsigned int nameNum);
