#include "foundation/utils.h"
#include "input/keyboardsystem.h"
#include "reflection/propertylist.h"
#include "resource/resourcebase.h"
#include "sequencer/control.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/images.h"
#include "ui/uicontroldialog.h"
#include "ui/uifiledialog.h"
#include "ui/uiobjectdialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

namespace
{
using Names = std::vector<std::string>;

struct sDriven : ObjectBase
{
    void makeControlList(List<ControlBase>& list) override
    {
        list.addLast(new TriggerControl<void>("Play", this, &sDriven::play));
    }
    void play() {}
};
}

// A dialog is worked on by the pointer and the keys; what it answers is read when it reports.
class UIPickDialogTest : public testing::Test
{
public:
    void receive(UIDialog* dialog)
    {
        mAnswer = static_cast<int>(dialog->getReturnValue());
        mRead();
    }

protected:
    static constexpr int NoAnswer = -1;

    template <typename Dialog, typename... Arguments>
    Dialog* open(Arguments... arguments)
    {
        Dialog* dialog = new Dialog("Pick", this, &UIPickDialogTest::receive, arguments..., nullptr);
        mDialog = mInterface.add(dialog);
        mAnswer = NoAnswer;
        mInterface.runFrames(2);
        return dialog;
    }

    UIFileDialog* openFiles(bool warns = false)
    {
        static constexpr const char* Filters[] = {"tga|Targa", "bmp", "tga|Again", nullptr};
        return open<UIFileDialog>("All", static_cast<const char* const*>(Filters), warns);
    }

    void click(int x, int y, unsigned int times = 1)
    {
        mInterface.wait(1000);
        while (times--)
            mInterface.click(mDialog->getPosition() + sPoint(x, y));
    }
    void decide(unsigned int row) { click(30, 64 + 17 + 16 * static_cast<int>(row) + 8, 2); }

    void answer(const char* text)
    {
        constexpr std::string_view Keys = "abcdefghijklmnopqrstuvwxyz1234567890";
        click(30, 202);
        for (; *text; ++text)
            mInterface.pressKey(*text == '.' ? 55 : static_cast<unsigned char>(4 + Keys.find(*text)));
        click(280, 202);
    }

    UIBase* getElement(int x, int y) { return mDialog->intersect(mDialog->getPosition() + sPoint(x, y), sRect::Max); }
    UIList* getList() { return static_cast<UIList*>(getElement(20, 180)); }

    // The first property of each row.
    Names getRows()
    {
        Names names;
        for (ObjectBase* row : *getList()->getObjectList())
        {
            PropertyList properties;
            row->makePropertyList(properties);
            names.push_back((*properties.begin())->getByType<AutoString>().c_str());
        }
        return names;
    }

    unsigned int findRow(const std::string& name)
    {
        const Names names = getRows();
        return static_cast<unsigned int>(std::ranges::find(names, name) - names.begin());
    }

    void write(const std::string& name, const Bytes& content = {}) const { writeBytes(mPlace + name, content); }

    HeadlessInterface mInterface;
    const std::string mPlace = mInterface.getRoot() + "/intermediate/";
    UIDialog* mDialog = nullptr;
    std::function<void()> mRead = [] {
    };
    int mAnswer = NoAnswer;
};

TEST_F(UIPickDialogTest, ListsBelowTheRootsWhatTheFilterWants)
{
    for (const char* name : {"b.tga", "a.bmp", "c.tex", "bare", "b.tga.old"})
        write(name);
    std::filesystem::create_directories(mPlace + "zoo/in");
    UIFileDialog* dialog = openFiles();
    EXPECT_EQ(getRows(), (Names{"zoo", "a.bmp", "b.tga", "b.tga"}));
    click(20, 222);
    click(20, 230 + 1 + 16 + 8);
    EXPECT_EQ(getRows(), (Names{"zoo", "a.bmp"}));

    decide(0);
    decide(0);
    decide(0);
    EXPECT_EQ(getRows(), Names{});
    EXPECT_EQ(getList()->getSelectRow(), UIList::NoRow);
    const std::pair<int, const char*> steps[] = {{200, "intermediate/zoo/"}, {200, "intermediate/"},
                                                 {200, "intermediate/"},     {120, "native/"},
                                                 {200, "native/"},           {40, "intermediate/"}};
    for (const auto& [x, place] : steps)
    {
        click(x, 48);
        EXPECT_STREQ(Utils::getPath(dialog->getDirectory().c_str()), place);
    }
}

TEST_F(UIPickDialogTest, AnswersWithTheNameThatItAskedAbout)
{
    for (const char* name : {"b.tga", "c.tga"})
        write(name);
    UIFileDialog* dialog = openFiles(true);
    mRead = [&]
    {
        EXPECT_STREQ(dialog->getFileName().c_str(), "b.tga");
    };
    decide(findRow("b.tga"));
    mInterface.runFrame();
    for (const KeyboardSystem::eKeyCode key :
         {KeyboardSystem::DownArrow, KeyboardSystem::DownArrow, KeyboardSystem::Return})
        mInterface.pressKey(key);
    static_cast<UIDialog*>(mInterface.mSystem->getWindowList()[0])->eventYes();
    EXPECT_EQ(mAnswer, UIDialog::Ok);
}

TEST_F(UIPickDialogTest, MakesResourcesOfNamesThatDocumentsCanHold)
{
    const std::pair<std::string, bool> rows[] = {
        {"good", true},         {std::string(223, 'w'), true}, {std::string(224, 'w'), false},
        {"a\"b", false},        {"two words", false},          {"100%n", false},
        {"line\nbreak", false}, {"\xC3\xBC", false},
    };
    for (const auto& row : rows)
        write(row.first + ".tga", makeFile(sTga{}));
    UIFileDialog* dialog = openFiles();
    for (const auto& [name, loads] : rows)
    {
        getList()->selectRow(findRow(name + ".tga"));
        ResourceBase* resource = dialog->createResource();
        EXPECT_EQ(resource != nullptr, loads) << name;
        if (resource)
            resource->release();
    }
}

TEST_F(UIPickDialogTest, PicksAClassOrAControl)
{
    const TypeInfo* root = ResourceBase::getStaticTypeInfo();
    UIObjectDialog* classes = open<UIObjectDialog>(root);
    const TypeInfo* picked = nullptr;
    mRead = [&]
    {
        picked = classes->getSelectedTypeInfo();
    };
    for (const char* row : {"TextureResource", "TextureResourceTGA"})
    {
        click(30, 48);
        EXPECT_EQ(getRows()[0], "ResourceBase") << "there is no way above the root";
        decide(findRow("TextureResource"));
        decide(findRow(row));
    }
    EXPECT_STREQ(picked->getName(), "TextureResourceTGA");
    classes = open<UIObjectDialog>(root);
    answer("nothing");
    EXPECT_TRUE(mAnswer == UIDialog::Ok && !picked);

    sDriven driven;
    UIControlDialog* controls = open<UIControlDialog>(static_cast<ObjectBase*>(&driven));
    mRead = [&]
    {
        EXPECT_STREQ(controls->getSelectedControlName(), "Play");
        EXPECT_EQ(controls->getSelectedControlType(), 1u);
    };
    decide(0);
    EXPECT_EQ(mAnswer, UIDialog::Ok);
    open<UIControlDialog>(static_cast<ObjectBase*>(nullptr));
    decide(0);
    EXPECT_EQ(mAnswer, NoAnswer);
}
