#include "tool/toolbase.h"

#include "foundation/blockallocator.h"
#include "reflection/resourceproperty.h"
#include "resource/resourcesystem.h"
#include "sequencer/control.h"
#include "sequencer/sequencertool.h"
#include "sequencer/sequenceruniquekey.h"
#include "tests/support/toolstage.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

namespace
{
constexpr unsigned int Old = 50; // what a file in the way holds
constexpr unsigned int New = 77; // what is being saved

constexpr const char* Warning = "Causion";

enum class eOperation
{
    SaveAs,
    Load,
    Close,
};

// What stands where the sequence is to go.
enum class eInTheWay
{
    Nothing,
    File,
    Memory, // the file and the resource that was read from it
    ModifiedMemory,
    Window,
};

enum class eOutcome
{
    Switched, // to the resource of the new file
    Stayed,   // with its resource, which is still modified
    Loading,  // asks what to load
    Closed,
};

using enum eOperation;
using enum eInTheWay;
using enum eOutcome;
using enum ToolStage::eRoot;
using enum UIDialog::eReturnValue;

// A modified sequence is saved under the name that the user types.
struct sSaveRow
{
    eOperation operation;
    ToolStage::eRoot root;
    const char* directory;
    const char* typed;
    eInTheWay inTheWay;
    UIDialog::eReturnValue answer; // to whether the file is to be replaced; Ok for not being asked
    const char* written;           // the file that gets the sequence, null for none
    eOutcome outcome;
};

constexpr sSaveRow SaveRows[] = {
    {SaveAs, Intermediate, "", "walk", Nothing, Ok, "intermediate/walk.seq.xml", Switched},
    {SaveAs, Intermediate, "sub/", "walk.seq.xml", Nothing, Ok, "intermediate/sub/walk.seq.xml", Switched},
    {SaveAs, Intermediate, "", "walk.2", Nothing, Ok, nullptr, Stayed},
    {SaveAs, Intermediate, "", "", Nothing, Ok, nullptr, Stayed},
    {SaveAs, Native, "", "walk", Nothing, Ok, "native/walk.seq.xml", Stayed},
    // The file dialog asks about a whole name, the tool about a bare one.
    {SaveAs, Intermediate, "", "walk.seq.xml", File, Yes, "intermediate/walk.seq.xml", Switched},
    {SaveAs, Intermediate, "", "walk.seq.xml", File, No, nullptr, Stayed},
    {SaveAs, Intermediate, "", "walk", File, Yes, "intermediate/walk.seq.xml", Switched},
    {SaveAs, Intermediate, "", "walk", File, No, nullptr, Stayed},
    {SaveAs, Intermediate, "", "walk", Memory, Yes, "intermediate/walk.seq.xml", Switched},
    {SaveAs, Intermediate, "", "walk", ModifiedMemory, Yes, nullptr, Stayed},
    {SaveAs, Intermediate, "", "walk", Window, Yes, nullptr, Stayed},
    {Close, Intermediate, "", "walk", Nothing, Ok, "intermediate/walk.seq.xml", Closed},
    {Close, Intermediate, "", "walk", Window, Yes, nullptr, Stayed},
    {Close, Intermediate, "", "walk", File, Cancel, nullptr, Stayed},
    {Close, Intermediate, "", "", Nothing, Ok, nullptr, Stayed},
    {Close, Native, "", "walk", Nothing, Ok, nullptr, Stayed},
    {Load, Intermediate, "", "walk", Nothing, Ok, "intermediate/walk.seq.xml", Loading},
    {Load, Native, "", "walk", Nothing, Ok, nullptr, Stayed},
};

class SaveTest : public testing::TestWithParam<sSaveRow>
{
protected:
    Held<ResourceBase> place(eInTheWay inTheWay)
    {
        if (inTheWay != Nothing)
            mStage.write("intermediate/walk.seq.xml", Old);
        if (inTheWay == Window)
            mStage.addOpen("walk");
        if (inTheWay != Memory && inTheWay != ModifiedMemory)
            return nullptr;
        Held<ResourceBase> resource(
            ResourceSystem::getInstance()->createResource<SequencerResourceIntermediate>("walk"));
        if (inTheWay == ModifiedMemory)
            resource->setModify();
        return resource;
    }

