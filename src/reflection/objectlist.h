#pragma once

#include "foundation/list.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"

// A list of objects that can itself be a property. With stable contents, the way it starts, the elements belong to
// others and exist before loading. Without, the list owns its elements, deletes them and makes them when loading.
// Entries may be null. It is never copied.
class ObjectList : public ObjectBase
{
    REFLECTED(ObjectList)

public:
    // No document holds more elements; a larger count is taken for damage.
    static constexpr unsigned int MaximumLoadedCount = 65535;

    using Iterator = LinkIterator<ObjectBase>;
    using ReverseIterator = ReverseLinkIterator<ObjectBase>;

    ObjectList();
    ~ObjectList() override;

    ObjectList(const ObjectList&) = delete;
    ObjectList& operator=(const ObjectList&) = delete;

    // Only while the list is empty.
    void setContentStability(bool stable);
    bool isContentStable() const { return mContentStability; }

    // Empties the list, deleting elements it owns, and fills it with that many nulls.
    void setCount(unsigned int count);

    // The element that the "index" property selects; asserts an index past the end.
    ObjectBase* getObject() const;

    // Replaces it and deletes an owned old element.
    void setObject(ObjectBase* object);

    // The list itself. None of these deletes an element, whoever owns it.
    unsigned int size() const { return mObject.size(); }
    bool empty() const { return mObject.empty(); }
    void clear() { mObject.clear(); }
    void reserve(unsigned int count) { mObject.reserve(count); }
    ObjectBase* operator[](unsigned int index) const { return mObject[index]; }

    Iterator begin() const { return mObject.begin(); }
    Iterator end() const { return mObject.end(); }
    ReverseIterator rbegin() const { return mObject.rbegin(); }
    ReverseIterator rend() const { return mObject.rend(); }
    Iterator find(const ObjectBase* object) const { return mObject.find(object); }

    void addFirst(ObjectBase* object) { mObject.addFirst(object); }
    void addLast(ObjectBase* object) { mObject.addLast(object); }

    template <typename AnyIterator>
    void insertFront(AnyIterator place, ObjectBase* object)
    {
        mObject.insertFront(place, object);
    }

    template <typename AnyIterator>
    void insertBackFront(AnyIterator place, ObjectBase* object)
    {
        mObject.insertBackFront(place, object);
    }

    // By pointer, or by either iterator kind.
    template <typename Place>
    auto remove(Place place)
    {
        return mObject.remove(place);
    }

    template <typename AnyIterator>
    unsigned int getIndex(AnyIterator place) const
    {
        return mObject.getIndex(place);
    }

    void makePropertyList(PropertyList& list) override;
    void serialize(XmlWriter* writer, bool stable, unsigned int index) override;
    void deserialize(XmlReader* reader) override;

private:
    void deserializeStable(XmlReader* reader);
    void deserializeOwned(XmlReader* reader);

    template <typename Visitor>
    void forEachElementTag(XmlReader* reader, Visitor&& visitor);

    void deleteOwned();
    Iterator getSelected() const;

    List<ObjectBase> mObject;
    unsigned int mIndex = 0;
    bool mContentStability = true;
};
