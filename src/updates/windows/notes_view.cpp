#include "updates/windows/notes_view.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>

#include "ui/fonts.h"
#include "ui/handle_scroll_bar.h"
#include "ui/palette.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "updates/firmware_texts.h"

namespace kzq {
namespace {

constexpr double lineHeight = 22;
constexpr double indent = 15;     ///< from a bullet to its text
constexpr int bulletPixels = 15;  ///< the font's own bullet is barely visible at 13
constexpr int radius = 6;
constexpr int rim = 2;
constexpr QMargins inset(17, 10, 20 - HandleScrollBar::barWidth, 10 + rim);

double scale() {
    return Scale::ofProgram().size();
}

QString withoutControls(QString text) {
    text.removeIf([](QChar character) {
        return character.category() == QChar::Other_Control && character != u'\n' && character != u'\t';
    });
    return text;
}

QTextBlockFormat formatOf(bool listed) {
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignLeft);
    format.setLineHeight(lineHeight * scale(), QTextBlockFormat::FixedHeight);
    if (listed) {
        format.setTabPositions({QTextOption::Tab(indent * scale(), QTextOption::LeftTab)});
        format.setLeftMargin(indent * scale());
        format.setTextIndent(-indent * scale());
    }
    return format;
}

QTextCharFormat inkOf(const QColor& color, int pixels = 13) {
    QTextCharFormat format;
    format.setFont(fontOnScreen(textFont(pixels)));
    format.setForeground(color);
    return format;
}

}  // namespace

NotesView::NotesView(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setContextMenuPolicy(Qt::NoContextMenu);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);
    setFrameShape(QFrame::NoFrame);
    setProperty("focusRingRect", QRect());
    setProperty("focusRingRadius", radius);
    document()->setDocumentMargin(0);
    setFont(textFont());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(new HandleScrollBar(this));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // it draws nothing while there is nothing to scroll
    setViewportMargins(inset * scale());
    connect(&Scale::ofProgram(), &Scale::changed, this, &NotesView::dressAnew);
    viewport()->setAutoFillBackground(false);
    auto colours = palette();
    colours.setColor(QPalette::Highlight, KZQTextHighlight());
    colours.setColor(QPalette::HighlightedText, Qt::black);
    setPalette(colours);
}

void NotesView::appendNotes(const QString& notes) {
    const auto room = longestNotes - document()->characterCount();
    const auto lines = withoutControls(notes.left(std::max<qsizetype>(room, 0))).split(u'\n');
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();  // else each line would be laid out separately, and thousands would block the
                              // window
    for (const auto& line : lines) {
        appendLine(cursor, line);
    }
    cursor.endEditBlock();
    moveCursor(QTextCursor::Start);
    if (toPlainText() == emptied_) {
        auto marked = textCursor();
        marked.setPosition(emptiedAnchor_);
        marked.setPosition(emptiedCaret_, QTextCursor::KeepAnchor);
        setTextCursor(marked);
        document()->documentLayout()->documentSize();  // determines the scroll range
        verticalScrollBar()->setValue(emptiedAt_);
    }
}

/// The text has its sizes in it.
void NotesView::dressAnew() {
    setViewportMargins(inset * scale());
    const auto notes = toPlainText();
    emptyNotes();
    if (!notes.isEmpty()) {
        appendNotes(notes);
    }
}

void NotesView::appendLine(QTextCursor& cursor, const QString& line) const {
    const auto bullet = QString::fromUtf8(notesBullet);
    const bool listed = line.startsWith(bullet);
    if (!document()->isEmpty()) {
        cursor.insertBlock();
    }
    cursor.setBlockFormat(formatOf(listed));
    if (listed) {
        cursor.insertText(bullet, inkOf(KZQYellow(), bulletPixels));
    }
    cursor.insertText(listed ? line.sliced(bullet.size()) : line, inkOf(creamColor()));
}

void NotesView::emptyNotes() {
    emptied_ = toPlainText();
    emptiedAnchor_ = textCursor().anchor();
    emptiedCaret_ = textCursor().position();
    emptiedAt_ = verticalScrollBar()->value();
    clear();
}

/// The area itself paints the groove, behind its viewport and its scroll bar.
bool NotesView::event(QEvent* event) {
    if (event->type() != QEvent::Paint) {
        return QTextEdit::event(event);
    }
    ScaledPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(rimColor());
    painter.drawRoundedRect(painter.bounds(), radius, radius);
    painter.setBrush(grooveColor());
    painter.drawRoundedRect(painter.bounds().adjusted(0, 0, 0, -rim), radius, radius);
    return true;
}

}  // namespace kzq
