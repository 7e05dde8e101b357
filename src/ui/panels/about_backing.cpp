#include "ui/panels/about_backing.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/about.h"
#include "ui/picture_view.h"
#include "ui/pictures.h"
#include "ui/scaled_painter.h"

namespace kzq {

AboutBacking::AboutBacking(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    QCoreApplication::instance()->installEventFilter(this);
}

void AboutBacking::setController(About* about) {
    controller_ = about;
}

void AboutBacking::setImage(PictureView* image) {
    image_ = image;
}

void AboutBacking::setVersions(std::string software, FirmwareVersion firmware) {
    software_ = std::move(software);
    firmware_ = std::move(firmware);
}

std::optional<std::string> AboutBacking::currentSoftware() const {
    return software_.empty() ? std::nullopt : std::optional(software_);
}

QString AboutBacking::versionText() const {
    const auto software = currentSoftware();
    if (!software) {
        return {};
    }
    const auto firmware = firmware_ ? firmware_() : std::nullopt;
    const auto pedal = firmware.value_or("").empty() ? std::string() : " (" + *firmware + ")";
    return QString::fromStdString(*software + pedal);
}

void AboutBacking::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawImage(painter);
    drawVersion(painter);
}

void AboutBacking::drawImage(ScaledPainter& painter) const {
    if (image_) {
        drawPicture(painter, image_->picture(), painter.bounds());
    }
}

/// Right-aligned 15 from the right edge, the foot of the text 13 above the bottom.
void AboutBacking::drawVersion(ScaledPainter& painter) const {
    const auto text = versionText();
    const auto font = firaSans(FiraWeight::light, 13);
    if (text.isEmpty() || !font) {
        return;
    }
    painter.setType(*font);
    const double textWidth = painter.advance(text);
    const double x = painter.bounds().width() - textWidth - 15.0;
    if (textWidth == 0 || x == 0) {
        return;
    }
    painter.setPen(KZQWhite());
    painter.write(QPointF(x, painter.bounds().height() - 13 - QFontMetrics(*font).descent()), text);
}

bool AboutBacking::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto& keys = static_cast<const QKeyEvent&>(*event);  // NOLINT(*-static-cast-downcast)
        if (keys.isAutoRepeat()) {
            return QWidget::eventFilter(watched, event);
        }
        if (event->type() == QEvent::KeyPress) {
            held_.insert(keys.key());
        } else {
            held_.remove(keys.key());
        }
    }
    return QWidget::eventFilter(watched, event);
}

void AboutBacking::showEvent(QShowEvent* event) {
    heldBefore_ = held_;
    QWidget::showEvent(event);
}

void AboutBacking::keyPressEvent(QKeyEvent* event) {
    event->accept();
    if (!event->isAutoRepeat()) {
        heldBefore_.remove(event->key());
    }
}

void AboutBacking::keyReleaseEvent(QKeyEvent* event) {
    event->accept();
    const int key = event->key();
    if (event->isAutoRepeat() || heldBefore_.remove(key)) {
        return;
    }
    const bool closes =
        key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space || key == Qt::Key_Escape;
    if (closes && controller_) {
        controller_->close();
    }
}

void AboutBacking::mousePressEvent(QMouseEvent* /*event*/) {
    if (controller_) {
        controller_->close();
    }
}

}  // namespace kzq
