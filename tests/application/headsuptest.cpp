#include "application/headsup.h"

#include <gtest/gtest.h>

TEST(HeadsUpTest, PercentageIsCutAndHoldsForLargeHeaps)
{
    char text[HeadsUp::TextSize];
    HeadsUp::formatHeap(text, "Global", 72 << 20, 0x8000000);
    EXPECT_STREQ(text, "Global : 04800000/08000000 56%");
    HeadsUp::formatHeap(text, "String", 0x1fffff, 0x200000);
    EXPECT_STREQ(text, "String : 001fffff/00200000 99%");
}
