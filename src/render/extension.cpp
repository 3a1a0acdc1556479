#include "render/extension.h"

#include "foundation/dev.h"

#include <cstring>

namespace
{
bool hasWord(const char* list, const char* name)
{
    const std::size_t length = std::strlen(name);
    while (list && *list)
    {
        const std::size_t word = std::strcspn(list, " ");
        if (word == length && std::strncmp(list, name, length) == 0)
            return true;
        list += word + (list[word] == ' ');
    }
    return false;
}
}

bool checkExtention(const char* list, const char* name)
{
    return checkExtention(list, &name, 1);
}

bool checkExtention(const char* list, const char* const* names, unsigned int nameNum)
{
    bool found = false;
    for (unsigned int i = 0; i < nameNum; ++i)
        found |= hasWord(list, names[i]);
    DEV_TRACE("RenderSystem : OpenGL %s %s.\n", found ? "support" : "unsupport", names[0]);
    return found;
}
