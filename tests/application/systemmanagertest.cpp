#include "application/systemmanager.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace
{
std::string gCalls;

// Notes its name and the hook at each call. The test owns it.
class StandInSystem : public System
{
public:
    explicit StandInSystem(const char* name, const char* phases = "pup") : mName(name)
    {
        setProcessEnable(phases[0] == 'p', phases[1] == 'u', phases[2] == 'p');
    }

    void destroy() override { note("destroy"); }
    void preprocess() override { note("preprocess"); }
    void update() override { note("update"); }
    void postprocess() override { note("postprocess"); }
    void setup() override { note("setup"); }

    const char* getName() const { return mName; }

private:
    void note(const char* hook) { gCalls += std::string(mName) + "." + hook + " "; }

    const char* mName;
};
}

class SystemManagerTest : public testing::Test
{
protected:
    SystemManagerTest() { gCalls.clear(); }

    ~SystemManagerTest() override
    {
        if (SystemManager::getInstance())
            SystemManager::getInstance()->destroy();
    }

    StandInSystem* add(const char* name, const char* phases = "pup")
    {
        StandInSystem* system = &mSystems.emplace_back(name, phases);
        mManager.addSystem(system);
        return system;
    }

    std::string order(ePhase phase)
    {
        std::string names;
        for (System* system : mManager.getOrder(phase))
            names += (names.empty() ? "" : " ") + std::string(static_cast<StandInSystem*>(system)->getName());
        return names;
    }

    std::deque<StandInSystem> mSystems;
    SystemManager& mManager = *SystemManager::create();
};

TEST_F(SystemManagerTest, SweepPassesOverTheOneBehindAPlacedOne)
{
    StandInSystem* first = add("First");
    for (const char* name : {"A", "B", "C"})
        add(name)->addUpdateDependency(first);
    mManager.order();
    EXPECT_EQ(order(ePhase::Update), "First A C B");
}

TEST_F(SystemManagerTest, DependenciesOutsideThePhaseCountAsMet)
{
    StandInSystem stranger("Stranger");
    StandInSystem* late = add("Late");
    StandInSystem* idle = add("Idle", "---");
    late->addUpdateDependency(idle);
    late->addUpdateDependency(&stranger);
    add("Free");
    mManager.order();
    EXPECT_EQ(order(ePhase::Update), "Free Late");
    EXPECT_EQ(order(ePhase::Destroy), "Late Idle Free") << "a system without a phase is destroyed all the same";

    late->clearDependency();
    mManager.order();
    EXPECT_EQ(order(ePhase::Update), "Late Free");
}

TEST_F(SystemManagerTest, PhasesWalkTheirOwnOrder)
{
    StandInSystem* first = add("A", "p--");
    add("B", "pup");
    first->addPreprocessDependency(&mSystems.back());
    mManager.setup();
    mManager.order();
    mManager.preprocess();
    mManager.update();
    mManager.postprocess();
    EXPECT_EQ(gCalls, "A.setup B.setup B.preprocess A.preprocess B.update B.postprocess ");

    gCalls.clear();
    mManager.destroy();
    EXPECT_EQ(gCalls, "A.destroy B.destroy ");
    EXPECT_EQ(SystemManager::getInstance(), nullptr);
}
