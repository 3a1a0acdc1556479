#pragma once

#include "application/system.h"

// Holds a system's lock for the length of a scope.
class SystemLock
{
public:
    explicit SystemLock(System& system) : mSystem(system) { mSystem.lock(); }
    ~SystemLock() { mSystem.unlock(); }

    SystemLock(const SystemLock&) = delete;
    SystemLock& operator=(const SystemLock&) = delete;

private:
    System& mSystem;
};
