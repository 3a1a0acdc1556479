#include "application/systemmanager.h"
#include "application/testapp.h"
#include "benchmarks/render/drawing/worker.h"
#include "benchmarks/ui/drawing/interfacescene.h"
#include "platform/platform.h"
#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "render/rendersystem.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uicolorcontrol.h"
#include "ui/uigroup.h"
#include "ui/uilist.h"
#include "ui/uipainter.h"
#include "ui/uiparametercontrol.h"
#include "ui/uisystem.h"
#include "ui/uiwindow.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include <epoxy/gl.h>

// The swap is no part of any figure: this takes the place of the one that the platform would call.
extern "C" void SDL_GL_SwapWindow(void*)
{
}

namespace
{
constexpr Application::sInitializer Initializer = {
    "interface", sInterfaceScene::WindowWidth, sInterfaceScene::WindowHeight, 60, 20, 240};
constexpr sSize ElementSize{74, 18};
constexpr int SpinWidth = 16;
constexpr int ListRowHeight = 16;

class Label : public UIBase
{
public:
    explicit Label(const char* text) : mText(text) { setSize(ElementSize); }

    void eventPaint(UIPainter* painter) override
    {
        painter->drawString(getOwnRegion(), mText, UIPainter::getColors().mFontColor,
                            UIPainter::eAlignment::LeftMiddle);
    }

private:
    const char* mText;
};

// A number in a sunken box, with a button on each side.
class NumberBox : public UIBase
{
public:
    explicit NumberBox(int number) : mNumber(number)
    {
        setSize(ElementSize);
        addButton(UISpinButton::eDirection::Left, 0);
        addButton(UISpinButton::eDirection::Right, static_cast<int>(ElementSize.width) - SpinWidth);
    }

    void eventPaint(UIPainter* painter) override
    {
        const sRect box(SpinWidth, 0, static_cast<int>(ElementSize.width) - SpinWidth,
                        static_cast<int>(ElementSize.height));
        char text[16];
        std::snprintf(text, sizeof(text), "%d", mNumber);
        painter->drawRect(box, UIPainter::getColors().mClientRegionColor);
        painter->drawConcaveRect(box);
        painter->drawString(box, text, UIPainter::getColors().mClientFontColor, UIPainter::eAlignment::RightMiddle);
    }

private:
    void addButton(UISpinButton::eDirection direction, int x)
    {
        UIBase* button = new UISpinButton(direction);
        button->setPosition(sPoint(x, 0));
        button->setSize({SpinWidth, ElementSize.height});
        add(button);
    }

    int mNumber;
};

class Row : public ObjectBase
{
public:
    explicit Row(const char* name) : mName(name) {}

    void makePropertyList(PropertyList& list) override { list.addReference("Name", mName); }

private:
    AutoString mName;
};

class RowList : public UIList
{
public:
    explicit RowList(const InterfaceTexts& texts)
    {
        setAttribute(RowElement);
        setSize({0, (sInterfaceScene::BoxNum + 2) * ListRowHeight});
        addColumn("Name", PropertyBase::getPropertyType<AutoString>(), 200, eColumnAlignment::Left);
        for (unsigned int i = 0; i < sInterfaceScene::BoxNum; ++i)
        {
            mRow.push_back(std::make_unique<Row>(texts.getRow(i)));
            mObjects.addLast(mRow.back().get());
        }
        setObjectList(&mObjects);
    }

    ~RowList() override { setObjectList(nullptr); }

private:
    std::vector<std::unique_ptr<Row>> mRow;
    ObjectList mObjects;
};

void addBlock(UIForm& form, const InterfaceTexts& texts)
{
    const auto addButton = [&form](const char* caption)
    {
        UIButton* button = new UIButton;
        button->setCaption(caption);
        button->setSize(ElementSize);
        form.addClient(button);
    };
    for (unsigned int i = 0; i < sInterfaceScene::LabelNum; ++i)
    {
        form.addClient(new Label(texts.getLabel(i)));
        addButton(texts.getButton(i));
        if (i < sInterfaceScene::BoxNum)
            form.addClient(new NumberBox(InterfaceTexts::getNumber(i)));
    }
    form.addClient(new RowList(texts));
}

// What the controls of an inspector edit.
struct sValues
{
    sColor color = sColor::Gray;
    sPoint point = sPoint::Zero;
    int number = InterfaceTexts::getNumber(0);
};

template <typename Control, typename T>
void addControl(UIGroup* group, const char* name, T& value)
{
    group->add(new Control(new ReferenceProperty<T>(name, &value), false, UIControl::WholeValue));
}

// A block of the inspector, with as many controls as a block has elements: a colour is 9, its boxes and sliders among
// them, a point is 3, a number with its name 2.
void addBoundBlock(UIForm& form, sValues& values)
{
    UIGroup* group = new UIGroup("Inspector");
    group->setAttribute(UIBase::RowElement);
    for (unsigned int i = 0; i < 4; ++i)
    {
        addControl<UIColorControl>(group, "Color", values.color);
        addControl<UIParameterControl>(group, "Number", values.number);
    }
    for (unsigned int i = 0; i < 2; ++i)
        addControl<UIPointControl>(group, "Point", values.point);
    form.addClient(group);
}

template <typename Fill>
void addWindow(unsigned int number, Fill&& fill)
{
    const sInterfaceScene::sPlace place = sInterfaceScene::getPlace(number);
    UIWindow* window = new UIWindow(UIWindow::eStyle::Convex, UIWindow::TitleBar | UIWindow::Movable, true, false,
                                    false, UIForm::FlowLayout | UIForm::ScrollBars, nullptr);
    window->setTitle("Window");
    window->setPosition(sPoint(place.x, place.y));
    window->setSize({sInterfaceScene::BlockWidth, sInterfaceScene::BlockHeight});
    fill(*window);
    UISystem::getInstance()->addWindow(window);
}

void runFrame(sInterfaceScene::eEnd end)
{
    SystemManager& manager = *SystemManager::getInstance();
    manager.preprocess();
    manager.update();
    UISystem::getInstance()->draw();
    manager.postprocess();
    if (end == sInterfaceScene::eEnd::List)
        return;
    RenderSystem::getInstance()->executeCommand();
    if (end == sInterfaceScene::eEnd::Finished)
        glFinish();
}

int draw(const sInterfaceScene& scene)
{
    const InterfaceTexts texts;
    sValues values;
    TestApp application(&Initializer);
    application.setEditor(false);
    application.setup();
    if (!application.getWindowHandle())
        return EXIT_FAILURE;
    const unsigned int windowNum = scene.scrolled ? 1 : scene.blockNum;
    const auto fill = [&](UIForm& form)
    {
        for (unsigned int i = 0; i < scene.blockNum / windowNum; ++i)
            scene.bound ? addBoundBlock(form, values) : addBlock(form, texts);
    };
    for (unsigned int i = 0; i < windowNum; ++i)
        addWindow(i, fill);
    return serve([] {}, [&scene] { runFrame(scene.end); });
}
}

int main(int argumentNum, char** arguments)
{
    const sInterfaceScene scene = readInterfaceScene(argumentNum, arguments);
    std::string root = std::filesystem::temp_directory_path() / "interfaceXXXXXX";
    if (!mkdtemp(root.data()) || !Platform::create(ePlatform::SDL))
        return EXIT_FAILURE;
    Platform::forceResourceDirectory(root.c_str());
    const int status = draw(scene);
    Platform::destroy();
    std::filesystem::remove_all(root);
    return status;
}
