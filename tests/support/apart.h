#pragma once

#include <cerrno>
#include <string>

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

// Runs the work in a process of its own and returns how that ended.
template <typename Work>
int runApart(Work&& work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
        ;
    return status;
}

// In a process of its own: an empty file system of 64 KiB at `place`, which no other process sees. Permission bits stop
// no root, a file system that is full or read-only does. False when the user may not mount.
inline bool mountApart(const std::string& place)
{
    return unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", place.c_str(), "tmpfs", 0, "size=64k") == 0;
}

inline bool remountReadOnly(const std::string& place)
{
    return mount(nullptr, place.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}
