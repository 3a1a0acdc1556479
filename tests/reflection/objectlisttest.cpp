#include "reflection/objectlist.h"

#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "tests/support/documents.h"

#include <gtest/gtest.h>

namespace
{
int sLive = 0;

class TestItem : public ObjectBase
{
    REFLECTED(TestItem)

public:
    explicit TestItem(int number = 0) : mNumber(number) { ++sLive; }
    ~TestItem() override
    {
        mNumber = -1;
        --sLive;
    }

    void makePropertyList(PropertyList& list) override
    {
        list.addReference("number", mNumber);
        list.add(new ObjectProperty("items", &mItems));
    }

    int mNumber;
    ObjectList mItems;
};

REFLECT(TestItem, eTypeAttribute::None, "ObjectBase");

// 0 for null.
std::string numbers(const ObjectList& list)
{
    std::string text;
    for (ObjectBase* object : list)
        text += std::to_string(object ? object->cast<TestItem>()->mNumber : 0) + " ";
    return text;
}

std::string wrap(const std::string& count, const std::string& elements)
{
    return "<ObjectList typeinfo=\"ObjectList\" id=\"9\" " + count + " stable=\"true\" >" + elements + "</ObjectList>";
}
}

class ObjectListTest : public testing::Test
{
protected:
    ~ObjectListTest() override { EXPECT_EQ(sLive, 0); }

    void fill(ObjectList& list)
    {
        list.addLast(new TestItem(1));
        list.addLast(nullptr);
        list.addLast(new TestItem(3));
    }
};

TEST_F(ObjectListTest, OwnsItsElementsOnlyWithUnstableContents)
{
    TestItem first(1);
    TestItem last(3);
    {
        ObjectList stable;
        stable.addLast(&last);
        stable.addFirst(&first);
        stable.setCount(2);
        EXPECT_EQ(numbers(stable), "0 0 ");
        stable.setObject(&first);
        stable.setObject(&last);
    }
    EXPECT_EQ(first.mNumber + last.mNumber, 4) << "both alive";

    ObjectList owned;
    owned.setContentStability(false);
    fill(owned);
    EXPECT_EQ(sLive, 4);
    ObjectBase* kept = owned[0];
    owned.setObject(kept);
    EXPECT_EQ(owned.getObject(), kept);
    owned.setObject(new TestItem(2));
    EXPECT_EQ(numbers(owned), "2 0 3 ");
    EXPECT_EQ(sLive, 4) << "the old one is gone";

    ObjectBase* removed = owned[2];
    owned.remove(removed);
    EXPECT_EQ(sLive, 4) << "the caller's now";
    delete removed;
    owned.setCount(2);
    EXPECT_EQ(sLive, 2);
    EXPECT_EQ(numbers(owned), "0 0 ");
}

TEST_F(ObjectListTest, ComesBackWithItsGapsAndNestedLists)
{
    ObjectList source;
    source.setContentStability(false);
    fill(source);
    ObjectList& inner = source[0]->cast<TestItem>()->mItems;
    inner.addLast(source[2]);
    const std::string document = save(source);
    EXPECT_EQ(save(source), document);
    EXPECT_NE(document.find("<ObjectList typeinfo=\"ObjectList\" id=\"1\" list_count=\"3\" stable=\"true\" >\n"
                            "\t<element0 typeinfo=\"TestItem\" id=\"2\" stable=\"false\" >"),
              std::string::npos);
    EXPECT_EQ(document.find("element1"), std::string::npos) << "a null has no tag";

    ObjectList target;
    target.setContentStability(false);
    target.addLast(new TestItem(9));
    EXPECT_EQ(load(target, document), "Object count mismatch.\n") << "of the inner list, which is stable";
    EXPECT_EQ(numbers(target), "1 0 3 ");
}

