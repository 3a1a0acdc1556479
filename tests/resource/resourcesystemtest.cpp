#include "resource/resourcesystem.h"

#include "application/systemmanager.h"
#include "foundation/utils.h"
#include "io/stream.h"
#include "render/texture.h"
#include "resource/resourcebase.h"
#include "resource/textureresourcebmp.h"
#include "resource/textureresourcetga.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
// A resource whose file holds nothing but the logical name of another one, which it loads.
class ChainResource : public ResourceBase
{
    REFLECTED(ChainResource)

public:
    ChainResource() { setAttribute(Intermediate); }
    ~ChainResource() override
    {
        if (mpNext)
            mpNext->release();
    }

    bool load(Stream& stream) override
    {
        ++mLoadNum;
        char name[64] = {};
        TextFileStream& file = static_cast<TextFileStream&>(stream);
        file.read(name, sizeof(name) - 1);
        mpNext = ResourceSystem::getInstance()->createResource<ChainResource>(name);
        setPath(file.getPath());
        return true;
    }

    const char* getExtension() const override { return "chain"; }

    ChainResource* mpNext = nullptr;
    static inline int mLoadNum = 0;
};

// A native class whose source is a chain, which cannot be converted.
class HopelessResource : public ResourceBase
{
    REFLECTED(HopelessResource)

public:
    HopelessResource() { setAttribute(Native); }
    const char* getExtension() const override { return "hopeless"; }
    const TypeInfo* getIntermediateType() const override { return ChainResource::getStaticTypeInfo(); }
};

REFLECT(ChainResource, eTypeAttribute::None, "ResourceBase");
REFLECT(HopelessResource, eTypeAttribute::None, "ResourceBase");
}

class ResourceSystemTest : public testing::Test
{
protected:
    template <typename T>
    T* create(const char* path)
    {
        return ResourceSystem::getInstance()->createResource<T>(path);
    }

    void writeText(const std::string& name, const std::string& text)
    {
        mSystems.write(name, Bytes(text.begin(), text.end()));
    }

    HeadlessSystems mSystems;
};

TEST_F(ResourceSystemTest, SharesWhatIsAskedForTwice)
{
    mSystems.write("intermediate/a.tga", makeFile(sTga{}));
    TextureResourceTGA* first = create<TextureResourceTGA>("a");
    {
        TextureResourceTGA stranger;
        stranger.setPath("intermediate/a.tga");
    }
    TextureResourceTGA* second = create<TextureResourceTGA>("a");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second) << "a stranger of that name has not taken it out of the registry";
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_EQ(first->getHash(), Utils::hash("intermediate/a.tga"));
    first->release();
    second->release();

    mSystems.write("intermediate/a.tga", makeFile(sTga{2, 1, Bytes(8)}));
    TextureResourceTGA* third = create<TextureResourceTGA>("a");
    EXPECT_EQ(third->getWidth(), 2u) << "the last release has taken it out of the registry";
    third->release();
}

TEST_F(ResourceSystemTest, BuildsAMissingNativeFileOnceAndInSubDirectories)
{
    std::filesystem::create_directories(mSystems.getFile("intermediate/x/y"));
    mSystems.write("intermediate/x/y/a.tga", makeFile(sTga{}));
    TextureResource* texture = create<TextureResource>("x/y/a");
    ASSERT_NE(texture, nullptr);
    EXPECT_NE(texture->getTexture(), nullptr);
    EXPECT_STREQ(texture->getPath().c_str(), "native/x/y/a.tex");
    EXPECT_EQ(texture->getReferenceCount(), 1);
    EXPECT_EQ(mSystems.read("native/x/y/a.tex"), makeFile(sTex{}));
    texture->release();

    mSystems.write("intermediate/x/y/a.tga", makeFile(sTga{2, 1, Bytes(8)}));
    texture = create<TextureResource>("x/y/a");
    EXPECT_EQ(texture->getWidth(), 1u) << "a changed source builds nothing";
    texture->release();

    mSystems.write("native/x/y/a.tex", makeFile(sTex{.version = 2}));
    texture = create<TextureResource>("x/y/a");
    EXPECT_EQ(texture->getWidth(), 2u) << "a native file of another version is built anew";
    texture->release();
}

TEST_F(ResourceSystemTest, AnswersWithAnEmptyInstanceOnlyWhereThereIsNoSource)
{
    TextureResource* texture = create<TextureResource>("nowhere");
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(texture->getTexture(), nullptr);
    EXPECT_TRUE(texture->getPath().empty());
    TextureResource* second = create<TextureResource>("nowhere");
    EXPECT_NE(texture, second) << "it is not registered";
    texture->release();
    second->release();

    TraceCapture trace;
    EXPECT_EQ(create<TextureResourceTGA>("nowhere"), nullptr);
    EXPECT_NE(trace.take().find("Resource intermediate/nowhere.tga loading fail.\n"), std::string::npos);

    writeText("intermediate/a.chain", "none");
    EXPECT_EQ(create<HopelessResource>("a"), nullptr);
    EXPECT_FALSE(std::filesystem::exists(mSystems.getFile("native/a.hopeless"))) << "a failed build leaves no file";
}

