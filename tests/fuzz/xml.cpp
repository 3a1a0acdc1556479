#include "io/xmlreader.h"
#include "tests/support/memorytextstream.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    MemoryTextStream stream(std::string(reinterpret_cast<const char*>(data), size));
    XmlReader reader;
    if (reader.load(&stream) && stream.getRest() != 0)
        __builtin_trap();
    return 0;
}
