#include "resource/resourcesystem.h"

#include "application/systemmanager.h"
#include "foundation/utils.h"
#include "io/stream.h"
#include "render/texture.h"
#include "resource/resourcebase.h"
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

    bool load(Stream& stream) override
    {
        ++mLoadNum;
        char name[64] = {};
        TextFileStream& file = static_cast<TextFileStream&>(stream);
        file.read(name, sizeof(name) - 1);
        mpNext.reset(ResourceSystem::getInstance()->createResource<ChainResource>(name));
        setPath(file.getPath());
        return true;
    }

    const char* getExtension() const override { return "chain"; }

    Held<ChainResource> mpNext;
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
    static Held<T> create(const char* path)
    {
        return Held<T>(ResourceSystem::getInstance()->createResource<T>(path));
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
    auto first = create<TextureResourceTGA>("a");
    {
        TextureResourceTGA stranger;
        stranger.setPath("intermediate/a.tga");
    }
    auto second = create<TextureResourceTGA>("a");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second) << "a stranger of that name has not taken it out of the registry";
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_EQ(first->getHash(), Utils::hash("intermediate/a.tga"));
    first.reset();
    second.reset();

    mSystems.write("intermediate/a.tga", makeFile(sTga{2, 1, Bytes(8)}));
    EXPECT_EQ(create<TextureResourceTGA>("a")->getWidth(), 2u) << "the last release has taken it out of the registry";
}

TEST_F(ResourceSystemTest, BuildsAMissingNativeFileOnceAndInSubDirectories)
{
    std::filesystem::create_directories(mSystems.getFile("intermediate/x/y"));
    mSystems.write("intermediate/x/y/a.tga", makeFile(sTga{}));
    auto texture = create<TextureResource>("x/y/a");
    ASSERT_TRUE(texture && texture->getTexture());
    EXPECT_STREQ(texture->getPath().c_str(), "native/x/y/a.tex");
    EXPECT_EQ(texture->getReferenceCount(), 1);
    EXPECT_EQ(mSystems.read("native/x/y/a.tex"), makeFile(sTex{}));
    texture.reset();

    mSystems.write("intermediate/x/y/a.tga", makeFile(sTga{2, 1, Bytes(8)}));
    EXPECT_EQ(create<TextureResource>("x/y/a")->getWidth(), 1u) << "a changed source builds nothing";

    mSystems.write("native/x/y/a.tex", makeFile(sTex{.version = 2}));
    EXPECT_EQ(create<TextureResource>("x/y/a")->getWidth(), 2u) << "one of another version is built anew";
}

TEST_F(ResourceSystemTest, AnswersWithAnEmptyInstanceOnlyWhereThereIsNoSource)
{
    const auto texture = create<TextureResource>("nowhere");
    ASSERT_NE(texture, nullptr);
    EXPECT_TRUE(!texture->getTexture() && texture->getPath().empty());
    EXPECT_NE(texture, create<TextureResource>("nowhere")) << "it is not registered";

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
    EXPECT_NE(create<TextureResourceTGA>("..a"), nullptr) << "two dots are a component only on their own";
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
    const auto a = create<ChainResource>("a");
    EXPECT_NE(trace.take().find("Resource intermediate/a.chain loading fail.\n"), std::string::npos);
    EXPECT_EQ(ChainResource::mLoadNum, 2);
    ASSERT_TRUE(a && a->mpNext);
    EXPECT_EQ(a->mpNext->mpNext, nullptr);
}
