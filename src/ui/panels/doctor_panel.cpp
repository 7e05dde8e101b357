#include "ui/panels/doctor_panel.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <algorithm>

#include "ui/alert_button.h"
#include "ui/background.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/handle_scroll_bar.h"
#include "ui/palette.h"
#include "ui/picture_view.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int doctorWidth = 560;
constexpr int side = 24;
constexpr int listTop = 60;  // of the tray, under the headline
constexpr int shortestList = 48;
constexpr int longestList = 320;     // from here on it scrolls
constexpr int textLeft = side + 26;  // beside the mark
constexpr int textRoom = doctorWidth - textLeft - side - HandleScrollBar::barWidth;
constexpr int betweenChecks = 12;
constexpr int buttonHeight = 36;
constexpr int aroundButtons = 20;
constexpr int betweenButtons = 12;

}  // namespace

DoctorPanel::DoctorPanel(QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      area_(new QScrollArea(this)),
      copy_(addButton(toQt(words("Copy")))),
      report_(addButton(toQt(words("Save Report\u2026")))),
      close_(addButton(toQt(words("Close")))) {
    Scale::ofProgram().take(*this);
    setWindowTitle(toQt(words("Doctor")));
    dressScrollArea(*area_);
    connect(copy_, &AlertButton::clicked, this, &DoctorPanel::copyPressed);
    connect(report_, &AlertButton::clicked, this, &DoctorPanel::reportPressed);
    connect(close_, &AlertButton::clicked, this, &DoctorPanel::reject);
    copy_->setAccessibleDescription(toQt(words("Copies the findings as text")));
    look();
    auto* const ring = new FocusRing(this);
    close_->setFocus(Qt::OtherFocusReason);
    ring->mark(close_);
}

AlertButton* DoctorPanel::addButton(const QString& word) {
    auto* const button = new AlertButton(this);
    button->setText(word);
    return button;
}

void DoctorPanel::look() {
    say(toQt(words("Checking the pedal and this computer\u2026")));
    fill({});
    copy_->setEnabled(false);
}

void DoctorPanel::setChecks(std::vector<DoctorCheck> checks) {
    const auto good =
        std::stable_partition(checks.begin(), checks.end(), [](const auto& check) { return check.trouble; });
    const auto troubles = static_cast<std::uint64_t>(good - checks.begin());
    fill(checks);
    copy_->setEnabled(!checks.empty());
    say(toQt(troubles == 0 ? words("No problems were found")
                           : words(troubles, "%n problem was found", "%n problems were found")));
}

/// For a screen reader as well, which reads it when it changes.
void DoctorPanel::say(const QString& headline) {
    headline_ = headline;
    setAccessibleDescription(headline);
    update();
}

void DoctorPanel::fill(const std::vector<DoctorCheck>& checks) {
    sentences_.clear();
    auto* const page = new QWidget(area_->viewport());
    int foot = betweenChecks;
    for (const auto& check : checks) {
        auto* const mark = new PictureView(page);
        mark->setPicture(check.trouble ? "Status_mark" : "Menu_check");
        mark->setGeometry(check.trouble ? QRect(side, foot, 16, 16) : QRect(side + 2, foot + 2, 12, 12));
        foot = addText(*page, check.sentence, foot, false);
        sentences_.back()->setAccessibleName(toQt(check.trouble
                                                      ? words("Problem: %1", check.sentence.toStdString())
                                                      : words("OK: %1", check.sentence.toStdString())));
        if (!check.remedy.isEmpty()) {
            foot = addText(*page, check.remedy, foot + 4, true);
        }
        foot += betweenChecks;
    }
    Scale::ofProgram().adopt(*page);
    place(*page, {0, 0, doctorWidth - HandleScrollBar::barWidth, foot});
    area_->setWidget(page);  // which deletes the one before
    layOut(std::clamp(foot, shortestList, longestList));
}

/// Returns its foot.
int DoctorPanel::addText(QWidget& page, const QString& text, int top, bool remedy) {
    auto* const label = new QLabel(text, &page);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(textFont(remedy ? 12 : 13));
    auto colors = label->palette();
    colors.setColor(QPalette::WindowText, remedy ? creamColor() : KZQWhite());
    label->setPalette(colors);
    if (remedy) {
        label->setAccessibleName(toQt(words("Run: %1", text.toStdString())));
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    } else {
        sentences_.push_back(label);
    }
    Scale::ofProgram().adopt(*label);
    const int height = heightFor(*label, textRoom);
    place(*label, {textLeft, top, textRoom, height});
    return top + height;
}

void DoctorPanel::layOut(int rows) {
    const int buttons = listTop + rows + aroundButtons;
    place(*area_, {0, listTop, doctorWidth, rows});
    int right = doctorWidth - side;
    for (auto* const button : {close_, report_, copy_}) {
        const int width = std::max(button == report_ ? 128 : 96, button->sizeHint().width());
        place(*button, {right - width, buttons, width, buttonHeight});
        right -= width + betweenButtons;
    }
    place(*this, {0, 0, doctorWidth, buttons + buttonHeight + aroundButtons});
    Scale::ofProgram().adopt(*this);  // to be centred with its size
    update();
}

void DoctorPanel::keyPressEvent(QKeyEvent* event) {
    auto* const bar = area_->verticalScrollBar();
    if (event->key() == Qt::Key_PageDown) {
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
    } else if (event->key() == Qt::Key_PageUp) {
        bar->triggerAction(QScrollBar::SliderPageStepSub);
    } else {
        QDialog::keyPressEvent(event);
    }
}

void DoctorPanel::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPlate(painter, painter.bounds().toAlignedRect());
    painter.fill(placeOf(*area_), trayColor());
    painter.setType(textFont(15));
    painter.setPen(KZQWhite());
    painter.writeWithin(QPointF(side, 37), headline_, doctorWidth - 2 * side);
}

}  // namespace kzq
