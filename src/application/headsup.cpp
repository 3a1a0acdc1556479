#include "application/headsup.h"

#include "application/application.h"
#include "foundation/allocator.h"
#include "foundation/memorymanager.h"
#include "tool/toolsystem.h"

#include <cstdint>
#include <cstdio>

namespace
{
constexpr unsigned int View = 6;
constexpr int Margin = 192; // from the text's left edge to the window's right one
constexpr int FrameRow = 16;
constexpr int RateRow = 28;
constexpr int FirstHeapRow = 52;
constexpr int RowHeight = 12;
}

void HeadsUp::formatHeap(char (&text)[TextSize], const char* name, unsigned int used, unsigned int size)
{
    const int percentage = static_cast<int>(std::uint64_t(100) * used / size);
    std::snprintf(text, TextSize, "%s : %08x/%08x %d%%", name, used, size, percentage);
}

void HeadsUp::draw(ToolSystem& tool, const Application& application, float deltaTime)
{
    const int x = static_cast<int>(application.getWindowWidth()) - Margin;
    const auto drawLine = [&](int y, const char* text)
    {
        tool.drawString(View, sPoint(x, y), text, ToolSystem::FontWidth, sColor::White);
    };
    char text[TextSize];

    std::snprintf(text, TextSize, "Frame %d", static_cast<int>(application.getCurrentFrame()));
    drawLine(FrameRow, text);
    std::snprintf(text, TextSize, "FPS %4.2f(Avg. %4.2f)", application.getFrameRate() / deltaTime,
                  application.getAverageFrameRate());
    drawLine(RateRow, text);

    MemoryManager& manager = *MemoryManager::getInstance();
    for (unsigned int i = 0; i < manager.getAllocatorNum(); ++i)
    {
        const AllocatorBase& heap = *manager.getAllocator(i);
        formatHeap(text, heap.getName(), heap.getUsedSize(), heap.getHeapSize());
        drawLine(FirstHeapRow + RowHeight * static_cast<int>(i), text);
    }
}
