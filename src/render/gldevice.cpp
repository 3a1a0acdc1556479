#include "render/gldevice.h"

#include "foundation/dev.h"
#include "render/extension.h"
#include "render/texture.h"
#include "render/vertex.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>

#include <epoxy/gl.h>

namespace
{
constexpr float RecommendedVersion = 1.2f;
constexpr unsigned int IndexPerQuad = 6;
constexpr unsigned int VertexPerQuad = 4;

// The software renderer draws two triangles of one winding much faster where it finds them to be a rectangle. It takes
// indices in portions of at most 1024, and looks for rectangles only where a portion ends with a whole quad.
constexpr unsigned int PieceQuadNum = 170;
constexpr unsigned int PieceNum = (RenderDevice::MaximumQuadNum + PieceQuadNum - 1) / PieceQuadNum;

// The extensions without which nothing works, each with the other names under which drivers list it.
constexpr const char* RectangleTexture[] = {"GL_EXT_texture_rectangle", "GL_ARB_texture_rectangle",
                                            "GL_NV_texture_rectangle"};
constexpr const char* MultiTexture[] = {"GL_ARB_multitexture"};
constexpr const char* TextureCombine[] = {"GL_ARB_texture_env_combine"};
constexpr const char* Framebuffer[] = {"GL_ARB_framebuffer_object"};
constexpr const char* VertexArray[] = {"GL_ARB_vertex_array_object"};
constexpr const char* MapRange[] = {"GL_ARB_map_buffer_range"};
constexpr const char* BaseVertex[] = {"GL_ARB_draw_elements_base_vertex"};

struct sExtensionRow
{
    const char* const* names;
    unsigned int nameNum;
};

constexpr sExtensionRow ExtensionTable[] = {
    {RectangleTexture, std::size(RectangleTexture)},
    {MultiTexture, std::size(MultiTexture)},
    {TextureCombine, std::size(TextureCombine)},
    {Framebuffer, std::size(Framebuffer)},
    {VertexArray, std::size(VertexArray)},
    {MapRange, std::size(MapRange)},
    {BaseVertex, std::size(BaseVertex)},
};

struct sBlendRow
{
    GLenum source;
    GLenum destination;
    GLenum equation;
};

constexpr sBlendRow BlendTable[] = {
    // On purpose: these factors would draw nothing; blending is off while they are set.
    {GL_ZERO, GL_ONE, GL_FUNC_ADD},
    {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_FUNC_ADD},
    {GL_SRC_ALPHA, GL_ZERO, GL_FUNC_ADD},
    {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_FUNC_REVERSE_SUBTRACT},
};

constexpr GLenum PrimitiveTable[] = {GL_POINTS, GL_LINES, GL_TRIANGLES};

template <typename Pointer>
Pointer bufferOffset(std::size_t offset)
{
    return reinterpret_cast<Pointer>(offset);
}

[[noreturn]] void stopWithout(const char* what)
{
    char message[128];
    std::snprintf(message, sizeof(message), "This application recommanded %s.\n", what);
    DEV_ERROR(message);
}

bool checkVersion()
{
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    if (!version)
        return false;
    DEV_TRACE("RenderSystem : GL_VERSION %s.\n", version);
    float number = 0.0f;
    if (std::sscanf(version, "%f", &number) != 1 || number < RecommendedVersion)
        stopWithout("OpenGL1.2");
    return true;
}

void checkExtensions()
{
    const char* list = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    for (const sExtensionRow& row : ExtensionTable)
    {
        if (!checkExtention(list, row.names, row.nameNum))
            stopWithout(row.names[0]);
    }
}

// Whether the library takes a texture of that size.
bool isTexturePossible(unsigned int width, unsigned int height)
{
    glTexImage2D(GL_PROXY_TEXTURE_RECTANGLE, 0, GL_RGBA8, static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0,
                 GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    GLint possible = 0;
    glGetTexLevelParameteriv(GL_PROXY_TEXTURE_RECTANGLE, 0, GL_TEXTURE_WIDTH, &possible);
    return possible == static_cast<GLint>(width);
}

// What of `rect` lies inside the target, as the library counts it.
sRect turnOver(const sRect& rect, const sRect& target)
{
    const sRect inside = rect & target;
    return {inside.left, target.bottom - inside.bottom, inside.right, target.bottom - inside.top};
}

void issueScissor(const sRect& box)
{
    glScissor(box.left, box.top, static_cast<GLsizei>(box.getWidth()), static_cast<GLsizei>(box.getHeight()));
}

void attach(GLuint framebuffer, GLuint texture)
{
    if (!framebuffer)
        DEV_ERROR("aglCreatePBuffer failed.");
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_RECTANGLE, texture, 0);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE)
        DEV_ERROR("aglCreateContext failed.");
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}
}

