#pragma once

#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"
#include "tests/support/memorytextstream.h"
#include "tests/support/tracecapture.h"

#include <string>

// The document of an object, as a file would hold it.
inline std::string save(ObjectBase& object)
{
    XmlWriter writer(object.getTypeInfo()->getName());
    object.serialize(&writer, true, 0);
    MemoryTextStream stream;
    writer.write(&stream);
    return stream.getText();
}

// Fills the object from a document and returns what was traced.
inline std::string load(ObjectBase& object, const std::string& document)
{
    TraceCapture traces;
    MemoryTextStream stream(document);
    XmlReader reader;
    if (!reader.load(&stream))
        return "malformed: " + traces.take();
    reader.read(&object, object.getTypeInfo()->getName());
    return traces.take();
}
