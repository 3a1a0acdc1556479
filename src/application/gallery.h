#pragma once

#include <span>

struct sExhibit;

// Windows that show every element of the interface in its states: to look at, and as the stage of tests. Each is a row
// of one table. Whatever joins the interface adds a row, or an element to a row that is there.
namespace Gallery
{
// From the backmost window to the topmost.
std::span<const sExhibit> getExhibits();

// Gives UISystem a new window, which comes alive with the next frame.
void open(const sExhibit& exhibit);

// Beside the table: a tool with a sequence that was never saved.
void openTool();

// All of them, and the tool.
void openAll();
}
