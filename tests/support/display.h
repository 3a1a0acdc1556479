#pragma once

#include <gtest/gtest.h>

#include <sys/types.h>

// Gives the tests of a process a display: the one that is there, or a private X server of its own for as long as the
// process runs. Without either the tests fail; they never pass unseen.
class Display : public testing::Environment
{
public:
    void SetUp() override;
    void TearDown() override;

private:
    pid_t mServer = 0;
};
