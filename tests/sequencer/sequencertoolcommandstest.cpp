#include "io/stream.h"
#include "sequencer/controlform.h"
#include "sequencer/sequencebuild.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/held.h"
#include "tests/support/tracecapture.h"
#include "ui/uicontrol.h"
#include "ui/uidialog.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"

#include <gtest/gtest.h>

#include <cctype>

namespace
{
std::string text(const AutoString& name)
{
    return name.empty() ? "" : name.c_str();
}

// "T{u8[10L 20T] } M@5 |T u8 10 " : tracks, lanes, keys with frame and type, markers, and what is selected.
std::string describe(const SequencerTool& tool)
{
    std::string all;
    const SequencerResourceIntermediate& sequence = *tool.getSequence();
    for (ObjectBase* track : sequence.getTrackList())
    {
        all += text(static_cast<SequencerTrack*>(track)->getTrackName()) + "{";
        for (ObjectBase* object : static_cast<SequencerTrack*>(track)->getLaneList())
        {
            SequencerLane* lane = static_cast<SequencerLane*>(object);
            all += text(lane->getControlName()) + "[";
            for (ObjectBase* key : lane->getKeyList())
                all += std::to_string(static_cast<SequencerKey*>(key)->getFrame()) +
                       "CLHT"[static_cast<int>(static_cast<SequencerKey*>(key)->getInterpolateType())];
            all += "]";
        }
        all += "} ";
    }
    for (ObjectBase* marker : sequence.getMarkerList())
        all += text(static_cast<SequencerMarker*>(marker)->getMarkerName()) + "@" +
               std::to_string(static_cast<SequencerMarker*>(marker)->getFrame()) + " ";
    all += "|";
    if (tool.isMarkerTrackSelected())
        all += " *" + (tool.getSelectMarker() ? text(tool.getSelectMarker()->getMarkerName()) : "");
    if (tool.getSelectTrack())
        all += " " + text(tool.getSelectTrack()->getTrackName());
    if (tool.getSelectLane())
        all += " " + text(tool.getSelectLane()->getControlName());
    if (tool.getSelectKey())
        all += " " + std::to_string(tool.getSelectKey()->getFrame());
    return all;
}

UIBase* getChild(const UIBase& parent, int index)
{
    return *(parent.getChildrenBegin() + index);
}
}

class SequencerToolCommands : public testing::Test
{
protected:
    SequencerToolCommands()
    {
        mTool->setSize({900, 700});
        run();
    }

    // As many frames as the slowest message takes. The resource system knows only what has a file.
    void run()
    {
        mInterface.runFrames(2);
        mSequence->clearUpdate();
    }

    void choose(const char* menu, const char* item, SequencerTool* tool)
    {
        for (UIMainMenu::Item* entry : tool->getMainMenu()->getItems())
            for (UIMenu::Item* row : entry->getSubMenu()->getItems())
                if (AutoString::isEqual(entry->getName(), menu) && AutoString::isEqual(row->getName(), item))
                    row->occurEvent();
        run();
    }
    void choose(const char* menu, const char* item) { choose(menu, item, mTool); }

    void type(const char* keys)
    {
        for (; *keys; ++keys)
        {
            const unsigned int code = *keys == '_' ? 92u : static_cast<unsigned int>(std::toupper(*keys));
            const bool shift = std::isupper(*keys) || *keys == '_';
            mInterface.mSystem->getFocus()->sendMessage(UIKeyDownMessage(code, shift));
        }
    }

    // Opens the dialog, types a name and confirms.
    void pick(const char* menu, const char* item, const char* name)
    {
        choose(menu, item);
        const sPoint corner = mInterface.mSystem->getActiveWindow()->getPosition();
        ASSERT_EQ(mInterface.mSystem->getModalWindowList().size(), 1u);
        mInterface.click(corner + sPoint(20, 200));
        type(name);
        mInterface.click(corner + sPoint(260, 200));
        run();
    }

    // Types into the box of a widget of the property pane and commits, by Return or by going elsewhere.
    void edit(int group, int widget, const char* keys)
    {
        UIBase* holder = getChild(*mTool->getControlForm(), 2);
        const sPoint corner = getChild(*getChild(*holder, group), widget)->getAbsPosition();
        mInterface.click(corner + sPoint(8, 24));
        type(keys);
        run();
    }

