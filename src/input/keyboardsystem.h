#pragma once

#include "application/system.h"
#include "foundation/singleton.h"
#include "foundation/vector.h"
#include "input/keyset.h"

class HIDSystem;
struct recDevice;

// The keys of all keyboards together, as they were when the frame's update began, with those that changed since the
// frame before. A press and release between two frames is never seen.
class KeyboardSystem : public System, public Singleton<KeyboardSystem>
{
    REFLECTED(KeyboardSystem)

    friend class Singleton<KeyboardSystem>;

public:
    // A key is its usage on the keyboard page of the USB HID Usage Tables, 0 to 255; those which have no name here are
    // keys as well.
    enum eKeyCode : unsigned int
    {
        KeyA = 0x04,
        KeyZ = 0x1D,
        Key1 = 0x1E,
        Key0 = 0x27,
        Return = 0x28,
        Escape = 0x29,
        BackSpace = 0x2A,
        Tab = 0x2B,
        Space = 0x2C,
        F1 = 0x3A,
        F12 = 0x45,
        RightArrow = 0x4F,
        LeftArrow = 0x50,
        DownArrow = 0x51,
        UpArrow = 0x52,
        LeftControl = 0xE0,
        LeftShift = 0xE1,
        LeftAlt = 0xE2,
        LeftGUI = 0xE3,
        RightControl = 0xE4,
        RightShift = 0xE5,
        RightAlt = 0xE6,
        RightGUI = 0xE7,
    };

    void destroy() override;
    void update() override;

    // Defined in ui, like that of all systems below that folder.
    void makeUIList(List<UIBase>& list) override;

    bool checkKeyOn(eKeyCode key) const { return mKeyOn.contains(key); }
    bool checkKeyOff(eKeyCode key) const { return !checkKeyOn(key); }
    bool checkKeyTrgOn(eKeyCode key) const { return mKeyTrgOn.contains(key); }
    bool checkKeyTrgOff(eKeyCode key) const { return mKeyTrgOff.contains(key); }

    // The lowest key, or -1 for none.
    int getKeyOn() const { return mKeyOn.getFirst(); }
    int getKeyTrgOn() const { return mKeyTrgOn.getFirst(); }
    int getKeyTrgOff() const { return mKeyTrgOff.getFirst(); }

private:
    // Stops the program when there is no keyboard.
    explicit KeyboardSystem(HIDSystem* hidSystem);
    ~KeyboardSystem() override;

    bool checkChange();
    void readDevices();
    void readDevice(recDevice* device);

    Vector<recDevice> mKeyboard;
    KeySet mKeyPrevious;
    KeySet mKeyOn;
    KeySet mKeyTrgOn;
    KeySet mKeyTrgOff;
};
