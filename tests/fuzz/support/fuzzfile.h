#pragma once

#include "application/systemmanager.h"
#include "io/stream.h"
#include "render/rendersystem.h"
#include "resource/resourcebase.h"
#include "tests/support/headlesssystems.h"

#include <cstdlib>

// What the fuzzers of loaders share: one headless application for the process, and files in its data directory.
namespace fuzz
{
inline HeadlessSystems& getSystems()
{
    static HeadlessSystems systems;
    return systems;
}

inline void require(bool condition)
{
    if (!condition)
        abort();
}

// A resource of its class filled from that file, or null when it is refused.
template <typename T, typename FileType>
Held<T> load(const char* name)
{
    Held<T> resource(new T);
    FileType stream(getSystems().getFile(name).c_str(), FileStream::Read);
    if (stream.eof() || !resource->load(stream))
        resource.reset();
    return resource;
}

// What a resource was filled from it must be able to write, through one of its operations.
template <typename FileType>
void write(ResourceBase& resource, bool (ResourceBase::*operation)(Stream&), const char* name)
{
    FileType stream(getSystems().getFile(name).c_str(), FileStream::Write);
    require((resource.*operation)(stream));
}

// A frame goes by, in which released textures disappear.
inline void runFrame()
{
    SystemManager::getInstance()->preprocess();
    SystemManager::getInstance()->update();
    SystemManager::getInstance()->postprocess();
    RenderSystem::getInstance()->executeCommand();
}
}
