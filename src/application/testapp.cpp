#include "application/testapp.h"

#include "animation/animresource.h"
#include "animation/animtool.h"
#include "application/headsup.h"
#include "application/statefile.h"
#include "application/systemmanager.h"
#include "application/viewer.h"
#include "foundation/jobsystem.h"
#include "foundation/memorymanager.h"
#include "input/hidsystem.h"
#include "render/rendersystem.h"
#include "render/viewsystem.h"
#include "resource/resourcebase.h"
#include "resource/resourcesystem.h"
#include "tool/toolsystem.h"
#include "ui/uisystem.h"

// On purpose: the application stands among the systems in the tree of classes.
REFLECT(TestApp, eTypeAttribute::Singleton, "System");

namespace
{
constexpr unsigned int JobMemorySize = 0x10000;
}

TestApp::TestApp(const sInitializer* initializer) : Application(initializer)
{
    DEV_TRACE("TestApp start.\n");
}

// What is being edited is applied while everything that it could reach is still there.
TestApp::~TestApp()
{
    if (UISystem* uiSystem = UISystem::getInstance())
        uiSystem->defocus();
    mpViewer.reset();
    if (mSetUp)
        StateFile::save(*this, getStatePath());
    DEV_TRACE("TestApp end.\n");
}

void TestApp::makePropertyList(PropertyList& list)
{
    SystemManager::getInstance()->makePropertyList(list);
}

void TestApp::setup()
{
    if (!MemoryManager::getInstance())
        return;
    createAllocators();
    createSystems();
    SystemManager::getInstance()->setup();
    SystemManager::getInstance()->order();
    StateFile::restore(*this, getStatePath());
    mSetUp = true;
    if (mEditor && !edit(nullptr))
        DEV_TRACE("TestApp : the editor is not opened.\n");
}

void TestApp::createAllocators()
{
    MemoryManager& manager = *MemoryManager::getInstance();
    AutoString::setAllocator(manager.createAllocator(0x200000, "String"));
    setTempAllocator(manager.createAllocator(0x1000000, "Temp"));
    System::setAllocator(manager.createAllocator(0x1000000, "System"));
    ResourceBase::setAllocator(manager.createAllocator(0x2000000, "Resource"));
}

// Each system may rely on those before it.
void TestApp::createSystems()
{
    SystemManager& manager = *SystemManager::getInstance();
    manager.addSystem(JobSystem::create(JobMemorySize, getProcessorNum()));
    manager.addSystem(ResourceSystem::create());
    manager.addSystem(RenderSystem::create());
    manager.addSystem(HIDSystem::create());
    manager.addSystem(ViewSystem::create());
    manager.addSystem(UISystem::create());
    manager.addSystem(ToolSystem::create());
}

AutoString TestApp::getStatePath() const
{
    return AutoString(getIntermediatePath()) + "test.xml";
}

bool TestApp::edit(const char* name)
{
    AnimResource* animation = ResourceSystem::getInstance()->createResource<AnimResource>(name);
    if (!animation)
        return false;
    UISystem::getInstance()->addWindow(new AnimTool(animation));
    animation->release();
    return true;
}

bool TestApp::play(const char* name)
{
    mpViewer = Viewer::create(name);
    return mpViewer != nullptr;
}

void TestApp::update(float deltaTime)
{
    SystemManager& manager = *SystemManager::getInstance();
    manager.preprocess();
    HeadsUp::draw(*ToolSystem::getInstance(), *this, deltaTime);
    manager.update();
    if (mpViewer)
        mpViewer->update(deltaTime);
    UISystem::getInstance()->draw();
    if (mpViewer)
        mpViewer->draw();
    manager.postprocess();
    RenderSystem::getInstance()->executeCommand();

    if (++mFrameNum == mFrameLimit || mQuitRequest.update())
        quit();
}
