#include "ui/button_face.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <cmath>

#include "ui/fonts.h"
#include "ui/palette.h"

namespace kzq {

namespace {

constexpr int radius = 8;
constexpr int wordPixels = 15;
constexpr int fullLip = 4;
constexpr int pressedLip = 2;
constexpr QColor brownLip(0x14, 0x0A, 0x0A);
constexpr QColor creamLip(0x9C, 0x8A, 0x6A);
constexpr QColor greenLip(0x2F, 0x8A, 0x58);
constexpr QColor blueLip(0x00, 0x70, 0x8C);

ButtonFace disabledFace() {
    return {disabledFaceColor(), disabledFaceColor(), disabledFaceColor(), disabledWordColor(), 0};
}

QRect upperSide(const QRect& bounds, const ButtonFace& face) {
    const auto lower = face.lipHeight > 0 ? fullLip - face.lipHeight : fullLip / 2;
    return bounds.adjusted(0, 0, 0, -fullLip).translated(0, lower);
}

}  // namespace

ButtonFace brownFace(ButtonState state) {
    switch (state) {
        case ButtonState::off:
            return {{0x52, 0x32, 0x30}, {0x48, 0x2A, 0x29}, brownLip, KZQWhite()};
        case ButtonState::hover:
            return {{0x75, 0x4D, 0x4A}, {0x65, 0x3F, 0x3D}, brownLip, KZQWhite()};
        case ButtonState::down:
            return {plateTopColor(), plateTopColor(), brownLip, KZQWhite(), pressedLip};
        case ButtonState::disabled:
            break;
    }
    return disabledFace();
}

ButtonFace creamFace(ButtonState state) {
    switch (state) {
        case ButtonState::off:
            return {{0xFF, 0xFA, 0xF0}, {0xF0, 0xE4, 0xCE}, creamLip, inkColor()};
        case ButtonState::hover:
            return {KZQWhite(), {0xFF, 0xFA, 0xF0}, creamLip, inkColor()};
        case ButtonState::down:
            return {{0xDD, 0xCF, 0xB4}, {0xDD, 0xCF, 0xB4}, creamLip, inkColor(), pressedLip};
        case ButtonState::disabled:
            break;
    }
    return disabledFace();
}

ButtonFace greenFace(ButtonState state) {
    switch (state) {
        case ButtonState::off:
            return {{0x8C, 0xE8, 0xB2}, {0x5C, 0xCB, 0x8B}, greenLip, inkColor()};
        case ButtonState::hover:
            return {{0xA5, 0xF0, 0xC3}, {0x6F, 0xDB, 0x9C}, greenLip, inkColor()};
        case ButtonState::down:
            return {{0x4F, 0xB8, 0x7C}, {0x4F, 0xB8, 0x7C}, greenLip, inkColor(), pressedLip};
        case ButtonState::disabled:
            break;
    }
    return disabledFace();
}

ButtonFace blueFace(ButtonState state) {
    switch (state) {
        case ButtonState::off:
            return {{0x2C, 0xC6, 0xEA}, {0x00, 0xA6, 0xCE}, blueLip, inkColor()};
        case ButtonState::hover:
            return {KZQLinkHover(), KZQLinkHover(), blueLip, inkColor()};
        case ButtonState::down:
            return {{0x00, 0x93, 0xB8}, {0x00, 0x93, 0xB8}, blueLip, inkColor(), pressedLip};
        case ButtonState::disabled:
            break;
    }
    return disabledFace();
}

void drawButtonFace(ScaledPainter& painter, const QRect& bounds, const ButtonFace& face,
                    const QString& word) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto upper = upperSide(bounds, face);
    if (face.lipHeight > 0) {
        painter.setBrush(face.lip);
        painter.drawRoundedRect(bounds.adjusted(0, bounds.height() / 2, 0, 0), radius, radius);
    }
    QLinearGradient light(upper.topLeft(), upper.bottomLeft());
    light.setColorAt(0, face.top);
    light.setColorAt(1, face.foot);
    painter.setBrush(light);
    painter.drawRoundedRect(upper, radius, radius);
    painter.setType(wordFont(wordPixels));
    painter.fitType(word, bounds.width() - 2 * radius);
    painter.setPen(face.word);
    painter.write(upper, Qt::AlignCenter, word);
}

int faceWidth(const QString& word) {
    return static_cast<int>(std::ceil(QFontMetricsF(wordFont(wordPixels)).horizontalAdvance(word))) +
           2 * radius;
}

double upperMiddle(const QRect& bounds, const ButtonFace& face) {
    return QRectF(upperSide(bounds, face)).center().y();
}

}  // namespace kzq
