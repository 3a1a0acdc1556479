#include "io/documentwriter.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

DocumentWriter::StepFunction DocumentWriter::mpStepFunction = nullptr;

namespace
{
using eStep = DocumentWriter::eStep;

// The files that one save deals with, all in the target's own directory so that a rename is enough.
class SaveFiles
{
public:
    explicit SaveFiles(const char* fullPath);

    // False with errno set, like the operations below.
    bool isUsable() const;
    bool write(XmlWriter& writer);
    bool keepPrevious();
    bool replace() { return rename(mTemporary, mTarget) == 0; }
    void cleanUp();

private:
    bool copyTarget(const char* path);

    char mTarget[PATH_MAX] = {};
    char mTemporary[PATH_MAX + 8];
    char mPrevious[PATH_MAX + 8];
    char mSpare[PATH_MAX + 8]; // what is about to become mPrevious
    mode_t mMode = 0;          // of the target; 0 without one
    int mError = 0;
};

void announce(eStep step)
{
    if (DocumentWriter::mpStepFunction)
        DocumentWriter::mpStepFunction(step);
}

// A link stays a link: what it leads to is the target.
SaveFiles::SaveFiles(const char* fullPath)
{
    struct stat state;
    if (!fullPath || !*fullPath)
        mError = ENOENT;
    else if (!realpath(fullPath, mTarget))
        mError = snprintf(mTarget, sizeof(mTarget), "%s", fullPath) >= PATH_MAX ? ENAMETOOLONG : 0;
    else if (stat(mTarget, &state) != 0)
        mError = errno;
    else if (!S_ISREG(state.st_mode))
        mError = EINVAL;
    else
        mMode = state.st_mode & 07777;
    snprintf(mTemporary, sizeof(mTemporary), "%s.tmp", mTarget);
    snprintf(mPrevious, sizeof(mPrevious), "%s~", mTarget);
    snprintf(mSpare, sizeof(mSpare), "%s~.tmp", mTarget);
}

bool SaveFiles::isUsable() const
{
    errno = mError;
    return mError == 0;
}

bool SaveFiles::write(XmlWriter& writer)
{
    TextFileStream stream(mTemporary, FileStream::Write);
    if (stream.eof())
        return false;
    if (mMode)
        chmod(mTemporary, mMode);
    announce(eStep::Write);
    writer.write(&stream);
    announce(eStep::Flush);
    return !stream.eof() && stream.flush();
}

// The old content gets a second name, or a copy where the file system knows no second names. The name "<name>~"
// changes over in one step as well, so one complete previous generation is there at any time.
bool SaveFiles::keepPrevious()
{
    if (!mMode)
        return true;
    unlink(mSpare);
    if (link(mTarget, mSpare) != 0 && !copyTarget(mSpare))
        return false;
    return rename(mSpare, mPrevious) == 0;
}

bool SaveFiles::copyTarget(const char* path)
{
    BinaryFileStream from(mTarget, FileStream::Read);
    BinaryFileStream to(path, FileStream::Write);
    char buffer[4096];
    unsigned int length = 0;
    do
    {
        length = from.read(buffer, sizeof(buffer));
        if (to.write(buffer, length) != length)
            return false;
    } while (length);
    return to.flush();
}

void SaveFiles::cleanUp()
{
    unlink(mTemporary);
    unlink(mSpare);
}

// Null when the target holds the document, else what kept it from that.
const char* save(XmlWriter& writer, SaveFiles& files, DocumentWriter::ePrevious previous)
{
    announce(eStep::Check);
    if (!writer.isReadable())
        return writer.isComplete() ? "it could not be read back" : "there is not enough memory";
    announce(eStep::Open);
    if (!files.isUsable() || !files.write(writer))
        return strerror(errno);
    announce(eStep::Keep);
    if (previous == DocumentWriter::ePrevious::Keep && !files.keepPrevious())
        return strerror(errno);
    announce(eStep::Replace);
    if (!files.replace())
        return strerror(errno);
    announce(eStep::Done);
    return nullptr;
}
}

bool DocumentWriter::write(ObjectBase* object, bool stable, const char* fullPath, ePrevious previous)
{
    XmlWriter writer(object->getTypeInfo()->getName());
    object->serialize(&writer, stable, 0);
    return write(writer, fullPath, previous);
}

bool DocumentWriter::write(XmlWriter& writer, const char* fullPath, ePrevious previous)
{
    SaveFiles files(fullPath);
    const char* fault = save(writer, files, previous);
    files.cleanUp();
    if (fault)
        DEV_TRACE("DocumentWriter : \"%s\" not written: %s.\n", fullPath, fault);
    return !fault;
}
