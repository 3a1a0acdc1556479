#pragma once

#include "application/system.h"
#include "foundation/blockallocator.h"
#include "foundation/functor.h"
#include "foundation/map.h"
#include "foundation/multithread.h"
#include "foundation/queue.h"
#include "foundation/singleton.h"
#include "foundation/vector.h"

class ResourceBase;

// The registry of all loaded resources, their factory and the owner of the background load thread. A resource is
// asked for by its logical name: the path below the directory of its kind, without the extension. Whoever asks for
// the same name and class twice gets the same object.
class ResourceSystem : public System, public Singleton<ResourceSystem>
{
    REFLECTED(ResourceSystem)

public:
    using LoadCallback = FunctorIntermediate<ResourceBase*, void>;

    ResourceSystem();
    ~ResourceSystem() override;
    void destroy() override;

    // Loads synchronously; the result carries a reference for the caller. Null for a type that is no concrete
    // resource class, for a name that leads out of the directory or that is being loaded right now, and for a file
    // that cannot be read. A native resource with neither file nor source comes back empty and without a path.
    // A null name asks for a new resource under a free file name.
    [[nodiscard]] ResourceBase* createResource(const char* path, const TypeInfo* type);

    template <typename T>
    [[nodiscard]] T* createResource(const char* path)
    {
        return static_cast<T*>(createResource(path, T::getStaticTypeInfo()));
    }

    // The registered resource of that path, with a reference for the caller, or null. Nothing is loaded.
    [[nodiscard]] ResourceBase* findResource(const char* path);

    // Queues the load. `path` must live until the callback has run, which happens on the load thread with the
    // resource (and a reference to it) or null. The system owns the callback. At most 256 entries wait at a time.
    void createResourceAsync(const char* path, const TypeInfo* type, LoadCallback* callback);

    // A cancelled entry is dropped when its turn comes, without a callback; one being loaded is not cancelled.
    void cancel(const char* path, TypeInfo* type);
    void cancelAll();

    // The first resource class whose files have that extension (without the dot), or null.
    const TypeInfo* getTypeInfoByExtension(const char* extension) const;

    // Takes the entry out of the registry; an unknown hash does nothing. Any thread.
    void removeResource(unsigned int hash);
    // The same, but only if the entry is this very object.
    void removeResource(const ResourceBase* resource);

    void update() override;

private:
    struct sLoadData
    {
        const char* path; // Null once cancelled.
        const TypeInfo* type;
        LoadCallback* callback;
    };

    class LoadThread : public Thread
    {
    public:
        explicit LoadThread(ResourceSystem* system);
        ~LoadThread() override;

    private:
        void execute() override;

        ResourceSystem* mpSystem;
    };

    void collectResourceTypes();
    ResourceBase* createNewResource(const TypeInfo* type);

    // These take over the fresh instance; registered resources take its place.
    ResourceBase* createResourceInternal(const char* path, const TypeInfo* type);
    ResourceBase* loadIntermediate(ResourceBase* resource, const char* path);
    ResourceBase* loadNative(ResourceBase* resource, const char* path);
    ResourceBase* shareRegistered(ResourceBase* fresh, unsigned int hash);
    ResourceBase* registerLoaded(ResourceBase* resource, unsigned int hash);

    sLoadData* pop();
    void loadQueued(const sLoadData& data);
    void releaseLoadData(sLoadData* data);

    Vector<TypeInfo> mResourceType;
    Map<ResourceBase> mRegistry;
    LoadThread mLoadThread;
    Queue<sLoadData> mLoadQueue;
    BlockAllocator mLoadAllocator;
};
