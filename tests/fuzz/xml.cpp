#include "io/xmlreader.h"
#include "tests/support/plainxmlreader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    MemoryTextStream stream(text);
    const bool wellFormed = XmlReader::isWellFormed(&stream);
    if (wellFormed != PlainXmlReader(text).readAll().empty())
        __builtin_trap();
    if (wellFormed)
    {
        XmlReader reader;
        reader.parse(&stream);
    }
    return 0;
}
