#include "benchmarks/harness.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

// Each candidate draws in a process of its own: they would otherwise share one graphics library and its settings.
namespace
{
std::string getDirectory()
{
    char path[1024];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
    path[length < 0 ? 0 : length] = '\0';
    const std::string text = path;
    return text.substr(0, text.rfind('/'));
}

class Worker
{
public:
    Worker(const std::string& program, const std::string& scene, bool nullDriver)
    {
        int in[2];
        int out[2];
        if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0)
            return;
        mProcess = fork();
        if (mProcess == 0)
        {
            dup2(in[0], STDIN_FILENO);
            dup2(out[1], STDOUT_FILENO);
            setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
            if (nullDriver)
                setenv("GALLIUM_NOOP", "1", 1);
            const std::string command = "exec " + program + " " + scene + " 2> /dev/null";
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        mpIn = fdopen(in[1], "w");
        mpOut = fdopen(out[0], "r");
    }

    ~Worker()
    {
        if (mpIn)
            fclose(mpIn);
        if (mpOut)
            fclose(mpOut);
        waitpid(mProcess, nullptr, 0);
    }

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // The seconds of a frame; a worker that does not answer counts as endlessly slow.
    double round()
    {
        char line[256];
        std::fputs("round\n", mpIn);
        std::fflush(mpIn);
        while (std::fgets(line, sizeof(line), mpOut))
        {
            if (line[0] == '=')
                return std::atof(line + 1);
        }
        return 1e9;
    }

private:
    pid_t mProcess = -1;
    FILE* mpIn = nullptr;
    FILE* mpOut = nullptr;
};

struct sPeer
{
    const char* name;
    const char* program;
};

constexpr sPeer SDLGeometry{"SDL RenderGeometry", "sdl"};
constexpr sPeer SDLCopy{"SDL RenderCopyF", "sdl"};
constexpr sPeer SFML{"SFML VertexArray", "sfml"};
constexpr sPeer Allegro{"Allegro, held bitmaps", "allegro"};
constexpr sPeer BareGL{"bare GL loop", "baregl"};

enum class eDriver
{
    Null,
    Software
};

// A peer that could not be built is left out.
bench::Candidates makeDrawing(const std::string& scene, eDriver driver, std::initializer_list<sPeer> peers)
{
    signal(SIGPIPE, SIG_IGN);
    bench::Candidates candidates;
    const auto add = [&](const sPeer& peer)
    {
        const std::string program = getDirectory() + "/draw_" + peer.program;
        if (access(program.c_str(), X_OK) != 0)
            return;
        const auto worker = std::make_shared<Worker>(program, scene, driver == eDriver::Null);
        candidates.push_back({peer.name, [worker]
                              {
                                  return worker->round();
                              }});
    };
    add({"record, sort and replay", "own"});
    for (const sPeer& peer : peers)
        add(peer);
    return candidates;
}

// Scenes are: sprites, textures, blend modes, levels, and whether to wait for the picture.
const bench::Goal sprites1(1, "1000 sprites of one texture, processor", 0.50,
                           [] {
                               return makeDrawing("1000 1 1 0 0", eDriver::Null, {SFML, SDLGeometry});
                           });
const bench::Goal sprites10(1, "10000 sprites of one texture, processor", 0.50,
                            [] {
                                return makeDrawing("10000 1 1 0 0", eDriver::Null, {SFML, SDLGeometry});
                            });
const bench::Goal sprites20(1, "20000 sprites of one texture, processor", 0.50,
                            [] {
                                return makeDrawing("20000 1 1 0 0", eDriver::Null, {SFML, SDLGeometry});
                            });
const bench::Goal mixed(2, "10000 sprites of 8 textures and 2 blend modes in turn, processor", 0.75,
                        [] { return makeDrawing("10000 8 2 0 0", eDriver::Null, {SDLCopy}); });
const bench::Goal finished(3, "10000 sprites of 16x16 to the finished picture", 1.10,
                           [] {
                               return makeDrawing("10000 1 1 0 1", eDriver::Software, {SDLGeometry, SFML, Allegro});
                           });
const bench::Goal plainLevels(4, "4000 one-quad draws in 48 random levels, processor, no change", 2.6,
                              [] { return makeDrawing("4000 1 1 1 0", eDriver::Null, {BareGL}); });
const bench::Goal texturedLevels(4, "4000 one-quad draws in 48 random levels, processor, texture of 8", 1.6,
                                 [] { return makeDrawing("4000 8 1 1 0", eDriver::Null, {BareGL}); });
}