    // The two forms of the sequence are the same, and so is what a file brings back.
    void expectIntact(const std::string& where)
    {
        EXPECT_TRUE(mSequence->isConsistent()) << where;
        const std::string file = mInterface.getRoot() + "/walk.seq.xml";
        TextFileStream out(file.c_str(), FileStream::Write);
        EXPECT_TRUE(mSequence->save(out) && out.flush());
        SequencerResourceIntermediate copy;
        TextFileStream in(file.c_str(), FileStream::Read);
        EXPECT_TRUE(copy.load(in) && SequenceBuild::isEqual(*mSequence, copy)) << where;
    }

    void seek(unsigned int frame) { mTool->setCurrentFrame(frame); }
    SequencerTrack* track(const char* name) { return mSequence->findTrack(name); }

    HeadlessInterface mInterface;
    Held<TestSequence> mSequence{new TestSequence(0, 100)};
    SequencerTool* mTool = mInterface.add(new SequencerTool(mSequence.get()));
};

TEST_F(SequencerToolCommands, EditTheSequenceAndTheSelection)
{
    const auto select = [&](const char* name)
    {
        mTool->setSelectLane(mSequence->findLane("T", name));
    };
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { choose("Track", "Add Sequencer Track"); }, "T{} Track0{} |"},
        {[&] { pick("Track", "Add Track", "SequenceProbe"); }, "T{} Track0{} Track1{} |"},
        {[&] { pick("Track", "Add Track", "SequencerTool"); }, nullptr},
        {[&] { pick("Track", "Add Track", "nobody"); }, nullptr},
        {[&] { choose("Track", "Remove Track"); }, nullptr},
        {[&] { choose("Lane", "Add Lane"); }, nullptr},
        {[&] { mTool->setSelectTrack(track("Track1")); }, "T{} Track0{} Track1{} | Track1"},
        {[&] { choose("Track", "Remove Track"); }, "T{} Track0{} |"},
        {[&] { mTool->setSelectTrack(track("T")); }, "T{} Track0{} | T"},
        {[&] { pick("Lane", "Add Lane", "u8"); }, "T{u8[]} Track0{} | T"},
        {[&] { pick("Lane", "Add Lane", "u8"); }, nullptr},
        {[&] { pick("Lane", "Add Lane", "nobody"); }, nullptr},
        {[&] { pick("Lane", "Add Lane", "point"); }, "T{u8[]point[]} Track0{} | T"},
        {[&] { choose("Lane", "Remove Lane"); }, nullptr},
        {[&] { mTool->setSelectTrack(track("Track0")), select("u8"); }, "T{u8[]point[]} Track0{} | T u8"},
        {[&] { seek(10), choose("Key", "Add Key"); }, "T{u8[10L]point[]} Track0{} | T u8 10"},
        {[&] { choose("Key", "Add Key"); }, nullptr},
        {[&] { seek(20), choose("Key", "Add Key All Lane"); }, "T{u8[10L20L]point[20L]} Track0{} | T u8 10"},
        {[&] { choose("Key", "Remove Key"); }, "T{u8[20L]point[20L]} Track0{} | T u8"},
        {[&] { choose("Key", "Remove Key"); }, nullptr},
        {[&] { select("point"); }, "T{u8[20L]point[20L]} Track0{} | T point 20"},
        {[&] { mTool->eventRemoveAllKey(); }, "T{u8[20L]point[]} Track0{} | T point"},
        {[&] { choose("Lane", "Remove Lane"); }, "T{u8[20L]} Track0{} |"},
        {[&] { choose("Marker", "Add Marker"); }, "T{u8[20L]} Track0{} Marker0@20 | *Marker0"},
        {[&] { choose("Marker", "Add Marker"); }, nullptr},
        {[&] { select("u8"), seek(5), mTool->selectMarkerTrack(); }, "T{u8[20L]} Track0{} Marker0@20 | *"},
        {[&] { choose("Marker", "Add Marker"); }, "T{u8[20L]} Track0{} Marker1@5 Marker0@20 | *Marker1"},
        {[&] { choose("Marker", "Remove Marker"); }, "T{u8[20L]} Track0{} Marker0@20 | *"},
        // Somebody else changes the sequence: the tool begins anew, and counts names from 0 again.
        {[&] { mSequence->setFPS(30), run(); }, "T{u8[20L]} Track0{} Marker0@20 |"},
        {[&] { choose("Marker", "Add Marker"); }, "T{u8[20L]} Track0{} Track1@5 Marker0@20 | *Track1"},
        {[&] { choose("Marker", "Remove All Marker"); }, "T{u8[20L]} Track0{} | *"},
        {[&] { choose("Track", "Add Sequencer Track"); }, "T{u8[20L]} Track0{} Track1{} | *"},
        {[&] { mTool->setSelectTrack(track("T")); }, "T{u8[20L]} Track0{} Track1{} | T"},
        {[&] { choose("Lane", "Remove All Lane"); }, "T{} Track0{} Track1{} |"},
    };
    for (const auto& [act, result] : rows)
    {
        const std::string before = describe(*mTool);
        mSequence->clearModify();
        act();
        EXPECT_EQ(describe(*mTool), result ? result : before);
        EXPECT_TRUE(result || !mSequence->isModified()) << before;
        expectIntact(before);
    }
}

