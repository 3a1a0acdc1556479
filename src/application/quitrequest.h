#pragma once

class ToolBase;

// What a press on the close box starts: each tool with unsaved work asks about it, one after the other, and the program
// may end when no such tool is left. A tool that has asked and still has unsaved work takes the request back.
class QuitRequest
{
public:
    // Applies what has the focus, so that it counts.
    void start();

    // Once a frame. Whether the program may end now.
    [[nodiscard]] bool update();

    bool isPending() const { return mPending; }

private:
    // The one that is asking before all others; null when none is left.
    ToolBase* findUnsaved() const;

    bool mPending = false;
    const ToolBase* mpAsking = nullptr;
};
