#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "reflection/reflect.h"
#include "reflection/resourceproperty.h"
#include "tests/support/documents.h"
#include "tests/support/values.h"

#include <functional>

namespace
{
// A value of one type: plain, as an array and behind operations.
template <typename T>
class TestValues : public ObjectBase
{
public:
    void makePropertyList(PropertyList& list) override
    {
        list.addReference("plain", mPlain);
        list.addReference("array", mArray);
        list.addIndirect("indirect", this, &TestValues::get, &TestValues::set);
    }

    T get() const { return mIndirect; }
    void set(T value) { mIndirect = value; }

    T mPlain{};
    T mArray[2]{};
    T mIndirect{};
};

class TestNode : public ObjectBase
{
    REFLECTED(TestNode)

public:
    void makePropertyList(PropertyList& list) override
    {
        list.add(new ObjectProperty("left", &mpLeft, false));
        list.add(new ObjectProperty("right", &mpRight, false));
    }

    TestNode* mpLeft = nullptr;
    TestNode* mpRight = nullptr;
};

REFLECT(TestNode, eTypeAttribute::None, "ObjectBase");

TypeInfo sUnmade("TestUnmade", "ObjectBase", 1);

// Has the id of "Testwfyuijrx", too.
TypeInfo sForged("Testinqgfedy", nullptr, 0);

// Offers whatever a test makes of it.
class TestSample : public ObjectBase
{
public:
    using Maker = std::function<void(TestSample&, PropertyList&)>;

    explicit TestSample(Maker maker) : mMaker(std::move(maker)) {}
    void makePropertyList(PropertyList& list) override { mMaker(*this, list); }

    std::string load(const std::string& body)
    {
        return ::load(*this, "<ObjectBase typeinfo='ObjectBase' id='1' stable='true' >" + body + "</ObjectBase>");
    }

    Maker mMaker;
    int mNumber = 7;
    int mLevels[2] = {1, 2};
    TestNode mPart;
    TestNode* mpLink = &mPart;
    ResourceBase* mpResource = nullptr;
};

void makeAll(TestSample& sample, PropertyList& list)
{
    list.addReference("number", sample.mNumber);
    list.addReference("levels", sample.mLevels);
    list.add(new ObjectProperty("part", &sample.mPart));
    list.add(new ObjectProperty("link", &sample.mpLink, false));
    list.add(new ResourceProperty("resource", &sample.mpResource));
}
}

template <typename T>
class DocumentTest : public testing::Test
{
};

TYPED_TEST_SUITE(DocumentTest, AsTestTypes<ValueTypes>::Types);

TYPED_TEST(DocumentTest, CarriesEachType)
{
    TestValues<TypeParam> source;
    source.mPlain = makeValue<TypeParam>(1);
    source.mArray[1] = makeValue<TypeParam>(3);
    source.mIndirect = makeValue<TypeParam>(5);
    const std::string document = save(source);
    EXPECT_EQ(save(source), document);

    // All but a bool, which is inverted, and the y of a vector, which becomes x.
    const auto returned = [](TypeParam value)
    {
        if constexpr (std::is_same_v<TypeParam, bool>)
            value = !value;
        if constexpr (std::is_same_v<TypeParam, sVector>)
            value.y = value.x;
        return value;
    };
    TestValues<TypeParam> target;
    EXPECT_EQ(load(target, document), "");
    EXPECT_TRUE(target.mPlain == returned(source.mPlain) && target.mIndirect == returned(source.mIndirect));
    EXPECT_TRUE(target.mArray[0] == returned(source.mArray[0]) && target.mArray[1] == returned(source.mArray[1]));
}

