#pragma once

#include "resource/textureresource.h"
#include "tests/fuzz/support/fuzzfile.h"

namespace fuzz
{
// A source picture either is refused or becomes a native file that loads.
template <typename Source>
void runPicture(const unsigned char* data, std::size_t size)
{
    getSystems().write("intermediate/fuzz", Bytes(data, data + size));
    if (const Held<Source> source = load<Source, BinaryFileStream>("intermediate/fuzz"))
    {
        write<BinaryFileStream>(*source, &ResourceBase::convert, "native/fuzz");
        require(load<TextureResource, BinaryFileStream>("native/fuzz") != nullptr);
    }
    runFrame();
}
}
