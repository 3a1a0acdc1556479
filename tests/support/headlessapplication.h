#pragma once

#include "application/application.h"
#include "platform/headless/headlessplatform.h"

#include <functional>
#include <string>

// The headless back end with a data directory of its own, which goes away with it.
class HeadlessPlace
{
public:
    HeadlessPlace();
    ~HeadlessPlace();

    HeadlessPlace(const HeadlessPlace&) = delete;
    HeadlessPlace& operator=(const HeadlessPlace&) = delete;

    static HeadlessPlatform& getPlatform() { return *static_cast<HeadlessPlatform*>(Platform::getInstance()); }
    const std::string& getRoot() const { return mRoot; }

private:
    std::string mRoot;
};

// An application with a window of 1024 by 768 that is nowhere, at 60, 20 and 240 frames a second. Each frame calls
// what the test put in.
class HeadlessApplication : public HeadlessPlace, public Application
{
public:
    HeadlessApplication();

    void setup() override {}
    void update(float deltaTime) override
    {
        if (mFrame)
            mFrame(deltaTime);
    }

    // An event of the mouse, without the event loop.
    void sendMouse(const sMouseEvent& event) { eventHandler(event, this); }

    std::function<void(float)> mFrame;
};
