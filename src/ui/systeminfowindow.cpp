#include "ui/systeminfowindow.h"

#include "application/systemmanager.h"
#include "ui/uigroup.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"

REFLECT(SystemInfoWindow, eTypeAttribute::None, "UIWindow");

namespace
{
constexpr sSize StartSize{256, 256};
constexpr unsigned int ReservedControls = 32;

// On purpose: neither item does anything.
constexpr UIMenu::sRow<SystemInfoWindow> FileRows[] = {{"Open"}, {"Close"}};

UIMainMenu* makeMainMenu(SystemInfoWindow* window)
{
    UIMenu* file = new UIMenu;
    file->addItems(window, FileRows);
    UIMainMenu* mainMenu = new UIMainMenu;
    mainMenu->addItem("File", file);
    return mainMenu;
}
}

SystemInfoWindow::SystemInfoWindow()
    : UIWindow(eStyle::Convex, TitleBar | Movable | Sizable, true, true, true, ScrollBars | FlowLayout, nullptr)
{
    setTitle("SystemInformation");
    setSize(StartSize);
    addSystems();
    setMainMenu(makeMainMenu(this));
}

void SystemInfoWindow::addSystems()
{
    SystemManager* manager = SystemManager::getInstance();
    // A document can name this class where there are no systems.
    const unsigned int systemNum = manager ? manager->getSystemNum() : 0;
    List<UIBase> controls(ReservedControls);
    for (unsigned int i = 0; i < systemNum; ++i)
    {
        System* system = manager->getSystem(i);
        UIGroup* group = new UIGroup(system->getTypeInfo()->getName());
        group->setAttribute(RowElement);
        system->makeUIList(controls);
        for (UIBase* control : controls)
            group->add(control);
        addClient(group);
        controls.clear();
    }
}