GLDevice* GLDevice::create(const sRect& window)
{
    if (!checkVersion())
        return nullptr;
    checkExtensions();
    if (!isTexturePossible(Texture::MaximumSize, Texture::MaximumSize))
        stopWithout("texture size greater equal 1024");
    return new GLDevice(window);
}

GLDevice::GLDevice(const sRect& window)
{
    setViewport(window, window);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    makeQuadIndex();
    makeArrays();
}

GLDevice::~GLDevice()
{
    glBindVertexArray(0);
    glDeleteVertexArrays(DeclarationNum, mArray);
    glDeleteBuffers(1, &mVertexBuffer);
    glDeleteBuffers(1, &mJoinedBuffer);
    glDeleteBuffers(1, &mIndexBuffer);
}

// What earlier frames left there is given up, so that the library need not wait for their draws.
sJoinedDeviceVertex* GLDevice::makeJoinedRoom(unsigned int num)
{
    glBindBuffer(GL_ARRAY_BUFFER, mJoinedBuffer);
    const auto size = static_cast<GLsizeiptr>(num * sizeof(sJoinedDeviceVertex));
    if (num != mJoinedNum)
        glBufferData(GL_ARRAY_BUFFER, size, nullptr, GL_STREAM_DRAW);
    mJoinedNum = num;
    void* room = glMapBufferRange(GL_ARRAY_BUFFER, 0, size, GL_MAP_WRITE_BIT | GL_MAP_INVALIDATE_BUFFER_BIT);
    mJoinedMapped = room != nullptr;
    return static_cast<sJoinedDeviceVertex*>(room);
}

void GLDevice::beginScene(const sRect& window, const void* memory, unsigned int size)
{
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glEnable(GL_SCISSOR_TEST);
    for (GLenum state : {GL_CULL_FACE, GL_LIGHTING, GL_BLEND, GL_TEXTURE_2D, GL_TEXTURE_RECTANGLE})
        glDisable(state);
    mTextureEnabled = false;
    glBlendFunc(GL_ONE, GL_ZERO);
    setScissor(window, window);
    glClearColor(0.3f, 0.3f, 0.3f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);

    finishJoinedRoom();
    if (size)
    {
        glBindBuffer(GL_ARRAY_BUFFER, mVertexBuffer);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(size), memory, GL_STREAM_DRAW);
    }
    glBindVertexArray(mArray[static_cast<unsigned int>(mDeclaration)]);
}

void GLDevice::endScene()
{
    glFlush();
}

void GLDevice::clear(sColor color, const sRect& rect, const sRect& target)
{
    const sColorF components(color);
    glClearColor(components.r, components.g, components.b, components.a);

    // On purpose: the box counts from the bottom and the rectangle from the top, so that a box which happens to have
    // the rectangle's numbers is cleared in its own place.
    if (mScissorBox == rect)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        return;
    }
    issueScissor(turnOver(rect, target) & mScissorBox);
    glClear(GL_COLOR_BUFFER_BIT);
    issueScissor(mScissorBox);
}

void GLDevice::setProjection(const sRect& rect)
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(rect.left, rect.right, rect.bottom, rect.top, 0.0, 1.0);
}

void GLDevice::setViewport(const sRect& rect, const sRect& target)
{
    const sRect box = turnOver(rect, target);
    glViewport(box.left, box.top, static_cast<GLsizei>(box.getWidth()), static_cast<GLsizei>(box.getHeight()));
}

void GLDevice::setScissor(const sRect& rect, const sRect& target)
{
    mScissorBox = turnOver(rect, target);
    issueScissor(mScissorBox);
}

