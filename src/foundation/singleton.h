#pragma once

#include "foundation/dev.h"

#include <utility>

// The one instance of a class. The class makes itself known by constructing this base, which asserts a second one;
// the class passes the assertion's text.
template <typename T>
class Singleton
{
public:
    // Makes the instance, or returns the present one.
    template <typename... Arguments>
    static T* create(Arguments&&... arguments)
    {
        return mpInstance ? mpInstance : new T(std::forward<Arguments>(arguments)...);
    }

    // Null before create() and after the end.
    static T* getInstance() { return mpInstance; }

    Singleton(const Singleton&) = delete;
    Singleton& operator=(const Singleton&) = delete;

protected:
    explicit Singleton(const char* alreadyInstanced)
    {
        if (mpInstance)
            dev_assert(alreadyInstanced, __FILE__, __LINE__);
        mpInstance = static_cast<T*>(this);
    }

    ~Singleton()
    {
        if (mpInstance == static_cast<T*>(this))
            mpInstance = nullptr;
    }

    static void forgetInstance() { mpInstance = nullptr; }

private:
    static inline T* mpInstance = nullptr;
};
