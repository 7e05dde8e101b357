#include "ui/cut_text.h"

#include <algorithm>
#include <optional>

namespace kzq {

namespace {

/// Of the letter that is read last, if there is one.
std::optional<Qt::LayoutDirection> directionAtEnd(const QString& text) {
    const auto directed = [](QChar character) {
        return character.direction() == QChar::DirL || character.direction() == QChar::DirR ||
               character.direction() == QChar::DirAL;
    };
    const auto last = std::find_if(text.rbegin(), text.rend(), directed);
    if (last == text.rend()) {
        return std::nullopt;
    }
    return last->direction() == QChar::DirL ? Qt::LeftToRight : Qt::RightToLeft;
}

}  // namespace

/// At the end of a line the mark follows the line's direction, unless a letter of the other follows it; one
/// without width does.
QString cutText(const QString& text, const QFontMetricsF& metrics, double width, Qt::LayoutDirection within) {
    constexpr QChar leftToRightMark(0x200E);
    constexpr QChar rightToLeftMark(0x200F);
    auto cut = metrics.elidedText(text, Qt::ElideRight, width);
    const auto end = directionAtEnd(cut).value_or(within);
    if (cut == text || end == within) {
        return cut;
    }
    return cut + (end == Qt::LeftToRight ? leftToRightMark : rightToLeftMark);
}

}  // namespace kzq
