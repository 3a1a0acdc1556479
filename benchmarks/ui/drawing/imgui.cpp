#include "benchmarks/render/drawing/worker.h"
#include "benchmarks/ui/drawing/interfacescene.h"

#include <imgui.h>

#include <backends/imgui_impl_opengl2.h>
#include <backends/imgui_impl_opengl3.h>

#include <SDL.h>
#include <SDL_opengl.h>

// Dear ImGui, on the one of its two back ends for OpenGL that the fourth argument names.
namespace
{
constexpr float ElementWidth = 74.0f;

void addBlock(const InterfaceTexts& texts, int (&numbers)[sInterfaceScene::BoxNum])
{
    for (unsigned int i = 0; i < sInterfaceScene::LabelNum; ++i)
    {
        ImGui::TextUnformatted(texts.getLabel(i));
        ImGui::SameLine(ElementWidth);
        ImGui::Button(texts.getButton(i));
        if (i == sInterfaceScene::BoxNum)
            continue;
        ImGui::SameLine(2 * ElementWidth);
        ImGui::PushID(static_cast<int>(i));
        ImGui::SetNextItemWidth(ElementWidth);
        ImGui::InputInt("##number", &numbers[i]);
        ImGui::PopID();
    }
    const float height = (sInterfaceScene::BoxNum + 1) * ImGui::GetTextLineHeightWithSpacing();
    if (ImGui::BeginListBox("##list", {-1.0f, height}))
    {
        for (unsigned int i = 0; i < sInterfaceScene::BoxNum; ++i)
            ImGui::Selectable(texts.getRow(i), false);
        ImGui::EndListBox();
    }
}

void addWindow(const InterfaceTexts& texts, unsigned int number, unsigned int blockNum,
               int (&numbers)[sInterfaceScene::BoxNum])
{
    const sInterfaceScene::sPlace place = sInterfaceScene::getPlace(number);
    const std::string title = "Window##" + std::to_string(number);
    ImGui::SetNextWindowPos({static_cast<float>(place.x), static_cast<float>(place.y)});
    ImGui::SetNextWindowSize({sInterfaceScene::BlockWidth, sInterfaceScene::BlockHeight});
    if (ImGui::Begin(title.c_str(), nullptr, ImGuiWindowFlags_NoSavedSettings | ImGuiWindowFlags_NoResize))
    {
        for (unsigned int i = 0; i < blockNum; ++i)
        {
            ImGui::PushID(static_cast<int>(i));
            addBlock(texts, numbers);
            ImGui::PopID();
        }
    }
    ImGui::End();
}

struct sBackEnd
{
    void (*newFrame)();
    void (*render)(ImDrawData*);
};

sBackEnd startBackEnd(bool modern)
{
    if (modern)
    {
        ImGui_ImplOpenGL3_Init(nullptr);
        return {ImGui_ImplOpenGL3_NewFrame, ImGui_ImplOpenGL3_RenderDrawData};
    }
    ImGui_ImplOpenGL2_Init();
    return {ImGui_ImplOpenGL2_NewFrame, ImGui_ImplOpenGL2_RenderDrawData};
}

void setup()
{
    ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {sInterfaceScene::WindowWidth, sInterfaceScene::WindowHeight};
    io.DeltaTime = 1.0f / 60.0f;

    // As close together as the other candidate stands, so that all of a window can be seen.
    ImGuiStyle& style = ImGui::GetStyle();
    style.FramePadding = {2.0f, 2.0f};
    style.ItemSpacing = {4.0f, 3.0f};
    style.ItemInnerSpacing = {2.0f, 2.0f};
}
}

int main(int argumentNum, char** arguments)
{
    const sInterfaceScene scene = readInterfaceScene(argumentNum, arguments);
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    SDL_Window* window =
        SDL_CreateWindow("imgui", 0, 0, sInterfaceScene::WindowWidth, sInterfaceScene::WindowHeight, SDL_WINDOW_OPENGL);
    if (!window || !SDL_GL_CreateContext(window))
        return EXIT_FAILURE;
    setup();
    const sBackEnd backEnd = startBackEnd(argumentNum > 4 && std::strcmp(arguments[4], "3") == 0);

    const InterfaceTexts texts;
    int numbers[sInterfaceScene::BoxNum];
    for (unsigned int i = 0; i < sInterfaceScene::BoxNum; ++i)
        numbers[i] = InterfaceTexts::getNumber(i);
    return serve([] {},
                 [&]
                 {
                     backEnd.newFrame();
                     ImGui::NewFrame();
                     for (unsigned int i = 0; i < (scene.scrolled ? 1 : scene.blockNum); ++i)
                         addWindow(texts, i, scene.scrolled ? scene.blockNum : 1, numbers);
                     ImGui::Render();
                     if (scene.end == sInterfaceScene::eEnd::List)
                         return;
                     glClear(GL_COLOR_BUFFER_BIT);
                     backEnd.render(ImGui::GetDrawData());
                     if (scene.end == sInterfaceScene::eEnd::Finished)
                         glFinish();
                     else
                         glFlush();
                 });
}
