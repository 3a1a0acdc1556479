#pragma once

#include "ui/uibase.h"

// An element that only arranges others: the wheel, the keys and all that is not known here rise to its parent.
class UIContainer : public UIBase
{
public:
    using UIBase::UIBase;

    void eventMouseWheel(const sPoint& /*amount*/) override { delegate(); }
    void eventKeyDown(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) override { delegate(); }
    void eventKeyUp(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) override { delegate(); }
    void eventCustom(const UIMessage& /*message*/) override { delegate(); }
};
