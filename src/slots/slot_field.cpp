#include "slots/slot_field.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "slots/slot.h"
#include "slots/slot_field_editor.h"
#include "slots/slot_field_editor_layout_manager.h"
#include "slots/slot_field_esc.h"
#include "ui/cut_tip.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr QColor pressedName(255, 255, 255, 43);

}  // namespace

SlotField::SlotField(QWidget* parent) : SlotDropTarget(parent) {
    setProperty("focusRingRadius", 4);
}

SlotField::~SlotField() {
    abortEditing();  // the editor has another owner and must not be deleted with this widget
}

void SlotField::awakeFromNib() {
    if (std::exchange(initialized_, true)) {
        return;
    }
    connect(&SlotFieldEsc::centre(), &SlotFieldEsc::posted, this, [this] {
        if (editable_) {
            setEditable(false);
        }
    });
}

QString SlotField::text() const {
    return editor_ != nullptr ? editor_->text() : text_;
}

void SlotField::setText(const QString& text) {
    text_ = text;
    if (editor_ != nullptr && editor_->text() != text) {
        editor_->setText(text);
    }
    update();
}

void SlotField::setTextColour(const QColor& colour) {
    textColour_ = colour;
    styleEditor();
}

void SlotField::setStyledText(const QFont& font) {
    styledFont_ = font;
    styleEditor();
}

void SlotField::styleEditor() {
    if (editor_ != nullptr) {
        editor_->setTextStyle(styledFont_.value_or(textFont()), textColour_);
    }
}

void SlotField::setPlainText() {
    styledFont_.reset();
}

SlotFieldEditor* SlotField::currentEditor() const {
    return editor_;
}

void SlotField::setEditable(bool editable) {
    if (editable && editor_ != nullptr) {
        editor_->selectAll();
    } else if (editable) {
        editable_ = openEditor();
    } else if (editable_) {
        if (editor_ != nullptr) {
            editor_->collapseSelection();
        }
        closeEditor();
        editable_ = false;
        commit();
    }
    if (auto* const row = controller(); row != nullptr) {
        row->sync();
    }
}

bool SlotField::openEditor() {
    auto* const row = controller();
    if (row == nullptr || row->delegate() == nullptr) {
        return false;
    }
    auto* const editor = row->delegate()->windowWillReturnFieldEditor(window(), this);
    if (editor == nullptr) {
        return false;
    }
    if (auto* const other = editor->field(); other != nullptr) {
        other->endEditing();
    }
    editable_ = true;
    editor_ = editor;
    styleEditor();
    editor->enter(*this, text_);
    row->controlTextDidBeginEditing();
    return editable_;
}

void SlotField::closeEditor() {
    auto* const editor = editor_.data();
    if (editor == nullptr) {
        return;
    }
    text_ = editor->text();
    editor_ = nullptr;  // from here on, losing the focus does not end the editing again
    if (editor->hasFocus()) {
        setFocus(editor->focusReason());
    }
    editor->leave();
    update();
}

void SlotField::abortEditing() {
    if (auto* const editor = editor_.data(); editor != nullptr) {
        editor_ = nullptr;
        editor->leave();
    }
    editable_ = false;
}

void SlotField::endEditing() {
    if (editor_ == nullptr) {
        return;
    }
    closeEditor();
    if (auto* const row = controller(); row != nullptr) {
        row->controlTextDidEndEditing();
    } else {
        editable_ = false;
    }
}

void SlotField::commit() {
    auto* const row = controller();
    if (row == nullptr) {
        return;
    }
    const auto typed = text_.trimmed();
    row->setCustomImportName(typed.isEmpty() ? std::nullopt : std::optional(typed));
    setText(typed.isEmpty() ? row->defaultName() : typed);
}

void SlotField::startRenaming() {
    auto* const row = controller();
    if (row == nullptr || row->isExport()) {
        return;
    }
    if (!isEnabled() || !row->selected()) {
        if (!row->occupied()) {
            return;
        }
        if (!row->selected()) {
            row->button()->click();
        }
    }
    setEditable(true);
}

QRect SlotField::focusRingRect() const {
    const auto* const row = controller();
    if (row == nullptr || row->background() == nullptr) {
        return rect();
    }
    return row->background()->geometry().translated(-pos());
}

void SlotField::paintEvent(QPaintEvent* /*event*/) {
    if (editor_ != nullptr || (controller() != nullptr && controller()->dropSign())) {
        return;
    }
    ScaledPainter painter(this);
    painter.setType(styledFont_.value_or(textFont()));
    const bool resting = textColour_ == restingTextColor();
    auto name = text_;
    auto colour = resting ? restingTextColor(painter.deviceScale()) : textColour_;
    if (const auto* const row = controller(); row != nullptr) {
        name = row->nameInSight();
        colour = row->nameColour(colour);
    }
    painter.setPen(colour);
    painter.writeName(QPointF(0, SlotFieldEditorLayoutManager::baseline), name, room());
}

double SlotField::room() const {
    const auto given = placeOf(*this);
    const auto* const row = controller();
    return row != nullptr ? row->layout().nameRight - given.x() : given.width();
}

/// The whole name, if it is cut; the row's tool tip is shown otherwise.
bool SlotField::event(QEvent* event) {
    const auto* const row = controller();
    return (event->type() == QEvent::ToolTip && editor_ == nullptr && row != nullptr &&
            showIfCut(*this, static_cast<QHelpEvent&>(*event), row->nameInSight(),
                      styledFont_.value_or(textFont()), room())) ||
           SlotDropTarget::event(event);
}

void SlotField::enterEvent(QEnterEvent* event) {
    SlotDropTarget::enterEvent(event);
    setTouch(true, false);
}

void SlotField::leaveEvent(QEvent* event) {
    SlotDropTarget::leaveEvent(event);
    setTouch(false, false);
}

void SlotField::setTouch(bool hovering, bool down) {
    hovering_ = hovering;
    down_ = down;
    if (const auto* const row = controller(); row != nullptr && row->background() != nullptr) {
        row->background()->update();
    }
}

QColor SlotField::tint() const {
    const auto* const row = controller();
    const bool opens =
        row != nullptr && !row->isExport() && row->occupied() && editor_ == nullptr && !row->dropSign();
    return !opens || !hovering_ ? QColor() : down_ ? pressedName : hoverTint();
}

void SlotField::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->isAccepted()) {
        setTouch(hovering_, true);
    }
}

void SlotField::mouseReleaseEvent(QMouseEvent* event) {
    setTouch(hovering_, false);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        startRenaming();
    }
}

void SlotField::keyPressEvent(QKeyEvent* event) {
    const auto key = event->key();
    const bool starts = key == Qt::Key_F2 || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!starts) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        startRenaming();
    }
}

void SlotField::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (editor_ != nullptr) {
        place(*editor_, {QPoint(), placeOf(*this).size()});
    }
}

}  // namespace kzq
