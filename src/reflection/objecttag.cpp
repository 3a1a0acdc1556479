#include "reflection/objecttag.h"

#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"
#include "reflection/valuetext.h"

#include <cstdio>

unsigned int writeIdentity(XmlWriter* writer, ObjectBase* object)
{
    const unsigned int id = writer->getIdentity(object);
    char buffer[ValueTextSize];
    std::snprintf(buffer, sizeof(buffer), "%lld", static_cast<long long>(id));

    writer->addAttribute("typeinfo", object->getTypeInfo()->getName());
    writer->addAttribute("id", buffer);
    return id;
}

bool writeStability(XmlWriter* writer, ObjectBase* object, unsigned int id, bool stable)
{
    writer->addAttribute("stable", stable ? "true" : "false");
    if (stable)
        return true;
    if (!writer->isComplete() || writer->findObject(id))
        return false;
    writer->registerObject(object, id);
    return true;
}

unsigned int readIdentity(const XmlReader* reader)
{
    const char* id = reader->getAttributeText("id");
    return id ? parseValue<unsigned int>(id) : 0;
}

ObjectBase* makeNamedInstance(const XmlReader* reader)
{
    const TypeInfo* type = reader->findTypeInfo();
    return type ? type->newInstance() : nullptr;
}