void GLDevice::setBlendMode(eBlendMode mode, eBlendMode previous)
{
    if (previous == eBlendMode::Opaque)
        glEnable(GL_BLEND);
    else if (mode == eBlendMode::Opaque)
        glDisable(GL_BLEND);
    const sBlendRow& row = BlendTable[static_cast<unsigned int>(mode)];
    glBlendFunc(row.source, row.destination);
    glBlendEquation(row.equation);
}

void GLDevice::setRenderTarget(Texture* target)
{
    glBindFramebuffer(GL_FRAMEBUFFER, target ? target->getRenderTargetContext() : 0);
    if (target)
        target->setDirty();
}

void GLDevice::setTexture(Texture* texture, Texture* target)
{
    if (!texture)
    {
        glDisable(GL_TEXTURE_RECTANGLE);
        mTextureEnabled = false;
        return;
    }
    if (texture == target)
        setRenderTarget(nullptr);
    texture->bind(*this);
}

void GLDevice::setTextureFiltering(eTextureFiltering filtering)
{
    const GLint value = filtering == eTextureFiltering::Linear ? GL_LINEAR : GL_NEAREST;
    glTexParameteri(GL_TEXTURE_RECTANGLE, GL_TEXTURE_MAG_FILTER, value);
    glTexParameteri(GL_TEXTURE_RECTANGLE, GL_TEXTURE_MIN_FILTER, value);
}

void GLDevice::setTextureCombineMode(eTextureCombineMode mode)
{
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, mode == eTextureCombineMode::Add ? GL_ADD : GL_MODULATE);
}

void GLDevice::drawVertices(ePrimitiveType type, unsigned int first, unsigned int count, eVertexDecl declaration)
{
    setDeclaration(declaration);
    if (type != ePrimitiveType::Quads)
    {
        glDrawArrays(PrimitiveTable[static_cast<unsigned int>(type)], static_cast<GLint>(first),
                     static_cast<GLsizei>(count));
        return;
    }
    drawQuads(first, count / VertexPerQuad);
}

sTextureHandle GLDevice::createTexture(unsigned int width, unsigned int height, bool renderTarget, const void* pixels)
{
    sTextureHandle handle;
    glGenTextures(1, &handle.texture);
    glBindTexture(GL_TEXTURE_RECTANGLE, handle.texture);
    if (!isTexturePossible(width, height))
        DEV_ERROR("Texture creation failed.\n");
    glTexImage2D(GL_TEXTURE_RECTANGLE, 0, GL_RGBA8, static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0,
                 GL_RGBA, GL_UNSIGNED_BYTE, renderTarget ? nullptr : pixels);
    if (renderTarget)
    {
        glGenFramebuffers(1, &handle.framebuffer);
        attach(handle.framebuffer, handle.texture);
    }
    return handle;
}

void GLDevice::deleteTexture(const sTextureHandle& handle)
{
    glDeleteFramebuffers(1, &handle.framebuffer);
    glDeleteTextures(1, &handle.texture);
}

void GLDevice::bindTexture(const Texture& texture)
{
    if (!mTextureEnabled)
        glEnable(GL_TEXTURE_RECTANGLE);
    mTextureEnabled = true;
    glBindTexture(GL_TEXTURE_RECTANGLE, texture.getName());
    setTextureHeight(texture.isRenderTarget() ? texture.getHeight() : 0);
}

void GLDevice::readPixels(const sRect& rect, const sRect& window, sColor* pixels)
{
    const sRect box = turnOver(rect, window);
    const unsigned int width = box.getWidth();
    const unsigned int height = box.getHeight();
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glReadBuffer(GL_BACK);
    glReadPixels(box.left, box.top, static_cast<GLsizei>(width), static_cast<GLsizei>(height), GL_RGBA,
                 GL_UNSIGNED_BYTE, pixels);
    for (unsigned int y = 0; y < height / 2; ++y)
        std::swap_ranges(pixels + y * width, pixels + (y + 1) * width, pixels + (height - 1 - y) * width);
}

