#pragma once

#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"
#include "tests/support/memorytextstream.h"
#include "tests/support/tracecapture.h"

#include <algorithm>
#include <string>

// A document as a test spells it: with single quotes for the sake of the C++ around it.
inline std::string quoted(std::string document)
{
    std::replace(document.begin(), document.end(), '\'', '"');
    return document;
}

// The document of an object, as a file would hold it.
inline std::string save(ObjectBase& object)
{
    XmlWriter writer(object.getTypeInfo()->getName());
    object.serialize(&writer, true, 0);
    MemoryTextStream stream;
    writer.write(&stream);
    return stream.getText();
}

// Fills the object from a document, which may have single quotes, and returns what was traced.
inline std::string load(ObjectBase& object, const std::string& document)
{
    TraceCapture traces;
    MemoryTextStream stream(quoted(document));
    XmlReader reader;
    if (!reader.load(&stream))
        return "malformed: " + traces.take();
    reader.read(&object, object.getTypeInfo()->getName());
    return traces.take();
}
