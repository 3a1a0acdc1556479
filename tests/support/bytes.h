#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;

// Little-endian, in as many bytes as asked for.
inline void append(Bytes& bytes, unsigned int value, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

inline Bytes readBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline void writeBytes(const std::string& path, const Bytes& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