// One quad alone is a strip, which costs the library less than indices do. All pieces of many use the same indices.
void GLDevice::drawQuads(unsigned int first, unsigned int quadNum)
{
    if (quadNum == 1)
        return glDrawArrays(GL_TRIANGLE_STRIP, static_cast<GLint>(first), VertexPerQuad);

    constexpr const void* Index[PieceNum] = {};
    GLsizei indexNum[PieceNum];
    GLint base[PieceNum];
    GLsizei pieceNum = 0;
    for (unsigned int i = 0; i < quadNum; i += PieceQuadNum, ++pieceNum)
    {
        indexNum[pieceNum] = static_cast<GLsizei>(std::min(quadNum - i, PieceQuadNum) * IndexPerQuad);
        base[pieceNum] = static_cast<GLint>(first + i * VertexPerQuad);
    }
    if (pieceNum == 1)
        glDrawElementsBaseVertex(GL_TRIANGLES, indexNum[0], GL_UNSIGNED_SHORT, nullptr, base[0]);
    else
        glMultiDrawElementsBaseVertex(GL_TRIANGLES, indexNum, GL_UNSIGNED_SHORT, Index, pieceNum, base);
}

// Four vertices of a quad come in strip order, so that its two triangles share the edge of the second and third.
void GLDevice::makeQuadIndex()
{
    constexpr unsigned short Pattern[IndexPerQuad] = {0, 1, 2, 2, 1, 3};
    static unsigned short index[PieceQuadNum * IndexPerQuad];
    for (unsigned int i = 0; i < std::size(index); ++i)
        index[i] = static_cast<unsigned short>(i / IndexPerQuad * VertexPerQuad + Pattern[i % IndexPerQuad]);

    glGenBuffers(1, &mIndexBuffer);
    glBindBuffer(GL_COPY_WRITE_BUFFER, mIndexBuffer);
    glBufferData(GL_COPY_WRITE_BUFFER, sizeof(index), index, GL_STATIC_DRAW);
}

void GLDevice::makeArrays()
{
    struct sArrayRow
    {
        eVertexDecl declaration;
        GLuint buffer;
        GLint dimension;
        std::size_t color;
        std::size_t texel;
    };
    glGenBuffers(1, &mVertexBuffer);
    glGenBuffers(1, &mJoinedBuffer);
    glGenVertexArrays(DeclarationNum, mArray);
    constexpr std::size_t NoTexel = 0;
    const sArrayRow rows[] = {
        {eVertexDecl::Textured, mVertexBuffer, 3, offsetof(sTexturedDeviceVertex, color),
         offsetof(sTexturedDeviceVertex, s)},
        {eVertexDecl::Joined, mJoinedBuffer, 2, offsetof(sJoinedDeviceVertex, color), offsetof(sJoinedDeviceVertex, s)},
        {eVertexDecl::Plain, mVertexBuffer, 3, offsetof(sPlainDeviceVertex, color), NoTexel},
    };
    for (const sArrayRow& row : rows)
    {
        const GLsizei stride = static_cast<GLsizei>(getDeviceStride(row.declaration));
        glBindVertexArray(mArray[static_cast<unsigned int>(row.declaration)]);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mIndexBuffer);
        glBindBuffer(GL_ARRAY_BUFFER, row.buffer);
        glEnableClientState(GL_VERTEX_ARRAY);
        glEnableClientState(GL_COLOR_ARRAY);
        glVertexPointer(row.dimension, GL_FLOAT, stride, nullptr);
        glColorPointer(4, GL_UNSIGNED_BYTE, stride, bufferOffset<void*>(row.color));
        if (row.texel == NoTexel)
            continue;
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_SHORT, stride, bufferOffset<void*>(row.texel));
    }
}

void GLDevice::finishJoinedRoom()
{
    if (!mJoinedMapped)
        return;
    mJoinedMapped = false;
    glBindBuffer(GL_ARRAY_BUFFER, mJoinedBuffer);
    if (!glUnmapBuffer(GL_ARRAY_BUFFER))
        DEV_TRACE("RenderSystem : The vertices of a frame are lost.\n");
}

void GLDevice::setDeclaration(eVertexDecl declaration)
{
    if (declaration == mDeclaration)
        return;
    mDeclaration = declaration;
    glBindVertexArray(mArray[static_cast<unsigned int>(declaration)]);
}

void GLDevice::setTextureHeight(unsigned int height)
{
    if (height == mTextureHeight)
        return;
    mTextureHeight = height;
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    if (height == 0)
        return;
    glTranslatef(0.0f, static_cast<float>(height), 0.0f);
    glScalef(1.0f, -1.0f, 1.0f);
}
