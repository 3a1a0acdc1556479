#include "tests/window/editordriver.h"

#include "animation/animationform.h"
#include "animation/animcell.h"
#include "animation/drawanimation.h"
#include "animation/textureform.h"
#include "sequencer/controlform.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/trackform.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uisystem.h"

#include <cstring>
#include <sstream>

namespace
{
constexpr sPoint LowerRight{1015, 759};
constexpr int FirstAnswer = 2;
constexpr sPoint TitlePlace{40, 8};
constexpr int TimelineNames = 96;
constexpr int TimelineTop = 300;

// Of the rows of a list or menu that opens.
constexpr sPoint MenuRow{20, 11};
constexpr int MenuRowHeight = 14;
constexpr int ListRowHeight = 16;

UISystem& ui()
{
    return *UISystem::getInstance();
}

UIBase* getChild(const UIBase* element, int index)
{
    return *(element->getChildrenBegin() + index);
}

template <typename Item>
int findItem(const Vector<Item>& items, const char* name)
{
    int index = 0;
    for (Item* item : items)
    {
        if (item->getName() && std::strcmp(item->getName(), name) == 0)
            return index;
        ++index;
    }
    ADD_FAILURE() << "there is no " << name;
    return 0;
}
}

EditorDriver::EditorDriver(std::shared_ptr<const SampleData> data, const char* animation)
    : WindowDriver(std::move(data))
{
    EXPECT_TRUE(edit(animation));
    runFrames(2);
    enlarge(getTool());
    const sRect views = getTool().getAnimationForm()->getParent()->getAbsRegion();
    drag(sPoint(TimelineNames, views.bottom + 2), sPoint(TimelineNames, TimelineTop));
}

AnimTool* EditorDriver::findTool()
{
    if (UIWindow* active = ui().getActiveWindow())
        if (AnimTool* tool = active->cast<AnimTool>())
            return tool;
    for (ObjectBase* window : ui().getWindowList())
        if (AnimTool* tool = window->cast<AnimTool>())
            return tool;
    return nullptr;
}

SequencerTrack* EditorDriver::getTrack(unsigned int index)
{
    return static_cast<SequencerTrack*>(getSequence().getTrackList()[index]);
}

std::string EditorDriver::describe()
{
    std::ostringstream text;
    for (unsigned int i = 0; i < getSequence().getTrackNum(); ++i)
        if (const AnimCell* cell = getTool().getLiveObject(i)->cast<AnimCell>())
            text << cell->getPosition().x << "," << cell->getPosition().y << " " << cell->getUV().x << ","
                 << cell->getUV().y << " " << cell->getSize().width << "," << cell->getSize().height << " "
                 << cell->getAttribute() << "; ";
    return text.str();
}

std::string EditorDriver::describeFrames(unsigned int last)
{
    seek(0);
    std::string text = describe();
    strike(F5);
    for (unsigned int frame = getTool().getCurrentFrame(); frame < last; ++frame)
    {
        runFrames(1);
        text += std::to_string(getTool().getCurrentFrame()) + ": " + describe() + "\n";
    }
    strike(F5);
    return text;
}

void EditorDriver::choose(const char* menu, const char* item)
{
    const UIMainMenu* bar = ui().getMainMenu();
    ASSERT_NE(bar, nullptr);
    const UIMainMenu::Item* entry = bar->getItems()[static_cast<unsigned int>(findItem(bar->getItems(), menu))];
    const sRect region = entry->getRegion();
    click(bar->getAbsPosition() + sPoint((region.left + region.right) / 2, (region.top + region.bottom) / 2));
    chooseFrom(entry->getSubMenu(), item);
}

void EditorDriver::chooseFrom(UIMenu* menu, const char* item)
{
    ASSERT_EQ(ui().getMenu(), menu);
    click(menu->getAbsPosition() + MenuRow + sPoint(0, MenuRowHeight * findItem(menu->getItems(), item)));
    EXPECT_EQ(ui().getMenu(), nullptr);
}

void EditorDriver::open(const char* animation)
{
    const AnimTool& tool = getTool();
    choose("File", "Open");
    pick(animation);
    activate(tool);
}

std::string EditorDriver::getDialogTitle()
{
    const List<UIWindow>& modal = ui().getModalWindowList();
    return modal.empty() ? "" : (*modal.rbegin())->getTitle().c_str();
}

void EditorDriver::answer(UIDialog::eReturnValue value)
{
    ASSERT_FALSE(ui().getModalWindowList().empty());
    clickElement(getChild(*ui().getModalWindowList().rbegin(), FirstAnswer + static_cast<int>(value) - UIDialog::Yes));
}

