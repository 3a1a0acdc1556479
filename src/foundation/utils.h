#pragma once

#include "foundation/autostring.h"
#include "foundation/vector.h"

class ControlBase;
class UIBase;

// Names, paths and directories.
class Utils
{
public:
    struct FileInfo
    {
        char name[256] = {}; // UTF-8
        bool directory = false;
        unsigned long long size = 0; // bytes
        unsigned short year = 0;     // of the last change, in the local time zone
        unsigned char month = 0;
        unsigned char day = 0;
        unsigned char hour = 0;
        unsigned char minute = 0;
        unsigned char second = 0;
    };

    // The checksum that identifies names; 0xFFFFFFFF for null and for the empty text.
    static unsigned int hash(const char* text);

    // The part of a full path from "intermediate/" or "native/" on, directly behind the root; null elsewhere.
    static const char* getPath(const char* fullPath);
    static const char* getFileName(const char* path);

    // For bare file names: the part behind the first "."; null when there is none.
    static const char* getFileExtension(const char* name);
    static bool isFileExist(const char* path);

    // The logical name of a resource path: the directory stays, the file name is cut at its first ".".
    static AutoString getResourcePath(const char* path);

    // Appends the entries of a directory, each made by `new` and owned by the caller, without "." and "..", sorted
    // without regard to case. Adds nothing when the directory cannot be opened.
    static void getFileList(Vector<FileInfo>& list, const char* path);

    // The widget that edits a control, made by `new` and owned by the caller; null when there is none.
    static UIBase* makeUIFromControl(ControlBase* control);
};
