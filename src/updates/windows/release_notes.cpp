#include "updates/windows/release_notes.h"

#include <QHash>
#include <QSet>

#include "updates/firmware_texts.h"

namespace kzq {
namespace {

using namespace Qt::StringLiterals;

QString bullet() {
    return QString::fromUtf8(notesBullet);
}

bool beginsTag(QStringView text) {
    return text.size() > 1 && text[0] == u'<' &&
           (text[1].isLetter() || text[1] == u'/' || text[1] == u'!' || text[1] == u'?');
}

bool isMarkup(QStringView text) {
    const auto last = text.lastIndexOf(u'>');
    for (qsizetype at = text.indexOf(u'<'); at >= 0 && at < last; at = text.indexOf(u'<', at + 1)) {
        if (beginsTag(text.sliced(at))) {
            return true;
        }
    }
    return false;
}

QString plainLines(const QString& text) {
    QStringList lines = text.split(u'\n');
    for (auto& line : lines) {
        if (line.startsWith("- "_L1) || line.startsWith("* "_L1)) {
            line = bullet() + line.sliced(2).trimmed();
        }
    }
    return lines.join(u'\n');
}

/// The character for an entity, given without & and ;; nothing if it is unknown.
QString entity(QStringView name) {
    static const QHash<QString, QString> known{
        {u"amp"_s, u"&"_s},        {u"lt"_s, u"<"_s},         {u"gt"_s, u">"_s},
        {u"quot"_s, u"\""_s},      {u"apos"_s, u"'"_s},       {u"nbsp"_s, u"\u00a0"_s},
        {u"ndash"_s, u"\u2013"_s}, {u"mdash"_s, u"\u2014"_s}, {u"hellip"_s, u"\u2026"_s},
        {u"bull"_s, u"\u2022"_s},  {u"lsquo"_s, u"\u2018"_s}, {u"rsquo"_s, u"\u2019"_s},
        {u"ldquo"_s, u"\u201c"_s}, {u"rdquo"_s, u"\u201d"_s}, {u"copy"_s, u"\u00a9"_s},
    };
    if (!name.startsWith(u'#')) {
        return known.value(name.toString());
    }
    const bool hexadecimal = name.startsWith("#x"_L1, Qt::CaseInsensitive);
    bool valid = false;
    const uint code = name.sliced(hexadecimal ? 2 : 1).toUInt(&valid, hexadecimal ? 16 : 10);
    const bool character =
        valid && code >= 0x20 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    const auto point = static_cast<char32_t>(code);
    return character ? QString::fromUcs4(&point, 1) : QString();
}

/// One pass over HTML from left to right; unterminated parts are left out.
class HtmlText {
  public:
    explicit HtmlText(QStringView html) : rest_(html) {}

    QString text() {
        while (!rest_.isEmpty()) {
            if (beginsTag(rest_)) {
                takeTag();
            } else if (rest_[0] == u'&') {
                takeEntity();
            } else {
                add(rest_[0]);
                rest_ = rest_.sliced(1);
            }
        }
        return text_.trimmed();
    }

  private:
    void skipPast(QStringView end) {
        const auto at = rest_.indexOf(end, 0, Qt::CaseInsensitive);
        rest_ = at < 0 ? QStringView() : rest_.sliced(at + end.size());
    }

    /// Past the end of the tag; a > inside a quoted attribute does not end it.
    void skipTag() {
        QChar quote;
        qsizetype at = 0;
        while (at < rest_.size() && (!quote.isNull() || rest_[at] != u'>')) {
            const auto here = rest_[at++];
            if (here == quote) {
                quote = QChar();
            } else if (quote.isNull() && (here == u'"' || here == u'\'')) {
                quote = here;
            }
        }
        rest_ = rest_.sliced(std::min(at + 1, rest_.size()));
    }

    void takeTag() {
        static const QSet<QString> hidden{u"script"_s, u"style"_s, u"title"_s};
        static const QSet<QString> blocks{u"br"_s, u"p"_s,  u"div"_s, u"ul"_s, u"ol"_s, u"li"_s, u"h1"_s,
                                          u"h2"_s, u"h3"_s, u"h4"_s,  u"h5"_s, u"h6"_s, u"tr"_s, u"pre"_s};
        if (rest_.startsWith("<!--"_L1)) {
            skipPast(u"-->");
            return;
        }
        const bool closing = rest_[1] == u'/';
        qsizetype end = closing ? 2 : 1;
        const auto begin = end;
        while (end < rest_.size() && rest_[end].isLetterOrNumber()) {
            ++end;
        }
        const auto name = rest_.sliced(begin, end - begin).toString().toLower();
        skipTag();
        if (!closing && hidden.contains(name)) {
            skipPast(QString(u"</"_s + name));
            skipPast(u">");
        } else if (blocks.contains(name)) {
            breakLine(name == "br"_L1);
            text_ += !closing && name == "li"_L1 ? bullet() : QString();
        }
    }

    void takeEntity() {
        constexpr qsizetype longest = 10;
        const auto end = rest_.first(std::min(longest, rest_.size())).indexOf(u';');
        const auto meant = end < 0 ? QString() : entity(rest_.sliced(1, end - 1));
        text_ += meant.isEmpty() ? u"&"_s : meant;
        rest_ = rest_.sliced(meant.isEmpty() ? 1 : end + 1);
    }

    void breakLine(bool evenIfEmpty) {
        while (text_.endsWith(u' ')) {
            text_.chop(1);
        }
        if (!text_.isEmpty() && (evenIfEmpty || !text_.endsWith(u'\n')) && !text_.endsWith(bullet())) {
            text_ += u'\n';
        }
    }

    /// White space in HTML is one space between words.
    void add(QChar character) {
        if (!character.isSpace()) {
            text_ += character;
        } else if (!text_.isEmpty() && !text_.back().isSpace()) {
            text_ += u' ';
        }
    }

    QStringView rest_;
    QString text_;
};

}  // namespace

QString plainNotes(const std::string& notes) {
    auto text = QString::fromUtf8(notes.data(), static_cast<qsizetype>(notes.size()));
    text.replace("\r\n"_L1, "\n"_L1);
    return isMarkup(text) ? HtmlText(text).text() : plainLines(text.trimmed());
}

}  // namespace kzq
