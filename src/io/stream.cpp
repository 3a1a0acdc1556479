#include "io/stream.h"

#include "foundation/dev.h"
#include "foundation/utils.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr const char* TextModes[] = {"rt", "wt", "w+t"};
constexpr const char* BinaryModes[] = {"rb", "wb", "w+b"};
constexpr int Origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
constexpr int LineSize = 1023;

bool isDirectory(FILE* file)
{
    struct stat state;
    return fstat(fileno(file), &state) == 0 && S_ISDIR(state.st_mode);
}

off_t getEnd(FILE* file)
{
    const off_t place = ftello(file);
    fseeko(file, 0, SEEK_END);
    const off_t end = ftello(file);
    fseeko(file, place, SEEK_SET);
    return std::max<off_t>(end, 0);
}

unsigned int toSize(off_t size)
{
    return static_cast<unsigned int>(std::clamp<off_t>(size, 0, UINT_MAX));
}
}

FileStream::~FileStream()
{
    if (mpFile)
        fclose(mpFile);
}

bool FileStream::open(const char* path, const char* const (&modes)[3], unsigned int mode)
{
    if (mpFile)
        dev_assert("Stream already open.", __FILE__, __LINE__);
    mFullPath = path;
    errno = EINVAL;
    if (!path || mode > ReadWrite)
        return false;
    mpFile = fopen(path, modes[mode]);
    if (mpFile && isDirectory(mpFile))
    {
        fclose(mpFile);
        mpFile = nullptr;
        errno = EISDIR;
    }
    return mpFile != nullptr;
}

int FileStream::seek(int offset, unsigned int origin)
{
    if (!mpFile || origin >= std::size(Origins))
        return 0;
    return fseek(mpFile, offset, Origins[origin]);
}

unsigned int FileStream::getLength() const
{
    return mpFile ? toSize(getEnd(mpFile)) : 0;
}

const char* FileStream::getPath() const
{
    return Utils::getPath(mFullPath.c_str());
}

const char* FileStream::getFileName() const
{
    return Utils::getFileName(mFullPath.c_str());
}

bool FileStream::flush()
{
    return mpFile && !ferror(mpFile) && fflush(mpFile) == 0 && fsync(fileno(mpFile)) == 0;
}

TextFileStream::TextFileStream(const char* path, unsigned int mode)
{
    mType = TextFile;
    if (open(path, TextModes, mode))
        return;
    DEV_TRACE("File open error.\n%s\n", strerror(errno));
    mEnd = true;
}

unsigned int TextFileStream::read(char* buffer, unsigned int size)
{
    if (mEnd || !mpFile)
        return 0;
    unsigned int length = 0;
    if (size)
        length = static_cast<unsigned int>(fread(buffer, 1, size, mpFile));
    else if (fgets(buffer, LineSize, mpFile))
        length = static_cast<unsigned int>(strlen(buffer));
    if (length == 0)
        mEnd = true;
    return length;
}

unsigned int TextFileStream::write(const char* text, unsigned int size)
{
    if (!mpFile || !text)
        return 0;
    if (size == 0)
        size = static_cast<unsigned int>(strlen(text));
    const unsigned int length = static_cast<unsigned int>(fwrite(text, 1, size, mpFile));
    if (length < size)
        mEnd = true;
    return length;
}

int TextFileStream::getChar()
{
    if (mEnd || !mpFile)
        return -1;
    const signed char character = static_cast<signed char>(fgetc(mpFile));
    if (character == -1)
        mEnd = true;
    return character;
}

void TextFileStream::putChar(char c)
{
    write(&c, 1);
}

void TextFileStream::putCR()
{
    putChar('\n');
}

void TextFileStream::putTab(unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i)
        putChar('\t');
}

void TextFileStream::backforward()
{
    seek(-1, 1);
}

unsigned int TextFileStream::getRest()
{
    return mEnd || !mpFile ? 0 : toSize(getEnd(mpFile) - ftello(mpFile));
}

unsigned int TextFileStream::peek(char* buffer, unsigned int size)
{
    if (mEnd || !mpFile)
        return 0;
    const off_t place = ftello(mpFile);
    const size_t length = fread(buffer, 1, size, mpFile);
    fseeko(mpFile, place, SEEK_SET);
    return static_cast<unsigned int>(length);
}

BinaryFileStream::BinaryFileStream(const char* path, unsigned int mode)
{
    mType = BinaryFile;
    open(path, BinaryModes, mode);
}

unsigned int BinaryFileStream::read(void* buffer, unsigned int size)
{
    return mpFile ? static_cast<unsigned int>(fread(buffer, 1, size, mpFile)) : 0;
}

unsigned int BinaryFileStream::write(const void* buffer, unsigned int size)
{
    return mpFile ? static_cast<unsigned int>(fwrite(buffer, 1, size, mpFile)) : 0;
}
