#pragma once

#include "application/gallerytool.h"
#include "io/stream.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/held.h"
#include "ui/uifiledialog.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// A headless interface for tools that open and save. A sequence is known by its last frame.
class ToolStage : public HeadlessInterface
{
public:
    using eRoot = UIFileDialog::eRootDirectory;

    // A live tool on a sequence that was never saved, and is modified.
    GalleryTool* addNew(unsigned int endFrame)
    {
        const Held<SequencerResourceIntermediate> sequence(new SequencerResourceIntermediate);
        sequence->setEndFrame(endFrame);
        return bringAlive(new GalleryTool(sequence.get()));
    }

    // A live tool on the sequence in that file.
    GalleryTool* addOpen(const char* name)
    {
        GalleryTool* tool = new GalleryTool;
        tool->load(name);
        return bringAlive(tool);
    }

    // The dialog on top, or null.
    UIDialog* getDialog() const
    {
        const List<UIWindow>& modal = mSystem->getModalWindowList();
        return modal.empty() ? nullptr : static_cast<UIDialog*>(*modal.rbegin());
    }

    bool isOpen(UIWindow* window) const
    {
        const ObjectList& windows = mSystem->getWindowList();
        return windows.find(window) != windows.end();
    }

    std::string getDialogTitle() const { return getDialog() ? getDialog()->getTitle().c_str() : ""; }

    void answer(UIDialog::eReturnValue value)
    {
        UIDialog* dialog = getDialog();
        switch (value)
        {
        case UIDialog::Ok: dialog->eventOk(); break;
        case UIDialog::Yes: dialog->eventYes(); break;
        case UIDialog::No: dialog->eventNo(); break;
        case UIDialog::Cancel: dialog->eventCancel(); break;
        }
        runFrames(2);
    }

    // Types the name, of small letters, digits and points, into the file dialog and presses "Ok".
    void pick(eRoot root, const char* directory, const std::string& name)
    {
        UIFileDialog* dialog = static_cast<UIFileDialog*>(getDialog());
        dialog->setCurrentDirectory(root, directory);
        const sPoint corner = dialog->getPosition();
        click(corner + sPoint(24, 202));
        for (const char c : name)
            pressKey(c == '.' ? 55 : static_cast<unsigned char>(c >= 'a' ? 4 + c - 'a' : 30 + c - '1'));
        click(corner + sPoint(280, 202));
        runFrames(2);
    }

    std::string getFile(const std::string& name) const { return getRoot() + "/" + name; }

    void write(const std::string& name, unsigned int endFrame) const
    {
        SequencerResourceIntermediate sequence;
        sequence.setEndFrame(endFrame);
        TextFileStream stream(getFile(name).c_str(), FileStream::Write);
        if (!sequence.save(stream))
            abort();
    }

    // The last frame of the sequence in a file; 0 for a file that is not there or holds none.
    unsigned int read(const std::string& name) const { return readEndFrame(getFile(name)); }

    static unsigned int readEndFrame(const std::string& path)
    {
        SequencerResourceIntermediate sequence;
        TextFileStream stream(path.c_str(), FileStream::Read);
        return !stream.eof() && sequence.load(stream) ? sequence.getEndFrame() : 0;
    }

private:
    GalleryTool* bringAlive(GalleryTool* tool)
    {
        add(tool);
        runFrame();
        return tool;
    }
};
