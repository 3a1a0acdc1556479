#include "tools/samples/walker.h"

#include <array>
#include <cmath>

namespace
{
constexpr unsigned int PoseNum = 8;

constexpr sPlace HipPlace{31.0f, 58.2f};
constexpr sPlace ShoulderFromHip{1.5f, -18.0f};
constexpr sPlace HeadFromHip{4.0f, -33.0f};
constexpr float GroundY = 90.5f;
constexpr float UpperLeg = 14.5f;
constexpr float LowerLeg = 14.0f;
constexpr float UpperArm = 9.5f;
constexpr float LowerArm = 9.0f;
constexpr float AnkleHeight = 5.0f;
constexpr float OutlinePixels = 1.3f;

constexpr sPaint Skin{0.98f, 0.78f, 0.62f};
constexpr sPaint Jacket{0.16f, 0.62f, 0.60f};
constexpr sPaint Trousers{0.36f, 0.36f, 0.62f};
constexpr sPaint Shoe{0.93f, 0.38f, 0.30f};
constexpr sPaint Rucksack{0.72f, 0.47f, 0.26f};
constexpr sPaint Hat{0.98f, 0.72f, 0.24f};
constexpr sPaint HatBand{0.93f, 0.38f, 0.30f};
constexpr sPaint Hair{0.42f, 0.24f, 0.14f};
constexpr sPaint Eye{0.16f, 0.10f, 0.10f};
constexpr sPaint Cheek{0.98f, 0.60f, 0.50f};
// Limbs on the far side stand in the shadow of the body.
constexpr float FarScale = 0.72f;

// What a leg does over one turn: contact, down, passing, push, lift, swing, passing, reach.
struct sLegPose
{
    float forward;
    float lift;
    sPlace toe;
};

constexpr std::array<sLegPose, PoseNum> LegPoses{{
    {12.0f, 1.5f, {7.0f, -3.0f}},
    {6.0f, 0.0f, {7.5f, 0.5f}},
    {0.0f, 0.0f, {7.5f, 0.5f}},
    {-6.0f, 0.5f, {7.5f, 0.8f}},
    {-12.0f, 3.2f, {6.2f, 3.6f}},
    {-12.0f, 7.5f, {4.6f, 5.8f}},
    {-2.5f, 8.0f, {6.2f, 3.6f}},
    {8.0f, 4.5f, {7.3f, -1.2f}},
}};

// Hands swing against the leg of their side, measured from the shoulder.
constexpr std::array<sPlace, PoseNum> HandPoses{{
    {-10.5f, 13.0f},
    {-9.0f, 14.0f},
    {-2.5f, 17.0f},
    {6.0f, 15.5f},
    {12.0f, 11.0f},
    {11.0f, 12.0f},
    {4.0f, 16.5f},
    {-6.0f, 15.5f},
}};

// How far the hip sinks, twice a turn the same.
constexpr std::array<float, PoseNum> HipSink{{1.0f, 2.2f, 0.0f, -1.5f, 1.0f, 2.2f, 0.0f, -1.5f}};

// A smooth closed curve through the values of the poses; a turn is PoseNum long.
template <typename Value, typename Read>
Value readPose(Read read, float turn)
{
    const unsigned int pose = static_cast<unsigned int>(turn);
    const float t = turn - static_cast<float>(pose);
    const auto at = [&](unsigned int step) -> Value
    {
        return read((pose + step) % PoseNum);
    };
    const Value before = at(PoseNum - 1);
    const Value from = at(0);
    const Value to = at(1);
    const Value after = at(2);
    const Value leave = (to - before) * 0.5f;
    const Value arrive = (after - from) * 0.5f;
    const Value way = to - from;
    return from + (leave + (way * 3.0f - leave * 2.0f - arrive + (leave + arrive - way * 2.0f) * t) * t) * t;
}

// The joint between two bones that begin at `from` and end at `to`; `side` is 1 or -1 and says where it bends to.
sPlace findJoint(const sPlace& from, const sPlace& to, float upper, float lower, float side)
{
    const sPlace way = to - from;
    const float length = std::sqrt(way.x * way.x + way.y * way.y);
    if (length >= upper + lower)
        return from + way * (upper / (upper + lower));

    const float along = (upper * upper - lower * lower + length * length) / (2.0f * length);
    const float aside = std::sqrt(upper * upper - along * along) * side / length;
    return from + way * (along / length) + sPlace{way.y * aside, -way.x * aside};
}

sPaint scale(const sPaint& paint, float factor)
{
    return {paint.r * factor, paint.g * factor, paint.b * factor};
}

float wrapTurn(float turn)
{
    return turn < PoseNum ? turn : turn - PoseNum;
}

// Draws one moment of the walk into a cell, part by part from the far side to the near one.
class Figure
{
public:
    Figure(Picture& picture, float turn)
        : mPicture(picture),
          mNearTurn(turn),
          mFarTurn(wrapTurn(turn + PoseNum / 2.0f)),
          mHip(HipPlace + sPlace{0.0f, readPose<float>([](unsigned int pose) { return HipSink[pose]; }, turn)})
    {
    }

