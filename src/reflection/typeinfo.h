#pragma once

class ObjectBase;

// What a record says about instances; only the browser of types reads it.
enum class eTypeAttribute : unsigned int
{
    None = 0,
    Abstract = 1,
    Singleton = 2,
};

// The run-time record of a reflected class: its name, its id, its place in the tree of classes. Records are objects
// of static storage that register themselves before main, in any order. After that the database is only read, by any
// thread.
class TypeInfo
{
public:
    static constexpr unsigned int NoBase = 0xFFFFFFFF;

    // `baseName` may be null, and may name a record that comes later.
    TypeInfo(const char* name, const char* baseName, unsigned int attribute);

    // The order of the table of virtual operations is fixed: newInstance() stands first.
    virtual ObjectBase* newInstance() const;

    // The first record destroyed takes the database away.
    virtual ~TypeInfo();

    TypeInfo(const TypeInfo&) = delete;
    TypeInfo& operator=(const TypeInfo&) = delete;

    // Null when there is no such record. A record of the name's id with another name breaks the database's contract.
    static TypeInfo* find(unsigned int id);
    static TypeInfo* find(const char* name);

    // For names out of files, which may be made to collide: null then, too.
    static TypeInfo* findForeign(const char* name);

    // True for the record itself and each of its ancestors.
    bool isDerivedFrom(const TypeInfo* other) const;
    bool isDerivedFrom(const TypeInfo& other) const { return isDerivedFrom(&other); }
    bool isDerivedFrom(unsigned int id) const { return isDerivedFrom(find(id)); }
    bool isDerivedFrom(const char* name) const { return isDerivedFrom(find(name)); }

    unsigned int getID() const { return mID; }
    const char* getName() const { return mpName; }
    TypeInfo* getBase() const { return mpBase; }

    // The newest child, and the next child of the same parent.
    TypeInfo* getOffshoot() const { return mpOffshoot; }
    TypeInfo* getLoop() const { return mpLoop; }
    unsigned int getAttribute() const { return mAttribute; }

    // By order of registration; the index is not checked.
    static TypeInfo* getTypeInfo(unsigned int index);
    static unsigned int getDataBaseSize();

private:
    static void prepareDataBase(const char* name);

    void attachTo(const char* baseName);
    void adopt();
    void addOffshoot(TypeInfo* child);

    unsigned int mID;
    const char* mpName;
    TypeInfo* mpBase;
    TypeInfo* mpOffshoot;
    TypeInfo* mpLoop;
    unsigned int mBaseID;
    unsigned int mAttribute;

    static TypeInfo** mpDataBase;
    static TypeInfo** mpDataBasePtr;
    static char* mpNameBuffer;
    static char* mpNameBufferPtr;
};
