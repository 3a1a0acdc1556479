#pragma once

#include "render/command.h"
#include "render/vertex.h"
#include "tests/support/bytes.h"
#include "tests/support/headlessapplication.h"
#include "tests/support/held.h"

#include <functional>
#include <string>
#include <vector>

class DrawContext;

// One draw command of a frame, with the vertices as the graphics library would receive them.
struct sRecordedDraw
{
    sDrawCommand command;
    std::vector<sTexturedDeviceVertex> vertices; // Without texture coordinates where the command has none.
};

// Adds the systems that loading and drawing need to the manager, ready to run.
void createDrawingSystems();

// A headless application with these systems.
class HeadlessSystems : public HeadlessApplication
{
public:
    HeadlessSystems() { createDrawingSystems(); }

    // The path of a file below the root; its content, which is empty if there is none.
    std::string getFile(const std::string& name) const { return getRoot() + "/" + name; }
    Bytes read(const std::string& name) const { return readBytes(getFile(name)); }
    void write(const std::string& name, const Bytes& content) const { writeBytes(getFile(name), content); }

    // The draws of a whole frame in the order of their replay.
    std::vector<sRecordedDraw> recordFrame(const std::function<void()>& record) const;
    // The same for what is drawn into one context.
    std::vector<sRecordedDraw> record(const std::function<void(DrawContext&)>& draw) const;
};
