#pragma once

#include "ui/uiwindow.h"

// The inspector: for each system a block with what it offers for looking at and for editing. A system that offers
// nothing shows its name.
class SystemInfoWindow : public UIWindow
{
    REFLECTED(SystemInfoWindow)

public:
    SystemInfoWindow();

private:
    void addSystems();
};
