#include "io/stream.h"
#include "sequencer/controlform.h"
#include "sequencer/sequencebuild.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/elements.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/held.h"
#include "tests/support/tracecapture.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <sstream>

namespace
{
constexpr unsigned int Left = 160;
constexpr unsigned int Right = 162;
}

// The editor of a sequence, whose track "T" holds a probe, in the hands of a user.
class SequencerToolCommands : public testing::Test
{
protected:
    SequencerToolCommands()
    {
        mTool->setSize({900, 700});
        run();
    }

    // The resource system, which ends what is new after a frame, does not know a sequence without a file.
    void run()
    {
        mInterface.runFrames(2);
        mSequence->clearUpdate();
    }

    // An item of a menu of its name, and what is typed into the dialog that it opens.
    void choose(const char* item, const char* answer = nullptr)
    {
        for (UIMainMenu::Item* entry : mTool->getMainMenu()->getItems())
            for (UIMenu::Item* row : entry->getSubMenu()->getItems())
                if (AutoString::isEqual(row->getName(), item))
                    row->occurEvent();
        run();
        if (!answer)
            return;
        ASSERT_EQ(mInterface.mSystem->getModalWindowList().size(), 1u) << item;
        const sPoint corner = mInterface.mSystem->getActiveWindow()->getPosition();
        type(corner + sPoint(20, 200), answer);
        mInterface.click(corner + sPoint(260, 200));
    }

    void type(const sPoint& place, const char* keys)
    {
        mInterface.click(place);
        for (; *keys && mInterface.mSystem->getFocus(); ++keys)
            mInterface.mSystem->getFocus()->sendMessage(
                UIKeyDownMessage(static_cast<unsigned int>(std::toupper(*keys)), std::isupper(*keys) != 0));
    }

    // Into the box of a widget of the property pane.
    void edit(int group, int widget, const char* keys)
    {
        type(getChild(*mTool->getControlForm(), 2, group, widget)->getAbsPosition() + sPoint(8, 24), keys);
    }

    // What some widgets do without a begin.
    void endEdit() { mTool->getControlForm()->sendMessage(UIEndEditMessage()); }

    void press(unsigned int key, unsigned int combination = 0)
    {
        if (const UIShortcutBase* shortcut = mTool->findShortcut(key, combination))
            shortcut->shortcut(static_cast<UIWindow*>(mTool));
        else
            mTool->stepSelection(key == Right);
    }

    void track(const char* name) { mTool->setSelectTrack(mSequence->findTrack(name)); }
    void lane(const char* name) { mTool->setSelectLane(mSequence->findLane("T", name)); }
    void seek(unsigned int frame) { mTool->setCurrentFrame(frame); }

    // "20 T{u8[10L5]} M@5:0,0,0,0 | T u8 10": the head; keys by their records, markers with what their records have of
    // type, count, target frame and index; what is selected.
    std::string describe() const
    {
        std::ostringstream text;
        text << mTool->getCurrentFrame() << (mTool->getSequencer()->isPlaying() ? "> " : " ");
        for (unsigned int i = 0; i < mSequence->getTrackNum(); ++i)
        {
            const auto& track = static_cast<SequencerTrack&>(*mSequence->getTrackList()[i]);
            text << track.getTrackName().c_str() << "{";
            for (unsigned int j = 0; j < track.getLaneList().size(); ++j)
                text << static_cast<SequencerLane*>(track.getLaneList()[j])->getControlName().c_str()
                     << describeKeys(mSequence->getTrackArray()[i].lane[j]);
            text << "} ";
        }
        for (unsigned int i = 0; i < mSequence->getMarkerNum(); ++i)
        {
            const auto& marker = static_cast<SequencerMarker&>(*mSequence->getMarkerList()[i]);
            const sMarkerRecord& record = mSequence->getMarkerArray()[i];
            text << marker.getMarkerName().c_str() << "@" << marker.getFrame();
            if (record.type || record.count || record.targetFrame || record.targetIndex)
                text << ":" << record.type << record.count << record.targetFrame << record.targetIndex;
            text << " ";
        }
        text << (mTool->isMarkerTrackSelected() ? "|*" : "|");
        if (mTool->getSelectMarker())
            text << mTool->getSelectMarker()->getMarkerName().c_str();
        if (mTool->getSelectTrack())
            text << mTool->getSelectTrack()->getTrackName().c_str();
        if (mTool->getSelectLane())
            text << " " << mTool->getSelectLane()->getControlName().c_str();
        if (mTool->getSelectKey())
            text << " " << mTool->getSelectKey()->getFrame();
        return text.str();
    }

