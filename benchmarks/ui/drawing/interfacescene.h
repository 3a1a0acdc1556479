#pragma once

#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

// The same interface for every candidate: windows with 50 elements each, a quarter of them labels, a quarter buttons, a
// quarter number boxes with two spin buttons, and a quarter rows of a list.
struct sInterfaceScene
{
    static constexpr unsigned int WindowWidth = 1024;
    static constexpr unsigned int WindowHeight = 768;
    static constexpr unsigned int BlockSize = 50;

    // Of one block. Number boxes are as many as list rows.
    static constexpr unsigned int LabelNum = 13;
    static constexpr unsigned int BoxNum = 12;
    static_assert(2 * LabelNum + 2 * BoxNum == BlockSize);

    static constexpr int BlockWidth = 250;
    static constexpr int BlockHeight = 520;

    // What a frame is measured to.
    enum class eEnd
    {
        List,
        Submitted,
        Finished,
    };

    struct sPlace
    {
        int x;
        int y;
    };

    // All of a window is on the screen.
    static sPlace getPlace(unsigned int window)
    {
        return {static_cast<int>(window * 97 % (WindowWidth - BlockWidth)),
                static_cast<int>(window * 61 % (WindowHeight - BlockHeight))};
    }

    // One window that shows a part of all blocks, instead of one for each.
    bool scrolled;
    unsigned int blockNum;
    eEnd end;

    // The elements are controls that are bound to properties.
    bool bound;
};

// Texts of a block, which both kinds of candidates keep by their address.
class InterfaceTexts
{
public:
    InterfaceTexts()
    {
        for (unsigned int i = 0; i < sInterfaceScene::LabelNum; ++i)
        {
            const std::string number = std::to_string(i);
            mLabel[i] = "Label " + number;
            mButton[i] = "Button " + number;
            mRow[i] = "Row " + number;
        }
    }

    const char* getLabel(unsigned int i) const { return mLabel[i].c_str(); }
    const char* getButton(unsigned int i) const { return mButton[i].c_str(); }
    const char* getRow(unsigned int i) const { return mRow[i].c_str(); }
    static int getNumber(unsigned int i) { return static_cast<int>(1000 + i * 37); }

private:
    using Texts = std::array<std::string, sInterfaceScene::LabelNum>;

    Texts mLabel;
    Texts mButton;
    Texts mRow;
};

// Reads what the benchmark wrote on the command line: elements, whether they are scrolled, the end, and "bound".
inline sInterfaceScene readInterfaceScene(int argumentNum, char** arguments)
{
    if (argumentNum < 4)
        std::exit(2);
    const auto number = [&](int i)
    {
        return std::atoi(arguments[i]);
    };
    return {number(2) != 0, static_cast<unsigned int>(number(1)) / sInterfaceScene::BlockSize,
            static_cast<sInterfaceScene::eEnd>(number(3)), argumentNum > 4 && std::strcmp(arguments[4], "bound") == 0};
}
