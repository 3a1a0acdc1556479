#pragma once

#include <string>

// Where a monkey is let loose.
struct sMonkeyStage
{
    const char* name;

    // Lays files into the directory of the data, which is empty.
    void (*prepare)(const std::string& root);
    void (*openAll)();

    // Opens a window of those that there are, which the number decides.
    void (*openOne)(unsigned int number);

    // The windows of the gallery.
    static const sMonkeyStage Gallery;

    // Editors of the samples and of a new animation, the inspector of systems, and the gallery on top.
    static const sMonkeyStage Program;
};
