#pragma once

#include "tests/support/headlessinterface.h"

#include <map>
#include <random>
#include <set>
#include <string>

class UIWindow;
struct sMonkeyStage;

// Does to a stage what nobody would: moves, buttons, the wheel, keys, windows that come and go, in an order that a
// seed decides. It has no aim but to get everywhere, and watches that the interface refers to nothing that is gone.
class Monkey
{
public:
    Monkey(HeadlessInterface& interface, const sMonkeyStage& stage, unsigned int seed);

    // False, and a line that says what and when, as soon as something refers to what is not there.
    [[nodiscard]] bool run(unsigned int eventNum);

    // "windows" that have opened, "menus" that were clicked and closed by it, modal "dialogs" that were answered,
    // "drags" that have ended, and "frames".
    const std::map<std::string, unsigned int>& getTally() const { return mTally; }
    void print() const;

private:
    struct sEventRow
    {
        unsigned int weight;
        void (Monkey::*event)();
    };

    static const sEventRow EventTable[];

    void doSomething();
    void moveToElement();
    void moveToMenu();
    void moveAnywhere();
    void moveAside();
    void pressOrRelease();
    void clickElement();
    void chooseFromMenu();
    void openMenu();
    void typeText();
    void turnWheel();
    void pressOrReleaseKey();
    void openWindow();
    void closeWindow();
    void waitLong();

    // Below `end`, which is above 0.
    int choose(int end) { return static_cast<int>(mRandom() % static_cast<unsigned int>(end)); }
    sPoint choosePoint(const sRect& rect);
    UIBase* chooseElement();
    UIWindow* getWindow(unsigned int index) const;
    void moveTo(const sPoint& position);
    void click(unsigned int button);
    void releaseAll();
    void runFrame();
    void countWindows();
    const char* findFault() const;
    bool isAlive(const UIBase* element) const;

    HeadlessInterface& mInterface;
    UISystem& mSystem;
    std::mt19937 mRandom;
    const sMonkeyStage& mStage;
    unsigned int mSeed;
    std::map<std::string, unsigned int> mTally;
    sPoint mPointer = sPoint::Zero;
    sPoint mPressPlace = sPoint::Zero;
    unsigned int mButtons = 0;
    std::set<unsigned char> mKeys;
    std::map<const UIWindow*, bool> mWindows; // those of the last frame, and whether they are modal
};
