#pragma once

// Marks a resource as being loaded by this thread for the length of a scope. A file may name other resources, which
// are loaded inside its own load; one that leads back to itself would never come to an end.
class LoadMark
{
public:
    explicit LoadMark(unsigned int hash) : mHash(hash), mpOuter(mpInnermost) { mpInnermost = this; }
    ~LoadMark() { mpInnermost = mpOuter; }

    LoadMark(const LoadMark&) = delete;
    LoadMark& operator=(const LoadMark&) = delete;

    // True if an outer load of this thread is about the same resource.
    bool isNested() const
    {
        const LoadMark* outer = mpOuter;
        while (outer && outer->mHash != mHash)
            outer = outer->mpOuter;
        return outer != nullptr;
    }

private:
    static inline thread_local const LoadMark* mpInnermost = nullptr;

    unsigned int mHash;
    const LoadMark* mpOuter;
};