    // Up to the dialog that asks for the file.
    void start(GalleryTool* tool, eOperation operation)
    {
        switch (operation)
        {
        case SaveAs: tool->eventSaveAs(); break;
        case Load: tool->eventLoad(); break;
        case Close: tool->close(); break;
        }
        mStage.runFrame();
        if (operation == SaveAs)
            return;
        EXPECT_EQ(mStage.getDialogTitle(), Warning);
        mStage.answer(Yes);
    }

    ToolStage mStage;
};

TEST_P(SaveTest, GoesWhereTheUserSaysOrNowhere)
{
    const sSaveRow& row = GetParam();
    std::filesystem::create_directory(mStage.getFile("intermediate/sub"));
    const Held<ResourceBase> other = place(row.inTheWay);
    GalleryTool* tool = mStage.addNew(New);
    const ResourceBase* before = tool->getResource();

    start(tool, row.operation);
    mStage.pick(row.root, row.directory, row.typed);
    EXPECT_EQ(mStage.getDialogTitle() == Warning, row.answer != Ok);
    if (row.answer != Ok)
        mStage.answer(row.answer);

    const std::string file = row.written ? row.written : "intermediate/walk.seq.xml";
    EXPECT_EQ(mStage.read(file), row.written ? New : row.inTheWay == Nothing ? 0 : Old);
    EXPECT_EQ(mStage.getDialogTitle(), row.outcome == Loading ? "Load" : "");
    ASSERT_EQ(mStage.isOpen(tool), row.outcome != Closed);
    if (row.outcome == Closed)
        return;
    EXPECT_EQ(tool->isManagedResourceModified(), row.outcome != Switched);
    EXPECT_EQ(tool->getEndFrame(), New);
    EXPECT_EQ(tool->getResource() == before, row.outcome != Switched);
    if (row.outcome == Switched)
    {
        EXPECT_STREQ(tool->getResource()->getPath().c_str(), row.written);
        EXPECT_TRUE(!other || tool->getResource() == other.get()) << "who holds the file reads it again";
    }
}

INSTANTIATE_TEST_SUITE_P(ToolBase, SaveTest, testing::ValuesIn(SaveRows));

TEST(ToolBaseTest, SavesItsOwnFileWithoutAQuestionAndOnlyWhenThereIsSomethingToSave)
{
    ToolStage stage;
    stage.write("intermediate/walk.seq.xml", Old);
    GalleryTool* tool = stage.addOpen("walk");
    tool->setEndFrame(New);
    tool->save();
    EXPECT_FALSE(tool->isManagedResourceModified());
    EXPECT_EQ(stage.read("intermediate/walk.seq.xml"), New);
    EXPECT_EQ(stage.read("intermediate/walk.seq.xml~"), Old);

    stage.write("intermediate/walk.seq.xml", Old);
    tool->save();
    EXPECT_EQ(stage.read("intermediate/walk.seq.xml"), Old) << "nothing was modified";

    // By its own name it stays the resource that it is.
    const ResourceBase* resource = tool->getResource();
    tool->saveAs();
    stage.runFrame();
    stage.pick(Intermediate, "", "walk");
    EXPECT_EQ(stage.read("intermediate/walk.seq.xml"), New);
    EXPECT_EQ(tool->getResource(), resource);

    // A first save asks for the file, and a tool that is asking asks nothing else.
    GalleryTool* other = stage.addNew(New);
    other->save();
    other->close();
    other->eventLoad();
    stage.runFrame();
    EXPECT_EQ(stage.getDialogTitle(), "Save");
    stage.answer(Cancel);
    EXPECT_EQ(stage.getDialog(), nullptr);
}

TEST(ToolBaseTest, OpensWhatThereIsAndKeepsItsWorkBeforeADamagedFile)
{
    ToolStage stage;
    stage.write("intermediate/walk.seq.xml", Old);
    std::ofstream(stage.getFile("intermediate/cut.seq.xml")) << "<SequencerResourceIntermediate typeinfo=\"Seq";
    std::ofstream(stage.getFile("intermediate/other.seq.xml")) << "<Texture typeinfo=\"Texture\" />";
    GalleryTool* tool = stage.addNew(New);
    const auto open = [&](const char* name)
    {
        TraceCapture silence;
        tool->eventLoad();
        stage.runFrame();
        if (stage.getDialogTitle() == Warning)
            stage.answer(No);
        stage.pick(Intermediate, "", name);
        return tool->getEndFrame();
    };
    EXPECT_EQ(open("cut"), New);
    EXPECT_EQ(open("walk.2"), New);
    EXPECT_EQ(open("walk"), Old);
    EXPECT_EQ(open("other"), 0u) << "what is no sequence leaves the tool empty";
    EXPECT_EQ(open("walk"), Old) << "an empty tool still knows the extension";
}

TEST(ToolBaseTest, ASaveThatFailsLosesNoWork)
{
    ToolStage stage;
    stage.write("intermediate/walk.seq.xml", Old);
    GalleryTool* tool = stage.addOpen("walk");
    tool->setEndFrame(New);
    std::filesystem::remove(stage.getFile("intermediate/walk.seq.xml"));
    std::filesystem::create_directory(stage.getFile("intermediate/walk.seq.xml"));
    TraceCapture silence;
    tool->save();
    tool->close();
    stage.runFrame();
    EXPECT_EQ(stage.getDialogTitle(), Warning);
    EXPECT_TRUE(tool->isManagedResourceModified());
}
}

