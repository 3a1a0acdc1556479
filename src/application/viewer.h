#pragma once

#include "animation/animsequencer.h"

#include <memory>
#include <string>

// Shows one animation with its origin in the middle of the window, over and over.
class Viewer
{
public:
    // Plays the animation of that logical name from its start. Null when there is no such animation.
    static std::unique_ptr<Viewer> create(const char* name);

    // What is wrong with the file of an animation, in one line; empty if nothing is. It needs no window and no
    // systems, and traces nothing.
    static std::string checkFile(const std::string& path);

    // `deltaTime` counts frames of the application.
    void update(float deltaTime);

    // Records into a context of the present frame.
    void draw() const;

private:
    explicit Viewer(ResourceBase* animation);

    AnimSequencer mSequencer;
};
