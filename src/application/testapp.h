#pragma once

#include "application/application.h"
#include "application/quitrequest.h"
#include "foundation/autostring.h"

#include <memory>

class Viewer;

// The whole program: which heaps and systems there are, what is restored at the start and saved at the end, and what
// a frame does in which order.
class TestApp : public Application
{
    REFLECTED(TestApp)

public:
    explicit TestApp(const sInitializer* initializer);

    // Saves the state of the systems, if there are any.
    ~TestApp() override;

    // The systems are this object's properties.
    void makePropertyList(PropertyList& list) override;

    // Does nothing when there is no window.
    void setup() override;
    void update(float deltaTime) override;

    // The program ends once no tool has unsaved work. A signal is not asked about and ends it at once.
    void requestQuit() override { mQuitRequest.start(); }

    // Whether setup() opens the editor on a new animation, as it does unless told otherwise.
    void setEditor(bool editor) { mEditor = editor; }

    // Opens an editor on an animation, by its logical name; null is a new one. After setup(). False when there is none
    // of that name.
    [[nodiscard]] bool edit(const char* name);

    // Shows an animation, by its logical name; after setup(), and with a window. False when there is none of that name.
    [[nodiscard]] bool play(const char* name);

    // The program ends after so many frames; 0 goes on.
    void setFrameLimit(unsigned int limit) { mFrameLimit = limit; }

private:
    void createAllocators();
    void createSystems();
    AutoString getStatePath() const;

    std::unique_ptr<Viewer> mpViewer;
    QuitRequest mQuitRequest;
    unsigned int mFrameLimit = 0;
    unsigned int mFrameNum = 0;
    bool mEditor = true;
    bool mSetUp = false;
};
