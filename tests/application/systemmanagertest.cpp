#include "application/systemmanager.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace
{
struct StandInSystem : System
{
    explicit StandInSystem(const char* name) : mName(name) { setProcessEnable(false, true, false); }

    void destroy() override {}

    const char* mName;
};
}

TEST(SystemManagerTest, SweepPassesOverTheOneBehindAPlacedOne)
{
    SystemManager* manager = SystemManager::create();
    std::deque<StandInSystem> systems;
    for (const char* name : {"First", "A", "B", "C"})
    {
        manager->addSystem(&systems.emplace_back(name));
        if (systems.size() > 1)
            systems.back().addUpdateDependency(&systems.front());
    }
    manager->order();
    std::string names;
    for (System* system : manager->getOrder(ePhase::Update))
        names += static_cast<StandInSystem*>(system)->mName;
    EXPECT_EQ(names, "FirstACB");
    manager->destroy();
}
