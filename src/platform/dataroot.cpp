#include "platform/dataroot.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
constexpr const char* ProgramName = "cellwright";
constexpr const char* Subdirectories[] = {"intermediate", "native"};

bool isWritableDirectory(const fs::path& path)
{
    std::error_code error;
    return fs::is_directory(path, error) && access(path.c_str(), W_OK | X_OK) == 0;
}

bool makeSubdirectories(const fs::path& root)
{
    bool made = true;
    for (const char* name : Subdirectories)
    {
        std::error_code error;
        fs::create_directories(root / name, error);
        made = fs::is_directory(root / name, error) && made;
    }
    return made;
}

// A directory that exists is the user's, with whatever was deleted from it: only a new one is filled. It is
// filled under another name, so that a copy that breaks off is not taken for the user's at the next start.
void fillFromSamples(const fs::path& root, const fs::path& samples)
{
    std::error_code error;
    if (samples.empty() || fs::exists(root, error) || !fs::is_directory(samples, error))
        return;
    const fs::path filling = root.string() + ".new";
    fs::remove_all(filling, error);
    fs::create_directories(root.parent_path(), error);
    fs::copy(samples, filling, fs::copy_options::recursive, error);
    if (!error)
        fs::rename(filling, root, error);
}

std::string getProgramDirectory()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().string();
}

// The user's data directory by the rules of the desktop: relative names in the environment do not count.
std::string getUserData()
{
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && data[0] == '/')
        return (fs::path(data) / ProgramName).string();
    const char* home = std::getenv("HOME");
    if (home && home[0] == '/')
        return (fs::path(home) / ".local/share" / ProgramName).string();
    return std::string();
}
}

std::string findDataRoot(const sDataPlaces& places)
{
    if (!places.forced.empty())
        return makeSubdirectories(places.forced) ? places.forced : std::string();
    if (!places.program.empty() && isWritableDirectory(fs::path(places.program) / Subdirectories[0]))
        return makeSubdirectories(places.program) ? places.program : std::string();
    if (places.userData.empty())
        return std::string();
    fillFromSamples(places.userData, places.samples);
    return makeSubdirectories(places.userData) ? places.userData : std::string();
}

// In full, since the path of a new resource tells by its beginning that it has no file yet: below a relative "native"
// it would seem to have one.
sDataPlaces getDataPlaces(const char* forced)
{
    sDataPlaces places;
    std::error_code error;
    if (*forced)
        places.forced = fs::absolute(forced, error).string();
    places.program = getProgramDirectory();
    places.userData = getUserData();
    if (!places.program.empty())
        places.samples = (fs::path(places.program).parent_path() / "share" / ProgramName).string();
    return places;
}
