#pragma once

#include <string>

// An animation that the user named: the logical name, and the directory above the "intermediate/" that holds it.
struct sAnimationTarget
{
    std::string root; // empty when a bare name was given
    std::string name;
};

// A text that ends in ".asq.xml" is the path of a file, which must lie inside some "intermediate/"; the innermost
// one counts. Anything else is a logical name already. False, and the target as it was, for other files.
bool findAnimationTarget(const std::string& text, sAnimationTarget& target);
