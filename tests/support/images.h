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

inline Bytes makeFile(const sTga& picture)
{
    Bytes file = {0, 0};
    append(file, picture.type, 1);
    file.insert(file.end(), 9, 0);
    append(file, picture.width, 2);
    append(file, picture.height, 2);
    append(file, picture.depth, 1);
    append(file, picture.descriptor, 1);
    file.insert(file.end(), picture.pixels.begin(), picture.pixels.end());
    return file;
}

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

inline Bytes makeFile(const sBmp& picture)
{
    constexpr unsigned int HeaderSize = 54;
    Bytes file;
    append(file, picture.magic, 2);
    append(file, 0, 8);
    append(file, HeaderSize + static_cast<unsigned int>(picture.palette.size()), 4);
    append(file, 40, 4);
    append(file, static_cast<unsigned int>(picture.width), 4);
    append(file, static_cast<unsigned int>(picture.height), 4);
    append(file, 1, 2);
    append(file, picture.bits, 2);
    append(file, picture.compression, 4);
    file.insert(file.end(), HeaderSize - file.size(), 0);
    file.insert(file.end(), picture.palette.begin(), picture.palette.end());
    file.insert(file.end(), picture.pixels.begin(), picture.pixels.end());
    return file;
}

struct sTex
{
    unsigned int width = 1;
    unsigned int height = 1;
    Bytes pixels = {1, 2, 3, 4};
    unsigned int version = 1;
};

inline Bytes makeFile(const sTex& picture)
{
    Bytes file = {'T', 'E', 'X', ' '};
    append(file, picture.version, 4);
    append(file, picture.width, 2);
    append(file, picture.height, 2);
    file.insert(file.end(), picture.pixels.begin(), picture.pixels.end());
    return file;
}
