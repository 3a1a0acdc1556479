#pragma once

#include "animation/animresource.h"

#include <string>

// An animation of 60 cells with a lane of 40 keys for each of their five controls, and the file that it is saved in,
// which lies in a directory for the data of its own.
class SequenceFile
{
public:
    static constexpr unsigned int TrackNum = 60;
    static constexpr unsigned int KeyNum = 40;
    static constexpr unsigned int KeyDistance = 3;
    static constexpr const char* LogicalName = "Large";

    SequenceFile();
    ~SequenceFile();

    SequenceFile(const SequenceFile&) = delete;
    SequenceFile& operator=(const SequenceFile&) = delete;

    const char* getRoot() const { return mRoot.c_str(); }
    const char* getPath() const { return mPath.c_str(); }

    // From the objects to the file.
    void save();

private:
    std::string mRoot;
    std::string mPath;
    AnimResource mSequence;
};
