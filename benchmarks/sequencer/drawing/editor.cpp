#include "animation/animresource.h"
#include "animation/animtool.h"
#include "application/testapp.h"
#include "benchmarks/render/drawing/worker.h"
#include "benchmarks/sequencer/sequencefile.h"
#include "benchmarks/ui/drawing/plainelements.h"
#include "benchmarks/ui/drawing/runframe.h"
#include "platform/platform.h"
#include "resource/resourcesystem.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/uitrack.h"
#include "ui/uisplitter.h"

#include <string_view>

namespace
{
constexpr Application::sInitializer Initializer = {"editor", 1024, 768, 60, 20, 240};

AnimResource* open()
{
    return ResourceSystem::getInstance()->createResource<AnimResource>(SequenceFile::LogicalName);
}

void runFrames(unsigned int frameNum)
{
    for (unsigned int i = 0; i < frameNum; ++i)
        runFrame(sInterfaceScene::eEnd::List);
}

// The animation editor as large as the screen, most of it the timeline, while it plays.
class LargeEditor : public AnimTool
{
public:
    using AnimTool::AnimTool;

    // The elements of the timeline that are seen and those that are laid out alone: the rows of tracks and lanes in
    // both of its columns, and the boxes with the names of the tracks. Nothing else counts as an element, neither keys
    // nor cells nor what stands around the rows.
    struct sCount
    {
        unsigned int seen;
        unsigned int hidden;
    };

    // No time passes between the frames of a benchmark, so each of them counts as one of the program.
    void update(float /*deltaTime*/) override { AnimTool::update(1.0f); }

    void arrange(bool extracted)
    {
        setPosition(sPoint(0, 24));
        setSize({Initializer.windowWidth, Initializer.windowHeight - 24});
        resetLayout();
        runFrames(2);
        enlargeTimeline();
        for (ObjectBase* track : getSequence()->getTrackList())
            if (extracted)
                getInfo(track)->sendMessage(UIMouseDownMessage(ExtractPosition, UIMouseDownMessage::FirstButton));
        setSelectTrack(static_cast<SequencerTrack*>(*getSequence()->getTrackList().begin()));
        runFrames(2);
    }

    sCount count()
    {
        sCount result = {};
        for (ObjectBase* track : getSequence()->getTrackList())
            for (UIBase* column : {getInfo(track), getFrames(track)})
                add(result, column);
        return result;
    }

    // From the start again where it has come to the end.
    void keepPlaying()
    {
        if (getSequencer()->isPlaying())
            return;
        seekStart();
        togglePlay();
    }

private:
    static constexpr sPoint ExtractPosition{4, 19};

    // The bar above it is dragged up.
    void enlargeTimeline()
    {
        UIBase* bar = getSplitter()->getParent();
        bar->sendMessage(UIMouseDownMessage(sPoint::Zero, UIMouseDownMessage::FirstButton));
        bar->sendMessage(UIMouseMoveMessage(sPoint(0, static_cast<int>(bar->getSize().height) / 4)));
        bar->sendMessage(UIMouseUpMessage(sPoint::Zero, UIMouseDownMessage::FirstButton));
    }

    UIBase* getInfo(ObjectBase* track) { return findKey(track); }

    // The column of the frames lies behind that of the names.
    UIBase* getFrames(ObjectBase* track)
    {
        UIBase* columns = getInfo(track)->getParent()->getParent()->getParent();
        UIBase* found = nullptr;
        for (UIBase::iterator place = columns->getChildrenBegin(); place != columns->getChildrenEnd(); ++place)
            if (UIBase* row = (*place)->findKey(track))
                found = row;
        return found;
    }

    static void add(sCount& result, UIBase* element)
    {
        const sRect& region = element->getDrawRegion();
        ++(region.getWidth() && region.getHeight() ? result.seen : result.hidden);
        for (UIBase::iterator place = element->getChildrenBegin(); place != element->getChildrenEnd(); ++place)
            add(result, *place);
    }
};

LargeEditor* openEditor(bool extracted)
{
    AnimResource* animation = open();
    if (!animation)
        return nullptr;
    LargeEditor* editor = new LargeEditor(animation);
    animation->release();
    UISystem::getInstance()->addWindow(editor);
    runFrames(2);
    editor->arrange(extracted);
    return editor;
}

int runEditor(bool extracted)
{
    LargeEditor* editor = openEditor(extracted);
    if (!editor)
        return EXIT_FAILURE;
    const LargeEditor::sCount count = editor->count();
    return serve([editor] { editor->keepPlaying(); }, [] { runFrame(sInterfaceScene::eEnd::List); },
                 count.seen + count.hidden);
}

// As many plain elements in blocks, and as many of them seen: of the blocks of the first window only a part of one is
// in view.
int runPlain(bool extracted)
{
    constexpr unsigned int BlockSize = sInterfaceScene::BlockSize;
    const InterfaceTexts texts;
    LargeEditor* editor = openEditor(extracted);
    if (!editor)
        return EXIT_FAILURE;
    const LargeEditor::sCount count = editor->count();
    UISystem::getInstance()->removeAllWindow();

    const unsigned int fullNum = count.seen / BlockSize;
    const unsigned int blockNum = (count.seen + count.hidden) / BlockSize;
    const auto fill = [&texts](unsigned int num)
    {
        return [&texts, num](UIForm& form)
        {
            for (unsigned int i = 0; i < num; ++i)
                plain::addBlock(form, texts);
        };
    };
    plain::addWindow(0, fill(blockNum - fullNum), sInterfaceScene::BlockHeight * (count.seen % BlockSize) / BlockSize);
    for (unsigned int i = 1; i <= fullNum; ++i)
        plain::addWindow(i, fill(1));
    return serve([] {}, [] { runFrame(sInterfaceScene::eEnd::List); }, blockNum * BlockSize);
}

// Each time from the file: a resource that nobody holds is forgotten.
int runOpening()
{
    AnimResource* animation = nullptr;
    const auto close = [&animation]
    {
        if (animation)
            animation->release();
        animation = nullptr;
    };
    const int status = serve(close, [&animation] { animation = open(); });
    close();
    return status;
}

int run(std::string_view scene, bool extracted)
{
    TestApp application(&Initializer);
    application.setEditor(false);
    application.setup();
    if (!application.getWindowHandle())
        return EXIT_FAILURE;
    if (scene == "open")
        return runOpening();
    return scene == "plain" ? runPlain(extracted) : runEditor(extracted);
}
}

// Arguments are the directory of the data, and what is measured: "open", or a frame of the "editor" or of "plain"
// elements, followed by "extracted" if the tracks are.
int main(int argumentNum, char** arguments)
{
    if (argumentNum < 3 || !Platform::create(ePlatform::SDL))
        return EXIT_FAILURE;
    Platform::forceResourceDirectory(arguments[1]);
    const int status = run(arguments[2], argumentNum > 3);
    Platform::destroy();
    return status;
}
