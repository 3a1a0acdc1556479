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
        list.addReference("flag", mFlag);
        list.addReference("text", mText);
        list.addReference("point", mPoint);
    }

    unsigned int mInteger = 0;
    bool mFlag = false;
    AutoString mText;
    sPoint mPoint{0, 0};
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

    ObjectBase* getReference() const { return mpReference; }
    void setReference(ObjectBase* object) { mpReference = static_cast<TestPart*>(object); }

    ResourceBase* getResource() const { return mpResource; }
    void setResource(ResourceBase* resource)
    {
        mpResource = resource;
        ++mSets;
    }

    TestPart mPart;
    TestPart* mpReference = nullptr;
    ResourceBase* mpResource = nullptr;
    int mSets = 0;
};

class TestResource : public ResourceBase
{
public:
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
    EXPECT_EQ(owner.mpReference, &bound);
    EXPECT_EQ(bound.mInteger, 5u);

    ObjectProperty reference("reference", &owner.mpReference, false);
    EXPECT_STREQ(reference.getString(nullptr, 0), "ObjectBase");
    reference.setByType<ObjectBase*>(nullptr);
    EXPECT_EQ(reference.getByType<ObjectBase*>(), nullptr);
    EXPECT_STREQ(reference.getString(nullptr, 0), "null");

    IndirectObjectProperty indirect("indirect", nullptr, &owner, &TestOwner::getReference, &TestOwner::setReference, 2);
    indirect.setIndex(1);
    indirect.set(&other, 1);
    EXPECT_TRUE(indirect.getIndex() == 0 && owner.mpReference == &other && !indirect.isStableObject());
}

TEST(ObjectBase, CopiesIntegersAndObjectsOnly)
{
    TestOwner source;
    source.mPart.mInteger = 0x80000000;
    source.mPart.mFlag = true;
    source.mPart.mText = "text";
    source.mPart.mPoint = sPoint(1, 2);
    source.mpReference = &source.mPart;

    TestOwner target;
    target.copyProperties(&source);
    EXPECT_EQ(target.mPart.mInteger, 0x80000000);
    EXPECT_EQ(target.mpReference, &source.mPart) << "rebound";
    EXPECT_FALSE(target.mPart.mFlag || target.mPart.mText);
    EXPECT_EQ(target.mPart.mPoint, sPoint::Zero);
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

    IndirectResourceProperty indirect("resource", &owner, &TestOwner::getResource, &TestOwner::setResource);
    indirect.set(first, 0);
    indirect.set(first, 0);
    EXPECT_EQ(owner.mSets, 1) << "setting what is there already";
    first->release();
    second->release();
}

TEST(ResourceProperty, WritesALogicalNameIfItCanBeFoundAgain)
{
    const struct
    {
        const char* path;
        const char* name;
    } rows[] = {
        {"intermediate/walk.test.xml", "walk"},
        {"native/v1.2/walk.test.xml", "v1.2/walk"},
        {"native/walk.tex", "walk.tex"},
        {"newfile", nullptr},
        {"intermediate/", nullptr},
        {"intermediate/a b.test.xml", nullptr},
        {nullptr, nullptr},
    };
    for (const auto& row : rows)
    {
        TestOwner owner;
        owner.mpResource = new TestResource;
        if (row.path)
            owner.mpResource->setPath(row.path);

        TraceCapture traces;
        const std::string name = row.name ? std::string("typeinfo='ResourceBase' path='") + row.name + "' " : "";
        EXPECT_NE(save(owner).find(quoted("count='0' index='0' " + name + "/>\n</")), std::string::npos) << row.path;
        EXPECT_EQ(traces.take().empty(), row.name != nullptr) << row.path;
        owner.mpResource->release();
    }
}