TEST(Document, HasOneTagAPropertyAndOneAnElement)
{
    sVector vector(3, 4);
    bool flag = true;
    TestSample sample(
        [&](TestSample& self, PropertyList& list)
        {
            list.addReference("levels", self.mLevels);
            list.addReference("vector", vector);
            list.addReference("flag", flag);
            list.add(new ObjectProperty("part", &self.mPart));
        });
    EXPECT_EQ(save(sample), quoted(R"(<?xml version='1.0'?>

<ObjectBase typeinfo='ObjectBase' id='1' stable='true' >
	<levels type='s32' count='2' index='0' >
		<element0 index='0' value='1' />
		<element1 index='1' value='2' />
	</levels>
	<vector type='vector' count='0' index='0' x='3.000000' y='3.000000' />
	<flag type='bool' count='0' index='0' value='true' />
	<part type='Object' count='0' index='0' typeinfo='TestNode' id='2' stable='true' >
		<left type='Object' count='0' index='0' />
		<right type='Object' count='0' index='0' />
	</part>
</ObjectBase>
)"));
}

TEST(Document, KeepsReferencesSharedAndCyclic)
{
    TestNode root;
    TestNode child;
    root.mpLeft = root.mpRight = child.mpLeft = &child;
    child.mpRight = &root;
    const std::string document = save(root);
    EXPECT_EQ(save(root), document);

    TestNode target;
    EXPECT_EQ(load(target, document), "");
    TestNode* copy = target.mpLeft;
    ASSERT_TRUE(copy && copy->mpRight);
    EXPECT_TRUE(target.mpRight == copy && copy->mpLeft == copy);
    EXPECT_NE(copy->mpRight, &target) << "a reference to a stable object comes back as another object";
    EXPECT_EQ(copy->mpRight->mpLeft, copy);
    delete copy->mpRight;
    delete copy;
}

TEST(Document, ToleratesWhatDoesNotFit)
{
    const struct
    {
        const char* name;
        const char* body;
        const char* trace;
        int state = 712;
    } rows[] = {
        {"number", "", "Property number not found.\n"},
        {"number", "<other /><number type='s32' count='0' value='9' />", "", 912},
        {"number", "<number type='u32' count='0' value='9' />", "number type missmatch.\n"},
        {"number", "<number count='0' value='9' />", "number type missmatch.\n"},
        {"number", "<number type='s32' count='2' value='9' />", "number counts missmatch.\n"},
        {"number", "<number type='s32' value='9' />", "number counts missmatch.\n"},
        {"number", "<number type='s32' count='0' value='x' />", "", 12},
        {"number", "<number type='s32' count='0' />", ""},
        {"levels", "<levels type='s32' count='0' value='9' />", "levels counts missmatch.\n"},
        {"levels", "<levels type='s32' count='2' ><element1 value='9' /></levels>", "levels array index(0) not found.",
         719},
        {"part", "<part type='Object' count='0' typeinfo='TestNode' stable='false' />", "part stability missmatch.\n"},
        {"part", "<part type='Object' count='0' typeinfo='Nobody' stable='true' />", "part typeinfo missmatch.\n"},
        {"link", "<link type='Object' count='0' typeinfo='TestNode' stable='true' />", "link stability missmatch.\n"},
        {"link", "<link type='Object' count='0' />", "link stability missmatch.\n"},
        {"link", "<link type='Object' count='0' typeinfo='TestNode' stable='false' />", "link id not found.\n"},
        {"link", "<link type='Object' count='0' id='4294967296' stable='false' />", "link id not found.\n"},
        {"link", "<link type='Object' count='0' id='2' stable='false' />", "link typeinfo not found.\n"},
        {"link", "<link type='Object' count='0' typeinfo='Nobody' id='2' stable='false' />",
         "link typeinfo not found.\n"},
        {"link", "<link type='Object' count='0' typeinfo='Testwfyuijrx' id='2' stable='false' />",
         "link typeinfo not found.\n"},
        {"link", "<link type='Object' count='0' typeinfo='TestUnmade' id='2' stable='false' />",
         "link typeinfo not found.\n"},
        {"resource", "<resource type='Resource' count='0' />", ""},
        {"resource", "<resource type='Resource' count='0' path='a' />", "resource typeinfo not found.\n"},
        {"resource", "<resource type='Resource' count='0' typeinfo='TestNode' path='a/b' />",
         "Resource path=\"a/b\" not found.\n"},
    };
    for (const auto& row : rows)
    {
        // Only the property that the row is about.
        TestSample sample(
            [&row](TestSample& self, PropertyList& list)
            {
                PropertyList all;
                makeAll(self, all);
                for (PropertyBase* property : all)
                    if (AutoString::isEqual(property->getName(), row.name))
                        list.add(property);
            });
        EXPECT_EQ(sample.load(row.body), row.trace) << row.body;
        EXPECT_EQ(sample.mNumber * 100 + sample.mLevels[0] * 10 + sample.mLevels[1], row.state) << row.body;
        EXPECT_TRUE(sample.mpLink == &sample.mPart && !sample.mpResource) << row.body;
    }
    EXPECT_EQ(load(*std::make_unique<TestSample>(makeAll), "<Other />"), "") << "no tag of that name";
}

TEST(Document, MissingComponentsStay)
{
    sRect rect(1, 2, 3, 4);
    TestSample sample([&rect](TestSample&, PropertyList& list) { list.addReference("rect", rect); });
    EXPECT_EQ(sample.load("<rect type='rect' count='0' left='-5' right='x' />"), "");
    EXPECT_EQ(rect, sRect(-5, 2, 0, 4));
}

TEST(Document, PutsTheIndexOfAnArrayBack)
{
    int values[2] = {4, 5};
    ReferenceProperty<int> property("values", values, 2);
    XmlWriter writer("values");
    property.serialize(&writer);
    EXPECT_EQ(property.getIndex(), 0u);

    MemoryTextStream stream;
    writer.write(&stream);
    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream) && reader.openTag("values"));
    property.deserialize(&reader);
    EXPECT_EQ(property.getIndex(), 0u);
}
