#pragma once

#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "render/vertex.h"

#include <vector>

class Texture;
struct sClearCommand;
struct sCommand;
struct sDrawCommand;

// Where the commands and vertices of a frame lie; behind what is used there is room up to the capacity. No draw has
// vertices before the first place, which is a multiple of every stride. Vertices of joined draws have a room of their
// own, which is only written.
struct sCommandMemory
{
    unsigned char* begin;
    unsigned int used;
    unsigned int capacity;
    unsigned int first = 0;
    sJoinedDeviceVertex* joined = nullptr;
    unsigned int joinedNum = 0;
};

// Draws neighbours of the sorted list at once, to the same picture. An interface makes several commands an element,
// each with its own scissor, plain and textured in turn. All of them become quads of the texture that the text comes
// from, cut to their scissor, so that nothing is left to change between them. What the texture or the scissor does
// not allow stays as it is.
class CommandJoin
{
public:
    // A list has at most `capacity` commands, its end included.
    explicit CommandJoin(unsigned int capacity);

    // The middle of 2 by 2 texels that are opaque white. Without a texture nothing is joined.
    void setSolidTexel(Texture* texture, const sTexcoord& place);

    void setEnable(bool enable) { mEnable = enable; }

    // Whether the next list can need the room for joined vertices.
    bool isActive() const { return mEnable && mpTexture; }

    // The list to replay in place of `commands`, which is left alone; it holds until the next call. What it needs
    // goes into the rooms of `memory`, whose used part grows; where there is none, commands stay as they are. If few
    // vertices are left that are not joined, they follow there, so that the library needs only what is new. Nothing is
    // allocated.
    const sCommand* const* join(const sCommand* const* commands, const sRect& window, sCommandMemory& memory);

    // How many draws less the last list has than the one it stands for.
    unsigned int getSavedNum() const { return mSavedNum; }

private:
    // Draws that become one. Its two commands are what draws them all, and what draws nothing and leaves the state
    // that the last of them would leave.
    struct sRun
    {
        sDrawCommand* command;
        const sDrawCommand* first;
        const sDrawCommand* last;
        sJoinedDeviceVertex* vertices;
        sJoinedDeviceVertex* end;
        const sJoinedDeviceVertex* limit;
        unsigned int drawNum;
        unsigned int memoryUsed;
    };

    void addDraw(const sDrawCommand& command);
    void addClear(const sClearCommand& command);
    bool isJoinable(const sDrawCommand& command) const;
    bool makeRoom(const sDrawCommand& command);
    void startRun(const sDrawCommand& command);
    void finishRun();
    void keep(const sDrawCommand& command);
    void gatherKept(unsigned int recorded);
    const sDrawCommand* moveToEnd(const sDrawCommand& command);
    void append(const sCommand* command) { mList[mListNum++] = command; }
    bool write(const sDrawCommand& command);

    bool mEnable = true;
    Texture* mpTexture = nullptr;
    sTexcoord mSolid = {0, 0};
    std::vector<const sCommand*> mList;
    unsigned int mListNum = 0;
    unsigned int mSavedNum = 0;

    // What the draws that stay as they are take.
    unsigned int mKeptSize = 0;

    // Of the frame at work: the window, the memory, and whether rectangles are placed by the window.
    sRect mWindow = sRect::Zero;
    sCommandMemory* mpMemory = nullptr;
    sJoinedDeviceVertex* mpJoinedEnd = nullptr;
    bool mInWindow = true;
    sRun mRun = {};
};