    static std::string describeKeys(const sLaneRecord& lane)
    {
        std::ostringstream text;
        for (const unsigned char* key = lane.key; key != lane.key + lane.keyNum * lane.keyStride; key += lane.keyStride)
            text << " " << readKeyHead(key).frame << "CLHT"[readKeyHead(key).interpolateType] << int(key[2]);
        return "[" + text.str() + "]";
    }

    // Whether a file brings back what is there.
    bool comesBack()
    {
        const std::string file = mInterface.getRoot() + "/walk.seq.xml";
        TextFileStream out(file.c_str(), FileStream::Write);
        SequencerResourceIntermediate copy;
        if (!mSequence->save(out) || !out.flush())
            return false;
        TextFileStream in(file.c_str(), FileStream::Read);
        return copy.load(in) && SequenceBuild::isEqual(*mSequence, copy);
    }

    HeadlessInterface mInterface;
    Held<TestSequence> mSequence{new TestSequence(0, 100)};
    SequencerTool* mTool = mInterface.add(new SequencerTool(mSequence.get()));
};

TEST_F(SequencerToolCommands, EditBothFormsOfTheSequence)
{
    // A step and its result, null where nothing changes.
    const std::pair<std::function<void()>, const char*> rows[] = {
        {[&] { choose("Add Sequencer Track"); }, "0 T{} Track0{} |"},
        {[&] { choose("Add Track", "SequenceProbe"); }, "0 T{} Track0{} Track1{} |"},
        {[&] { choose("Add Track", "SequencerTool"); }, nullptr},
        {[&] { choose("Add Track", "nobody"); }, nullptr},
        {[&] { choose("Remove Track"), choose("Add Lane"); }, nullptr},
        {[&] { track("Track1"); }, "0 T{} Track0{} Track1{} |Track1"},
        {[&] { choose("Remove Track"); }, "0 T{} Track0{} |"},
        {[&] { track("T"); }, "0 T{} Track0{} |T"},
        {[&] { choose("Add Lane", "u8"); }, "0 T{u8[]} Track0{} |T"},
        {[&] { choose("Add Lane", "u8"), choose("Add Lane", "nobody"), choose("Remove Lane"); }, nullptr},
        {[&] { choose("Add Lane", "s8"); }, "0 T{u8[]s8[]} Track0{} |T"},
        // Keys.
        {[&] { track("Track0"), lane("u8"); }, "0 T{u8[]s8[]} Track0{} |T u8"},
        {[&] { track("Track0"), choose("Remove Track"), lane("u8"); }, "0 T{u8[]s8[]} |T u8"},
        {[&] { seek(10), choose("Add Key"); }, "10 T{u8[ 10L0]s8[]} |T u8 10"},
        {[&] { choose("Add Key"); }, nullptr},
        {[&] { edit(1, 2, "77\r"); }, "10 T{u8[ 10L77]s8[]} |T u8 10"},
        {[&] { seek(20), choose("Add Key All Lane"); }, "20 T{u8[ 10L77 20L77]s8[ 20L0]} |T u8 10"},
        {[&] { seek(30), choose("Add Key"); }, "30 T{u8[ 10L77 20L77 30L77]s8[ 20L0]} |T u8 30"},
        {[&] { edit(1, 0, "15\r"); }, "30 T{u8[ 10L77 15L77 20L77]s8[ 20L0]} |T u8 15"},
        {[&] { edit(1, 2, "9"), mTool->setSelectKey(nullptr); }, "30 T{u8[ 10L77 15L9 20L77]s8[ 20L0]} |T u8"},
        {[&] { press(Right); }, "30 T{u8[ 10L77 15L9 20L77]s8[ 20L0]} |T u8 20"},
        {[&] { press(Right); }, nullptr},
        {[&] { press(Left); }, "30 T{u8[ 10L77 15L9 20L77]s8[ 20L0]} |T u8 15"},
        {[&] { mTool->setSelectKey(nullptr), press(Left); }, "30 T{u8[ 10L77 15L9 20L77]s8[ 20L0]} |T u8 10"},
        {[&] { press(Left); }, nullptr},
        {[&] { mTool->getSelectKey()->setInterpolateType(eInterpolateType::Hermite), endEdit(); },
         "30 T{u8[ 10H77 15L9 20L77]s8[ 20L0]} |T u8 10"},
        {[&] { edit(1, 2, "3"), choose("Remove Key"); }, "30 T{u8[ 15L9 20L77]s8[ 20L0]} |T u8"},
        {[&] { choose("Remove Key"); }, nullptr},
        {[&] { lane("s8"); }, "30 T{u8[ 15L9 20L77]s8[ 20L0]} |T s8 20"},
        {[&] { mTool->eventRemoveAllKey(); }, "30 T{u8[ 15L9 20L77]s8[]} |T s8"},
        {[&] { choose("Remove Lane"); }, "30 T{u8[ 15L9 20L77]} |"},
        {[&] { track("T"), choose("Remove All Lane"); }, "30 T{} |"},
        // Markers, and what the keys do with them.
        {[&] { choose("Add Marker"); }, "30 T{} Marker0@30 |*Marker0"},
        {[&] { choose("Add Marker"); }, nullptr},
        {[&] { seek(5), track("T"), mTool->selectMarkerTrack(); }, "5 T{} Marker0@30 |*"},
        {[&] { choose("Add Marker"), edit(0, 3, "4\r"); }, "5 T{} Marker1@5:0400 Marker0@30 |*Marker1"},
        {[&] { edit(0, 5, "12\r"); }, "5 T{} Marker1@5:04120 Marker0@30 |*Marker1"},
        {[&] { edit(0, 6, "Marker0\r"); }, "5 T{} Marker1@5:04121 Marker0@30 |*Marker1"},
        {[&] { edit(0, 0, "Marker0\r"), edit(0, 0, "\b\r"); }, nullptr},
        {[&] { edit(0, 0, "M\r"); }, "5 T{} M@5:04121 Marker0@30 |*M"},
        {[&] { press(Right); }, "5 T{} M@5:04121 Marker0@30 |*Marker0"},
        {[&] { press(Left), press(Left); }, "5 T{} M@5:04121 Marker0@30 |*M"},
        {[&] { press(Right, 4), press(Right, 4); }, "30 T{} M@5:04121 Marker0@30 |*Marker0"},
        {[&] { press(167, 4), press(Left, 4); }, nullptr},
        {[&] { press(Left, 4); }, "5 T{} M@5:04121 Marker0@30 |*M"},
        {[&] { mTool->getSelectMarker()->setMarkerType(eMarkerType::JumpTarget), endEdit(); },
         "5 T{} M@5:14121 Marker0@30 |*M"},
        {[&] { press(167, 4), press(Left, 4), press(Left, 4); }, "30 T{} M@5:14121 Marker0@30 |*Marker0"},
        {[&] { press(166, 4), press(132); }, "0> T{} M@5:14121 Marker0@30 |*Marker0"},
        {[&] { press(132), press(166, 4); }, "0 T{} M@5:14121 Marker0@30 |*Marker0"},
        {[&] { choose("Remove Marker"); }, "0 T{} M@5:14121 |*"},
        // Somebody else changes the sequence: the tool begins anew, and counts names from 0 again.
        {[&] { mSequence->setMarkerName("M", "Marker0"); }, "0 T{} Marker0@5:14121 |"},
        {[&] { choose("Add Marker"); }, "0 T{} Track1@0 Marker0@5:14121 |*Track1"},
        {[&] { choose("Remove All Marker"); }, "0 T{} |*"},
    };
    for (const auto& [act, result] : rows)
    {
        const std::string before = describe();
        mSequence->clearModify();
        act();
        run();
        EXPECT_EQ(describe(), result ? result : before);
        EXPECT_TRUE(result || !mSequence->isModified()) << before;
        EXPECT_TRUE(mSequence->isConsistent() && comesBack()) << before;
    }
    for (unsigned int combination : {1u, 4u})
        EXPECT_EQ(mTool->findShortcut(132, combination), nullptr);
}

