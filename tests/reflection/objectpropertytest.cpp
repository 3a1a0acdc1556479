#include "reflection/objectproperty.h"

#include "reflection/propertylist.h"
#include "reflection/reflect.h"
#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
class TestPart : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override
    {
        list.addReference("u32", mInteger);
        list.addReference("s64", mLong);
        list.addReference("flag", mFlag);
        list.addReference("real", mReal);
        list.addReference("text", mText);
        list.addReference("point", mPoint);
    }

    unsigned int mInteger = 0;
    long long mLong = 0;
    bool mFlag = false;
    float mReal = 0.0f;
    AutoString mText;
    sPoint mPoint{0, 0};
};

// A part, a reference, and the same reference behind operations.
class TestOwner : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override
    {
        list.add(new ObjectProperty("part", &mPart));
        list.add(new ObjectProperty("reference", &mpReference, false));
        list.addReference("number", mNumber);
    }

    ObjectBase* getReference() const { return mpReference; }
    void setReference(ObjectBase* object) { mpReference = static_cast<TestPart*>(object); }

    TestPart mPart;
    TestPart* mpReference = nullptr;
    unsigned char mNumber = 0;
};

class TestResource : public ResourceBase
{
public:
    const char* getExtension() const override { return "test.xml"; }
};

class TestResourceOwner : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override { list.add(new ResourceProperty("resource", &mpResource)); }

    ResourceBase* get() const { return mpResource; }
    void set(ResourceBase* resource)
    {
        mpResource = resource;
        ++mSets;
    }

    ResourceBase* mpResource = nullptr;
    int mSets = 0;
};
}

TEST(ObjectProperty, CopiesIntoAPartAndRebindsAReference)
{
    TestOwner owner;
    TestPart other;
    other.mInteger = 5;

    ObjectProperty part("part", &owner.mPart);
    part.set(&other, PropertyBase::CurrentElement);
    EXPECT_EQ(part.get(0), &owner.mPart);
    EXPECT_EQ(owner.mPart.mInteger, 5u);
    EXPECT_TRUE(part.isStableObject());

    TestPart bound;
    owner.mpReference = &bound;
    ObjectProperty stable("stable", &owner.mpReference, true);
    stable.setByType<ObjectBase*>(&other);
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
    EXPECT_EQ(indirect.getIndex(), 0u);
    EXPECT_EQ(owner.mpReference, &other);
    EXPECT_FALSE(indirect.isStableObject());
}

TEST(ObjectBase, CopiesIntegersAndObjectsOnly)
{
    TestOwner source;
    source.mNumber = 200;
    source.mPart.mInteger = 0x80000000;
    source.mPart.mLong = -1;
    source.mPart.mFlag = true;
    source.mPart.mReal = 1.0f;
    source.mPart.mText = "text";
    source.mPart.mPoint = sPoint(1, 2);
    source.mpReference = &source.mPart;

    TestOwner target;
    target.copyProperties(&source);
    EXPECT_EQ(target.mNumber, 200);
    EXPECT_EQ(target.mPart.mInteger, 0x80000000);
    EXPECT_EQ(target.mPart.mLong, -1);
    EXPECT_EQ(target.mpReference, &source.mPart) << "rebound";
    EXPECT_FALSE(target.mPart.mFlag || target.mPart.mText || target.mPart.mReal != 0.0f);
    EXPECT_EQ(target.mPart.mPoint, sPoint::Zero);

    TestPart part;
    part.copyProperties(&source);
    EXPECT_EQ(part.mInteger, 0u) << "no property in common";
}

TEST(ResourceProperty, OwnsOneReference)
{
    TestResource* first = new TestResource;
    TestResource* second = new TestResource;
    TestResourceOwner owner;
    ResourceProperty property("resource", &owner.mpResource);
    EXPECT_STREQ(property.getString(nullptr, 0), "null");

    property.setByType<ResourceBase*>(first);
    property.setByType<ResourceBase*>(first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    property.setByType<ResourceBase*>(second);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(property.getByType<ResourceBase*>(), second);
    property.setByType<ResourceBase*>(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);

    IndirectResourceProperty indirect("resource", &owner, &TestResourceOwner::get, &TestResourceOwner::set);
    indirect.set(nullptr, 0);
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
        const char* written;
    } rows[] = {
        {"intermediate/walk.test.xml", "typeinfo=\"ResourceBase\" path=\"walk\" />"},
        {"native/v1.2/walk.test.xml", "typeinfo=\"ResourceBase\" path=\"v1.2/walk\" />"},
        {"native/walk.tex", "typeinfo=\"ResourceBase\" path=\"walk.tex\" />"},
        {"newfile", "index=\"0\" />"},
        {"intermediate/", "index=\"0\" />"},
        {"intermediate/a b.test.xml", "index=\"0\" />"},
        {nullptr, "index=\"0\" />"},
    };
    for (const auto& row : rows)
    {
        TestResource* resource = new TestResource;
        if (row.path)
            resource->setPath(row.path);
        TestResourceOwner owner;
        owner.mpResource = resource;

        TraceCapture traces;
        EXPECT_NE(save(owner).find(row.written), std::string::npos) << save(owner);
        EXPECT_EQ(traces.take().empty(), row.written[0] == 't') << row.path;
        resource->release();
    }
}
