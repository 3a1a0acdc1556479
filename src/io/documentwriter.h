#pragma once

class ObjectBase;
class XmlWriter;

// Puts a document in the place of a file. Whatever happens on the way, also the end of the process, the target holds
// either what it held before or the whole new document, and it is never missing.
class DocumentWriter
{
public:
    enum class ePrevious : unsigned int
    {
        Drop,
        Keep, // as "<name>~", one generation
    };

    // What write() is about to do.
    enum class eStep : unsigned int
    {
        Check,
        Open,
        Write,
        Flush,
        Keep,
        Replace,
        Done,
    };

    using StepFunction = void (*)(eStep step);

    // Called before each step when it is set. A test ends the process there.
    static StepFunction mpStepFunction;

    // The document of one object, under a root tag named after its type: a stable one is there before it is read, the
    // others are made by reading. False, with a trace, when it could not be written or could not be read back: the
    // target then stays as it is.
    [[nodiscard]] static bool write(ObjectBase* object, bool stable, const char* fullPath, ePrevious previous);

    // The same for a tree that is already built; at most once for a writer.
    [[nodiscard]] static bool write(XmlWriter& writer, const char* fullPath, ePrevious previous);
};
