#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using Bytes = std::vector<unsigned char>;

// Values in as many bytes as stand behind them, the lowest first.
inline Bytes makeBytes(const std::vector<std::pair<unsigned long long, unsigned int>>& fields)
{
    Bytes bytes;
    for (const auto& [value, count] : fields)
        for (unsigned int i = 0; i < count; ++i)
            bytes.push_back(i < 8 ? static_cast<unsigned char>(value >> (8 * i)) : 0);
    return bytes;
}

inline Bytes operator+(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
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
