#include "ui/panels/backup_panel.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "ui/accessible_controls.h"
#include "ui/alert_button.h"
#include "ui/check_box.h"
#include "ui/cut_tip.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

constexpr QSize backupPanelSize(704, 504);
constexpr QRect headMark(32, 28, 40, 40);
constexpr QPointF headlineAt(92, 40);
constexpr int headlineRoom = 580;
constexpr QPoint tapeAt(92, 52);
constexpr QPoint listAt(92, 84);
constexpr QRect otherFrame(488, 54, 96, 24);
constexpr int otherBaseline = 16;
constexpr std::size_t rowsOfColumn = 10;
constexpr QPoint rowsAt(32, 112);
constexpr int backupColumnPitch = 328;
constexpr int backupRowPitch = 30;
constexpr int afterFifthRow = 6;
constexpr QPointF countsAt(32, 438);
constexpr double betweenCounts = 22;
constexpr double countsRoom = 400;
constexpr double leastBetweenCounts = 1;  // then they become smaller
constexpr int usualCount = 13;
constexpr int smallestCount = 8;
constexpr QPointF finePrintAt(32, 479);
constexpr QPoint eraseAt(30, 462);
constexpr QRect closeFrame(440, 446, 108, 40);
constexpr QRect goFrame(560, 446, 112, 40);
constexpr int mostWider = 28;  // which a long word takes from the button beside it

/// An underlined word.
class FolderLink : public KeyButton {
  public:
    explicit FolderLink(QWidget* panel) : KeyButton(panel) {
        setText(toQt(words("Other folder\u2026")));
        setAccessibleName(text());
        setCursor(Qt::PointingHandCursor);
        setProperty("focusRingRadius", 3);
        setGeometry(otherFrame);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const auto color = hovering() || isDown() ? KZQLinkHover() : creamColor();
        ScaledPainter painter(this);
        painter.setType(textFont());
        painter.setPen(color);
        painter.writeWithin(QPointF(0, otherBaseline), text(), painter.bounds().width());
        painter.fill(QRectF(0, otherBaseline + 2, painter.advance(text()), 1), color);
    }
};

}  // namespace

BackupPanel::BackupPanel(Kind kind, QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      kind_(kind),
      tape_(new BackupTape(this)),
      other_(new FolderLink(this)) {
    Scale::ofProgram().take(*this);
    setWindowTitle(toQt(kind == Kind::restore ? words("Restore") : words("Back Up")));
    setWindowModality(Qt::WindowModal);
    setFixedSize(backupPanelSize);
    makeHead();
    makeRows();
    makeFoot();
    ring_ = new FocusRing(this);
    list_ = new BackupList(this);
    connect(list_, &BackupList::chosen, this, &BackupPanel::chosen);
    opens(*tape_, list_);
    setReady(false, {}, {});
    focusDefault();
    Scale::ofProgram().adopt(*this);  // to be centred with its size
}

void BackupPanel::makeHead() {
    tape_->move(tapeAt);
    connect(tape_, &BackupTape::clicked, this, [this] {
        if (!offers_.empty()) {
            list_->open(listAt, offers_, index_);
        }
    });
    connect(other_, &KeyButton::clicked, this, &BackupPanel::folderWanted);
}

void BackupPanel::makeRows() {
    for (std::size_t at = 0; at < 2 * rowsOfColumn; ++at) {
        const auto inColumn = static_cast<int>(at % rowsOfColumn);
        auto* const row = new BackupRow(static_cast<unsigned>(at + 1), this);
        row->move(rowsAt + QPoint(at < rowsOfColumn ? 0 : backupColumnPitch,
                                  inColumn * backupRowPitch + (inColumn >= 5 ? afterFifthRow : 0)));
        connect(row, &BackupRow::walked, this, [this, at](int step) { walk(at, step); });
        rows_.push_back(row);
    }
    rows_.front()->setFocusPolicy(Qt::StrongFocus);
}

void BackupPanel::makeFoot() {
    const bool restores = kind_ == Kind::restore;
    erase_ = new CheckBox(toQt(words("Erase loops that are not in this backup")), this);
    erase_->move(eraseAt);
    erase_->setVisible(restores);
    connect(erase_, &CheckBox::clicked, this, &BackupPanel::eraseChanged);
    decline_ = new AlertButton(AlertButton::Face::brown, this);
    decline_->setText(toQt(words("Close")));
    connect(decline_, &AlertButton::clicked, this, &BackupPanel::reject);
    accept_ = new AlertButton(restores ? AlertButton::Face::green : AlertButton::Face::blue, this);
    accept_->setText(toQt(restores ? words("Restore") : words("Back Up")));
    const int wider = std::clamp(accept_->fullWidth() - goFrame.width(), 0, mostWider);
    accept_->setGeometry(goFrame.adjusted(-wider, 0, 0, 0));
    decline_->setGeometry(closeFrame.adjusted(0, 0, -wider, 0));
    connect(accept_, &AlertButton::clicked, this, [this] {
        close();
        Q_EMIT wanted();
    });
}

void BackupPanel::setOffers(const BackupOffer& chosen, std::vector<BackupOffer> offers, std::size_t index) {
    if (offers != offers_) {
        list_->close();
    }
    offers_ = std::move(offers);
    index_ = index;
    tape_->show(toQt(kind_ == Kind::restore ? words("Backup") : words("Folder")), chosen);
}

void BackupPanel::setSlots(const std::vector<BackupSlot>& slots) {
    for (std::size_t at = 0; at < rows_.size() && at < slots.size(); ++at) {
        rows_[at]->show(slots[at]);
    }
}

void BackupPanel::setCounts(std::vector<Count> counts) {
    counts_ = std::move(counts);
    describe();
}

void BackupPanel::setReady(bool ready, const QString& problem, const QString& why) {
    const bool changes = accept_->isEnabled() != ready;
    const bool atButtons = focusWidget() == accept_ || focusWidget() == decline_;
    problem_ = problem;
    accept_->setEnabled(ready);
    accept_->setToolTip(why);
    if (changes && atButtons) {
        focusDefault();
    }
    describe();
}

bool BackupPanel::erases() const {
    return erase_->isChecked();
}

QString BackupPanel::headline() const {
    return !problem_.isEmpty()      ? problem_
           : kind_ == Kind::restore ? toQt(words("Put a backup back onto the pedal"))
                                    : toQt(words("Copy the whole pedal to this computer"));
}

QString BackupPanel::summary() const {
    std::string all;
    for (const auto& [look, text] : counts_) {
        all = all.empty() ? text.toStdString() : words("%1, %2", all, text.toStdString());
    }
    return toQt(all);
}

void BackupPanel::describe() {
    const auto counted = counts_.empty() ? std::string() : words("%1.", summary().toStdString());
    describeAs(*this, toQt(inTurn(words("%1.", headline().toStdString()), counted)));
    update();
}

/// The rows are one stop of Tab.
void BackupPanel::walk(std::size_t from, int step) {
    const auto to = static_cast<std::ptrdiff_t>(from) + step;
    if (to >= 0 && to < static_cast<std::ptrdiff_t>(rows_.size())) {
        for (auto* const row : rows_) {
            row->setFocusPolicy(Qt::ClickFocus);
        }
        auto* const row = rows_[static_cast<std::size_t>(to)];
        row->setFocusPolicy(Qt::StrongFocus);
        row->setFocus(Qt::TabFocusReason);
    }
}

void BackupPanel::focusDefault() {
    auto* const usual = accept_->isEnabled() ? accept_ : decline_;
    usual->setFocus(Qt::OtherFocusReason);
    ring_->mark(usual);
}

void BackupPanel::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        QDialog::keyPressEvent(event);
    } else if (accept_->isEnabled() && !event->isAutoRepeat()) {
        accept_->click();
    }
}

