#include "ui/status/outcome_row.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextLayout>

#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/status/status_look.h"
#include "ui/times.h"

namespace kzq {
namespace {

// in the row, which begins 8 right of the list's edge
constexpr int timeEnd = 42;
constexpr int markX = 50;
constexpr int wordsX = 74;
constexpr int wordsMargin = 8;  // right of the words, and at both ends of the line below
constexpr int rowLinkGap = 16;
constexpr int firstBaseline = 22;
constexpr int sentencePitch = 18;
constexpr int detailPitch = 16;
constexpr int sentencePixels = 13;
constexpr int footOfSentence = 18;  // below the last baseline
constexpr int footOfDetail = 16;

QStringList wrapped(const QString& text, const QFont& font, double width) {
    QStringList lines;
    QTextLayout layout(text, fontOnScreen(font));
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width * Scale::ofProgram().size());
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

}  // namespace

OutcomeRow::OutcomeRow(const Announcement& announcement, bool last, int width, QWidget* parent)
    : QWidget(parent),
      number_(announcement.number),
      time_(timeOfDay(announcement.time)),
      sentence_(QString::fromStdString(announcement.what)),
      detail_(QString::fromStdString(announcement.rest())),
      failure_(announcement.failure),
      last_(last),
      copy_(new StatusLink(this)) {
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(spoken());
    copy_->setWord(toQt(words("Copy")));
    connect(copy_, &StatusLink::clicked, this, [this] { QGuiApplication::clipboard()->setText(text()); });
    if (!announcement.actionLabel.empty()) {
        remedy_ = new StatusLink(this);
        remedy_->setWord(QString::fromStdString(announcement.actionLabel));
        setTabOrder(remedy_, copy_);
    }
    const int wordsEnd = width - wordsMargin;
    const int end = layOutLinks(wordsEnd);
    sentenceLines_ = wrapped(sentence_, textFont(sentencePixels), end - wordsX);
    if (!detail_.isEmpty()) {
        detailLines_ = wrapped(detail_, textFont(status::words), wordsEnd - wordsX);
    }
    const int below =
        detailLines_.isEmpty()
            ? footOfSentence
            : sentencePitch + (static_cast<int>(detailLines_.size()) - 1) * detailPitch + footOfDetail;
    resize(width, lastOfSentence() + below);
    setLit(false);
}

QString OutcomeRow::spoken() const {
    const auto time = time_.toStdString();
    const auto sentence = sentence_.toStdString();
    return toQt(inTurn(failure_ ? words("%1, failed, %2.", time, sentence) : words("%1, %2.", time, sentence),
                       detail_.toStdString()));
}

QString OutcomeRow::text() const {
    return toQt(inTurn(words("%1 %2.", time_.toStdString(), sentence_.toStdString()), detail_.toStdString()));
}

int OutcomeRow::lastOfSentence() const {
    return firstBaseline + (static_cast<int>(sentenceLines_.size()) - 1) * sentencePitch;
}

/// Returns where the sentence must end.
int OutcomeRow::layOutLinks(int end) {
    for (auto* const link : {copy_, remedy_}) {
        if (link != nullptr) {
            const auto size = placeOf(*link).size();
            place(*link, {QPoint(end - size.width(), firstBaseline - status::baseline), size});
            end -= size.width() + rowLinkGap;
        }
    }
    return end;
}

void OutcomeRow::setLit(bool lit) {
    lit_ = lit;
    copy_->setFaint(!lit);
    update();
}

void OutcomeRow::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    setLit(true);
}

void OutcomeRow::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    setLit(hasFocus());
}

void OutcomeRow::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    setLit(true);
}

void OutcomeRow::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    setLit(underMouse());
}

void OutcomeRow::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    const auto bounds = painter.bounds();
    painter.setRenderHint(QPainter::Antialiasing);
    if (lit_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 20));
        painter.drawRoundedRect(bounds.adjusted(0, 0, 0, -2), 4, 4);
    }
    if (!last_) {
        painter.fill(QRectF(wordsMargin, bounds.height() - 2, bounds.width() - 2 * wordsMargin, 2),
                     QColor(0x33, 0x20, 0x1F));
    }
    painter.setType(textFont(status::words));
    painter.setPen(KZQGray());
    drawFigures(painter, timeEnd, firstBaseline, time_);
    if (failure_) {
        drawPicture(painter, "Status_mark", QRectF(markX, firstBaseline - 12, status::mark, status::mark));
    }
    int y = lastOfSentence() + sentencePitch;
    for (const auto& line : detailLines_) {
        painter.write(QPointF(wordsX, y), line);
        y += detailPitch;
    }
    painter.setType(textFont(sentencePixels));
    painter.setPen(KZQWhite());
    y = firstBaseline;
    for (const auto& line : sentenceLines_) {
        painter.write(QPointF(wordsX, y), line);
        y += sentencePitch;
    }
}

}  // namespace kzq
