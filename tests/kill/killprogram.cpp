// kill_saves COUNT SEED: kills a process so many times while its tool saves one edit after the other, each time at a
// moment of that seed. Status 0 if the file was whole after each death: the state before the last save or behind it.

#include "tests/support/apart.h"
#include "tests/support/temporarydirectory.h"
#include "tests/support/toolstage.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>
#include <thread>

#include <sys/mman.h>

namespace
{
constexpr unsigned int TrackNum = 200;
constexpr unsigned int LongestMicroseconds = 20000;
constexpr unsigned int LongestStart = 20000; // milliseconds
constexpr const char* File = "intermediate/walk.seq.xml";

// Never returns. Tells which of its saves is done.
void saveForever(volatile unsigned int& done)
{
    ToolStage stage;
    stage.write(File, 1);
    GalleryTool* tool = stage.addOpen("walk");
    SequencerResourceIntermediate& sequence = *tool->getResource()->cast<SequencerResourceIntermediate>();
    for (unsigned int i = 0; i < TrackNum; ++i)
        sequence.addTrack(ObjectBase::getStaticTypeInfo(), AutoString(("Track" + std::to_string(i)).c_str()));
    for (unsigned int frame = 1;; ++frame)
    {
        tool->setEndFrame(frame);
        tool->save();
        if (tool->isManagedResourceModified())
            _exit(EXIT_FAILURE);
        done = frame;
    }
}

// The one below the temporary directory that the process has made.
std::string findFile(const TemporaryDirectory& directory)
{
    for (const auto& root : std::filesystem::directory_iterator(directory.getPath()))
        return root.path() / File;
    return std::string();
}

bool isWhole(const std::string& path, unsigned int last)
{
    SequencerResourceIntermediate sequence;
    TextFileStream stream(path.c_str(), FileStream::Read);
    const bool loaded = !stream.eof() && sequence.load(stream);
    const unsigned int frame = sequence.getEndFrame();
    if (loaded && sequence.getTrackList().size() == TrackNum && (frame == last || frame == last + 1))
        return true;
    std::printf("%s: %s with %u tracks and frame %u behind save %u\n", path.c_str(), loaded ? "a document" : "nothing",
                sequence.getTrackList().size(), frame, last);
    return false;
}

// Lets a process save for a while, and kills it behind its first save.
bool killOnce(std::chrono::microseconds delay)
{
    const TemporaryDirectory directory;
    setenv("TMPDIR", directory.getPath().c_str(), 1);
    void* shared = mmap(nullptr, sizeof(unsigned int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    volatile unsigned int& done = *static_cast<unsigned int*>(shared);
    const pid_t child = fork();
    if (child == 0)
        saveForever(done);
    for (unsigned int i = 0; done == 0 && i < LongestStart; ++i)
        usleep(1000);
    std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    const unsigned int last = done;
    munmap(shared, sizeof(unsigned int));
    unsetenv("TMPDIR");
    return WIFSIGNALED(status) && isWhole(findFile(directory), last);
}
}

int main(int argumentNum, char** arguments)
{
    if (argumentNum != 3)
        return EXIT_FAILURE;
    const unsigned int count = static_cast<unsigned int>(std::atoi(arguments[1]));
    std::mt19937 random(static_cast<unsigned int>(std::atoi(arguments[2])));
    unsigned int whole = 0;
    for (unsigned int i = 0; i < count; ++i)
        whole += killOnce(std::chrono::microseconds(random() % LongestMicroseconds));
    std::printf("%u of %u files are whole\n", whole, count);
    return whole == count ? EXIT_SUCCESS : EXIT_FAILURE;
}
