#pragma once

#include <compare>

// A number with 16 fractional bits. Sums wrap, products are shifted arithmetically.
class sFixed
{
public:
    static const sFixed Zero;
    static const sFixed Half;
    static const sFixed One;
    static const sFixed Min;
    static const sFixed Max;

    // Leaves the value alone.
    constexpr sFixed() = default;

    // `shift` 16 takes an integer, 0 a raw value.
    constexpr sFixed(int value, unsigned int shift) : mRaw(static_cast<int>(static_cast<unsigned int>(value) << shift))
    {
    }

    // Truncates toward zero; saturates outside Min to Max; not a number is 0.
    constexpr sFixed(float value) : mRaw(fromFloat(value)) {}

    constexpr sFixed& operator=(float value)
    {
        mRaw = fromFloat(value);
        return *this;
    }

    constexpr explicit operator float() const { return static_cast<float>(mRaw) / 65536.0f; }

    // Rounds toward negative infinity.
    constexpr explicit operator int() const { return mRaw >> 16; }

    constexpr int getRaw() const { return mRaw; }

    constexpr sFixed operator+(sFixed other) const { return raw(bits(mRaw) + bits(other.mRaw)); }
    constexpr sFixed operator-(sFixed other) const { return raw(bits(mRaw) - bits(other.mRaw)); }
    constexpr sFixed operator-() const { return raw(0u - bits(mRaw)); }

    constexpr sFixed operator*(sFixed other) const
    {
        return raw(static_cast<unsigned int>((static_cast<long long>(mRaw) * other.mRaw) >> 16));
    }

    constexpr sFixed& operator+=(sFixed other) { return *this = *this + other; }

    constexpr auto operator<=>(const sFixed&) const = default;

private:
    static constexpr unsigned int bits(int value) { return static_cast<unsigned int>(value); }
    static constexpr sFixed raw(unsigned int value) { return {static_cast<int>(value), 0}; }

    static constexpr int fromFloat(float value)
    {
        const float scaled = value * 65536.0f;
        if (scaled != scaled)
            return 0;
        if (scaled >= 2147483648.0f)
            return 2147483647;
        return scaled < -2147483648.0f ? -2147483647 - 1 : static_cast<int>(scaled);
    }

    int mRaw;
};

inline constexpr sFixed sFixed::Zero{0, 0};
inline constexpr sFixed sFixed::Half{1, 15};
inline constexpr sFixed sFixed::One{1, 16};
inline constexpr sFixed sFixed::Min{-2147483647 - 1, 0};
inline constexpr sFixed sFixed::Max{2147483647, 0};
