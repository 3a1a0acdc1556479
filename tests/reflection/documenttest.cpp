#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "reflection/reflect.h"
#include "reflection/resourceproperty.h"
#include "tests/support/documents.h"
#include "tests/support/values.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
// A value of one type, plain, as an array and behind operations.
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
        list.addReference("number", mNumber);
        list.add(new ObjectProperty("left", &mpLeft, false));
        list.add(new ObjectProperty("right", &mpRight, false));
    }

    int mNumber = 0;
    TestNode* mpLeft = nullptr;
    TestNode* mpRight = nullptr;
};

REFLECT(TestNode, eTypeAttribute::None, "ObjectBase");
TypeInfo sUnmade("TestUnmade", "ObjectBase", 1);

// Has the id of "Testwfyuijrx", too.
TypeInfo sForged("Testinqgfedy", nullptr, 0);

// Whatever a row of a table makes of it.
class TestSample : public ObjectBase
{
public:
    using Maker = std::function<void(TestSample&, PropertyList&)>;

    explicit TestSample(Maker maker) : mMaker(std::move(maker)) {}
    void makePropertyList(PropertyList& list) override { mMaker(*this, list); }

    std::string describe() const
    {
        std::string text =
            std::to_string(mNumber) + " " + std::to_string(mLevels[0]) + " " + std::to_string(mLevels[1]);
        text += mpLink == &mOld ? "" : mpLink ? " linked" : " null";
        return mpResource ? text + " resource" : text;
    }

    Maker mMaker;
    int mNumber = 7;
    int mLevels[2] = {1, 2};
    TestNode mOld;
    TestNode* mpLink = &mOld;
    ResourceBase* mpResource = nullptr;
};

void makeNumber(TestSample& sample, PropertyList& list)
{
    list.addReference("number", sample.mNumber);
}

void makeLevels(TestSample& sample, PropertyList& list)
{
    list.addReference("levels", sample.mLevels);
}

void makePart(TestSample& sample, PropertyList& list)
{
    list.add(new ObjectProperty("part", &sample.mOld));
}

void makeLink(TestSample& sample, PropertyList& list)
{
    list.add(new ObjectProperty("link", &sample.mpLink, false));
}

void makeResource(TestSample& sample, PropertyList& list)
{
    list.add(new ResourceProperty("resource", &sample.mpResource));
}

std::string wrap(const std::string& body)
{
    return "<?xml version=\"1.0\"?>\n<ObjectBase typeinfo=\"ObjectBase\" id=\"1\" stable=\"true\" >" + body +
           "</ObjectBase>";
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
    source.mArray[0] = makeValue<TypeParam>(2);
    source.mArray[1] = makeValue<TypeParam>(3);
    source.mIndirect = makeValue<TypeParam>(5);
    const std::string document = save(source);
    EXPECT_EQ(save(source), document);

    // What comes back: the value, but for a bool, which is inverted, and for a vector, whose y is lost.
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
    EXPECT_TRUE(target.mPlain == returned(source.mPlain));
    EXPECT_TRUE(target.mArray[0] == returned(source.mArray[0]) && target.mArray[1] == returned(source.mArray[1]));
    EXPECT_TRUE(target.mIndirect == returned(source.mIndirect));

    EXPECT_EQ(load(target, save(target)), "");
    EXPECT_TRUE(target.mPlain == (std::is_same_v<TypeParam, bool> ? source.mPlain : returned(source.mPlain)));
}

TEST(Document, HasOneTagAPropertyAndOneAnElement)
{
    TestSample sample(
        [](TestSample& self, PropertyList& list)
        {
            static sColor color(1, 2, 3, 255);
            static sVector vector(sFixed(3, 16), sFixed(4, 16));
            static bool flag = true;
            makeLevels(self, list);
            list.addReference("color", color);
            list.addReference("vector", vector);
            list.addReference("flag", flag);
            makePart(self, list);
        });
    EXPECT_EQ(save(sample),
              "<?xml version=\"1.0\"?>\n\n"
              "<ObjectBase typeinfo=\"ObjectBase\" id=\"1\" stable=\"true\" >\n"
              "\t<levels type=\"s32\" count=\"2\" index=\"0\" >\n"
              "\t\t<element0 index=\"0\" value=\"1\" />\n"
              "\t\t<element1 index=\"1\" value=\"2\" />\n"
              "\t</levels>\n"
              "\t<color type=\"color\" count=\"0\" index=\"0\" red=\"1\" green=\"2\" blue=\"3\" alpha=\"255\" />\n"
              "\t<vector type=\"vector\" count=\"0\" index=\"0\" x=\"3.000000\" y=\"3.000000\" />\n"
              "\t<flag type=\"bool\" count=\"0\" index=\"0\" value=\"true\" />\n"
              "\t<part type=\"Object\" count=\"0\" index=\"0\" typeinfo=\"TestNode\" id=\"2\" stable=\"true\" >\n"
              "\t\t<number type=\"s32\" count=\"0\" index=\"0\" value=\"0\" />\n"
              "\t\t<left type=\"Object\" count=\"0\" index=\"0\" />\n"
              "\t\t<right type=\"Object\" count=\"0\" index=\"0\" />\n"
              "\t</part>\n"
              "</ObjectBase>\n");
}

