#include "resource/resourcesystem.h"

#include "application/application.h"
#include "application/systemlock.h"
#include "foundation/allocator.h"
#include "foundation/autostring.h"
#include "foundation/dev.h"
#include "foundation/utils.h"
#include "io/stream.h"
#include "render/rendersystem.h"
#include "resource/loadmark.h"
#include "resource/resourcebase.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>

REFLECT(ResourceSystem, eTypeAttribute::Singleton, "System");

namespace
{
constexpr unsigned int RegistryCapacity = 1024;
constexpr unsigned int LoadQueueCapacity = 256;
constexpr unsigned int LoadThreadStackSize = 4096;
constexpr unsigned int LoadIntervalMilliseconds = 10;

// A name below the directory of its kind: nothing that is empty, starts at the root or climbs out.
bool isLogicalName(const char* path)
{
    if (!path || !*path || *path == '/')
        return false;
    for (const char* component = path; component;)
    {
        const char* end = std::strchr(component, '/');
        const std::size_t length = end ? static_cast<std::size_t>(end - component) : std::strlen(component);
        if (length == 2 && component[0] == '.' && component[1] == '.')
            return false;
        component = end ? end + 1 : nullptr;
    }
    return true;
}

bool isIntermediate(const ResourceBase& resource)
{
    return (resource.getAttribute() & ResourceBase::Intermediate) != 0;
}

const char* getDirectory(const ResourceBase& resource)
{
    const Application* application = Application::getInstance();
    return isIntermediate(resource) ? application->getIntermediatePath() : application->getNativePath();
}

// A logical name as the path that identifies a resource and as the file behind it.
struct sResourceFile
{
    sResourceFile(const ResourceBase& resource, const char* name)
    {
        const AutoString tail = AutoString(name) + "." + resource.getExtension();
        key = AutoString(isIntermediate(resource) ? "intermediate/" : "native/") + tail;
        file = AutoString(getDirectory(resource)) + tail;
        hash = key.hash();
    }

    AutoString key;
    AutoString file;
    unsigned int hash;
};

// Null unless the type is a concrete class of resources whose files have an extension.
ResourceBase* makeInstance(const TypeInfo* type)
{
    if (!type || !type->isDerivedFrom(ResourceBase::getStaticTypeInfo()))
        return nullptr;
    ResourceBase* resource = static_cast<ResourceBase*>(type->newInstance());
    if (!resource || resource->getExtension())
        return resource;
    resource->release();
    return nullptr;
}

template <typename FileStreamType>
bool loadFile(ResourceBase& resource, const AutoString& file)
{
    FileStreamType stream(file.c_str(), FileStream::Read);
    return !stream.eof() && resource.load(stream);
}

bool loadText(ResourceBase& resource, const AutoString& file)
{
    return loadFile<TextFileStream>(resource, file);
}

// A binary stream does not flag a missing file; the load itself finds that out.
bool loadBinary(ResourceBase& resource, const AutoString& file)
{
    return loadFile<BinaryFileStream>(resource, file);
}

bool convertFromIntermediate(ResourceBase& intermediate, const AutoString& file)
{
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(file.c_str()).parent_path(), error);
    BinaryFileStream stream(file.c_str(), FileStream::Write);
    return intermediate.convert(stream) && stream.flush();
}

// Builds the native file and reads it back; a file that did not come about whole must not block later loads.
bool buildNative(ResourceBase& native, ResourceBase& intermediate, const AutoString& file)
{
    if (convertFromIntermediate(intermediate, file) && loadBinary(native, file))
        return true;
    std::remove(file.c_str());
    return false;
}

// The registry knows nothing under 0, a hash that a file may have been named for.
bool isLoadable(const sResourceFile& file, const LoadMark& mark)
{
    return file.hash != 0 && !mark.isNested();
}

ResourceBase* refuse(ResourceBase* resource, const AutoString& key)
{
    DEV_TRACE("Resource %s loading fail.\n", key.c_str());
    resource->release();
    return nullptr;
}
}

