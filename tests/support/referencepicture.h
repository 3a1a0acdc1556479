#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "tests/support/bytes.h"

#include <array>
#include <string>
#include <vector>

// The picture of one frame of an animation, computed on the processor from the text of its file: an independent
// second route to what the program shows. It reads documents as they are written, one tag a line, and pictures as TGA,
// and knows cells that stand upright, not what they are turned and flipped by.
class ReferencePicture
{
public:
    static constexpr int Width = 1024;
    static constexpr int Height = 768;
    static constexpr sColor Background{77, 77, 77, 0};

    // `directory` holds the files; the origin of the animation stands in the middle of the picture.
    ReferencePicture(const std::string& directory, const std::string& name, unsigned int frame);

    const std::vector<sColor>& getPixels() const { return mPixels; }

private:
    void blend(const sPoint& place, const sPoint& texel, const std::array<int, 4>& color);

    Bytes mSheet;
    std::vector<sColor> mPixels;
};
