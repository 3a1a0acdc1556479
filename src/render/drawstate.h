#pragma once

// How a draw mixes with what is there; the factors stand in one table of the device. An opaque draw overwrites.
enum class eBlendMode : unsigned int
{
    Opaque = 0,
    Alpha = 1,
    Scaled = 2,
    Subtract = 3,
};

// The four corners of a quad come in strip order: two above, two below.
enum class ePrimitiveType : unsigned int
{
    Points = 0,
    Lines = 1,
    Triangles = 2,
    Quads = 3,
};

// Nobody records what is joined: it comes into being on the way to the library, and no draw state holds it.
enum class eVertexDecl : unsigned int
{
    Plain = 0,
    Textured = 1,
    Joined = 2,
};

enum class eTextureFiltering : unsigned int
{
    Nearest = 0,
    Linear = 1,
};

enum class eTextureCombineMode : unsigned int
{
    Modulate = 0,
    Add = 1,
};

// The state of a draw command that fits in one word, from the low bit upward.
struct sDrawState
{
    eBlendMode getBlendMode() const { return static_cast<eBlendMode>(blendMode); }
    ePrimitiveType getPrimitiveType() const { return static_cast<ePrimitiveType>(primitiveType); }
    eTextureFiltering getFiltering() const { return static_cast<eTextureFiltering>(filtering); }
    eTextureCombineMode getCombineMode() const { return static_cast<eTextureCombineMode>(combineMode); }
    eVertexDecl getVertexDecl() const { return static_cast<eVertexDecl>(vertexDecl); }

    unsigned int blendMode : 2;
    unsigned int primitiveType : 2;
    unsigned int filtering : 1;
    unsigned int combineMode : 1;
    unsigned int vertexDecl : 1;
    unsigned int vertexNum : 16;
    unsigned int unused : 9;
};

static_assert(sizeof(sDrawState) == 4);
