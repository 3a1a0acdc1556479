#pragma once

#include "ui/uicontainer.h"

class UIScrollBar;

// A region with elements of the program, its clients, which it lays out in rows and scrolls if it is told to. The
// layout is redone in every frame, so that nothing has to say that it has changed.
class UIForm : public UIBase
{
public:
    enum eFormAttribute : unsigned int
    {
        // Has two bars, shown when the clients do not fit.
        ScrollBars = 1,
        FlowLayout = 2,
        FillClientRegion = 4,
        // The client region follows changes of the form's size.
        FollowSize = 8,
    };

    enum eFormStatus : unsigned int
    {
        HorizontalBarUsed = 1,
        VerticalBarUsed = 2,
    };

    // The parent of all clients. Scrolling is an offset in its pass over the regions, and nothing else.
    class UIClientHolder : public UIContainer
    {
    public:
        explicit UIClientHolder(UIForm* form) : mForm(form) {}

        // Never positive.
        void setClientPosition(const sPoint& position) { mClientPosition = position; }
        const sPoint& getClientPosition() const { return mClientPosition; }

        // Lays the clients out in rows of the limit's width, and returns the size that they take.
        sSize alignClient(const sSize& limit);

        // What alignClient() would return.
        sSize measureClient(const sSize& limit);

        void updateRegion(const sRect& absolute, const sRect& clip) override;
        void eventMouseWheel(const sPoint& amount) override;

    private:
        UIForm* mForm;
        sPoint mClientPosition = sPoint::Zero;
    };

    explicit UIForm(unsigned int attribute);

    // The form owns its clients; removing deletes them all.
    void addClient(UIBase* client);
    void removeClient();

    // Where the clients are shown, in the form's coordinates.
    void setClientRegion(const sRect& region) { mClientRegion = region; }
    const sRect& getClientRegion() const { return mClientRegion; }

    // What the clients take up, in the form's coordinates and as if it were not scrolled.
    sRect getClientExistRegion() const;

    // How far the clients are moved by scrolling. With scroll bars the next update sets it anew.
    void setClientPosition(const sPoint& position) { mClientHolder->setClientPosition(position); }
    const sPoint& getClientPosition() const { return mClientHolder->getClientPosition(); }

    // Of both bars; 0 for a form without.
    void setScrollBarPosition(const sPoint& position);
    sPoint getScrollBarPosition() const;
    sSize getScrollBarRange() const;

    unsigned int getFormAttribute() const { return mFormAttribute; }
    unsigned int getFormStatus() const { return mFormStatus; }

    void update(float deltaTime) override;
    void eventSize() override;
    void eventPaint(UIPainter* painter) override;

private:
    UIScrollBar* addBar(UIScrollBar* bar);
    sRect flowClients(const sRect& region);
    void updateBars(sRect& region, const sRect& clients);
    int updateBar(UIScrollBar* bar, bool used, const sRect& place, int maximum, int range);

    UIClientHolder* mClientHolder;
    sRect mClientRegion = sRect::Zero;
    sSize mLastSize = sSize::Zero;
    unsigned int mFormAttribute;
    unsigned int mFormStatus = 0;
    UIScrollBar* mHorizontalBar = nullptr;
    UIScrollBar* mVerticalBar = nullptr;
};
