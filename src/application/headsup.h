#pragma once

class AllocatorBase;
class Application;
class ToolSystem;

// The lines of text over the picture: what the frame counter, the clock and the heaps show.
namespace HeadsUp
{
constexpr unsigned int TextSize = 128;

// "name : used/size percent". The percentage is cut, and holds for any size of a heap.
void formatHeap(char (&text)[TextSize], const char* name, unsigned int used, unsigned int size);

// Between preprocess() and postprocess() of the frame whose step is `deltaTime`.
void draw(ToolSystem& tool, const Application& application, float deltaTime);
}
