#pragma once

// The kinds of mouse events that a window reports. Only a drag may lie outside the window.
enum class eMouseEvent : unsigned int
{
    Down = 1,
    Up = 2,
    Moved = 5,
    Dragged = 6,
    Wheel = 10
};

// One mouse event in plain numbers, relative to the window's content.
struct sMouseEvent
{
    eMouseEvent kind = eMouseEvent::Moved;
    int x = 0;
    int y = 0;
    bool hasPosition = true; // false when the window's place is not known
    unsigned int button = 0; // Down and Up: 1 primary, 2 secondary, 3 tertiary
    unsigned int axis = 0;   // Wheel: 0 is x, all others are y
    int amount = 0;          // Wheel: notches
};

// The pictures that the mouse pointer can show.
enum class ePointer : unsigned int
{
    Arrow = 0,
    ResizeLeftRight = 17,
    ResizeUpDown = 21
};
