#pragma once

#include "ui/uicontainer.h"

// A titled block that lays its children out in rows below the title, and takes the height that they need.
class UIGroup : public UIContainer
{
public:
    // The caption is kept, not copied; null is none.
    explicit UIGroup(const char* caption) : mCaption(caption) {}

    // Grows beyond `width` if a child needs it.
    void align(unsigned int width);

    void update(float deltaTime) override;
    void eventCreate() override;
    void eventSize() override;
    void eventPaint(UIPainter* painter) override;

private:
    const char* mCaption;
};
