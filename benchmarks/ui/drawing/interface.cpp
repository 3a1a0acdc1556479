#include "application/testapp.h"
#include "benchmarks/render/drawing/worker.h"
#include "benchmarks/ui/drawing/plainelements.h"
#include "benchmarks/ui/drawing/runframe.h"
#include "platform/platform.h"
#include "ui/uicolorcontrol.h"
#include "ui/uigroup.h"
#include "ui/uiparametercontrol.h"

#include <filesystem>

namespace
{
constexpr Application::sInitializer Initializer = {
    "interface", sInterfaceScene::WindowWidth, sInterfaceScene::WindowHeight, 60, 20, 240};

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
            scene.bound ? addBoundBlock(form, values) : plain::addBlock(form, texts);
    };
    for (unsigned int i = 0; i < windowNum; ++i)
        plain::addWindow(i, fill);
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
