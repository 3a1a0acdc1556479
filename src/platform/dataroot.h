#pragma once

#include <string>

// Where the data may lie. An empty text stands for a place that is not offered.
struct sDataPlaces
{
    std::string forced;   // what the user named
    std::string program;  // the directory of the program
    std::string userData; // the program's own directory below the user's data directory
    std::string samples;  // what an installation brings along
};

// The first usable directory: the forced one; the program's own if it has a writable "intermediate"; else the
// user's, filled from the samples when it is made. Below it "intermediate" and "native" exist afterwards.
// Empty when no place can be had.
std::string findDataRoot(const sDataPlaces& places);

// The places as this process finds them.
sDataPlaces getDataPlaces(const char* forced);