TEST_F(SequencerToolCommands, DoNothingWithoutASequence)
{
    SequencerTool* tool = mInterface.add(new SequencerTool(nullptr));
    mInterface.runFrame();
    for (UIMainMenu::Item* entry : tool->getMainMenu()->getItems())
        for (UIMenu::Item* row : entry->getSubMenu()->getItems())
            if (!AutoString::isEqual(entry->getName(), "File"))
                choose(entry->getName(), row->getName(), tool);
    tool->stepSelection(true);
    tool->seekNextTargetMarker();
    tool->seekPreviousTargetMarker();
    tool->eventRemoveAllKey();
    EXPECT_EQ(mInterface.mSystem->getWindowList().size(), 2u);
    EXPECT_FALSE(tool->getSequencer()->isPlaying());
}

TEST_F(SequencerToolCommands, RecordInAKeyWhatTheObjectHolds)
{
    mTool->setSelectTrack(track("T"));
    choose("Lane", "Add All Lane");
    SequenceProbe* probe = mTool->getLiveObject(0)->cast<SequenceProbe>();
    const auto set = [probe]<typename... Ts>(TypeList<Ts...>)
    {
        ((probe->get<Ts>() = makeValue<Ts>(3)), ...);
    };
    set(ValueTypes{});
    seek(7);
    choose("Key", "Add Key All Lane");
    EXPECT_TRUE(mSequence->isConsistent());

    for (ObjectBase* object : track("T")->getLaneList())
    {
        const SequencerLane* lane = static_cast<SequencerLane*>(object);
        SequencerKey* key = lane->findKey(7);
        ASSERT_NE(key, nullptr) << text(lane->getControlName());
        const bool known = visitValueType(ValueTypes{}, lane->getKeyType(),
                                          [key]<typename T>()
                                          {
                                              const T value = makeValue<T>(3);
                                              EXPECT_EQ(std::memcmp(key->getParameter(), &value, sizeof(T)), 0);
                                          });
        EXPECT_EQ(key->getInterpolateType(), known ? eInterpolateType::Linear : eInterpolateType::Trigger);
        EXPECT_NE(key->isTriggerOnly(), known);
    }
}

TEST_F(SequencerToolCommands, TakeOverWhatThePaneHasEdited)
{
    mTool->setSelectTrack(track("T"));
    pick("Lane", "Add Lane", "u8");
    mTool->setSelectLane(mSequence->findLane("T", "u8"));
    for (unsigned int frame : {10u, 20u})
        seek(frame), choose("Key", "Add Key");
    const auto record = [this](unsigned int index)
    {
        return mSequence->findNativeLane("T", "u8")->key + 4 * index;
    };

    edit(1, 2, "77\r");
    EXPECT_EQ(record(1)[2], 77);
    edit(1, 0, "5\r");
    EXPECT_EQ(describe(*mTool), "T{u8[5L10L]} | T u8 5");
    expectIntact("move");

    edit(1, 2, "9");
    mTool->setSelectKey(mSequence->findKey("T", "u8", 10));
    EXPECT_EQ(record(0)[2], 9) << "selecting another key commits to the former one";
    EXPECT_EQ(record(1)[2], 0);

    mTool->getSelectKey()->setInterpolateType(eInterpolateType::Hermite);
    mTool->getControlForm()->sendMessage(UIEndEditMessage());
    EXPECT_EQ(getInterpolateType(record(1)), eInterpolateType::Hermite) << "an end without a begin";

    edit(1, 2, "3");
    choose("Key", "Remove Key");
    EXPECT_EQ(describe(*mTool), "T{u8[5L]} | T u8");
    expectIntact("remove");
}