TEST_F(ResourceSystemTest, RefusesNamesThatLeadOutAndTypesThatAreNoResources)
{
    mSystems.write("a.tga", makeFile(sTga{}));
    mSystems.write("intermediate/..a.tga", makeFile(sTga{}));
    for (const char* name : {"", "/a", "..", "../a", "x/../../a", "x/.."})
        EXPECT_EQ(create<TextureResourceTGA>(name), nullptr) << name;
    TextureResourceTGA* dots = create<TextureResourceTGA>("..a");
    ASSERT_NE(dots, nullptr) << "two dots are a component only on their own";
    dots->release();
    mSystems.write("intermediate/qbo29ba.tga", makeFile(sTga{}));
    EXPECT_EQ(create<TextureResourceTGA>("qbo29ba"), nullptr) << "its hash is 0";

    ResourceSystem* system = ResourceSystem::getInstance();
    EXPECT_EQ(system->createResource("a", nullptr), nullptr);
    EXPECT_EQ(system->createResource("a", Texture::getStaticTypeInfo()), nullptr);
    EXPECT_EQ(system->createResource(nullptr, ResourceBase::getStaticTypeInfo()), nullptr);
}

TEST_F(ResourceSystemTest, RefusesAResourceInsideItsOwnLoad)
{
    writeText("intermediate/a.chain", "b");
    writeText("intermediate/b.chain", "a");
    ChainResource::mLoadNum = 0;
    TraceCapture trace;
    ChainResource* a = create<ChainResource>("a");
    EXPECT_NE(trace.take().find("Resource intermediate/a.chain loading fail.\n"), std::string::npos);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(ChainResource::mLoadNum, 2);
    ASSERT_NE(a->mpNext, nullptr);
    EXPECT_EQ(a->mpNext->mpNext, nullptr);
    a->release();
}

TEST_F(ResourceSystemTest, NamesNewResourcesWithoutADotAndNumbersThem)
{
    writeText("intermediate/newfiletga", "");
    TextureResourceTGA* first = create<TextureResourceTGA>(nullptr);
    TextureResourceTGA* second = create<TextureResourceTGA>(nullptr);
    EXPECT_EQ(first->getPath(), mSystems.getFile("intermediate/newfile0tga").c_str());
    EXPECT_EQ(second->getPath(), mSystems.getFile("intermediate/newfile1tga").c_str());
    TextureResource* native = create<TextureResource>(nullptr);
    EXPECT_EQ(native->getPath(), mSystems.getFile("native/newfiletex").c_str());
    for (ResourceBase* resource :
         {static_cast<ResourceBase*>(first), static_cast<ResourceBase*>(second), static_cast<ResourceBase*>(native)})
        resource->release();
}

TEST_F(ResourceSystemTest, FindsClassesByExtension)
{
    const ResourceSystem* system = ResourceSystem::getInstance();
    EXPECT_EQ(system->getTypeInfoByExtension("tga"), TextureResourceTGA::getStaticTypeInfo());
    EXPECT_EQ(system->getTypeInfoByExtension("bmp"), TextureResourceBMP::getStaticTypeInfo());
    EXPECT_EQ(system->getTypeInfoByExtension("tex"), TextureResource::getStaticTypeInfo());
    EXPECT_EQ(system->getTypeInfoByExtension("png"), nullptr);
    EXPECT_EQ(system->getTypeInfoByExtension(nullptr), nullptr);

    TextureResource texture;
    EXPECT_EQ(texture.getIntermediateType(), TextureResourceTGA::getStaticTypeInfo());
    EXPECT_EQ(texture.getExtraIntermediateType(0), TextureResourceBMP::getStaticTypeInfo());
    EXPECT_EQ(texture.getExtraIntermediateType(1), nullptr);
}

TEST_F(ResourceSystemTest, ShowsAChangeForOneFrameAndCountsIt)
{
    TextureResourceTGA* resource = create<TextureResourceTGA>(nullptr);
    const unsigned int revision = resource->getRevision();
    resource->setModify();
    EXPECT_TRUE(resource->isUpdated());
    EXPECT_TRUE(resource->isModified());
    ResourceSystem::getInstance()->update();
    EXPECT_FALSE(resource->isUpdated());
    EXPECT_TRUE(resource->isModified()) << "only saving clears it";
    EXPECT_EQ(resource->getRevision(), revision + 1);
    resource->clearModify();
    EXPECT_FALSE(resource->isModified());
    resource->release();
}

TEST(ResourceSystemEndTest, ReportsWhatIsStillHeldAndLetsItGoLater)
{
    TextureResourceTGA* held = nullptr;
    TraceCapture trace;
    {
        HeadlessSystems systems;
        held = ResourceSystem::getInstance()->createResource<TextureResourceTGA>(nullptr);
    }
    const std::string text = trace.take();
    const std::size_t first = text.find("Resource leak.(" + std::string(held->getPath().c_str()) + ")\n");
    EXPECT_NE(first, std::string::npos);
    EXPECT_EQ(text.find("Resource leak.", first + 1), std::string::npos);
    held->release();
}

TEST(ResourceSystemDeathTest, StopsOnBrokenContracts)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    HeadlessSystems systems;
    EXPECT_DEATH(new ResourceSystem, "ResourceSystem already instanced.");
    TextureResource resource;
    resource.setPath("native/a.tex");
    EXPECT_DEATH(resource.setPath("native/b.tex"), "Path is already set.");
}
