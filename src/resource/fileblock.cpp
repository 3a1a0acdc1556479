#include "resource/fileblock.h"

#include "foundation/dev.h"
#include "io/stream.h"

FileBlock::FileBlock(Stream& stream)
{
    if (stream.getType() == Stream::BinaryFile)
        read(static_cast<BinaryFileStream&>(stream));
}

void FileBlock::read(BinaryFileStream& stream)
{
    const unsigned int length = stream.getLength();
    if (length == 0)
        return;

    mBlock.emplace(length);
    if (!*mBlock)
        DEV_TRACE("%s is too large to be loaded.\n", stream.getFullPath().c_str());
    else if (stream.read(mBlock->get(), length) == length)
        mView = ByteView(mBlock->get(), length);
}
