#include "resource/textureresourcebmp.h"
#include "tests/fuzz/support/fuzzpicture.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    fuzz::runPicture<TextureResourceBMP>(data, size);
    return 0;
}
