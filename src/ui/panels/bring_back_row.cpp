#include "ui/panels/bring_back_row.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "loops/facts.h"
#include "loops/spoken_length.h"
#include "slots/waveform.h"
#include "ui/accessible_controls.h"
#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/key_button.h"
#include "ui/letter_keys.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

constexpr QRect ringFrame(0, 2, 24, 24);
constexpr QRect selectorFrame(28, 2, 24, 24);
constexpr QRect field(60, 0, 516, 28);

// in the field
constexpr int nameX = 16;
constexpr int fateX = 84;
constexpr int waveX = 240;
constexpr int waveEnd = 370;
constexpr int lengthEnd = 420;
constexpr int leaderLeft = 440;
constexpr int wordEnd = 492;
constexpr int rowBaseline = 18;
constexpr double chevronX = 504;
constexpr double restingWords = 0.55;
constexpr double smallRestingWords = 0.65;  // below 100 %
constexpr double wordsOnTape = 0.8;

QColor cream(double opacity) {
    auto color = creamColor();
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QString lengthText(int seconds) {
    return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

std::string lengthInWords(int seconds) {
    return spokenLength({static_cast<std::uint64_t>(seconds) * framesPerSecond});
}

class Selector : public QAbstractButton {
  public:
    explicit Selector(BringBackRow* row) : QAbstractButton(row), row_(*row) {
        setCheckable(true);
        setAttribute(Qt::WA_Hover);
        setFocusPolicy(Qt::TabFocus);
        setProperty("focusRingRect", QRect());
        setProperty("focusRingRadius", 12);
        setGeometry(selectorFrame);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        drawPicture(painter,
                    !isChecked()                             ? "Import_Selector_Off"
                    : row_.target().occupied.value_or(false) ? "Selector_replaces"
                                                             : "Selector_in",
                    rect(),
                    isDown()       ? pressTint()
                    : underMouse() ? hoverTint()
                                   : QColor());
    }

  private:
    const BringBackRow& row_;
};

class Ring : public KeyButton {
  public:
    explicit Ring(BringBackRow* row) : KeyButton(row), row_(*row) {
        setFocusPolicy(Qt::NoFocus);
        setProperty(reachedByArrows, true);
        setProperty("focusRingRadius", 12);
        setGeometry(ringFrame);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const bool stops = row_.sound().on;
        const QString state = isDown() ? "Press" : hovering() ? "Hover" : stops ? "Off" : "Row";
        drawPicture(painter, (stops ? "Stop_" : "Play_") + state, rect());
    }

  private:
    const BringBackRow& row_;
};

/// The row draws it.
class Leader : public KeyButton {
  public:
    explicit Leader(QWidget* row) : KeyButton(row) {
        setProperty("focusRingRadius", 4);
        opens(*this, nullptr);
        setGeometry(field.x() + leaderLeft, field.y(), field.width() - leaderLeft, field.height());
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {}
};

}  // namespace

QString spokenTarget(const BringBackTarget& target) {
    return toQt(!target.occupied   ? words("to slot %1", target.slot)
                : *target.occupied ? words("to slot %1, replaces its loop", target.slot)
                                   : words("to slot %1, empty", target.slot));
}

BringBackRow::BringBackRow(BringBackCopy copy, QWidget* parent)
    : QWidget(parent),
      copy_(std::move(copy)),
      target_{.slot = copy_.slot, .occupied = {}},
      selector_(new Selector(this)),
      leader_(new Leader(this)),
      ring_(new Ring(this)) {
    resize(rowSize);
    connect(selector_, &QAbstractButton::toggled, this, [this] {
        refresh();
        Q_EMIT toggled();
    });
    connect(leader_, &KeyButton::clicked, this, &BringBackRow::leaderPressed);
    connect(ring_, &KeyButton::clicked, this, &BringBackRow::ringPressed);
    for (auto* const button :
         {selector_, static_cast<QAbstractButton*>(leader_), static_cast<QAbstractButton*>(ring_)}) {
        button->installEventFilter(this);
    }
    setSound({});
    refresh();
}

void BringBackRow::setTarget(const BringBackTarget& target) {
    target_ = target;
    refresh();
}

void BringBackRow::setPeaks(std::shared_ptr<const Peaks> peaks) {
    peaks_ = std::move(peaks);
    update();
}

void BringBackRow::setSound(const BringBackSound& sound) {
    const auto before = std::exchange(sound_, sound);
    if (before.on != sound.on || ring_->accessibleName().isEmpty()) {
        const auto name = loopName(copy_.slot);
        ring_->setAccessibleName(toQt(sound.on ? words("Stop %1", name)
                                               : words("Play %1, %2", name, lengthInWords(copy_.seconds))));
        ring_->update();
    }
    ring_->setToolTip(sound.trouble);
    update();
}

bool BringBackRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& pressed = static_cast<const QKeyEvent&>(*event);
    const bool plain = (pressed.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && isP(pressed)) {
        if (!pressed.isAutoRepeat()) {
            Q_EMIT ringPressed();
        }
    } else if (plain && pressed.key() == Qt::Key_Left && watched == selector_) {
        ring_->setFocus(Qt::TabFocusReason);
    } else if (plain && pressed.key() == Qt::Key_Right && watched == ring_) {
        selector_->setFocus(Qt::TabFocusReason);
    } else {
        return false;
    }
    return true;
}

QString BringBackRow::spoken() const {
    return toQt(words("%1, %2, %3, %4", loopName(copy_.slot), copy_.fate.toStdString(),
                      lengthInWords(copy_.seconds), spokenTarget(target_).toStdString()));
}

void BringBackRow::refresh() {
    callIt(*leader_, spokenTarget(target_));
    callIt(*selector_, spoken());
    selector_->update();
    update();
}

void BringBackRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && QRectF(field).contains(event->position() / scaleOf(*this))) {
        selector_->toggle();
    }
}

