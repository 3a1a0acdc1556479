#include "ui/uiresourcecontrol.h"

#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"
#include "sequencer/control.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/images.h"
#include "ui/textureviewerwindow.h"
#include "ui/uidialog.h"
#include "ui/uilist.h"
#include "ui/uitextureresourcecontrol.h"
#include "ui/uitriggercontrol.h"

#include <gtest/gtest.h>

namespace
{
// Notes the edits of what it holds, and what the property held by then.
struct sEditor : UIWindow
{
    explicit sEditor(ResourceBase*& edited) : UIWindow(nullptr), resource(edited) {}

    void eventBeginEdit() override { edits += resource ? "(full " : "(empty "; }
    void eventEndEdit() override { edits += resource ? "full)" : "empty)"; }

    ResourceBase*& resource;
    std::string edits;
};

struct sReceiver
{
    void play() { received = 1; }
    void step(short count) { received = count; }
    void loop(bool) { received = 2; }

    int received = 0;
};
}

class UIResourceControlTest : public testing::Test
{
protected:
    UIResourceControlTest()
    {
        for (const auto& [name, content] : {std::pair("good.tga", makeFile(sTga{})), {"bad.tga", Bytes{1}}})
            writeBytes(mInterface.getRoot() + "/intermediate/" + name, content);
        mEditor->addClient(mControl);
        mInterface.runFrame();
    }

    UIWindow* getTop() { return static_cast<UIWindow*>(mInterface.mSystem->getWindowList()[0]); }

    // Answers the file dialog that the control opens with a row of its list, or with "Cancel".
    void pick(unsigned int row)
    {
        mControl->openFile(nullptr);
        mInterface.runFrames(2);
        UIDialog* dialog = static_cast<UIDialog*>(getTop());
        static_cast<UIList*>(dialog->intersect(dialog->getPosition() + sPoint(20, 180), sRect::Max))->selectRow(row);
        row == UIList::NoRow ? dialog->eventCancel() : dialog->eventOk();
        mInterface.runFrames(2);
    }

    // Whether a double click opens a window, which is closed again.
    bool opensAt(const sPoint& place)
    {
        mControl->sendMessage(UIMouseDoubleClickMessage(place, 1));
        mInterface.runFrames(2);
        const bool opened = getTop()->cast<TextureViewerWindow>();
        if (opened)
            getTop()->close();
        mInterface.runFrame();
        return opened;
    }

    HeadlessInterface mInterface;
    ResourceBase* mResource = nullptr;
    sEditor* mEditor = mInterface.add(new sEditor(mResource));
    UIResourceControl* mControl =
        new UITextureResourceControl(new ResourceProperty("Picture", &mResource), false, UIControl::WholeValue);
};

TEST_F(UIResourceControlTest, SetsWhatIsPickedAsOneEdit)
{
    for (const unsigned int row : {UIList::NoRow, 0u, 1u, 0u, UIList::NoRow})
        pick(row);
    EXPECT_EQ(mEditor->edits, "(empty full)") << "a bad file, and no answer, change nothing";
    EXPECT_STREQ(mResource->getPath().c_str(), "intermediate/good.tga");
    EXPECT_EQ(mResource->getReferenceCount(), 1);
    EXPECT_TRUE(opensAt({32, 40}));
    EXPECT_FALSE(opensAt({32, 10}));
    EXPECT_FALSE(opensAt({66, 40}));

    mControl->setEmpty();
    EXPECT_EQ(mEditor->edits, "(empty full)(full empty)");
    EXPECT_FALSE(opensAt({32, 40}));

    mControl->disable();
    mControl->setEmpty();
    mControl->openFile(nullptr);
    mInterface.runFrames(2);
    EXPECT_EQ(mEditor->edits, "(empty full)(full empty)");
    EXPECT_EQ(getTop(), mEditor);

    mResource = static_cast<ResourceBase*>(TypeInfo::find("SequencerResource")->newInstance());
    EXPECT_FALSE(opensAt({32, 40})) << "a foreign resource counts as none";
    mResource->release();
}

TEST(UITriggerControl, FiresWithWhatTheBoxHolds)
{
    HeadlessInterface interface;
    sReceiver receiver;
    const TriggerControl<void> plain("Play", &receiver, &sReceiver::play);
    const TriggerControl<short> numeric("Step", &receiver, &sReceiver::step);
    const TriggerControl<bool> flag("Loop", &receiver, &sReceiver::loop);
    const std::tuple<const TriggerControlBase*, unsigned int, int> rows[] = {
        {&plain, 40, 1}, {&numeric, 104, 7}, {&flag, 96, 0}};
    for (const auto& [trigger, width, received] : rows)
    {
        receiver.received = 0;
        UITriggerControl control(trigger, false);
        EXPECT_EQ(control.getMinimumSize(), (sSize{width, 16}));
        if (control.getChildCount() == 2)
        {
            UIBase* box = *(control.getChildrenBegin() + 1);
            box->focus();
            box->sendMessage(UIKeyDownMessage('7', 0));
            box->defocus();
        }
        control.apply(nullptr);
        EXPECT_EQ(receiver.received, received);
    }
}
