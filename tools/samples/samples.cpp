#include "tools/samples/samples.h"

#include "animation/animcell.h"
#include "animation/animsequencer.h"
#include "foundation/dev.h"
#include "io/documentwriter.h"
#include "io/stream.h"
#include "io/xmlwriter.h"
#include "resource/textureresourcetga.h"
#include "tools/samples/samplesheet.h"
#include "tools/samples/trackbuilder.h"
#include "tools/samples/walker.h"

#include <array>

namespace
{
constexpr eInterpolateType Constant = eInterpolateType::Constant;
constexpr eInterpolateType Linear = eInterpolateType::Linear;
constexpr eInterpolateType Hermite = eInterpolateType::Hermite;

constexpr unsigned int CellFrames = 5;
constexpr unsigned int TurnFrames = Walker::CellNum * CellFrames;
constexpr unsigned int StepFrames = TurnFrames / 2;

// A sequence that is nested runs once, so the walk lasts longer than the parade and the start of its last walker.
constexpr unsigned int WalkTurns = 6;
constexpr unsigned int WalkFrames = WalkTurns * TurnFrames;
constexpr unsigned int ParadeFrames = 240;

// The origin of the walk lies on the ground between the feet.
constexpr sPoint WalkerPlace{0, -42};
constexpr sPoint ShadowPlace{0, 0};
constexpr sPoint BalloonPlace{-13, -84};

void setCell(TrackBuilder& track, const SampleSheet::sCell& cell)
{
    track.setValue("UV", sTexcoord(static_cast<int>(cell.left), static_cast<int>(cell.top)));
    track.setValue("Size", sSize(cell.width, cell.height));
}

// Paler while the body is up between two steps.
void addShadow(AnimResource& walk)
{
    SampleKeys<sColor> colors;
    for (unsigned int frame = 0; frame <= WalkFrames; frame += StepFrames / 2)
    {
        const unsigned char alpha = frame % StepFrames ? 170 : 255;
        colors.push_back({frame, Linear, sColor(255, 255, 255, alpha)});
    }

    TrackBuilder track(walk, AnimCell::getStaticTypeInfo(), "Shadow");
    setCell(track, SampleSheet::Shadow);
    track.setValue("Position", ShadowPlace);
    track.addLane("Color", colors);
}

// Sways with the steps and slowly changes its colour.
void addBalloon(AnimResource& walk)
{
    SampleKeys<sPoint> places;
    for (unsigned int frame = 0; frame <= WalkFrames; frame += StepFrames)
    {
        const sPoint sway = frame % TurnFrames ? sPoint(2, -3) : sPoint(-2, 1);
        places.push_back({frame, Hermite, BalloonPlace + sway});
    }

    const sColor red(240, 90, 90, 255);
    TrackBuilder track(walk, AnimCell::getStaticTypeInfo(), "Balloon");
    setCell(track, SampleSheet::Balloon);
    track.addLane("Position", places);
    track.addLane<sColor>("Color", {{0, Linear, red},
                                    {WalkFrames / 3, Linear, sColor(250, 200, 80, 255)},
                                    {WalkFrames * 2 / 3, Linear, sColor(90, 200, 170, 255)},
                                    {WalkFrames, Constant, red}});
}

void addWalker(AnimResource& walk)
{
    SampleKeys<sTexcoord> cells;
    for (unsigned int i = 0; i < WalkTurns * Walker::CellNum; ++i)
    {
        const SampleSheet::sCell cell = SampleSheet::getWalkerCell(i % Walker::CellNum);
        const sTexcoord place(static_cast<int>(cell.left), static_cast<int>(cell.top));
        cells.push_back({i * CellFrames, Constant, place});
    }

    TrackBuilder track(walk, AnimCell::getStaticTypeInfo(), "Walker");
    track.addLane("UV", cells);
    track.setValue("Size", sSize(Walker::CellWidthPixels, Walker::CellHeightPixels));
    track.setValue("Position", WalkerPlace);
}

void fillWalk(AnimResource& walk, ResourceBase* sheet)
{
    walk.setTexture(sheet);
    walk.setEndFrame(WalkFrames - 1);
    addShadow(walk);
    addBalloon(walk);
    addWalker(walk);
}

void addCloud(AnimResource& parade, const char* name, const sPoint& from, const sPoint& to, unsigned int attribute)
{
    TrackBuilder track(parade, AnimCell::getStaticTypeInfo(), name);
    setCell(track, SampleSheet::Cloud);
    track.addLane<sPoint>("Position", {{0, Linear, from}, {ParadeFrames, Constant, to}});
    track.setValue("Attribute", attribute);
}

// One child of the parade. Its walk begins `ahead` frames late in its turn, so that the children keep no step.
struct sChild
{
    const char* name;
    unsigned int ahead;
    sPoint from;
    int rise;      // how high the hill is that the child crosses, in pixels
    int steepness; // how far the child leans on its slopes, in 1024ths of a turn
    sColor color;
};

constexpr sChild Children[] = {
    {"Far", 0, {-40, -30}, 0, 0, {255, 255, 255, 255}},
    {"Hill", 20, {-140, 30}, 36, 40, {255, 240, 220, 255}},
    {"Middle", 35, {-60, 70}, 0, 0, {255, 255, 255, 255}},
    {"Near", 10, {-180, 110}, 12, 14, {220, 240, 255, 255}},
};

// A quarter of the way each: up, over the top, down, and even again.
SampleKeys<sPoint> makeWay(const sChild& child)
{
    const std::array<int, 5> rise = {0, child.rise / 2, child.rise, child.rise / 2, 0};
    constexpr unsigned int PartFrames = ParadeFrames / 4;
    constexpr unsigned int PartPixels = PartFrames * Walker::StridePixels / TurnFrames;

    SampleKeys<sPoint> way;
    for (unsigned int i = 0; i < rise.size(); ++i)
        way.push_back({i * PartFrames, Linear, child.from + sPoint(static_cast<int>(i * PartPixels), -rise[i])});
    return way;
}

void addChild(AnimResource& parade, AnimResource& walk, const sChild& child)
{
    TrackBuilder track(parade, AnimSequencer::getStaticTypeInfo(), child.name);
    track.setResource("Resource", &walk);
    track.addLane<unsigned int>("Seek", {{0, Constant, child.ahead}});
    track.addLane<bool>("Play", {{0, Constant, false}});
    track.addLane("Position", makeWay(child));
    track.addLane<sColor>("Color", {{0, Linear, child.color}, {ParadeFrames, Constant, sColor::White}});
    track.addLane<int>("Orientation", {{0, Hermite, 0},
                                       {ParadeFrames / 4, Hermite, -child.steepness},
                                       {ParadeFrames / 2, Hermite, 0},
                                       {ParadeFrames * 3 / 4, Hermite, child.steepness},
                                       {ParadeFrames, Constant, 0}});
}

void fillParade(AnimResource& parade, AnimResource& walk, ResourceBase* sheet)
{
    parade.setTexture(sheet);
    parade.setEndFrame(ParadeFrames - 1);
    addCloud(parade, "Cloud", {-150, -130}, {-110, -130}, AnimCell::Visible);
    addCloud(parade, "Flipped_cloud", {110, -170}, {130, -170}, AnimCell::Visible | AnimCell::HFlip);
    for (const sChild& child : Children)
        addChild(parade, walk, child);
}

bool writeSheet(const AutoString& file)
{
    const std::vector<unsigned char> bytes = SampleSheet::draw().makeTGA();
    const unsigned int size = static_cast<unsigned int>(bytes.size());
    BinaryFileStream stream(file.c_str(), FileStream::Write);
    if (stream.write(bytes.data(), size) == size && stream.flush())
        return true;
    DEV_TRACE("%s could not be written.\n", file.c_str());
    return false;
}

bool writeDocument(AnimResource& resource, const AutoString& file)
{
    XmlWriter writer(resource.getTypeInfo()->getName());
    resource.serialize(&writer, false, 0);
    return DocumentWriter::write(writer, file.c_str(), DocumentWriter::ePrevious::Drop);
}
} // namespace

bool Samples::write(const char* directory)
{
    const AutoString place(directory);
    if (!writeSheet(place + "walk.tga"))
        return false;

    // Documents name other resources by their path alone; nothing has to be loaded.
    auto* sheet = new TextureResourceTGA;
    sheet->setPath("intermediate/walk.tga");
    auto* walk = new AnimResource;
    walk->setPath("intermediate/walk.asq.xml");
    fillWalk(*walk, sheet);
    auto* parade = new AnimResource;
    fillParade(*parade, *walk, sheet);

    const bool written =
        writeDocument(*walk, place + "walk.asq.xml") && writeDocument(*parade, place + "parade.asq.xml");
    parade->release();
    walk->release();
    sheet->release();
    return written;
}
