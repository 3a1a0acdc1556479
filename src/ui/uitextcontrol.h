#pragma once

#include "foundation/autostring.h"
#include "ui/uicontrol.h"

// A line of text to type in. It begins to edit with the focus, and writes when the focus goes: strings as they are,
// numbers by parsing. Values of other types are shown as far as they have a text, and never written.
class UITextControl : public UIControl
{
public:
    UITextControl(PropertyBase* property, bool disable, unsigned int index);

    // Writes the text that is being edited to the property. An empty text, like a disabled control, writes nothing.
    void apply();

    void eventFocus() override;
    void eventDefocus() override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;
    void eventPaint(UIPainter* painter) override;

protected:
    // Starts anew with this text: all of it is selected, and the cursor stands behind it.
    void setEditText(const AutoString& text);

private:
    int getLength() const { return static_cast<int>(mEditText.size()); }
    int getVisibleNum() const;
    bool hasSelection() const { return mSelectionStart >= 0; }

    // An empty range is no selection.
    void select(int start, int end);
    void clearSelection();

    void commit();
    void insert(char character);
    void erase(int position);
    bool eraseSelection();
    void moveCursor(int to, bool extend);
    void jumpCursor(int to, bool extend);
    void scrollToCursor();

    void paintText(UIPainter* painter, const char* text) const;
    void paintPiece(UIPainter* painter, const char* text, int begin, int end, bool selected) const;

    int mCursor = -1;
    int mFirstVisible = 0;
    int mSelectionStart = -1;
    int mSelectionEnd = -1;
    AutoString mEditText;
};
