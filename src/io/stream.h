#pragma once

#include "foundation/autostring.h"

#include <cstdio>

// What all open files have in common. Text and binary files are separate types below it, because documents want
// characters and line ends while resources want a block of bytes; getType() tells the two apart.
class Stream
{
public:
    static constexpr unsigned int TextFile = 5;
    static constexpr unsigned int BinaryFile = 6;

    Stream() = default;
    virtual ~Stream() = default;

    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    // Origin 0 counts from the start, 1 from the present place, 2 from the end. Returns 0 when done; any other origin
    // does nothing and returns 0 too.
    virtual int seek(int offset, unsigned int origin) = 0;

    // Bytes; all ones stands for anything longer.
    virtual unsigned int getLength() const = 0;

    // The end flag. Once set it stays.
    bool eof() const { return mEnd; }
    unsigned int getType() const { return mType; }

protected:
    bool mEnd = false;
    unsigned int mType = 0;
};

// A stream over the standard file functions. Without an open file every operation does nothing and yields 0.
// Opened by the constructor, closed by the destructor; a stream belongs to one thread at a time.
class FileStream : public Stream
{
public:
    // How a file is opened, the second argument of both constructors below.
    enum eMode : unsigned int
    {
        Read = 0,
        Write = 1,
        ReadWrite = 2, // empties the file
    };

    ~FileStream() override;

    int seek(int offset, unsigned int origin) override;
    unsigned int getLength() const override;

    // The part of the path from "intermediate/" or "native/" on, null elsewhere.
    const char* getPath() const;
    const AutoString& getFullPath() const { return mFullPath; }
    const char* getFileName() const;

    // Brings everything written so far onto the disk. False when any of it is not there.
    [[nodiscard]] bool flush();

protected:
    // `modes` holds one mode string for each of eMode. A directory counts as a failure to open.
    bool open(const char* path, const char* const (&modes)[3], unsigned int mode);

    FILE* mpFile = nullptr;
    AutoString mFullPath;
};

// Characters in, characters out.
class TextStream
{
public:
    TextStream() = default;
    virtual ~TextStream() = default;

    TextStream(const TextStream&) = delete;
    TextStream& operator=(const TextStream&) = delete;

    // Reads up to `size` bytes; with a size of 0, one line of at most 1022 characters. Returns the length; 0 sets the
    // end flag.
    virtual unsigned int read(char* buffer, unsigned int size) = 0;

    // Writes `size` bytes; with a size of 0, a zero-terminated text. Returns the length written.
    virtual unsigned int write(const char* text, unsigned int size) = 0;

    // The next byte as a signed value, -1 at the end. A byte 0xFF therefore ends the text.
    virtual int getChar() = 0;
    virtual void putChar(char c) = 0;
    virtual void putCR() = 0;
    virtual void putTab(unsigned int count) = 0;

    // One character back. The end flag stays as it is.
    virtual void backforward() = 0;

    // Bytes from the present place to the end; 0 behind the end flag.
    virtual unsigned int getRest() = 0;

    // Reads ahead like read(), but moves nothing and sets no flag.
    virtual unsigned int peek(char* buffer, unsigned int size) = 0;
};

class BinaryStream
{
public:
    BinaryStream() = default;
    virtual ~BinaryStream() = default;

    BinaryStream(const BinaryStream&) = delete;
    BinaryStream& operator=(const BinaryStream&) = delete;

    // Both return the number of bytes.
    virtual unsigned int read(void* buffer, unsigned int size) = 0;
    virtual unsigned int write(const void* buffer, unsigned int size) = 0;
};

class TextFileStream : public FileStream, public TextStream
{
public:
    // A failure to open is traced and sets the end flag.
    TextFileStream(const char* path, unsigned int mode);

    unsigned int read(char* buffer, unsigned int size) override;

    // Writing less than asked for sets the end flag.
    unsigned int write(const char* text, unsigned int size) override;
    int getChar() override;
    void putChar(char c) override;
    void putCR() override;
    void putTab(unsigned int count) override;
    void backforward() override;
    unsigned int getRest() override;
    unsigned int peek(char* buffer, unsigned int size) override;
};

class BinaryFileStream : public FileStream, public BinaryStream
{
public:
    // On purpose: a failure to open shows nowhere, not in eof() either; the stream reads like an empty file.
    BinaryFileStream(const char* path, unsigned int mode);

    unsigned int read(void* buffer, unsigned int size) override;
    unsigned int write(const void* buffer, unsigned int size) override;
};
