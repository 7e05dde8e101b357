#include "ui/picture_button.h"

#include "ui/palette.h"
#include "ui/picture_words.h"

namespace kzq {

void PictureButton::setPicture(const QString& name) {
    picture_ = name;
    update();
}

void PictureButton::setWords(const QStringList& words) {
    words_ = words;
    update();
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    drawWorded(*this, picture_, words_, tint());
}

QColor PictureButton::tint() const {
    if (picture_.endsWith("_On") || !(isDown() || hovering())) {
        return {};
    }
    return isDown() ? pressTint() : hoverTint();
}

}  // namespace kzq
