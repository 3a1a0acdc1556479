#include "reflection/objectproperty.h"

#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"
#include "tests/support/documents.h"

namespace
{
class TestPart : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override
    {
        list.addReference("u32", mInteger);
        list.addReference("text", mText);
    }

    unsigned int mInteger = 0;
    AutoString mText;
};

class TestOwner : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override
    {
        list.add(new ObjectProperty("part", &mPart));
        list.add(new ObjectProperty("reference", &mpReference, false));
        list.add(new ResourceProperty("resource", &mpResource));
    }

    TestPart mPart;
    TestPart* mpReference = nullptr;
    ResourceBase* mpResource = nullptr;
};

struct TestResource : ResourceBase
{
    const char* getExtension() const override { return "test.xml"; }
};
}

TEST(ObjectBase, CopiesIntegersAndObjectsOnly)
{
    TestOwner source;
    source.mPart.mInteger = 0x80000000;
    source.mPart.mText = "text";
    source.mpReference = &source.mPart;

    TestOwner target;
    target.copyProperties(&source);
    EXPECT_EQ(target.mPart.mInteger, 0x80000000);
    EXPECT_EQ(target.mpReference, &source.mPart) << "rebound";
    EXPECT_FALSE(target.mPart.mText);
}

TEST(ResourceProperty, WritesALogicalNameIfItCanBeFoundAgain)
{
    const std::pair<const char*, const char*> rows[] = {
        {"intermediate/walk.test.xml", "typeinfo='ResourceBase' path='walk' />"},
        {"native/a.test.xml/walk.test.xml", "typeinfo='ResourceBase' path='a.test.xml/walk' />"},
        {"newfile", "/>"},
        {"intermediate/", "/>"},
        {"intermediate/a b.test.xml", "/>"},
        {nullptr, "/>"},
    };
    for (const auto& [path, written] : rows)
    {
        TestOwner owner;
        owner.mpResource = new TestResource;
        owner.mpResource->setPath(path);
        EXPECT_NE(save(owner).find(quoted(std::string("count='0' index='0' ") + written + "\n</")), std::string::npos)
            << path;
        owner.mpResource->release();
    }
}
