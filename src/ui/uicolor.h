#pragma once

#include "foundation/scolor.h"

#include <cstddef>

// The colours of the interface, by their place in the colour scheme.
enum class eUIColor : unsigned int
{
    Font,
    ClientFont,
    ClientSelectFont,
    DisableFont,
    Window,
    HighLight,
    DarkLight,
    ClientRegion,
    ClientRegionSelect,
    ActiveTitleBar,
    DeactiveTitleBar,
    ActiveTitleFont,
    DeactiveTitleFont,
    ScrollBarBase,
    Menu,
    MenuSelect,
    MenuFont,
    MenuDisableFont,
    MenuSelectFont,
};

struct sUIColor
{
    const char* property; // Null where the colour is not offered for editing.
    sColor value;
};

// The scheme that the interface starts with, one row for each place.
inline constexpr sUIColor DefaultUIColor[] = {
    {"FontColor", sColor::White},
    {"ClientFontColor", sColor::Black},
    {nullptr, sColor::White},
    {"DisableFontColor", sColor::DarkGray},
    {"WindowColor", {0, 0, 255, 255}},
    {"HighLightColor", {192, 192, 255, 255}},
    {"DarkLightColor", {0, 0, 128, 255}},
    {"ClientRegionColor", sColor::White},
    {nullptr, {32, 32, 255, 255}},
    {"ActiveTitleBarColor", {0, 0, 128, 255}},
    {"DeactiveTitleBarColor", {0, 0, 64, 255}},
    {"ActiveTitleFontColor", {255, 255, 255, 255}},
    {"DeactiveTitleFontColor", {128, 128, 128, 255}},
    {"ScrollBarBaseColor", {128, 128, 255, 255}},
    {nullptr, {224, 224, 224, 255}},
    {"MenuSelectColor", {32, 32, 255, 255}},
    {"MenuFontColor", sColor::Black},
    {"MenuDisableFontColor", sColor::DarkGray},
    {"MenuSelectFontColor", sColor::White},
};

static_assert(sizeof(DefaultUIColor) / sizeof(sUIColor) == static_cast<std::size_t>(eUIColor::MenuSelectFont) + 1);

constexpr sColor getDefaultUIColor(eUIColor color)
{
    return DefaultUIColor[static_cast<std::size_t>(color)].value;
}
