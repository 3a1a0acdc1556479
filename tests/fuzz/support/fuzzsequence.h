#pragma once

#include "sequencer/sequencerresource.h"
#include "tests/fuzz/support/fuzzfile.h"

namespace fuzz
{
// A sequence either is refused or plays, and the file that it saves loads again.
template <typename Resource, typename Player, typename FileType>
void runSequence(const unsigned char* data, std::size_t size)
{
    getSystems().write("intermediate/fuzz", Bytes(data, data + size));
    if (const Held<Resource> resource = load<Resource, FileType>("intermediate/fuzz"))
    {
        write<FileType>(*resource, &ResourceBase::save, "intermediate/saved");
        const Bytes saved = getSystems().read("intermediate/saved");
        const Held<Resource> again = load<Resource, FileType>("intermediate/saved");
        require(again != nullptr);
        write<FileType>(*again, &ResourceBase::save, "intermediate/saved");
        // Documents change on the way through text, native files do not.
        require(resource->getAttribute() != ResourceBase::Native || getSystems().read("intermediate/saved") == saved);

        Player player;
        player.setResource(resource.get());
        player.play();
        for (unsigned int i = 0; i < 16; ++i)
            player.update(sFixed(static_cast<float>(i) * 1.5f));
        player.seek(resource->getEndFrame() / 2);
        player.setResource(nullptr);
    }
    runFrame();
}
}
