#pragma once

#include "foundation/scolor.h"
#include "foundation/srect.h"
#include "render/drawstate.h"

class Texture;

enum class eCommand : unsigned int
{
    Clear = 0,
    Draw = 1,
    End = 2,
    JoinedDraw = 3,
};

// The head of every command of a frame. Commands are replayed in ascending order of their keys.
struct sCommand
{
    static constexpr unsigned int EndKey = 0xFFFFFFFF;

    eCommand kind;
    unsigned int key;
};

// A null target is the window.
struct sClearCommand : sCommand
{
    sColor color;
    sRect rect;
    Texture* target;
};

// The vertices lie in command memory, a multiple of their stride behind its start; those of a joined draw lie in the
// room for them.
struct sDrawCommand : sCommand
{
    sDrawState state;
    void* vertices;
    Texture* texture;
    Texture* target;
    sRect viewport;
    sRect scissor;
    sRect projection;
};
