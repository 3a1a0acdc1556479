#pragma once

#include "foundation/srect.h"

class ResourceBase;
class Texture;
class UIPainter;

// A texture as a picture in an element.
class TexturePreview
{
public:
    // Null without a resource, and for one that is no picture or has none: documents can name any class.
    static Texture* getTexture(ResourceBase* resource);

    // The whole texture, stretched; opaque, or transparent over black.
    static void paint(UIPainter* painter, const sRect& rect, Texture* texture);
    static void paintOverBlack(UIPainter* painter, const sRect& rect, Texture* texture);

    // Opens a window that shows it.
    static void open(Texture* texture);
};
