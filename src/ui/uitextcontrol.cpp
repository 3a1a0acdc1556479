#include "ui/uitextcontrol.h"

#include "reflection/valuetext.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr sSize MinimumSize{16, 16};
constexpr int TextLeft = 2;

int getFontWidth()
{
    return static_cast<int>(UIPainter::getFontSize().width);
}

// What a key types; 0 for keys that type nothing. There is no blank, so that texts stay close to what a document can
// hold.
char getTyped(unsigned int keyCode, bool shift)
{
    if (keyCode == '-' || keyCode == '.' || (keyCode >= '0' && keyCode <= '9'))
        return static_cast<char>(keyCode);
    if (keyCode >= 'A' && keyCode <= 'Z')
        return static_cast<char>(shift ? keyCode : keyCode - 'A' + 'a');
    if (keyCode == '\\')
        return shift ? '_' : '\\';
    if (keyCode == ']')
        return shift ? '|' : '\\';
    return 0;
}
}

UITextControl::UITextControl(PropertyBase* property, bool disable, unsigned int index)
    : UIControl(property, disable, index)
{
    setMinimumSize(MinimumSize);
    setBorderStyle(eBorderStyle::Concave);
    setDefaultSize();
}

void UITextControl::apply()
{
    if (!mEditText || !isEnabled())
        return;
    PropertyBase* property = getProperty();
    if (property->getType() == PropertyBase::getPropertyType<AutoString>())
    {
        property->setByType(mEditText, getIndex());
        return;
    }
    const auto store = [this, property]<typename T>()
    {
        if constexpr (IntegerValue<T> || RealValue<T>)
            property->setByType(parseValue<T>(mEditText.c_str()), getIndex());
    };
    visitValueType(ValueTypes{}, property->getType(), store);
}

void UITextControl::eventFocus()
{
    if (!isEnabled())
        return;
    sendMessage(UIBeginEditMessage());
    char buffer[ValueTextSize];
    setEditText(getProperty()->getString(buffer, getIndex()));
}

void UITextControl::eventDefocus()
{
    if (!isEditing())
        return;
    apply();
    sendMessage(UIEndEditMessage());
    mCursor = 0;
    mFirstVisible = 0;
    clearSelection();
    mEditText = AutoString();
}

void UITextControl::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (!isEditing())
        return;
    const bool shift = combinationKey & UIKeyCode::WithShift;
    switch (keyCode)
    {
    case UIKeyCode::Return: commit(); break;
    case UIKeyCode::BackSpace: erase(mCursor - 1); break;
    case UIKeyCode::Delete: erase(mCursor); break;
    case UIKeyCode::LeftArrow: moveCursor(mCursor - 1, shift); break;
    case UIKeyCode::RightArrow: moveCursor(mCursor + 1, shift); break;
    case UIKeyCode::Home: jumpCursor(0, shift); break;
    case UIKeyCode::End: jumpCursor(getLength(), shift); break;
    default: insert(getTyped(keyCode, shift)); break;
    }
    scrollToCursor();
}

void UITextControl::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), UIPainter::getColors().mClientRegionColor);
    if (isEditing())
    {
        paintText(painter, mEditText.c_str());
        const int x = getFontWidth() * (mCursor - mFirstVisible) + 1;
        painter->drawLine(sPoint(x, 0), sPoint(x, static_cast<int>(getSize().height)),
                          UIPainter::getColors().mClientFontColor);
    }
    else
    {
        char buffer[ValueTextSize];
        paintText(painter, getProperty()->getString(buffer, getIndex()));
    }
    drawBorder(painter);
}

void UITextControl::setEditText(const AutoString& text)
{
    mEditText = text;
    mCursor = getLength();
    mFirstVisible = std::max(mCursor - getVisibleNum(), 0);
    select(0, mCursor);
}

int UITextControl::getVisibleNum() const
{
    return (static_cast<int>(getSize().width) - TextLeft) / getFontWidth();
}

void UITextControl::select(int start, int end)
{
    clearSelection();
    if (start >= end)
        return;
    mSelectionStart = start;
    mSelectionEnd = end;
}

void UITextControl::clearSelection()
{
    mSelectionStart = -1;
    mSelectionEnd = -1;
}

// Losing the focus writes.
void UITextControl::commit()
{
    clearSelection();
    if (UISystem* system = UISystem::getInstance())
        system->defocus();
}

void UITextControl::insert(char character)
{
    if (!character)
        return;
    eraseSelection();
    mEditText.insert(static_cast<unsigned int>(mCursor), character);
    ++mCursor;
}

// The selection, or if there is none the character at `position`.
void UITextControl::erase(int position)
{
    if (eraseSelection() || position < 0 || position >= getLength())
        return;
    mEditText.remove(static_cast<unsigned int>(position), 1);
    mCursor = position;
}

bool UITextControl::eraseSelection()
{
    if (!hasSelection())
        return false;
    mEditText.remove(static_cast<unsigned int>(mSelectionStart),
                     static_cast<unsigned int>(mSelectionEnd - mSelectionStart));
    mCursor = mSelectionStart;
    clearSelection();
    return true;
}

// By one character. The cursor stands at one end of the selection, which follows it.
void UITextControl::moveCursor(int to, bool extend)
{
    if (!extend)
        clearSelection();
    if (to < 0 || to > getLength())
        return;
    if (extend && !hasSelection())
        select(std::min(mCursor, to), std::max(mCursor, to));
    else if (extend)
        select(mSelectionStart == mCursor ? to : mSelectionStart, mSelectionEnd == mCursor ? to : mSelectionEnd);
    mCursor = to;
}

// To one end of the text. What is selected then is what the cursor has passed, and nothing that was selected before.
void UITextControl::jumpCursor(int to, bool extend)
{
    clearSelection();
    if (extend)
        select(std::min(mCursor, to), std::max(mCursor, to));
    mCursor = to;
}

void UITextControl::scrollToCursor()
{
    mFirstVisible = std::clamp(mFirstVisible, std::max(mCursor - getVisibleNum(), 0), mCursor);
}

// In three pieces around the selection, which exists only while the control edits. One character more than fits is
// drawn, in part.
void UITextControl::paintText(UIPainter* painter, const char* text) const
{
    const int length = text ? static_cast<int>(std::strlen(text)) : 0;
    const int end = std::min(length, mFirstVisible + std::min(getVisibleNum() + 1, UIPainter::MaximumFit));
    const int selectionStart = std::clamp(mSelectionStart, mFirstVisible, end);
    const int selectionEnd = std::clamp(mSelectionEnd, mFirstVisible, end);
    paintPiece(painter, text, mFirstVisible, selectionStart, false);
    paintPiece(painter, text, selectionStart, selectionEnd, true);
    paintPiece(painter, text, selectionEnd, end, false);
}

void UITextControl::paintPiece(UIPainter* painter, const char* text, int begin, int end, bool selected) const
{
    if (begin >= end)
        return;
    const UIColorScheme& colors = UIPainter::getColors();
    const int left = TextLeft - mFirstVisible * getFontWidth();
    const sRect rect(left + begin * getFontWidth(), 0, left + end * getFontWidth(), static_cast<int>(getSize().height));
    if (selected)
        painter->drawRect(rect, colors.mClientRegionSelectColor);
    const sColor plain = isEnabled() ? colors.mClientFontColor : colors.mDisableFontColor;
    painter->drawString(rect, text + begin, selected ? colors.mClientSelectFontColor : plain,
                        UIPainter::eAlignment::LeftMiddle);
}