TEST(ToolBaseTest, ASequenceIsNotSavedOverOneThatItPlays)
{
    ToolStage stage;
    stage.write("intermediate/walk.seq.xml", Old);
    const auto make = [](const char* name)
    {
        return Held<SequencerResourceIntermediate>(
            ResourceSystem::getInstance()->createResource<SequencerResourceIntermediate>(name));
    };
    const Held<SequencerResourceIntermediate> inner = make("walk");
    const Held<SequencerResourceIntermediate> outer = make(nullptr);
    Sequencer sequencer;
    const PropertyControl control(
        new IndirectResourceProperty("Resource", &sequencer, &Sequencer::getResource, &Sequencer::setResource));
    outer->addTrack(Sequencer::getStaticTypeInfo(), "T");
    outer->addLane("T", &control);
    outer->addKey("T", "Resource", 0, eInterpolateType::Trigger);
    static_cast<SequencerUniqueKey<ResourceBase>*>(outer->findKey("T", "Resource", 0))->setResource(inner.get());

    auto* tool = stage.add(new SequencerTool(outer.get()));
    stage.runFrame();
    tool->saveAs();
    stage.runFrame();
    stage.pick(Intermediate, "", "walk");
    stage.answer(Yes);
    EXPECT_EQ(stage.read("intermediate/walk.seq.xml"), Old);
    EXPECT_EQ(tool->getResource(), outer.get());
    EXPECT_TRUE(tool->isManagedResourceModified());
    stage.mSystem->removeAllWindow();
}

TEST(ToolBaseTest, ADialogWithoutAFunctorLeavesTheToolAsItIs)
{
    ToolStage stage;
    GalleryTool* tool = stage.addNew(New);
    const TraceCapture silence;
    BlockAllocator& pool = FunctorBase::getAllocator();
    std::vector<void*> taken;
    while (void* block = pool.allocate(1, 1))
        taken.push_back(block);
    tool->close();
    tool->saveAs();
    stage.runFrames(2);
    EXPECT_EQ(stage.getDialog(), nullptr);

    for (void* block : taken)
        pool.deallocate(block);
    tool->close();
    stage.runFrame();
    EXPECT_EQ(stage.getDialogTitle(), Warning);
}
