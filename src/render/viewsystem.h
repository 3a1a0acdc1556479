#pragma once

#include "application/system.h"
#include "foundation/singleton.h"
#include "foundation/srect.h"

class DrawContext;

// Eight numbered pairs of viewport and projection. Drawing code hands the rectangles to its context, and the number
// becomes the top of the sort key: the lower view is painted first. No index is checked.
class ViewSystem : public System, public Singleton<ViewSystem>
{
    REFLECTED(ViewSystem)

public:
    static constexpr unsigned int ViewNum = 8;

    // Both rectangles start as the window's.
    class View
    {
    public:
        View();
        virtual ~View() = default;
        virtual void draw(DrawContext* context);

        // Stores what of `rect` lies inside the window.
        void setViewport(const sRect& rect);
        const sRect& getViewport() const { return mViewport; }

        void setProjection(const sRect& rect) { mProjection = rect; }
        const sRect& getProjection() const { return mProjection; }

    private:
        sRect mViewport;
        sRect mProjection;
    };

    ViewSystem();
    ~ViewSystem() override;
    void destroy() override;
    void preprocess() override {}
    void postprocess() override {}

    void setViewport(unsigned int view, const sRect& rect) { mView[view].setViewport(rect); }
    const sRect& getViewport(unsigned int view) const { return mView[view].getViewport(); }
    void setProjection(unsigned int view, const sRect& rect) { mView[view].setProjection(rect); }
    const sRect& getProjection(unsigned int view) const { return mView[view].getProjection(); }

private:
    View mView[ViewNum];
};