ResourceSystem::ResourceSystem()
    : Singleton("ResourceSystem already instanced."),
      mRegistry(RegistryCapacity),
      mLoadThread(this),
      mLoadAllocator(sizeof(sLoadData), LoadQueueCapacity, "LoadQueue", AllocatorBase::getGlobalAllocator(), false)
{
    // A ring keeps one place free.
    mLoadQueue.reserve(LoadQueueCapacity + 1);
    setProcessEnable(false, true, false);

    // On purpose: RenderSystem does not exist yet and the entry is null. An entry that is always met still puts this
    // system behind those without any, which is what makes RenderSystem, and its leak check, the last to go.
    addDestroyDependency(RenderSystem::getInstance());
    collectResourceTypes();
    DEV_TRACE("ResourceSystem : start.\n");

    mLoadThread.setPriority(Thread::ePriority::Higher);
    mLoadThread.run();
}

ResourceSystem::~ResourceSystem()
{
    mLoadThread.terminate();
    mLoadThread.waitForTermination();
    while (sLoadData* data = pop())
        releaseLoadData(data);
    for (ResourceBase* resource : mRegistry)
    {
        const char* path = resource->getPath().c_str();
        DEV_TRACE("Resource leak.(%s)\n", path ? path : "");
    }
    DEV_TRACE("ResourceSystem : end.\n");
}

void ResourceSystem::destroy()
{
    delete this;
}

ResourceBase* ResourceSystem::createResource(const char* path, const TypeInfo* type)
{
    const SystemLock lock(*this);
    return path ? createResourceInternal(path, type) : createNewResource(type);
}

ResourceBase* ResourceSystem::findResource(const char* path)
{
    const SystemLock lock(*this);
    ResourceBase* resource = mRegistry.find(Utils::hash(path));
    if (resource)
        resource->addRef();
    return resource;
}

void ResourceSystem::createResourceAsync(const char* path, const TypeInfo* type, LoadCallback* callback)
{
    const SystemLock lock(*this);
    void* block = mLoadAllocator.allocate(sizeof(sLoadData), alignof(sLoadData));
    if (!block)
        dev_assert("Queue overflow.", __FILE__, __LINE__);
    mLoadQueue.push(new (block) sLoadData{path, type, callback});
}

void ResourceSystem::cancel(const char* path, TypeInfo* type)
{
    const SystemLock lock(*this);
    for (sLoadData* data : mLoadQueue)
        if (data->type == type && AutoString::isEqual(data->path, path))
            data->path = nullptr;
}

void ResourceSystem::cancelAll()
{
    const SystemLock lock(*this);
    for (sLoadData* data : mLoadQueue)
        data->path = nullptr;
}

// The extension is an operation of instances, so each class in turn makes one for a moment.
const TypeInfo* ResourceSystem::getTypeInfoByExtension(const char* extension) const
{
    if (!extension)
        return nullptr;
    for (const TypeInfo* type : mResourceType)
    {
        ResourceBase* resource = makeInstance(type);
        if (!resource)
            continue;
        const bool matches = AutoString::isEqual(resource->getExtension(), extension);
        resource->release();
        if (matches)
            return type;
    }
    return nullptr;
}

void ResourceSystem::removeResource(unsigned int hash)
{
    const SystemLock lock(*this);
    mRegistry.remove(hash);
}

void ResourceSystem::removeResource(const ResourceBase* resource)
{
    const SystemLock lock(*this);
    if (mRegistry.find(resource->getHash()) == resource)
        mRegistry.remove(resource->getHash());
}

void ResourceSystem::update()
{
    const SystemLock lock(*this);
    for (ResourceBase* resource : mRegistry)
        if (resource->isUpdated())
            resource->clearUpdate();
}

void ResourceSystem::collectResourceTypes()
{
    for (unsigned int i = 0; i < TypeInfo::getDataBaseSize(); ++i)
        if (TypeInfo* type = TypeInfo::getTypeInfo(i); type->isDerivedFrom(ResourceBase::getStaticTypeInfo()))
            mResourceType.addLast(type);
}

ResourceBase* ResourceSystem::createNewResource(const TypeInfo* type)
{
    ResourceBase* resource = makeInstance(type);
    if (!resource)
        return nullptr;

    // On purpose: there is no dot between the name and the extension.
    AutoString name("newfile");
    AutoString path = AutoString(getDirectory(*resource)) + name + resource->getExtension();
    for (int counter = 0; Utils::isFileExist(path.c_str()) || mRegistry.find(path.hash()); ++counter)
    {
        name.format("newfile%d", counter);
        path = AutoString(getDirectory(*resource)) + name + resource->getExtension();
    }
    resource->setPath(path);
    mRegistry.add(resource, resource->getHash());
    return resource;
}

