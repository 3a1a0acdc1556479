#pragma once

#include "animation/animtool.h"
#include "tests/window/windowdriver.h"
#include "ui/uidialog.h"

#include <initializer_list>

// One editor in the hands of a person, who finds everything where it is shown: a tall timeline below the two views, in
// a window as large as the screen.
class EditorDriver : public WindowDriver
{
public:
    // What the property pane shows below its first group, which holds the live values.
    enum ePane : int
    {
        Live,
        Key,
        Marker = Live, // there are no others then
    };

    explicit EditorDriver(std::shared_ptr<const SampleData> data = std::make_shared<SampleData>(),
                          const char* animation = nullptr);

    // The active one if there is one, else that in front.
    static AnimTool* findTool();
    static AnimTool& getTool() { return *findTool(); }
    static SequencerResourceIntermediate& getSequence() { return *getTool().getSequence(); }
    static SequencerTrack* getTrack(unsigned int index);

    // The object on a track as it is now.
    template <typename T>
    static T& getObject(unsigned int track)
    {
        return static_cast<T&>(*getTool().getLiveObject(track));
    }

    // Where each cell is and what it shows, now and at each frame up to one, which the play head comes to on its own.
    static std::string describe();
    std::string describeFrames(unsigned int last);

    void choose(const char* menu, const char* item);
    void chooseFrom(UIMenu* menu, const char* item);

    // Into the active editor, which has nothing to save.
    void open(const char* animation);

    // Empty when nothing is asked.
    static std::string getDialogTitle();
    void answer(UIDialog::eReturnValue value);

    // Into the dialog that asks for something by its name; Ok.
    void pick(const std::string& name);

    void clickElement(const UIBase* element, unsigned int button = Left);
    void clickCloseButton();
    void activate(const UIWindow& window);

    // To the lower right corner of the screen.
    void enlarge(const UIWindow& window);
    void drag(const sPoint& from, const sPoint& to);
    void dragBy(const sPoint& from, const sPoint& amount) { drag(from, from + amount); }

    // Rows of the timeline.
    void clickTrack(unsigned int track);
    void clickLane(unsigned int track, unsigned int lane);
    void toggleLanes(unsigned int track);
    void renameTrack(unsigned int track, const std::string& name);
    void band(unsigned int track, unsigned int lane, unsigned int from, unsigned int to);

    // By the ruler.
    void seek(unsigned int frame);

    // A new track with all its lanes, which is selected.
    void addTrack(const char* item, const char* type = nullptr);
    void pickCell(const sPoint& from, const sPoint& to);

    // Drags what the selected track has from one place to another, both from the origin of the animation.
    void moveObject(const sPoint& from, const sPoint& to);
    static sPoint getOrigin();

    // The element that a path of places among children leads to, and one of the property pane, from the group on.
    static const UIBase* getPart(const UIBase* element, std::initializer_list<int> path);
    static sPoint getCenter(const UIBase* element);
    static const UIBase* getWidget(std::initializer_list<int> path);
    void enter(std::initializer_list<int> path, const std::string& text);
    void chooseRow(std::initializer_list<int> path, int row);

private:
    static const UIBase* getRow(unsigned int track);
    static const UIBase* getLaneRow(unsigned int track, unsigned int lane);
    static int getTimelineLeft();
};