bool BackupPanel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QRectF line(headMark.right(), headMark.top(), backupPanelSize.width() - headMark.right(),
                          tapeAt.y() - headMark.top());
        if (line.contains(QPointF(help.pos()) / scaleOf(*this)) &&
            showIfCut(*this, help, headline(), textFont(15), headlineRoom)) {
            return true;
        }
    }
    return QDialog::event(event);
}

void BackupPanel::paintEvent(QPaintEvent* /*event*/) {
    const bool restores = kind_ == Kind::restore;
    ScaledPainter painter(this);
    drawPicture(painter, "Backup_panel", painter.bounds());
    drawPicture(painter, restores ? "Restore_mark" : "Backup_mark", headMark);
    painter.setType(textFont(15));
    painter.setPen(problem_.isEmpty() ? KZQWhite() : KZQYellow());
    painter.writeName(headlineAt, headline(), headlineRoom);
    painter.setType(textFont());
    paintCounts(painter);
    if (!restores) {
        painter.setPen(KZQGray());
        painter.writeWithin(finePrintAt, toQt(words("Loops that are the same are not copied twice.")),
                            countsRoom);
    }
}

void BackupPanel::paintCounts(ScaledPainter& painter) const {
    const auto spaces = static_cast<double>(std::max<std::size_t>(counts_.size(), 2) - 1);
    double besides = 0;  // what the room leaves between two of them
    for (int pixels = usualCount; pixels >= smallestCount && besides < leastBetweenCounts; --pixels) {
        painter.setType(textFont(pixels));
        double width = 0;
        for (const auto& [look, text] : counts_) {
            width += 22 + painter.advance(text);
        }
        besides = (countsRoom - width) / spaces;
    }
    const double gap = std::min(betweenCounts, besides);  // many of them come closer together
    auto at = countsAt;
    painter.setPen(creamColor());
    for (const auto& [look, text] : counts_) {
        drawPicture(painter, markOf(look), QRectF(at, QSizeF(16, 16)));
        painter.write(at + QPointF(22, 13), text);
        at.rx() += 22 + painter.advance(text) + gap;
    }
    painter.setType(textFont());
}

}  // namespace kzq
