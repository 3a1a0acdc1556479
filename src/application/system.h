#pragma once

#include "foundation/list.h"
#include "foundation/multithread.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"

class AllocatorBase;

// The four orders in which the systems are walked.
enum class ePhase : unsigned int
{
    Preprocess,
    Update,
    Postprocess,
    Destroy,
};

// A service that lives as long as the program and takes part in each frame as far as it wants to. A system says
// which systems it runs after, phase by phase; SystemManager makes the orders of it.
class System : public ObjectBase
{
    REFLECTED(System)

public:
    static constexpr unsigned int PhaseNum = 4;

    System() = default;

    System(const System&) = delete;
    System& operator=(const System&) = delete;

    // Ends the service; called once, at shutdown.
    virtual void destroy() = 0;

    // The phases of a frame, each called only while enabled and on the main thread.
    virtual void preprocess() {}
    virtual void update() {}
    virtual void postprocess() {}

    // Declares the dependencies; called once, when all systems exist.
    virtual void setup() {}

    // Memory for what systems own, `size` in bytes, aligned to 4: from the systems' allocator, or from the
    // general heap while there is none. Any thread may call both.
    static void* allocate(unsigned int size);
    static void deallocate(void* block);

    // Once in a process; the allocator is not owned.
    static void setAllocator(AllocatorBase* allocator);
    static AllocatorBase* getAllocator() { return mpAllocator; }

    void setProcessEnable(bool preprocess, bool update, bool postprocess);
    bool isPreprocessEnable() const { return mPreprocessEnable; }
    bool isUpdateEnable() const { return mUpdateEnable; }
    bool isPostprocessEnable() const { return mPostprocessEnable; }

    // Whether the phase's order holds this system; the order of destruction holds every one.
    bool isEnable(ePhase phase) const;

    // This system runs after the given one. Null and systems that do not take part in the phase count as met.
    void addPreprocessDependency(System* system) { getDependency(ePhase::Preprocess).addLast(system); }
    void addUpdateDependency(System* system) { getDependency(ePhase::Update).addLast(system); }
    void addPostprocessDependency(System* system) { getDependency(ePhase::Postprocess).addLast(system); }
    void addDestroyDependency(System* system) { getDependency(ePhase::Destroy).addLast(system); }

    List<System>& getPreprocessDependency() { return getDependency(ePhase::Preprocess); }
    List<System>& getUpdateDependency() { return getDependency(ePhase::Update); }
    List<System>& getPostprocessDependency() { return getDependency(ePhase::Postprocess); }
    List<System>& getDestroyDependency() { return getDependency(ePhase::Destroy); }

    List<System>& getDependency(ePhase phase) { return mDependency[static_cast<unsigned int>(phase)]; }
    void clearDependency();

    // Guards whatever the concrete system shares between threads.
    void lock() { mCriticalSection.enter(); }
    void unlock() { mCriticalSection.leave(); }

private:
    bool mPreprocessEnable = true;
    bool mUpdateEnable = true;
    bool mPostprocessEnable = true;
    List<System> mDependency[PhaseNum];
    CriticalSection mCriticalSection;

    static AllocatorBase* mpAllocator;
};
