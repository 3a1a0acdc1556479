#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "render/drawstate.h"

// Vertices as callers write them.
struct sPlainVertex
{
    sVector position;
    sColor color;
};

// Texture coordinates count texels.
struct sTexturedVertex
{
    sVector position;
    sColor color;
    short s;
    short t;
};

// Vertices as the graphics library receives them.
struct sPlainDeviceVertex
{
    float x;
    float y;
    float z;
    sColor color;
};

struct sTexturedDeviceVertex
{
    float x;
    float y;
    float z;
    sColor color;
    short s;
    short t;
};

// A vertex of joined draws, which the join makes of both kinds.
struct sJoinedDeviceVertex
{
    float x;
    float y;
    sColor color;
    short s;
    short t;
};

static_assert(sizeof(sPlainVertex) == 12 && sizeof(sTexturedVertex) == 16);
static_assert(sizeof(sPlainDeviceVertex) == 16 && sizeof(sTexturedDeviceVertex) == 20);
static_assert(sizeof(sJoinedDeviceVertex) == 16);

// 0 for what is no declaration.
constexpr unsigned int getSourceStride(eVertexDecl declaration)
{
    switch (declaration)
    {
    case eVertexDecl::Plain: return sizeof(sPlainVertex);
    case eVertexDecl::Textured: return sizeof(sTexturedVertex);
    case eVertexDecl::Joined: break;
    }
    return 0;
}

constexpr unsigned int getDeviceStride(eVertexDecl declaration)
{
    switch (declaration)
    {
    case eVertexDecl::Plain: return sizeof(sPlainDeviceVertex);
    case eVertexDecl::Textured: return sizeof(sTexturedDeviceVertex);
    case eVertexDecl::Joined: return sizeof(sJoinedDeviceVertex);
    }
    return 0;
}
