#include "ui/uimessagedialog.h"

#include "tests/support/headlessinterface.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{
using eButtons = UIDialog::eButtons;

// A receiver that a dialog is the end of.
struct sMortal : UIBase
{
    void receive(UIDialog*) { delete this; }
};
}

class UIDialogTest : public testing::Test
{
public:
    void receive(UIDialog* dialog)
    {
        EXPECT_FALSE(mSystem.isListedForRemoval(dialog));
        mAnswers.push_back(dialog->getReturnValue());
        dialog->close();
    }

protected:
    template <typename Receiver = UIDialogTest>
    UIMessageDialog* ask(Receiver* receiver, eButtons buttons = eButtons::Ok)
    {
        UIMessageDialog* dialog = mInterface.add(
            new UIMessageDialog("Title", "A message of thirty characters", buttons, receiver, &Receiver::receive));
        mInterface.runFrames(2);
        return dialog;
    }

    HeadlessInterface mInterface;
    UISystem& mSystem = *mInterface.mSystem;
    std::vector<unsigned int> mAnswers;
};

TEST_F(UIDialogTest, EachButtonAnswersAtItsPlace)
{
    constexpr std::tuple<eButtons, const char*, int> Rows[] = {
        {eButtons::Ok, "Ok", 82},           {eButtons::OkCancel, "Ok", 50},    {eButtons::OkCancel, "Cancel", 114},
        {eButtons::YesNoCancel, "Yes", 26}, {eButtons::YesNoCancel, "No", 82}, {eButtons::YesNoCancel, "Cancel", 138},
    };
    for (const auto& [buttons, caption, left] : Rows)
    {
        UIDialog* dialog = ask<UIDialogTest>(this, buttons);
        const sPoint middle = dialog->getPosition() + sPoint(left + 24, 72);
        UIBase* hit = dialog->intersect(middle, sRect::Max);
        ASSERT_EQ(hit->getRelRegion(), sRect(left, 64, left + 48, 80));
        EXPECT_STREQ(static_cast<UIButton*>(hit)->getCaption(), caption);
        mInterface.click(middle);
    }
    EXPECT_EQ(mAnswers, (std::vector<unsigned int>{0, 0, 3, 1, 2, 3}));
}

TEST_F(UIDialogTest, AnswersCancelOnceHoweverElseItIsClosed)
{
    UIDialog* dialog = ask<UIDialogTest>(this);
    dialog->findShortcut(131, 2)->shortcut(dialog);
    dialog->close();
    mInterface.runFrame();
    mInterface.click(ask<UIDialogTest>(this)->getPosition() + sPoint(203, 10));
    EXPECT_EQ(mAnswers, (std::vector<unsigned int>{3, 3}));
    EXPECT_TRUE(mSystem.getWindowList().empty());
    dialog = ask<UIDialogTest>(this);
    mSystem.removeWindow(dialog);
    dialog->close();
    EXPECT_EQ(mAnswers.size(), 2u) << "what is removed is not closed";
}

TEST_F(UIDialogTest, ForgetsAReceiverThatHasDied)
{
    UIWindow* window = mInterface.add(new UIWindow(nullptr));
    sMortal* receiver = new sMortal;
    window->addClient(receiver);
    UIDialog* alive = ask(receiver);
    UIDialog* other = ask<UIDialogTest>(this);
    UIDialog* waiting = mInterface.add(new UIMessageDialog("", "", eButtons::Ok, receiver, &sMortal::receive));
    window->removeClient();
    for (UIDialog* dialog : {alive, waiting, other})
        dialog->close();
    EXPECT_EQ(mAnswers.size(), 1u);
    ask(new sMortal)->close();
}
