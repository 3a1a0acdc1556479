#include "foundation/functor.h"

#include "foundation/blockallocator.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{
class Receiver
{
public:
    void add(unsigned int amount) { mSum += amount; }
    unsigned int ask() { return mSum; }
    unsigned int askConst(unsigned int scale) const { return mSum * scale; }

private:
    unsigned int mSum = 0;
};
}

TEST(FunctorTest, CallsTheMethodOfItsObject)
{
    Receiver receiver;
    const unsigned int used = FunctorBase::getAllocator().getUsedSize();
    {
        std::unique_ptr<FunctorIntermediate<unsigned int, void>> add(
            new Functor<Receiver, unsigned int, void>(&receiver, &Receiver::add));
        std::unique_ptr<FunctorIntermediate<void, unsigned int>> ask(
            new Functor<Receiver, void, unsigned int>(&receiver, &Receiver::ask));
        std::unique_ptr<ConstFunctorIntermediate<unsigned int, unsigned int>> askConst(
            new ConstFunctor<Receiver, unsigned int, unsigned int>(&receiver, &Receiver::askConst));
        (*add)(5);
        std::unique_ptr<FunctorIntermediate<unsigned int, void>> copy(add->duplicate());
        add.reset();
        (*copy)(2);
        EXPECT_EQ((*ask)(), 7u);
        EXPECT_EQ((*askConst)(10), 70u);
        EXPECT_EQ(FunctorBase::getAllocator().getUsedSize(), used + 3 * 32);
    }
    EXPECT_EQ(FunctorBase::getAllocator().getUsedSize(), used);
}

#ifndef __clang__
TEST(FunctorTest, IsNullWhenThePoolIsUsedUp)
{
    Receiver receiver;
    std::vector<FunctorBase*> functors;
    testing::internal::CaptureStderr();
    while (FunctorBase* functor = new Functor<Receiver, unsigned int, void>(&receiver, &Receiver::add))
        functors.push_back(functor);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "BlockAllocator : Stack underflow.\n");
    EXPECT_EQ(functors.size(), 0x1000u);
    for (FunctorBase* functor : functors)
        delete functor;
}
#endif
