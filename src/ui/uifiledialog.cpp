#include "ui/uifiledialog.h"

#include "application/application.h"
#include "foundation/dev.h"
#include "foundation/utils.h"
#include "io/xmlreader.h"
#include "reflection/propertylist.h"
#include "resource/resourcebase.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "ui/uienumcontrol.h"
#include "ui/uimessagedialog.h"
#include "ui/uisystem.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace
{
using eAlignment = UIList::eColumnAlignment;

constexpr const char* DirectoryDate = "<dir>";

// A longer name fits no record of a sequence.
constexpr unsigned int MaximumNameLength = 223;

constexpr unsigned int StringType = PropertyBase::getPropertyType<AutoString>();
constexpr unsigned int NumberType = PropertyBase::getPropertyType<unsigned int>();

const char* getRoot(UIFileDialog::eRootDirectory root)
{
    const Application* application = Application::getInstance();
    return root == UIFileDialog::eRootDirectory::Intermediate ? application->getIntermediatePath()
                                                              : application->getNativePath();
}

UIFileDialog::FilterInfo makeFilter(const char* text, const char* allFilterName)
{
    const char* bar = std::strchr(text, '|');
    if (!bar)
        return {text, allFilterName};
    UIFileDialog::FilterInfo filter;
    filter.extension = AutoString::fromBytes(text, static_cast<unsigned int>(bar - text));
    filter.name.format("%s(*.%s)", bar + 1, filter.extension.c_str());
    return filter;
}

// The column prints signed numbers.
unsigned int limitSize(unsigned long long size)
{
    return static_cast<unsigned int>(std::min<unsigned long long>(size, INT_MAX));
}

UIFileDialog::FileInfo* makeRow(const Utils::FileInfo& entry)
{
    if (entry.directory)
        return new UIFileDialog::FileInfo(entry.name);
    return new UIFileDialog::FileInfo(entry.name, entry.year, entry.month, entry.day, entry.hour, entry.minute,
                                      entry.second, limitSize(entry.size));
}

// Whether there is something behind the object that a document can name.
bool isComplete(ResourceBase& resource)
{
    const TextureResource* picture = resource.cast<TextureResource>();
    return !resource.getPath().empty() && (!picture || picture->getTexture());
}
}

UIFileDialog::FileInfo::FileInfo(const char* name) : mName(name), mDate(DirectoryDate), mSize(0)
{
}

UIFileDialog::FileInfo::FileInfo(const char* name, unsigned short year, unsigned char month, unsigned char day,
                                 unsigned char hour, unsigned char minute, unsigned char second, unsigned int size)
    : mName(name), mSize(size)
{
    mDate.format("%d/%d/%d %d:%d:%d", year, month, day, hour, minute, second);
}

void UIFileDialog::FileInfo::makePropertyList(PropertyList& list)
{
    list.addReference("Name", mName);
    list.addReference("Date", mDate);
    list.addReference("Size", mSize);
}

bool UIFileDialog::FileInfo::isDirectory() const
{
    return mDate == DirectoryDate;
}

AutoString UIFileDialog::getFileName() const
{
    return findFilter() ? mName : AutoString::Null;
}

AutoString UIFileDialog::getFullPath() const
{
    return findFilter() ? mDirectory + mName : AutoString::Null;
}

AutoString UIFileDialog::getResourcePath() const
{
    return Utils::getResourcePath(Utils::getPath(getFullPath().c_str()));
}

AutoString UIFileDialog::getExtension() const
{
    const FilterInfo* filter = findFilter();
    return filter ? filter->extension : AutoString::Null;
}

ResourceBase* UIFileDialog::createResource() const
{
    ResourceSystem* system = ResourceSystem::getInstance();
    const TypeInfo* type = system->getTypeInfoByExtension(getExtension().c_str());
    const AutoString path = getResourcePath();
    if (!type || path.empty())
        return nullptr;
    if (!XmlReader::isValue(path) || path.size() > MaximumNameLength)
    {
        DEV_TRACE("Resource name \"%s\" cannot be kept in a document.\n", path.c_str());
        return nullptr;
    }

    ResourceBase* resource = system->createResource(path.c_str(), type);
    if (!resource || isComplete(*resource))
        return resource;
    DEV_TRACE("Resource %s is empty.\n", path.c_str());
    resource->release();
    return nullptr;
}

void UIFileDialog::setCurrentDirectory(eRootDirectory root, const char* path)
{
    mDirectory = AutoString(getRoot(root)) + path;
    updateFileList();
}

void UIFileDialog::updateFileList()
{
    clearRows();
    Vector<Utils::FileInfo> entries;
    Utils::getFileList(entries, mDirectory.c_str());
    for (const Utils::FileInfo* entry : entries)
        if (entry->directory)
            addRow(makeRow(*entry));
    // On purpose: a file has a row for each filter that wants it.
    for (const Utils::FileInfo* entry : entries)
        for (unsigned int count = entry->directory ? 0 : countRowsOf(entry->name); count; --count)
            addRow(makeRow(*entry));
    for (const Utils::FileInfo* entry : entries)
        delete entry;
    showRows();
}

