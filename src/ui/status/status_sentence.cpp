#include "ui/status/status_sentence.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "ui/cut_text.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"
#include "ui/status/chevron.h"
#include "ui/status/status_look.h"

namespace kzq {
namespace {

constexpr int edge = 8;      // of the plate, left of what is drawn
constexpr int markGap = 6;   // between mark and sentence
constexpr int linkGap = 20;  // between sentence and link, with a point in its middle
constexpr int chevronMiddle = 16;

const QColor plate(0x4C, 0x2E, 0x2E);

/// How far something has come stands behind its ellipsis. That changes so often that a screen reader would
/// drop the news behind it.
std::string nameOf(const Announcements::Line& line) {
    constexpr std::string_view ellipsis = "\u2026";
    const auto end =
        line.kind == Announcements::Kind::work ? line.sentence.find(ellipsis) : std::string::npos;
    return line.sentence.substr(0, end == std::string::npos ? end : end + ellipsis.size());
}

}  // namespace

StatusSentence::StatusSentence(QWidget* parent) : KeyButton(parent) {
    setProperty("focusRingRadius", 4);
    setFont(textFont(status::words));
    setAccessibleDescription(toQt(words("Shows the recent results")));
}

void StatusSentence::show(const Announcements::Line& line, int left, int right, int linkWidth) {
    kind_ = line.kind;
    sentence_ = QString::fromStdString(line.sentence);
    linkWidth_ = linkWidth;
    const auto type = fontOf(*this);
    const auto scale = Scale::ofProgram().size();
    marked_ = kind_ == Announcements::Kind::failure || line.warns;
    const int marked = marked_ ? status::mark + markGap : 0;
    const int besides = edge + marked + (linkWidth > 0 ? linkGap + linkWidth : 0) + status::chevronRoom;
    const int room = right - left - besides;
    shown_ = cutText(sentence_, QFontMetricsF(fontOnScreen(type)), room * scale, Qt::LeftToRight);
    const int width = std::min(room, static_cast<int>(std::ceil(advanceOf(shown_, type))));
    place(*this, {right - besides - width, (placeOf(*parentWidget()).height() - status::height) / 2,
                  besides + width, status::height});
    setToolTip(shown_ == sentence_ ? QString() : sentence_);
    const auto said = line.said.empty() ? nameOf(line) : line.said;
    callIt(*this, toQt(sentence_.isEmpty()                     ? words("Recent results")
                       : kind_ == Announcements::Kind::failure ? words("Failed: %1", said)
                                                               : said));
    update();
}

void StatusSentence::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    const auto width = painter.bounds().width();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (hovering() || isDown()) {
        painter.setBrush(plate);
        painter.drawRoundedRect(painter.bounds(), 4, 4);
    }
    const auto lit = hovering() || isDown() ? creamColor() : status::faintCream();
    drawChevron(painter, QPointF(width - chevronMiddle, status::height / 2.0), Chevron::down, lit);
    double end = width - status::chevronRoom;
    if (linkWidth_ > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(status::faintCream());
        painter.drawEllipse(QPointF(end - linkWidth_ - linkGap / 2.0, status::height / 2.0), 1, 1);
        end -= linkWidth_ + linkGap;
    }
    if (marked_) {
        drawPicture(painter, "Status_mark", QRectF(edge, 4, status::mark, status::mark));
    }
    painter.setPen(kind_ == Announcements::Kind::rest ? status::faintCream() : creamColor());
    painter.write(QPointF(end - painter.advance(shown_), status::baseline), shown_);
}

}  // namespace kzq
