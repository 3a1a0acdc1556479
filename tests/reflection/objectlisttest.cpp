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

TEST_F(ObjectListTest, StableContentsAreNeverReadBack)
{
    TestList list(true);
    const std::string document = save(list);
    list.mFirst->mNumber = 5;
    EXPECT_EQ(load(list, document) + list.numbers(), "TypeID mismatch.\nTypeID mismatch.\n503");
    EXPECT_EQ(list.load("list_count='3'", "<element1 />"), "element1 id not found.\nContent is NULL.\n");
    EXPECT_EQ(list.load("list_count='2'", ""), "Object count mismatch.\n");
    delete list.mFirst;
    delete list.mLast;
}

TEST_F(ObjectListTest, ToleratesHostileDocuments)
{
    const char* const rows[][4] = {
        {"", "", "count not found.\n", ""},
        {"list_count='-2'", "", "count not found.\n", ""},
        {"list_count='65536'", "", "count not found.\n", ""},
        {"list_count='1'", "<element0 typeinfo='TestItem' id='0' />", "element0 id not found.\n", "0"},
        {"list_count='1'", "<element0 typeinfo='System' id='1' />", "typeinfo not found.\n", "0"},
    };
    for (const auto& [count, elements, trace, numbers] : rows)
    {
        TestList list(false);
        EXPECT_EQ(list.load(count, elements), trace) << count << elements;
        EXPECT_EQ(list.numbers(), numbers);
    }
}

TEST_F(ObjectListTest, AFewTagsDoNotClaimTheWholeMemory)
{
    MemoryTextStream stream("<a list_count=\"65535\"><element0/></a>");
    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream) && reader.openTag("a"));
    TraceCapture traces;
    for (unsigned int size : {65535u, 0u})
    {
        ObjectList list;
        list.setContentStability(false);
        list.deserialize(&reader);
        EXPECT_EQ(list.size(), size);
    }
    EXPECT_EQ(traces.take(), "element0 id not found.\ncount not found.\n");
}

TEST_F(ObjectListTest, KnownElementsAreNotFilledTwice)
{
    const std::string number = "<number type='s32' count='0' value='4' />";
    const std::string first = "<element0 typeinfo='TestItem' id='1' >" + number + "</element0>";
    TestList list(false);
    EXPECT_EQ(list.load("list_count='2'", first + "<element1 id='1' />"), "Property number not found.\n");
    list.remove(list.begin());
    EXPECT_EQ(list.load("list_count='2'", first + "<element1 id='1' ><number /></element1>"), "");
    EXPECT_EQ(list.numbers(), "44");
    list.remove(list.begin());
}