    void draw()
    {
        drawArm(mFarTurn, {2.0f, 0.0f}, FarScale);
        drawLeg(mFarTurn, {1.5f, 0.0f}, FarScale);
        drawLeg(mNearTurn, {-0.5f, 0.0f}, 1.0f);
        drawBody();
        drawHead();
        drawArm(mNearTurn, {-1.0f, 0.0f}, 1.0f);
    }

private:
    void drawPart(const Shape& shape, const sPaint& paint, float outlinePixels = OutlinePixels)
    {
        mPicture.draw(shape, {0.0f, 0.0f}, paint, outlinePixels);
    }

    void drawLeg(float turn, const sPlace& shift, float light)
    {
        const float forward = readPose<float>([](unsigned int pose) { return LegPoses[pose].forward; }, turn);
        const float lift = readPose<float>([](unsigned int pose) { return LegPoses[pose].lift; }, turn);
        const sPlace toe = readPose<sPlace>([](unsigned int pose) { return LegPoses[pose].toe; }, turn);

        const sPlace hip = mHip + shift;
        const sPlace ankle{HipPlace.x + shift.x + forward, GroundY - AnkleHeight - lift};
        const sPlace knee = findJoint(hip, ankle, UpperLeg, LowerLeg, 1.0f);
        const sPlace heel = ankle + sPlace{-1.0f, 0.8f};
        drawPart({{heel, 4.0f, ankle + toe + sPlace{1.0f, 1.0f}, 3.2f}}, scale(Shoe, light));
        drawPart({{hip, 6.0f, knee, 4.8f}, {knee, 4.8f, ankle + sPlace{0.0f, -2.0f}, 4.2f}}, scale(Trousers, light));
    }

    void drawArm(float turn, const sPlace& shift, float light)
    {
        const sPlace shoulder = mHip + ShoulderFromHip + shift;
        const sPlace hand = shoulder + readPose<sPlace>([](unsigned int pose) { return HandPoses[pose]; }, turn);
        const sPlace elbow = findJoint(shoulder, hand, UpperArm, LowerArm, -1.0f);
        drawPart({{hand, 3.5f, elbow + (hand - elbow) * 1.2f, 3.2f}}, scale(Skin, light));
        drawPart({{shoulder, 4.4f, elbow, 3.8f}, {elbow, 3.8f, elbow + (hand - elbow) * 0.55f, 3.6f}},
                 scale(Jacket, light));
    }

    void drawBody()
    {
        drawPart({{mHip + sPlace{-9.5f, -15.0f}, 6.0f, mHip + sPlace{-10.0f, -6.0f}, 6.5f}}, Rucksack);
        drawPart({{mHip + sPlace{1.0f, -17.0f}, 7.0f, mHip + sPlace{0.0f, -2.0f}, 8.5f}}, Jacket);
        drawPart({{mHip + sPlace{-4.0f, -19.0f}, 1.4f, mHip + sPlace{-3.0f, -9.0f}, 1.4f}}, Rucksack, 0.6f);
    }

    void drawHead()
    {
        const sPlace head = mHip + HeadFromHip;
        drawPart({{head + sPlace{-7.0f, 5.0f}, 7.0f, head + sPlace{-2.0f, -2.0f}, 11.5f}}, Hair);
        drawPart({{head + sPlace{0.5f, 0.5f}, 11.5f, head + sPlace{2.5f, 1.5f}, 11.0f},
                  {head + sPlace{13.0f, 2.0f}, 2.0f, head, 2.0f}},
                 Skin);
        drawPart({{head + sPlace{-9.0f, -2.0f}, 4.5f, head + sPlace{-7.0f, 7.0f}, 3.0f}}, Hair, 0.0f);
        drawPart({{head + sPlace{-3.0f, 3.5f}, 2.4f, head + sPlace{-3.0f, 3.5f}, 2.4f}}, Skin, 0.9f);
        drawPart({{head + sPlace{8.2f, -0.8f}, 1.5f, head + sPlace{8.2f, 1.4f}, 1.5f}}, Eye, 0.0f);
        drawPart({{head + sPlace{5.0f, 5.6f}, 2.3f, head + sPlace{5.0f, 5.6f}, 2.3f}}, Cheek, 0.0f);
        drawPart({{head + sPlace{8.6f, 7.4f}, 0.7f, head + sPlace{10.6f, 6.4f}, 0.7f}}, Eye, 0.0f);
        drawPart({{head + sPlace{-5.5f, -18.0f}, 3.6f, head + sPlace{-5.5f, -18.0f}, 3.6f}}, HatBand);
        drawPart({{head + sPlace{-3.0f, -10.5f}, 6.5f, head + sPlace{3.5f, -9.5f}, 6.5f}}, Hat);
        drawPart({{head + sPlace{-10.5f, -7.4f}, 2.6f, head + sPlace{11.0f, -6.0f}, 2.6f}}, HatBand);
    }

    Picture& mPicture;
    float mNearTurn;
    float mFarTurn;
    sPlace mHip;
};
} // namespace

Picture Walker::drawCell(unsigned int cell)
{
    Picture picture(CellWidthPixels, CellHeightPixels);
    Figure(picture, static_cast<float>(cell) * PoseNum / CellNum).draw();
    return picture;
}