TEST_F(SequencerToolCommands, DoNothingWithoutASequence)
{
    lane("u8");
    mTool->setResource(nullptr);
    EXPECT_EQ(mTool->findKey(mSequence->findTrack("T")), nullptr);
    for (UIMainMenu::Item* entry : mTool->getMainMenu()->getItems())
        for (UIMenu::Item* row : entry->getSubMenu()->getItems())
            if (row->getName() && !AutoString::isEqual(entry->getName(), "File"))
                choose(row->getName());
    for (const unsigned int key : {Left, Right})
        press(key), press(key, 4);
    mTool->eventRemoveAllKey();
    EXPECT_EQ(mInterface.mSystem->getWindowList().size(), 1u);
    EXPECT_FALSE(mTool->getSequencer()->isPlaying());
    EXPECT_EQ(mTool->getSelectLane(), nullptr);
}

TEST_F(SequencerToolCommands, RecordInAKeyWhatTheObjectHolds)
{
    track("T");
    choose("Add All Lane");
    SequenceProbe* probe = mTool->getLiveObject(0)->cast<SequenceProbe>();
    const auto set = [probe]<typename... Ts>(TypeList<Ts...>)
    {
        ((probe->get<Ts>() = makeValue<Ts>(3)), ...);
    };
    set(ValueTypes{});
    seek(7);
    choose("Add Key All Lane");
    EXPECT_TRUE(mSequence->isConsistent());
    probe = mTool->getLiveObject(0)->cast<SequenceProbe>(); // Made anew, so its values come from the keys.

    for (ObjectBase* object : mSequence->findTrack("T")->getLaneList())
    {
        const SequencerLane* lane = static_cast<SequencerLane*>(object);
        SequencerKey* key = lane->findKey(7);
        ASSERT_NE(key, nullptr) << lane->getControlName().c_str();
        const auto expect = [key, probe]<typename T>()
        {
            const T value = makeValue<T>(3);
            EXPECT_EQ(std::memcmp(key->getParameter(), &value, sizeof(T)), 0);
            EXPECT_EQ(std::memcmp(&probe->get<T>(), &value, sizeof(T)), 0) << ValueTraits<T>::name;
        };
        const bool known = visitValueType(ValueTypes{}, lane->getKeyType(), expect);
        EXPECT_EQ(key->getInterpolateType(), known ? eInterpolateType::Linear : eInterpolateType::Trigger);
        EXPECT_NE(key->isTriggerOnly(), known);
        List<UIBase> widgets;
        key->makeUIList(widgets);
        EXPECT_EQ(widgets.size(), lane->getKeyType() == KeyTable::ResourceType ? 2u : 3u);
        EXPECT_EQ(widgets[1]->isEnabled(), known);
        for (UIBase* widget : widgets)
            delete widget;
    }
}

