#include "ui/picture_words.h"

#include <QFile>
#include <QHash>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>

#include "ui/fonts.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

std::vector<PictureWord> readWords(QIODevice& svg) {
    std::vector<PictureWord> words;
    QXmlStreamReader reader(&svg);
    while (!reader.atEnd()) {
        reader.readNext();
        const auto given = reader.attributes();
        if (!reader.isStartElement() || !given.hasAttribute("data-word")) {
            continue;
        }
        const auto number = [&given](const char* name) {
            return given.value(QLatin1String(name)).toDouble();
        };
        words.push_back(
            {.english = given.value("data-word").toString(),
             .at = {number("data-x"), number("data-baseline")},
             .size = qRound(number("data-size")),
             .regular = given.value("data-weight") == u"Regular",
             .color = QColor(given.value("fill").toString()),
             .from = number("data-from"),
             .to = number("data-to"),
             .group = given.hasAttribute("data-group") ? std::optional(number("data-group")) : std::nullopt});
    }
    return words;
}

/// As `drawPicture` lays the tint over the rest of the picture.
QColor tinted(const QColor& color, const QColor& tint) {
    const auto share = tint.isValid() ? tint.alphaF() : 0;
    const auto mixed = [share](float own, float over) { return own * (1 - share) + over * share; };
    return QColor::fromRgbF(mixed(color.redF(), tint.redF()), mixed(color.greenF(), tint.greenF()),
                            mixed(color.blueF(), tint.blueF()), color.alphaF());
}

/// Returns by how much the mark before it moves.
double writeInPlace(ScaledPainter& painter, const PictureWord& place, const QString& word,
                    const QColor& tint) {
    const auto before = place.group ? place.at.x() - *place.group : 0;  // the mark and a gap
    const auto left = place.group ? place.from + before : place.at.x();
    painter.setType(place.regular ? textFont(place.size) : wordFont(place.size));
    painter.fitType(word, place.to - left);
    const auto width = painter.advance(word);
    const auto moved =
        place.group ? std::round((place.from + place.to - before - width) / 2) - *place.group : 0;
    painter.setPen(tinted(place.color, tint));
    painter.write(place.at + QPointF(moved, 0), word);
    return moved;
}

}  // namespace

std::vector<PictureWord> wordsIn(const QString& picture) {
    static QHash<QString, std::vector<PictureWord>> known;
    auto found = known.constFind(picture);
    if (found == known.constEnd()) {
        QFile file(":/pictures/" + picture + ".svg");
        found = known.insert(picture,
                             file.open(QIODevice::ReadOnly) ? readWords(file) : std::vector<PictureWord>());
    }
    return *found;
}

void drawWorded(QWidget& widget, const QString& picture, const QStringList& words, const QColor& tint) {
    const auto places = wordsIn(picture);
    if (places.empty() || words.empty() || std::ranges::equal(places, words, {}, &PictureWord::english)) {
        QPainter painter(&widget);
        drawPicture(painter, picture, widget.rect(), tint);
        return;
    }
    ScaledPainter painter(&widget);
    drawPicture(painter, picture, painter.bounds(), tint, PicturePart::ground);
    double moved = 0;
    for (std::size_t at = 0; at < places.size() && static_cast<qsizetype>(at) < words.size(); ++at) {
        moved = writeInPlace(painter, places[at], words[static_cast<qsizetype>(at)], tint);
    }
    drawPicture(painter, picture, painter.bounds().translated(moved, 0), tint, PicturePart::mark);
}

}  // namespace kzq
