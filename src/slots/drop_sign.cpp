#include "slots/drop_sign.h"

#include <cmath>

#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"

namespace kzq {

namespace {

constexpr int wordsRight = 228;  // in the name field
constexpr int wordsPixels = 12;
constexpr int wordsBaseline = 18;
constexpr int beforeWords = 12;
constexpr float refusedName = 0.55F;

struct Outline {
    const char* picture;
    QColor name;
    QColor words;
};

Outline outlineOf(DropSign::Kind kind) {
    auto faint = KZQWhite();
    faint.setAlphaF(refusedName);
    switch (kind) {
        case DropSign::Kind::replaces:
            return {"Export_field_drop_overwrite", KZQYellow(), KZQYellow()};
        case DropSign::Kind::refused:
            return {"Export_field_drop_refused", faint, KZQRed()};
        case DropSign::Kind::fills:
            break;
    }
    return {"Export_field_drop", KZQWhite(), exportColor()};
}

}  // namespace

void drawDropSign(ScaledPainter& painter, const QRectF& bounds, double nameLeft, const DropSign& sign) {
    const auto [picture, nameColour, wordsColour] = outlineOf(sign.kind);
    drawPicture(painter, picture, bounds);
    painter.setType(textFont(wordsPixels));
    painter.setPen(wordsColour);
    double left = bounds.left() + wordsRight;
    if (!sign.refusal.isEmpty()) {
        painter.fitType(sign.refusal, bounds.width() / 3);
        left -= std::round(painter.advance(sign.refusal));
        painter.write(QPointF(left, wordsBaseline), sign.refusal);
        left -= std::round(painter.advance(QString(QLatin1Char(' '))));
    }
    painter.setType(textFont(wordsPixels));
    drawFigures(painter, left, wordsBaseline, sign.length);
    left -= figuresWidth(sign.length);
    painter.setType(textFont());
    painter.setPen(nameColour);
    painter.writeName(QPointF(nameLeft, wordsBaseline), sign.name, left - beforeWords - nameLeft);
}

}  // namespace kzq
