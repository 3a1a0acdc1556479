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
    const Monkey::sTally& tally = monkey.getTally();
    EXPECT_GT(tally.windowsClosed, EventNum / 50);
    EXPECT_GT(tally.buttonsClicked, EventNum / 1000);
    EXPECT_GT(tally.menusChosen, 0u);
    EXPECT_GT(tally.dialogsAnswered, EventNum / 1000);
    EXPECT_GT(tally.listsChosen, EventNum / 2000);
    EXPECT_GT(tally.dragsEnded, EventNum / 100);
}