void UIFileDialog::enterSubDirectory(const AutoString& name)
{
    mDirectory += name + '/';
    updateFileList();
}

void UIFileDialog::eventOk()
{
    if (mName.empty())
    {
        eventCancel();
        return;
    }
    if (mOverwriteWarning && Utils::isFileExist(getFullPath().c_str()))
    {
        UISystem::getInstance()->addWindow(
            new UIMessageDialog("Causion", "File already exists.Are you sure to overwrite?", eButtons::YesNoCancel,
                                this, &UIFileDialog::notifyOverwriteWarning));
        return;
    }
    // On purpose: a name without an extension has no full path above, so nobody has been asked about its file.
    if (!findFilter() && !mFilterList.empty())
        mName += AutoString('.') + mFilterList.front().extension;
    UIPickDialog::eventOk();
}

const char* UIFileDialog::getSubject() const
{
    return Utils::getPath(mDirectory.c_str());
}

void UIFileDialog::initializeFileDialog(const char* allFilterName, const char* const* filters)
{
    static constexpr sColumn Columns[] = {
        {"Name", StringType, 102, eAlignment::Left},
        {"Date", StringType, 120, eAlignment::Left},
        {"Size", NumberType, 64, eAlignment::Right},
    };
    initializeFrame(new UIFileList(this, &UIFileDialog::notifyFileSelect, &UIFileDialog::notifyFileDecide), Columns);
    addButton(16, 80, this, &UIFileDialog::eventIntermediate, "Intermediate");
    addButton(104, 80, this, &UIFileDialog::eventNative, "Native");
    addButton(188, 48, this, &UIFileDialog::eventUp, "Up");
    if (allFilterName && filters && *filters)
        addFilters(allFilterName, filters);
    setCurrentDirectory(eRootDirectory::Intermediate, nullptr);
}

void UIFileDialog::addFilters(const char* allFilterName, const char* const* filters)
{
    for (; *filters; ++filters)
        mFilterList.push_back(makeFilter(*filters, allFilterName));
    const unsigned int count = static_cast<unsigned int>(mFilterList.size());

    std::vector<UIEnumControl::sEnumInfo> rows;
    for (const FilterInfo& filter : mFilterList)
        rows.push_back({filter.name.c_str(), static_cast<unsigned int>(rows.size())});
    rows.push_back({allFilterName, count});

    mFilterIndex = count;
    addFilterBox(new UIEnumControl(new ReferenceProperty<unsigned int>(nullptr, &mFilterIndex), rows.data(), count + 1,
                                   false, PropertyBase::CurrentElement, this, &UIFileDialog::notifyFilterSelect));
}

unsigned int UIFileDialog::countRowsOf(const char* fileName) const
{
    const char* extension = Utils::getFileExtension(fileName);
    if (!extension)
        return 0;
    unsigned int count = 0;
    for (unsigned int i = 0; i < mFilterList.size(); ++i)
        if ((mFilterIndex == mFilterList.size() || mFilterIndex == i) && mFilterList[i].extension == extension)
            ++count;
    return count;
}

const UIFileDialog::FilterInfo* UIFileDialog::findFilter() const
{
    const char* extension = Utils::getFileExtension(mName.c_str());
    const auto found = std::ranges::find_if(mFilterList, [extension](const FilterInfo& filter)
                                            { return extension && filter.extension == extension; });
    return found == mFilterList.end() ? nullptr : &*found;
}

void UIFileDialog::eventIntermediate(UIButton*)
{
    setCurrentDirectory(eRootDirectory::Intermediate, nullptr);
    refreshList();
}

void UIFileDialog::eventNative(UIButton*)
{
    setCurrentDirectory(eRootDirectory::Native, nullptr);
    refreshList();
}

void UIFileDialog::eventUp(UIButton*)
{
    if (mDirectory == getRoot(eRootDirectory::Intermediate) || mDirectory == getRoot(eRootDirectory::Native))
        return;
    const unsigned int slash = mDirectory.substr(0, mDirectory.size() - 1).findLast('/');
    if (slash != AutoString::NotFound && slash > 0)
        mDirectory = mDirectory.substr(0, slash + 1);
    updateFileList();
    refreshList();
}

void UIFileDialog::notifyFilterSelect(unsigned int)
{
    mName = AutoString::Null;
    updateFileList();
    refreshList();
}

void UIFileDialog::notifyFileSelect(unsigned int row)
{
    const FileInfo* file = getRow<FileInfo>(row);
    if (file && !file->isDirectory())
        mName = file->getName();
}

void UIFileDialog::notifyFileDecide(unsigned int row)
{
    const FileInfo* file = getRow<FileInfo>(row);
    if (!file)
        return;
    if (file->isDirectory())
    {
        enterSubDirectory(file->getName());
        refreshList();
        return;
    }
    mName = file->getName();
    eventOk();
}

void UIFileDialog::notifyOverwriteWarning(UIDialog* dialog)
{
    switch (dialog->getReturnValue())
    {
    case Yes:
        mOverwriteConfirmed = true;
        UIPickDialog::eventOk();
        break;
    case No: eventCancel(); break;
    default: break;
    }
}
