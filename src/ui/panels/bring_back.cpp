#include "ui/panels/bring_back.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <algorithm>
#include <utility>

#include "ui/alert_button.h"
#include "ui/check_box.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/handle_scroll_bar.h"
#include "ui/key_button.h"
#include "ui/palette.h"
#include "ui/panels/bring_back_targets.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

constexpr QSize panelSize(640, 396);
constexpr QRect list(32, 104, 604, 192);
constexpr int listRowPitch = 32;
constexpr QRect blank(140, 132, 360, 136);
constexpr int headlineX = 92;
constexpr int bringBackHeadRoom = 540;
constexpr QPoint keepAt(32, 330);
constexpr QRect declineFrame(348, 332, 112, 40);
constexpr QRect acceptFrame(472, 332, 136, 40);
constexpr unsigned slotCount = 20;
constexpr int gapAtTargets = 4;  // above the list of targets, or below it

QString keepLine() {
    return toQt(words("Each loop is read before it is erased or replaced."));
}

}  // namespace

BringBack::BringBack(QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      area_(new QScrollArea(this)) {
    Scale::ofProgram().take(*this);
    setWindowTitle(toQt(words("Bring Back")));
    setWindowModality(Qt::WindowModal);
    setFixedSize(panelSize);
    area_->setGeometry(list);
    dressScrollArea(*area_);
    makeFoot();
    ring_ = new FocusRing(this);
    targets_ = new BringBackTargets(this);
    connect(targets_, &BringBackTargets::chosen, this, [this](unsigned slot) {
        choosing_->setTarget(targetAt(slot));
        choosing_->setOn(true);
        refresh();
    });
    refresh();
    Scale::ofProgram().adopt(*this);  // to be centred with its size
}

void BringBack::makeFoot() {
    keep_ = new CheckBox(toQt(words("Keep Copies")), this);
    keep_->move(keepAt);
    keep_->setAccessibleDescription(keepLine());
    connect(keep_, &CheckBox::clicked, this, [this](bool on) {
        refresh();
        Q_EMIT keepingChanged(on);
    });
    decline_ = new AlertButton(AlertButton::Face::brown, this);
    decline_->setText(toQt(words("Close")));
    decline_->setGeometry(declineFrame);
    connect(decline_, &AlertButton::clicked, this, &BringBack::reject);
    accept_ = new AlertButton(AlertButton::Face::green, this);
    accept_->setText(toQt(words("Bring Back")));
    accept_->setGeometry(acceptFrame);
    connect(accept_, &AlertButton::clicked, this, [this] {
        std::map<std::size_t, unsigned> chosen;
        for (std::size_t at = 0; at < rows_.size(); ++at) {
            if (rows_[at]->on()) {
                chosen.emplace(at, rows_[at]->target().slot);
            }
        }
        close();
        Q_EMIT wanted(chosen);
    });
}

void BringBack::setCopies(const std::vector<BringBackCopy>& copies, const QString& total) {
    targets_->close();
    total_ = total;
    rows_.clear();
    auto* const page = new QWidget;
    for (const auto& copy : copies) {
        auto* const row = new BringBackRow(copy, page);
        row->move(0, static_cast<int>(rows_.size()) * listRowPitch);
        row->setTarget(targetAt(row->target().slot));
        connect(row, &BringBackRow::toggled, this, [this, row] { rowToggled(*row); });
        connect(row, &BringBackRow::leaderPressed, this, [this, row] { openTargets(*row); });
        connect(row, &BringBackRow::ringPressed, this, [this, at = rows_.size()] { Q_EMIT ringPressed(at); });
        rows_.push_back(row);
    }
    page->resize(BringBackRow::rowSize.width(), static_cast<int>(rows_.size()) * listRowPitch);
    area_->setWidget(page);  // which deletes the one before
    for (auto* const row : rows_) {
        for (auto* const stop : {&row->selector(), static_cast<QAbstractButton*>(&row->leader())}) {
            stop->installEventFilter(this);
        }
    }
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        rows_[at]->setOn(copies[at].on);
    }
    refresh();
    focusDefault();
}

void BringBack::setPeaks(std::size_t copy, std::shared_ptr<const Peaks> peaks) {
    if (copy < rows_.size()) {
        rows_[copy]->setPeaks(std::move(peaks));
    }
}

void BringBack::setSound(std::size_t copy, const BringBackSound& sound) {
    if (copy < rows_.size()) {
        rows_[copy]->setSound(sound);
    }
}

void BringBack::setLoops(std::optional<std::set<unsigned>> loops) {
    targets_->close();
    loops_ = std::move(loops);
    for (auto* const row : rows_) {
        row->setTarget(targetAt(row->target().slot));
    }
    refresh();
}

void BringBack::setKeeping(bool on) {
    keep_->setChecked(on);
    refresh();
}

BringBackTarget BringBack::targetAt(unsigned slot) const {
    return {.slot = slot, .occupied = loops_ ? std::optional(loops_->contains(slot)) : std::nullopt};
}

