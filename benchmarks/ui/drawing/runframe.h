#pragma once

#include "application/systemmanager.h"
#include "benchmarks/ui/drawing/interfacescene.h"
#include "render/rendersystem.h"
#include "ui/uisystem.h"

#include <epoxy/gl.h>

// The swap is no part of any figure: this takes the place of the one that the platform would call.
extern "C" void SDL_GL_SwapWindow(void*)
{
}

// A frame of the program, up to where the scene ends it.
inline void runFrame(sInterfaceScene::eEnd end)
{
    SystemManager& manager = *SystemManager::getInstance();
    manager.preprocess();
    manager.update();
    UISystem::getInstance()->draw();
    manager.postprocess();
    if (end == sInterfaceScene::eEnd::List)
        return;
    RenderSystem::getInstance()->executeCommand();
    if (end == sInterfaceScene::eEnd::Finished)
        glFinish();
}
