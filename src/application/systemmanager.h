#pragma once

#include "application/system.h"
#include "foundation/list.h"
#include "foundation/singleton.h"
#include "foundation/vector.h"
#include "reflection/objectbase.h"

// The systems of the program and the four orders in which they are walked. It destroys the systems, in the last of
// the orders, and is deleted itself right after.
class SystemManager : public ObjectBase, public Singleton<SystemManager>
{
    REFLECTED(SystemManager)

public:
    // Systems are known by the order of their registration. All of them first, then setup(), then order().
    void addSystem(System* system) { mSystem.addLast(system); }
    unsigned int getSystemNum() const { return mSystem.size(); }
    System* getSystem(unsigned int index) const { return mSystem[index]; }

    // Lets each system declare its dependencies.
    void setup();

    // Works the four orders out of flags and dependencies. Dependencies that form a circle never come to an end.
    void order();
    const List<System>& getOrder(ePhase phase) const { return mOrder[static_cast<unsigned int>(phase)]; }

    void preprocess();
    void update();
    void postprocess();

    // Destroys the systems and the manager.
    void destroy();

    // Offers what each system offers.
    void makeUIList(List<UIBase>& list) override;

    // One object property for each system, under the name of its type: all of their state is saved that way.
    void makePropertyList(PropertyList& list) override;

private:
    friend Singleton<SystemManager>;

    SystemManager();
    ~SystemManager() override;

    void resolvePreprocessDependency() { resolveDependency(ePhase::Preprocess); }
    void resolveUpdateDependency() { resolveDependency(ePhase::Update); }
    void resolvePostprocessDependency() { resolveDependency(ePhase::Postprocess); }
    void resolveDestroyDependency() { resolveDependency(ePhase::Destroy); }

    void resolveDependency(ePhase phase);
    void callAll(ePhase phase, void (System::*hook)());

    Vector<System> mSystem;
    List<System> mOrder[System::PhaseNum];
};