void EditorDriver::pick(const std::string& name)
{
    ASSERT_FALSE(ui().getModalWindowList().empty()) << name;
    const sPoint corner = (*ui().getModalWindowList().rbegin())->getAbsPosition();
    click(corner + sPoint(24, 202));
    type(name);
    click(corner + sPoint(280, 202));
}

void EditorDriver::clickElement(const UIBase* element, unsigned int button)
{
    click(getCenter(element), button);
}

void EditorDriver::clickCloseButton()
{
    clickElement(getChild(&getTool(), 1));
}

void EditorDriver::activate(const UIWindow& window)
{
    click(window.getAbsPosition() + TitlePlace);
    EXPECT_EQ(ui().getActiveWindow(), &window);
}

void EditorDriver::enlarge(const UIWindow& window)
{
    const sRect region = window.getAbsRegion();
    drag(sPoint(region.right - 8, region.bottom - 8), LowerRight);
}

void EditorDriver::drag(const sPoint& from, const sPoint& to)
{
    move(from);
    press();
    move(to);
    release();
}

void EditorDriver::clickTrack(unsigned int track)
{
    click(getRow(track)->getAbsPosition() + sPoint(5, 6));
}

void EditorDriver::clickLane(unsigned int track, unsigned int lane)
{
    clickElement(getLaneRow(track, lane));
}

void EditorDriver::toggleLanes(unsigned int track)
{
    click(getRow(track)->getAbsPosition() + sPoint(5, 19));
}

void EditorDriver::renameTrack(unsigned int track, const std::string& name)
{
    clickElement(getChild(getRow(track), 0));
    type(name);
    strike(KeyboardSystem::Return);
}

void EditorDriver::band(unsigned int track, unsigned int lane, unsigned int from, unsigned int to)
{
    const int y = getCenter(getLaneRow(track, lane)).y;
    const int left = getTimelineLeft() + 1;
    drag(sPoint(left + static_cast<int>(from), y), sPoint(left + static_cast<int>(to), y));
}

void EditorDriver::seek(unsigned int frame)
{
    const UIBase* timeline = getTool().getControlForm()->getParent();
    click(sPoint(getTimelineLeft() + static_cast<int>(frame), timeline->getAbsRegion().top + 16));
    EXPECT_EQ(getTool().getCurrentFrame(), frame);
}

void EditorDriver::addTrack(const char* item, const char* type)
{
    const unsigned int index = getSequence().getTrackNum();
    choose("Track", item);
    if (type)
        pick(type);
    ASSERT_EQ(getSequence().getTrackNum(), index + 1);
    clickTrack(index);
    choose("Lane", "Add All Lane");
}

void EditorDriver::pickCell(const sPoint& from, const sPoint& to)
{
    const sPoint corner = getTool().getTextureForm()->getView()->getAbsPosition();
    drag(corner + from, corner + to);
}

void EditorDriver::moveObject(const sPoint& from, const sPoint& to)
{
    drag(getOrigin() + from, getOrigin() + to);
}

sPoint EditorDriver::getOrigin()
{
    return getTool().getAnimationForm()->getView()->getAbsPosition() + sPoint(AnimationOrigin, AnimationOrigin);
}

const UIBase* EditorDriver::getPart(const UIBase* element, std::initializer_list<int> path)
{
    for (const int index : path)
        element = getChild(element, index);
    return element;
}

// Which is to be seen.
sPoint EditorDriver::getCenter(const UIBase* element)
{
    const sRect region = element->getAbsRegion();
    const sPoint centre((region.left + region.right) / 2, (region.top + region.bottom) / 2);
    EXPECT_TRUE(element->getDrawRegion().intersect(centre)) << centre.x << ", " << centre.y << " is out of sight";
    return centre;
}

const UIBase* EditorDriver::getWidget(std::initializer_list<int> path)
{
    return getPart(getChild(getTool().getControlForm(), 2), path);
}

void EditorDriver::enter(std::initializer_list<int> path, const std::string& text)
{
    clickElement(getWidget(path));
    type(text);
    strike(KeyboardSystem::Return);
}

void EditorDriver::chooseRow(std::initializer_list<int> path, int row)
{
    const UIBase* widget = getWidget(path);
    clickElement(widget);
    const sRect region = widget->getAbsRegion();
    click(sPoint(region.left + 8, region.bottom + row * ListRowHeight + ListRowHeight / 2));
}

// Its names; the row of the frames is as high and beside it.
const UIBase* EditorDriver::getRow(unsigned int track)
{
    return getTool().findKey(getTrack(track));
}

const UIBase* EditorDriver::getLaneRow(unsigned int track, unsigned int lane)
{
    return getChild(getRow(track), 1 + static_cast<int>(lane));
}

int EditorDriver::getTimelineLeft()
{
    return getTool().getControlForm()->getParent()->getAbsRegion().left + TimelineNames;
}
