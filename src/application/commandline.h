#pragma once

#include <string>

// What the user asks for when starting the program.
struct sCommandLine
{
    std::string root;        // the directory of the data; empty leaves the choice to the platform
    std::string file;        // the name or the file of the animation to edit; empty edits a new one
    std::string play;        // the name or the file of the animation to show; empty shows none
    unsigned int frames = 0; // after so many the program ends; 0 goes on
    bool gallery = false;    // shows every element of the interface
    bool headless = false;
    bool help = false;
    bool version = false;
    std::string error; // what is wrong with the arguments, in one line; empty when all is well

    static const char* getHelpText();
};

// `arguments` has `count` texts, the first of which is the program. Nothing is looked up on disk. The first fault
// ends the reading.
sCommandLine parseCommandLine(int count, const char* const* arguments);
