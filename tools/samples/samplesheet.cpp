#include "tools/samples/samplesheet.h"

#include "tools/samples/walker.h"

namespace
{
constexpr unsigned int ColumnNum = 4;
constexpr unsigned int SheetWidth = ColumnNum * Walker::CellWidthPixels;
constexpr unsigned int SheetHeight = SampleSheet::Balloon.top + SampleSheet::Balloon.height;
static_assert(SampleSheet::Shadow.top == Walker::CellNum / ColumnNum * Walker::CellHeightPixels);
static_assert(SampleSheet::Cloud.left + SampleSheet::Cloud.width <= SheetWidth);

constexpr float ShadowOpacity = 0.55f;
constexpr float OutlinePixels = 1.3f;

// Nearly white, so that a sequence can give it any colour.
constexpr sPaint Rubber{0.98f, 0.96f, 0.94f};
constexpr sPaint String{0.35f, 0.30f, 0.30f};
constexpr sPaint Vapour{1.0f, 1.0f, 1.0f};

Picture drawShadow(const SampleSheet::sCell& cell)
{
    Picture picture(cell.width, cell.height);
    const float width = static_cast<float>(cell.width);
    const float height = static_cast<float>(cell.height);
    picture.drawShadow({width / 2.0f, height / 2.0f}, width, height, ShadowOpacity);
    return picture;
}

Picture drawBalloon(const SampleSheet::sCell& cell)
{
    Picture picture(cell.width, cell.height);
    picture.draw({{{15.0f, 31.0f}, 0.5f, {13.0f, 42.0f}, 0.5f},
                  {{13.0f, 42.0f}, 0.5f, {17.0f, 52.0f}, 0.5f},
                  {{17.0f, 52.0f}, 0.5f, {18.0f, 63.0f}, 0.5f}},
                 {}, String, 0.0f);
    picture.draw({{{16.0f, 13.0f}, 11.5f, {15.5f, 17.0f}, 10.5f}, {{15.5f, 22.0f}, 6.0f, {15.0f, 30.5f}, 1.8f}}, {},
                 Rubber, OutlinePixels);
    picture.draw({{{10.5f, 9.5f}, 1.6f, {12.5f, 7.5f}, 1.6f}}, {}, Vapour, 0.0f);
    return picture;
}

Picture drawCloud(const SampleSheet::sCell& cell)
{
    Picture picture(cell.width, cell.height);
    picture.draw({{{16.0f, 34.0f}, 12.0f, {96.0f, 34.0f}, 12.0f},
                  {{36.0f, 24.0f}, 16.0f, {42.0f, 26.0f}, 16.0f},
                  {{64.0f, 18.0f}, 16.0f, {68.0f, 22.0f}, 16.0f},
                  {{86.0f, 28.0f}, 12.0f, {86.0f, 28.0f}, 12.0f}},
                 {}, Vapour, 0.0f);
    return picture;
}

void place(Picture& sheet, const SampleSheet::sCell& cell, const Picture& picture)
{
    sheet.place(picture, cell.left, cell.top);
}
} // namespace

SampleSheet::sCell SampleSheet::getWalkerCell(unsigned int cell)
{
    return {cell % ColumnNum * Walker::CellWidthPixels, cell / ColumnNum * Walker::CellHeightPixels,
            Walker::CellWidthPixels, Walker::CellHeightPixels};
}

Picture SampleSheet::draw()
{
    Picture sheet(SheetWidth, SheetHeight);
    for (unsigned int i = 0; i < Walker::CellNum; ++i)
        place(sheet, getWalkerCell(i), Walker::drawCell(i));
    place(sheet, Shadow, drawShadow(Shadow));
    place(sheet, Balloon, drawBalloon(Balloon));
    place(sheet, Cloud, drawCloud(Cloud));
    return sheet;
}
