#pragma once

#include "ui/uibase.h"

#include <functional>
#include <string>

// What a probe has lived through, in words; several may share one.
using ProbeLog = std::string;

// An element, of the given class, that tells its hooks to a log. Each entry is the probe's name, a word and what comes
// with it.
template <typename Base>
class Probe : public Base
{
public:
    template <typename... Arguments>
    Probe(ProbeLog& log, const char* name, Arguments... arguments) : Base(arguments...), mLog(log), mName(name)
    {
    }
    ~Probe() override { tell("gone"); }

    void eventCreate() override { tell("create"), Base::eventCreate(), call(); }
    void eventDestroy() override { tell("destroy"), Base::eventDestroy(), call(); }
    void eventActive() override { tell("active"), Base::eventActive(); }
    void eventDeactive() override { tell("deactive"), Base::eventDeactive(); }
    void eventFocus() override { tell("focus"), call(); }
    void eventDefocus() override { tell("defocus"); }
    void eventMouseMove(const sPoint& position) override { tell("move", position), call(); }
    void eventMouseDown(const sPoint& position, unsigned int button) override
    {
        tell("down", position, button), call();
    }
    void eventMouseUp(const sPoint& position, unsigned int button) override { tell("up", position, button), call(); }
    void eventMouseWheel(const sPoint& amount) override { tell("wheel", amount); }
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override
    {
        tell("double", position, button);
    }
    void eventKeyDown(unsigned int code, unsigned int combination) override { tell("key", code, combination), call(); }
    void eventKeyUp(unsigned int code, unsigned int) override { tell("keyup", code); }
    void eventBeginEdit() override { tell("begin"), Base::eventBeginEdit(); }
    void eventEndEdit() override { tell("end"), Base::eventEndEdit(); }
    void eventTimer(float) override { ++mTimerNum; }

    using Base::delegate;

    // Called inside of some hooks.
    std::function<void()> mHook;
    unsigned int mTimerNum = 0;

private:
    void tell(const sPoint& point) { mLog += "(" + std::to_string(point.x) + "," + std::to_string(point.y) + ")"; }
    void tell(unsigned int number) { mLog += ":" + std::to_string(number); }

    template <typename... Details>
    void tell(const char* word, const Details&... details)
    {
        mLog += (mLog.empty() ? "" : " ") + mName + "." + word;
        (tell(details), ...);
    }

    void call()
    {
        if (mHook)
            mHook();
    }

    ProbeLog& mLog;
    std::string mName;
};

// What the log holds, which is empty afterwards.
inline std::string takeLog(ProbeLog& log)
{
    return std::exchange(log, {});
}
