#pragma once

#include "foundation/srect.h"
#include "render/drawstate.h"

class ResourceBase;
class Texture;
class UIPainter;

// A texture as a picture in an element.
class TexturePreview
{
public:
    // Null without a resource, and for one that is no picture or has none: documents can name any class.
    static Texture* getTexture(ResourceBase* resource);

    // The whole texture, stretched. Leaves the painter opaque.
    static void stretch(UIPainter* painter, const sRect& rect, Texture* texture, eBlendMode mode);

    // The whole texture on black; black alone for null.
    static void paint(UIPainter* painter, const sRect& rect, Texture* texture);

    // Opens a window that shows it.
    static void open(Texture* texture);
};
