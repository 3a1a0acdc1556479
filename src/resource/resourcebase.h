#pragma once

#include "foundation/autostring.h"
#include "foundation/referenceobject.h"
#include "reflection/reflect.h"

#include <cstddef>

class AllocatorBase;
class Stream;

// A named, shared, reference-counted piece of data that lives in a file below "intermediate/" (a source form) or
// "native/" (a compact form made for loading). What is registered in ResourceSystem always has a path and with it
// the hash that the registry sorts by; the path never changes once it is set.
class ResourceBase : public ReferenceObject
{
    REFLECTED(ResourceBase)

public:
    // Bits of the attribute, set by each class in its constructor.
    static constexpr unsigned int Intermediate = 1;
    static constexpr unsigned int Native = 2;
    static constexpr unsigned int BinaryIntermediate = 4;

    ResourceBase() = default;
    ~ResourceBase() override;

    // Reads the whole file; on success the path is set with FileStream::getPath() unless there is one already.
    // Files come from the user: whatever is wrong with them is traced and answered with false.
    [[nodiscard]] virtual bool load(Stream& stream);
    [[nodiscard]] virtual bool save(Stream& stream);
    // Writes the content of the native file; for intermediate classes.
    [[nodiscard]] virtual bool convert(Stream& stream);

    // Without the dot, null for a class that has no file of its own.
    virtual const char* getExtension() const;
    // The class that can produce this class's native file.
    virtual const TypeInfo* getIntermediateType() const;
    // Further such classes for the file dialogs, null behind the last one.
    virtual const TypeInfo* getExtraIntermediateType(unsigned int index) const;
    virtual const TypeInfo* getNativeType() const;
    // The row of a file dialog: extension, "|", description.
    virtual const char* getFilter() const;

    const AutoString& getPath() const { return mPath; }
    // 0, which no path has in the registry, until a path is set.
    unsigned int getHash() const { return mHash; }
    void setPath(const AutoString& path);

    unsigned int getAttribute() const { return mAttribute; }
    void setAttribute(unsigned int attribute) { mAttribute = static_cast<unsigned short>(attribute); }

    // Modified: there are unsaved changes. Updated: changed in this frame, cleared by the next ResourceSystem::update.
    // Whoever mirrors the data compares the revision as well, since a reader may sleep through the updated flag.
    void setModify();
    void clearModify();
    void clearUpdate();
    bool isModified() const { return (mFlag & Modified) != 0; }
    bool isUpdated() const { return (mFlag & Updated) != 0; }
    unsigned int getRevision() const { return mRevision; }

    // One allocator for the objects and the bulk data of all resource classes; the global heap until one is set.
    static void setAllocator(AllocatorBase* allocator);
    static void* allocate(unsigned int size) noexcept;
    static void deallocate(void* block) noexcept;

    // Whether documents may ask for more of that memory.
    static bool hasRoom();

    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block) noexcept;

protected:
    // For changes that throw data away without being an edit.
    void raiseRevision() { ++mRevision; }

private:
    static constexpr unsigned short Modified = 1;
    static constexpr unsigned short Updated = 2;

    static AllocatorBase* mpAllocator;

    unsigned short mAttribute = 0;
    unsigned short mFlag = 0;
    AutoString mPath;
    unsigned int mHash = 0;
    unsigned int mRevision = 0;
};
