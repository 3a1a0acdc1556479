#include "resource/textureresource.h"
#include "tests/fuzz/support/fuzzfile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::getSystems().write("native/fuzz", Bytes(data, data + size));
    fuzz::load<TextureResource, BinaryFileStream>("native/fuzz");
    fuzz::runFrame();
    return 0;
}
