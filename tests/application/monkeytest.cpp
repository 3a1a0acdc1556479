#include "tests/support/monkey.h"

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

TEST(MonkeyTest, TheGalleryStandsWhateverIsDoneToIt)
{
    HeadlessInterface interface(2);
    Monkey monkey(interface, Monkey::GalleryStage, 1);
    EXPECT_TRUE(monkey.run(EventNum));
    monkey.print();

    for (const auto& [name, events] :
         {std::pair("windows", 100), std::pair("menus", 200), std::pair("dialogs", 1000), std::pair("drags", 100)})
        EXPECT_GT(monkey.getTally().at(name), EventNum / events) << name;
}
