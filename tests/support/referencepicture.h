#pragma once

#include "foundation/scolor.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

// The picture of one frame of an animation, computed on the processor from the text of its file: an independent
// second route to what the program shows. It reads documents as they are written, one tag a line, pictures as TGA,
// and holds for frames that were reached by steps of one frame from the start.
class ReferencePicture
{
public:
    ReferencePicture(int width, int height, sColor background);

    // `directory` holds the files; the origin of the animation stands in the middle of the picture.
    void draw(const std::string& directory, const std::string& name, unsigned int frame);

    // How many pixels of a picture of that size are not as they have to be. Where only upright cells were drawn a
    // pixel is the same but for rounding; in and beside turned cells it lies among its neighbours.
    int countDifferences(const std::vector<sColor>& found) const;

    // Pixels that are neither of the background nor near a turned cell, and those near a turned one.
    int countUpright() const;
    int countTurned() const;

private:
    // Where an animation stands: its origin in the picture and its turn in radians.
    struct sPlace
    {
        double x = 0;
        double y = 0;
        double angle = 0;
    };

    struct sCorner
    {
        double x, y, s, t;
    };

    struct sSheet
    {
        sColor get(double s, double t) const;

        int width = 0;
        int height = 0;
        std::vector<sColor> texels;
    };

    struct sAnimation;
    struct sTrack;

    void drawAnimation(const std::string& directory, const std::string& name, unsigned int frame, const sPlace& place);
    void drawCell(const sTrack& track, unsigned int frame, const sPlace& place, const sSheet& sheet);
    static std::optional<sColor> sample(const std::array<sCorner, 4>& corners, const sSheet& sheet, double x, double y);
    void blend(int x, int y, sColor texel, sColor color, bool turned);
    bool isTurnedNear(int x, int y) const;
    bool isFoundNear(const std::vector<sColor>& found, int x, int y, int distance) const;
    static sSheet readSheet(const std::string& path);

    int mWidth;
    int mHeight;
    sColor mBackground;
    std::vector<sColor> mPixels;
    std::vector<bool> mTurned;
};