std::set<unsigned> BringBack::takenBeside(const BringBackRow& row) const {
    std::set<unsigned> taken;
    for (const auto* const other : rows_) {
        if (other != &row && other->on()) {
            taken.insert(other->target().slot);
        }
    }
    return taken;
}

/// No two copies go to one slot: the second goes to the next free one.
void BringBack::rowToggled(BringBackRow& row) {
    const auto taken = takenBeside(row);
    const auto wanted = row.target().slot;
    if (row.on() && taken.contains(wanted)) {
        unsigned slot = wanted;
        do {
            slot = slot % slotCount + 1;
        } while (slot != wanted && (taken.contains(slot) || (loops_ && loops_->contains(slot))));
        if (slot == wanted) {
            row.setOn(false);
            return;
        }
        row.setTarget(targetAt(slot));
    }
    refresh();
}

void BringBack::openTargets(BringBackRow& row) {
    choosing_ = &row;
    const auto foot = QPointF(row.mapTo(this, QPoint(row.width(), row.height()))) / scaleOf(row);
    const auto size = BringBackTargets::listSize;
    const int lowest = panelSize.height() - size.height() - gapAtTargets;
    const QPoint below(qRound(foot.x()), qRound(foot.y()) + gapAtTargets);
    targets_->open({below.x() - size.width(), std::min(below.y(), lowest)}, row.target().slot,
                   loops_.value_or(std::set<unsigned>()), takenBeside(row));
}

void BringBack::refresh() {
    const bool any = std::ranges::any_of(rows_, [](const auto* row) { return row->on(); });
    const bool could = accept_->isEnabled();
    const bool atButtons = accept_->hasFocus() || decline_->hasFocus();
    accept_->setEnabled(any && loops_.has_value());
    accept_->setToolTip(any && !loops_ ? toQt(words("No pedal connected")) : QString());
    area_->setVisible(!rows_.empty());
    describeAs(*this, rows_.empty() ? toQt(inTurn(words("Nothing to bring back."), notice().toStdString()))
                                    : summary());
    if (atButtons && accept_->isEnabled() != could) {
        focusDefault();
    }
    update();
}

void BringBack::focusDefault() {
    auto* const usual = accept_->isEnabled() ? accept_ : decline_;
    usual->setFocus(Qt::OtherFocusReason);
    if (ring_ != nullptr) {
        ring_->mark(usual);
    }
}

bool BringBack::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && watched->isWidgetType()) {
        area_->ensureWidgetVisible(static_cast<QWidget*>(watched), 0, 0);
    }
    return QDialog::eventFilter(watched, event);
}

QString BringBack::notice() const {
    return !rows_.empty()       ? QString()
           : keep_->isChecked() ? toQt(words("A loop is copied here before you erase or replace it."))
                                : toQt(words("Keep Copies is off: what you erase or replace now is gone."));
}

QString BringBack::summary() const {
    return toQt(rows_.empty()
                    ? words("No copies on this computer.")
                    : words(rows_.size(), "%n copy on this computer, %1. Above 2 GB the oldest are removed.",
                            "%n copies on this computer, %1. Above 2 GB the oldest are removed.",
                            total_.toStdString()));
}

void BringBack::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool plays = std::ranges::any_of(rows_, [](const auto* row) { return row->sound().on; });
    if (event->key() == Qt::Key_Escape && plays) {
        Q_EMIT stopPressed();
    } else if (!enter) {
        QDialog::keyPressEvent(event);
    } else if (accept_->isEnabled() && !event->isAutoRepeat()) {
        accept_->click();
    }
}

void BringBack::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPicture(painter, "Bring_back_panel", painter.bounds());
    painter.setType(textFont(15));
    painter.setPen(KZQWhite());
    painter.writeWithin(QPointF(headlineX, 40), toQt(words("Bring back loops that were erased or replaced")),
                        bringBackHeadRoom);
    painter.setType(textFont());
    painter.setPen(KZQGray());
    painter.writeWithin(QPointF(headlineX, 60), summary(), bringBackHeadRoom);
    painter.setType(textFont(12));
    painter.writeWithin(QPointF(60, 366), keepLine(), declineFrame.x() - 60);
    if (rows_.empty()) {
        drawPicture(painter, "Bring_back_blank", blank);
        painter.setPen(KZQWhite());
        painter.setType(firaSans(FiraWeight::light, 20).value_or(textFont(20)));
        const auto nothing = toQt(words("Nothing to bring back"));
        painter.fitType(nothing, blank.width() - 40);
        painter.write(QRect(blank.x(), blank.y() + 38, blank.width(), 28), Qt::AlignHCenter | Qt::AlignTop,
                      nothing);
        painter.setType(textFont());
        painter.setPen(creamColor());
        const QRect lines(blank.x() + 70, blank.y() + 73, blank.width() - 140, 40);
        constexpr int middle = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
        painter.fitType(lines.size(), middle, notice());
        painter.write(lines, middle, notice());
    }
}

}  // namespace kzq
