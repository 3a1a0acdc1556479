#include "foundation/multithread.h"
#include "resource/resourcesystem.h"
#include "resource/textureresourcetga.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace
{
// Takes what the load thread delivers.
class Receiver
{
public:
    ResourceSystem::LoadCallback* makeCallback()
    {
        return new Functor<Receiver, ResourceBase*, void>(this, &Receiver::take);
    }

    void waitFor(int count) const
    {
        while (mCount < count)
            Thread::sleep(1);
    }

    void take(ResourceBase* resource)
    {
        mpResource = resource;
        mThread = std::this_thread::get_id();
        ++mCount;
    }

    std::atomic<int> mCount = 0;
    std::atomic<ResourceBase*> mpResource = nullptr;
    std::atomic<std::thread::id> mThread;
};
}

class LoadThreadTest : public testing::Test
{
protected:
    void queue(const char* path, const TypeInfo* type = TextureResourceTGA::getStaticTypeInfo())
    {
        ResourceSystem::getInstance()->createResourceAsync(path, type, mReceiver.makeCallback());
    }

    HeadlessSystems mSystems;
    Receiver mReceiver;
};

TEST_F(LoadThreadTest, DeliversOnItsOwnThreadBesideTheFrame)
{
    mSystems.write("intermediate/a.tga", makeFile(sTga{}));
    queue("a");
    while (mReceiver.mCount < 1)
        mSystems.recordFrame([] { ResourceSystem::getInstance()->update(); });
    ResourceBase* resource = mReceiver.mpResource;
    ASSERT_NE(resource, nullptr);
    EXPECT_NE(mReceiver.mThread.load(), std::this_thread::get_id());
    EXPECT_EQ(resource->getReferenceCount(), 1);

    queue("nowhere");
    mReceiver.waitFor(2);
    EXPECT_EQ(mReceiver.mpResource, nullptr);

    TextureResourceTGA* same = ResourceSystem::getInstance()->createResource<TextureResourceTGA>("a");
    EXPECT_EQ(same, resource);
    same->release();
    resource->release();
    ResourceSystem::getInstance()->createResourceAsync("a", TextureResourceTGA::getStaticTypeInfo(), nullptr);
}

TEST_F(LoadThreadTest, DropsCancelledEntriesWithoutACallback)
{
    ResourceSystem* system = ResourceSystem::getInstance();
    // The lock keeps the thread from taking anything before it is cancelled.
    system->lock();
    queue("a");
    system->cancelAll();
    queue("a");
    queue("b");
    queue("b", ResourceBase::getStaticTypeInfo());
    system->cancel("b", TextureResourceTGA::getStaticTypeInfo());
    queue("last");
    system->unlock();
    mReceiver.waitFor(3);
    EXPECT_EQ(mReceiver.mCount, 3) << "entries are served in order";
}
