#pragma once

#include "ui/uipickdialog.h"
#include "ui/uipicklist.h"

#include <vector>

class ResourceBase;

// Picks a file below the two directories of data, which it cannot leave. What can be picked is a name with one of the
// extensions that the filters name; any other has neither full nor resource path.
class UIFileDialog : public UIPickDialog
{
public:
    enum class eRootDirectory : unsigned int
    {
        Intermediate = 0,
        Native = 1,
    };

    struct FilterInfo
    {
        AutoString extension; // without the dot
        AutoString name;
    };

    // A row of the list.
    class FileInfo : public ObjectBase
    {
    public:
        // A directory.
        explicit FileInfo(const char* name);
        FileInfo(const char* name, unsigned short year, unsigned char month, unsigned char day, unsigned char hour,
                 unsigned char minute, unsigned char second, unsigned int size);

        void makePropertyList(PropertyList& list) override;

        const AutoString& getName() const { return mName; }
        bool isDirectory() const;

    private:
        AutoString mName;
        AutoString mDate;
        unsigned int mSize;
    };

    using UIFileList = UIPickList<UIFileDialog>;

    // `filters` ends with null; each reads "extension|description", or "extension", which is shown as `allFilterName`.
    // Without filters, or without a name for all of them together, only directories are shown. The texts are copied.
    // With `overwriteWarning` the dialog asks before it answers with a file that exists.
    template <typename T>
    UIFileDialog(const char* title, T* object, void (T::*method)(UIDialog*), const char* allFilterName,
                 const char* const* filters, bool overwriteWarning, UIWindow* owner)
        : UIPickDialog(title, object, method, owner), mOverwriteWarning(overwriteWarning)
    {
        initializeFileDialog(allFilterName, filters);
    }

    // Of the full path. Ends in "/".
    const AutoString& getDirectory() const { return mDirectory; }

    // For the receiver, empty unless the name has an extension of the filters. The resource path is the logical name,
    // by which the resource system finds the file.
    AutoString getFileName() const;
    AutoString getFullPath() const;
    AutoString getResourcePath() const;
    AutoString getExtension() const;

    // Whether the user was asked about a file that exists and said yes.
    bool isOverwriteConfirmed() const { return mOverwriteConfirmed; }

    // The picked file as a resource of the class that its extension stands for, with a reference for the caller. Null
    // when nothing was picked; null with a trace for a name that no document can hold, for a file that cannot be
    // loaded, and for a picture without a texture.
    [[nodiscard]] ResourceBase* createResource() const;

    // `path` is below the root and ends in "/"; null is the root itself.
    void setCurrentDirectory(eRootDirectory root, const char* path);

    // Reads the current directory anew, directories first.
    void updateFileList();
    void enterSubDirectory(const AutoString& name);

    void eventOk() override;

protected:
    const char* getSubject() const override;

private:
    void initializeFileDialog(const char* allFilterName, const char* const* filters);
    void addFilters(const char* allFilterName, const char* const* filters);
    unsigned int countRowsOf(const char* fileName) const;

    // The one of the picked name's extension, or null.
    const FilterInfo* findFilter() const;

    void eventIntermediate(UIButton* button);
    void eventNative(UIButton* button);
    void eventUp(UIButton* button);
    void notifyFilterSelect(unsigned int row);
    void notifyFileSelect(unsigned int row);
    void notifyFileDecide(unsigned int row);
    void notifyOverwriteWarning(UIDialog* dialog);

    AutoString mDirectory;

    // The number of filters stands for all of them.
    unsigned int mFilterIndex = 0;
    std::vector<FilterInfo> mFilterList;
    bool mOverwriteWarning;

    // Set by notifyOverwriteWarning().
    bool mOverwriteConfirmed = false;
};
