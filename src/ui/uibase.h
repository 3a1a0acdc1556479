#pragma once

#include "foundation/list.h"
#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "foundation/ssize.h"
#include "reflection/objectbase.h"
#include "ui/uimessage.h"

class UIMenu;
class UIPainter;
class UIShortcutBase;

// An element of the interface: a node of a tree that its parent owns, with a rectangle, a few bits of state and one
// hook for everything that can happen to it. Regions are rebuilt from the root down and everything is painted anew in
// each frame, so a change takes effect without a word. Update and painting run in a job of the element's window and
// touch that window's tree only; input and edits run on the main thread.
class UIBase : public ObjectBase
{
public:
    using iterator = List<UIBase>::iterator;

    enum eAttribute : unsigned int
    {
        // Flow layouts give the element a row of its own, at the full width.
        RowElement = 1,
        // Not clipped by its parent, painted one level higher, and hit before all that do not float.
        FloatingElement = 2,
    };

    enum eStatus : unsigned int
    {
        Created = 1,
        Active = 2,
        Focused = 4,
        Visible = 8,
        Enabled = 16,
        HasFloating = 32,
        Moving = 64,
        Sizing = 128,
    };

    enum class eBorderStyle : unsigned int
    {
        None = 0,
        Frame = 1,
        Convex = 2,
        Concave = 3,
    };

    // On purpose: the grip of a window asks for a cursor of its own and shows the arrow.
    enum class eCursor : unsigned int
    {
        Arrow = 0,
        Grip = 1,
        UpDown = 2,
        LeftRight = 3,
    };

    explicit UIBase(unsigned int attribute = 0);
    ~UIBase() override;

    UIBase(const UIBase&) = delete;
    UIBase& operator=(const UIBase&) = delete;

    // Owns the child from now on.
    void add(UIBase* child);

    // Leaves the parent, which owns this element no longer. Nothing without a parent.
    void remove();

    // Deletes all children.
    void removeChildren();

    UIBase* getParent() const { return mParent; }
    unsigned int getChildCount() const { return mChildren.size(); }
    iterator getChildrenBegin() const { return mChildren.begin(); }
    iterator getChildrenEnd() const { return mChildren.end(); }

    // `element` if it is this element or lies below it, else null.
    UIBase* find(UIBase* element);

    // The first element of this tree with that key, or null. A new element's key is its own address.
    UIBase* findKey(void* key);
    void setFindKey(void* key) { mFindKey = key; }
    void* getFindKey() const { return mFindKey; }

    // Around the rectangles of all children and the origin.
    sRect getChildrenRegion() const;

    // Each does nothing if the element is so already, and changes this element alone.
    void create();
    void active();
    void deactive();
    void focus();
    void defocus();
    void show();
    void hide();
    void enable();
    void disable();

    unsigned int getStatus() const { return mStatus; }
    bool isCreated() const { return mStatus & Created; }
    bool isActive() const { return mStatus & Active; }
    bool isFocused() const { return mStatus & Focused; }
    bool isVisible() const { return mStatus & Visible; }
    bool isEnabled() const { return mStatus & Enabled; }
    bool hasFloating() const { return mStatus & HasFloating; }

    unsigned int getAttribute() const { return mAttribute; }
    void setAttribute(unsigned int attribute) { mAttribute = attribute; }
    bool isRowElement() const { return mAttribute & RowElement; }
    bool isFloating() const { return mAttribute & FloatingElement; }

    // Relative to the parent; the absolute region follows with the next updateRegion().
    void setPosition(const sPoint& position);
    const sPoint& getPosition() const { return mPosition; }

    // Each axis is raised to the minimum size.
    void setSize(const sSize& size);
    const sSize& getSize() const { return mSize; }

    // Holds for sizes set from now on.
    void setMinimumSize(const sSize& size) { mMinimumSize = size; }
    const sSize& getMinimumSize() const { return mMinimumSize; }

    // In the parent's, in the element's own, and twice in view coordinates; the last is what can be seen of it.
    sRect getRelRegion() const { return getOwnRegion() + mPosition; }
    sRect getOwnRegion() const { return sRect(mSize); }
    const sRect& getAbsRegion() const { return mAbsRegion; }
    const sRect& getDrawRegion() const { return mDrawRegion; }
    sPoint getAbsPosition() const { return sPoint(mAbsRegion.left, mAbsRegion.top); }

    void setAbsRegion(const sPoint& origin);
    void setDrawRegion(const sRect& rect);
    void updateOwnRegion(const sRect& absolute, const sRect& clip);
    void updateChildrenRegion(const sRect& absolute, const sRect& clip);

    // The deepest element under a point of the view, or null; what floats wins. The right and bottom edges count.
    UIBase* intersect(const sPoint& point, const sRect& clip);

