#include "ui/uiform.h"

#include "ui/uiaxis.h"
#include "ui/uicolor.h"
#include "ui/uiflow.h"
#include "ui/uipainter.h"
#include "ui/uiscrollbar.h"

#include <algorithm>

namespace
{
constexpr int BarThickness = 12;

// A bar and its distance from the clients.
constexpr int BarSpace = BarThickness + 2;

constexpr sUIFlow ClientFlow{.top = 0, .gapBehindWrap = 2};

sSize getExtent(const sRect& rect)
{
    return makeSize(rect.right - rect.left, rect.bottom - rect.top);
}
}

sSize UIForm::UIClientHolder::alignClient(const sSize& limit)
{
    return ClientFlow.layOut(*this, limit.width);
}

sSize UIForm::UIClientHolder::measureClient(const sSize& limit)
{
    return ClientFlow.measure(*this, limit.width);
}

void UIForm::UIClientHolder::updateRegion(const sRect& absolute, const sRect& clip)
{
    updateOwnRegion(absolute, clip);
    updateChildrenRegion(getAbsRegion() + mClientPosition, getDrawRegion());
}

void UIForm::UIClientHolder::eventMouseWheel(const sPoint& amount)
{
    if (mForm->mFormAttribute & ScrollBars)
        UIScrollBar::forwardWheel(amount, mForm->mHorizontalBar, mForm->mVerticalBar, this);
    else
        delegate();
}

UIForm::UIForm(unsigned int attribute) : mFormAttribute(attribute)
{
    if (attribute & ScrollBars)
    {
        mHorizontalBar = addBar(new UIScrollBar(UIScrollBar::eBarDirection::Horizontal));
        mVerticalBar = addBar(new UIScrollBar(UIScrollBar::eBarDirection::Vertical));
    }
    mClientHolder = new UIClientHolder(this);
    add(mClientHolder);
}

void UIForm::addClient(UIBase* client)
{
    mClientHolder->add(client);
}

void UIForm::removeClient()
{
    mClientHolder->removeChildren();
}

sRect UIForm::getClientExistRegion() const
{
    const sRect region = mClientHolder->getChildrenRegion();
    return sRect(region.getWidth(), region.getHeight()) + mClientHolder->getPosition();
}

void UIForm::setScrollBarPosition(const sPoint& position)
{
    if (mHorizontalBar)
        mHorizontalBar->setBarPosition(position.x);
    if (mVerticalBar)
        mVerticalBar->setBarPosition(position.y);
}

sPoint UIForm::getScrollBarPosition() const
{
    return sPoint(mHorizontalBar ? mHorizontalBar->getBarPosition() : 0,
                  mVerticalBar ? mVerticalBar->getBarPosition() : 0);
}

sSize UIForm::getScrollBarRange() const
{
    return {mHorizontalBar ? mHorizontalBar->getBarRange() : 0, mVerticalBar ? mVerticalBar->getBarRange() : 0};
}

void UIForm::update(float deltaTime)
{
    sRect region = mClientRegion & getOwnRegion();
    const sRect clients = mFormAttribute & FlowLayout ? flowClients(region) : mClientHolder->getChildrenRegion();
    if (mFormAttribute & ScrollBars)
        updateBars(region, clients + sPoint(region.left, region.top));

    mClientHolder->setPosition(sPoint(region.left, region.top));
    mClientHolder->setSize(getExtent(region));
    UIBase::update(deltaTime);
}

void UIForm::eventSize()
{
    const sSize& size = getSize();
    if (mFormAttribute & FollowSize && isCreated())
    {
        mClientRegion.right += static_cast<int>(size.width - mLastSize.width);
        mClientRegion.bottom += static_cast<int>(size.height - mLastSize.height);
    }
    mLastSize = size;
}

void UIForm::eventPaint(UIPainter* painter)
{
    if (mFormAttribute & FillClientRegion)
        painter->drawRect(mClientRegion, UIPainter::getColors().mClientRegionColor);
}

UIScrollBar* UIForm::addBar(UIScrollBar* bar)
{
    add(bar);
    bar->sendMessage(UIHideMessage(), this);
    return bar;
}

// Makes room for a vertical bar if it is the height that does not suffice, and lays out again at the width of the
// widest element, so that what fills a row fills all of it. Returns the area that the clients take.
sRect UIForm::flowClients(const sRect& region)
{
    // Where a bar was needed it will be needed again, and the clients are not moved for nothing.
    const bool wasNarrow = mFormStatus & VerticalBarUsed;
    sSize limit = getExtent(region);
    sSize used = wasNarrow ? mClientHolder->measureClient(limit) : mClientHolder->alignClient(limit);
    if (!(mFormAttribute & ScrollBars))
        return sRect(used);
    const bool narrow = limit.width >= used.width && limit.height < used.height;
    if (narrow)
        limit = getExtent({region.left, region.top, region.right - BarSpace, region.bottom});
    if (narrow || wasNarrow)
        used = mClientHolder->alignClient(limit);
    if (limit.width < used.width)
        used = mClientHolder->alignClient(used);
    return sRect(used);
}

// Takes the space of the bars away from the region. A vertical bar can cause a horizontal one; the other way round
// is not asked again.
void UIForm::updateBars(sRect& region, const sRect& clients)
{
    mFormStatus = 0;
    if (clients.bottom > region.bottom)
    {
        mFormStatus |= VerticalBarUsed;
        region.right -= BarSpace;
    }
    if (clients.right > region.right)
    {
        mFormStatus |= HorizontalBarUsed;
        region.bottom -= BarSpace;
    }

    const sRect below(region.left, region.bottom, region.right, region.bottom + BarThickness);
    const sRect beside(region.right, region.top, region.right + BarThickness, region.bottom);
    const int x = updateBar(mHorizontalBar, mFormStatus & HorizontalBarUsed, below, clients.right, region.right);
    const int y = updateBar(mVerticalBar, mFormStatus & VerticalBarUsed, beside, clients.bottom, region.bottom);
    setClientPosition(sPoint(x, y));
}

// Returns how far the clients are moved along the bar.
int UIForm::updateBar(UIScrollBar* bar, bool used, const sRect& place, int maximum, int range)
{
    if (!used)
    {
        bar->sendMessage(UIHideMessage(), this);
        return 0;
    }
    bar->setPosition(sPoint(place.left, place.top));
    bar->setSize(getExtent(place));
    bar->setMaximum(maximum);
    bar->setBarRange(static_cast<unsigned int>(std::max(range, 0)));
    bar->sendMessage(UIShowMessage(), this);
    return -bar->getBarPosition();
}
