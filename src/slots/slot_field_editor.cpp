#include "slots/slot_field_editor.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "slots/slot_field.h"
#include "slots/slot_field_editor_layout_manager.h"
#include "slots/slot_field_esc.h"
#include "ui/menu_look.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr qreal caretTop = 3;
constexpr qreal caretHeight = 12;

constexpr char16_t beginsFrame = 0xFDD0;
constexpr char16_t endsFrame = 0xFDD1;

/// Line breaks, tabs and the like, and what the document takes for frame boundaries.
bool breaksLine(QChar character) {
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph || character == beginsFrame || character == endsFrame;
}

/// A row has one line.
QString oneLine(QString text) {
    text.replace(QString::fromLatin1("\r\n"), QString::fromLatin1(" "));
    std::replace_if(text.begin(), text.end(), breaksLine, QLatin1Char(' '));
    return text;
}

}  // namespace

SlotFieldEditor::SlotFieldEditor(QWidget* parent) : QTextEdit(parent) {
    hide();
    setFrameStyle(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QTextEdit::NoWrap);
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setAcceptDrops(false);  // files go to the row
    viewport()->setAcceptDrops(false);
    viewport()->setAutoFillBackground(false);  // the row's picture shows through
    awakeFromNib();
    setCursorWidth(1);
}

void SlotFieldEditor::awakeFromNib() {
    document()->setDocumentMargin(0);
    document()->setDocumentLayout(new SlotFieldEditorLayoutManager(document()));  // the document owns it
}

SlotField* SlotFieldEditor::field() const {
    return field_;
}

void SlotFieldEditor::enter(SlotField& field, const QString& text) {
    field_ = &field;
    focusReason_ = Qt::OtherFocusReason;
    setParent(&field);
    place(*this, {QPoint(), placeOf(field).size()});
    setAccessibleName(field.accessibleName());
    setText(text);
    selectAll();
    show();
    QWidget::setTabOrder(&field, this);
    setFocus(Qt::OtherFocusReason);
}

void SlotFieldEditor::leave() {
    field_ = nullptr;
    hide();
    setParent(nullptr);
}

void SlotFieldEditor::setText(const QString& text) {
    setPlainText(oneLine(text));
}

void SlotFieldEditor::setTextStyle(const QFont& font, const QColor& colour) {
    if (fontOf(*this) != font) {
        dress(*this, font);
    }
    auto colours = palette();
    colours.setColor(QPalette::Text, colour);
    setPalette(colours);
}

void SlotFieldEditor::collapseSelection() {
    auto cursor = textCursor();
    cursor.setPosition(0);
    setTextCursor(cursor);
}

QRectF SlotFieldEditor::insertionPointRect(qreal x) {
    const qreal top = onScreen(caretTop);
    const qreal foot = onScreen(caretTop + caretHeight);
    return {x, top, std::max(1.0, std::floor(Scale::ofProgram().size())), foot - top};
}

void SlotFieldEditor::keyPressEvent(QKeyEvent* event) {
    const auto key = event->key();
    if (key == Qt::Key_Escape) {
        event->accept();  // its release acts
    } else if (key != Qt::Key_Return && key != Qt::Key_Enter) {
        QTextEdit::keyPressEvent(event);
    } else if (field_ != nullptr && !event->isAutoRepeat()) {
        focusReason_ = Qt::TabFocusReason;
        field_->endEditing();
    }
}

void SlotFieldEditor::keyReleaseEvent(QKeyEvent* event) {
    QTextEdit::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat()) {
        event->accept();
        focusReason_ = Qt::TabFocusReason;
        SlotFieldEsc::centre().post();
    }
}

void SlotFieldEditor::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = createStandardContextMenu();
    dressMenu(*menu);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void SlotFieldEditor::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    // A menu, or switching to another window, does not end editing.
    const bool comesBack = event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::MenuBarFocusReason ||
                           event->reason() == Qt::ActiveWindowFocusReason;
    if (!comesBack && field_ != nullptr) {
        field_->endEditing();
    }
}

void SlotFieldEditor::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent composed(event->preeditString(), event->attributes());
    composed.setCommitString(oneLine(event->commitString()), event->replacementStart(),
                             event->replacementLength());
    QTextEdit::inputMethodEvent(&composed);
}

void SlotFieldEditor::insertFromMimeData(const QMimeData* source) {
    if (source->hasText()) {
        insertPlainText(oneLine(source->text()));
        ensureCursorVisible();
    }
}

void SlotFieldEditor::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    QPainter painter(viewport());
    painter.fillRect(insertionPointRect(cursorRect().x()), palette().color(QPalette::Text));
}

}  // namespace kzq
