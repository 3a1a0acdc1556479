#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// An empty directory that goes with everything in it.
class TemporaryDirectory
{
public:
    TemporaryDirectory() : mPath(std::filesystem::temp_directory_path() / "cellwrightXXXXXX")
    {
        if (!mkdtemp(mPath.data()))
            abort();
    }

    ~TemporaryDirectory() { std::filesystem::remove_all(mPath); }

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::string operator/(const std::string& name) const { return mPath + "/" + name; }
    const std::string& getPath() const { return mPath; }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(*this / name, std::ios::binary) << text;
        return *this / name;
    }

    // Empty for a file that is not there.
    std::string read(const std::string& name) const
    {
        std::ifstream file(*this / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

    std::size_t countFiles() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(mPath), {}));
    }

private:
    std::string mPath;
};
