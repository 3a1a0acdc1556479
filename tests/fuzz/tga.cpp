#include "resource/textureresourcetga.h"
#include "tests/fuzz/support/fuzzpicture.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::runPicture<TextureResourceTGA>(data, size);
    return 0;
}
