#include "sequencer/liveobject.h"

#include "render/texture.h"
#include "resource/resourcebase.h"

void disposeObject(ObjectBase* object)
{
    if (!object)
        return;
    if (ResourceBase* resource = object->cast<ResourceBase>())
        resource->release();
    else if (Texture* texture = object->cast<Texture>())
        texture->release();
    else
        delete object;
}
