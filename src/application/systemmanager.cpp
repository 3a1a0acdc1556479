#include "application/systemmanager.h"

#include "foundation/dev.h"
#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"

REFLECT(SystemManager, eTypeAttribute::Singleton, "ObjectBase");

namespace
{
constexpr unsigned int ReservedSystems = 16;

// Every dependency that is not waiting itself has been placed already, or never will be.
bool isReady(const List<System>& dependency, const List<System>& waiting)
{
    unsigned int met = 0;
    for (System* system : dependency)
    {
        if (waiting.find(system) == waiting.end())
            ++met;
    }
    return met == dependency.size();
}

// On purpose: the system directly behind a placed one is passed over until the next sweep.
void sweep(List<System>& waiting, List<System>& order, ePhase phase)
{
    for (List<System>::iterator place = waiting.begin(); place != waiting.end(); ++place)
    {
        if (!isReady((*place)->getDependency(phase), waiting))
            continue;
        order.addLast(*place);
        place = waiting.remove(place);
        if (place == waiting.end())
            return;
    }
}
}

SystemManager::SystemManager() : Singleton("SystemManager already instanced."), mSystem(ReservedSystems)
{
    for (ePhase phase : {ePhase::Preprocess, ePhase::Update, ePhase::Postprocess})
        mOrder[static_cast<unsigned int>(phase)].reserve(ReservedSystems);
    DEV_TRACE("SystemManager : start.\n");
}

SystemManager::~SystemManager()
{
    DEV_TRACE("SystemManager : end.\n");
}

// A system may register further ones meanwhile, so the number is asked for at each step.
void SystemManager::setup()
{
    for (unsigned int i = 0; i < mSystem.size(); ++i)
        mSystem[i]->setup();
}

void SystemManager::order()
{
    resolvePreprocessDependency();
    resolveUpdateDependency();
    resolvePostprocessDependency();
    resolveDestroyDependency();
}

void SystemManager::resolveDependency(ePhase phase)
{
    List<System>& order = mOrder[static_cast<unsigned int>(phase)];
    order.clear();

    List<System> waiting(mSystem.size());
    for (System* system : mSystem)
    {
        if (system->isEnable(phase))
            (system->getDependency(phase).empty() ? order : waiting).addLast(system);
    }
    while (!waiting.empty())
        sweep(waiting, order, phase);
}

void SystemManager::callAll(ePhase phase, void (System::*hook)())
{
    for (System* system : getOrder(phase))
        (system->*hook)();
}

void SystemManager::preprocess()
{
    callAll(ePhase::Preprocess, &System::preprocess);
}

void SystemManager::update()
{
    callAll(ePhase::Update, &System::update);
}

void SystemManager::postprocess()
{
    callAll(ePhase::Postprocess, &System::postprocess);
}

void SystemManager::destroy()
{
    callAll(ePhase::Destroy, &System::destroy);
    forgetInstance();
    delete this;
}

void SystemManager::makeUIList(List<UIBase>& list)
{
    for (System* system : mSystem)
        system->makeUIList(list);
}

void SystemManager::makePropertyList(PropertyList& list)
{
    for (System* system : mSystem)
        list.add(new ObjectProperty(system->getTypeInfo()->getName(), system, 1));
}
