#pragma once

// What is shipped below "intermediate/": a sheet of cells, an animation of them, and an animation of that animation.
namespace Samples
{
// Writes "walk.tga", "walk.asq.xml" and "parade.asq.xml" into a directory, whose name ends in "/". False, with a
// trace, when one of them could not be written.
[[nodiscard]] bool write(const char* directory);
} // namespace Samples