void BringBackRow::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    const auto resting = painter.deviceScale() < 1 ? smallRestingWords : restingWords;
    painter.setRenderHint(QPainter::Antialiasing);
    if (on()) {
        drawPicture(painter, replaces() ? "Bring_back_field_replaces" : "Bring_back_field_in", field);
    }
    painter.translate(field.topLeft());
    painter.setType(textFont());
    painter.setPen(on() && replaces() ? KZQYellow()
                   : on() || heard()  ? KZQWhite()
                                      : restingTextColor(painter.deviceScale()));
    painter.write(QPointF(nameX, rowBaseline), toQt(loopName(copy_.slot)));
    painter.setType(textFont(12));
    painter.setPen(cream(on() ? wordsOnTape : resting));
    painter.writeWithin(QPointF(fateX, rowBaseline), copy_.fate, waveX - fateX);
    painter.setType(textFont(12));
    if (heard()) {
        painter.setPen(cream(1));
    }
    drawFigures(painter, lengthEnd, rowBaseline, lengthText(heard() ? sound_.seconds : copy_.seconds));
    drawSound(painter);
    drawTarget(painter, resting);
}

void BringBackRow::drawSound(ScaledPainter& painter) const {
    const auto ground = on() ? RowGround::tape : RowGround::groove;
    Waveform waveform{.peaks = peaks_.get(),
                      .left = waveX,
                      .right = waveEnd,
                      .ground = ground,
                      .part = Waveform::Part::whole,
                      .playhead = {},
                      .sounds = true};
    if (heard()) {
        waveform.playhead = playheadAt(sound_.position, waveX, waveEnd, painter.deviceScale());
    }
    if (peaks_) {
        drawWaveform(painter, waveform);
    }
    if (waveform.playhead) {
        drawPlayhead(painter, *waveform.playhead, ground);
    }
}

void BringBackRow::drawTarget(ScaledPainter& painter, double resting) const {
    const auto color = on() ? inkColor() : cream(leader_->hovering() ? 1 : resting);
    painter.setType(on() ? wordFont(12) : textFont(12));
    painter.setPen(color);
    const auto word = on() ? QString::number(target_.slot) : toQt(words("to %1", target_.slot));
    painter.fitType(word, wordEnd - leaderLeft);
    painter.write(QPointF(wordEnd - painter.advance(word), rowBaseline), word);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{{chevronX - 4, 12}, {chevronX, 16}, {chevronX + 4, 12}});
}

}  // namespace kzq
