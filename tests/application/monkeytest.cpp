#include "tests/support/monkey.h"

#include <gtest/gtest.h>

namespace
{
// A frame takes ten times as long where races are watched for.
constexpr unsigned int FullEventNum = 20000;
#ifdef __SANITIZE_THREAD__
constexpr unsigned int EventNum = FullEventNum / 10;
#else
constexpr unsigned int EventNum = FullEventNum;
#endif
}

TEST(MonkeyTest, TheGalleryStandsWhateverIsDoneToIt)
{
    HeadlessInterface interface(2);
    Monkey monkey(interface, 1);
    EXPECT_TRUE(monkey.run(EventNum));
    monkey.print();

    // Fewer events do not reach everything.
    if (EventNum < FullEventNum)
        return;
    const std::pair<const char*, unsigned int> rows[] = {{"Buttons", EventNum / 1000},
                                                         {"Menus", 0},
                                                         {"Questions", EventNum / 1000},
                                                         {"Pulldown lists", EventNum / 2000},
                                                         {"drags", EventNum / 100}};
    for (const auto& [name, minimum] : rows)
        EXPECT_GT(monkey.getTally().at(name), minimum) << name;
}
