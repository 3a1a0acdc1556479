#pragma once

#include <bit>

// Four bytes as they lie in memory: red, green, blue, alpha.
class sColor
{
public:
    static const sColor Red;
    static const sColor Green;
    static const sColor Blue;
    static const sColor Yellow;
    static const sColor Cyan;
    static const sColor Magenta;
    static const sColor White;
    static const sColor Black;
    static const sColor Gray;
    static const sColor LightGray;
    static const sColor DarkGray;

    constexpr sColor() = default;
    constexpr sColor(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha)
        : r(red), g(green), b(blue), a(alpha)
    {
    }

    constexpr unsigned char& operator[](int index) { return index < 2 ? (index ? g : r) : (index == 2 ? b : a); }
    constexpr unsigned char operator[](int index) const { return index < 2 ? (index ? g : r) : (index == 2 ? b : a); }

    // The four bytes as one word.
    constexpr operator unsigned int() const { return std::bit_cast<unsigned int>(*this); }

    unsigned char r;
    unsigned char g;
    unsigned char b;
    unsigned char a;
};

inline constexpr sColor sColor::Red{255, 0, 0, 255};
inline constexpr sColor sColor::Green{0, 255, 0, 255};
inline constexpr sColor sColor::Blue{0, 0, 255, 255};
inline constexpr sColor sColor::Yellow{255, 255, 0, 255};
inline constexpr sColor sColor::Cyan{0, 255, 255, 255};
inline constexpr sColor sColor::Magenta{255, 0, 255, 255};
inline constexpr sColor sColor::White{255, 255, 255, 255};
inline constexpr sColor sColor::Black{0, 0, 0, 255};
inline constexpr sColor sColor::Gray{191, 191, 191, 255};
inline constexpr sColor sColor::LightGray{211, 211, 211, 255};
inline constexpr sColor sColor::DarkGray{105, 105, 105, 255};

// The same with components from 0.0 to 1.0.
class sColorF
{
public:
    static const sColorF Red;
    static const sColorF Green;
    static const sColorF Blue;
    static const sColorF Yellow;
    static const sColorF Cyan;
    static const sColorF Magenta;
    static const sColorF White;
    static const sColorF Black;
    static const sColorF Gray;
    static const sColorF LightGray;
    static const sColorF DarkGray;

    constexpr sColorF() = default;
    constexpr sColorF(float red, float green, float blue, float alpha) : r(red), g(green), b(blue), a(alpha) {}
    constexpr sColorF(sColor color)
        : r(static_cast<float>(color.r) / 255.0f),
          g(static_cast<float>(color.g) / 255.0f),
          b(static_cast<float>(color.b) / 255.0f),
          a(static_cast<float>(color.a) / 255.0f)
    {
    }

    // Truncates; what a byte cannot hold keeps its low bits, not a number is 0.
    constexpr operator sColor() const { return {toByte(r), toByte(g), toByte(b), toByte(a)}; }

    constexpr float& operator[](int index) { return index < 2 ? (index ? g : r) : (index == 2 ? b : a); }
    constexpr float operator[](int index) const { return index < 2 ? (index ? g : r) : (index == 2 ? b : a); }

    constexpr sColorF operator*(const sColorF& other) const
    {
        return {r * other.r, g * other.g, b * other.b, a * other.a};
    }

    constexpr bool operator==(const sColorF&) const = default;

    float r;
    float g;
    float b;
    float a;

private:
    static constexpr unsigned char toByte(float component)
    {
        const float scaled = component * 255.0f;
        const bool inside = scaled > -9.0e18f && scaled < 9.0e18f;
        return inside ? static_cast<unsigned char>(static_cast<long long>(scaled)) : static_cast<unsigned char>(0);
    }
};

inline constexpr sColorF sColorF::Red{sColor::Red};
inline constexpr sColorF sColorF::Green{sColor::Green};
inline constexpr sColorF sColorF::Blue{sColor::Blue};
inline constexpr sColorF sColorF::Yellow{sColor::Yellow};
inline constexpr sColorF sColorF::Cyan{sColor::Cyan};
inline constexpr sColorF sColorF::Magenta{sColor::Magenta};
inline constexpr sColorF sColorF::White{sColor::White};
inline constexpr sColorF sColorF::Black{sColor::Black};
inline constexpr sColorF sColorF::Gray{sColor::Gray};
inline constexpr sColorF sColorF::LightGray{sColor::LightGray};
inline constexpr sColorF sColorF::DarkGray{sColor::DarkGray};