ResourceBase* ResourceSystem::createResourceInternal(const char* path, const TypeInfo* type)
{
    if (!isLogicalName(path))
        return nullptr;
    ResourceBase* resource = makeInstance(type);
    if (!resource)
        return nullptr;
    return isIntermediate(*resource) ? loadIntermediate(resource, path) : loadNative(resource, path);
}

ResourceBase* ResourceSystem::loadIntermediate(ResourceBase* resource, const char* path)
{
    const sResourceFile source(*resource, path);
    if (ResourceBase* registered = shareRegistered(resource, source.hash))
        return registered;

    const LoadMark mark(source.hash);
    const bool binary = (resource->getAttribute() & ResourceBase::BinaryIntermediate) != 0;
    if (!isLoadable(source, mark) || !(binary ? loadBinary : loadText)(*resource, source.file))
        return refuse(resource, source.key);
    DEV_TRACE("Resource %s loading success.\n", source.key.c_str());
    return registerLoaded(resource, source.hash);
}

ResourceBase* ResourceSystem::loadNative(ResourceBase* resource, const char* path)
{
    const sResourceFile native(*resource, path);
    if (ResourceBase* registered = shareRegistered(resource, native.hash))
        return registered;

    const LoadMark mark(native.hash);
    if (!isLoadable(native, mark))
        return refuse(resource, native.key);
    if (loadBinary(*resource, native.file))
        return registerLoaded(resource, native.hash);

    ResourceBase* source = makeInstance(resource->getIntermediateType());
    if (!source)
    {
        resource->release();
        return nullptr;
    }
    ResourceBase* intermediate = loadIntermediate(source, path);
    // On purpose: without a source the caller gets the empty instance and asks it for its data.
    if (!intermediate)
        return resource;
    const bool built = buildNative(*resource, *intermediate, native.file);
    intermediate->release();
    if (built)
        return registerLoaded(resource, native.hash);
    resource->release();
    return nullptr;
}

// The registered resource of that hash in exchange for the fresh instance; null, and nothing happens, if there is none.
ResourceBase* ResourceSystem::shareRegistered(ResourceBase* fresh, unsigned int hash)
{
    const SystemLock lock(*this);
    ResourceBase* registered = mRegistry.find(hash);
    if (!registered)
        return nullptr;
    registered->addRef();
    fresh->release();
    return registered;
}

// The other thread may have registered the same resource during the load; then that one is shared.
ResourceBase* ResourceSystem::registerLoaded(ResourceBase* resource, unsigned int hash)
{
    const SystemLock lock(*this);
    if (ResourceBase* registered = shareRegistered(resource, hash))
        return registered;
    mRegistry.add(resource, hash);
    return resource;
}

ResourceSystem::sLoadData* ResourceSystem::pop()
{
    const SystemLock lock(*this);
    return mLoadQueue.empty() ? nullptr : mLoadQueue.pop();
}

void ResourceSystem::loadQueued(const sLoadData& data)
{
    ResourceBase* resource = createResourceInternal(data.path, data.type);
    if (data.callback)
        (*data.callback)(resource);
    else if (resource)
        resource->release();
}

void ResourceSystem::releaseLoadData(sLoadData* data)
{
    const SystemLock lock(*this);
    delete data->callback;
    mLoadAllocator.deallocate(data);
}

ResourceSystem::LoadThread::LoadThread(ResourceSystem* system) : Thread(LoadThreadStackSize), mpSystem(system)
{
}

ResourceSystem::LoadThread::~LoadThread()
{
    terminate();
    waitForTermination();
}

void ResourceSystem::LoadThread::execute()
{
    while (!checkTerminateRequest())
    {
        if (sLoadData* data = mpSystem->pop())
        {
            if (data->path)
                mpSystem->loadQueued(*data);
            mpSystem->releaseLoadData(data);
        }
        Thread::sleep(LoadIntervalMilliseconds);
    }
}
