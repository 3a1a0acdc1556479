#include "application/viewer.h"

#include "animation/animresource.h"
#include "animation/drawanimation.h"
#include "foundation/smatrix.h"
#include "io/stream.h"
#include "io/xmlreader.h"
#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "render/viewsystem.h"
#include "resource/resourcesystem.h"
#include "ui/uipainter.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <unistd.h>

namespace
{
constexpr unsigned int View = 5;

// Over the desktop with its wallpaper, and below all windows.
constexpr unsigned int Level = 1;

std::string checkReadable(const std::string& path)
{
    if (access(path.c_str(), R_OK) != 0)
        return path + ": " + std::strerror(errno);
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) ? std::string() : path + ": not a file";
}
}

std::unique_ptr<Viewer> Viewer::create(const char* name)
{
    AnimResource* animation = ResourceSystem::getInstance()->createResource<AnimResource>(name);
    if (!animation)
        return nullptr;
    std::unique_ptr<Viewer> viewer(new Viewer(animation));
    animation->release();
    return viewer;
}

Viewer::Viewer(ResourceBase* animation)
{
    mSequencer.setResource(animation);
    mSequencer.play();
}

std::string Viewer::checkFile(const std::string& path)
{
    const std::string unreadable = checkReadable(path);
    if (!unreadable.empty())
        return unreadable;

    TextFileStream stream(path.c_str(), FileStream::Read);
    unsigned int place = 0;
    if (const char* fault = XmlReader::findFault(&stream, place))
        return path + ": " + fault + " At byte " + std::to_string(place) + ".";

    XmlReader reader;
    reader.parse(&stream);
    return reader.openTag(AnimResource::getStaticTypeInfo()->getName()) ? std::string() : path + ": not an animation";
}

void Viewer::update(float deltaTime)
{
    if (!mSequencer.isPlaying())
    {
        mSequencer.seek(static_cast<AnimResource*>(mSequencer.getResource())->getStartFrame());
        mSequencer.play();
    }
    mSequencer.update(deltaTime);
}

void Viewer::draw() const
{
    DrawContext* context = RenderSystem::getInstance()->popContext();
    const sRect& viewport = ViewSystem::getInstance()->getViewport(View);
    context->setViewport(viewport);
    context->setProjectionRect(ViewSystem::getInstance()->getProjection(View));

    UIPainter painter(context, Level);
    painter.setRegion(viewport, sPoint(static_cast<int>(viewport.getWidth() / 2) - AnimationOrigin,
                                       static_cast<int>(viewport.getHeight() / 2) - AnimationOrigin));
    drawAnimation(painter, mSequencer, sMatrix::Identity, sColor::White);
    RenderSystem::getInstance()->pushContext(context);
}
