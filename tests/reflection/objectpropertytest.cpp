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

TEST(ObjectProperty, CopiesIntoAPartAndRebindsAReference)
{
    TestOwner owner;
    TestPart other;
    other.mInteger = 5;

    ObjectProperty part("part", &owner.mPart);
    part.set(&other, PropertyBase::CurrentElement);
    EXPECT_TRUE(part.get(0) == &owner.mPart && part.isStableObject());
    EXPECT_EQ(owner.mPart.mInteger, 5u);

    TestPart bound;
    owner.mpReference = &bound;
    ObjectProperty("stable", &owner.mpReference, true).setByType<ObjectBase*>(&other);
    EXPECT_TRUE(owner.mpReference == &bound && bound.mInteger == 5);

    ObjectProperty reference("reference", &owner.mpReference, false);
    reference.setByType<ObjectBase*>(nullptr);
    EXPECT_STREQ(reference.getString(nullptr, 0), "null");
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

TEST(ResourceProperty, OwnsOneReference)
{
    TestResource* first = new TestResource;
    TestResource* second = new TestResource;
    TestOwner owner;
    ResourceProperty property("resource", &owner.mpResource);
    EXPECT_STREQ(property.getString(nullptr, 0), "null");

    property.setByType<ResourceBase*>(first);
    property.setByType<ResourceBase*>(first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    property.setByType<ResourceBase*>(second);
    EXPECT_EQ(property.getByType<ResourceBase*>(), second);
    property.setByType<ResourceBase*>(nullptr);
    EXPECT_TRUE(first->getReferenceCount() == 1 && second->getReferenceCount() == 1);
    first->release();
    second->release();
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
