#include "io/xmlarena.h"

#include "foundation/allocator.h"

#include <algorithm>

namespace
{
constexpr std::size_t MaximumPageSize = 256 * 1024;
}

XmlArena::~XmlArena()
{
    clear();
}

void XmlArena::clear()
{
    while (sPage* page = mpPage)
    {
        mpPage = page->next;
        delete[] reinterpret_cast<char*>(page);
    }
    mLeft = 0;
}

bool XmlArena::addPage(std::size_t size)
{
    const std::size_t pageSize = std::max(mPageSize, size + sizeof(sPage));
    const bool hasRoom = AllocatorBase::getGlobalAllocator()->getFreeSize() > pageSize + Reserve;
    char* block = hasRoom ? new (std::nothrow) char[pageSize] : nullptr;
    if (!block)
        return false;
    mpPage = new (block) sPage{mpPage};
    mpNext = block + sizeof(sPage);
    mLeft = pageSize - sizeof(sPage);
    mPageSize = std::min(mPageSize * 2, MaximumPageSize);
    return true;
}
