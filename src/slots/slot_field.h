#pragma once

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <optional>

#include "slots/slot_drop_target.h"

namespace kzq {

class SlotFieldEditor;

/// The name of a row: one line of text, elided with "…", 16 px high. While it is being edited it lies under
/// the shared field editor, which it borrows from the row's delegate. Its controller is notified when editing
/// starts and ends.
class SlotField : public SlotDropTarget<QWidget> {
    Q_OBJECT
    Q_PROPERTY(QRect focusRingRect READ focusRingRect)

  public:
    explicit SlotField(QWidget* parent = nullptr);
    ~SlotField() override;

    /// Called once, when the row is created: from now on Escape ends editing here.
    void awakeFromNib();

    /// The shown text, or the text in the open editor.
    QString text() const;
    void setText(const QString& text);

    /// Shows from the next redisplay on, in an open editor at once.
    const QColor& textColour() const { return textColour_; }
    void setTextColour(const QColor& colour);
    /// Gives the text, and the open editor, a font, until setPlainText() puts it back into the field's own.
    void setStyledText(const QFont& font);
    void setPlainText();
    bool styled() const { return styledFont_.has_value(); }

    bool isEditable() const { return editable_; }
    /// True opens the editor with the whole text selected. False closes it and makes the typed text, without
    /// white space at its ends, the row's custom name; no effect on a field that is not being edited.
    void setEditable(bool editable);

    /// The editor open in this field, or null.
    SlotFieldEditor* currentEditor() const;
    /// Closes an open editor as if it had lost the focus: the controller is notified.
    void endEditing();
    /// Closes an open editor and discards the typed text, without notification.
    void abortEditing();

    /// What a click on the name does: selects an import row that holds a loop and opens it for renaming.
    void startRenaming();

    /// The press goes on elsewhere, and with it its release.
    void letGo() { setTouch(hovering_, false); }

    /// Laid under the name while the pointer is on it, if a click would open it for renaming; else not valid.
    QColor tint() const;
    /// The focus ring follows the background picture. In this widget's coordinates.
    QRect focusRingRect() const;

  protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// How much of the name can be seen, in pixels of 100 %.
    double room() const;
    void setTouch(bool hovering, bool down);
    void styleEditor();
    bool openEditor();
    void closeEditor();
    void commit();

    QString text_;
    QColor textColour_;
    QPointer<SlotFieldEditor> editor_;  // borrowed while open
    std::optional<QFont> styledFont_;
    bool initialized_ = false;
    bool editable_ = false;
    bool hovering_ = false;
    bool down_ = false;  ///< the button was pressed here
};

}  // namespace kzq
