#include "slots/waveform.h"

#include <gtest/gtest.h>

#include <QImage>

#include "slots/row_layout.h"
#include "ui/palette.h"

namespace kzq::test {
namespace {

constexpr double clockWidth = 24;  // "0:42"

RowContents named(RowGround ground, double nameWidth, bool plays = false) {
    return {.ground = ground,
            .nameLeft = 76,
            .nameWidth = nameWidth,
            .clockWidth = clockWidth,
            .waveform = true,
            .plays = plays};
}

TEST(RowLayout, AWaveformBeginsAtTheFirstStopThatLeavesItAndTheNameRoom) {
    const struct {
        RowContents contents;
        std::optional<int> waveLeft;
        double nameRight;
    } cases[] = {
        {named(RowGround::groove, 52), 136, 292},         {named(RowGround::groove, 52.5), 160, 292},
        {named(RowGround::groove, 156), 240, 292},        {named(RowGround::groove, 157), std::nullopt, 292},
        {named(RowGround::groove, 157, true), 240, 232},  {named(RowGround::tape, 116), 200, 252},
        {named(RowGround::tape, 117), std::nullopt, 252}, {named(RowGround::tape, 117, true), 200, 192},
        {named(RowGround::tape, 116, true), 200, 252},    {named(RowGround::console, 30), std::nullopt, 292},
        {named(RowGround::tape, 400), std::nullopt, 252},
    };
    for (const auto& [contents, waveLeft, nameRight] : cases) {
        const auto layout = layOutRow(contents);
        EXPECT_EQ(layout.waveLeft, waveLeft) << contents.nameWidth;
        EXPECT_EQ(layout.nameRight, nameRight) << contents.nameWidth;
    }
    auto untimed = named(RowGround::tape, 400);
    untimed.clockWidth = 0;
    EXPECT_EQ(layOutRow(untimed).nameRight, 292);
}

TEST(Waveform, WhatWasPlayedIsCreamNothingTouchesThePlayheadAndTheRestIsDots) {
    Peaks peaks;
    peaks.heights.fill(255);
    peaks.known = Peaks::columns * 30 / 38;  // of 38 bars
    QImage image(344, 28, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        drawWaveform(painter, {.peaks = &peaks,
                               .left = 136,
                               .right = 286,
                               .ground = RowGround::groove,
                               .part = Waveform::Part::whole,
                               .playhead = 190,
                               .sounds = true});
        drawPlayhead(painter, 190, RowGround::groove);
    }
    const auto at = [&image](int x, int y) { return image.pixelColor(x, y); };
    EXPECT_EQ(at(136, 6), creamColor());
    EXPECT_EQ(at(184, 21), creamColor());
    EXPECT_EQ(at(188, 13), QColor(Qt::black));
    EXPECT_EQ(at(190, 0), KZQYellow());
    EXPECT_EQ(at(192, 13), QColor(Qt::black));
    EXPECT_EQ(at(196, 6), waveColor());
    EXPECT_EQ(at(248, 6), waveColor());
    EXPECT_EQ(at(256, 6), QColor(Qt::black));
    EXPECT_EQ(at(284, 13), missingColor());
    EXPECT_EQ(at(286, 13), QColor(Qt::black));
}

TEST(Waveform, AtThreeQuartersBarsAndPlayheadStandOnWholePixelsWhereverTheyAreMoved) {
    Peaks peaks;
    peaks.heights.fill(255);
    peaks.known = Peaks::columns;
    QImage image(258, 21, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        painter.scale(0.75, 0.75);
        painter.translate(-1, 0);
        drawWaveform(painter, {.peaks = &peaks, .left = 136, .right = 286, .playhead = {}});
        drawPlayhead(painter, 8, RowGround::groove);
    }
    for (const int x : {101, 104, 107, 212}) {
        EXPECT_EQ(image.pixelColor(x, 10), waveColor()) << x;
        EXPECT_EQ(image.pixelColor(x + 1, 10), QColor(Qt::black)) << x;
    }
    const auto at = [&image](int x) { return image.pixelColor(x, 10) == KZQYellow(); };
    EXPECT_TRUE(!at(4) && at(5) && at(6) && !at(7)) << "two pixels wide, where a bar has one";
}

}  // namespace
}  // namespace kzq::test
