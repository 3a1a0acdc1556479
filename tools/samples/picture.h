#pragma once

#include <cstddef>
#include <vector>

// A place in a picture: pixels from the left top corner, pixel centres at one half.
struct sPlace
{
    float x;
    float y;
};

constexpr sPlace operator+(const sPlace& left, const sPlace& right)
{
    return {left.x + right.x, left.y + right.y};
}

constexpr sPlace operator-(const sPlace& left, const sPlace& right)
{
    return {left.x - right.x, left.y - right.y};
}

constexpr sPlace operator*(const sPlace& place, float scale)
{
    return {place.x * scale, place.y * scale};
}

// A paint without transparency, each component 0.0 to 1.0.
struct sPaint
{
    float r;
    float g;
    float b;
};

// Two circles and what a rope around them encloses: a limb, and with equal places a disc.
struct sCapsule
{
    sPlace from;
    float fromRadius;
    sPlace to;
    float toRadius;
};

using Shape = std::vector<sCapsule>;

// A transparent canvas for smooth shapes. Only sums, products and square roots are used, so the same
// picture comes out to the last bit wherever it is drawn.
class Picture
{
public:
    Picture(unsigned int width, unsigned int height);

    // The capsules of a shape melt into one; `offset` moves the whole. Light comes from the left top.
    void draw(const Shape& shape, const sPlace& offset, const sPaint& paint, float outlinePixels);
    // A dark disc squeezed to width and height, whose edge fades over all of its radius.
    void drawShadow(const sPlace& centre, float width, float height, float opacity);

    // Copies the whole of another picture, which must fit behind that place.
    void place(const Picture& picture, unsigned int x, unsigned int y);

    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }

    // 32-bit TGA with the top row first. Bytes stand as red, green, blue, alpha, since the loader hands them on
    // in file order.
    std::vector<unsigned char> makeTGA() const;

private:
    struct sPixel
    {
        float r = 0;
        float g = 0;
        float b = 0;
        float a = 0;
    };

    void blend(unsigned int x, unsigned int y, const sPaint& paint, float coverage);

    unsigned int mWidth;
    unsigned int mHeight;
    // Colours are multiplied by their alpha.
    std::vector<sPixel> mPixels;
};
