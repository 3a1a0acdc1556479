#include "reflection/objectlist.h"

#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "tests/support/documents.h"

namespace
{
int sLive = 0;

class TestItem : public ObjectBase
{
    REFLECTED(TestItem)

public:
    explicit TestItem(int number = 0) : mNumber(number) { ++sLive; }
    ~TestItem() override { --sLive; }

    void makePropertyList(PropertyList& list) override { list.addReference("number", mNumber); }

    int mNumber;
};

REFLECT(TestItem, eTypeAttribute::None, "ObjectBase");

// A list of items 1, null and 3.
class TestList : public ObjectList
{
public:
    explicit TestList(bool stable) : mFirst(new TestItem(1)), mLast(new TestItem(3))
    {
        setContentStability(stable);
        addLast(mLast);
        addFirst(nullptr);
        addFirst(mFirst);
    }

    // A digit for each element, 0 for null.
    std::string numbers() const
    {
        std::string text;
        for (ObjectBase* object : *this)
            text += std::to_string(object ? object->cast<TestItem>()->mNumber : 0);
        return text;
    }

    std::string load(const std::string& count, const std::string& elements)
    {
        return ::load(*this, "<ObjectList " + count + " stable='true' >" + elements + "</ObjectList>");
    }

    TestItem* mFirst;
    TestItem* mLast;
};
}

class ObjectListTest : public testing::Test
{
protected:
    ~ObjectListTest() override { EXPECT_EQ(sLive, 0); }
};

TEST_F(ObjectListTest, DeletesNothingWithStableContents)
{
    TestList list(true);
    list.setObject(list.mLast);
    EXPECT_EQ(list.numbers(), "303");
    list.setCount(2);
    EXPECT_EQ(list.numbers(), "00");
    EXPECT_EQ(sLive, 2);
    delete list.mFirst;
    delete list.mLast;
}

TEST_F(ObjectListTest, OwnsUnstableContents)
{
    TestList list(false);
    list.setObject(list.mFirst);
    EXPECT_EQ(list.getObject(), list.mFirst) << "setting what is there already";
    list.setObject(new TestItem(2));
    EXPECT_EQ(list.numbers(), "203");
    EXPECT_EQ(sLive, 2) << "the old one is gone";

    list.remove(list.mLast);
    EXPECT_EQ(sLive, 2) << "the caller's now";
    delete list.mLast;
    list.setCount(2);
    EXPECT_EQ(list.numbers(), "00");
    EXPECT_EQ(sLive, 0);
    list.addLast(new TestItem);
}

TEST_F(ObjectListTest, ComesBackWithItsGaps)
{
    TestList source(false);
    const std::string document = save(source);
    EXPECT_EQ(save(source), document);
    EXPECT_NE(document.find(quoted("<ObjectList typeinfo='ObjectList' id='1' list_count='3' stable='true' >\n"
                                   "\t<element0 typeinfo='TestItem' id='2' stable='false' >")),
              std::string::npos);
    EXPECT_EQ(document.find("element1"), std::string::npos) << "a null has no tag";

    TestList target(false);
    target.setCount(0);
    EXPECT_EQ(load(target, document), "");
    EXPECT_EQ(target.numbers(), "103");
}

TEST_F(ObjectListTest, StableContentsAreNeverReadBack)
{
    TestList list(true);
    const std::string document = save(list);
    list.mFirst->mNumber = 5;
    EXPECT_EQ(load(list, document), "TypeID mismatch.\nTypeID mismatch.\n");
    EXPECT_EQ(list.numbers(), "503");
    EXPECT_EQ(list.load("list_count='3'", "<element0 /><element1 id='1' />"),
              "element0 id not found.\nContent is NULL.\n");
    EXPECT_EQ(list.load("list_count='2'", ""), "Object count mismatch.\n");
    delete list.mFirst;
    delete list.mLast;
}

TEST_F(ObjectListTest, ToleratesHostileDocuments)
{
    const struct
    {
        const char* count;
        const char* elements;
        const char* trace;
        const char* numbers;
    } rows[] = {
        {"", "", "count not found.\n", ""},
        {"list_count='x'", "", "count not found.\n", ""},
        {"list_count='-2'", "", "count not found.\n", ""},
        {"list_count='65536'", "", "count not found.\n", ""},
        {"list_count='99999999999999999999'", "", "count not found.\n", ""},
        {"list_count='2'", "<element0 typeinfo='TestItem' />", "element0 id not found.\n", "00"},
        {"list_count='1'", "<element0 typeinfo='TestItem' id='0' />", "element0 id not found.\n", "0"},
        {"list_count='1'", "<element0 typeinfo='Nobody' id='1' />", "typeinfo not found.\n", "0"},
        {"list_count='1'", "<element0 id='1' />", "typeinfo not found.\n", "0"},
        {"list_count='1'", "<element0 typeinfo='System' id='1' />", "typeinfo not found.\n", "0"},
        {"list_count='1'", "<element2 typeinfo='TestItem' id='1' />", "", "0"},
    };
    for (const auto& row : rows)
    {
        TestList list(false);
        EXPECT_EQ(list.load(row.count, row.elements), row.trace) << row.count << row.elements;
        EXPECT_EQ(list.numbers(), row.numbers);
    }
}

TEST_F(ObjectListTest, KnownElementsAreNotFilledTwice)
{
    const std::string first =
        "<element0 typeinfo='TestItem' id='1' ><number type='s32' count='0' value='4' /></element0>";
    TestList list(false);
    EXPECT_EQ(list.load("list_count='2'", first + "<element1 id='1' />"), "Property number not found.\n");
    EXPECT_EQ(list.numbers(), "44");
    list.remove(list.begin());

    EXPECT_EQ(
        list.load("list_count='2'", first + "<element1 id='1' ><number type='s32' count='0' value='5' /></element1>"),
        "");
    EXPECT_EQ(list.numbers(), "44");
    list.remove(list.begin());
}

TEST_F(ObjectListTest, ShowsItsElementsAsProperties)
{
    TestList list(false);
    PropertyList properties;
    list.makePropertyList(properties);
    std::string names;
    for (PropertyBase* property : properties)
        names += std::string(property->getName()) + ",";
    EXPECT_EQ(names, "count,stable contents,index,member,index,member,index,member,");

    properties.find("index", 8)->setByType(2u);
    EXPECT_EQ(properties.find("member", 21)->getByType<ObjectBase*>(), list.mLast);
    properties.find("count", 8)->setByType(5u);
    EXPECT_EQ(list.numbers(), "00000");
}

TEST(ObjectListDeathTest, StopsOnMisuse)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    ObjectList list;
    EXPECT_DEATH(list.getObject(), "Index overflow\\.");
    list.addLast(nullptr);
    EXPECT_DEATH(list.setContentStability(false), "List is not empty\\.");
}