TEST_F(SequencerToolCommands, TakeOverWhatThePaneHasEditedInAMarker)
{
    for (unsigned int frame : {30u, 60u})
        seek(frame), choose("Marker", "Add Marker");
    const auto getRecord = [this]
    {
        return *mSequence->findNativeMarker(mTool->getSelectMarker()->getMarkerName());
    };

    edit(0, 3, "4\r");
    edit(0, 5, "12\r");
    edit(0, 6, "marker0\r");
    edit(0, 6, "Marker0\r");
    EXPECT_EQ(getRecord().count, 4u);
    EXPECT_EQ(getRecord().targetFrame, 12u);
    EXPECT_EQ(getRecord().targetIndex, 0u);
    EXPECT_TRUE(mSequence->isConsistent());

    // A name in use and none at all are refused.
    const std::pair<const char*, const char*> names[] = {
        {"Marker0\r", "Marker1"}, {"\b\r", "Marker1"}, {"End\r", "End"}};
    for (const auto& [keys, name] : names)
    {
        edit(0, 0, keys);
        EXPECT_EQ(mTool->getSelectMarker()->getMarkerName(), name) << keys;
    }
    edit(0, 1, "9\r");
    EXPECT_EQ(describe(*mTool), "T{} End@9 Marker0@30 | *End");

    mTool->getSelectMarker()->setMarkerType(eMarkerType::JumpFrame);
    mTool->getSelectMarker()->setReset(true);
    mTool->getControlForm()->sendMessage(UIEndEditMessage());
    EXPECT_EQ(getRecord().type, 2u);
    EXPECT_EQ(getRecord().reset, 1u);
}

TEST_F(SequencerToolCommands, RefuseAResourceThatPlaysTheSequenceItself)
{
    choose("Track", "Add Sequencer Track");
    mTool->setSelectTrack(track("Track0"));
    pick("Lane", "Add Lane", "Resource");
    mTool->setSelectLane(mSequence->findLane("Track0", "Resource"));

    const Held<SequencerResourceIntermediate> other(new SequencerResourceIntermediate);
    mTool->getSelectLiveObject()->cast<Sequencer>()->setResource(other.get());
    choose("Key", "Add Key");
    auto* key = static_cast<SequencerUniqueKey<ResourceBase>*>(mTool->getSelectKey());
    ASSERT_EQ(key->getResource(), other.get());
    EXPECT_EQ(TypeInfo::find(key->getResourceTypeID()), SequencerResource::getStaticTypeInfo());

    TraceCapture traces;
    key->setResource(mSequence.get());
    mTool->getControlForm()->sendMessage(UIEndEditMessage());
    EXPECT_EQ(key->getResource(), other.get());
    EXPECT_EQ(traces.take(), "Sequence plays itself.\n");
}

TEST_F(SequencerToolCommands, StepAndSeekByKeys)
{
    for (unsigned int frame : {10u, 20u, 30u})
        mSequence->addMarker(AutoString(static_cast<char>('a' + frame / 10)), frame);
    mSequence->setMarkerType("d", eMarkerType::JumpFrame);
    mSequence->addProbeLane("u8");
    for (unsigned int frame : {1u, 2u, 3u})
        mSequence->addKey("T", "u8", frame, eInterpolateType::Linear);
    mInterface.runFrame();

    constexpr unsigned int Left = 160;
    constexpr unsigned int Right = 162;
    const auto press = [this](unsigned int key, unsigned int combination)
    {
        if (const UIShortcutBase* shortcut = mTool->findShortcut(key, combination))
            shortcut->shortcut(static_cast<UIWindow*>(mTool));
        else
            mTool->stepSelection(key == Right);
        return std::to_string(mTool->getCurrentFrame()) + describe(*mTool).substr(describe(*mTool).find('|'));
    };
    const std::tuple<unsigned int, unsigned int, const char*> rows[] = {
        {Right, 4, "10| *b"}, {Right, 4, "20| *c"}, {Right, 4, "20| *c"}, {Right, 0, "20| *d"},
        {Right, 0, "20| *d"}, {Left, 0, "20| *c"},  {167, 4, "100| *c"},  {Left, 4, "20| *c"},
        {Left, 4, "10| *b"},  {Left, 4, "10| *b"},  {166, 4, "0| *b"},
    };
    for (const auto& [key, combination, result] : rows)
        EXPECT_EQ(press(key, combination), result);

    mTool->setSelectLane(mSequence->findLane("T", "u8"));
    EXPECT_EQ(press(Right, 0), "0| T u8 3") << "without a selected key, right is the last one";
    EXPECT_EQ(press(Left, 0), "0| T u8 2");
    mTool->setSelectKey(nullptr);
    EXPECT_EQ(press(Left, 0), "0| T u8 1");
    EXPECT_EQ(press(Left, 0), "0| T u8 1");

    for (const bool playing : {true, false})
    {
        press(132, 0);
        EXPECT_EQ(mTool->getSequencer()->isPlaying(), playing);
    }
    for (unsigned int combination : {1u, 4u})
        EXPECT_EQ(mTool->findShortcut(132, combination), nullptr);
}
