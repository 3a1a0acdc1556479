#pragma once

#include "resource/byteview.h"
#include "resource/temporaryblock.h"

#include <optional>

class BinaryFileStream;
class Stream;

// The whole content of a binary file for the length of a load. Empty when the stream is not a binary file, cannot be
// read to its end or is too large for the temporary memory; the last is traced.
class FileBlock
{
public:
    explicit FileBlock(Stream& stream);

    bool empty() const { return mView.size() == 0; }
    const ByteView& getView() const { return mView; }

private:
    void read(BinaryFileStream& stream);

    std::optional<TemporaryBlock> mBlock;
    ByteView mView;
};