TEST_F(SequencerToolCommands, RefuseAResourceThatPlaysTheSequenceItself)
{
    choose("Add Sequencer Track");
    track("Track0");
    choose("Add Lane", "Resource");
    run();
    mTool->setSelectLane(mSequence->findLane("Track0", "Resource"));

    const Held<SequencerResourceIntermediate> other(new SequencerResourceIntermediate);
    mTool->getSelectLiveObject()->cast<Sequencer>()->setResource(other.get());
    choose("Add Key");
    auto* key = static_cast<SequencerUniqueKey<ResourceBase>*>(mTool->getSelectKey());
    ASSERT_EQ(key->getResource(), other.get());
    EXPECT_EQ(TypeInfo::find(key->getResourceTypeID()), SequencerResource::getStaticTypeInfo());

    TraceCapture traces;
    key->setResource(mSequence.get());
    endEdit();
    EXPECT_EQ(key->getResource(), other.get());
    EXPECT_EQ(traces.take(), "Sequence plays itself.\n");
}

TEST_F(SequencerToolCommands, ShowALaneOfAnyNameWithItsKey)
{
    const std::string name(100000, 'x');
    sPoint point;
    bool flag;
    for (PropertyBase* property : {static_cast<PropertyBase*>(new ReferenceProperty(name.c_str(), &point)),
                                   static_cast<PropertyBase*>(new ReferenceProperty(name.c_str() + 1, &flag))})
    {
        const PropertyControl control(property);
        mSequence->addLane("T", &control);
        mSequence->addKey("T", control.getName(), 0, eInterpolateType::Linear);
        run();
        lane(control.getName());
        run();
        EXPECT_NE(mTool->getSelectKey(), nullptr);
    }
}