TEST(Document, KeepsReferencesSharedAndCyclic)
{
    TestNode child;
    child.mNumber = 2;
    child.mpLeft = &child;
    TestNode root;
    root.mpLeft = &child;
    root.mpRight = &child;
    child.mpRight = &root;
    const std::string document = save(root);
    EXPECT_EQ(save(root), document);

    TestNode target;
    EXPECT_EQ(load(target, document), "");
    TestNode* copy = target.mpLeft;
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->mNumber, 2);
    EXPECT_EQ(target.mpRight, copy);
    EXPECT_EQ(copy->mpLeft, copy);
    ASSERT_TRUE(copy->mpRight);
    EXPECT_NE(copy->mpRight, &target) << "a reference to a stable object comes back as another object";
    EXPECT_EQ(copy->mpRight->mpLeft, copy);
    delete copy->mpRight;
    delete copy;
}

TEST(Document, ToleratesWhatDoesNotFit)
{
    const struct
    {
        TestSample::Maker make;
        const char* body;
        const char* trace;
        const char* state;
    } rows[] = {
        {makeNumber, "", "Property number not found.\n", "7 1 2"},
        {makeNumber, "<other /><number type=\"s32\" count=\"0\" value=\"9\" />", "", "9 1 2"},
        {makeNumber, "<number type=\"u32\" count=\"0\" value=\"9\" />", "number type missmatch.\n", "7 1 2"},
        {makeNumber, "<number count=\"0\" value=\"9\" />", "number type missmatch.\n", "7 1 2"},
        {makeNumber, "<number type=\"s32\" count=\"2\" value=\"9\" />", "number counts missmatch.\n", "7 1 2"},
        {makeNumber, "<number type=\"s32\" value=\"9\" />", "number counts missmatch.\n", "7 1 2"},
        {makeNumber, "<number type=\"s32\" count=\"0\" value=\"x\" />", "", "0 1 2"},
        {makeNumber, "<number type=\"s32\" count=\"0\" />", "", "7 1 2"},
        {makeLevels, "<levels type=\"s32\" count=\"0\" value=\"9\" />", "levels counts missmatch.\n", "7 1 2"},
        {makeLevels, "<levels type=\"s32\" count=\"2\" ><element1 value=\"9\" /></levels>",
         "levels array index(0) not found.", "7 1 9"},
        {makePart, "<part type=\"Object\" count=\"0\" typeinfo=\"TestNode\" id=\"2\" stable=\"false\" />",
         "part stability missmatch.\n", "7 1 2"},
        {makePart, "<part type=\"Object\" count=\"0\" typeinfo=\"ObjectBase\" id=\"2\" stable=\"true\" />",
         "part typeinfo missmatch.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"TestNode\" id=\"2\" stable=\"true\" />",
         "link stability missmatch.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"TestNode\" />", "link stability missmatch.\n",
         "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"TestNode\" stable=\"false\" />",
         "link id not found.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"TestNode\" id=\"4294967296\" stable=\"false\" />",
         "link id not found.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"Nobody\" id=\"2\" stable=\"false\" />",
         "link typeinfo not found.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"Testwfyuijrx\" id=\"2\" stable=\"false\" />",
         "link typeinfo not found.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" typeinfo=\"TestUnmade\" id=\"2\" stable=\"false\" />",
         "link typeinfo not found.\n", "7 1 2"},
        {makeLink, "<link type=\"Object\" count=\"0\" id=\"2\" stable=\"false\" />", "link typeinfo not found.\n",
         "7 1 2"},
        {makeResource, "<resource type=\"Resource\" count=\"0\" />", "", "7 1 2"},
        {makeResource, "<resource type=\"Resource\" count=\"0\" typeinfo=\"Nobody\" path=\"a\" />",
         "resource typeinfo not found.\n", "7 1 2"},
        {makeResource, "<resource type=\"Resource\" count=\"0\" typeinfo=\"TestNode\" path=\"a/b\" />",
         "Resource path=\"a/b\" not found.\n", "7 1 2"},
    };
    for (const auto& row : rows)
    {
        TestSample sample(row.make);
        EXPECT_EQ(load(sample, wrap(row.body)), row.trace) << row.body;
        EXPECT_EQ(sample.describe(), row.state) << row.body;
    }

    TestSample sample(makeNumber);
    EXPECT_EQ(load(sample, "<Other />"), "") << "no tag of that name";
    EXPECT_EQ(sample.describe(), "7 1 2");
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
    EXPECT_EQ(values[0] * 10 + values[1], 45);
}

TEST(Document, MissingComponentsStay)
{
    sRect rect(1, 2, 3, 4);
    TestSample sample([&rect](TestSample&, PropertyList& list) { list.addReference("rect", rect); });
    EXPECT_EQ(load(sample, wrap("<rect type=\"rect\" count=\"0\" left=\"-5\" right=\"x\" />")), "");
    EXPECT_EQ(rect, sRect(-5, 2, 0, 4));
}

TEST(Document, TextMustBeReadableToComeBack)
{
    AutoString text("intermediate/a.b-c");
    TestSample sample([&text](TestSample&, PropertyList& list) { list.addReference("text", text); });
    const std::string document = save(sample);
    text = "other";
    EXPECT_EQ(load(sample, document), "");
    EXPECT_EQ(text, "intermediate/a.b-c");

    for (const char* unreadable : {"a b", "", static_cast<const char*>(nullptr)})
    {
        text = unreadable;
        EXPECT_EQ(load(sample, save(sample)).substr(0, 9), "malformed");
    }
}
