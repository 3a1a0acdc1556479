#pragma once

#include "foundation/scolor.h"

// The colours of the interface, with the values that it starts with. UISystem is one; painting reads it directly.
struct UIColorScheme
{
    static constexpr sColor mDefaultFontColor = sColor::White;
    static constexpr sColor mDefaultClientFontColor = sColor::Black;
    static constexpr sColor mDefaultClientSelectFontColor = sColor::White;
    static constexpr sColor mDefaultDisableFontColor = sColor::DarkGray;
    static constexpr sColor mDefaultWindowColor{0, 0, 255, 255};
    static constexpr sColor mDefaultHighLightColor{192, 192, 255, 255};
    static constexpr sColor mDefaultDarkLightColor{0, 0, 128, 255};
    static constexpr sColor mDefaultClientRegionColor = sColor::White;
    static constexpr sColor mDefaultClientRegionSelectColor{32, 32, 255, 255};
    static constexpr sColor mDefaultActiveTitleBarColor{0, 0, 128, 255};
    static constexpr sColor mDefaultDeactiveTitleBarColor{0, 0, 64, 255};
    static constexpr sColor mDefaultActiveTitleFontColor{255, 255, 255, 255};
    static constexpr sColor mDefaultDeactiveTitleFontColor{128, 128, 128, 255};
    static constexpr sColor mDefaultScrollBarBaseColor{128, 128, 255, 255};
    static constexpr sColor mDefaultMenuColor{224, 224, 224, 255};
    static constexpr sColor mDefaultMenuSelectColor{32, 32, 255, 255};
    static constexpr sColor mDefaultMenuFontColor = sColor::Black;
    static constexpr sColor mDefaultMenuDisableFontColor = sColor::DarkGray;
    static constexpr sColor mDefaultMenuSelectFontColor = sColor::White;

    sColor mFontColor = mDefaultFontColor;
    sColor mClientFontColor = mDefaultClientFontColor;
    sColor mClientSelectFontColor = mDefaultClientSelectFontColor;
    sColor mDisableFontColor = mDefaultDisableFontColor;
    sColor mWindowColor = mDefaultWindowColor;
    sColor mHighLightColor = mDefaultHighLightColor;
    sColor mDarkLightColor = mDefaultDarkLightColor;
    sColor mClientRegionColor = mDefaultClientRegionColor;
    sColor mClientRegionSelectColor = mDefaultClientRegionSelectColor;
    sColor mActiveTitleBarColor = mDefaultActiveTitleBarColor;
    sColor mDeactiveTitleBarColor = mDefaultDeactiveTitleBarColor;
    sColor mActiveTitleFontColor = mDefaultActiveTitleFontColor;
    sColor mDeactiveTitleFontColor = mDefaultDeactiveTitleFontColor;
    sColor mScrollBarBaseColor = mDefaultScrollBarBaseColor;
    sColor mMenuColor = mDefaultMenuColor;
    sColor mMenuSelectColor = mDefaultMenuSelectColor;
    sColor mMenuFontColor = mDefaultMenuFontColor;
    sColor mMenuDisableFontColor = mDefaultMenuDisableFontColor;
    sColor mMenuSelectFontColor = mDefaultMenuSelectFontColor;
};

// The colours that are offered for editing, in their order.
struct sUIColorRow
{
    const char* property;
    sColor UIColorScheme::*color;
};

inline constexpr sUIColorRow UIColorTable[] = {
    {"FontColor", &UIColorScheme::mFontColor},
    {"ClientFontColor", &UIColorScheme::mClientFontColor},
    {"DisableFontColor", &UIColorScheme::mDisableFontColor},
    {"WindowColor", &UIColorScheme::mWindowColor},
    {"HighLightColor", &UIColorScheme::mHighLightColor},
    {"DarkLightColor", &UIColorScheme::mDarkLightColor},
    {"ClientRegionColor", &UIColorScheme::mClientRegionColor},
    {"ActiveTitleBarColor", &UIColorScheme::mActiveTitleBarColor},
    {"DeactiveTitleBarColor", &UIColorScheme::mDeactiveTitleBarColor},
    {"ActiveTitleFontColor", &UIColorScheme::mActiveTitleFontColor},
    {"DeactiveTitleFontColor", &UIColorScheme::mDeactiveTitleFontColor},
    {"ScrollBarBaseColor", &UIColorScheme::mScrollBarBaseColor},
    {"MenuSelectColor", &UIColorScheme::mMenuSelectColor},
    {"MenuFontColor", &UIColorScheme::mMenuFontColor},
    {"MenuDisableFontColor", &UIColorScheme::mMenuDisableFontColor},
    {"MenuSelectFontColor", &UIColorScheme::mMenuSelectFontColor},
};
