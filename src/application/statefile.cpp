#include "application/statefile.h"

#include "foundation/autostring.h"
#include "foundation/dev.h"
#include "io/documentwriter.h"
#include "io/stream.h"
#include "io/xmlreader.h"
#include "reflection/objectbase.h"

#include <cstdio>

void StateFile::restore(ObjectBase& application, const AutoString& path)
{
    TextFileStream stream(path.c_str(), FileStream::Read);
    if (stream.eof())
        return;

    XmlReader reader;
    if (reader.load(&stream))
        reader.read(&application, application.getTypeInfo()->getName());
    else
        std::rename(path.c_str(), (path + ".bad").c_str());
}

bool StateFile::save(ObjectBase& application, const AutoString& path)
{
    const bool saved = DocumentWriter::write(&application, true, path.c_str(), DocumentWriter::ePrevious::Drop);
    if (!saved)
        DEV_TRACE("TestApp : the state of the systems is not saved.\n");
    return saved;
}
