#include "foundation/utils.h"

#include "application/application.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <new>

#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>

namespace
{
constexpr unsigned int Polynomial = 0x04C11DB7;

constexpr std::array<unsigned int, 256> makeCRC32Table()
{
    std::array<unsigned int, 256> table{};
    for (unsigned int byte = 0; byte < table.size(); ++byte)
    {
        unsigned int value = byte << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = value << 1 ^ (value >> 31 ? Polynomial : 0);
        table[byte] = value;
    }
    return table;
}

constexpr std::array<unsigned int, 256> crc32_table = makeCRC32Table();

// The two directories of data below the root.
constexpr const char* DataDirectories[] = {"intermediate/", "native/"};

// Behind the data directory that `text` begins with, or null.
const char* skipDataDirectory(const char* text)
{
    for (const char* directory : DataDirectories)
    {
        const std::size_t length = std::strlen(directory);
        if (std::strncmp(text, directory, length) == 0)
            return text + length;
    }
    return nullptr;
}

bool isSelfOrParent(const char* name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

bool isBefore(const Utils::FileInfo* left, const Utils::FileInfo* right)
{
    const int order = strcasecmp(left->name, right->name);
    return order ? order < 0 : std::strcmp(left->name, right->name) < 0;
}

// Fills all but the name; a directory keeps its flag alone.
void readStatus(const struct stat& status, Utils::FileInfo& info)
{
    info.directory = S_ISDIR(status.st_mode);
    if (info.directory)
        return;

    std::tm time = {};
    localtime_r(&status.st_mtime, &time);
    info.size = static_cast<unsigned long long>(status.st_size);
    info.year = static_cast<unsigned short>(time.tm_year + 1900);
    info.month = static_cast<unsigned char>(time.tm_mon + 1);
    info.day = static_cast<unsigned char>(time.tm_mday);
    info.hour = static_cast<unsigned char>(time.tm_hour);
    info.minute = static_cast<unsigned char>(time.tm_min);
    info.second = static_cast<unsigned char>(time.tm_sec);
}

// The entry `name` of an open directory; null for one that is gone, hangs in the air or does not fit.
Utils::FileInfo* makeFileInfo(int directory, const char* name)
{
    struct stat status;
    const std::size_t length = std::strlen(name);
    if (length >= sizeof(Utils::FileInfo::name) || fstatat(directory, name, &status, 0) != 0)
        return nullptr;

    Utils::FileInfo* info = new (std::nothrow) Utils::FileInfo;
    if (!info)
        return nullptr;
    std::memcpy(info->name, name, length + 1);
    readStatus(status, *info);
    return info;
}
} // namespace

unsigned int Utils::hash(const char* text)
{
    unsigned int crc = 0xFFFFFFFF;
    for (; text && *text; ++text)
        crc = crc << 8 ^ crc32_table[crc >> 24 ^ static_cast<unsigned char>(*text)];
    return crc;
}

const char* Utils::getPath(const char* fullPath)
{
    const char* root = Application::getInstance() ? Application::getInstance()->getRootPath() : nullptr;
    const char* found = fullPath && root ? std::strstr(fullPath, root) : nullptr;
    if (!found)
        return nullptr;

    const char* path = found + std::strlen(root);
    return skipDataDirectory(path) ? path : nullptr;
}

const char* Utils::getFileName(const char* path)
{
    const char* slash = path ? std::strrchr(path, '/') : nullptr;
    return slash ? slash + 1 : path;
}

const char* Utils::getFileExtension(const char* name)
{
    const char* point = name ? std::strchr(name, '.') : nullptr;
    return point ? point + 1 : nullptr;
}

bool Utils::isFileExist(const char* path)
{
    struct stat status;
    return path && stat(path, &status) == 0;
}

AutoString Utils::getResourcePath(const char* path)
{
    if (!path)
        return AutoString();

    const char* behind = skipDataDirectory(path);
    const char* logical = behind ? behind : path;
    const char* name = getFileName(logical);
    const std::size_t length = static_cast<std::size_t>(name - logical) + std::strcspn(name, ".");
    return length ? AutoString::fromBytes(logical, static_cast<unsigned int>(length)) : AutoString();
}

void Utils::getFileList(Vector<FileInfo>& list, const char* path)
{
    DIR* directory = path ? opendir(path) : nullptr;
    if (!directory)
        return;

    const unsigned int first = list.size();
    while (const dirent* entry = readdir(directory))
    {
        FileInfo* info = isSelfOrParent(entry->d_name) ? nullptr : makeFileInfo(dirfd(directory), entry->d_name);
        if (info)
            list.addLast(info);
    }
    closedir(directory);

    if (list.size() > first)
        std::sort(&list[first], &list[first] + (list.size() - first), isBefore);
}