    // Owns the menu, which the second button opens; the former one is deleted.
    void setMenu(UIMenu* menu);
    UIMenu* getMenu() const { return mMenu; }

    void setCursor(eCursor cursor) { mCursor = cursor; }
    eCursor getCursor() const { return mCursor; }

    void setBorderStyle(eBorderStyle style) { mBorderStyle = style; }
    eBorderStyle getBorderStyle() const { return mBorderStyle; }
    void setBorderColor(sColor color) { mBorderColor = color; }
    sColor getBorderColor() const { return mBorderColor; }

    // From a press on this element to its release. The amount is in pixels since the press, and is that of the
    // last drag until the first move.
    bool isDragging() const { return mDragging; }
    unsigned int getDragButton() const { return mDragButton; }
    const sPoint& getDragBeginPosition() const { return mDragBeginPosition; }
    const sPoint& getDragAmount() const { return mDragAmount; }

    // Brings the message to this element, to the whole tree if it is a broadcast, and to the parent if a hook
    // delegates it, with the positions as they are. `sender` may be null and is passed on.
    void sendMessage(const UIMessage& message, UIBase* sender = nullptr);

    // Always null; windows have shortcuts.
    const UIShortcutBase* findShortcut(unsigned int keyCode, unsigned int combinationKey) const;

    // Lays out and updates this element and its children, once a frame.
    virtual void update(float deltaTime);

    // Works out where this element and its children lie, once a frame behind update().
    virtual void updateRegion(const sRect& absolute, const sRect& clip);

    virtual void eventCreate() {}
    virtual void eventDestroy() {}
    virtual void eventClose() {}
    virtual void eventShow() {}
    virtual void eventHide() {}
    virtual void eventMove() {}
    virtual void eventSize() {}
    virtual void eventMaximize() {}
    virtual void eventMinimize() {}
    virtual void eventNormalize() {}
    virtual void eventActive() {}
    virtual void eventDeactive() {}
    virtual void eventFocus() {}
    virtual void eventDefocus() {}
    virtual void eventEnable() {}
    virtual void eventDisable() {}
    virtual void eventTimer(float /*deltaTime*/) {}
    virtual void eventPaint(UIPainter* /*painter*/) {}
    virtual void eventMouseMove(const sPoint& /*position*/) {}
    virtual void eventMouseDown(const sPoint& /*position*/, unsigned int /*button*/) {}
    virtual void eventMouseUp(const sPoint& /*position*/, unsigned int /*button*/) {}
    virtual void eventMouseWheel(const sPoint& /*amount*/) {}
    virtual void eventMouseDoubleClick(const sPoint& /*position*/, unsigned int /*button*/) {}
    virtual void eventKeyDown(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) {}
    virtual void eventKeyUp(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) {}

    // These two rise to the parent unless a class stops them.
    virtual void eventBeginEdit() { delegate(); }
    virtual void eventEndEdit() { delegate(); }
    virtual void eventCustom(const UIMessage& /*message*/) {}

protected:
    // Called inside a hook: this element has not consumed the message.
    void delegate() { mDelegate = true; }

    // For those classes that want their border, in their eventPaint().
    void drawBorder(UIPainter* painter) const;

private:
    void setStatus(unsigned int bit, bool on, void (UIBase::*hook)());
    void callGuarded(unsigned int bit, void (UIBase::*hook)());
    void updateFloatingStatus();
    void sendTimer(const UITimerMessage& message, UIBase* sender);
    bool dispatch(const UIMessage& message);
    bool isUnseen() const;
    bool paint(UIPainter* painter);
    void moveMouse(const sPoint& position);
    void release(const UIMouseUpMessage& message);

    template <typename Message>
    void receive(const Message& message, void (UIBase::*hook)(unsigned int, unsigned int));

    template <typename Message>
    void press(const Message& message, void (UIBase::*hook)(const sPoint&, unsigned int));

    UIBase* mParent = nullptr;
    List<UIBase> mChildren;
    UIMenu* mMenu = nullptr;
    eCursor mCursor = eCursor::Arrow;
    sPoint mPosition = sPoint::Zero;
    sSize mSize = sSize::Zero;
    sRect mAbsRegion = sRect::Zero;
    sRect mDrawRegion = sRect::Zero;
    unsigned int mAttribute;
    unsigned int mStatus = Visible | Enabled;
    bool mDelegate = false;
    eBorderStyle mBorderStyle = eBorderStyle::None;
    sColor mBorderColor = sColor::Black;
    bool mDragging = false;
    unsigned int mDragButton = 0;
    sPoint mDragBeginPosition = sPoint::Zero;
    sPoint mDragAmount = sPoint::Zero;
    sSize mMinimumSize = sSize::Zero;
    void* mFindKey = this;
};