TEST_F(ObjectListTest, StableContentsAreNeverReadBack)
{
    TestItem first(1);
    TestItem second(2);
    ObjectList list;
    list.addLast(&first);
    list.addLast(&second);
    const std::string document = save(list);
    first.mNumber = 5;
    EXPECT_EQ(load(list, document), "TypeID mismatch.\nTypeID mismatch.\n");
    EXPECT_EQ(numbers(list), "5 2 ");

    list.setCount(2);
    EXPECT_EQ(load(list, document), "Content is NULL.\nContent is NULL.\n");
    EXPECT_EQ(load(list, wrap("list_count=\"2\"", "<element1 />")), "element1 id not found.\nContent is NULL.\n");
    list.setCount(1);
    EXPECT_EQ(load(list, document), "Object count mismatch.\n");
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
        {"list_count=\"x\"", "", "count not found.\n", ""},
        {"list_count=\"-2\"", "", "count not found.\n", ""},
        {"list_count=\"65536\"", "", "count not found.\n", ""},
        {"list_count=\"99999999999999999999\"", "", "count not found.\n", ""},
        {"list_count=\"2\"", "<element0 typeinfo=\"TestItem\" />", "element0 id not found.\n", "0 0 "},
        {"list_count=\"1\"", "<element0 typeinfo=\"TestItem\" id=\"0\" />", "element0 id not found.\n", "0 "},
        {"list_count=\"1\"", "<element0 typeinfo=\"Nobody\" id=\"1\" />", "typeinfo not found.\n", "0 "},
        {"list_count=\"1\"", "<element0 id=\"1\" />", "typeinfo not found.\n", "0 "},
        {"list_count=\"1\"", "<element0 typeinfo=\"System\" id=\"1\" />", "typeinfo not found.\n", "0 "},
        {"list_count=\"1\"", "<element2 typeinfo=\"TestItem\" id=\"1\" />", "", "0 "},
    };
    for (const auto& row : rows)
    {
        ObjectList list;
        list.setContentStability(false);
        fill(list);
        EXPECT_EQ(load(list, wrap(row.count, row.elements)), row.trace) << row.count << row.elements;
        EXPECT_EQ(numbers(list), row.numbers);
    }
}

TEST_F(ObjectListTest, KnownElementsAreNotFilledTwice)
{
    const std::string number = "<number type=\"s32\" count=\"0\" value=\"4\" />";
    const std::string first = "<element0 typeinfo=\"TestItem\" id=\"1\" >" + number + "</element0>";
    ObjectList list;
    list.setContentStability(false);
    EXPECT_EQ(load(list, wrap("list_count=\"2\"", first + "<element1 id=\"1\" />")),
              "Property items not found.\nProperty number not found.\nProperty items not found.\n");
    EXPECT_EQ(numbers(list), "4 4 ");
    list.remove(list.begin());

    EXPECT_EQ(load(list, wrap("list_count=\"2\"", first + "<element1 id=\"1\" ><number type=\"s32\" count=\"0\" "
                                                          "value=\"5\" /></element1>")),
              "Property items not found.\n");
    EXPECT_EQ(numbers(list), "4 4 ");
    list.remove(list.begin());
}

TEST_F(ObjectListTest, ShowsItsElementsAsProperties)
{
    TestItem first(1);
    TestItem second(2);
    ObjectList list;
    list.addLast(&first);
    list.addLast(&second);

    PropertyList properties;
    list.makePropertyList(properties);
    std::string names;
    for (PropertyBase* property : properties)
        names += std::string(property->getName()) + ",";
    EXPECT_EQ(names, "count,stable contents,index,member,index,member,");

    properties.find("index", 8)->setByType(1u);
    EXPECT_EQ(properties.find("member", 21)->getByType<ObjectBase*>(), &second);
    properties.find("count", 8)->setByType(5u);
    EXPECT_EQ(list.size(), 5u);
}

TEST(ObjectListDeathTest, StopsOnMisuse)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    ObjectList list;
    EXPECT_DEATH(list.getObject(), "Index overflow\\.");
    list.addLast(nullptr);
    EXPECT_DEATH(list.setContentStability(false), "List is not empty\\.");
}
