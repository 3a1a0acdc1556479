#include "tests/support/monkey.h"
#include "tests/support/monkeystage.h"

#include <gtest/gtest.h>

namespace
{
// A frame takes ten times as long where races are watched for.
#ifdef __SANITIZE_THREAD__
constexpr unsigned int EventNum = 2000;
#else
constexpr unsigned int EventNum = 20000;
#endif
}

// Once at every element by itself, and once, less long, at the program as it is used.
class MonkeyTest : public testing::TestWithParam<const sMonkeyStage*>
{
};

TEST_P(MonkeyTest, TheStageStandsWhateverIsDoneToIt)
{
    HeadlessInterface interface(2);
    Monkey monkey(interface, *GetParam(), 1);
    const unsigned int eventNum = GetParam() == &sMonkeyStage::Gallery ? EventNum : EventNum / 4;
    EXPECT_TRUE(monkey.run(eventNum));
    monkey.print();

    for (const auto& [name, events] :
         {std::pair("windows", 400), std::pair("menus", 400), std::pair("dialogs", 1000), std::pair("drags", 200)})
        EXPECT_GT(monkey.getTally().at(name), eventNum / events) << name;
}

INSTANTIATE_TEST_SUITE_P(Stages, MonkeyTest, testing::Values(&sMonkeyStage::Gallery, &sMonkeyStage::Program),
                         [](const auto& stage) { return std::string(stage.param->name); });
