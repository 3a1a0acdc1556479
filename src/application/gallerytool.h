#pragma once

#include "tool/toolbase.h"

class SequencerResourceIntermediate;

// The smallest tool there can be: the menu "File" over a sequence, of which only the first and the last frame can be
// edited. Opening, saving and the questions about unsaved work are those of the editors.
class GalleryTool : public ToolBase
{
public:
    // Takes a reference of the resource, which may be null.
    explicit GalleryTool(ResourceBase* resource = nullptr);
    ~GalleryTool() override;

    // What is no sequence counts as null.
    void setResource(ResourceBase* resource);
    ResourceBase* getResource() const;

    // 0 without a resource, and then without effect.
    unsigned int getStartFrame() const;
    unsigned int getEndFrame() const;
    void setStartFrame(unsigned int frame);
    void setEndFrame(unsigned int frame);

private:
    SequencerResourceIntermediate* mpSequence = nullptr;
};
