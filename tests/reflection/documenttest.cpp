#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "reflection/reflect.h"
#include "reflection/resourceproperty.h"
#include "tests/support/documents.h"
#include "tests/support/values.h"

#include <memory>

namespace
{
// A value of one type, plain and as an array.
template <typename T>
class TestValues : public ObjectBase
{
public:
    TestValues(T plain, const T (&array)[2]) : mPlain(plain), mArray{array[0], array[1]} {}

    void makePropertyList(PropertyList& list) override
    {
        list.addReference("plain", mPlain);
        list.addReference("array", mArray);
    }

    T mPlain;
    T mArray[2];
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

// One property of each kind, of which it may offer but one.
class TestSample : public ObjectBase
{
public:
    explicit TestSample(const char* only = nullptr) : mpOnly(only) {}

    void makePropertyList(PropertyList& list) override
    {
        PropertyList all;
        all.addReference("number", mNumber);
        all.addReference("levels", mLevels);
        all.addReference("rect", mRect);
        all.add(new ObjectProperty("part", &mPart));
        all.add(new ObjectProperty("link", &mpLink, false));
        all.add(new ResourceProperty("resource", &mpResource));
        for (PropertyBase* property : all)
            if (!mpOnly || AutoString::isEqual(property->getName(), mpOnly))
                list.add(property);
    }

    std::string load(const std::string& body)
    {
        return ::load(*this, "<ObjectBase typeinfo='ObjectBase' id='1' stable='true' >" + body + "</ObjectBase>");
    }

    const char* mpOnly;
    int mNumber = 7;
    int mLevels[2] = {1, 2};
    sRect mRect{1, 2, 3, 4};
    TestNode mPart;
    TestNode* mpLink = &mPart;
    ResourceBase* mpResource = nullptr;
};
template <typename T>
void expectBack()
{
    TestValues<T> source{makeValue<T>(1), {makeValue<T>(2), makeValue<T>(3)}};
    const std::string document = save(source);
    EXPECT_EQ(save(source), document);

    // All but a bool, which is inverted, and the y of a vector, which becomes x.
    const auto returned = [](T value)
    {
        if constexpr (std::is_same_v<T, bool>)
            value = !value;
        if constexpr (std::is_same_v<T, sVector>)
            value.y = value.x;
        return value;
    };
    TestValues<T> target{{}, {}};
    EXPECT_EQ(load(target, document), "") << ValueTraits<T>::name;
    EXPECT_TRUE(target.mPlain == returned(source.mPlain)) << ValueTraits<T>::name;
    EXPECT_TRUE(target.mArray[0] == returned(source.mArray[0]) && target.mArray[1] == returned(source.mArray[1]));
}

template <typename... Ts>
void expectAllBack(TypeList<Ts...>)
{
    (expectBack<Ts>(), ...);
}
}

TEST(Document, CarriesEachType)
{
    expectAllBack(ValueTypes{});
}

TEST(Document, HasOneTagAPropertyAndOneAnElement)
{
    TestSample sample;
    sample.mpLink = nullptr;
    EXPECT_EQ(save(sample), quoted(R"(<?xml version='1.0'?>

<ObjectBase typeinfo='ObjectBase' id='1' stable='true' >
	<number type='s32' count='0' index='0' value='7' />
	<levels type='s32' count='2' index='0' >
		<element0 index='0' value='1' />
		<element1 index='1' value='2' />
	</levels>
	<rect type='rect' count='0' index='0' left='1' top='2' right='3' bottom='4' />
	<part type='Object' count='0' index='0' typeinfo='TestNode' id='2' stable='true' >
		<left type='Object' count='0' index='0' />
		<right type='Object' count='0' index='0' />
	</part>
	<link type='Object' count='0' index='0' />
	<resource type='Resource' count='0' index='0' />
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
    EXPECT_TRUE(target.mpRight == copy && copy->mpLeft == copy && copy->mpRight->mpLeft == copy);
    EXPECT_NE(copy->mpRight, &target) << "a reference to a stable object comes back as another object";
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
        {"number", "<number type='s32' count='2' value='9' />", "number counts missmatch.\n"},
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
        TestSample sample(row.name);
        EXPECT_EQ(sample.load(row.body), row.trace) << row.body;
        EXPECT_EQ(sample.mNumber * 100 + sample.mLevels[0] * 10 + sample.mLevels[1], row.state) << row.body;
        EXPECT_TRUE(sample.mpLink == &sample.mPart && !sample.mpResource) << row.body;
    }
    EXPECT_EQ(load(*std::make_unique<TestSample>(), "<Other />"), "") << "no tag of that name";
}
