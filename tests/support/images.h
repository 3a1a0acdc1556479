#pragma once

#include "tests/support/bytes.h"

// Picture files made in memory, field by field, so that a test can put anything into any of them.

struct sTga
{
    unsigned int width = 1;
    unsigned int height = 1;
    Bytes pixels = {1, 2, 3, 4};
    unsigned int descriptor = 0x20; // From the top left.
    unsigned int type = 2;
    unsigned int depth = 32;
};

struct sBmp
{
    int width = 1;
    int height = -1; // From the top.
    unsigned int bits = 24;
    Bytes palette = {};
    Bytes pixels = {1, 2, 3, 0};
    unsigned int compression = 0;
    unsigned int magic = 0x4D42;
};

struct sTex
{
    unsigned int width = 1;
    unsigned int height = 1;
    Bytes pixels = {1, 2, 3, 4};
    unsigned int version = 1;
};

inline Bytes makeFile(const sTga& picture)
{
    return makeBytes({{0, 2},
                      {picture.type, 1},
                      {0, 9},
                      {picture.width, 2},
                      {picture.height, 2},
                      {picture.depth, 1},
                      {picture.descriptor, 1}}) +
           picture.pixels;
}

inline Bytes makeFile(const sBmp& picture)
{
    return makeBytes({{picture.magic, 2},
                      {0, 8},
                      {54 + picture.palette.size(), 4},
                      {40, 4},
                      {static_cast<unsigned int>(picture.width), 4},
                      {static_cast<unsigned int>(picture.height), 4},
                      {1, 2},
                      {picture.bits, 2},
                      {picture.compression, 4},
                      {0, 20}}) +
           picture.palette + picture.pixels;
}

inline Bytes makeFile(const sTex& picture)
{
    return makeBytes({{0x20584554, 4}, {picture.version, 4}, {picture.width, 2}, {picture.height, 2}}) + picture.pixels;
}
