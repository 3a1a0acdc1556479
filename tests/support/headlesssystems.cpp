#include "tests/support/headlesssystems.h"

#include "application/systemmanager.h"
#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "render/viewsystem.h"
#include "resource/resourcesystem.h"
#include "tool/toolsystem.h"

namespace
{
std::vector<sTexturedDeviceVertex> copyVertices(const sDrawCommand& command)
{
    std::vector<sTexturedDeviceVertex> vertices;
    for (unsigned int i = 0; i < command.state.vertexNum; ++i)
    {
        const auto* plain = static_cast<const sPlainDeviceVertex*>(command.vertices) + i;
        const auto* textured = static_cast<const sTexturedDeviceVertex*>(command.vertices) + i;
        if (command.state.getVertexDecl() == eVertexDecl::Textured)
            vertices.push_back(*textured);
        else
            vertices.push_back({plain->x, plain->y, plain->z, plain->color, 0, 0});
    }
    return vertices;
}
}

void createDrawingSystems()
{
    SystemManager* manager = SystemManager::getInstance();
    manager->addSystem(ResourceSystem::create());
    manager->addSystem(RenderSystem::create());
    manager->addSystem(ViewSystem::create());
    manager->addSystem(ToolSystem::create());
    manager->setup();
    manager->order();
}

std::vector<sRecordedDraw> HeadlessSystems::recordFrame(const std::function<void()>& record) const
{
    SystemManager::getInstance()->preprocess();
    record();
    SystemManager::getInstance()->postprocess();

    std::vector<sRecordedDraw> draws;
    for (const sCommand* const* entry = RenderSystem::getInstance()->getSortedCommand();
         (*entry)->kind != eCommand::End; ++entry)
        if ((*entry)->kind == eCommand::Draw)
        {
            const auto& command = static_cast<const sDrawCommand&>(**entry);
            draws.push_back({command, copyVertices(command)});
        }
    RenderSystem::getInstance()->executeCommand();
    return draws;
}

std::vector<sRecordedDraw> HeadlessSystems::record(const std::function<void(DrawContext&)>& draw) const
{
    return recordFrame(
        [&draw]
        {
            DrawContext* context = RenderSystem::getInstance()->popContext();
            draw(*context);
            RenderSystem::getInstance()->pushContext(context);
        });
}
