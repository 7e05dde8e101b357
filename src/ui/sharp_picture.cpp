#include "ui/sharp_picture.h"

#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <array>
#include <vector>

#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr double thinLine = 2;

/// How coordinates move in one direction.
class Axis {
  public:
    /// `line`: the thickness of strokes, 0 for none.
    Axis(double scale, double line)
        : scale_(scale), line_(line), drawn_(line > 0 ? toPixels(line, scale) : 0) {}

    /// An edge, or the middle of a stroke, whose outer edge counts.
    double moved(double at) const { return toPixel(at - line_ / 2, scale_) + drawn_ / 2; }
    double drawn() const { return drawn_; }
    /// Both sides of a rectangle.
    std::array<double, 2> side(double from, double length) const {
        const auto begin = moved(from);
        const bool line = line_ == 0 && length <= thinLine;
        // the far edge of a stroked rectangle is the other side of its stroke
        const auto end = toPixel(from + length + line_ / 2, scale_) - drawn_ / 2;
        return {begin, line ? toPixels(length, scale_) : end - begin};
    }

  private:
    double scale_;
    double line_;
    double drawn_;
};

struct Axes {
    Axis x;
    Axis y;
};

/// A command of a path with its numbers.
struct Step {
    QChar command;
    std::vector<double> numbers;
};

std::vector<Step> stepsOf(const QString& path) {
    static const QRegularExpression word("[A-Za-z]|-?[0-9]*\\.?[0-9]+");
    std::vector<Step> steps;
    for (const auto& match : word.globalMatch(path)) {
        const auto text = match.captured();
        if (text.front().isLetter()) {
            steps.push_back({text.front(), {}});
        } else if (!steps.empty()) {
            steps.back().numbers.push_back(text.toDouble());
        }
    }
    return steps;
}

/// Where each step leads; the beginning of its part for Z.
std::vector<QPointF> endsOf(const std::vector<Step>& steps) {
    std::vector<QPointF> ends;
    QPointF now;
    QPointF begin;
    for (const auto& [command, numbers] : steps) {
        const auto size = numbers.size();
        if (command == 'Z') {
            now = begin;
        } else if (command == 'H' && size > 0) {
            now.setX(numbers.back());
        } else if (command == 'V' && size > 0) {
            now.setY(numbers.back());
        } else if (size >= 2) {
            now = {numbers[size - 2], numbers[size - 1]};
        }
        if (command == 'M') {
            begin = now;
        }
        ends.push_back(now);
    }
    return ends;
}

/// Where the straight parts go that are upright (by x) or level (by y).
struct Moves {
    QMap<double, double> x;
    QMap<double, double> y;
};

Moves movesOf(const std::vector<Step>& steps, const std::vector<QPointF>& ends, const Axes& axes) {
    Moves moves;
    for (std::size_t i = 1; i < steps.size(); ++i) {
        const auto command = steps[i].command;
        if (command != 'H' && command != 'V' && command != 'L' && command != 'Z') {
            continue;
        }
        const auto from = ends[i - 1];
        const auto to = ends[i];
        if (from.x() == to.x() && from.y() != to.y()) {
            moves.x[to.x()] = axes.x.moved(to.x());
        } else if (from.y() == to.y() && from.x() != to.x()) {
            moves.y[to.y()] = axes.y.moved(to.y());
        }
    }
    return moves;
}

QString pathOf(const std::vector<Step>& steps, const std::vector<QPointF>& ends, const Moves& moves) {
    QString path;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        auto [command, numbers] = steps[i];
        const auto x = moves.x.value(ends[i].x(), ends[i].x());
        const auto y = moves.y.value(ends[i].y(), ends[i].y());
        if (command == 'H' && !numbers.empty()) {
            numbers.back() = x;
        } else if (command == 'V' && !numbers.empty()) {
            numbers.back() = y;
        } else if (numbers.size() >= 2) {
            numbers[numbers.size() - 2] = x;
            numbers[numbers.size() - 1] = y;
        }
        path += command;
        for (const auto number : numbers) {
            path += QString::number(number, 'g', 9) + ' ';
        }
    }
    return path;
}

class Attributes {
  public:
    explicit Attributes(const QXmlStreamAttributes& given) {
        for (const auto& attribute : given) {
            all_.emplace_back(attribute.qualifiedName().toString(), attribute.value().toString());
        }
    }

    QString text(const QString& name) const {
        const auto found = std::ranges::find(all_, name, &std::pair<QString, QString>::first);
        return found == all_.end() ? QString() : found->second;
    }
    double number(const QString& name) const { return text(name).toDouble(); }
    void set(const QString& name, const QString& value) {
        const auto found = std::ranges::find(all_, name, &std::pair<QString, QString>::first);
        if (found != all_.end()) {
            found->second = value;
        }
    }
    void set(const QString& name, double value) { set(name, QString::number(value, 'g', 9)); }
    void writeTo(QXmlStreamWriter& writer) const {
        for (const auto& [name, value] : all_) {
            writer.writeAttribute(name, value);
        }
    }

  private:
    std::vector<std::pair<QString, QString>> all_;
};

void sharpenRectangle(Attributes& rectangle, const Axes& axes) {
    const auto [x, width] = axes.x.side(rectangle.number("x"), rectangle.number("width"));
    const auto [y, height] = axes.y.side(rectangle.number("y"), rectangle.number("height"));
    rectangle.set("x", x);
    rectangle.set("y", y);
    rectangle.set("width", width);
    rectangle.set("height", height);
}

/// Whether a stroke has a straight part, and so takes the thickness of lines.
bool sharpenPath(Attributes& path, const Axes& axes) {
    const auto steps = stepsOf(path.text("d"));
    const bool words = std::ranges::any_of(steps, [](const Step& step) { return step.command == 'Q'; });
    const auto ends = endsOf(steps);
    const auto moves = movesOf(steps, ends, axes);
    if (words || (moves.x.isEmpty() && moves.y.isEmpty())) {
        return false;
    }
    path.set("d", pathOf(steps, ends, moves));
    return true;
}

void sharpen(QStringView element, Attributes& attributes, QSizeF scale) {
    const bool stroked = !attributes.text("stroke").isEmpty() && attributes.text("stroke") != "none";
    const auto line = stroked ? attributes.number("stroke-width") : 0;
    const Axes axes{{scale.width(), line}, {scale.height(), line}};
    bool straight = false;
    if (element == QStringLiteral("rect")) {
        sharpenRectangle(attributes, axes);
        straight = true;
    } else if (element == QStringLiteral("path")) {
        straight = sharpenPath(attributes, axes);
    }
    if (straight && stroked) {
        attributes.set("stroke-width", axes.x.drawn());
    }
}

}  // namespace

QByteArray sharpPicture(const QByteArray& svg, QSizeF scale) {
    QByteArray sharp;
    QXmlStreamReader reader(svg);
    QXmlStreamWriter writer(&sharp);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            Attributes attributes(reader.attributes());
            sharpen(reader.name(), attributes, scale);
            writer.writeStartElement(reader.name().toString());
            attributes.writeTo(writer);
        } else if (reader.isEndElement()) {
            writer.writeEndElement();
        }
    }
    return reader.hasError() ? svg : sharp;
}

}  // namespace kzq
